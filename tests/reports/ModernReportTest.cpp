#include "reports/modern/ModernReport.h"

#include "reports/ModernReportSamples.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace dorvik::test {

namespace {

using testing::IsEmpty;
using testing::Not;

/// Says what is missing instead of printing a page of a hundred kilobytes.
testing::AssertionResult Holds(std::string_view text, std::string_view part) {
    return (text.find(part) == std::string_view::npos ? testing::AssertionFailure()
                                                      : testing::AssertionSuccess())
           << "looked for: " << part;
}

class ModernReportTest : public testing::Test {
protected:
    std::string Page() { return ModernReport::CreatePage(m_project.Results(), m_facts); }

    std::string HostilePage() {
        FillHostileProject(m_project);
        return Page();
    }

    /// A project of one module of 100 lines, one violation of severity 1 in it.
    void FillSmallProject(bool finished = true) {
        m_project.AddCategory(7, "Jumps");
        m_project.Begin("Billing");
        m_project.BeginFile({"modA", ".bas", "Module", 100, 25});
        m_project.Raise(Breach(5000, 1, 900, "No GoTo"));
        m_project.EndFile();
        m_project.End(finished);
    }

    static std::string Between(const std::string& page, const char* from, const char* to) {
        const std::size_t start = page.find(from);
        EXPECT_NE(std::string::npos, start) << from;
        const std::size_t end = page.find(to, start);
        EXPECT_NE(std::string::npos, end) << to;
        return page.substr(start, end - start);
    }

    static std::string DataOf(const std::string& page) {
        constexpr const char* kStart = "id=\"review-data\">";
        return Between(page, kStart, "</script>").substr(std::string_view(kStart).size());
    }

    static std::size_t CountOf(std::string_view needle, std::string_view text) {
        std::size_t count = 0;
        for (std::size_t place = text.find(needle); place != std::string_view::npos;
             place = text.find(needle, place + needle.size())) {
            ++count;
        }
        return count;
    }

