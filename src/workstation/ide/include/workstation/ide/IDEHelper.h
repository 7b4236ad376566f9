#pragma once

#include "results/Violation.h"
#include "workstation/controls/CommandControl.h"
#include "workstation/controls/Event.h"
#include "workstation/controls/Lifetime.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

class IDEMenus;
class IHostComponent;
class IHostEnvironment;
class IHostProject;
class IHostWindow;
class IScreen;
class udocDorvik;

/// The only class that talks to the development environment: makes the work bench and the menus, answers questions
/// about open projects, saves them, and finds a violation again in code that has changed since the review.
///
/// A failure is logged under the operation's own name and gives the default of its result.
class IDEHelper {
public:
    IDEHelper();
    /// Calls `TerminateDorvik` unless it was called.
    ~IDEHelper();
    IDEHelper(const IDEHelper&) = delete;
    IDEHelper& operator=(const IDEHelper&) = delete;

    /// REQUIRES: both outlive this, and the process-wide objects are there until `TerminateDorvik`.
    void Initialise(IHostEnvironment& environment, IScreen& screen);
    void TerminateDorvik();
    /// Events of the environment arrive from now on.
    void ActivateEventsListeners();

    /// Null before `Initialise` and after `TerminateDorvik`, as the menus are.
    udocDorvik* DorvikUserDocument() const { return m_userDocument.get(); }
    IDEMenus* DorvikMenus() const { return m_menus.get(); }

    std::int16_t ProjectCount() const;
    bool ProjectsOpen() const;
    /// Projects are numbered from 1.
    std::string ProjectName(std::int32_t index) const;
    /// Empty for a project that was never saved.
    std::string ProjectFileName(std::int32_t index) const;
    /// "Exe", "OleExe", "OleDll" or "Control".
    std::string ProjectType(std::int32_t index) const;
    bool ProjectDirty(std::int32_t index) const;
    /// The project was never saved.
    bool ProjectNeedsForcefulSave(std::string_view project) const;
    /// It was never saved, or it was changed since.
    bool ProjectNeedsSaving(std::string_view project) const;
    /// True if the project has a file name afterwards. Input is processed until the user is done.
    bool ExecuteVBProjectSave(std::string_view project);

    bool WorkbenchVisible() const;
    void SetWorkbenchVisible(bool visible);
    /// Whether a review runs in the background, which the menus depend on.
    void SetReviewRunning(bool running) { m_reviewRunning = running; }
    void RefreshMenus() { RefreshMenus(m_reviewRunning); }
    void RefreshMenus(bool reviewRunning);

    void ShowVBProjectProperties();
    void ShowVBReferences();
    /// Shows the designer of a source file, with the control of the violation selected.
    void DisplayDesigner(
        std::string_view project, std::string_view sourceFile, const Violation& violation);
    /// Shows the line of the violation, wherever it is by now, or a message where it is not found.
    void SelectSourceLine(
        std::string_view project, std::string_view sourceFile, const Violation& violation);
    /// `procedureType` as the results have it: "Property Get" and the like. Without a procedure, line 1.
    void SelectProcedureStartLine(
        std::string_view project,
        std::string_view sourceFile,
        std::string_view procedure,
        std::string_view procedureType);

    /// The popup on the menu bar, or in the menu of tools, that holds the add-in's menu.
    CommandControl* SiteAddInMenu();
    CommandControl* FindMenu(std::string_view caption);
    CommandControl* AddCommandBar(std::string_view name);
    /// A bar, or the popup of `SiteAddInMenu`; null deletes nothing.
    void DeleteCommandBar(CommandControl* bar);
    Event<>& MenuEventsListener(CommandControl& control) { return control.Clicked; }

    Event<const std::string&, const std::string&> ProjectRenamed;  // old name, new name
    Event<const std::string&> ProjectRemoved;
    /// Name, file name, which is empty for a project never saved, and type.
    Event<const std::string&, const std::string&, const std::string&> ProjectAdded;

private:
    void m_evtProjects_ItemActivated(const IHostProject& project);
    void m_evtProjects_ItemAdded(const IHostProject& project);
    void m_evtProjects_ItemRemoved(const std::string& name);
    void m_evtProjects_ItemRenamed(const IHostProject& project, const std::string& oldName);
    void m_evtFileControl_AfterChangeFileName(const std::string& project, const std::string& file);
    void m_evtFiles_ItemRenamed(const IHostComponent& component, const std::string& oldName);
    void m_evtFiles_ItemSelected(const IHostProject& project, const IHostComponent& component);

    IHostEnvironment* m_VBInstance = nullptr;
    std::unique_ptr<udocDorvik> m_userDocument;
    std::unique_ptr<IHostWindow> m_toolWindow;
    std::unique_ptr<IDEMenus> m_menus;
    bool m_reviewRunning = false;
    struct EventSources;
    std::unique_ptr<EventSources> m_events;
    Lifetime m_life;  // the add-in may end while a message is shown
};

}  // namespace dorvik
