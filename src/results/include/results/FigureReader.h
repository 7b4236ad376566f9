#pragma once

#include "results/CategoryStatistics.h"
#include "results/ResultsStore.h"
#include "results/ViolationFilter.h"
#include "results/ViolationTally.h"
#include "source/BasicObject.h"
#include "source/ItemType.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"

#include <cstdint>
#include <vector>

namespace dorvik {

/// Reads the figures of items, stored or counted with the filter.
class FigureReader {
public:
    /// REQUIRES: both outlive this.
    FigureReader(ResultsStore& store, ViolationFilter& filter) : m_store(store), m_filter(filter) {}

    /// The violations of an item and all below it: the stored figures or, with a filter, a count of those that
    /// it accepts.
    // Required: with a filter, only the violations of its procedures and sections count for a source file.
    ViolationTally GetProjectViolationStats(std::int32_t projectId, bool ignoreFilter);
    ViolationTally GetVBPFileViolationStats(std::int32_t sourceId, bool ignoreFilter);
    ViolationTally GetSourceFileViolationStats(std::int32_t sourceId, bool ignoreFilter);
    ViolationTally GetProcedureViolationStats(std::int32_t procId, bool ignoreFilter);
    /// Zeros if nothing is stored for the item.
    ViolationStatistics GetViolationStats(ItemType itemType, std::int32_t itemId);
    SourceLineStatistics GetLineStats(ItemType itemType, std::int32_t itemId);
    /// Sets the lines and the ratio of comments, if they are stored. The ratio is the percentage of the code lines.
    void GetObjectLineStats(ItemType itemType, BasicObject& object);
    /// All categories of the review by title, then "Unallocated". `sourceId` -1 counts the whole database;
    /// `fileLevel` counts the violations of the file itself, as a project file has them; otherwise those
    /// of its procedures and sections count. The filter does not apply.
    std::vector<CategoryStatistics>
    GetViolationStatsByCategory(std::int32_t sourceId, bool fileLevel);

private:
    /// How the filtered violations of an item are counted.
    enum class TallyForm : int { Project, SourceFile, Item };

    ViolationTally Tally(TallyForm form, ItemType itemType, std::int32_t itemId, bool ignoreFilter);

    ResultsStore& m_store;
    ViolationFilter& m_filter;
};

}  // namespace dorvik
