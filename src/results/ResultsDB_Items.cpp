// The project, its files and its procedures as lists and single records.

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"
#include "settings/DVKWorkData.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::int32_t kFileItem = 2;
constexpr std::int32_t kProcedureItem = 3;
constexpr float kPercent = 100;

/// The type under which the project file stands among the files.
constexpr std::string_view kProjectFileType = "Project";

bool IsAboveZero(const Variant& value) {
    return !value.IsEmpty() && value.AsLong() > 0;
}

}  // namespace

BasicObject ResultsDB::GetProjectDetails(bool ignoreFilter) {
    BasicObject project;
    Trap({kModule, "GetProjectDetails"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT Name, Filename, Type FROM Projects WHERE ProjectID = " +
            std::to_string(m_projectId)));
        if (rows.EOF_()) {
            return;
        }
        project.ObjectID = m_projectId;
        project.Filename = rows.Value("Filename").AsText();
        project.Name = rows.Value("Name").AsText();
        project.ObjectType = rows.Value("Type").AsText();
        const ViolationTally tally = GetProjectViolationStats(m_projectId, ignoreFilter);
        project.ViolationCount = tally.Count;
        project.ViolationImpact = tally.Impact;
    });
    return project;
}

// ---- files ----

std::vector<BasicObject> ResultsDB::GetProjectSourceFileList(bool includeAll, bool sortByFilename) {
    std::vector<BasicObject> list;
    Trap({kModule, "GetProjectSourceFileList"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT SourceID, Name, Filename, Path, Type, CyclomaticComplexity FROM SourceFiles "
            "WHERE ProjectID = " +
            std::to_string(m_projectId)));
        for (; !rows.EOF_(); rows.MoveNext()) {
            BasicObject file = ReadSourceFile(rows);
            if (Settings().RVFileShowZeroItems() || includeAll ||
                IsAboveZero(GetObjectStatValue(file, kFileItem))) {
                list.push_back(std::move(file));
            }
        }
        if (sortByFilename) {
            SortBasicObjectList(list, kSortByName, true, true);
        } else {
            SortBasicObjectList(list, m_fileSortKey, m_fileSortAscending, false);
        }
    });
    return list;
}

BasicObject ResultsDB::ReadSourceFile(Recordset& rows) {
    BasicObject file;
    file.ObjectID = rows.Value("SourceID").AsLong();
    file.Filename = rows.Value("Filename").AsText();
    file.Path = rows.Value("Path").AsText();
    file.Name = rows.Value("Name").AsText();
    file.ObjectType = rows.Value("Type").AsText();
    file.CyclomaticComplexity = rows.Value("CyclomaticComplexity").AsLong();
    const bool isProjectFile = modTextCase::Equal(file.ObjectType, kProjectFileType);
    const ViolationTally tally = isProjectFile ? GetVBPFileViolationStats(file.ObjectID, false)
                                               : GetSourceFileViolationStats(file.ObjectID, false);
    file.ViolationCount = tally.Count;
    file.ViolationImpact = tally.Impact;
    GetObjectLineStats({kFileItem, file.ObjectID}, file);
    return file;
}

std::int32_t ResultsDB::GetSourceFileCount(std::string_view type) {
    std::int32_t count = 0;
    Trap({kModule, "GetSourceFileCount"}, [&] {
        auto rows = NeedRows(
            type.empty() ? GetReadOnlyRecordset("SELECT Count(SourceID) FROM SourceFiles")
                         : GetReadOnlyRecordset(
                               "SELECT Count(SourceID) FROM SourceFiles WHERE Type = ?",
                               {std::string(type)}));
        count = rows.Value(0).AsLong();
    });
    return count;
}

// ---- procedures ----

std::vector<BasicObject>
ResultsDB::GetSourceFileProcList(std::int32_t sourceId, bool includeAll, bool withStats) {
    std::vector<BasicObject> list;
    Trap({kModule, "GetSourceFileProcList"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT ProcID, Name, Type, Scope, CyclomaticComplexity FROM Procedures WHERE "
            "SourceID = " +
            std::to_string(sourceId)));
        for (; !rows.EOF_(); rows.MoveNext()) {
            BasicObject procedure = ReadProcedure(rows, withStats);
            if (Settings().RVProcShowZeroItems() ||
                IsAboveZero(GetObjectStatValue(procedure, kProcedureItem)) || includeAll) {
                list.push_back(std::move(procedure));
            }
        }
        SortBasicObjectList(list, m_procSortKey, m_procSortAscending, false);
    });
    return list;
}

