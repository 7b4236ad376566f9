#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The query of a list of violations, for `ResultsDB::OpenRecordSource`. Its first column is `ItemIDType`, the
/// key that `ViolationReader::GetSourceFileValueList` translates into a file name; all columns of the table
/// `Violations` follow.
namespace dorvik::modViolationListSql {

/// Whose violations are listed.
enum class Scope : int {
    All,          // of the whole database; the ID is ignored
    ProjectFile,  // of the project file, by its SourceID
    SourceFile,  // of the sections and procedures of a file, by its SourceID, not of the file itself
    Procedure,   // of a procedure or section, by its ProcID
};

/// `filter` is a clause as of `ResultsDB::FilterString`, or empty.
std::string
ViolationListSql(Scope scope, std::int32_t id, std::string_view filter, bool withoutCompleted);

/// One violation, with the same columns.
std::string ViolationSql(std::int32_t violationId);

}  // namespace dorvik::modViolationListSql
