#include "NumberRank.h"

#include <algorithm>

namespace dorvik::basic {

NumberRank RankOf(ValueType type) {
    switch (type) {
        case ValueType::Byte: return NumberRank::Byte;
        case ValueType::Integer:
        case ValueType::Boolean:
        case ValueType::Empty: return NumberRank::Integer;
        case ValueType::Long: return NumberRank::Long;
        case ValueType::Single: return NumberRank::Single;
        case ValueType::Currency: return NumberRank::Currency;
        case ValueType::Decimal: return NumberRank::Decimal;
        case ValueType::Date: return NumberRank::Date;
        case ValueType::Double:
        case ValueType::String:
        case ValueType::Null:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return NumberRank::Double;
}

NumberRank Wider(NumberRank left, NumberRank right) {
    const auto [narrow, wide] = std::minmax(left, right);
    return narrow == NumberRank::Long && wide == NumberRank::Single ? NumberRank::Double : wide;
}

}  // namespace dorvik::basic
