#include "reports/classic/modReportTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {
namespace {

class ReportTablesViolation : public testing::Test {
protected:
    ReportTablesViolation() {
        SeverityTable severities;
        const auto high = std::make_shared<SeverityItem>();
        high->SetSeverityLevel(2);
        high->SetTitle("High");
        high->SetColour(14);
        severities.Add(SeverityKeyOf(2), high, true, false);
        CategoryList categories;
        const auto jumps = std::make_shared<CategoryItem>();
        jumps->SetID(7);
        jumps->SetTitle("Jumps");
        categories.Add(jumps, false);
        m_legend.Load(severities, categories);
        m_violation.Severity = 2;
        m_violation.Impact = 1750;
        m_violation.CategoryID = 7;
        m_violation.RuleID = 7;
        m_violation.Title = "Jump";
        m_violation.Description = "A jump";
        m_violation.Advice = "Use a loop";
        m_violation.SourceLine = "    GoTo Failed";
        m_violation.SourceLineNumber = 12;
    }

    std::string Rows() const {
        HTMLHelper2 html;
        modReportTables::AddViolation(html, m_legend, m_violation);
        return html.DocumentText();
    }

    static int CountRows(const std::string& rows) {
        int count = 0;
        for (auto at = rows.find("<tr"); at != std::string::npos; at = rows.find("<tr", at + 1)) {
            ++count;
        }
        return count;
    }

    ReportLegend m_legend;
    Violation m_violation;
};

constexpr const char* kRowsBeforeSourceLine =
    "</tr><tr><td align=\"left\" width=\"20%\">Category</td><td align=\"left\" "
    "colspan=\"3\">Jumps</td>"
    "</tr><tr><td align=\"left\" width=\"20%\">Severity</td>"
    "<td align=\"left\" class=\"high\" width=\"20%\">High</td>"
    "<td align=\"left\" width=\"20%\">Impact</td><td align=\"left\" width=\"20%\">1750</td></tr>";
constexpr const char* kRowsBehindSourceLine =
    "<tr><td align=\"left\">Description</td><td align=\"left\" colspan=\"3\">A jump</td>"
    "</tr><tr><td align=\"left\">Advice</td><td align=\"left\" colspan=\"3\">Use a loop</td></tr>";

TEST_F(ReportTablesViolation, HasSixRowsToTheByte) {
    EXPECT_EQ(CountRows(Rows()), 6);
    EXPECT_EQ(
        Rows(),
        std::string(
            "<tr class=\"violationsheading\"><td align=\"left\" width=\"20%\">Violation</td>"
            "<td align=\"left\" colspan=\"3\"><small style='font: 8pt'>[0007]</small> Jump"
            "</td>") +
            kRowsBeforeSourceLine +
            "<tr><td align=\"left\">Source Line 12</td>"
            "<td align=\"left\" colspan=\"3\">    GoTo Failed</td></tr>" +
            kRowsBehindSourceLine);
}

TEST_F(ReportTablesViolation, WithoutASourceLineHasFiveRows) {
    m_violation.SourceLine.clear();
    EXPECT_EQ(CountRows(Rows()), 5);
    EXPECT_THAT(Rows(), testing::Not(testing::HasSubstr("Source Line")));
    EXPECT_THAT(
        Rows(), testing::EndsWith(std::string(kRowsBeforeSourceLine) + kRowsBehindSourceLine));
}

TEST_F(ReportTablesViolation, OfRuleZeroHasNoNumberAndItsTitleStartsAfterTheBlank) {
    m_violation.RuleID = 0;
    EXPECT_THAT(Rows(), testing::HasSubstr("<td align=\"left\" colspan=\"3\"> Jump</td>"));
    EXPECT_THAT(Rows(), testing::Not(testing::HasSubstr("<small")));
}

TEST_F(ReportTablesViolation, RuleNumbersHaveFourDigitsAtLeast) {
    m_violation.RuleID = 7;
    EXPECT_THAT(Rows(), testing::HasSubstr("[0007]"));
    m_violation.RuleID = 5000;
    EXPECT_THAT(Rows(), testing::HasSubstr("[5000]"));
    m_violation.RuleID = 12345;
    EXPECT_THAT(Rows(), testing::HasSubstr("[12345]"));
}

TEST_F(ReportTablesViolation, LineNumberBelowOneIsLeftOut) {
    m_violation.SourceLineNumber = 0;
    EXPECT_THAT(Rows(), testing::HasSubstr("<td align=\"left\">Source Line</td>"));
}

TEST_F(ReportTablesViolation, ImpactOfZeroIsThePlainNumber) {
    m_violation.Impact = 0;
    EXPECT_THAT(Rows(), testing::HasSubstr("Impact</td><td align=\"left\" width=\"20%\">0</td>"));
}

TEST_F(ReportTablesViolation, ASourceLineWithMarkupGoesOutAsItStands) {
    m_violation.SourceLine = "If a < b And c > d Then s = \"<b>\" & s";
    EXPECT_THAT(Rows(), testing::HasSubstr(">If a < b And c > d Then s = \"<b>\" & s</td>"));
}

}  // namespace
}  // namespace dorvik
