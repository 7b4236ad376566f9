#include "workstation/view/ResultsView.h"

#include "HotspotView.h"
#include "ResultsBrowser.h"
#include "ShownResults.h"
#include "ViolationListView.h"
#include "base/modTextCase.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "modSourceItems.h"
#include "reports/format/modReportFilename.h"
#include "results/modResultsFilename.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "source/modDorvikUtils.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/dialogs/frmReviewSummary.h"
#include "workstation/screen/IScreen.h"
#include "workstation/view/WorkbenchControls.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "ResultsView";
constexpr std::int32_t kLocationProject = 1;

}  // namespace

/// The parts that share the work, from the bottom up.
struct ResultsView::Parts {
    Parts(ResultsView& view, WorkbenchControls& controls, IScreen& screen)
        : Controls(controls),
          Screen(screen),
          List(controls, Results),
          Hotspots(controls, Results),
          Browser(ResultsBrowser::Surroundings{
              controls, Results, List, Hotspots, view.EnableDisableGroupBySrcFiles, [&view] {
                  return view.m_criteria ? view.m_criteria->ProjectList().Count() : 0;
              }}) {}

    void CloseSummary() {
        if (Summary != nullptr) {
            SummaryClosed.End();
            Summary.reset();
        }
    }

    void StoreGridWidth() {
        if (Controls.Splitter.ContainerWidth() > 0) {
            modGlobal::WorkData().RVGridWidth = Controls.Splitter.Fraction();
        }
    }

    WorkbenchControls& Controls;
    IScreen& Screen;
    ShownResults Results;
    ViolationListView List;
    HotspotView Hotspots;
    ResultsBrowser Browser;
    std::unique_ptr<frmReviewSummary> Summary;  // null while none is shown
    Subscription SummaryClosed;
    std::vector<Subscription> Subscriptions;
};

ResultsView::ResultsView(WorkbenchControls& controls, IScreen& screen)
    : m_parts(std::make_unique<Parts>(*this, controls, screen)) {}

/// The controls live on, and must not be bound to records that do not.
ResultsView::~ResultsView() {
    CloseResults();
}

// ---- state ----

bool ResultsView::ResultsAvailable() const {
    return m_parts->Results.Available();
}

std::int32_t ResultsView::ViewType() const {
    return m_parts->Browser.ViewType();
}

ShownReview ResultsView::Shown() const {
    ShownReview shown = m_parts->Results.Review;
    if (ResultsAvailable()) {
        shown.Filter = m_parts->Results.DB().FilterString();
    }
    return shown;
}

void ResultsView::SetWorkbenchVisible(bool visible) {
    Trap({kModule, "WorkbenchVisible"}, [&] {
        m_visible = visible;
        if (visible && std::exchange(m_openingIsPending, false)) {
            OpenDatabase();
        }
    });
}

// ---- life ----

void ResultsView::Initialise() {
    Trap({kModule, "Initialise"}, [&] {
        WorkbenchControls& controls = m_parts->Controls;
        controls.Splitter.SetFraction(modGlobal::WorkData().RVGridWidth);
        m_parts->List.Initialise();
        m_parts->Hotspots.SetupListView();
        m_parts->Browser.Initialise();
        auto& subscriptions = m_parts->Subscriptions;
        subscriptions.push_back(controls.Splitter.SplitterMoved.Subscribe(
            [this](std::int32_t) { m_parts->StoreGridWidth(); }));
        subscriptions.push_back(
            controls.List.PopupRequested.Subscribe([this] { DisplayListPopup.Raise(); }));
        subscriptions.push_back(
            controls.List.DoubleClicked.Subscribe([this] { GotoSource.Raise(); }));
        subscriptions.push_back(
            controls.Hotspots.DoubleClicked.Subscribe([this] { GotoSource.Raise(); }));
    });
}

