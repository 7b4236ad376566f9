#pragma once

#include <string>
#include <vector>

namespace dorvik {

/// The project files that paths of this machine stand for.
struct FoundProjects {
    std::vector<std::string> Filenames;  // full paths with backslashes, each once, in order
    std::vector<std::string> Errors;     // a sentence for each path that stands for nothing
};

namespace modProjectFinder {

/// A ".vbp" stands for itself, a ".vbg" for its projects, a folder for every ".vbp" below it (in the
/// order of their names; links to folders are not followed).
FoundProjects FindProjects(const std::vector<std::string>& hostPaths, int codePage);

}  // namespace modProjectFinder

}  // namespace dorvik
