#pragma once

#include "cli/ReportOptions.h"
#include "cli/WrittenPages.h"

#include <string>
#include <vector>

namespace dorvik {

class ReportsEngine;
class ReviewCriteria;
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

    /// Takes in what the review wrote, and writes the modern pages, which stand on its finished results.
    void Finish(const ReviewCriteria& criteria, const ReportsEngine& engine);

    /// Says which pages there are.
    void Print() const { m_pages.Print(); }
    /// Says which pages there should be and are not. False if there was any.
    bool TellFailures(const ReviewCriteria& criteria) const;

private:
    std::string PageOf(const VirtualProject& project) const;

    const ReportOptions& m_options;
    std::string m_folder;
    WrittenPages m_pages;
    std::vector<std::string> m_reviewed;  // project files that have results
};

}  // namespace dorvik
