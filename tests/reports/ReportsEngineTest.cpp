#include "reports/classic/ReportsEngine.h"

#include "criteria/ProgressInfo.h"
#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {
namespace {

void AddSeverity(SeverityTable& table, std::int32_t level, std::string title, std::int32_t colour) {
    auto item = std::make_shared<SeverityItem>();
    item->SetSeverityLevel(level);
    item->SetKey(SeverityKeyOf(level));
    item->SetTitle(std::move(title));
    item->SetColour(colour);
    table.Add(item->Key(), item, true, false);
}

void AddCategory(CategoryList& list, std::int32_t id, std::string title) {
    auto item = std::make_shared<CategoryItem>();
    item->SetID(id);
    item->SetTitle(std::move(title));
    list.Add(item, false);
}

TEST(ReportsEngine, StyleSheetHasThirtyLinesEachEnded) {
    const std::string sheet = ReportsEngine().GetStyleSheet();
    std::size_t lines = 0;
    for (std::size_t at = sheet.find("\r\n"); at != std::string::npos;
         at = sheet.find("\r\n", at + 2)) {
        ++lines;
    }
    EXPECT_EQ(lines, 30U);
    EXPECT_THAT(sheet, testing::StartsWith("<style type=\"text/css\">\r\n<!--\r\nbody {"));
    EXPECT_THAT(sheet, testing::EndsWith("}\r\n-->\r\n</style>\r\n"));
}

TEST(ReportsEngine, ASeverityWithoutAKnownColourKeepsItsLine) {
    SeverityTable severities;
    AddSeverity(severities, 1, "Critical", 0);
    AddSeverity(severities, 2, "High", 17);
    AddSeverity(severities, 3, "Medium", 16);
    ReportsEngine engine;
    engine.Initialise(severities, {});
    EXPECT_THAT(
        engine.GetStyleSheet(),
        testing::HasSubstr("\r\n.critical{background-color : ; color : Black;}\r\n"
                           ".high{background-color : ; color : Black;}\r\n"
                           ".medium{background-color : Yellow; color : Black;}\r\n"
                           ".low{background-color : ; color : Black;}\r\n"
                           ".information{background-color : ; color : Black;}\r\n.passtext{"));
}

TEST(ReportsEngine, ColoursAreNamedByTheirIndex) {
    constexpr const char* kNames[] = {
        "",
        "Black",
        "Blue",
        "Aqua",
        "Navy",
        "Teal",
        "Green",
        "Gray",
        "Purple",
        "Maroon",
        "Olive",
        "Lime",
        "Silver",
        "Magenta",
        "Red",
        "White",
        "Yellow",
        ""};
    std::int32_t colour = 0;
    for (const char* name : kNames) {
        EXPECT_EQ(ReportsEngine::LongColourToTextColour(colour), name) << colour;
        ++colour;
    }
    EXPECT_EQ(ReportsEngine::LongColourToTextColour(-1), "");
    EXPECT_EQ(ReportsEngine::LongColourToTextColour(0xFF00FF), "");
}

TEST(ReportsEngine, SeverityTextsAndClassesGoByTheLevelOfTheItem) {
    SeverityTable severities;
    AddSeverity(severities, 5, "Note", 1);
    AddSeverity(severities, 1, "Stop", 2);
    AddSeverity(severities, 6, "Beyond", 3);
    AddSeverity(severities, 0, "Below", 3);
    ReportsEngine engine;
    engine.Initialise(severities, {});
    EXPECT_EQ(engine.GetSeverityText(1), "Stop");
    EXPECT_EQ(engine.GetSeverityText(2), "");
    EXPECT_EQ(engine.GetSeverityText(5), "Note");
    EXPECT_EQ(engine.GetSeverityText(0), "");
    EXPECT_EQ(engine.GetSeverityText(6), "");
    constexpr const char* kClasses[] = {"", "critical", "high", "medium", "low", "information", ""};
    std::int32_t level = 0;
    for (const char* name : kClasses) {
        EXPECT_EQ(ReportsEngine::GetSeverityClass(level), name) << level;
        ++level;
    }
}

TEST(ReportsEngine, CategoriesAreToldByTheirTitle) {
    CategoryList categories;
    AddCategory(categories, 7, "Jumps");
    ReportsEngine engine;
    engine.Initialise({}, categories);
    EXPECT_EQ(engine.GetCategoryText(-1), "Unallocated");
    EXPECT_EQ(engine.GetCategoryText(7), "Jumps");
    EXPECT_EQ(engine.GetCategoryText(8), "");
    EXPECT_EQ(engine.GetCategoryText(0), "");
}

TEST(ReportsEngine, InitialiseTwiceTakesTheCategoriesOfTheSecond) {
    const test::CapturedLog log;
    CategoryList first;
    AddCategory(first, 7, "Jumps");
    CategoryList second;
    AddCategory(second, 7, "Leaps");
    ReportsEngine engine;
    engine.Initialise({}, first);
    engine.Initialise({}, second);
    EXPECT_EQ(engine.GetCategoryText(7), "Leaps");
    EXPECT_THAT(log.Entries(), testing::IsEmpty());
}

TEST(ReportsEngine, ReviewStatusIsToldInWords) {
    constexpr const char* kTexts[] = {
        "Unknown Review Status Code",
        "Unexpected Error",
        "Unknown Source File Name",
        "Unknown Source File Type",
        "Failed To Open Source File",
        "Unknown Review Status Code"};
    std::int32_t status = 0;
    for (const char* text : kTexts) {
        EXPECT_EQ(ReportsEngine::GetReviewStatusDescription(status), text) << status;
        ++status;
    }
    EXPECT_EQ(ReportsEngine::GetReviewStatusDescription(-1), "Unknown Review Status Code");
}

TEST(ReportsEngine, FormatNumberOfZeroIsADashAndOfAMillionHasSeparators) {
    EXPECT_EQ(ReportsEngine::FormatNumber(0), "-");
    EXPECT_EQ(ReportsEngine::FormatNumber(0, 0, true), "0");
    EXPECT_EQ(ReportsEngine::FormatNumber(1234567), "1,234,567");
    EXPECT_EQ(ReportsEngine::FormatNumber(0.5, 2, false), "0.50");
}

class ReportsEngineViolation : public testing::Test {
protected:
    ReportsEngineViolation() {
        SeverityTable severities;
        AddSeverity(severities, 2, "High", 14);
        CategoryList categories;
        AddCategory(categories, 7, "Jumps");
        m_engine.Initialise(severities, categories);
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
        m_engine.AddViolation(html, m_violation);
        return html.DocumentText();
    }

