#include "workstation/filehost/FileHost.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "platform/host/modFiles.h"
#include "source/VirtualProject.h"
#include "source/VirtualProjectGroup.h"
#include "workstation/controls/modWorkstationMessage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace dorvik {

namespace {

struct MenuRow {
    std::string_view Caption;
    std::int32_t Id;
};

constexpr std::array<MenuRow, 7> kMenus{{
    {"&File", 30002},
    {"&Edit", 30003},
    {"&View", 30004},
    {"&Project", hostcommand::kProjectMenu},
    {"&Tools", hostcommand::kToolsMenu},
    {"&Window", 30009},
    {"&Help", 30010},
}};

bool HasExtension(std::string_view path, std::string_view extension) {
    return modTextCase::EndsWith(path, extension);
}

std::string Quoted(std::string_view path) {
    return "'" + std::string(path) + "'";
}

std::string WhyNotLoaded(const VirtualProject& project, std::string_view path) {
    if (project.LoadStatus() == ProjectLoadStatus::NotFound) {
        return "The project file " + Quoted(path) + " cannot be found.";
    }
    const std::string why =
        project.Unreadable().empty() ? "cannot be opened" : project.Unreadable();
    return "The project file " + Quoted(path) + " " + why + ".";
}

std::string WhyCut(const VirtualProject& project, std::string_view path) {
    return "Line " + std::to_string(project.FailedLine().Number) + " of the project file " +
           Quoted(path) + " cannot be read. The project is open without what follows that line.";
}

}  // namespace

/// What could not be opened, to be shown in one message.
struct FileHost::Report {
    static constexpr std::size_t kMostLines = 10;

    std::size_t Count = 0;
    std::string Text;

    void Add(const std::string& sentence) {
        if (++Count <= kMostLines) {
            Text += (Text.empty() ? "" : "\r\n") + sentence;
        }
    }
    void Show() const {
        if (Count > kMostLines) {
            modWorkstationMessage::Show(
                MessageIcon::Exclamation,
                Text + "\r\n... and " + std::to_string(Count - kMostLines) + " more.");
        } else if (Count > 0) {
            modWorkstationMessage::Show(MessageIcon::Exclamation, Text);
        }
    }
};

FileHost::FileHost(int codePage)
    : m_codePage(codePage), m_menuBar(CommandKind::Popup, CommandLook{.Caption = "Menu Bar"}) {
    for (const MenuRow& row : kMenus) {
        CommandLook look;
        look.Caption = row.Caption;
        m_menuBar.Add(CommandKind::Popup, std::move(look), 0, row.Id);
    }
}

FileHost::~FileHost() = default;

bool FileHost::Open(std::string_view path) {
    return Open(std::vector<std::string>{std::string(path)});
}

bool FileHost::Open(const std::vector<std::string>& paths) {
    Report report;
    bool isAnyOpened = false;
    for (const std::string& path : paths) {
        const bool isOpened =
            HasExtension(path, ".vbg") ? OpenGroup(path, report) : OpenProject(path, report);
        isAnyOpened = isOpened || isAnyOpened;
    }
    report.Show();
    return isAnyOpened;
}

bool FileHost::OpenGroup(const std::string& path, Report& report) {
    bool isAnyOpened = false;
    std::vector<std::string> files;
    const std::size_t reported = report.Count;
    Trap(
        {"FileHost", "OpenGroup"},
        [&] { files = VirtualProjectGroup(path, m_codePage).ProjectFilenames(); },
        [&](const BasicError& failure) {
            report.Add("The group file " + Quoted(path) + " cannot be opened: " + failure.what());
            return true;
        });
    for (const std::string& file : files) {
        isAnyOpened = OpenProject(file, report) || isAnyOpened;
    }
    if (files.empty() && report.Count == reported) {
        report.Add("The group file " + Quoted(path) + " names no project.");
    }
    return isAnyOpened;
}

bool FileHost::OpenProject(const std::string& path, Report& report) {
    if (!HasExtension(path, ".vbp")) {
        report.Add(Quoted(path) + " is not a project file.");
        return false;
    }
    if (IsOpen(path)) {
        return false;
    }
    VirtualProject project(m_codePage);
    switch (project.LoadProject(path)) {
        case ProjectLoadStatus::Good: break;
        case ProjectLoadStatus::LineFailed: report.Add(WhyCut(project, path)); break;
        case ProjectLoadStatus::NotOpened:
        case ProjectLoadStatus::NotFound: report.Add(WhyNotLoaded(project, path)); return false;
    }
    auto opened = std::make_unique<FileProject>(project, m_calls);
    for (const std::string& file : opened->MissingFiles()) {
        report.Add(
            "The file " + Quoted(file) + " of the project '" + opened->Name() +
            "' cannot be found.");
    }
    Add(std::move(opened));
    return true;
}

bool FileHost::IsOpen(std::string_view path) const {
    return std::ranges::any_of(m_projects, [&](const auto& project) {
        return modTextCase::Equal(project->PathOnDisk(), path);
    });
}

