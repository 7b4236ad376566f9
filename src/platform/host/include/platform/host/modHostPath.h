#pragma once

#include "platform/host/HostPath.h"

#include <optional>
#include <string>
#include <string_view>

/// Converts between the paths of this machine and the texts for them: the program's own paths (see `modFiles`), what
/// a user types, what a person reads, and what the database engine takes.
namespace dorvik::modHostPath {

/// Means the code page last given to `SetNameCodePage`.
inline constexpr int kNameCodePage = 0;

/// The code page of names on disk that are not UTF-8; `modEncoding::kDefaultCodePage` at first.
void SetNameCodePage(int codePage);

/// The path for one of the program's. `..` parts are taken off as text, as Windows does. Where nothing has exactly
/// this path, each part is looked up without regard to case, trailing blanks and dots; what is
/// found nowhere is kept as written, so a new file lands in the folder that was meant. Names on disk
/// that are not UTF-8 are compared through `codePage`. Empty for a place that cannot exist here.
HostPath FromProgram(std::string_view path, int codePage = kNameCodePage);
/// The program's path; nothing is looked up, a relative path stays relative.
std::string ToProgram(const HostPath& path, int codePage = kNameCodePage);
/// False where the program's path would mean another one, because a name in this one holds its separator.
bool HasProgramForm(const HostPath& path, int codePage = kNameCodePage);

/// The whole path for one that a user typed, `..` parts taken off as text. Raises 76 for an empty text, and
/// where the path is relative and the working folder is not there any more.
HostPath FromUser(const std::string& typed);
/// The same, but a relative path stays relative. Raises nothing.
HostPath FromUserRelative(const std::string& typed);

/// As a person knows it; not yet harmless for a terminal.
std::string Shown(const HostPath& path);
/// As the database engine opens it.
std::string ForEngine(const HostPath& path);

/// True where both lead to one and the same file or folder.
bool IsSameFile(const HostPath& left, const HostPath& right);
/// Where the path leads, links followed; nothing where it leads nowhere.
std::optional<HostPath> RealPath(const HostPath& path);

}  // namespace dorvik::modHostPath
