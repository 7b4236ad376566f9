#include "platform/host/TextFileReader.h"

#include "platform/host/modEncoding.h"
#include "platform/host/modFiles.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

/// Where `sought` next is; the end of the text where it is nowhere.
std::size_t NextPlace(std::string_view text, char sought, std::size_t from) {
    return std::min(text.find(sought, from), text.size());
}

/// From the bytes of a file to its text. A file of plain ASCII stays where it is.
void DecodeFile(std::string& bytes, std::string_view path, int codePage) {
    using modTextForm::TextForm;
    const TextForm form = modTextForm::Recognise(bytes);
    switch (form) {
        case TextForm::Utf32:
        case TextForm::Binary: throw UnreadableText(form, path);
        case TextForm::Utf16Little:
        case TextForm::Utf16Big:
            if (!modEncoding::HasMark(bytes)) {
                bytes = modEncoding::DecodeUtf16(bytes, form == TextForm::Utf16Big);
                return;
            }
            break;
        case TextForm::Bytes: break;
    }
    modEncoding::DecodeInPlace(bytes, codePage);
}

}  // namespace

UnreadableText::UnreadableText(modTextForm::TextForm form, std::string_view path)
    : BasicError(
          runtimeerror::kInvalidFileFormat,
          RuntimeErrorText(runtimeerror::kInvalidFileFormat) + ": '" + std::string(path) + "' " +
              std::string(modTextForm::WhyUnreadable(form))),
      m_form(form) {}

TextFileReader::TextFileReader(std::string_view path, int codePage)
    : TextFileReader(modFiles::ReadBytes(path, codePage), path, codePage) {}

TextFileReader::TextFileReader(std::string bytes, std::string_view path, int codePage)
    : m_text(std::move(bytes)), m_size(static_cast<std::int64_t>(m_text.size())) {
    DecodeFile(m_text, path, codePage);
    m_nextReturn = NextPlace(m_text, '\r', 0);
    m_nextFeed = NextPlace(m_text, '\n', 0);
}

std::string_view TextFileReader::ReadLine() {
    const std::string_view text = m_text;
    if (m_nextReturn < m_position) {
        m_nextReturn = NextPlace(text, '\r', m_position);
    }
    if (m_nextFeed < m_position) {
        m_nextFeed = NextPlace(text, '\n', m_position);
    }
    const std::size_t end = std::min(m_nextReturn, m_nextFeed);
    const std::string_view line = text.substr(m_position, end - m_position);
    const bool isPair = m_nextReturn < text.size() && m_nextFeed == m_nextReturn + 1;
    m_position = std::min(end + (isPair && end == m_nextReturn ? 2 : 1), text.size());
    return line;
}

}  // namespace dorvik
