#pragma once

#include "workstation/host/HostCallList.h"
#include "workstation/host/IHostEnvironment.h"
#include "workstation/support/ScriptedCode.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// Notes "select CONTROL" or "select CONTROL(INDEX)", and "deselect ..." for one that was selected.
class ScriptedControl final : public IDesignerControl {
public:
    ScriptedControl(HostCalls& calls, std::string name, std::optional<std::int32_t> index)
        : m_calls(calls), m_name(std::move(name)), m_index(index) {}

    const std::string& Name() const override { return m_name; }
    std::optional<std::int32_t> Index() const override { return m_index; }
    bool Selected() const override { return m_selected; }
    void SetSelected(bool selected) override;

    std::function<void(const ScriptedControl&)> OnSelected;

private:
    HostCalls& m_calls;
    std::string m_name;
    std::optional<std::int32_t> m_index;
    bool m_selected = false;
};

class ScriptedDesigner final : public IDesigner {
public:
    explicit ScriptedDesigner(HostCalls& calls) : m_calls(calls) {}

    bool IsForm = true;
    std::function<void(const ScriptedControl&)> OnSelected;
    ScriptedControl& AddControl(std::string name, std::optional<std::int32_t> index = {});

    bool IsFormDesigner() const override { return IsForm; }
    std::int32_t ControlCount() const override {
        return static_cast<std::int32_t>(m_controls.size());
    }
    ScriptedControl& Control(std::int32_t index) override;
    ScriptedControl* FindControl(std::string_view name, std::optional<std::int32_t> index) override;

private:
    HostCalls& m_calls;
    std::vector<std::unique_ptr<ScriptedControl>> m_controls;
};

/// Its designer's window notes itself as "designer NAME".
class ScriptedComponent final : public IHostComponent {
public:
    /// `ask` takes what the add-in does with the component in the words of a session, without those for project and file:
    /// "show-line", "7".
    using Ask = std::function<void(
        const ScriptedComponent&, const std::string& what, const std::string& rest)>;

    ScriptedComponent(HostCalls& calls, std::string name, std::string fileName, Ask ask);

    /// From now on the component is a form. The designer's controls are added by the test.
    ScriptedDesigner& MakeForm();
    /// Without an event; see `ScriptedHost::RenameFile`.
    void SetName(std::string name) { m_name = std::move(name); }

    const std::string& Name() const override { return m_name; }
    const std::string& FileName() const override { return m_fileName; }
    ScriptedModule& CodeModule() override { return m_module; }
    IHostWindow* DesignerWindow() override { return m_designerWindow.get(); }
    ScriptedDesigner* Designer() override { return m_designer.get(); }

private:
    HostCalls& m_calls;
    Ask m_ask;
    std::string m_name;
    std::string m_fileName;
    ScriptedModule m_module;
    std::unique_ptr<ScriptedWindow> m_designerWindow;
    std::unique_ptr<ScriptedDesigner> m_designer;
};

class ScriptedProject final : public IHostProject {
public:
    ScriptedProject(
        HostCalls& calls,
        HostCallList& asked,
        std::string name,
        std::string fileName,
        HostProjectType type)
        : m_calls(calls),
          m_asked(asked),
          m_name(std::move(name)),
          m_fileName(std::move(fileName)),
          m_type(type) {}

    /// Has changes of its own that are not saved.
    bool Dirty = false;
    /// Has no file name until it is saved.
    bool NeverSaved = false;
    /// `text` is the code. The file is `<name>.bas` in the project's folder unless one is given.
    ScriptedComponent&
    AddComponent(const std::string& name, std::string_view text = {}, std::string fileName = {});
    void SetName(std::string name) { m_name = std::move(name); }
    void SetFileName(std::string fileName) { m_fileName = std::move(fileName); }
    /// As if the user had saved all of it. Nothing is written, and no event is raised.
    void SetSaved();
    /// Null where there is none.
    ScriptedComponent* FindComponent(std::string_view nameOrFile) const;

