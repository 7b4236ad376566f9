#include "review/ReviewManager.h"

#include "ReviewRun.h"
#include "base/BasicError.h"
#include "platform/host/modFiles.h"
#include "support/ProgressAction.h"
#include "support/RecordingMessageBox.h"
#include "support/ScriptedInput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::ProgressAction;
using test::ReviewRun;
using testing::ElementsAre;
using testing::HasSubstr;

/// The calls of a scripted project review, and its results.
struct SliceScript {
    std::vector<std::string> Calls;
    std::int32_t LoadResult = 0;
    std::vector<SliceResult> Slices{SliceResult::Complete};
    bool ThrowInSlice = false;
    std::function<void()> OnSlice;
};

class ScriptedReview final : public IProjectReview {
public:
    explicit ScriptedReview(SliceScript& script) : m_script(script) {}

    void HookupCallback(IProjectReviewEvents* callback) override {
        m_callback = callback;
        m_script.Calls.emplace_back("Hookup");
    }
    std::int32_t InitialiseReview(
        std::shared_ptr<ReviewCriteria>,
        ProgressInfo& progress,
        std::shared_ptr<Rulebase>,
        RuleEngine&,
        ReportsEngine&) override {
        m_progress = &progress;
        m_script.Calls.emplace_back("Initialise");
        return 0;
    }
    std::int32_t LoadProject(std::int32_t projectIndex) override {
        m_script.Calls.push_back("Load " + std::to_string(projectIndex));
        m_progress->LoadProject("P", "P.vbp", 1);
        return m_script.LoadResult;
    }
    SliceResult ReviewTimeSlice(std::int32_t ticks) override {
        m_script.Calls.push_back("Slice " + std::to_string(ticks));
        if (m_script.OnSlice) {
            m_script.OnSlice();
        }
        if (m_script.ThrowInSlice) {
            throw BasicError(6, "Overflow");
        }
        const SliceResult result = m_script.Slices.at(m_step);
        m_step = std::min(m_step + 1, m_script.Slices.size() - 1);
        return result;
    }
    void AbortReview() override { m_script.Calls.emplace_back("Abort"); }
    void UnhookCallback() override { m_script.Calls.emplace_back("Unhook"); }
    void Dispose() override { m_script.Calls.emplace_back("Dispose"); }

private:
    SliceScript& m_script;
    IProjectReviewEvents* m_callback = nullptr;
    ProgressInfo* m_progress = nullptr;
    std::size_t m_step = 0;
};

class ReviewManagerTest : public testing::Test {
protected:
    ReviewManagerTest() : m_manager([this] { return std::make_unique<ScriptedReview>(m_script); }) {
        m_run.AddProject("A.vbp", "Name=\"A\"\n");
        m_manager.InitialiseReview(m_run.SharedCriteria());
    }

    std::string ErrorLog() { return m_run.Folder().Read("user\\Error.log"); }

    ReviewRun m_run;
    SliceScript m_script;
    ReviewManager m_manager;
};

TEST_F(ReviewManagerTest, InitialiseReview_WithoutCriteriaReturnsOne) {
    ReviewManager manager;
    EXPECT_EQ(manager.InitialiseReview(nullptr), 1);
}

TEST_F(ReviewManagerTest, InitialiseReview_WithoutCriteriaLeavesTheManagerUnusable) {
    ReviewManager manager([this] { return std::make_unique<ScriptedReview>(m_script); });
    manager.InitialiseReview(nullptr);
    int signals = 0;
    manager.SetProgressHandler([&](const ProgressInfo&, bool&) { ++signals; });
    EXPECT_EQ(manager.ReviewTimeSlice(1), SliceResult::Failed);
    EXPECT_EQ(manager.ReviewTimeSlice(kWholeReview), SliceResult::Failed);
    EXPECT_EQ(signals, 0);
    EXPECT_EQ(manager.LoadedRulebase(), nullptr);
    EXPECT_TRUE(m_script.Calls.empty());
    EXPECT_THAT(
        ErrorLog(),
        HasSubstr("A time slice was rejected: the review has not begun.#C_ReviewManager::"
                  "ReviewTimeSlice"));
}

TEST_F(ReviewManagerTest, InitialiseReview_OfAReviewThatHasBegunIsRefused) {
    m_manager.ReviewTimeSlice(1);
    EXPECT_EQ(m_manager.InitialiseReview(m_run.SharedCriteria()), 1);
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Complete);
}

