#include "ListedViolations.h"

#include "ResultsNames.h"
#include "base/modTextCase.h"
#include "cli/output/Console.h"
#include "foundation/log/Trap.h"
#include "modSortRows.h"
#include "results/ResultsDB.h"
#include "results/modViolationListSql.h"
#include "results/modViolationRow.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

int CompareNumbers(std::int32_t left, std::int32_t right) {
    return left < right ? -1 : left > right ? 1 : 0;
}

int CompareFiles(const ListedViolation& left, const ListedViolation& right) {
    return CompareNumbers(left.File->Order, right.File->Order);
}

struct SortRow {
    std::string_view Key;
    int (*Compare)(const ListedViolation& left, const ListedViolation& right);
};

constexpr std::array<SortRow, 9> kSortRows = {{
    {"severity",
     [](const auto& left, const auto& right) {
         return CompareNumbers(left.Facts.Severity, right.Facts.Severity);
     }},
    {"file", &CompareFiles},
    {"line",
     [](const auto& left, const auto& right) {
         return CompareNumbers(left.Facts.SourceLineNumber, right.Facts.SourceLineNumber);
     }},
    {"id",
     [](const auto& left, const auto& right) {
         return CompareNumbers(left.ID, right.ID);
     }},
    {"impact",
     [](const auto& left, const auto& right) {
         return CompareNumbers(left.Facts.Impact, right.Facts.Impact);
     }},
    {"rule",
     [](const auto& left, const auto& right) {
         return CompareNumbers(left.Facts.RuleID, right.Facts.RuleID);
     }},
    {"title",
     [](const auto& left, const auto& right) {
         return modTextCase::Compare(left.Facts.Title, right.Facts.Title);
     }},
    {"procedure",
     [](const auto& left, const auto& right) {
         return modTextCase::Compare(left.Procedure, right.Procedure);
     }},
    {"category",
     [](const auto& left, const auto& right) {
         return modTextCase::Compare(left.Category, right.Category);
     }},
}};

/// The place of the project among its files; no file has this ID.
constexpr std::int32_t kProjectItself = 0;

constexpr std::size_t kDefaultRows = 4;  // the first ones decide where the key leaves it open

bool ComesFirst(const ListedViolation& left, const ListedViolation& right) {
    for (std::size_t place = 0; place < kDefaultRows; ++place) {
        if (const int order = kSortRows.at(place).Compare(left, right); order != 0) {
            return order < 0;
        }
    }
    return false;
}

}  // namespace

std::string ListedViolation::Place() const {
    return Facts.SourceLineNumber > 0
               ? File->Filename + ":" + std::to_string(Facts.SourceLineNumber)
               : File->Filename;
}

ListedViolations::ListedViolations(
    ResultsDB& database, const ResultsItems& items, const ListedScope& scope)
    : m_items(items) {
    using modViolationListSql::Scope;
    ListFiles(database);
    const auto read = [&](Scope of, std::int32_t id) {
        Read(
            database,
            modViolationListSql::ViolationListSql(
                of, id, database.FilterString(), !scope.WithCompleted));
    };
    if (scope.Files.empty() && scope.Procedures.empty()) {
        read(Scope::All, 0);
    }
    for (const std::int32_t file : scope.Files) {
        // The statement for a project file is that for the violations of any file itself.
        read(Scope::ProjectFile, file);
        read(Scope::SourceFile, file);
    }
    for (const std::int32_t procedure : scope.Procedures) {
        read(Scope::Procedure, procedure);
    }
}

/// Names and order are made once for each file, for the violations may be many.
void ListedViolations::ListFiles(ResultsDB& database) {
    const auto add = [this](std::int32_t id, const std::string& folder, const std::string& name) {
        m_files[id] = {name, modConsole::ShownPath(ResultsItems::FullPath(folder, name)), 0};
    };
    add(kProjectItself,
        database.Items().GetProjectData("Path"),
        database.Items().GetProjectData("Filename"));
    for (const auto& [id, file] : m_items.Files()) {
        add(id, file.Path, file.Filename);
    }
    std::vector<ListedFile*> files;
    for (auto& [id, file] : m_files) {
        files.push_back(&file);
    }
    const auto compare = [](const ListedFile& left, const ListedFile& right) {
        const int names = modTextCase::Compare(left.Filename, right.Filename);
        return names != 0 ? names : modTextCase::Compare(left.ShownPath, right.ShownPath);
    };
    std::sort(files.begin(), files.end(), [&](const auto* left, const auto* right) {
        return compare(*left, *right) < 0;
    });
    // The project itself and its file are of one name and of one order.
    for (std::size_t place = 1; place < files.size(); ++place) {
        const bool isNext = compare(*files[place - 1], *files[place]) != 0;
        files[place]->Order = files[place - 1]->Order + (isNext ? 1 : 0);
    }
}

const ListedFile& ListedViolations::FileOf(ItemType itemType, std::int32_t itemId) const {
    const BasicObject* const file = m_items.FileOf(itemType, itemId);
    return m_files.at(file == nullptr ? kProjectItself : file->ObjectID);
}

void ListedViolations::Read(ResultsDB& database, const std::string& sql) {
    const ResultsNames names(database.Review().GetCategorySeverityLists());
    Trap({"ListedViolations", "Read"}, [&] {
        auto rows = database.OpenRecordSource(sql);
        for (; rows && !rows->EOF_(); rows->MoveNext()) {
            const ItemType itemType = ItemTypeOf(rows->Value("ItemType").AsLong());
            const std::int32_t itemId = rows->Value("ItemID").AsLong();
            ListedViolation& violation = m_rows.emplace_back();
            violation.ID = rows->Value("ViolationID").AsLong();
            violation.File = &FileOf(itemType, itemId);
            violation.Facts = modViolationRow::Read(*rows);
            violation.Facts.Location = rows->Value("Loc").AsLong();
            violation.Facts.LocationMember = rows->Value("LocMember").AsText();
            violation.Severity = names.Severity(violation.Facts.Severity);
            violation.Category = names.Category(violation.Facts.CategoryID);
            if (const auto* const procedure = m_items.ProcedureOf(itemType, itemId)) {
                violation.Procedure = ResultsItems::ShownName(procedure->Name, procedure->Type);
            }
        }
    });
}

void ListedViolations::Sort(std::string_view key, bool descending) {
    const SortRow& row = modSortRows::Find(kSortRows, key);
    std::stable_sort(m_rows.begin(), m_rows.end(), [&](const auto& left, const auto& right) {
        const int order = row.Compare(left, right);
        return order == 0 ? ComesFirst(left, right) : (order < 0) != descending;
    });
}

std::vector<std::string> ListedViolations::SortKeys() {
    return modSortRows::Keys(kSortRows);
}

}  // namespace dorvik
