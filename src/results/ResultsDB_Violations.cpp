// The violations themselves, in lists and one by one.

#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"

namespace dorvik {

namespace {

constexpr std::int32_t kProjectItem = 1;
constexpr std::int32_t kFileItem = 2;
constexpr std::int32_t kProcedureItem = 3;

void ReadListedFields(Recordset& rows, Violation& violation) {
    violation.RuleID = rows.Value("RuleID").AsLong();
    violation.RuleType = rows.Value("RuleType").AsLong();
    violation.Title = rows.Value("Title").AsText();
    violation.Severity = rows.Value("Severity").AsLong();
    violation.Impact = static_cast<std::int16_t>(rows.Value("Impact").AsLong());
    violation.CategoryID = rows.Value("CategoryID").AsLong();
    violation.Completed = rows.Value("Completed").AsBoolean();
    violation.SourceLine = rows.Value("SourceLine").AsText();
    violation.Description = rows.Value("Description").AsText();
    violation.Advice = rows.Value("Advice").AsText();
    violation.SourceLineNumber = rows.Value("LineNum").AsLong();
}

}  // namespace

ResultsDB::ViolationList ResultsDB::GetVBPFileViolationsList(std::int32_t sourceId) {
    ViolationList list;
    Trap({kModule, "GetVBPFileViolationsList"}, [&] {
        AddViolations({kFileItem, sourceId}, list);
    });
    return list;
}

ResultsDB::ViolationList ResultsDB::GetSourceFileViolationsList(std::int32_t sourceId) {
    ViolationList list;
    Trap({kModule, "GetSourceFileViolationsList"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT ProcID FROM Procedures WHERE SourceID = " + std::to_string(sourceId)));
        for (; !rows.EOF_(); rows.MoveNext()) {
            AddViolations({kProcedureItem, rows.Value("ProcID").AsLong()}, list);
        }
    });
    return list;
}

ResultsDB::ViolationList ResultsDB::GetProcedureViolationList(std::int32_t procId) {
    ViolationList list;
    Trap({kModule, "GetProcedureViolationList"}, [&] {
        AddViolations({kProcedureItem, procId}, list);
    });
    return list;
}

// Required: the filter stands behind the sort terms and so belongs to the last of them. It leaves out no row.
void ResultsDB::AddViolations(Item item, ViolationList& list) {
    std::string sql =
        "SELECT ViolationID, RuleID, RuleType, Title, Severity, Impact, CategoryID, Completed, "
        "SourceLine, Description, Advice, LineNum FROM Violations WHERE ItemID = " +
        std::to_string(item.ID) + " AND ItemType = " + std::to_string(item.Type) +
        " ORDER BY Severity, Impact";
    if (const std::string& clause = FilterString(); !clause.empty()) {
        sql += " AND " + clause;
    }
    for (auto rows = NeedRows(GetReadOnlyRecordset(sql)); !rows.EOF_(); rows.MoveNext()) {
        auto violation = std::make_shared<Violation>();
        ReadListedFields(rows, *violation);
        // The store gives each key once, and a test would cost a scan of the list for each row.
        list.Add(
            rows.Value("ViolationID").AsText() + "KEY",
            std::move(violation),
            /*selected=*/false,
            /*ensureUniqueKey=*/false);
    }
}

Violation ResultsDB::GetViolationDetail(std::int32_t violationId) {
    Violation violation;
    Trap({kModule, "GetViolationDetail"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT * FROM Violations WHERE ViolationID = " + std::to_string(violationId)));
        if (rows.EOF_()) {
            return;
        }
        ReadListedFields(rows, violation);
        violation.Location = rows.Value("Loc").AsLong();
        violation.LocationMember = rows.Value("LocMember").AsText();
        violation.LineBottomOffset = rows.Value("BottomOffset").AsLong();
    });
    return violation;
}

ViolationSourceLocation
ResultsDB::GetViolationSourceLocation(std::int32_t violationId, bool fullFileNames) {
    ViolationSourceLocation location;
    Trap({kModule, "GetViolationSourceLocation"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT ItemID, ItemType FROM Violations WHERE ViolationID = " +
            std::to_string(violationId)));
        std::int32_t itemId = rows.EOF_() ? 0 : rows.Value("ItemID").AsLong();
        if (itemId <= 0) {
            return;
        }
        const std::string_view field = fullFileNames ? "Filename" : "Name";
        const std::int32_t itemType = rows.Value("ItemType").AsLong();
        location.Project = GetProjectData(field);
        if (itemType == kProcedureItem) {
            itemId = Variant(GetProcedureData("SourceID", itemId)).AsLong();
        }
        if (itemType == kFileItem || itemType == kProcedureItem) {
            location.File = GetSourceFileData(field, itemId);
        }
    });
    return location;
}

