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
/// A manager serves one review only. As long as it lives nobody else replaces the results that it has
/// finished.
///
/// It may go at any moment, also inside its own slice: in a handler of the progress, in a script, while
/// input is processed. The review is then over as if it had been cancelled, and a slice that was running
/// comes back with `Aborted` behind the step at hand. Until then the results of the project at hand stay locked.
class ReviewManager final {
public:
    /// A handler that sets `cancel` to true ends the review as aborted; while the reports of a project are
    /// written it ends those reports only.
    using ProgressHandler = std::function<void(const ProgressInfo& progress, bool& cancel)>;
    using ProjectReviewFactory = std::function<std::unique_ptr<IProjectReview>()>;

    /// Reviews projects with `VB6ProjectReview`.
    ReviewManager();
    /// Reviews projects with what the factory makes.
    explicit ReviewManager(ProjectReviewFactory factory);
    ~ReviewManager();
    ReviewManager(const ReviewManager&) = delete;
    ReviewManager& operator=(const ReviewManager&) = delete;

    /// 0, or 1 if there are no criteria, or a review has begun already. Without criteria the manager is of
    /// no use.
    std::int32_t InitialiseReview(std::shared_ptr<ReviewCriteria> criteria);
    /// Where the projects' type libraries come from; null, as at first, for nowhere. REQUIRES: it outlives
    /// the review, and the slice in which this manager goes.
    void SetTypeLibraries(ITypeLibrarySource* typeLibraries);
    void SetProgressHandler(ProgressHandler handler);

    /// Runs `ticks` steps: 0 and 1 both mean one step, `kWholeReview` all of them. Stops early at
    /// the first step whose result is not `Continue`.
    ///
    /// At a wrong moment it runs none and is logged: before `InitialiseReview` it fails, inside
    /// another slice it comes back with `Continue`, behind the end with the result of the end.
    SliceResult ReviewTimeSlice(std::int32_t ticks);

    /// Ends the review as a cancel does, without asking anybody: at once between two slices, in a slice
    /// behind the step at hand. No other project is begun.
    void Abandon();

    /// The rule engine of this review, for its limits and for what it tells afterwards.
    dorvik::RuleEngine& RuleEngine();
    /// The reports of this review, for what they wrote.
    const ReportsEngine& Reports() const;
    /// True if reports of a project were cancelled: its results are complete then, its pages are not.
    bool ReportsCancelled() const;
    /// The rulebase of this review once it is loaded, otherwise null.
    const dorvik::Rulebase* LoadedRulebase() const;

private:
    std::shared_ptr<ReviewMachine> m_machine;  // shared with a slice that runs
};

}  // namespace dorvik
