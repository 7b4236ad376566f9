#pragma once

#include "results/StoredReviewCriteria.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// The titles that a review stored for its severities and categories.
class ResultsNames {
public:
    explicit ResultsNames(CategorySeverityLists lists) : m_lists(std::move(lists)) {}

    /// The title of the level, or this program's word for it.
    std::string Severity(std::int32_t level) const;
    /// The title of the category; "none" for -1, "unknown (7)" for one that the review does not have.
    std::string Category(std::int32_t categoryId) const;

private:
    CategorySeverityLists m_lists;
};

}  // namespace dorvik
