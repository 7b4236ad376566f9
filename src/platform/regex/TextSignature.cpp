#include "TextSignature.h"

namespace dorvik {

namespace {

/// Letters that follow each other in many words get bits of their own as far as 64 bits go.
constexpr unsigned BitOf(unsigned char first, unsigned char second) {
    constexpr std::uint32_t kSpread = 0x9E3779B1U;  // 2 to the 32 by the golden ratio
    return ((first * 257U + second) * kSpread) >> 26U;
}

}  // namespace

BigramSet::BigramSet(std::string_view text) {
    for (std::size_t i = 1; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(text[i - 1]);
        const auto second = static_cast<unsigned char>(text[i]);
        m_bits |= std::uint64_t{1} << BitOf(first, second);
    }
}

}  // namespace dorvik
