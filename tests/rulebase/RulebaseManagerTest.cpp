#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "rulebase/RulebaseManagerFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace dorvik {
namespace {

using test::CodingElement;
using test::KeywordElement;
using test::RulebaseText;
using RulebaseManagerTest = test::RulebaseManagerFixture;

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
    for (const char* const version : {"5.0", "5.9", "6.3", "7.0", ""}) {
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

TEST_F(RulebaseManagerTest, TheProgramsOwnManagerNeedsTheProcessWideObjects) {
    EXPECT_THROW(RulebaseManager(), BasicError);
}

}  // namespace
}  // namespace dorvik
