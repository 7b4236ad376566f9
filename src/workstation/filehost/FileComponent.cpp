#include "workstation/filehost/FileComponent.h"

#include "platform/host/modHostFolder.h"
#include "platform/host/modHostPath.h"

#include <utility>

namespace dorvik {

/// The designer's window, which notes each time that it is shown.
class FileComponent::RecordedWindow final : public FileHostWindow {
public:
    explicit RecordedWindow(FileComponent& component) : m_component(component) {}

    void SetVisible(bool visible) override {
        if (visible) {
            m_component.m_record(m_component, "show-designer", "");
        }
        FileHostWindow::SetVisible(visible);
    }

private:
    FileComponent& m_component;
};

FileComponent::FileComponent(ComponentFacts facts, Recorder record)
    : m_facts(std::move(facts)), m_record(std::move(record)) {
    if (HasDesigner()) {
        m_designerWindow = std::make_unique<RecordedWindow>(*this);
    }
}

FileComponent::~FileComponent() = default;

bool FileComponent::HasDesigner() const {
    switch (m_facts.Type) {
        case dorvik::FileType::Form:
        case dorvik::FileType::Designer:
        case dorvik::FileType::PropertyPage:
        case dorvik::FileType::UserDocument:
        case dorvik::FileType::UserControl:
        case dorvik::FileType::MDIForm: return true;
        case dorvik::FileType::None:
        case dorvik::FileType::Class:
        case dorvik::FileType::Module: return false;
    }
    return false;
}

CodeFile FileComponent::Read() const {
    return {m_facts.FileName, m_facts.CodePage, m_facts.Type};
}

void FileComponent::Reload() {
    FileCodeModule& module = CodeModule();
    const bool isRenamed = module.IsRenamed();
    module.Load(Read());
    if (isRenamed) {
        module.Rename(m_facts.Name);
    }
}

FileCodeModule& FileComponent::CodeModule() {
    if (m_module == nullptr) {
        m_module = std::make_unique<FileCodeModule>(Read());
        m_shownLines = m_module->CodePane().TopLineChanged.Subscribe(
            [this](std::int32_t line) { m_record(*this, "show-line", std::to_string(line)); });
        m_dirt = m_module->DirtyChanged.Subscribe([this] { DirtyChanged.Raise(); });
        Loaded.Raise(*m_module);
    }
    return *m_module;
}

FileHostWindow* FileComponent::DesignerWindow() {
    return m_designerWindow.get();
}

FileDesigner* FileComponent::Designer() {
    if (m_designer == nullptr && HasDesigner()) {
        m_designer = std::make_unique<FileDesigner>(
            CodeModule().File().HeadLines(), m_facts.Type != dorvik::FileType::Designer);
        m_selections = m_designer->SelectionChanged.Subscribe([this](FileDesignerControl& control) {
            if (control.Selected()) {
                m_record(
                    *this,
                    "select-control",
                    control.Name() +
                        (control.Index() ? " " + std::to_string(*control.Index()) : std::string()));
            }
        });
    }
    return m_designer.get();
}

void FileComponent::SetName(std::string_view name) {
    CodeModule().Rename(name);
    m_facts.Name = name;
}

DiskState FileComponent::FollowDisk() {
    if (m_module == nullptr || !m_module->File().HasChangedOnDisk()) {
        return DiskState::Same;
    }
    if (m_module->IsDirty()) {
        return DiskState::Conflict;
    }
    Reload();
    return DiskState::Reloaded;
}

bool FileComponent::IsReadOnly() const {
    const HostPath path = modHostPath::FromProgram(m_facts.FileName);
    return modHostFolder::KindOf(path) == FileKind::File &&
           modHostFolder::WriteObstacle(path).has_value();
}

}  // namespace dorvik
