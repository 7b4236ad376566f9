#include "results/modViolationRow.h"

#include "platform/database/Recordset.h"

namespace dorvik::modViolationRow {

Violation Read(Recordset& rows) {
    Violation violation;
    violation.RuleID = rows.Value("RuleID").AsLong();
    violation.RuleType = rows.Value("RuleType").AsLong();
    violation.Title = rows.Value("Title").AsText();
    violation.Severity = rows.Value("Severity").AsLong();
    violation.Impact = static_cast<std::int16_t>(rows.Value("Impact").AsLong());
    violation.CategoryID = rows.Value("CategoryID").AsLong();
    violation.Completed = rows.Value("Completed").AsBoolean();
    violation.SourceLine = rows.Value("SourceLine").AsText();
    violation.Description = rows.Value("Description").AsText();
    violation.Advice = rows.Value("Advice").AsText();
    violation.SourceLineNumber = rows.Value("LineNum").AsLong();
    return violation;
}

}  // namespace dorvik::modViolationRow
