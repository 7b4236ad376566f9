#include "results/VerdictReader.h"

#include "results/modTolerances.h"
#include "source/Severity.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = ResultsStore::kModule;

constexpr std::int32_t kNotSet = -1;

/// Three columns for each measure: result, value and limit. Over all files the result is the greatest one, since a
/// pass is -1 and a failure 0: one failure makes it 0. The other two are not available then.
std::string ToleranceQuery(ItemType itemType, std::int32_t sourceId) {
    const bool overAllFiles = itemType == ItemType::Project;
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

/// Index 6, the total, does not count.
bool HasTolerance(Recordset& review) {
    for (const std::string_view list : {"ToleranceCount", "ToleranceImpact"}) {
        for (const Severity severity : kSeverities) {
            const std::string column = std::string(list) + std::to_string(NumberOf(severity));
            if (review.Value(column).AsLong() != kNotSet) {
                return true;
            }
        }
    }
    return review.Value("ToleranceCyclomaticComplexity").AsLong() != kNotSet ||
           review.Value("TolerancePercentageComments").AsLong() != kNotSet;
}

}  // namespace

bool VerdictReader::TolerancePass(ItemType itemType, std::int32_t sourceId) {
    std::vector<ToleranceFailure> failures;
    return TolerancePass(itemType, sourceId, failures);
}

bool VerdictReader::TolerancePass(
    ItemType itemType, std::int32_t sourceId, std::vector<ToleranceFailure>& failures) {
    bool passed = true;
    m_store.Trap({kModule, "TolerancePass"}, [&] {
        auto rows = m_store.RequireRows(ToleranceQuery(itemType, sourceId));
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

bool VerdictReader::TolerancesSet() {
    return m_store.Trapped({kModule, "TolerancesSet"}, false, [&] {
        auto rows = m_store.RequireRows(
            "SELECT * FROM Review WHERE ReviewID = " + std::to_string(m_keys.ReviewID));
        return !rows.EOF_() && HasTolerance(rows);
    });
}

}  // namespace dorvik
