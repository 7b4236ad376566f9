#pragma once

#include "rulebase/model/CategoryList.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/RulebaseLoadCriteria.h"
#include "rulebase/model/ToleranceSettings.h"

namespace dorvik {

/// The categories and severity levels as a review stored them. Of the severities, those that took part
/// are selected.
struct CategorySeverityLists {
    CategoryList Categories;  // sorted by title
    SeverityTable Severities;
};

/// What a review was asked to do, as far as its database tells.
struct StoredReviewCriteria {
    RulebaseLoadCriteria LoadCriteria;
    ToleranceSettings Tolerances;
    CategorySeverityLists Lists;
};

}  // namespace dorvik
