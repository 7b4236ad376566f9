#include "Comparison.h"

#include "NumberRank.h"
#include "OperandView.h"
#include "base/modTextCase.h"
#include "basic/values/Coercion.h"
#include "basic/values/DateText.h"
#include "basic/values/RuntimeErrors.h"

#include <cmath>
#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik::basic::modComparison {

namespace {

constexpr double kCurrencyEnd = 922337203685477.0;               // nearly all of its range
constexpr double kDecimalEnd = 79228162514264000000000000000.0;  // the same

constexpr std::uint64_t kPlainTypes = kWholeTypes | TypeBit(ValueType::Double);

double RealOf(const Value& value) {
    return value.Type() == ValueType::Double ? value.AsDouble() : value.AsLong();
}

Order OrderOf(int sign) {
    return sign < 0 ? Order::Less : sign > 0 ? Order::Greater : Order::Same;
}

Order OrderOf(std::strong_ordering order) {
    return OrderOf(order < 0 ? -1 : order > 0 ? 1 : 0);
}

template <class Number>
Order OrderOf(Number left, Number right) {
    return left < right ? Order::Less : left > right ? Order::Greater : Order::Same;
}

Order CompareTexts(std::string_view left, std::string_view right, bool ignoresCase) {
    // The order of the bytes of UTF-8 is that of the code points.
    return OrderOf(ignoresCase ? modTextCase::Compare(left, right) : left.compare(right));
}

/// A Single with a narrower type or with a Double (or a text) is compared with the precision of a Single.
Order CompareFloats(const Value& left, const Value& right) {
    const NumberRank first = RankOf(left.Type());
    const NumberRank second = RankOf(right.Type());
    const auto isWide = [](NumberRank rank) {
        return rank == NumberRank::Long || rank == NumberRank::Date;
    };
    const bool hasSingle = first == NumberRank::Single || second == NumberRank::Single;
    const double leftNumber = ToDouble(left);
    const double rightNumber = ToDouble(right);
    if (hasSingle && !isWide(first) && !isWide(second)) {
        return OrderOf(static_cast<float>(leftNumber), static_cast<float>(rightNumber));
    }
    return OrderOf(leftNumber, rightNumber);
}

bool AreBelow(double end, const Value& left, const Value& right) {
    return std::fabs(ToDouble(left)) < end && std::fabs(ToDouble(right)) < end;
}

/// Two numbers, Empty or texts that must be numbers.
Order CompareNumbers(const Value& left, const Value& right) {
    const NumberRank first = RankOf(left.Type());
    const NumberRank second = RankOf(right.Type());
    const auto isOneOf = [&](NumberRank rank) {
        return first == rank || second == rank;
    };
    if (isOneOf(NumberRank::Decimal)) {
        return AreBelow(kDecimalEnd, left, right)
                   ? OrderOf(modDecimal::Compare(ToDecimal(left), ToDecimal(right)))
                   : OrderOf(ToDouble(left), ToDouble(right));
    }
    if (isOneOf(NumberRank::Currency)) {
        return AreBelow(kCurrencyEnd, left, right) ? OrderOf(ToCurrency(left), ToCurrency(right))
                                                   : OrderOf(ToDouble(left), ToDouble(right));
    }
    return CompareFloats(left, right);
}

/// The text as what the declared number is: a truth value, a date or a number.
Order CompareTextAsNumber(const Value& text, const Value& number) {
    if (number.Type() == ValueType::Boolean) {
        return CompareNumbers(Value::Boolean(ToBoolean(text)), number);
    }
    if (number.Type() == ValueType::Date) {
        if (const std::optional<double> date = ReadDate(text.AsText())) {
            return OrderOf(*date, number.AsDouble());
        }
    }
    return CompareNumbers(text, number);
}

Order CompareTextWithNumber(
    const Value& text,
    bool textIsVariant,
    const Value& number,
    bool numberIsVariant,
    bool ignoresCase) {
    if (!numberIsVariant) {
        return CompareTextAsNumber(text, number);
    }
    if (textIsVariant) {
        return Order::Greater;
    }
    std::string buffer;
    return CompareTexts(text.AsText(), ToText(number, buffer), ignoresCase);
}

Order Reversed(Order order) {
    return order == Order::Less ? Order::Greater : order == Order::Greater ? Order::Less : order;
}

Order CompareErrors(const Value& left, const Value& right) {
    if (left.Type() != right.Type()) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    return OrderOf(left.AsLong(), right.AsLong());
}

bool IsTextOrEmpty(const OperandView& operand) {
    return operand.Type() == ValueType::String || operand.Type() == ValueType::Empty;
}

std::string_view TextOrNothing(const OperandView& operand) {
    return operand.Type() == ValueType::String ? operand->AsText() : std::string_view();
}

Order CompareAny(const Value& left, const Value& right, OperandFacts facts) {
    const OperandView first(left);
    const OperandView second(right);
    if (first.Type() == ValueType::Error || second.Type() == ValueType::Error) {
        return CompareErrors(*first, *second);
    }
    if (first.IsNull() || second.IsNull()) {
        return Order::Unknown;
    }
    const bool leftIsVariant = facts.LeftIsVariant || first.IsOfObject();
    const bool rightIsVariant = facts.RightIsVariant || second.IsOfObject();
    const bool hasText = first.Type() == ValueType::String || second.Type() == ValueType::String;
    if (!hasText) {
        return CompareNumbers(*first, *second);
    }
    if (IsTextOrEmpty(first) && IsTextOrEmpty(second)) {
        return CompareTexts(TextOrNothing(first), TextOrNothing(second), facts.ComparesText);
    }
    if (first.Type() == ValueType::String) {
        return CompareTextWithNumber(
            *first, leftIsVariant, *second, rightIsVariant, facts.ComparesText);
    }
    return Reversed(
        CompareTextWithNumber(*second, rightIsVariant, *first, leftIsVariant, facts.ComparesText));
}

const ScriptObject* ObjectOf(const Value& value) {
    const Value* variable = &value;
    while (variable->Type() == ValueType::Reference) {
        variable = variable->AsReference();
    }
    if (variable->Type() != ValueType::Object) {
        RaiseError(runtimeerror::kObjectRequired);
    }
    return variable->AsObject();
}

}  // namespace

