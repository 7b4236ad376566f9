#pragma once

#include "workstation/desk/Findings.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

enum class FindingChange : std::int32_t { New, Gone, Unchanged };

/// What has changed between two reviews of a project. Violations are the same where rule, file, procedure and the text of
/// the line are, without regard to case and to blanks at its ends; of several that are the same, as many as there are
/// on both sides count as unchanged.
class ReviewComparison {
public:
    struct Row {
        FindingChange Change = FindingChange::New;
        FoundViolation Violation;  // of the later review, but for one that is gone
    };

    ReviewComparison() = default;
    ReviewComparison(std::vector<FoundViolation> before, std::vector<FoundViolation> after);

    /// New ones, then those that are gone, then the others; each in the order of its review.
    const std::vector<Row>& Rows() const { return m_rows; }
    std::int32_t Count(FindingChange change) const;
    /// "2 new, 1 gone, 14 unchanged"
    std::string Summary() const;

private:
    std::vector<Row> m_rows;
    std::int32_t m_new = 0;
    std::int32_t m_gone = 0;
};

}  // namespace dorvik
