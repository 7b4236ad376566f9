#include "workstation/dialogs/frmProgress.h"

#include "ReviewedFiles.h"
#include "criteria/ProgressInfo.h"
#include "support/ScriptedInput.h"

#include <gmock/gmock.h>

#include <optional>
#include <vector>

namespace dorvik {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// The texts for made-up progress.
class ProgressTexts : public test::DialogsFixture {
protected:
    bool Report() {
        bool cancel = false;
        m_form.ReviewProgress(m_progress, cancel);
        return cancel;
    }

    ProgressInfo m_progress;
    frmProgress m_form{m_screen};
};

TEST_F(ProgressTexts, EachActionHasItsText) {
    std::vector<std::string> texts;
    for (std::int32_t action = 1; action <= 7; ++action) {
        m_progress.SetAction(action);
        Report();
        texts.push_back(m_form.lblAction.Value());
    }
    EXPECT_THAT(
        texts,
        ElementsAre(
            "Loading rulebase...",
            "Reviewing source code...",
            "Generating report...",
            "Extracting global names...",
            "Loading references...",
            "Initialising project review...",
            "Loading components..."));
}

TEST_F(ProgressTexts, AnActionOutside1To7KeepsTheFormerLabel) {
    m_progress.SetAction(5);
    Report();
    for (const std::int32_t action : {0, 8, -1}) {
        m_progress.SetAction(action);
        Report();
        EXPECT_EQ(m_form.lblAction.Value(), "Loading references...");
    }
}

TEST_F(ProgressTexts, AChangeOfTheProcessSetsTheCaption) {
    m_form.Caption.Set("Other");
    Report();
    EXPECT_EQ(m_form.Caption.Value(), "Other");
    m_progress.SetProcess(1);
    Report();
    EXPECT_EQ(m_form.Caption.Value(), "Review Progress");
}

TEST_F(ProgressTexts, ANewProjectHasItsNumberItsNameAndAnEmptyBar) {
    m_progress.BeginReview(2);
    m_progress.LoadProject("Billing", "\\src\\Billing.vbp", 4);
    m_form.prgProject.Set(60);
    std::vector<std::int32_t> bars;
    const Subscription heard =
        m_form.prgProject.Changed.Subscribe([&](std::int32_t value) { bars.push_back(value); });
    Report();
    EXPECT_EQ(m_form.lblProject.Value(), "Project: (1 of 2)");
    EXPECT_EQ(m_form.lblProjectData.Value(), "Billing (Billing.vbp)");
    EXPECT_THAT(bars, ElementsAre(0));
}

TEST_F(ProgressTexts, ANewSourceFileHasItsNumberItsNameAndAnEmptyBar) {
    m_progress.BeginReview(1);
    m_progress.LoadProject("Billing", "\\src\\Billing.vbp", 4);
    m_progress.BeginSourceFile("frmMain", "\\src\\frmMain.frm", 200);
    m_form.prgSourceFile.Set(60);
    Report();
    EXPECT_EQ(m_form.lblSourceFile.Value(), "Source File: (1 of 4)");
    EXPECT_EQ(m_form.lblSourceFileData.Value(), "frmMain (frmMain.frm)");
    EXPECT_EQ(m_form.prgSourceFile.Value(), 0);
}

TEST_F(ProgressTexts, TheLabelsStayWhileTheNamesDo) {
    m_progress.BeginReview(1);
    m_progress.LoadProject("Billing", "\\src\\Billing.vbp", 4);
    m_progress.BeginSourceFile("frmMain", "\\src\\frmMain.frm", 200);
    Report();
    m_form.lblProject.Set("P");
    m_form.lblSourceFile.Set("F");
    Report();
    EXPECT_EQ(m_form.lblProject.Value(), "P");
    EXPECT_EQ(m_form.lblSourceFile.Value(), "F");
}

TEST_F(ProgressTexts, TheBarsShowThePercentages) {
    m_progress.BeginReview(1);
    m_progress.LoadProject("Billing", "\\src\\Billing.vbp", 4);
    m_progress.BeginSourceFile("frmMain", "\\src\\frmMain.frm", 200);
    m_progress.UpdateSourceFileProgress(100);
    Report();
    EXPECT_EQ(m_form.prgSourceFile.Value(), 50);
    EXPECT_EQ(m_form.prgProject.Value(), m_progress.ProjectPercentage());
    EXPECT_GT(m_form.prgProject.Value(), 0);
    EXPECT_EQ(
        m_form.lblComplete.Value(), std::to_string(m_progress.ReviewPercentage()) + "% complete.");
    m_progress.UpdateSourceFileProgress(300);
    Report();
    EXPECT_EQ(m_form.prgSourceFile.Value(), 200) << "the figure of a source file has no upper end";
}

TEST_F(ProgressTexts, ThePercentageTextWaitsForAChange) {
    Report();
    EXPECT_EQ(m_form.lblComplete.Value(), "");
}

TEST_F(ProgressTexts, ALogMessageIsShownUnlessItIsEmpty) {
    m_progress.SetLogMessage("Something to know");
    Report();
    m_progress.SetLogMessage("");
    Report();
    EXPECT_EQ(m_form.lblMessage.Value(), "Something to know");
}

TEST_F(ProgressTexts, TheHostGetsItsTurnLastAndACancelThenCounts) {
    test::ScriptedInput input;
    std::string seen;
    input.OnYield = [&] {
        seen = m_form.lblAction.Value();
        m_form.Cancel();
    };
    m_progress.SetAction(1);
    EXPECT_TRUE(Report());
    EXPECT_EQ(seen, "Loading rulebase...");
}

class ProgressReview : public test::ReviewedFiles {
protected:
    ProgressReview() {
        ChooseEverything();
        Settings().BackgroundTickCount = 1;
        m_heard = m_form->BackgroundReviewEnded.Subscribe([&] { ++m_ended; });
    }

