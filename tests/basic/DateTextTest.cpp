#include "basic/values/DateText.h"

#include "base/CalendarNames.h"
#include "basic/values/DateSerial.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace dorvik::basic {

namespace {

std::string ReadAndWritten(std::string_view text) {
    const std::optional<double> date = ReadDate(text, 2005);
    return date ? DateToText(*date) : "none";
}

}  // namespace

TEST(DateText, ReadsDates) {
    struct Case {
        std::string_view Text;
        std::string_view Expected;
    };
    const Case cases[] = {
        {"1/31/2000", "1/31/2000"},
        {"01/31/2000", "1/31/2000"},
        {"1-31-2000", "1/31/2000"},
        {" 1/31/2000 ", "1/31/2000"},
        {"1 / 31 / 2000", "1/31/2000"},
        {"1/31/00", "1/31/2000"},
        {"1/31/29", "1/31/2029"},
        {"1/31/30", "1/31/1930"},
        {"1/31/99", "1/31/1999"},
        {"1/31", "1/31/2005"},
        {"1-31", "1/31/2005"},
        {"2000-01-31", "1/31/2000"},
        {"2000/1/31", "1/31/2000"},
        {"31/1/2000", "1/31/2000"},
        {"31/1", "1/31/2005"},
        {"2000-31-01", "1/31/2000"},
        {"Jan 31, 2000", "1/31/2000"},
        {"January 31 2000", "1/31/2000"},
        {"31 Jan 2000", "1/31/2000"},
        {"31-Jan-2000", "1/31/2000"},
        {"31-JAN-00", "1/31/2000"},
        {"2000 Jan 31", "1/31/2000"},
        {"2000 january 31", "1/31/2000"},
        {"Jan 31", "1/31/2005"},
        {"31 January", "1/31/2005"},
        {"May 5", "5/5/2005"},
        {"2/29/2000", "2/29/2000"},
        {"1/1/100", "1/1/100"},
        {"12/31/9999", "12/31/9999"},
        {"1/31/2000 5:30 PM", "1/31/2000 5:30:00 PM"},
        {"Jan 31, 2000 5:30 PM", "1/31/2000 5:30:00 PM"},
        {"5:30 PM 1/31/2000", "1/31/2000 5:30:00 PM"},
        {"1/31/2000 13:00:05", "1/31/2000 1:00:05 PM"},
        {"1/31/2000 0:00", "1/31/2000"},
        {"12/29/1899 6:00", "12/29/1899 6:00:00 AM"},
        {"13:00:05", "1:00:05 PM"},
        {"5:30", "5:30:00 AM"},
        {"5:30PM", "5:30:00 PM"},
        {"5:30 am", "5:30:00 AM"},
        {"5 PM", "5:00:00 PM"},
        {"12:00 AM", "12:00:00 AM"},
        {"12:00 PM", "12:00:00 PM"},
        {"12:30 AM", "12:30:00 AM"},
        {"23:59:59", "11:59:59 PM"},
        {"0:00", "12:00:00 AM"},
        {"12/30/1899", "12:00:00 AM"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(ReadAndWritten(one.Text), one.Expected) << one.Text;
    }
}

TEST(DateText, RefusesWhatIsNoDate) {
    for (const std::string_view text :
         {"",
          " ",
          "abc",
          "5",
          "36526",
          "1.5",
          "1/32/2000",
          "13/32/2000",
          "2/30/2000",
          "2/29/2001",
          "0/1/2000",
          "1/0/2000",
          "1/31/99999",
          "1/1/10000",
          "1/2/3/4",
          "1//2000",
          "/1/2000",
          "1/2000/",
          "1/2-2000",
          "1 31 2000",
          "1,31,2000",
          "Jan",
          "Jan Feb 2000",
          "Foo 31, 2000",
          "Janu 31, 2000",
          "Monday, January 31, 2000",
          "24:00",
          "12:60",
          "12:00:60",
          "13:00 PM",
          ":30",
          "5:",
          "PM",
          "1/31/2000 5",
          "1/31 5:30 2000",
          "1:2:3:4",
          "2000-01-31T12:00:00",
          "5:30 PM PM",
          "Jan 31, 2000, ",
          "1/31/2000 5:30 XM"}) {
        EXPECT_EQ(ReadAndWritten(text), "none") << text;
    }
}

TEST(DateText, CountsTheTimeForwardBeforeDayZero) {
    EXPECT_EQ(ReadDate("12/29/1899 6:00", 2005), -1.25);
    EXPECT_EQ(DateToText(-1.25), "12/29/1899 6:00:00 AM");
    EXPECT_EQ(DateToText(-0.25), "6:00:00 AM");
}

TEST(DateText, RoundsToTheSecond) {
    EXPECT_EQ(DateToText(36556 + 0.9999999), "2/1/2000");
    EXPECT_EQ(DateToText(36556 + 1.0 / 86400), "1/31/2000 12:00:01 AM");
    EXPECT_EQ(DateToText(0.9999999), "12/31/1899");
}

TEST(DateText, KnowsTheNames) {
    EXPECT_EQ(MonthNameOf(1), "January");
    EXPECT_EQ(MonthNameOf(12), "December");
    EXPECT_EQ(WeekdayNameOf(1), "Sunday");
    EXPECT_EQ(WeekdayNameOf(7), "Saturday");
    EXPECT_EQ(ShortName("September"), "Sep");
}

TEST(DateSerial, NumbersDays) {
    struct Case {
        int Year;
        int Month;
        int Day;
        std::int64_t Expected;
    };
    const Case cases[] = {
        {1899, 12, 30, 0},
        {1899, 12, 31, 1},
        {1900, 1, 1, 2},
        {1900, 3, 1, 61},
        {2000, 1, 1, 36526},
        {2000, 2, 29, 36585},
        {2000, 3, 1, 36586},
        {100, 1, 1, modDateSerial::kFirstDay},
        {9999, 12, 31, modDateSerial::kLastDay},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(modDateSerial::DayNumber(one.Year, one.Month, one.Day), one.Expected);
        const auto parts = modDateSerial::PartsOf(static_cast<double>(one.Expected));
        EXPECT_EQ(parts.Year, one.Year);
        EXPECT_EQ(parts.Month, one.Month);
        EXPECT_EQ(parts.Day, one.Day);
    }
}

TEST(DateSerial, CountsEveryDayOfTheRangeOnce) {
    std::int64_t day = modDateSerial::kFirstDay;
    for (int year = 100; year <= 9999; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const int last = modDateSerial::DaysInMonth(year, month);
            ASSERT_EQ(modDateSerial::DayNumber(year, month, 1), day);
            day += last;
            const auto parts = modDateSerial::PartsOf(static_cast<double>(day - 1));
            ASSERT_EQ(parts.Year, year);
            ASSERT_EQ(parts.Month, month);
            ASSERT_EQ(parts.Day, last);
        }
    }
    EXPECT_EQ(day, modDateSerial::kLastDay + 1);
}

