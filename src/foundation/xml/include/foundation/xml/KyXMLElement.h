#pragma once

#include "foundation/lists/ObjectArrayList.h"
#include "platform/xml/XmlNode.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

class XmlDocument;

/// An element of a `KyXMLDoc`, handed out by the document or another element. It stays valid when
/// its node is removed. Positions of children and attributes count from 0. Text is a child like an
/// element; white space between elements, comments and processing instructions are not there.
///
/// Attribute values are stored with a line end, a tab, "<" and ">" written out as "%CRLF%", "%TAB%",
/// "%LT%" and "%GT%"; callers see the characters.
///
/// Errors: lookups that fail are logged and give no object. Reading an attribute that is not there
/// raises `kObjectNotSet` to the caller.
class KyXMLElement {
public:
    const XmlNode& XMLNode() const { return m_node; }
    std::string XMLString() const;
    /// Where it is, for messages: "the element Rules (line 4 of \team\rules.dvk)". Line and file
    /// are left out where they are not known.
    std::string PlaceText() const;

    /// Number of children of every kind.
    std::int32_t ElementCount() const;
    /// 1 for an element, 3 for text.
    std::int32_t ElementType() const;
    /// Without a prefix; empty for text.
    std::string ElementName() const;

    std::int32_t AttributeCount() const;
    /// Without a prefix. Raises `kObjectNotSet` where there is no such attribute.
    std::string AttributeName(std::int32_t index) const;
    std::string AttributeValue(std::int32_t index) const;
    void SetAttributeValue(std::int32_t index, std::string_view value);
    /// The name is exact, case included.
    // Required: an absent attribute is a failure for the caller; readers end a section by it.
    std::string AttributeValueByName(std::string_view name) const;
    /// Adds the attribute if it is not there.
    void SetAttributeValueByName(std::string_view name, std::string_view value);
    void AddAttribute(std::string_view name, std::string_view value);

    /// The first child of that name, without regard to case, at or after `startPosition`; a
    /// `startPosition` that names no child stands for 0. `position` becomes its position, or -1.
    std::shared_ptr<KyXMLElement> ElementByName(
        std::string_view name, std::int32_t& position, std::int32_t startPosition = 0) const;
    std::shared_ptr<KyXMLElement> ElementByName(std::string_view name) const;
    /// All descendants of exactly that name, case included, in the order of the document.
    ObjectArrayList<KyXMLElement> ElementListByName(std::string_view name) const;
    std::shared_ptr<KyXMLElement> ElementAtPosition(std::int32_t position) const;
    /// The first child with that value, without regard to case, under exactly that attribute name.
    std::shared_ptr<KyXMLElement>
    ElementByAttributeValue(std::string_view attributeName, std::string_view value) const;

    /// Adds a child before the one at `position`; at the end for -1 or where there is no such child.
    std::shared_ptr<KyXMLElement> AddElement(std::string_view name, std::int32_t position = -1);
    bool RemoveElement(std::int32_t position);
    bool RemoveElementByAttributeValue(std::string_view attributeName, std::string_view value);
    void RemoveAllElements();

    static std::string ReplaceIllegalChars(std::string_view text);
    /// "%crlf%" in any case counts.
    static std::string RestoreIllegalChars(std::string_view text);

private:
    friend class KyXMLDoc;

    KyXMLElement(std::shared_ptr<XmlDocument> document, const XmlNode& node);
    static std::shared_ptr<KyXMLElement>
    Bind(const std::shared_ptr<XmlDocument>& document, const XmlNode& node);
    /// Logs what went wrong last in the document.
    void LogParserError(std::string_view procedure) const;
    XmlNode ChildByAttributeValue(std::string_view attributeName, std::string_view value) const;
    bool RemoveChild(const XmlNode& child, std::string_view procedure);

    std::shared_ptr<XmlDocument> m_document;
    XmlNode m_node;
};

/// The element itself; raises `kObjectNotSet` where there is none. For code that takes a missing
/// element as the failure of the operation around it.
KyXMLElement& ExistingElement(const std::shared_ptr<KyXMLElement>& element);

}  // namespace dorvik
