#include "reports/classic/ProjectReport.h"

#include "reports/ReportedReviewFixture.h"
#include "reports/classic/ReportProgress.h"
#include "support/ProgressAction.h"

#include <filesystem>

namespace dorvik {
namespace {

using test::Breach;
using test::ReviewedProject;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// The project "Billing" with its project file and, if the test adds them, modules.
class ProjectReportTest : public test::ReportedReviewFixture {
protected:
    ProjectReportTest() : m_project(AddProject("Billing")) {}

    void Begin(std::int32_t criticalLimit) {
        m_review.Criteria().SetToleranceCount(1, criticalLimit);
        ASSERT_TRUE(m_review.Begin("Billing"));
    }

    void WriteProjectFile(int criticals) {
        m_review.BeginFile({"Billing", ".vbp", "Project"});
        RaiseCriticals(criticals);
        m_review.EndFile();
    }

    void WriteModule(
        const std::string& name,
        int criticals,
        int lines,
        SourceFileStatus status = SourceFileStatus::Good) {
        m_review.BeginFile({name, ".bas", "Module", lines, lines / 10});
        if (status == SourceFileStatus::Good) {
            m_review.BeginProcedure("Total", "Function", 3);
            RaiseCriticals(criticals);
            m_review.EndProcedure();
            m_review.EndFile();
        } else {
            m_review.EndFileEarly();
        }
        AddFile(*m_project, name, status);
    }

    /// A module that could be opened, and was not reviewed to its end.
    void WriteModuleInPart(const std::string& name) {
        m_review.BeginFile({name, ".bas", "Module", 10, 1});
        m_review.BeginSection("Declarations");
        m_review.EndProcedure();
        m_review.EndFileEarly();
        AddFile(*m_project, name, SourceFileStatus::Good);
    }

    void RaiseCriticals(int count) {
        for (int number = 0; number < count; ++number) {
            m_review.Raise(Breach(5000, 1, 900, "Jump"));
        }
    }

    std::string Report() {
        EXPECT_TRUE(m_review.End());
        m_engine.CreateProjectReport(*m_project, m_criteria, m_progress);
        return Page();
    }
    /// The page as it is made from the database alone.
    std::string OlderPage() {
        EXPECT_TRUE(m_review.End());
        ProjectReportOrder order;
        order.ProjectFile = "C:\\Src\\Billing.vbp";
        order.ReportsFolder = m_folder.Path();
        EXPECT_TRUE(m_engine.CreateReportsOfDatabase(m_review.Results(), order, m_progress));
        return Page();
    }
    std::string Page() const { return m_folder.Read("Billing_Dorvik.html"); }

    static constexpr std::int32_t kNoLimit = -1;
    static constexpr const char* kNotAvailable = "<td align=\"center\">N/A</td>";
    /// Only a rate is centred.
    static constexpr const char* kNoRate = "<td>N/A</td>";

    ReviewedProject m_review{ResultsPath("Billing")};
    std::shared_ptr<VirtualProject> m_project;
};

TEST_F(ProjectReportTest, WithoutTolerancesThereIsNoVerdictYetErrorsCount) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModule("modA", 1, 100);
    WriteModule("modB", 0, 0, SourceFileStatus::NotFound);
    m_project->Outcome().FileErrors = 1;
    const std::string page = Report();
    EXPECT_THAT(page, Not(HasSubstr("Verdict: ")));
    EXPECT_THAT(page, Not(HasSubstr("#ToleranceFailures")));
    EXPECT_THAT(
        page,
        HasSubstr(
            std::string("<tr><td align=\"left\">modA.bas</td>") + kNotAvailable +
            "<td>1</td><td>900</td><td>100</td></tr>"));
    for (const std::string label : {"Total Passed", "Total Failed"}) {
        EXPECT_THAT(
            page,
            HasSubstr(
                "<tr><td align=\"left\">" + label + "</td>" + kNotAvailable +
                "<td>-</td><td>-</td><td>-</td></tr>"));
    }
    EXPECT_THAT(
        page,
        HasSubstr("<tr><td align=\"left\">Total Errors</td><td class=\"error\">1</td><td>-</td>"
                  "<td>-</td><td>-</td></tr>"));
    EXPECT_THAT(
        page,
        HasSubstr(
            std::string("<tr class=\"totalsline\"><td align=\"left\">TOTALS</td>") + kNoRate +
            "<td>1</td><td>900</td><td>100</td></tr></table>\r\n"));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ProjectReportTest, TheProjectFileHasARowAndIsNotCountedAsReviewed) {
    Begin(kNoLimit);
    WriteProjectFile(1);
    WriteModule("modA", 0, 1234);
    WriteModule("modB", 0, 10);
    const std::string page = Report();
    EXPECT_THAT(
        page,
        HasSubstr(
            std::string("<tr><td align=\"left\">Billing.vbp</td>") + kNotAvailable +
            "<td>1</td><td>900</td><td>-</td></tr>"));
    EXPECT_THAT(
        page, HasSubstr("Source Files Reviewed</td><td align=\"left\" width=\"70%\">2</td></tr>"));
    EXPECT_THAT(page, HasSubstr("<td colspan=\"2\">All Source Files</td>"));
}

TEST_F(ProjectReportTest, FilesThatWereNotSelectedAreToldByNumber) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModule("modA", 0, 10);
    AddFile(*m_project, "modB", SourceFileStatus::Good);
    EXPECT_THAT(Report(), HasSubstr("<td colspan=\"2\">1 of 2 Source Files Reviewed</td>"));
}

