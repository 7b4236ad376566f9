#pragma once

#include "platform/xml/XmlNode.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// What went wrong in the last operation of a document; the code 0 is "nothing".
struct XmlError {
    std::int32_t Code = 0;
    std::string Reason;

    /// The form in which it is logged.
    std::string Message() const;
};

/// An XML document in memory, as the XML layer of the foundation needs it; nothing else uses it.
///
/// What is read may come from anywhere, so nothing is fetched from outside, a document type is
/// rejected as a whole (and with it every entity of its own), and size and depth are limited. White
/// space between elements, comments and processing instructions are not kept. A character data
/// section is kept as text.
///
/// No operation raises for bad input or a failing disk: the result and `Error` tell it.
class XmlDocument {
public:
    /// The longest text that is read, in bytes.
    static constexpr std::size_t kMaximumSize = std::size_t{64} * 1024 * 1024;
    /// The most attributes of one element. The library compares each with all others.
    static constexpr std::size_t kMaximumAttributes = 10'000;
    /// The code of a failed transformation.
    static constexpr std::int32_t kTransformationFailed = static_cast<std::int32_t>(0x80004005);
    /// The reason of a rejected document type.
    static constexpr std::string_view kDocumentTypeRefused = "A document type is not allowed.";

    XmlDocument();
    ~XmlDocument();
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    /// Reads a file, in the encoding that it declares (UTF-8 or UTF-16, with or without a byte order
    /// mark, without a declaration). The document is empty after a failure.
    bool Load(std::string_view path);
    /// Reads a text, which is UTF-8 whatever it declares.
    bool LoadText(std::string_view text);

    /// Writes the file as indented UTF-8 without a declaration; the old file stays if that fails.
    /// `Error` then has the system's code: that of `HostError::SystemCode`, or 0x80004005.
    bool Save(std::string_view path);

    /// The document in the form that a style sheet gives it, as UTF-8 text. A style sheet reaches
    /// nothing outside itself and the document. Empty after a failure, which `Error` reports.
    std::string Transform(const XmlDocument& styleSheet);

    /// The path of the last `Load`; empty for a document that came from elsewhere.
    const std::string& Path() const { return m_path; }

    /// The root element; null in an empty document.
    XmlNode DocumentElement() const;
    /// The root element as XML text; empty for an empty document.
    std::string Xml() const;

    /// True if an element or attribute can have this name. If not, `Error` says so.
    bool AllowsName(std::string_view name);

    const XmlError& Error() const { return m_error; }

private:
    bool Parse(std::string_view bytes, const char* encoding);
    bool Refuse(std::int32_t code, std::string reason);
    std::string IndentedText() const;

    std::shared_ptr<XmlTree> m_tree;
    XmlError m_error;
    std::string m_path;
};

}  // namespace dorvik
