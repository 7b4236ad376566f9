#pragma once

#include "ReviewRun.h"
#include "base/BasicError.h"
#include "criteria/ProgressInfo.h"
#include "enforcement/RuleEngine.h"
#include "reports/classic/ReportsEngine.h"
#include "review/IProjectReviewEvents.h"
#include "review/ProjectState.h"
#include "review/VB6ProjectReview.h"
#include "rulebase/model/Rulebase.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace dorvik::test {

/// A project review stepped by hand, with a callback that can cancel, fail, or do whatever a test wants.
class SteppedReview : private IProjectReviewEvents {
public:
    /// Reviews the first project of the run, with the rules if there are any.
    explicit SteppedReview(ReviewRun& run, std::shared_ptr<Rulebase> rules = nullptr) {
        m_review.HookupCallback(this);
        m_review.InitialiseReview(
            run.SharedCriteria(),
            m_progress,
            rules ? std::move(rules) : std::make_shared<Rulebase>(),
            m_engine,
            m_reports);
        m_loadResult = m_review.LoadProject(1);
    }

    SliceResult Step() { return m_review.ReviewTimeSlice(1); }
    ProjectState State() const { return m_review.State(); }
    std::vector<ProjectState> StatesToTheEnd() {
        std::vector<ProjectState> states{State()};
        while (Step() == SliceResult::Continue) {
            if (states.back() != State()) {
                states.push_back(State());
            }
        }
        return states;
    }
    std::int32_t LoadResult() const { return m_loadResult; }
    const ProgressInfo& Progress() const { return m_progress; }
    VB6ProjectReview& Review() { return m_review; }

    /// Steps until the machine is in that state.
    void StepTo(ProjectState state) {
        while (State() != state && Step() == SliceResult::Continue) {
        }
    }
    dorvik::RuleEngine& Engine() { return m_engine; }

    bool Cancel = false;
    bool Fail = false;
    std::function<void(const ProgressInfo&)> OnSignal;

private:
    void SignalReviewProgress(bool& cancel) override {
        if (Fail) {
            throw BasicError(5, "The listener failed");
        }
        if (OnSignal) {
            OnSignal(m_progress);
        }
        cancel = cancel || Cancel;
    }

    ProgressInfo m_progress;
    dorvik::RuleEngine m_engine;
    ReportsEngine m_reports;
    VB6ProjectReview m_review;
    std::int32_t m_loadResult = 0;
};

}  // namespace dorvik::test
