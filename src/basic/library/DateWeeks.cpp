#include "DateWeeks.h"

#include "basic/values/DateSerial.h"

namespace dorvik::basic::modDateWeeks {

namespace {

int YearOf(std::int64_t day) {
    return modDateSerial::PartsOf(static_cast<double>(day)).Year;
}

std::int64_t NewYear(int year) {
    return modDateSerial::DayNumber(year, 1, 1);
}

/// The day on which the first week of a year begins.
std::int64_t StartOfFirstWeek(int year, int firstDay, FirstWeek firstWeek) {
    const std::int64_t newYear = NewYear(year);
    const int daysBefore = WeekdayFrom(newYear, firstDay) - 1;  // of the same week
    const int daysNeeded = firstWeek == FirstWeek::Full           ? 7
                           : firstWeek == FirstWeek::WithFourDays ? 4
                                                                  : 1;
    const bool isFirst = 7 - daysBefore >= daysNeeded;
    return newYear - daysBefore + (isFirst ? 0 : 7);
}

}  // namespace

int FirstDayAt(Arguments arguments, std::size_t position) {
    const std::int32_t day = LongAt(arguments, position, 1);
    if (day < 0 || day > 7) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return day == 0 ? 1 : day;
}

FirstWeek FirstWeekAt(Arguments arguments, std::size_t position) {
    const std::int32_t week = LongAt(arguments, position, 1);
    if (week < 0 || week > 3) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return week == 0 ? FirstWeek::WithFirstJanuary : static_cast<FirstWeek>(week);
}

int WeekdayFrom(std::int64_t day, int firstDay) {
    return (modDateSerial::WeekdayOf(day) - firstDay + 7) % 7 + 1;
}

int WeekOfYear(std::int64_t day, int firstDay, FirstWeek firstWeek) {
    const int year = YearOf(day);
    std::int64_t start = StartOfFirstWeek(year, firstDay, firstWeek);
    if (day < start) {
        start = StartOfFirstWeek(year - 1, firstDay, firstWeek);
    } else if (firstWeek != FirstWeek::WithFirstJanuary) {
        // Otherwise a year's last week ends with the year.
        const std::int64_t next = StartOfFirstWeek(year + 1, firstDay, firstWeek);
        start = day >= next ? next : start;
    }
    return static_cast<int>((day - start) / 7) + 1;
}

int DayOfYear(std::int64_t day) {
    return static_cast<int>(day - NewYear(YearOf(day))) + 1;
}

}  // namespace dorvik::basic::modDateWeeks
