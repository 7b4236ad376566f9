#include "rulebase/RulebaseManager.h"

#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "foundation/LogFile.h"
#include "rulebase/RulebaseText.h"
#include "support/CapturedLog.h"
#include "support/RecordingMessageBox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace dorvik {
namespace {

using test::CodingElement;
using test::KeywordElement;
using test::NamingElement;
using test::RulebaseText;

/// A folder for rulebase files, a log and a message box that listen, and a manager that runs where
/// the administrator's program is not installed.
class RulebaseManagerTest : public testing::Test {
protected:
    RulebaseManagerTest() : m_manager("DVKWork", m_folder.Path()) {
        for (std::int32_t level = 1; level <= 5; ++level) {
            m_criteria.SetSeverityLevel(level, true);
        }
        m_criteria.SetAuthorisedComponents(true);
        m_criteria.SetAuthorisedReferences(true);
        m_criteria.SetUnauthorisedKeywords(true);
        m_criteria.SetCodingConventions(true);
        m_criteria.SetNamingConventions(true);
    }

    std::unique_ptr<Rulebase> Load(const std::string& text) {
        m_criteria.SetRulebaseFile(m_folder.Write("team.dvk", text));
        return m_manager.LoadRulebase(m_criteria);
    }
    std::unique_ptr<Rulebase> Load(const RulebaseText& text) { return Load(text.Text()); }

    void ExpectOneWarning(const std::string& text) const {
        ASSERT_EQ(m_box.Messages.size(), 1U);
        EXPECT_EQ(m_box.Messages[0].Text, text);
        EXPECT_EQ(m_box.Messages[0].Icon, MessageIcon::Exclamation);
    }

    test::TemporaryFolder m_folder;
    test::CapturedLog m_log;
    test::RecordingMessageBox m_box;
    RulebaseLoadCriteria m_criteria;
    RulebaseManager m_manager;
};

TEST_F(RulebaseManagerTest, LoadingWithoutAFileNameRaisesAndShowsNoBox) {
    RulebaseLoadCriteria criteria;
    try {
        m_manager.LoadRulebase(criteria);
        FAIL() << "nothing was raised";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), modKyErrors::kyErrNoFilename);
        EXPECT_STREQ(error.what(), "No filename has been specified.");
        EXPECT_EQ(error.Source(), "RulebaseManager::LoadRulebase");
    }
    EXPECT_TRUE(m_box.Messages.empty());
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseManagerTest, TheSmallestFileLoadsCleanAndWithoutALogLine) {
    const auto rulebase = Load(RulebaseText{});
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Title(), "Team rules");
    EXPECT_EQ(rulebase->Version(), "1.0.0003");
    EXPECT_EQ(rulebase->ArrayTag(), "a");
    EXPECT_EQ(rulebase->Filename(), m_criteria.RulebaseFile());
    EXPECT_EQ(rulebase->FileTitle(), "team.dvk");
    EXPECT_EQ(rulebase->RuleLists().LastID(), 5000);
    EXPECT_EQ(rulebase->CategoryList().LastID(), 1);
    EXPECT_FALSE(rulebase->Dirty());
    EXPECT_FALSE(rulebase->DefaultViolations().Dirty());
    EXPECT_TRUE(m_log.Entries().empty());
    EXPECT_TRUE(m_box.Messages.empty());
}

TEST_F(RulebaseManagerTest, AFileThatIsNoXmlShowsTheParsingMessage) {
    EXPECT_EQ(Load(std::string("this is no rulebase")), nullptr);
    ExpectOneWarning("Unable to load the rulebase because of an unexpected error during parsing.");
}

TEST_F(RulebaseManagerTest, AMissingFileShowsTheParsingMessage) {
    m_criteria.SetRulebaseFile(m_folder.Path("none.dvk"));
    EXPECT_EQ(m_manager.LoadRulebase(m_criteria), nullptr);
    ExpectOneWarning("Unable to load the rulebase because of an unexpected error during parsing.");
}

TEST_F(RulebaseManagerTest, AnotherSchemaVersionShowsTheSchemaMessageAndGivesNothing) {
    for (const char* const version : {"5.0", "6.1", "6.3", ""}) {
        m_box.Messages.clear();
        RulebaseText text;
        text.SchemaVersion = version;
        EXPECT_EQ(Load(text), nullptr) << version;
        ExpectOneWarning("Unable to load the rulebase because it has an incorrect schema version.");
    }
}

