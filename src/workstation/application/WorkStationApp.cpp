#include "workstation/application/WorkStationApp.h"

#include "base/BasicError.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "settings/DVKWorkData.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"
#include "source/VirtualProject.h"
#include "typelib/TypeLibraryStore.h"
#include "workstation/controls/modWorkstationMessage.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/dialogs/modOpenProject.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/screen/IScreen.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "WorkStationApp";

/// The values of the setting `OptionPromptSave`.
constexpr std::int32_t kSaveWithoutAsking = 1;
constexpr std::int32_t kLeaveUnsaved = 3;

TypeLibraryPlaces TypeLibrariesOfThisMachine(std::vector<std::string> folders) {
    const DorvikData& data = modGlobal::Data();
    const std::vector<std::string>& set = modGlobal::WorkData().TypeLibraryFolders;
    folders.insert(folders.end(), set.begin(), set.end());
    return {
        .Folders = std::move(folders),
        .CatalogueFolders = {data.TypeCataloguePath(), data.UserTypeCataloguePath()},
        .IndexFile = data.TypeLibraryIndexFile()};
}

}  // namespace

WorkStationApp::WorkStationApp(IScreen& screen) : m_screen(screen) {}

WorkStationApp::~WorkStationApp() {
    m_evtMenu.clear();
    m_evtIDE.clear();
    m_criteria.reset();
    m_evtProgressEnded.End();
    if (m_evtProgress) {
        // A review in the foreground is on the stack, and would run on.
        m_evtProgress->Cancel();
        m_evtProgress.reset();
    }
    if (m_IDE) {
        m_IDE->TerminateDorvik();
    }
    m_menus = nullptr;
    m_document = nullptr;
    m_IDE.reset();
}

void WorkStationApp::StartAddIn(std::shared_ptr<IDEHelper> ideHelper) {
    Trap({kModule, "StartAddIn"}, [&] {
        m_IDE = std::move(ideHelper);
        m_document = m_IDE->DorvikUserDocument();
        m_menus = m_IDE->DorvikMenus();
        ConnectMenus();
        ConnectProjects();
        m_criteria = std::make_shared<ReviewCriteria>();
        m_criteria->SetReviewType(ReviewType_IDE);
        m_criteria->SetBackgroundReview(modGlobal::WorkData().BackgroundReview);
        m_criteria->SetClearLogBeforeReview(modGlobal::WorkData().ClearLog);
        PopulateProjectList();
        Results().PopulateResults(m_criteria, /*afterReview=*/false);
        m_IDE->ActivateEventsListeners();
        m_IDE->RefreshMenus(/*reviewRunning=*/false);
    });
}

void WorkStationApp::IDEStartupComplete() {
    Trap({kModule, "IDEStartupComplete"}, [&] {
        if (m_IDE) {
            m_IDE->RefreshMenus(/*reviewRunning=*/false);
        }
    });
}

void WorkStationApp::BeginShutdown() {
    Trap({kModule, "BeginShutdown"}, [&] {
        if (m_backgroundReviewActive) {
            m_evtMenu_ReviewClick();
        }
    });
}

void WorkStationApp::ConnectProjects() {
    m_evtIDE.push_back(m_IDE->ProjectAdded.Subscribe(
        [this](const std::string& name, const std::string& filename, const std::string& type) {
            m_evtIDE_ProjectAdded(name, filename, type);
        }));
    m_evtIDE.push_back(m_IDE->ProjectRemoved.Subscribe(
        [this](const std::string& name) { m_evtIDE_ProjectRemoved(name); }));
    m_evtIDE.push_back(m_IDE->ProjectRenamed.Subscribe(
        [this](const std::string& oldName, const std::string& newName) {
            m_evtIDE_ProjectRenamed(oldName, newName);
        }));
}

void WorkStationApp::PopulateProjectList() {
    Trap({kModule, "PopulateProjectList"}, [&] {
        const std::int32_t count = m_IDE->ProjectCount();
        for (std::int32_t index = 1; index <= count; ++index) {
            AddProject(
                m_IDE->ProjectName(index),
                m_IDE->ProjectFileName(index),
                m_IDE->ProjectType(index));
        }
    });
}

