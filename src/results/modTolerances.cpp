#include "results/modTolerances.h"

#include "base/modText.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"

#include <string>

namespace dorvik::modTolerances {

namespace {

constexpr std::int32_t kNotSet = -1;

/// Where a measure of the violations finds its figure; in the order of the first twelve measures.
using Figure = std::int32_t (ViolationStatistics::*)() const;
constexpr std::array<Figure, 12> kFigures = {
    &ViolationStatistics::CriticalViolations,
    &ViolationStatistics::HighViolations,
    &ViolationStatistics::MediumViolations,
    &ViolationStatistics::LowViolations,
    &ViolationStatistics::InfoViolations,
    &ViolationStatistics::TotalViolations,
    &ViolationStatistics::CriticalImpact,
    &ViolationStatistics::HighImpact,
    &ViolationStatistics::MediumImpact,
    &ViolationStatistics::LowImpact,
    &ViolationStatistics::InfoImpact,
    &ViolationStatistics::TotalImpact,
};
constexpr std::size_t kCounts = 6;  // the figures behind them are impacts

struct Judgement {
    std::int32_t Actual = 0;
    std::int32_t Limit = 0;
    bool Pass = true;
};

void AddMeasure(VirtualObject& object, std::string_view name, const Judgement& judgement) {
    const std::string measure(name);
    object.Properties().Add(measure, judgement.Actual, false);
    object.Properties().Add(measure + "Limit", judgement.Limit, false);
    object.Properties().Add(measure + "Pass", judgement.Pass, false);
}

void MeasureViolations(VirtualObject& object, const ReviewCriteria& criteria) {
    for (std::size_t index = 0; index < kFigures.size(); ++index) {
        const bool isCount = index < kCounts;
        const auto place = static_cast<std::int32_t>(index % kCounts) + 1;
        const std::int32_t limit =
            isCount ? criteria.ToleranceCount(place) : criteria.ToleranceImpact(place);
        if (limit > kNotSet) {
            const std::int32_t actual = (object.ViolationStats().*kFigures[index])();
            AddMeasure(object, kMeasures[index].Name, {actual, limit, actual <= limit});
        }
    }
}

/// In-line comments count as comments here and stand in the base a second time, since their lines are
/// code lines too. Blank lines take no part.
std::int32_t PercentageOfComments(const SourceLineStatistics& lines) {
    const std::int32_t comments = lines.CommentOnlyLines() + lines.InLineCommentLines();
    const std::int32_t base = lines.CodeLines() + comments;
    return base > 0 ? modText::RoundToLong(static_cast<double>(comments) / base * 100) : 0;
}

void MeasureSource(VirtualObject& object, const ReviewCriteria& criteria) {
    if (const auto limit = criteria.TolerancePercentageComments(); limit > kNotSet) {
        const std::int32_t actual = PercentageOfComments(object.LineStats());
        AddMeasure(object, "PC", {actual, limit, actual >= limit});
    }
    const Variant* const maximum = object.Properties().Find(propertyname::kMaximumCyclomatic);
    if (const auto limit = criteria.ToleranceCyclomaticComplexity(); limit > kNotSet && maximum) {
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
