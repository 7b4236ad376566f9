#include "enforcement/RuleEngine.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "enforcement/ResultsManager.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "modScriptValues.h"
#include "parser/ScopeName.h"
#include "platform/host/modHost.h"
#include "platform/host/modHostPath.h"
#include "rulebase/model/modRuleFacts.h"
#include "rulebase/script/ScriptFile.h"
#include "source/VirtualObject.h"

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

/// Work fields and the tags of a naming convention change from script to script; all else is the parser's.
bool StaysForEvent(std::string_view objectName, std::string_view propertyName) {
    return !modTextCase::Equal(objectName, scopename::kNamingConvention) &&
           !modTextCase::StartsWith(propertyName, scopename::kWorkfieldPrefix);
}

}  // namespace

RuleEngine::RuleEngine() : m_engine(*this), m_dorvik(*this) {
    AddExtension(m_engine, m_dorvik);
}

void RuleEngine::AddExtension(basic::ScriptEngine& engine, DVKSaxInterface& dorvik) {
    if (!engine.AddExtension(DVKSaxInterface::kPrefix, dorvik, &dorvik.Answers())) {
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
    m_result = ScriptResult::Nothing;
    if (IsSwitchedOff(ruleId) || IsStopRequested()) {
        return m_result;
    }
    ++m_ruleExecutionCount;
    if (!m_handler || !m_handler->IsReady()) {
        modLog::Log().LogEvent(
            "Script handler object is not defined.", "ExecuteRuleCondition", kModule);
        return m_result;
    }
    m_runningRule = ruleId;
    RunScript(ruleId);
    return m_result;
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

ResultsManager& RuleEngine::Results() const {
    if (m_resultsManager == nullptr) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return *m_resultsManager;
}

void RuleEngine::OnErrorAlert(const basic::ErrorAlert& alert) {
    if (m_resultsManager != nullptr) {
        m_resultsManager->DumpDebugPrint(
            "Sax Basic error alert: File=" + alert.File + " Source=" + alert.Source +
                " Line=" + std::to_string(alert.Line) + " Number=" + std::to_string(alert.Number),
            true);
        LogRuleOfAlert(alert);
    }
    if (alert.IsLimit) {
        CountScriptStop();
    } else {
        CountFailure(m_runningRule, NameOf(m_runningRule), "script");
    }
}

void RuleEngine::LogRuleOfAlert(const basic::ErrorAlert& alert) {
    const basic::ScriptOrigin* origin = m_engine.OriginOfLine(alert.Line);
    if (origin != nullptr) {
        m_resultsManager->DumpDebugPrint(
            "Script of " + origin->Name + ", line " +
                std::to_string(alert.Line - origin->FirstLine + 1) + ": " + alert.Description,
            true);
    }
}

void RuleEngine::CountScriptStop() {
    CountStop(m_runningRule, {NameOf(m_runningRule), "script"});
}

void RuleEngine::CountPatternStop(const IRule& rule) {
    CountStop(rule.RuleID(), {modRuleFacts::NameOf(rule), "pattern"});
}

void RuleEngine::CountStop(std::int32_t ruleId, const SwitchedOffRule& rule) {
    if (++m_limitStops.try_emplace(ruleId, StoppedRule{rule}).first->second.Count !=
        kStopsUntilSwitchedOff) {
        return;
    }
    m_switchedOff.push_back(rule);
    if (m_resultsManager != nullptr) {
        m_resultsManager->DumpDebugPrint(
            "Switched off for the rest of the review, because its " + std::string(rule.What) +
                " was stopped " + std::to_string(kStopsUntilSwitchedOff) + " times: " + rule.Name,
            true);
    }
}

std::vector<RuleEngine::StoppedRule> RuleEngine::StoppedRules() const {
    std::vector<StoppedRule> rules;
    for (const auto& [number, rule] : m_limitStops) {
        if (rule.Count < kStopsUntilSwitchedOff) {
            rules.push_back(rule);
        }
    }
    return rules;
}

void RuleEngine::CountPatternFailure(const IRule& rule) {
    CountFailure(rule.RuleID(), modRuleFacts::NameOf(rule), "pattern");
}

void RuleEngine::CountFailure(std::int32_t ruleId, const std::string& name, std::string_view what) {
    ++m_failed.try_emplace(ruleId, FailedRule{name, what}).first->second.Count;
}

bool RuleEngine::OnDoEvents() {
    modHost::YieldToInput();
    return !IsStopRequested();
}

void RuleEngine::OnDebugPrint(std::string_view line) {
    if (m_resultsManager != nullptr) {
        m_resultsManager->DumpDebugPrint(line, true);
    }
}

void RuleEngine::OnRefusedText(std::string_view text) {
    OnDebugPrint(text);
}

void RuleEngine::DebugPrint(std::string_view text) {
    Results().DumpDebugPrint(text, true);
}

void RuleEngine::DumpObject(std::string_view objectName) {
    Results().DumpVirtualObject(objectName);
}

bool RuleEngine::GetObjectProperty(
    std::string_view objectName, std::string_view propertyName, basic::Value& value) {
    const VB6ParserState& state = Results().ParserState();
    if (objectName == scopename::kSource) {
        if (const std::string* text = state.FindSourceText(propertyName)) {
            value = basic::Value::Text(*text);
            return true;
        }
    }
    bool found = false;
    std::string errorText;
    value = modScriptValues::ToValue(
        state.GetObjectProperty(objectName, propertyName, found, errorText));
    if (!found) {
        Results().DumpDebugPrint(errorText, true);
        return false;
    }
    return StaysForEvent(objectName, propertyName);
}

basic::Value RuleEngine::GetParserEvent() {
    basic::Value& name =
        m_eventNames.at(static_cast<std::size_t>(Results().ParserState().ParserEvent()));
    if (name.Type() == basic::ValueType::Empty) {
        name = basic::Value::Text(Results().GetParserEvent());
    }
    return name;
}

void RuleEngine::GetObjectWorkField(
    std::string_view objectName, std::string_view workfieldName, basic::Value& value) {
    if (const auto object = Results().ParserState().GetVirtualObject(objectName)) {
        const Variant* workfield = object->Workfields().Find(workfieldName);
        value = workfield != nullptr ? modScriptValues::ToValue(*workfield)
                                     : basic::Value::Text(std::string_view());
    }
}

bool RuleEngine::IsClassName(std::string_view name) {
    return Results().IsClassName(name);
}

bool RuleEngine::IsFormName(std::string_view name) {
    return Results().IsFormName(name);
}

bool RuleEngine::ObjectHasProperty(std::string_view objectName, std::string_view propertyName) {
    const auto object = Results().ParserState().GetVirtualObject(objectName);
    return object && object->Properties().Contains(propertyName);
}

bool RuleEngine::ObjectHasWorkfield(std::string_view objectName, std::string_view workfieldName) {
    const auto object = Results().ParserState().GetVirtualObject(objectName);
    return object && object->Workfields().Contains(workfieldName);
}

void RuleEngine::SetObjectWorkField(
    std::string_view objectName, std::string_view workfieldName, const basic::Value& value) {
    const auto object = Results().ParserState().GetVirtualObject(objectName);
    if (!object) {
        return;
    }
    KeyedArrayList& workfields = object->Workfields();
    if (workfields.Contains(workfieldName)) {
        workfields.SetItem(workfieldName, modScriptValues::ToVariant(value));
    } else {
        workfields.Add(workfieldName, modScriptValues::ToVariant(value));
    }
}

}  // namespace dorvik
