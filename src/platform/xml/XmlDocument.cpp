#include "platform/xml/XmlDocument.h"

#include "XmlTree.h"
#include "base/modText.h"
#include "modXmlTransformation.h"
#include "platform/host/HostError.h"
#include "platform/host/modFiles.h"

#include <algorithm>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <new>
#include <utility>
#include <vector>

namespace dorvik {

namespace {

constexpr std::string_view kTooLong = "The document is longer than 64 MB.";
constexpr std::string_view kTooManyAttributes = "An element has more than 10,000 attributes.";
constexpr std::int32_t kUnspecifiedFailure = static_cast<std::int32_t>(0x80004005);

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

std::string OnOneLine(std::string text) {
    while (text.ends_with('\n')) {
        text.pop_back();
    }
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

/// Listens to the library for as long as it lives, and keeps what made a text unreadable: the first
/// fatal error, because others only follow from it, or else the first of all. Nothing goes to the
/// standard error.
class ErrorRecord {
public:
    ErrorRecord() { xmlSetStructuredErrorFunc(this, &Note); }
    ~ErrorRecord() { xmlSetStructuredErrorFunc(nullptr, nullptr); }
    ErrorRecord(const ErrorRecord&) = delete;
    ErrorRecord& operator=(const ErrorRecord&) = delete;

    std::int32_t Code() const { return m_code != 0 ? m_code : kUnspecifiedFailure; }
    std::string Reason() const {
        return m_message.empty() ? "The text is not well-formed." : OnOneLine(m_message);
    }
    int Line() const { return m_line; }
    /// The library continues with what it has, as if that were all.
    bool RanOutOfMemory() const { return m_ranOutOfMemory; }

private:
    static void Note(void* record, xmlError* error) {
        auto* self = static_cast<ErrorRecord*>(record);
        if (error->code == XML_ERR_NO_MEMORY) {
            self->m_ranOutOfMemory = true;
            return;
        }
        const bool isFatal = error->level == XML_ERR_FATAL;
        if (error->level < XML_ERR_ERROR || self->m_isFatal || (self->m_code != 0 && !isFatal)) {
            return;
        }
        self->m_isFatal = isFatal;
        self->m_code = error->code;
        self->m_line = error->line;
        self->m_message = error->message == nullptr ? "" : error->message;
    }

    std::string m_message;
    std::int32_t m_code = 0;
    int m_line = 0;
    bool m_isFatal = false;
    bool m_ranOutOfMemory = false;
};

/// The library crashes at some places where it gets no memory, so the shortage is to show before it begins.
/// Raises std::bad_alloc.
void RequireMemoryFor(std::size_t bytes) {
    constexpr std::size_t kOfParser = 1'000'000;
    constexpr std::size_t kOfEachByte = 32;  // a node of 120 bytes for an element of four, "<a/>"
    static_cast<void>(std::make_unique_for_overwrite<char[]>(kOfParser + kOfEachByte * bytes));
}

/// REQUIRES: the parser has come to its end.
bool RanOutOfMemory(const xmlParserCtxt& parser, const ErrorRecord& errors) {
    return parser.errNo == XML_ERR_NO_MEMORY || errors.RanOutOfMemory();
}

std::shared_ptr<XmlTree> EmptyTree() {
    return std::make_shared<XmlTree>(xmlNewDoc(BAD_CAST "1.0"));
}

/// What is in there is text as it is, white space too.
bool IsTextOfAStyleSheet(const xmlNode* element) {
    return element->ns != nullptr && xmlStrEqual(element->name, BAD_CAST "text") != 0 &&
           xmlStrEqual(element->ns->href, BAD_CAST "http://www.w3.org/1999/XSL/Transform") != 0;
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
                if (!IsTextOfAStyleSheet(child)) {
                    open.push_back(child);
                }
            } else if (xmlIsBlankNode(child) != 0) {
                xmlUnlinkNode(child);
                xmlFreeNode(child);
            }
            child = next;
        }
    }
}

/// UTF-16 shows in its first character, which is "<" in every document without a byte order mark;
/// the library knows it by itself only where a declaration follows.
const char* EncodingOf(std::string_view bytes) {
    constexpr std::string_view kLittleEndian("<\0", 2);
    constexpr std::string_view kBigEndian("\0<", 2);
    if (bytes.starts_with(kLittleEndian)) {
        return "UTF-16LE";
    }
    return bytes.starts_with(kBigEndian) ? "UTF-16BE" : nullptr;
}

