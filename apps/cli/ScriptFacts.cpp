#include "cli/ScriptFacts.h"

#include "base/modTextCase.h"
#include "cli/Console.h"

#include <algorithm>
#include <limits>
#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

namespace dorvik {

namespace {

constexpr std::string_view kWorkfieldPrefix = "WF.";

using Json = rapidjson::Value;

std::string_view TextOf(const Json& text) {
    return {text.GetString(), text.GetStringLength()};
}

/// A fact's value. False for one of a kind that facts do not have.
bool ReadValue(const Json& json, basic::Value& value) {
    if (json.IsString()) {
        value = basic::Value::Text(TextOf(json));
    } else if (json.IsInt()) {
        value = basic::Value::Long(json.GetInt());
    } else if (json.IsBool()) {
        value = basic::Value::Boolean(json.GetBool());
    } else {
        return false;
    }
    return true;
}

template <class Values>
bool ReadValues(
    const Json& object,
    const std::string& name,
    const char* key,
    Values& values,
    std::string& error) {
    if (!object.HasMember(key)) {
        return true;
    }
    if (!object[key].IsObject()) {
        error = "the '" + std::string(key) + "' of '" + name + "' are no JSON object";
        return false;
    }
    for (const auto& [propertyName, json] : object[key].GetObject()) {
        if (!ReadValue(json, values[modTextCase::ToLower(TextOf(propertyName))])) {
            error = "'" + name + "." + propertyName.GetString() +
                    "' is no text, whole number or boolean";
            return false;
        }
    }
    return true;
}

bool ReadNames(
    const Json& facts, const char* key, std::vector<std::string>& names, std::string& error) {
    if (!facts.HasMember(key)) {
        return true;
    }
    const Json& list = facts[key];
    const bool isListOfTexts =
        list.IsArray() &&
        std::ranges::all_of(list.GetArray(), [](const Json& name) { return name.IsString(); });
    if (!isListOfTexts) {
        error = "'" + std::string(key) + "' is no list of names";
        return false;
    }
    for (const Json& name : list.GetArray()) {
        names.emplace_back(TextOf(name));
    }
    return true;
}

bool Holds(const std::vector<std::string>& names, std::string_view name) {
    return std::ranges::any_of(
        names, [name](const std::string& known) { return modTextCase::Equal(known, name); });
}

void PrintLine(std::string_view mark, std::string_view text = {}) {
    std::string line(mark);
    if (!text.empty()) {
        line.append(" ").append(text);
    }
    modConsole::Print(line.append("\n"));
}

}  // namespace

bool ScriptFacts::Read(const std::string& json, std::string& error) {
    rapidjson::Document facts;
    // Iterative, so that no depth of nesting can overflow the stack.
    facts.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag>(
        json.data(), json.size());
    if (facts.HasParseError()) {
        error = "no JSON at byte " + std::to_string(facts.GetErrorOffset() + 1) + ": " +
                rapidjson::GetParseError_En(facts.GetParseError());
        return false;
    }
    if (!facts.IsObject()) {
        error = "the facts are no JSON object";
        return false;
    }
    if (facts.HasMember("event")) {
        if (!facts["event"].IsString()) {
            error = "'event' is no text";
            return false;
        }
        m_event = TextOf(facts["event"]);
    }
    if (facts.HasMember("objects")) {
        if (!facts["objects"].IsObject()) {
            error = "'objects' is no JSON object";
            return false;
        }
        for (const auto& [name, object] : facts["objects"].GetObject()) {
            const std::string objectName(TextOf(name));
            Object& read = m_objects[modTextCase::ToLower(objectName)];
            if (!object.IsObject()) {
                error = "'" + objectName + "' is no JSON object";
                return false;
            }
            if (!ReadValues(object, objectName, "properties", read.Properties, error) ||
                !ReadValues(object, objectName, "workfields", read.Workfields, error)) {
                return false;
            }
        }
    }
    return ReadNames(facts, "classes", m_classes, error) &&
           ReadNames(facts, "forms", m_forms, error);
}

void ScriptFacts::ApplyConvention() {
    PrintLine("[apply]");
}

void ScriptFacts::CancelPendingViolation() {
    PrintLine("[cancel]");
}

void ScriptFacts::RaiseViolation() {
    PrintLine("[raise]");
}

void ScriptFacts::DebugPrint(std::string_view text) {
    PrintLine("[debug]", text);
}

void ScriptFacts::DumpObject(std::string_view objectName) {
    PrintLine("[dump]", objectName);
}

ScriptFacts::Object* ScriptFacts::Find(std::string_view objectName) {
    const auto found = m_objects.find(modTextCase::ToLower(objectName));
    return found != m_objects.end() ? &found->second : nullptr;
}

std::string ScriptFacts::MissingText(
    std::string_view objectName, std::string_view propertyName, bool isObjectKnown) {
    if (!isObjectKnown) {
        return "Unknown virtual object '" + std::string(objectName) + "' or object not in scope.";
    }
    for (const std::string_view ofTheParser : {"Source", "NamingConvention"}) {
        if (modTextCase::Equal(objectName, ofTheParser)) {
            return "Invalid " + std::string(ofTheParser) + " property '" +
                   std::string(propertyName) + "' specified.";
        }
    }
    const bool isWorkfield = modTextCase::StartsWith(propertyName, kWorkfieldPrefix);
    return std::string("Virtual object ") + (isWorkfield ? "workfield" : "property") + " '" +
           std::string(objectName) + "." + std::string(propertyName) + "' not found.";
}

void ScriptFacts::GetObjectProperty(
    std::string_view objectName, std::string_view propertyName, basic::Value& value) {
    if (Object* object = Find(objectName)) {
        const bool isWorkfield = modTextCase::StartsWith(propertyName, kWorkfieldPrefix);
        const Values& values = isWorkfield ? object->Workfields : object->Properties;
        const std::string_view key =
            isWorkfield ? propertyName.substr(kWorkfieldPrefix.size()) : propertyName;
        if (const auto found = values.find(modTextCase::ToLower(key)); found != values.end()) {
            value = found->second;
            return;
        }
    }
    value = basic::Value::Text(std::string_view());
    PrintLine("[log]", MissingText(objectName, propertyName, Find(objectName) != nullptr));
}

void ScriptFacts::GetObjectWorkField(
    std::string_view objectName, std::string_view workfieldName, basic::Value& value) {
    if (Object* object = Find(objectName)) {
        const auto found = object->Workfields.find(modTextCase::ToLower(workfieldName));
        value = found != object->Workfields.end() ? found->second.DeepCopy()
                                                  : basic::Value::Text(std::string_view());
    }
}

bool ScriptFacts::IsClassName(std::string_view name) {
    return Holds(m_classes, name);
}

bool ScriptFacts::IsFormName(std::string_view name) {
    return Holds(m_forms, name);
}

bool ScriptFacts::ObjectHasProperty(std::string_view objectName, std::string_view propertyName) {
    Object* object = Find(objectName);
    return object != nullptr && object->Properties.contains(modTextCase::ToLower(propertyName));
}

bool ScriptFacts::ObjectHasWorkfield(std::string_view objectName, std::string_view workfieldName) {
    Object* object = Find(objectName);
    return object != nullptr && object->Workfields.contains(modTextCase::ToLower(workfieldName));
}

void ScriptFacts::SetObjectWorkField(
    std::string_view objectName, std::string_view workfieldName, const basic::Value& value) {
    if (Object* object = Find(objectName)) {
        object->Workfields[modTextCase::ToLower(workfieldName)] = value.DeepCopy();
    }
}

}  // namespace dorvik
