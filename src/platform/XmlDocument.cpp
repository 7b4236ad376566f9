#include "platform/XmlDocument.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "platform/XmlTree.h"
#include "platform/modFiles.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <vector>

namespace dorvik {

namespace {

/// The system's codes for a failing disk.
constexpr std::int32_t SystemCode(std::uint32_t code) {
    return static_cast<std::int32_t>(code);
}
constexpr std::int32_t kUnspecifiedFailure = SystemCode(0x80004005);

struct CodeRow {
    std::int32_t Number;  // of the run-time error
    std::int32_t Code;    // of the system
};

constexpr CodeRow kCodes[] = {
    {runtimeerror::kFileNotFound, SystemCode(0x80070002)},
    {runtimeerror::kPathNotFound, SystemCode(0x80070003)},
    {runtimeerror::kPermissionDenied, SystemCode(0x80070005)},
    {runtimeerror::kPathFileAccess, SystemCode(0x80070005)},
    {runtimeerror::kDiskFull, SystemCode(0x80070070)},
};

XmlError ErrorOf(const BasicError& failure) {
    for (const CodeRow& row : kCodes) {
        if (row.Number == failure.Number()) {
            return {row.Code, failure.what()};
        }
    }
    return {kUnspecifiedFailure, failure.what()};
}

struct FreeContext {
    void operator()(xmlParserCtxt* context) const {
        xmlFreeDoc(context->myDoc);
        xmlFreeParserCtxt(context);
    }
};
using ParserContext = std::unique_ptr<xmlParserCtxt, FreeContext>;

/// Stops the parser at the document type, before anything that it declares can take effect.
void RefuseDocumentType(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    auto* parser = static_cast<xmlParserCtxt*>(context);
    *static_cast<bool*>(parser->_private) = true;
    xmlStopParser(parser);
}

std::shared_ptr<XmlTree> EmptyTree() {
    return std::make_shared<XmlTree>(xmlNewDoc(BAD_CAST "1.0"));
}

/// Takes out the text between elements that is nothing but white space.
void RemoveWhiteSpace(xmlNode* root) {
    std::vector<xmlNode*> open{root};
    while (!open.empty()) {
        const xmlNode* parent = open.back();
        open.pop_back();
        for (xmlNode* child = parent->children; child != nullptr;) {
            xmlNode* const next = child->next;
            if (child->type == XML_ELEMENT_NODE) {
                open.push_back(child);
            } else if (xmlIsBlankNode(child) != 0) {
                xmlUnlinkNode(child);
                xmlFreeNode(child);
            }
            child = next;
        }
    }
}

XmlError ErrorOf(const xmlParserCtxt& parser, bool documentTypeRefused) {
    if (documentTypeRefused) {
        return {XML_ERR_USER_STOP, std::string(XmlDocument::kDocumentTypeRefused)};
    }
    const xmlError& last = parser.lastError;
    std::string reason = last.message == nullptr ? "The text is not well-formed." : last.message;
    while (reason.ends_with('\n')) {
        reason.pop_back();
    }
    if (last.line > 0) {
        reason += " (line " + std::to_string(last.line) + ")";
    }
    return {last.code != 0 ? last.code : kUnspecifiedFailure, reason};
}

}  // namespace

std::string XmlError::Message() const {
    return "XML Parser Error: Number=" + std::to_string(Code) + " Reason=" + Reason;
}

XmlDocument::XmlDocument() : m_tree(EmptyTree()) {}

XmlDocument::~XmlDocument() = default;

bool XmlDocument::Load(std::string_view path) {
    try {
        // The size first: what is too long is not even read.
        if (modFiles::FileSize(path) > static_cast<std::int64_t>(kMaximumSize)) {
            m_tree = EmptyTree();
            m_error = {XML_ERR_NO_MEMORY, "The file is too long."};
            return false;
        }
        return Parse(modFiles::ReadBytes(path), nullptr);
    } catch (const BasicError& failure) {
        m_tree = EmptyTree();
        m_error = ErrorOf(failure);
        return false;
    }
}

bool XmlDocument::LoadText(std::string_view text) {
    return Parse(text, "UTF-8");
}

bool XmlDocument::Parse(std::string_view bytes, const char* encoding) {
    m_tree = EmptyTree();
    m_error = {};
    if (bytes.size() > kMaximumSize) {
        m_error = {XML_ERR_NO_MEMORY, "The text is too long."};
        return false;
    }
    const ParserContext parser(xmlNewParserCtxt());
    bool documentTypeRefused = false;
    parser->_private = &documentTypeRefused;
    parser->sax->internalSubset = &RefuseDocumentType;
    parser->sax->comment = nullptr;
    parser->sax->processingInstruction = nullptr;
    // Without XML_PARSE_HUGE the library's own limits on depth and on the length of names and
    // values hold.
    constexpr int kOptions =
        XML_PARSE_NONET | XML_PARSE_NOCDATA | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    xmlDoc* document = xmlCtxtReadMemory(
        parser.get(), bytes.data(), static_cast<int>(bytes.size()), nullptr, encoding, kOptions);
    if (document == nullptr || documentTypeRefused || parser->wellFormed == 0) {
        xmlFreeDoc(document);
        m_error = ErrorOf(*parser, documentTypeRefused);
        return false;
    }
    m_tree = std::make_shared<XmlTree>(document);
    RemoveWhiteSpace(m_tree->Root());
    return true;
}

bool XmlDocument::Save(std::string_view path) {
    try {
        modFiles::WriteBytesAtomically(path, IndentedText());
        m_error = {};
        return true;
    } catch (const BasicError& failure) {
        m_error = ErrorOf(failure);
        return false;
    }
}

std::string XmlDocument::IndentedText() const {
    std::string text = m_tree->TextOf(m_tree->Root(), /*indented=*/true);
    return text.append(modText::kLineEnd);
}

XmlNode XmlDocument::DocumentElement() const {
    return {m_tree, m_tree->Root()};
}

std::string XmlDocument::Xml() const {
    return m_tree->TextOf(m_tree->Root(), /*indented=*/false);
}

bool XmlDocument::AllowsName(std::string_view name) {
    m_error = {};
    if (xmlValidateQName(BAD_CAST std::string(name).c_str(), /*space=*/0) != 0 ||
        name.find('\0') != std::string_view::npos) {
        m_error = {XML_ERR_NAME_REQUIRED, "'" + std::string(name) + "' is not a name."};
        return false;
    }
    return true;
}

}  // namespace dorvik
