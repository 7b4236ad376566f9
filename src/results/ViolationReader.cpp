#include "results/ViolationReader.h"

#include "modItemSql.h"
#include "results/modViolationRow.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = ResultsStore::kModule;

/// The file of the item, or the project file of the project.
std::string FilenameOfItem(ResultsStore& store, ItemType itemType, std::int32_t itemId) {
    std::string sql;
    if (itemType == ItemType::Project) {
        sql = "SELECT Filename FROM Projects WHERE ProjectID = ";
    } else if (itemType == ItemType::File) {
        sql = "SELECT Filename FROM SourceFiles WHERE SourceID = ";
    } else {
        sql = "SELECT SourceFiles.Filename FROM SourceFiles INNER JOIN Procedures "
              "ON SourceFiles.SourceID = Procedures.SourceID WHERE Procedures.ProcID = ";
    }
    return store.FirstText(sql + std::to_string(itemId));
}

}  // namespace

ViolationReader::ViolationList ViolationReader::GetVBPFileViolationsList(std::int32_t sourceId) {
    ViolationList list;
    m_store.Trap({kModule, "GetVBPFileViolationsList"}, [&] {
        AddViolations(ItemType::File, sourceId, list);
    });
    return list;
}

ViolationReader::ViolationList ViolationReader::GetSourceFileViolationsList(std::int32_t sourceId) {
    ViolationList list;
    m_store.Trap({kModule, "GetSourceFileViolationsList"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT ProcID FROM Procedures WHERE SourceID = " + std::to_string(sourceId));
        for (; !rows.EOF_(); rows.MoveNext()) {
            AddViolations(ItemType::Procedure, rows.Value("ProcID").AsLong(), list);
        }
    });
    return list;
}

ViolationReader::ViolationList ViolationReader::GetProcedureViolationList(std::int32_t procId) {
    ViolationList list;
    m_store.Trap({kModule, "GetProcedureViolationList"}, [&] {
        AddViolations(ItemType::Procedure, procId, list);
    });
    return list;
}

// Required: the filter comes after the sort terms and so belongs to the last of them. It excludes no row.
void ViolationReader::AddViolations(ItemType itemType, std::int32_t itemId, ViolationList& list) {
    std::string sql = "SELECT ViolationID, " + std::string(modViolationRow::kColumns) +
                      " FROM Violations" + modItemSql::OfItem(itemType, itemId) +
                      " ORDER BY Severity, Impact";
    if (const std::string& clause = m_filter.Clause(); !clause.empty()) {
        sql += " AND " + clause;
    }
    for (auto rows = m_store.RequireRows(sql); !rows.EOF_(); rows.MoveNext()) {
        auto violation = std::make_shared<Violation>(modViolationRow::Read(rows));
        // The store gives each key once, and a test would cost a scan of the list for each row.
        list.Add(
            rows.Value("ViolationID").AsText() + "KEY",
            std::move(violation),
            /*selected=*/false,
            /*ensureUniqueKey=*/false);
    }
}

Violation ViolationReader::GetViolationDetail(std::int32_t violationId) {
    Violation violation;
    m_store.Trap({kModule, "GetViolationDetail"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT * FROM Violations WHERE ViolationID = " + std::to_string(violationId));
        if (rows.EOF_()) {
            return;
        }
        violation = modViolationRow::Read(rows);
        violation.Location = rows.Value("Loc").AsLong();
        violation.LocationMember = rows.Value("LocMember").AsText();
        violation.LineBottomOffset = rows.Value("BottomOffset").AsLong();
    });
    return violation;
}

ViolationSourceLocation
ViolationReader::GetViolationSourceLocation(std::int32_t violationId, bool fullFileNames) {
    ViolationSourceLocation location;
    m_store.Trap({kModule, "GetViolationSourceLocation"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT ItemID, ItemType FROM Violations WHERE ViolationID = " +
            std::to_string(violationId));
        std::int32_t itemId = rows.EOF_() ? 0 : rows.Value("ItemID").AsLong();
        if (itemId <= 0) {
            return;
        }
        const std::string_view field = fullFileNames ? "Filename" : "Name";
        const ItemType itemType = ItemTypeOf(rows.Value("ItemType").AsLong());
        location.Project = m_items.GetProjectData(field);
        if (itemType == ItemType::Procedure) {
            itemId = Variant(m_items.GetProcedureData("SourceID", itemId)).AsLong();
        }
        if (itemType == ItemType::File || itemType == ItemType::Procedure) {
            location.File = m_items.GetSourceFileData(field, itemId);
        }
    });
    return location;
}

std::vector<Finding> ViolationReader::GetWorstFindings(std::int32_t count) {
    std::vector<Finding> findings;
    m_store.Trap({kModule, "GetWorstFindings"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT ItemID, ItemType, Severity, Title, LineNum, LocMember FROM Violations "
            "ORDER BY Severity, Impact DESC, ViolationID");
        for (; !rows.EOF_() && static_cast<std::int32_t>(findings.size()) < count;
             rows.MoveNext()) {
            Finding finding;
            finding.Filename = FilenameOfItem(
                m_store,
                ItemTypeOf(rows.Value("ItemType").AsLong()),
                rows.Value("ItemID").AsLong());
            finding.LineNumber = rows.Value("LineNum").AsLong();
            finding.Severity = rows.Value("Severity").AsLong();
            finding.Title = rows.Value("Title").AsText();
            finding.LocationMember = rows.Value("LocMember").AsText();
            findings.push_back(std::move(finding));
        }
    });
    return findings;
}

std::optional<Recordset> ViolationReader::GetSourceFileValueList() {
    return m_store.GetReadOnlyRecordset(
        "SELECT SourceFiles.Name As SFName, Violations.ItemID & '_' & Violations.ItemType As "
        "ItemIDType FROM  (SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = "
        "Procedures.SourceID) INNER JOIN Violations ON Procedures.ProcID = Violations.ItemID "
        "WHERE Violations.ItemType = 3 UNION SELECT SourceFiles.Name As SFName, Violations.ItemID "
        "& '_' & Violations.ItemType As ItemIDType FROM SourceFiles INNER JOIN Violations ON "
        "SourceFiles.SourceID = Violations.ItemID WHERE Violations.ItemType = 2");
}

}  // namespace dorvik
