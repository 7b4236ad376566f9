#pragma once

#include <cstddef>
#include <cstdint>
#include <set>

namespace dorvik {

class ResultsDB;

/// The source files that a review did not read to their end, by their keys. The complexity of a file is stored
/// when its end is reached, and is at least 1, even without a procedure: a file without it was not finished. The
/// section of the declarations is stored at the start: a file without any section was not read at all. A review
/// removes the complexity again if it skipped rules, or controls of the layout, in the file.
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