TEST_F(RulebaseManagerTest, ADocumentWithoutASchemaVersionIsLoggedAndRefused) {
    EXPECT_EQ(Load(std::string("<Other/>")), nullptr);
    ExpectOneWarning("Unable to load the rulebase because it has an incorrect schema version.");
    EXPECT_TRUE(m_log.Contains("RulebaseManager::CheckSchemaVersion"));
}

TEST_F(RulebaseManagerTest, AFileWithoutControlTagsLeavesTheDefaultsInPlace) {
    const auto rulebase = Load(RulebaseText{});
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->ControlTags().Count(), 23);
    EXPECT_EQ(rulebase->ControlTags().Item("VB.TextBox")->TagValue(), "txt");
}

TEST_F(RulebaseManagerTest, ATagNameInAnotherCaseUpdatesTheDefaultRow) {
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

TEST_F(RulebaseManagerTest, AnUnknownSeverityLevelIsAddedUnderItsKey) {
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

TEST_F(RulebaseManagerTest, AKnownSeverityLevelKeepsItsLevelText) {
    const auto rulebase = Load(RulebaseText{});
    ASSERT_NE(rulebase, nullptr);
    const SeverityItem& item = *rulebase->SeverityList().Item("1Key");
    EXPECT_EQ(item.Title(), "Fatal");
    EXPECT_EQ(item.Colour(), 255);
    EXPECT_EQ(item.SeverityLevelText(), "Highest");
    EXPECT_EQ(rulebase->SeverityList().Count(), 5);
}

TEST_F(RulebaseManagerTest, ARuleOfAnUnwantedSeverityIsCountedButLoadedForAnEditOnly) {
    RulebaseText text;
    text.Coding = "<CodingConventions>" + CodingElement("5000") + CodingElement("5001", 2) +
                  "</CodingConventions>";
    m_criteria.SetSeverityLevel(3, false);
    const auto forReview = Load(text);
    ASSERT_NE(forReview, nullptr);
    EXPECT_EQ(forReview->RuleLists().CodingConventions().Count(), 1);
    EXPECT_EQ(m_criteria.NumCodingConventions, 2);
    m_criteria.SetLoadForEdit(true);
    const auto forEdit = Load(text);
    ASSERT_NE(forEdit, nullptr);
    EXPECT_EQ(forEdit->RuleLists().CodingConventions().Count(), 2);
}

TEST_F(RulebaseManagerTest, AnInactiveRuleIsLoadedForAnEditOnly) {
    RulebaseText text;
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000", 3, 1, "30", "False") +
                    "</UnauthorisedKeywords>";
    EXPECT_EQ(Load(text)->RuleLists().AllConventions().Count(), 0);
    EXPECT_EQ(m_criteria.NumUnauthKeywords, 1);
    m_criteria.SetLoadForEdit(true);
    EXPECT_EQ(Load(text)->RuleLists().AllConventions().Count(), 1);
}

TEST_F(RulebaseManagerTest, ASectionThatIsNotWantedIsCountedAndNotRead) {
    RulebaseText text;
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + "</UnauthorisedKeywords>";
    text.Components =
        R"(<AuthorisedComponents><AuthorisedComponent Advice="" Filename="a.ocx" LibID="{1}" VersionList="1.0"/></AuthorisedComponents>)";
    m_criteria.SetUnauthorisedKeywords(false);
    m_criteria.SetAuthorisedComponents(false);
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleCount(), 0);
    EXPECT_EQ(m_criteria.NumUnauthKeywords, 1);
    EXPECT_EQ(m_criteria.NumAuthComps, 1);
}

const char* const kHiddenCategory =
    R"(<CategoryList LastID="7"><CategoryItem ID="7" Title="Secret" Description="" Hidden="True"/><CategoryItem ID="1" Title="Layout" Description="" Hidden="False"/></CategoryList>)";

TEST_F(RulebaseManagerTest, AHiddenCategoryIsMissingAndItsRulesAreLoadedForAnEditOnly) {
    RulebaseText text;
    text.Categories = kHiddenCategory;
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000", 3, 7) +
                    KeywordElement("5001", 3, 1) + "</UnauthorisedKeywords>";
    const auto forReview = Load(text);
    ASSERT_NE(forReview, nullptr);
    EXPECT_FALSE(forReview->CategoryList().ContainsID(7));
    EXPECT_TRUE(m_criteria.IsExcludedCategoryID(7));
    EXPECT_EQ(forReview->RuleLists().UnauthorisedKeywords().Count(), 1);
    EXPECT_FALSE(forReview->RuleLists().AllConventions().Contains("5000Key"));
    m_criteria.SetLoadForEdit(true);
    const auto forEdit = Load(text);
    ASSERT_NE(forEdit, nullptr);
    EXPECT_FALSE(forEdit->CategoryList().ContainsID(7));
    EXPECT_EQ(forEdit->RuleLists().UnauthorisedKeywords().Count(), 2);
}

TEST_F(RulebaseManagerTest, AHiddenCategoryIsShownWhereTheAdministratorsProgramIs) {
    EXPECT_FALSE(m_manager.IsAdminInstalled());
    EXPECT_TRUE(RulebaseManager("dvkadmin", m_folder.Path()).IsAdminInstalled());
    m_folder.Write("DVKAdmin.exe", "x");
    EXPECT_TRUE(m_manager.IsAdminInstalled());
    RulebaseText text;
    text.Categories = kHiddenCategory;
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    ASSERT_TRUE(rulebase->CategoryList().ContainsID(7));
    EXPECT_TRUE(rulebase->CategoryList().Item("7K")->Hidden());
    EXPECT_EQ(rulebase->CategoryList().Item(1)->Title(), "Layout") << "sorted by title";
    EXPECT_EQ(m_criteria.ExcludedCategoryIDCount(), 0);
}

TEST_F(RulebaseManagerTest, ARuleWithoutEventsIsLoaded) {
    RulebaseText text;
    text.Keywords =
        "<UnauthorisedKeywords>" + KeywordElement("5000", 3, 1, "") + "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    ASSERT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 1);
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Item(1)->EventCount(), 0);
    EXPECT_EQ(rulebase->RuleLists().ParserEventUKList(30, false), nullptr);
}

