#include "ScriptCallbacks.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "enforcement/ResultsManager.h"
#include "modScriptValues.h"
#include "parser/ScopeName.h"
#include "source/VirtualObject.h"

#include <string>

namespace dorvik {

namespace {

/// Work fields and the tags of a naming convention change from script to script; everything else is the parser's.
bool IsValidForEvent(std::string_view objectName, std::string_view propertyName) {
    return !modTextCase::Equal(objectName, scopename::kNamingConvention) &&
           !modTextCase::StartsWith(propertyName, scopename::kWorkfieldPrefix);
}

}  // namespace

ResultsManager& ScriptCallbacks::Results() const {
    if (m_resultsManager == nullptr) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return *m_resultsManager;
}

void ScriptCallbacks::DebugPrint(std::string_view text) {
    Results().DumpDebugPrint(text, true);
}

void ScriptCallbacks::DumpObject(std::string_view objectName) {
    Results().DumpVirtualObject(objectName);
}

bool ScriptCallbacks::GetObjectProperty(
    std::string_view objectName, std::string_view propertyName, basic::Value& value) {
    const VB6ParserState& state = Results().ParserState();
    if (objectName == scopename::kSource) {
        if (const std::string* text = state.Source().FindText(propertyName)) {
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
    return IsValidForEvent(objectName, propertyName);
}

basic::Value ScriptCallbacks::GetParserEvent() {
    basic::Value& name =
        m_eventNames.at(static_cast<std::size_t>(Results().ParserState().ParserEvent()));
    if (name.Type() == basic::ValueType::Empty) {
        name = basic::Value::Text(Results().GetParserEvent());
    }
    return name;
}

void ScriptCallbacks::GetObjectWorkField(
    std::string_view objectName, std::string_view workfieldName, basic::Value& value) {
    if (const auto object = Results().ParserState().GetVirtualObject(objectName)) {
        const Variant* workfield = object->Workfields().Find(workfieldName);
        value = workfield != nullptr ? modScriptValues::ToValue(*workfield)
                                     : basic::Value::Text(std::string_view());
    }
}

bool ScriptCallbacks::IsClassName(std::string_view name) {
    return Results().IsClassName(name);
}

bool ScriptCallbacks::IsFormName(std::string_view name) {
    return Results().IsFormName(name);
}

bool ScriptCallbacks::ObjectHasProperty(
    std::string_view objectName, std::string_view propertyName) {
    const auto object = Results().ParserState().GetVirtualObject(objectName);
    return object && object->Properties().Contains(propertyName);
}

bool ScriptCallbacks::ObjectHasWorkfield(
    std::string_view objectName, std::string_view workfieldName) {
    const auto object = Results().ParserState().GetVirtualObject(objectName);
    return object && object->Workfields().Contains(workfieldName);
}

void ScriptCallbacks::SetObjectWorkField(
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
