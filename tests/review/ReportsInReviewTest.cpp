#include "ReviewRun.h"
#include "platform/host/modFiles.h"
#include "reports/classic/ReportsEngine.h"
#include "support/ProgressAction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace dorvik {
namespace {

using test::ModuleWith;
using test::ProgressAction;
using test::ReviewRun;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Le;
using testing::Not;

/// A review of the projects "A" and, on request, "B", with one rule.
class ReportsInReview : public testing::Test {
protected:
    ReportsInReview() {
        m_run.SetRules({{"No Stop", R"(\bStop\b)"}});
        m_run.AddProject("A.vbp", "Type=Exe\nModule=modA; modA.bas\nName=\"A\"\n");
        m_run.AddFile("modA.bas", ModuleWith("modA", "    Stop\n"));
        m_run.Criteria().SetUseProjectFolderReports(true);
        m_run.Criteria().SetReportOption(1);
    }

    void AddSecondProject() {
        m_run.AddProject("B.vbp", "Type=Exe\nModule=modB; modB.bas\nName=\"B\"\n");
        m_run.AddFile("modB.bas", ModuleWith("modB", "    Beep\n"));
    }
    void MakeBatch() {
        m_run.Criteria().SetWritesBatchReport(true);
        m_run.Criteria().SetBatchTitle("Night");
        m_run.Criteria().SetBatchFilename(m_run.Folder().Path("Night.batch"));
    }

    std::string Page(const std::string& name) { return m_run.Folder().Read("Dorvik\\" + name); }
    std::string ErrorLog() { return m_run.Folder().Read("user\\Error.log"); }

    static constexpr const char* kBatchPage = "Night_batch_BatchSummary.html";

