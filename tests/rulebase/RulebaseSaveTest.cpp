#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "rulebase/RulebaseText.h"
#include "rulebase/file/RulebaseManager.h"
#include "support/CapturedLog.h"
#include "support/RecordingMessageBox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace dorvik {
namespace {

class RulebaseSaveTest : public testing::Test {
protected:
    RulebaseSaveTest() : m_manager("DVKWork", m_folder.Path()) { m_criteria.SetLoadForEdit(true); }

    std::unique_ptr<Rulebase> LoadAgain(const std::string& name) {
        m_criteria.SetRulebaseFile(m_folder.Path(name));
        return m_manager.LoadRulebase(m_criteria);
    }

    test::TemporaryFolder m_folder;
    test::CapturedLog m_log;
    test::RecordingMessageBox m_box;
    RulebaseLoadCriteria m_criteria;
    RulebaseManager m_manager;
};

std::shared_ptr<NamingConvention> NamingWithPrefix(bool active) {
    auto rule = std::make_shared<NamingConvention>();
    rule->SetTitle("Text boxes");
    rule->SetExclusionList("Main");
    rule->Prefix().SetActive(active);
    rule->Prefix().Items().Item(1)->PSType = 1;
    rule->Prefix().Items().Item(1)->Value = "txt";
    rule->Prefix().Items().Item(3)->PSType = 4;
    return rule;
}

TEST_F(RulebaseSaveTest, WithoutAnyFileNameItRaises) {
    Rulebase rulebase;
    try {
        m_manager.Save(rulebase, "");
        FAIL() << "nothing was raised";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), modKyErrors::kyErrNoFilename);
        EXPECT_EQ(error.Source(), "RulebaseManager::Save");
    }
    EXPECT_EQ(rulebase.Version(), "1.0.0");
}

TEST_F(RulebaseSaveTest, EachSaveIncrementsTheVersion) {
    Rulebase rulebase;
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("new.dvk")));
    EXPECT_NE(m_folder.Read("new.dvk").find("Version=\"1.0.0001\""), std::string::npos);
    EXPECT_EQ(rulebase.Version(), "1.0.0001");
    EXPECT_FALSE(rulebase.Dirty());
    EXPECT_EQ(rulebase.Filename(), "") << "naming it is up to the caller";
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("new.dvk")));
    EXPECT_NE(m_folder.Read("new.dvk").find("Version=\"1.0.0002\""), std::string::npos);
}

TEST_F(RulebaseSaveTest, WithoutAutomaticIncrementTheVersionStays) {
    Rulebase rulebase;
    rulebase.SetAutoIncrementVersion(false);
    rulebase.SetFilename(m_folder.Path("own.dvk"));
    ASSERT_TRUE(m_manager.Save(rulebase, ""));
    EXPECT_NE(m_folder.Read("own.dvk").find("Version=\"1.0.0\""), std::string::npos);
}

TEST_F(RulebaseSaveTest, AFailedSaveShowsTheReasonStaysDirtyAndHasIncrementedTheVersion) {
    Rulebase rulebase;
    rulebase.SetTitle("changed");
    EXPECT_FALSE(m_manager.Save(rulebase, m_folder.Path("no\\such\\folder\\new.dvk")));
    ASSERT_EQ(m_box.Messages.size(), 1U);
    EXPECT_EQ(m_box.Messages[0].Text, "Error during save: Invalid path.");
    EXPECT_EQ(m_box.Messages[0].Icon, MessageIcon::Exclamation);
    EXPECT_TRUE(rulebase.Dirty());
    EXPECT_EQ(rulebase.Version(), "1.0.0001");
}

