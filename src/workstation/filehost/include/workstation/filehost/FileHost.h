#pragma once

#include "platform/host/modEncoding.h"
#include "workstation/filehost/FileProject.h"
#include "workstation/filehost/FileToolWindow.h"
#include "workstation/host/HostCallList.h"
#include "workstation/host/IHostEnvironment.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace dorvik {

/// An environment over files on disk: projects and groups are opened from their files, code is edited and saved there.
///
/// The first project that is opened becomes the active one; others only when the user activates them or selects one of
/// their files. What the user does raises the environment's events. An operation that names what is not open
/// raises `kSubscriptOutOfRange`.
class FileHost final : public IHostEnvironment {
public:
    /// `codePage` is that of files without a byte order mark.
    explicit FileHost(int codePage = modEncoding::kDefaultCodePage);
    ~FileHost() override;

    /// Opens a project (`.vbp`) or all projects of a group (`.vbg`). What cannot be opened is reported by one message for
    /// each project and group file, and the rest is opened. A project that is open already is left as it is. False where no project
    /// was opened.
    bool Open(std::string_view path);
    /// Several of them, with one message for what cannot be opened. True where any project was opened.
    bool Open(const std::vector<std::string>& paths);
    /// Closes a project. Changes that were not saved are lost.
    void CloseProject(std::string_view name);
    void ActivateProject(std::string_view name);
    /// Raises `kInvalidProcedureCall` for an empty name and one that another project has.
    void RenameProject(std::string_view oldName, std::string_view newName);
    /// Names the component of a project. Raises as `FileProject::RenameComponent`.
    void RenameComponent(
        std::string_view project, std::string_view nameOrFile, std::string_view newName);
    /// By its name or its file, of the active project first. Its project becomes the active one.
    void SelectFile(std::string_view nameOrFile);
    /// False where not all could be saved; the user has seen a message.
    bool SaveAll();

    std::int32_t ProjectCount() const override {
        return static_cast<std::int32_t>(m_projects.size());
    }
    FileProject& Project(std::int32_t index) override;
    FileProject& Project(std::string_view name) override;
    FileProject* ActiveProject() override { return m_active; }
    /// Of the active project first; null where no project has it.
    FileComponent* FindComponent(std::string_view nameOrFile);

    std::unique_ptr<IHostWindow>
    CreateToolWindow(const ToolWindowRequest& request, IUserDocument& document) override;
    CommandControl& MenuBar() override { return m_menuBar; }
    CommandControl& AddCommandBar(std::string_view name) override;
    void RemoveCommandBar(CommandControl& bar) override;
    const std::vector<std::unique_ptr<CommandControl>>& CommandBars() const { return m_bars; }

    /// Nothing is executed here; the call is recorded, and `CommandExecuted` raised.
    void ExecuteCommand(std::int32_t id) override;
    /// Saves at once.
    void BeginSave(IHostProject& project) override;
    bool IsIdle() const override { return true; }
    HostEvents& Events() override { return m_events; }

    /// What the add-in asked of the environment.
    HostCallList& Calls() { return m_calls; }
    /// For a screen: a window that was made, to be shown when it becomes visible. It lives until the add-in lets go of it.
    Event<FileToolWindow&> ToolWindowCreated;
    Event<> CommandBarsChanged;
    /// For a screen, which shows what the add-in requests: a number of `hostcommand`.
    Event<std::int32_t> CommandExecuted;

private:
    struct Report;

    bool OpenGroup(const std::string& path, Report& report);
    bool OpenProject(const std::string& path, Report& report);
    bool IsOpen(std::string_view path) const;
    void Add(std::unique_ptr<FileProject> project);
    void Activate(FileProject& project);

    int m_codePage;
    HostCallList m_calls;
    HostEvents m_events;
    std::vector<std::unique_ptr<FileProject>> m_projects;
    std::vector<Subscription> m_fileNames;  // one for each project
    FileProject* m_active = nullptr;
    CommandControl m_menuBar;
    std::vector<std::unique_ptr<CommandControl>> m_bars;
};

}  // namespace dorvik
