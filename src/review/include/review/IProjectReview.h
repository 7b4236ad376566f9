#pragma once

#include "review/SliceResult.h"

#include <cstdint>
#include <memory>

namespace dorvik {

class IProjectReviewEvents;
class ProgressInfo;
class ReportsEngine;
class ReviewCriteria;
class RuleEngine;
class Rulebase;

/// The review of one project, as the driver sees it. The operations are called in this order, the
/// last three at the end of the project.
class IProjectReview {
public:
    virtual ~IProjectReview() = default;

    /// REQUIRES: the callback stays until `UnhookCallback`.
    virtual void HookupCallback(IProjectReviewEvents* callback) = 0;
    /// Stores references to the objects that all projects of the review share. Returns 0.
    virtual std::int32_t InitialiseReview(
        std::shared_ptr<ReviewCriteria> criteria,
        ProgressInfo& progress,
        std::shared_ptr<Rulebase> rulebase,
        RuleEngine& ruleEngine,
        ReportsEngine& reports) = 0;
    /// Opens the project at that 1-based index of the criteria's list. 0 for success.
    virtual std::int32_t LoadProject(std::int32_t projectIndex) = 0;
    /// Runs `ticks` steps: 0 and 1 both mean one step, `kWholeReview` all of them.
    virtual SliceResult ReviewTimeSlice(std::int32_t ticks) = 0;
    /// Ends the review and deletes the results of the project. May be called twice.
    virtual void AbortReview() = 0;
    virtual void UnhookCallback() = 0;
    virtual void Dispose() = 0;
};

}  // namespace dorvik
