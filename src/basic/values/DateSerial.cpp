#include "basic/values/DateSerial.h"

#include <array>
#include <cmath>

namespace dorvik::basic::modDateSerial {

namespace {

/// The day number of 1 March 0, the start of a cycle of 400 years whose leap days are at the end.
constexpr std::int64_t kCycleStart = -693899;
constexpr std::int64_t kDaysPerCycle = 146097;

std::int64_t FloorDivide(std::int64_t number, std::int64_t divisor) {
    const std::int64_t quotient = number / divisor;
    return quotient * divisor > number ? quotient - 1 : quotient;
}

/// Days from 1 March to the first of a month, March being 0.
std::int64_t DaysBeforeMonth(std::int64_t monthFromMarch) {
    return (153 * monthFromMarch + 2) / 5;
}

void PutDate(std::int64_t day, DateParts& parts) {
    const std::int64_t sinceStart = day - kCycleStart;
    const std::int64_t cycle = FloorDivide(sinceStart, kDaysPerCycle);
    const std::int64_t dayOfCycle = sinceStart - cycle * kDaysPerCycle;
    const std::int64_t yearOfCycle =
        (dayOfCycle - dayOfCycle / 1460 + dayOfCycle / 36524 - dayOfCycle / 146096) / 365;
    const std::int64_t dayOfYear =
        dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
    const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
    parts.Day = static_cast<int>(dayOfYear - DaysBeforeMonth(monthFromMarch) + 1);
    parts.Month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    parts.Year = static_cast<int>(cycle * 400 + yearOfCycle + (parts.Month <= 2 ? 1 : 0));
}

}  // namespace

bool IsInRange(double serial) {
    const double day = std::trunc(serial);
    return day >= static_cast<double>(kFirstDay) && day <= static_cast<double>(kLastDay);
}

DayAndSecond Split(double serial) {
    const double whole = std::trunc(serial);
    const auto day = static_cast<std::int64_t>(whole);
    const auto second = static_cast<std::int64_t>(
        std::floor(std::fabs(serial - whole) * static_cast<double>(kSecondsPerDay) + 0.5));
    return second < kSecondsPerDay ? DayAndSecond{day, second} : DayAndSecond{day + 1, 0};
}

DateParts PartsOf(double serial) {
    const DayAndSecond split = Split(serial);
    DateParts parts;
    PutDate(split.Day, parts);
    parts.Hour = static_cast<int>(split.Second / 3600);
    parts.Minute = static_cast<int>(split.Second / 60 % 60);
    parts.Second = static_cast<int>(split.Second % 60);
    parts.Weekday = WeekdayOf(split.Day);
    return parts;
}

double Combine(std::int64_t day, double time) {
    const auto days = static_cast<double>(day);
    return day < 0 ? days - time : days + time;
}

double Combine(std::int64_t day, std::int64_t seconds) {
    const std::int64_t carried = FloorDivide(seconds, kSecondsPerDay);
    const std::int64_t rest = seconds - carried * kSecondsPerDay;
    return Combine(day + carried, static_cast<double>(rest) / static_cast<double>(kSecondsPerDay));
}

std::int64_t DayNumber(std::int64_t year, std::int64_t month, std::int64_t day) {
    const std::int64_t monthsFromMarch = month - 3;
    const std::int64_t yearFromMarch = year + FloorDivide(monthsFromMarch, 12);
    const std::int64_t monthFromMarch = monthsFromMarch - FloorDivide(monthsFromMarch, 12) * 12;
    const std::int64_t cycle = FloorDivide(yearFromMarch, 400);
    const std::int64_t yearOfCycle = yearFromMarch - cycle * 400;
    return kCycleStart + cycle * kDaysPerCycle + 365 * yearOfCycle + yearOfCycle / 4 -
           yearOfCycle / 100 + DaysBeforeMonth(monthFromMarch) + day - 1;
}

bool IsLeapYear(std::int64_t year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(std::int64_t year, int month) {
    constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kDays.at(static_cast<std::size_t>(month - 1)) + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

std::int64_t FullYear(std::int64_t year) {
    if (year < 0 || year > 99) {
        return year;
    }
    return year < 30 ? year + 2000 : year + 1900;
}

int WeekdayOf(std::int64_t day) {
    const std::int64_t fromSaturday = day - FloorDivide(day, 7) * 7;  // day 0 is a Saturday
    return static_cast<int>((fromSaturday + 6) % 7 + 1);
}

}  // namespace dorvik::basic::modDateSerial
