#pragma once

#include "workstation/session/ISessionHost.h"
#include "workstation/support/ScriptedHost.h"

namespace dorvik::test {

/// A session in an environment that is held in memory. Opening a project reads its files once, by their plainest rules;
/// nothing is ever written: saved code is code that is no longer changed.
class ScriptedSessionHost final : public ISessionHost {
public:
    ScriptedSessionHost();

    ScriptedHost& Environment() override { return m_host; }
    HostCallList& Calls() override { return m_host.Asked; }

    bool Open(std::string_view path) override;
    void CloseProject(std::string_view project) override { m_host.RemoveProject(project); }
    void ActivateProject(std::string_view project) override { m_host.ActivateProject(project); }
    void RenameProject(std::string_view oldName, std::string_view newName) override {
        m_host.RenameProject(oldName, std::string(newName));
    }
    void SelectFile(std::string_view file) override;
    void SetDirty(std::string_view project, bool dirty) override {
        m_host.Project(project).Dirty = dirty;
    }
    void SetNeverSaved(std::string_view project, bool neverSaved) override {
        m_host.Project(project).NeverSaved = neverSaved;
    }
    bool Save(std::string_view project) override;
    bool SaveAll() override;

    ScriptedComponent* FindComponent(std::string_view file) override;
    void ReplaceLine(std::string_view file, std::int32_t line, std::string_view text) override;
    void InsertLine(std::string_view file, std::int32_t line, std::string_view text) override;
    void DeleteLine(std::string_view file, std::int32_t line) override;

private:
    /// Of the active one first; null where no project has the file.
    ScriptedProject* ProjectOf(std::string_view file);
    ScriptedModule& Module(std::string_view file);
    void Save(ScriptedProject& project);

    ScriptedHost m_host;
};

}  // namespace dorvik::test
