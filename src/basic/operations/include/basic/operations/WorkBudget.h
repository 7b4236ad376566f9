#pragma once

#include "basic/program/ScriptHost.h"

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace dorvik::basic {

/// What one call from the host may use up in instructions and in time. Work is counted in units of about one
/// instruction; every few thousand units the limits are checked and the host gets its turn.
class WorkBudget {
public:
    /// REQUIRES: the host outlives this.
    explicit WorkBudget(IScriptHost& host) : m_host(host) {}

    void SetLimits(const ScriptLimits& limits);
    /// A call from the host begins.
    void Start();

    /// Counts work. Throws `ScriptStop` when a limit is passed or the host cancels.
    void Spend(std::size_t units) {
        m_left -= static_cast<std::int64_t>(units);
        if (m_left < 0) {
            Check();
        }
    }
    /// Counts work where nothing may be thrown; the next `Spend` or `Check` checks the limits.
    void Charge(std::int64_t units) { m_left -= units; }
    bool IsCheckDue() const { return m_left < 0; }
    /// Throws like `Spend`.
    void Check();
    /// The host's turn. Throws `ScriptStop` when it cancels.
    void AskHost();

private:
    IScriptHost& m_host;
    std::int64_t m_left = 0;  // until the next check
    std::int64_t m_spent = 0;
    std::int64_t m_mostUnits = 0;
    std::int32_t m_mostMilliseconds = 0;
    bool m_hasStarted = false;
    std::chrono::steady_clock::time_point m_started;
};

}  // namespace dorvik::basic
