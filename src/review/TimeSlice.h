#pragma once

#include "review/SliceResult.h"

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

    /// True if a slice may run.
    bool IsReady() const { return m_isOpen && !m_end && !m_isRunning; }
    /// The result of a slice that comes at a wrong moment and does not run, which is logged under the module;
    /// nothing if a slice may run.
    std::optional<SliceResult> Refuse(std::string_view module) const;

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
    /// The result of a slice at a wrong moment, and a sentence for the log.
    struct Refusal {
        SliceResult Result;
        std::string_view Reason;
    };

    std::optional<Refusal> RefusalNow() const;

    bool m_isOpen = false;
    bool m_isRunning = false;
    std::optional<SliceResult> m_end;
};

}  // namespace dorvik
