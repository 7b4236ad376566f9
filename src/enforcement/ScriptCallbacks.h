#pragma once

#include "basic/values/Value.h"
#include "enforcement/IDVKSaxEvents.h"
#include "enforcement/ScriptResult.h"
#include "parser/ParserEvent.h"

#include <array>
#include <string_view>

namespace dorvik {

class ResultsManager;

/// What rule scripts can do through the prefix "Dorvik.": read the objects in scope, keep work fields with them,
/// write to the review log, and leave a `ScriptResult` on which the caller of the script acts.
class ScriptCallbacks final : public IDVKSaxEvents {
public:
    /// The project review that scripts reach; null between projects, when every callback that needs one raises
    /// `kObjectNotSet`. REQUIRES: it outlives its use here.
    void SetResultsManager(ResultsManager* resultsManager) { m_resultsManager = resultsManager; }

    /// The result of the script that ran last.
    ScriptResult Result() const { return m_result; }
    void ResetResult() { m_result = ScriptResult::Nothing; }

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

private:
    ResultsManager& Results() const;

    ResultsManager* m_resultsManager = nullptr;
    ScriptResult m_result = ScriptResult::Nothing;
    std::array<basic::Value, kLastParserEvent + 1> m_eventNames;  // as texts, each created once
};

}  // namespace dorvik
