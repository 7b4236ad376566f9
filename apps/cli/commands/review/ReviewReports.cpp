#include "ReviewReports.h"

#include "ReviewSummary.h"
#include "base/modTextCase.h"
#include "cli/output/Console.h"
#include "cli/output/modCommandPath.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHost.h"
#include "reports/classic/ReportsEngine.h"
#include "reports/classic/modProjectDatabase.h"
#include "reports/format/modReportFilename.h"
#include "reports/format/modReportFormat.h"
#include "reports/modern/ModernReport.h"
#include "results/ResultsDB.h"

#include <algorithm>
#include <memory>

namespace dorvik {

namespace {

constexpr std::int32_t kNoReports = 0;
constexpr std::int32_t kSummaryReports = 1;
constexpr std::string_view kBatchExtension = ".batch";

std::string WithoutExtension(const std::string& filename) {
    return filename.substr(0, filename.rfind('.'));
}

/// A title as the name of a file: what no file may be called becomes "_".
std::string NameFromTitle(const std::string& title) {
    std::string name = title;
    for (char& character : name) {
        const bool isControl = static_cast<unsigned char>(character) < ' ';
        if (isControl || std::string_view("\\/:*?\"<>|").find(character) != std::string::npos) {
            character = '_';
        }
    }
    return name;
}

/// A batch is called by the one project group that was requested, or else by its title.
void NameBatch(
    ReviewCriteria& criteria,
    const std::string& title,
    const std::vector<std::string>& paths,
    const std::vector<std::string>& projectFiles) {
    if (paths.size() == 1 && modTextCase::EndsWith(paths.front(), ".vbg")) {
        const std::string group = modCommandPath::Inner(paths.front());
        const std::string name = modUtilFunctions::FilenameFromFullPathName(group);
        criteria.SetBatchFilename(group);
        criteria.SetBatchTitle(title.empty() ? WithoutExtension(name) : title);
        return;
    }
    std::string filename = modUtilFunctions::PathFromFilename(projectFiles.front());
    filename += title.empty() ? std::string("Review") : NameFromTitle(title);
    filename += kBatchExtension;
    criteria.SetBatchFilename(filename);
    criteria.SetBatchTitle(
        title.empty() ? "Review of " + std::to_string(projectFiles.size()) + " projects" : title);
}

std::string ReasonOf(const UnreviewedFile& file) {
    if (!file.IsStored) {
        return "Its results could not be stored";
    }
    if (file.Status == SourceFileStatus::Good) {
        return "Reviewed only in part, " +
               (file.Reason.empty() ? "because of an unexpected error" : file.Reason);
    }
    if (!file.Reason.empty()) {
        return "It " + file.Reason;
    }
    return std::string(
        modReportFormat::GetReviewStatusDescription(static_cast<std::int32_t>(file.Status)));
}

std::vector<UnreadFile> UnreadFiles(const VirtualProject& project) {
    std::vector<UnreadFile> files;
    for (const UnreviewedFile& file : project.Outcome().UnreviewedFiles) {
        // Nothing after a backslash is the whole name: npos + 1 is 0.
        files.push_back({file.Filename.substr(file.Filename.rfind('\\') + 1), ReasonOf(file)});
    }
    return files;
}

std::string ReportOf(const VirtualProject& project) {
    return "the report of '" + modConsole::ShownPath(project.Filename()) + "'";
}

/// False where nothing came of the review of a project; what is at the place of its results is then of
/// an earlier one.
bool WasReviewed(const VirtualProject& project, const ReviewSummary& summary) {
    const auto& missing = summary.WithoutResults();
    return project.LoadStatus() == ProjectLoadStatus::Good &&
           std::none_of(missing.begin(), missing.end(), [&](const auto& results) {
               return results.ProjectFile == project.Filename();
           });
}

}  // namespace

ReviewReports::ReviewReports(const ReportOptions& options, std::string folder)
    : m_options(options), m_folder(std::move(folder)) {}

void ReviewReports::FillCriteria(
    ReviewCriteria& criteria,
    const std::vector<std::string>& paths,
    const std::vector<std::string>& projectFiles) const {
    criteria.SetReviewStarted(modHost::Now());
    criteria.SetUseProjectFolderReports(m_folder.empty());
    criteria.SetFixedFolderReports(m_folder);
    criteria.SetReportOption(kNoReports);
    criteria.SetWritesBatchReport(false);
    if (!m_options.Wanted()) {
        return;
    }
    criteria.SetReportOption(
        m_options.Detail == ReportOptions::kDetailed ? ReportsEngine::kDetailed : kSummaryReports);
    const bool isGroup = paths.size() == 1 && modTextCase::EndsWith(paths.front(), ".vbg");
    if (projectFiles.size() > 1 || isGroup || !m_options.BatchTitle.empty()) {
        NameBatch(criteria, m_options.BatchTitle, paths, projectFiles);
        criteria.SetWritesBatchReport(true);
    }
}

void ReviewReports::Finish(
    const ReviewCriteria& criteria, const ReportsEngine& engine, const ReviewSummary& summary) {
    m_pages.Add(engine.WrittenReports());
    if (!m_options.Wanted()) {
        return;
    }
    const auto& projects = criteria.ProjectList();
    for (const auto& project : projects) {
        std::unique_ptr<ResultsDB> results;
        if (WasReviewed(*project, summary)) {
            FinishProject(criteria, engine, *project);
        } else if (modProjectDatabase::OpenResultsDatabase(*project, criteria, results)) {
            m_older.push_back(project->Filename());
        }
    }
    if (criteria.WritesBatchReport()) {
        FinishBatch(engine, criteria.BatchFilename());
    }
    m_pages.AddFailed(engine);
}

void ReviewReports::FinishProject(
    const ReviewCriteria& criteria, const ReportsEngine& engine, const VirtualProject& project) {
    const std::string page =
        modDorvikUtils::CreateReportFilename(project.Filename(), ReportKind::Project, m_folder);
    if (!m_pages.Contains(page)) {
        m_pages.AddFailed(page, ReportOf(project), engine.RefusalOf(page));
    }
    if (m_options.IsModern()) {
        WriteModern(criteria, project);
    }
}

void ReviewReports::WriteModern(const ReviewCriteria& criteria, const VirtualProject& project) {
    const OutputPlace page = ModernReport::PlaceFor(project.Filename(), m_folder);
    std::unique_ptr<ResultsDB> results;
    std::string refusal;
    if (modProjectDatabase::OpenResultsDatabase(project, criteria, results) &&
        ModernReport::Save(*results, {UnreadFiles(project)}, page, &refusal)) {
        m_pages.Add(page.Path());
    } else {
        m_pages.AddFailed(page.Path(), ReportOf(project), refusal);
    }
}

void ReviewReports::FinishBatch(const ReportsEngine& engine, const std::string& batch) {
    const std::string page =
        modDorvikUtils::CreateReportFilename(batch, ReportKind::BatchSummary, m_folder);
    m_hasBatchPage = m_pages.Contains(page);
    if (!m_hasBatchPage) {
        m_pages.AddFailed(page, "the report of the batch", engine.RefusalOf(page));
    }
}

bool ReviewReports::ReportFailures() const {
    m_pages.ReportReplaced();
    if (m_hasBatchPage) {
        for (const std::string& project : m_older) {
            modConsole::PrintError(
                "the page of the batch shows the results of an earlier review of '" +
                modConsole::ShownPath(project) + "', because it could not be reviewed this time");
        }
    }
    m_pages.ReportFailed();
    return m_pages.Complete();
}

}  // namespace dorvik
