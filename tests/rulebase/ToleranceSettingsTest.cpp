#include "rulebase/model/ToleranceSettings.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(ToleranceSettings, TheTotalIsALimitToo) {
    ToleranceSettings tolerances;
    EXPECT_FALSE(tolerances.IsAnySet());
    tolerances.Impact.SetItem(6, 0);
    EXPECT_TRUE(tolerances.IsAnySet());
}

TEST(ToleranceSettings, EachLimitCounts) {
    for (std::int32_t index = 1; index <= 6; ++index) {
        ToleranceSettings counts;
        counts.Count.SetItem(index, 0);
        EXPECT_TRUE(counts.IsAnySet()) << index;
    }
    ToleranceSettings complexity;
    complexity.CyclomaticComplexity = 0;
    EXPECT_TRUE(complexity.IsAnySet());
    ToleranceSettings comments;
    comments.PercentageComments = 0;
    EXPECT_TRUE(comments.IsAnySet());
}

}  // namespace
}  // namespace dorvik
