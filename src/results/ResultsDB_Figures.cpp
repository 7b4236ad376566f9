// Stored figures of an item, and violations counted by category.

#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"

#include <array>

namespace dorvik {

namespace {

constexpr std::int32_t kWholeDatabase = -1;
constexpr std::int32_t kNoCategory = -1;

using SetCount = void (ViolationStatistics::*)(std::int32_t);

/// By severity, from 1.
constexpr std::array<SetCount, 5> kSetCounts = {
    &ViolationStatistics::SetCriticalViolations,
    &ViolationStatistics::SetHighViolations,
    &ViolationStatistics::SetMediumViolations,
    &ViolationStatistics::SetLowViolations,
    &ViolationStatistics::SetInfoViolations,
};

std::string OfItem(std::int32_t itemType, std::int32_t itemId) {
    return " WHERE ItemID = " + std::to_string(itemId) +
           " AND ItemType = " + std::to_string(itemType);
}

/// The violations to be counted by category, as a table or a query in brackets.
std::string CountedSource(std::int32_t sourceId, bool fileLevel) {
    if (sourceId == kWholeDatabase) {
        return "Violations";
    }
    std::string sql = "(SELECT Violations.ViolationID, Violations.CategoryID, Violations.Severity "
                      "FROM SourceFiles INNER JOIN";
    sql += fileLevel ? " Violations ON SourceFiles.SourceID = Violations.ItemID"
                     : " (Procedures INNER JOIN Violations  ON Procedures.ProcID = "
                       "Violations.ItemID)  ON SourceFiles.SourceID = Procedures.SourceID";
    sql += " WHERE SourceFiles.SourceID = " + std::to_string(sourceId);
    return sql + (fileLevel ? " AND Violations.ItemType = 2)" : " AND Violations.ItemType = 3)");
}

}  // namespace

ViolationStatistics ResultsDB::GetViolationStats(std::int32_t itemType, std::int32_t itemId) {
    ViolationStatistics stats;
    Trap({kModule, "GetViolationStats"}, [&] {
        auto rows = NeedRows(
            GetReadOnlyRecordset("SELECT * FROM ViolationStats" + OfItem(itemType, itemId)));
        if (rows.EOF_()) {
            return;
        }
        stats.SetTotalViolations(rows.Value("TotalCount").AsLong());
        stats.SetCriticalViolations(rows.Value("CriticalCount").AsLong());
        stats.SetHighViolations(rows.Value("HighCount").AsLong());
        stats.SetMediumViolations(rows.Value("MediumCount").AsLong());
        stats.SetLowViolations(rows.Value("LowCount").AsLong());
        stats.SetInfoViolations(rows.Value("InformationCount").AsLong());
        stats.SetTotalImpact(rows.Value("TotalImpact").AsLong());
        stats.SetCriticalImpact(rows.Value("CriticalImpact").AsLong());
        stats.SetHighImpact(rows.Value("HighImpact").AsLong());
        stats.SetMediumImpact(rows.Value("MediumImpact").AsLong());
        stats.SetLowImpact(rows.Value("LowImpact").AsLong());
        stats.SetInfoImpact(rows.Value("InformationImpact").AsLong());
    });
    return stats;
}

SourceLineStatistics ResultsDB::GetLineStats(std::int32_t itemType, std::int32_t itemId) {
    SourceLineStatistics stats;
    Trap({kModule, "GetLineStats"}, [&] {
        auto rows = NeedRows(
            GetReadOnlyRecordset("SELECT * FROM LineCountStats" + OfItem(itemType, itemId)));
        if (rows.EOF_()) {
            return;
        }
        stats.SetTotalLines(rows.Value("TotalCount").AsLong());
        stats.SetCodeLines(rows.Value("CodeCount").AsLong());
        stats.SetInLineCommentLines(rows.Value("InlineCommentCount").AsLong());
        stats.SetCommentOnlyLines(rows.Value("CommentCount").AsLong());
        stats.SetBlankLines(rows.Value("BlankCount").AsLong());
    });
    return stats;
}

std::vector<CategoryStatistics>
ResultsDB::GetViolationStatsByCategory(std::int32_t sourceId, bool fileLevel) {
    std::vector<CategoryStatistics> result;
    Trap({kModule, "GetViolationStatsByCategory"}, [&] {
        const std::string source = CountedSource(sourceId, fileLevel);
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT CategoryID, Category FROM CategoryList ORDER BY Category"));
        for (; !rows.EOF_(); rows.MoveNext()) {
            result.push_back(
                {rows.Value("Category").AsText(),
                 CountBySeverity(source, rows.Value("CategoryID").AsLong())});
        }
        result.push_back({"Unallocated", CountBySeverity(source, kNoCategory)});
    });
    return result;
}

ViolationStatistics ResultsDB::CountBySeverity(const std::string& source, std::int32_t categoryId) {
    ViolationStatistics stats;
    std::int32_t severity = 0;
    for (const SetCount setCount : kSetCounts) {
        ++severity;
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT Count(Violations.ViolationID) AS ViolCount FROM " + source +
            " WHERE CategoryID = " + std::to_string(categoryId) +
            " AND Severity = " + std::to_string(severity)));
        (stats.*setCount)(rows.Value("ViolCount").AsLong());
    }
    return stats;
}

}  // namespace dorvik
