#include "rulebase/RulebaseManagerFixture.h"
#include "rulebase/model/TableItem.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace dorvik {
namespace {

using test::KeywordElement;
using test::RulebaseText;
using RulebaseReportTest = test::RulebaseManagerFixture;

/// Two categories, three rules, and a report of these sections.
std::string TextWithReport(const std::string& sections) {
    RulebaseText text;
    text.Categories =
        R"(<CategoryList LastID="2"><CategoryItem ID="1" Title="Layout" Description="How it looks" Hidden="False"/><CategoryItem ID="2" Title="Secret" Description="" Hidden="True"/></CategoryList>)";
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("5000") + KeywordElement("5001") +
                    KeywordElement("5002") + "</UnauthorisedKeywords>";
    text.Report = "<Report>" + sections + "</Report>";
    return text.Text();
}

std::string CategorySection(const std::string& id, const std::string& rules) {
    return R"(<Section SectionType="Category" CategoryID=")" + id + R"(" CategoryRuleList=")" +
           rules + R"("/>)";
}

const char* const kTable =
    R"(<Section SectionType="Table" TableKey="tags" TableText="All%CRLF%tags" TableTitle="Tags" TableType="3"/>)";

std::shared_ptr<CategoryItem> CategoryAt(const Rulebase& rulebase, std::int32_t index) {
    return std::dynamic_pointer_cast<CategoryItem>(rulebase.Report().Sections().Item(index));
}

std::string RulesOf(const CategoryItem& section) {
    std::string text;
    for (std::int32_t index = 1; index <= section.CategoryRules().Count(); ++index) {
        text += section.CategoryRules().Item(index)->RuleKey() + " ";
    }
    return text;
}

TEST_F(RulebaseReportTest, SectionsAreReadInTheirOrderForAnEdit) {
    const auto rulebase = LoadForEdit(TextWithReport(kTable + CategorySection("1", "5002|5000")));
    ASSERT_NE(rulebase, nullptr);
    ASSERT_EQ(rulebase->Report().Sections().Count(), 2);
    const auto table = std::dynamic_pointer_cast<TableItem>(rulebase->Report().Sections().Item(1));
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->TableKey(), "tags");
    EXPECT_EQ(table->TableText(), "All\r\ntags");
    EXPECT_EQ(table->TableTitle(), "Tags");
    EXPECT_EQ(table->TableType(), 3);
    const auto category = CategoryAt(*rulebase, 2);
    ASSERT_NE(category, nullptr);
    EXPECT_EQ(category->ID(), 1);
    EXPECT_EQ(category->Title(), "Layout");
    EXPECT_EQ(category->Description(), "How it looks");
    EXPECT_EQ(RulesOf(*category), "5002Key 5000Key ");
    EXPECT_EQ(
        category->CategoryRules().Item(1), rulebase->RuleLists().AllConventions().Item("5002Key"))
        << "the rules are shared";
    EXPECT_NE(rulebase->CategoryList().Item("1K"), category) << "the category is a copy";
    EXPECT_FALSE(rulebase->Dirty());
    EXPECT_FALSE(rulebase->Report().Dirty());
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseReportTest, AReviewDoesNotReadIt) {
    const auto rulebase = Load(TextWithReport(kTable));
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Report().Sections().Count(), 0);
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseReportTest, ASectionOfAnUnknownOrHiddenCategoryIsLeftOut) {
    const auto rulebase =
        LoadForEdit(TextWithReport(CategorySection("9", "5000") + CategorySection("2", "5000")));
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Report().Sections().Count(), 0);
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseReportTest, ARuleThatIsNotThereIsLeftOutAndTheOthersStay) {
    const auto rulebase =
        LoadForEdit(TextWithReport(CategorySection("1", "5000|9999||x|5001Key| 5002")));
    ASSERT_NE(rulebase, nullptr);
    ASSERT_EQ(rulebase->Report().Sections().Count(), 1);
    EXPECT_EQ(RulesOf(*CategoryAt(*rulebase, 1)), "5000Key 5001Key 5002Key ")
        << "the leading number counts";
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseReportTest, AnythingButACategoryIsATableAndTheWordIsReadInAnyCase) {
    const auto rulebase = LoadForEdit(TextWithReport(
        R"(<Section SectionType="cATEGORY" CategoryID="1" CategoryRuleList="5000"/>)"
        R"(<Section SectionType="Other" TableKey="k" TableText="" TableTitle="" TableType="-1"/>)"));
    ASSERT_NE(rulebase, nullptr);
    ASSERT_EQ(rulebase->Report().Sections().Count(), 2);
    EXPECT_NE(CategoryAt(*rulebase, 1), nullptr);
    EXPECT_EQ(CategoryAt(*rulebase, 2), nullptr);
    EXPECT_EQ(rulebase->Report().Sections().Item(2)->Key(), "k");
}

