#pragma once

#include <cstddef>
#include <cstdint>
#include <set>

namespace dorvik {

class ResultsDB;

/// The source files that a review did not take in to their end, by their keys. A file gets its complexity
/// at its very end and is at least 1 then, even without a procedure: one that has none did not come to its
/// end. The section of its declarations is stored at its begin: one that has no section at all was not read.
/// A review takes the complexity away again from a file of which it skipped rules, or controls of the layout.
struct UnfinishedFiles {
    std::set<std::int32_t> Unread;
    std::set<std::int32_t> InPart;

    /// REQUIRES: the database has a review open.
    static UnfinishedFiles ReadFrom(ResultsDB& database);
    /// Whether one file is among them. REQUIRES: the same.
    static bool Include(std::int32_t sourceId, ResultsDB& database);

    bool Contains(std::int32_t sourceId) const {
        return Unread.contains(sourceId) || InPart.contains(sourceId);
    }
    std::size_t Count() const { return Unread.size() + InPart.size(); }
};

}  // namespace dorvik
