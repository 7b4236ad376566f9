#pragma once

namespace dorvik {

/// The waiting input of the host: key strokes, clicks, a request to stop. Asked between the steps of
/// a review, some thousand times a second, so `InputIsWaiting` has to be cheap.
class IHostInput {
public:
    virtual ~IHostInput() = default;
    virtual bool InputIsWaiting() = 0;
    /// Handles what is waiting. May call back into the program, for instance to stop the review.
    virtual void ProcessInput() = 0;
};

}  // namespace dorvik
