#pragma once

#include <cstdint>

/// The calendar of a Date: days since 30 Dec 1899, the fraction being the time. The fraction always
/// counts forward, before day 0 too: -1.25 is 29 Dec 1899 06:00.
namespace dorvik::basic::modDateSerial {

inline constexpr std::int64_t kFirstDay = -657434;  // 1 Jan 100
inline constexpr std::int64_t kLastDay = 2958465;   // 31 Dec 9999
inline constexpr std::int64_t kSecondsPerDay = 86400;

struct DateParts {
    int Year = 1899;
    int Month = 12;
    int Day = 30;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
    int Weekday = 7;  // 1 is Sunday

    friend bool operator==(const DateParts&, const DateParts&) = default;
};

/// Whether the day is one of the years 100 to 9999.
bool IsInRange(double serial);
/// The parts, rounded to the second. REQUIRES: IsInRange(serial).
DateParts PartsOf(double serial);
/// Day number (rounded with the second) and second of the day.
struct DayAndSecond {
    std::int64_t Day = 0;
    std::int64_t Second = 0;
};
DayAndSecond Split(double serial);
/// The serial of a day and a time of 0 to 1 (excluded).
double Combine(std::int64_t day, double time);
/// The serial of a day and seconds of any number and sign, which carry over to other days.
double Combine(std::int64_t day, std::int64_t seconds);

/// The day number of a date of the Gregorian calendar. Months and days beyond their range carry over.
std::int64_t DayNumber(std::int64_t year, std::int64_t month, std::int64_t day);
bool IsLeapYear(std::int64_t year);
int DaysInMonth(std::int64_t year, int month);
/// 0 to 29: the 2000s, 30 to 99: the 1900s; other years as they are.
std::int64_t FullYear(std::int64_t year);
/// 1 is Sunday.
int WeekdayOf(std::int64_t day);

}  // namespace dorvik::basic::modDateSerial
