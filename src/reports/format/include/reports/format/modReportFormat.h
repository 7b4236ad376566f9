#pragma once

#include "base/DateTime.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik::modReportFormat {

/// How reports write numbers and dates. One fixed form for every machine: ",", groups of three
/// digits, "." and 24 hours, so that the same review gives the same page everywhere.

/// With that many decimals, halves rounded away from zero, and digit grouping; "-" for a zero
/// unless `showZero`. Raises `kOverflow` for what is no number, as does `FormatPercent`.
std::string FormatNumber(double value, std::int32_t decimals = 0, bool showZero = false);
/// `ratio` 0.256 is "25.60%".
std::string FormatPercent(double ratio);
/// "Friday, 21 November 2026".
std::string FormatLongDate(const DateTime& date);
/// "21/11/2026 14:05:09".
std::string FormatGeneralDate(const DateTime& date);
/// The time between two dates as "hh:nn:ss"; whole days are dropped.
std::string FormatDuration(const DateTime& start, const DateTime& end);

/// For a status of 1 to 4 why a file could not be reviewed.
std::string_view GetReviewStatusDescription(std::int32_t status);

}  // namespace dorvik::modReportFormat
