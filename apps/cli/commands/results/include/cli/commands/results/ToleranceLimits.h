#pragma once

#include "rulebase/model/ToleranceSettings.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Tolerances by the names of their measures: "CVC" to "TVI", "PC" and "CC".
namespace modToleranceLimits {

/// `measure` is an index of `modTolerances::kMeasures`. `ToleranceSettings::kNotSet` where it is not set.
std::int32_t Limit(const ToleranceSettings& tolerances, std::size_t measure);
void SetLimit(ToleranceSettings& tolerances, std::size_t measure, std::int32_t limit);

/// "at most 10", or "at least 10" for the percentage of comments.
std::string Words(std::size_t measure, std::int32_t limit);

/// A tolerance as a user writes it.
struct Setting {
    std::size_t Measure = 0;
    std::int32_t Limit = ToleranceSettings::kNotSet;
};

/// Reads "CVC=0" or, to clear it, "CVC=none", in any case. Nothing for anything else.
std::optional<Setting> Parse(std::string_view text);
/// What is wrong with the text; empty if `Parse` reads it.
std::string Check(const std::string& text);

/// Lays each of the texts over the tolerances; a later one of the same name counts.
/// REQUIRES: `Check` found nothing.
void Apply(const std::vector<std::string>& texts, ToleranceSettings& tolerances);

}  // namespace modToleranceLimits

}  // namespace dorvik
