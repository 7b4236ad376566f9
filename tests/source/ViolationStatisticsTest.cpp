#include "source/ViolationStatistics.h"

#include <gtest/gtest.h>

#include <array>

namespace dorvik {
namespace {

/// The twelve numbers in the order of the severities, the total last.
std::array<std::int32_t, 12> Numbers(const ViolationStatistics& stats) {
    return {
        stats.CriticalViolations(),
        stats.CriticalImpact(),
        stats.HighViolations(),
        stats.HighImpact(),
        stats.MediumViolations(),
        stats.MediumImpact(),
        stats.LowViolations(),
        stats.LowImpact(),
        stats.InfoViolations(),
        stats.InfoImpact(),
        stats.TotalViolations(),
        stats.TotalImpact()};
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
    stats.SetCriticalViolations(1);
    stats.SetCriticalImpact(2);
    stats.SetHighViolations(3);
    stats.SetHighImpact(4);
    stats.SetMediumViolations(5);
    stats.SetMediumImpact(6);
    stats.SetLowViolations(7);
    stats.SetLowImpact(8);
    stats.SetInfoViolations(9);
    stats.SetInfoImpact(10);
    stats.SetTotalViolations(11);
    stats.SetTotalImpact(12);
    EXPECT_EQ(
        Numbers(stats), (std::array<std::int32_t, 12>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

}  // namespace
}  // namespace dorvik
