#pragma once

#include "basic/engine/ScriptEngine.h"
#include "enforcement/DVKSaxInterface.h"
#include "enforcement/IDVKSaxEvents.h"
#include "enforcement/RuleClock.h"
#include "parser/ParserEvent.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class IRule;
class ResultsManager;

/// What a rule's script asked for. If it asks twice, the last one counts.
enum class ScriptResult : std::int32_t {
    Nothing = 1,
    CancelPendingViolation = 2,
    RaiseViolation = 3,
    ApplyConvention = 5,
};

/// Runs rules on behalf of a review and counts them. One per review, owned by the driver.
///
/// All scripts of a rulebase are loaded as one generated module; afterwards a rule runs by its
/// number. A script reaches the objects in scope through the prefix "Dorvik.". It does not raise a
/// violation itself: it leaves a `ScriptResult`, on which the caller acts.
///
/// A script that uses up its limits is stopped and logged like any run-time error, and a pattern is given
/// up that takes more steps than a sane one. After the third such stop the rule is switched off for
/// the rest of the review.
///
/// Unauthorised keywords are the rules without a script: whoever tests one says so through
/// `IncrementRuleExecutionCount`. The total goes into the results database at the end of a project
/// and runs on from project to project.
class RuleEngine final : private basic::IScriptHost, private IDVKSaxEvents {
public:
    static constexpr int kStopsUntilSwitchedOff = 3;

    RuleEngine();
    /// Removes the module that was loaded from disk.
    ~RuleEngine() override;
    RuleEngine(const RuleEngine&) = delete;
    RuleEngine& operator=(const RuleEngine&) = delete;

    /// Lets the engine's scripts reach the object. Where that fails, it is logged and the scripts do without.
    static void AddExtension(basic::ScriptEngine& engine, DVKSaxInterface& dorvik);

    /// Whom scripts talk to; null between projects. REQUIRES: it outlives its time here.
    void SetResultsManager(ResultsManager* resultsManager) { m_resultsManager = resultsManager; }

    void IncrementRuleExecutionCount() { ++m_ruleExecutionCount; }
    std::int32_t RuleExecutionCount() const { return m_ruleExecutionCount; }
    void SetRuleExecutionCount(std::int32_t count) { m_ruleExecutionCount = count; }

    /// What a script may use up in one call.
    void SetLimits(const basic::ScriptLimits& limits) { m_engine.SetLimits(limits); }
    /// Asked while a script runs: true stops it.
    void SetStopRequest(std::function<bool()> isStopRequested) {
        m_isStopRequested = std::move(isStopRequested);
    }

    /// From now on no script begins, and one that runs is stopped at its next look. The request is not
    /// asked any more.
    void Stop() { m_isStopped = true; }

    /// Loads the generated module, which this object removes at its end, or when it loads another one.
    /// `origins` tells which of its lines are which rule's. False if it does not compile; the reason is
    /// logged.
    bool LoadScript(std::string_view filename, std::vector<basic::ScriptOrigin> origins = {});
    /// Why the module did not load, with the rule and the line in its script; empty if it did.
    const std::string& LoadError() const { return m_loadError; }
    /// A new event begins, and what the objects have to tell is no longer what it was.
    void BeginEvent() { m_dorvik.ForgetAnswers(); }
    /// Runs the script of a rule. A rule without one gives `Nothing`; a script that fails, what it had
    /// asked for until then.
    ScriptResult ExecuteRuleCondition(std::int32_t ruleId);

    /// From now on the time of each script is taken, which costs about as much as a short script.
    void MeasureRules() { m_clock.emplace(); }
    /// The times since then, the most expensive rule first; nothing unless they are measured.
    std::vector<RuleClock::RuleTime> RuleTimes() const {
        return m_clock ? m_clock->RuleTimes() : std::vector<RuleClock::RuleTime>();
    }
    /// The rule of that number as errors name it: "rule 12 (No GoTo)".
    std::string NameOf(std::int32_t ruleId) const;