TEST_F(RulebaseManagerTest, AKeywordRuleIsReadWithAllItsFieldsAndFoundByItsEvents) {
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

TEST_F(RulebaseManagerTest, ACodingConventionIsReadWithItsPendingState) {
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

const char* const kOneItem = R"(<PrefixItem PSType="1" PSValue="txt"/>)";

TEST_F(RulebaseManagerTest, ANamingConventionIsReadWithItsItemsAndItsExclusionsAreWrapped) {
    RulebaseText text;
    text.Naming =
        "<NamingConventions>" + NamingElement("5000", kOneItem, "True") + "</NamingConventions>";
    const auto forReview = Load(text);
    ASSERT_NE(forReview, nullptr);
    const NamingConvention& rule = *forReview->RuleLists().NamingConventions().Item(1);
    EXPECT_EQ(rule.ExclusionList(), ";Main;Test;");
    EXPECT_FALSE(rule.CaseSensitive());
    EXPECT_EQ(rule.MaxBodyLength(), 30);
    EXPECT_EQ(rule.MinBodyLength(), 3);
    EXPECT_EQ(rule.PrefixItems().Item(1)->PSType, 1);
    EXPECT_EQ(rule.PrefixItems().Item(1)->Value, "txt");
    EXPECT_EQ(rule.PrefixItems().Item(2)->PSType, 0);
    EXPECT_EQ(forReview->RuleLists().GetNCObjectRuleCount(6), 1);
    m_criteria.SetLoadForEdit(true);
    const auto forEdit = Load(text);
    EXPECT_EQ(forEdit->RuleLists().NamingConventions().Item(1)->ExclusionList(), " Main;Test ");
}

TEST_F(RulebaseManagerTest, AnEmptyExclusionListBecomesTwoSeparators) {
    RulebaseText text;
    std::string element = NamingElement("5000", "", "False");
    element.replace(element.find(" Main;Test "), 11, "");
    text.Naming = "<NamingConventions>" + element + "</NamingConventions>";
    EXPECT_EQ(Load(text)->RuleLists().NamingConventions().Item(1)->ExclusionList(), ";;");
}

TEST_F(RulebaseManagerTest, ThePrefixItemsOfAPrefixThatIsSwitchedOffAreNotRead) {
    RulebaseText text;
    text.Naming =
        "<NamingConventions>" + NamingElement("5000", kOneItem, "False") + "</NamingConventions>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().NamingConventions().Item(1)->PrefixItems().Item(1)->PSType, 0);
}

TEST_F(RulebaseManagerTest, AFifthPrefixItemFails) {
    RulebaseText text;
    std::string items;
    for (int item = 0; item < 5; ++item) {
        items += kOneItem;
    }
    text.Naming = "<NamingConventions>" + NamingElement("5000", kOneItem, "True") +
                  NamingElement("5001", items, "True") + "</NamingConventions>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().NamingConventions().Count(), 1);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadNamingConventions"));
}

