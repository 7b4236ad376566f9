#pragma once

#include <string>
#include <string_view>

namespace dorvik {

/// A local date and time to the second. All zero is "no date".
struct DateTime {
    int Year = 0;
    int Month = 0;  // 1 to 12
    int Day = 0;    // 1 to 31
    int Hour = 0;
    int Minute = 0;
    int Second = 0;

    bool IsZero() const { return Year == 0 && Month == 0 && Day == 0; }
    friend bool operator==(const DateTime&, const DateTime&) = default;
};

/// The one place where dates and times become text.
namespace modDateText {
/// "21/11/26 14:05:09", the time stamp of a log line.
std::string LogStamp(const DateTime& time);
/// "20261121 140509", the form in a results database.
std::string DatabaseStamp(const DateTime& time);
/// "Saturday, 21 November 2026".
std::string LongDate(const DateTime& time);
/// "14:05:09".
std::string LongTime(const DateTime& time);
}  // namespace modDateText

}  // namespace dorvik