    bool IsSwitchedOff(std::int32_t ruleId) const {
        if (m_switchedOff.empty()) {
            return false;
        }
        const auto stops = m_limitStops.find(ruleId);
        return stops != m_limitStops.end() && stops->second.Count >= kStopsUntilSwitchedOff;
    }
    /// For whoever tests a rule's pattern: the test was given up.
    void CountPatternStop(const IRule& rule);

    struct SwitchedOffRule {
        std::string Name;       // as errors name it: "rule 12 (No GoTo)"
        std::string_view What;  // was stopped: its "script" or its "pattern"
    };
    const std::vector<SwitchedOffRule>& SwitchedOffRules() const { return m_switchedOff; }

    /// A rule that was stopped at a limit, but not so often that it was switched off.
    struct StoppedRule {
        SwitchedOffRule Rule;
        int Count = 0;
    };
    std::vector<StoppedRule> StoppedRules() const;

    /// For whoever tests a rule's pattern: it is none.
    void CountPatternFailure(const IRule& rule);

    /// A rule that failed without being stopped, and so did not find what it is for.
    struct FailedRule {
        std::string Name;
        std::string_view What;  // failed: its "script" or its "pattern"
        std::int64_t Count = 0;
    };
    /// By the number of the rule.
    const std::map<std::int32_t, FailedRule>& FailedRules() const { return m_failed; }

private:
    void OnErrorAlert(const basic::ErrorAlert& alert) override;
    bool OnDoEvents() override;
    void OnDebugPrint(std::string_view line) override;
    void OnRefusedText(std::string_view text) override;

    void ApplyConvention() override { m_result = ScriptResult::ApplyConvention; }
    void CancelPendingViolation() override { m_result = ScriptResult::CancelPendingViolation; }
    void RaiseViolation() override { m_result = ScriptResult::RaiseViolation; }
    void DebugPrint(std::string_view text) override;
    void DumpObject(std::string_view objectName) override;
    bool GetObjectProperty(
        std::string_view objectName, std::string_view propertyName, basic::Value& value) override;
    basic::Value GetParserEvent() override;
    void GetObjectWorkField(
        std::string_view objectName, std::string_view workfieldName, basic::Value& value) override;
    bool IsClassName(std::string_view name) override;
    bool IsFormName(std::string_view name) override;
    bool ObjectHasProperty(std::string_view objectName, std::string_view propertyName) override;
    bool ObjectHasWorkfield(std::string_view objectName, std::string_view workfieldName) override;
    void SetObjectWorkField(
        std::string_view objectName,
        std::string_view workfieldName,
        const basic::Value& value) override;

    bool IsStopRequested() const {
        return m_isStopped || (m_isStopRequested && m_isStopRequested());
    }
    void RunScript(std::int32_t ruleId);
    ResultsManager& Results() const;
    /// Tells the log which rule failed, and where in its own script.
    void LogRuleOfAlert(const basic::ErrorAlert& alert);
    void CountScriptStop();
    void CountStop(std::int32_t ruleId, const SwitchedOffRule& rule);
    void CountFailure(std::int32_t ruleId, const std::string& name, std::string_view what);
    /// Why the module did not load, and the rule that it is about.
    std::string TextOfLoadError() const;
    void RemoveScript();

    basic::ScriptEngine m_engine;
    DVKSaxInterface m_dorvik;
    std::optional<basic::ScriptHandler> m_handler;
    std::optional<RuleClock> m_clock;
    ResultsManager* m_resultsManager = nullptr;
    std::array<basic::Value, kLastParserEvent + 1> m_eventNames;  // as texts, each made once
    ScriptResult m_result = ScriptResult::Nothing;
    std::int32_t m_ruleExecutionCount = 0;
    std::string m_scriptFilename;  // empty until loaded
    std::string m_loadError;
    std::function<bool()> m_isStopRequested;
    bool m_isStopped = false;
    std::int32_t m_runningRule = 0;
    std::map<std::int32_t, StoppedRule> m_limitStops;  // by rule number
    std::vector<SwitchedOffRule> m_switchedOff;
    std::map<std::int32_t, FailedRule> m_failed;
};

}  // namespace dorvik
