#include "rulebase/RulebaseManagerFixture.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {
namespace {

using test::CodingElement;
using test::KeywordElement;
using test::NamingElement;
using test::RulebaseText;
using RulebaseLoadTest = test::RulebaseManagerFixture;

TEST_F(RulebaseLoadTest, AFileWithoutControlTagsLeavesTheDefaultsInPlace) {
    const auto rulebase = Load(RulebaseText{});
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->ControlTags().Count(), 23);
    EXPECT_EQ(rulebase->ControlTags().Item("VB.TextBox")->TagValue(), "txt");
}

TEST_F(RulebaseLoadTest, ATagNameInAnotherCaseUpdatesTheDefaultRow) {
    RulebaseText text;
    text.ControlTags =
        R"(<ControlTags><ControlTag TagName="vb.textbox" TagValue="tb" TagDescription="d" TagExample="e"/><ControlTag TagName="My.Grid" TagValue="grd" TagDescription="" TagExample=""/></ControlTags>)";
    text.ScopeTags =
        R"(<ScopeTags><ScopeTag TagName="Local" TagValue="l" TagExample="x"/></ScopeTags>)";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->ControlTags().Count(), 24);
    const TagItem& known = *rulebase->ControlTags().Item("VB.TextBox");
    EXPECT_EQ(known.TagName(), "VB.TextBox");
    EXPECT_EQ(known.TagValue(), "tb");
    EXPECT_EQ(known.TagDescription(), "d");
    EXPECT_EQ(known.TagExample(), "e");
    EXPECT_TRUE(known.Locked());
    EXPECT_FALSE(rulebase->ControlTags().Item(24)->Locked());
    EXPECT_EQ(rulebase->ScopeTags().Count(), 7);
    EXPECT_EQ(rulebase->ScopeTags().Item("Local")->TagValue(), "l");
    EXPECT_FALSE(rulebase->Dirty());
}

TEST_F(RulebaseLoadTest, AnUnknownSeverityLevelIsAddedUnderItsKey) {
    RulebaseText text;
    text.Severities =
        R"(<SeverityList><SeverityItem Colour="9" Description="d" Impact="5" SeverityLevel="6" SeverityLevelText="Least" Title="Sixth"/></SeverityList>)";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    ASSERT_EQ(rulebase->SeverityList().Count(), 6);
    const SeverityItem& item = *rulebase->SeverityList().Item("6Key");
    EXPECT_EQ(item.Title(), "Sixth");
    EXPECT_EQ(item.SeverityLevelText(), "Least");
    EXPECT_EQ(item.ID(), 6);
    EXPECT_TRUE(rulebase->SeverityList().Selected("6Key"));
}

TEST_F(RulebaseLoadTest, AKnownSeverityLevelKeepsItsLevelText) {
    const auto rulebase = Load(RulebaseText{});
    ASSERT_NE(rulebase, nullptr);
    const SeverityItem& item = *rulebase->SeverityList().Item("1Key");
    EXPECT_EQ(item.Title(), "Fatal");
    EXPECT_EQ(item.Colour(), 255);
    EXPECT_EQ(item.SeverityLevelText(), "Highest");
    EXPECT_EQ(rulebase->SeverityList().Count(), 5);
}

TEST_F(RulebaseLoadTest, ARuleWithoutEventsIsLoaded) {
    RulebaseText text;
    text.Keywords =
        "<UnauthorisedKeywords>" + KeywordElement("5000", 3, 1, "") + "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    ASSERT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 1);
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Item(1)->EventCount(), 0);
    EXPECT_EQ(rulebase->RuleLists().ParserEventUKList(30, false), nullptr);
}

TEST_F(RulebaseLoadTest, AKeywordRuleIsReadWithAllItsFieldsAndFoundByItsEvents) {
    RulebaseText text;
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5003", 2, 1, "10|28|30") +
                    "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    for (const std::int32_t event : {10, 28, 30}) {
        const auto* list = rulebase->RuleLists().ParserEventUKList(event, false);
        ASSERT_NE(list, nullptr);
        const UnauthorisedKeyword& rule = *list->Item(1);
        EXPECT_EQ(rule.RuleID(), 5003);
        EXPECT_EQ(rule.Condition(), "\\bStop\\b");
        EXPECT_EQ(rule.Title(), "No Stop");
        EXPECT_EQ(rule.ViolationDefinition().Title(), "Bad");
        EXPECT_EQ(rule.ViolationDefinition().Severity(), 2);
        EXPECT_EQ(rule.ViolationDefinition().Impact(), 500);
        EXPECT_EQ(rule.ViolationDefinition().CategoryID(), 1);
        EXPECT_EQ(rule.ViolationDefinition().Advice(), "Change it.");
    }
}

TEST_F(RulebaseLoadTest, ACodingConventionIsReadWithItsPendingState) {
    RulebaseText text;
    text.Coding = "<CodingConventions>" + CodingElement("5000") + "</CodingConventions>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    const CodingConvention& rule = *rulebase->RuleLists().CodingConventions().Item("5000Key");
    EXPECT_TRUE(rule.PendingViolation());
    EXPECT_EQ(rule.EndEventID(), 34);
    EXPECT_EQ(rule.Condition(), "a = 1\r\nb = 2");
    ASSERT_NE(rulebase->RuleLists().PendingViolations(34), nullptr);
    EXPECT_EQ(rulebase->RuleLists().PendingViolations(34)->Count(), 1);
}

