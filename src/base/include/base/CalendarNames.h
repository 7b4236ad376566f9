#pragma once

#include <string_view>

namespace dorvik {

/// "January"; the month from 1.
std::string_view MonthNameOf(int month);
/// "Sunday"; the day from 1 (Sunday).
std::string_view WeekdayNameOf(int weekday);

}  // namespace dorvik
