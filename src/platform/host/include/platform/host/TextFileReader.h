#pragma once

#include "base/BasicError.h"
#include "platform/host/modTextForm.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// Raised for a file whose text cannot be read, with the number 321.
class UnreadableText final : public BasicError {
public:
    UnreadableText(modTextForm::TextForm form, std::string_view path);

    modTextForm::TextForm Form() const { return m_form; }

private:
    modTextForm::TextForm m_form;
};

/// The lines of one text file, in order. CR LF, a lone LF and a lone CR end a line, mixed as they
/// come; a line end at the end of the file begins no further line. The whole file is read by the
/// constructor and closed again, so nothing is open while the lines are handed out.
class TextFileReader {
public:
    /// Reads the file and decodes it: UTF-8 and UTF-16 as they are recognised, anything else by
    /// `codePage`, which also serves to find names on disk that are not UTF-8. Raises 53 or 76 where
    /// there is no such file, 75 for a folder or a device, 70 for a file that may not be read, and
    /// `UnreadableText` for UTF-32 and for data that is not text.
    TextFileReader(std::string_view path, int codePage);

    /// The same for the bytes of a file that were read already; `path` is what the descriptions of failures name.
    TextFileReader(std::string bytes, std::string_view path, int codePage);

    // Lines handed out point into the reader.
    TextFileReader(const TextFileReader&) = delete;
    TextFileReader& operator=(const TextFileReader&) = delete;

    bool AtEnd() const { return m_position >= m_text.size(); }

    /// The next line in UTF-8 without its line end, empty when the file is at its end. The view
    /// lives as long as the reader.
    std::string_view ReadLine();

    /// Whether that is anywhere in the text.
    bool Contains(std::string_view sought) const {
        return m_text.find(sought) != std::string::npos;
    }

    /// Length of the file on disk, in bytes.
    std::int64_t Size() const { return m_size; }

private:
    std::string m_text;
    std::int64_t m_size = 0;
    std::size_t m_position = 0;  // begin of the next line
    // The next CR and LF at or after m_position; kept because a file may hold only one of the two,
    // and a search for the other runs through the rest of the file.
    std::size_t m_nextReturn = 0;
    std::size_t m_nextFeed = 0;
};

}  // namespace dorvik
