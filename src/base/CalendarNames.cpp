#include "base/CalendarNames.h"

#include <array>

namespace dorvik {

namespace {

constexpr std::array<std::string_view, 12> kMonths{
    "January",
    "February",
    "March",
    "April",
    "May",
    "June",
    "July",
    "August",
    "September",
    "October",
    "November",
    "December"};
constexpr std::array<std::string_view, 7> kWeekdays{
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

}  // namespace

std::string_view MonthNameOf(int month) {
    return kMonths.at(static_cast<std::size_t>(month - 1));
}

std::string_view WeekdayNameOf(int weekday) {
    return kWeekdays.at(static_cast<std::size_t>(weekday - 1));
}

}  // namespace dorvik
