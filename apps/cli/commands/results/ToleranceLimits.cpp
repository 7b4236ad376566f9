#include "cli/commands/results/ToleranceLimits.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "results/modTolerances.h"

namespace dorvik::modToleranceLimits {

namespace {

using modTolerances::kMeasures;

// The order of the measures: counts, impacts, then these two.
constexpr auto kPlaces = static_cast<std::size_t>(ToleranceSettings::kPlaces);
constexpr std::size_t kFirstImpact = kPlaces;
constexpr std::size_t kComments = 2 * kPlaces;
constexpr std::size_t kComplexity = kComments + 1;
static_assert(kMeasures.at(kFirstImpact).Name == "CVI");
static_assert(kMeasures.at(kComments).Name == "PC");
static_assert(kMeasures.at(kComplexity).Name == "CC");

std::int32_t PlaceOf(std::size_t measure) {
    return static_cast<std::int32_t>(measure % kPlaces) + 1;
}

std::optional<std::size_t> FindMeasure(std::string_view name) {
    for (std::size_t measure = 0; measure < kMeasures.size(); ++measure) {
        if (modTextCase::Equal(kMeasures.at(measure).Name, name)) {
            return measure;
        }
    }
    return std::nullopt;
}

std::string AllNames() {
    std::string names;
    for (const auto& measure : kMeasures) {
        names += (names.empty() ? "" : ", ") + std::string(measure.Name);
    }
    return names;
}

std::optional<std::int32_t> ReadLimit(std::string_view text) {
    if (modTextCase::Equal(text, "none")) {
        return ToleranceSettings::kNotSet;
    }
    const bool isDigits = !text.empty() && text.find_first_not_of("0123456789") == text.npos;
    return isDigits ? modText::WholeNumber(text) : std::nullopt;
}

}  // namespace

std::int32_t Limit(const ToleranceSettings& tolerances, std::size_t measure) {
    if (measure == kComments) {
        return tolerances.PercentageComments;
    }
    if (measure == kComplexity) {
        return tolerances.CyclomaticComplexity;
    }
    return (measure < kFirstImpact ? tolerances.Count : tolerances.Impact).Item(PlaceOf(measure));
}

void SetLimit(ToleranceSettings& tolerances, std::size_t measure, std::int32_t limit) {
    if (measure == kComments) {
        tolerances.PercentageComments = limit;
    } else if (measure == kComplexity) {
        tolerances.CyclomaticComplexity = limit;
    } else {
        LongArrayList& list = measure < kFirstImpact ? tolerances.Count : tolerances.Impact;
        list.SetItem(PlaceOf(measure), limit);
    }
}

std::string Words(std::size_t measure, std::int32_t limit) {
    return (measure == kComments ? "at least " : "at most ") + std::to_string(limit);
}

std::optional<Setting> Parse(std::string_view text) {
    const std::size_t sign = text.find('=');
    if (sign == std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<std::size_t> measure = FindMeasure(text.substr(0, sign));
    const std::optional<std::int32_t> limit = ReadLimit(text.substr(sign + 1));
    if (!measure.has_value() || !limit.has_value()) {
        return std::nullopt;
    }
    return Setting{*measure, *limit};
}

std::string Check(const std::string& text) {
    if (Parse(text).has_value()) {
        return {};
    }
    const std::size_t sign = text.find('=');
    const std::string name = text.substr(0, sign);
    if (!FindMeasure(name).has_value()) {
        return "unknown tolerance '" + name + "' (known: " + AllNames() + ")";
    }
    return "'" + text + "' is not a tolerance; write " + name + "=NUMBER or " + name + "=none";
}

void Apply(const std::vector<std::string>& texts, ToleranceSettings& tolerances) {
    for (const std::string& text : texts) {
        if (const std::optional<Setting> setting = Parse(text)) {
            SetLimit(tolerances, setting->Measure, setting->Limit);
        }
    }
}

}  // namespace dorvik::modToleranceLimits
