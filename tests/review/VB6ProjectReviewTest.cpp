#include "review/VB6ProjectReview.h"

#include "ReviewRun.h"
#include "SteppedReview.h"
#include "platform/host/modFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::ModuleWith;
using test::ProjectState;
using test::ReviewRun;
using test::SteppedReview;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kOneModule = "Module=modA; modA.bas\nType=Exe\nName=\"P\"\n";

TEST(VB6ProjectReview, StatesOfAProjectWithNamingConventionsInTheirOrder) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    run.Criteria().LoadCriteria().SetNamingConventions(true);
    SteppedReview review(run);
    EXPECT_THAT(
        review.StatesToTheEnd(),
        ElementsAre(
            ProjectState::BeginLoadReferences,
            ProjectState::LoadTypeLibReference,
            ProjectState::BeginLoadComponents,
            ProjectState::BeginPrescan,
            ProjectState::PrescanFile,
            ProjectState::BeginProject,
            ProjectState::Reference,
            ProjectState::BeginSourceFiles,
            ProjectState::LoadSourceFile,
            ProjectState::SourceFileTick,
            ProjectState::EndSourceFile,
            ProjectState::EndSourceFiles,
            ProjectState::EndProject));
}

TEST(VB6ProjectReview, WithoutNamingConventionsNoTypeLibraryIsTouched) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    SteppedReview review(run);
    EXPECT_EQ(review.State(), ProjectState::BeginProject);
    EXPECT_THAT(
        review.StatesToTheEnd(),
        ElementsAre(
            ProjectState::BeginProject,
            ProjectState::Reference,
            ProjectState::BeginSourceFiles,
            ProjectState::LoadSourceFile,
            ProjectState::SourceFileTick,
            ProjectState::EndSourceFile,
            ProjectState::EndSourceFiles,
            ProjectState::EndProject));
    const VirtualProject& project = *run.Criteria().ProjectList().Item(1);
    EXPECT_EQ(
        project.Outcome().ScanErrors + project.Outcome().ReferenceErrors +
            project.Outcome().ComponentErrors,
        0);
    EXPECT_EQ(project.Outcome().ReviewStatus, 0);
}

TEST(VB6ProjectReview, ProjectWithoutReferencesOrComponentsPassesTheTypeLibrariesInTwoSteps) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    run.Criteria().LoadCriteria().SetNamingConventions(true);
    SteppedReview review(run);
    run.Criteria().ProjectList().Item(1)->References().Clear();  // the three that every project has
    EXPECT_EQ(review.State(), ProjectState::BeginLoadReferences);
    review.Step();
    EXPECT_EQ(review.State(), ProjectState::BeginLoadComponents);
    review.Step();
    EXPECT_EQ(review.State(), ProjectState::BeginPrescan);
}

TEST(VB6ProjectReview, ProjectWithoutSelectedFileFiresProjectEventsOnly) {
    ReviewRun run;
    run.AddProject("P.vbp", "Type=Exe\nName=\"P\"\n");
    SteppedReview review(run);
    EXPECT_THAT(
        review.StatesToTheEnd(),
        ElementsAre(
            ProjectState::BeginProject,
            ProjectState::Reference,
            ProjectState::BeginSourceFiles,
            ProjectState::EndSourceFiles,
            ProjectState::EndProject));
    EXPECT_THAT(run.Query("P", "SELECT Type FROM SourceFiles"), ElementsAre("Project"));
}

