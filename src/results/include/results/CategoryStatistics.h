#pragma once

#include "source/ViolationStatistics.h"

#include <string>

namespace dorvik {

/// The violations of one category by severity. Only the five counts are filled: neither the impacts nor
/// the total.
struct CategoryStatistics {
    std::string Category;  // its title; "Unallocated" for the violations without a category
    ViolationStatistics Statistics;
};

}  // namespace dorvik
