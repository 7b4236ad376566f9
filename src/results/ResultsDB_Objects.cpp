// The rows of the reviewed objects: their set-up, their violations and their figures.

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"
#include "results/modTolerances.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"

namespace dorvik {

namespace {

enum ItemType : std::int32_t { kProjectItem = 1, kFileItem = 2, kProcedureItem = 3 };

std::string TextOf(const VirtualObject& object, std::string_view property) {
    return object.Properties().Item(property).AsText();
}

std::int32_t BoolToInt(bool value) {
    return value ? -1 : 0;
}

void SetProcedureFields(Recordset& rows, const VirtualObject& object) {
    rows.SetValue("Scope", TextOf(object, "Scope"));
    rows.SetValue("IsStatic", object.Properties().Item(propertyname::kIsStatic));
    rows.SetValue("ReturnType", TextOf(object, "DataType"));
}

/// ", CVC = ?, CVCLimit = ?, CVCPass = ?" and so on for the measures that the object has, with their values.
std::string MeasureAssignments(const VirtualObject& object, SqlValues& values) {
    const auto& properties = object.Properties();
    std::string list;
    for (const auto& measure : modTolerances::kMeasures) {
        const Variant* const value = properties.Find(measure.Name);
        if (value == nullptr) {
            continue;
        }
        const std::string name(measure.Name);
        list += ", " + name + " = ?, " + name + "Limit = ?, " + name + "Pass = ?";
        values.emplace_back(value->AsLong());
        values.emplace_back(properties.Item(name + "Limit").AsLong());
        values.emplace_back(BoolToInt(properties.Item(name + "Pass").AsBoolean()));
    }
    return list;
}

}  // namespace

// ---- set-up ----

void ResultsDB::SetupVObjectResults(std::string_view kind, VirtualObject& object) {
    std::int32_t id = 0;
    std::int32_t type = 0;
    if (modTextCase::Equal(kind, "Project")) {
        m_projectId = id = SetupProject(object);
        type = kProjectItem;
    } else if (modTextCase::Equal(kind, "VBP") || modTextCase::Equal(kind, "File")) {
        m_sourceId = id = SetupSourceFile(object);
        type = kFileItem;
    } else if (modTextCase::Equal(kind, "Layout") || modTextCase::Equal(kind, "Declarations")) {
        id = SetupLayoutDeclarations(kind);
        type = kProcedureItem;
    } else if (modTextCase::Equal(kind, "Procedure")) {
        id = SetupProcedure(object);
        type = kProcedureItem;
    } else {
        return;
    }
    object.SetObjectID(id);
    object.SetObjectType(type);
}

std::int32_t ResultsDB::SetupProject(VirtualObject& object) {
    // Required: a project file that does not tell its type gets no row. That loses no finding, and counts as no loss.
    if (!object.Properties().Contains(propertyname::kType)) {
        dorvik::Trap({kModule, "SetupProject"}, [&] { TextOf(object, "Type"); });
        return 0;
    }
    std::int32_t id = 0;
    Trap({kModule, "SetupProject"}, [&] {
        auto rows = NeedRows(GetEditableRecordset("SELECT * FROM Projects"));
        rows.AddNew();
        rows.SetValue("Name", TextOf(object, "Name"));
        rows.SetValue("Path", TextOf(object, "Path"));
        rows.SetValue("Filename", TextOf(object, "Filename"));
        rows.SetValue("Type", TextOf(object, "Type"));
        rows.Update();
        rows.MoveFirst();
        id = rows.Value("ProjectID").AsLong();
        rows.Close();
        Execute("UPDATE Review Set ProjectID = ? WHERE ReviewID = ?", {id, m_reviewId});
    });
    return id;
}

std::int32_t ResultsDB::SetupSourceFile(VirtualObject& object) {
    std::int32_t id = 0;
    m_isNewSource = false;
    Trap({kModule, "SetupSourceFile"}, [&] {
        const std::string filename = TextOf(object, "Filename");
        const std::string path = TextOf(object, "Path");
        auto rows = NeedRows(GetEditableRecordset(
            "SELECT * FROM SourceFiles WHERE Filename=? AND Path=?", {filename, path}));
        std::string key = modTextCase::ToLower(path) + '\n' + modTextCase::ToLower(filename);
        // To look through all rows for each file would make the files cost their number squared.
        const bool isUnseen = m_isNewReview && !m_sourceFiles.contains(key);
        const bool isNew = isUnseen || (rows.BOF() && rows.EOF_());
        if (isNew) {
            rows.AddNew();
            rows.SetValue("ProjectID", m_projectId);
            m_procedures.clear();
        } else {
            rows.MoveFirst();
            rows.Edit();
        }
        rows.SetValue("Name", TextOf(object, "Name"));
        if (isNew) {
            rows.SetValue("Path", path);
            rows.SetValue("Filename", filename);
        }
        rows.SetValue("Type", TextOf(object, "Type"));
        rows.Update();
        id = isNew ? rows.LastAddedKey() : rows.Value("SourceID").AsLong();
        m_isNewSource = isNew;
        m_sourceFiles.insert(std::move(key));
    });
    return id;
}

std::int32_t ResultsDB::SetupProcedure(VirtualObject& object) {
    std::int32_t id = 0;
    Trap({kModule, "SetupProcedure"}, [&] {
        const std::string name = TextOf(object, "Name");
        const std::string type = TextOf(object, "ProcedureType");
        auto rows = NeedRows(GetEditableRecordset(
            "SELECT * FROM Procedures WHERE Name = ? AND SourceID = ? AND Type = ?",
            {name, m_sourceId, type}));
        std::string key = modTextCase::ToLower(name) + '\n' + modTextCase::ToLower(type);
        // A look at the rows costs more than a new one: it lets go of the file between two writes.
        const bool isUnseen = m_isNewSource && !m_procedures.contains(key);
        const bool isNew = isUnseen || (rows.BOF() && rows.EOF_());
        if (isNew) {
            rows.AddNew();
            rows.SetValue("SourceID", m_sourceId);
            rows.SetValue("Name", name);
            rows.SetValue("Type", type);
        } else {
            rows.MoveFirst();
            rows.Edit();
        }
        SetProcedureFields(rows, object);
        rows.Update();
        id = isNew ? rows.LastAddedKey() : rows.Value("ProcID").AsLong();
        m_procedures.insert(std::move(key));
    });
    return id;
}

std::int32_t ResultsDB::SetupLayoutDeclarations(std::string_view kind) {
    std::int32_t id = 0;
    Trap({kModule, "SetupLayoutDeclarations"}, [&] {
        auto rows = NeedRows(GetEditableRecordset(
            "SELECT * FROM Procedures WHERE Name = ? AND SourceID = ?",
            {std::string(kind), m_sourceId}));
        if (rows.BOF() && rows.EOF_()) {
            rows.AddNew();
            rows.SetValue("SourceID", m_sourceId);
            rows.SetValue("Name", kind);
            rows.SetValue("Type", "");
            rows.SetValue("Scope", "");
            rows.SetValue("IsStatic", false);
            rows.SetValue("ReturnType", "");
            rows.Update();
        }
        rows.MoveFirst();
        id = rows.Value("ProcID").AsLong();
    });
    return id;
}

// ---- violations and figures ----

void ResultsDB::LogViolation(
    std::int32_t itemId, std::int32_t itemType, const Violation& violation) {
    Trap({kModule, "LogViolation"}, [&] {
        auto rows =
            NeedRows(GetEditableRecordset("SELECT * FROM Violations WHERE ViolationID = 0"));
        rows.AddNew();
        rows.SetValue("ItemID", itemId);
        rows.SetValue("ItemType", itemType);
        rows.SetValue("RuleID", violation.RuleID);
        rows.SetValue("RuleType", violation.RuleType);
        rows.SetValue("Title", violation.Title);
        rows.SetValue("Description", violation.Description);
        rows.SetValue("Advice", violation.Advice);
        rows.SetValue("Severity", violation.Severity);
        rows.SetValue("Impact", static_cast<std::int32_t>(violation.Impact));
        rows.SetValue("CategoryID", violation.CategoryID);
        rows.SetValue("LineNum", violation.SourceLineNumber);
        rows.SetValue("Loc", violation.Location);
        rows.SetValue("LocMember", violation.LocationMember);
        rows.SetValue("SourceLine", violation.SourceLine);
        rows.SetValue("BottomOffset", violation.LineBottomOffset);
        rows.Update();
    });
}

void ResultsDB::LogVirtualObjectProperties(const VirtualObject& object) {
    Trap({kModule, "LogVirtualObjectProperties"}, [&] {
        const auto& properties = object.Properties();
        const std::int32_t id = object.ObjectID();
        if (object.ObjectType() == kProjectItem) {
            if (const Variant* const name = properties.Find(propertyname::kExeName32)) {
                Execute(
                    "UPDATE Projects SET ExeName32 = ? WHERE ProjectID = ?", {name->AsText(), id});
            }
        } else if (object.ObjectType() == kFileItem) {
            // Required: the average here, while the measure CC holds the maximum.
            if (const Variant* const average = properties.Find(propertyname::kAverageCyclomatic)) {
                Execute(
                    "UPDATE SourceFiles SET CyclomaticComplexity = ? WHERE SourceID = ?",
                    {average->AsLong(), id});
            }
            SqlValues values;
            if (const std::string list = MeasureAssignments(object, values); !list.empty()) {
                values.emplace_back(id);
                Execute(
                    "UPDATE SourceFiles SET " + list.substr(2) + " WHERE SourceID = ?",
                    std::move(values));
            }
        } else if (object.ObjectType() == kProcedureItem) {
            if (const Variant* const complexity =
                    properties.Find(propertyname::kCyclomaticComplexity)) {
                Execute(
                    "UPDATE Procedures SET CyclomaticComplexity = ? WHERE ProcID = ?",
                    {complexity->AsLong(), id});
            }
        }
    });
}

void ResultsDB::LogVirtualObjectLineStats(const VirtualObject& object) {
    Trap({kModule, "LogVirtualObjectLineStats"}, [&] {
        auto rows =
            NeedRows(GetEditableRecordset("SELECT * FROM LineCountStats WHERE StatsID = 0"));
        const SourceLineStatistics& stats = object.LineStats();
        rows.AddNew();
        rows.SetValue("ItemID", object.ObjectID());
        rows.SetValue("ItemType", object.ObjectType());
        rows.SetValue("TotalCount", stats.TotalLines());
        rows.SetValue("CodeCount", stats.CodeLines());
        rows.SetValue("InlineCommentCount", stats.InLineCommentLines());
        rows.SetValue("CommentCount", stats.CommentOnlyLines());
        rows.SetValue("BlankCount", stats.BlankLines());
        rows.Update();
    });
}

void ResultsDB::LogVirtualObjectViolationStats(const VirtualObject& object) {
    Trap({kModule, "LogVirtualObjectViolationStats"}, [&] {
        auto rows =
            NeedRows(GetEditableRecordset("SELECT * FROM ViolationStats WHERE StatsID = 0"));
        const ViolationStatistics& stats = object.ViolationStats();
        rows.AddNew();
        rows.SetValue("ItemID", object.ObjectID());
        rows.SetValue("ItemType", object.ObjectType());
        rows.SetValue("TotalCount", stats.TotalViolations());
        rows.SetValue("CriticalCount", stats.CriticalViolations());
        rows.SetValue("HighCount", stats.HighViolations());
        rows.SetValue("MediumCount", stats.MediumViolations());
        rows.SetValue("LowCount", stats.LowViolations());
        rows.SetValue("InformationCount", stats.InfoViolations());
        rows.SetValue("TotalImpact", stats.TotalImpact());
        rows.SetValue("CriticalImpact", stats.CriticalImpact());
        rows.SetValue("HighImpact", stats.HighImpact());
        rows.SetValue("MediumImpact", stats.MediumImpact());
        rows.SetValue("LowImpact", stats.LowImpact());
        rows.SetValue("InformationImpact", stats.InfoImpact());
        rows.Update();
    });
}

}  // namespace dorvik