    int TickToTheEnd() {
        int ticks = 0;
        while (m_form && !m_form->IsClosed()) {
            m_form->tmrInterrupt.Tick();
            ++ticks;
        }
        return ticks;
    }

    std::unique_ptr<frmProgress> m_form = std::make_unique<frmProgress>(m_screen);
    int m_ended = 0;
    Subscription m_heard;
};

TEST_F(ProgressReview, AForegroundReviewIsOverWhenTheModalFormComesBack) {
    std::vector<std::string> actions;
    const Subscription heard = m_form->lblAction.Changed.Subscribe(
        [&](const std::string& text) { actions.push_back(text); });
    m_form->CommenceReview(m_criteria);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_FALSE(m_form->Visible.Value());
    EXPECT_EQ(m_ended, 0);
    EXPECT_THAT(m_screen.Calls, ElementsAre("progress as modal"));
    EXPECT_THAT(
        actions,
        ElementsAre(
            "Loading rulebase...", "Initialising project review...", "Reviewing source code..."));
    EXPECT_TRUE(HasResults());
}

TEST_F(ProgressReview, OnlyTheFirstDisplayRunsTheReview) {
    m_form->CommenceReview(m_criteria);
    const std::string before = m_folder.Read("Demo\\Dorvik\\Demo_DORVIK.txt");
    m_form->Activate();
    EXPECT_EQ(m_folder.Read("Demo\\Dorvik\\Demo_DORVIK.txt"), before);
}

TEST_F(ProgressReview, ABackgroundReviewBeginsWithItsFirstTick) {
    m_criteria->SetBackgroundReview(true);
    m_form->CommenceReview(m_criteria);
    EXPECT_FALSE(m_form->IsClosed());
    EXPECT_TRUE(m_form->tmrInterrupt.Enabled.Value());
    EXPECT_TRUE(m_form->Visible.Value());
    EXPECT_EQ(m_form->lblAction.Value(), "");
    EXPECT_THAT(m_screen.Calls, ElementsAre("progress as modal", "hide progress", "show progress"));
    m_form->tmrInterrupt.Tick();
    m_form->tmrInterrupt.Tick();
    EXPECT_EQ(m_form->lblAction.Value(), "Loading rulebase...");
    EXPECT_GT(TickToTheEnd(), 10);
    EXPECT_FALSE(m_form->tmrInterrupt.Enabled.Value());
    EXPECT_EQ(m_ended, 1);
    EXPECT_THAT(m_screen.Calls, testing::SizeIs(4));
    EXPECT_TRUE(HasResults());
}

TEST_F(ProgressReview, TheTickCountIsThatOfTheBeginning) {
    m_criteria->SetBackgroundReview(true);
    Settings().BackgroundTickCount = 1000;
    m_form->CommenceReview(m_criteria);
    Settings().BackgroundTickCount = 1;
    EXPECT_LT(TickToTheEnd(), 5);
}

TEST_F(ProgressReview, ATickGivesTheHostItsTurnFirst) {
    m_criteria->SetBackgroundReview(true);
    m_form->CommenceReview(m_criteria);
    test::ScriptedInput input;
    input.OnYield = [&] {
        m_form->Cancel();
    };
    m_form->tmrInterrupt.Tick();
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_EQ(m_form->lblAction.Value(), "") << "no slice was run";
    EXPECT_EQ(m_ended, 1);
}

TEST_F(ProgressReview, ATickInsideASliceDoesNothing) {
    m_criteria->SetBackgroundReview(true);
    m_form->CommenceReview(m_criteria);
    test::ScriptedInput input;
    int depth = 0;
    input.OnYield = [&] {
        ASSERT_EQ(depth, 0);
        ++depth;
        m_form->tmrInterrupt.Tick();
        --depth;
    };
    TickToTheEnd();
    EXPECT_EQ(m_ended, 1);
}

TEST_F(ProgressReview, ACancelledBackgroundReviewIsAbandoned) {
    m_criteria->SetBackgroundReview(true);
    m_form->CommenceReview(m_criteria);
    for (int tick = 0; tick < 12; ++tick) {
        m_form->tmrInterrupt.Tick();
    }
    m_form->AbortBackgroundReview();
    EXPECT_FALSE(m_form->IsClosed());
    m_form->tmrInterrupt.Tick();
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_EQ(m_ended, 1);
    EXPECT_FALSE(HasResults());
}

TEST_F(ProgressReview, CancelInTheForegroundTakesEffectWhereTheReviewGivesWay) {
    test::ScriptedInput input;
    bool pressed = false;
    const Subscription heard = m_form->lblSourceFileData.Changed.Subscribe([&](const std::string&) {
        input.OnYield = [&] {
            pressed = true;
            m_form->Cancel();
        };
    });
    std::vector<std::string> files;
    const Subscription shown = m_form->lblSourceFileData.Changed.Subscribe(
        [&](const std::string& text) { files.push_back(text); });
    m_form->CommenceReview(m_criteria);
    EXPECT_TRUE(pressed);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_THAT(files, testing::SizeIs(1));
    EXPECT_FALSE(HasResults());
}

TEST_F(ProgressReview, AReviewThatIsRefusedNeverShowsTheForm) {
    m_form->CommenceReview(nullptr);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_THAT(m_screen.Calls, IsEmpty());
}

TEST_F(ProgressReview, ABackgroundReviewIsQuietAndAForegroundReviewIsNot) {
    m_criteria->LoadCriteria().SetRulebaseFile(m_folder.Path("missing.dvk"));
    modLog::Log().SetQuiet(false);
    m_criteria->SetBackgroundReview(true);
    std::vector<bool> quiet;
    const Subscription heard = m_form->ProgressShown.Subscribe(
        [&](const ProgressInfo&) { quiet.push_back(modLog::Log().Quiet()); });
    m_form->CommenceReview(m_criteria);
    TickToTheEnd();
    EXPECT_THAT(quiet, Contains(true));
    EXPECT_THAT(quiet, testing::Not(Contains(false)));
    EXPECT_FALSE(modLog::Log().Quiet());
    quiet.clear();
    m_criteria->SetBackgroundReview(false);
    frmProgress foreground(m_screen);
    const Subscription alsoHeard = foreground.ProgressShown.Subscribe(
        [&](const ProgressInfo&) { quiet.push_back(modLog::Log().Quiet()); });
    foreground.CommenceReview(m_criteria);
    EXPECT_THAT(quiet, Contains(false));
    EXPECT_THAT(quiet, testing::Not(Contains(true)));
}

TEST_F(ProgressReview, TheFormMayGoWhileInputIsProcessed) {
    m_criteria->SetBackgroundReview(true);
    m_form->CommenceReview(m_criteria);
    for (int tick = 0; tick < 12; ++tick) {
        m_form->tmrInterrupt.Tick();
    }
    test::ScriptedInput input;
    input.OnYield = [&] {
        m_form.reset();
    };
    m_form->tmrInterrupt.Tick();
    EXPECT_EQ(m_form, nullptr);
    EXPECT_EQ(m_ended, 0);
    EXPECT_FALSE(HasResults());
}

TEST_F(ProgressReview, TheFormMayGoInsideASlice) {
    m_criteria->SetBackgroundReview(true);
    Settings().BackgroundTickCount = 1000;
    m_form->CommenceReview(m_criteria);
    test::ScriptedInput input;
    const Subscription heard = m_form->lblSourceFileData.Changed.Subscribe([&](const std::string&) {
        input.OnYield = [&] {
            m_form.reset();
        };
    });
    m_form->tmrInterrupt.Tick();
    EXPECT_EQ(m_form, nullptr);
    EXPECT_EQ(m_ended, 0);
    EXPECT_FALSE(HasResults());
}

TEST_F(ProgressReview, AHandlerOfTheEndMayDestroyTheForm) {
    m_criteria->SetBackgroundReview(true);
    m_form->CommenceReview(m_criteria);
    const Subscription heard = m_form->BackgroundReviewEnded.Subscribe([&] { m_form.reset(); });
    TickToTheEnd();
    EXPECT_EQ(m_form, nullptr);
    EXPECT_EQ(m_ended, 1);
    EXPECT_TRUE(HasResults());
}

TEST_F(ProgressReview, AFormThatGoesWhileItIsShownHidesItself) {
    m_criteria->SetBackgroundReview(true);
    m_form->CommenceReview(m_criteria);
    m_form.reset();
    EXPECT_THAT(
        m_screen.Calls,
        ElementsAre("progress as modal", "hide progress", "show progress", "hide progress"));
}

}  // namespace
}  // namespace dorvik
