#include "workstation/ide/IDEHelper.h"

#include "MenuItems.h"
#include "base/BasicError.h"
#include "foundation/log/Trap.h"
#include "platform/host/modHost.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "workstation/host/IHostEnvironment.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "IDEHelper";

constexpr std::string_view kProgrammaticId = "DVKWORK.UDOCDORVIK";
constexpr std::string_view kCaption = "Dorvik Work Bench";
constexpr std::string_view kWindowGuid = "{4B82D228-1AF5-4f56-ACB8-AED7997248C4}";

IHostEnvironment& Existing(IHostEnvironment* environment) {
    if (environment == nullptr) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return *environment;
}

}  // namespace

struct IDEHelper::EventSources {
    std::vector<Subscription> m_evtProjects;
    Subscription m_evtFileControl;
    std::vector<Subscription> m_evtFiles;  // those of the active project
};

IDEHelper::IDEHelper() = default;

IDEHelper::~IDEHelper() {
    TerminateDorvik();
}

void IDEHelper::Initialise(IHostEnvironment& environment, IScreen& screen) {
    Trap({kModule, "Initialise"}, [&] {
        m_VBInstance = &environment;
        m_userDocument = std::make_unique<udocDorvik>(screen);
        m_toolWindow = environment.CreateToolWindow(
            {std::string(kProgrammaticId), std::string(kCaption), std::string(kWindowGuid)},
            *m_userDocument);
        m_userDocument->SetIDEHelper(this);
        m_menus = std::make_unique<IDEMenus>();
        m_menus->Initialise(*this);
        m_userDocument->SetMenus(m_menus.get());
    });
}

void IDEHelper::TerminateDorvik() {
    Trap({kModule, "TerminateDorvik"}, [&] {
        if (m_toolWindow) {
            m_toolWindow->Close();
            m_toolWindow.reset();
        }
        if (m_userDocument) {
            m_userDocument->SetIDEHelper(nullptr);
            m_userDocument->Terminate();
            m_userDocument.reset();
        }
        m_events.reset();
        if (m_menus) {
            m_menus->DestroyMenusAndToolbar();
            m_menus.reset();
        }
        m_VBInstance = nullptr;
    });
}

void IDEHelper::ActivateEventsListeners() {
    Trap({kModule, "ActivateEventsListeners"}, [&] {
        HostEvents& events = Existing(m_VBInstance).Events();
        m_events = std::make_unique<EventSources>();
        std::vector<Subscription>& projects = m_events->m_evtProjects;
        projects.push_back(events.ProjectActivated.Subscribe(
            [this](IHostProject& project) { m_evtProjects_ItemActivated(project); }));
        projects.push_back(events.ProjectAdded.Subscribe(
            [this](IHostProject& project) { m_evtProjects_ItemAdded(project); }));
        projects.push_back(events.ProjectRemoved.Subscribe(
            [this](const std::string& name) { m_evtProjects_ItemRemoved(name); }));
        projects.push_back(events.ProjectRenamed.Subscribe(
            [this](IHostProject& project, const std::string& oldName) {
                m_evtProjects_ItemRenamed(project, oldName);
            }));
        m_events->m_evtFileControl = events.AfterChangeFileName.Subscribe(
            [this](IHostProject& project, HostFileType type, const std::string& file) {
                if (type == HostFileType::Project) {
                    m_evtFileControl_AfterChangeFileName(project.Name(), file);
                }
            });
        m_events->m_evtFiles.push_back(events.FileRenamed.Subscribe(
            [this](IHostComponent& component, const std::string& oldName) {
                m_evtFiles_ItemRenamed(component, oldName);
            }));
        m_events->m_evtFiles.push_back(
            events.FileSelected.Subscribe([this](IHostProject& project, IHostComponent& component) {
                m_evtFiles_ItemSelected(project, component);
            }));
    });
}

std::int16_t IDEHelper::ProjectCount() const {
    return Trapped({kModule, "ProjectCount"}, std::int16_t{0}, [&] {
        return static_cast<std::int16_t>(Existing(m_VBInstance).ProjectCount());
    });
}

