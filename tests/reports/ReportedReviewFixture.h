#pragma once

#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "reports/ReviewedProject.h"
#include "reports/classic/ReportsEngine.h"
#include "source/VirtualProject.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace dorvik::test {

/// Reviews that a test makes up, with their results and reports all in one folder, and an engine to
/// write the reports with.
class ReportedReviewFixture : public testing::Test, protected IReportsEngineEvents {
protected:
    ReportedReviewFixture() {
        constexpr const char* kTitles[] = {"Critical", "High", "Medium", "Low", "Information"};
        for (std::int32_t level = 1; level <= 5; ++level) {
            auto item = std::make_shared<SeverityItem>();
            item->SetSeverityLevel(level);
            item->SetTitle(kTitles[level - 1]);
            m_severities.Add(SeverityKeyOf(level), item, true, false);
        }
        m_engine.Initialise(m_severities, m_categories);
        m_engine.SetEvents(this);
        m_criteria.SetReportOption(1);
        m_criteria.SetUseProjectFolderResults(false);
        m_criteria.SetFixedFolderResults(m_folder.Path());
        m_criteria.SetUseProjectFolderReports(false);
        m_criteria.SetFixedFolderReports(m_folder.Path());
    }

    /// A project of the criteria; its results are those of "<name>_DORVIK.mdb".
    std::shared_ptr<VirtualProject>
    AddProject(const std::string& name, const std::string& folder = {}) {
        auto project = std::make_shared<VirtualProject>();
        project->SetFilename(m_folder.Path(folder + name + ".vbp"));
        m_criteria.ProjectList().Add(folder + name, project, true, false);
        return project;
    }

    std::string ResultsPath(const std::string& name) const {
        return m_folder.Path(name + "_DORVIK.mdb");
    }

    static void AddFile(VirtualProject& project, const std::string& name, SourceFileStatus status) {
        auto file = std::make_shared<VirtualSourceFile>();
        file->SetName(name);
        file->SetReviewStatus(status);
        project.SourceFiles().Add(name, file, true, true);
    }

    void ReportsProgress(ProgressInfo&, std::int32_t state, bool& cancel) override {
        m_states.push_back(state);
        cancel = static_cast<int>(m_states.size()) == m_cancelAt;
    }

    TemporaryFolder m_folder;
    CapturedLog m_log;
    ReportsEngine m_engine;
    ReviewCriteria m_criteria{DVKWorkData()};
    ProgressInfo m_progress;
    SeverityTable m_severities;
    CategoryList m_categories;
    std::vector<std::int32_t> m_states;  // reported so far
    int m_cancelAt = 0;                  // the call that is answered with a cancel
};

}  // namespace dorvik::test
