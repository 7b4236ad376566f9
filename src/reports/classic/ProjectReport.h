#pragma once

#include "ReportContext.h"
#include "reports/classic/ProjectReportOrder.h"
#include "reports/format/HTMLHelper2.h"
#include "results/ResultsDB.h"
#include "results/UnfinishedFiles.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

/// Writes the page of one project and, if the order says so, the pages of its files. An object writes one project.
class ProjectReport {
public:
    /// REQUIRES: results and order outlive this; a review is open in `results`.
    ProjectReport(const ReportContext& context, ResultsDB& results, const ProjectReportOrder& order)
        : m_context(context), m_results(results), m_order(order) {}

    /// False if the report was cancelled; the page of the project is not written then. Raises what fails.
    bool Write();

private:
    /// The results of the files in the table.
    struct Counts {
        std::int32_t Passed = 0;
        std::int32_t Failed = 0;
        std::int32_t NotReviewed = 0;  // in addition to those that the project counted as errors
    };

    void ReadReview();
    void WriteHead();
    void WriteContents();
    void WriteTables();
    void WriteSummary();
    /// False if cancelled.
    bool WriteFiles();
    bool WriteFile(const BasicObject& file);
    bool WriteFileName(const BasicObject& file, bool hasPage);
    void WriteVerdict(const BasicObject& file);
    void WriteCounts();
    void WriteCount(std::string_view label, std::string_view value, std::string_view className);
    void WriteTotals();
    void WriteCriteria();

    std::int32_t ReviewStatusOf(const BasicObject& file) const;
    std::string DetailFilename(const BasicObject& file) const;
    /// A sentence in place of the rate if no tolerance is set.
    std::string PassRate() const;
    /// The source files, without the project file.
    std::int32_t ReviewedFiles() const { return static_cast<std::int32_t>(m_files.size()) - 1; }
    std::int32_t FileErrors() const;

    const ReportContext m_context;
    ResultsDB& m_results;
    const ProjectReportOrder& m_order;
    HTMLHelper2 m_html;
    std::vector<BasicObject> m_files;
    StoredReviewCriteria m_criteria;
    ReviewData m_review;
    BasicObject m_project;
    ViolationStatistics m_violations;
    SourceLineStatistics m_lines;
    std::vector<ToleranceFailure> m_failures;
    UnfinishedFiles m_unfinished;
    bool m_tolerancesSet = false;
    bool m_passed = true;
    Counts m_counts;
};

}  // namespace dorvik