    TemporaryFolder m_folder;
    CapturedLog m_log;
    ReviewedProject m_project{m_folder.Path("Billing_DORVIK.mdb")};
    ModernReportFacts m_facts;
};

TEST_F(ModernReportTest, ThePageDeclaresItsLanguageCharacterSetAndPolicyBeforeAnythingElse) {
    const std::string page = HostilePage();
    EXPECT_TRUE(Holds(
        page.substr(0, 200),
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
        "script-src 'sha256-"));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ModernReportTest, TextFromTheResultsIsEscapedInTheDocument) {
    const std::string page = HostilePage();
    EXPECT_TRUE(Holds(page, "<h1 id=\"title\">Billing &lt;i&gt;&amp; Co&lt;/i&gt;</h1>"));
    EXPECT_TRUE(Holds(page, "data-category=\"Naming &amp; &quot;style&quot;\""));
    EXPECT_TRUE(Holds(page, "Errors &lt;script&gt;alert(4)&lt;/script&gt;</th>"));
    EXPECT_EQ(2U, CountOf("<script", page));
    EXPECT_EQ(2U, CountOf("</script", page));
    EXPECT_EQ(0U, CountOf("<!--", page));
}

TEST_F(ModernReportTest, TheDataBlockHoldsNothingThatCouldEndIt) {
    const std::string data = DataOf(HostilePage());
    EXPECT_EQ(std::string::npos, data.find_first_of("<>&"));
    EXPECT_TRUE(Holds(data, R"(\u003c/script\u003e\u003cscript\u003ewindow.harm = 1)"));
    EXPECT_TRUE(Holds(data, R"(\u003c!-- \u003cscript\u003e)"));
}

TEST_F(ModernReportTest, BytesThatAreNoTextBecomeTheReplacementCharacter) {
    m_project.Begin("Billing");
    Violation violation = Breach(1, 1, 1, "Odd");
    violation.SourceLine = "s = \"\xFF\xE4\"";
    m_project.Raise(violation);
    m_project.End();
    EXPECT_TRUE(Holds(DataOf(Page()), "s = \\\"\xEF\xBF\xBD\xEF\xBF\xBD\\\""));
}

TEST_F(ModernReportTest, ThePageRefersToNothingOutside) {
    const std::string page = HostilePage();
    for (const char* reference :
         {"http://",
          "https://",
          "//cdn",
          "<link",
          "<img",
          "<iframe",
          "@import",
          "src=\"",
          "url(http",
          "url(\"",
          "fetch(",
          "XMLHttpRequest",
          "import("}) {
        const std::string data = DataOf(page);
        std::string rest = page;
        rest.erase(page.find(data), data.size());
        // The name space of drawings is a name, not a place.
        const std::string nameSpace = "http://www.w3.org/2000/svg";
        rest.erase(rest.find(nameSpace), nameSpace.size());
        EXPECT_FALSE(Holds(rest, reference));
    }
}

TEST_F(ModernReportTest, NoElementHasAStyleOrAHandlerOfItsOwn) {
    const std::string page = HostilePage();
    const std::string body = Between(page, "<body>", "id=\"review-data\"");
    EXPECT_FALSE(Holds(body, " style="));
    for (const char* handler : {" onclick=", " onload=", " onerror=", " onchange="}) {
        EXPECT_FALSE(Holds(body, handler));
    }
}

TEST_F(ModernReportTest, TheScriptAndTheStyleCannotEndTheirOwnElements) {
    const std::string page = HostilePage();
    EXPECT_EQ(1U, CountOf("<style>", page));
    EXPECT_EQ(1U, CountOf("</style", page));
    EXPECT_FALSE(Holds(Between(page, "<script>", "</body>"), "<!--"));
}

TEST_F(ModernReportTest, FiveThousandViolationsStayUnderAMegabyte) {
    constexpr int kViolations = 5000;
    constexpr std::size_t kMegabyte = 1'000'000;
    FillLargeProject(m_project, kViolations);
    ASSERT_EQ(
        kViolations,
        m_project.Results()
            .Figures()
            .GetViolationStats(ItemType::Project, m_project.Results().ProjectID())
            .TotalViolations());
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "lngResult4999"));
    EXPECT_LT(page.size(), kMegabyte);
}

TEST_F(ModernReportTest, AMissedToleranceIsNamedWithItsLimitItsFilesAndTheWorst) {
    const std::string page = HostilePage();
    EXPECT_TRUE(
        Holds(page, "<p class=\"word\">Failed</p><p>1 tolerance is missed, by 1 of 4 files.</p>"));
    EXPECT_TRUE(Holds(
        page,
        "<th scope=\"row\">Critical Violation Count</th><td class=\"number\">0</td>"
        "<td class=\"number\">1</td><td>frmMain.frm: <strong>5</strong></td>"));
}

TEST_F(ModernReportTest, AMissedPercentageHasItsUnit) {
    m_project.Criteria().SetTolerancePercentageComments(40);
    FillSmallProject();
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "Percentage Comments</th><td class=\"number\">40%</td>"));
    EXPECT_TRUE(Holds(page, "modA.bas: <strong>25%</strong>"));
    EXPECT_TRUE(Holds(DataOf(page), "Percentage Comments 25%, limit 40%"));
}

TEST_F(ModernReportTest, AToleranceThatAllFilesKeepPasses) {
    m_project.Criteria().SetToleranceCount(1, 1);
    FillSmallProject();
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "<p class=\"word\">Passed</p>"));
    EXPECT_FALSE(Holds(page, "Missed tolerances"));
    EXPECT_TRUE(Holds(page, "Critical violations in a file</th><td>at most 1"));
}