void WorkStationApp::AddProject(
    const std::string& name, const std::string& filename, const std::string& type) {
    ObjectKeyedArrayList<VirtualProject>& projects = m_criteria->ProjectList();
    if (projects.Contains(name)) {
        return;
    }
    auto project = std::make_shared<VirtualProject>();
    project->SetFilename(filename.empty() ? name : filename);
    project->SetName(name);
    project->SetProjectType(type);
    if (m_backgroundReviewActive) {
        // The review comes to it without a dialog that would read its files.
        modOpenProject::Read(*project);
        for (std::int32_t file = 1; file <= project->SourceFiles().Count(); ++file) {
            project->SourceFiles().SetSelected(file, true);
        }
    }
    projects.Add(name, std::move(project), /*selected=*/true);
}

ResultsView& WorkStationApp::Results() const {
    if (m_document == nullptr) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);  // not started
    }
    return m_document->Results();
}

// ---- the review ----

void WorkStationApp::m_evtMenu_ReviewClick() {
    Trap({kModule, "m_evtMenu_ReviewClick"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        // While a review runs in the background the same command cancels it.
        if (!m_backgroundReviewActive &&
            (!PromptToSaveProjectsBeforeReview() || !ChooseReviewOptions(/*asBefore=*/false))) {
            return;
        }
        ExecuteReview();
        if (!life.IsOver()) {
            m_IDE->RefreshMenus(m_backgroundReviewActive);
        }
    });
}

bool WorkStationApp::PromptToSaveProjectsBeforeReview() {
    return Trapped({kModule, "PromptToSaveProjectsBeforeReview"}, false, [&] {
        const Lifetime::Watch life = m_life.Watched();
        const std::shared_ptr<ReviewCriteria> criteria = m_criteria;
        const ObjectKeyedArrayList<VirtualProject>& projects = criteria->ProjectList();
        bool mayReview = true;
        // Required: without any project the first one is looked at all the same, which raises.
        std::int32_t index = 1;
        do {
            if (projects.Selected(index)) {
                mayReview = MayReview(std::string(projects.Key(index)), mayReview);
            }
            if (life.IsOver()) {
                return false;
            }
            ++index;
        } while (index <= projects.Count());
        return mayReview && projects.SelectedCount() > 0;
    });
}

// Required: what a project gives replaces what those before it gave.
bool WorkStationApp::MayReview(const std::string& project, bool soFar) {
    if (m_IDE->ProjectNeedsForcefulSave(project)) {
        modWorkstationMessage::Show(
            MessageIcon::Exclamation,
            "'" + project + "' is a new project and must be saved prior to review.");
        return false;
    }
    const std::int32_t option = modGlobal::WorkData().OptionPromptSave;
    if (!m_IDE->ProjectNeedsSaving(project) || option == kLeaveUnsaved) {
        return soFar;
    }
    if (option == kSaveWithoutAsking) {
        return m_IDE->ExecuteVBProjectSave(project);
    }
    const Lifetime::Watch life = m_life.Watched();
    const MessageAnswer answer = modWorkstationMessage::Show(
        MessageIcon::Question,
        "Project '" + project +
            "' has changed.\r\rDo you want to continue the review without saving it?",
        MessageButtons::YesNo);
    if (life.IsOver() || answer == MessageAnswer::Yes) {
        return true;
    }
    modWorkstationMessage::Show(
        MessageIcon::Information, "Please save the project and restart the review.");
    return false;
}

/// `asBefore`: as if the user had left the dialog as it was, if that is possible.
bool WorkStationApp::ChooseReviewOptions(bool asBefore) {
    const Lifetime::Watch life = m_life.Watched();
    frmReviewOptions form(m_screen);
    form.ReviewOptions(m_criteria);
    if (!asBefore || !m_optionsWereChosen || !form.Ok()) {
        m_screen.ShowModal(form);
    }
    if (life.IsOver()) {
        return false;
    }
    m_optionsWereChosen = m_optionsWereChosen || !form.Cancelled();
    return !form.Cancelled();
}

void WorkStationApp::ReviewAgain() {
    Trap({kModule, "ReviewAgain"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        if (m_backgroundReviewActive || !PromptToSaveProjectsBeforeReview() ||
            !ChooseReviewOptions(/*asBefore=*/true)) {
            return;
        }
        ExecuteReview();
        if (!life.IsOver()) {
            m_IDE->RefreshMenus(m_backgroundReviewActive);
        }
    });
}

