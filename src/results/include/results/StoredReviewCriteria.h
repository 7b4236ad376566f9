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

/// The criteria of a review, as far as they are stored.
struct StoredReviewCriteria {
    RulebaseLoadCriteria LoadCriteria;
    ToleranceSettings Tolerances;
    CategorySeverityLists Lists;
};

}  // namespace dorvik