Order Compare(const Value& left, const Value& right, OperandFacts facts) {
    if (IsOneOf(left, kWholeTypes) && IsOneOf(right, kWholeTypes)) {
        return OrderOf(left.AsLong(), right.AsLong());
    }
    if (left.Type() == ValueType::String && right.Type() == ValueType::String) {
        return CompareTexts(left.AsText(), right.AsText(), facts.ComparesText);
    }
    if (IsOneOf(left, kPlainTypes) && IsOneOf(right, kPlainTypes)) {
        return OrderOf(RealOf(left), RealOf(right));
    }
    return CompareAny(left, right, facts);
}

bool Satisfies(BinaryOperator comparison, Order order) {
    switch (order) {
        case Order::Less:
            return comparison == BinaryOperator::Less ||
                   comparison == BinaryOperator::LessOrEqual ||
                   comparison == BinaryOperator::NotEqual;
        case Order::Same:
            return comparison == BinaryOperator::Equal ||
                   comparison == BinaryOperator::LessOrEqual ||
                   comparison == BinaryOperator::GreaterOrEqual;
        case Order::Greater:
            return comparison == BinaryOperator::Greater ||
                   comparison == BinaryOperator::GreaterOrEqual ||
                   comparison == BinaryOperator::NotEqual;
        case Order::Unknown: break;
    }
    return false;
}

bool IsSameObject(const Value& left, const Value& right) {
    const ScriptObject* first = ObjectOf(left);
    return first == ObjectOf(right);
}

}  // namespace dorvik::basic::modComparison