TEST_F(ProjectReportTest, AllFilesInErrorGiveARateOfZero) {
    Begin(0);
    WriteProjectFile(1);
    WriteModule("modA", 0, 0, SourceFileStatus::NotFound);
    WriteModule("modB", 0, 0, SourceFileStatus::UnexpectedError);
    m_project->Outcome().FileErrors = 2;
    const std::string page = Report();
    EXPECT_THAT(
        page, HasSubstr("<td align=\"left\">TOTALS</td><td align=\"center\">0.00%</td><td>1</td>"));
    EXPECT_THAT(
        page,
        HasSubstr("<tr><td align=\"left\">modA.bas</td><td align=\"center\" class=\"error\">Error"
                  "</td><td colspan=\"3\" align=\"left\" class=\"error\">Failed To Open Source File"
                  "</td></tr>"));
    EXPECT_THAT(page, HasSubstr("class=\"error\">Unexpected Error</td></tr>"));
}

TEST_F(ProjectReportTest, AFailedProjectSaysSoAndNamesItsFailures) {
    Begin(0);
    WriteProjectFile(0);
    WriteModule("modA", 1, 100);
    WriteModule("modB", 0, 100);
    const std::string page = Report();
    EXPECT_THAT(
        page,
        HasSubstr("2026</h3>\r\n<h3>Verdict: <span class=\"failtext\">&nbsp;Fail&nbsp;</span></h3>"
                  "\r\n<ul>"));
    EXPECT_THAT(
        page,
        HasSubstr("<li><a href=\"#ReviewSummaryInformation\">Review Summary Information</a></li>"
                  "<li><a href=\"#ToleranceFailures\">Tolerance Failures</a></li>"
                  "<li><a href=\"#ViolationStatistics\">"));
    EXPECT_THAT(
        page,
        HasSubstr("<h3 id=\"ToleranceFailures\">Tolerance Failures</h3>Critical Violation Count<br>"
                  "<h3 id=\"ViolationStatistics\">"));
    EXPECT_THAT(page, HasSubstr("modA.bas</td><td class=\"fail\">Fail</td><td>1</td><td>900</td>"));
    EXPECT_THAT(page, HasSubstr("modB.bas</td><td class=\"pass\">Pass</td><td>-</td><td>-</td>"));
    EXPECT_THAT(page, HasSubstr("Total Passed</td><td class=\"pass\">2</td>"));
    EXPECT_THAT(page, HasSubstr("Total Failed</td><td class=\"fail\">1</td>"));
    EXPECT_THAT(page, HasSubstr("<td align=\"center\">66.67%</td>"));
}

TEST_F(ProjectReportTest, AProjectThatPassedHasNoFailures) {
    Begin(1);
    WriteProjectFile(0);
    WriteModule("modA", 1, 100);
    const std::string page = Report();
    EXPECT_THAT(page, HasSubstr("<span class=\"passtext\">&nbsp;Pass&nbsp;</span>"));
    EXPECT_THAT(page, Not(HasSubstr("ToleranceFailures")));
    EXPECT_THAT(page, HasSubstr("<td align=\"center\">100.00%</td>"));
}

TEST_F(ProjectReportTest, WithoutLinesTheRatioIsADashAndTheCommentsAreZeroPercent) {
    Begin(kNoLimit);
    WriteProjectFile(1);
    const std::string page = Report();
    EXPECT_THAT(
        page,
        HasSubstr("Violations/Source Lines Ratio</td><td align=\"left\" width=\"70%\">-</td>"));
    EXPECT_THAT(
        page, HasSubstr("Percentage Comments</td><td align=\"left\" width=\"70%\">0.00%</td>"));
}