void ResultsView::Terminate() {
    Trap({kModule, "Terminate"}, [&] {
        m_parts->StoreGridWidth();
        m_parts->Browser.SaveViewColumnDetails();
        CloseResults();
        m_parts->Subscriptions.clear();
    });
}

// ---- projects ----

void ResultsView::PopulateResults(std::shared_ptr<ReviewCriteria> criteria, bool afterReview) {
    Trap({kModule, "PopulateResults"}, [&] {
        m_criteria = std::move(criteria);
        const auto& projects = m_criteria->ProjectList();
        std::int32_t first = 1;
        while (first <= projects.Count() && !projects.Selected(first)) {
            ++first;
        }
        PopulateProjectData(first <= projects.Count() ? first : 0, afterReview);
    });
}

std::int32_t ResultsView::FindProject(std::string_view name) const {
    const std::int32_t count = m_criteria ? m_criteria->ProjectList().Count() : 0;
    for (std::int32_t index = 1; index <= count; ++index) {
        if (modTextCase::Equal(m_criteria->ProjectList().Key(index), name)) {
            return index;
        }
    }
    return 0;
}

void ResultsView::PopulateProjectData(std::int32_t index, bool evenHidden) {
    CloseResults();
    ShownReview& review = m_parts->Results.Review;
    review = {};
    m_projectIndex = index;
    if (index == 0) {
        m_parts->Controls.Panel.Set("No projects open.");
        return;
    }
    const VirtualProject& project = *m_criteria->ProjectList().Item(index);
    review.ProjectName = project.Name();
    review.ProjectFile = project.Filename();
    review.DatabaseFile = modDorvikUtils::CreateResultsFilename(
        project.Filename(),
        m_criteria->UseProjectFolderResults() ? std::string() : m_criteria->FixedFolderResults());
    if (!modUtilFunctions::FileExists(review.DatabaseFile)) {
        ShowNoResults();
    } else if (m_visible || evenHidden) {
        OpenDatabase();
    } else {
        m_openingIsPending = true;
        m_parts->Controls.Panel.Set("");
    }
}

void ResultsView::ShowNoResults() {
    m_parts->Controls.Panel.Set(
        "No results exist for '" + m_parts->Results.Review.ProjectName +
        "', please perform a review to create them.");
}

void ResultsView::OpenDatabase() {
    const std::string file = m_parts->Results.Review.DatabaseFile;
    if (!modUtilFunctions::FileExists(file) || !m_parts->Results.Open(file)) {
        ShowNoResults();
        return;
    }
    m_parts->Controls.Panel.Set("");
    m_parts->Browser.ShowReview();
}

void ResultsView::SetResultsDB(std::unique_ptr<ResultsDB> database, std::string_view file) {
    Trap({kModule, "SetResultsDB"}, [&] {
        CloseResults();
        m_projectIndex = 0;
        m_parts->Results.Take(std::move(database));
        ResultsDB& results = m_parts->Results.DB();
        ShownReview& review = m_parts->Results.Review;
        review = {};
        review.ProjectName = results.Items().GetProjectData("Name");
        review.ProjectFile =
            modUtilFunctions::AddBackslash(results.Items().GetProjectData("Path")) +
            results.Items().GetProjectData("Filename");
        review.DatabaseFile = file;
        m_parts->Controls.Panel.Set("");
        m_parts->Browser.ShowReview();
    });
}

void ResultsView::CloseResults() {
    Trap({kModule, "CloseResults"}, [&] {
        m_openingIsPending = false;
        m_parts->CloseSummary();
        m_parts->Browser.Clear();
        m_parts->Results.Close();
    });
}

void ResultsView::ProjectSelected(std::string_view name) {
    Trap({kModule, "ProjectSelected"}, [&] {
        const std::int32_t index = FindProject(name);
        if (index != 0 && index != m_projectIndex) {
            PopulateProjectData(index, /*evenHidden=*/false);
        }
    });
}

