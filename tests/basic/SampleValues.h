#pragma once

#include "base/BasicError.h"
#include "basic/values/Coercion.h"
#include "basic/values/Operators.h"
#include "basic/values/ValueBodies.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Short names for values and their text form, so that tables of cases stay readable.
namespace dorvik::basic::sample {

inline Value Y(int number) {
    return Value::Byte(static_cast<std::uint8_t>(number));
}
inline Value B(bool value) {
    return Value::Boolean(value);
}
inline Value I(int number) {
    return Value::Integer(static_cast<std::int16_t>(number));
}
inline Value L(std::int32_t number) {
    return Value::Long(number);
}
inline Value S(double number) {
    return Value::Single(static_cast<float>(number));
}
inline Value D(double number) {
    return Value::Double(number);
}
inline Value C(std::int64_t tenThousandths) {
    return Value::Currency(tenThousandths);
}
inline Value T(double days) {
    return Value::Date(days);
}
inline Value X(std::string_view text) {
    return Value::Text(text);
}
/// A Decimal.
inline Value M(std::string_view number) {
    return Value::Decimal(ToDecimal(Value::Text(number)));
}
inline Value E() {
    return {};
}
inline Value N() {
    return Value::Null();
}

/// "Long 5", "String a", "Null": the type and, where there is one, the text of a value.
inline std::string Shown(const Value& value) {
    const std::string type = TypeNameOf(value);
    switch (value.Type()) {
        case ValueType::Empty:
        case ValueType::Null:
        case ValueType::Object:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: return type;
        case ValueType::Error: return ErrorText(value);
        case ValueType::Integer:
        case ValueType::Long:
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Currency:
        case ValueType::Date:
        case ValueType::String:
        case ValueType::Boolean:
        case ValueType::Decimal:
        case ValueType::Byte: break;
    }
    return type + " " + ToText(value);
}

/// What `make` gives, or "error N" if it raises one.
template <class Make>
std::string ShownOrError(Make make) {
    try {
        return Shown(make());
    } catch (const BasicError& error) {
        return "error " + std::to_string(error.Number());
    }
}

/// The number of the error that `act` raises, 0 for none.
template <class Act>
std::int32_t ErrorOf(Act act) {
    try {
        act();
    } catch (const BasicError& error) {
        return error.Number();
    }
    return 0;
}

inline constexpr OperandFacts kTyped{false, false, false};
inline constexpr OperandFacts kVariants{true, true, false};
inline constexpr OperandFacts kVariantThenTyped{true, false, false};
inline constexpr OperandFacts kTypedThenVariant{false, true, false};

}  // namespace dorvik::basic::sample
