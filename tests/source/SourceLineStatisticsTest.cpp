#include "source/SourceLineStatistics.h"

#include <gtest/gtest.h>

#include <array>

namespace dorvik {
namespace {

/// Blank, comment only, in-line comment, code, total.
std::array<std::int32_t, 5> Counts(const SourceLineStatistics& stats) {
    return {
        stats.BlankLines(),
        stats.CommentOnlyLines(),
        stats.InLineCommentLines(),
        stats.CodeLines(),
        stats.TotalLines()};
}

TEST(SourceLineStatistics, EachLineTypeCountsInItsCounters) {
    const std::pair<LineType, std::array<std::int32_t, 5>> rows[] = {
        {LineType::Blank, {1, 0, 0, 0, 1}},
        {LineType::CommentOnly, {0, 1, 0, 0, 1}},
        {LineType::CodeWithComment, {0, 0, 1, 1, 1}},
        {LineType::Code, {0, 0, 0, 1, 1}},
    };
    for (const auto& [lineType, expected] : rows) {
        SourceLineStatistics stats;
        stats.IncrementCount(lineType);
        EXPECT_EQ(Counts(stats), expected) << static_cast<int>(lineType);
    }
}

TEST(SourceLineStatistics, AContinuedLineThatEndsTheFileCountsNowhereNotEvenInTheTotal) {
    SourceLineStatistics stats;
    stats.IncrementCount(LineType::Continued);
    stats.IncrementCount(LineType::None);
    EXPECT_EQ(Counts(stats), (std::array<std::int32_t, 5>{}));
}

TEST(SourceLineStatistics, CountersAreReadByTheirNamesInRules) {
    SourceLineStatistics stats;
    stats.SetTotalLines(50);
    stats.SetCodeLines(40);
    stats.SetBlankLines(30);
    stats.SetCommentOnlyLines(20);
    stats.SetInLineCommentLines(10);
    const std::pair<const char*, std::int32_t> rows[] = {
        {"TotalLineCount", 50},
        {"CodeLineCount", 40},
        {"BlankLineCount", 30},
        {"CommentLineCount", 20},
        {"InLineCommentCount", 10},
        {"codelinecount", 40},
    };
    for (const auto& [name, expected] : rows) {
        std::int32_t value = -1;
        EXPECT_TRUE(stats.SourceLineStatByName(name, value)) << name;
        EXPECT_EQ(value, expected) << name;
    }
}

TEST(SourceLineStatistics, InLineCommentsAreCommentsAndCodeInTheShareOfComments) {
    SourceLineStatistics lines;
    lines.SetTotalLines(5);
    lines.SetBlankLines(5);
    EXPECT_EQ(lines.CommentShare(), std::nullopt);
    EXPECT_EQ(lines.CommentPercentage(), 0);
    lines.SetCodeLines(6);
    lines.SetCommentOnlyLines(1);
    lines.SetInLineCommentLines(1);
    EXPECT_EQ(lines.CommentShare(), 0.25);
    EXPECT_EQ(lines.CommentPercentage(), 25);
    lines.SetCodeLines(198);
    EXPECT_EQ(lines.CommentPercentage(), 1);
    lines.SetCodeLines(398);
    EXPECT_EQ(lines.CommentPercentage(), 0);
}

TEST(SourceLineStatistics, AnUnknownNameGivesFalseAndLeavesTheOutputAlone) {
    std::int32_t value = 7;
    EXPECT_FALSE(SourceLineStatistics().SourceLineStatByName("CodeLines", value));
    EXPECT_FALSE(SourceLineStatistics().SourceLineStatByName("", value));
    EXPECT_EQ(value, 7);
}

}  // namespace
}  // namespace dorvik