void ResultsView::ProjectAdded() {
    Trap({kModule, "ProjectAdded"}, [&] {
        if (m_projectIndex == 0 && !ResultsAvailable() && m_criteria) {
            PopulateProjectData(m_criteria->ProjectList().Count(), /*evenHidden=*/false);
        }
    });
}

void ResultsView::ProjectRemoved(std::int32_t index) {
    Trap({kModule, "ProjectRemoved"}, [&] {
        if (index == m_projectIndex) {
            CloseResults();
            m_projectIndex = 0;
            m_parts->Results.Review = {};
            m_parts->Controls.Panel.Set("");
        } else if (index < m_projectIndex) {
            --m_projectIndex;
        }
        if (!m_criteria || m_criteria->ProjectList().Count() == 0) {
            m_parts->Controls.Panel.Set("No projects open.");
        }
    });
}

void ResultsView::ProjectRenamed(std::string_view oldName, std::string_view newName) {
    Trap({kModule, "ProjectRenamed"}, [&] {
        const std::int32_t index = FindProject(oldName);
        if (index == 0) {
            return;
        }
        m_criteria->ProjectList().Item(index)->SetName(newName);
        m_criteria->ProjectList().SetKey(index, newName);
        if (index != m_projectIndex) {
            return;
        }
        m_parts->Results.Review.ProjectName = newName;
        if (ResultsAvailable()) {
            m_parts->Results.DB().Editor().UpdateProjectName(newName);
            m_parts->Browser.RenameFile(m_parts->Browser.ProjectFileKey(), newName);
        }
    });
}

void ResultsView::ProjectFileRenamed(std::string_view name, std::string_view filename) {
    Trap({kModule, "ProjectFileRenamed"}, [&] {
        const std::int32_t index = FindProject(name);
        if (index == 0) {
            return;
        }
        m_criteria->ProjectList().Item(index)->SetFilename(filename);
        if (index == m_projectIndex) {
            m_parts->Results.Review.ProjectFile = filename;
        }
    });
}

void ResultsView::FileSelected(std::string_view /*project*/, std::string_view file) {
    Trap({kModule, "FileSelected"}, [&] {
        if (!m_ignoreFileEvents && modGlobal::WorkData().AlwaysSynchroniseVL) {
            m_parts->Browser.SelectFile(file);
        }
    });
}

void ResultsView::FileRenamed(
    std::string_view project, std::string_view oldName, std::string_view newName) {
    Trap({kModule, "FileRenamed"}, [&] {
        if (!ResultsAvailable() || FindProject(project) != m_projectIndex || m_projectIndex == 0) {
            return;
        }
        ResultsDB& results = m_parts->Results.DB();
        for (const BasicObject& file : results.Items().GetProjectSourceFileList(true, false)) {
            if (modTextCase::Equal(file.Name, oldName) &&
                !modDorvikUtils::IsVBPFile(file.Filename)) {
                results.Editor().UpdateFileName(newName, file.ObjectID);
                m_parts->Browser.RenameFile(modSourceItems::FileItem(file, "", "").Key, newName);
                return;
            }
        }
    });
}

// ---- commands ----

void ResultsView::FilterResults() {
    Trap({kModule, "FilterResults"}, [&] {
        if (!ResultsAvailable()) {
            return;
        }
        const CategorySeverityLists& lists = m_parts->Results.Lists();
        frmReviewOptions form(m_parts->Screen);
        form.SetCategoryList(lists.Categories);
        form.SetSeverityList(lists.Severities);
        form.FilterOptions(m_parts->Results.DB().Filter());
        m_parts->Screen.ShowModal(form);
        if (!form.Cancelled() && ResultsAvailable()) {
            m_parts->Browser.RebuildFiles();
        }
    });
}