TEST_F(ProjectReportTest, RatioAndCommentsHaveTwoDecimals) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModule("modA", 2, 64);
    const std::string page = Report();
    EXPECT_THAT(page, HasSubstr("Ratio</td><td align=\"left\" width=\"70%\">0.03</td>"));
    EXPECT_THAT(page, HasSubstr("Comments</td><td align=\"left\" width=\"70%\">9.38%</td>"));
}

TEST_F(ProjectReportTest, DatesAreTheReviewsOwn) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    const std::string page = Report();
    EXPECT_THAT(page, HasSubstr("<title>Billing.vbp - Dorvik Project Summary Report</title>"));
    EXPECT_THAT(
        page,
        HasSubstr("<h1>Billing.vbp</h1><h2>Dorvik Project Summary Report</h2>"
                  "<h3>Review Performed Saturday, 21 November 2026</h3>\r\n\r\n<ul>"));
    EXPECT_THAT(
        page, HasSubstr("Review Start</td><td align=\"left\" width=\"70%\">21/11/2026 14:05:09"));
    EXPECT_THAT(page, HasSubstr("Review Duration</td><td align=\"left\" width=\"70%\">00:00:00"));
    EXPECT_THAT(page, HasSubstr("Reviewed By</td><td align=\"left\" width=\"70%\">ann</td>"));
}

TEST_F(ProjectReportTest, WithSummaryThereAreNoPagesOfFiles) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModule("modA", 1, 10);
    Report();
    EXPECT_THAT(m_engine.WrittenReports(), ElementsAre(m_folder.Path("Billing_Dorvik.html")));
    EXPECT_THAT(m_states, ElementsAre(ReportProgress::kProjectReportState));
}

TEST_F(ProjectReportTest, DetailedPagesAreLinkedButForFilesInError) {
    m_criteria.SetReportOption(ReportsEngine::kDetailed);
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModule("modA", 1, 10);
    WriteModule("modB", 0, 0, SourceFileStatus::NotFound);
    const std::string page = Report();
    EXPECT_THAT(page, HasSubstr("<a href=\"Billing_Billing_Detail.html\">Billing.vbp</a>"));
    EXPECT_THAT(page, HasSubstr("<a href=\"modA_modA_Detail.html\">modA.bas</a>"));
    EXPECT_THAT(page, HasSubstr("<td align=\"left\">modB.bas</td>"));
    EXPECT_THAT(
        m_engine.WrittenReports(),
        ElementsAre(
            m_folder.Path("Billing_Billing_Detail.html"),
            m_folder.Path("modA_modA_Detail.html"),
            m_folder.Path("Billing_Dorvik.html")));
}

TEST_F(ProjectReportTest, AFileWithoutANameIsFoundByItsPath) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    m_review.BeginFile({"", "frmLost.frm", "Form"});
    m_review.EndFile();
    AddFile(*m_project, "C:\\Src\\frmLost.frm", SourceFileStatus::NotFound);
    EXPECT_THAT(Report(), HasSubstr("frmLost.frm</td><td align=\"center\" class=\"error\">Error"));
}

TEST_F(ProjectReportTest, CancelledAtItsStartWritesNothing) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    m_cancelAt = 1;
    EXPECT_EQ(Report(), "");
    EXPECT_THAT(m_engine.WrittenReports(), IsEmpty());
    EXPECT_THAT(m_engine.FailedReports(), IsEmpty());
    EXPECT_THAT(m_states, ElementsAre(ReportProgress::kProjectReportState));
}

TEST_F(ProjectReportTest, CancelledInThePageOfAFileWritesNeither) {
    m_criteria.SetReportOption(ReportsEngine::kDetailed);
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModule("modA", 3, 10);
    m_cancelAt = 4;
    EXPECT_EQ(Report(), "");
    EXPECT_EQ(m_folder.Read("modA_modA_Detail.html"), "");
    EXPECT_THAT(m_engine.WrittenReports(), ElementsAre(EndsWith("Billing_Billing_Detail.html")));
    EXPECT_EQ(m_states.size(), 4U) << "nothing is told after the cancel";
}

TEST_F(ProjectReportTest, ProgressIsToldAsAReportOfThatManyFiles) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModule("modA", 0, 10);
    Report();
    EXPECT_EQ(m_progress.Action(), test::ProgressAction::GeneratingReport);
    EXPECT_EQ(m_progress.NumSourceFiles(), 2);
}

