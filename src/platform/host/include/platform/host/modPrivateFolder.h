#pragma once

#include <string>
#include <string_view>

/// Folders for what one run of the program needs on disk and takes away at its end.
namespace dorvik::modPrivateFolder {

/// Creates a folder below `parent` that no other user can read. Its name is `prefix`, the number of this
/// process and a suffix that no one has. The path ends in a backslash. Raises as `modFiles` does.
std::string Create(std::string_view parent, std::string_view prefix);

/// Removes the folders below `parent` that a killed run left behind: those that `Create` named
/// so, whose process is gone, that no one touched for an hour, and that hold nothing but the file
/// `filename`. Whatever cannot be removed stays; nothing is raised.
void RemoveAbandoned(std::string_view parent, std::string_view prefix, std::string_view filename);

}  // namespace dorvik::modPrivateFolder
