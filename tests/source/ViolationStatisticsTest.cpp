#include "source/ViolationStatistics.h"

#include <gtest/gtest.h>

#include <array>

namespace dorvik {
namespace {

/// The twelve numbers in the order of the severities, the total last.
std::array<std::int32_t, 12> Numbers(const ViolationStatistics& stats) {
    std::array<std::int32_t, 12> numbers{};
    std::size_t index = 0;
    for (const Severity severity : kSeverities) {
        numbers.at(index++) = stats.Count(severity);
        numbers.at(index++) = stats.Impact(severity);
    }
    numbers.at(index++) = stats.TotalViolations();
    numbers.at(index++) = stats.TotalImpact();
    return numbers;
}

TEST(ViolationStatistics, EachSeverityCountsForItselfAndForTheTotal) {
    for (std::int32_t severity = 1; severity <= 5; ++severity) {
        ViolationStatistics stats;
        stats.IncrementCount(severity, 250);
        stats.IncrementCount(severity, 50);
        std::array<std::int32_t, 12> expected{};
        const auto place = static_cast<std::size_t>(severity - 1) * 2;
        expected[place] = 2;
        expected[place + 1] = 300;
        expected[10] = 2;
        expected[11] = 300;
        EXPECT_EQ(Numbers(stats), expected) << severity;
    }
}

TEST(ViolationStatistics, ASeverityOutsideOneToFiveChangesNothing) {
    ViolationStatistics stats;
    for (const std::int32_t severity : {-1, 0, 6, 2000000000}) {
        stats.IncrementCount(severity, 900);
    }
    EXPECT_EQ(Numbers(stats), (std::array<std::int32_t, 12>{}));
}

TEST(ViolationStatistics, EveryNumberCanBeWritten) {
    ViolationStatistics stats;
    std::int32_t number = 0;
    for (const Severity severity : kSeverities) {
        stats.SetCount(severity, ++number);
        stats.SetImpact(severity, ++number);
    }
    stats.SetTotalViolations(11);
    stats.SetTotalImpact(12);
    EXPECT_EQ(
        Numbers(stats), (std::array<std::int32_t, 12>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST(ViolationStatistics, TheFiguresOfAllSeveritiesAreInTheirOrder) {
    ViolationStatistics stats;
    stats.IncrementCount(NumberOf(Severity::Critical), 900);
    stats.IncrementCount(NumberOf(Severity::Low), 50);
    stats.IncrementCount(NumberOf(Severity::Low), 60);
    EXPECT_EQ(stats.Counts(), (SeverityFigures{1, 0, 0, 2, 0}));
    EXPECT_EQ(stats.Impacts(), (SeverityFigures{900, 0, 0, 110, 0}));
}

}  // namespace
}  // namespace dorvik
