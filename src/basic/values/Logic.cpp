#include "Logic.h"

#include "OperandView.h"
#include "basic/values/Coercion.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>
#include <optional>

namespace dorvik::basic::modLogic {

namespace {

/// The types of results, from the narrowest; Null is neutral.
enum class Width : std::uint8_t { Null, Byte, Boolean, Integer, Long };

Width WidthOf(ValueType type) {
    switch (type) {
        case ValueType::Null: return Width::Null;
        case ValueType::Byte: return Width::Byte;
        case ValueType::Boolean: return Width::Boolean;
        case ValueType::Empty:
        case ValueType::Integer: return Width::Integer;
        case ValueType::Long:
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Currency:
        case ValueType::Date:
        case ValueType::String:
        case ValueType::Decimal:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return Width::Long;
}

Width CommonWidth(Width left, Width right) {
    const auto [narrow, wide] = std::minmax(left, right);
    return narrow == Width::Byte && wide == Width::Boolean ? Width::Integer : wide;
}

Value Result(std::int32_t bits, Width width) {
    switch (width) {
        case Width::Byte: return Value::Byte(static_cast<std::uint8_t>(bits));
        case Width::Boolean: return Value::Boolean(bits != 0);
        case Width::Integer: return Value::Integer(static_cast<std::int16_t>(bits));
        case Width::Long:
        case Width::Null: break;
    }
    return Value::Long(bits);
}

std::int32_t Combine(BinaryOperator operation, std::int32_t left, std::int32_t right) {
    if (operation == BinaryOperator::And) {
        return left & right;
    }
    if (operation == BinaryOperator::Or) {
        return left | right;
    }
    if (operation == BinaryOperator::Xor) {
        return left ^ right;
    }
    return operation == BinaryOperator::Eqv ? ~(left ^ right) : ~left | right;
}

/// The bits of an operand, nothing for Null. Raises 13 and 6 for what is not a whole number of 32 bits.
std::optional<std::int32_t> BitsOf(const OperandView& operand) {
    operand.RefuseError();
    return operand.IsNull() ? std::nullopt : std::optional(ToLong(*operand));
}

/// One operand is Null: the result if the other one settles it alone.
std::optional<std::int32_t> DecidedBy(
    BinaryOperator operation, std::optional<std::int32_t> left, std::optional<std::int32_t> right) {
    const std::optional<std::int32_t> known = left ? left : right;
    if (!known) {
        return std::nullopt;
    }
    if (operation == BinaryOperator::And) {
        return *known == 0 ? known : std::nullopt;
    }
    if (operation == BinaryOperator::Or) {
        return *known != 0 ? known : std::nullopt;
    }
    if (operation == BinaryOperator::Imp) {
        const std::int32_t settled = left ? ~*left : *right;
        return settled != 0 ? std::optional(settled) : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

Value Apply(BinaryOperator operation, const Value& left, const Value& right) {
    const OperandView first(left);
    const OperandView second(right);
    const Width width = CommonWidth(WidthOf(first.Type()), WidthOf(second.Type()));
    const std::optional<std::int32_t> leftBits = BitsOf(first);
    const std::optional<std::int32_t> rightBits = BitsOf(second);
    if (leftBits && rightBits) {
        return Result(Combine(operation, *leftBits, *rightBits), width);
    }
    const std::optional<std::int32_t> settled = DecidedBy(operation, leftBits, rightBits);
    return settled ? Result(*settled, width) : Value::Null();
}

Value Not(const Value& operand) {
    const OperandView view(operand);
    const std::optional<std::int32_t> bits = BitsOf(view);
    return bits ? Result(~*bits, WidthOf(view.Type())) : Value::Null();
}

}  // namespace dorvik::basic::modLogic
