#pragma once

namespace dorvik {

class VirtualProject;

/// Projects that are open in the environment.
namespace modOpenProject {

/// Reads the lists of a project from its file. It keeps the name that it has in the environment, also where its file has
/// another yet; one that cannot be read stays as it was.
void Read(VirtualProject& project);

}  // namespace modOpenProject

}  // namespace dorvik
