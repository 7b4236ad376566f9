#include "Arguments.h"
#include "BuiltinTables.h"
#include "DateWeeks.h"
#include "base/CalendarNames.h"
#include "basic/values/Coercion.h"
#include "basic/values/DateSerial.h"
#include "basic/values/DateText.h"
#include "basic/values/ScriptContext.h"

#include <cmath>
#include <cstdio>

namespace dorvik::basic {

namespace {

using modDateSerial::DateParts;

/// The clock's day and second; parts of a second are cut.
double CurrentMoment(ScriptContext& context) {
    const double now = context.NowInDays();
    const double day = std::floor(now);
    const double seconds = std::floor((now - day) * modDateSerial::kSecondsPerDay + 1e-6);
    return day + seconds / modDateSerial::kSecondsPerDay;
}

Value Now(ScriptContext& context, Arguments) {
    return Value::Date(CurrentMoment(context));
}

Value Date(ScriptContext& context, Arguments) {
    return Value::Date(std::floor(context.NowInDays()));
}

Value Time(ScriptContext& context, Arguments) {
    const double now = CurrentMoment(context);
    return Value::Date(now - std::floor(now));
}

Value Timer(ScriptContext& context, Arguments) {
    const double now = context.NowInDays();
    const double seconds = (now - std::floor(now)) * modDateSerial::kSecondsPerDay;
    return Value::Single(static_cast<float>(seconds));
}

std::string ThreeNumbers(const char* form, int first, int second, int third) {
    char buffer[48];
    const int size = std::snprintf(buffer, sizeof buffer, form, first, second, third);
    return {buffer, static_cast<std::size_t>(size)};
}

Value DateString(ScriptContext& context, Arguments) {
    const DateParts parts = modDateSerial::PartsOf(CurrentMoment(context));
    return TextResult(ThreeNumbers("%02d-%02d-%04d", parts.Month, parts.Day, parts.Year));
}

Value TimeString(ScriptContext& context, Arguments) {
    const DateParts parts = modDateSerial::PartsOf(CurrentMoment(context));
    return TextResult(ThreeNumbers("%02d:%02d:%02d", parts.Hour, parts.Minute, parts.Second));
}

std::int64_t IntegerAt(Arguments arguments, std::size_t position) {
    return ToInteger(ArgumentAt(arguments, position));
}

Value DateSerial(ScriptContext&, Arguments arguments) {
    const std::int64_t year = modDateSerial::FullYear(IntegerAt(arguments, 0));
    const std::int64_t month = IntegerAt(arguments, 1);
    const std::int64_t day = modDateSerial::DayNumber(year, month, IntegerAt(arguments, 2));
    if (day < modDateSerial::kFirstDay || day > modDateSerial::kLastDay) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return Value::Date(static_cast<double>(day));
}

Value TimeSerial(ScriptContext&, Arguments arguments) {
    const std::int64_t hours = IntegerAt(arguments, 0);
    const std::int64_t minutes = IntegerAt(arguments, 1);
    const std::int64_t seconds = hours * 3600 + minutes * 60 + IntegerAt(arguments, 2);
    return Value::Date(modDateSerial::Combine(0, seconds));
}

double DateInText(Arguments arguments) {
    const Value& value = ArgumentAt(arguments, 0);
    if (value.Type() == ValueType::Date) {
        return value.AsDouble();
    }
    const TextArgument text(value);
    const std::optional<double> date = ReadDate(text.View());
    if (!date) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    return *date;
}

Value DateValue(ScriptContext&, Arguments arguments) {
    return Value::Date(std::trunc(DateInText(arguments)));
}

Value TimeValue(ScriptContext&, Arguments arguments) {
    const double date = DateInText(arguments);
    return Value::Date(std::fabs(date - std::trunc(date)));
}

template <int DateParts::*kPart>
Value Part(ScriptContext&, Arguments arguments) {
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const DateParts parts = modDateSerial::PartsOf(ToDate(ArgumentAt(arguments, 0)));
    return Value::Integer(static_cast<std::int16_t>(parts.*kPart));
}

Value Weekday(ScriptContext&, Arguments arguments) {
    const int firstDay = modDateWeeks::FirstDayAt(arguments, 1);
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const std::int64_t day = modDateSerial::Split(ToDate(ArgumentAt(arguments, 0))).Day;
    return Value::Integer(static_cast<std::int16_t>(modDateWeeks::WeekdayFrom(day, firstDay)));
}

int NumberUpTo(Arguments arguments, int most) {
    const std::int32_t number = LongAt(arguments, 0);
    if (number < 1 || number > most) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return number;
}

Value Name(std::string_view name, Arguments arguments) {
    return TextResult(BooleanAt(arguments, 1, false) ? ShortName(name) : name);
}

Value MonthName(ScriptContext&, Arguments arguments) {
    return Name(MonthNameOf(NumberUpTo(arguments, 12)), arguments);
}

Value WeekdayName(ScriptContext&, Arguments arguments) {
    const int number = NumberUpTo(arguments, 7);
    const int firstDay = modDateWeeks::FirstDayAt(arguments, 2);
    return Name(WeekdayNameOf((number + firstDay - 2) % 7 + 1), arguments);
}

constexpr auto kVariant = DeclaredKind::Variant;
constexpr auto kDate = DeclaredKind::Date;
constexpr auto kString = DeclaredKind::String;

constexpr BuiltinFunction kRows[] = {
    {"Date", "", kDate, Date},
    {"Date$", "", kString, DateString},
    {"DateSerial", "Year Month Day", kDate, DateSerial},
    {"DateValue", "Date", kDate, DateValue},
    {"Day", "Date", kVariant, Part<&DateParts::Day>},
    {"Hour", "Time", kVariant, Part<&DateParts::Hour>},
    {"Minute", "Time", kVariant, Part<&DateParts::Minute>},
    {"Month", "Date", kVariant, Part<&DateParts::Month>},
    {"MonthName", "Month ?Abbreviate", kString, MonthName},
    {"Now", "", kDate, Now},
    {"Second", "Time", kVariant, Part<&DateParts::Second>},
    {"Time", "", kDate, Time},
    {"Time$", "", kString, TimeString},
    {"TimeSerial", "Hour Minute Second", kDate, TimeSerial},
    {"TimeValue", "Time", kDate, TimeValue},
    {"Timer", "", DeclaredKind::Single, Timer},
    {"Weekday", "Date ?FirstDayOfWeek", kVariant, Weekday},
    {"WeekdayName", "Weekday ?Abbreviate ?FirstDayOfWeek", kString, WeekdayName},
    {"Year", "Date", kVariant, Part<&DateParts::Year>},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::DateFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
