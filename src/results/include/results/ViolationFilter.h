#pragma once

#include "rulebase/model/RulebaseLoadCriteria.h"

#include <string>

namespace dorvik {

/// Which violations count in filtered figures.
class ViolationFilter {
public:
    /// To be changed by the caller. It excludes the kinds of rule and the severities that are not set, and the
    /// excluded categories; but nothing until it is `Dirty` for the first time.
    RulebaseLoadCriteria& Criteria() { return m_criteria; }
    /// The criteria as a clause without "WHERE", which begins with a blank; empty if nothing is excluded.
    const std::string& Clause();
    /// Empties the clause; the criteria stay.
    void Clear() { m_clause.clear(); }

private:
    RulebaseLoadCriteria m_criteria;
    std::string m_clause;
};

}  // namespace dorvik
