#pragma once

#include "reports/classic/IReportsEngineEvents.h"
#include "rulebase/model/CategoryList.h"
#include "rulebase/model/Rulebase.h"
#include "source/BasicObject.h"

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

/// Writes the report pages of finished reviews: of a project, of each source file, of a batch. The pages are
/// made by classes of their own; this one hands them what they need.
///
/// A failure inside a report is logged under the module "ReportsEngine" and ends that report with
/// nothing written.
class ReportsEngine {
public:
    /// Module of the log lines.
    static constexpr std::string_view kModule = "ReportsEngine";
    /// The report option that asks for a page of each source file as well.
    static constexpr std::int32_t kDetailed = 2;

    ReportsEngine();
    ~ReportsEngine();
    ReportsEngine(const ReportsEngine&) = delete;
    ReportsEngine& operator=(const ReportsEngine&) = delete;

    /// Takes the titles and colours of the severities and the categories of the review's rulebase.
    void Initialise(const SeverityTable& severities, const CategoryList& categories);

    /// Who hears of the progress; null for nobody. REQUIRES: outlives its being set.
    void SetEvents(IReportsEngineEvents* events) { m_events = events; }
    /// Raises the event, lets the host process its own events, and gives back the cancel flag.
    bool UpdateProgressDisplay(ProgressInfo& progress, std::int32_t state);

    // ---- reports ----

    void CreateProjectReport(
        VirtualProject& project, const ReviewCriteria& criteria, ProgressInfo& progress);
    /// The same pages again, long after the review, from the results that are open in `results`; with
    /// their severities and categories. False if the page was not written.
    bool CreateReportsOfDatabase(
        ResultsDB& results, const ProjectReportOrder& order, ProgressInfo& progress);
    void CreateBatchReport(const ReviewCriteria& criteria, ProgressInfo& progress);
    /// The page of one source file, or of the project file. `folder` is the fixed folder of the
    /// reports, empty where they go beside the project. `cancel` comes back true where the
    /// report was cancelled; no file is written then.
    void CreateSourceFileReport(
        std::string_view projectFile,
        const BasicObject& sourceFile,
        ResultsDB& results,
        ProgressInfo& progress,
        std::string_view folder,
        bool& cancel,
        bool tolerancesSet);

    // ---- what became of the pages ----

    /// Full paths of the pages that this engine wrote, in their order.
    const std::vector<std::string>& WrittenReports() const;
    /// Full paths of the pages that this engine should have written and could not, in their order; the
    /// log says why. A page that was cancelled is not among them.
    const std::vector<std::string>& FailedReports() const;
    /// The sentence that says what was in the way of such a page; empty where nothing was.
    std::string RefusalOf(const std::string& page) const;

private:
    std::unique_ptr<ReportLegend> m_legend;
    std::unique_ptr<ReportOutput> m_output;
    IReportsEngineEvents* m_events = nullptr;
};

}  // namespace dorvik
