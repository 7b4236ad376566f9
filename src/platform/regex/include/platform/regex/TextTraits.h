#pragma once

#include "platform/regex/ByteSet.h"

#include <cstdint>
#include <string_view>

namespace dorvik {

/// A set of pairs of neighbouring bytes, in 64 bits: pairs that share a bit count as one.
class PairSet {
public:
    PairSet() = default;
    /// The pairs that are in the text.
    explicit PairSet(std::string_view text);

    bool ContainsAll(const PairSet& other) const { return (other.m_bits & ~m_bits) == 0; }

    friend bool operator==(const PairSet&, const PairSet&) = default;

private:
    std::uint64_t m_bits = 0;
};

/// What is looked up once about a text that many patterns are to be searched for in.
struct TextTraits {
    TextTraits() = default;
    explicit TextTraits(std::string_view text) : Bytes(text), Pairs(text) {}

    ByteSet Bytes;
    PairSet Pairs;
};

}  // namespace dorvik
