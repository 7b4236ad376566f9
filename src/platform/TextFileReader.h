#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// The lines of one text file, in order. CR LF, a lone LF and a lone CR end a line, mixed as they
/// come; a line end at the end of the file begins no further line. The whole file is read by the
/// constructor and closed again, so nothing is open while the lines are handed out.
class TextFileReader {
public:
    /// Reads the file and decodes it; a byte order mark wins over `codePage`, which also serves to
    /// find names on disk that are not UTF-8. Raises 53 or 76 where there is no such file, 75 for a
    /// folder or a device, 70 for a file that may not be read.
    TextFileReader(std::string_view path, int codePage);

    // Lines handed out point into the reader.
    TextFileReader(const TextFileReader&) = delete;
    TextFileReader& operator=(const TextFileReader&) = delete;

    bool AtEnd() const { return m_position >= m_text.size(); }

    /// The next line in UTF-8 without its line end, empty when the file is at its end. The view
    /// lives as long as the reader.
    std::string_view ReadLine();

    /// Length of the file on disk, in bytes.
    std::int64_t Size() const { return m_size; }

private:
    std::string m_text;
    std::int64_t m_size = 0;
    std::size_t m_position = 0;  // begin of the next line
    // The next CR and LF at or behind m_position; kept because a file may hold only one of the two,
    // and a search for the other runs through the rest of the file.
    std::size_t m_nextReturn = 0;
    std::size_t m_nextFeed = 0;
};

}  // namespace dorvik
