// The filter, and the violations counted through it.

#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"
#include "settings/DVKWorkData.h"

#include <array>

namespace dorvik {

namespace {

constexpr std::int32_t kProjectItem = 1;
constexpr std::int32_t kFileItem = 2;
constexpr std::int32_t kProcedureItem = 3;
constexpr std::int32_t kLevels = 5;

/// A kind of rule and the number that its violations carry, in the order of the clause.
struct RuleKind {
    bool (RulebaseLoadCriteria::*IsTaken)() const;
    std::int32_t RuleType;
};

constexpr std::array<RuleKind, 6> kRuleKinds = {{
    {&RulebaseLoadCriteria::AuthorisedComponents, 1},
    {&RulebaseLoadCriteria::AuthorisedReferences, 2},
    {&RulebaseLoadCriteria::CodingConventions, 4},
    {&RulebaseLoadCriteria::DocumentationConventions, 6},
    {&RulebaseLoadCriteria::NamingConventions, 5},
    {&RulebaseLoadCriteria::UnauthorisedKeywords, 3},
}};

void LeaveOut(std::string& clause, std::string_view column, std::int32_t value) {
    clause += clause.empty() ? " " : " AND ";
    clause.append(column).append(" <> ").append(std::to_string(value));
}

std::string ClauseOf(const RulebaseLoadCriteria& filter) {
    std::string clause;
    for (const RuleKind& kind : kRuleKinds) {
        if (!(filter.*kind.IsTaken)()) {
            LeaveOut(clause, "RuleType", kind.RuleType);
        }
    }
    for (std::int32_t level = 1; level <= kLevels; ++level) {
        if (!filter.SeverityLevel(level)) {
            LeaveOut(clause, "Severity", level);
        }
    }
    for (std::int32_t index = 1; index <= filter.ExcludedCategoryIDCount(); ++index) {
        LeaveOut(clause, "CategoryID", filter.ExcludedCategoryID(index));
    }
    return clause;
}

std::string OfItem(std::int32_t itemType, std::int32_t itemId) {
    return " WHERE ItemID = " + std::to_string(itemId) +
           " AND ItemType = " + std::to_string(itemType);
}

}  // namespace

void ResultsDB::RefreshFilter() {
    if (m_filter.Dirty()) {
        m_filterString = ClauseOf(m_filter);
        m_filter.SetDirty(false);
    }
}

const std::string& ResultsDB::FilterString() {
    RefreshFilter();
    return m_filterString;
}

bool ResultsDB::FilterApplied() {
    return !FilterString().empty() || !Settings().RVFileShowZeroItems() ||
           !Settings().RVProcShowZeroItems();
}

// ---- counts and impacts ----

ViolationTally ResultsDB::GetProjectViolationStats(std::int32_t projectId, bool ignoreFilter) {
    ViolationTally tally;
    Trap({kModule, "GetProjectViolationStats"}, [&] {
        tally = Tally(TallyForm::Project, {kProjectItem, projectId}, ignoreFilter);
    });
    return tally;
}

ViolationTally ResultsDB::GetVBPFileViolationStats(std::int32_t sourceId, bool ignoreFilter) {
    ViolationTally tally;
    Trap({kModule, "GetVBPFileViolationStats"}, [&] {
        tally = Tally(TallyForm::Item, {kFileItem, sourceId}, ignoreFilter);
    });
    return tally;
}

ViolationTally ResultsDB::GetSourceFileViolationStats(std::int32_t sourceId, bool ignoreFilter) {
    ViolationTally tally;
    Trap({kModule, "GetSourceFileViolationStats"}, [&] {
        tally = Tally(TallyForm::SourceFile, {kFileItem, sourceId}, ignoreFilter);
    });
    return tally;
}

ViolationTally ResultsDB::GetProcedureViolationStats(std::int32_t procId, bool ignoreFilter) {
    ViolationTally tally;
    Trap({kModule, "GetProcedureViolationStats"}, [&] {
        tally = Tally(TallyForm::Item, {kProcedureItem, procId}, ignoreFilter);
    });
    return tally;
}

ViolationTally ResultsDB::Tally(TallyForm form, Item item, bool ignoreFilter) {
    constexpr std::string_view kCounted =
        "SELECT Count(ViolationID) As TotalCount, Sum(Impact) AS TotalImpact FROM ";
    std::string sql(kCounted);
    if (const std::string& clause = FilterString(); clause.empty() || ignoreFilter) {
        sql = "SELECT TotalCount, TotalImpact FROM ViolationStats" + OfItem(item.Type, item.ID);
    } else if (form == TallyForm::Project) {
        sql += "Violations WHERE " + clause;
    } else if (form == TallyForm::SourceFile) {
        sql += "(Violations INNER JOIN Procedures ON Violations.ItemID = Procedures.ProcID)  "
               "INNER JOIN SourceFiles ON Procedures.SourceID = SourceFiles.SourceID "
               "WHERE SourceFiles.SourceID=" +
               std::to_string(item.ID) + " AND Violations.ItemType=3 AND " + clause;
    } else {
        sql += "Violations" + OfItem(item.Type, item.ID) + " AND " + clause;
    }
    auto rows = NeedRows(GetReadOnlyRecordset(sql));
    if (rows.EOF_()) {
        return {};
    }
    return {rows.Value("TotalCount").AsLong(), rows.Value("TotalImpact").AsLong()};
}

}  // namespace dorvik
