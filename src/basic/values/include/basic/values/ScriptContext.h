#pragma once

#include "basic/values/Value.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace dorvik::basic {

/// The state of `Err`.
struct ErrorState {
    std::int32_t Number = 0;
    std::string Description;
    std::string Source;
    std::string HelpFile;
    std::int32_t HelpContext = 0;

    void Clear() {
        Number = 0;
        Description.clear();
        Source.clear();
        HelpFile.clear();
        HelpContext = 0;
    }
};

/// What the built-in functions and objects ask of the machine that runs them.
class ScriptContext {
public:
    virtual ~ScriptContext() = default;

    /// The machine that runs on this thread, the innermost if one runs within another; null if none.
    static ScriptContext* Running() { return t_running; }

    /// Whether the module says `Option Compare Text`.
    virtual bool ComparesText() const = 0;
    /// The error object's state; built-in `Error` and `Err` read it.
    virtual ErrorState& CurrentError() = 0;
    /// Called inside long work (a search through a long text, a big loop of a function); raises the
    /// uncatchable stop when the host cancels or a limit is passed.
    virtual void Breathe() = 0;
    /// Counts bytes of texts that a function has looked at. Raises like `Breathe`.
    virtual void CountText(std::size_t bytes) = 0;
    /// The last value and the state of `Rnd` (24 bits).
    virtual std::uint32_t& RandomState() = 0;
    /// Local time in days since 30 Dec 1899.
    virtual double NowInDays() = 0;
    /// The line number label passed last, for `Erl`.
    virtual std::int32_t LastLineNumber() const = 0;
    /// `Shell`, `MsgBox` and their like: reports to the host the text it would have shown, then raises 70.
    [[noreturn]] virtual void Refuse(std::string_view what) = 0;

private:
    friend class RunningScope;
    inline static constinit thread_local ScriptContext* t_running = nullptr;
};

/// Makes a context the running one as long as it lives. Objects outlive the machine that made them and may
/// be used by another one, so they get the running one whenever they need it.
class RunningScope {
public:
    explicit RunningScope(ScriptContext& context)
        : m_outer(std::exchange(ScriptContext::t_running, &context)) {}
    RunningScope(const RunningScope&) = delete;
    RunningScope& operator=(const RunningScope&) = delete;
    ~RunningScope() { ScriptContext::t_running = m_outer; }

private:
    ScriptContext* m_outer;
};

}  // namespace dorvik::basic
