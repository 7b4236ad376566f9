#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

struct _xmlDoc;
struct _xmlNode;

namespace dorvik {

/// The tree of a document and its nodes, on libxml2; shared by all of them, so a node outlives
/// its document. Only the XML layer of this folder uses it.
class XmlTree {
public:
    /// Takes ownership of `document`, which is never null.
    explicit XmlTree(_xmlDoc* document);
    ~XmlTree();
    XmlTree(const XmlTree&) = delete;
    XmlTree& operator=(const XmlTree&) = delete;

    _xmlDoc* Document() const { return m_document; }
    _xmlNode* Root() const;

    /// The children in order. Valid until the tree changes.
    const std::vector<_xmlNode*>& ChildrenOf(_xmlNode* parent);

    _xmlNode* AddElement(_xmlNode* parent, _xmlNode* before, const std::string& name);
    void Remove(_xmlNode* node);

    /// The node, or the whole of the document for its root, as XML text.
    std::string TextOf(_xmlNode* node, bool indented) const;

private:
    _xmlDoc* m_document;
    std::unordered_set<_xmlNode*> m_removed;  // freed with the tree, someone may still hold them
    // Positions are queried one by one, but the library has the children as a chain.
    std::unordered_map<_xmlNode*, std::vector<_xmlNode*>> m_children;
};

}  // namespace dorvik
