#pragma once

#include "DateWeeks.h"

#include <optional>
#include <string>
#include <string_view>

/// Dates by patterns ("dddd, d mmmm yyyy hh:nn") and by named formats.
namespace dorvik::basic::modFormatDates {

/// How the pattern's `w` and `ww` count.
struct WeekCount {
    int FirstDay = 1;
    modDateWeeks::FirstWeek FirstWeek = modDateWeeks::FirstWeek::WithFirstJanuary;
};

/// REQUIRES: the date is in range.
std::string ByPattern(std::string_view pattern, double date, const WeekCount& weeks);

/// The pattern of a named date format, in any case; nothing for another name.
std::optional<std::string_view> NamedPattern(std::string_view name);

}  // namespace dorvik::basic::modFormatDates
