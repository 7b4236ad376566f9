#include "workstation/support/ScriptedHost.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"

#include <algorithm>
#include <utility>

namespace dorvik::test {

namespace {

std::string_view WithoutFolder(std::string_view path) {
    return path.substr(path.find_last_of('\\') + 1);
}

template <typename T>
T& Numbered(const std::vector<std::unique_ptr<T>>& items, std::int32_t index) {
    if (index < 1 || static_cast<std::size_t>(index) > items.size()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return *items[static_cast<std::size_t>(index) - 1];
}

template <typename T, typename Test>
T& TheOne(const std::vector<std::unique_ptr<T>>& items, Test test) {
    const auto found =
        std::ranges::find_if(items, [&](const std::unique_ptr<T>& item) { return test(*item); });
    if (found == items.end()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return **found;
}

}  // namespace

void ScriptedControl::SetSelected(bool selected) {
    if (selected || m_selected) {
        m_calls.push_back(
            (selected ? "select " : "deselect ") + m_name +
            (m_index ? "(" + std::to_string(*m_index) + ")" : std::string()));
    }
    const bool isNew = selected && !m_selected;
    m_selected = selected;
    if (isNew && OnSelected) {
        OnSelected(*this);
    }
}

ScriptedControl& ScriptedDesigner::AddControl(std::string name, std::optional<std::int32_t> index) {
    m_controls.push_back(std::make_unique<ScriptedControl>(m_calls, std::move(name), index));
    m_controls.back()->OnSelected = [this](const ScriptedControl& control) {
        if (OnSelected) {
            OnSelected(control);
        }
    };
    return *m_controls.back();
}

ScriptedControl& ScriptedDesigner::Control(std::int32_t index) {
    return Numbered(m_controls, index);
}

ScriptedControl*
ScriptedDesigner::FindControl(std::string_view name, std::optional<std::int32_t> index) {
    for (const auto& control : m_controls) {
        if (modTextCase::Equal(control->Name(), name) && (!index || control->Index() == index)) {
            return control.get();
        }
    }
    return nullptr;
}

ScriptedComponent::ScriptedComponent(
    HostCalls& calls, std::string name, std::string fileName, Ask ask)
    : m_calls(calls),
      m_ask(std::move(ask)),
      m_name(std::move(name)),
      m_fileName(std::move(fileName)),
      m_module(calls, m_name) {
    m_module.CodePane().OnTopLine = [this](std::int32_t line) {
        m_ask(*this, "show-line", " " + std::to_string(line));
    };
}

ScriptedDesigner& ScriptedComponent::MakeForm() {
    m_designerWindow = std::make_unique<ScriptedWindow>(m_calls, "designer " + m_name);
    m_designerWindow->OnShown = [this] {
        m_ask(*this, "show-designer", "");
    };
    m_designer = std::make_unique<ScriptedDesigner>(m_calls);
    m_designer->OnSelected = [this](const ScriptedControl& control) {
        const auto index = control.Index();
        m_ask(
            *this,
            "select-control",
            " " + control.Name() + (index ? " " + std::to_string(*index) : std::string()));
    };
    return *m_designer;
}

ScriptedComponent& ScriptedProject::AddComponent(
    const std::string& name, std::string_view text, std::string fileName) {
    if (fileName.empty()) {
        fileName = m_fileName.substr(0, m_fileName.find_last_of('\\') + 1) + name + ".bas";
    }
    m_components.push_back(std::make_unique<ScriptedComponent>(
        m_calls,
        name,
        std::move(fileName),
        [this](
            const ScriptedComponent& component, const std::string& what, const std::string& rest) {
            m_asked.Add(what + " " + m_name + " " + component.Name() + rest);
        }));
    m_components.back()->CodeModule().SetText(text);
    return *m_components.back();
}

void ScriptedProject::SaveAs(std::string_view fileName) {
    m_fileName = fileName;
    Dirty = false;
    m_calls.push_back("save " + m_name + " as " + m_fileName);
}

ScriptedComponent& ScriptedProject::Component(std::int32_t index) {
    return Numbered(m_components, index);
}

ScriptedComponent& ScriptedProject::Component(std::string_view nameOrFile) {
    ScriptedComponent* const component = FindComponent(nameOrFile);
    if (component == nullptr) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange, std::string(nameOrFile));
    }
    return *component;
}

ScriptedComponent* ScriptedProject::FindComponent(std::string_view nameOrFile) const {
    for (const auto& component : m_components) {
        if (modTextCase::Equal(component->Name(), nameOrFile) ||
            modTextCase::Equal(component->FileName(), nameOrFile) ||
            modTextCase::Equal(WithoutFolder(component->FileName()), nameOrFile)) {
            return component.get();
        }
    }
    return nullptr;
}

bool ScriptedProject::IsDirty() const {
    return Dirty || std::ranges::any_of(m_components, [](const auto& component) {
               return component->CodeModule().IsEdited();
           });
}

void ScriptedProject::SetSaved() {
    Dirty = false;
    NeverSaved = false;
    for (const auto& component : m_components) {
        component->CodeModule().SetSaved();
    }
}

/// The work bench's window.
class ScriptedHost::Window final : public ScriptedWindow {
public:
    Window(HostCalls& calls, IUserDocument& document, std::shared_ptr<IHostWindow*> self)
        : ScriptedWindow(calls, "workbench"), m_document(&document), m_self(std::move(self)) {
        *m_self = this;
    }
    ~Window() override { *m_self = nullptr; }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void SetVisible(bool visible) override {
        const bool isChange = visible != Visible();
        ScriptedWindow::SetVisible(visible);
        if (isChange && m_document != nullptr) {
            m_document->VisibleChanged(visible);
        }
    }
    void Close() override {
        ScriptedWindow::Close();
        m_document = nullptr;
    }

private:
    IUserDocument* m_document;
    std::shared_ptr<IHostWindow*> m_self;
};

ScriptedHost::ScriptedHost()
    : m_menuBar(CommandKind::Popup, CommandLook{.Caption = "Menu Bar"}),
      m_toolWindow(std::make_shared<IHostWindow*>(nullptr)) {}

ScriptedHost::~ScriptedHost() = default;

IHostWindow* ScriptedHost::ToolWindow() const {
    return *m_toolWindow;
}

ScriptedProject& ScriptedHost::AddProject(
    std::string name,
    std::string fileName,
    HostProjectType type,
    const std::function<void(ScriptedProject&)>& fill) {
    m_projects.push_back(std::make_unique<ScriptedProject>(
        Calls, Asked, std::move(name), std::move(fileName), type));
    ScriptedProject& project = *m_projects.back();
    if (fill) {
        fill(project);
    }
    if (m_active == nullptr) {
        m_active = &project;
    }
    m_events.ProjectAdded.Raise(project);
    return project;
}

void ScriptedHost::RemoveProject(std::string_view name) {
    const ScriptedProject& project = Project(name);
    const std::string removed = project.Name();
    const bool wasActive = m_active == &project;
    std::erase_if(m_projects, [&](const auto& item) { return item.get() == &project; });
    if (wasActive) {
        m_active = m_projects.empty() ? nullptr : m_projects.front().get();
    }
    m_events.ProjectRemoved.Raise(removed);
}

void ScriptedHost::ActivateProject(std::string_view name) {
    m_active = &Project(name);
    m_events.ProjectActivated.Raise(*m_active);
}

void ScriptedHost::RenameProject(std::string_view oldName, std::string newName) {
    ScriptedProject& project = Project(oldName);
    const bool isTaken = std::ranges::any_of(m_projects, [&](const auto& other) {
        return other.get() != &project && modTextCase::Equal(other->Name(), newName);
    });
    if (newName.empty() || isTaken) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall, newName);
    }
    const std::string old = project.Name();
    project.SetName(std::move(newName));
    project.Dirty = true;
    m_events.ProjectRenamed.Raise(project, old);
}

