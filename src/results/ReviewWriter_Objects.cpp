// The rows of the reviewed objects: their set-up, their violations and their figures.

#include "base/modTextCase.h"
#include "modSeverityColumns.h"
#include "results/ReviewWriter.h"
#include "results/modTolerances.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = ResultsStore::kModule;

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

/// Writes the property, if the object has it, to the row of the object.
void WriteNumber(
    ResultsStore& store,
    std::string_view sql,
    const VirtualObject& object,
    std::string_view property) {
    if (const Variant* const number = object.Properties().Find(property)) {
        store.Execute(sql, {number->AsLong(), object.ObjectID()});
    }
}

void WriteFileProperties(ResultsStore& store, const VirtualObject& file) {
    // Required: the average here, while the measure CC holds the maximum.
    WriteNumber(
        store,
        "UPDATE SourceFiles SET CyclomaticComplexity = ? WHERE SourceID = ?",
        file,
        propertyname::kAverageCyclomatic);
    SqlValues values;
    if (const std::string list = MeasureAssignments(file, values); !list.empty()) {
        values.emplace_back(file.ObjectID());
        store.Execute(
            "UPDATE SourceFiles SET " + list.substr(2) + " WHERE SourceID = ?", std::move(values));
    }
}

}  // namespace

// ---- set-up ----

void ReviewWriter::SetupVObjectResults(std::string_view kind, VirtualObject& object) {
    std::int32_t id = 0;
    ItemType type = ItemType::None;
    if (modTextCase::Equal(kind, "Project")) {
        m_keys.ProjectID = id = SetupProject(object);
        type = ItemType::Project;
    } else if (modTextCase::Equal(kind, "VBP") || modTextCase::Equal(kind, "File")) {
        m_sourceId = id = SetupSourceFile(object);
        type = ItemType::File;
    } else if (modTextCase::Equal(kind, "Layout") || modTextCase::Equal(kind, "Declarations")) {
        id = SetupLayoutDeclarations(kind);
        type = ItemType::Procedure;
    } else if (modTextCase::Equal(kind, "Procedure")) {
        id = SetupProcedure(object);
        type = ItemType::Procedure;
    } else {
        return;
    }
    object.SetObjectID(id);
    object.SetObjectType(type);
}

std::int32_t ReviewWriter::SetupProject(VirtualObject& object) {
    // Required: a project file without a type gets no row. No finding is lost by that, so it is not counted as a
    // loss.
    if (!object.Properties().Contains(propertyname::kType)) {
        dorvik::Trap({kModule, "SetupProject"}, [&] { TextOf(object, "Type"); });
        return 0;
    }
    std::int32_t id = 0;
    m_store.Trap({kModule, "SetupProject"}, [&] {
        auto rows = m_store.RequireEditableRows("SELECT * FROM Projects");
        rows.AddNew();
        rows.SetValue("Name", TextOf(object, "Name"));
        rows.SetValue("Path", TextOf(object, "Path"));
        rows.SetValue("Filename", TextOf(object, "Filename"));
        rows.SetValue("Type", TextOf(object, "Type"));
        rows.Update();
        rows.MoveFirst();
        id = rows.Value("ProjectID").AsLong();
        rows.Close();
        m_store.Execute(
            "UPDATE Review Set ProjectID = ? WHERE ReviewID = ?", {id, m_keys.ReviewID});
    });
    return id;
}