void ResultsView::ShowReviewSummary() {
    Trap({kModule, "ShowReviewSummary"}, [&] {
        if (!ResultsAvailable() || !m_criteria) {
            return;
        }
        m_parts->CloseSummary();
        const std::string& project = m_parts->Results.Review.ProjectFile;
        const ReviewCriteria& criteria = *m_criteria;
        const std::string logFile = modDorvikUtils::CreateProjectLogFilename(
            project, criteria.UseProjectFolderResults() ? "" : criteria.FixedFolderResults());
        std::string reportFile;
        if (criteria.ReportOption() > 0) {
            reportFile = modDorvikUtils::CreateReportFilename(
                project,
                ReportKind::Project,
                criteria.UseProjectFolderReports() ? "" : criteria.FixedFolderReports());
        }
        m_parts->Summary = std::make_unique<frmReviewSummary>(m_parts->Screen);
        m_parts->SummaryClosed =
            m_parts->Summary->Closed.Subscribe([this] { m_parts->CloseSummary(); });
        m_parts->Summary->Initialise(m_parts->Results.DB(), logFile, reportFile);
        m_parts->Screen.Show(*m_parts->Summary);
    });
}

std::optional<ViolationDetails> ResultsView::GetViolationDetails() {
    return Trapped({kModule, "GetViolationDetails"}, std::nullopt, [&] {
        std::optional<ViolationDetails> details;
        const std::optional<std::int32_t> id = m_parts->Controls.List.CurrentKey();
        if (!id || !ResultsAvailable()) {
            return details;
        }
        ResultsDB& results = m_parts->Results.DB();
        details.emplace();
        details->Violation = results.Violations().GetViolationDetail(*id);
        details->Project = m_parts->Results.Review.ProjectName;
        if (details->Violation.Location != kLocationProject) {
            ViolationSourceLocation location =
                results.Violations().GetViolationSourceLocation(*id, false);
            details->Project = std::move(location.Project);
            details->File = std::move(location.File);
        }
        return details;
    });
}

std::optional<SourceDetails> ResultsView::GetSourceDetails() {
    return Trapped({kModule, "GetSourceDetails"}, std::nullopt, [&] {
        return m_parts->Browser.GetSourceDetails();
    });
}

void ResultsView::SwitchView(std::int32_t newType) {
    Trap({kModule, "SwitchView"}, [&] {
        if (newType != ViewType()) {
            m_parts->Browser.SwitchView(newType);
            ViewChanged.Raise();
        }
    });
}

void ResultsView::OptionsChanged() {
    Trap({kModule, "OptionsChanged"}, [&] {
        if (ResultsAvailable()) {
            m_parts->Results.ReadSortFields();
            m_parts->Browser.RebuildFiles();
        }
    });
}

void ResultsView::RefreshViolationsList() {
    Trap({kModule, "RefreshViolationsList"}, [&] { m_parts->Browser.RefreshViolationsList(); });
}

void ResultsView::GroupByCategory() {
    Trap({kModule, "GroupByCategory"}, [&] {
        m_parts->List.GroupBy(ViolationColumn::Category, modGlobal::WorkData().GroupByCategory);
    });
}

void ResultsView::GroupByRule() {
    Trap({kModule, "GroupByRule"}, [&] {
        m_parts->List.GroupBy(ViolationColumn::Title, modGlobal::WorkData().GroupByRule);
    });
}

void ResultsView::GroupBySeverity() {
    Trap({kModule, "GroupBySeverity"}, [&] {
        m_parts->List.GroupBy(ViolationColumn::SeverityText, modGlobal::WorkData().GroupBySeverity);
    });
}

void ResultsView::GroupBySourceFile() {
    Trap({kModule, "GroupBySourceFile"}, [&] {
        m_parts->List.GroupBy(ViolationColumn::SourceFile, modGlobal::WorkData().GroupBySourceFile);
    });
}

void ResultsView::GroupByNone() {
    Trap({kModule, "GroupByNone"}, [&] { m_parts->List.GroupByNone(); });
}

void ResultsView::DisplayViolationDocumentation(std::int32_t violationId) {
    Trap({kModule, "DisplayViolationDocumentation"}, [&] {
        m_parts->List.DisplayViolationDocumentation(violationId);
    });
}

}  // namespace dorvik
