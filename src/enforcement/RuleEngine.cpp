#include "enforcement/RuleEngine.h"

#include "ScriptCallbacks.h"
#include "enforcement/ResultsManager.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "platform/host/modHost.h"
#include "platform/host/modHostPath.h"
#include "rulebase/script/ScriptFile.h"

#include <array>
#include <charconv>
#include <chrono>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_RuleEngine";

/// The rule whose main procedure has that name in the module; 0 if none.
std::int32_t RuleOfMain(std::string_view procedure) {
    constexpr std::string_view kPrefix = "Method_";
    std::int32_t rule = 0;
    if (procedure.starts_with(kPrefix)) {
        procedure.remove_prefix(kPrefix.size());
        std::from_chars(procedure.data(), procedure.data() + procedure.size(), rule);
    }
    return rule;
}

}  // namespace

RuleEngine::RuleEngine()
    : m_engine(*this), m_callbacks(std::make_unique<ScriptCallbacks>()), m_dorvik(*m_callbacks) {
    AddExtension(m_engine, m_dorvik);
}

void RuleEngine::AddExtension(basic::ScriptEngine& engine, DVKSaxInterface& dorvik) {
    if (!engine.AddExtension(DVKSaxInterface::kPrefix, dorvik, &dorvik.Cache())) {
        modLog::Log().LogEvent(
            "Failed to add an instance of the DVKSaxInterface class as an extension to Sax Basic.",
            "Class_Initialize",
            kModule);
    }
}

RuleEngine::~RuleEngine() {
    // Scripts run on the calling thread, so none can be at work here.
    Trap({kModule, "Class_Terminate"}, [&] { RemoveScript(); });
}

void RuleEngine::RemoveScript() {
    if (!m_scriptFilename.empty()) {
        ScriptFile::RemoveScriptFile(m_scriptFilename);
    }
}

bool RuleEngine::LoadScript(std::string_view filename, std::vector<basic::ScriptOrigin> origins) {
    if (filename.empty()) {
        m_loadError = "their module cannot be written to the temporary folder '" +
                      modHostPath::Shown(modHostPath::FromProgram(modHost::TemporaryFolder())) +
                      "'";
        return false;
    }
    if (filename != m_scriptFilename) {
        Trap({kModule, "LoadScript"}, [&] { RemoveScript(); });
        m_scriptFilename = filename;
    }
    m_loadError.clear();
    m_engine.SetOrigins(std::move(origins));
    m_engine.SetAcceptsModules(true);
    m_handler = m_engine.CreateHandler(ScriptFile::ScriptPrototype());
    if (m_engine.LoadModule(filename)) {
        m_engine.SetReady(true);
        return true;
    }
    m_loadError = TextOfLoadError();
    modLog::Log().LogEvent(
        "Failed to load the script file '" + m_scriptFilename +
            "' because of the following error: '" + m_loadError + "'",
        "LoadScript",
        kModule);
    return false;
}

std::string RuleEngine::TextOfLoadError() const {
    std::string text = m_engine.ErrorText();
    const auto& errors = m_engine.LoadErrors();
    if (errors.empty() || m_engine.OriginOfLine(errors.front().Place.Line) != nullptr) {
        return text;
    }
    // The entry procedure calls the main procedure of a script that has none.
    if (const auto* origin = m_engine.OriginOfRule(RuleOfMain(errors.front().Name))) {
        text += " [" + origin->Name + " has no Sub Main]";
    }
    return text;
}

ScriptResult RuleEngine::ExecuteRuleCondition(std::int32_t ruleId) {
    if (m_failures.IsDisabled(ruleId) || IsStopRequested()) {
        return ScriptResult::Nothing;
    }
    ++m_ruleExecutionCount;
    if (!m_handler || !m_handler->IsReady()) {
        modLog::Log().LogEvent(
            "Script handler object is not defined.", "ExecuteRuleCondition", kModule);
        return ScriptResult::Nothing;
    }
    m_runningRule = ruleId;
    m_callbacks->ResetResult();
    RunScript(ruleId);
    return m_callbacks->Result();
}

void RuleEngine::RunScript(std::int32_t ruleId) {
    using Clock = std::chrono::steady_clock;
    const std::array argument{basic::Value::Long(ruleId)};
    if (!m_clock) {
        m_handler->Call(argument);
        return;
    }
    const Clock::time_point start = Clock::now();
    m_handler->Call(argument);
    m_clock->Add(ruleId, std::chrono::duration<double>(Clock::now() - start).count());
}

std::string RuleEngine::NameOf(std::int32_t ruleId) const {
    const basic::ScriptOrigin* origin = m_engine.OriginOfRule(ruleId);
    return origin != nullptr ? origin->Name : "rule " + std::to_string(ruleId);
}

void RuleEngine::SetResultsManager(ResultsManager* resultsManager) {
    m_callbacks->SetResultsManager(resultsManager);
    m_log = resultsManager == nullptr ? nullptr : &resultsManager->Log();
}

void RuleEngine::OnErrorAlert(const basic::ErrorAlert& alert) {
    if (m_log != nullptr) {
        m_log->DumpDebugPrint(
            "Sax Basic error alert: File=" + alert.File + " Source=" + alert.Source +
                " Line=" + std::to_string(alert.Line) + " Number=" + std::to_string(alert.Number),
            true);
        LogRuleOfAlert(alert);
    }
    const auto script = RuleFailures::ScriptOf(m_runningRule, NameOf(m_runningRule));
    if (alert.IsLimit) {
        m_failures.CountStop(script, m_log);
    } else {
        m_failures.CountFailure(script);
    }
}

void RuleEngine::LogRuleOfAlert(const basic::ErrorAlert& alert) {
    if (const basic::ScriptOrigin* origin = m_engine.OriginOfLine(alert.Line)) {
        m_log->DumpDebugPrint(
            "Script of " + origin->Name + ", line " +
                std::to_string(alert.Line - origin->FirstLine + 1) + ": " + alert.Description,
            true);
    }
}

void RuleEngine::CountPatternStop(const IRule& rule) {
    m_failures.CountStop(RuleFailures::PatternOf(rule), m_log);
}

void RuleEngine::CountPatternFailure(const IRule& rule) {
    m_failures.CountFailure(RuleFailures::PatternOf(rule));
}

bool RuleEngine::OnDoEvents() {
    modHost::YieldToInput();
    return !IsStopRequested();
}

void RuleEngine::OnDebugPrint(std::string_view line) {
    if (m_log != nullptr) {
        m_log->DumpDebugPrint(line, true);
    }
}

void RuleEngine::OnRefusedText(std::string_view text) {
    OnDebugPrint(text);
}

}  // namespace dorvik
