#include "enforcement/RuleEngine.h"

#include "base/BasicError.h"
#include "enforcement/ResultsManager.h"
#include "enforcement/modScriptValues.h"
#include "foundation/LogFile.h"
#include "foundation/Trap.h"
#include "foundation/modLog.h"
#include "platform/modHost.h"
#include "rulebase/ScriptFile.h"
#include "source/VirtualObject.h"

#include <array>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_RuleEngine";

}  // namespace

RuleEngine::RuleEngine() : m_engine(*this), m_dorvik(*this) {
    if (!m_engine.AddExtension(DVKSaxInterface::kPrefix, m_dorvik)) {
        modLog::Log().LogEvent(
            "Failed to add an instance of the DVKSaxInterface class as an extension to Sax Basic.",
            "Class_Initialize",
            kModule);
    }
}

RuleEngine::~RuleEngine() {
    // Scripts run on the calling thread, so none can be at work here.
    Trap({kModule, "Class_Terminate"}, [&] {
        if (!m_scriptFilename.empty()) {
            ScriptFile::RemoveScriptFile(m_scriptFilename);
        }
    });
}

bool RuleEngine::LoadScript(std::string_view filename, std::vector<basic::ScriptOrigin> origins) {
    if (filename.empty()) {
        m_loadError = "the module of the scripts cannot be written to the temporary folder";
        return false;
    }
    m_scriptFilename = filename;
    m_engine.SetOrigins(std::move(origins));
    m_engine.SetAcceptsModules(true);
    m_handler = m_engine.CreateHandler(ScriptFile::ScriptPrototype());
    if (m_engine.LoadModule(filename)) {
        m_engine.SetReady(true);
        return true;
    }
    m_loadError = m_engine.ErrorText();
    modLog::Log().LogEvent(
        "Failed to load the script file '" + m_scriptFilename +
            "' because of the following error: '" + m_loadError + "'",
        "LoadScript",
        kModule);
    return false;
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
    const std::array argument{basic::Value::Long(ruleId)};
    m_handler->Call(argument);
    return m_result;
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
        CountLimitStop();
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

void RuleEngine::CountLimitStop() {
    if (++m_limitStops[m_runningRule] != kStopsUntilSwitchedOff) {
        return;
    }
    const basic::ScriptOrigin* origin = m_engine.OriginOfRule(m_runningRule);
    m_switchedOff.push_back(
        origin != nullptr ? origin->Name : "rule " + std::to_string(m_runningRule));
    if (m_resultsManager != nullptr) {
        m_resultsManager->DumpDebugPrint(
            "Switched off for the rest of the review, because its script was stopped " +
                std::to_string(kStopsUntilSwitchedOff) + " times: " + m_switchedOff.back(),
            true);
    }
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

void RuleEngine::GetObjectProperty(
    std::string_view objectName, std::string_view propertyName, basic::Value& value) {
    bool found = false;
    std::string errorText;
    value = modScriptValues::ToValue(
        Results().ParserState().GetObjectProperty(objectName, propertyName, found, errorText));
    if (!found) {
        Results().DumpDebugPrint(errorText, true);
    }
}

std::string RuleEngine::GetParserEvent() {
    return Results().GetParserEvent();
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
