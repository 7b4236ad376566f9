#pragma once

#include "review/IProjectReview.h"
#include "review/SliceResult.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace dorvik {

class ITypeLibrarySource;
class ReviewMachine;

/// Drives one review: loads the rulebase, then hands each selected project to a project review.
/// All work is cut into steps of a state machine, and the caller decides how many run at a time.
/// A manager serves one review only. While it exists, no other review can replace the results that it has
/// finished.
///
/// It may be destroyed at any moment, even during its own slice: in a progress handler, in a script, or while
/// input is processed. The review then ends as if it had been cancelled, and a running slice returns `Aborted`
/// after its current step. Until then the results of the current project stay locked.
class ReviewManager final {
public:
    /// A handler that sets `cancel` to true ends the review as aborted; while the reports of a project are
    /// written it ends those reports only.
    using ProgressHandler = std::function<void(const ProgressInfo& progress, bool& cancel)>;
    using ProjectReviewFactory = std::function<std::unique_ptr<IProjectReview>()>;

    /// Reviews projects with `VB6ProjectReview`.
    ReviewManager();
    /// Each project is reviewed by an object of the factory.
    explicit ReviewManager(ProjectReviewFactory factory);
    ~ReviewManager();
    ReviewManager(const ReviewManager&) = delete;
    ReviewManager& operator=(const ReviewManager&) = delete;

    /// Returns 0, or 1 if there are no criteria or a review has begun already.
    std::int32_t InitialiseReview(std::shared_ptr<ReviewCriteria> criteria);
    /// Where the projects' type libraries come from; null, as initially: no library can be loaded. REQUIRES: it
    /// outlives the review, and a slice during which this manager is destroyed.
    void SetTypeLibraries(ITypeLibrarySource* typeLibraries);
    void SetProgressHandler(ProgressHandler handler);

    /// Runs `ticks` steps: 0 and 1 both mean one step, `kWholeReview` all of them. Stops early at
    /// the first step whose result is not `Continue`.
    ///
    /// A call at a wrong moment runs no step and is logged: before `InitialiseReview` it returns `Failed`, inside
    /// another slice `Continue`, and after the end the result with which the review ended.
    SliceResult ReviewTimeSlice(std::int32_t ticks);

    /// Ends the review as a cancellation does: at once between two slices, or after the current step of a running
    /// slice. No other project is begun.
    void Abandon();

    /// The rule engine of this review, for its limits, and afterwards for its counts and failures.
    dorvik::RuleEngine& RuleEngine();
    /// The reports of this review, for the list of the files written.
    const ReportsEngine& Reports() const;
    /// True if reports of a project were cancelled: its results are complete then, its pages are not.
    bool ReportsCancelled() const;
    /// The rulebase of this review once it is loaded, otherwise null.
    const dorvik::Rulebase* LoadedRulebase() const;

private:
    std::shared_ptr<ReviewMachine> m_machine;  // shared with a slice that runs
};

}  // namespace dorvik
