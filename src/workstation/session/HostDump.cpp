#include "workstation/session/HostDump.h"

#include "base/BasicError.h"
#include "foundation/log/Trap.h"
#include "workstation/filehost/FileHost.h"

#include <utility>

namespace dorvik {

namespace {

std::string NoProject(std::string_view name) {
    return "there is no project '" + std::string(name) + "'";
}

std::string NoFile(std::string_view file) {
    return "there is no file '" + std::string(file) + "'";
}

bool IsOutside(const BasicError& failure) {
    return failure.Number() == runtimeerror::kSubscriptOutOfRange;
}

/// Does what the environment may refuse: `missing` is said of something that is not there.
template <typename Action>
SessionRefusal Try(const std::string& missing, Action&& action) {
    SessionRefusal refusal;
    Handled(std::forward<Action>(action), [&](const BasicError& failure) {
        refusal = IsOutside(failure) ? missing : std::string(failure.what());
        return true;
    });
    return refusal;
}

template <typename Action>
SessionRefusal
Change(FileHost& host, std::string_view file, std::int32_t line, const Action& action) {
    FileComponent* component = host.FindComponent(file);
    if (component == nullptr) {
        return NoFile(file);
    }
    const std::string missing = "'" + component->Name() + "' has no line " + std::to_string(line);
    return Try(missing, [&] { action(component->CodeModule()); });
}

void WriteModule(FileCodeModule& module, JsonWriter& writer) {
    writer.Key("lines");
    writer.StartArray();
    for (const std::string& text : module.Texts()) {
        modSessionJson::Text(writer, text);
    }
    writer.EndArray();
    modSessionJson::Member(writer, "top", module.CodePane().TopLine());
    const CodeRange selection = module.CodePane().Selection();
    writer.Key("selection");
    writer.StartArray();
    for (const std::int32_t place :
         {selection.StartLine, selection.StartColumn, selection.EndLine, selection.EndColumn}) {
        writer.Int(place);
    }
    writer.EndArray();
}

}  // namespace

void modHostDump::WriteHost(FileHost& host, JsonWriter& writer) {
    writer.Key("calls");
    writer.StartArray();
    for (const std::string& call : host.Calls().Calls()) {
        modSessionJson::Text(writer, call);
    }
    writer.EndArray();
}

SessionRefusal modHostDump::WriteCode(FileHost& host, std::string_view file, JsonWriter& writer) {
    FileComponent* component = host.FindComponent(file);
    if (component == nullptr) {
        return NoFile(file);
    }
    FileCodeModule* module = nullptr;
    SessionRefusal refusal = Try(NoFile(file), [&] { module = &component->CodeModule(); });
    if (!refusal) {
        WriteModule(*module, writer);
    }
    return refusal;
}

SessionRefusal modHostCommands::Open(FileHost& host, std::string_view path) {
    return host.Open(path) ? SessionRefusal()
                           : "nothing was opened from '" + std::string(path) + "'";
}

SessionRefusal modHostCommands::Close(FileHost& host, std::string_view project) {
    return Try(NoProject(project), [&] { host.CloseProject(project); });
}

SessionRefusal
modHostCommands::Rename(FileHost& host, std::string_view oldName, std::string_view newName) {
    return Try(NoProject(oldName), [&] { host.RenameProject(oldName, newName); });
}

SessionRefusal modHostCommands::Activate(FileHost& host, std::string_view project) {
    return Try(NoProject(project), [&] { host.ActivateProject(project); });
}

SessionRefusal modHostCommands::SelectFile(FileHost& host, std::string_view file) {
    return Try(NoFile(file), [&] { host.SelectFile(file); });
}

SessionRefusal modHostCommands::SetDirty(FileHost& host, std::string_view project, bool dirty) {
    return Try(NoProject(project), [&] { host.Project(project).SetDirty(dirty); });
}

SessionRefusal
modHostCommands::SetNeverSaved(FileHost& host, std::string_view project, bool neverSaved) {
    return Try(NoProject(project), [&] { host.Project(project).SetNeverSaved(neverSaved); });
}

SessionRefusal modHostCommands::Edit(
    FileHost& host, std::string_view file, std::int32_t line, std::string_view text) {
    return Change(
        host, file, line, [&](FileCodeModule& module) { module.ReplaceLine(line, text); });
}

SessionRefusal modHostCommands::Insert(
    FileHost& host, std::string_view file, std::int32_t line, std::string_view text) {
    return Change(
        host, file, line, [&](FileCodeModule& module) { module.InsertLines(line, text); });
}

SessionRefusal modHostCommands::Delete(FileHost& host, std::string_view file, std::int32_t line) {
    return Change(host, file, line, [&](FileCodeModule& module) { module.DeleteLines(line, 1); });
}

SessionRefusal modHostCommands::Save(FileHost& host, const std::optional<std::string>& project) {
    bool isSaved = false;
    SessionRefusal refusal = Try(NoProject(project.value_or("")), [&] {
        isSaved = project ? host.Project(*project).Save() : host.SaveAll();
    });
    if (!refusal && !isSaved) {
        refusal = "not all could be saved";
    }
    return refusal;
}

}  // namespace dorvik
