#include "reports/classic/SourceFileReport.h"

#include "SmallReviewFixture.h"
#include "criteria/ProgressInfo.h"
#include "platform/host/modFiles.h"
#include "reports/classic/ReportContext.h"
#include "reports/format/modReportFilename.h"
#include "support/FilesystemPaths.h"

#include <utility>

namespace dorvik {
namespace {

using namespace testing;

constexpr const char* kProjectFile = "C:\\Src\\Billing.vbp";

/// Counts the calls and cancels at one of them, if told to.
class ProgressWatch : public IReportsEngineEvents {
public:
    void ReportsProgress(ProgressInfo& progress, std::int32_t state, bool& cancel) override {
        ++Calls;
        if (Calls == RaiseAt) {
            throw BasicError(5, "in the middle");
        }
        States.push_back(state);
        Progress.push_back(progress.SourceFileProgress());
        cancel = Calls == CancelAt;
    }

    int Calls = 0;
    int CancelAt = 0;
    int RaiseAt = 0;
    std::vector<std::int32_t> States;
    std::vector<std::int32_t> Progress;
};

class SourceFileReportTest : public test::SmallReviewFixture {
protected:
    void SetUp() override {
        SmallReviewFixture::SetUp();
        m_legend.Load(m_rulebase.SeverityList(), m_rulebase.CategoryList());
    }

    /// A form with violations in its declarations and in one of its two procedures.
    void WriteForm() {
        const auto file = BeginFile("frmK\xc3\xb6ln", "frmK\xc3\xb6ln.frm", "Form");
        EndObject(*BeginSection("Layout"), {});
        const auto declarations = BeginSection("Declarations");
        Violation missing = Raised(3, 500, 8, 0, "No Option Explicit");
        missing.Description = "Names may be misspelt";
        missing.Advice = "Add the statement";
        RaiseIn(*declarations, *file, missing);
        EndObject(*declarations, {4, 3, 2, 3, 10});
        const auto total = SetUpProcedure("Total", "Function");
        Violation jump = Raised(2, 750, 7, 7, "Jump");
        jump.SourceLine = "    GoTo Ende ' f\xc3\xbcr K\xc3\xb6ln \xe2\x82\xac";
        jump.SourceLineNumber = 12;
        jump.Description = "A jump";
        jump.Advice = "Use a loop";
        RaiseIn(*total, *file, jump);
        Violation comparison = Raised(1, 1500, -1, 5000, "Comparison");
        comparison.SourceLine = "    If a <> b Then";
        comparison.Description = "Compared as it stands";
        comparison.Advice = "Think";
        RaiseIn(*total, *file, comparison);
        EndObject(*total, {14, 4, 0, 2, 20}, 12);
        EndObject(*SetUpProcedure("Caption", "Property Get"), {3, 0, 0, 0, 3}, 1);
        EndFile(*file, {1000, 200, 5, 34, 1234}, 7);
        Finish();
    }

    void RaiseIn(VirtualObject& object, VirtualObject& file, const Violation& violation) {
        Raise(object, violation);
        file.ViolationStats().IncrementCount(violation.Severity, violation.Impact);
    }

    void Write(const SourceFileReport::Subject& subject) {
        ReportProgress progress(m_progress, m_listener);
        m_cancelled = !SourceFileReport::CreateSourceFileReport(
            {m_legend, m_output, progress}, subject, m_results);
    }

    /// The report of the only file, or of the first; empty if none was written.
    std::string Page(bool tolerancesSet = false) {
        const auto files = m_results.Items().GetProjectSourceFileList(true, true);
        EXPECT_FALSE(files.empty());
        Write({kProjectFile, files.front(), m_folder.Path("Reports"), tolerancesSet});
        const std::string path = modDorvikUtils::CreateReportFilename(
            kProjectFile,
            ReportKind::SourceFile,
            m_folder.Path("Reports"),
            files.front().Path + files.front().Filename,
            files.front().Name);
        return modFiles::FileExists(path) ? modFiles::ReadBytes(path) : std::string();
    }

    static std::string Golden(const char* name) {
        return modFiles::ReadBytes(
            test::ProgramPath(DORVIK_REPORTS_GOLDEN) + "\\" + name + ".html.expected");
    }

