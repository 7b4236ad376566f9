#pragma once

#include "cli/ResultsItems.h"
#include "cli/ResultsNames.h"
#include "results/Violation.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ResultsDB;

/// A violation as a list shows it, with the names of what it belongs to.
struct ListedViolation {
    std::int32_t ID = 0;
    Violation Facts;
    std::string Filename;   // of its file, or of the project file, without the folder
    std::string Path;       // the same with its folder, in the program's form
    std::string Procedure;  // the procedure or section that owns it; empty without one
    std::string Severity;   // title of its severity
    std::string Category;   // title of its category

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

    /// Sorts by one of `SortKeys` and, where that is alike, by severity, file, line and ID. `descending`
    /// turns the order of that key alone.
    void Sort(std::string_view key, bool descending);
    static std::vector<std::string> SortKeys();

    const std::vector<ListedViolation>& Rows() const { return m_rows; }

private:
    void Read(ResultsDB& database, const std::string& sql);

    const ResultsItems& m_items;
    ResultsNames m_names;
    ListedViolation m_ofProject;  // what violations of the project itself begin as
    std::vector<ListedViolation> m_rows;
};

}  // namespace dorvik