TEST(VB6ProjectReview, FileThatCannotBeConnectedIsLoggedAndTheNextFileFollows) {
    ReviewRun run;
    run.AddProject(
        "P.vbp", "Module=modGone; modGone.bas\nModule=modA; modA.bas\nType=Exe\nName=\"P\"\n");
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    EXPECT_EQ(run.Run(), SliceResult::Complete);
    const VirtualProject& project = *run.Criteria().ProjectList().Item(1);
    EXPECT_EQ(project.Outcome().FileErrors, 1);
    EXPECT_EQ(project.Outcome().ReviewStatus, 1);
    ASSERT_EQ(project.Outcome().UnreviewedFiles.size(), 1U);
    EXPECT_THAT(project.Outcome().UnreviewedFiles.front().Filename, EndsWith("modGone.bas"));
    EXPECT_EQ(project.Outcome().UnreviewedFiles.front().Status, SourceFileStatus::NotFound);
    const std::vector<std::string> log = run.Log("P");
    EXPECT_THAT(log, Contains(EndsWith("modGone.bas review incomplete due to unexpected error.")));
    EXPECT_THAT(log, Contains(EndsWith("modA.bas successfully reviewed.")));
    EXPECT_THAT(log, Contains("1 error(s) reviewing source files."));
    // The file is known to the results, but nothing in it was seen.
    EXPECT_THAT(
        run.Query("P", "SELECT Name FROM SourceFiles"), ElementsAre("P", "modGone", "modA"));
    EXPECT_THAT(run.Query("P", "SELECT Name FROM Procedures"), ElementsAre("Declarations", "Work"));
}

/// Three modules, of which the first leaves a procedure open at its end.
void AddOpenProcedure(ReviewRun& run) {
    run.AddProject(
        "P.vbp",
        "Module=modA; modA.bas\nModule=modB; modB.bas\nModule=modC; "
        "modC.bas\nType=Exe\nName=\"P\"\n");
    run.AddFile("modA.bas", "Attribute VB_Name = \"modA\"\nPublic Sub NeverEnds()\n");
    run.AddFile("modB.bas", ModuleWith("modB", ""));
    run.AddFile("modC.bas", ModuleWith("modC", ""));
}

TEST(VB6ProjectReview, ObjectThatAFileLeavesOpenIsDetachedAtItsEndAndCostsNoOtherFile) {
    ReviewRun run;
    AddOpenProcedure(run);
    EXPECT_EQ(run.Run(), SliceResult::Complete);
    const std::vector<std::string> log = run.Log("P");
    for (const char* const file : {"modA", "modB", "modC"}) {
        EXPECT_THAT(log, Contains(EndsWith(file + std::string(".bas successfully reviewed."))));
    }
    EXPECT_THAT(
        log,
        Contains(
            run.Folder().Path("modA.bas") +
            " left attached at its end, and now detached: Procedure"));
    EXPECT_THAT(
        run.Query("P", "SELECT Name FROM Procedures WHERE Name <> 'Declarations'"),
        ElementsAre("NeverEnds", "Work", "Work"));
}

TEST(VB6ProjectReview, FormWithAPropertyTwiceIsNamedAndTheNextFormIsReviewedWhole) {
    ReviewRun run;
    run.SetRules({{"No Stop", "\\bStop\\b"}});
    run.AddProject("P.vbp", "Form=frmA.frm\nForm=frmB.frm\nType=Exe\nName=\"P\"\n");
    run.AddFile(
        "frmA.frm",
        "VERSION 5.00\nBegin VB.Form frmA\n   Begin My.Grid grd\n      Rows = 1\n"
        "      Rows = 2\n   End\nEnd\nAttribute VB_Name = \"frmA\"\nSub A()\nStop\nEnd Sub\n");
    run.AddFile(
        "frmB.frm",
        "VERSION 5.00\nBegin VB.Form frmB\n   Begin VB.Label lbl\n   End\nEnd\n"
        "Attribute VB_Name = \"frmB\"\nSub B()\nStop\nEnd Sub\n");
    EXPECT_EQ(run.Run(), SliceResult::Complete);
    EXPECT_EQ(run.Query("P", "SELECT Title FROM Violations").size(), 2U);
    const VirtualProject& project = *run.Criteria().ProjectList().Item(1);
    EXPECT_TRUE(project.Outcome().UnreviewedFiles.empty());
    ASSERT_EQ(project.Outcome().CutLayouts.size(), 1U);
    EXPECT_THAT(project.Outcome().CutLayouts.front().Filename, EndsWith("frmA.frm"));
    const std::string clause = "in line 5 the property 'Rows' of 'grd' is set twice";
    EXPECT_EQ(project.Outcome().CutLayouts.front().Fault.Clause(), clause);
    const std::string form = run.Folder().Path("frmA.frm");
    EXPECT_THAT(
        run.Log("P"),
        AllOf(
            Contains(form + ": the layout was read only in part, because " + clause + "."),
            Contains(form + " left attached at its end, and now detached: Control")));
}

