#include "ScriptedSessionHost.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "support/FilesystemPaths.h"
#include "support/LineText.h"

#include <array>
#include <fstream>
#include <iterator>
#include <optional>

namespace dorvik::test {

namespace {

using Lines = std::vector<std::string>;

constexpr std::array<std::pair<std::string_view, HostProjectType>, 4> kTypes{{
    {"Exe", HostProjectType::StandardExe},
    {"OleExe", HostProjectType::ActiveXExe},
    {"OleDll", HostProjectType::ActiveXDll},
    {"Control", HostProjectType::ActiveXControl},
}};

/// None for a file that is not there.
Lines LinesOfFile(std::string_view path) {
    std::ifstream stream(FilesystemPath(path), std::ios::binary);
    return LinesOf(std::string(std::istreambuf_iterator<char>(stream), {}));
}

std::string_view FolderOf(std::string_view path) {
    return path.substr(0, path.find_last_of('\\') + 1);
}

/// What follows "KEY=" in a line, without quotes; nothing for another key.
std::optional<std::string> ValueOf(std::string_view key, std::string_view line) {
    if (!line.starts_with(std::string(key) + "=")) {
        return std::nullopt;
    }
    std::string value(line.substr(key.size() + 1));
    std::erase(value, '"');
    return value;
}

/// What follows the first `mark` of a text, without blanks around it; the text where it has none.
std::string After(std::string_view mark, std::string_view text) {
    const std::size_t place = text.find(mark);
    return std::string(
        modText::Trim(place == std::string_view::npos ? text : text.substr(place + mark.size())));
}

bool IsAttribute(std::string_view line) {
    return line.starts_with("Attribute ");
}

/// What the code window shows: all after the attribute of the name but attributes.
std::string CodeOf(const Lines& lines) {
    std::string code;
    bool isCode = false;
    for (const std::string& line : lines) {
        if (isCode && !IsAttribute(line)) {
            code += line + "\n";
        }
        isCode = isCode || IsAttribute(line);
    }
    return code;
}

std::string NameIn(const Lines& lines) {
    for (const std::string& line : lines) {
        if (auto name = ValueOf("Attribute VB_Name ", line)) {
            return After(" ", *name);
        }
    }
    return {};
}

/// The controls of a layout: "Begin TYPE NAME", with their "Index = N".
void AddControls(const Lines& lines, ScriptedDesigner& designer) {
    struct Control {
        std::string Name;
        std::optional<std::int32_t> Index;
    };
    std::vector<Control> controls;
    for (const std::string& line : lines) {
        const std::string text(modText::Trim(line));
        if (IsAttribute(text)) {
            break;
        }
        if (text.starts_with("Begin ")) {
            controls.push_back({After(" ", After(" ", text)), std::nullopt});
        } else if (text.starts_with("Index ")) {
            controls.back().Index = modText::WholeNumber(After("=", text));
        }
    }
    for (std::size_t place = 1; place < controls.size(); ++place) {  // after the form itself
        designer.AddControl(controls[place].Name, controls[place].Index);
    }
}

void AddComponents(const Lines& lines, std::string_view folder, ScriptedProject& project) {
    for (const std::string& line : lines) {
        for (const std::string_view key : {"Form", "Module", "Class"}) {
            const auto value = ValueOf(key, line);
            if (!value) {
                continue;
            }
            const std::string file = std::string(folder) + After(";", *value);
            const Lines text = LinesOfFile(file);
            ScriptedComponent& component = project.AddComponent(NameIn(text), CodeOf(text), file);
            if (key == "Form") {
                AddControls(text, component.MakeForm());
            }
        }
    }
}

bool OpenProject(ScriptedHost& host, const std::string& path) {
    const Lines lines = LinesOfFile(path);
    std::string name;
    HostProjectType type = HostProjectType::StandardExe;
    for (const std::string& line : lines) {
        if (const auto value = ValueOf("Name", line)) {
            name = *value;
        }
        for (const auto& [text, ofText] : kTypes) {
            type = ValueOf("Type", line) == text ? ofText : type;
        }
    }
    if (name.empty()) {
        return false;
    }
    host.AddProject(name, path, type, [&](ScriptedProject& project) {
        AddComponents(lines, FolderOf(path), project);
    });
    if (host.ProjectCount() == 1) {
        host.ActivateProject(name);
    }
    return true;
}

}  // namespace

ScriptedSessionHost::ScriptedSessionHost() {
    m_host.BusyTurns = 2;
    m_host.OnSave = [this](ScriptedProject& project) {
        Save(project);
    };
}

bool ScriptedSessionHost::Open(std::string_view path) {
    if (!path.ends_with(".vbg")) {
        return OpenProject(m_host, std::string(path));
    }
    bool isOpened = false;
    for (const std::string& line : LinesOfFile(path)) {
        for (const std::string_view key : {"StartupProject", "Project"}) {
            if (const auto file = ValueOf(key, line)) {
                isOpened = OpenProject(m_host, std::string(FolderOf(path)) + *file) || isOpened;
            }
        }
    }
    return isOpened;
}

ScriptedProject* ScriptedSessionHost::ProjectOf(std::string_view file) {
    ScriptedProject* const active = m_host.ActiveProject();
    if (active != nullptr && active->FindComponent(file) != nullptr) {
        return active;
    }
    for (std::int32_t index = 1; index <= m_host.ProjectCount(); ++index) {
        if (m_host.Project(index).FindComponent(file) != nullptr) {
            return &m_host.Project(index);
        }
    }
    return nullptr;
}

ScriptedComponent* ScriptedSessionHost::FindComponent(std::string_view file) {
    ScriptedProject* const project = ProjectOf(file);
    return project == nullptr ? nullptr : project->FindComponent(file);
}

ScriptedModule& ScriptedSessionHost::Module(std::string_view file) {
    ScriptedComponent* const component = FindComponent(file);
    if (component == nullptr) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange, std::string(file));
    }
    return component->CodeModule();
}

void ScriptedSessionHost::SelectFile(std::string_view file) {
    ScriptedProject* const project = ProjectOf(file);
    if (project == nullptr) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange, std::string(file));
    }
    if (project != m_host.ActiveProject()) {
        m_host.ActivateProject(project->Name());
    }
    m_host.SelectFile(project->Name(), file);
}

void ScriptedSessionHost::Save(ScriptedProject& project) {
    const bool isNew = project.NeverSaved;
    project.SetSaved();
    if (isNew) {
        m_host.RenameProjectFile(project.Name(), project.FileName());
    }
}

bool ScriptedSessionHost::Save(std::string_view project) {
    Save(m_host.Project(project));
    return true;
}

bool ScriptedSessionHost::SaveAll() {
    for (std::int32_t index = 1; index <= m_host.ProjectCount(); ++index) {
        ScriptedProject& project = m_host.Project(index);
        if (project.IsDirty() || project.NeverSaved) {
            Save(project);
        }
    }
    return true;
}

void ScriptedSessionHost::ReplaceLine(
    std::string_view file, std::int32_t line, std::string_view text) {
    Module(file).ReplaceLine(line, text);
}

void ScriptedSessionHost::InsertLine(
    std::string_view file, std::int32_t line, std::string_view text) {
    Module(file).InsertLine(line, text);
}

void ScriptedSessionHost::DeleteLine(std::string_view file, std::int32_t line) {
    Module(file).DeleteLine(line);
}

}  // namespace dorvik::test
