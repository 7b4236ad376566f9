#include "modXmlTransformation.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <libxml/parser.h>
#include <libxslt/documents.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>
#include <memory>

namespace dorvik::modXmlTransformation {

namespace {

/// Steps of one transformation; a document of the longest allowed size needs far fewer.
constexpr unsigned long kMaximumSteps = 5'000'000;

/// The address of the style sheet, so that it can name itself.
const char* const kOwnAddress = "sheet:///own";

template <auto Free>
struct Release {
    template <class Object>
    void operator()(Object* object) const {
        Free(object);
    }
};
template <class Object, auto Free>
using Owned = std::unique_ptr<Object, Release<Free>>;

using Document = Owned<xmlDoc, &xmlFreeDoc>;
using Sheet = Owned<xsltStylesheet, &xsltFreeStylesheet>;
using Context = Owned<xsltTransformContext, &xsltFreeTransformContext>;
using Rights = Owned<xsltSecurityPrefs, &xsltFreeSecurityPrefs>;

/// What went wrong in the transformation under way.
struct Record {
    std::string Reason;
    bool Refused = false;
};

Record* g_record = nullptr;

/// Keeps the first words of the library, which sends them in pieces.
void Note(void*, const char* format, ...) {
    std::array<char, 512> text{};
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    constexpr std::size_t kLongest = 500;
    if (g_record->Reason.size() < kLongest) {
        g_record->Reason += text.data();
    }
}

/// Nothing but the style sheet itself, which the library has already, can be requested.
xmlDoc* RefuseOtherDocument(const xmlChar* address, xmlDict*, int, void*, xsltLoadType) {
    if (xmlStrEqual(address, BAD_CAST kOwnAddress) == 0 && !g_record->Refused) {
        g_record->Refused = true;
        g_record->Reason = "The style sheet requests '" +
                           std::string(reinterpret_cast<const char*>(address)) +
                           "', but it must not use other documents.";
    }
    return nullptr;
}

/// The process-wide hooks of the libraries, ours as long as this lives.
class Hooks {
public:
    explicit Hooks(Record& record) {
        g_record = &record;
        xsltSetLoaderFunc(&RefuseOtherDocument);
        xsltSetGenericErrorFunc(nullptr, &Note);
        xmlSetGenericErrorFunc(nullptr, &Note);
    }
    ~Hooks() {
        xmlSetGenericErrorFunc(nullptr, nullptr);
        xsltSetGenericErrorFunc(nullptr, nullptr);
        xsltSetLoaderFunc(nullptr);
        g_record = nullptr;
    }
    Hooks(const Hooks&) = delete;
    Hooks& operator=(const Hooks&) = delete;
};

/// No right to write. Reading goes through `RefuseOtherDocument`, which knows the style sheet itself.
Rights NoRightToWrite() {
    Rights rights(xsltNewSecurityPrefs());
    for (const xsltSecurityOption option :
         {XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY, XSLT_SECPREF_WRITE_NETWORK}) {
        xsltSetSecurityPrefs(rights.get(), option, &xsltSecurityForbid);
    }
    return rights;
}

Sheet Compile(const XmlTree& styleSheet) {
    Document copy(xmlCopyDoc(styleSheet.Document(), /*recursive=*/1));
    xmlFree(const_cast<xmlChar*>(copy->URL));
    copy->URL = xmlStrdup(BAD_CAST kOwnAddress);
    Sheet sheet(xsltParseStylesheetDoc(copy.get()));
    if (sheet != nullptr) {
        (void)copy.release();  // the sheet owns it now
        if (sheet->errors != 0) {
            sheet.reset();
        }
    }
    return sheet;
}

std::string TextOf(xmlDoc* result, xsltStylesheet* sheet) {
    xmlFree(sheet->encoding);
    sheet->encoding = xmlStrdup(BAD_CAST "UTF-8");
    xmlChar* bytes = nullptr;
    int size = 0;
    xsltSaveResultToString(&bytes, &size, result, sheet);
    std::string text;
    if (bytes != nullptr) {
        text.assign(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    }
    xmlFree(bytes);
    return text;
}

/// False after a failure.
bool Apply(xsltStylesheet* sheet, const XmlTree& document, std::string& text) {
    // A copy, because a style sheet can have white space taken out of what it works on.
    const Document copy(xmlCopyDoc(document.Document(), /*recursive=*/1));
    const Rights rights = NoRightToWrite();
    const Context context(xsltNewTransformContext(sheet, copy.get()));
    xsltSetCtxtSecurityPrefs(rights.get(), context.get());
    xsltSetCtxtParseOptions(context.get(), XML_PARSE_NONET);
    context->opLimit = kMaximumSteps;
    context->xpathCtxt->opLimit = kMaximumSteps;
    const Document result(
        xsltApplyStylesheetUser(sheet, copy.get(), nullptr, nullptr, nullptr, context.get()));
    if (result == nullptr || context->state != XSLT_STATE_OK) {
        return false;
    }
    text = TextOf(result.get(), sheet);
    return true;
}

/// On one line, as the log wants it.
std::string ReasonOf(const Record& record) {
    std::string reason;
    for (const char character : record.Reason) {
        const bool isBreak = character == '\n' || character == '\r';
        if (!isBreak) {
            reason += character;
        } else if (!reason.empty() && reason.back() != ' ') {
            reason += ' ';
        }
    }
    while (reason.ends_with(' ')) {
        reason.pop_back();
    }
    return reason.empty() ? "The style sheet cannot be applied." : reason;
}

}  // namespace

std::string Transform(const XmlTree& document, const XmlTree& styleSheet, XmlError& error) {
    Record record;
    const Hooks hooks(record);
    std::string text;
    const Sheet sheet = Compile(styleSheet);
    const bool applied = sheet != nullptr && Apply(sheet.get(), document, text);
    if (applied && !record.Refused) {
        error = {};
        return text;
    }
    error = {XmlDocument::kTransformationFailed, ReasonOf(record)};
    return {};
}

}  // namespace dorvik::modXmlTransformation
