#include "platform/ByteSet.h"

namespace dorvik {

ByteSet::ByteSet(std::string_view text) {
    for (const char character : text) {
        Add(static_cast<unsigned char>(character));
    }
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
