#include "results/FigureReader.h"

#include "modItemSql.h"
#include "modSeverityColumns.h"

#include <string>

namespace dorvik {

namespace {

using modItemSql::OfItem;

constexpr std::string_view kModule = ResultsStore::kModule;

constexpr std::int32_t kWholeDatabase = -1;
constexpr std::int32_t kNoCategory = -1;
constexpr float kPercent = 100;

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

ViolationStatistics
CountBySeverity(ResultsStore& store, const std::string& source, std::int32_t categoryId) {
    ViolationStatistics stats;
    for (const Severity severity : kSeverities) {
        auto rows = store.RequireRows(
            "SELECT Count(Violations.ViolationID) AS ViolCount FROM " + source +
            " WHERE CategoryID = " + std::to_string(categoryId) +
            " AND Severity = " + std::to_string(NumberOf(severity)));
        stats.SetCount(severity, rows.Value("ViolCount").AsLong());
    }
    return stats;
}

}  // namespace

// ---- filtered ----

ViolationTally FigureReader::GetProjectViolationStats(std::int32_t projectId, bool ignoreFilter) {
    return m_store.Trapped({kModule, "GetProjectViolationStats"}, ViolationTally(), [&] {
        return Tally(TallyForm::Project, ItemType::Project, projectId, ignoreFilter);
    });
}

ViolationTally FigureReader::GetVBPFileViolationStats(std::int32_t sourceId, bool ignoreFilter) {
    return m_store.Trapped({kModule, "GetVBPFileViolationStats"}, ViolationTally(), [&] {
        return Tally(TallyForm::Item, ItemType::File, sourceId, ignoreFilter);
    });
}

ViolationTally FigureReader::GetSourceFileViolationStats(std::int32_t sourceId, bool ignoreFilter) {
    return m_store.Trapped({kModule, "GetSourceFileViolationStats"}, ViolationTally(), [&] {
        return Tally(TallyForm::SourceFile, ItemType::File, sourceId, ignoreFilter);
    });
}

ViolationTally FigureReader::GetProcedureViolationStats(std::int32_t procId, bool ignoreFilter) {
    return m_store.Trapped({kModule, "GetProcedureViolationStats"}, ViolationTally(), [&] {
        return Tally(TallyForm::Item, ItemType::Procedure, procId, ignoreFilter);
    });
}

ViolationTally
FigureReader::Tally(TallyForm form, ItemType itemType, std::int32_t itemId, bool ignoreFilter) {
    constexpr std::string_view kCounted =
        "SELECT Count(ViolationID) As TotalCount, Sum(Impact) AS TotalImpact FROM ";
    std::string sql(kCounted);
    if (const std::string& clause = m_filter.Clause(); clause.empty() || ignoreFilter) {
        sql = "SELECT TotalCount, TotalImpact FROM ViolationStats" + OfItem(itemType, itemId);
    } else if (form == TallyForm::Project) {
        sql += "Violations WHERE " + clause;
    } else if (form == TallyForm::SourceFile) {
        sql += "(Violations INNER JOIN Procedures ON Violations.ItemID = Procedures.ProcID)  "
               "INNER JOIN SourceFiles ON Procedures.SourceID = SourceFiles.SourceID "
               "WHERE SourceFiles.SourceID=" +
               std::to_string(itemId) + " AND Violations.ItemType=3 AND " + clause;
    } else {
        sql += "Violations" + OfItem(itemType, itemId) + " AND " + clause;
    }
    auto rows = m_store.RequireRows(sql);
    if (rows.EOF_()) {
        return {};
    }
    return {rows.Value("TotalCount").AsLong(), rows.Value("TotalImpact").AsLong()};
}

// ---- stored ----

ViolationStatistics FigureReader::GetViolationStats(ItemType itemType, std::int32_t itemId) {
    ViolationStatistics stats;
    m_store.Trap({kModule, "GetViolationStats"}, [&] {
        auto rows = m_store.RequireRows("SELECT * FROM ViolationStats" + OfItem(itemType, itemId));
        if (rows.EOF_()) {
            return;
        }
        stats.SetTotalViolations(rows.Value("TotalCount").AsLong());
        stats.SetTotalImpact(rows.Value("TotalImpact").AsLong());
        for (const Severity severity : kSeverities) {
            stats.SetCount(severity, rows.Value(modSeverityColumns::Count(severity)).AsLong());
            stats.SetImpact(severity, rows.Value(modSeverityColumns::Impact(severity)).AsLong());
        }
    });
    return stats;
}

SourceLineStatistics FigureReader::GetLineStats(ItemType itemType, std::int32_t itemId) {
    SourceLineStatistics stats;
    m_store.Trap({kModule, "GetLineStats"}, [&] {
        auto rows = m_store.RequireRows("SELECT * FROM LineCountStats" + OfItem(itemType, itemId));
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

void FigureReader::GetObjectLineStats(ItemType itemType, BasicObject& object) {
    m_store.Trap({kModule, "GetObjectLineStats"}, [&] {
        auto rows = m_store.RequireRows(
            "SELECT TotalCount, InlineCommentCount, CommentCount, CodeCount FROM LineCountStats" +
            OfItem(itemType, object.ObjectID));
        if (rows.EOF_()) {
            return;
        }
        object.SourceLines = rows.Value("TotalCount").AsLong();
        const std::int32_t comments =
            rows.Value("InlineCommentCount").AsLong() + rows.Value("CommentCount").AsLong();
        const std::int32_t code = rows.Value("CodeCount").AsLong();
        object.CodeCommentRatio =
            code > 0 ? static_cast<float>(comments) / static_cast<float>(code) * kPercent : 0;
    });
}

std::vector<CategoryStatistics>
FigureReader::GetViolationStatsByCategory(std::int32_t sourceId, bool fileLevel) {
    std::vector<CategoryStatistics> result;
    m_store.Trap({kModule, "GetViolationStatsByCategory"}, [&] {
        const std::string source = CountedSource(sourceId, fileLevel);
        auto rows =
            m_store.RequireRows("SELECT CategoryID, Category FROM CategoryList ORDER BY Category");
        for (; !rows.EOF_(); rows.MoveNext()) {
            result.push_back(
                {rows.Value("Category").AsText(),
                 CountBySeverity(m_store, source, rows.Value("CategoryID").AsLong())});
        }
        result.push_back({"Unallocated", CountBySeverity(m_store, source, kNoCategory)});
    });
    return result;
}

}  // namespace dorvik
