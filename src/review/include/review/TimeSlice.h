#pragma once

#include "review/ReviewStatus.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace dorvik {

/// Runs steps until `ticks` are done or one gives another result than `Continue`. 0 and 1 both mean
/// one step, `kWholeReview` means no limit: the count is looked at behind a step.
template <typename Step>
SliceResult RunSteps(std::int32_t ticks, Step&& step) {
    std::int32_t stepsLeft = ticks;
    while (true) {
        const SliceResult result = step();
        --stepsLeft;
        if (result != SliceResult::Continue || (ticks != kWholeReview && stepsLeft <= 0)) {
            return result;
        }
    }
}

/// Knows whether a machine can run a time slice now: not before it has something to step, not inside
/// a slice, and not behind its end.
class SliceGuard {
public:
    /// What a slice at a wrong moment comes back with, and why.
    struct Refusal {
        SliceResult Result;
        std::string_view Reason;  // a sentence for the log
    };

    /// There is something to step from now on.
    void Open() { m_isOpen = true; }
    bool IsOpen() const { return m_isOpen; }
    /// There is nothing to step any more. The first result stays.
    void Close(SliceResult result) {
        if (!m_end) {
            m_end = result;
        }
    }
    bool IsRunning() const { return m_isRunning; }

    /// Nothing if a slice may run.
    std::optional<Refusal> RefusalNow() const {
        if (m_isRunning) {
            return Refusal{
                SliceResult::Continue, "A time slice was refused: another one is running."};
        }
        if (m_end) {
            return Refusal{*m_end, "A time slice was refused: the review has ended."};
        }
        if (!m_isOpen) {
            return Refusal{
                SliceResult::Failed, "A time slice was refused: the review has not begun."};
        }
        return std::nullopt;
    }

    /// A slice runs as long as this lives.
    class Slice {
    public:
        explicit Slice(SliceGuard& guard) : m_guard(guard) { m_guard.m_isRunning = true; }
        ~Slice() { m_guard.m_isRunning = false; }
        Slice(const Slice&) = delete;
        Slice& operator=(const Slice&) = delete;

    private:
        SliceGuard& m_guard;
    };

private:
    bool m_isOpen = false;
    bool m_isRunning = false;
    std::optional<SliceResult> m_end;
};

}  // namespace dorvik
