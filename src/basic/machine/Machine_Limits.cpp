#include "basic/machine/Machine.h"
#include "basic/values/DateSerial.h"
#include "basic/values/RuntimeErrors.h"
#include "platform/host/modHost.h"

namespace dorvik::basic {

namespace {

/// Units between two looks at the clock and the host: some tens of microseconds of ordinary code, so that
/// neither is felt, and a slow operation may cost many.
constexpr std::int64_t kSlice = 20'000;
/// What a step of a built-in function's long work counts for.
constexpr std::size_t kBreath = 200;

}  // namespace

void Machine::StartClock() {
    m_spent = 0;
    m_budget = kSlice;
    m_hasStarted = false;
}

void Machine::CheckBudget() {
    m_spent += kSlice - m_budget;
    m_budget = kSlice;
    const std::int32_t number = runtimeerror::kUserInterrupt;
    if (m_limits.Instructions > 0 && m_spent > m_limits.Instructions) {
        throw ScriptStop{
            number,
            "The script was stopped: the limit of " + std::to_string(m_limits.Instructions) +
                " instructions was reached",
            true};
    }
    // The clock starts at the first look: the many calls that end before it need not ask for the time.
    const auto now = std::chrono::steady_clock::now();
    if (!m_hasStarted) {
        m_started = now;
    }
    m_hasStarted = true;
    const auto passed = now - m_started;
    if (m_limits.Milliseconds > 0 && passed > std::chrono::milliseconds(m_limits.Milliseconds)) {
        throw ScriptStop{
            number,
            "The script was stopped: the limit of " + std::to_string(m_limits.Milliseconds) +
                " milliseconds was reached",
            true};
    }
    AskHost();
}

void Machine::AskHost() {
    if (!m_host.OnDoEvents()) {
        throw ScriptStop{runtimeerror::kUserInterrupt, "User interrupt occurred", false};
    }
}

void Machine::Breathe() {
    Spend(kBreath);
}

void Machine::CountText(std::size_t bytes) {
    constexpr std::size_t kBytesOfAUnit = 64;
    Spend(bytes / kBytesOfAUnit);
}

void Machine::Yield(Instruction, Value*) {
    AskHost();
}

double Machine::NowInDays() {
    const auto [time, fraction] = modHost::ExactNow();
    const std::int64_t day = modDateSerial::DayNumber(time.Year, time.Month, time.Day);
    const int second = (time.Hour * 60 + time.Minute) * 60 + time.Second;
    return static_cast<double>(day) + (second + fraction) / modDateSerial::kSecondsPerDay;
}

void Machine::Refuse(std::string_view what) {
    m_host.OnRefusedText(what);
    RaiseError(runtimeerror::kPermissionDenied);
}

}  // namespace dorvik::basic
