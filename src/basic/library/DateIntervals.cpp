#include "Arguments.h"
#include "BuiltinTables.h"
#include "DateWeeks.h"
#include "base/modTextCase.h"
#include "basic/values/Coercion.h"
#include "basic/values/DateSerial.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace dorvik::basic {

namespace {

using modDateSerial::DateParts;
using modDateWeeks::FirstWeek;

enum class Interval : std::uint8_t {
    Year,
    Quarter,
    Month,
    DayOfYear,
    Day,
    Weekday,
    Week,
    Hour,
    Minute,
    Second
};

struct IntervalRow {
    std::string_view Name;
    Interval Which;
};

constexpr IntervalRow kIntervals[] = {
    {"yyyy", Interval::Year},
    {"q", Interval::Quarter},
    {"m", Interval::Month},
    {"y", Interval::DayOfYear},
    {"d", Interval::Day},
    {"w", Interval::Weekday},
    {"ww", Interval::Week},
    {"h", Interval::Hour},
    {"n", Interval::Minute},
    {"s", Interval::Second},
};

Interval IntervalAt(Arguments arguments) {
    const TextArgument name(arguments, 0);
    for (const IntervalRow& row : kIntervals) {
        if (modTextCase::Equal(row.Name, name.View())) {
            return row.Which;
        }
    }
    RaiseError(runtimeerror::kInvalidProcedureCall);
}

double DateAt(Arguments arguments, std::size_t position) {
    return ToDate(ArgumentAt(arguments, position));
}

Value InRange(double date) {
    if (!modDateSerial::IsInRange(date)) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return Value::Date(date);
}

/// Adds days or months and keeps the time of the day.
double WithDay(double date, std::int64_t day) {
    return modDateSerial::Combine(day, std::fabs(date - std::trunc(date)));
}

double AddDays(double date, std::int64_t days) {
    return WithDay(date, static_cast<std::int64_t>(std::trunc(date)) + days);
}

/// A day that the month does not have becomes its last one.
double AddMonths(double date, std::int64_t months) {
    const DateParts parts = modDateSerial::PartsOf(std::trunc(date));
    const std::int64_t first = modDateSerial::DayNumber(parts.Year, parts.Month + months, 1);
    const std::int64_t next = modDateSerial::DayNumber(parts.Year, parts.Month + months + 1, 1);
    return WithDay(date, std::min(first + parts.Day - 1, next - 1));
}

double AddSeconds(double date, std::int64_t seconds) {
    const modDateSerial::DayAndSecond split = modDateSerial::Split(date);
    return modDateSerial::Combine(split.Day, split.Second + seconds);
}

Value DateAdd(ScriptContext&, Arguments arguments) {
    constexpr double kBeyondAllDates = 1e12;  // seconds
    const Interval interval = IntervalAt(arguments);
    const double rounded = std::nearbyint(ToDouble(ArgumentAt(arguments, 1)));
    if (IsNullAt(arguments, 2)) {
        return Value::Null();
    }
    const double date = DateAt(arguments, 2);
    if (std::fabs(rounded) > kBeyondAllDates) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    const auto number = static_cast<std::int64_t>(rounded);
    switch (interval) {
        case Interval::Year: return InRange(AddMonths(date, number * 12));
        case Interval::Quarter: return InRange(AddMonths(date, number * 3));
        case Interval::Month: return InRange(AddMonths(date, number));
        case Interval::DayOfYear:
        case Interval::Day:
        case Interval::Weekday: return InRange(AddDays(date, number));
        case Interval::Week: return InRange(AddDays(date, number * 7));
        case Interval::Hour: return InRange(AddSeconds(date, number * 3600));
        case Interval::Minute: return InRange(AddSeconds(date, number * 60));
        case Interval::Second: return InRange(AddSeconds(date, number));
    }
    return Value();
}

std::int64_t FloorDivide(std::int64_t number, std::int64_t divisor) {
    const std::int64_t quotient = number / divisor;
    return quotient * divisor > number ? quotient - 1 : quotient;
}

/// The number of the interval since the beginning of all dates, so that a difference counts boundaries.
std::int64_t Ordinal(Interval interval, double date, int firstDay) {
    const DateParts parts = modDateSerial::PartsOf(date);
    const modDateSerial::DayAndSecond split = modDateSerial::Split(date);
    const std::int64_t seconds = split.Day * modDateSerial::kSecondsPerDay + split.Second;
    switch (interval) {
        case Interval::Year: return parts.Year;
        case Interval::Quarter: return parts.Year * 4 + (parts.Month - 1) / 3;
        case Interval::Month: return parts.Year * 12 + parts.Month;
        case Interval::DayOfYear:
        case Interval::Day:
        case Interval::Weekday: return split.Day;
        case Interval::Week:
            return FloorDivide(split.Day - modDateWeeks::WeekdayFrom(split.Day, firstDay), 7);
        case Interval::Hour: return FloorDivide(seconds, 3600);
        case Interval::Minute: return FloorDivide(seconds, 60);
        case Interval::Second: return seconds;
    }
    return 0;
}

Value DateDiff(ScriptContext&, Arguments arguments) {
    const Interval interval = IntervalAt(arguments);
    const int firstDay = modDateWeeks::FirstDayAt(arguments, 3);
    modDateWeeks::FirstWeekAt(arguments, 4);  // checked, of no influence on a difference
    if (IsNullAt(arguments, 1) || IsNullAt(arguments, 2)) {
        return Value::Null();
    }
    const std::int64_t from = Ordinal(interval, DateAt(arguments, 1), firstDay);
    const std::int64_t to = Ordinal(interval, DateAt(arguments, 2), firstDay);
    const std::int64_t difference = interval == Interval::Weekday ? (to - from) / 7 : to - from;
    if (difference < std::numeric_limits<std::int32_t>::min() ||
        difference > std::numeric_limits<std::int32_t>::max()) {
        RaiseError(runtimeerror::kOverflow);
    }
    return Value::Long(static_cast<std::int32_t>(difference));
}

int PartOf(Interval interval, double date, int firstDay, FirstWeek firstWeek) {
    const DateParts parts = modDateSerial::PartsOf(date);
    const std::int64_t day = modDateSerial::Split(date).Day;
    switch (interval) {
        case Interval::Year: return parts.Year;
        case Interval::Quarter: return (parts.Month - 1) / 3 + 1;
        case Interval::Month: return parts.Month;
        case Interval::DayOfYear: return modDateWeeks::DayOfYear(day);
        case Interval::Day: return parts.Day;
        case Interval::Weekday: return modDateWeeks::WeekdayFrom(day, firstDay);
        case Interval::Week: return modDateWeeks::WeekOfYear(day, firstDay, firstWeek);
        case Interval::Hour: return parts.Hour;
        case Interval::Minute: return parts.Minute;
        case Interval::Second: return parts.Second;
    }
    return 0;
}

Value DatePart(ScriptContext&, Arguments arguments) {
    const Interval interval = IntervalAt(arguments);
    const int firstDay = modDateWeeks::FirstDayAt(arguments, 2);
    const FirstWeek firstWeek = modDateWeeks::FirstWeekAt(arguments, 3);
    if (IsNullAt(arguments, 1)) {
        return Value::Null();
    }
    const int part = PartOf(interval, DateAt(arguments, 1), firstDay, firstWeek);
    return Value::Integer(static_cast<std::int16_t>(part));
}

constexpr BuiltinFunction kRows[] = {
    {"DateAdd", "Interval Number Date", DeclaredKind::Variant, DateAdd},
    {"DateDiff",
     "Interval Date1 Date2 ?FirstDayOfWeek ?FirstWeekOfYear",
     DeclaredKind::Variant,
     DateDiff},
    {"DatePart", "Interval Date ?FirstDayOfWeek ?FirstWeekOfYear", DeclaredKind::Variant, DatePart},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::DateIntervals() {
    return kRows;
}

}  // namespace dorvik::basic
