// What the single steps of a project review tell, count and give way to.
#include "RulesInReview.h"
#include "SteppedReview.h"
#include "platform/host/modFiles.h"
#include "support/ProgressAction.h"
#include "support/ScriptedInput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::ModuleWith;
using test::ProgressAction;
using test::ProjectState;
using test::ReviewRun;
using test::RulesInReview;
using test::Script;
using test::ScriptedInput;
using test::SteppedReview;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::Pair;

/// An open project of two modules and one component, whose type libraries are nowhere.
class ProjectSteps : public testing::Test {
protected:
    ProjectSteps() {
        m_run.AddProject(
            "P.vbp",
            "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX\n"
            "Module=modA; modA.bas\nModule=modB; modB.bas\nType=Exe\nName=\"P\"\n");
        m_run.AddFile("modA.bas", ModuleWith("modA", "x = 1\n"));
        m_run.AddFile("modB.bas", ModuleWith("modB", "x = 1\n"));
        m_run.Criteria().LoadCriteria().SetNamingConventions(true);
        Project().LoadProject(Project().Filename());
        Project().SourceFiles().SetSelected(1, true);
        Project().SourceFiles().SetSelected(2, true);
        m_run.Criteria().SetReviewType(ReviewType_IDE);
    }

    VirtualProject& Project() { return *m_run.Criteria().ProjectList().Item(1); }
    std::string ErrorLog() { return m_run.Folder().Read("user\\Error.log"); }

    /// From now on the review log cannot be written to: a folder has its name.
    void BlockTheLog() {
        const auto log = m_run.Folder().HostPath() / "Dorvik" / "P_DORVIK.txt";
        std::filesystem::remove(log);
        std::filesystem::create_directory(log);
    }

    ReviewRun m_run;
};

// ---- slices at a wrong moment ----

TEST_F(ProjectSteps, ASliceBeforeAProjectIsLoadedFails) {
    VB6ProjectReview review;
    EXPECT_EQ(review.ReviewTimeSlice(1), SliceResult::Failed);
    EXPECT_THAT(
        ErrorLog(),
        HasSubstr("A time slice was rejected: the review has not begun.#C_VB6ProjectReview::"
                  "ReviewTimeSlice"));
    EXPECT_EQ(review.LoadProject(1), 1) << "no review was initialised";
    EXPECT_EQ(review.ReviewTimeSlice(1), SliceResult::Failed);
}