TEST_F(RulebaseManagerTest, AMissingAttributeEndsItsSectionOnly) {
    RulebaseText text;
    text.Properties = R"(<RulebaseProperties Name="Team rules"/>)";
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Title(), "Team rules");
    EXPECT_EQ(rulebase->Version(), "1.0.0");
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 1);
    EXPECT_EQ(m_log.Entries().size(), 1U);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadProperties"));
    EXPECT_TRUE(m_box.Messages.empty()) << "the log is quiet";
}

TEST_F(RulebaseManagerTest, ARuleNumberThatIsNoNumberLosesTheRulesBehindIt) {
    RulebaseText text;
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + KeywordElement("x") +
                    KeywordElement("5002") + "</UnauthorisedKeywords>";
    text.Coding = "<CodingConventions>" + CodingElement("5003") + "</CodingConventions>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 1);
    EXPECT_EQ(rulebase->RuleLists().CodingConventions().Count(), 1);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadUnauthorisedKeywords"));
}

TEST_F(RulebaseManagerTest, ARuleUnderANumberInUseIsLeftOutAndTheNextGoesOn) {
    RulebaseText text;
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + KeywordElement("5000") +
                    KeywordElement("5001") + "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 2);
    EXPECT_TRUE(m_log.Contains("RuleLists::AddConvention"));
}

TEST_F(RulebaseManagerTest, ARuleWithoutAViolationDefinitionIsNotLoadableAndTheNextGoesOn) {
    RulebaseText text;
    text.Keywords =
        R"(<UnauthorisedKeywords><UnauthorisedKeyword RuleID="5000" RuleActive="True" Title="" Description="" Condition="" ParserEventID=""/>)" +
        KeywordElement("5001") + "</UnauthorisedKeywords>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->RuleLists().UnauthorisedKeywords().Count(), 1);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::IsLoadableRule"));
}

TEST_F(RulebaseManagerTest, AMissingSectionFailsInItsHelperOrEndsTheLoadIfItIsCounted) {
    RulebaseText tagsMissing;
    tagsMissing.ControlTags.clear();
    EXPECT_NE(Load(tagsMissing), nullptr);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadControlTags"));
    RulebaseText keywordsMissing;
    keywordsMissing.Keywords.clear();
    EXPECT_EQ(Load(keywordsMissing), nullptr);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadRulebase"));
    EXPECT_TRUE(m_box.Messages.empty()) << "nothing but the log tells it";
}

TEST_F(RulebaseManagerTest, BooleansAreWordsInAnyCaseOrNumbers) {
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

TEST_F(RulebaseManagerTest, TolerancesAreReadLeniently) {
    RulebaseText text;
    const std::string sought = R"(ToleranceCount="-1|-1|-1|-1|-1|-1")";
    text.Properties.replace(
        text.Properties.find(sought), sought.size(), R"(ToleranceCount="3x|none|2.5|-1|7")");
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->ToleranceCount(1), 3);
    EXPECT_EQ(rulebase->ToleranceCount(2), 0);
    EXPECT_EQ(rulebase->ToleranceCount(3), 2) << "half to even";
    EXPECT_EQ(rulebase->ToleranceCount(5), 7);
    EXPECT_EQ(rulebase->ToleranceCount(6), -1) << "no part for it";
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseManagerTest, AnEmptyListOfTolerancesSetsNone) {
    RulebaseText text;
    const std::string sought = R"(ToleranceCount="-1|-1|-1|-1|-1|-1")";
    text.Properties.replace(text.Properties.find(sought), sought.size(), R"(ToleranceCount="")");
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->ToleranceCount(1), -1);
}