TEST_F(ReviewManagerTest, ReviewTimeSlice_AfterTheEndReturnsTheResultOfTheEndAndDoesNothing) {
    int signals = 0;
    for (const SliceResult end : {SliceResult::Complete, SliceResult::Aborted}) {
        ReviewManager manager([this] { return std::make_unique<ScriptedReview>(m_script); });
        m_script.Slices = {end};
        manager.InitialiseReview(m_run.SharedCriteria());
        manager.SetProgressHandler([&](const ProgressInfo&, bool&) { ++signals; });
        EXPECT_EQ(manager.ReviewTimeSlice(kWholeReview), end);
        m_script.Calls.clear();
        signals = 0;
        EXPECT_EQ(ErrorLog(), "");
        EXPECT_EQ(manager.ReviewTimeSlice(1), end);
        EXPECT_EQ(manager.ReviewTimeSlice(kWholeReview), end);
        EXPECT_EQ(signals, 0);
        EXPECT_TRUE(m_script.Calls.empty());
        EXPECT_THAT(
            ErrorLog(),
            HasSubstr("A time slice was rejected: the review has ended.#C_ReviewManager::"
                      "ReviewTimeSlice"));
        modFiles::DeleteFile(m_run.Folder().Path("user\\Error.log"));
    }
}

TEST_F(ReviewManagerTest, ReviewTimeSlice_AfterAFailureFails) {
    m_run.Criteria().LoadCriteria().SetRulebaseFile(m_run.Folder().Path("Nowhere.dvk"));
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Failed);
    m_run.SetRules({});
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Failed);
    EXPECT_EQ(m_manager.LoadedRulebase(), nullptr);
}

TEST_F(ReviewManagerTest, ReviewTimeSlice_InsideItselfRunsNothingAndTheReviewContinues) {
    std::vector<SliceResult> inner;
    m_script.OnSlice = [&] {
        inner.push_back(m_manager.ReviewTimeSlice(kWholeReview));
    };
    m_manager.SetProgressHandler(
        [&](const ProgressInfo&, bool&) { inner.push_back(m_manager.ReviewTimeSlice(1)); });
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_THAT(inner, testing::SizeIs(4));
    EXPECT_THAT(inner, testing::Each(SliceResult::Continue));
    EXPECT_THAT(
        m_script.Calls,
        ElementsAre("Hookup", "Initialise", "Load 1", "Slice 1", "Unhook", "Dispose"));
    EXPECT_THAT(
        ErrorLog(),
        HasSubstr("A time slice was rejected: another one is running.#C_ReviewManager::"
                  "ReviewTimeSlice"));
}

TEST_F(ReviewManagerTest, ReviewTimeSlice_OfZeroTicksRunsOneStep) {
    int signals = 0;
    m_manager.SetProgressHandler([&](const ProgressInfo&, bool&) { ++signals; });
    EXPECT_EQ(m_manager.ReviewTimeSlice(0), SliceResult::Continue);
    EXPECT_EQ(signals, 0);  // Start does nothing
    EXPECT_EQ(m_manager.ReviewTimeSlice(1), SliceResult::Continue);
    EXPECT_EQ(signals, 1);  // ShowLoadingRulebase reports that the rulebase is being loaded
    EXPECT_EQ(m_manager.LoadedRulebase(), nullptr);
    EXPECT_EQ(m_manager.ReviewTimeSlice(0), SliceResult::Continue);
    EXPECT_NE(m_manager.LoadedRulebase(), nullptr);  // by LoadRulebase
}

TEST_F(ReviewManagerTest, ReviewTimeSlice_WithoutLimitComesBackOnlyWithAResult) {
    m_script.Slices = {SliceResult::Continue, SliceResult::Continue, SliceResult::Complete};
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_THAT(
        m_script.Calls,
        ElementsAre(
            "Hookup",
            "Initialise",
            "Load 1",
            "Slice 1",
            "Slice 1",
            "Slice 1",
            "Unhook",
            "Dispose"));
}

TEST_F(ReviewManagerTest, NoProjectSelected_TheReviewIsCompleteWithoutAProjectReview) {
    m_run.Criteria().ProjectList().SetSelected(1, false);
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_TRUE(m_script.Calls.empty());
}

TEST_F(ReviewManagerTest, CancelWhileTheRulebaseIsAnnounced_LoadsNoRulebase) {
    m_manager.SetProgressHandler([](const ProgressInfo& progress, bool& cancel) {
        cancel = progress.Action() == ProgressAction::LoadingRulebase;
    });
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Aborted);
    EXPECT_EQ(m_manager.LoadedRulebase(), nullptr);
}

TEST_F(ReviewManagerTest, MissingRulebase_FailsTheReview) {
    m_run.Criteria().LoadCriteria().SetRulebaseFile(m_run.Folder().Path("Nowhere.dvk"));
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Failed);
}

TEST_F(ReviewManagerTest, ARulebaseThatCannotBeReadIsReportedInABoxInTheForegroundOnly) {
    m_run.Criteria().LoadCriteria().SetRulebaseFile(m_run.Folder().Write("Rules.dvk", "<no"));
    test::RecordingMessageBox box;
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Failed);
    EXPECT_THAT(box.Messages, testing::SizeIs(1));

    m_run.Criteria().SetBackgroundReview(true);
    ReviewManager background;
    background.InitialiseReview(m_run.SharedCriteria());
    EXPECT_EQ(background.ReviewTimeSlice(kWholeReview), SliceResult::Failed);
    EXPECT_THAT(box.Messages, testing::SizeIs(1)) << "a background review shows no box";
    EXPECT_THAT(
        ErrorLog(), HasSubstr(box.Messages.front().Text + "#C_ReviewManager::ReviewTimeSlice"));
}

