#pragma once

#include "ResultsReservations.h"
#include "ReviewStatus.h"
#include "TimeSlice.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/RuleEngine.h"
#include "reports/classic/ReportsEngine.h"
#include "review/IProjectReview.h"
#include "review/IProjectReviewEvents.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace dorvik {

class ITypeLibrarySource;
class Rulebase;

/// The state machine of one review, stepped by `ReviewManager`. If the manager is destroyed while a slice is
/// running, the slice keeps the machine alive and ends after its current step.
///
/// | state | the step                                               | next          |
/// |-------|--------------------------------------------------------|---------------|
/// | 1     | nothing                                                | 2             |
/// | 2     | reports that the rulebase is being loaded              | 3, 30         |
/// | 3     | loads the rulebase                                     | 4, 29         |
/// | 4     | makes the reports ready                                | 5, 30         |
/// | 5     | finds the first selected project                       | 6, 27, 30     |
/// | 6     | opens a project                                        | 17, 29        |
/// | 17    | one step of the project review                         | 17, 26, 29, 30|
/// | 26    | closes the project, finds the next                     | 6, 27         |
/// | 27    | writes the page of the batch                           | 28, 29, 30    |
///
/// 28 is the complete review, 29 an error and 30 a cancelled review. An error in 6, 17 or 26 costs
/// only that project.
class ReviewMachine final : private IProjectReviewEvents, private IReportsEngineEvents {
public:
    using ProgressHandler = std::function<void(const ProgressInfo& progress, bool& cancel)>;
    using ProjectReviewFactory = std::function<std::unique_ptr<IProjectReview>()>;

    /// Each project is reviewed by an object of the factory; without a factory, by a `VB6ProjectReview`.
    explicit ReviewMachine(ProjectReviewFactory factory);

    std::int32_t InitialiseReview(std::shared_ptr<ReviewCriteria> criteria);
    void SetTypeLibraries(ITypeLibrarySource* typeLibraries) { m_typeLibraries = typeLibraries; }
    void SetProgressHandler(ProgressHandler handler) { m_progressHandler = std::move(handler); }

    SliceResult ReviewTimeSlice(std::int32_t ticks);
    /// Ends the review as a cancellation does: at once between two slices, or after the current step of a running
    /// slice. The progress handler and the stop request of the scripts are no longer called.
    void Abandon();

    dorvik::RuleEngine& RuleEngine() { return m_ruleEngine; }
    const ReportsEngine& Reports() const { return m_reports; }
    bool ReportsCancelled() const { return m_reportsCancelled; }
    const dorvik::Rulebase* LoadedRulebase() const { return m_rulebase.get(); }

private:
    void SignalReviewProgress(bool& cancel) override;
    void ReportsProgress(ProgressInfo& progress, std::int32_t state, bool& cancel) override;

    SliceResult ReviewStep();
    SliceResult Abort();
    ReviewStatus DetermineReviewStatus();
    ReviewStatus RecoverFromError(ReviewStatus state);
    ReviewStatus MoveToNextProject(bool releaseCurrent);
    std::int32_t FindNextSelectedProject(std::int32_t from) const;
    /// Reports a change of the progress. `IsAbort` if the handler cancels the review, otherwise `status`.
    ReviewStatus SignalProgress(ReviewStatus status);
    bool IsCancelledNow();
    void ReleaseProjectReview();
    void ClearProjects();

    ReviewStatus State_ShowLoadingRulebase();
    ReviewStatus State_LoadRulebase();
    ReviewStatus State_InitialiseReports();
    ReviewStatus State_BeginProjects();
    ReviewStatus State_OpenProject();
    ReviewStatus State_ProjectTimeSlice();
    ReviewStatus State_CloseProject();
    ReviewStatus State_BatchReport();

    ProjectReviewFactory m_factory;
    ITypeLibrarySource* m_typeLibraries = nullptr;
    ProgressHandler m_progressHandler;
    SliceGuard m_slices;
    ReviewStatus m_state = ReviewStatus::Start;
    std::int32_t m_projectIndex = 0;
    bool m_isAbandoned = false;
    bool m_reportsCancelled = false;
    ResultsReservations m_reservations;
    // In this order, so that the progress is destroyed first and the engines last.
    ReportsEngine m_reports;
    dorvik::RuleEngine m_ruleEngine;
    std::shared_ptr<dorvik::Rulebase> m_rulebase;
    std::shared_ptr<ReviewCriteria> m_criteria;
    std::unique_ptr<IProjectReview> m_projectReview;
    ProgressInfo m_progress;
};

}  // namespace dorvik
