#pragma once

#include "reports/classic/IReportsEngineEvents.h"
#include "reports/classic/ReportTables.h"
#include "reports/format/HTMLHelper2.h"
#include "reports/format/modReportFilename.h"
#include "results/CategoryStatistics.h"
#include "results/ResultsDB.h"
#include "results/ToleranceFailure.h"
#include "results/Violation.h"
#include "rulebase/model/CategoryList.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/RulebaseLoadCriteria.h"
#include "rulebase/model/ToleranceSettings.h"
#include "source/BasicObject.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class BatchReport;
class ProgressInfo;
class ProjectReport;
struct ProjectReportOrder;
class ReviewCriteria;
class VirtualProject;

/// Writes the report pages of finished reviews: of a project, of each source file, of a batch.
///
/// A failure inside a report is logged under the module "ReportsEngine" and ends that report with
/// nothing written. The files are split by topic: this class's `_Pages` and `_Tables` stand
/// beside `_Severities` and `_SourceFile`.
class ReportsEngine {
public:
    /// Module of the log lines.
    static constexpr std::string_view kModule = "ReportsEngine";
    /// States told through `IReportsEngineEvents`.
    static constexpr std::int32_t kProjectReportState = 31;
    static constexpr std::int32_t kSourceFileReportState = 32;
    /// The report option that asks for a page of each source file as well.
    static constexpr std::int32_t kDetailed = 2;

    ReportsEngine() = default;
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

    /// Replaces `results` by a new object and opens the project's finished database in it; false
    /// where there is none.
    static bool OpenResultsDatabase(
        const VirtualProject& project,
        const ReviewCriteria& criteria,
        std::unique_ptr<ResultsDB>& results);
    /// Whether any tolerance is set.
    // Required: the totals count here; `ResultsDB::TolerancesSet` does not look at them.
    static bool TolerancesSet(const ToleranceSettings& tolerances);

    /// Full paths of the pages that this engine wrote, in their order.
    const std::vector<std::string>& WrittenReports() const { return m_writtenReports; }
    /// Full paths of the pages that this engine should have written and could not, in their order; the
    /// log says why. A page that was cancelled is not among them.
    const std::vector<std::string>& FailedReports() const { return m_failedReports; }
    /// The sentence that says what lay in the way of such a page; empty where nothing did.
    std::string RefusalOf(const std::string& page) const;

    // ---- tables that reports share ----

    static void InsertReviewSummaryInfo(HTMLHelper2& html, const ReviewSummaryInfo& info);
    /// Values and limits mean nothing at project level and are left out there.
    static void InsertToleranceFailures(
        HTMLHelper2& html, const std::vector<ToleranceFailure>& failures, bool isProject);
    void InsertViolStatsTable(
        HTMLHelper2& html,
        const RulebaseLoadCriteria& filter,
        const ViolationStatistics& statistics) const;
    /// Stores the sum of each row as its `TotalViolations`.
    void InsertViolStatsByCatTable(
        HTMLHelper2& html,
        std::vector<CategoryStatistics>& categories,
        std::int32_t totalViolations) const;
    static void
    InsertSourceLineStatsTable(HTMLHelper2& html, const SourceLineStatistics& statistics);
    void InsertReviewCriteriaTable(HTMLHelper2& html, const ReviewCriteriaInfo& info) const;

    // ---- what the reports share besides ----

    /// The style element, with the colours of the severities.
    std::string GetStyleSheet() const;
    /// The name of a colour by its index 1 to 16; empty for any other number.
    static std::string_view LongColourToTextColour(std::int32_t colour);
    /// Title of a severity level 1 to 5; empty for any other.
    const std::string& GetSeverityText(std::int32_t level) const;
    /// Class in the style sheet of a severity level 1 to 5; empty for any other.
    static std::string_view GetSeverityClass(std::int32_t level);
    /// "-" for 0 unless `showZero`; otherwise grouped digits, with that many decimals.
    static std::string FormatNumber(double value, std::int32_t decimals = 0, bool showZero = false);
    /// Those given to `Initialise`.
    const CategoryList& Categories() const { return m_categories; }
    /// Title of a category, "Unallocated" for -1; empty for an unknown ID.
    std::string GetCategoryText(std::int32_t categoryId) const;
    /// For a status of 1 to 4 why a file could not be reviewed.
    static std::string_view GetReviewStatusDescription(std::int32_t status);
    /// Appends the rows of one violation.
    void AddViolation(HTMLHelper2& html, const Violation& violation) const;

private:
    struct SeverityStyle {
        std::string Title;
        std::string Colour;  // a name
    };

    friend class BatchReport;
    friend class ProjectReport;

    void TakeSeverities(const SeverityTable& severities);
    /// Replaces an earlier report of that name; notes whether that worked.
    void SaveReport(
        const HTMLHelper2& html,
        std::string_view projectFile,
        ReportKind kind,
        std::string_view folder,
        std::string_view sourceFile = {},
        std::string_view name = {});

    std::array<SeverityStyle, kSeverities.size()> m_severities;
    CategoryList m_categories;
    IReportsEngineEvents* m_events = nullptr;
    std::vector<std::string> m_writtenReports;
    std::vector<std::string> m_failedReports;
    std::map<std::string, std::string> m_refusals;  // by page
};

}  // namespace dorvik
