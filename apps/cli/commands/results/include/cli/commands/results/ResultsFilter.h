#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ResultsDB;

/// What a list or a count of violations is limited to, as the user wrote it. Empty lists limit nothing.
struct ResultsFilterOptions {
    std::vector<std::string>
        Severities;                  // numbers, or names as the review or this program has them
    std::vector<std::string> Kinds;  // keys of `modRuleKinds`
    std::vector<std::string> Categories;  // titles, IDs, or "none"

    bool IsEmpty() const { return Severities.empty() && Kinds.empty() && Categories.empty(); }
};

/// Puts the options into the filter of the database. False, and a sentence, if one names something that
/// the review does not have. REQUIRES: the database has a review open.
bool ApplyResultsFilter(const ResultsFilterOptions& options, ResultsDB& database);

/// The kinds of rule by the numbers that violations carry.
namespace modRuleKinds {

/// All keys, in the order of their numbers, from 1.
std::vector<std::string> Keys();
/// "component", "reference", "keyword", "coding", "naming", "documentation"; "unknown" for another number.
std::string_view Key(std::int32_t kind);

}  // namespace modRuleKinds

}  // namespace dorvik