TEST(VB6ProjectReview, FailureWhileALineIsReadIsAFailureOfTheFile) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    std::string body;
    for (int line = 0; line < 500; ++line) {
        body += "x = 1\n";
    }
    run.AddFile("modA.bas", ModuleWith("modA", body));
    VirtualProject& project = *run.Criteria().ProjectList().Item(1);
    run.Run([&](const ProgressInfo& progress, bool&) {
        if (progress.SourceFilePercentage() >= 50) {
            project.SourceFiles().Item(1)->Disconnect();
        }
    });
    ASSERT_EQ(project.Outcome().UnreviewedFiles.size(), 1U);
    EXPECT_EQ(project.Outcome().UnreviewedFiles.front().Status, SourceFileStatus::UnexpectedError);
    EXPECT_GT(project.Outcome().UnreviewedFiles.front().LastLine, 200);
    EXPECT_EQ(project.Outcome().FileErrors, 1);
    EXPECT_EQ(project.Outcome().ReviewStatus, 1);
    EXPECT_THAT(run.Log("P"), Contains("1 error(s) reviewing source files."));
    EXPECT_THAT(
        run.Query("P", "SELECT CyclomaticComplexity FROM SourceFiles WHERE Name = 'modA'"),
        ElementsAre(""));
}

TEST(VB6ProjectReview, SecondReviewThatIsCleanKnowsNothingOfTheErrorsOfTheFirst) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    run.Criteria().SetClearLogBeforeReview(true);
    run.Run();
    EXPECT_THAT(run.Log("P"), Contains("Unexpected error(s) encountered during review."));
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    EXPECT_EQ(run.Run(), SliceResult::Complete);
    EXPECT_THAT(run.Log("P"), Contains("Project reviewed successfully."));
    EXPECT_TRUE(run.Criteria().ProjectList().Item(1)->Outcome().UnreviewedFiles.empty());
}

TEST(VB6ProjectReview, KnownFaultThatIsKeptCostsTheNextFileThatOpensOneAndNoOther) {
    ReviewRun run;
    AddOpenProcedure(run);
    run.Criteria().SetKeepsKnownFaults(true);
    EXPECT_EQ(run.Run(), SliceResult::Complete);
    const std::vector<std::string> log = run.Log("P");
    EXPECT_THAT(log, Contains(EndsWith("modA.bas successfully reviewed.")));
    EXPECT_THAT(log, Contains(EndsWith("modB.bas review incomplete due to unexpected error.")));
    EXPECT_THAT(log, Contains(EndsWith("modC.bas successfully reviewed.")));
}

TEST(VB6ProjectReview, CancelWhenAFileHasJustBeenOpenedMakesNoParser) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    SteppedReview review(run);
    while (review.State() != ProjectState::LoadSourceFile) {
        review.Step();
    }
    const auto file = run.Criteria().ProjectList().Item(1)->SourceFiles().Item(1);
    review.Cancel = true;
    EXPECT_EQ(review.Step(), SliceResult::Aborted);
    EXPECT_EQ(review.State(), ProjectState::LoadSourceFile);
    EXPECT_FALSE(run.HasResults("P"));
    EXPECT_EQ(run.Log("P").back(), "Review aborted by user.");
    // Nothing of the file has been read, and it is still open: it goes with the project.
    SourceLine line;
    ASSERT_TRUE(file->GetNextSourceLine(line));
    EXPECT_EQ(line.Logical, "Attribute VB_Name = \"modA\"");
    EXPECT_EQ(review.Step(), SliceResult::Aborted) << "no tick runs any more";
    ASSERT_TRUE(file->GetNextSourceLine(line));
    EXPECT_EQ(line.Logical, "Option Explicit");
}

