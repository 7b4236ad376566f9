#include "criteria/ProgressInfo.h"

#include "base/BasicError.h"
#include "platform/host/ScopedInstall.h"

#include <gtest/gtest.h>

#include <functional>

namespace dorvik {
namespace {

class StandingClock final : public IClock {
public:
    DateTime Now() override { return Time; }

    DateTime Time{2026, 11, 21, 14, 5, 9};
};

void ExpectOverflow(const std::function<void()>& body) {
    try {
        body();
        FAIL() << "nothing was raised";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), runtimeerror::kOverflow);
    }
}

/// In the second of four files of the first of two projects, a quarter through.
ProgressInfo InTheMiddle() {
    ProgressInfo progress;
    progress.BeginReview(2);
    progress.LoadProject("Billing", "C:\\b\\Billing.vbp", 4);
    progress.BeginProject();
    progress.BeginSourceFiles(4);
    progress.BeginSourceFile("frmMain", "C:\\b\\frmMain.frm", 100);
    progress.EndSourceFile();
    progress.BeginSourceFile("modMain", "C:\\b\\modMain.bas", 200);
    progress.UpdateSourceFileProgress(50);
    return progress;
}

TEST(ProgressInfo, ANewOneIsAllZeroAndUnchanged) {
    ProgressInfo progress;
    EXPECT_FALSE(progress.HasChanged());
    EXPECT_TRUE(progress.ReviewStartTime().IsZero());
    EXPECT_EQ(progress.NumProjects(), 0);
    EXPECT_EQ(progress.Action(), 0);
    EXPECT_EQ(progress.Process(), 0);
    EXPECT_EQ(progress.ReviewPercentage(), 0);
    EXPECT_EQ(progress.SourceFileName(), "");
}

TEST(ProgressInfo, TimesComeFromTheClockOfTheHost) {
    StandingClock clock;
    const ScopedInstall<IClock> installed(clock);
    ProgressInfo progress;
    progress.BeginReview(1);
    progress.LoadProject("P", "p.vbp", 1);
    progress.BeginSourceFile("f", "f.bas", 10);
    EXPECT_EQ(progress.ReviewStartTime(), clock.Time);
    EXPECT_EQ(progress.ProjectStartTime(), clock.Time);
    EXPECT_EQ(progress.SourceFileStartTime(), clock.Time);
    clock.Time.Second = 30;
    progress.EndSourceFile();
    progress.EndProject();
    progress.EndReview();
    EXPECT_EQ(progress.SourceFileEndTime(), clock.Time);
    EXPECT_EQ(progress.ProjectEndTime(), clock.Time);
    EXPECT_EQ(progress.ReviewEndTime(), clock.Time);
    EXPECT_NE(progress.ReviewStartTime(), clock.Time);
}

TEST(ProgressInfo, PercentagesAddUpFromFileToReview) {
    const ProgressInfo progress = InTheMiddle();
    EXPECT_EQ(progress.SourceFilePercentage(), 25);
    EXPECT_EQ(progress.ProjectPercentage(), 31);  // 0.25 + 0.25 * 0.25 = 0.3125
    EXPECT_EQ(progress.ReviewPercentage(), 16);   // 0.15625
    EXPECT_EQ(progress.CurrentProject(), 1);
    EXPECT_EQ(progress.CurrentSourceFile(), 2);
    EXPECT_EQ(progress.SourceFileName(), "modMain");
}

TEST(ProgressInfo, PercentagesRoundHalfToEven) {
    ProgressInfo progress;
    progress.BeginSourceFile("f", "f.bas", 200);
    progress.UpdateSourceFileProgress(25);
    EXPECT_EQ(progress.SourceFilePercentage(), 12) << "12.5";
    progress.UpdateSourceFileProgress(2);
    EXPECT_EQ(progress.SourceFilePercentage(), 14) << "13.5";
}

TEST(ProgressInfo, AFileOfSizeZeroHasNoPercentage) {
    ProgressInfo progress = InTheMiddle();
    progress.BeginSourceFile("empty", "empty.bas", 0);
    progress.UpdateSourceFileProgress(3);
    EXPECT_EQ(progress.SourceFilePercentage(), 0);
    progress.EndSourceFile();
    EXPECT_EQ(progress.SourceFilePercentage(), 0);
}

TEST(ProgressInfo, ATickBehindTheEndOfTheFileShowsInItsOwnPercentageOnly) {
    ProgressInfo progress;
    progress.BeginReview(1);
    progress.LoadProject("P", "p.vbp", 1);
    progress.BeginProject();
    progress.BeginSourceFile("f", "f.bas", 10);
    progress.UpdateSourceFileProgress(15);
    EXPECT_EQ(progress.SourceFilePercentage(), 150);
    EXPECT_EQ(progress.ProjectPercentage(), 100);
    EXPECT_EQ(progress.ReviewPercentage(), 100);
}

TEST(ProgressInfo, WithoutProjectsTheReviewStaysAtZero) {
    ProgressInfo progress;
    progress.BeginReview(0);
    progress.LoadProject("P", "p.vbp", 1);
    progress.BeginProject();
    progress.BeginSourceFile("f", "f.bas", 10);
    progress.EndSourceFile();
    EXPECT_EQ(progress.ProjectPercentage(), 100);
    EXPECT_EQ(progress.ReviewPercentage(), 0);
}

