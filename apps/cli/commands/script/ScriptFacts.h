#pragma once

#include "basic/values/Value.h"
#include "enforcement/IDVKSaxEvents.h"

#include <map>
#include <rapidjson/fwd.h>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Takes the place of a review when a rule script is tried without one: the objects in scope come from a file
/// of facts, and what the script does to the review is printed, a line each on standard output.
///
///     {
///       "event": "Procedure Body",
///       "objects": {
///         "Procedure": {
///           "properties": { "Name": "cmdSave_Click", "NumArguments": 2, "IsStatic": false },
///           "workfields": { "Seen": 1 }
///         }
///       },
///       "classes": ["clsOrder"],
///       "forms": ["frmMain"]
///     }
///
/// A member "expect" is ignored, for callers that keep facts as tests.
class ScriptFacts final : public IDVKSaxEvents {
public:
    /// Reads the facts. False if the text is not of that form; `error` says what is wrong and where.
    bool Read(const std::string& json, std::string& error);

    void ApplyConvention() override;
    void CancelPendingViolation() override;
    void RaiseViolation() override;
    void DebugPrint(std::string_view text) override;
    void DumpObject(std::string_view objectName) override;
    bool GetObjectProperty(
        std::string_view objectName, std::string_view propertyName, basic::Value& value) override;
    basic::Value GetParserEvent() override { return basic::Value::Text(m_event); }
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

private:
    using Values = std::map<std::string, basic::Value>;  // by lower-case name
    struct Object {
        Values Properties;
        Values Workfields;
    };

    bool ReadObjects(const rapidjson::Value& objects, std::string& error);
    Object* Find(std::string_view objectName);
    /// As `Find`, without those that have properties only: what can have work fields.
    Object* FindInScope(std::string_view objectName);
    /// Why a property could not be had, as a review would log it.
    static std::string
    MissingText(std::string_view objectName, std::string_view propertyName, bool isObjectKnown);

    std::string m_event;
    std::map<std::string, Object> m_objects;  // by lower-case name
    std::vector<std::string> m_classes;
    std::vector<std::string> m_forms;
};

}  // namespace dorvik