void WorkStationApp::ExecuteReview() {
    const Lifetime::Watch life = m_life.Watched();
    Trap({kModule, "ExecuteReview"}, [&] {
        if (m_backgroundReviewActive) {
            m_evtProgress->AbortBackgroundReview();
            return;
        }
        ReviewBegins.Raise();
        // The review is about to replace the database.
        Results().CloseResults();
        if (m_criteria->BackgroundReview()) {
            SetBackgroundReviewActive(true);
            m_IDE->SetWorkbenchVisible(false);
        }
        // Shared with this frame: the end of the review drops the window, that of the add-in both.
        const auto typeLibraries =
            std::make_shared<TypeLibraryStore>(TypeLibrariesOfThisMachine(m_typeLibraryFolders));
        const auto progress = std::make_shared<frmProgress>(m_screen);
        progress->SetTypeLibraries(typeLibraries.get());
        m_typeLibraries = typeLibraries;
        m_evtProgress = progress;
        m_evtProgressEnded = progress->BackgroundReviewEnded.Subscribe(
            [this] { m_evtProgress_BackgroundReviewEnded(); });
        progress->CommenceReview(m_criteria);
        if (!life.IsOver() && !m_backgroundReviewActive) {
            DropProgress();
        }
    });
    if (!life.IsOver() && !m_backgroundReviewActive) {
        ShowResultsOfReview();
    }
}

void WorkStationApp::SetBackgroundReviewActive(bool active) {
    m_backgroundReviewActive = active;
    m_IDE->SetReviewRunning(active);
    m_menus->InvertReviewOption(active);
    BackgroundReviewChanged.Raise();
}

void WorkStationApp::DropProgress() {
    m_evtProgressEnded.End();
    m_evtProgress.reset();
}

void WorkStationApp::m_evtProgress_BackgroundReviewEnded() {
    Trap({kModule, "m_evtProgress_BackgroundReviewEnded"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        SetBackgroundReviewActive(false);
        DropProgress();
        ShowResultsOfReview();
        if (!life.IsOver()) {
            m_IDE->RefreshMenus(/*reviewRunning=*/false);
        }
    });
}

void WorkStationApp::ShowResultsOfReview() {
    const Lifetime::Watch life = m_life.Watched();
    Results().PopulateResults(m_criteria, /*afterReview=*/true);
    if (life.IsOver()) {
        return;
    }
    ReviewEnded.Raise();
    if (life.IsOver() || !Results().ResultsAvailable()) {
        return;
    }
    if (modGlobal::WorkData().AlwaysShowWorkbench) {
        m_IDE->SetWorkbenchVisible(true);
    }
    if (!life.IsOver() && modGlobal::WorkData().AlwaysShowSummary) {
        m_evtMenu_ReviewSummary();
    }
}

// ---- changes of the open projects ----

void WorkStationApp::m_evtIDE_ProjectAdded(
    const std::string& name, const std::string& filename, const std::string& type) {
    Trap({kModule, "m_evtIDE_ProjectAdded"}, [&] {
        AddProject(name, filename, type);
        Results().ProjectAdded();
    });
}

void WorkStationApp::m_evtIDE_ProjectRemoved(const std::string& name) {
    Trap({kModule, "m_evtIDE_ProjectRemoved"}, [&] {
        const std::int32_t index = m_criteria->ProjectList().FindIndexByKey(name);
        if (index == -1) {
            return;
        }
        m_criteria->ProjectList().Remove(index);
        if (m_criteria->PreviouslySelectedFiles().Contains(name)) {
            m_criteria->PreviouslySelectedFiles().Remove(name);
        }
        Results().ProjectRemoved(index);
    });
}

void WorkStationApp::m_evtIDE_ProjectRenamed(
    const std::string& oldName, const std::string& newName) {
    Trap({kModule, "m_evtIDE_ProjectRenamed"}, [&] {
        const std::int32_t index = m_criteria->PreviouslySelectedFiles().FindIndexByKey(oldName);
        if (index != -1) {
            m_criteria->PreviouslySelectedFiles().SetKey(index, newName);
        }
    });
}

}  // namespace dorvik