bool IDEHelper::ProjectsOpen() const {
    return Trapped({kModule, "ProjectsOpen"}, false, [&] {
        return Existing(m_VBInstance).ProjectCount() > 0;
    });
}

std::string IDEHelper::ProjectName(std::int32_t index) const {
    return Trapped({kModule, "ProjectName"}, std::string(), [&] {
        return Existing(m_VBInstance).Project(index).Name();
    });
}

std::string IDEHelper::ProjectFileName(std::int32_t index) const {
    return Trapped({kModule, "ProjectFileName"}, std::string(), [&] {
        return Existing(m_VBInstance).Project(index).FileName();
    });
}

std::string IDEHelper::ProjectType(std::int32_t index) const {
    return Trapped({kModule, "ProjectType"}, std::string(), [&] {
        return std::string(NameOf(Existing(m_VBInstance).Project(index).Type()));
    });
}

bool IDEHelper::ProjectDirty(std::int32_t index) const {
    return Trapped({kModule, "ProjectDirty"}, false, [&] {
        return Existing(m_VBInstance).Project(index).IsDirty();
    });
}

bool IDEHelper::ProjectNeedsForcefulSave(std::string_view project) const {
    return Trapped({kModule, "ProjectNeedsForcefulSave"}, false, [&] {
        return Existing(m_VBInstance).Project(project).FileName().empty();
    });
}

bool IDEHelper::ProjectNeedsSaving(std::string_view project) const {
    return Trapped({kModule, "ProjectNeedsSaving"}, false, [&] {
        const IHostProject& found = Existing(m_VBInstance).Project(project);
        return found.FileName().empty() || found.IsDirty();
    });
}

bool IDEHelper::ExecuteVBProjectSave(std::string_view project) {
    return Trapped({kModule, "ExecuteVBProjectSave"}, false, [&] {
        IHostEnvironment& environment = Existing(m_VBInstance);
        environment.BeginSave(environment.Project(project));
        while (!environment.IsIdle()) {
            modHost::YieldToInput();
        }
        // The user may have closed it meanwhile.
        return !environment.Project(project).FileName().empty();
    });
}

bool IDEHelper::WorkbenchVisible() const {
    return Trapped({kModule, "WorkbenchVisible"}, false, [&] {
        return m_toolWindow != nullptr && m_toolWindow->Visible();
    });
}

void IDEHelper::SetWorkbenchVisible(bool visible) {
    Trap({kModule, "WorkbenchVisible"}, [&] {
        if (m_toolWindow) {
            m_toolWindow->SetVisible(visible);
        }
    });
}

void IDEHelper::RefreshMenus(bool reviewRunning) {
    Trap({kModule, "RefreshMenus"}, [&] {
        if (m_menus && m_userDocument) {
            m_menus->EnableDisable(
                m_userDocument->Results().ResultsAvailable(),
                m_userDocument->Results().ViewType(),
                modGlobal::WorkData().RBDocAvailable(),
                reviewRunning);
        }
    });
}

void IDEHelper::ShowVBProjectProperties() {
    Trap({kModule, "ShowVBProjectProperties"}, [&] {
        Existing(m_VBInstance).ExecuteCommand(hostcommand::kProjectProperties);
    });
}

void IDEHelper::ShowVBReferences() {
    Trap({kModule, "ShowVBReferences"}, [&] {
        Existing(m_VBInstance).ExecuteCommand(hostcommand::kReferences);
    });
}

