#include "cli/ReviewReports.h"

#include "base/modTextCase.h"
#include "cli/Console.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/LogFile.h"
#include "foundation/modLog.h"
#include "foundation/modUtilFunctions.h"
#include "platform/modFiles.h"
#include "platform/modHost.h"
#include "reports/ModernReport.h"
#include "reports/ReportsEngine.h"
#include "results/ResultsDB.h"

#include <algorithm>
#include <filesystem>
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

/// A batch is called by the one project group that was asked for, or else by its title.
void NameBatch(
    ReviewCriteria& criteria,
    const std::string& title,
    const std::vector<std::string>& paths,
    const std::vector<std::string>& projectFiles) {
    if (paths.size() == 1 && modTextCase::EndsWith(paths.front(), ".vbg")) {
        const std::string group =
            modFiles::FromHostPath(std::filesystem::absolute(paths.front()).lexically_normal());
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
        return "Reviewed only in part, because of an unexpected error";
    }
    return std::string(
        ReportsEngine::GetReviewStatusDescription(static_cast<std::int32_t>(file.Status)));
}

std::vector<UnreadFile> UnreadFiles(const VirtualProject& project) {
    std::vector<UnreadFile> files;
    for (const UnreviewedFile& file : project.UnreviewedFiles()) {
        // Nothing behind a backslash is the whole name: npos + 1 is 0.
        files.push_back({file.Filename.substr(file.Filename.rfind('\\') + 1), ReasonOf(file)});
    }
    return files;
}

void TellMissing(const std::string& what, const std::string& page) {
    modConsole::PrintError(
        what + " was not written to '" + modConsole::ShownPath(page) + "' (see the log '" +
        modConsole::ShownPath(modLog::Log().LogFilePath()) + "')");
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
    if (!m_options.Wanted() || m_options.IsModern()) {
        return;
    }
    criteria.SetReportOption(
        m_options.Detail == ReportOptions::kDetailed ? ReportsEngine::kDetailed : kSummaryReports);
    const bool isGroup = paths.size() == 1 && modTextCase::EndsWith(paths.front(), ".vbg");
    if (projectFiles.size() > 1 || isGroup || !m_options.BatchTitle.empty()) {
        NameBatch(criteria, m_options.BatchTitle, paths, projectFiles);
    }
}

void ReviewReports::Finish(const ReviewCriteria& criteria, const ReportsEngine& engine) {
    m_pages.Add(engine.WrittenReports());
    const auto& projects = criteria.ProjectList();
    for (std::int32_t index = 1; index <= projects.Count(); ++index) {
        std::unique_ptr<ResultsDB> results;
        const VirtualProject& project = *projects.Item(index);
        if (project.LoadStatus() != ProjectLoadStatus::Good ||
            !ReportsEngine::OpenResultsDatabase(project, criteria, results)) {
            continue;
        }
        m_reviewed.push_back(project.Filename());
        if (m_options.Wanted() && m_options.IsModern()) {
            const std::string page = PageOf(project);
            if (ModernReport::Save(*results, {UnreadFiles(project)}, page)) {
                m_pages.Add(page);
            }
        }
    }
}

std::string ReviewReports::PageOf(const VirtualProject& project) const {
    return m_options.IsModern() ? ModernReport::CreateFilename(project.Filename(), m_folder)
                                : modDorvikUtils::CreateReportFilename(
                                      project.Filename(), ReportKind::Project, m_folder);
}

bool ReviewReports::TellFailures(const ReviewCriteria& criteria) const {
    m_pages.TellReplaced();
    if (!m_options.Wanted()) {
        return true;
    }
    bool complete = true;
    const auto& projects = criteria.ProjectList();
    for (std::int32_t index = 1; index <= projects.Count(); ++index) {
        const VirtualProject& project = *projects.Item(index);
        const bool wasReviewed =
            std::find(m_reviewed.begin(), m_reviewed.end(), project.Filename()) != m_reviewed.end();
        if (const std::string page = PageOf(project); wasReviewed && !m_pages.Contains(page)) {
            TellMissing("the report of '" + modConsole::ShownPath(project.Filename()) + "'", page);
            complete = false;
        }
    }
    if (const std::string& batch = criteria.BatchFilename(); !batch.empty()) {
        const std::string page =
            modDorvikUtils::CreateReportFilename(batch, ReportKind::BatchSummary, m_folder);
        if (!m_pages.Contains(page)) {
            TellMissing("the report of the batch", page);
            complete = false;
        }
    }
    return complete;
}

}  // namespace dorvik
