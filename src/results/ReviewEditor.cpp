#include "results/ReviewEditor.h"

#include <string>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = ResultsStore::kModule;

/// Writes one field of the only row of a query; false where there is no row.
bool WriteField(ResultsStore& store, std::string_view sql, std::string_view field, Variant value) {
    auto rows = store.RequireEditableRows(sql);
    if (rows.EOF_()) {
        return false;
    }
    rows.Edit();
    rows.SetValue(field, std::move(value));
    rows.Update();
    return true;
}

}  // namespace

void ReviewEditor::UpdateProjectName(std::string_view name) {
    m_store.Trap({kModule, "UpdateProjectName"}, [&] {
        WriteField(
            m_store,
            "SELECT Name FROM Projects WHERE ProjectID = " + std::to_string(m_keys.ProjectID),
            "Name",
            name);
    });
}

void ReviewEditor::UpdateFileName(std::string_view name, std::int32_t sourceId) {
    m_store.Trap({kModule, "UpdateFileName"}, [&] {
        WriteField(
            m_store,
            "SELECT Name FROM SourceFiles WHERE SourceID = " + std::to_string(sourceId),
            "Name",
            name);
    });
}

bool ReviewEditor::SetViolationCompleted(
    std::int32_t violationId, bool completed, OnFailure onFailure) {
    const auto write = [&] {
        return WriteField(
            m_store,
            "SELECT Completed FROM Violations WHERE ViolationID = " + std::to_string(violationId),
            "Completed",
            completed);
    };
    return onFailure == OnFailure::Raise
               ? write()
               : m_store.Trapped({kModule, "SetViolationCompleted"}, false, write);
}

}  // namespace dorvik
