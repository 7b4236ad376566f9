#include "XmlTree.h"

#include <libxml/tree.h>
#include <libxml/xmlsave.h>
#include <memory>
#include <utility>

namespace dorvik {

namespace {

const xmlChar* AsXml(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

}  // namespace

XmlTree::XmlTree(_xmlDoc* document) : m_document(document) {
    // Text goes out as UTF-8, whatever the file was in; without an encoding the library writes
    // letters beyond ASCII as numbers.
    xmlFree(const_cast<xmlChar*>(m_document->encoding));
    m_document->encoding = xmlStrdup(BAD_CAST "UTF-8");
}

XmlTree::~XmlTree() {
    for (_xmlNode* node : m_removed) {
        xmlFreeNode(node);
    }
    xmlFreeDoc(m_document);
}

_xmlNode* XmlTree::Root() const {
    return xmlDocGetRootElement(m_document);
}

const std::vector<_xmlNode*>& XmlTree::ChildrenOf(_xmlNode* parent) {
    if (const auto known = m_children.find(parent); known != m_children.end()) {
        return known->second;
    }
    // Kept only when it is whole: memory may run out on the way.
    std::vector<_xmlNode*> children;
    // Only elements have children of their own kind; for text the field means something else.
    if (parent->type == XML_ELEMENT_NODE) {
        for (_xmlNode* child = parent->children; child != nullptr; child = child->next) {
            children.push_back(child);
        }
    }
    return m_children.emplace(parent, std::move(children)).first->second;
}

_xmlNode* XmlTree::AddElement(_xmlNode* parent, _xmlNode* before, const std::string& name) {
    _xmlNode* node = xmlNewDocNode(m_document, nullptr, AsXml(name), nullptr);
    if (before != nullptr) {
        m_children.erase(parent);
        return xmlAddPrevSibling(before, node);
    }
    // A child at the end joins the others, so that a long list is not traversed for each of them.
    if (const auto known = m_children.find(parent); known != m_children.end()) {
        known->second.push_back(node);
    }
    return xmlAddChild(parent, node);
}

void XmlTree::Remove(_xmlNode* node) {
    m_children.erase(node->parent);
    xmlUnlinkNode(node);
    m_removed.insert(node);
}

std::string XmlTree::TextOf(_xmlNode* node, bool indented) const {
    if (node == nullptr) {
        return {};
    }
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(
        xmlBufferCreate(), &xmlBufferFree);
    const int options = XML_SAVE_NO_DECL | XML_SAVE_AS_XML | (indented ? XML_SAVE_FORMAT : 0);
    xmlSaveCtxt* saving = xmlSaveToBuffer(buffer.get(), "UTF-8", options);
    xmlSaveTree(saving, node);
    xmlSaveClose(saving);
    return {
        reinterpret_cast<const char*>(xmlBufferContent(buffer.get())),
        static_cast<std::size_t>(xmlBufferLength(buffer.get()))};
}

}  // namespace dorvik
