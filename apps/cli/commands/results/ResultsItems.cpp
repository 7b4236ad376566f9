#include "cli/commands/results/ResultsItems.h"

#include "base/modTextCase.h"
#include "cli/output/Console.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modHostPath.h"
#include "results/ResultsDB.h"

#include <algorithm>

namespace dorvik {

namespace {

constexpr std::string_view kPropertyWord = "Property ";
constexpr std::string_view kProjectFileType = "Project";

bool IsPathOf(std::string_view path, std::string_view wanted) {
    return modTextCase::Equal(path, wanted) ||
           modTextCase::EndsWith(path, "\\" + std::string(wanted));
}

}  // namespace

ResultsItems::ResultsItems(ResultsDB& database) {
    Trap({"ResultsItems", "ResultsItems"}, [&] {
        auto files = database.OpenRecordSource(
            "SELECT SourceID, Name, Filename, Path, Type FROM SourceFiles");
        for (; files && !files->EOF_(); files->MoveNext()) {
            BasicObject& file = m_files[files->Value("SourceID").AsLong()];
            file.ObjectID = files->Value("SourceID").AsLong();
            file.Name = files->Value("Name").AsText();
            file.Filename = files->Value("Filename").AsText();
            file.Path = files->Value("Path").AsText();
            file.ObjectType = files->Value("Type").AsText();
        }
        auto procedures =
            database.OpenRecordSource("SELECT ProcID, SourceID, Name, Type FROM Procedures");
        for (; procedures && !procedures->EOF_(); procedures->MoveNext()) {
            Procedure& procedure = m_procedures[procedures->Value("ProcID").AsLong()];
            procedure.Name = procedures->Value("Name").AsText();
            procedure.Type = procedures->Value("Type").AsText();
            procedure.SourceID = procedures->Value("SourceID").AsLong();
        }
    });
}

const BasicObject* ResultsItems::FileOf(ItemType itemType, std::int32_t itemId) const {
    std::int32_t sourceId = itemType == ItemType::File ? itemId : 0;
    if (const Procedure* const procedure = ProcedureOf(itemType, itemId)) {
        sourceId = procedure->SourceID;
    }
    const auto found = m_files.find(sourceId);
    return found == m_files.end() ? nullptr : &found->second;
}

const ResultsItems::Procedure*
ResultsItems::ProcedureOf(ItemType itemType, std::int32_t itemId) const {
    const auto found =
        itemType == ItemType::Procedure ? m_procedures.find(itemId) : m_procedures.end();
    return found == m_procedures.end() ? nullptr : &found->second;
}

std::set<std::int32_t> ResultsItems::FilesNamed(const std::string& name) const {
    const std::string wanted = modHostPath::ToProgram(modHostPath::FromUserRelative(name));
    std::set<std::int32_t> found;
    for (const auto& [id, file] : m_files) {
        if (modTextCase::Equal(file.Name, name) ||
            IsPathOf(FullPath(file.Path, file.Filename), wanted)) {
            found.insert(id);
        }
    }
    return found;
}

std::set<std::int32_t>
ResultsItems::ProceduresNamed(std::string_view name, const std::set<std::int32_t>& files) const {
    std::set<std::int32_t> found;
    for (const auto& [id, procedure] : m_procedures) {
        const std::string shown = ShownName(procedure.Name, procedure.Type);
        if (files.contains(procedure.SourceID) &&
            (modTextCase::Equal(procedure.Name, name) || modTextCase::Equal(shown, name))) {
            found.insert(id);
        }
    }
    return found;
}

std::string ResultsItems::ShownName(std::string_view name, std::string_view type) {
    std::string shown(name);
    if (type.empty()) {
        return "(" + shown + ")";
    }
    if (modTextCase::StartsWith(type, kPropertyWord)) {
        shown.append(" (").append(type.substr(kPropertyWord.size())).append(")");
    }
    return shown;
}

std::string ResultsItems::FullPath(std::string_view folder, std::string_view filename) {
    return filename.empty() ? std::string()
                            : modUtilFunctions::AddBackslash(folder).append(filename);
}

bool ResultsItems::IsProjectFile(const BasicObject& file) {
    return modTextCase::Equal(file.ObjectType, kProjectFileType);
}

}  // namespace dorvik
