#include "workstation/dialogs/FileDialogs.h"

#include "workstation/screen/FileRequest.h"
#include "workstation/screen/IScreen.h"

#include <array>
#include <vector>

namespace dorvik {

namespace {

/// When a dialog adds the default extension of its kind.
enum class Extension { Never, WhenSaving, Always };

struct KindRow {
    FileKind Kind;
    std::array<std::string_view, 3> Filters;  // empty ones are none
    std::string_view DefaultExtension = {};
    Extension Use = Extension::Never;
    bool CanBeSaved = false;
};

constexpr std::string_view kAllFiles = "All Files (*.*)|*.*";
constexpr std::string_view kProjects = "VB Projects (*.vbp)|*.vbp";
constexpr std::string_view kProjectGroups = "VB Project Groups (*.vbg)|*.vbg";

constexpr KindRow kKinds[] = {
    {FileKind::Rulebase,
     {"Dorvik Rulebases (*.dvk)|*.dvk", kAllFiles},
     "*.dvk",
     Extension::WhenSaving,
     true},
    {FileKind::Batch,
     {"Dorvik Batch Files (*.batch)|*.batch"},
     "*.batch",
     Extension::WhenSaving,
     true},
    {FileKind::Project, {kProjects}},
    {FileKind::ProjectGroup, {kProjectGroups}},
    {FileKind::ProjectOrGroup, {kProjects, kProjectGroups}},
    {FileKind::Component, {"ActiveX Controls (*.ocx)|*.ocx"}},
    {FileKind::Library,
     {"Dynamic Link Libraries (*.dll)|*.dll",
      "Applications (*.exe)|*.exe",
      "Type Libraries (*.tlb, *.olb)|*.tlb;*.olb"}},
    {FileKind::Log, {"Log Files (*.log)|*.log", kAllFiles}, "*.log", Extension::Always},
    {FileKind::ResultsDatabase, {"Results Databases (*.mdb)|*.mdb"}},
    {FileKind::RulebaseDocument, {"Rulebase Documents (*.html)|*.html", kAllFiles}},
};
constexpr KindRow kUnknownKind{};

const KindRow& RowOf(FileKind kind) {
    for (const KindRow& row : kKinds) {
        if (row.Kind == kind) {
            return row;
        }
    }
    return kUnknownKind;
}

}  // namespace

std::optional<std::string>
FileDialogs::GetOpenFileName(FileKind kind, std::string_view title, std::string_view startAt) {
    return Ask(kind, title, startAt, /*forSaving=*/false);
}

std::optional<std::string>
FileDialogs::GetSaveFileName(FileKind kind, std::string_view title, std::string_view startAt) {
    return RowOf(kind).CanBeSaved ? Ask(kind, title, startAt, /*forSaving=*/true) : std::nullopt;
}

std::optional<std::string>
FileDialogs::Ask(FileKind kind, std::string_view title, std::string_view startAt, bool forSaving) {
    const KindRow& row = RowOf(kind);
    FileRequest request;
    request.Title = title;
    for (const std::string_view filter : row.Filters) {
        if (!filter.empty()) {
            request.Filters.emplace_back(filter);
        }
    }
    if (row.Use == Extension::Always || (row.Use == Extension::WhenSaving && forSaving)) {
        request.DefaultExtension = row.DefaultExtension;
    }
    request.StartAt = startAt;
    request.ForSaving = forSaving;
    return m_screen.ChooseFile(request);
}

}  // namespace dorvik
