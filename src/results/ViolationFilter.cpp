#include "results/ViolationFilter.h"

#include "rulebase/model/RuleType.h"
#include "source/Severity.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace dorvik {

namespace {

/// A kind of rule, in the order of the clause.
struct KindRow {
    bool (RulebaseLoadCriteria::*IsIncluded)() const;
    RuleType Type;
};

constexpr std::array<KindRow, 6> kKinds = {{
    {&RulebaseLoadCriteria::AuthorisedComponents, ruleTypeComponent},
    {&RulebaseLoadCriteria::AuthorisedReferences, ruleTypeReference},
    {&RulebaseLoadCriteria::CodingConventions, ruleTypeCoding},
    {&RulebaseLoadCriteria::DocumentationConventions, ruleTypeDocumentation},
    {&RulebaseLoadCriteria::NamingConventions, ruleTypeNaming},
    {&RulebaseLoadCriteria::UnauthorisedKeywords, ruleTypeKeyword},
}};

void Exclude(std::string& clause, std::string_view column, std::int32_t value) {
    clause += clause.empty() ? " " : " AND ";
    clause.append(column).append(" <> ").append(std::to_string(value));
}

std::string ClauseOf(const RulebaseLoadCriteria& criteria) {
    std::string clause;
    for (const KindRow& kind : kKinds) {
        if (!(criteria.*kind.IsIncluded)()) {
            Exclude(clause, "RuleType", static_cast<std::int32_t>(kind.Type));
        }
    }
    for (const Severity severity : kSeverities) {
        if (!criteria.SeverityLevel(NumberOf(severity))) {
            Exclude(clause, "Severity", NumberOf(severity));
        }
    }
    for (std::int32_t index = 1; index <= criteria.ExcludedCategoryIDCount(); ++index) {
        Exclude(clause, "CategoryID", criteria.ExcludedCategoryID(index));
    }
    return clause;
}

}  // namespace

const std::string& ViolationFilter::Clause() {
    if (m_criteria.Dirty()) {
        m_clause = ClauseOf(m_criteria);
        m_criteria.SetDirty(false);
    }
    return m_clause;
}

}  // namespace dorvik