    static int CountRows(const std::string& rows) {
        int count = 0;
        for (auto at = rows.find("<tr"); at != std::string::npos; at = rows.find("<tr", at + 1)) {
            ++count;
        }
        return count;
    }

    ReportsEngine m_engine;
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

TEST_F(ReportsEngineViolation, HasSixRowsToTheByte) {
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

TEST_F(ReportsEngineViolation, WithoutASourceLineHasFiveRows) {
    m_violation.SourceLine.clear();
    EXPECT_EQ(CountRows(Rows()), 5);
    EXPECT_THAT(Rows(), testing::Not(testing::HasSubstr("Source Line")));
    EXPECT_THAT(
        Rows(), testing::EndsWith(std::string(kRowsBeforeSourceLine) + kRowsBehindSourceLine));
}

TEST_F(ReportsEngineViolation, OfRuleZeroHasNoNumberAndItsTitleStartsAfterTheBlank) {
    m_violation.RuleID = 0;
    EXPECT_THAT(Rows(), testing::HasSubstr("<td align=\"left\" colspan=\"3\"> Jump</td>"));
    EXPECT_THAT(Rows(), testing::Not(testing::HasSubstr("<small")));
}

TEST_F(ReportsEngineViolation, RuleNumbersHaveFourDigitsAtLeast) {
    m_violation.RuleID = 7;
    EXPECT_THAT(Rows(), testing::HasSubstr("[0007]"));
    m_violation.RuleID = 5000;
    EXPECT_THAT(Rows(), testing::HasSubstr("[5000]"));
    m_violation.RuleID = 12345;
    EXPECT_THAT(Rows(), testing::HasSubstr("[12345]"));
}

TEST_F(ReportsEngineViolation, LineNumberBelowOneIsLeftOut) {
    m_violation.SourceLineNumber = 0;
    EXPECT_THAT(Rows(), testing::HasSubstr("<td align=\"left\">Source Line</td>"));
}

TEST_F(ReportsEngineViolation, ImpactOfZeroIsThePlainNumber) {
    m_violation.Impact = 0;
    EXPECT_THAT(Rows(), testing::HasSubstr("Impact</td><td align=\"left\" width=\"20%\">0</td>"));
}

TEST_F(ReportsEngineViolation, ASourceLineWithMarkupGoesOutAsItStands) {
    m_violation.SourceLine = "If a < b And c > d Then s = \"<b>\" & s";
    EXPECT_THAT(Rows(), testing::HasSubstr(">If a < b And c > d Then s = \"<b>\" & s</td>"));
}

}  // namespace
}  // namespace dorvik
