#include "ResultsCompleteCommand.h"

#include "base/modText.h"
#include "cli/commands/results/ResultsFile.h"
#include "cli/output/Console.h"
#include "cli/output/FigureText.h"
#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"

#include <optional>
#include <set>

namespace dorvik {

namespace {

bool IsThere(std::int32_t id, ResultsDB& database) {
    return Trapped({"ResultsCompleteCommand", "IsThere"}, false, [&] {
        auto rows = database.OpenRecordSource(
            "SELECT ViolationID FROM Violations WHERE ViolationID = " + std::to_string(id));
        return rows && !rows->EOF_();
    });
}

/// Nothing, and a sentence, if a text is not the ID of a violation.
std::optional<std::set<std::int32_t>>
FindViolations(const std::vector<std::string>& texts, ResultsDB& database) {
    std::set<std::int32_t> found;
    for (const std::string& text : texts) {
        const std::optional<std::int32_t> id = modText::WholeNumber(text);
        if (!id.has_value() || !IsThere(*id, database)) {
            modConsole::PrintError(
                "the results have no violation '" + text + "'; nothing was changed");
            return std::nullopt;
        }
        found.insert(*id);
    }
    return found;
}

}  // namespace

ExitCode RunResultsComplete(
    const std::string& database, const std::vector<std::string>& ids, bool completed) {
    return modResultsFile::Change(database, [&](ResultsDB& results) {
        const auto violations = FindViolations(ids, results);
        if (!violations.has_value()) {
            return ExitCode::NothingDone;
        }
        std::int32_t marked = 0;
        for (const std::int32_t id : *violations) {
            if (!results.Editor().SetViolationCompleted(id, completed)) {
                break;
            }
            ++marked;
        }
        if (marked == 0) {
            return ExitCode::NothingDone;
        }
        modConsole::Print(
            modFigureText::Counted(marked, "violation", "violations") +
            (completed ? " marked as completed.\n" : " reopened.\n"));
        return marked == static_cast<std::int32_t>(violations->size()) ? ExitCode::Passed
                                                                       : ExitCode::Incomplete;
    });
}

}  // namespace dorvik
