#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct _xmlNode;

namespace dorvik {

class XmlTree;

/// A node of an XML tree: an element or a piece of text. Cheap to copy; copies name the same node and
/// keep its tree alive. A default node is null; all but `IsNull` raises `kObjectNotSet` then. A node that was
/// removed from its parent stays usable. Positions count from 0.
class XmlNode {
public:
    XmlNode() = default;
    XmlNode(std::shared_ptr<XmlTree> tree, _xmlNode* node);

    bool IsNull() const { return m_node == nullptr; }

    /// The number of the node type in the document object model: 1 element, 3 text.
    std::int32_t Type() const;
    /// The name without its prefix; empty for text.
    std::string BaseName() const;
    /// The line of the text that the node was read from; 0 where it is not known.
    std::int32_t Line() const;
    /// The node as XML text, on one line where the values allow it.
    std::string Xml() const;

    std::int32_t ChildCount() const;
    /// A null node where there is no such child.
    XmlNode Child(std::int32_t position) const;
    /// Elements at every depth below this one, in the order of the document, whose name, prefix
    /// included, is exactly this; "*" stands for every name.
    std::vector<XmlNode> DescendantsByName(std::string_view name) const;

    std::int32_t AttributeCount() const;
    /// Nothing where there is no such attribute.
    std::optional<std::string> AttributeName(std::int32_t position) const;
    std::optional<std::string> AttributeValue(std::int32_t position) const;
    /// False where there is no such attribute.
    bool SetAttributeValue(std::int32_t position, std::string_view value);
    /// By the name as it is written, prefix and case included.
    std::optional<std::string> Attribute(std::string_view name) const;
    /// Adds the attribute if it is not there. Characters that XML cannot hold become U+FFFD.
    /// REQUIRES: this is an element, the document `AllowsName(name)`.
    void SetAttribute(std::string_view name, std::string_view value);

    /// A new element before the child at `position`, at the end where there is none.
    /// REQUIRES: this is an element, the document `AllowsName(name)`.
    XmlNode AddElement(std::string_view name, std::int32_t position);
    /// False if `child` is not a child of this.
    bool RemoveChild(const XmlNode& child);

private:
    _xmlNode* Node() const;  // never null

    std::shared_ptr<XmlTree> m_tree;
    _xmlNode* m_node = nullptr;
};

}  // namespace dorvik
