#pragma once

#include "results/ResultsStore.h"
#include "results/ReviewKeys.h"
#include "results/ToleranceFailure.h"
#include "source/ItemType.h"

#include <cstdint>
#include <vector>

namespace dorvik {

/// Reads the verdict of a stored review: which of its measures missed their tolerances.
class VerdictReader {
public:
    /// REQUIRES: both outlive this.
    VerdictReader(ResultsStore& store, const ReviewKeys& keys) : m_store(store), m_keys(keys) {}

    /// The verdict of the project (whatever `sourceId` is) or of a file.
    bool TolerancePass(ItemType itemType, std::int32_t sourceId);
    /// The same; the measures that failed are appended to `failures`.
    bool TolerancePass(
        ItemType itemType, std::int32_t sourceId, std::vector<ToleranceFailure>& failures);
    /// Whether the stored review has a tolerance set.
    // Required: the totals over all severities do not count.
    bool TolerancesSet();

private:
    ResultsStore& m_store;
    const ReviewKeys& m_keys;
};

}  // namespace dorvik
