#pragma once

#include "foundation/xml/KyXMLElement.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

class XmlDocument;

/// An XML document: the thin layer through which the rulebase code reads and writes its file.
/// Failures are logged, never raised. Elements that were handed out keep the tree that they are
/// in alive, also when this object is gone or has loaded another text.
class KyXMLDoc {
public:
    KyXMLDoc();

    XmlDocument& Document() const { return *m_document; }

    /// The code of the last failed `SaveToFile`, 0 before there was one: 0x80070003 no such folder,
    /// 0x80070005 access denied, 0x80070013 write-protected, 0x80070015 device not ready, 0x80070070
    /// disk full, 0x80004005 otherwise.
    std::int32_t LastError() const { return m_lastError; }

    /// The root; a document without one is given "Root_Element" first. No object on a failure.
    std::shared_ptr<KyXMLElement> RootElement();

    /// Both are kept as set and have no effect: a document with a document type is rejected, so there
    /// is nothing to validate against, and loading never continues without the caller's knowledge.
    void SetValidateWhileParsing(bool validate) { m_validateWhileParsing = validate; }
    void SetAsynchronousDownload(bool asynchronous) { m_asynchronousDownload = asynchronous; }

    /// A document that consists of an empty root of that name.
    void NewDoc(std::string_view rootName);

    /// The document as text, without a declaration.
    std::string XMLString() const;

    /// A document that cannot be read is empty afterwards, and the reason is logged.
    bool LoadFromFile(std::string_view filename);
    bool LoadFromString(std::string_view text);

    /// An empty name takes that of the last `LoadFromFile`. The old file stays if the new one
    /// cannot be written.
    bool SaveToFile(std::string_view filename = {});

    /// The document in the form that the style sheet gives it, as UTF-8 text. The style sheet
    /// reaches no file, no network and no other style sheet. Empty after a failure, which is logged.
    std::string TransformDocument(const KyXMLDoc& styleSheet) const;

private:
    std::string m_filename;
    std::shared_ptr<XmlDocument> m_document;
    std::int32_t m_lastError = 0;
    bool m_validateWhileParsing = false;
    bool m_asynchronousDownload = false;
};

}  // namespace dorvik
