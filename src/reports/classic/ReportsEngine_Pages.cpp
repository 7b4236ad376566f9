// The pages of a project and of a batch: where their facts come from, progress and failures.

#include "BatchReport.h"
#include "ProjectReport.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHost.h"
#include "reports/classic/ReportsEngine.h"
#include "results/modResultsFilename.h"
#include "source/VirtualProject.h"

namespace dorvik {

namespace {

std::string ResultsFolder(const ReviewCriteria& criteria) {
    return criteria.UseProjectFolderResults() ? std::string() : criteria.FixedFolderResults();
}

bool IsAnySet(const LongArrayList& limits) {
    for (std::int32_t index = 1; index <= limits.Count(); ++index) {
        if (limits.Item(index) > ToleranceSettings::kNotSet) {
            return true;
        }
    }
    return false;
}

}  // namespace

void ReportsEngine::CreateProjectReport(
    VirtualProject& project, const ReviewCriteria& criteria, ProgressInfo& progress) {
    const std::string folder =
        criteria.UseProjectFolderReports() ? std::string() : criteria.FixedFolderReports();
    const bool ended = Trap({kModule, "CreateProjectReport"}, [&] {
        std::unique_ptr<ResultsDB> results;
        if (!OpenResultsDatabase(project, criteria, results)) {
            return;
        }
        ProjectReportOrder order;
        order.ProjectFile = project.Filename();
        order.ReportsFolder = folder;
        order.LogFile =
            modDorvikUtils::CreateProjectLogFilename(project.Filename(), ResultsFolder(criteria));
        order.RulebaseFile = criteria.LoadCriteria().RulebaseFile();
        order.Detailed = criteria.ReportOption() == kDetailed;
        order.Project = &project;
        ProjectReport(*this, *results, progress, order).Write();
    });
    if (!ended) {
        m_failedReports.push_back(
            modDorvikUtils::CreateReportFilename(project.Filename(), ReportKind::Project, folder));
    }
}

bool ReportsEngine::CreateReportsOfDatabase(
    ResultsDB& results, const ProjectReportOrder& order, ProgressInfo& progress) {
    bool written = false;
    const std::string page = modDorvikUtils::CreateReportFilename(
        order.ProjectFile, ReportKind::Project, order.ReportsFolder);
    const bool ended = Trap({kModule, "CreateReportsOfDatabase"}, [&] {
        const CategorySeverityLists lists = results.GetCategorySeverityLists();
        Initialise(lists.Severities, lists.Categories);
        const std::size_t before = m_writtenReports.size();
        ProjectReport(*this, results, progress, order).Write();
        // Its own page is the last one.
        written = m_writtenReports.size() > before && m_writtenReports.back() == page;
    });
    if (!ended) {
        m_failedReports.push_back(page);
    }
    return written;
}

void ReportsEngine::CreateBatchReport(const ReviewCriteria& criteria, ProgressInfo& progress) {
    const bool ended = Trap(
        {kModule, "CreateBatchReport"}, [&] { BatchReport(*this, criteria, progress).Write(); });
    if (!ended) {
        m_failedReports.push_back(modDorvikUtils::CreateReportFilename(
            criteria.BatchFilenameOrDefault(),
            ReportKind::BatchSummary,
            criteria.FixedFolderReports()));
    }
}

bool ReportsEngine::OpenResultsDatabase(
    const VirtualProject& project,
    const ReviewCriteria& criteria,
    std::unique_ptr<ResultsDB>& results) {
    bool opened = false;
    Trap({kModule, "OpenResultsDatabase"}, [&] {
        results = std::make_unique<ResultsDB>();
        const std::string filename =
            modDorvikUtils::CreateResultsFilename(project.Filename(), ResultsFolder(criteria));
        opened = modFiles::FileExists(filename) && results->OpenReview(filename);
    });
    return opened;
}

bool ReportsEngine::TolerancesSet(const ToleranceSettings& tolerances) {
    return IsAnySet(tolerances.Count) || IsAnySet(tolerances.Impact) ||
           tolerances.CyclomaticComplexity != ToleranceSettings::kNotSet ||
           tolerances.PercentageComments != ToleranceSettings::kNotSet;
}

bool ReportsEngine::UpdateProgressDisplay(ProgressInfo& progress, std::int32_t state) {
    bool cancel = false;
    if (m_events != nullptr) {
        m_events->ReportsProgress(progress, state, cancel);
    }
    modHost::YieldToInput();
    return cancel;
}

}  // namespace dorvik