    const std::string& Name() const override { return m_name; }
    const std::string& FileName() const override { return NeverSaved ? m_noFileName : m_fileName; }
    HostProjectType Type() const override { return m_type; }
    /// It, or the code of a component.
    bool IsDirty() const override;
    void SaveAs(std::string_view fileName) override;
    std::int32_t ComponentCount() const override {
        return static_cast<std::int32_t>(m_components.size());
    }
    ScriptedComponent& Component(std::int32_t index) override;
    ScriptedComponent& Component(std::string_view nameOrFile) override;

private:
    HostCalls& m_calls;
    HostCallList& m_asked;
    std::string m_name;
    std::string m_fileName;
    std::string m_noFileName;
    HostProjectType m_type;
    std::vector<std::unique_ptr<ScriptedComponent>> m_components;
};

/// An environment that a test writes: what is open in it, what the user does, and what it was asked for.
///
/// Besides the notes of the classes above, `Calls` has "command ID", "save PROJECT", "bar NAME added" and "bar NAME
/// removed". The tool window is noted as "workbench". `Asked` has what a session prints of it.
class ScriptedHost final : public IHostEnvironment {
public:
    ScriptedHost();
    ~ScriptedHost() override;

    HostCalls Calls;
    HostCallList Asked;
    /// What the user does in the environment's save command; nothing unless a test says otherwise.
    std::function<void(ScriptedProject&)> OnSave;
    /// How often `IsIdle` denies after a save.
    int BusyTurns = 0;
    /// What the tool window was made with; null in front of that.
    const ToolWindowRequest* LastToolWindowRequest() const { return m_request.get(); }
    /// Null once the add-in has let go of it.
    IHostWindow* ToolWindow() const;

    /// What the user does. Each raises its events. `fill` adds the components before that.
    ScriptedProject& AddProject(
        std::string name,
        std::string fileName,
        HostProjectType type = HostProjectType::StandardExe,
        const std::function<void(ScriptedProject&)>& fill = {});
    void RemoveProject(std::string_view name);
    void ActivateProject(std::string_view name);
    /// Raises `kInvalidProcedureCall` for an empty name and one that another project has.
    void RenameProject(std::string_view oldName, std::string newName);
    void RenameProjectFile(std::string_view project, std::string fileName);
    void RenameFile(std::string_view project, std::string_view oldName, std::string newName);
    void SelectFile(std::string_view project, std::string_view file);

    std::int32_t ProjectCount() const override {
        return static_cast<std::int32_t>(m_projects.size());
    }
    ScriptedProject& Project(std::int32_t index) override;
    ScriptedProject& Project(std::string_view name) override;
    /// The one that was activated last; the first while there was none.
    ScriptedProject* ActiveProject() override { return m_active; }
    std::unique_ptr<IHostWindow>
    CreateToolWindow(const ToolWindowRequest& request, IUserDocument& document) override;
    CommandControl& MenuBar() override { return m_menuBar; }
    CommandControl& AddCommandBar(std::string_view name) override;
    void RemoveCommandBar(CommandControl& bar) override;
    void ExecuteCommand(std::int32_t id) override;
    void BeginSave(IHostProject& project) override;
    bool IsIdle() const override;
    HostEvents& Events() override { return m_events; }

    const std::vector<std::unique_ptr<CommandControl>>& CommandBars() const { return m_bars; }

private:
    class Window;

    std::vector<std::unique_ptr<ScriptedProject>> m_projects;
    ScriptedProject* m_active = nullptr;
    CommandControl m_menuBar;
    std::vector<std::unique_ptr<CommandControl>> m_bars;
    std::unique_ptr<ToolWindowRequest> m_request;
    std::shared_ptr<IHostWindow*> m_toolWindow;  // the window clears it when it goes
    mutable int m_busyTurnsLeft = 0;
    HostEvents m_events;
};

}  // namespace dorvik::test
