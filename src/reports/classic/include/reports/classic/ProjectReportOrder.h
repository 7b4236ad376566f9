#pragma once

#include "reports/format/modReportFilename.h"

#include <string>

namespace dorvik {

class VirtualProject;

/// What the pages of a project need in addition to its results database. Paths are internal ones.
struct ProjectReportOrder {
    /// Shown in place of a fact that is not stored in the database.
    static constexpr const char* kNotKnown = "Not known";

    std::string ProjectFile;
    std::string ReportsFolder;  // empty: beside the project
    std::string LogFile;        // empty: there is none
    std::string RulebaseFile;   // empty: not known
    bool Detailed = false;      // with a page for each source file
    /// The project after its review, or null if pages are made from a database alone: they show then which files
    /// were not reviewed, but neither why nor how many files the project has.
    VirtualProject* Project = nullptr;

    /// Full path of the project's own page.
    std::string PageFilename() const {
        return modDorvikUtils::CreateReportFilename(
            ProjectFile, ReportKind::Project, ReportsFolder);
    }
};

}  // namespace dorvik
