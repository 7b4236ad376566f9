#pragma once

#include "workstation/session/SessionJson.h"
#include "workstation/session/SessionRefusal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class FileHost;

/// What a session prints of the environment: the members of the dumps "host" and "code".
namespace modHostDump {

/// The calls so far. They stay; the caller takes them off the list of the host.
void WriteHost(FileHost& host, JsonWriter& writer);
/// The module of a component by its name or file. Refused, with nothing written, where there is none.
SessionRefusal WriteCode(FileHost& host, std::string_view file, JsonWriter& writer);

}  // namespace modHostDump

/// What a session's user does in the environment. Files are named by component or file, lines count from 1.
namespace modHostCommands {

/// `path` is the program's own.
SessionRefusal Open(FileHost& host, std::string_view path);
SessionRefusal Close(FileHost& host, std::string_view project);
SessionRefusal Rename(FileHost& host, std::string_view oldName, std::string_view newName);
SessionRefusal Activate(FileHost& host, std::string_view project);
SessionRefusal SelectFile(FileHost& host, std::string_view file);
SessionRefusal SetDirty(FileHost& host, std::string_view project, bool dirty);
SessionRefusal SetNeverSaved(FileHost& host, std::string_view project, bool neverSaved);
SessionRefusal
Edit(FileHost& host, std::string_view file, std::int32_t line, std::string_view text);
/// In front of the line; the one after the last is allowed.
SessionRefusal
Insert(FileHost& host, std::string_view file, std::int32_t line, std::string_view text);
SessionRefusal Delete(FileHost& host, std::string_view file, std::int32_t line);
/// One project, or all.
SessionRefusal Save(FileHost& host, const std::optional<std::string>& project);

}  // namespace modHostCommands

}  // namespace dorvik
