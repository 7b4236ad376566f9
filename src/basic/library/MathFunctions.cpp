#include "Arguments.h"
#include "BuiltinTables.h"
#include "basic/values/Coercion.h"
#include "basic/values/DecimalBody.h"
#include "basic/values/DecimalDigits.h"

#include <cmath>
#include <cstdlib>
#include <limits>

namespace dorvik::basic {

namespace {

constexpr std::int64_t kCurrencyUnit = 10'000;

/// The argument as a number that keeps its type: a text is a Double, a Boolean or Empty an Integer. Null
/// stays Null.
Value NumberAt(Arguments arguments, std::size_t position) {
    const Value value = LetValue(ArgumentAt(arguments, position));
    switch (value.Type()) {
        case ValueType::Boolean:
        case ValueType::Empty: return Value::Integer(ToInteger(value));
        case ValueType::Null:
        case ValueType::Integer:
        case ValueType::Long:
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Currency:
        case ValueType::Date:
        case ValueType::Decimal:
        case ValueType::Byte: return value;
        case ValueType::String:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return Value::Double(ToDouble(value));
}

/// A whole number as the type of `model`; raises 6 where it does not fit.
Value WholeLike(const Value& model, std::int64_t number) {
    if (model.Type() == ValueType::Currency) {
        return Value::Currency(number);
    }
    if (model.Type() == ValueType::Integer) {
        if (number > std::numeric_limits<std::int16_t>::max()) {
            RaiseError(runtimeerror::kOverflow);
        }
        return Value::Integer(static_cast<std::int16_t>(number));
    }
    if (number > std::numeric_limits<std::int32_t>::max()) {
        RaiseError(runtimeerror::kOverflow);
    }
    return Value::Long(static_cast<std::int32_t>(number));
}

Value FloatLike(const Value& model, double number) {
    if (model.Type() == ValueType::Single) {
        return Value::Single(static_cast<float>(number));
    }
    return model.Type() == ValueType::Date ? Value::Date(number) : Value::Double(number);
}

double FloatOf(const Value& number) {
    return number.Type() == ValueType::Single ? static_cast<double>(number.AsSingle())
                                              : number.AsDouble();
}

Value Abs(ScriptContext&, Arguments arguments) {
    const Value number = NumberAt(arguments, 0);
    switch (number.Type()) {
        case ValueType::Integer:
        case ValueType::Long: return WholeLike(number, std::abs(std::int64_t{number.AsLong()}));
        case ValueType::Currency:
            if (number.AsCurrency() == std::numeric_limits<std::int64_t>::min()) {
                RaiseError(runtimeerror::kOverflow);
            }
            return Value::Currency(std::abs(number.AsCurrency()));
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Date: return FloatLike(number, std::fabs(FloatOf(number)));
        case ValueType::Decimal: {
            DecimalNumber magnitude = number.AsDecimal()->Number();
            magnitude.IsNegative = false;
            return Value::Decimal(magnitude);
        }
        case ValueType::Empty:
        case ValueType::Null:
        case ValueType::String:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Boolean:
        case ValueType::Byte:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return number;
}

Value WholeOfCurrency(std::int64_t amount, bool roundsDown) {
    const std::int64_t rest = amount % kCurrencyUnit;
    const std::int64_t truncated = amount - rest;
    if (rest >= 0 || !roundsDown) {
        return Value::Currency(truncated);
    }
    if (truncated < std::numeric_limits<std::int64_t>::min() + kCurrencyUnit) {
        RaiseError(runtimeerror::kOverflow);
    }
    return Value::Currency(truncated - kCurrencyUnit);
}

Value WholeOfDecimal(const DecimalNumber& number, bool roundsDown) {
    const DecimalNumber truncated = modDecimal::Truncate(number);
    const bool goesDown = roundsDown && modDecimal::Compare(number, truncated) < 0;
    return Value::Decimal(
        goesDown ? modDecimal::Subtract(truncated, modDecimal::FromWhole(1)) : truncated);
}

/// `Int` rounds down, `Fix` towards 0.
template <bool kRoundsDown>
Value WholePart(ScriptContext&, Arguments arguments) {
    const Value number = NumberAt(arguments, 0);
    switch (number.Type()) {
        case ValueType::Currency: return WholeOfCurrency(number.AsCurrency(), kRoundsDown);
        case ValueType::Decimal: return WholeOfDecimal(number.AsDecimal()->Number(), kRoundsDown);
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Date: {
            const double value = FloatOf(number);
            return FloatLike(number, kRoundsDown ? std::floor(value) : std::trunc(value));
        }
        case ValueType::Empty:
        case ValueType::Null:
        case ValueType::Integer:
        case ValueType::Long:
        case ValueType::String:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Boolean:
        case ValueType::Byte:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return number;
}

Value Round(ScriptContext&, Arguments arguments) {
    const Value number = NumberAt(arguments, 0);
    const std::int32_t places = LongAt(arguments, 1, 0);
    if (places < 0) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    switch (number.Type()) {
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Date: {
            DecimalDigits digits = DecimalDigits::Shortest(number);
            digits.Round(places, HalfRounding::ToEven);
            return digits.AsTypeOf(number);
        }
        case ValueType::Currency: {
            const DecimalNumber amount = modDecimal::FromCurrency(number.AsCurrency());
            return Value::Currency(modDecimal::ToCurrency(modDecimal::Round(amount, places)));
        }
        case ValueType::Decimal:
            return Value::Decimal(modDecimal::Round(number.AsDecimal()->Number(), places));
        case ValueType::Empty:
        case ValueType::Null:
        case ValueType::Integer:
        case ValueType::Long:
        case ValueType::String:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Boolean:
        case ValueType::Byte:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return number;
}

Value Sgn(ScriptContext&, Arguments arguments) {
    const double number = ToDouble(ArgumentAt(arguments, 0));
    return Value::Integer(static_cast<std::int16_t>((number > 0) - (number < 0)));
}

/// A result that no Double can hold is an overflow.
Value Finite(double result) {
    if (!std::isfinite(result)) {
        RaiseError(runtimeerror::kOverflow);
    }
    return Value::Double(result);
}

template <double (*kFunction)(double)>
Value OfDouble(ScriptContext&, Arguments arguments) {
    return Finite(kFunction(ToDouble(ArgumentAt(arguments, 0))));
}

Value Sqr(ScriptContext&, Arguments arguments) {
    const double number = ToDouble(ArgumentAt(arguments, 0));
    if (number < 0) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return Value::Double(std::sqrt(number));
}

Value Log(ScriptContext&, Arguments arguments) {
    const double number = ToDouble(ArgumentAt(arguments, 0));
    if (number <= 0) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return Value::Double(std::log(number));
}

constexpr auto kVariant = DeclaredKind::Variant;
constexpr auto kDouble = DeclaredKind::Double;

constexpr BuiltinFunction kRows[] = {
    {"Abs", "Number", kVariant, Abs},
    {"Atn", "Number", kDouble, OfDouble<std::atan>},
    {"Cos", "Number", kDouble, OfDouble<std::cos>},
    {"Exp", "Number", kDouble, OfDouble<std::exp>},
    {"Fix", "Number", kVariant, WholePart<false>},
    {"Int", "Number", kVariant, WholePart<true>},
    {"Log", "Number", kDouble, Log},
    {"Round", "Number ?NumDigitsAfterDecimal", kVariant, Round},
    {"Sgn", "Number", kVariant, Sgn},
    {"Sin", "Number", kDouble, OfDouble<std::sin>},
    {"Sqr", "Number", kDouble, Sqr},
    {"Tan", "Number", kDouble, OfDouble<std::tan>},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::MathFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
