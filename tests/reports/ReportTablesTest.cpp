#include "platform/host/modFiles.h"
#include "reports/classic/modReportTables.h"
#include "settings/ComponentVersion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace dorvik {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Takes what an operation appends.
class ReportTables : public testing::Test {
protected:
    ReportTables() {
        constexpr const char* kTitles[] = {"Fatal", "High", "Medium", "Low", "Note"};
        SeverityTable severities;
        for (std::int32_t level = 1; level <= 5; ++level) {
            auto item = std::make_shared<SeverityItem>();
            item->SetSeverityLevel(level);
            item->SetTitle(kTitles[level - 1]);
            item->SetColour(level);
            severities.Add(SeverityKeyOf(level), item, true, false);
        }
        m_legend.Load(severities, CategoryList());
        for (std::int32_t level = 1; level <= 5; ++level) {
            m_load.SetSeverityLevel(level, true);
        }
    }

    std::string Criteria(std::int32_t ruleCount, std::int32_t total, std::int32_t reviewed) {
        HTMLHelper2 html;
        ReviewCriteriaInfo info{m_load, "Criteria", ruleCount, 1234, m_categories, m_tolerances};
        info.TotalFiles = total;
        info.ReviewedFiles = reviewed;
        modReportTables::InsertReviewCriteriaTable(html, m_legend, info);
        return html.DocumentText();
    }

    static std::string Row(const std::string& label, const std::string& value) {
        return "<tr><td align=\"left\">" + label + "</td><td>" + value + "</td></tr>";
    }

    static constexpr const char* kTolerancesHead =
        "<tr><th class=\"lefttableheading\" colspan=\"2\">Tolerances</th></tr>";
    static constexpr const char* kCategoriesHead =
        "<tr><th class=\"lefttableheading\" colspan=\"2\">Categories Included</th></tr>";

    ReportLegend m_legend;
    HTMLHelper2 m_html;
    RulebaseLoadCriteria m_load;
    CategoryList m_categories;
    ToleranceSettings m_tolerances;
};

TEST_F(ReportTables, SummaryWithoutFiguresAndLogHasFiveRows) {
    ReviewSummaryInfo info;
    info.Heading = "Batch";
    info.Value = "Night";
    info.ReviewedBy = "ann";
    info.ReviewStart = "s";
    info.ReviewEnd = "e";
    info.ReviewDuration = "d";
    info.TotalImpact = "not shown";
    modReportTables::InsertReviewSummaryInfo(m_html, info);
    const auto row = [](const std::string& label, const std::string& value) {
        return "<tr><td align=\"left\" width=\"30%\">" + label +
               "</td><td align=\"left\" width=\"70%\">" + value + "</td></tr>";
    };
    EXPECT_EQ(
        m_html.DocumentText(),
        "<h3 id=\"ReviewSummaryInformation\">Review Summary Information</h3>"
        "<table cellspacing=\"0\">" +
            row("Batch", "Night") + row("Reviewed By", "ann") + row("Review Start", "s") +
            row("Review End", "e") + row("Review Duration", "d") + "</table>");
}

TEST_F(ReportTables, TheLogOpensInAPageOfItsOwnByItsPathOnThisMachine) {
    ReviewSummaryInfo info;
    info.LogFile = "\\tmp\\50%\\A_DORVIK.txt";
    modReportTables::InsertReviewSummaryInfo(m_html, info);
    EXPECT_THAT(
        m_html.DocumentText(),
        HasSubstr(
            "<tr><td align=\"left\" width=\"30%\">Log File</td><td align=\"left\" width=\"70%\">"
            "<a href=\"/tmp/50%25/A_DORVIK.txt\" target=\"_blank\">/tmp/50%/A_DORVIK.txt</a>"
            "</td></tr><tr><td align=\"left\" width=\"30%\">Reviewed By</td>"));
}