TEST_F(ProjectSteps, ASliceAfterTheEndReturnsTheResultOfTheEnd) {
    SteppedReview review(m_run);
    EXPECT_EQ(review.Review().ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_EQ(review.Step(), SliceResult::Complete);
    EXPECT_EQ(review.Review().ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_THAT(
        ErrorLog(),
        HasSubstr("A time slice was rejected: the review has ended.#C_VB6ProjectReview::"
                  "ReviewTimeSlice"));
    review.Review().AbortReview();
    EXPECT_TRUE(m_run.HasResults("P")) << "there is nothing left to abort";
}

TEST_F(ProjectSteps, ASliceAfterAnAbortIsAborted) {
    SteppedReview review(m_run);
    review.StepTo(ProjectState::LoadSourceFile);
    review.Review().AbortReview();
    EXPECT_EQ(review.Step(), SliceResult::Aborted);
    EXPECT_EQ(review.State(), ProjectState::LoadSourceFile);
}

TEST_F(ProjectSteps, ASliceInsideASliceRunsNothing) {
    SteppedReview review(m_run);
    std::vector<SliceResult> inner;
    review.OnSignal = [&](const ProgressInfo&) {
        const ProjectState state = review.State();
        inner.push_back(review.Review().ReviewTimeSlice(kWholeReview));
        EXPECT_EQ(review.State(), state);
    };
    EXPECT_EQ(review.Review().ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_FALSE(inner.empty());
    EXPECT_THAT(inner, Each(SliceResult::Continue));
    EXPECT_THAT(m_run.Log("P"), Contains(EndsWith("modB.bas successfully reviewed.")));
}

// ---- the log cannot be written to ----

TEST_F(ProjectSteps, AnAbortThatCannotBeLoggedStillLeavesNoResults) {
    SteppedReview review(m_run);
    review.StepTo(ProjectState::LoadSourceFile);
    BlockTheLog();
    EXPECT_NO_THROW(review.Review().AbortReview());
    EXPECT_FALSE(m_run.HasResults("P"));
}

TEST_F(ProjectSteps, ACancelThatCannotBeLoggedStillLeavesNoResults) {
    SteppedReview review(m_run);
    review.StepTo(ProjectState::LoadSourceFile);
    BlockTheLog();
    review.Cancel = true;
    EXPECT_EQ(review.Step(), SliceResult::Aborted);
    EXPECT_FALSE(m_run.HasResults("P"));
}

TEST_F(ProjectSteps, AReviewThatIsNotEndedLeavesNoResults) {
    {
        SteppedReview review(m_run);
        review.StepTo(ProjectState::SourceFileTick);
        EXPECT_TRUE(m_run.HasResults("P"));
    }
    EXPECT_FALSE(m_run.HasResults("P"));
    EXPECT_EQ(m_run.Log("P").back(), "Review terminated due to unexpected error.");
}

TEST_F(ProjectSteps, AFailureAfterTheSignalOfALibraryIsCountedAndTheNextLibraryFollows) {
    SteppedReview review(m_run);
    BlockTheLog();
    for (int errors = 1; errors <= 3; ++errors) {  // the references that every project has
        EXPECT_EQ(review.Step(), SliceResult::Continue);
        EXPECT_EQ(review.State(), ProjectState::LoadTypeLibReference);
        EXPECT_EQ(Project().Outcome().ReferenceErrors, errors);
    }
    review.Step();
    EXPECT_EQ(review.State(), ProjectState::BeginLoadComponents);
    review.Step();
    EXPECT_EQ(review.State(), ProjectState::LoadTypeLibComponent);
    EXPECT_EQ(Project().Outcome().ComponentErrors, 1);
}

// ---- recovery ----

TEST_F(ProjectSteps, AnErrorAmongTheReferencesIsSkippedToTheSourceFiles) {
    m_run.Criteria().LoadCriteria().SetNamingConventions(false);
    Project().References().Add("{none}", nullptr);
    SteppedReview review(m_run);
    review.StepTo(ProjectState::Reference);
    ScriptedInput input;
    EXPECT_EQ(review.Step(), SliceResult::Continue);
    EXPECT_EQ(review.State(), ProjectState::BeginSourceFiles);
    EXPECT_EQ(input.Yields, 1);
    EXPECT_THAT(m_run.Log("P"), Contains(HasSubstr("#C_VB6ProjectReview::State_Reference")));
    EXPECT_EQ(review.Review().ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_THAT(m_run.Log("P"), Contains(EndsWith("modB.bas successfully reviewed.")));
    EXPECT_EQ(m_run.Log("P").back(), "Project reviewed successfully.") << "nothing was counted";
}

TEST_F(ProjectSteps, AnErrorInALibraryIsCountedInTheStatesOfItsKind) {
    Project().References().Clear();
    Project().References().Add("{none}", nullptr);
    Project().References().Add("{neither}", nullptr);
    Project().Components().Clear();
    Project().Components().Add("{none}", nullptr);
    Project().Components().Add("{neither}", nullptr);
    SteppedReview review(m_run);
    EXPECT_THAT(
        review.StatesToTheEnd(),
        ElementsAre(
            ProjectState::BeginLoadReferences,
            ProjectState::LoadTypeLibReference,
            ProjectState::BeginLoadComponents,
            ProjectState::LoadTypeLibComponent,
            ProjectState::BeginPrescan,
            ProjectState::PrescanFile,
            ProjectState::BeginProject,
            ProjectState::Reference,
            ProjectState::BeginSourceFiles,
            ProjectState::LoadSourceFile,
            ProjectState::SourceFileTick,
            ProjectState::EndSourceFile,
            ProjectState::LoadSourceFile,
            ProjectState::SourceFileTick,
            ProjectState::EndSourceFile,
            ProjectState::EndSourceFiles,
            ProjectState::EndProject));
    EXPECT_THAT(m_run.Log("P"), Contains("2 error(s) loading components."));
    EXPECT_THAT(m_run.Log("P"), Contains("2 error(s) loading references."));
}

// ---- counts ----

TEST_F(ProjectSteps, TheCountsOfErrorsAreLoggedInTheirOrder) {
    modFiles::DeleteFile(m_run.Folder().Path("modA.bas"));
    SteppedReview review(m_run);
    review.Review().ReviewTimeSlice(kWholeReview);
    const std::vector<std::string> log = m_run.Log("P");
    ASSERT_GT(log.size(), 6U);
    EXPECT_THAT(
        std::vector<std::string>(log.end() - 6, log.end()),
        ElementsAre(
            "Review complete.",
            "Unexpected error(s) encountered during review.",
            "1 error(s) loading components.",
            "3 error(s) loading references.",
            "1 error(s) extracting global names.",
            "1 error(s) reviewing source files."));
}

TEST_F(ProjectSteps, AnErrorOfAScanAloneSpoilsTheStatus) {
    Project().References().Clear();
    Project().Components().Clear();
    Project().SourceFiles().SetSelected(1, false);
    modFiles::DeleteFile(m_run.Folder().Path("modA.bas"));
    SteppedReview review(m_run);
    review.StepTo(ProjectState::PrescanFile);
    EXPECT_EQ(Project().Outcome().ScanErrors, 1);
    EXPECT_EQ(review.Review().ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_EQ(Project().Outcome().ReviewStatus, 1);
    const std::vector<std::string> log = m_run.Log("P");
    EXPECT_EQ(log.at(log.size() - 2), "Unexpected error(s) encountered during review.");
    EXPECT_EQ(log.back(), "1 error(s) extracting global names.");
}

TEST_F(ProjectSteps, AnErrorOfAReferenceAloneSpoilsTheStatus) {
    Project().Components().Clear();
    SteppedReview review(m_run);
    review.Review().ReviewTimeSlice(kWholeReview);
    EXPECT_EQ(Project().Outcome().ReviewStatus, 1);
    EXPECT_EQ(m_run.Log("P").back(), "3 error(s) loading references.");
}

TEST_F(ProjectSteps, AnErrorOfAComponentAloneSpoilsTheStatus) {
    Project().References().Clear();
    SteppedReview review(m_run);
    review.Review().ReviewTimeSlice(kWholeReview);
    EXPECT_EQ(Project().Outcome().ReviewStatus, 1);
    EXPECT_EQ(m_run.Log("P").back(), "1 error(s) loading components.");
}

TEST_F(ProjectSteps, AnErrorOfAFileAloneSpoilsTheStatus) {
    m_run.Criteria().LoadCriteria().SetNamingConventions(false);
    modFiles::DeleteFile(m_run.Folder().Path("modA.bas"));
    SteppedReview review(m_run);
    review.Review().ReviewTimeSlice(kWholeReview);
    EXPECT_EQ(Project().Outcome().ReviewStatus, 1);
    EXPECT_EQ(m_run.Log("P").back(), "1 error(s) reviewing source files.");
}

// ---- progress ----

TEST_F(ProjectSteps, EachPartOfTheReviewReportsItsAction) {
    SteppedReview review(m_run);
    std::vector<std::pair<ProjectState, std::int32_t>>
        told;  // state and action, where the action is new
    review.OnSignal = [&](const ProgressInfo& progress) {
        if (told.empty() || told.back().second != progress.Action()) {
            told.emplace_back(review.State(), progress.Action());
        }
    };
    review.Review().ReviewTimeSlice(kWholeReview);
    EXPECT_THAT(
        told,
        ElementsAre(
            Pair(ProjectState::BeginLoadReferences, ProgressAction::LoadingReferences),
            Pair(ProjectState::BeginLoadComponents, ProgressAction::LoadingComponents),
            Pair(ProjectState::BeginPrescan, ProgressAction::ExtractingNames),
            Pair(ProjectState::BeginProject, ProgressAction::Reviewing)));
}

TEST_F(ProjectSteps, TheScanIsAnnouncedAndCountsTheFiles) {
    SteppedReview review(m_run);
    review.StepTo(ProjectState::LoadTypeLibComponent);
    std::vector<std::int32_t> files;
    review.OnSignal = [&](const ProgressInfo& progress) {
        files.push_back(progress.CurrentSourceFile());
    };
    review.Step();
    ASSERT_EQ(review.State(), ProjectState::BeginPrescan);
    EXPECT_THAT(files, ElementsAre(0)) << "the last step of the components reports it";
    review.StepTo(ProjectState::BeginProject);
    EXPECT_THAT(files, ElementsAre(0, 1, 2));
    EXPECT_EQ(review.Progress().SourceFileName(), "modB");
}

TEST_F(ProjectSteps, ABegunProjectCountsItsFilesAnew) {
    SteppedReview review(m_run);
    review.StepTo(ProjectState::BeginProject);
    EXPECT_EQ(review.Progress().CurrentSourceFile(), 2);
    std::vector<std::int32_t> files;
    review.OnSignal = [&](const ProgressInfo& progress) {
        files.push_back(progress.CurrentSourceFile());
    };
    review.Step();
    EXPECT_THAT(files, ElementsAre(0));
}

TEST_F(ProjectSteps, TheSecondProjectOfABatchBeginsAtZeroPercent) {
    m_run.Criteria().SetReviewType(ReviewType_Batch);
    m_run.Criteria().LoadCriteria().SetNamingConventions(false);
    Project().ClearListProperties();
    m_run.AddProject("Q.vbp", "Module=modA; modA.bas\nModule=modB; modB.bas\nName=\"Q\"\n");
    std::vector<int> first;  // the first percentage in the first file of each project
    std::int32_t project = 0;
    m_run.Run([&](const ProgressInfo& progress, bool&) {
        if (progress.CurrentProject() != project && progress.CurrentSourceFile() == 1) {
            project = progress.CurrentProject();
            first.push_back(progress.ProjectPercentage());
        }
        EXPECT_LE(progress.CurrentSourceFile(), 2);
    });
    EXPECT_THAT(first, ElementsAre(0, testing::Le(50)));
}

// ---- giving way ----

TEST_F(ProjectSteps, EachStepGivesWayToInputOnceAndLongerWorkMoreOften) {
    SteppedReview review(m_run);
    ScriptedInput input;
    std::vector<std::pair<ProjectState, int>>
        yields;  // of each step, after the state in which it began
    auto result = SliceResult::Continue;
    while (result == SliceResult::Continue) {
        const ProjectState state = review.State();
        const int before = input.Yields;
        result = review.Step();
        yields.emplace_back(state, input.Yields - before);
    }
    EXPECT_EQ(result, SliceResult::Complete);
    for (const auto& [state, count] : yields) {
        if (state == ProjectState::BeginPrescan || state == ProjectState::PrescanFile) {
            // Three lines of each file, the last scan has none.
            EXPECT_THAT(count, testing::AnyOf(1, 3)) << testing::PrintToString(state);
        } else if (state == ProjectState::SourceFileTick) {
            EXPECT_GE(count, 1) << testing::PrintToString(state);
        } else {
            EXPECT_EQ(count, 1) << testing::PrintToString(state);
        }
    }
    EXPECT_EQ(yields.back(), std::pair(ProjectState::EndProject, 1))
        << "before the results are closed";
}

TEST_F(ProjectSteps, AFileThatCannotBeScannedGivesWayAllTheSame) {
    modFiles::DeleteFile(m_run.Folder().Path("modA.bas"));
    SteppedReview review(m_run);
    review.StepTo(ProjectState::BeginPrescan);
    ScriptedInput input;
    review.Step();
    EXPECT_EQ(Project().Outcome().ScanErrors, 1);
    EXPECT_EQ(input.Yields, 1);
}

TEST_F(ProjectSteps, AScriptGivesWayToInputWhereItSaysDoEvents) {
    const auto rules = std::make_shared<Rulebase>();
    const auto rule = std::make_shared<CodingConvention>();
    rule->SetTitle("Gives way");
    rule->SetCondition(Script("DoEvents\r\nDoEvents\r\nDorvik.DebugPrint \"continued\""));
    rule->AddParserEventID(1);
    rules->RuleLists().AddConvention(rule, true);
    m_run.Criteria().LoadCriteria().SetCodingConventions(true);
    SteppedReview review(m_run, rules);
    std::vector<basic::ScriptOrigin> origins;
    const std::string module = rules->RuleLists().CreateScriptFile(&origins);
    ASSERT_TRUE(review.Engine().LoadScript(module, std::move(origins)));
    review.StepTo(ProjectState::BeginProject);
    ScriptedInput input;
    int processed = 0;
    input.OnYield = [&] {
        ++processed;
    };
    review.Step();
    EXPECT_EQ(processed, 3) << "twice in the script, once after the step";
    EXPECT_THAT(m_run.Log("P"), Contains(HasSubstr("continued")));
}

// ---- places without a source line ----

TEST(LocationsInReview, ProjectLayoutAndControlHaveNoSourceLine) {
    RulesInReview review;
    review.AddCoding("Everywhere", {1, 6, 7, 28, 30}, Script("Dorvik.RaiseViolation"));
    review.Review().AddFile(
        "frmA.frm",
        "VERSION 5.00\nBegin VB.Form frmA\n   Begin VB.Label lblA\n      Caption = \"a\"\n   End\n"
        "End\nAttribute VB_Name = \"frmA\"\nOption Explicit\nSub Work()\nx = 1\nEnd Sub\n");
    review.RunProject("Type=Exe\nName=\"P\"\nForm=frmA.frm\n");
    const auto rows = [&](const std::string& column) {
        return review.Query("SELECT " + column + " FROM Violations");
    };
    EXPECT_THAT(rows("Loc"), ElementsAre("1", "2", "5", "4", "4"));
    EXPECT_THAT(rows("LineNum"), ElementsAre("0", "0", "0", "2", "3"));
    EXPECT_THAT(rows("SourceLine"), ElementsAre("", "", "", "Sub Work()", "x = 1"));
    EXPECT_THAT(rows("LocMember"), ElementsAre("(Project)", "(Layout)", "lblA", "Work", "Work"));
}

}  // namespace

}  // namespace dorvik