std::int32_t ReviewWriter::SetupSourceFile(VirtualObject& object) {
    std::int32_t id = 0;
    m_procedures = {};
    m_store.Trap({kModule, "SetupSourceFile"}, [&] {
        const std::string filename = TextOf(object, "Filename");
        const std::string path = TextOf(object, "Path");
        auto rows = m_store.RequireEditableRows(
            "SELECT * FROM SourceFiles WHERE Filename=? AND Path=?", {filename, path});
        std::string key = modTextCase::ToLower(path) + '\n' + modTextCase::ToLower(filename);
        // A query for each file would read all rows, so that the time would grow with the square of the files.
        const bool isNew = m_files.RuleOut(key) || (rows.BOF() && rows.EOF_());
        if (isNew) {
            rows.AddNew();
            rows.SetValue("ProjectID", m_keys.ProjectID);
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
        m_procedures.AreAllRows = isNew;  // a file without a row before has no procedures
        m_files.Keys.insert(std::move(key));
    });
    return id;
}

std::int32_t ReviewWriter::SetupProcedure(VirtualObject& object) {
    std::int32_t id = 0;
    m_store.Trap({kModule, "SetupProcedure"}, [&] {
        const std::string name = TextOf(object, "Name");
        const std::string type = TextOf(object, "ProcedureType");
        auto rows = m_store.RequireEditableRows(
            "SELECT * FROM Procedures WHERE Name = ? AND SourceID = ? AND Type = ?",
            {name, m_sourceId, type});
        std::string key = modTextCase::ToLower(name) + '\n' + modTextCase::ToLower(type);
        // The query costs more than the new row, since it releases the lock of the file between two writes.
        const bool isNew = m_procedures.RuleOut(key) || (rows.BOF() && rows.EOF_());
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
        m_procedures.Keys.insert(std::move(key));
    });
    return id;
}

std::int32_t ReviewWriter::SetupLayoutDeclarations(std::string_view kind) {
    std::int32_t id = 0;
    m_store.Trap({kModule, "SetupLayoutDeclarations"}, [&] {
        auto rows = m_store.RequireEditableRows(
            "SELECT * FROM Procedures WHERE Name = ? AND SourceID = ?",
            {std::string(kind), m_sourceId});
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

void ReviewWriter::LogViolation(
    std::int32_t itemId, ItemType itemType, const Violation& violation) {
    m_store.Trap({kModule, "LogViolation"}, [&] {
        auto rows = m_store.RequireEditableRows("SELECT * FROM Violations WHERE ViolationID = 0");
        rows.AddNew();
        rows.SetValue("ItemID", itemId);
        rows.SetValue("ItemType", NumberOf(itemType));
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

void ReviewWriter::LogVirtualObjectProperties(const VirtualObject& object) {
    m_store.Trap({kModule, "LogVirtualObjectProperties"}, [&] {
        switch (object.ObjectType()) {
            case ItemType::None: break;
            case ItemType::Project:
                if (const Variant* const name =
                        object.Properties().Find(propertyname::kExeName32)) {
                    m_store.Execute(
                        "UPDATE Projects SET ExeName32 = ? WHERE ProjectID = ?",
                        {name->AsText(), object.ObjectID()});
                }
                break;
            case ItemType::File: WriteFileProperties(m_store, object); break;
            case ItemType::Procedure:
                WriteNumber(
                    m_store,
                    "UPDATE Procedures SET CyclomaticComplexity = ? WHERE ProcID = ?",
                    object,
                    propertyname::kCyclomaticComplexity);
                break;
        }
    });
}

void ReviewWriter::LogVirtualObjectLineStats(const VirtualObject& object) {
    m_store.Trap({kModule, "LogVirtualObjectLineStats"}, [&] {
        auto rows = m_store.RequireEditableRows("SELECT * FROM LineCountStats WHERE StatsID = 0");
        const SourceLineStatistics& stats = object.LineStats();
        rows.AddNew();
        rows.SetValue("ItemID", object.ObjectID());
        rows.SetValue("ItemType", NumberOf(object.ObjectType()));
        rows.SetValue("TotalCount", stats.TotalLines());
        rows.SetValue("CodeCount", stats.CodeLines());
        rows.SetValue("InlineCommentCount", stats.InLineCommentLines());
        rows.SetValue("CommentCount", stats.CommentOnlyLines());
        rows.SetValue("BlankCount", stats.BlankLines());
        rows.Update();
    });
}

void ReviewWriter::LogVirtualObjectViolationStats(const VirtualObject& object) {
    m_store.Trap({kModule, "LogVirtualObjectViolationStats"}, [&] {
        auto rows = m_store.RequireEditableRows("SELECT * FROM ViolationStats WHERE StatsID = 0");
        const ViolationStatistics& stats = object.ViolationStats();
        rows.AddNew();
        rows.SetValue("ItemID", object.ObjectID());
        rows.SetValue("ItemType", NumberOf(object.ObjectType()));
        rows.SetValue("TotalCount", stats.TotalViolations());
        rows.SetValue("TotalImpact", stats.TotalImpact());
        for (const Severity severity : kSeverities) {
            rows.SetValue(modSeverityColumns::Count(severity), stats.Count(severity));
            rows.SetValue(modSeverityColumns::Impact(severity), stats.Impact(severity));
        }
        rows.Update();
    });
}

}  // namespace dorvik
