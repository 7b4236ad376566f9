#include "Arithmetic.h"

#include "CurrencyArithmetic.h"
#include "NumberRank.h"
#include "OperandView.h"
#include "basic/values/Coercion.h"
#include "basic/values/DateSerial.h"
#include "basic/values/DecimalBody.h"
#include "basic/values/RuntimeErrors.h"

#include <cmath>
#include <limits>

namespace dorvik::basic::modArithmetic {

namespace {

[[noreturn]] void RaiseOverflow() {
    RaiseError(runtimeerror::kOverflow);
}

template <class Number>
bool Fits(std::int64_t number) {
    return number >= std::numeric_limits<Number>::min() &&
           number <= std::numeric_limits<Number>::max();
}

/// A whole result of a rank; one that is too large goes to the next wider type if it may, else raises 6.
Value WholeResult(std::int64_t number, NumberRank rank, bool mayWiden) {
    if (rank == NumberRank::Byte) {
        if (Fits<std::uint8_t>(number)) {
            return Value::Byte(static_cast<std::uint8_t>(number));
        }
        rank = NumberRank::Integer;
    } else if (rank == NumberRank::Long) {
        mayWiden = mayWiden || Fits<std::int32_t>(number);
    } else {
        mayWiden = mayWiden || Fits<std::int16_t>(number);
    }
    if (!mayWiden) {
        RaiseOverflow();
    }
    if (rank == NumberRank::Integer && Fits<std::int16_t>(number)) {
        return Value::Integer(static_cast<std::int16_t>(number));
    }
    return Fits<std::int32_t>(number) ? Value::Long(static_cast<std::int32_t>(number))
                                      : Value::Double(static_cast<double>(number));
}

Value DoubleResult(double number) {
    if (!std::isfinite(number)) {
        RaiseOverflow();
    }
    return Value::Double(number);
}

/// `exact` is the same result as a Double.
Value SingleResult(float number, double exact, bool mayWiden) {
    if (std::isfinite(number)) {
        return Value::Single(number);
    }
    return mayWiden ? DoubleResult(exact) : (RaiseOverflow(), Value());
}

Value DateResult(double days, bool mayWiden) {
    if (std::isfinite(days) && modDateSerial::IsInRange(days)) {
        return Value::Date(days);
    }
    return mayWiden ? DoubleResult(days) : (RaiseOverflow(), Value());
}

/// One of `+`, `-` and `*` in each of the number types.
struct Calculation {
    std::int64_t (*Whole)(std::int64_t, std::int64_t);
    double (*Real)(double, double);
    std::int64_t (*Currency)(std::int64_t, std::int64_t);
    DecimalNumber (*Decimal)(const DecimalNumber&, const DecimalNumber&);
};

constexpr Calculation kAddition{
    [](std::int64_t left, std::int64_t right) { return left + right; },
    [](double left, double right) { return left + right; },
    modCurrency::Add,
    modDecimal::Add};
constexpr Calculation kSubtraction{
    [](std::int64_t left, std::int64_t right) { return left - right; },
    [](double left, double right) { return left - right; },
    modCurrency::Subtract,
    modDecimal::Subtract};
constexpr Calculation kMultiplication{
    [](std::int64_t left, std::int64_t right) { return left * right; },
    [](double left, double right) { return left * right; },
    modCurrency::Multiply,
    modDecimal::Multiply};

Value Calculate(
    const Calculation& calculation,
    NumberRank rank,
    const Value& left,
    const Value& right,
    bool mayWiden) {
    switch (rank) {
        case NumberRank::Byte:
        case NumberRank::Integer:
        case NumberRank::Long:
            return WholeResult(calculation.Whole(ToLong(left), ToLong(right)), rank, mayWiden);
        case NumberRank::Single: {
            // Rounding the Double result gives the Single one: a Double has more than twice the digits.
            const double exact = calculation.Real(ToDouble(left), ToDouble(right));
            return SingleResult(static_cast<float>(exact), exact, mayWiden);
        }
        case NumberRank::Double:
            return DoubleResult(calculation.Real(ToDouble(left), ToDouble(right)));
        case NumberRank::Currency:
            return Value::Currency(calculation.Currency(ToCurrency(left), ToCurrency(right)));
        case NumberRank::Decimal:
            return Value::Decimal(calculation.Decimal(ToDecimal(left), ToDecimal(right)));
        case NumberRank::Date: break;
    }
    return DateResult(calculation.Real(ToDouble(left), ToDouble(right)), mayWiden);
}

NumberRank AsFactor(ValueType type) {
    const NumberRank rank = RankOf(type);
    return rank == NumberRank::Date ? NumberRank::Double : rank;
}

bool IsFloat(NumberRank rank) {
    return rank == NumberRank::Single || rank == NumberRank::Double;
}

NumberRank ProductRank(ValueType left, ValueType right) {
    const NumberRank first = AsFactor(left);
    const NumberRank second = AsFactor(right);
    const NumberRank wider = Wider(first, second);
    const bool isMixed = wider == NumberRank::Currency && (IsFloat(first) || IsFloat(second));
    return isMixed ? NumberRank::Double : wider;
}

/// A pair of operands, both converted as far as every operator wants it.
struct Pair {
    OperandView Left;
    OperandView Right;

