#include "cli/commands/review/ProjectFinder.h"

#include "base/modTextCase.h"
#include "cli/output/modCommandPath.h"
#include "foundation/log/Trap.h"
#include "platform/host/modFiles.h"
#include "source/VirtualProjectGroup.h"
#include "source/modDorvikUtils.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unordered_set>

namespace dorvik::modProjectFinder {

namespace {

namespace fs = std::filesystem;

/// The projects found so far, each once, in the order in which they were found.
struct ProjectList {
    FoundProjects& Found;
    std::unordered_set<std::string> Known;
};

void AddProject(ProjectList& list, const std::string& filename) {
    if (list.Known.insert(filename).second) {
        list.Found.Filenames.push_back(filename);
    }
}

/// A backslash in a name, and not as a byte of another character, would divide it inside the program.
bool HasBackslash(const fs::path& path, int codePage) {
    return std::any_of(path.begin(), path.end(), [codePage](const fs::path& part) {
        return part != part.root_path() &&
               modFiles::FromHostPath(part, codePage).find('\\') != std::string::npos;
    });
}

/// False, with a sentence, for a path that would mean another one inside the program.
bool RequirePlainPath(FoundProjects& found, const fs::path& path, int codePage) {
    const bool isPlain = !HasBackslash(path, codePage);
    if (!isPlain) {
        found.Errors.push_back(
            "'" + path.string() +
            "' has a backslash in its path, which separates folders in project files, and cannot "
            "be reviewed; rename it");
    }
    return isPlain;
}

/// Searches a folder, with a sentence for each folder below it that cannot be read.
class FolderSearch {
public:
    FolderSearch(FoundProjects& found, int codePage) : m_found(found), m_codePage(codePage) {}

    /// The project files below the folder, in no order.
    std::vector<std::string> ProjectsBelow(const fs::path& folder) {
        m_left.push_back(folder);
        while (!m_left.empty()) {
            const fs::path next = std::move(m_left.back());
            m_left.pop_back();
            Read(next);
        }
        return std::move(m_projects);
    }

private:
    void Read(const fs::path& folder) {
        std::error_code error;
        fs::directory_iterator entry(folder, error);
        for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
            std::error_code unreadable;
            if (!entry->is_symlink(unreadable) && entry->is_directory(unreadable)) {
                m_left.push_back(entry->path());
            } else if (
                modTextCase::EndsWith(entry->path().native(), ".vbp") &&
                entry->is_regular_file(unreadable)) {
                Take(entry->path());
            }
        }
        if (error) {
            m_found.Errors.push_back(
                "cannot read the folder '" + folder.string() + "': " + error.message());
        }
    }

    void Take(const fs::path& project) {
        if (RequirePlainPath(m_found, project, m_codePage)) {
            m_projects.push_back(modFiles::FromHostPath(project, m_codePage));
        }
    }

    FoundProjects& m_found;
    int m_codePage;
    std::vector<fs::path> m_left;
    std::vector<std::string> m_projects;
};

void AddFolder(ProjectList& list, const fs::path& folder, int codePage) {
    FoundProjects& found = list.Found;
    const std::size_t errorsBefore = found.Errors.size();
    std::vector<std::string> names = FolderSearch(found, codePage).ProjectsBelow(folder);
    if (names.empty() && found.Errors.size() == errorsBefore) {
        found.Errors.push_back("there is no project file in or below '" + folder.string() + "'");
    }
    std::sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
        return modTextCase::Compare(left, right) < 0;
    });
    for (const std::string& name : names) {
        AddProject(list, name);
    }
}

void AddGroup(ProjectList& list, const fs::path& group, int codePage) {
    std::vector<std::string> projects;
    const bool read = Trap({"modProjectFinder", "AddGroup"}, [&] {
        projects = VirtualProjectGroup(modFiles::FromHostPath(group, codePage), codePage)
                       .ProjectFilenames();
    });
    if (!read) {
        list.Found.Errors.push_back("cannot read the project group '" + group.string() + "'");
    } else if (projects.empty()) {
        list.Found.Errors.push_back("the project group '" + group.string() + "' names no project");
    }
    for (const std::string& project : projects) {
        AddProject(list, project);
    }
}

void AddPath(ProjectList& list, const std::string& hostPath, int codePage) {
    std::error_code error;
    const fs::path path = hostPath.empty() ? fs::path() : modCommandPath::Absolute(hostPath);
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) {
        list.Found.Errors.push_back("'" + hostPath + "' does not exist");
        return;
    }
    if (!RequirePlainPath(list.Found, path, codePage)) {
        return;
    }
    if (fs::is_directory(status)) {
        AddFolder(list, path, codePage);
    } else if (modTextCase::EndsWith(path.native(), ".vbg")) {
        AddGroup(list, path, codePage);
    } else if (modDorvikUtils::IsVBPFile(path.native())) {
        AddProject(list, modFiles::FromHostPath(path, codePage));
    } else {
        list.Found.Errors.push_back(
            "'" + hostPath + "' is neither a project file (.vbp) nor a project group (.vbg)");
    }
}

}  // namespace

FoundProjects FindProjects(const std::vector<std::string>& hostPaths, int codePage) {
    FoundProjects found;
    ProjectList list{found, {}};
    for (const std::string& path : hostPaths) {
        AddPath(list, path, codePage);
    }
    return found;
}

}  // namespace dorvik::modProjectFinder
