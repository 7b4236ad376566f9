#pragma once

#include "basic/values/ValueType.h"

#include <cstdint>

namespace dorvik::basic {

/// The number types from the narrowest to the widest, as arithmetic ranks them.
enum class NumberRank : std::uint8_t {
    Byte,
    Integer,
    Long,
    Single,
    Double,
    Currency,
    Decimal,
    Date
};

/// Boolean and Empty count as Integer, a text as Double. REQUIRES: a scalar that is neither Null nor an Error.
NumberRank RankOf(ValueType type);

/// The wider of two ranks; Long with Single gives Double.
NumberRank Wider(NumberRank left, NumberRank right);

}  // namespace dorvik::basic
