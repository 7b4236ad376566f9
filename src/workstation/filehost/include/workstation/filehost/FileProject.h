#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/CodeFile.h"
#include "workstation/filehost/FileComponent.h"
#include "workstation/host/IHostProject.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class HostCallList;
class VirtualProject;

/// A project that was opened from its file.
class FileProject final : public IHostProject {
public:
    /// `project` was read from its file. Members whose files are not there are left out; see `MissingFiles`.
    FileProject(VirtualProject& project, HostCallList& calls);
    FileProject(const FileProject&) = delete;
    FileProject& operator=(const FileProject&) = delete;

    const std::string& Name() const override { return m_name; }
    const std::string& FileName() const override {
        return m_neverSaved ? m_noFileName : m_fileName;
    }
    HostProjectType Type() const override { return m_type; }
    /// The project itself or one of its components.
    bool IsDirty() const override;
    /// Within its folder, since a project file names its members from there. Raises where a file cannot be written, and
    /// `kPathFileAccess` for another folder.
    void SaveAs(std::string_view fileName) override;
    std::int32_t ComponentCount() const override {
        return static_cast<std::int32_t>(m_components.size());
    }
    FileComponent& Component(std::int32_t index) override;
    FileComponent& Component(std::string_view nameOrFile) override;
    /// As the one before, but null where there is none.
    FileComponent* FindComponent(std::string_view nameOrFile);

    const std::vector<std::string>& MissingFiles() const { return m_missingFiles; }
    /// The project's file, also of one that was never saved.
    const std::string& PathOnDisk() const { return m_fileName; }

    /// What the project says of itself, whatever is so.
    void SetDirty(bool dirty);
    /// From now on it has no file name, until it is saved.
    void SetNeverSaved(bool neverSaved) { m_neverSaved = neverSaved; }
    /// Without an event; see `FileHost::RenameProject`. The project file has the name once it is saved.
    void SetName(std::string name);
    /// The same for a component. Raises `kInvalidProcedureCall` for an empty name and one that another component has, and
    /// as `FileComponent::SetName`.
    void RenameComponent(FileComponent& component, std::string_view newName);

    /// Writes what has changed. Where that is not possible the user sees one message, and nothing is written if it
    /// could be foreseen. False where not all was written.
    bool Save();

    /// Its file name, after it was saved under another one or for the first time.
    Event<const std::string&> FileNameChanged;
    Event<> DirtyChanged;

private:
    struct Output;
    /// A component's names, since the project file was written.
    struct NameChange {
        std::string Old;
        std::string New;
    };

    void AddComponents(VirtualProject& project, HostCallList& calls);
    void CheckFolder(std::string_view fileName) const;
    /// Raises with a sentence for the user where a file is not to be written.
    std::vector<Output> Outputs();
    /// The bytes of the project file with the new names.
    std::string ProjectFileBytes(CodeFile& file) const;
    void WriteAll();
    void EndNeverSaved();

    std::string m_name;
    std::string m_fileName;
    std::string m_noFileName;
    HostProjectType m_type = HostProjectType::StandardExe;
    int m_codePage;
    bool m_isDirty = false;
    bool m_isRenamed = false;  // it or a component, since the project file was written
    std::vector<NameChange> m_nameChanges;
    bool m_neverSaved = false;
    std::vector<std::unique_ptr<FileComponent>> m_components;
    std::vector<Subscription> m_dirt;
    std::vector<std::string> m_missingFiles;
};

}  // namespace dorvik
