#include "rulebase/model/RuleLists.h"

#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace dorvik {
namespace {

std::shared_ptr<CodingConvention> Coding(std::vector<std::int32_t> events, std::int32_t id = 0) {
    auto rule = std::make_shared<CodingConvention>();
    rule->SetRuleID(id);
    for (const std::int32_t event : events) {
        rule->AddParserEventID(event);
    }
    return rule;
}

std::shared_ptr<UnauthorisedKeyword> Keyword(std::vector<std::int32_t> events, std::int32_t id) {
    auto rule = std::make_shared<UnauthorisedKeyword>();
    rule->SetRuleID(id);
    for (const std::int32_t event : events) {
        rule->AddParserEventID(event);
    }
    return rule;
}

std::shared_ptr<NamingConvention> Naming(std::int32_t objectType, std::int32_t id) {
    auto rule = std::make_shared<NamingConvention>();
    rule->SetRuleID(id);
    rule->SetObjectType(objectType);
    return rule;
}

TEST(RuleLists, TheFirstNewRuleGetsTheNumberFiveThousand) {
    RuleLists lists;
    EXPECT_EQ(lists.LastID(), 4999);
    const auto rule = Coding({5});
    lists.AddConvention(rule, true);
    EXPECT_EQ(rule->RuleID(), 5000);
    EXPECT_EQ(lists.LastID(), 5000);
    EXPECT_EQ(lists.AllConventions().Item("5000Key"), rule);
    EXPECT_EQ(lists.CodingConventions().Item("5000Key"), rule);
    EXPECT_FALSE(lists.AllConventions().Selected(1));
}

TEST(RuleLists, ALoadedRuleKeepsItsNumberAndLeavesTheLastOne) {
    RuleLists lists;
    lists.AddConvention(Coding({}, 7000), false);
    EXPECT_EQ(lists.LastID(), 4999);
    EXPECT_TRUE(lists.AllConventions().Contains("7000key"));
}

TEST(RuleLists, AnUnusedEventHasNoListUntilOneIsAskedFor) {
    RuleLists lists;
    for (const std::int32_t event : {99, 12, -3}) {  // beyond the direct index, within it, negative
        EXPECT_EQ(lists.ParserEventCCList(event, false), nullptr);
        EXPECT_EQ(lists.ParserEventCCList(event, false), nullptr);
        ObjectArrayList<CodingConvention>* created = lists.ParserEventCCList(event, true);
        ASSERT_NE(created, nullptr);
        EXPECT_EQ(created->Count(), 0);
        EXPECT_EQ(lists.ParserEventCCList(event, false), created);
        EXPECT_EQ(lists.ParserEventUKList(event, false), nullptr);
        EXPECT_EQ(lists.ObjectNCList(event, false), nullptr);
    }
    const RuleLists& reader = lists;
    EXPECT_NE(reader.ParserEventCCList(99), nullptr);
    EXPECT_EQ(reader.ParserEventUKList(99), nullptr);
}

TEST(RuleLists, ARuleStandsInTheListsOfItsEventsAsTheSameObject) {
    RuleLists lists;
    const auto rule = Coding({5, 7}, 1);
    lists.AddConvention(rule, false);
    const auto& atFive = lists.ParserEventCCList(5, false)->Item(1);
    const auto& atSeven = lists.ParserEventCCList(7, false)->Item(1);
    EXPECT_EQ(atFive, atSeven);
    atFive->SetTitle("changed");
    EXPECT_EQ(atSeven->Title(), "changed");
}

TEST(RuleLists, RulesStandInTheOrderInWhichTheyWereAdded) {
    RuleLists lists;
    lists.AddConvention(Keyword({30}, 9), false);
    lists.AddConvention(Keyword({10, 30}, 3), false);
    lists.AddConvention(Keyword({30}, 5), false);
    const ObjectArrayList<UnauthorisedKeyword>* body = lists.ParserEventUKList(30, false);
    ASSERT_NE(body, nullptr);
    ASSERT_EQ(body->Count(), 3);
    EXPECT_EQ(body->Item(1)->RuleID(), 9);
    EXPECT_EQ(body->Item(2)->RuleID(), 3);
    EXPECT_EQ(body->Item(3)->RuleID(), 5);
    EXPECT_EQ(lists.UnauthorisedKeywords().Count(), 3);
    EXPECT_EQ(lists.CodingConventions().Count(), 0);
}

TEST(RuleLists, ARuleWithoutEventsIsHeldAndNeverFires) {
    RuleLists lists;
    lists.AddConvention(Keyword({}, 1), false);
    EXPECT_EQ(lists.UnauthorisedKeywords().Count(), 1);
    for (std::int32_t event = 1; event <= 37; ++event) {
        EXPECT_EQ(lists.ParserEventUKList(event, false), nullptr);
    }
}

TEST(RuleLists, ARuleWithAPendingViolationWaitsAtItsEndEvent) {
    RuleLists lists;
    const auto rule = Coding({28}, 1);
    rule->SetPendingViolation(true);
    rule->SetEndEventID(34);
    lists.AddConvention(rule, false);
    ASSERT_NE(lists.PendingViolations(34), nullptr);
    EXPECT_EQ(lists.PendingViolations(34)->Item(1), rule);
    EXPECT_EQ(lists.PendingViolations(28), nullptr);

    lists.AddRuleToPendingList(rule, 34);
    EXPECT_EQ(lists.PendingViolations(34)->Count(), 2) << "no test for duplicates";
    lists.RemoveRuleFromPendingList(rule, 34);
    EXPECT_EQ(lists.PendingViolations(34)->Count(), 1);
    lists.RemoveRuleFromPendingList(rule, 12);
}

TEST(RuleLists, RemovingARuleLeavesItsPendingEntry) {
    RuleLists lists;
    const auto rule = Coding({28}, 1);
    rule->SetPendingViolation(true);
    rule->SetEndEventID(34);
    lists.AddConvention(rule, false);
    lists.RemoveRule("1Key");
    EXPECT_EQ(lists.AllConventions().Count(), 0);
    EXPECT_EQ(lists.CodingConventions().Count(), 0);
    EXPECT_EQ(lists.ParserEventCCList(28, false)->Count(), 0);
    EXPECT_EQ(lists.PendingViolations(34)->Count(), 1);
}

TEST(RuleLists, RemovingWorksForEachKindAndFreesTheNumber) {
    const test::CapturedLog log;
    RuleLists lists;
    lists.AddConvention(Keyword({10, 30}, 1), false);
    lists.AddConvention(Naming(6, 2), false);
    lists.RemoveRule("1Key");
    lists.RemoveRule("2Key");
    EXPECT_EQ(lists.AllConventions().Count(), 0);
    EXPECT_EQ(lists.ParserEventUKList(10, false)->Count(), 0);
    EXPECT_EQ(lists.ParserEventUKList(30, false)->Count(), 0);
    EXPECT_EQ(lists.ObjectNCList(6, false)->Count(), 0);
    lists.AddConvention(Keyword({30}, 1), false);
    EXPECT_EQ(lists.AllConventions().Count(), 1);
    EXPECT_TRUE(log.Entries().empty());
}

TEST(RuleLists, RemovingAnUnknownRuleIsLogged) {
    const test::CapturedLog log;
    RuleLists lists;
    lists.RemoveRule("1Key");
    EXPECT_TRUE(log.Contains("No such item."));
    EXPECT_TRUE(log.Contains("RuleLists::RemoveRule"));
}

TEST(RuleLists, CountsOfNamingConventionsAreForOneObjectOrForAll) {
    RuleLists lists;
    lists.AddConvention(Naming(6, 1), false);
    lists.AddConvention(Naming(6, 2), false);
    lists.AddConvention(Naming(17, 3), false);
    EXPECT_EQ(lists.GetNCObjectRuleCount(-1), 3);
    EXPECT_EQ(lists.GetNCObjectRuleCount(6), 2);
    EXPECT_EQ(lists.GetNCObjectRuleCount(12), 0);
}

TEST(RuleLists, MovingIntoAnEventThatHoldsTheRuleLeavesOneEntryThere) {
    RuleLists lists;
    const auto rule = Coding({5, 7}, 1);
    lists.AddConvention(rule, false);
    lists.MoveCodingConvention(1, 5, 7);
    EXPECT_EQ(lists.ParserEventCCList(5, false)->Count(), 0);
    EXPECT_EQ(lists.ParserEventCCList(7, false)->Count(), 1);
    lists.MoveCodingConvention(1, 7, 30);
    EXPECT_EQ(lists.ParserEventCCList(30, false)->Item(1), rule);
    EXPECT_EQ(rule->ParserEventList(), "5|7") << "the rule's own events are the caller's";
}

TEST(RuleLists, MovingANamingConventionChangesTheObjectListsOnly) {
    RuleLists lists;
    const auto rule = Naming(6, 1);
    lists.AddConvention(rule, false);
    lists.MoveNamingConvention(1, 6, 17);
    EXPECT_EQ(lists.GetNCObjectRuleCount(6), 0);
    EXPECT_EQ(lists.GetNCObjectRuleCount(17), 1);
}

TEST(RuleLists, MovingARuleThatIsNotThereIsLogged) {
    const test::CapturedLog log;
    RuleLists lists;
    lists.AddConvention(Coding({5}, 1), false);
    lists.MoveCodingConvention(2, 5, 7);
    EXPECT_TRUE(log.Contains("RuleLists::MoveCodingConvention"));
    EXPECT_EQ(lists.ParserEventCCList(5, false)->Count(), 1);
}

TEST(RuleLists, TakingARuleOutOfAnEventGivesItBackOrNothing) {
    const test::CapturedLog log;
    RuleLists lists;
    const auto rule = Keyword({30}, 1);
    lists.AddConvention(rule, false);
    EXPECT_EQ(lists.RemoveRuleFromPEUKList(2, 30), nullptr);
    EXPECT_EQ(lists.RemoveRuleFromPEUKList(1, 30), rule);
    EXPECT_TRUE(log.Entries().empty());
    EXPECT_EQ(lists.RemoveRuleFromPEUKList(1, 12), nullptr);
    EXPECT_TRUE(log.Contains("RuleLists::RemoveRuleFromPEUKList")) << "an event without a list";
}

TEST(RuleLists, RemovingFromAllEventListsTakesTheEventsFromText) {
    const test::CapturedLog log;
    RuleLists lists;
    lists.AddConvention(Coding({5, 7}, 1), false);
    lists.AddConvention(Keyword({10, 30}, 2), false);
    lists.RemoveRuleFromAllPECCLists(1, "5|7");
    lists.RemoveRuleFromAllPEUKLists(2, "10|30");
    EXPECT_EQ(lists.AllConventions().Count(), 0);
    EXPECT_EQ(lists.CodingConventions().Count(), 0);
    EXPECT_EQ(lists.UnauthorisedKeywords().Count(), 0);
    EXPECT_EQ(lists.ParserEventCCList(7, false)->Count(), 0);
    EXPECT_EQ(lists.ParserEventUKList(30, false)->Count(), 0);
    EXPECT_TRUE(log.Entries().empty());
}

TEST(RuleLists, RemovingARuleWithoutEventsFromAllEventListsLogsNothing) {
    const test::CapturedLog log;
    RuleLists lists;
    lists.AddConvention(Coding({}, 1), false);
    lists.AddConvention(Keyword({}, 2), false);
    lists.RemoveRuleFromAllPECCLists(1, "");
    lists.RemoveRuleFromAllPEUKLists(2, "");
    EXPECT_EQ(lists.AllConventions().Count(), 0);
    EXPECT_TRUE(log.Entries().empty());
}

TEST(RuleLists, ACategoryWithoutRulesGivesAnEmptyList) {
    RuleLists lists;
    lists.AddConvention(Coding({5}, 1), false);
    EXPECT_EQ(lists.ConventionsListByCatID(9).Count(), 0);
}

TEST(RuleLists, TheRulesOfACategoryAreSortedByTitleWithoutCaseAndTheLaterOfEqualOnesIsFirst) {
    RuleLists lists;
    const char* const titles[] = {"gamma", "Alpha", "beta", "ALPHA"};
    std::int32_t id = 0;
    for (const char* const title : titles) {
        const auto rule = Coding({5}, ++id);
        rule->SetTitle(title);
        rule->SetCategoryID(2);
        lists.AddConvention(rule, false);
    }
    const ObjectArrayList<IRule> sorted = lists.ConventionsListByCatID(2);
    ASSERT_EQ(sorted.Count(), 4);
    EXPECT_EQ(sorted.Item(1)->Title(), "ALPHA");
    EXPECT_EQ(sorted.Item(2)->Title(), "Alpha");
    EXPECT_EQ(sorted.Item(3)->Title(), "beta");
    EXPECT_EQ(sorted.Item(4)->Title(), "gamma");
}

TEST(RuleLists, ARuleUnderANumberInUseIsLoggedAndStaysOutOfAllLists) {
    const test::CapturedLog log;
    RuleLists lists;
    lists.AddConvention(Coding({5}, 5000), false);
    lists.AddConvention(Keyword({30}, 5000), false);
    lists.AddConvention(Keyword({30}, 5001), false);
    EXPECT_EQ(lists.AllConventions().Count(), 2);
    EXPECT_EQ(lists.UnauthorisedKeywords().Count(), 1);
    EXPECT_EQ(lists.ParserEventUKList(30, false)->Count(), 1);
    EXPECT_EQ(log.Entries().size(), 1U);
    EXPECT_TRUE(
        log.Contains("The item cannot be added, because the key '5000Key' is already in use."));
    EXPECT_TRUE(log.Contains("RuleLists::AddConvention"));
}

TEST(RuleLists, ARuleThatWasGivenAnotherNumberLetsNoSecondOneOfThatNumberIn) {
    const test::CapturedLog log;
    RuleLists lists;
    const auto rule = Coding({5}, 5000);
    lists.AddConvention(rule, false);
    rule->SetRuleID(6000);
    lists.AddConvention(Keyword({30}, 6000), false);
    EXPECT_EQ(lists.AllConventions().Count(), 1);
    EXPECT_TRUE(log.Contains("the key '6000Key' is already in use"));
    // Its entry stands under the old key all the same.
    lists.AddConvention(Keyword({30}, 5000), false);
    EXPECT_EQ(lists.AllConventions().Count(), 1);
    EXPECT_TRUE(log.Contains("the key '5000Key' is already in use"));
    EXPECT_EQ(lists.AllConventions().Item("5000Key"), rule);
}

TEST(RuleLists, ANewRuleIsNotGivenANumberThatAnotherOneTook) {
    const test::CapturedLog log;
    RuleLists lists;
    const auto rule = Coding({5}, 7000);
    lists.AddConvention(rule, false);
    rule->SetRuleID(5000);
    lists.AddConvention(Coding({5}), true);
    EXPECT_EQ(lists.AllConventions().Count(), 1);
    EXPECT_TRUE(log.Contains("the key '5000Key' is already in use"));
}

TEST(RuleLists, ARemovedRuleFreesTheNumberThatItHas) {
    const test::CapturedLog log;
    RuleLists lists;
    const auto rule = Naming(6, 5000);
    lists.AddConvention(rule, false);
    rule->SetRuleID(6000);
    lists.RemoveRule("5000Key");
    EXPECT_EQ(lists.AllConventions().Count(), 0);
    rule->SetRuleID(7000);  // no longer a rule of these lists
    for (const std::int32_t number : {5000, 6000, 7000}) {
        lists.AddConvention(Keyword({30}, number), false);
    }
    EXPECT_EQ(lists.AllConventions().Count(), 3);
    EXPECT_TRUE(log.Entries().empty());
}

TEST(RuleLists, ARuleOutlivesItsLists) {
    const auto rule = Coding({5}, 5000);
    {
        RuleLists lists;
        lists.AddConvention(rule, false);
    }
    rule->SetRuleID(6000);
    EXPECT_EQ(rule->RuleKey(), "6000Key");
}

TEST(RuleLists, ACloneOfARuleIsNoRuleOfTheLists) {
    const test::CapturedLog log;
    RuleLists lists;
    const auto rule = Coding({5}, 5000);
    lists.AddConvention(rule, false);
    rule->Clone()->SetRuleID(6000);
    lists.AddConvention(Keyword({30}, 6000), false);
    EXPECT_EQ(lists.AllConventions().Count(), 2);
    EXPECT_TRUE(log.Entries().empty());
}

TEST(RuleLists, DirtyIsReadFromTheRulesAndWrittenToThem) {
    RuleLists lists;
    EXPECT_FALSE(lists.Dirty());
    const auto rule = Coding({5}, 1);
    lists.AddConvention(rule, false);
    EXPECT_TRUE(lists.Dirty());
    lists.SetDirty(false);
    EXPECT_FALSE(lists.Dirty());
    rule->SetTitle("t");
    EXPECT_TRUE(lists.Dirty());
    lists.SetDirty(false);
    EXPECT_FALSE(rule->Dirty());
    lists.SetLastID(6000);
    EXPECT_TRUE(lists.Dirty());
}

TEST(RuleLists, SixtyThousandRulesAreHeld) {
    constexpr std::int32_t kRules = 60000;
    RuleLists lists;
    for (std::int32_t id = 1; id <= kRules; ++id) {
        lists.AddConvention(Keyword({30}, id), false);
    }
    EXPECT_EQ(lists.ParserEventUKList(30, false)->Count(), kRules);
}

}  // namespace
}  // namespace dorvik