TEST_F(RulebaseReportTest, AFailureKeepsTheSectionsBeforeIt) {
    const auto rulebase = LoadForEdit(TextWithReport(
        kTable + std::string(R"(<Section SectionType="Table" TableKey="k"/>)") + kTable));
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Report().Sections().Count(), 1);
    EXPECT_EQ(m_log.Entries().size(), 1U);
    EXPECT_TRUE(m_log.Contains("the element Section (line 3 of "));
    EXPECT_TRUE(m_log.Contains("has no attribute TableText"));
    EXPECT_TRUE(m_log.Contains("#RulebaseManager::LoadReport"));
}

TEST_F(RulebaseReportTest, SectionsSurviveASaveAsTheyStood) {
    const std::string sections = kTable + CategorySection("1", "5002|5000") + kTable;
    const auto rulebase = LoadForEdit(TextWithReport(sections));
    ASSERT_NE(rulebase, nullptr);
    ASSERT_TRUE(m_manager.Save(*rulebase, ""));
    const std::string saved = m_folder.Read("team.dvk");
    const std::size_t first = saved.find(
        R"(<Section SectionType="Table" TableKey="tags" TableText="All%CRLF%tags" TableTitle="Tags" TableType="3"/>)");
    const std::size_t second = saved.find(
        R"(<Section SectionType="Category" CategoryID="1" CategoryRuleList="5002|5000"/>)");
    ASSERT_NE(first, std::string::npos);
    ASSERT_NE(second, std::string::npos);
    EXPECT_LT(first, second);
    const auto again = LoadForEditFile("team.dvk");
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->Report().Sections().Count(), 3);
    EXPECT_TRUE(m_log.Entries().empty());
}

TEST_F(RulebaseReportTest, ACategorySectionWithoutRulesDisappearsOnTheNextSave) {
    const auto rulebase =
        LoadForEdit(TextWithReport(CategorySection("1", "") + CategorySection("1", "9999")));
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Report().Sections().Count(), 2);
    ASSERT_TRUE(m_manager.Save(*rulebase, ""));
    EXPECT_EQ(LoadForEditFile("team.dvk")->Report().Sections().Count(), 0);
}

TEST_F(RulebaseReportTest, AChangedSectionMakesTheRulebaseDirtyAndASaveClearsIt) {
    const auto rulebase = LoadForEdit(TextWithReport(kTable + CategorySection("1", "5000")));
    ASSERT_NE(rulebase, nullptr);
    CategoryAt(*rulebase, 2)->CategoryRules().Remove(1);
    EXPECT_TRUE(rulebase->Dirty());
    ASSERT_TRUE(m_manager.Save(*rulebase, ""));
    EXPECT_FALSE(rulebase->Dirty());
    EXPECT_FALSE(rulebase->Report().Dirty());
}

TEST_F(RulebaseReportTest, ASaveOfWhatAReviewLoadedWritesAnEmptyReport) {
    const auto rulebase = Load(TextWithReport(kTable));
    ASSERT_NE(rulebase, nullptr);
    ASSERT_TRUE(m_manager.Save(*rulebase, ""));
    EXPECT_NE(m_folder.Read("team.dvk").find("<Report/>"), std::string::npos);
}

}  // namespace
}  // namespace dorvik