CommandControl* IDEHelper::SiteAddInMenu() {
    return Trapped({kModule, "SiteAddInMenu"}, nullptr, [&] {
        CommandControl& bar = Existing(m_VBInstance).MenuBar();
        CommandLook look{
            .Caption = std::string(menuitems::kMenuCaption),
            .Tag = std::string(menuitems::kMenuTag)};
        CommandControl* const tools = bar.FindId(hostcommand::kToolsMenu);
        if (tools != nullptr && modGlobal::WorkData().PlaceMenuOnToolsMenu) {
            look.BeginGroup = true;
            return &tools->Add(CommandKind::Popup, std::move(look));
        }
        if (tools != nullptr) {
            return &bar.Add(CommandKind::Popup, std::move(look), bar.IndexOf(*tools));
        }
        const CommandControl* const before = bar.FindId(hostcommand::kProjectMenu);
        const std::int32_t place = before == nullptr ? 0 : bar.IndexOf(*before) + 1;
        return &bar.Add(CommandKind::Popup, std::move(look), place);
    });
}

CommandControl* IDEHelper::FindMenu(std::string_view caption) {
    return Trapped({kModule, "FindMenu"}, nullptr, [&] {
        return Existing(m_VBInstance).MenuBar().FindCaption(caption);
    });
}

CommandControl* IDEHelper::AddCommandBar(std::string_view name) {
    return Trapped({kModule, "AddCommandBar"}, nullptr, [&] {
        return &Existing(m_VBInstance).AddCommandBar(name);
    });
}

void IDEHelper::DeleteCommandBar(CommandControl* bar) {
    Trap({kModule, "DeleteCommandBar"}, [&] {
        if (bar == nullptr) {
            return;
        }
        CommandControl& menuBar = Existing(m_VBInstance).MenuBar();
        for (CommandControl* const holder : {&menuBar, menuBar.FindId(hostcommand::kToolsMenu)}) {
            if (holder != nullptr && holder->IndexOf(*bar) > 0) {
                holder->Remove(*bar);
                return;
            }
        }
        m_VBInstance->RemoveCommandBar(*bar);
    });
}

void IDEHelper::m_evtProjects_ItemActivated(const IHostProject& project) {
    Trap({kModule, "m_evtProjects_ItemActivated"}, [&] {
        m_userDocument->Results().ProjectSelected(project.Name());
    });
}

void IDEHelper::m_evtProjects_ItemAdded(const IHostProject& project) {
    Trap({kModule, "m_evtProjects_ItemAdded"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        ProjectAdded.Raise(project.Name(), project.FileName(), std::string(NameOf(project.Type())));
        if (!life.IsOver()) {
            RefreshMenus();
        }
    });
}

void IDEHelper::m_evtProjects_ItemRemoved(const std::string& name) {
    Trap({kModule, "m_evtProjects_ItemRemoved"}, [&] {
        ProjectRemoved.Raise(name);
        RefreshMenus();
    });
}

void IDEHelper::m_evtProjects_ItemRenamed(const IHostProject& project, const std::string& oldName) {
    Trap({kModule, "m_evtProjects_ItemRenamed"}, [&] {
        m_userDocument->Results().ProjectRenamed(oldName, project.Name());
        ProjectRenamed.Raise(oldName, project.Name());
    });
}

void IDEHelper::m_evtFileControl_AfterChangeFileName(
    const std::string& project, const std::string& file) {
    Trap({kModule, "m_evtFileControl_AfterChangeFileName"}, [&] {
        m_userDocument->Results().ProjectFileRenamed(project, file);
        RefreshMenus();
    });
}

void IDEHelper::m_evtFiles_ItemRenamed(
    const IHostComponent& component, const std::string& oldName) {
    Trap({kModule, "m_evtFiles_ItemRenamed"}, [&] {
        const IHostProject* const active = Existing(m_VBInstance).ActiveProject();
        if (active != nullptr) {
            m_userDocument->Results().FileRenamed(active->Name(), oldName, component.Name());
        }
    });
}

void IDEHelper::m_evtFiles_ItemSelected(
    const IHostProject& project, const IHostComponent& component) {
    Trap({kModule, "m_evtFiles_ItemSelected"}, [&] {
        const IHostProject* const active = Existing(m_VBInstance).ActiveProject();
        if (active == &project && !m_userDocument->Results().IgnoreFileEvents()) {
            m_userDocument->Results().FileSelected(project.Name(), component.Name());
        }
    });
}

}  // namespace dorvik
