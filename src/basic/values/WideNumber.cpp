#include "WideNumber.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

constexpr std::uint64_t kTenToNineteen = 10'000'000'000'000'000'000ULL;
constexpr int kDigitsPerStep = 19;

std::uint64_t TenTo(int power) {
    std::uint64_t result = 1;
    for (; power > 0; --power) {
        result *= 10;
    }
    return result;
}

}  // namespace

WideNumber WideNumber::Product(UnsignedWide left, UnsignedWide right) {
    WideNumber low(left);
    WideNumber high(left);
    low.Multiply(static_cast<std::uint64_t>(right));
    high.Multiply(static_cast<std::uint64_t>(right >> 64));
    std::rotate(high.m_words.begin(), high.m_words.end() - 1, high.m_words.end());  // times 2^64
    low.Add(high);
    return low;
}

void WideNumber::Add(const WideNumber& other) {
    UnsignedWide carry = 0;
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        carry += UnsignedWide{m_words[i]} + other.m_words[i];
        m_words[i] = static_cast<std::uint64_t>(carry);
        carry >>= 64;
    }
}

void WideNumber::Subtract(const WideNumber& other) {
    std::uint64_t borrow = 0;
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        const UnsignedWide taken = UnsignedWide{other.m_words[i]} + borrow;
        borrow = taken > m_words[i] ? 1 : 0;
        m_words[i] -= static_cast<std::uint64_t>(taken);
    }
}

void WideNumber::Multiply(std::uint64_t factor) {
    UnsignedWide carry = 0;
    for (std::uint64_t& word : m_words) {
        carry += UnsignedWide{word} * factor;
        word = static_cast<std::uint64_t>(carry);
        carry >>= 64;
    }
}

void WideNumber::MultiplyByTenTo(int power) {
    for (; power >= kDigitsPerStep; power -= kDigitsPerStep) {
        Multiply(kTenToNineteen);
    }
    Multiply(TenTo(power));
}

std::uint64_t WideNumber::Divide(std::uint64_t divisor) {
    UnsignedWide remainder = 0;
    for (auto word = m_words.rbegin(); word != m_words.rend(); ++word) {
        remainder = remainder << 64 | *word;
        *word = static_cast<std::uint64_t>(remainder / divisor);
        remainder %= divisor;
    }
    return static_cast<std::uint64_t>(remainder);
}

std::strong_ordering operator<=>(const WideNumber& left, const WideNumber& right) {
    return std::lexicographical_compare_three_way(
        left.m_words.rbegin(), left.m_words.rend(), right.m_words.rbegin(), right.m_words.rend());
}

}  // namespace dorvik::basic
