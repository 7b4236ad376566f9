#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dorvik::basic {

/// Reads a date, a time or both: `1/31/2000`, `1-31`, `2000-01-31`, `Jan 31, 2000 5:30 PM`, `13:00:05`. The
/// month is before the day unless that makes no date; a year left out is `currentYear`. A time alone
/// is on day 0. Nothing if the text is not a date.
std::optional<double> ReadDate(std::string_view text, int currentYear);
/// The same with the year of the host's clock.
std::optional<double> ReadDate(std::string_view text);

/// `1/31/2000`, `5:30:00 PM` or both: the date is left out on day 0, the time at midnight.
std::string DateToText(double serial);

/// The first three letters of a name.
std::string_view ShortName(std::string_view name);

}  // namespace dorvik::basic