TEST(VB6ProjectReview, ASecondAbortIsLoggedAndDoesNoHarm) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    SteppedReview review(run);
    review.Step();
    review.Review().AbortReview();
    EXPECT_FALSE(run.HasResults("P"));
    EXPECT_EQ(run.Log("P").back(), "Review aborted by user.");
    const std::size_t lines = run.Log("P").size();
    review.Review().AbortReview();
    EXPECT_FALSE(run.HasResults("P"));
    // The log of the review is closed by then.
    EXPECT_EQ(run.Log("P").size(), lines);
    EXPECT_THAT(run.Folder().Read("user\\Error.log"), HasSubstr("Review aborted by user."));
}

TEST(VB6ProjectReview, ReportsOfEveryFileCountOneMoreForTheProjectReport) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    run.Criteria().SetReportOption(2);
    SteppedReview review(run);
    while (review.State() != ProjectState::LoadSourceFile) {
        review.Step();
    }
    EXPECT_EQ(review.Progress().NumReports(), 2);
}

TEST(VB6ProjectReview, ReviewLogOfACleanReview) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    run.Run();
    EXPECT_THAT(
        run.Log("P"),
        ElementsAre(
            "Project: " + run.Folder().Path("P.vbp"),
            "Review start date: Saturday, 21 November 2026 14:05:09",
            "Review: All files.",
            run.Folder().Path("modA.bas") + " successfully reviewed.",
            "Review end date: Saturday, 21 November 2026 14:05:09",
            "Review complete.",
            "Project reviewed successfully."));
}

TEST(VB6ProjectReview, LibrariesThatCannotBeLoadedAreLoggedAndCounted) {
    ReviewRun run;
    run.AddProject(
        "P.vbp",
        "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; "
        "MSCOMCTL.OCX\nReference=*\\AOther.vbp\nType=Exe\nName=\"P\"\n");
    run.Criteria().LoadCriteria().SetNamingConventions(true);
    run.Run();
    const std::vector<std::string> log = run.Log("P");
    EXPECT_THAT(log, Contains("Failed to load reference 'Visual Basic For Applications'"));
    EXPECT_THAT(log, Contains("Failed to load component 'MSCOMCTL.OCX'"));
    EXPECT_THAT(log, Contains("Unexpected error(s) encountered during review."));
    EXPECT_THAT(log, Contains("1 error(s) loading components."));
    EXPECT_THAT(log, Contains("4 error(s) loading references."));
}

TEST(VB6ProjectReview, FileThatCannotBeScannedIsCountedAndTheScanContinues) {
    ReviewRun run;
    run.AddProject(
        "P.vbp", "Module=modGone; modGone.bas\nModule=modA; modA.bas\nType=Exe\nName=\"P\"\n");
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    run.Criteria().LoadCriteria().SetNamingConventions(true);
    run.Run();
    EXPECT_EQ(run.Criteria().ProjectList().Item(1)->Outcome().ScanErrors, 1);
    EXPECT_THAT(
        run.Log("P"),
        Contains(
            "Failed to extract global names for source file " + run.Folder().Path("modGone.bas")));
}

TEST(VB6ProjectReview, MissingProjectKeepsItsStatusAndLeavesNoResults) {
    ReviewRun run;
    run.AddProject("P.vbp", "");
    modFiles::DeleteFile(run.Folder().Path("P.vbp"));
    EXPECT_EQ(run.Run(), SliceResult::Complete);
    EXPECT_EQ(run.Criteria().ProjectList().Item(1)->Outcome().ReviewStatus, 3);
    EXPECT_FALSE(run.HasResults("P"));
}

TEST(VB6ProjectReview, TwoProjectsEachHaveTheirOwnResults) {
    ReviewRun run;
    run.SetRules({{"No Stop", "\\bStop\\b"}});
    run.AddProject("P.vbp", kOneModule);
    run.AddProject("Q.vbp", "Module=modB; modB.bas\nType=Exe\nName=\"Q\"\n");
    run.AddFile("modA.bas", ModuleWith("modA", "Stop\n"));
    run.AddFile("modB.bas", ModuleWith("modB", "    Stop: Stop\n"));
    run.Run();
    EXPECT_EQ(run.Query("P", "SELECT Title FROM Violations").size(), 1U);
    EXPECT_EQ(run.Query("Q", "SELECT Title FROM Violations").size(), 2U);
}

