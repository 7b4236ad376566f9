#include "rulebase/model/ToleranceSettings.h"

namespace dorvik {

namespace {

void FillUnset(LongArrayList& list) {
    for (std::int32_t place = 1; place <= ToleranceSettings::kPlaces; ++place) {
        list.Add(ToleranceSettings::kNotSet);
    }
    list.SetDirty(false);
}

}  // namespace

ToleranceSettings::ToleranceSettings() {
    FillUnset(Count);
    FillUnset(Impact);
}

}  // namespace dorvik