TEST_F(RulebaseSaveTest, ANewRulebaseLoadsAsItWas) {
    Rulebase rulebase;
    rulebase.SetTitle("Äußere \"Regeln\" & more");
    rulebase.SetArrayTag("a");
    rulebase.SetTolerancePercentageComments(12);
    rulebase.Tolerances().Count.SetItem(6, 40);
    rulebase.AuthorisedComponents().Add("{1}", "a.ocx", "1.0;1.1", "advice");
    rulebase.AuthorisedReferences().Add("{2}", "Data", "b.dll", "2.8", "ask");
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("a.dvk")));
    const auto loaded = LoadAgain("a.dvk");
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->Title(), "Äußere \"Regeln\" & more");
    EXPECT_EQ(loaded->ArrayTag(), "a");
    EXPECT_EQ(loaded->Tolerances().PercentageComments, 12);
    EXPECT_EQ(loaded->Tolerances().Count.Item(6), 40);
    EXPECT_EQ(loaded->ControlTags().Count(), 23);
    EXPECT_EQ(
        loaded->SeverityList().Item(1)->Description(),
        rulebase.SeverityList().Item(1)->Description());
    EXPECT_EQ(
        loaded->DefaultViolations().Item(2).Advice(),
        rulebase.DefaultViolations().Item(2).Advice());
    EXPECT_EQ(loaded->AuthorisedComponents().Item("{1}")->VersionList(), "1.0;1.1");
    EXPECT_EQ(loaded->AuthorisedReferences().Item("{2}")->Description(), "Data");
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseSaveTest, RulesOfAllKindsComeBackInTheirOrder) {
    Rulebase rulebase;
    const auto keyword = std::make_shared<UnauthorisedKeyword>();
    keyword->SetCondition("a < b | c > d");
    keyword->AddParserEventID(10);
    keyword->AddParserEventID(30);
    const auto coding = std::make_shared<CodingConvention>();
    coding->SetCondition("If a Then\r\n\tb = 1\r\nEnd If");
    coding->SetPendingViolation(true);
    coding->SetEndEventID(34);
    coding->ViolationDefinition().SetSeverity(2);
    rulebase.RuleLists().AddConvention(keyword, true);
    rulebase.RuleLists().AddConvention(coding, true);
    rulebase.RuleLists().AddConvention(NamingWithPrefix(true), true);
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("r.dvk")));
    const auto loaded = LoadAgain("r.dvk");
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->RuleLists().LastID(), 5002);
    EXPECT_EQ(loaded->RuleLists().UnauthorisedKeywords().Item(1)->Condition(), "a < b | c > d");
    EXPECT_EQ(loaded->RuleLists().UnauthorisedKeywords().Item(1)->ParserEventList(), "10|30");
    EXPECT_EQ(
        loaded->RuleLists().CodingConventions().Item(1)->Condition(),
        "If a Then\r\n\tb = 1\r\nEnd If");
    EXPECT_EQ(loaded->RuleLists().CodingConventions().Item(1)->ViolationDefinition().Severity(), 2);
    EXPECT_EQ(loaded->RuleLists().NamingConventions().Item("5002Key")->ExclusionList(), "Main");
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseSaveTest, OnlyUsedItemsOfAnActivePrefixAreWritten) {
    Rulebase rulebase;
    rulebase.RuleLists().AddConvention(NamingWithPrefix(true), true);
    rulebase.RuleLists().AddConvention(NamingWithPrefix(false), true);
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("n.dvk")));
    const auto loaded = LoadAgain("n.dvk");
    ASSERT_NE(loaded, nullptr);
    const NamingConvention& active = *loaded->RuleLists().NamingConventions().Item(1);
    EXPECT_EQ(active.Prefix().Items().Item(1)->Value, "txt");
    EXPECT_EQ(active.Prefix().Items().Item(2)->PSType, 4)
        << "the unused slot before it is not written";
    EXPECT_EQ(active.Prefix().Items().Item(3)->PSType, 0);
    const NamingConvention& inactive = *loaded->RuleLists().NamingConventions().Item(2);
    EXPECT_EQ(inactive.Prefix().Items().Item(1)->PSType, 0) << "lost by the save";
}

TEST_F(RulebaseSaveTest, LineEndsAndTabsAreWrittenOutAndComeBack) {
    Rulebase rulebase;
    rulebase.SetDescription("first\r\nsecond\tthird, literally %TAB%");
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("d.dvk")));
    EXPECT_NE(
        m_folder.Read("d.dvk").find("first%CRLF%second%TAB%third, literally %TAB%"),
        std::string::npos);
    const auto loaded = LoadAgain("d.dvk");
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->Description(), "first\r\nsecond\tthird, literally \t");
}

TEST_F(RulebaseSaveTest, TheSectionsStandInTheOrderOfTheFormat) {
    Rulebase rulebase;
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("o.dvk")));
    const std::string text = m_folder.Read("o.dvk");
    std::size_t before = 0;
    for (const char* const element :
         {"<Dorvik_Rulebase SchemaVersion=\"6.2\"",
          "<RulebaseProperties Name=",
          "<ControlTags",
          "<DataTypeTags",
          "<ScopeTags",
          "<DefaultViolations",
          "<CategoryList LastID=",
          "<SeverityList",
          "<AuthorisedComponents",
          "<AuthorisedReferences",
          "<UnauthorisedKeywords",
          "<Rules LastRuleID=\"4999\"",
          "<CodingConventions",
          "<NamingConventions",
          "<Report"}) {
        const std::size_t place = text.find(element);
        ASSERT_NE(place, std::string::npos) << element;
        EXPECT_GE(place, before) << element;
        before = place;
    }
}

