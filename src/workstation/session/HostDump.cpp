#include "workstation/session/HostDump.h"

#include "base/BasicError.h"
#include "foundation/log/Trap.h"
#include "workstation/session/ISessionHost.h"
#include "workstation/session/SessionJson.h"

#include <array>
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

/// Changes a line of a file.
template <typename Action>
SessionRefusal
Change(ISessionHost& host, std::string_view file, std::int32_t line, Action&& action) {
    const IHostComponent* const component = host.FindComponent(file);
    if (component == nullptr) {
        return NoFile(file);
    }
    return Try(
        "'" + component->Name() + "' has no line " + std::to_string(line),
        std::forward<Action>(action));
}

std::string DumpModule(ICodeModule& module) {
    return modSessionJson::Dump("code", [&](JsonWriter& writer) {
        const auto count = static_cast<std::size_t>(module.CountOfLines());
        modSessionJson::CountedArray(writer, "lines", count, [&](std::size_t index) {
            modSessionJson::Text(writer, module.Lines(static_cast<std::int32_t>(index) + 1, 1));
        });
        modSessionJson::Member(writer, "top", module.CodePane().TopLine());
        const CodeRange selection = module.CodePane().Selection();
        const std::array places{
            selection.StartLine, selection.StartColumn, selection.EndLine, selection.EndColumn};
        modSessionJson::Array(
            writer, "selection", places, [&](std::int32_t place) { writer.Int(place); });
    });
}

}  // namespace

std::string modHostDump::DumpHost(ISessionHost& host) {
    return modSessionJson::Dump("host", [&](JsonWriter& writer) {
        modSessionJson::Array(writer, "calls", host.Calls().Calls(), [&](const std::string& call) {
            modSessionJson::Text(writer, call);
        });
    });
}

SessionRefusal modHostDump::DumpCode(ISessionHost& host, std::string_view file, std::string& json) {
    IHostComponent* const component = host.FindComponent(file);
    if (component == nullptr) {
        return NoFile(file);
    }
    ICodeModule* module = nullptr;
    SessionRefusal refusal = Try(NoFile(file), [&] { module = &component->CodeModule(); });
    if (!refusal) {
        json = DumpModule(*module);
    }
    return refusal;
}

SessionRefusal modHostCommands::Open(ISessionHost& host, std::string_view path) {
    return host.Open(path) ? SessionRefusal()
                           : "nothing was opened from '" + std::string(path) + "'";
}

SessionRefusal modHostCommands::Close(ISessionHost& host, std::string_view project) {
    return Try(NoProject(project), [&] { host.CloseProject(project); });
}

SessionRefusal
modHostCommands::Rename(ISessionHost& host, std::string_view oldName, std::string_view newName) {
    return Try(NoProject(oldName), [&] { host.RenameProject(oldName, newName); });
}

SessionRefusal modHostCommands::Activate(ISessionHost& host, std::string_view project) {
    return Try(NoProject(project), [&] { host.ActivateProject(project); });
}

SessionRefusal modHostCommands::SelectFile(ISessionHost& host, std::string_view file) {
    return Try(NoFile(file), [&] { host.SelectFile(file); });
}

SessionRefusal modHostCommands::SetDirty(ISessionHost& host, std::string_view project, bool dirty) {
    return Try(NoProject(project), [&] { host.SetDirty(project, dirty); });
}

SessionRefusal
modHostCommands::SetNeverSaved(ISessionHost& host, std::string_view project, bool neverSaved) {
    return Try(NoProject(project), [&] { host.SetNeverSaved(project, neverSaved); });
}

SessionRefusal modHostCommands::Edit(
    ISessionHost& host, std::string_view file, std::int32_t line, std::string_view text) {
    return Change(host, file, line, [&] { host.ReplaceLine(file, line, text); });
}

SessionRefusal modHostCommands::Insert(
    ISessionHost& host, std::string_view file, std::int32_t line, std::string_view text) {
    return Change(host, file, line, [&] { host.InsertLine(file, line, text); });
}

SessionRefusal
modHostCommands::Delete(ISessionHost& host, std::string_view file, std::int32_t line) {
    return Change(host, file, line, [&] { host.DeleteLine(file, line); });
}

SessionRefusal
modHostCommands::Save(ISessionHost& host, const std::optional<std::string>& project) {
    bool isSaved = false;
    SessionRefusal refusal = Try(NoProject(project.value_or("")), [&] {
        isSaved = project ? host.Save(*project) : host.SaveAll();
    });
    if (!refusal && !isSaved) {
        refusal = "not all could be saved";
    }
    return refusal;
}

}  // namespace dorvik