TEST(VB6ProjectReview, CancelInTheMiddleOfAFileLeavesNoResults) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    std::string body;
    for (int line = 0; line < 500; ++line) {
        body += "x = 1\n";
    }
    run.AddFile("modA.bas", ModuleWith("modA", body));
    const SliceResult result = run.Run([](const ProgressInfo& progress, bool& cancel) {
        cancel = progress.SourceFilePercentage() >= 50;
    });
    EXPECT_EQ(result, SliceResult::Aborted);
    EXPECT_FALSE(run.HasResults("P"));
    EXPECT_FALSE(modFiles::FileExists(run.Folder().Path("Dorvik\\P_DORVIK.mdb-wal")));
}

TEST(VB6ProjectReview, ProjectWithFilesOfWhichNoneIsSelectedFiresProjectEventsOnly) {
    ReviewRun run;
    run.AddProject("P.vbp", kOneModule);
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    VirtualProject& project = *run.Criteria().ProjectList().Item(1);
    ASSERT_EQ(project.LoadProject(project.Filename()), ProjectLoadStatus::Good);
    run.Criteria().SetReviewType(ReviewType_IDE);
    SteppedReview review(run);
    EXPECT_THAT(
        review.StatesToTheEnd(),
        ElementsAre(
            ProjectState::BeginProject,
            ProjectState::Reference,
            ProjectState::BeginSourceFiles,
            ProjectState::EndSourceFiles,
            ProjectState::EndProject));
    EXPECT_THAT(run.Query("P", "SELECT Type FROM SourceFiles"), ElementsAre("Project"));
    EXPECT_THAT(run.Log("P"), Contains("Review: Selected files."));
}

TEST(VB6ProjectReview, OpenProjectsAreTakenAsTheyAreWithTheFilesSelected) {
    ReviewRun run;
    run.AddProject("P.vbp", "Module=modA; modA.bas\nModule=modB; modB.bas\nName=\"P\"\n");
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    run.AddFile("modB.bas", ModuleWith("modB", ""));
    VirtualProject& project = *run.Criteria().ProjectList().Item(1);
    project.LoadProject(project.Filename());
    project.SourceFiles().SetSelected(2, true);
    run.Criteria().SetReviewType(ReviewType_IDE);
    run.Run();
    EXPECT_THAT(run.Query("P", "SELECT Name FROM SourceFiles"), ElementsAre("P", "modB"));
}

TEST(VB6ProjectReview, AllFilesAreScannedNotOnlyTheSelectedOnes) {
    ReviewRun run;
    run.AddProject("P.vbp", "Module=modA; modA.bas\nModule=modGone; modGone.bas\nName=\"P\"\n");
    run.AddFile("modA.bas", ModuleWith("modA", ""));
    VirtualProject& project = *run.Criteria().ProjectList().Item(1);
    project.LoadProject(project.Filename());
    project.SourceFiles().SetSelected(1, true);
    run.Criteria().SetReviewType(ReviewType_IDE);
    run.Criteria().LoadCriteria().SetNamingConventions(true);
    run.Run();
    EXPECT_EQ(project.Outcome().ScanErrors, 1);
    EXPECT_EQ(project.Outcome().FileErrors, 0);
}

TEST(VB6ProjectReview, ListenerThatFailsWhileAFileIsClosedEndsTheProjectOnly) {
    ReviewRun run;
    run.AddProject("P.vbp", "Module=modGone; modGone.bas\nType=Exe\nName=\"P\"\n");
    SteppedReview review(run);
    while (review.State() != ProjectState::LoadSourceFile) {
        review.Step();
    }
    review.Fail = true;
    EXPECT_EQ(review.Step(), SliceResult::Failed);
    EXPECT_THAT(run.Log("P"), Contains("Review terminated due to unexpected error."));
    EXPECT_FALSE(run.HasResults("P"));
}

}  // namespace

}  // namespace dorvik