void ScriptedHost::RenameProjectFile(std::string_view project, std::string fileName) {
    ScriptedProject& renamed = Project(project);
    renamed.SetFileName(std::move(fileName));
    m_events.AfterChangeFileName.Raise(renamed, HostFileType::Project, renamed.FileName());
}

void ScriptedHost::RenameFile(
    std::string_view project, std::string_view oldName, std::string newName) {
    ScriptedComponent& component = Project(project).Component(oldName);
    const std::string old = component.Name();
    component.SetName(std::move(newName));
    m_events.FileRenamed.Raise(component, old);
}

void ScriptedHost::SelectFile(std::string_view project, std::string_view file) {
    ScriptedProject& owner = Project(project);
    m_events.FileSelected.Raise(owner, owner.Component(file));
}

ScriptedProject& ScriptedHost::Project(std::int32_t index) {
    return Numbered(m_projects, index);
}

ScriptedProject& ScriptedHost::Project(std::string_view name) {
    return TheOne(m_projects, [&](const ScriptedProject& project) {
        return modTextCase::Equal(project.Name(), name);
    });
}

std::unique_ptr<IHostWindow>
ScriptedHost::CreateToolWindow(const ToolWindowRequest& request, IUserDocument& document) {
    m_request = std::make_unique<ToolWindowRequest>(request);
    return std::make_unique<Window>(Calls, document, m_toolWindow);
}

CommandControl& ScriptedHost::AddCommandBar(std::string_view name) {
    CommandLook look;
    look.Caption = name;
    m_bars.push_back(std::make_unique<CommandControl>(CommandKind::Popup, std::move(look)));
    Calls.push_back("bar " + std::string(name) + " added");
    return *m_bars.back();
}

void ScriptedHost::RemoveCommandBar(CommandControl& bar) {
    Calls.push_back("bar " + bar.Look().Caption + " removed");
    std::erase_if(m_bars, [&](const auto& item) { return item.get() == &bar; });
}

void ScriptedHost::ExecuteCommand(std::int32_t id) {
    const std::string call = "command " + std::to_string(id);
    Calls.push_back(call);
    Asked.Add(id == 2578 ? "properties" : id == 942 ? "references" : call);
}

void ScriptedHost::BeginSave(IHostProject& project) {
    Calls.push_back("save " + project.Name());
    Asked.Add("save " + project.Name());
    m_busyTurnsLeft = BusyTurns;
    if (OnSave) {
        OnSave(Project(project.Name()));
    }
}

bool ScriptedHost::IsIdle() const {
    if (m_busyTurnsLeft == 0) {
        return true;
    }
    --m_busyTurnsLeft;
    return false;
}

}  // namespace dorvik::test
