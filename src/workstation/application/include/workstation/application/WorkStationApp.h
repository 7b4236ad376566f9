#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/Lifetime.h"
#include "workstation/dialogs/frmOptions.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace dorvik {

class frmProgress;
class IDEHelper;
class IDEMenus;
class IScreen;
class ResultsView;
class ReviewCriteria;
class TypeLibraryStore;
class udocDorvik;

/// What the add-in does at each command and at each change of the open projects. Owns the one `ReviewCriteria`, which
/// lasts as long as the add-in, and runs the review command from end to end.
///
/// A failure in a handler is logged under its own name and costs only that command.
class WorkStationApp {
public:
    /// REQUIRES: `screen` and the process-wide objects outlive this.
    explicit WorkStationApp(IScreen& screen);
    /// Ends the add-in: a review in the background is abandoned, the menus and the work bench go.
    ~WorkStationApp();
    WorkStationApp(const WorkStationApp&) = delete;
    WorkStationApp& operator=(const WorkStationApp&) = delete;

    void StartAddIn(std::shared_ptr<IDEHelper> ideHelper);
    void IDEStartupComplete();
    /// Cancels a review in the background, so that the environment does not close under it.
    void BeginShutdown();

    /// Reviews once more what was reviewed last, as the dialog was left then; the first review, and one that the dialog
    /// would refuse, come with the dialog. Nothing happens while a review runs in the background.
    void ReviewAgain();
    /// Folders of type libraries for this run, in front of those of the settings. Paths are the program's own.
    void SetTypeLibraryFolders(std::vector<std::string> folders) {
        m_typeLibraryFolders = std::move(folders);
    }

    /// The options dialog with a page in front.
    void ShowOptions(frmOptions::Page page);
    /// Shows the results in a database that the user chose.
    void OpenResults(const std::string& file);

    /// Null before `StartAddIn`.
    const std::shared_ptr<ReviewCriteria>& Criteria() const { return m_criteria; }
    bool BackgroundReviewActive() const { return m_backgroundReviewActive; }
    /// The progress window of a background review; null while none runs.
    frmProgress* Progress() const { return m_evtProgress.get(); }

    /// A review is about to begin, and the results that are shown are about to be closed.
    Event<> ReviewBegins;
    /// A review is over, and the results that there are now are shown.
    Event<> ReviewEnded;
    /// A review in the background has begun or ended.
    Event<> BackgroundReviewChanged;

private:
    void ConnectMenus();
    void ConnectMenusToDocument();
    void ConnectProjects();
    void PopulateProjectList();
    void AddProject(const std::string& name, const std::string& filename, const std::string& type);
    bool PromptToSaveProjectsBeforeReview();
    bool MayReview(const std::string& project, bool soFar);
    bool ChooseReviewOptions(bool asBefore);
    void ExecuteReview();
    void SetBackgroundReviewActive(bool active);
    void DropProgress();
    void ShowResultsOfReview();
    ResultsView& Results() const;

    void m_evtMenu_AboutClick();
    void m_evtMenu_GotoSourceClick();
    void m_evtMenu_GotoHomePage();
    void m_evtMenu_GotoTechSupportPage();
    void m_evtMenu_LaunchRulebaseDocument();
    void m_evtMenu_OpenClick();
    void m_evtMenu_ReviewClick();
    void m_evtMenu_ReviewSummary();
    void m_evtMenu_ShowDorvikWindowClick();
    void m_evtProgress_BackgroundReviewEnded();
    void m_evtIDE_ProjectAdded(
        const std::string& name, const std::string& filename, const std::string& type);
    void m_evtIDE_ProjectRemoved(const std::string& name);
    void m_evtIDE_ProjectRenamed(const std::string& oldName, const std::string& newName);

    IScreen& m_screen;
    std::shared_ptr<IDEHelper> m_IDE;
    IDEMenus* m_menus = nullptr;
    udocDorvik* m_document = nullptr;
    bool m_backgroundReviewActive = false;
    bool m_optionsWereChosen = false;  // the dialog of a review was left with OK
    std::vector<std::string> m_typeLibraryFolders;
    std::shared_ptr<ReviewCriteria> m_criteria;
    std::shared_ptr<TypeLibraryStore> m_typeLibraries;  // of the last review
    std::shared_ptr<frmProgress> m_evtProgress;
    Subscription m_evtProgressEnded;
    std::vector<Subscription> m_evtMenu;
    std::vector<Subscription> m_evtIDE;
    Lifetime m_life;  // the environment may disconnect while a command gives way to input
};

}  // namespace dorvik