const char* const kOnePrefixItem = R"(<PrefixItem PSType="1" PSValue="txt"/>)";

TEST_F(RulebaseLoadTest, ANamingConventionIsReadWithItsItemsAndItsExclusionsAreWrapped) {
    RulebaseText text;
    text.Naming = "<NamingConventions>" + NamingElement("5000", kOnePrefixItem, "True") +
                  "</NamingConventions>";
    const auto forReview = Load(text);
    ASSERT_NE(forReview, nullptr);
    const NamingConvention& rule = *forReview->RuleLists().NamingConventions().Item(1);
    EXPECT_EQ(rule.ExclusionList(), ";Main;Test;");
    EXPECT_FALSE(rule.CaseSensitive());
    EXPECT_EQ(rule.MaxBodyLength(), 30);
    EXPECT_EQ(rule.MinBodyLength(), 3);
    EXPECT_EQ(rule.Prefix().Items().Item(1)->PSType, 1);
    EXPECT_EQ(rule.Prefix().Items().Item(1)->Value, "txt");
    EXPECT_EQ(rule.Prefix().Items().Item(2)->PSType, 0);
    EXPECT_EQ(forReview->RuleLists().GetNCObjectRuleCount(6), 1);
    m_criteria.SetLoadForEdit(true);
    const auto forEdit = Load(text);
    EXPECT_EQ(forEdit->RuleLists().NamingConventions().Item(1)->ExclusionList(), " Main;Test ");
}

TEST_F(RulebaseLoadTest, AnEmptyExclusionListBecomesTwoSeparators) {
    RulebaseText text;
    std::string element = NamingElement("5000", "", "False");
    element.replace(element.find(" Main;Test "), 11, "");
    text.Naming = "<NamingConventions>" + element + "</NamingConventions>";
    EXPECT_EQ(Load(text)->RuleLists().NamingConventions().Item(1)->ExclusionList(), ";;");
}

TEST_F(RulebaseLoadTest, ThePrefixItemsOfAPrefixThatIsSwitchedOffAreNotRead) {
    RulebaseText text;
    text.Naming = "<NamingConventions>" + NamingElement("5000", kOnePrefixItem, "False") +
                  "</NamingConventions>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(
        rulebase->RuleLists().NamingConventions().Item(1)->Prefix().Items().Item(1)->PSType, 0);
}

TEST_F(RulebaseLoadTest, BooleansAreWordsInAnyCaseOrNumbers) {
    const struct {
        const char* Text;
        bool Value;
    } rows[] = {{"true", true}, {"FALSE", false}, {"0", false}, {"-1", true}, {"2", true}};
    for (const auto& row : rows) {
        RulebaseText text;
        const std::string sought = R"(UseCTagsAsDTTags="False")";
        text.Properties.replace(
            text.Properties.find(sought),
            sought.size(),
            std::string("UseCTagsAsDTTags=\"") + row.Text + "\"");
        const auto rulebase = Load(text);
        ASSERT_NE(rulebase, nullptr);
        EXPECT_EQ(rulebase->UseCTagsAsDTTags(), row.Value) << row.Text;
        EXPECT_TRUE(m_log.Entries().empty()) << row.Text;
    }
}

TEST_F(RulebaseLoadTest, TolerancesAreReadLeniently) {
    RulebaseText text;
    const std::string sought = R"(ToleranceCount="-1|-1|-1|-1|-1|-1")";
    text.Properties.replace(
        text.Properties.find(sought), sought.size(), R"(ToleranceCount="3x|none|2.5|-1|7")");
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Tolerances().Count.Item(1), 3);
    EXPECT_EQ(rulebase->Tolerances().Count.Item(2), 0);
    EXPECT_EQ(rulebase->Tolerances().Count.Item(3), 2) << "half to even";
    EXPECT_EQ(rulebase->Tolerances().Count.Item(5), 7);
    EXPECT_EQ(rulebase->Tolerances().Count.Item(6), -1) << "no part for it";
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseLoadTest, AnEmptyListOfTolerancesSetsNone) {
    RulebaseText text;
    const std::string sought = R"(ToleranceCount="-1|-1|-1|-1|-1|-1")";
    text.Properties.replace(text.Properties.find(sought), sought.size(), R"(ToleranceCount="")");
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Tolerances().Count.Item(1), -1);
}

TEST_F(RulebaseLoadTest, FourThousandRulesLoadInTheirOrder) {
    RulebaseText text;
    std::string elements;
    for (int id = 5000; id < 9000; ++id) {
        elements += KeywordElement(std::to_string(id));
    }
    text.Keywords = "<UnauthorisedKeywords>" + elements + "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().ParserEventUKList(30, false)->Count(), 4000);
    EXPECT_EQ(rulebase->RuleLists().AllConventions().Key(4000), "8999Key");
}

}  // namespace
}  // namespace dorvik
