#include "rulebase/model/ToleranceSettings.h"

#include <algorithm>

namespace dorvik {

namespace {

void FillUnset(LongArrayList& list) {
    for (std::int32_t place = 1; place <= ToleranceSettings::kPlaces; ++place) {
        list.Add(ToleranceSettings::kNotSet);
    }
    list.SetDirty(false);
}

bool IsAnyLimit(const LongArrayList& list) {
    return std::any_of(list.begin(), list.end(), [](std::int32_t limit) {
        return limit > ToleranceSettings::kNotSet;
    });
}

}  // namespace

ToleranceSettings::ToleranceSettings() {
    FillUnset(Count);
    FillUnset(Impact);
}

bool ToleranceSettings::IsAnySet() const {
    return IsAnyLimit(Count) || IsAnyLimit(Impact) || CyclomaticComplexity != kNotSet ||
           PercentageComments != kNotSet;
}

}  // namespace dorvik
