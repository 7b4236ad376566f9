#pragma once

#include "base/DateTime.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik::modReportFormat {

/// Numbers and dates as reports write them. The form does not depend on the machine, so that the same review gives
/// the same page everywhere: groups of three digits with ",", a decimal "." and 24 hours.

/// With so many decimals, halves rounded away from zero, and with digit grouping; a zero is "-" unless `showZero` is
/// true. Raises `kOverflow` for infinity and NaN, as does `FormatPercent`.
std::string FormatNumber(double value, std::int32_t decimals = 0, bool showZero = false);
/// `ratio` 0.256 is "25.60%".
std::string FormatPercent(double ratio);
/// "Friday, 21 November 2026".
std::string FormatLongDate(const DateTime& date);
/// "21/11/2026 14:05:09".
std::string FormatGeneralDate(const DateTime& date);
/// The time between two dates as "hh:nn:ss"; whole days are dropped.
std::string FormatDuration(const DateTime& start, const DateTime& end);

/// Why a file could not be reviewed, for a status of 1 to 4.
std::string_view GetReviewStatusDescription(std::int32_t status);

}  // namespace dorvik::modReportFormat
