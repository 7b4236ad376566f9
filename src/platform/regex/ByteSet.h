#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace dorvik {

/// A set of byte values, small enough to compare in a few nanoseconds.
class ByteSet {
public:
    ByteSet() = default;
    /// The bytes that are in the text.
    explicit ByteSet(std::string_view text);

    void Add(unsigned char byte);
    void AddAll(const ByteSet& other);
    /// Keeps only what is in the other set, too.
    void KeepOnly(const ByteSet& other);

    bool IsEmpty() const;
    bool Contains(unsigned char byte) const;
    bool ContainsAll(const ByteSet& other) const {
        return ((other.m_words[0] & ~m_words[0]) | (other.m_words[1] & ~m_words[1]) |
                (other.m_words[2] & ~m_words[2]) | (other.m_words[3] & ~m_words[3])) == 0;
    }

    friend bool operator==(const ByteSet&, const ByteSet&) = default;

private:
    std::array<std::uint64_t, 4> m_words{};
};

}  // namespace dorvik
