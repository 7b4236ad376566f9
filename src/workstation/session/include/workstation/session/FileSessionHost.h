#pragma once

#include "workstation/filehost/FileHost.h"
#include "workstation/session/ISessionHost.h"

namespace dorvik {

/// A session over files on disk.
class FileSessionHost final : public ISessionHost {
public:
    FileHost& Environment() override { return m_host; }
    HostCallList& Calls() override { return m_host.Calls(); }

    bool Open(std::string_view path) override { return m_host.Open(path); }
    void CloseProject(std::string_view project) override { m_host.CloseProject(project); }
    void ActivateProject(std::string_view project) override { m_host.ActivateProject(project); }
    void RenameProject(std::string_view oldName, std::string_view newName) override {
        m_host.RenameProject(oldName, newName);
    }
    void SelectFile(std::string_view file) override { m_host.SelectFile(file); }
    void SetDirty(std::string_view project, bool dirty) override;
    void SetNeverSaved(std::string_view project, bool neverSaved) override;
    bool Save(std::string_view project) override { return m_host.Project(project).Save(); }
    bool SaveAll() override { return m_host.SaveAll(); }

    FileComponent* FindComponent(std::string_view file) override {
        return m_host.FindComponent(file);
    }
    void ReplaceLine(std::string_view file, std::int32_t line, std::string_view text) override;
    void InsertLine(std::string_view file, std::int32_t line, std::string_view text) override;
    void DeleteLine(std::string_view file, std::int32_t line) override;

private:
    FileCodeModule& Module(std::string_view file);

    FileHost m_host;
};

}  // namespace dorvik
