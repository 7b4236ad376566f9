#pragma once

#include "results/Violation.h"
#include "workstation/controls/Event.h"
#include "workstation/controls/Lifetime.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class IScreen;
class ResultsDB;
class ReviewCriteria;
struct WorkbenchControls;

/// The two views of a results database.
namespace viewtype {
inline constexpr std::int32_t kViolationList = 1;
inline constexpr std::int32_t kHotspots = 2;
}  // namespace viewtype

/// A violation, and where the environment has its source.
struct ViolationDetails {
    std::string Project;
    std::string File;  // empty for a violation of the project itself
    dorvik::Violation Violation;
};

/// A file or procedure in the source.
struct SourceDetails {
    std::string Project;
    std::string File;           // the name of the project for the project file
    std::string Procedure;      // empty for the file itself
    std::string ProcedureType;  // as "Property Get"
};

/// What the work bench is about.
struct ShownReview {
    std::string ProjectName;
    std::string ProjectFile;   // full path; empty for a project that was never saved
    std::string DatabaseFile;  // full path, whether it exists or not
    std::string Filter;        // the clause of the filter, empty for none
};

/// The logic of the work bench: the results of one project in two views, a list of violations with a pane of
/// documentation and a table of hotspots, with a box of source files and one of procedures above them.
///
/// Opening is put off while the bench is hidden. What fails is logged under the module "ResultsView" and leaves the
/// view as it was.
class ResultsView {
public:
    /// REQUIRES: both outlive this, and the objects of `modGlobal` are in use for as long.
    ResultsView(WorkbenchControls& controls, IScreen& screen);
    ~ResultsView();
    ResultsView(const ResultsView&) = delete;
    ResultsView& operator=(const ResultsView&) = delete;

    // ---- state ----

    /// Whether a results database is open.
    bool ResultsAvailable() const;
    /// A number of `viewtype`.
    std::int32_t ViewType() const;
    /// While it is set, `FileSelected` does nothing.
    bool IgnoreFileEvents() const { return m_ignoreFileEvents; }
    void SetIgnoreFileEvents(bool ignore) { m_ignoreFileEvents = ignore; }
    bool WorkbenchVisible() const { return m_visible; }
    /// A bench that becomes visible opens the results that wait for it.
    void SetWorkbenchVisible(bool visible);
    ShownReview Shown() const;

    // ---- life ----

    /// Restores the layout from the settings.
    void Initialise();
    /// Stores the layout and closes the results.
    void Terminate();

    // ---- projects ----

    /// Shows the first selected project; after a review at once, also while the bench is hidden. Keeps the criteria,
    /// whose list of projects it shares.
    void PopulateResults(std::shared_ptr<ReviewCriteria> criteria, bool afterReview);
    /// The user activated a project in the environment.
    void ProjectSelected(std::string_view name);
    /// After the project was added to the list.
    void ProjectAdded();
    /// After the project was removed from the list, with the index that it had.
    void ProjectRemoved(std::int32_t index);
    /// Changes the list of projects too.
    void ProjectRenamed(std::string_view oldName, std::string_view newName);
    void ProjectFileRenamed(std::string_view name, std::string_view filename);
    /// The user selected a file in the environment.
    void FileSelected(std::string_view project, std::string_view file);
    void FileRenamed(std::string_view project, std::string_view oldName, std::string_view newName);
    /// Lets go of the results database, so that a review can replace the file.
    void CloseResults();

    // ---- commands ----

    /// Lets the user choose what to show.
    void FilterResults();
    void ShowReviewSummary();
    /// Those of the current row; nothing where no violation is selected.
    std::optional<ViolationDetails> GetViolationDetails();
    /// Those of the selected hotspot; nothing where none is selected.
    std::optional<SourceDetails> GetSourceDetails();
    /// Shows a database that the user opened by itself.
    void SetResultsDB(std::unique_ptr<ResultsDB> database, std::string_view file);
    void SwitchView(std::int32_t newType);
    /// The user changed the settings.
    void OptionsChanged();
    /// Makes the list of violations again.
    void RefreshViolationsList();

    /// These make the groups of the list agree with the settings of their names, which the caller has changed.
    void GroupByCategory();
    void GroupByRule();
    void GroupBySeverity();
    void GroupBySourceFile();
    void GroupByNone();

    /// Shows a violation in the pane.
    void DisplayViolationDocumentation(std::int32_t violationId);

    Event<> DisplayListPopup;
    Event<bool> EnableDisableGroupBySrcFiles;
    Event<> GotoSource;
    Event<> ViewChanged;  // another view is shown

private:
    struct Parts;

    void PopulateProjectData(std::int32_t index, bool evenHidden);
    void OpenDatabase();
    void ShowNoResults();
    std::int32_t FindProject(std::string_view name) const;

    std::unique_ptr<Parts> m_parts;
    std::shared_ptr<ReviewCriteria> m_criteria;
    std::int32_t m_projectIndex = 0;  // in the list of projects, from 1; 0 for none
    bool m_openingIsPending = false;
    bool m_visible = false;
    bool m_ignoreFileEvents = false;
    Lifetime m_life;  // the add-in may end while a message is shown
};

}  // namespace dorvik
