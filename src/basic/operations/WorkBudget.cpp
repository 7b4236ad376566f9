#include "basic/operations/WorkBudget.h"

#include "basic/operations/ScriptStop.h"
#include "basic/values/RuntimeErrors.h"

#include <string>

namespace dorvik::basic {

namespace {

/// Units between two checks of the clock and the host: some tens of microseconds of ordinary code, so that
/// neither is felt, and a slow operation may cost many.
constexpr std::int64_t kSlice = 20'000;

[[noreturn]] void StopAtLimit(std::int64_t limit, const char* what) {
    throw ScriptStop{
        runtimeerror::kUserInterrupt,
        "The script was stopped: the limit of " + std::to_string(limit) + " " + what +
            " was reached",
        true};
}

}  // namespace

void WorkBudget::SetLimits(const ScriptLimits& limits) {
    m_mostUnits = limits.Instructions;
    m_mostMilliseconds = limits.Milliseconds;
}

void WorkBudget::Start() {
    m_spent = 0;
    m_left = kSlice;
    m_hasStarted = false;
}

void WorkBudget::Check() {
    m_spent += kSlice - m_left;
    m_left = kSlice;
    if (m_mostUnits > 0 && m_spent > m_mostUnits) {
        StopAtLimit(m_mostUnits, "instructions");
    }
    // The clock starts at the first check: the many calls that end before it need not ask for the time.
    const auto now = std::chrono::steady_clock::now();
    if (!m_hasStarted) {
        m_started = now;
    }
    m_hasStarted = true;
    const auto passed = now - m_started;
    if (m_mostMilliseconds > 0 && passed > std::chrono::milliseconds(m_mostMilliseconds)) {
        StopAtLimit(m_mostMilliseconds, "milliseconds");
    }
    AskHost();
}

void WorkBudget::AskHost() {
    if (!m_host.OnDoEvents()) {
        throw ScriptStop{runtimeerror::kUserInterrupt, "User interrupt occurred", false};
    }
}

}  // namespace dorvik::basic