    Pair(const Value& left, const Value& right) : Left(left), Right(right) {
        Left.RefuseError();
        Right.RefuseError();
    }
    bool HasNull() const { return Left.IsNull() || Right.IsNull(); }
    bool MayWiden(OperandFacts facts) const {
        return facts.LeftIsVariant || facts.RightIsVariant || Left.IsOfObject() ||
               Right.IsOfObject();
    }
};

Value TextSum(const Value& left, const Value& right) {
    return Value::Text(StringBody::Joined(left.AsText(), right.AsText()));
}

/// What Empty gives beside an operand of `+`: that operand, a Boolean as the number it counts as.
Value WithoutEmpty(const Value& other) {
    return other.Type() == ValueType::Boolean ? Value::Integer(other.AsInteger()) : other;
}

/// The rank of `\` and Mod: everything above Long becomes a Long.
NumberRank WholeRank(ValueType left, ValueType right) {
    return std::min(std::max(RankOf(left), RankOf(right)), NumberRank::Long);
}

struct WholePair {
    std::int64_t Left;
    std::int64_t Right;
};

WholePair DivisionOperands(const Pair& pair) {
    const WholePair result{ToLong(*pair.Left), ToLong(*pair.Right)};
    if (result.Right == 0) {
        RaiseError(runtimeerror::kDivisionByZero);
    }
    return result;
}

void CheckDivisor(bool divisorIsZero, bool dividendIsZero) {
    if (divisorIsZero) {
        RaiseError(dividendIsZero ? runtimeerror::kOverflow : runtimeerror::kDivisionByZero);
    }
}

Value DecimalQuotient(const DecimalNumber& left, const DecimalNumber& right) {
    CheckDivisor(right.Magnitude == 0, left.Magnitude == 0);
    return Value::Decimal(modDecimal::Divide(left, right));
}

}  // namespace

Value Add(const Value& left, const Value& right, OperandFacts facts) {
    const Pair pair(left, right);
    if (pair.HasNull()) {
        return Value::Null();
    }
    const ValueType first = pair.Left.Type();
    const ValueType second = pair.Right.Type();
    if (first == ValueType::String && second == ValueType::String) {
        return TextSum(*pair.Left, *pair.Right);
    }
    if (first == ValueType::Empty && second != ValueType::Empty) {
        return WithoutEmpty(*pair.Right);
    }
    if (second == ValueType::Empty && first != ValueType::Empty) {
        return WithoutEmpty(*pair.Left);
    }
    const NumberRank rank = Wider(RankOf(first), RankOf(second));
    return Calculate(kAddition, rank, *pair.Left, *pair.Right, pair.MayWiden(facts));
}

Value Subtract(const Value& left, const Value& right, OperandFacts facts) {
    const Pair pair(left, right);
    if (pair.HasNull()) {
        return Value::Null();
    }
    const bool areDates =
        pair.Left.Type() == ValueType::Date && pair.Right.Type() == ValueType::Date;
    const NumberRank rank =
        areDates ? NumberRank::Double : Wider(RankOf(pair.Left.Type()), RankOf(pair.Right.Type()));
    return Calculate(kSubtraction, rank, *pair.Left, *pair.Right, pair.MayWiden(facts));
}

Value Multiply(const Value& left, const Value& right, OperandFacts facts) {
    const Pair pair(left, right);
    if (pair.HasNull()) {
        return Value::Null();
    }
    const NumberRank rank = ProductRank(pair.Left.Type(), pair.Right.Type());
    return Calculate(kMultiplication, rank, *pair.Left, *pair.Right, pair.MayWiden(facts));
}

Value Divide(const Value& left, const Value& right, OperandFacts facts) {
    const Pair pair(left, right);
    if (pair.HasNull()) {
        return Value::Null();
    }
    const NumberRank rank = Wider(AsFactor(pair.Left.Type()), AsFactor(pair.Right.Type()));
    if (rank == NumberRank::Decimal) {
        return DecimalQuotient(ToDecimal(*pair.Left), ToDecimal(*pair.Right));
    }
    const double dividend = ToDouble(*pair.Left);
    const double divisor = ToDouble(*pair.Right);
    CheckDivisor(divisor == 0, dividend == 0);
    const double quotient = dividend / divisor;
    return rank == NumberRank::Single
               ? SingleResult(static_cast<float>(quotient), quotient, pair.MayWiden(facts))
               : DoubleResult(quotient);
}

Value IntegerDivide(const Value& left, const Value& right) {
    const Pair pair(left, right);
    if (pair.HasNull()) {
        return Value::Null();
    }
    const WholePair operands = DivisionOperands(pair);
    return WholeResult(
        operands.Left / operands.Right, WholeRank(pair.Left.Type(), pair.Right.Type()), false);
}

Value Modulo(const Value& left, const Value& right) {
    const Pair pair(left, right);
    if (pair.HasNull()) {
        return Value::Null();
    }
    const WholePair operands = DivisionOperands(pair);
    return WholeResult(
        operands.Left % operands.Right, WholeRank(pair.Left.Type(), pair.Right.Type()), false);
}

Value Power(const Value& left, const Value& right) {
    const Pair pair(left, right);
    if (pair.HasNull()) {
        return Value::Null();
    }
    const double base = ToDouble(*pair.Left);
    const double exponent = ToDouble(*pair.Right);
    if ((base == 0 && exponent < 0) || (base < 0 && exponent != std::trunc(exponent))) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return DoubleResult(std::pow(base, exponent));
}

Value Negate(const Value& operand, bool isVariant) {
    const OperandView view(operand);
    view.RefuseError();
    if (view.IsNull()) {
        return Value::Null();
    }
    if (view.Type() == ValueType::Currency) {
        return Value::Currency(modCurrency::Negate(view->AsCurrency()));
    }
    if (view.Type() == ValueType::Decimal) {
        return Value::Decimal(modDecimal::Negate(view->AsDecimal()->Number()));
    }
    const NumberRank rank = std::max(RankOf(view.Type()), NumberRank::Integer);
    return Calculate(kSubtraction, rank, Value::Integer(0), *view, isVariant || view.IsOfObject());
}

Value Plus(const Value& operand) {
    const OperandView view(operand);
    view.RefuseError();
    return *view;
}

}  // namespace dorvik::basic::modArithmetic
