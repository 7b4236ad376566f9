#pragma once

#include "reports/classic/IReportsEngineEvents.h"
#include "rulebase/model/CategoryList.h"
#include "rulebase/model/Rulebase.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ProgressInfo;
struct ProjectReportOrder;
class ReportLegend;
class ReportOutput;
class ResultsDB;
class ReviewCriteria;
class VirtualProject;

/// Writes the classic pages of finished reviews: of a project, of each source file, of a batch. Each kind of page
/// has a class of its own, to which this one gives what the pages share.
///
/// A failure in a report is logged under the module "ReportsEngine" and ends that report; nothing of it is
/// written.
class ReportsEngine {
public:
    /// Module of the log lines.
    static constexpr std::string_view kModule = "ReportsEngine";
    /// The report option with which each source file gets a page too.
    static constexpr std::int32_t kDetailed = 2;

    ReportsEngine();
    ~ReportsEngine();
    ReportsEngine(const ReportsEngine&) = delete;
    ReportsEngine& operator=(const ReportsEngine&) = delete;

    /// Takes the titles and colours of the severities and the categories of the review's rulebase.
    void Initialise(const SeverityTable& severities, const CategoryList& categories);

    /// The listener for progress events, or null. REQUIRES: it outlives this object, or is replaced before it is
    /// destroyed.
    void SetEvents(IReportsEngineEvents* events) { m_events = events; }

    // ---- reports ----

    void CreateProjectReport(
        VirtualProject& project, const ReviewCriteria& criteria, ProgressInfo& progress);
    /// The same pages from a stored review, which is open in `results`, with its severities and categories. False
    /// if the page of the project was not written.
    bool CreateReportsOfDatabase(
        ResultsDB& results, const ProjectReportOrder& order, ProgressInfo& progress);
    void CreateBatchReport(const ReviewCriteria& criteria, ProgressInfo& progress);

    // ---- the pages of this engine ----

    /// Full paths of the pages that were written, in order.
    const std::vector<std::string>& WrittenReports() const;
    /// Full paths of the pages that could not be written, in order; the log says why. A cancelled page is not
    /// among them.
    const std::vector<std::string>& FailedReports() const;
    /// Why such a page could not be written, if another file or folder is in its way; otherwise empty.
    std::string RefusalOf(const std::string& page) const;

private:
    std::unique_ptr<ReportLegend> m_legend;
    std::unique_ptr<ReportOutput> m_output;
    IReportsEngineEvents* m_events = nullptr;
};

}  // namespace dorvik