/// What no attribute can do without: a "=" before a quotation mark, and white space or the zeros of
/// a wider encoding at most between them.
std::size_t CountOfAttributes(std::string_view bytes) {
    std::size_t count = 0;
    char before = 0;
    for (const char byte : bytes) {
        const bool isQuote = byte == '"' || byte == '\'';
        count += isQuote && before == '=' ? 1 : 0;
        const bool isSpace = byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
        if (byte != '\0' && !isSpace) {
            before = byte;
        }
    }
    return count;
}

/// Whether an element has more attributes than anyone writes, so many that the library would hang.
/// Works on the bytes of any encoding, because no value of an attribute holds a "<".
bool HasTooManyAttributes(std::string_view bytes) {
    constexpr std::size_t kShortest = 4;  // of a name, "=" and two quotation marks
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('<', 1), bytes.size());
        if (end > XmlDocument::kMaximumAttributes * kShortest &&
            CountOfAttributes(bytes.substr(0, end)) > XmlDocument::kMaximumAttributes) {
            return true;
        }
        bytes.remove_prefix(end);
    }
    return false;
}

/// " (line 3 of \team\rules.dvk)", or as much of it as is known.
std::string PlaceText(int line, const std::string& path) {
    if (line <= 0 && path.empty()) {
        return {};
    }
    std::string text = line > 0 ? "line " + std::to_string(line) : std::string();
    if (!path.empty()) {
        text.append(text.empty() ? "" : " of ").append(path);
    }
    return " (" + text + ")";
}

}  // namespace

std::string XmlError::Message() const {
    return "XML Parser Error: Number=" + std::to_string(Code) + " Reason=" + Reason;
}

XmlDocument::XmlDocument() : m_tree(EmptyTree()) {}

XmlDocument::~XmlDocument() = default;

bool XmlDocument::Load(std::string_view path) {
    m_path = path;
    try {
        // The size first: what is too long is not even read.
        if (modFiles::FileSize(path) > static_cast<std::int64_t>(kMaximumSize)) {
            return Refuse(XML_ERR_NO_MEMORY, std::string(kTooLong) + PlaceText(0, m_path));
        }
        const std::string bytes = modFiles::ReadBytes(path);
        return Parse(bytes, EncodingOf(bytes));
    } catch (const HostError& failure) {
        return Refuse(failure.SystemCode(), failure.what());
    } catch (const BasicError& failure) {
        return Refuse(kUnspecifiedFailure, failure.what());
    }
}

bool XmlDocument::LoadText(std::string_view text) {
    m_path.clear();
    return Parse(text, "UTF-8");
}

bool XmlDocument::Refuse(std::int32_t code, std::string reason) {
    m_tree = EmptyTree();
    m_error = {code, std::move(reason)};
    return false;
}

bool XmlDocument::Parse(std::string_view bytes, const char* encoding) {
    if (bytes.size() > kMaximumSize) {
        return Refuse(XML_ERR_NO_MEMORY, std::string(kTooLong) + PlaceText(0, m_path));
    }
    if (HasTooManyAttributes(bytes)) {
        return Refuse(XML_ERR_NO_MEMORY, std::string(kTooManyAttributes) + PlaceText(0, m_path));
    }
    RequireMemoryFor(bytes.size());
    const ErrorRecord errors;
    const ParserContext parser(xmlNewParserCtxt());
    if (parser == nullptr) {
        throw std::bad_alloc();
    }
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
    if (documentTypeRefused) {
        // The parser was stopped, but can hand back what it has as if that were all.
        xmlFreeDoc(document);
        return Refuse(XML_ERR_USER_STOP, std::string(kDocumentTypeRefused) + PlaceText(0, m_path));
    }
    if (RanOutOfMemory(*parser, errors)) {
        xmlFreeDoc(document);
        throw std::bad_alloc();
    }
    if (document == nullptr || parser->wellFormed == 0) {
        xmlFreeDoc(document);
        return Refuse(errors.Code(), errors.Reason() + PlaceText(errors.Line(), m_path));
    }
    m_tree = std::make_shared<XmlTree>(document);
    m_error = {};
    RemoveWhiteSpace(m_tree->Root());
    return true;
}

bool XmlDocument::Save(std::string_view path) {
    m_error = {};
    try {
        modFiles::WriteBytesChecked(path, IndentedText());
    } catch (const HostError& failure) {
        m_error = {failure.SystemCode(), failure.what()};
    } catch (const BasicError& failure) {
        m_error = {kUnspecifiedFailure, failure.what()};
    }
    return m_error.Code == 0;
}

std::string XmlDocument::Transform(const XmlDocument& styleSheet) {
    return modXmlTransformation::Transform(*m_tree, *styleSheet.m_tree, m_error);
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