    std::string FormPage() const {
        return m_folder.Path("Reports\\frmK\xc3\xb6ln_frmK\xc3\xb6ln_Detail.html");
    }

    static int Occurrences(const std::string& page, std::string_view sought) {
        int count = 0;
        for (auto at = page.find(sought); at != std::string::npos; at = page.find(sought, at + 1)) {
            ++count;
        }
        return count;
    }

    ProgressWatch m_watch;
    IReportsEngineEvents* m_listener = &m_watch;
    ProgressInfo m_progress;
    ReportLegend m_legend;
    ReportOutput m_output;
    bool m_cancelled = false;
};

TEST_F(SourceFileReportTest, PageOfASourceFileStandsToTheByte) {
    WriteForm();
    EXPECT_EQ(Page(true), Golden("SourceFile"));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(SourceFileReportTest, PageOfTheProjectFileStandsToTheByte) {
    const auto file = BeginFile("Billing", "Billing.vbp", "Project");
    Violation reference = Raised(4, 50, -1, 123, "Reference");
    reference.Description = "Not authorised";
    reference.Advice = "Take it out";
    Raise(*file, reference);
    EndFile(*file, {});
    Finish();
    EXPECT_EQ(Page(), Golden("ProjectFile"));
}

TEST_F(SourceFileReportTest, WithoutTolerancesThereIsNoVerdict) {
    WriteForm();
    const std::string page = Page(false);
    EXPECT_THAT(page, Not(HasSubstr("Verdict")));
    EXPECT_THAT(page, Not(HasSubstr("ToleranceFailures")));
}

TEST_F(SourceFileReportTest, AFileThatMeetsItsTolerancesPassed) {
    const auto file = BeginFile("modA", "modA.bas", "Module");
    EndFile(*file, {});
    Finish();
    const std::string page = Page(true);
    EXPECT_THAT(
        page,
        HasSubstr("<h3>Verdict: <span class=\"passtext\">&nbsp;Pass&nbsp;</span></h3>\r\n<p>"));
    EXPECT_THAT(page, Not(HasSubstr("ToleranceFailures")));
}

TEST_F(SourceFileReportTest, AFileWithoutViolationsSaysSoTwiceAndHasNoDetails) {
    const auto file = BeginFile("modA", "modA.bas", "Module");
    EndObject(*SetUpProcedure("Total", "Sub"), {1, 0, 0, 0, 1}, 1);
    EndFile(*file, {1, 0, 0, 0, 1}, 1);
    Finish();
    const std::string page = Page();
    EXPECT_EQ(
        Occurrences(
            page,
            "<table cellspacing=\"0\"><tr><td align=\"left\" colspan=\"7\">No Violations</td></tr>"
            "</table>"),
        2);
    EXPECT_THAT(page, Not(HasSubstr("Violation Details")));
    EXPECT_THAT(page, Not(HasSubstr("ViolationDetails")));
}

TEST_F(SourceFileReportTest, TheLoneEndOfATableStandsOnAPageWithoutViolationsAsWell) {
    const auto file = BeginFile("modA", "modA.bas", "Module");
    EndFile(*file, {});
    Finish();
    EXPECT_THAT(Page(), EndsWith("</table>\r\n</table></body>\r\n</html>\r\n"));
}

TEST_F(SourceFileReportTest, TheHeadingRowStaysOpenAndOneTableEndServesAllTablesOfViolations) {
    WriteForm();
    const std::string page = Page();
    const std::string details = page.substr(page.find("<h3 id=\"ViolationDetails\">"));
    EXPECT_EQ(Occurrences(details, "<table "), 2);
    EXPECT_EQ(Occurrences(details, "</table>"), 1);
    EXPECT_EQ(Occurrences(details, "<tr"), Occurrences(details, "</tr>") + 2);
    EXPECT_THAT(details, HasSubstr("</th><tr class=\"violationsheading\">"));
}

TEST_F(SourceFileReportTest, TheImpactTableGoesByTheCountOfViolations) {
    const auto file = BeginFile("modA", "modA.bas", "Module");
    const auto total = SetUpProcedure("Total", "Sub");
    RaiseIn(*total, *file, Raised(2, 0, 7, 1, "Free of charge"));
    EndObject(*total, {1, 0, 0, 0, 1}, 1);
    EndFile(*file, {1, 0, 0, 0, 1}, 1);
    Finish();
    const std::string page = Page();
    EXPECT_THAT(page, Not(HasSubstr("No Violations")));
    const std::string impacts = page.substr(page.find("<h3 id=\"ImpactStatistics\">"));
    EXPECT_THAT(
        impacts,
        HasSubstr("<th width=\"10%\">Total</th></tr><tr class=\"totalsline\"><td align=\"left\">"
                  "TOTALS</td><td>-</td><td>-</td><td>-</td><td>-</td><td>-</td><td>-</td></tr>"));
}

TEST_F(SourceFileReportTest, AFileOfSectionsOnlyHasThemInTheViolationTablesAndNoComplexity) {
    const auto file = BeginFile("frmB", "frmB.frm", "Form");
    const auto layout = BeginSection("Layout");
    RaiseIn(*layout, *file, Raised(4, 10, 7, 1, "Name of a control"));
    EndObject(*layout, {});
    const auto declarations = BeginSection("Declarations");
    RaiseIn(*declarations, *file, Raised(3, 20, 8, 2, "Name of a variable"));
    EndObject(*declarations, {1, 0, 0, 0, 1});
    EndFile(*file, {1, 0, 0, 0, 1});
    Finish();
    const std::string page = Page();
    EXPECT_EQ(Occurrences(page, "<a href=\"#Layout\">Layout</a>"), 2);
    EXPECT_EQ(Occurrences(page, "<a href=\"#Declarations\">Declarations</a>"), 2);
    EXPECT_THAT(
        page,
        HasSubstr("<table id=\"Layout\" cellspacing=\"0\"><tr><th colspan=\"4\" "
                  "class=\"lefttableheading\">Layout</th>"));
    EXPECT_THAT(
        page,
        HasSubstr("<th width=\"18%\">Modify</th></tr><tr class=\"totalsline\"><td>MAXIMUM</td>"
                  "<td>-</td><td>-</td><td>-</td><td>-</td></tr>"));
    EXPECT_THAT(page, Not(HasSubstr("<td>Layout</td>"))) << "lines of the layout are not told";
    EXPECT_THAT(page, HasSubstr("<td>Declarations</td>"));
}

TEST_F(SourceFileReportTest, ComplexityIsToldInWordsANegativeOneAsOneBeyondAllMeasure) {
    struct Row {
        std::int32_t Complexity;
        const char* Cells;
    };
    constexpr Row kRows[] = {
        {0, "<td>-</td><td>N/A</td><td>N/A</td><td>N/A</td>"},
        {1, "<td>1</td><td>Easy</td><td>Simple</td><td>Low risk</td>"},
        {10, "<td>10</td><td>Easy</td><td>Simple</td><td>Low risk</td>"},
        {11, "<td>11</td><td>Difficult</td><td>Moderately easy</td><td>Moderate risk</td>"},
        {20, "<td>20</td><td>Difficult</td><td>Moderately easy</td><td>Moderate risk</td>"},
        {21, "<td>21</td><td>Very Difficult</td><td>Complex</td><td>High risk</td>"},
        {50, "<td>50</td><td>Very Difficult</td><td>Complex</td><td>High risk</td>"},
        {51,
         "<td>51</td><td>Untestable</td><td>Extremely difficult</td><td>Extremely high risk</td>"},
        {-1,
         "<td>-1</td><td>Untestable</td><td>Extremely difficult</td><td>Extremely high risk</td>"},
    };
    const auto file = BeginFile("modA", "modA.bas", "Module");
    for (const Row& row : kRows) {
        const std::string name = "P" + std::to_string(row.Complexity + 1);
        EndObject(*SetUpProcedure(name, "Sub"), {1, 0, 0, 0, 1}, row.Complexity);
    }
    EndFile(*file, {9, 0, 0, 0, 9}, 1);
    Finish();
    const std::string page = Page();
    for (const Row& row : kRows) {
        const std::string name = "P" + std::to_string(row.Complexity + 1);
        EXPECT_THAT(page, HasSubstr("<td>" + name + " (Sub)</td>" + row.Cells));
    }
    EXPECT_THAT(page, HasSubstr("<td>MAXIMUM</td><td>51</td>"));
}

TEST_F(SourceFileReportTest, EachAnchorOfTheContentsAndTablesMeetsAnId) {
    WriteForm();
    const std::string page = Page(true);
    int links = 0;
    for (auto at = page.find("href=\"#"); at != std::string::npos;
         at = page.find("href=\"#", at + 1)) {
        const auto begin = at + std::string_view("href=\"#").size();
        const std::string anchor = page.substr(begin, page.find('"', begin) - begin);
        EXPECT_EQ(Occurrences(page, " id=\"" + anchor + "\""), 1) << anchor;
        ++links;
    }
    EXPECT_EQ(links, 7 + 4);
}

TEST_F(SourceFileReportTest, LinksToAProjectWhoseNameNeedsEncoding) {
    WriteForm();
    const auto files = m_results.Items().GetProjectSourceFileList(true, true);
    Write({"C:\\Src\\50% C#.vbp", files.front(), m_folder.Path("Reports"), false});
    EXPECT_THAT(
        modFiles::ReadBytes(m_folder.Path("Reports\\frmK\xc3\xb6ln_frmK\xc3\xb6ln_Detail.html")),
        HasSubstr("<a href=\"50%25 C%23_Dorvik.html\">50% C#_Dorvik.html</a>"));
}

TEST_F(SourceFileReportTest, LayoutInAnyCaseHasNoLineCounts) {
    const auto file = BeginFile("frmB", "frmB.frm", "Form");
    EndObject(*BeginSection("LAYOUT"), {9, 0, 0, 0, 9});
    const auto procedure = SetUpProcedure("Layout", "Sub");
    EndObject(*procedure, {8, 0, 0, 0, 8}, 1);
    EndFile(*file, {17, 0, 0, 0, 17}, 1);
    Finish();
    const std::string page = Page();
    EXPECT_THAT(page, Not(HasSubstr("<td>LAYOUT</td>")));
    EXPECT_THAT(page, HasSubstr("<td>Layout (Sub)</td><td>8</td>")) << "a procedure of that name";
}

TEST_F(SourceFileReportTest, WithoutAFolderThePageLiesBesideTheProject) {
    WriteForm();
    const auto files = m_results.Items().GetProjectSourceFileList(true, true);
    const std::string projectFile = m_folder.Path("Billing.vbp");
    Write({projectFile, files.front(), "", true});
    EXPECT_EQ(
        m_folder.Read("Dorvik\\frmK\xc3\xb6ln_frmK\xc3\xb6ln_Detail.html"), Golden("SourceFile"));
}

TEST_F(SourceFileReportTest, TheProgressNeedsNoListener) {
    WriteForm();
    m_listener = nullptr;
    EXPECT_EQ(Page(true), Golden("SourceFile"));
    EXPECT_EQ(m_progress.SourceFileProgress(), 10);
}

TEST_F(SourceFileReportTest, AFileNamedWithoutAPointHasAnEmptyHeading) {
    const auto file = BeginFile("modA", "modA", "Module");
    EndFile(*file, {});
    Finish();
    EXPECT_THAT(Page(), HasSubstr("\r\n<h1></h1><h2>"));
    EXPECT_TRUE(modFiles::FileExists(m_folder.Path("Reports\\modA_Detail.html")));
}

TEST_F(SourceFileReportTest, ProgressIsToldAtTheStartAndForEachRowAndViolation) {
    WriteForm();
    Page(true);
    // 4 for each of 4 locations, and 3 violations
    EXPECT_EQ(m_progress.SourceFileEnd(), 4 * 4 + 3);
    EXPECT_EQ(m_progress.SourceFileName(), "frmK\xc3\xb6ln");
    EXPECT_EQ(m_progress.SourceFilePath(), "frmK\xc3\xb6ln.frm");
    // the start, 2 rows of violations, 3 of lines, 2 of complexity, 3 violations
    const std::vector<std::int32_t> steps{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    EXPECT_EQ(m_watch.Progress, steps);
    EXPECT_THAT(m_watch.States, Each(32));
}

TEST_F(SourceFileReportTest, CancelledAtAnyPointItWritesNoFile) {
    WriteForm();
    for (int call = 1; call <= 11; ++call) {
        m_watch.Calls = 0;
        m_watch.CancelAt = call;
        EXPECT_EQ(Page(true), "") << call;
        EXPECT_TRUE(m_cancelled) << call;
        EXPECT_EQ(m_watch.Calls, call) << "it goes on behind the cancel";
    }
    m_watch.CancelAt = 0;
    EXPECT_NE(Page(true), "");
    EXPECT_FALSE(m_cancelled);
}

TEST_F(SourceFileReportTest, APageThatCannotBeWrittenIsLogged) {
    WriteForm();
    m_folder.Write("Reports", "a file where the folder should be");
    EXPECT_EQ(Page(), "");
    EXPECT_THAT(m_log.Entries(), Contains(HasSubstr("ReportsEngine::SaveReport")));
    EXPECT_FALSE(m_cancelled);
    EXPECT_THAT(m_output.Failed(), ElementsAre(FormPage()));
    EXPECT_THAT(m_output.Written(), IsEmpty());
}

TEST_F(SourceFileReportTest, AFailureInTheMiddleMakesItAFailedPageOfWhichNothingIsWritten) {
    WriteForm();
    m_watch.RaiseAt = 3;
    EXPECT_EQ(Page(), "");
    EXPECT_THAT(m_log.Entries(), Contains(HasSubstr("ReportsEngine::CreateSourceFileReport")));
    EXPECT_FALSE(m_cancelled);
    EXPECT_THAT(m_output.Failed(), ElementsAre(FormPage()));
    EXPECT_THAT(m_output.Written(), IsEmpty());
}

TEST_F(SourceFileReportTest, ACancelledPageIsNoFailedOne) {
    WriteForm();
    m_watch.CancelAt = 2;
    Page();
    EXPECT_THAT(m_output.Failed(), IsEmpty());
}

TEST_F(SourceFileReportTest, AFilterOfTheResultsTakesNoPartInLinksAndDetails) {
    WriteForm();
    for (std::int32_t level = 1; level <= 5; ++level) {
        m_results.Filter().SetSeverityLevel(level, false);
    }
    m_results.Filter().SetDirty(true);
    const auto files = m_results.Items().GetProjectSourceFileList(true, true);
    const auto locations =
        m_results.Items().GetSourceFileProcList(files.front().ObjectID, true, true);
    for (const BasicObject& location : locations) {
        ASSERT_EQ(location.ViolationCount, 0) << "the filter is not at work";
    }
    const std::string page = Page();
    for (const std::string anchor : {"Declarations", "Total_Function"}) {
        EXPECT_EQ(Occurrences(page, "<a href=\"#" + anchor + "\">"), 2) << anchor;
        EXPECT_EQ(Occurrences(page, "<table id=\"" + anchor + "\""), 1) << anchor;
    }
}

/// The two are one row of the results, whose figures are those of the first copy.
TEST_F(SourceFileReportTest, AProcedureWrittenTwiceShowsTheViolationsOfBothCopies) {
    const auto file = BeginFile("modA", "modA.bas", "Module");
    const auto first = SetUpProcedure("Total", "Sub");
    EndObject(*first, {2, 0, 0, 0, 2}, 2);
    const auto second = SetUpProcedure("Total", "Sub");
    ASSERT_EQ(second->ObjectID(), first->ObjectID());
    RaiseIn(*second, *file, Raised(2, 750, 7, 1, "Jump of the second copy"));
    EndObject(*second, {1, 0, 0, 0, 1}, 1);
    EndFile(*file, {3, 0, 0, 0, 3}, 1);
    Finish();
    const std::string page = Page();
    EXPECT_EQ(Occurrences(page, "<table id=\"Total_Sub\""), 1);
    EXPECT_EQ(Occurrences(page, "Jump of the second copy"), 1);
}

TEST_F(SourceFileReportTest, AnEarlierPageIsReplaced) {
    WriteForm();
    const std::string page = Page();
    EXPECT_EQ(Page(), page);
    EXPECT_EQ(m_output.Written().size(), 2U);
}

}  // namespace
}  // namespace dorvik
