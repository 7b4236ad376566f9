#pragma once

#include "ByteSet.h"

#include <cstdint>
#include <string_view>

namespace dorvik {

/// A set of bigrams (two neighbouring bytes) in 64 bits. Bigrams that share a bit count as equal.
class BigramSet {
public:
    BigramSet() = default;
    /// The bigrams of the text.
    explicit BigramSet(std::string_view text);

    bool ContainsAll(const BigramSet& other) const { return (other.m_bits & ~m_bits) == 0; }
    std::uint64_t Bits() const { return m_bits; }

    friend bool operator==(const BigramSet&, const BigramSet&) = default;

private:
    std::uint64_t m_bits = 0;
};

/// The bytes and bigrams of a text, computed once for the prefilters of many patterns.
struct TextSignature {
    TextSignature() = default;
    explicit TextSignature(std::string_view text) : Bytes(text), Bigrams(text) {}

    ByteSet Bytes;
    BigramSet Bigrams;
};

}  // namespace dorvik
