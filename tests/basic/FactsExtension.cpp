#include "basic/FactsExtension.h"

#include "base/modTextCase.h"
#include "basic/values/Coercion.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <rapidjson/document.h>
#include <stdexcept>

namespace dorvik::basic::test {

namespace {

std::string Key(const Value& name) {
    return modTextCase::ToLower(ToText(name));
}

Value ValueOf(const rapidjson::Value& json, const std::string& file) {
    if (json.IsString()) {
        return Value::Text(std::string_view(json.GetString(), json.GetStringLength()));
    }
    if (json.IsBool()) {
        return Value::Boolean(json.GetBool());
    }
    if (json.IsInt()) {
        return Value::Long(json.GetInt());
    }
    throw std::runtime_error(file + ": a fact is no text, whole number or boolean");
}

std::map<std::string, Value>
ValuesOf(const rapidjson::Value& object, const char* member, const std::string& file) {
    std::map<std::string, Value> values;
    if (object.HasMember(member)) {
        for (const auto& [name, json] : object[member].GetObject()) {
            values[modTextCase::ToLower(name.GetString())] = ValueOf(json, file);
        }
    }
    return values;
}

std::vector<std::string> TextsOf(const rapidjson::Document& facts, const char* member) {
    std::vector<std::string> texts;
    if (facts.HasMember(member)) {
        for (const auto& json : facts[member].GetArray()) {
            texts.emplace_back(json.GetString());
        }
    }
    return texts;
}

Value Known(const std::vector<std::string>& names, const Value& name) {
    return Value::Boolean(std::ranges::any_of(
        names, [&](const std::string& known) { return modTextCase::Equal(known, ToText(name)); }));
}

/// In the order in which `Call` knows them.
constexpr ExtensionMember kMembers[] = {
    {"ApplyConvention", 0, 0},
    {"CancelPendingViolation", 0, 0},
    {"RaiseViolation", 0, 0},
    {"DebugPrint", 1, 0},
    {"DumpObject", 1, 0},
    {"GetObjectProperty", 3, 4},
    {"GetObjectWorkField", 3, 4},
    {"GetParserEvent", 1, 1},
    {"IsClassName", 2, 2},
    {"IsFormName", 2, 2},
    {"ObjectHasProperty", 3, 4},
    {"ObjectHasWorkfield", 3, 4},
    {"SetObjectWorkField", 3, 0},
};

}  // namespace

FactsExtension::FactsExtension(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    rapidjson::Document facts;
    facts.Parse(text.c_str());
    if (facts.HasParseError() || !facts.IsObject() || !facts.HasMember("expect") ||
        !facts.HasMember("event") || !facts.HasMember("objects")) {
        throw std::runtime_error(
            file + " is no file of facts with 'event', 'objects' and 'expect'");
    }
    m_event = facts["event"].GetString();
    for (const auto& [name, json] : facts["objects"].GetObject()) {
        m_objects[modTextCase::ToLower(name.GetString())] = {
            ValuesOf(json, "properties", file), ValuesOf(json, "workfields", file)};
    }
    m_classes = TextsOf(facts, "classes");
    m_forms = TextsOf(facts, "forms");
    m_expected = TextsOf(facts, "expect");
}

std::span<const ExtensionMember> FactsExtension::Members() const {
    return kMembers;
}

void FactsExtension::OnErrorAlert(const ErrorAlert& alert) {
    m_lines.push_back(
        "error " + std::to_string(alert.Number) + " in line " + std::to_string(alert.Line) + ": " +
        alert.Description);
}

FactsExtension::Object* FactsExtension::Find(const Value& name) {
    const auto found = m_objects.find(Key(name));
    return found == m_objects.end() ? nullptr : &found->second;
}

Value FactsExtension::PropertyOf(const Value& objectName, const Value& propertyName) {
    const Object* object = Find(objectName);
    if (object == nullptr) {
        Log("Unknown virtual object '" + ToText(objectName) + "' or object not in scope.");
        return Value::Text(std::string_view());
    }
    const std::string key = Key(propertyName);
    const bool isWorkfield = key.starts_with("wf.");
    const Values& values = isWorkfield ? object->Workfields : object->Properties;
    const auto found = values.find(isWorkfield ? key.substr(3) : key);
    if (found != values.end()) {
        return found->second;
    }
    Log(std::string("Virtual object ") + (isWorkfield ? "workfield '" : "property '") +
        ToText(objectName) + "." + ToText(propertyName) + "' not found.");
    return Value::Text(std::string_view());
}

void FactsExtension::Call(std::size_t member, std::span<Value> a) {
    const std::string_view name = kMembers[member].Name;
    Object* const object = a.size() == 3 ? Find(a[0]) : nullptr;
    if (name == "ApplyConvention") {
        m_lines.emplace_back("[apply]");
    } else if (name == "CancelPendingViolation") {
        m_lines.emplace_back("[cancel]");
    } else if (name == "RaiseViolation") {
        m_lines.emplace_back("[raise]");
    } else if (name == "DebugPrint") {
        m_lines.push_back("[debug] " + ToText(a[0]));
    } else if (name == "DumpObject") {
        m_lines.push_back("[dump] " + ToText(a[0]));
    } else if (name == "GetObjectProperty") {
        a[2] = PropertyOf(a[0], a[1]);
    } else if (name == "GetParserEvent") {
        a[0] = Value::Text(std::string_view(m_event));
    } else if (name == "IsClassName") {
        a[1] = Known(m_classes, a[0]);
    } else if (name == "IsFormName") {
        a[1] = Known(m_forms, a[0]);
    } else if (name == "ObjectHasProperty") {
        a[2] = Value::Boolean(object != nullptr && object->Properties.contains(Key(a[1])));
    } else if (name == "ObjectHasWorkfield") {
        a[2] = Value::Boolean(object != nullptr && object->Workfields.contains(Key(a[1])));
    } else if (object != nullptr && name == "SetObjectWorkField") {
        object->Workfields[Key(a[1])] = a[2];
    } else if (object != nullptr) {
        const auto found = object->Workfields.find(Key(a[1]));
        a[2] = found != object->Workfields.end() ? found->second : Value::Text(std::string_view());
    }
}

}  // namespace dorvik::basic::test
