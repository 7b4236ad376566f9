#include "reports/classic/ReportsEngine.h"

#include "BatchReport.h"
#include "ProjectReport.h"
#include "ReportContext.h"
#include "ReportLegend.h"
#include "ReportOutput.h"
#include "ReportProgress.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "reports/classic/ProjectReportOrder.h"
#include "reports/classic/modProjectDatabase.h"
#include "results/ResultsDB.h"
#include "source/VirtualProject.h"

namespace dorvik {

ReportsEngine::ReportsEngine()
    : m_legend(std::make_unique<ReportLegend>()), m_output(std::make_unique<ReportOutput>()) {}

ReportsEngine::~ReportsEngine() = default;

void ReportsEngine::Initialise(const SeverityTable& severities, const CategoryList& categories) {
    Trap({kModule, "Initialise"}, [&] { m_legend->Load(severities, categories); });
}

void ReportsEngine::CreateProjectReport(
    VirtualProject& project, const ReviewCriteria& criteria, ProgressInfo& progress) {
    ProjectReportOrder order;
    order.ProjectFile = project.Filename();
    order.ReportsFolder =
        criteria.UseProjectFolderReports() ? std::string() : criteria.FixedFolderReports();
    const bool ended = Trap({kModule, "CreateProjectReport"}, [&] {
        std::unique_ptr<ResultsDB> results;
        if (!modProjectDatabase::OpenResultsDatabase(project, criteria, results)) {
            return;
        }
        order.LogFile = modProjectDatabase::LogFilename(project, criteria);
        order.RulebaseFile = criteria.LoadCriteria().RulebaseFile();
        order.Detailed = criteria.ReportOption() == kDetailed;
        order.Project = &project;
        ReportProgress events(progress, m_events);
        ProjectReport({*m_legend, *m_output, events}, *results, order).Write();
    });
    if (!ended) {
        m_output->AddFailed(order.PageFilename());
    }
}

bool ReportsEngine::CreateReportsOfDatabase(
    ResultsDB& results, const ProjectReportOrder& order, ProgressInfo& progress) {
    const std::string page = order.PageFilename();
    bool written = false;
    const bool ended = Trap({kModule, "CreateReportsOfDatabase"}, [&] {
        const CategorySeverityLists lists = results.Review().GetCategorySeverityLists();
        Initialise(lists.Severities, lists.Categories);
        const std::size_t before = WrittenReports().size();
        ReportProgress events(progress, m_events);
        ProjectReport({*m_legend, *m_output, events}, results, order).Write();
        // The page of the project is written last.
        written = WrittenReports().size() > before && WrittenReports().back() == page;
    });
    if (!ended) {
        m_output->AddFailed(page);
    }
    return written;
}

void ReportsEngine::CreateBatchReport(const ReviewCriteria& criteria, ProgressInfo& progress) {
    const bool ended = Trap({kModule, "CreateBatchReport"}, [&] {
        ReportProgress events(progress, m_events);
        BatchReport({*m_legend, *m_output, events}, criteria).Write();
    });
    if (!ended) {
        m_output->AddFailed(modDorvikUtils::CreateReportFilename(
            criteria.BatchFilenameOrDefault(),
            ReportKind::BatchSummary,
            criteria.FixedFolderReports()));
    }
}

const std::vector<std::string>& ReportsEngine::WrittenReports() const {
    return m_output->Written();
}

const std::vector<std::string>& ReportsEngine::FailedReports() const {
    return m_output->Failed();
}

std::string ReportsEngine::RefusalOf(const std::string& page) const {
    return m_output->RefusalOf(page);
}

}  // namespace dorvik