TEST(ProgressInfo, ReportsCountOnTheScaleOfTheProject) {
    ProgressInfo progress;
    progress.BeginReview(1);
    progress.LoadProject("P", "p.vbp", 2);
    progress.BeginProject();
    progress.BeginSourceFileReports(2);
    progress.BeginSourceFile("f", "f.bas", 10);
    progress.EndSourceFile();
    EXPECT_EQ(progress.ProjectPercentage(), 25);
    EXPECT_EQ(progress.NumReports(), 2);
}

TEST(ProgressInfo, ThePreScanDoesNotMoveTheProject) {
    ProgressInfo progress;
    progress.BeginReview(1);
    progress.LoadProject("P", "p.vbp", 2);
    progress.BeginPreScan();
    progress.PreScanFile("a", "a.bas");
    progress.PreScanFile("b", "b.bas");
    progress.RecalcPercentages();
    EXPECT_EQ(progress.CurrentSourceFile(), 2);
    EXPECT_EQ(progress.SourceFilePath(), "b.bas");
    EXPECT_EQ(progress.ProjectPercentage(), 0);
}

TEST(ProgressInfo, ANewProjectBeginsItsFilesAnew) {
    ProgressInfo progress = InTheMiddle();
    progress.LoadProject("Second", "second.vbp", 3);
    progress.BeginProject();
    progress.RecalcPercentages();
    EXPECT_EQ(progress.CurrentProject(), 2);
    EXPECT_EQ(progress.CurrentSourceFile(), 0);
    EXPECT_EQ(progress.ProjectPercentage(), 0);
    EXPECT_EQ(progress.ReviewPercentage(), 50);
    progress.BeginBatchReport();
    EXPECT_EQ(progress.CurrentProject(), 0);
}

TEST(ProgressInfo, TheChangedFlagIsClearedByReadingIt) {
    ProgressInfo progress;
    progress.BeginReview(1);
    EXPECT_TRUE(progress.HasChanged());
    EXPECT_FALSE(progress.HasChanged());
}

TEST(ProgressInfo, OperationsSetTheChangedFlagOrLeaveIt) {
    const struct {
        const char* Name;
        void (*Run)(ProgressInfo&);
        bool Changes;
    } rows[] = {
        {"BeginBatchReport", [](ProgressInfo& p) { p.BeginBatchReport(); }, true},
        {"LoadProject", [](ProgressInfo& p) { p.LoadProject("n", "p", 1); }, true},
        {"BeginProject", [](ProgressInfo& p) { p.BeginProject(); }, true},
        {"BeginSourceFiles", [](ProgressInfo& p) { p.BeginSourceFiles(9); }, false},
        {"BeginSourceFileReports", [](ProgressInfo& p) { p.BeginSourceFileReports(9); }, false},
        {"BeginSourceFile", [](ProgressInfo& p) { p.BeginSourceFile("n", "p", 1); }, true},
        {"EndSourceFile", [](ProgressInfo& p) { p.EndSourceFile(); }, true},
        {"EndProject", [](ProgressInfo& p) { p.EndProject(); }, true},
        {"EndReview", [](ProgressInfo& p) { p.EndReview(); }, true},
        {"BeginPreScan", [](ProgressInfo& p) { p.BeginPreScan(); }, true},
        {"PreScanFile", [](ProgressInfo& p) { p.PreScanFile("n", "p"); }, true},
        {"RecalcPercentages", [](ProgressInfo& p) { p.RecalcPercentages(); }, false},
        {"a tick within a percent", [](ProgressInfo& p) { p.UpdateSourceFileProgress(0); }, false},
        {"a tick of many percent", [](ProgressInfo& p) { p.UpdateSourceFileProgress(50); }, true},
    };
    for (const auto& row : rows) {
        ProgressInfo progress = InTheMiddle();
        progress.HasChanged();
        row.Run(progress);
        EXPECT_EQ(progress.HasChanged(), row.Changes) << row.Name;
    }
}

TEST(ProgressInfo, ASetterSetsTheChangedFlagOnlyForARealChange) {
    ProgressInfo progress;
    progress.SetAction(2);
    EXPECT_TRUE(progress.HasChanged());
    progress.SetAction(2);
    EXPECT_FALSE(progress.HasChanged());
    progress.SetProcess(1);
    EXPECT_TRUE(progress.HasChanged());
    progress.SetActionText("Reviewing");
    EXPECT_TRUE(progress.HasChanged());
    progress.SetActionText("REVIEWING");
    EXPECT_FALSE(progress.HasChanged()) << "a change of case alone";
    progress.SetProcessText("a");
    EXPECT_TRUE(progress.HasChanged());
    progress.SetProcessText("A");
    EXPECT_FALSE(progress.HasChanged());
    progress.SetLogMessage("line");
    EXPECT_TRUE(progress.HasChanged());
    progress.SetLogMessage("line");
    EXPECT_TRUE(progress.HasChanged()) << "a message always counts";
}

TEST(ProgressInfo, CountersBeyondSixteenBitsOverflow) {
    ProgressInfo progress;
    progress.BeginReview(32767);
    ExpectOverflow([&] { progress.BeginReview(32768); });
    ExpectOverflow([&] { progress.LoadProject("n", "p", 40000); });
    ExpectOverflow([&] { progress.BeginSourceFiles(32768); });
    ExpectOverflow([&] { progress.BeginSourceFileReports(32768); });
    ProgressInfo files;
    for (int file = 0; file < 32767; ++file) {
        files.PreScanFile("n", "p");
    }
    EXPECT_EQ(files.CurrentSourceFile(), 32767);
    ExpectOverflow([&] { files.PreScanFile("n", "p"); });
}

}  // namespace
}  // namespace dorvik
