#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace dorvik::basic {

/// Finds characters of a long text that is not ASCII: where every so many characters begin, as far as
/// anyone has asked, and the position of the last answer, near which most questions are. A question then
/// costs no more than the way from there, however long the text is.
/// The text is handed in with each question, and may have grown at its end since the last one.
class CharacterIndex {
public:
    /// The offset of a character of a text that has `length` of them; its size if it has fewer.
    std::size_t OffsetOf(std::string_view text, std::size_t length, std::size_t character);
    /// How many characters begin before an offset at which one begins or the text ends.
    std::size_t CharactersBefore(std::string_view text, std::size_t length, std::size_t offset);

    /// `count` characters from `first` on were overwritten with as many others, which has moved what is
    /// after them by `shift` bytes.
    void
    Overwritten(std::string_view text, std::size_t first, std::size_t count, std::ptrdiff_t shift);

    /// The bytes that had to be moved for such characters, since that was forgotten last.
    std::size_t BytesMoved() const { return m_bytesMoved; }
    void AddMove(std::size_t bytes) { m_bytesMoved += bytes; }
    void ForgetMoves() { m_bytesMoved = 0; }

    /// The bytes that all questions together have made it read.
    std::size_t BytesRead() const { return m_bytesRead; }

private:
    struct Place {
        std::size_t Character = 0;
        std::size_t Offset = 0;
    };

    Place Advance(std::string_view text, Place from, std::size_t characters);
    void AddStart(std::string_view text);
    std::size_t CharactersOfStarts() const;

    std::vector<std::uint32_t> m_starts{0};
    Place m_last;
    std::size_t m_bytesRead = 0;
    std::size_t m_bytesMoved = 0;
};

}  // namespace dorvik::basic
