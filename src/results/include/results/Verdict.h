#pragma once

#include "results/ResultsStore.h"
#include "results/ReviewKeys.h"
#include "results/ToleranceFailure.h"
#include "source/ItemType.h"

#include <cstdint>
#include <vector>

namespace dorvik {

/// The verdict on a stored review: which of its measures missed their tolerances.
class Verdict {
public:
    /// REQUIRES: both outlive this.
    Verdict(ResultsStore& store, const ReviewKeys& keys) : m_store(store), m_keys(keys) {}

    /// The verdict of the project (whatever `sourceId` is) or of a file. The measures that failed are
    /// appended to `failures`.
    bool TolerancePass(
        ItemType itemType, std::int32_t sourceId, std::vector<ToleranceFailure>& failures);
    /// Whether the stored review has a tolerance set.
    // Required: the totals over all severities are not looked at.
    bool TolerancesSet();

private:
    ResultsStore& m_store;
    const ReviewKeys& m_keys;
};

}  // namespace dorvik
