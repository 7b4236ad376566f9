#include "base/BasicError.h"
#include "rulebase/model/CodingConvention.h"
#include "rulebase/model/UnauthorisedKeyword.h"

#include <gtest/gtest.h>

#include <memory>

namespace dorvik {
namespace {

TEST(ViolationDefinition, EveryWriteButThatOfTheViolationDescriptionSetsDirty) {
    const auto writes = {
        +[](ViolationDefinition& d) { d.SetTitle("t"); },
        +[](ViolationDefinition& d) { d.SetDescription("d"); },
        +[](ViolationDefinition& d) { d.SetImpact(3); },
        +[](ViolationDefinition& d) { d.SetSeverity(2); },
        +[](ViolationDefinition& d) { d.SetAdvice("a"); },
        +[](ViolationDefinition& d) { d.SetCategoryID(7); },
    };
    for (const auto write : writes) {
        ViolationDefinition definition;
        write(definition);
        EXPECT_TRUE(definition.Dirty());
    }
    ViolationDefinition definition;
    definition.SetViolationDescription("v");
    EXPECT_FALSE(definition.Dirty());
    EXPECT_EQ(definition.ViolationDescription(), "v");
}

TEST(CodingConvention, ANewOneIsActiveAndHasNoEventsAndNoCategory) {
    const CodingConvention rule;
    EXPECT_TRUE(rule.RuleActive());
    EXPECT_EQ(rule.EndEventID(), -1);
    EXPECT_EQ(rule.EventCount(), 0);
    EXPECT_EQ(rule.ParserEventList(), "");
    EXPECT_EQ(rule.ViolationDefinition().CategoryID(), -1);
    EXPECT_FALSE(rule.PendingViolation());
    EXPECT_FALSE(rule.Dirty());
    EXPECT_EQ(rule.RuleType(), ruleTypeCoding);
}

TEST(EventRule, AddingAnEventTwiceLeavesOneAndIsTrueBothTimes) {
    CodingConvention rule;
    EXPECT_TRUE(rule.AddParserEventID(5));
    EXPECT_TRUE(rule.AddParserEventID(5));
    EXPECT_EQ(rule.EventCount(), 1);
}

TEST(EventRule, AddingAnEventThatIsThereDoesNotMarkTheRuleDirty) {
    CodingConvention rule;
    rule.AddParserEventID(5);
    rule.SetDirty(false);
    rule.AddParserEventID(5);
    EXPECT_FALSE(rule.Dirty());
}

TEST(EventRule, RemovingSwapsTheLastEventIntoTheFreePlace) {
    UnauthorisedKeyword rule;
    for (const std::int32_t event : {1, 2, 3}) {
        rule.AddParserEventID(event);
    }
    EXPECT_TRUE(rule.RemoveParserEventID(1));
    EXPECT_EQ(rule.ParserEventList(), "3|2");
    EXPECT_EQ(rule.ParserEventID(0), 3);
    EXPECT_TRUE(rule.IsAssignedToEvent(2));
    EXPECT_FALSE(rule.IsAssignedToEvent(1));
}

TEST(EventRule, RemovingMinusOneEmptiesTheList) {
    UnauthorisedKeyword rule;
    rule.AddParserEventID(10);
    rule.AddParserEventID(30);
    EXPECT_TRUE(rule.RemoveParserEventID(-1));
    EXPECT_EQ(rule.EventCount(), 0);
    EXPECT_EQ(rule.ParserEventList(), "");
}

TEST(EventRule, RemovingAnEventThatIsNotThereIsTrueAndMarksTheRuleDirty) {
    CodingConvention rule;
    rule.AddParserEventID(1);
    rule.SetDirty(false);
    EXPECT_TRUE(rule.RemoveParserEventID(99));
    EXPECT_TRUE(rule.Dirty());
    EXPECT_EQ(rule.EventCount(), 1);
}

TEST(EventRule, TheListJoinsTheEventsInTheirOrder) {
    CodingConvention rule;
    rule.AddParserEventID(12);
    EXPECT_EQ(rule.ParserEventList(), "12");
    rule.AddParserEventID(34);
    rule.AddParserEventID(15);
    EXPECT_EQ(rule.ParserEventList(), "12|34|15");
}

TEST(EventRule, APlaceOutsideTheListIsOutOfRange) {
    const CodingConvention rule;
    EXPECT_THROW(static_cast<void>(rule.ParserEventID(0)), BasicError);
    EXPECT_THROW(static_cast<void>(rule.ParserEventID(-1)), BasicError);
}

TEST(CodingConvention, TriggeredAndCancelledCanBeWrittenOnlyWithAPendingViolation) {
    CodingConvention rule;
    rule.SetTriggered(true);
    rule.SetCancelled(true);
    EXPECT_FALSE(rule.Triggered());
    EXPECT_FALSE(rule.Cancelled());
    rule.SetPendingViolation(true);
    rule.SetDirty(false);
    rule.SetTriggered(true);
    rule.SetCancelled(true);
    EXPECT_TRUE(rule.Triggered());
    EXPECT_TRUE(rule.Cancelled());
    EXPECT_FALSE(rule.Dirty()) << "state of a review is not part of the rule";
}

TEST(UnauthorisedKeyword, TriggeredAndCancelledAreStoredAndNothingIsEverPending) {
    UnauthorisedKeyword rule;
    rule.SetTriggered(true);
    rule.SetCancelled(true);
    EXPECT_TRUE(rule.Triggered());
    EXPECT_TRUE(rule.Cancelled());
    EXPECT_FALSE(rule.PendingViolation());
    EXPECT_EQ(rule.RuleType(), ruleTypeKeyword);
}

TEST(BasicRule, TheKeyIsTheNumberAndTheWordKey) {
    UnauthorisedKeyword rule;
    rule.SetRuleID(12);
    EXPECT_EQ(rule.RuleKey(), "12Key");
}

TEST(BasicRule, EachWriteMarksTheRuleDirty) {
    const auto writes = {
        +[](CodingConvention& r) { r.SetRuleID(1); },
        +[](CodingConvention& r) { r.SetCondition("c"); },
        +[](CodingConvention& r) { r.SetDescription("d"); },
        +[](CodingConvention& r) { r.SetTitle("t"); },
        +[](CodingConvention& r) { r.SetRuleActive(true); },
        +[](CodingConvention& r) { r.SetPendingViolation(false); },
        +[](CodingConvention& r) { r.SetEndEventID(-1); },
        +[](CodingConvention& r) { r.SetCategoryID(2); },
        +[](CodingConvention& r) { r.AddParserEventID(1); },
    };
    for (const auto write : writes) {
        CodingConvention rule;
        write(rule);
        EXPECT_TRUE(rule.Dirty());
    }
}

TEST(BasicRule, ReplacingTheViolationDefinitionDoesNotMarkTheRule) {
    CodingConvention rule;
    rule.SetViolationDefinition({});
    EXPECT_FALSE(rule.Dirty());
}

TEST(BasicRule, AChangedDefinitionMakesTheRuleReadDirtyButNotItsPromptText) {
    CodingConvention rule;
    rule.ViolationDefinition().SetViolationDescription("prompt");
    EXPECT_FALSE(rule.Dirty());
    rule.ViolationDefinition().SetAdvice("advice");
    EXPECT_TRUE(rule.Dirty());
    rule.SetDirty(false);
    EXPECT_FALSE(rule.ViolationDefinition().Dirty());
}

TEST(CodingConvention, ACloneHasItsOwnTitleAndNoNumberYet) {
    CodingConvention rule;
    rule.SetRuleID(5001);
    rule.SetTitle("No GoTo");
    const std::shared_ptr<IRule> clone = rule.Clone();
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->Title(), "Clone of No GoTo");
    EXPECT_EQ(clone->RuleID(), 0);
    EXPECT_EQ(clone->RuleKey(), "0Key");
    EXPECT_TRUE(clone->Dirty());
}

TEST(CodingConvention, ACloneCopiesEventsPendingStateAndDefinitionButNotTheRunningState) {
    CodingConvention rule;
    rule.SetCondition("x");
    rule.SetDescription("d");
    rule.AddParserEventID(34);
    rule.AddParserEventID(28);
    rule.SetPendingViolation(true);
    rule.SetEndEventID(34);
    rule.SetTriggered(true);
    rule.SetRuleActive(false);
    rule.ViolationDefinition().SetTitle("Jump");
    rule.ViolationDefinition().SetViolationDescription("prompt");
    rule.ViolationDefinition().SetImpact(900);
    rule.SetCategoryID(4);
    const auto clone = std::dynamic_pointer_cast<CodingConvention>(rule.Clone());
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->Condition(), "x");
    EXPECT_EQ(clone->Description(), "d");
    EXPECT_EQ(clone->ParserEventList(), "34|28");
    EXPECT_TRUE(clone->PendingViolation());
    EXPECT_EQ(clone->EndEventID(), 34);
    EXPECT_FALSE(clone->Triggered());
    EXPECT_FALSE(clone->RuleActive());
    EXPECT_EQ(clone->ViolationDefinition().Title(), "Jump") << "without the prefix";
    EXPECT_EQ(clone->ViolationDefinition().ViolationDescription(), "prompt");
    EXPECT_EQ(clone->ViolationDefinition().Impact(), 900);
    EXPECT_EQ(clone->CategoryID(), 4);
}