TEST(DateSerial, CarriesMonthsAndDaysOver) {
    EXPECT_EQ(modDateSerial::DayNumber(2000, 13, 1), modDateSerial::DayNumber(2001, 1, 1));
    EXPECT_EQ(modDateSerial::DayNumber(2000, 0, 1), modDateSerial::DayNumber(1999, 12, 1));
    EXPECT_EQ(modDateSerial::DayNumber(2000, -11, 1), modDateSerial::DayNumber(1999, 1, 1));
    EXPECT_EQ(modDateSerial::DayNumber(2000, 3, 0), modDateSerial::DayNumber(2000, 2, 29));
    EXPECT_EQ(modDateSerial::DayNumber(2000, 1, 366), modDateSerial::DayNumber(2000, 12, 31));
}

TEST(DateSerial, KnowsTheRange) {
    EXPECT_TRUE(modDateSerial::IsInRange(-657434));
    EXPECT_TRUE(modDateSerial::IsInRange(-657434.9));
    EXPECT_FALSE(modDateSerial::IsInRange(-657435));
    EXPECT_TRUE(modDateSerial::IsInRange(2958465.9));
    EXPECT_FALSE(modDateSerial::IsInRange(2958466));
}

TEST(DateSerial, GivesThePartsOfATime) {
    const modDateSerial::DateParts parts = modDateSerial::PartsOf(36556.75 + 65.0 / 86400);
    EXPECT_EQ(parts, (modDateSerial::DateParts{2000, 1, 31, 18, 1, 5, 2}));
    EXPECT_EQ(modDateSerial::PartsOf(0), modDateSerial::DateParts{});
    EXPECT_EQ(modDateSerial::PartsOf(-1.25).Hour, 6);
    EXPECT_EQ(modDateSerial::PartsOf(-1.25).Day, 29);
}

TEST(DateSerial, CombinesDaysAndSeconds) {
    EXPECT_EQ(modDateSerial::Combine(1, std::int64_t{43200}), 1.5);
    EXPECT_EQ(modDateSerial::Combine(-1, std::int64_t{21600}), -1.25);
    EXPECT_EQ(modDateSerial::Combine(1, std::int64_t{-43200}), 0.5);
    EXPECT_EQ(modDateSerial::Combine(0, std::int64_t{-43200}), -1.5);
    EXPECT_EQ(modDateSerial::Combine(0, std::int64_t{2 * 86400}), 2.0);
}

TEST(DateSerial, KnowsWeekdays) {
    EXPECT_EQ(modDateSerial::WeekdayOf(0), 7);
    EXPECT_EQ(modDateSerial::WeekdayOf(1), 1);
    EXPECT_EQ(modDateSerial::WeekdayOf(-1), 6);
    EXPECT_EQ(modDateSerial::WeekdayOf(36526), 7);
}

TEST(DateSerial, TakesTwoDigitYearsAsRecentOnes) {
    EXPECT_EQ(modDateSerial::FullYear(0), 2000);
    EXPECT_EQ(modDateSerial::FullYear(29), 2029);
    EXPECT_EQ(modDateSerial::FullYear(30), 1930);
    EXPECT_EQ(modDateSerial::FullYear(99), 1999);
    EXPECT_EQ(modDateSerial::FullYear(100), 100);
}

}  // namespace dorvik::basic
