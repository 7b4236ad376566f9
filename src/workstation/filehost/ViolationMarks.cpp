#include "workstation/filehost/ViolationMarks.h"

#include <algorithm>
#include <utility>

namespace dorvik {

ViolationMarks::ViolationMarks(FileCodeModule& module)
    : m_module(module),
      m_changes(module.Changed.Subscribe([this](const LinesChange& change) { Follow(change); })) {}

void ViolationMarks::Set(std::vector<MarkedViolation> violations) {
    m_violations = std::move(violations);
    for (MarkedViolation& violation : m_violations) {
        violation.Line = FindLine(violation);
    }
    Changed.Raise();
}

void ViolationMarks::FindAgain() {
    for (MarkedViolation& violation : m_violations) {
        if (violation.Line == 0) {
            violation.Line = FindLine(violation);
        }
    }
    Changed.Raise();
}

std::int32_t ViolationMarks::FindLine(const MarkedViolation& violation) const {
    return modViolationSearch::Find(m_module, violation.Place).Line;
}

void ViolationMarks::Follow(const LinesChange& change) {
    bool isMoved = false;
    for (MarkedViolation& violation : m_violations) {
        const std::int32_t before = violation.Line;
        if (violation.Line >= change.Start + change.Removed) {
            violation.Line += change.Inserted - change.Removed;
        } else if (violation.Line >= change.Start + change.Inserted) {
            violation.Line = 0;
        }
        isMoved = isMoved || violation.Line != before;
    }
    if (isMoved) {
        Changed.Raise();
    }
}

std::vector<const MarkedViolation*> ViolationMarks::AtLine(std::int32_t line) const {
    std::vector<const MarkedViolation*> found;
    for (const MarkedViolation& violation : m_violations) {
        if (violation.Line == line && line > 0) {
            found.push_back(&violation);
        }
    }
    std::ranges::stable_sort(found, {}, [](const MarkedViolation* mark) { return mark->Severity; });
    return found;
}

std::int32_t ViolationMarks::SeverityOf(std::int32_t line) const {
    const auto found = AtLine(line);
    return found.empty() ? 0 : found.front()->Severity;
}

std::int32_t ViolationMarks::NextLine(std::int32_t line) const {
    std::int32_t next = 0;
    for (const MarkedViolation& violation : m_violations) {
        if (violation.Line > line && (next == 0 || violation.Line < next)) {
            next = violation.Line;
        }
    }
    return next;
}

std::int32_t ViolationMarks::PreviousLine(std::int32_t line) const {
    std::int32_t previous = 0;
    for (const MarkedViolation& violation : m_violations) {
        if (violation.Line < line) {
            previous = std::max(previous, violation.Line);
        }
    }
    return previous;
}

}  // namespace dorvik
