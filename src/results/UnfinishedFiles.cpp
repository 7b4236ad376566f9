#include "results/UnfinishedFiles.h"

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"

#include <string>

namespace dorvik {

namespace {

constexpr std::string_view kQuery = "SELECT SourceID, Type, CyclomaticComplexity FROM SourceFiles";

/// The project file never has a complexity.
bool IsUnfinished(Recordset& row) {
    return row.Value("CyclomaticComplexity").IsEmpty() &&
           !modTextCase::Equal(row.Value("Type").AsText(), "Project");
}

}  // namespace

bool UnfinishedFiles::Include(std::int32_t sourceId, ResultsDB& database) {
    return Trapped({"UnfinishedFiles", "Include"}, false, [&] {
        auto row = database.OpenRecordSource(
            std::string(kQuery) + " WHERE SourceID = " + std::to_string(sourceId));
        return row && !row->EOF_() && IsUnfinished(*row);
    });
}

UnfinishedFiles UnfinishedFiles::ReadFrom(ResultsDB& database) {
    UnfinishedFiles unfinished;
    Trap({"UnfinishedFiles", "ReadFrom"}, [&] {
        auto rows = database.OpenRecordSource(std::string(kQuery));
        for (; rows && !rows->EOF_(); rows->MoveNext()) {
            if (!IsUnfinished(*rows)) {
                continue;
            }
            const std::int32_t id = rows->Value("SourceID").AsLong();
            const bool isBegun = database.Items().SourceFileHasProcs(id, /*realProcsOnly=*/false);
            (isBegun ? unfinished.InPart : unfinished.Unread).insert(id);
        }
    });
    return unfinished;
}

}  // namespace dorvik