TEST_F(RulebaseManagerTest, ASixthDefaultViolationFailsAndTheFiveAreRead) {
    RulebaseText text;
    std::string items;
    for (int item = 1; item <= 6; ++item) {
        items += R"(<ViolationItem Advice="a)" + std::to_string(item) +
                 R"(" CategoryID="2" Description="d" Impact="1" SeverityLevel="4"/>)";
    }
    text.DefaultViolations = "<DefaultViolations>" + items + "</DefaultViolations>";
    const auto rulebase = Load(text);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->DefaultViolations().Item(5).Advice(), "a5");
    EXPECT_EQ(rulebase->DefaultViolations().Item(5).Title(), "Unknown Control") << "as built";
    EXPECT_EQ(rulebase->DefaultViolations().Item(1).Severity(), 4);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadDefaultViolations"));
}

TEST_F(RulebaseManagerTest, AReportDefinitionThatIsNotReadIsToldInTheLogOfAnEdit) {
    RulebaseText text;
    text.Report =
        R"(<Report><Section SectionType="Category" CategoryID="1" CategoryRuleList=""/></Report>)";
    EXPECT_NE(Load(text), nullptr);
    EXPECT_TRUE(m_log.Entries().empty());
    m_criteria.SetLoadForEdit(true);
    EXPECT_NE(Load(text), nullptr);
    EXPECT_TRUE(m_log.Contains("RulebaseManager::LoadReport"));
}

TEST_F(RulebaseManagerTest, ReviewOptionsAreReadWithoutAnyRule) {
    RulebaseText text;
    text.Categories = kHiddenCategory;
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + KeywordElement("5001") +
                    "</UnauthorisedKeywords>";
    text.Coding = "<CodingConventions>" + CodingElement("5002") + "</CodingConventions>";
    const std::string sought = R"(TolerancePercentageComments="-1")";
    text.Properties.replace(
        text.Properties.find(sought), sought.size(), R"(TolerancePercentageComments="10")");
    const std::string file = m_folder.Write("options.dvk", text.Text());
    CategoryList categories;
    SeverityTable severities;
    ToleranceSettings tolerances;
    RulebaseLoadCriteria criteria;
    ASSERT_TRUE(m_manager.LoadReviewOptions(file, categories, severities, criteria, &tolerances));
    EXPECT_EQ(categories.Count(), 1);
    EXPECT_TRUE(criteria.IsExcludedCategoryID(7));
    ASSERT_EQ(severities.Count(), 1);
    EXPECT_EQ(severities.Item(1)->SeverityLevelText(), "Top") << "from the file";
    EXPECT_EQ(criteria.NumUnauthKeywords, 2);
    EXPECT_EQ(criteria.NumCodingConventions, 1);
    EXPECT_EQ(criteria.NumNamingConventions, 0);
    EXPECT_EQ(tolerances.PercentageComments, 10);
    EXPECT_TRUE(m_manager.LoadReviewOptions(file, categories, severities, criteria, nullptr));
    EXPECT_EQ(categories.Count(), 1) << "the lists are emptied first";
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseManagerTest, ReviewOptionsOfAWrongFileShowTheirOwnMessages) {
    CategoryList categories;
    SeverityTable severities;
    RulebaseLoadCriteria criteria;
    const std::string broken = m_folder.Write("broken.dvk", "<a>");
    EXPECT_FALSE(m_manager.LoadReviewOptions(broken, categories, severities, criteria, nullptr));
    ExpectOneWarning("Unable to load the rulebase because of an unexpected error during parsing.");
    m_box.Messages.clear();
    RulebaseText text;
    text.SchemaVersion = "5.0";
    const std::string old = m_folder.Write("old.dvk", text.Text());
    EXPECT_FALSE(m_manager.LoadReviewOptions(old, categories, severities, criteria, nullptr));
    ExpectOneWarning(
        "Unable to load the review options because the rulebase has an incorrect schema version.");
}

TEST_F(RulebaseManagerTest, FourThousandRulesLoadInTheirOrder) {
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

TEST_F(RulebaseManagerTest, TheProgramsOwnManagerNeedsTheProcessWideObjects) {
    EXPECT_THROW(RulebaseManager(), BasicError);
}

}  // namespace
}  // namespace dorvik
