// The verdict: which measures of a stored review missed their tolerances.

#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"
#include "results/modTolerances.h"

namespace dorvik {

namespace {

constexpr std::int32_t kProjectItem = 1;
constexpr std::int32_t kNotSet = -1;

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
