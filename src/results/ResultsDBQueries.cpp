// What is read back from a finished review.

#include "foundation/Trap.h"
#include "results/ResultsDB.h"
#include "results/modTolerances.h"

namespace dorvik {

namespace {

constexpr std::int32_t kProjectItem = 1;
constexpr std::int32_t kFileItem = 2;
constexpr std::int32_t kNotSet = -1;

std::string OfItem(std::int32_t itemType, std::int32_t itemId) {
    return " WHERE ItemID = " + std::to_string(itemId) +
           " AND ItemType = " + std::to_string(itemType);
}

/// Three columns for each measure: result, value and limit. Over all files the result is the greatest
/// one, since a pass is -1 and a failure 0, and the other two are not available.
std::string ToleranceQuery(std::int32_t itemType, std::int32_t sourceId) {
    const bool overAllFiles = itemType == kProjectItem;
    std::string sql;
    for (const auto& measure : modTolerances::kMeasures) {
        const std::string name(measure.Name);
        sql += sql.empty() ? "SELECT " : ", ";
        if (overAllFiles) {
            sql += "MAX(" + name + "Pass) As " + name + "Result, 0 As " + name + "Value, 0 As " +
                   name + "Tol";
        } else {
            sql += name + "Pass As " + name + "Result, " + name + " As " + name + "Value, " + name +
                   "Limit As " + name + "Tol";
        }
    }
    sql += " FROM SourceFiles";
    return overAllFiles ? sql : sql + " WHERE SourceID = " + std::to_string(sourceId);
}

/// Index 6, the total, is not looked at.
bool HasTolerance(Recordset& review) {
    constexpr std::int32_t kLastSeverity = 5;
    for (const std::string_view list : {"ToleranceCount", "ToleranceImpact"}) {
        for (std::int32_t index = 1; index <= kLastSeverity; ++index) {
            if (review.Value(std::string(list) + std::to_string(index)).AsLong() != kNotSet) {
                return true;
            }
        }
    }
    return review.Value("ToleranceCyclomaticComplexity").AsLong() != kNotSet ||
           review.Value("TolerancePercentageComments").AsLong() != kNotSet;
}

}  // namespace

bool ResultsDB::OpenReview(const std::string& filename) {
    m_reviewOpen = false;
    m_reviewId = m_projectId = m_sourceId = 0;
    m_filename = filename;
    Trap({kModule, "OpenReview"}, [&] {
        if (!OpenDatabase(filename)) {
            return;
        }
        auto rows = NeedRows(GetReadOnlyRecordset("SELECT ReviewID, ProjectID FROM Review"));
        if (!rows.EOF_()) {
            rows.MoveFirst();
            m_reviewId = rows.Value("ReviewID").AsLong();
            m_projectId = rows.Value("ProjectID").AsLong();
            m_reviewOpen = true;
        }
    });
    if (!m_reviewOpen) {
        CloseReview();
    }
    return m_reviewOpen;
}

void ResultsDB::CloseReview() {
    m_reviewOpen = false;
    CloseDatabase();
}

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

std::int32_t ResultsDB::GetSourceFileCount(std::string_view type) {
    std::int32_t count = 0;
    Trap({kModule, "GetSourceFileCount"}, [&] {
        std::string sql = "SELECT Count(SourceID) FROM SourceFiles";
        if (!type.empty()) {
            sql += " WHERE Type = '" + std::string(type) + "'";
        }
        count = NeedRows(GetReadOnlyRecordset(sql)).Value(0).AsLong();
    });
    return count;
}

std::vector<Finding> ResultsDB::GetWorstFindings(std::int32_t count) {
    std::vector<Finding> findings;
    Trap({kModule, "GetWorstFindings"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT ItemID, ItemType, Severity, Title, LineNum, LocMember FROM Violations "
            "ORDER BY Severity, Impact DESC, ViolationID"));
        for (; !rows.EOF_() && static_cast<std::int32_t>(findings.size()) < count;
             rows.MoveNext()) {
            Finding finding;
            finding.Filename =
                FilenameOfItem(rows.Value("ItemType").AsLong(), rows.Value("ItemID").AsLong());
            finding.LineNumber = rows.Value("LineNum").AsLong();
            finding.Severity = rows.Value("Severity").AsLong();
            finding.Title = rows.Value("Title").AsText();
            finding.LocationMember = rows.Value("LocMember").AsText();
            findings.push_back(std::move(finding));
        }
    });
    return findings;
}

std::string ResultsDB::FilenameOfItem(std::int32_t itemType, std::int32_t itemId) {
    std::string sql;
    if (itemType == kProjectItem) {
        sql = "SELECT Filename FROM Projects WHERE ProjectID = ";
    } else if (itemType == kFileItem) {
        sql = "SELECT Filename FROM SourceFiles WHERE SourceID = ";
    } else {
        sql = "SELECT SourceFiles.Filename FROM SourceFiles INNER JOIN Procedures "
              "ON SourceFiles.SourceID = Procedures.SourceID WHERE Procedures.ProcID = ";
    }
    auto rows = NeedRows(GetReadOnlyRecordset(sql + std::to_string(itemId)));
    return rows.EOF_() ? std::string() : rows.Value(0).AsText();
}

// ---- tolerances ----

bool ResultsDB::TolerancePass(
    std::int32_t itemType, std::int32_t sourceId, std::vector<ToleranceFailure>& failures) {
    bool passed = true;
    Trap({kModule, "TolerancePass"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(ToleranceQuery(itemType, sourceId)));
        if (rows.EOF_()) {
            return;
        }
        for (const auto& measure : modTolerances::kMeasures) {
            const std::string name(measure.Name);
            const Variant result = rows.Value(name + "Result");
            if (result.IsEmpty() || result.AsLong() != 0) {
                continue;
            }
            passed = false;
            failures.push_back(
                {std::string(measure.Description),
                 rows.Value(name + "Value").AsLong(),
                 rows.Value(name + "Tol").AsLong()});
        }
    });
    return passed;
}

bool ResultsDB::TolerancePass(std::int32_t itemType, std::int32_t sourceId) {
    std::vector<ToleranceFailure> failures;
    return TolerancePass(itemType, sourceId, failures);
}

bool ResultsDB::TolerancesSet() {
    bool isSet = false;
    Trap({kModule, "TolerancesSet"}, [&] {
        auto rows = NeedRows(GetReadOnlyRecordset(
            "SELECT * FROM Review WHERE ReviewID = " + std::to_string(m_reviewId)));
        isSet = !rows.EOF_() && HasTolerance(rows);
    });
    return isSet;
}

}  // namespace dorvik
