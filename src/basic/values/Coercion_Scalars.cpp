#include "base/modTextCase.h"
#include "basic/values/Coercion.h"
#include "basic/values/DateSerial.h"
#include "basic/values/DateText.h"
#include "basic/values/NumberInText.h"
#include "basic/values/NumberText.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueBodies.h"

#include <cmath>
#include <limits>
#include <utility>

namespace dorvik::basic {

namespace {

constexpr std::int64_t kCurrencyUnit = 10'000;
constexpr double kBeyondWhole = 9223372036854775808.0;  // 2^63

[[noreturn]] void RaiseMismatch() {
    RaiseError(runtimeerror::kTypeMismatch);
}

[[noreturn]] void RaiseOverflow() {
    RaiseError(runtimeerror::kOverflow);
}

std::int64_t RoundToWhole(double number) {
    if (!(std::fabs(number) < kBeyondWhole)) {
        RaiseOverflow();
    }
    return static_cast<std::int64_t>(std::nearbyint(number));
}

std::int64_t RoundCurrency(std::int64_t tenThousandths) {
    const std::int64_t whole = tenThousandths / kCurrencyUnit;
    const std::int64_t rest = std::abs(tenThousandths % kCurrencyUnit);
    const bool isAway = rest > kCurrencyUnit / 2 || (rest == kCurrencyUnit / 2 && whole % 2 != 0);
    return isAway ? whole + (tenThousandths < 0 ? -1 : 1) : whole;
}

/// Any value that is not a plain scalar: an object gives its default member, a reference its variable.
/// Raises 94 for Null and 13 for what cannot be converted at all.
Value Underlying(const Value& value) {
    if (value.Type() == ValueType::Null) {
        RaiseError(runtimeerror::kInvalidUseOfNull);
    }
    if (value.Type() != ValueType::Object && value.Type() != ValueType::Reference) {
        RaiseMismatch();
    }
    return LetValue(value);
}

/// As a whole number, half to even.
std::int64_t ToWhole(const Value& value) {
    switch (value.Type()) {
        case ValueType::Empty: return 0;
        case ValueType::Byte:
        case ValueType::Boolean:
        case ValueType::Integer:
        case ValueType::Long: return value.AsLong();
        case ValueType::Single: return RoundToWhole(static_cast<double>(value.AsSingle()));
        case ValueType::Double:
        case ValueType::Date: return RoundToWhole(value.AsDouble());
        case ValueType::Currency: return RoundCurrency(value.AsCurrency());
        case ValueType::Decimal: return modDecimal::ToWhole(value.AsDecimal()->Number());
        case ValueType::String: return RoundToWhole(DoubleOfText(value.AsText()));
        case ValueType::Null:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return ToWhole(Underlying(value));
}

template <class Integral>
Integral ToIntegral(const Value& value) {
    const std::int64_t whole = ToWhole(value);
    if (whole < std::numeric_limits<Integral>::min() ||
        whole > std::numeric_limits<Integral>::max()) {
        RaiseOverflow();
    }
    return static_cast<Integral>(whole);
}

bool BooleanOfText(std::string_view text) {
    if (modTextCase::Equal(text, "True")) {
        return true;
    }
    return !modTextCase::Equal(text, "False") && DoubleOfText(text) != 0;
}

double DateOfText(std::string_view text) {
    const std::optional<double> date = ReadDate(text);
    if (!date) {
        RaiseMismatch();
    }
    return *date;
}

}  // namespace

std::int32_t ToLong(const Value& value) {
    return value.Type() == ValueType::Long ? value.AsLong() : ToIntegral<std::int32_t>(value);
}

std::int16_t ToInteger(const Value& value) {
    return value.Type() == ValueType::Integer ? value.AsInteger() : ToIntegral<std::int16_t>(value);
}

std::uint8_t ToByte(const Value& value) {
    if (value.Type() == ValueType::Boolean) {
        return value.AsBoolean() ? std::numeric_limits<std::uint8_t>::max() : std::uint8_t{0};
    }
    return ToIntegral<std::uint8_t>(value);
}

float ToSingle(const Value& value) {
    if (value.Type() == ValueType::Single) {
        return value.AsSingle();
    }
    const auto single = static_cast<float>(ToDouble(value));
    if (!std::isfinite(single)) {
        RaiseOverflow();
    }
    return single;
}

double ToDouble(const Value& value) {
    switch (value.Type()) {
        case ValueType::Empty: return 0;
        case ValueType::Byte:
        case ValueType::Boolean:
        case ValueType::Integer:
        case ValueType::Long: return value.AsLong();
        case ValueType::Single: return static_cast<double>(value.AsSingle());
        case ValueType::Double:
        case ValueType::Date: return value.AsDouble();
        case ValueType::Currency:
            return static_cast<double>(value.AsCurrency()) / static_cast<double>(kCurrencyUnit);
        case ValueType::Decimal: return modDecimal::ToDouble(value.AsDecimal()->Number());
        case ValueType::String: return DoubleOfText(value.AsText());
        case ValueType::Null:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return ToDouble(Underlying(value));
}

std::int64_t ToCurrency(const Value& value) {
    switch (value.Type()) {
        case ValueType::Currency: return value.AsCurrency();
        case ValueType::Empty: return 0;
        case ValueType::Byte:
        case ValueType::Boolean:
        case ValueType::Integer:
        case ValueType::Long: return value.AsLong() * kCurrencyUnit;
        case ValueType::Decimal: return modDecimal::ToCurrency(value.AsDecimal()->Number());
        case ValueType::String: {
            const std::optional<NumberInText> number = NumberInText::Read(value.AsText());
            if (!number) {
                RaiseMismatch();
            }
            return number->ToCurrency();
        }
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Date:
            return RoundToWhole(ToDouble(value) * static_cast<double>(kCurrencyUnit));
        case ValueType::Null:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return ToCurrency(Underlying(value));
}

DecimalNumber ToDecimal(const Value& value) {
    switch (value.Type()) {
        case ValueType::Decimal: return value.AsDecimal()->Number();
        case ValueType::Empty: return {};
        case ValueType::Byte:
        case ValueType::Boolean:
        case ValueType::Integer:
        case ValueType::Long: return modDecimal::FromWhole(value.AsLong());
        case ValueType::Currency: return modDecimal::FromCurrency(value.AsCurrency());
        case ValueType::Single: return modDecimal::FromSingle(value.AsSingle());
        case ValueType::Double:
        case ValueType::Date: return modDecimal::FromDouble(value.AsDouble());
        case ValueType::String: {
            const std::optional<NumberInText> number = NumberInText::Read(value.AsText());
            if (!number) {
                RaiseMismatch();
            }
            return number->ToDecimal();
        }
        case ValueType::Null:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return ToDecimal(Underlying(value));
}

double ToDate(const Value& value) {
    if (value.Type() == ValueType::Date) {
        return value.AsDouble();
    }
    if (value.Type() == ValueType::String) {
        return DateOfText(value.AsText());
    }
    if (value.Type() == ValueType::Object || value.Type() == ValueType::Reference) {
        return ToDate(LetValue(value));
    }
    const double date = ToDouble(value);
    if (!modDateSerial::IsInRange(date)) {
        RaiseOverflow();
    }
    return date;
}

bool ToBoolean(const Value& value) {
    switch (value.Type()) {
        case ValueType::Boolean: return value.AsBoolean();
        case ValueType::Empty: return false;
        case ValueType::Byte:
        case ValueType::Integer:
        case ValueType::Long: return value.AsLong() != 0;
        case ValueType::Single: return value.AsSingle() != 0;
        case ValueType::Double:
        case ValueType::Date: return value.AsDouble() != 0;
        case ValueType::Currency: return value.AsCurrency() != 0;
        case ValueType::Decimal: return value.AsDecimal()->Magnitude() != 0;
        case ValueType::String: return BooleanOfText(value.AsText());
        case ValueType::Null:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return ToBoolean(Underlying(value));
}

std::string_view ToText(const Value& value, std::string& buffer) {
    NumberBuffer digits;
    switch (value.Type()) {
        case ValueType::String: return value.AsText();
        case ValueType::Empty: return {};
        case ValueType::Boolean: return value.AsBoolean() ? "True" : "False";
        case ValueType::Byte:
        case ValueType::Integer:
        case ValueType::Long: return buffer = TextOfWhole(value.AsLong(), digits);
        case ValueType::Single: return buffer = TextOfSingle(value.AsSingle(), digits);
        case ValueType::Double: return buffer = TextOfDouble(value.AsDouble(), digits);
        case ValueType::Currency: return buffer = TextOfCurrency(value.AsCurrency(), digits);
        case ValueType::Decimal: return buffer = TextOfDecimal(value.AsDecimal()->Number(), digits);
        case ValueType::Date: return buffer = DateToText(value.AsDouble());
        case ValueType::Null:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    const Value underlying = Underlying(value);
    return buffer = ToText(underlying);
}

std::string ToText(const Value& value) {
    std::string buffer;
    const std::string_view text = ToText(value, buffer);
    return text.data() == buffer.data() ? std::move(buffer) : std::string(text);
}

}  // namespace dorvik::basic
