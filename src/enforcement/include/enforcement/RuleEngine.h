#pragma once

#include "basic/engine/ScriptEngine.h"
#include "enforcement/DVKSaxInterface.h"
#include "enforcement/RuleClock.h"
#include "enforcement/RuleFailures.h"
#include "enforcement/ScriptResult.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ResultsManager;
class ReviewLog;
class ScriptCallbacks;

/// Runs the scripts of rules on behalf of a review and counts the rules that ran. One per review, owned by the
/// driver.
///
/// All scripts of a rulebase are loaded as one generated module; afterwards a rule runs by its number. A script
/// reaches the objects in scope through the prefix "Dorvik.". It does not raise a violation itself: it leaves a
/// `ScriptResult`, on which the caller acts.
///
/// A script that exceeds its limits is stopped and logged like any run-time error; so is a pattern that takes
/// too many steps. `Failures` counts both, and disables a rule that is stopped again and again.
///
/// Unauthorised keywords are rules without a script: the code that tests them counts each test with
/// `IncrementRuleExecutionCount`. The total is stored in the results database at the end of a project and
/// continues from project to project.
class RuleEngine final : private basic::IScriptHost {
public:
    RuleEngine();
    /// Deletes the file of the loaded module.
    ~RuleEngine() override;
    RuleEngine(const RuleEngine&) = delete;
    RuleEngine& operator=(const RuleEngine&) = delete;

    /// Makes the object available to the engine's scripts. A failure is logged; the scripts then run without it.
    static void AddExtension(basic::ScriptEngine& engine, DVKSaxInterface& dorvik);

    /// The project review that scripts reach; null between projects. REQUIRES: it outlives its use here.
    void SetResultsManager(ResultsManager* resultsManager);

    void IncrementRuleExecutionCount() { ++m_ruleExecutionCount; }
    std::int32_t RuleExecutionCount() const { return m_ruleExecutionCount; }

    /// The limits of one call of a script.
    void SetLimits(const basic::ScriptLimits& limits) { m_engine.SetLimits(limits); }
    /// Called while a script runs; if it returns true, the script is stopped.
    void SetStopRequest(std::function<bool()> isStopRequested) {
        m_isStopRequested = std::move(isStopRequested);
    }

    /// From now on no script is started, and a running one is stopped when it next polls. The stop request is
    /// no longer called.
    void Stop() { m_isStopped = true; }

    /// Loads the generated module. The file is deleted with this object, or when another module is loaded.
    /// `origins` maps its lines to rules. False if it does not compile; the reason is logged.
    bool LoadScript(std::string_view filename, std::vector<basic::ScriptOrigin> origins = {});
    /// Why the module did not load, with the rule and the line in its script; empty if it did.
    const std::string& LoadError() const { return m_loadError; }
    /// A new event begins: the cached properties of objects are no longer valid.
    void BeginEvent() { m_dorvik.ClearCache(); }
    /// Runs the script of a rule. The result is `Nothing` for a rule without a script and for a disabled rule;
    /// for a script that fails, it is what the script had requested before.
    ScriptResult ExecuteRuleCondition(std::int32_t ruleId);

    /// From now on the time of each script is measured, which costs about as much as a short script.
    void MeasureRules() { m_clock.emplace(); }
    /// The times since then, the most expensive rule first; empty unless they are measured.
    std::vector<RuleClock::RuleTime> RuleTimes() const {
        return m_clock ? m_clock->RuleTimes() : std::vector<RuleClock::RuleTime>();
    }
    /// The rule of that number as messages name it: "rule 12 (No GoTo)".
    std::string NameOf(std::int32_t ruleId) const;

    /// The rules that failed, were stopped or are disabled.
    const RuleFailures& Failures() const { return m_failures; }
    /// A pattern of the rule was tested, and the test was stopped at a limit.
    void CountPatternStop(const IRule& rule);
    /// A pattern of the rule was tested, and is malformed.
    void CountPatternFailure(const IRule& rule);

private:
    void OnErrorAlert(const basic::ErrorAlert& alert) override;
    bool OnDoEvents() override;
    void OnDebugPrint(std::string_view line) override;
    void OnRefusedText(std::string_view text) override;

    bool IsStopRequested() const {
        return m_isStopped || (m_isStopRequested && m_isStopRequested());
    }
    void RunScript(std::int32_t ruleId);
    /// Logs which rule failed, and at which line of its own script.
    void LogRuleOfAlert(const basic::ErrorAlert& alert);
    /// Why the module did not load, with the rule concerned.
    std::string TextOfLoadError() const;
    void RemoveScript();

    basic::ScriptEngine m_engine;
    std::unique_ptr<ScriptCallbacks> m_callbacks;
    DVKSaxInterface m_dorvik;
    std::optional<basic::ScriptHandler> m_handler;
    std::optional<RuleClock> m_clock;
    const ReviewLog* m_log = nullptr;  // null between projects
    std::int32_t m_ruleExecutionCount = 0;
    std::string m_scriptFilename;  // empty until loaded
    std::string m_loadError;
    std::function<bool()> m_isStopRequested;
    bool m_isStopped = false;
    std::int32_t m_runningRule = 0;
    RuleFailures m_failures;
};

}  // namespace dorvik
