#pragma once

#include "basic/program/Program.h"
#include "basic/values/ScriptContext.h"

#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik::basic {

struct MachineState;
struct ScriptStop;

/// Runs compiled procedures. A register machine: the frame of a procedure is a range of slots on one stack
/// (`FrameStack`), and instructions name slots.
///
/// This class begins and ends runs: it loads a program, passes arguments, catches the errors of scripts and
/// keeps the limits. The frequent instructions, and those on slots whose type the compiler knows, are
/// carried out in the loop (`Loop.cpp`); all others are functions of `modOperations`.
class Machine final : public ScriptContext {
public:
    /// REQUIRES: the host outlives this.
    explicit Machine(IScriptHost& host);
    ~Machine() override;
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    void SetLimits(const ScriptLimits& limits);
    /// Takes a program, which must outlive its use here, or none; module variables get their initial values.
    void Load(const Program* program);
    /// Runs a procedure to its end. False if an error ended it: `TakeAlert` has all but the file then.
    /// REQUIRES: a program; as many arguments as the procedure has parameters; not running.
    bool Run(std::size_t procedure, std::span<const Value> arguments);
    ErrorAlert TakeAlert() { return std::exchange(m_alert, {}); }
    bool IsRunning() const { return m_isRunning; }

    bool ComparesText() const override;
    ErrorState& CurrentError() override;
    void Breathe() override;
    void CountText(std::size_t bytes) override;
    std::uint32_t& RandomState() override { return m_random; }
    double NowInDays() override;
    std::int32_t LastLineNumber() const override;
    [[noreturn]] void Refuse(std::string_view what) override;

private:
    static constexpr std::uint32_t kFirstRandomState = 327'680;

    void MakeGlobals();
    void Begin(std::size_t index, std::span<const Value> arguments);
    void TakeArguments(const Procedure& procedure, std::span<const Value> arguments);
    bool RunToEnd(std::size_t procedure, std::span<const Value> arguments);
    bool HandleError(ErrorState error, bool isLimit);
    bool EndBy(const ScriptStop& stop);
    void CleanUpAfterRun();
    void ScheduleCycleSearch();

    IScriptHost& m_host;
    ScriptLimits m_limits;
    std::unique_ptr<MachineState> m_state;
    std::vector<Value> m_hostArguments;  // what ByRef parameters of the first procedure refer to
    ErrorAlert m_alert;                  // of the error that ended the last run
    std::size_t m_searchCyclesAt =
        0;  // bytes in use; beyond it, unreachable containers are searched for
    std::uint32_t m_random = kFirstRandomState;
    bool m_hasGlobals = false;
    bool m_isRunning = false;
};

}  // namespace dorvik::basic
