#pragma once

#include "foundation/lists/ObjectKeyedArrayList.h"
#include "results/Finding.h"
#include "results/ItemReader.h"
#include "results/ResultsStore.h"
#include "results/Violation.h"
#include "results/ViolationFilter.h"
#include "results/ViolationSourceLocation.h"
#include "source/ItemType.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace dorvik {

/// Reads the violations, in lists and one by one.
class ViolationReader {
public:
    using ViolationList = ObjectKeyedArrayList<Violation>;

    /// REQUIRES: all of them outlive this.
    ViolationReader(ResultsStore& store, ViolationFilter& filter, ItemReader& items)
        : m_store(store), m_filter(filter), m_items(items) {}

    /// The violations under the key of their ID followed by "KEY", by severity and impact.
    // Required: the filter only changes the order, it excludes no violation.
    ViolationList GetVBPFileViolationsList(std::int32_t sourceId);
    ViolationList GetSourceFileViolationsList(std::int32_t sourceId);
    ViolationList GetProcedureViolationList(std::int32_t procId);
    Violation GetViolationDetail(std::int32_t violationId);
    ViolationSourceLocation
    GetViolationSourceLocation(std::int32_t violationId, bool fullFileNames);
    /// The `count` violations with the highest severity and impact; equal ones in the order in which they were
    /// raised.
    std::vector<Finding> GetWorstFindings(std::int32_t count);
    /// Rows of `SFName` and `ItemIDType`: the file of each item that has violations.
    std::optional<Recordset> GetSourceFileValueList();

private:
    void AddViolations(ItemType itemType, std::int32_t itemId, ViolationList& list);

    ResultsStore& m_store;
    ViolationFilter& m_filter;
    ItemReader& m_items;
};

}  // namespace dorvik
