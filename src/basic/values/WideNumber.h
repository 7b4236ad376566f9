#pragma once

#include "basic/values/DecimalNumber.h"

#include <array>
#include <compare>
#include <cstdint>

namespace dorvik::basic {

/// A whole number of 256 bits without sign: the room that the exact result of an operation on two
/// decimals takes before it is rounded. Nothing overflows in that use, and nothing is checked.
class WideNumber {
public:
    WideNumber() = default;
    explicit WideNumber(UnsignedWide number)
        : m_words{
              static_cast<std::uint64_t>(number), static_cast<std::uint64_t>(number >> 64), 0, 0} {}

    static WideNumber Product(UnsignedWide left, UnsignedWide right);

    void Add(const WideNumber& other);
    void Subtract(const WideNumber& other);  // REQUIRES: other <= *this
    void Multiply(std::uint64_t factor);
    void MultiplyByTenTo(int power);
    /// Gives the remainder.
    std::uint64_t Divide(std::uint64_t divisor);

    bool IsZero() const { return m_words == decltype(m_words){}; }
    bool Fits96Bits() const { return m_words[3] == 0 && m_words[2] == 0 && m_words[1] >> 32 == 0; }
    UnsignedWide Low() const { return UnsignedWide{m_words[1]} << 64 | m_words[0]; }

    friend std::strong_ordering operator<=>(const WideNumber& left, const WideNumber& right);
    friend bool operator==(const WideNumber&, const WideNumber&) = default;

private:
    std::array<std::uint64_t, 4> m_words{};  // the lowest first
};

}  // namespace dorvik::basic