TEST_F(ProjectReportTest, WithoutResultsNothingIsWrittenAndNothingLogged) {
    const auto other = AddProject("Other");
    m_engine.CreateProjectReport(*other, m_criteria, m_progress);
    EXPECT_EQ(m_folder.Read("Other_Dorvik.html"), "");
    EXPECT_THAT(m_states, IsEmpty());
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ProjectReportTest, WithoutAnyFileTheRateHasAZeroDivisorWhichIsLogged) {
    Begin(0);
    EXPECT_EQ(Report(), "");
    EXPECT_TRUE(m_log.Contains("Division by zero#ReportsEngine::CreateProjectReport"));
    EXPECT_THAT(m_engine.FailedReports(), ElementsAre(m_folder.Path("Billing_Dorvik.html")));
}

TEST_F(ProjectReportTest, OfAnOlderDatabaseWhoseFilesWereAllReadHasARate) {
    Begin(0);
    WriteProjectFile(0);
    WriteModule("modA", 1, 10);
    EXPECT_THAT(OlderPage(), HasSubstr("TOTALS</td><td align=\"center\">50.00%</td><td>1</td>"));
}

TEST_F(ProjectReportTest, OfAnOlderDatabaseWithoutTolerancesHasNoRateWhateverIsNotKnown) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModule("modB", 0, 0, SourceFileStatus::NotFound);
    EXPECT_THAT(OlderPage(), HasSubstr(std::string("TOTALS</td>") + kNoRate));
}

TEST_F(ProjectReportTest, AReviewWithoutAnEndHasNeitherEndNorDuration) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    ASSERT_TRUE(m_review.End(/*finished=*/false));
    m_engine.CreateProjectReport(*m_project, m_criteria, m_progress);
    EXPECT_THAT(
        Page(),
        HasSubstr("Review End</td><td align=\"left\" width=\"70%\">N/A</td></tr><tr>"
                  "<td align=\"left\" width=\"30%\">Review Duration</td>"
                  "<td align=\"left\" width=\"70%\">N/A</td></tr>"));
}

TEST_F(ProjectReportTest, APageOfAFileThatCannotBeWrittenIsAFailedOneAndTheOthersFollow) {
    m_criteria.SetReportOption(ReportsEngine::kDetailed);
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModule("modA", 1, 10);
    std::filesystem::create_directory(m_folder.HostPath() / "Billing_Billing_Detail.html");
    EXPECT_THAT(Report(), HasSubstr("Billing_Billing_Detail.html"));
    EXPECT_THAT(
        m_engine.FailedReports(), ElementsAre(m_folder.Path("Billing_Billing_Detail.html")));
    EXPECT_THAT(
        m_engine.WrittenReports(),
        ElementsAre(m_folder.Path("modA_modA_Detail.html"), m_folder.Path("Billing_Dorvik.html")));
}

TEST_F(ProjectReportTest, OfAnOlderDatabaseSaysWhatNobodyKnowsAnyMore) {
    Begin(0);
    WriteProjectFile(0);
    WriteModule("modA", 0, 10);
    WriteModule("modB", 0, 0, SourceFileStatus::NotFound);
    ASSERT_TRUE(m_review.End());
    ProjectReportOrder order;
    order.ProjectFile = "C:\\Src\\Billing.vbp";
    order.ReportsFolder = m_folder.Path();
    order.Detailed = true;
    EXPECT_TRUE(m_engine.CreateReportsOfDatabase(m_review.Results(), order, m_progress));
    const std::string page = Page();
    EXPECT_THAT(page, HasSubstr("Total Errors</td><td class=\"error\">1</td>"));
    EXPECT_THAT(page, HasSubstr("<td align=\"left\">Rulebase Filename</td><td>Not known</td>"));
    EXPECT_THAT(page, HasSubstr("<td align=\"left\">Rule Engine</td><td>Not known</td>"));
    EXPECT_THAT(page, HasSubstr("<td colspan=\"2\">2 Source Files Reviewed</td>"));
    EXPECT_THAT(page, HasSubstr("<td width=\"60%\">House rules</td>"));
    EXPECT_THAT(
        page,
        HasSubstr("<td align=\"left\">modB.bas</td><td align=\"center\" class=\"error\">Not "
                  "reviewed</td>"));
    EXPECT_THAT(page, HasSubstr("modA.bas</a></td><td class=\"pass\">Pass</td>"));
    EXPECT_THAT(page, HasSubstr("TOTALS</td><td align=\"center\">66.67%</td><td>-</td>"));
    EXPECT_THAT(page, Not(HasSubstr("Log File")));
    EXPECT_EQ(m_engine.WrittenReports().size(), 3U);
}

