// A review that is abandoned from outside: the manager is destroyed, in any state of the review.
#include "RulesInReview.h"
#include "base/BasicError.h"
#include "platform/host/modFiles.h"
#include "review/ReviewManager.h"
#include "rulebase/file/RulebaseManager.h"
#include "support/ProgressAction.h"
#include "support/ScriptedInput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace dorvik {

namespace {

using test::ProgressAction;
using test::RulesInReview;
using test::Script;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kAborted = "Review aborted by user.";

/// A batch of two small projects, P and Q, with rules of every kind, scripts that give way, and all pages.
class AbandonedReview : public testing::Test {
protected:
    AbandonedReview() {
        m_rules.AddCoding("At the project", {1, 26, 37}, Script("DoEvents"));
        m_rules.AddCoding("In a body", {30}, Script("DoEvents\r\nDorvik.RaiseViolation"));
        m_rules.AddNaming("Names", ObjectType::Variable);
        m_rules.AddKeyword("No Stop", "Stop");
        ReviewRun().AddFile(
            "frmA.frm",
            "VERSION 5.00\nBegin VB.Form frmA\n   Begin VB.Label lblA\n      Caption = \"a\"\n"
            "   End\nEnd\nAttribute VB_Name = \"frmA\"\nPrivate n As Long\n");
        for (const std::string name : {"P", "Q"}) {
            ReviewRun().AddProject(
                name + ".vbp",
                "Type=Exe\nRelatedDoc=a.txt\nName=\"" + name +
                    "\"\nModule=modA; modA.bas\nForm=frmA.frm\n");
        }
        ReviewRun().AddFile("modA.bas", test::ModuleWith("modA", "Stop: Stop\n"));
        RulebaseManager().Save(m_rules.Rules(), ReviewRun().Folder().Path("Rules.dvk"));
        ReviewRun().Criteria().SetReportOption(2);
        ReviewRun().Criteria().SetUseProjectFolderReports(true);
        ReviewRun().Criteria().SetClearLogBeforeReview(true);
    }

    test::ReviewRun& ReviewRun() { return m_rules.Review(); }

    void Begin() {
        m_manager = std::make_unique<ReviewManager>();
        m_manager->InitialiseReview(ReviewRun().SharedCriteria());
    }

    /// True if the results of the project are those of a review that came to its end.
    bool IsComplete(const std::string& project) {
        return !ReviewRun().Query(project, "SELECT [End] FROM Review").front().empty();
    }

    /// What the first run of a project left, beside log and pages.
    std::vector<std::string> OtherFiles() {
        std::vector<std::string> names;
        for (const auto& entry : modFiles::FolderEntries(ReviewRun().Folder().Path("Dorvik"))) {
            const bool isExpected = entry.Name.ends_with(".html") ||
                                    entry.Name.ends_with("_DORVIK.txt") ||
                                    entry.Name.ends_with("_DORVIK.mdb");
            if (!isExpected) {
                names.push_back(entry.Name);
            }
        }
        return names;
    }

    /// The sweeps below have one project: what is abandoned in the second is that of the first.
    void LeaveOutQ() { ReviewRun().Criteria().ProjectList().SetSelected(2, false); }

    /// Each project has either all its results or none, and the lists are empty.
    void ExpectNothingHalf() {
        for (const std::string project : {"P", "Q"}) {
            EXPECT_TRUE(!ReviewRun().HasResults(project) || IsComplete(project)) << project;
        }
        EXPECT_THAT(OtherFiles(), IsEmpty());
        auto& projects = ReviewRun().Criteria().ProjectList();
        for (std::int32_t index = 1; index <= projects.Count(); ++index) {
            EXPECT_EQ(projects.Item(index)->SourceFiles().Count(), 0);
            EXPECT_EQ(projects.Item(index)->ProjectStats()->Properties().Count(), 0);
        }
    }

    /// The same projects again, with the same criteria.
    void ExpectTheNextReviewToBeWhole() {
        ReviewRun().Criteria().ProjectList().SetSelected(2, true);
        EXPECT_EQ(ReviewRun().Run(), SliceResult::Complete);
        for (const std::string project : {"P", "Q"}) {
            EXPECT_TRUE(IsComplete(project));
            EXPECT_EQ(
                ReviewRun().Query(project, "SELECT Title FROM Violations").size(), m_violations);
            EXPECT_THAT(ReviewRun().Log(project), Contains(HasSubstr("modA.bas successfully")));
        }
    }

