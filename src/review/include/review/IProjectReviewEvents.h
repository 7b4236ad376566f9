#pragma once

namespace dorvik {

/// What a project review reports to its driver.
class IProjectReviewEvents {
public:
    virtual ~IProjectReviewEvents() = default;

    /// The progress has changed. A listener that sets `cancel` to true ends the review.
    virtual void SignalReviewProgress(bool& cancel) = 0;
};

}  // namespace dorvik