TEST_F(ReviewManagerTest, TheRulebaseNamesItselfInTheLoadCriteria) {
    m_manager.ReviewTimeSlice(kWholeReview);
    EXPECT_EQ(m_run.Criteria().LoadCriteria().RulebaseTitle(), "Test rules");
    EXPECT_EQ(m_run.Criteria().LoadCriteria().RulebaseVersion(), "1.0.0001");
}

TEST_F(ReviewManagerTest, ProjectThatCannotBeLoaded_CostsOnlyItself) {
    m_run.AddProject("B.vbp", "Name=\"B\"\n");
    m_script.LoadResult = 1;
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_THAT(
        m_script.Calls,
        ElementsAre(
            "Hookup",
            "Initialise",
            "Load 1",
            "Unhook",
            "Dispose",
            "Hookup",
            "Initialise",
            "Load 2",
            "Unhook",
            "Dispose"));
}

TEST_F(ReviewManagerTest, ProjectThatFailsInTheMiddle_IsNotAbortedByTheDriver) {
    m_script.Slices = {SliceResult::Failed};
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    EXPECT_THAT(m_script.Calls, testing::Not(testing::Contains("Abort")));
}

TEST_F(ReviewManagerTest, ProjectReviewThatComesBackAborted_IsAbortedOnceMoreByTheDriver) {
    m_script.Slices = {SliceResult::Aborted};
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Aborted);
    EXPECT_THAT(
        m_script.Calls,
        ElementsAre("Hookup", "Initialise", "Load 1", "Slice 1", "Abort", "Unhook", "Dispose"));
}

TEST_F(ReviewManagerTest, UnexpectedErrorInASlice_FailsAndKeepsTheProjectLists) {
    m_run.Criteria().ProjectList().Item(1)->RelatedDocs().Add("1", "a.txt", false);
    m_script.ThrowInSlice = true;
    EXPECT_EQ(m_manager.ReviewTimeSlice(kWholeReview), SliceResult::Failed);
    EXPECT_EQ(m_run.Criteria().ProjectList().Item(1)->RelatedDocs().Count(), 1);
    EXPECT_THAT(
        m_run.Folder().Read("user\\Error.log"),
        testing::HasSubstr("6 - Overflow#C_ReviewManager::ReviewTimeSlice"));
}

TEST_F(ReviewManagerTest, EndOfASlice_ClearsTheListsOfEveryProjectAlsoUnselectedOnes) {
    m_run.AddProject("B.vbp", "Name=\"B\"\n");
    m_run.Criteria().ProjectList().SetSelected(2, false);
    m_run.Criteria().ProjectList().Item(2)->RelatedDocs().Add("1", "a.txt", false);
    m_manager.ReviewTimeSlice(kWholeReview);
    EXPECT_EQ(m_run.Criteria().ProjectList().Item(2)->RelatedDocs().Count(), 0);
}

TEST_F(ReviewManagerTest, EachStepGivesWayToInputOnce) {
    m_run.AddProject("B.vbp", "Name=\"B\"\n");
    m_script.Slices = {SliceResult::Continue, SliceResult::Failed};
    test::ScriptedInput input;
    // The five before OpenProject; then OpenProject and two slices of the project, of which the second fails, for each.
    for (int step = 1; step <= 5 + 2 * 3; ++step) {
        EXPECT_EQ(m_manager.ReviewTimeSlice(1), SliceResult::Continue) << step;
        EXPECT_EQ(input.Yields, step);
    }
    // No step follows the last one.
    EXPECT_EQ(m_manager.ReviewTimeSlice(1), SliceResult::Complete);
    EXPECT_EQ(input.Yields, 11);
}

TEST_F(ReviewManagerTest, TheDriverReportsThatItLoadsTheRulebaseAndThatItInitialises) {
    std::vector<std::int32_t> actions;
    m_manager.SetProgressHandler(
        [&](const ProgressInfo& progress, bool&) { actions.push_back(progress.Action()); });
    m_manager.ReviewTimeSlice(kWholeReview);
    EXPECT_THAT(
        actions,
        ElementsAre(
            ProgressAction::LoadingRulebase,
            ProgressAction::InitialisingReview,
            ProgressAction::InitialisingReview));
}

TEST_F(ReviewManagerTest, SignalsOnlyWhatChanged) {
    m_script.Slices.assign(50, SliceResult::Continue);
    m_script.Slices.push_back(SliceResult::Complete);
    int signals = 0;
    m_manager.SetProgressHandler([&](const ProgressInfo&, bool&) { ++signals; });
    m_manager.ReviewTimeSlice(kWholeReview);
    // The rulebase, the begin of the review, and the loaded project; 50 idle steps tell nothing.
    EXPECT_EQ(signals, 3);
}

}  // namespace

}  // namespace dorvik