void FileHost::Add(std::unique_ptr<FileProject> project) {
    FileProject& added = *project;
    m_fileNames.push_back(added.FileNameChanged.Subscribe([this, &added](const std::string& file) {
        m_events.AfterChangeFileName.Raise(added, HostFileType::Project, file);
    }));
    m_projects.push_back(std::move(project));
    m_events.ProjectAdded.Raise(added);
    if (m_active == nullptr) {
        Activate(added);
    }
}

void FileHost::CloseProject(std::string_view name) {
    FileProject& project = Project(name);
    const auto place = std::ranges::find(
        m_projects, &project, [](const std::unique_ptr<FileProject>& item) { return item.get(); });
    const std::string removed = project.Name();
    const bool wasActive = m_active == &project;
    // Its objects live until the subscribers have let go of them.
    const std::unique_ptr<FileProject> closing = std::move(*place);
    m_fileNames.erase(m_fileNames.begin() + (place - m_projects.begin()));
    m_projects.erase(place);
    if (wasActive) {
        m_active = m_projects.empty() ? nullptr : m_projects.front().get();
    }
    m_events.ProjectRemoved.Raise(removed);
}

void FileHost::ActivateProject(std::string_view name) {
    Activate(Project(name));
}

void FileHost::Activate(FileProject& project) {
    m_active = &project;
    m_events.ProjectActivated.Raise(project);
}

void FileHost::RenameProject(std::string_view oldName, std::string_view newName) {
    FileProject& project = Project(oldName);
    const bool isTaken = std::ranges::any_of(m_projects, [&](const auto& other) {
        return other.get() != &project && modTextCase::Equal(other->Name(), newName);
    });
    if (newName.empty() || isTaken) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall, std::string(newName));
    }
    const std::string old = project.Name();
    project.SetName(std::string(newName));
    m_events.ProjectRenamed.Raise(project, old);
}

void FileHost::RenameComponent(
    std::string_view project, std::string_view nameOrFile, std::string_view newName) {
    FileProject& owner = Project(project);
    FileComponent& component = owner.Component(nameOrFile);
    const std::string old = component.Name();
    owner.RenameComponent(component, newName);
    m_events.FileRenamed.Raise(component, old);
}

void FileHost::SelectFile(std::string_view nameOrFile) {
    FileComponent* component = FindComponent(nameOrFile);
    const auto owner = std::ranges::find_if(m_projects, [&](const auto& project) {
        return project->FindComponent(nameOrFile) == component;
    });
    if (component == nullptr || owner == m_projects.end()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange, std::string(nameOrFile));
    }
    FileProject& project = **owner;
    if (m_active != &project) {
        Activate(project);
    }
    m_events.FileSelected.Raise(project, *component);
}

bool FileHost::SaveAll() {
    bool isSaved = true;
    for (const auto& project : m_projects) {
        const bool isNew = project->FileName().empty();
        isSaved = ((!project->IsDirty() && !isNew) || project->Save()) && isSaved;
    }
    return isSaved;
}

FileProject& FileHost::Project(std::int32_t index) {
    if (index < 1 || index > ProjectCount()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return *m_projects[static_cast<std::size_t>(index) - 1];
}

FileProject& FileHost::Project(std::string_view name) {
    const auto found = std::ranges::find_if(
        m_projects, [&](const auto& project) { return modTextCase::Equal(project->Name(), name); });
    if (found == m_projects.end()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange, std::string(name));
    }
    return **found;
}

FileComponent* FileHost::FindComponent(std::string_view nameOrFile) {
    FileComponent* component = m_active == nullptr ? nullptr : m_active->FindComponent(nameOrFile);
    for (std::size_t index = 0; index < m_projects.size() && component == nullptr; ++index) {
        component = m_projects[index]->FindComponent(nameOrFile);
    }
    return component;
}

std::unique_ptr<IHostWindow>
FileHost::CreateToolWindow(const ToolWindowRequest& request, IUserDocument& document) {
    auto window = std::make_unique<FileToolWindow>(request, document);
    ToolWindowCreated.Raise(*window);
    return window;
}

CommandControl& FileHost::AddCommandBar(std::string_view name) {
    CommandLook look;
    look.Caption = name;
    m_bars.push_back(std::make_unique<CommandControl>(CommandKind::Popup, std::move(look)));
    CommandBarsChanged.Raise();
    return *m_bars.back();
}

void FileHost::RemoveCommandBar(CommandControl& bar) {
    std::erase_if(m_bars, [&](const auto& item) { return item.get() == &bar; });
    CommandBarsChanged.Raise();
}

void FileHost::ExecuteCommand(std::int32_t id) {
    switch (id) {
        case hostcommand::kProjectProperties: m_calls.Add("properties"); break;
        case hostcommand::kReferences: m_calls.Add("references"); break;
        default: m_calls.Add("command " + std::to_string(id)); break;
    }
    CommandExecuted.Raise(id);
}

void FileHost::BeginSave(IHostProject& project) {
    m_calls.Add("save " + project.Name());
    Project(project.Name()).Save();
}

}  // namespace dorvik
