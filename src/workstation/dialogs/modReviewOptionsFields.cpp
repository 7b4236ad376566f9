#include "modReviewOptionsFields.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "criteria/ReviewCriteria.h"
#include "modConventions.h"
#include "rulebase/model/ToleranceSettings.h"
#include "workstation/dialogs/frmReviewOptions.h"

#include <utility>
#include <vector>

namespace dorvik::modReviewOptionsFields {

namespace {

/// No list shows these; a key is taken all the same.
constexpr std::string_view kDocumentationConventions = "DC";
constexpr std::string_view kUnallocatedText = "Unallocated";
constexpr std::string_view kUnallocatedDescription =
    "Conventions which have not yet been allocated to a specific category.";

std::int32_t NumberOfKey(std::string_view key) {
    return modText::LeadingLong(key);
}

}  // namespace

void FillConventions(const RulebaseLoadCriteria& criteria, bool all, CheckList& list) {
    std::vector<CheckItem> items;
    for (const modConventions::ConventionRow& row : modConventions::kConventions) {
        CheckItem item{std::string(row.Key), std::string(row.Text)};
        item.Checked = all || (criteria.*row.Get)();
        items.push_back(std::move(item));
    }
    list.Fill(std::move(items));
}

void FillCategories(
    const CategoryList& categories,
    const RulebaseLoadCriteria& criteria,
    bool all,
    CheckList& list) {
    std::vector<CheckItem> items;
    for (const auto& category : categories) {
        CheckItem item{category->Key(), category->Title(), category->Description()};
        item.Checked = all || !criteria.IsExcludedCategoryID(category->ID());
        items.push_back(std::move(item));
    }
    CheckItem unallocated{
        std::string(frmReviewOptions::kUnallocatedCategory),
        std::string(kUnallocatedText),
        std::string(kUnallocatedDescription)};
    unallocated.Checked =
        all || !criteria.IsExcludedCategoryID(frmReviewOptions::kUnallocatedCategoryID);
    items.push_back(std::move(unallocated));
    list.Fill(std::move(items));
}

void FillSeverities(
    const SeverityTable& severities,
    const RulebaseLoadCriteria& criteria,
    bool all,
    CheckList& list) {
    std::vector<CheckItem> items;
    for (const auto& severity : severities) {
        CheckItem item{severity->Key(), severity->Title(), severity->Description()};
        item.Checked = all || criteria.SeverityLevel(severity->SeverityLevel());
        items.push_back(std::move(item));
    }
    list.Fill(std::move(items));
}

void TakeConventions(const CheckList& list, RulebaseLoadCriteria& criteria) {
    for (const CheckItem& item : list.Items()) {
        for (const modConventions::ConventionRow& row : modConventions::kConventions) {
            if (modTextCase::Equal(row.Key, item.Key)) {
                (criteria.*row.Set)(item.Checked);
            }
        }
        if (modTextCase::Equal(kDocumentationConventions, item.Key)) {
            criteria.SetDocumentationConventions(item.Checked);
        }
    }
}

void TakeCategories(const CheckList& list, RulebaseLoadCriteria& criteria) {
    for (const CheckItem& item : list.Items()) {
        const std::int32_t id = NumberOfKey(item.Key);
        if (item.Checked) {
            criteria.RemoveExcludedCategoryID(id);
        } else {
            criteria.AddExcludedCategoryID(id);
        }
    }
}

void TakeSeverities(const CheckList& list, RulebaseLoadCriteria& criteria) {
    for (const CheckItem& item : list.Items()) {
        criteria.SetSeverityLevel(NumberOfKey(item.Key), item.Checked);
    }
}

bool IsBatch(const ReviewCriteria& criteria) {
    return criteria.ReviewType() == ReviewType_Batch;
}

std::string TextOfLimit(std::int32_t limit) {
    return limit == ToleranceSettings::kNotSet ? std::string() : std::to_string(limit);
}

std::int32_t LimitOfText(std::string_view text) {
    return text.empty() ? ToleranceSettings::kNotSet : modText::LeadingLong(text);
}

}  // namespace dorvik::modReviewOptionsFields