TEST_F(ReportTables, TheLogOfAnotherMachineKeepsItsPathAndALink) {
    ReviewSummaryInfo info;
    info.LogFile = "C:\\Src\\A_DORVIK.txt";
    modReportTables::InsertReviewSummaryInfo(m_html, info);
    EXPECT_THAT(
        m_html.DocumentText(),
        HasSubstr("<a href=\"file:///C:/Src/A_DORVIK.txt\" target=\"_blank\">C:\\Src\\A_DORVIK.txt"
                  "</a>"));
}

TEST_F(ReportTables, TheRulebaseOfAnotherMachineKeepsItsPath) {
    m_load.SetRulebaseFile("\\\\server\\rules\\House.dvk");
    EXPECT_THAT(
        Criteria(5, 3, 3), HasSubstr(Row("Rulebase Filename", "\\\\server\\rules\\House.dvk")));
}

TEST_F(ReportTables, SumsOfCategoriesGoBeyondThirtyTwoBits) {
    std::vector<CategoryStatistics> categories(2);
    for (CategoryStatistics& category : categories) {
        category.Category = "Jumps";
        category.Statistics.SetCount(Severity::Critical, 2'000'000'000);
        category.Statistics.SetCount(Severity::Low, 2'000'000'000);
    }
    modReportTables::InsertViolStatsByCatTable(m_html, m_legend, categories, 1);
    EXPECT_THAT(
        m_html.DocumentText(),
        HasSubstr("<tr><td align=\"left\">Jumps</td><td>2,000,000,000</td><td>-</td><td>-</td>"
                  "<td>2,000,000,000</td><td>-</td><td>4,000,000,000</td></tr>"
                  "<tr class=\"totalsline\"><td>TOTALS</td><td>4,000,000,000</td><td>-</td>"
                  "<td>-</td><td>4,000,000,000</td><td>-</td><td>8,000,000,000</td></tr>"));
    EXPECT_EQ(categories[0].Statistics.TotalViolations(), 2'147'483'647) << "as much as it holds";
}

TEST_F(ReportTables, FailuresOfAProjectAreNamesOnly) {
    modReportTables::InsertToleranceFailures(m_html, {{"One", 0, 0}, {"Two", 0, 0}}, true);
    EXPECT_EQ(
        m_html.DocumentText(),
        "<h3 id=\"ToleranceFailures\">Tolerance Failures</h3>One<br>Two<br>");
}

TEST_F(ReportTables, FailuresOfAFileHaveLimitAndFigureAlsoWhereTheyAreZero) {
    modReportTables::InsertToleranceFailures(m_html, {{"One", 1234, 0}}, false);
    EXPECT_EQ(
        m_html.DocumentText(),
        "<h3 id=\"ToleranceFailures\">Tolerance Failures</h3><table><tr>"
        "<th width=\"40%\">Description</th><th width=\"30%\">Tolerance</th>"
        "<th width=\"30%\">Actual</th></tr>"
        "<tr><td align=\"left\">One</td><td>0</td><td>1,234</td></tr></table>");
}

TEST_F(ReportTables, ASeverityThatWasLeftOutOfTheReviewIsNotAvailable) {
    m_load.SetSeverityLevel(2, false);
    ViolationStatistics statistics;
    statistics.SetCount(Severity::Critical, 3);
    statistics.SetImpact(Severity::Critical, 2700);
    statistics.SetTotalViolations(3);
    statistics.SetTotalImpact(2700);
    modReportTables::InsertViolStatsTable(m_html, m_legend, m_load, statistics);
    EXPECT_EQ(
        m_html.DocumentText(),
        "<h3 id=\"ViolationStatistics\">Violation Statistics</h3><table><tr>"
        "<th width=\"40%\">Severity Level</th><th width=\"30%\">Violations</th>"
        "<th width=\"30%\">Impact</th></tr>"
        "<tr><td align=\"left\" class=\"critical\">Fatal</td><td>3</td><td>2,700</td></tr>"
        "<tr><td align=\"left\" class=\"high\">High</td><td>N/A</td><td>N/A</td></tr>"
        "<tr><td align=\"left\" class=\"medium\">Medium</td><td>-</td><td>-</td></tr>"
        "<tr><td align=\"left\" class=\"low\">Low</td><td>-</td><td>-</td></tr>"
        "<tr><td align=\"left\" class=\"information\">Note</td><td>-</td><td>-</td></tr>"
        "<tr class=\"totalsline\"><td>TOTALS</td><td>3</td><td>2,700</td></tr></table>");
}

TEST_F(ReportTables, ACategoryWithoutViolationsIsARowOfDashes) {
    ViolationStatistics jumps;
    jumps.SetCount(Severity::Critical, 2);
    jumps.SetCount(Severity::Information, 1);
    std::vector<CategoryStatistics> categories{{"Clarity", {}}, {"Jumps", jumps}};
    modReportTables::InsertViolStatsByCatTable(m_html, m_legend, categories, 3);
    EXPECT_EQ(
        m_html.DocumentText(),
        "<h3 id=\"ViolationStatisticsByCategory\">Violation Statistics By Category</h3><table><tr>"
        "<th width=\"40%\">Category Title</th><th width=\"10%\" class=\"critical\">Fatal</th>"
        "<th width=\"10%\" class=\"high\">High</th><th width=\"10%\" class=\"medium\">Medium</th>"
        "<th width=\"10%\" class=\"low\">Low</th><th width=\"10%\" class=\"information\">Note</th>"
        "<th width=\"10%\">Total</th></tr>"
        "<tr><td align=\"left\">Clarity</td><td>-</td><td>-</td><td>-</td><td>-</td><td>-</td>"
        "<td>-</td></tr>"
        "<tr><td align=\"left\">Jumps</td><td>2</td><td>-</td><td>-</td><td>-</td><td>1</td>"
        "<td>3</td></tr>"
        "<tr class=\"totalsline\"><td>TOTALS</td><td>2</td><td>-</td><td>-</td><td>-</td><td>1</td>"
        "<td>3</td></tr></table>");
    EXPECT_EQ(categories[1].Statistics.TotalViolations(), 3) << "the sum stays with the row";
}

TEST_F(ReportTables, WithoutViolationsTheCategoriesAreOneCell) {
    std::vector<CategoryStatistics> categories{{"Clarity", {}}};
    modReportTables::InsertViolStatsByCatTable(m_html, m_legend, categories, 0);
    EXPECT_EQ(
        m_html.DocumentText(),
        "<h3 id=\"ViolationStatisticsByCategory\">Violation Statistics By Category</h3><table><tr>"
        "<td align=\"left\" width=\"100%\">No Violations</td></tr></table>");
}

TEST_F(ReportTables, LinesHaveTheInLineCommentsInParentheses) {
    SourceLineStatistics lines;
    lines.SetCodeLines(1000);
    lines.SetCommentOnlyLines(20);
    lines.SetTotalLines(1020);
    modReportTables::InsertSourceLineStatsTable(m_html, lines);
    EXPECT_EQ(
        m_html.DocumentText(),
        "<h3 id=\"SourceLineStatistics\">Source Line Statistics</h3><table><tr>"
        "<th width=\"40%\">Line Type</th><th width=\"60%\">Count</th></tr>"
        "<tr><td align=\"left\" class=\"code\">Code</td><td>1,000</td></tr>"
        "<tr><td align=\"left\" class=\"comment\">Comment</td><td>20</td></tr>"
        "<tr><td align=\"left\" class=\"inlinecomment\">In-Line Comment</td><td>(-)</td></tr>"
        "<tr><td align=\"left\" class=\"blank\">Blank</td><td>-</td></tr>"
        "<tr class=\"totalsline\"><td>TOTAL</td><td>1,020</td></tr></table>");
}

TEST_F(ReportTables, CriteriaStandToTheByte) {
    m_load.SetRulebaseTitle("House rules");
    m_load.SetRulebaseVersion("1.0.0007");
    m_load.SetRulebaseFile("\\srv\\House.dvk");
    m_load.SetCodingConventions(true);
    m_load.SetDocumentationConventions(true);
    auto category = std::make_shared<CategoryItem>();
    category->SetTitle("Jumps");
    m_categories.Add(category, true);
    const auto head = [](const std::string& title) {
        return "<tr><th class=\"lefttableheading\" colspan=\"2\">" + title + "</th></tr>";
    };
    EXPECT_EQ(
        Criteria(1500, 9, 9),
        "<h3 id=\"ReviewCriteria\">Criteria</h3><table cellspacing=\"0\">" + head("Rulebase") +
            "<tr><td align=\"left\" width=\"40%\">Rulebase Title</td>"
            "<td width=\"60%\">House rules</td></tr>" +
            Row("Rulebase Version", "1.0.0007") + Row("Rulebase Filename", "/srv/House.dvk") +
            Row("Rule Engine", "Dorvik Rule Engine " + ComponentVersion()) +
            Row("Rules Selected", "1,500") + Row("Rule Execution Count", "1,234") +
            head("Source Files") + "<tr><td colspan=\"2\">All Source Files</td></tr>" +
            head("Conventions") + Row("Authorised Components", "Not Included") +
            Row("Authorised References", "Not Included") + Row("Coding Conventions", "Included") +
            Row("Naming Conventions", "Not Included") +
            Row("Unauthorised Keywords", "Not Included") + kTolerancesHead +
            "<tr><td colspan=\"2\">No Tolerances Set</td></tr>" + kCategoriesHead +
            "<tr><td colspan=\"2\">Jumps</td></tr></table>");
}

TEST_F(ReportTables, SomeOfTheFilesAreToldByTheirNumber) {
    EXPECT_THAT(
        Criteria(1, 9, 7),
        HasSubstr("<tr><td colspan=\"2\">7 of 9 Source Files Reviewed</td></tr>"));
    EXPECT_THAT(
        Criteria(1, -1, 7), HasSubstr("<tr><td colspan=\"2\">7 Source Files Reviewed</td></tr>"))
        << "how many there are is not known";
}

TEST_F(ReportTables, RuleCountOfMinusOneDropsTheRowsOfRulesAndFiles) {
    const std::string text = Criteria(-1, -1, 1);
    EXPECT_THAT(text, Not(HasSubstr("Rules Selected")));
    EXPECT_THAT(text, Not(HasSubstr("Rule Execution Count")));
    EXPECT_THAT(text, Not(HasSubstr("Source Files")));
    EXPECT_THAT(text, HasSubstr("Conventions"));
}

TEST_F(ReportTables, ToleranceOfTheTotalAloneStandsUnderTheSuffixAlone) {
    m_tolerances.Count.SetItem(6, 0);
    EXPECT_THAT(
        Criteria(-1, -1, 1),
        HasSubstr(kTolerancesHead + Row(" Violation Count", "0") + kCategoriesHead));
}

TEST_F(ReportTables, ToleranceOfTheTotalCarriesOverTheLabelOfTheRowBefore) {
    m_tolerances.Count.SetItem(1, 0);
    m_tolerances.Count.SetItem(4, 1200);
    m_tolerances.Count.SetItem(6, 5);
    m_tolerances.Impact.SetItem(2, 3);
    m_tolerances.Impact.SetItem(6, 4);
    m_tolerances.CyclomaticComplexity = 20;
    m_tolerances.PercentageComments = 0;
    EXPECT_THAT(
        Criteria(-1, -1, 1),
        HasSubstr(
            kTolerancesHead + Row("Fatal Violation Count", "0") +
            Row("Low Violation Count", "1,200") + Row("Low Violation Count Violation Count", "5") +
            Row("High Violation Impact", "3") + Row("High Violation Impact Violation Impact", "4") +
            Row("Max Cyclomatic Complexity", "20") + Row("Min Percentage Comments", "0") +
            kCategoriesHead));
}

TEST_F(ReportTables, TheLabelOfATotalCarriesOverFromTheCountsToTheImpacts) {
    m_tolerances.Count.SetItem(3, 1);
    m_tolerances.Impact.SetItem(6, 2);
    EXPECT_THAT(
        Criteria(-1, -1, 1),
        HasSubstr(
            Row("Medium Violation Count", "1") +
            Row("Medium Violation Count Violation Impact", "2")));
}

}  // namespace
}  // namespace dorvik
