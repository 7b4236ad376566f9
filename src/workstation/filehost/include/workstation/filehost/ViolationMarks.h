#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/FileCodeModule.h"
#include "workstation/host/modViolationSearch.h"

#include <cstdint>
#include <vector>

namespace dorvik {

/// A violation of a module, to be marked at its line.
struct MarkedViolation {
    std::int32_t ViolationID = 0;
    std::int32_t Severity = 0;  // 1 critical to 5 information
    modViolationSearch::StoredPlace Place;
    std::int32_t Line = 0;  // where it is now; 0 where it cannot be found
};

/// The marks of violations beside the lines of a module. They are placed as going to the source would do it, and keep to
/// their lines while lines come and go around them. A mark goes with its line when that is deleted, until it is looked for
/// again.
class ViolationMarks {
public:
    /// REQUIRES: the module outlives the marks.
    explicit ViolationMarks(FileCodeModule& module);
    ViolationMarks(const ViolationMarks&) = delete;
    ViolationMarks& operator=(const ViolationMarks&) = delete;

    /// In place of those so far. The lines of the violations are found here.
    void Set(std::vector<MarkedViolation> violations);
    /// Looks for those that have no line.
    void FindAgain();

    const std::vector<MarkedViolation>& Violations() const { return m_violations; }
    /// Those of a line, the most severe first.
    std::vector<const MarkedViolation*> AtLine(std::int32_t line) const;
    /// The worst of a line; 0 for a line without a mark.
    std::int32_t SeverityOf(std::int32_t line) const;
    /// The next line with a mark after `line`, or before it; 0 where there is none.
    std::int32_t NextLine(std::int32_t line) const;
    std::int32_t PreviousLine(std::int32_t line) const;

    Event<> Changed;

private:
    void Follow(const LinesChange& change);
    std::int32_t FindLine(const MarkedViolation& violation) const;

    FileCodeModule& m_module;
    std::vector<MarkedViolation> m_violations;
    Subscription m_changes;
};

}  // namespace dorvik