    ReviewRun m_run;
};

TEST_F(ReportsInReview, TheEndOfAProjectWritesItsReport) {
    EXPECT_EQ(m_run.Run(), SliceResult::Complete);
    const std::string page = Page("A_Dorvik.html");
    EXPECT_THAT(page, HasSubstr("<h1>A.vbp</h1>"));
    EXPECT_THAT(page, HasSubstr("<td align=\"left\">modA.bas</td>"));
    EXPECT_THAT(page, HasSubstr("Reviewed By</td><td align=\"left\" width=\"70%\">reviewer</td>"));
    EXPECT_THAT(page, HasSubstr("<td width=\"60%\">Test rules</td>"));
    EXPECT_THAT(
        page,
        HasSubstr(
            "<td align=\"left\">Rulebase Filename</td><td>" +
            (m_run.Folder().HostPath() / "Rules.dvk").string() + "</td>"));
    EXPECT_EQ(Page("modA_modA_Detail.html"), "");
}

TEST_F(ReportsInReview, OptionNoneWritesNoProjectReport) {
    m_run.Criteria().SetReportOption(0);
    EXPECT_EQ(m_run.Run(), SliceResult::Complete);
    EXPECT_EQ(Page("A_Dorvik.html"), "");
}

TEST_F(ReportsInReview, OptionDetailedWritesAPageForEachFile) {
    m_run.Criteria().SetReportOption(2);
    EXPECT_EQ(m_run.Run(), SliceResult::Complete);
    EXPECT_THAT(Page("A_Dorvik.html"), HasSubstr("href=\"modA_modA_Detail.html\""));
    EXPECT_THAT(Page("modA_modA_Detail.html"), HasSubstr("Stop"));
    EXPECT_THAT(Page("A_A_Detail.html"), HasSubstr("<h1>A.vbp</h1>"));
}

TEST_F(ReportsInReview, AFileThatCannotBeReadIsAnErrorWithoutAPage) {
    m_run.Criteria().SetReportOption(2);
    m_run.AddProject(
        "C.vbp",
        "Type=Exe\nModule=modA; modA.bas\nModule=modLost; "
        "modLost.bas\nForm=frmLost.frm\nName=\"C\"\n");
    EXPECT_EQ(m_run.Run(), SliceResult::Complete);
    const std::string page = Page("C_Dorvik.html");
    for (const std::string file : {"modLost.bas", "frmLost.frm"}) {
        EXPECT_THAT(
            page,
            HasSubstr(
                "<tr><td align=\"left\">" + file +
                "</td><td align=\"center\" class=\"error\">Error</td><td colspan=\"3\" "
                "align=\"left\" class=\"error\">Failed To Open Source File</td></tr>"));
    }
    EXPECT_THAT(page, HasSubstr("Total Errors</td><td class=\"error\">2</td>"));
    EXPECT_EQ(Page("modLost_modLost_Detail.html"), "");
}

TEST_F(ReportsInReview, ProgressShowsTheReportsAndStaysWithinAHundredPercent) {
    m_run.Criteria().SetReportOption(2);
    std::vector<int> percentages;
    std::vector<std::string> reported;
    m_run.Run([&](const ProgressInfo& progress, bool&) {
        percentages.push_back(progress.ProjectPercentage());
        percentages.push_back(progress.ReviewPercentage());
        if (progress.Action() == ProgressAction::GeneratingReport) {
            reported.push_back(progress.SourceFileName());
        }
    });
    EXPECT_THAT(percentages, Each(Le(100)));
    EXPECT_THAT(reported, testing::Contains("modA"));
    EXPECT_THAT(reported, testing::Contains("A"));
}

TEST_F(ReportsInReview, DetailedReportsToComeAreOneForEachSelectedFileAndThatOfTheProject) {
    m_run.AddProject(
        "D.vbp",
        "Type=Exe\nModule=modA; modA.bas\nModule=modD; modD.bas\nModule=modE; "
        "modE.bas\nName=\"D\"\n");
    m_run.AddFile("modD.bas", ModuleWith("modD", ""));
    m_run.AddFile("modE.bas", ModuleWith("modE", ""));
    for (const auto& [option, expected] : {std::pair{2, std::vector{2, 4}}, {1, std::vector{0}}}) {
        m_run.Criteria().SetReportOption(option);
        std::vector<int> reports;  // each new number, while files are parsed
        m_run.Run([&](const ProgressInfo& progress, bool&) {
            const int number = progress.NumReports();
            if (progress.SourceFileName() == "modA" &&
                progress.Action() != ProgressAction::GeneratingReport &&
                (reports.empty() || reports.back() != number)) {
                reports.push_back(number);
            }
        });
        EXPECT_EQ(reports, expected) << option;
    }
}

TEST_F(ReportsInReview, TheEndOfABatchWritesItsReport) {
    AddSecondProject();
    MakeBatch();
    EXPECT_EQ(m_run.Run(), SliceResult::Complete);
    const std::string page = Page(kBatchPage);
    EXPECT_THAT(page, HasSubstr("<h1>Night</h1>"));
    EXPECT_THAT(page, HasSubstr(">A.vbp</a>"));
    EXPECT_THAT(page, HasSubstr(">B.vbp</a>"));
    EXPECT_THAT(page, HasSubstr("<td width=\"60%\">Test rules</td>"));
}

TEST_F(ReportsInReview, ABatchWithoutAFileNameHasAPageOfTheDefaultName) {
    AddSecondProject();
    m_run.Criteria().SetWritesBatchReport(true);
    m_run.Criteria().SetBatchTitle("Night");
    EXPECT_EQ(m_run.Run(), SliceResult::Complete);
    const std::string page = Page("Review_batch_BatchSummary.html");
    EXPECT_THAT(page, HasSubstr("<h1>Night</h1>"));
    EXPECT_THAT(page, HasSubstr(">B.vbp</a>"));
    EXPECT_THAT(ErrorLog(), IsEmpty());
}

TEST_F(ReportsInReview, ABatchWhosePageIsNotWantedHasNone) {
    MakeBatch();
    m_run.Criteria().SetWritesBatchReport(false);
    EXPECT_EQ(m_run.Run(), SliceResult::Complete);
    EXPECT_EQ(Page(kBatchPage), "");
    EXPECT_THAT(ErrorLog(), IsEmpty());
}

TEST_F(ReportsInReview, AReviewFromTheEnvironmentHasNoBatchReport) {
    MakeBatch();
    m_run.Criteria().SetReviewType(ReviewType_IDE);
    EXPECT_EQ(m_run.Run(), SliceResult::Complete);
    EXPECT_EQ(Page(kBatchPage), "");
}

TEST_F(ReportsInReview, ABatchIsReportedAlsoWithoutProjectReports) {
    MakeBatch();
    m_run.Criteria().SetReportOption(0);
    EXPECT_EQ(m_run.Run(), SliceResult::Complete);
    EXPECT_THAT(Page(kBatchPage), HasSubstr("<tr><td align=\"left\">A.vbp</td>"));
}

TEST_F(ReportsInReview, AnEmptyBatchWritesNoPageAndIsComplete) {
    for (const bool isListed : {true, false}) {
        MakeBatch();
        if (isListed) {
            m_run.Criteria().ProjectList().SetSelected(1, false);
        } else {
            m_run.Criteria().ProjectList().Clear();
            m_run.Criteria().SetBatchFilename("");
        }
        ReviewManager manager;
        std::vector<std::int32_t> actions;
        manager.SetProgressHandler(
            [&](const ProgressInfo& progress, bool&) { actions.push_back(progress.Action()); });
        manager.InitialiseReview(m_run.SharedCriteria());
        EXPECT_EQ(manager.ReviewTimeSlice(kWholeReview), SliceResult::Complete);
        EXPECT_THAT(
            actions,
            testing::ElementsAre(
                ProgressAction::LoadingRulebase,
                ProgressAction::InitialisingReview,
                ProgressAction::GeneratingReport))
            << "no project comes in between";
        EXPECT_FALSE(modFiles::FolderExists(m_run.Folder().Path("Dorvik")));
        EXPECT_THAT(manager.Reports().WrittenReports(), IsEmpty());
        EXPECT_THAT(manager.Reports().FailedReports(), testing::SizeIs(1));
        EXPECT_THAT(ErrorLog(), HasSubstr("Division by zero#ReportsEngine::CreateBatchReport"));
        modFiles::DeleteFile(m_run.Folder().Path("user\\Error.log"));
    }
}

TEST_F(ReportsInReview, CancelledInTheReportsOfAProjectTheNextProjectFollows) {
    AddSecondProject();
    MakeBatch();
    ReviewManager manager;
    manager.SetProgressHandler([](const ProgressInfo& progress, bool& cancel) {
        cancel =
            progress.Action() == ProgressAction::GeneratingReport && progress.CurrentProject() == 1;
    });
    manager.InitialiseReview(m_run.SharedCriteria());
    EXPECT_EQ(manager.ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_TRUE(manager.ReportsCancelled());
    EXPECT_THAT(
        m_run.Query("A", "SELECT [End] FROM Review"), testing::ElementsAre("20261121 140509"));
    EXPECT_EQ(Page("A_Dorvik.html"), "");
    EXPECT_THAT(Page("B_Dorvik.html"), HasSubstr("<h1>B.vbp</h1>"));
    EXPECT_THAT(Page(kBatchPage), HasSubstr(">B.vbp</a>"));
}

TEST_F(ReportsInReview, CancelledAtTheEndOfABatchTheReviewIsAborted) {
    MakeBatch();
    const SliceResult result = m_run.Run([](const ProgressInfo& progress, bool& cancel) {
        cancel =
            progress.Action() == ProgressAction::GeneratingReport && progress.CurrentProject() == 0;
    });
    EXPECT_EQ(result, SliceResult::Aborted);
    EXPECT_THAT(Page("A_Dorvik.html"), HasSubstr("</html>"));
    EXPECT_TRUE(m_run.HasResults("A"));
}

TEST_F(ReportsInReview, CancelledInAPageOfAFileNoPartOfItIsLeft) {
    m_run.Criteria().SetReportOption(2);
    bool begun = false;  // with the page of the project file, which comes first
    m_run.Run([&](const ProgressInfo& progress, bool& cancel) {
        begun = begun || (progress.Action() == ProgressAction::GeneratingReport &&
                          progress.SourceFileName() == "A");
        cancel = begun && progress.SourceFileName() == "modA";
    });
    EXPECT_TRUE(begun);
    EXPECT_THAT(Page("A_A_Detail.html"), HasSubstr("</html>")) << "was ready before";
    EXPECT_EQ(Page("modA_modA_Detail.html"), "");
    EXPECT_EQ(Page("A_Dorvik.html"), "");
}

}  // namespace
}  // namespace dorvik
