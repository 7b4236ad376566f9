#include "enforcement/RuleFailures.h"

#include "enforcement/ReviewLog.h"
#include "parser/VB6ParserState.h"
#include "rulebase/model/UnauthorisedKeyword.h"
#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const auto kEndless = RuleFailures::ScriptOf(5000, "rule 5000 (Endless)");

RuleFailures::RulePart OddPattern() {
    UnauthorisedKeyword keyword;
    keyword.SetRuleID(5007);
    keyword.SetTitle("Odd");
    return RuleFailures::PatternOf(keyword);
}

TEST(RuleFailures, TheThirdStopDisablesTheRuleAndIsLoggedOnce) {
    test::CapturedLog log;
    const VB6ParserState state;
    const ReviewLog reviewLog(state);
    RuleFailures failures;
    failures.CountStop(OddPattern(), &reviewLog);
    failures.CountStop(OddPattern(), &reviewLog);
    EXPECT_FALSE(failures.IsDisabled(5007));
    EXPECT_THAT(log.Lines(), IsEmpty());
    failures.CountStop(OddPattern(), &reviewLog);
    failures.CountStop(OddPattern(), &reviewLog);
    EXPECT_TRUE(failures.IsDisabled(5007));
    EXPECT_FALSE(failures.IsDisabled(5008));
    ASSERT_EQ(failures.DisabledRules().size(), 1U);
    EXPECT_EQ(failures.DisabledRules()[0].RuleName, "rule 5007 (Odd)");
    EXPECT_EQ(failures.DisabledRules()[0].What, "pattern");
    EXPECT_THAT(
        log.Lines(),
        ElementsAre("[Event:Unknown Event]Disabled for the rest of the review, because its pattern "
                    "was stopped 3 times: rule 5007 (Odd)"));
}

TEST(RuleFailures, ARuleThatIsStoppedLessOftenIsListedWithItsCount) {
    RuleFailures failures;
    failures.CountStop(kEndless, nullptr);
    failures.CountStop(kEndless, nullptr);
    for (int stop = 0; stop < RuleFailures::kStopsUntilDisabled; ++stop) {
        failures.CountStop(OddPattern(), nullptr);
    }
    ASSERT_EQ(failures.StoppedRules().size(), 1U);
    EXPECT_EQ(failures.StoppedRules()[0].Part.RuleName, "rule 5000 (Endless)");
    EXPECT_EQ(failures.StoppedRules()[0].Part.What, "script");
    EXPECT_EQ(failures.StoppedRules()[0].Count, 2);
}

TEST(RuleFailures, FailuresAreCountedByRuleNumberAndDisableNothing) {
    RuleFailures failures;
    for (int failure = 0; failure < 4; ++failure) {
        failures.CountFailure(OddPattern());
    }
    failures.CountFailure(kEndless);
    std::vector<std::int64_t> counts;
    for (const RuleFailures::CountedPart& failed : failures.FailedRules()) {
        counts.push_back(failed.Count);
    }
    EXPECT_THAT(counts, ElementsAre(1, 4));
    EXPECT_FALSE(failures.IsDisabled(5007));
    EXPECT_THAT(failures.DisabledRules(), IsEmpty());
    EXPECT_THAT(failures.StoppedRules(), IsEmpty());
}

}  // namespace

}  // namespace dorvik
