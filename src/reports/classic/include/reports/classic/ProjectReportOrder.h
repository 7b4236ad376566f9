#pragma once

#include <string>

namespace dorvik {

class VirtualProject;

/// What the pages of a project need beside its results database. Paths are the program's own.
struct ProjectReportOrder {
    /// Stands for a fact that only the review itself knew.
    static constexpr const char* kNotKnown = "Not known";

    std::string ProjectFile;
    std::string ReportsFolder;  // empty: beside the project
    std::string LogFile;        // empty: there is none
    std::string RulebaseFile;   // empty: not known
    bool Detailed = false;      // with a page for each source file
    /// The project as its review left it, or null where pages are made from an older database: the pages
    /// tell which files were not reviewed, but not why, and not how many files the project has.
    VirtualProject* Project = nullptr;
};

}  // namespace dorvik