TEST_F(ModernReportTest, AToleranceOfTheTotalAloneGivesAVerdict) {
    m_project.Criteria().SetToleranceCount(6, 0);
    FillSmallProject();
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "<p class=\"word\">Failed</p>"));
    EXPECT_TRUE(Holds(page, "Total violations in a file</th><td>at most 0"));
}

TEST_F(ModernReportTest, WithoutTolerancesThereIsNoVerdict) {
    FillSmallProject();
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "<p class=\"word\">No verdict</p>"));
    EXPECT_TRUE(Holds(page, "No tolerances are set."));
    EXPECT_TRUE(Holds(DataOf(page), R"(["modA.bas","C:\\Src\\",0,)"));
}

TEST_F(ModernReportTest, TheFiguresStandAtTheTop) {
    FillSmallProject();
    const std::string top = Between(Page(), "<main", "id=\"charts\"");
    for (const char* figure :
         {"<dt>Violations</dt><dd>1 <span class=\"note\">1.0 in 100 lines",
          "<dt>Impact</dt><dd>900<",
          "<dt>Lines</dt><dd>100 ",
          "<dt>Comments</dt><dd>25.00% ",
          "<dt>Source files</dt><dd>1 ",
          "<dt>Errors</dt><dd>0<",
          "<dt>Reviewed</dt><dd>21/11/2026 14:05:09<",
          "<dt>Duration</dt><dd>00:00:00<",
          "<dt>Reviewed by</dt><dd>ann<",
          "<dt>Rulebase</dt><dd>House rules <span class=\"note\">2.0.0007",
          "Billing.vbp, reviewed on Saturday, 21 November 2026"}) {
        EXPECT_TRUE(Holds(top, figure));
    }
}

TEST_F(ModernReportTest, AnUnreadFileIsNamedWithItsReasonAndCounted) {
    m_facts.Unreviewed.push_back({"MODA.bas", "Failed To Open <Source> File"});
    FillSmallProject();
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "<dt>Errors</dt><dd>1 "));
    EXPECT_TRUE(Holds(page, "<li>MODA.bas: Failed To Open &lt;Source&gt; File</li>"));
    EXPECT_TRUE(Holds(DataOf(page), R"("C:\\Src\\",3,)"));
}

TEST_F(ModernReportTest, WhereNobodyKnowsTheReasonsTheResultsTellWhichFilesWereNotReviewed) {
    m_project.Criteria().SetToleranceCount(1, 0);
    m_project.Begin("Billing");
    m_project.BeginFile({"modA", ".bas", "Module", 10, 1});
    m_project.BeginSection("Declarations");
    m_project.EndProcedure();
    m_project.EndFileEarly();
    m_project.BeginFile({"modB", ".bas", "Module"});
    m_project.EndFileEarly();
    m_project.End();
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "<dt>Errors</dt><dd>2 "));
    EXPECT_TRUE(Holds(page, "<li>modA.bas: Reviewed only in part</li>"));
    EXPECT_TRUE(Holds(page, "<li>modB.bas: Could not be read</li>"));
    EXPECT_TRUE(Holds(DataOf(page), R"(["modA.bas","C:\\Src\\",3,)"));
    EXPECT_TRUE(Holds(page, "<p class=\"word\">Incomplete</p><p>2 files were not, or not wholly"));
}

TEST_F(ModernReportTest, AReviewThatDidNotEndSaysSo) {
    FillSmallProject(/*finished=*/false);
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "This review did not reach its end."));
    EXPECT_TRUE(Holds(page, "<dt>Duration</dt><dd>not finished<"));
}

TEST_F(ModernReportTest, ASeverityThatWasLeftOutIsNotShownAsNone) {
    m_project.Criteria().LoadCriteria().SetSeverityLevel(4, false);
    FillSmallProject();
    const std::string chart = Between(Page(), "By severity", "</figure>");
    EXPECT_EQ(1U, CountOf("not reviewed", chart));
    EXPECT_EQ(5U, CountOf("<tr><th", chart) - 1);
}

