#pragma once

#include "ReportContext.h"
#include "reports/format/HTMLHelper2.h"
#include "results/ResultsDB.h"
#include "source/ViolationStatistics.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace dorvik {

class ReviewCriteria;
class VirtualProject;

/// Writes the page about all projects of a batch. An object writes one page.
class BatchReport {
public:
    /// REQUIRES: the criteria outlive this.
    BatchReport(const ReportContext& context, const ReviewCriteria& criteria)
        : m_context(context), m_criteria(criteria) {}

    /// Raises what fails; nothing is written then.
    void Write();

private:
    void WriteHead();
    void WriteSummary();
    void WriteProjects();
    void WriteProject(const VirtualProject& project);
    void WriteFailedProject(const std::string& name);
    void WriteReviewedProject(const VirtualProject& project, const std::string& name);
    std::string HrefOfProject(const std::string& projectFile) const;
    void WriteCounts();
    void WriteCount(std::string_view label, std::int32_t value, std::string_view className);
    void WriteTotals();
    void WriteCriteria();
    /// Empty if the reports are written beside the projects.
    std::string ReportsFolder() const;

    const ReportContext m_context;
    const ReviewCriteria& m_criteria;
    HTMLHelper2 m_html;
    std::unique_ptr<ResultsDB> m_results;  // of the project that is being written
    std::int32_t m_passed = 0;
    std::int32_t m_failed = 0;
    std::int32_t m_errors = 0;
    // Of all projects; 64 bits, because the figures of a single project may need 32.
    std::int64_t m_violations = 0;
    std::int64_t m_impact = 0;
    std::int64_t m_lines = 0;
};

}  // namespace dorvik
