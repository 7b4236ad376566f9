#include "workstation/desk/Findings.h"

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "platform/host/modFiles.h"
#include "results/ResultsDB.h"
#include "results/modViolationListSql.h"
#include "source/ItemType.h"

#include <algorithm>
#include <functional>
#include <unordered_map>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "modFindings";

/// A source file or procedure as the database names it.
struct Item {
    std::int32_t File = 0;  // its key
    std::string Name;
    std::string Type;
};

/// The files and procedures of a database by their keys.
struct ItemNames {
    std::unordered_map<std::int32_t, std::string> Files;
    std::unordered_map<std::int32_t, Item> Procedures;

    std::int32_t FileOf(ItemType type, std::int32_t id) const {
        if (type == ItemType::File) {
            return id;
        }
        const auto found = Procedures.find(id);
        return type == ItemType::Procedure && found != Procedures.end() ? found->second.File : 0;
    }
    std::string FilenameOf(ItemType type, std::int32_t id) const {
        const auto found = Files.find(FileOf(type, id));
        return found == Files.end() ? std::string() : found->second;
    }
};

std::string WithFilter(std::string sql, std::string_view filter) {
    if (!filter.empty()) {
        sql.append(" WHERE").append(filter);
    }
    return sql;
}

void VisitRows(
    ResultsDB& results, const std::string& sql, const std::function<void(Recordset&)>& visit) {
    if (auto rows = results.OpenRecordSource(sql)) {
        for (; !rows->EOF_(); rows->MoveNext()) {
            visit(*rows);
        }
    }
}

ItemNames ReadNames(ResultsDB& results) {
    ItemNames names;
    VisitRows(results, "SELECT SourceID, Filename FROM SourceFiles", [&](Recordset& row) {
        names.Files.emplace(row.Value(0).AsLong(), row.Value(1).AsText());
    });
    VisitRows(results, "SELECT ProcID, SourceID, Name, Type FROM Procedures", [&](Recordset& row) {
        names.Procedures.emplace(
            row.Value(0).AsLong(),
            Item{row.Value(1).AsLong(), row.Value(2).AsText(), row.Value(3).AsText()});
    });
    return names;
}

/// Runs `body` on the open database; what it reads is lost where the file cannot be read.
void WithDatabase(
    std::string_view operation,
    const std::string& database,
    const std::function<void(ResultsDB&)>& body) {
    Trap({kModule, operation}, [&] {
        // A file that is not there is no fault, and nothing to be logged.
        if (database.empty() || !modFiles::FileExists(database)) {
            return;
        }
        ResultsDB results;
        if (results.OpenReview(database)) {
            body(results);
            results.CloseReview();
        }
    });
}

FoundViolation ViolationOf(Recordset& row, const ItemNames& names) {
    FoundViolation found;
    found.ViolationID = row.Value("ViolationID").AsLong();
    found.RuleID = row.Value("RuleID").AsLong();
    found.Severity = row.Value("Severity").AsLong();
    found.Line = row.Value("LineNum").AsLong();
    found.Location = row.Value("Loc").AsLong();
    found.Title = row.Value("Title").AsText();
    found.Procedure = row.Value("LocMember").AsText();
    found.Text = row.Value("SourceLine").AsText();
    found.File =
        names.FilenameOf(ItemTypeOf(row.Value("ItemType").AsLong()), row.Value("ItemID").AsLong());
    return found;
}

constexpr std::string_view kEverywhere =
    "SELECT ViolationID, RuleID, Severity, LineNum, Loc, Title, LocMember, SourceLine, ItemID, "
    "ItemType FROM Violations";

void AddCount(
    ProjectFindingCounts& counts,
    const ItemNames& names,
    ItemType type,
    std::int32_t id,
    const FindingCount& count) {
    counts.Count.Add(count);
    const std::string filename = names.FilenameOf(type, id);
    const auto file = std::ranges::find_if(counts.Files, [&](const auto& item) {
        return modTextCase::Equal(item.Filename, filename);
    });
    if (file == counts.Files.end()) {
        return;
    }
    file->Count.Add(count);
    if (type == ItemType::Procedure) {
        const Item& procedure = names.Procedures.at(id);
        file->Procedures.push_back({procedure.Name, procedure.Type, count});
    }
}

}  // namespace

void FindingCount::Add(const FindingCount& other) {
    Violations += other.Violations;
    if (other.Worst > 0 && (Worst == 0 || other.Worst < Worst)) {
        Worst = other.Worst;
    }
}

const ProjectFindingCounts::File* ProjectFindingCounts::FindFile(std::string_view filename) const {
    const auto found = std::ranges::find_if(
        Files, [&](const File& file) { return modTextCase::Equal(file.Filename, filename); });
    return found == Files.end() ? nullptr : &*found;
}

namespace modFindings {

std::vector<FoundViolation> Read(const std::string& database, std::string_view filter) {
    std::vector<FoundViolation> violations;
    WithDatabase("Read", database, [&](ResultsDB& results) {
        const ItemNames names = ReadNames(results);
        VisitRows(results, WithFilter(std::string(kEverywhere), filter), [&](Recordset& row) {
            violations.push_back(ViolationOf(row, names));
        });
    });
    return violations;
}

std::vector<FoundViolation>
ReadFile(const std::string& database, std::string_view filename, std::string_view filter) {
    using modViolationListSql::Scope;
    std::vector<FoundViolation> violations;
    WithDatabase("ReadFile", database, [&](ResultsDB& results) {
        const ItemNames names = ReadNames(results);
        for (const auto& [file, name] : names.Files) {
            if (!modTextCase::Equal(name, filename)) {
                continue;
            }
            for (const Scope scope : {Scope::ProjectFile, Scope::SourceFile}) {
                const std::string sql = modViolationListSql::ViolationListSql(
                    scope, file, filter, /*withoutCompleted=*/false);
                VisitRows(results, sql, [&](Recordset& row) {
                    violations.push_back(ViolationOf(row, names));
                });
            }
        }
    });
    return violations;
}

std::string ReadAdvice(const std::string& database, std::int32_t violationId) {
    std::string advice;
    WithDatabase("ReadAdvice", database, [&](ResultsDB& results) {
        advice = results.Violations().GetViolationDetail(violationId).Advice;
    });
    return advice;
}

ProjectFindingCounts ReadCounts(const std::string& database, std::string_view filter) {
    ProjectFindingCounts counts;
    WithDatabase("ReadCounts", database, [&](ResultsDB& results) {
        const ItemNames names = ReadNames(results);
        counts.ProjectFile =
            results.Items().GetProjectData("Path") + results.Items().GetProjectData("Filename");
        for (const auto& [key, filename] : names.Files) {
            counts.Files.push_back({filename, {}, {}});
        }
        const std::string sql =
            WithFilter(
                "SELECT ItemType, ItemID, Count(*) AS Violations, Min(Severity) AS Worst FROM "
                "Violations",
                filter) +
            " GROUP BY ItemType, ItemID";
        VisitRows(results, sql, [&](Recordset& row) {
            AddCount(
                counts,
                names,
                ItemTypeOf(row.Value(0).AsLong()),
                row.Value(1).AsLong(),
                {row.Value(2).AsLong(), row.Value(3).AsLong()});
        });
    });
    return counts;
}

}  // namespace modFindings

}  // namespace dorvik