TEST_F(RulebaseSaveTest, AttributesStandInTheOrderOfTheFormat) {
    Rulebase rulebase;
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("o.dvk")));
    const std::string text = m_folder.Read("o.dvk");
    EXPECT_NE(
        text.find(
            R"(<ControlTag TagName="VB.TextBox" TagValue="txt" TagDescription="VB Text Box Control" TagExample=""/>)"),
        std::string::npos);
    EXPECT_NE(
        text.find(R"(<DataTypeTag TagName="Any" TagValue="" TagExample=""/>)"), std::string::npos);
    EXPECT_NE(
        text.find(
            R"(ToleranceCount="-1|-1|-1|-1|-1|-1" ToleranceImpact="-1|-1|-1|-1|-1|-1" TolerancePercentageComments="-1" ToleranceCyclomaticComplexity="-1" ArrayTag=""/>)"),
        std::string::npos);
}

TEST_F(RulebaseSaveTest, ASavedFileOfTheReviewKeepsWhatTheReviewLoaded) {
    test::RulebaseText text;
    text.Keywords = "<UnauthorisedKeywords>" + test::KeywordElement("5000") +
                    test::KeywordElement("5001", 3, 1, "30", "False") + "</UnauthorisedKeywords>";
    RulebaseLoadCriteria review;
    review.SetUnauthorisedKeywords(true);
    review.SetSeverityLevel(3, true);
    review.SetRulebaseFile(m_folder.Write("full.dvk", text.Text()));
    const auto filtered = m_manager.LoadRulebase(review);
    ASSERT_NE(filtered, nullptr);
    ASSERT_TRUE(m_manager.Save(*filtered, m_folder.Path("less.dvk")));
    EXPECT_EQ(LoadAgain("less.dvk")->RuleLists().AllConventions().Count(), 1)
        << "an editor loads for an edit";
}

TEST_F(RulebaseSaveTest, ASectionThatFailsLeavesTheOldFileAndIsTold) {
    Rulebase rulebase;
    rulebase.SetTitle("Old");
    ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("team.dvk")));
    const std::string old = m_folder.Read("team.dvk");
    rulebase.SetTitle("New");
    rulebase.SetVersion("32767.9999.9999");
    EXPECT_FALSE(m_manager.Save(rulebase, m_folder.Path("team.dvk")));
    EXPECT_EQ(m_folder.Read("team.dvk"), old);
    ASSERT_EQ(m_box.Messages.size(), 1U);
    EXPECT_EQ(
        m_box.Messages[0].Text,
        "Error during save: Overflow: there is no version after 32767.9999.9999");
    EXPECT_TRUE(rulebase.Dirty());
    EXPECT_EQ(rulebase.Version(), "32767.9999.9999");
}

TEST_F(RulebaseSaveTest, ATextThatNoFileCanHoldLeavesTheOldFileAndIsTold) {
    for (const std::string& text :
         {std::string("a\0b", 3), std::string("a\x01z"), std::string("a\xffz")}) {
        Rulebase rulebase;
        ASSERT_TRUE(m_manager.Save(rulebase, m_folder.Path("team.dvk")));
        const std::string old = m_folder.Read("team.dvk");
        m_box.Messages.clear();
        rulebase.SetDescription(text);
        EXPECT_FALSE(m_manager.Save(rulebase, m_folder.Path("team.dvk")));
        EXPECT_EQ(m_folder.Read("team.dvk"), old);
        ASSERT_EQ(m_box.Messages.size(), 1U);
        EXPECT_EQ(m_box.Messages[0].Text.rfind("Error during save: ", 0), 0U)
            << m_box.Messages[0].Text;
    }
}

TEST_F(RulebaseSaveTest, EveryTextThatAFileCanHoldIsSaved) {
    Rulebase rulebase;
    const std::string text =
        "a\tb\r\nc\nd\re <f> & \"g\" 'h' %TAB% %crlf% \xE2\x80\xAE \xF0\x9F\x98\x80 ";
    rulebase.SetDescription(text);
    EXPECT_TRUE(m_manager.Save(rulebase, m_folder.Path("team.dvk")));
    EXPECT_TRUE(m_box.Messages.empty());
    const auto again = LoadAgain("team.dvk");
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->Description().substr(0, 5), text.substr(0, 5));
}

}  // namespace
}  // namespace dorvik