TEST_F(ProjectReportTest, FileReviewedInPartPassesNothingWhetherOrNotItsReviewIsJustOver) {
    m_criteria.SetReportOption(ReportsEngine::kDetailed);
    Begin(0);
    WriteProjectFile(0);
    WriteModule("modA", 0, 10);
    WriteModuleInPart("modB");
    const std::string row =
        "modB.bas</a></td><td align=\"center\" class=\"error\">Not reviewed</td><td>-</td>";
    const std::string verdict = "Verdict: <span class=\"failtext\">&nbsp;Incomplete&nbsp;</span>";
    const std::string counts = "Total Errors</td><td class=\"error\">1</td>";
    const std::string rate = "TOTALS</td><td align=\"center\">66.67%</td>";
    const auto has = [&](const std::string& page) {
        EXPECT_THAT(
            page, AllOf(HasSubstr(row), HasSubstr(verdict), HasSubstr(counts), HasSubstr(rate)));
        EXPECT_THAT(
            m_folder.Read("modB_modB_Detail.html"),
            HasSubstr("Verdict: <span class=\"failtext\">&nbsp;Not reviewed&nbsp;</span>"));
    };
    has(Report());
    ProjectReportOrder order;
    order.ProjectFile = "C:\\Src\\Billing.vbp";
    order.ReportsFolder = m_folder.Path();
    order.Detailed = true;
    EXPECT_TRUE(m_engine.CreateReportsOfDatabase(m_review.Results(), order, m_progress));
    has(Page());
}

TEST_F(ProjectReportTest, FileReviewedInPartHasNoVerdictOfItsOwnWithoutTolerances) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    WriteModuleInPart("modB");
    const std::string page = Report();
    EXPECT_THAT(page, Not(HasSubstr("Verdict: ")));
    EXPECT_THAT(page, HasSubstr("class=\"error\">Not reviewed</td>"));
    EXPECT_THAT(page, HasSubstr("Total Errors</td><td class=\"error\">1</td>"));
}

TEST_F(ProjectReportTest, APageThatCannotBeWrittenIsNotSaidToBe) {
    Begin(kNoLimit);
    WriteProjectFile(0);
    ASSERT_TRUE(m_review.End());
    std::filesystem::create_directory(m_folder.HostPath() / "Billing_Dorvik.html");
    ProjectReportOrder order;
    order.ProjectFile = "C:\\Src\\Billing.vbp";
    order.ReportsFolder = m_folder.Path();
    EXPECT_FALSE(m_engine.CreateReportsOfDatabase(m_review.Results(), order, m_progress));
    EXPECT_THAT(m_engine.WrittenReports(), IsEmpty());
    EXPECT_THAT(m_engine.FailedReports(), ElementsAre(m_folder.Path("Billing_Dorvik.html")));
    EXPECT_TRUE(m_log.Contains("#ReportsEngine::SaveReport"));
}

/// Among the states that were reported: the host's events were processed.
constexpr std::int32_t kYield = -1;

/// Notes that the host's events were processed.
class WaitingInput final : public IHostInput {
public:
    explicit WaitingInput(std::vector<std::int32_t>& states) : m_states(states) {}
    bool InputIsWaiting() override { return true; }
    void ProcessInput() override { m_states.push_back(kYield); }

private:
    std::vector<std::int32_t>& m_states;
};

TEST_F(ProjectReportTest, AStepOfTheProgressRaisesTheEventThenYieldsThenReturnsTheCancel) {
    WaitingInput input(m_states);
    const ScopedInstall<IHostInput> installed(input);
    ReportProgress progress(m_progress, this);
    EXPECT_FALSE(progress.Update(ReportProgress::kProjectReportState));
    EXPECT_THAT(m_states, ElementsAre(ReportProgress::kProjectReportState, kYield));
    m_cancelAt = 3;
    EXPECT_TRUE(progress.Update(ReportProgress::kSourceFileReportState));
    EXPECT_THAT(
        m_states,
        ElementsAre(
            ReportProgress::kProjectReportState,
            kYield,
            ReportProgress::kSourceFileReportState,
            kYield));
    ReportProgress withoutListener(m_progress, nullptr);
    EXPECT_FALSE(withoutListener.Update(ReportProgress::kSourceFileReportState));
}

}  // namespace
}  // namespace dorvik
