#pragma once

#include "rulebase/model/RulebaseLoadCriteria.h"

#include <string>

namespace dorvik {

/// Which violations count in filtered figures.
class ViolationFilter {
public:
    /// To be changed by the caller. What it leaves out counts in no filtered figure: a kind of rule or a
    /// severity that is not set, an excluded category. It leaves out nothing until it is `Dirty` for the
    /// first time.
    RulebaseLoadCriteria& Criteria() { return m_criteria; }
    /// The criteria as a clause without "WHERE"; begins with a blank, is empty without a filter.
    const std::string& Clause();
    /// Empties the clause; the criteria stay.
    void Clear() { m_clause.clear(); }

private:
    RulebaseLoadCriteria m_criteria;
    std::string m_clause;
};

}  // namespace dorvik
