#pragma once

#include "cli/commands/review/ReportOptions.h"
#include "cli/commands/review/WrittenPages.h"

#include <string>
#include <vector>

namespace dorvik {

class ReportsEngine;
class ReviewCriteria;
class ReviewSummary;
class VirtualProject;

/// The report pages of one `dorvik review`: what the criteria say about them, and what came out.
class ReviewReports {
public:
    /// `folder` is that of the pages in the program's form, empty for beside each project. REQUIRES:
    /// `options` outlives this.
    ReviewReports(const ReportOptions& options, std::string folder);

    /// Fills the fields of the criteria that are about reports. `paths` are those of the command line,
    /// `projectFiles` the projects that they stand for.
    void FillCriteria(
        ReviewCriteria& criteria,
        const std::vector<std::string>& paths,
        const std::vector<std::string>& projectFiles) const;

    /// Takes in what the review wrote and could not write, and writes the modern pages, which are on its
    /// finished results.
    void Finish(
        const ReviewCriteria& criteria, const ReportsEngine& engine, const ReviewSummary& summary);

    /// Says which pages there are.
    void Print() const { m_pages.Print(); }
    /// Says which pages there should be and are not, and which tell of an older review. False if there
    /// should be any that is not.
    bool ReportFailures() const;

private:
    void FinishProject(
        const ReviewCriteria& criteria, const ReportsEngine& engine, const VirtualProject& project);
    void FinishBatch(const ReportsEngine& engine, const std::string& batch);
    void WriteModern(const ReviewCriteria& criteria, const VirtualProject& project);

    const ReportOptions& m_options;
    std::string m_folder;
    WrittenPages m_pages;
    std::vector<std::string> m_older;  // project files with results of an earlier review only
    bool m_hasBatchPage = false;
};

}  // namespace dorvik
