#include "results/ItemReader.h"

#include "base/modTextCase.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = ResultsStore::kModule;

/// The type of the project file among the files.
constexpr std::string_view kProjectFileType = "Project";

}  // namespace

BasicObject ItemReader::GetProjectDetails(bool ignoreFilter) {
    BasicObject project;
    m_store.Trap({kModule, "GetProjectDetails"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT Name, Filename, Type FROM Projects WHERE ProjectID = " +
            std::to_string(m_keys.ProjectID));
        if (rows.EOF_()) {
            return;
        }
        project.ObjectID = m_keys.ProjectID;
        project.Filename = rows.Value("Filename").AsText();
        project.Name = rows.Value("Name").AsText();
        project.ObjectType = rows.Value("Type").AsText();
        const ViolationTally tally =
            m_figures.GetProjectViolationStats(m_keys.ProjectID, ignoreFilter);
        project.ViolationCount = tally.Count;
        project.ViolationImpact = tally.Impact;
    });
    return project;
}

// ---- files ----

std::vector<BasicObject>
ItemReader::GetProjectSourceFileList(bool includeAll, bool sortByFilename) {
    std::vector<BasicObject> list;
    m_store.Trap({kModule, "GetProjectSourceFileList"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT SourceID, Name, Filename, Path, Type, CyclomaticComplexity FROM SourceFiles "
            "WHERE ProjectID = " +
            std::to_string(m_keys.ProjectID));
        for (; !rows.EOF_(); rows.MoveNext()) {
            BasicObject file = ReadSourceFile(rows);
            if (includeAll || m_order.Shows(file, ItemType::File)) {
                list.push_back(std::move(file));
            }
        }
        if (sortByFilename) {
            ListOrder::SortBasicObjectList(
                list, ListOrder::kSortByName, /*ascending=*/true, /*byFilename=*/true);
        } else {
            m_order.SortFiles(list);
        }
    });
    return list;
}

BasicObject ItemReader::ReadSourceFile(Recordset& rows) {
    BasicObject file;
    file.ObjectID = rows.Value("SourceID").AsLong();
    file.Filename = rows.Value("Filename").AsText();
    file.Path = rows.Value("Path").AsText();
    file.Name = rows.Value("Name").AsText();
    file.ObjectType = rows.Value("Type").AsText();
    file.CyclomaticComplexity = rows.Value("CyclomaticComplexity").AsLong();
    const bool isProjectFile = modTextCase::Equal(file.ObjectType, kProjectFileType);
    const ViolationTally tally = isProjectFile
                                     ? m_figures.GetVBPFileViolationStats(file.ObjectID, false)
                                     : m_figures.GetSourceFileViolationStats(file.ObjectID, false);
    file.ViolationCount = tally.Count;
    file.ViolationImpact = tally.Impact;
    m_figures.GetObjectLineStats(ItemType::File, file);
    return file;
}

std::int32_t ItemReader::GetSourceFileCount(std::string_view type) {
    return m_store.Trapped({kModule, "GetSourceFileCount"}, 0, [&] {
        auto rows = type.empty() ? m_store.RequireRows("SELECT Count(SourceID) FROM SourceFiles")
                                 : m_store.RequireRows(
                                       "SELECT Count(SourceID) FROM SourceFiles WHERE Type = ?",
                                       {std::string(type)});
        return rows.Value(0).AsLong();
    });
}

// ---- procedures ----

std::vector<BasicObject>
ItemReader::GetSourceFileProcList(std::int32_t sourceId, bool includeAll, bool withStats) {
    std::vector<BasicObject> list;
    m_store.Trap({kModule, "GetSourceFileProcList"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT ProcID, Name, Type, Scope, CyclomaticComplexity FROM Procedures WHERE "
            "SourceID = " +
            std::to_string(sourceId));
        for (; !rows.EOF_(); rows.MoveNext()) {
            BasicObject procedure = ReadProcedure(rows, withStats);
            if (includeAll || m_order.Shows(procedure, ItemType::Procedure)) {
                list.push_back(std::move(procedure));
            }
        }
        m_order.SortProcedures(list);
    });
    return list;
}

BasicObject ItemReader::ReadProcedure(Recordset& rows, bool withStats) {
    BasicObject procedure;
    procedure.ObjectID = rows.Value("ProcID").AsLong();
    procedure.Name = rows.Value("Name").AsText();
    procedure.ObjectType = rows.Value("Type").AsText();
    procedure.Scope = rows.Value("Scope").AsText();
    procedure.CyclomaticComplexity = rows.Value("CyclomaticComplexity").AsLong();
    if (withStats) {
        const ViolationTally tally =
            m_figures.GetProcedureViolationStats(procedure.ObjectID, false);
        procedure.ViolationCount = tally.Count;
        procedure.ViolationImpact = tally.Impact;
        m_figures.GetObjectLineStats(ItemType::Procedure, procedure);
    }
    return procedure;
}

bool ItemReader::SourceFileHasProcs(std::int32_t sourceId, bool realProcsOnly) {
    return m_store.Trapped({kModule, "SourceFileHasProcs"}, false, [&] {
        std::string sql =
            "SELECT Count(ProcID) FROM Procedures WHERE SourceID = " + std::to_string(sourceId);
        if (realProcsOnly) {
            sql += " AND Name <> 'Declarations' AND Name <> 'Layout'";
        }
        return m_store.RequireRows(sql).Value(0).AsLong() > 0;
    });
}

BasicObject ItemReader::GetProcedureDetails(std::int32_t procId) {
    BasicObject procedure;
    m_store.Trap({kModule, "GetProcedureDetails"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT ProcID, Name, Type, Scope FROM Procedures WHERE ProcID = " +
            std::to_string(procId));
        if (rows.EOF_()) {
            return;
        }
        procedure.ObjectID = rows.Value("ProcID").AsLong();
        procedure.Name = rows.Value("Name").AsText();
        procedure.ObjectType = rows.Value("Type").AsText();
        procedure.Scope = rows.Value("Scope").AsText();
    });
    return procedure;
}

// ---- single fields ----

std::string ItemReader::GetProjectData(std::string_view field) {
    return m_store.Trapped({kModule, "GetProjectData"}, std::string(), [&] {
        return m_store.FirstText("SELECT " + std::string(field) + " FROM Projects");
    });
}

std::string ItemReader::GetSourceFileData(std::string_view field, std::int32_t sourceId) {
    return m_store.Trapped({kModule, "GetSourceFileData"}, std::string(), [&] {
        return m_store.FirstText(
            "SELECT " + std::string(field) +
            " FROM SourceFiles WHERE SourceID = " + std::to_string(sourceId));
    });
}

std::string ItemReader::GetProcedureData(std::string_view field, std::int32_t procId) {
    return m_store.Trapped({kModule, "GetProcedureData"}, std::string(), [&] {
        return m_store.FirstText(
            "SELECT " + std::string(field) +
            " FROM Procedures WHERE ProcID = " + std::to_string(procId));
    });
}

}  // namespace dorvik
