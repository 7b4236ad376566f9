#pragma once

#include "review/SliceResult.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace dorvik {

/// Runs steps until `ticks` are done or one gives another result than `Continue`. 0 and 1 both mean
/// one step, because the count is tested after each step; `kWholeReview` means no limit.
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

/// Decides whether a machine can run a time slice now: not before it was initialised, not inside another slice,
/// and not after its end.
class SliceGuard {
public:
    /// The machine is initialised.
    void Open() { m_isOpen = true; }
    bool IsOpen() const { return m_isOpen; }
    /// The machine has come to its end. If it is closed again, the first result is kept.
    void Close(SliceResult result) {
        if (!m_end) {
            m_end = result;
        }
    }
    bool IsRunning() const { return m_isRunning; }

    /// True if a slice may run.
    bool IsReady() const { return m_isOpen && !m_end && !m_isRunning; }
    /// The result of a slice that must not run now, which is logged under the module; nothing if a slice may run.
    std::optional<SliceResult> Reject(std::string_view module) const;

    /// A slice is running while this object exists.
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
    /// The result of a slice that must not run, and a sentence for the log.
    struct Rejection {
        SliceResult Result;
        std::string_view Reason;
    };

    std::optional<Rejection> CurrentRejection() const;

    bool m_isOpen = false;
    bool m_isRunning = false;
    std::optional<SliceResult> m_end;
};

}  // namespace dorvik