TEST_F(ModernReportTest, HotspotsComeFromTheWorstDown) {
    const std::string page = HostilePage();
    const std::string complexity = Between(page, "By complexity", "</figure>");
    EXPECT_LT(complexity.find("cmdPay_Click"), complexity.find("Rate (Get)"));
    EXPECT_TRUE(Holds(complexity, "<td class=\"number\">24</td><td>High risk</td>"));
    EXPECT_FALSE(Holds(complexity, "(Declarations)"));
    const std::string found = Between(page, "By violations", "</figure>");
    EXPECT_LT(found.find("Rate (Get)"), found.find("cmdPay_Click"));
    EXPECT_TRUE(Holds(found, "(Declarations)"));
}

TEST_F(ModernReportTest, AFilterOfTheDatabaseTakesNoPart) {
    FillSmallProject();
    const std::string before = Page();
    m_project.Results().Filter().SetDirty(true);  // leaves everything out
    EXPECT_TRUE(before == Page());
    EXPECT_TRUE(Holds(before, "No GoTo"));
}

TEST_F(ModernReportTest, TheSameReviewGivesTheSamePage) {
    const std::string first = HostilePage();
    EXPECT_TRUE(first == Page());
}

TEST_F(ModernReportTest, AProjectWithoutLinesOrViolationsHasAPage) {
    m_project.Begin("Empty");
    m_project.End();
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "<dt>Violations</dt><dd>0<"));
    EXPECT_TRUE(Holds(page, "<dt>Comments</dt><dd>0.00% "));
    EXPECT_TRUE(Holds(page, "There are none."));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

struct FilenameRow {
    const char* Project;
    const char* Folder;
    const char* Expected;
};

class ModernReportFilenameTest : public testing::TestWithParam<FilenameRow> {};

TEST_P(ModernReportFilenameTest, IsTheProjectsNameWithReviewBehind) {
    EXPECT_EQ(
        GetParam().Expected, ModernReport::PlaceFor(GetParam().Project, GetParam().Folder).Path());
}

INSTANTIATE_TEST_SUITE_P(
    Filenames,
    ModernReportFilenameTest,
    testing::Values(
        FilenameRow{"C:\\Src\\Billing.vbp", "", "C:\\Src\\Dorvik\\Billing_Review.html"},
        FilenameRow{"C:\\Src\\Billing.vbp", "C:\\Out", "C:\\Out\\Billing_Review.html"},
        FilenameRow{"C:\\Src\\Billing.vbp", "C:\\Out\\", "C:\\Out\\Billing_Review.html"},
        FilenameRow{"C:\\Src\\Bill.ing.vbp", "C:\\Out", "C:\\Out\\Bill.ing_Review.html"}));

TEST_F(ModernReportTest, SaveCreatesTheFolderAndReplacesAnEarlierPage) {
    FillSmallProject();
    const OutputPlace place{m_folder.Path("New\\Deep\\"), "", "Billing_Review.html"};
    ASSERT_TRUE(ModernReport::Save(m_project.Results(), m_facts, place));
    m_folder.Write("New\\Deep\\Billing_Review.html", "old");
    ASSERT_TRUE(ModernReport::Save(m_project.Results(), m_facts, place));
    EXPECT_TRUE(Page() == m_folder.Read("New\\Deep\\Billing_Review.html"));
}

TEST_F(ModernReportTest, SaveToAPlaceThatIsAFolderLogsAndReturnsFalse) {
    FillSmallProject();
    modFiles::CreateFolder(m_folder.Path("Taken"));
    std::string refusal;
    EXPECT_FALSE(
        ModernReport::Save(m_project.Results(), m_facts, {m_folder.Path(), "", "Taken"}, &refusal));
    EXPECT_THAT(refusal, testing::HasSubstr("Taken' is a folder where a file is needed"));
    EXPECT_THAT(m_log.Entries(), Not(IsEmpty()));
}

}  // namespace

}  // namespace dorvik::test