std::vector<Finding> ResultsDB::GetWorstFindings(std::int32_t count) {
    std::vector<Finding> findings;
    Trap({kModule, "GetWorstFindings"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT ItemID, ItemType, Severity, Title, LineNum, LocMember FROM Violations "
            "ORDER BY Severity, Impact DESC, ViolationID"));
        for (; !rows.EOF_() && static_cast<std::int32_t>(findings.size()) < count;
             rows.MoveNext()) {
            Finding finding;
            finding.Filename =
                FilenameOfItem(rows.Value("ItemType").AsLong(), rows.Value("ItemID").AsLong());
            finding.LineNumber = rows.Value("LineNum").AsLong();
            finding.Severity = rows.Value("Severity").AsLong();
            finding.Title = rows.Value("Title").AsText();
            finding.LocationMember = rows.Value("LocMember").AsText();
            findings.push_back(std::move(finding));
        }
    });
    return findings;
}

std::string ResultsDB::FilenameOfItem(std::int32_t itemType, std::int32_t itemId) {
    std::string sql;
    if (itemType == kProjectItem) {
        sql = "SELECT Filename FROM Projects WHERE ProjectID = ";
    } else if (itemType == kFileItem) {
        sql = "SELECT Filename FROM SourceFiles WHERE SourceID = ";
    } else {
        sql = "SELECT SourceFiles.Filename FROM SourceFiles INNER JOIN Procedures "
              "ON SourceFiles.SourceID = Procedures.SourceID WHERE Procedures.ProcID = ";
    }
    return FirstValue(sql + std::to_string(itemId));
}

bool ResultsDB::SetViolationCompleted(std::int32_t violationId, bool completed) {
    bool isDone = false;
    Trap({kModule, "SetViolationCompleted"}, [&] {
        auto rows = NeedRows(GetEditableRecordset(
            "SELECT Completed FROM Violations WHERE ViolationID = " + std::to_string(violationId)));
        if (rows.EOF_()) {
            return;
        }
        rows.Edit();
        rows.SetValue("Completed", completed);
        rows.Update();
        isDone = true;
    });
    return isDone;
}

std::optional<Recordset> ResultsDB::GetSourceFileValueList() {
    return GetReadOnlyRecordset(
        "SELECT SourceFiles.Name As SFName, Violations.ItemID & '_' & Violations.ItemType As "
        "ItemIDType FROM  (SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = "
        "Procedures.SourceID) INNER JOIN Violations ON Procedures.ProcID = Violations.ItemID "
        "WHERE Violations.ItemType = 3 UNION SELECT SourceFiles.Name As SFName, Violations.ItemID "
        "& '_' & Violations.ItemType As ItemIDType FROM SourceFiles INNER JOIN Violations ON "
        "SourceFiles.SourceID = Violations.ItemID WHERE Violations.ItemType = 2");
}

std::optional<Recordset> ResultsDB::OpenRecordSource(std::string_view sql) {
    return GetReadOnlyRecordset(sql);
}

}  // namespace dorvik
