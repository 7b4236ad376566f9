#pragma once

#include "results/ResultsStore.h"
#include "results/ReviewData.h"
#include "results/ReviewKeys.h"
#include "results/StoredReviewCriteria.h"

#include <optional>

namespace dorvik {

/// Reads what a stored review says of itself: its criteria, its rulebase, its times.
class ReviewReader {
public:
    /// REQUIRES: `store` outlives this.
    explicit ReviewReader(ResultsStore& store) : m_store(store) {}

    /// The keys of the stored review; nothing if there is none. Raises what reading raises.
    std::optional<ReviewKeys> GetReviewKeys();
    ReviewData GetReviewData();
    StoredReviewCriteria GetReviewCriteria();
    CategorySeverityLists GetCategorySeverityLists();

private:
    ResultsStore& m_store;
};

}  // namespace dorvik