TEST(UnauthorisedKeyword, ACloneIsAKeywordWithTheSameEvents) {
    UnauthorisedKeyword rule;
    rule.SetCondition("\\bStop\\b");
    rule.AddParserEventID(30);
    const auto clone = std::dynamic_pointer_cast<UnauthorisedKeyword>(rule.Clone());
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->Condition(), "\\bStop\\b");
    EXPECT_EQ(clone->ParserEventList(), "30");
}

TEST(EventRule, ManyEventsBehaveAsFewDo) {
    CodingConvention rule;
    for (std::int32_t event = 1; event <= 500; ++event) {
        EXPECT_TRUE(rule.AddParserEventID(event));
        EXPECT_TRUE(rule.AddParserEventID(event));
    }
    EXPECT_EQ(rule.EventCount(), 500);
    EXPECT_TRUE(rule.RemoveParserEventID(1));
    EXPECT_EQ(rule.ParserEventID(0), 500);
    EXPECT_FALSE(rule.IsAssignedToEvent(1));
    EXPECT_TRUE(rule.IsAssignedToEvent(500));
    EXPECT_TRUE(rule.AddParserEventID(1));
    EXPECT_TRUE(rule.IsAssignedToEvent(1));
    EXPECT_TRUE(rule.IsAssignedToEvent(2));
    EXPECT_FALSE(rule.IsAssignedToEvent(501));
    EXPECT_EQ(rule.EventCount(), 500);
    EXPECT_TRUE(rule.RemoveParserEventID(-1));
    EXPECT_FALSE(rule.IsAssignedToEvent(2));
    EXPECT_EQ(rule.ParserEventList(), "");
}

}  // namespace
}  // namespace dorvik
