#pragma once

#include "cli/commands/results/ResultsItems.h"
#include "results/Violation.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ResultsDB;

/// Where violations are: a source file, or the project file for those of the project itself.
struct ListedFile {
    std::string Filename;    // without its folder
    std::string ShownPath;   // with its folder, for the eyes of a person
    std::int32_t Order = 0;  // among the files by name, then by folder
};

/// A violation as a list shows it, with the names of what it belongs to.
struct ListedViolation {
    std::int32_t ID = 0;
    Violation Facts;
    const ListedFile* File = nullptr;  // never null; lives as long as the list
    std::string Procedure;             // the procedure or section that owns it; empty without one
    std::string Severity;              // title of its severity
    std::string Category;              // title of its category

    /// "modMain.bas:12", without the number where there is none.
    std::string Place() const;
};

/// Whose violations are listed. Empty sets limit nothing.
struct ListedScope {
    std::set<std::int32_t> Files;       // these alone, with all that is in them
    std::set<std::int32_t> Procedures;  // of these alone
    bool WithCompleted = false;
};

/// The violations of a results database, read through its filter.
class ListedViolations {
public:
    /// REQUIRES: `scope` names items of this database.
    ListedViolations(ResultsDB& database, const ResultsItems& items, const ListedScope& scope);
    ListedViolations(const ListedViolations&) = delete;
    ListedViolations& operator=(const ListedViolations&) = delete;

    /// Sorts by one of `SortKeys` and, where that is alike, by severity, file, line and ID. `descending`
    /// turns the order of that key alone.
    void Sort(std::string_view key, bool descending);
    static std::vector<std::string> SortKeys();

    const std::vector<ListedViolation>& Rows() const { return m_rows; }

private:
    void ListFiles(ResultsDB& database);
    void Read(ResultsDB& database, const std::string& sql);
    const ListedFile& FileOf(ItemType itemType, std::int32_t itemId) const;

    const ResultsItems& m_items;
    std::map<std::int32_t, ListedFile> m_files;  // by SourceID, and 0 for the project
    std::vector<ListedViolation> m_rows;
};

}  // namespace dorvik
