#include "reports/classic/BatchReport.h"

#include "reports/ReportedReviewFixture.h"
#include "reports/format/modPassRate.h"
#include "reports/format/modSortIndex.h"
#include "support/ProgressAction.h"

namespace dorvik {
namespace {

using test::Breach;
using test::ReviewedProject;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class BatchReportTest : public test::ReportedReviewFixture {
protected:
    BatchReportTest() {
        m_criteria.SetBatchTitle("Nightly");
        m_criteria.SetBatchFilename(m_folder.Path("Night.batch"));
        m_criteria.SetReviewStarted({2026, 11, 20, 23, 0, 0});
    }

    /// A project with that many critical violations, of which none is allowed.
    void Review(const std::string& name, int criticals, bool withLimit = true, int lines = 1000) {
        AddProject(name);
        ReviewedProject review(ResultsPath(name));
        review.Criteria().SetToleranceCount(1, withLimit ? 0 : -1);
        ASSERT_TRUE(review.Begin(name));
        review.BeginFile({"modA", ".bas", "Module", lines, 0});
        for (int number = 0; number < criticals; ++number) {
            review.Raise(Breach(5000, 1, 900, "Jump"));
        }
        review.EndFile();
        ASSERT_TRUE(review.End());
    }

    std::string Report() {
        m_engine.CreateBatchReport(m_criteria, m_progress);
        return m_folder.Read("Night_batch_BatchSummary.html");
    }
};

TEST_F(BatchReportTest, ARowForEachProjectInTheOrderOfTheirNames) {
    Review("Billing", 2);
    Review("admin", 0);
    const std::string page = Report();
    EXPECT_THAT(page, HasSubstr("<title>Dorvik Batch Summary Report</title>"));
    EXPECT_THAT(
        page,
        HasSubstr("<body>\r\n\r\n\r\n<h1>Nightly</h1><h2>Dorvik Batch Summary Report</h2>"
                  "<h3>Review Performed: Friday, 20 November 2026</h3>"
                  "<h3 id=\"ReviewSummaryInformation\">"));
    EXPECT_THAT(
        page,
        HasSubstr(
            "<h3 id=\"ProjectStatistics\">Project Statistics</h3><table cellspacing=\"0\"><tr>"
            "<th width=\"20%\">Project</th><th width=\"20%\">Verdict</th>"
            "<th width=\"20%\">Violations</th><th width=\"20%\">Impact</th>"
            "<th width=\"20%\">Lines</th></tr>"
            "<tr><td align=\"left\"><a href=\"admin_Dorvik.html\">admin.vbp</a></td>"
            "<td class=\"pass\">Pass</td><td>-</td><td>-</td><td>1,000</td></tr>"
            "<tr><td align=\"left\"><a href=\"Billing_Dorvik.html\">Billing.vbp</a></td>"
            "<td class=\"fail\">Fail</td><td>2</td><td>1,800</td><td>1,000</td></tr>"
            "<tr class=\"totalsline\"><td colspan=\"5\">&nbsp;</td></tr>"
            "<tr><td align=\"left\">Total Passed</td><td class=\"pass\">1</td><td>-</td>"
            "<td>-</td><td>-</td></tr>"
            "<tr><td align=\"left\">Total Failed</td><td class=\"fail\">1</td><td>-</td>"
            "<td>-</td><td>-</td></tr>"
            "<tr><td align=\"left\">Total Errors</td><td class=\"error\">-</td><td>-</td>"
            "<td>-</td><td>-</td></tr>"
            "<tr class=\"totalsline\"><td align=\"left\">TOTALS</td>"
            "<td align=\"center\">50.00%</td><td>2</td><td>1,800</td><td>2,000</td></tr>"
            "</table>\r\n<h3 id=\"ReviewCriteria\">Review Information</h3>"));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(BatchReportTest, TheSummaryHasNeitherALogNorFigures) {
    Review("Billing", 0);
    const std::string page = Report();
    EXPECT_THAT(
        page,
        HasSubstr(
            "<tr><td align=\"left\" width=\"30%\">Batch</td><td align=\"left\" width=\"70%\">" +
            (m_folder.HostPath() / "Night.batch").string() + "</td></tr>"));
    EXPECT_THAT(page, HasSubstr("20/11/2026 23:00:00"));
    EXPECT_THAT(page, Not(HasSubstr("Log File")));
    EXPECT_THAT(page, Not(HasSubstr("Source Files Reviewed")));
    EXPECT_THAT(page, Not(HasSubstr("Rules Selected")));
}

TEST_F(BatchReportTest, ProjectWithAFileReviewedInPartDoesNotPass) {
    AddProject("Billing");
    ReviewedProject review(ResultsPath("Billing"));
    ASSERT_TRUE(review.Begin("Billing"));
    review.BeginFile({"modA", ".bas", "Module", 10, 0});
    review.BeginSection("Declarations");
    review.EndProcedure();
    review.EndFileEarly();
    ASSERT_TRUE(review.End());
    const std::string page = Report();
    EXPECT_THAT(page, HasSubstr("Billing.vbp</a></td><td class=\"error\">Incomplete</td>"));
    EXPECT_THAT(page, HasSubstr("Total Passed</td><td class=\"pass\">-</td>"));
    EXPECT_THAT(page, HasSubstr("Total Errors</td><td class=\"error\">1</td>"));
    EXPECT_THAT(page, HasSubstr("TOTALS</td><td align=\"center\">0.00%</td>"));
}

TEST_F(BatchReportTest, ProjectsWithoutResultsAreErrorsAndTheReportGoesOn) {
    AddProject("Lost");
    Review("Billing", 0);
    const std::string page = Report();
    EXPECT_THAT(
        page,
        HasSubstr(
            "<tr><td align=\"left\">Lost.vbp</td><td align=\"left\" class=\"error\">Error</td>"
            "<td>-</td><td>-</td><td>-</td></tr>"));
    EXPECT_THAT(page, HasSubstr("Total Errors</td><td class=\"error\">1</td>"));
    EXPECT_THAT(
        page, HasSubstr("<td align=\"center\">50.00%</td><td>-</td><td>-</td><td>1,000</td></tr>"));
}

TEST_F(BatchReportTest, AllProjectsFailedGiveARateOfZeroAndSumsOfDashes) {
    AddProject("One");
    AddProject("Two");
    EXPECT_THAT(
        Report(),
        AllOf(
            HasSubstr("Total Errors</td><td class=\"error\">2</td>"),
            HasSubstr("<td align=\"left\">TOTALS</td><td align=\"center\">0.00%</td><td>-</td>"
                      "<td>-</td><td>-</td></tr>")));
}

TEST_F(BatchReportTest, WithoutASelectedProjectTheDivisionFailsIsLoggedAndNothingIsWritten) {
    AddProject("One");
    m_criteria.ProjectList().SetSelected(1, false);
    EXPECT_EQ(Report(), "");
    EXPECT_TRUE(m_log.Contains("Division by zero#ReportsEngine::CreateBatchReport"));
    EXPECT_THAT(m_engine.WrittenReports(), IsEmpty());
    EXPECT_THAT(
        m_engine.FailedReports(), ElementsAre(m_folder.Path("Night_batch_BatchSummary.html")));
}

TEST_F(BatchReportTest, SumsGoBeyondThirtyTwoBits) {
    Review("One", 0, /*withLimit=*/true, 2'000'000'000);
    Review("Two", 0, /*withLimit=*/true, 2'000'000'000);
    EXPECT_THAT(
        Report(),
        HasSubstr("<td align=\"center\">100.00%</td><td>-</td><td>-</td><td>4,000,000,000</td>"));
}

TEST_F(BatchReportTest, AReviewThatNeverStartedHasNoDate) {
    m_criteria.SetReviewStarted({});
    Review("Billing", 0);
    const std::string page = Report();
    EXPECT_THAT(page, HasSubstr("<h3>Review Performed: </h3>"));
    EXPECT_THAT(page, HasSubstr("Review Start</td><td align=\"left\" width=\"70%\"></td></tr>"));
    EXPECT_THAT(
        page, HasSubstr("Review Duration</td><td align=\"left\" width=\"70%\">00:00:00</td></tr>"));
}

TEST_F(BatchReportTest, ABatchOfAnotherMachineKeepsItsPathAndItsLinks) {
    Review("Billing", 0);
    m_criteria.SetBatchFilename("C:\\Src\\Night.batch");
    m_criteria.ProjectList().Item(1)->SetFilename("C:\\Src\\Billing.vbp");
    EXPECT_THAT(Report(), HasSubstr("<td align=\"left\" width=\"70%\">C:\\Src\\Night.batch</td>"));
    m_criteria.SetUseProjectFolderReports(true);
    EXPECT_THAT(
        Report(),
        HasSubstr("<a href=\"file:///C:/Src/Dorvik/Billing_Dorvik.html\">Billing.vbp</a>"));
}

TEST_F(BatchReportTest, UnselectedProjectsHaveNoRow) {
    Review("Billing", 0);
    Review("Admin", 0);
    m_criteria.ProjectList().SetSelected(2, false);
    EXPECT_THAT(Report(), Not(HasSubstr("Admin")));
}

TEST_F(BatchReportTest, WithoutProjectReportsTheNamesAreNoLinks) {
    m_criteria.SetReportOption(0);
    Review("Billing", 0);
    EXPECT_THAT(
        Report(), HasSubstr("<tr><td align=\"left\">Billing.vbp</td><td class=\"pass\">Pass</td>"));
}

TEST_F(BatchReportTest, ReportsBesideTheProjectsAreLinkedByTheirPathOnThisMachine) {
    Review("Billing", 0);
    m_criteria.SetUseProjectFolderReports(true);
    EXPECT_THAT(
        Report(),
        HasSubstr(
            "<a href=\"" + (m_folder.HostPath() / "Dorvik" / "Billing_Dorvik.html").string() +
            "\">Billing.vbp</a>"));
}

TEST_F(BatchReportTest, WithoutAToleranceEveryProjectPasses) {
    Review("Billing", 3, /*withLimit=*/false);
    EXPECT_THAT(Report(), HasSubstr("</a></td><td class=\"pass\">Pass</td><td>3</td>"));
}

TEST_F(BatchReportTest, ExcludedCategoriesAreNotAmongThoseIncluded) {
    for (const std::int32_t id : {7, 8}) {
        auto category = std::make_shared<CategoryItem>();
        category->SetID(id);
        category->SetTitle("Category " + std::to_string(id));
        m_categories.Add(category, false);
    }
    m_engine.Initialise(m_severities, m_categories);
    m_criteria.LoadCriteria().AddExcludedCategoryID(7);
    Review("Billing", 0);
    const std::string page = Report();
    EXPECT_THAT(page, Not(HasSubstr("Category 7")));
    EXPECT_THAT(page, HasSubstr("<tr><td colspan=\"2\">Category 8</td></tr></table></body>"));
}

TEST_F(BatchReportTest, ProgressTellsThatAReportIsMade) {
    Review("Billing", 0);
    Report();
    EXPECT_EQ(m_progress.Action(), test::ProgressAction::GeneratingReport);
    EXPECT_EQ(m_progress.CurrentProject(), 0);
    EXPECT_THAT(m_states, IsEmpty()) << "it is one step, which cannot be cancelled";
}

class SortIndexTest : public test::ReportedReviewFixture {};

TEST_F(SortIndexTest, GoesByTheNamesOfTheFilesWithoutRegardToCase) {
    AddProject("b", "z\\");
    AddProject("C", "a\\");
    AddProject("A", "m\\");
    EXPECT_THAT(modSortIndex::MakeSortIndex(m_criteria.ProjectList()), ElementsAre(3, 1, 2));
}

TEST_F(SortIndexTest, ProjectsOfOneNameStandNextToEachOtherInTheOrderOfTheList) {
    AddProject("App", "z\\");
    AddProject("Zoo");
    AddProject("APP", "a\\");
    AddProject("app", "m\\");
    EXPECT_THAT(modSortIndex::MakeSortIndex(m_criteria.ProjectList()), ElementsAre(1, 3, 4, 2));
}

TEST_F(SortIndexTest, ComparesTheLowerCaseForms) {
    AddProject("Bz");
    AddProject("B_");
    // "_" stands before "z" but behind "Z".
    EXPECT_THAT(modSortIndex::MakeSortIndex(m_criteria.ProjectList()), ElementsAre(2, 1));
}

TEST_F(SortIndexTest, OfNoProjectsIsEmpty) {
    EXPECT_THAT(modSortIndex::MakeSortIndex(m_criteria.ProjectList()), IsEmpty());
}

TEST(modPassRate, CountsFailuresAndErrorsAgainst) {
    EXPECT_EQ(modPassRate::Text(2, 1, 0), "66.67%");
    EXPECT_EQ(modPassRate::Text(1, 0, 1), "50.00%");
    EXPECT_EQ(modPassRate::Text(0, 0, 3), "0.00%");
    EXPECT_EQ(modPassRate::Text(3, 0, 0), "100.00%");
}

TEST(modPassRate, OfNothingRaisesDivisionByZero) {
    try {
        modPassRate::Text(0, 0, 0);
        FAIL() << "nothing was raised";
    } catch (const BasicError& failure) {
        EXPECT_EQ(failure.Number(), 11);
    }
}

}  // namespace
}  // namespace dorvik
