#include "results/modTolerances.h"

#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"

#include <string>
#include <vector>

namespace dorvik::modTolerances {

namespace {

constexpr std::int32_t kNotSet = ToleranceSettings::kNotSet;

struct Comparison {
    std::int32_t Actual = 0;
    std::int32_t Limit = 0;
    bool Pass = true;
};

void AddMeasure(VirtualObject& object, std::string_view name, const Comparison& comparison) {
    const std::string measure(name);
    object.Properties().Add(measure, comparison.Actual, false);
    object.Properties().Add(measure + "Limit", comparison.Limit, false);
    object.Properties().Add(measure + "Pass", comparison.Pass, false);
}

/// The figures of the violations in the order of the measures: the counts, the impacts, the total after
/// those of the severities.
std::vector<std::int32_t> FiguresOf(const ViolationStatistics& stats) {
    std::vector<std::int32_t> figures(stats.Counts().begin(), stats.Counts().end());
    figures.push_back(stats.TotalViolations());
    figures.insert(figures.end(), stats.Impacts().begin(), stats.Impacts().end());
    figures.push_back(stats.TotalImpact());
    return figures;
}

constexpr auto kCounts = static_cast<std::size_t>(ToleranceSettings::kPlaces);
static_assert(kCounts == kSeverities.size() + 1);
static_assert(kMeasures[0].Name == "CVC" && kMeasures[kCounts].Name == "CVI");
static_assert(kMeasures[2 * kCounts].Name == "PC");

void MeasureViolations(VirtualObject& object, const ReviewCriteria& criteria) {
    const std::vector<std::int32_t> figures = FiguresOf(object.ViolationStats());
    for (std::size_t index = 0; index < figures.size(); ++index) {
        const auto position = static_cast<std::int32_t>(index % kCounts) + 1;
        const std::int32_t limit = index < kCounts ? criteria.Tolerances().Count.Item(position)
                                                   : criteria.Tolerances().Impact.Item(position);
        if (limit > kNotSet) {
            const std::int32_t actual = figures[index];
            AddMeasure(object, kMeasures[index].Name, {actual, limit, actual <= limit});
        }
    }
}

void MeasureSource(VirtualObject& object, const ReviewCriteria& criteria) {
    if (const auto limit = criteria.Tolerances().PercentageComments; limit > kNotSet) {
        const std::int32_t actual = object.LineStats().CommentPercentage();
        AddMeasure(object, "PC", {actual, limit, actual >= limit});
    }
    const Variant* const maximum = object.Properties().Find(propertyname::kMaximumCyclomatic);
    if (const auto limit = criteria.Tolerances().CyclomaticComplexity; limit > kNotSet && maximum) {
        const std::int32_t actual = maximum->AsLong();
        AddMeasure(object, "CC", {actual, limit, actual <= limit});
    }
}

}  // namespace

bool SetTolerancePassValue(
    VirtualObject& object, const ReviewCriteria& criteria, bool isProjectFile) {
    return Trap({"C_VB6ProjectReview", "SetTolerancePassValue"}, [&] {
        MeasureViolations(object, criteria);
        if (isProjectFile) {
            // Required: a project file has neither comments nor procedures and never fails for them,
            // whatever the tolerances are.
            AddMeasure(object, "PC", {});
            AddMeasure(object, "CC", {});
        } else {
            MeasureSource(object, criteria);
        }
    });
}

}  // namespace dorvik::modTolerances
