#include "cli/ProjectFinder.h"

#include "base/modTextCase.h"
#include "foundation/Trap.h"
#include "platform/modFiles.h"
#include "source/VirtualProjectGroup.h"
#include "source/modDorvikUtils.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace dorvik::modProjectFinder {

namespace {

namespace fs = std::filesystem;

void AddProject(FoundProjects& found, const std::string& filename) {
    if (std::find(found.Filenames.begin(), found.Filenames.end(), filename) ==
        found.Filenames.end()) {
        found.Filenames.push_back(filename);
    }
}

void AddFolder(FoundProjects& found, const fs::path& folder, int codePage) {
    std::vector<std::string> names;
    std::error_code error;
    fs::recursive_directory_iterator entry(
        folder, fs::directory_options::skip_permission_denied, error);
    for (const fs::recursive_directory_iterator end; !error && entry != end;
         entry.increment(error)) {
        std::error_code unreadable;
        if (modTextCase::EndsWith(entry->path().native(), ".vbp") &&
            entry->is_regular_file(unreadable)) {
            names.push_back(modFiles::FromHostPath(entry->path(), codePage));
        }
    }
    if (error) {
        found.Errors.push_back(
            "cannot read the folder '" + folder.string() + "': " + error.message());
    } else if (names.empty()) {
        found.Errors.push_back("there is no project file below '" + folder.string() + "'");
    }
    std::sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
        return modTextCase::Compare(left, right) < 0;
    });
    for (const std::string& name : names) {
        AddProject(found, name);
    }
}

void AddGroup(FoundProjects& found, const fs::path& group, int codePage) {
    std::vector<std::string> projects;
    const bool read = Trap({"modProjectFinder", "AddGroup"}, [&] {
        projects = VirtualProjectGroup(modFiles::FromHostPath(group, codePage), codePage)
                       .ProjectFilenames();
    });
    if (!read) {
        found.Errors.push_back("cannot read the project group '" + group.string() + "'");
    } else if (projects.empty()) {
        found.Errors.push_back("the project group '" + group.string() + "' names no project");
    }
    for (const std::string& project : projects) {
        AddProject(found, project);
    }
}

void AddPath(FoundProjects& found, const std::string& hostPath, int codePage) {
    std::error_code error;
    const fs::path path = fs::absolute(hostPath, error).lexically_normal();
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) {
        found.Errors.push_back("'" + hostPath + "' does not exist");
    } else if (fs::is_directory(status)) {
        AddFolder(found, path, codePage);
    } else if (modTextCase::EndsWith(path.native(), ".vbg")) {
        AddGroup(found, path, codePage);
    } else if (modDorvikUtils::IsVBPFile(path.native())) {
        AddProject(found, modFiles::FromHostPath(path, codePage));
    } else {
        found.Errors.push_back(
            "'" + hostPath + "' is no project file (.vbp) and no project group (.vbg)");
    }
}

}  // namespace

FoundProjects FindProjects(const std::vector<std::string>& hostPaths, int codePage) {
    FoundProjects found;
    for (const std::string& path : hostPaths) {
        AddPath(found, path, codePage);
    }
    return found;
}

}  // namespace dorvik::modProjectFinder