    /// Runs the whole review and drops the manager in that yield, 0 for none. Gives the number of yields.
    int RunAndDropAtYield(int nth) {
        test::ScriptedInput input;
        input.OnYield = [&] {
            if (input.Yields == nth) {
                m_manager.reset();
            }
        };
        Begin();
        m_manager->SetProgressHandler([&](const ProgressInfo&, bool&) {
            EXPECT_NE(m_manager, nullptr) << "the owner of the handler may be destroyed";
        });
        m_result = m_manager->ReviewTimeSlice(kWholeReview);
        m_manager.reset();
        return input.Yields;
    }

    RulesInReview m_rules;
    std::unique_ptr<ReviewManager> m_manager;
    SliceResult m_result = SliceResult::Continue;
    std::size_t m_violations = 0;

    void CountViolations() {
        ReviewRun().Run();
        m_violations = ReviewRun().Query("P", "SELECT Title FROM Violations").size();
        ASSERT_GT(m_violations, 0U);
    }
};

TEST_F(AbandonedReview, BetweenTwoSlicesEndsAsACancelDoes) {
    CountViolations();
    Begin();
    // A background review is cancelled so: no slice runs any more, and the manager goes.
    while (m_manager->ReviewTimeSlice(1) == SliceResult::Continue &&
           ReviewRun().Criteria().ProjectList().Item(2)->SourceFiles().Count() == 0) {
    }
    m_manager->ReviewTimeSlice(5);
    ASSERT_TRUE(ReviewRun().HasResults("Q"));
    m_manager.reset();
    EXPECT_TRUE(IsComplete("P")) << "the results of the project before are kept";
    EXPECT_FALSE(ReviewRun().HasResults("Q"));
    EXPECT_EQ(ReviewRun().Log("Q").back(), kAborted);
    ExpectNothingHalf();
    ExpectTheNextReviewToBeWhole();
}

TEST_F(AbandonedReview, AfterEachStepLeavesNothingHalf) {
    CountViolations();
    LeaveOutQ();
    bool ended = false;
    int steps = 0;
    while (!ended) {
        ++steps;
        Begin();
        ended = m_manager->ReviewTimeSlice(1) != SliceResult::Continue;
        for (int step = 1; step < steps && !ended; ++step) {
            ended = m_manager->ReviewTimeSlice(1) != SliceResult::Continue;
        }
        m_manager.reset();
        if (steps > 1) {  // the first step touches nothing
            ExpectNothingHalf();
        }
        ASSERT_FALSE(HasFailure()) << "destroyed after step " << steps;
    }
    EXPECT_GT(steps, 30);
    ExpectTheNextReviewToBeWhole();
}

TEST_F(AbandonedReview, InEachYieldLeavesNothingHalf) {
    CountViolations();
    LeaveOutQ();
    const int yields = RunAndDropAtYield(0);
    EXPECT_EQ(m_result, SliceResult::Complete);
    EXPECT_GT(yields, 100);
    for (int nth = 1; nth <= yields; ++nth) {
        RunAndDropAtYield(nth);
        EXPECT_EQ(m_result, SliceResult::Aborted);
        if (nth > 1) {
            ExpectNothingHalf();
        }
        ASSERT_FALSE(HasFailure()) << "dropped in yield " << nth;
    }
    ExpectTheNextReviewToBeWhole();
}

TEST_F(AbandonedReview, InEachProgressHandlerLeavesNothingHalfAndIsNotCalledAgain) {
    CountViolations();
    LeaveOutQ();
    int signals = 0;
    const auto runAndDropAt = [&](int nth) {
        signals = 0;
        Begin();
        m_manager->SetProgressHandler([&](const ProgressInfo&, bool&) {
            if (++signals == nth) {
                m_manager.reset();
            }
        });
        m_result = m_manager->ReviewTimeSlice(kWholeReview);
        m_manager.reset();
    };
    runAndDropAt(0);
    EXPECT_EQ(m_result, SliceResult::Complete);
    const int all = signals;
    EXPECT_GT(all, 20);
    for (int nth = 1; nth <= all; ++nth) {
        runAndDropAt(nth);
        EXPECT_EQ(m_result, SliceResult::Aborted);
        EXPECT_EQ(signals, nth);
        ExpectNothingHalf();
        ASSERT_FALSE(HasFailure()) << "dropped in signal " << nth;
    }
    ExpectTheNextReviewToBeWhole();
}

TEST_F(AbandonedReview, InAScriptStopsTheScript) {
    CountViolations();
    RulesInReview endless;
    endless.AddCoding("Endless", {30}, Script("Do\r\nDoEvents\r\nLoop"));
    basic::ScriptLimits limits;
    limits.Instructions = 5'000'000;  // far beyond the instruction at which it is stopped
    limits.Milliseconds = 0;
    RulebaseManager().Save(endless.Rules(), ReviewRun().Folder().Path("Rules.dvk"));
    Begin();
    m_manager->RuleEngine().SetLimits(limits);
    int asked = 0;
    m_manager->RuleEngine().SetStopRequest([&] {
        ++asked;
        return false;
    });
    test::ScriptedInput input;
    int askedWhenDropped = 0;
    input.OnYield = [&] {
        if (input.Yields == 2'000) {
            askedWhenDropped = asked;
            m_manager.reset();
        }
    };
    EXPECT_EQ(m_manager->ReviewTimeSlice(kWholeReview), SliceResult::Aborted);
    EXPECT_EQ(asked, askedWhenDropped) << "the owner of the stop request may be destroyed";
    EXPECT_LT(input.Yields, 2'100);
    EXPECT_EQ(ReviewRun().Log("P").back(), kAborted);
    ExpectNothingHalf();
}

TEST_F(AbandonedReview, WhileReportsAreWrittenKeepsTheResultsOfTheProject) {
    Begin();
    m_manager->SetProgressHandler([&](const ProgressInfo& progress, bool&) {
        if (progress.Action() == ProgressAction::GeneratingReport) {
            m_manager.reset();
        }
    });
    EXPECT_EQ(m_manager->ReviewTimeSlice(kWholeReview), SliceResult::Aborted);
    EXPECT_TRUE(IsComplete("P"));
    EXPECT_FALSE(ReviewRun().HasResults("Q")) << "no other project is begun";
    EXPECT_EQ(ReviewRun().Folder().Read("Dorvik\\P_Dorvik.html"), "");
    ExpectNothingHalf();
}

TEST_F(AbandonedReview, ThatHasNotBegunTouchesNoProject) {
    auto& project = *ReviewRun().Criteria().ProjectList().Item(1);
    project.LoadProject(project.Filename());
    Begin();
    m_manager.reset();
    EXPECT_EQ(project.SourceFiles().Count(), 2);
}

TEST_F(AbandonedReview, ThatWasAbandonedInsideASliceOfAFewStepsEndsWithThatSlice) {
    CountViolations();
    Begin();
    while (!ReviewRun().HasResults("P")) {
        m_manager->ReviewTimeSlice(1);
    }
    test::ScriptedInput input;
    input.OnYield = [&] {
        m_manager->Abandon();
    };
    EXPECT_EQ(m_manager->ReviewTimeSlice(1), SliceResult::Aborted);
    ExpectNothingHalf();
    input.OnYield = {};
    EXPECT_EQ(m_manager->ReviewTimeSlice(1), SliceResult::Aborted);
}

TEST_F(AbandonedReview, ThatFailsUnexpectedlyLeavesNoHalfDatabase) {
    Begin();
    m_manager->SetProgressHandler([&](const ProgressInfo& progress, bool&) {
        if (progress.SourceFilePercentage() > 50) {
            throw BasicError(5, "The window failed");
        }
    });
    EXPECT_EQ(m_manager->ReviewTimeSlice(kWholeReview), SliceResult::Failed);
    EXPECT_FALSE(ReviewRun().HasResults("P"));
    EXPECT_EQ(ReviewRun().Log("P").back(), "Review terminated due to unexpected error.");
    EXPECT_THAT(OtherFiles(), IsEmpty());
    EXPECT_EQ(m_manager->ReviewTimeSlice(1), SliceResult::Failed);
}

}  // namespace

}  // namespace dorvik
