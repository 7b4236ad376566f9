#include "platform/xml/XmlNode.h"

#include "XmlTree.h"
#include "base/BasicError.h"
#include "base/modUtf8.h"

#include <algorithm>
#include <libxml/tree.h>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

std::string_view View(const xmlChar* text) {
    return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

const xmlChar* AsXml(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

bool IsNamed(std::string_view name, const xmlNs* nameSpace, const xmlChar* localName) {
    const std::string_view prefix =
        nameSpace == nullptr ? std::string_view() : View(nameSpace->prefix);
    if (prefix.empty()) {
        return name == View(localName);
    }
    return name.size() > prefix.size() && name.starts_with(prefix) && name[prefix.size()] == ':' &&
           name.substr(prefix.size() + 1) == View(localName);
}

xmlAttr* FirstAttribute(const _xmlNode* node) {
    return node->type == XML_ELEMENT_NODE ? node->properties : nullptr;
}

xmlAttr* AttributeAt(const _xmlNode* node, std::int32_t position) {
    xmlAttr* attribute = position < 0 ? nullptr : FirstAttribute(node);
    for (; attribute != nullptr && position > 0; --position) {
        attribute = attribute->next;
    }
    return attribute;
}

xmlAttr* AttributeNamed(const _xmlNode* node, std::string_view name) {
    xmlAttr* attribute = FirstAttribute(node);
    while (attribute != nullptr && !IsNamed(name, attribute->ns, attribute->name)) {
        attribute = attribute->next;
    }
    return attribute;
}

/// Without the library's own function, which hands back what fitted into the memory as if that were all.
std::optional<std::string> ValueOf(const xmlAttr* attribute) {
    if (attribute == nullptr) {
        return std::nullopt;
    }
    std::string value;
    // References are resolved: what they stand for is text.
    for (const xmlNode* piece = attribute->children; piece != nullptr; piece = piece->next) {
        value += View(piece->content);
    }
    return value;
}

bool IsXmlCharacter(char32_t character) {
    return character >= 0x20 ? character != 0xFFFE && character != 0xFFFF
                             : character == '\t' || character == '\n' || character == '\r';
}

/// How many ordinary ASCII characters a text begins with.
std::size_t PlainRun(std::string_view text) {
    const auto isPlain = [](char c) {
        return static_cast<unsigned char>(c) - 0x20U < 0x60U;
    };
    const auto end = std::find_if_not(text.begin(), text.end(), isPlain);
    return static_cast<std::size_t>(end - text.begin());
}

/// The text with a replacement for every character that an XML file cannot hold.
std::string Storable(std::string_view text) {
    std::string storable;
    storable.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t plain = PlainRun(text.substr(at));
        if (plain > 0) {
            storable += text.substr(at, plain);
            at += plain;
            continue;
        }
        const std::size_t size = modUtf8::CharacterSize(text, at);
        const bool kept = IsXmlCharacter(modUtf8::CodePoint(text, at));
        const std::string_view character = text.substr(at, size);
        storable += kept && modUtf8::IsValid(character) ? character : kReplacement;
        at += size;
    }
    return storable;
}

void StoreValue(_xmlNode* node, const xmlAttr* attribute, std::string_view value) {
    xmlSetNsProp(node, attribute->ns, attribute->name, AsXml(Storable(value)));
}

}  // namespace

XmlNode::XmlNode(std::shared_ptr<XmlTree> tree, _xmlNode* node)
    : m_tree(std::move(tree)), m_node(node) {}

_xmlNode* XmlNode::Node() const {
    if (m_node == nullptr) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return m_node;
}

std::int32_t XmlNode::Type() const {
    return static_cast<std::int32_t>(Node()->type);
}

std::string XmlNode::BaseName() const {
    return Node()->type == XML_ELEMENT_NODE ? std::string(View(Node()->name)) : std::string();
}

std::int32_t XmlNode::Line() const {
    // The library counts in 16 bits and stays at the largest number.
    constexpr long kUnknown = 65535;
    const long line = xmlGetLineNo(Node());
    return line < 1 || line >= kUnknown ? 0 : static_cast<std::int32_t>(line);
}

std::string XmlNode::Xml() const {
    return m_tree->TextOf(Node(), /*indented=*/false);
}

std::int32_t XmlNode::ChildCount() const {
    return static_cast<std::int32_t>(m_tree->ChildrenOf(Node()).size());
}

XmlNode XmlNode::Child(std::int32_t position) const {
    const std::vector<_xmlNode*>& children = m_tree->ChildrenOf(Node());
    if (position < 0 || static_cast<std::size_t>(position) >= children.size()) {
        return {};
    }
    return {m_tree, children[static_cast<std::size_t>(position)]};
}

std::vector<XmlNode> XmlNode::DescendantsByName(std::string_view name) const {
    std::vector<XmlNode> found;
    std::vector<_xmlNode*> open{Node()};
    while (!open.empty()) {
        _xmlNode* node = open.back();
        open.pop_back();
        const bool wanted = name == "*" || IsNamed(name, node->ns, node->name);
        if (node != m_node && wanted && node->type == XML_ELEMENT_NODE) {
            found.push_back({m_tree, node});
        }
        const std::vector<_xmlNode*>& children = m_tree->ChildrenOf(node);
        open.insert(open.end(), children.rbegin(), children.rend());
    }
    return found;
}

std::int32_t XmlNode::AttributeCount() const {
    std::int32_t count = 0;
    for (const xmlAttr* attribute = FirstAttribute(Node()); attribute != nullptr;
         attribute = attribute->next) {
        ++count;
    }
    return count;
}

std::optional<std::string> XmlNode::AttributeName(std::int32_t position) const {
    const xmlAttr* attribute = AttributeAt(Node(), position);
    return attribute == nullptr ? std::nullopt : std::optional<std::string>(View(attribute->name));
}

std::optional<std::string> XmlNode::AttributeValue(std::int32_t position) const {
    return ValueOf(AttributeAt(Node(), position));
}

bool XmlNode::SetAttributeValue(std::int32_t position, std::string_view value) {
    const xmlAttr* attribute = AttributeAt(Node(), position);
    if (attribute != nullptr) {
        StoreValue(Node(), attribute, value);
    }
    return attribute != nullptr;
}

std::optional<std::string> XmlNode::Attribute(std::string_view name) const {
    return ValueOf(AttributeNamed(Node(), name));
}

void XmlNode::SetAttribute(std::string_view name, std::string_view value) {
    if (const xmlAttr* attribute = AttributeNamed(Node(), name)) {
        StoreValue(Node(), attribute, value);
        return;
    }
    xmlSetProp(Node(), AsXml(std::string(name)), AsXml(Storable(value)));
}

XmlNode XmlNode::AddElement(std::string_view name, std::int32_t position) {
    _xmlNode* const before = Child(position).m_node;
    return {m_tree, m_tree->AddElement(Node(), before, std::string(name))};
}

bool XmlNode::RemoveChild(const XmlNode& child) {
    if (child.Node()->parent != m_node) {
        return false;
    }
    m_tree->Remove(child.m_node);
    return true;
}

}  // namespace dorvik
