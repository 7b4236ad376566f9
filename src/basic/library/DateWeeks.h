#pragma once

#include "Arguments.h"

#include <cstdint>

/// Weeks as the arguments `FirstDayOfWeek` and `FirstWeekOfYear` of the date functions see them.
namespace dorvik::basic::modDateWeeks {

/// What makes a week the first one of a year, with the numbers of the argument.
enum class FirstWeek : std::uint8_t { WithFirstJanuary = 1, WithFourDays = 2, Full = 3 };

/// The first day of the week, 1 for Sunday, also for 0 and for an argument left out. Raises 5.
int FirstDayAt(Arguments arguments, std::size_t position);
FirstWeek FirstWeekAt(Arguments arguments, std::size_t position);

/// 1 for the first day of the week.
int WeekdayFrom(std::int64_t day, int firstDay);
/// The number of the week within its year; a day of the old year may be in the first week of the new one.
int WeekOfYear(std::int64_t day, int firstDay, FirstWeek firstWeek);
/// 1 for 1 January.
int DayOfYear(std::int64_t day);

}  // namespace dorvik::basic::modDateWeeks
