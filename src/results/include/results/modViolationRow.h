#pragma once

#include "results/Violation.h"

#include <string_view>

namespace dorvik {
class Recordset;
}

/// A row of the table `Violations` as lists of violations read it.
namespace dorvik::modViolationRow {

/// The columns that `Read` needs, as a SELECT names them.
inline constexpr std::string_view kColumns =
    "RuleID, RuleType, Title, Severity, Impact, CategoryID, Completed, SourceLine, Description, "
    "Advice, LineNum";

/// The violation of the current row: all but its location in the source and its offset.
Violation Read(Recordset& rows);

}  // namespace dorvik::modViolationRow
