#include "basic/values/Operators.h"

#include "Arithmetic.h"
#include "Comparison.h"
#include "Logic.h"
#include "OperandView.h"
#include "basic/values/Coercion.h"
#include "basic/values/LikePattern.h"
#include "basic/values/RuntimeErrors.h"

#include <cmath>
#include <functional>
#include <string>

namespace dorvik::basic {

namespace {

Value Concatenate(const Value& left, const Value& right) {
    if (left.Type() == ValueType::String && right.Type() == ValueType::String) {
        return Value::Text(StringBody::Joined(left.AsText(), right.AsText()));
    }
    const OperandView first(left);
    const OperandView second(right);
    first.RefuseError();
    second.RefuseError();
    if (first.IsNull() && second.IsNull()) {
        return Value::Null();
    }
    std::string firstBuffer;
    std::string secondBuffer;
    const std::string_view firstText =
        first.IsNull() ? std::string_view() : ToText(*first, firstBuffer);
    const std::string_view secondText =
        second.IsNull() ? std::string_view() : ToText(*second, secondBuffer);
    return Value::Text(StringBody::Joined(firstText, secondText));
}

Value Like(const Value& left, const Value& right, bool ignoresCase) {
    if (left.Type() == ValueType::String && right.Type() == ValueType::String) {
        return Value::Boolean(MatchesLike(left.AsText(), right.AsText(), ignoresCase));
    }
    const OperandView text(left);
    const OperandView pattern(right);
    text.RefuseError();
    pattern.RefuseError();
    if (text.IsNull() || pattern.IsNull()) {
        return Value::Null();
    }
    std::string textBuffer;
    std::string patternBuffer;
    return Value::Boolean(
        MatchesLike(ToText(*text, textBuffer), ToText(*pattern, patternBuffer), ignoresCase));
}

Value Compared(
    BinaryOperator comparison, const Value& left, const Value& right, OperandFacts facts) {
    const modComparison::Order order = modComparison::Compare(left, right, facts);
    return order == modComparison::Order::Unknown
               ? Value::Null()
               : Value::Boolean(modComparison::Satisfies(comparison, order));
}

bool AreBoth(ValueType type, const Value& left, const Value& right) {
    return left.Type() == type && right.Type() == type;
}

// The number types of nearly all calculations. Whatever is not a plain case of them, an overflow
// included, is left to `modArithmetic`.
constexpr std::uint64_t kIntegerTypes = TypeBit(ValueType::Integer) | TypeBit(ValueType::Long);
constexpr std::uint64_t kPlainTypes = kIntegerTypes | TypeBit(ValueType::Double);

std::uint64_t TypesOf(const Value& left, const Value& right) {
    return TypeBit(left.Type()) | TypeBit(right.Type());
}

bool AreOnly(std::uint64_t allowed, std::uint64_t types) {
    return (types & ~allowed) == 0;
}

double RealOf(const Value& value) {
    return value.Type() == ValueType::Double ? value.AsDouble() : value.AsLong();
}

/// Whether a whole result of two operands, each an Integer or a Long, fits the wider type of both.
bool FitsWhole(std::int64_t number, std::uint64_t types) {
    return types == TypeBit(ValueType::Integer) ? number == static_cast<std::int16_t>(number)
                                                : number == static_cast<std::int32_t>(number);
}

Value WholeValue(std::int64_t number, std::uint64_t types) {
    return types == TypeBit(ValueType::Integer) ? Value::Integer(static_cast<std::int16_t>(number))
                                                : Value::Long(static_cast<std::int32_t>(number));
}

/// One of `+`, `-` and `*` for plain operands, `slow` for all others.
template <class Calculation>
Value Calculate(
    const Value& left,
    const Value& right,
    OperandFacts facts,
    Calculation calculation,
    Value (*slow)(const Value&, const Value&, OperandFacts)) {
    const std::uint64_t types = TypesOf(left, right);
    if (AreOnly(kIntegerTypes, types)) {
        const std::int64_t number =
            calculation(std::int64_t{left.AsLong()}, std::int64_t{right.AsLong()});
        if (FitsWhole(number, types)) [[likely]] {
            return WholeValue(number, types);
        }
    } else if (AreOnly(kPlainTypes, types)) {
        const double number = calculation(RealOf(left), RealOf(right));
        if (std::isfinite(number)) [[likely]] {
            return Value::Double(number);
        }
    }
    return slow(left, right, facts);
}

Value Divide(const Value& left, const Value& right, OperandFacts facts) {
    if (AreOnly(kPlainTypes, TypesOf(left, right)) && RealOf(right) != 0) {
        const double number = RealOf(left) / RealOf(right);
        if (std::isfinite(number)) [[likely]] {
            return Value::Double(number);
        }
    }
    return modArithmetic::Divide(left, right, facts);
}

Value IntegerDivide(const Value& left, const Value& right) {
    const std::uint64_t types = TypesOf(left, right);
    if (AreOnly(kIntegerTypes, types) && right.AsLong() != 0) {
        const std::int64_t number = std::int64_t{left.AsLong()} / right.AsLong();
        if (FitsWhole(number, types)) [[likely]] {
            return WholeValue(number, types);
        }
    }
    return modArithmetic::IntegerDivide(left, right);
}

Value Modulo(const Value& left, const Value& right) {
    const std::uint64_t types = TypesOf(left, right);
    if (AreOnly(kIntegerTypes, types) && right.AsLong() != 0) {
        return WholeValue(std::int64_t{left.AsLong()} % right.AsLong(), types);
    }
    return modArithmetic::Modulo(left, right);
}

/// Whether two texts compared by code points, or two numbers, satisfy a comparison.
template <class Operand>
bool Stand(BinaryOperator comparison, const Operand& left, const Operand& right) {
    if (comparison == BinaryOperator::Equal) {
        return left == right;  // texts of different lengths need no look at their characters
    }
    if (comparison == BinaryOperator::NotEqual) {
        return left != right;
    }
    if (comparison == BinaryOperator::Less) {
        return left < right;
    }
    if (comparison == BinaryOperator::Greater) {
        return left > right;
    }
    return comparison == BinaryOperator::LessOrEqual ? left <= right : left >= right;
}

Value Logic(BinaryOperator operation, const Value& left, const Value& right) {
    if (AreBoth(ValueType::Boolean, left, right)) {
        if (operation == BinaryOperator::And) {
            return Value::Boolean(left.AsBoolean() && right.AsBoolean());
        }
        if (operation == BinaryOperator::Or) {
            return Value::Boolean(left.AsBoolean() || right.AsBoolean());
        }
    }
    return modLogic::Apply(operation, left, right);
}

}  // namespace

Value Apply(BinaryOperator operation, const Value& left, const Value& right, OperandFacts facts) {
    switch (operation) {
        case BinaryOperator::Power: return modArithmetic::Power(left, right);
        case BinaryOperator::Multiply:
            return Calculate(left, right, facts, std::multiplies<>(), modArithmetic::Multiply);
        case BinaryOperator::Divide: return Divide(left, right, facts);
        case BinaryOperator::IntegerDivide: return IntegerDivide(left, right);
        case BinaryOperator::Modulo: return Modulo(left, right);
        case BinaryOperator::Add:
            return Calculate(left, right, facts, std::plus<>(), modArithmetic::Add);
        case BinaryOperator::Subtract:
            return Calculate(left, right, facts, std::minus<>(), modArithmetic::Subtract);
        case BinaryOperator::Concatenate: return Concatenate(left, right);
        case BinaryOperator::Equal:
        case BinaryOperator::NotEqual:
        case BinaryOperator::Less:
        case BinaryOperator::Greater:
        case BinaryOperator::LessOrEqual:
        case BinaryOperator::GreaterOrEqual: return Compared(operation, left, right, facts);
        case BinaryOperator::Like: return Like(left, right, facts.ComparesText);
        case BinaryOperator::Is: return Value::Boolean(modComparison::IsSameObject(left, right));
        case BinaryOperator::And:
        case BinaryOperator::Or:
        case BinaryOperator::Xor:
        case BinaryOperator::Eqv:
        case BinaryOperator::Imp: break;
    }
    return Logic(operation, left, right);
}

Value Apply(UnaryOperator operation, const Value& operand, bool isVariant) {
    switch (operation) {
        case UnaryOperator::Negate: return modArithmetic::Negate(operand, isVariant);
        case UnaryOperator::Plus: return modArithmetic::Plus(operand);
        case UnaryOperator::Not: break;
    }
    return modLogic::Not(operand);
}

bool Holds(BinaryOperator comparison, const Value& left, const Value& right, OperandFacts facts) {
    const std::uint64_t types = TypesOf(left, right);
    if (AreOnly(kWholeTypes, types)) {
        return Stand(comparison, left.AsLong(), right.AsLong());
    }
    if (types == TypeBit(ValueType::String) && !facts.ComparesText) {
        return Stand(comparison, left.AsText(), right.AsText());
    }
    if (AreOnly(kPlainTypes, types)) {
        return Stand(comparison, RealOf(left), RealOf(right));
    }
    return modComparison::Satisfies(comparison, modComparison::Compare(left, right, facts));
}

void ConcatenateTo(Value& target, const Value& addition) {
    StringBody* body = target.Type() == ValueType::String ? target.TextBody() : nullptr;
    const bool isTextToo = addition.Type() == ValueType::String;
    const bool isSame = isTextToo && addition.TextBody() == body;
    if (body == nullptr || body->IsShared() || isSame || addition.HoldsBody() != isTextToo ||
        addition.Type() == ValueType::Reference || addition.Type() == ValueType::Error) {
        target = Concatenate(target, addition);
    } else if (addition.Type() != ValueType::Null) {
        std::string buffer;
        body->Append(ToText(addition, buffer));
    }
}

bool IsTrue(const Value& condition) {
    if (condition.Type() == ValueType::Boolean) {
        return condition.AsBoolean();
    }
    const OperandView view(condition);
    return !view.IsNull() && ToBoolean(*view);
}

}  // namespace dorvik::basic
