#pragma once

#include "rulebase/model/RulebaseLoadCriteria.h"

#include <string_view>

/// The kinds of convention that dialogs list, in the order shown.
namespace dorvik::modConventions {

struct ConventionRow {
    std::string_view Key;
    std::string_view Text;
    std::string_view Icon;
    bool (RulebaseLoadCriteria::*Get)() const;
    void (RulebaseLoadCriteria::*Set)(bool);
};

inline constexpr ConventionRow kConventions[] = {
    {"AC",
     "Authorised Components",
     "AuthorisedComponent",
     &RulebaseLoadCriteria::AuthorisedComponents,
     &RulebaseLoadCriteria::SetAuthorisedComponents},
    {"AR",
     "Authorised References",
     "AuthorisedReference",
     &RulebaseLoadCriteria::AuthorisedReferences,
     &RulebaseLoadCriteria::SetAuthorisedReferences},
    {"CC",
     "Coding Conventions",
     "CodingConvention",
     &RulebaseLoadCriteria::CodingConventions,
     &RulebaseLoadCriteria::SetCodingConventions},
    {"NC",
     "Naming Conventions",
     "NamingConvention",
     &RulebaseLoadCriteria::NamingConventions,
     &RulebaseLoadCriteria::SetNamingConventions},
    {"UK",
     "Unauthorised Keywords",
     "UnauthorisedKeyword",
     &RulebaseLoadCriteria::UnauthorisedKeywords,
     &RulebaseLoadCriteria::SetUnauthorisedKeywords},
};

}  // namespace dorvik::modConventions
