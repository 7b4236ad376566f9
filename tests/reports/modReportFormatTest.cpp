#include "reports/format/modReportFormat.h"

#include "base/BasicError.h"

#include <gtest/gtest.h>

#include <limits>

namespace dorvik {
namespace {

using namespace modReportFormat;

struct NumberCase {
    double Value;
    std::int32_t Decimals;
    bool ShowZero;
    const char* Expected;
};

class modReportFormatNumber : public testing::TestWithParam<NumberCase> {};

TEST_P(modReportFormatNumber, IsGroupedAndRoundedAwayFromZero) {
    const NumberCase& row = GetParam();
    EXPECT_EQ(FormatNumber(row.Value, row.Decimals, row.ShowZero), row.Expected) << row.Value;
}

INSTANTIATE_TEST_SUITE_P(
    All,
    modReportFormatNumber,
    testing::Values(
        NumberCase{0, 0, false, "-"},
        NumberCase{0, 2, false, "-"},
        NumberCase{0, 0, true, "0"},
        NumberCase{0, 2, true, "0.00"},
        NumberCase{7, 0, false, "7"},
        NumberCase{999, 0, false, "999"},
        NumberCase{1000, 0, false, "1,000"},
        NumberCase{1234567, 0, false, "1,234,567"},
        NumberCase{2147483647, 0, false, "2,147,483,647"},
        NumberCase{-2147483648.0, 0, false, "-2,147,483,648"},
        NumberCase{-1234.5, 1, false, "-1,234.5"},
        NumberCase{0.5, 0, false, "1"},
        NumberCase{1.5, 0, false, "2"},
        NumberCase{2.5, 0, false, "3"},
        NumberCase{-2.5, 0, false, "-3"},
        NumberCase{2.675, 2, false, "2.68"},
        NumberCase{0.125, 2, false, "0.13"},
        NumberCase{0.124, 2, false, "0.12"},
        NumberCase{999.995, 2, false, "1,000.00"},
        NumberCase{0.995, 2, false, "1.00"},
        NumberCase{0.05, 1, false, "0.1"},
        NumberCase{0.004, 2, false, "0.00"},
        NumberCase{-0.004, 2, false, "0.00"},
        NumberCase{0.0004, 2, false, "0.00"},
        NumberCase{1.0 / 3.0, 2, false, "0.33"},
        NumberCase{1e15, 0, false, "1,000,000,000,000,000"},
        NumberCase{12, -1, false, "12"}));

TEST(modReportFormat, PercentHasTwoDecimals) {
    EXPECT_EQ(FormatPercent(0), "0.00%");
    EXPECT_EQ(FormatPercent(0.256), "25.60%");
    EXPECT_EQ(FormatPercent(1), "100.00%");
    EXPECT_EQ(FormatPercent(1.0 / 3.0), "33.33%");
    EXPECT_EQ(FormatPercent(2.0 / 3.0), "66.67%");
    EXPECT_EQ(FormatPercent(0.28505), "28.51%");
    EXPECT_EQ(FormatPercent(12.5), "1,250.00%");
}

TEST(modReportFormat, WhatIsNoNumberRaises) {
    EXPECT_THROW(FormatNumber(std::numeric_limits<double>::infinity()), BasicError);
    EXPECT_THROW(FormatPercent(std::numeric_limits<double>::quiet_NaN()), BasicError);
}

TEST(modReportFormat, LongDateNamesTheDay) {
    EXPECT_EQ(FormatLongDate({2026, 11, 20, 1, 2, 3}), "Friday, 20 November 2026");
    EXPECT_EQ(FormatLongDate({}), "");
}

TEST(modReportFormat, GeneralDateHasDateAndTimeIn24Hours) {
    EXPECT_EQ(FormatGeneralDate({2026, 11, 21, 14, 5, 9}), "21/11/2026 14:05:09");
    EXPECT_EQ(FormatGeneralDate({2026, 1, 2, 0, 0, 0}), "02/01/2026 00:00:00");
    EXPECT_EQ(FormatGeneralDate({}), "");
}

struct DurationCase {
    DateTime Start;
    DateTime End;
    const char* Expected;
};

class modReportFormatDuration : public testing::TestWithParam<DurationCase> {};

TEST_P(modReportFormatDuration, IsTheTimeOfTheDifference) {
    EXPECT_EQ(FormatDuration(GetParam().Start, GetParam().End), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    All,
    modReportFormatDuration,
    testing::Values(
        DurationCase{{2026, 11, 21, 14, 5, 9}, {2026, 11, 21, 14, 5, 9}, "00:00:00"},
        DurationCase{{2026, 11, 21, 14, 5, 9}, {2026, 11, 21, 15, 6, 10}, "01:01:01"},
        DurationCase{{2026, 12, 31, 23, 59, 59}, {2027, 1, 1, 0, 0, 1}, "00:00:02"},
        // Whole days are dropped.
        DurationCase{{2026, 11, 21, 14, 0, 0}, {2026, 11, 23, 15, 0, 0}, "01:00:00"},
        DurationCase{{2026, 11, 21, 14, 0, 0}, {}, "00:00:00"},
        DurationCase{{}, {2026, 11, 21, 14, 0, 0}, "00:00:00"}));

TEST(modReportFormat, ReviewStatusIsAText) {
    constexpr const char* kTexts[] = {
        "Unknown Review Status Code",
        "Unexpected Error",
        "Unknown Source File Name",
        "Unknown Source File Type",
        "Failed To Open Source File",
        "Unknown Review Status Code"};
    std::int32_t status = 0;
    for (const char* text : kTexts) {
        EXPECT_EQ(GetReviewStatusDescription(status), text) << status;
        ++status;
    }
    EXPECT_EQ(GetReviewStatusDescription(-1), "Unknown Review Status Code");
}

TEST(modReportFormat, FormatNumberOfZeroIsADashAndOfAMillionHasSeparators) {
    EXPECT_EQ(FormatNumber(0), "-");
    EXPECT_EQ(FormatNumber(0, 0, true), "0");
    EXPECT_EQ(FormatNumber(1234567), "1,234,567");
    EXPECT_EQ(FormatNumber(0.5, 2, false), "0.50");
}

}  // namespace
}  // namespace dorvik
