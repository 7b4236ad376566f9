#pragma once

#include "basic/values/DecimalNumber.h"
#include "basic/values/MemoryMeter.h"
#include "basic/values/ReferenceCounted.h"

namespace dorvik::basic {

/// A number of 96 bits with 0 to 28 decimal places.
class DecimalBody final : public ReferenceCounted {
public:
    explicit DecimalBody(const DecimalNumber& number) : m_number(number) {
        MemoryMeter::Current().Charge(sizeof(DecimalBody));
    }
    DecimalBody(UnsignedWide magnitude, int scale, bool isNegative)
        : DecimalBody(DecimalNumber{magnitude, scale, isNegative && magnitude != 0}) {}
    ~DecimalBody() override { MemoryMeter::Current().Refund(sizeof(DecimalBody)); }

    const DecimalNumber& Number() const { return m_number; }
    UnsignedWide Magnitude() const { return m_number.Magnitude; }  // below 2^96
    int Scale() const { return m_number.Scale; }
    bool IsNegative() const { return m_number.IsNegative; }

private:
    DecimalNumber m_number;
};

}  // namespace dorvik::basic
