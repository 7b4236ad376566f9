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
#include <string>
#include <vector>

namespace dorvik {

/// Reads the figures of items: stored ones, and violations counted through the filter.
class FigureReader {
public:
    /// REQUIRES: both outlive this.
    FigureReader(ResultsStore& store, ViolationFilter& filter) : m_store(store), m_filter(filter) {}

    /// The violations of an item and all below it: stored figures, or those that pass the filter.
    // Required: filtered, the violations of a source file are those of its procedures and sections.
    ViolationTally GetProjectViolationStats(std::int32_t projectId, bool ignoreFilter);
    ViolationTally GetVBPFileViolationStats(std::int32_t sourceId, bool ignoreFilter);
    ViolationTally GetSourceFileViolationStats(std::int32_t sourceId, bool ignoreFilter);
    ViolationTally GetProcedureViolationStats(std::int32_t procId, bool ignoreFilter);
    /// Zeros where the item has no row.
    ViolationStatistics GetViolationStats(ItemType itemType, std::int32_t itemId);
    SourceLineStatistics GetLineStats(ItemType itemType, std::int32_t itemId);
    /// Fills the lines and the ratio of comments, if the item has a row of them. The ratio has the code
    /// lines alone as its base.
    void GetObjectLineStats(ItemType itemType, BasicObject& object);
    /// All categories of the review by title, then "Unallocated". `sourceId` -1 counts the whole database;
    /// `fileLevel` counts the violations of the (project) file itself, otherwise those of its procedures
    /// and sections. The filter takes no part.
    std::vector<CategoryStatistics>
    GetViolationStatsByCategory(std::int32_t sourceId, bool fileLevel);

private:
    /// How the filtered violations of an item are counted.
    enum class TallyForm : int { Project, SourceFile, Item };

    ViolationTally Tally(TallyForm form, ItemType itemType, std::int32_t itemId, bool ignoreFilter);
    ViolationStatistics CountBySeverity(const std::string& source, std::int32_t categoryId);

    ResultsStore& m_store;
    ViolationFilter& m_filter;
};

}  // namespace dorvik
