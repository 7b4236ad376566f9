#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// A violation of a results database, with the names of the place that it is at.
struct FoundViolation {
    std::int32_t ViolationID = 0;
    std::int32_t RuleID = 0;
    std::int32_t Severity = 0;
    std::int32_t Line = 0;      // at the review; 0 for none
    std::int32_t Location = 0;  // location code of the parser
    std::string Title;
    std::string File;       // name of its file without folder; empty for the project itself
    std::string Procedure;  // name of the place as it is shown; empty for none
    std::string Text;       // the physical lines of the statement
};

/// How many violations an item has, and the worst severity of them: 1 critical to 5 information, 0 without one.
struct FindingCount {
    std::int32_t Violations = 0;
    std::int32_t Worst = 0;

    void Add(const FindingCount& other);
    friend bool operator==(const FindingCount&, const FindingCount&) = default;
};

/// The counts of a reviewed project.
struct ProjectFindingCounts {
    struct Procedure {
        std::string Name;
        std::string Type;  // "Sub", "Property Get"; empty for a section
        FindingCount Count;
    };
    struct File {
        std::string Filename;  // without folder
        FindingCount Count;
        std::vector<Procedure> Procedures;  // those with violations
    };

    std::string ProjectFile;  // full path
    FindingCount Count;
    std::vector<File> Files;

    /// By the name of the file without its folder; null where the review had no such file.
    const File* FindFile(std::string_view filename) const;
};

/// Reads the violations of results databases. Each call opens the file and closes it again. A file that is no results
/// database has none.
namespace modFindings {

/// Those that pass `filter`, a clause without "WHERE", in the order in which they were raised.
std::vector<FoundViolation> Read(const std::string& database, std::string_view filter = {});
/// Those of one source file, by its name without folder.
std::vector<FoundViolation>
ReadFile(const std::string& database, std::string_view filename, std::string_view filter = {});
/// What was found about a violation in words; empty where it is not there any more.
std::string ReadAdvice(const std::string& database, std::int32_t violationId);
ProjectFindingCounts ReadCounts(const std::string& database, std::string_view filter = {});

}  // namespace modFindings

}  // namespace dorvik
