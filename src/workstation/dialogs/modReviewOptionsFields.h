#pragma once

#include "rulebase/model/CategoryList.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/RulebaseLoadCriteria.h"
#include "workstation/controls/CheckList.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {
class ReviewCriteria;
}

/// How the fields of `frmReviewOptions` show the criteria of a review or a filter, and what they set there. With `all` every
/// item is checked, whatever the criteria say.
namespace dorvik::modReviewOptionsFields {

void FillConventions(const RulebaseLoadCriteria& criteria, bool all, CheckList& list);
void FillCategories(
    const CategoryList& categories,
    const RulebaseLoadCriteria& criteria,
    bool all,
    CheckList& list);
void FillSeverities(
    const SeverityTable& severities,
    const RulebaseLoadCriteria& criteria,
    bool all,
    CheckList& list);

/// Also takes the key "DC", which the list does not have.
void TakeConventions(const CheckList& list, RulebaseLoadCriteria& criteria);
void TakeCategories(const CheckList& list, RulebaseLoadCriteria& criteria);
void TakeSeverities(const CheckList& list, RulebaseLoadCriteria& criteria);

bool IsBatch(const ReviewCriteria& criteria);

/// Empty where no limit is set.
std::string TextOfLimit(std::int32_t limit);
/// The leading number of the text; -1 for an empty one. Raises `kOverflow`.
std::int32_t LimitOfText(std::string_view text);

}  // namespace dorvik::modReviewOptionsFields
