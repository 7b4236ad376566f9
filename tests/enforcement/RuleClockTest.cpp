#include "enforcement/RuleClock.h"

#include <gtest/gtest.h>

namespace dorvik {

TEST(RuleClock, AddsUpTheCallsOfEachRuleAndListsTheMostExpensiveFirst) {
    RuleClock clock;
    clock.Add(5000, 0.25);
    clock.Add(5001, 1.5);
    clock.Add(5000, 0.5);

    const auto times = clock.RuleTimes();

    ASSERT_EQ(times.size(), 2U);
    EXPECT_EQ(times[0].RuleID, 5001);
    EXPECT_EQ(times[0].Calls, 1);
    EXPECT_DOUBLE_EQ(times[0].Seconds, 1.5);
    EXPECT_EQ(times[1].RuleID, 5000);
    EXPECT_EQ(times[1].Calls, 2);
    EXPECT_DOUBLE_EQ(times[1].Seconds, 0.75);
}

TEST(RuleClock, OfRulesThatCostTheSameTheLowerNumberComesFirst) {
    RuleClock clock;
    clock.Add(5007, 1);
    clock.Add(5003, 1);
    EXPECT_EQ(clock.RuleTimes().front().RuleID, 5003);
}

TEST(RuleClock, KnowsNothingOfRulesThatDidNotRun) {
    EXPECT_TRUE(RuleClock().RuleTimes().empty());
}

}  // namespace dorvik