BasicObject ResultsDB::ReadProcedure(Recordset& rows, bool withStats) {
    BasicObject procedure;
    procedure.ObjectID = rows.Value("ProcID").AsLong();
    procedure.Name = rows.Value("Name").AsText();
    procedure.ObjectType = rows.Value("Type").AsText();
    procedure.Scope = rows.Value("Scope").AsText();
    procedure.CyclomaticComplexity = rows.Value("CyclomaticComplexity").AsLong();
    if (withStats) {
        const ViolationTally tally = GetProcedureViolationStats(procedure.ObjectID, false);
        procedure.ViolationCount = tally.Count;
        procedure.ViolationImpact = tally.Impact;
        GetObjectLineStats({kProcedureItem, procedure.ObjectID}, procedure);
    }
    return procedure;
}

bool ResultsDB::SourceFileHasProcs(std::int32_t sourceId, bool realProcsOnly) {
    bool hasProcs = false;
    Trap({kModule, "SourceFileHasProcs"}, [&] {
        std::string sql =
            "SELECT Count(ProcID) FROM Procedures WHERE SourceID = " + std::to_string(sourceId);
        if (realProcsOnly) {
            sql += " AND Name <> 'Declarations' AND Name <> 'Layout'";
        }
        hasProcs = NeedRows(GetReadOnlyRecordset(sql)).Value(0).AsLong() > 0;
    });
    return hasProcs;
}

BasicObject ResultsDB::GetProcedureDetails(std::int32_t procId) {
    BasicObject procedure;
    Trap({kModule, "GetProcedureDetails"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT ProcID, Name, Type, Scope FROM Procedures WHERE ProcID = " +
            std::to_string(procId)));
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

// ---- lines ----

/// The ratio has the code lines alone as its base.
void ResultsDB::GetObjectLineStats(Item item, BasicObject& object) {
    Trap({kModule, "GetObjectLineStats"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT TotalCount, InlineCommentCount, CommentCount, CodeCount FROM LineCountStats "
            "WHERE ItemID = " +
            std::to_string(item.ID) + " AND ItemType = " + std::to_string(item.Type)));
        if (rows.EOF_()) {
            return;
        }
        object.SourceLines = rows.Value("TotalCount").AsLong();
        const std::int32_t comments =
            rows.Value("InlineCommentCount").AsLong() + rows.Value("CommentCount").AsLong();
        const std::int32_t code = rows.Value("CodeCount").AsLong();
        object.CodeCommentRatio =
            code > 0 ? static_cast<float>(comments) / static_cast<float>(code) * kPercent : 0;
    });
}

// ---- single fields ----

std::string ResultsDB::FirstValue(const std::string& sql) {
    auto rows = NeedRows(GetReadOnlyRecordset(sql));
    return rows.EOF_() ? std::string() : rows.Value(0).AsText();
}

std::string ResultsDB::GetProjectData(std::string_view field) {
    std::string value;
    Trap({kModule, "GetProjectData"}, [&] {
        value = FirstValue("SELECT " + std::string(field) + " FROM Projects");
    });
    return value;
}

std::string ResultsDB::GetSourceFileData(std::string_view field, std::int32_t sourceId) {
    std::string value;
    Trap({kModule, "GetSourceFileData"}, [&] {
        value = FirstValue(
            "SELECT " + std::string(field) +
            " FROM SourceFiles WHERE SourceID = " + std::to_string(sourceId));
    });
    return value;
}

std::string ResultsDB::GetProcedureData(std::string_view field, std::int32_t procId) {
    std::string value;
    Trap({kModule, "GetProcedureData"}, [&] {
        value = FirstValue(
            "SELECT " + std::string(field) +
            " FROM Procedures WHERE ProcID = " + std::to_string(procId));
    });
    return value;
}

void ResultsDB::WriteName(const std::string& sql, std::string_view name) {
    auto rows = NeedRows(GetEditableRecordset(sql));
    if (!rows.EOF_()) {
        rows.Edit();
        rows.SetValue("Name", name);
        rows.Update();
    }
}

void ResultsDB::UpdateProjectName(std::string_view name) {
    Trap({kModule, "UpdateProjectName"}, [&] {
        WriteName(
            "SELECT Name FROM Projects WHERE ProjectID = " + std::to_string(m_projectId), name);
    });
}

void ResultsDB::UpdateFileName(std::string_view name, std::int32_t sourceId) {
    Trap({kModule, "UpdateFileName"}, [&] {
        WriteName(
            "SELECT Name FROM SourceFiles WHERE SourceID = " + std::to_string(sourceId), name);
    });
}

}  // namespace dorvik
