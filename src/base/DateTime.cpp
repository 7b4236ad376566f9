#include "base/DateTime.h"

#include "base/CalendarNames.h"

#include <array>
#include <cstdio>

namespace dorvik::modDateText {

namespace {

template <typename... Parts>
std::string Print(const char* format, Parts... parts) {
    std::array<char, 64> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), format, parts...);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

/// 0 is Sunday. Sakamoto's method for the Gregorian calendar.
int Weekday(const DateTime& time) {
    constexpr std::array<int, 12> kOffsets{0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
    const int year = time.Month < 3 ? time.Year - 1 : time.Year;
    const int offset = kOffsets.at(static_cast<std::size_t>(time.Month - 1));
    return (year + year / 4 - year / 100 + year / 400 + offset + time.Day) % 7;
}

}  // namespace

std::string LogStamp(const DateTime& time) {
    return Print(
        "%02d/%02d/%02d %02d:%02d:%02d",
        time.Day,
        time.Month,
        time.Year % 100,
        time.Hour,
        time.Minute,
        time.Second);
}

std::string DatabaseStamp(const DateTime& time) {
    return Print(
        "%04d%02d%02d %02d%02d%02d",
        time.Year,
        time.Month,
        time.Day,
        time.Hour,
        time.Minute,
        time.Second);
}

std::string LongDate(const DateTime& time) {
    if (time.IsZero()) {
        return {};
    }
    return std::string(WeekdayNameOf(Weekday(time) + 1)) + Print(", %d ", time.Day) +
           std::string(MonthNameOf(time.Month)) + Print(" %04d", time.Year);
}

std::string LongTime(const DateTime& time) {
    return Print("%02d:%02d:%02d", time.Hour, time.Minute, time.Second);
}

}  // namespace dorvik::modDateText
