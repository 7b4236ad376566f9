#include "ScriptFacts.h"

#include "base/Quoted.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "cli/output/Console.h"
#include "foundation/text/modJson.h"
#include "parser/ScopeName.h"
#include "parser/modMissingValue.h"

#include <algorithm>
#include <initializer_list>
#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

namespace dorvik {

namespace {

/// The name, as the catalogue spells it, of an object that is always there, has properties only and is not an object
/// in scope; else empty.
std::string_view OfTheParser(std::string_view objectName) {
    for (const std::string_view name : {scopename::kSource, scopename::kNamingConvention}) {
        if (modTextCase::Equal(objectName, name)) {
            return name;
        }
    }
    return {};
}

using Json = rapidjson::Value;

/// A fact's value. False for one of a kind that facts do not have.
bool ReadValue(const Json& json, basic::Value& value) {
    if (json.IsString()) {
        value = basic::Value::Text(modJson::TextOf(json));
    } else if (json.IsInt()) {
        value = basic::Value::Long(json.GetInt());
    } else if (json.IsBool()) {
        value = basic::Value::Boolean(json.GetBool());
    } else {
        return false;
    }
    return true;
}

/// A misspelt member would otherwise go unnoticed.
bool KnowsAllMembers(
    const Json& object,
    const std::string& place,
    std::initializer_list<std::string_view> known,
    std::string& error) {
    for (const auto& [name, json] : object.GetObject()) {
        if (std::ranges::find(known, modJson::TextOf(name)) == known.end()) {
            error = "unknown member " + Quoted(modJson::TextOf(name)) + " in " + place;
            return false;
        }
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
    const Json* const member = modJson::FindMember(object, key);
    if (member == nullptr) {
        return true;
    }
    if (!member->IsObject()) {
        error = Quoted(key) + " of " + Quoted(name) + " must be a JSON object";
        return false;
    }
    for (const auto& [propertyName, json] : member->GetObject()) {
        const auto [entry, isNew] =
            values.try_emplace(modTextCase::ToLower(modJson::TextOf(propertyName)));
        const std::string place = Quoted(name + "." + std::string(modJson::TextOf(propertyName)));
        if (!isNew) {
            error = "duplicate " + place + " in " + Quoted(key);
            return false;
        }
        if (!ReadValue(json, entry->second)) {
            error = place + " must be a string, a 32-bit integer or a boolean";
            return false;
        }
    }
    return true;
}

bool ReadNames(
    const Json& facts, const char* key, std::vector<std::string>& names, std::string& error) {
    const Json* const list = modJson::FindMember(facts, key);
    if (list == nullptr) {
        return true;
    }
    const bool isListOfTexts =
        list->IsArray() &&
        std::ranges::all_of(list->GetArray(), [](const Json& name) { return name.IsString(); });
    if (!isListOfTexts) {
        error = Quoted(key) + " must be an array of strings";
        return false;
    }
    for (const Json& name : list->GetArray()) {
        names.emplace_back(modJson::TextOf(name));
    }
    return true;
}

/// "line 3, column 7" of a byte in a text.
std::string PlaceOf(std::string_view text, std::size_t byte) {
    const std::string_view before = text.substr(0, byte);
    const std::size_t lineStart = before.rfind('\n') + 1;  // 0 after npos
    return "line " + std::to_string(std::ranges::count(before, '\n') + 1) + ", column " +
           std::to_string(modUtf8::Length(before.substr(lineStart)) + 1);
}

/// The library's sentence without its full stop, to be continued.
std::string Reason(rapidjson::ParseErrorCode code) {
    std::string text = rapidjson::GetParseError_En(code);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
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
        error = "invalid JSON at " + PlaceOf(json, facts.GetErrorOffset()) + ": " +
                Reason(facts.GetParseError());
        return false;
    }
    if (!facts.IsObject()) {
        error = "expected a JSON object";
        return false;
    }
    if (!KnowsAllMembers(
            facts, "the file", {"event", "objects", "classes", "forms", "expect"}, error)) {
        return false;
    }
    if (const Json* const event = modJson::FindMember(facts, "event")) {
        if (!event->IsString()) {
            error = "'event' must be a string";
            return false;
        }
        m_event = modJson::TextOf(*event);
    }
    const Json* const objects = modJson::FindMember(facts, "objects");
    return (objects == nullptr || ReadObjects(*objects, error)) &&
           ReadNames(facts, "classes", m_classes, error) &&
           ReadNames(facts, "forms", m_forms, error);
}

bool ScriptFacts::ReadObjects(const rapidjson::Value& objects, std::string& error) {
    if (!objects.IsObject()) {
        error = "'objects' must be a JSON object";
        return false;
    }
    for (const auto& [name, json] : objects.GetObject()) {
        const std::string objectName(modJson::TextOf(name));
        const auto [entry, isNew] = m_objects.try_emplace(modTextCase::ToLower(objectName));
        if (!isNew) {
            error = "duplicate " + Quoted(objectName) + " in 'objects'";
            return false;
        }
        if (!json.IsObject()) {
            error = Quoted(objectName) + " in 'objects' must be a JSON object";
            return false;
        }
        Object& object = entry->second;
        if (!KnowsAllMembers(json, Quoted(objectName), {"properties", "workfields"}, error) ||
            !ReadValues(json, objectName, "properties", object.Properties, error) ||
            !ReadValues(json, objectName, "workfields", object.Workfields, error)) {
            return false;
        }
    }
    return true;
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

ScriptFacts::Object* ScriptFacts::FindInScope(std::string_view objectName) {
    return OfTheParser(objectName).empty() ? Find(objectName) : nullptr;
}

std::string ScriptFacts::MissingText(
    std::string_view objectName, std::string_view propertyName, bool isObjectKnown) {
    if (const std::string_view name = OfTheParser(objectName); !name.empty()) {
        return modMissingValue::InvalidProperty(name, propertyName);
    }
    return isObjectKnown ? modMissingValue::NotFound(objectName, propertyName)
                         : modMissingValue::UnknownObject(objectName);
}

bool ScriptFacts::GetObjectProperty(
    std::string_view objectName, std::string_view propertyName, basic::Value& value) {
    Object* object = Find(objectName);
    if (object != nullptr) {
        const bool isWorkfield =
            modTextCase::StartsWith(propertyName, scopename::kWorkfieldPrefix) &&
            OfTheParser(objectName).empty();
        const Values& values = isWorkfield ? object->Workfields : object->Properties;
        const std::string_view key =
            isWorkfield ? propertyName.substr(scopename::kWorkfieldPrefix.size()) : propertyName;
        if (const auto found = values.find(modTextCase::ToLower(key)); found != values.end()) {
            value = found->second.DeepCopy();
            return !isWorkfield;
        }
    }
    const bool isEmpty = modTextCase::Equal(objectName, scopename::kSource);
    value = isEmpty ? basic::Value() : basic::Value::Text(std::string_view());
    PrintLine("[log]", MissingText(objectName, propertyName, object != nullptr));
    return false;
}

void ScriptFacts::GetObjectWorkField(
    std::string_view objectName, std::string_view workfieldName, basic::Value& value) {
    if (Object* object = FindInScope(objectName)) {
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
    Object* object = FindInScope(objectName);
    return object != nullptr && object->Properties.contains(modTextCase::ToLower(propertyName));
}

bool ScriptFacts::ObjectHasWorkfield(std::string_view objectName, std::string_view workfieldName) {
    Object* object = FindInScope(objectName);
    return object != nullptr && object->Workfields.contains(modTextCase::ToLower(workfieldName));
}

void ScriptFacts::SetObjectWorkField(
    std::string_view objectName, std::string_view workfieldName, const basic::Value& value) {
    if (Object* object = FindInScope(objectName)) {
        object->Workfields[modTextCase::ToLower(workfieldName)] = value.DeepCopy();
    }
}

}  // namespace dorvik
