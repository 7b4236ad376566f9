#include "base/DateTime.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

constexpr DateTime kMoment{2026, 11, 21, 14, 5, 9};

TEST(modDateText, WritesEachForm) {
    EXPECT_EQ(modDateText::LogStamp(kMoment), "21/11/26 14:05:09");
    EXPECT_EQ(modDateText::DatabaseStamp(kMoment), "20261121 140509");
    EXPECT_EQ(modDateText::LongDate(kMoment), "Saturday, 21 November 2026");
    EXPECT_EQ(modDateText::LongTime(kMoment), "14:05:09");
}

TEST(modDateText, KnowsTheWeekdayAcrossLeapYears) {
    EXPECT_EQ(modDateText::LongDate({2000, 2, 29}), "Tuesday, 29 February 2000");
    EXPECT_EQ(modDateText::LongDate({2001, 12, 31}), "Monday, 31 December 2001");
    EXPECT_EQ(modDateText::LongDate({1900, 3, 1}), "Thursday, 1 March 1900");
}

TEST(modDateText, NoDateHasNoLongDate) {
    EXPECT_TRUE(DateTime{}.IsZero());
    EXPECT_EQ(modDateText::LongDate({}), "");
    EXPECT_FALSE(kMoment.IsZero());
}

}  // namespace
}  // namespace dorvik
