#pragma once

#include "rulebase/model/RulebaseLoadCriteria.h"

#include <array>
#include <cstdint>
#include <string_view>

/// The columns of the table `Review` that say which kinds of rule took part, and how many rules of each.
namespace dorvik::modConventionColumns {

struct Convention {
    std::string_view FlagColumn;
    bool (RulebaseLoadCriteria::*IsIncluded)() const;
    void (RulebaseLoadCriteria::*Include)(bool);
    std::string_view CountColumn;
    std::int32_t RulebaseLoadCriteria::*Count;
};

inline constexpr std::array<Convention, 6> kConventions = {{
    {"CodingConventions",
     &RulebaseLoadCriteria::CodingConventions,
     &RulebaseLoadCriteria::SetCodingConventions,
     "NumCodingConventions",
     &RulebaseLoadCriteria::NumCodingConventions},
    {"NamingConventions",
     &RulebaseLoadCriteria::NamingConventions,
     &RulebaseLoadCriteria::SetNamingConventions,
     "NumNamingConventions",
     &RulebaseLoadCriteria::NumNamingConventions},
    {"DocumentationConventions",
     &RulebaseLoadCriteria::DocumentationConventions,
     &RulebaseLoadCriteria::SetDocumentationConventions,
     "NumDocConventions",
     &RulebaseLoadCriteria::NumDocConventions},
    {"AuthorisedComponents",
     &RulebaseLoadCriteria::AuthorisedComponents,
     &RulebaseLoadCriteria::SetAuthorisedComponents,
     "NumAuthComps",
     &RulebaseLoadCriteria::NumAuthComps},
    {"AuthorisedReferences",
     &RulebaseLoadCriteria::AuthorisedReferences,
     &RulebaseLoadCriteria::SetAuthorisedReferences,
     "NumAuthRefs",
     &RulebaseLoadCriteria::NumAuthRefs},
    {"UnauthorisedKeywords",
     &RulebaseLoadCriteria::UnauthorisedKeywords,
     &RulebaseLoadCriteria::SetUnauthorisedKeywords,
     "NumUnauthKeywords",
     &RulebaseLoadCriteria::NumUnauthKeywords},
}};

}  // namespace dorvik::modConventionColumns
