#pragma once

#include "source/FileType.h"
#include "workstation/controls/Event.h"
#include "workstation/filehost/FileCodeModule.h"
#include "workstation/filehost/FileDesigner.h"
#include "workstation/filehost/FileHostWindow.h"
#include "workstation/host/IHostProject.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace dorvik {

/// What a component is made of.
struct ComponentFacts {
    std::string Name;
    std::string FileName;
    dorvik::FileType Type = dorvik::FileType::None;
    int CodePage = 0;
};

/// What became of a file since it was read or written.
enum class DiskState : std::uint8_t {
    Same,
    Reloaded,
    Conflict  // it was changed there and here
};

/// A member of a project. Its file is read when its code or designer is needed first; until then nothing is known of it
/// but that it is there.
class FileComponent final : public IHostComponent {
public:
    /// `record` takes what the add-in does with the component, without the words for project and file: "show-line", "7".
    using Recorder =
        std::function<void(const FileComponent&, const std::string& what, const std::string& rest)>;

    FileComponent(ComponentFacts facts, Recorder record);
    FileComponent(const FileComponent&) = delete;
    FileComponent& operator=(const FileComponent&) = delete;
    ~FileComponent() override;

    const std::string& Name() const override { return m_facts.Name; }
    const std::string& FileName() const override { return m_facts.FileName; }
    dorvik::FileType FileType() const { return m_facts.Type; }
    /// Raises where the file cannot be read; see `CodeFile`.
    FileCodeModule& CodeModule() override;
    FileHostWindow* DesignerWindow() override;
    /// Raises as `CodeModule`.
    FileDesigner* Designer() override;

    /// Null as long as the file was not read.
    const FileCodeModule* LoadedModule() const { return m_module.get(); }
    FileCodeModule* LoadedModule() { return m_module.get(); }
    bool IsDirty() const { return m_module != nullptr && m_module->IsDirty(); }
    /// Whether the file is there and cannot be written to.
    bool IsReadOnly() const;

    /// Without an event; see `FileHost::RenameComponent`. Raises as `CodeModule` and `CodeFile::Rename`.
    void SetName(std::string_view name);

    /// Reads the file anew, in place of all that was not saved but the name. Raises as `CodeModule`. The designer stays as it
    /// was read first.
    void Reload();
    /// Looks whether another program has changed the file, and reads it anew where nothing is lost by that. Raises as
    /// `CodeModule`.
    DiskState FollowDisk();

    Event<> DirtyChanged;
    /// Its file was read first: `CodeModule` has the module from now on.
    Event<FileCodeModule&> Loaded;

private:
    class RecordedWindow;

    CodeFile Read() const;
    bool HasDesigner() const;

    ComponentFacts m_facts;
    Recorder m_record;
    std::unique_ptr<FileCodeModule> m_module;
    std::unique_ptr<FileHostWindow> m_designerWindow;
    std::unique_ptr<FileDesigner> m_designer;
    Subscription m_shownLines;
    Subscription m_selections;
    Subscription m_dirt;
};

}  // namespace dorvik
