#pragma once

#include "workstation/session/SessionRefusal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class ISessionHost;

/// What a session prints of the environment, each a line of JSON.
namespace modHostDump {

/// The calls so far. They stay; the caller takes them off the list of the host.
std::string DumpHost(ISessionHost& host);
/// The module of a component by its name or file. Refused where there is none.
SessionRefusal DumpCode(ISessionHost& host, std::string_view file, std::string& json);

}  // namespace modHostDump

/// What a session's user does in the environment. Files are named by component or file, lines count from 1.
namespace modHostCommands {

/// `path` is the program's own.
SessionRefusal Open(ISessionHost& host, std::string_view path);
SessionRefusal Close(ISessionHost& host, std::string_view project);
SessionRefusal Rename(ISessionHost& host, std::string_view oldName, std::string_view newName);
SessionRefusal Activate(ISessionHost& host, std::string_view project);
SessionRefusal SelectFile(ISessionHost& host, std::string_view file);
SessionRefusal SetDirty(ISessionHost& host, std::string_view project, bool dirty);
SessionRefusal SetNeverSaved(ISessionHost& host, std::string_view project, bool neverSaved);
SessionRefusal
Edit(ISessionHost& host, std::string_view file, std::int32_t line, std::string_view text);
/// In front of the line; the one after the last is allowed.
SessionRefusal
Insert(ISessionHost& host, std::string_view file, std::int32_t line, std::string_view text);
SessionRefusal Delete(ISessionHost& host, std::string_view file, std::int32_t line);
/// One project, or all.
SessionRefusal Save(ISessionHost& host, const std::optional<std::string>& project);

}  // namespace modHostCommands

}  // namespace dorvik
