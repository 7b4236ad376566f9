#include "Arguments.h"
#include "BuiltinTables.h"
#include "FormatDates.h"
#include "FormatNumbers.h"
#include "FormatPattern.h"
#include "FormatText.h"
#include "base/modTextCase.h"
#include "basic/values/Coercion.h"
#include "basic/values/DateText.h"
#include "basic/values/DecimalDigits.h"
#include "basic/values/NumberText.h"

#include <optional>

namespace dorvik::basic {

namespace {

/// The value as a number; nothing for a text that is none.
std::optional<Value> AsNumber(const Value& value) {
    if (value.Type() == ValueType::String) {
        if (!IsNumericText(value.AsText())) {
            return std::nullopt;
        }
        return Value::Double(DoubleOfText(value.AsText()));
    }
    return value.IsNumber() ? value : Value::Double(ToDouble(value));
}

std::optional<double> AsDate(const Value& value) {
    if (value.Type() == ValueType::String) {
        if (const std::optional<double> date = ReadDate(value.AsText())) {
            return date;
        }
    }
    const std::optional<Value> number = AsNumber(value);
    return number ? std::optional(ToDate(*number)) : std::nullopt;
}

std::string FormatNumber(const Value& value, std::string_view pattern) {
    if (value.Type() == ValueType::Null) {
        return modFormatNumbers::NullByPattern(pattern);
    }
    const std::optional<Value> number = AsNumber(value);
    return number ? modFormatNumbers::ByPattern(pattern, DecimalDigits::Of(*number))
                  : ToText(value);
}

std::string FormatDate(const Value& value, std::string_view pattern, Arguments arguments) {
    const modFormatDates::WeekCount weeks{
        modDateWeeks::FirstDayAt(arguments, 2), modDateWeeks::FirstWeekAt(arguments, 3)};
    if (value.Type() == ValueType::Null) {
        return {};
    }
    const std::optional<double> date = AsDate(value);
    return date ? modFormatDates::ByPattern(pattern, *date, weeks) : ToText(value);
}

/// A number as `CStr` gives it, also for a Boolean or a Date.
std::string GeneralNumber(const Value& value) {
    if (value.Type() == ValueType::Null) {
        return {};
    }
    const std::optional<Value> number = AsNumber(value);
    if (!number) {
        return ToText(value);
    }
    const bool hasOwnText =
        number->Type() == ValueType::Boolean || number->Type() == ValueType::Date;
    return ToText(hasOwnText ? Value::Double(ToDouble(*number)) : *number);
}

std::string Formatted(const Value& value, std::string_view pattern, Arguments arguments) {
    if (pattern.empty()) {
        return value.Type() == ValueType::Null ? std::string() : ToText(value);
    }
    if (modTextCase::Equal(pattern, "General Number")) {
        return GeneralNumber(value);
    }
    if (const auto numbers = modFormatNumbers::NamedPattern(pattern)) {
        return FormatNumber(value, *numbers);
    }
    if (const auto dates = modFormatDates::NamedPattern(pattern)) {
        return FormatDate(value, *dates, arguments);
    }
    switch (modFormatPattern::KindOf(pattern)) {
        case modFormatPattern::Kind::Number: return FormatNumber(value, pattern);
        case modFormatPattern::Kind::Date: return FormatDate(value, pattern, arguments);
        case modFormatPattern::Kind::Text: break;
    }
    const bool isNull = value.Type() == ValueType::Null;
    return FormatTextByPattern(pattern, isNull ? std::string() : ToText(value));
}

/// Formatting cannot be interrupted, so it must not take long.
constexpr std::size_t kLongestPattern = std::size_t{64} << 10;

Value Format(ScriptContext&, Arguments arguments) {
    const Value value = LetValue(ArgumentAt(arguments, 0));
    const TextArgument pattern(arguments, 1, "");
    if (pattern.View().size() > kLongestPattern) {
        RaiseError(
            runtimeerror::kInvalidProcedureCall,
            "the limit of " + std::to_string(kLongestPattern) + " bytes for a format was reached");
    }
    return TextResult(Formatted(value, pattern.View(), arguments));
}

/// Null is an error unless the pattern has a section for it.
Value StrictFormat(ScriptContext& context, Arguments arguments) {
    const Value result = Format(context, arguments);
    if (result.AsText().empty() && IsNullAt(arguments, 0)) {
        RaiseError(runtimeerror::kInvalidUseOfNull);
    }
    return result;
}

/// A choice of three: -1 yes, 0 no, -2 or left out what the settings of the machine say, here `byDefault`.
bool ChoiceAt(Arguments arguments, std::size_t position, bool byDefault) {
    switch (LongAt(arguments, position, -2)) {
        case -2: return byDefault;
        case -1: return true;
        case 0: return false;
        default: RaiseError(runtimeerror::kInvalidProcedureCall);
    }
}

modFormatNumbers::Settings SettingsFrom(Arguments arguments, bool hasParentheses) {
    constexpr std::int32_t kByDefault = -1;
    constexpr std::int32_t kMostPlaces = 99;
    modFormatNumbers::Settings settings;
    const std::int32_t places = LongAt(arguments, 1, kByDefault);
    if (places < kByDefault || places > kMostPlaces) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    settings.Places = places == kByDefault ? settings.Places : places;
    settings.HasLeadingZero = ChoiceAt(arguments, 2, true);
    settings.HasParentheses = ChoiceAt(arguments, 3, hasParentheses);
    settings.HasGroups = ChoiceAt(arguments, 4, true);
    return settings;
}

DecimalDigits DigitsAt(Arguments arguments) {
    const Value value = LetValue(ArgumentAt(arguments, 0));
    return DecimalDigits::Of(value.IsNumber() ? value : Value::Double(ToDouble(value)));
}

Value FormatNumberFunction(ScriptContext&, Arguments arguments) {
    const modFormatNumbers::Settings settings = SettingsFrom(arguments, false);
    return TextResult(modFormatNumbers::BySettings(settings, DigitsAt(arguments)));
}

Value FormatCurrency(ScriptContext&, Arguments arguments) {
    modFormatNumbers::Settings settings = SettingsFrom(arguments, true);
    settings.Before = "$";
    return TextResult(modFormatNumbers::BySettings(settings, DigitsAt(arguments)));
}

Value FormatPercent(ScriptContext&, Arguments arguments) {
    modFormatNumbers::Settings settings = SettingsFrom(arguments, false);
    settings.Behind = "%";
    DecimalDigits digits = DigitsAt(arguments);
    digits.MultiplyByPowerOfTen(2);
    return TextResult(modFormatNumbers::BySettings(settings, digits));
}

Value FormatDateTime(ScriptContext&, Arguments arguments) {
    constexpr std::string_view kNames[] = {
        "General Date", "Long Date", "Short Date", "Long Time", "Short Time"};
    const double date = ToDate(ArgumentAt(arguments, 0));
    const std::int32_t number = LongAt(arguments, 1, 0);
    if (number < 0 || number > 4) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    const auto pattern = modFormatDates::NamedPattern(kNames[number]);
    return TextResult(modFormatDates::ByPattern(*pattern, date, {}));
}

constexpr std::string_view kFormatParameters =
    "Expression ?Format ?FirstDayOfWeek ?FirstWeekOfYear";
constexpr std::string_view kNumberParameters =
    "Expression ?NumDigitsAfterDecimal ?IncludeLeadingDigit ?UseParensForNegativeNumbers "
    "?GroupDigits";
constexpr auto kString = DeclaredKind::String;

constexpr BuiltinFunction kRows[] = {
    {"Format", kFormatParameters, DeclaredKind::Variant, Format},
    {"Format$", kFormatParameters, kString, StrictFormat},
    {"FormatCurrency", kNumberParameters, kString, FormatCurrency},
    {"FormatDateTime", "Date ?NamedFormat", kString, FormatDateTime},
    {"FormatNumber", kNumberParameters, kString, FormatNumberFunction},
    {"FormatPercent", kNumberParameters, kString, FormatPercent},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::FormatFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
