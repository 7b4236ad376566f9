#include "ByteSet.h"

namespace dorvik {

ByteSet::ByteSet(std::string_view text) {
    // Kept in registers: neighbouring characters mostly fall into one word, and through memory each
    // would wait for the one before.
    std::uint64_t first = 0;
    std::uint64_t second = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const std::uint64_t bit = std::uint64_t{1} << (byte & 63U);
        first |= byte < 64 ? bit : 0;
        second |= byte >= 64 && byte < 128 ? bit : 0;
        if (byte >= 128) {
            Add(byte);
        }
    }
    m_words[0] = first;
    m_words[1] = second;
}

void ByteSet::Add(unsigned char byte) {
    m_words[byte >> 6U] |= std::uint64_t{1} << (byte & 63U);
}

void ByteSet::AddAll(const ByteSet& other) {
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        m_words[i] |= other.m_words[i];
    }
}

void ByteSet::KeepOnly(const ByteSet& other) {
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        m_words[i] &= other.m_words[i];
    }
}

bool ByteSet::IsEmpty() const {
    return (m_words[0] | m_words[1] | m_words[2] | m_words[3]) == 0;
}

bool ByteSet::Contains(unsigned char byte) const {
    return (m_words[byte >> 6U] >> (byte & 63U) & 1U) != 0;
}

}  // namespace dorvik
