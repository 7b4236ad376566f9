#include "source/ProjectFinder.h"

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "platform/host/modHostFolder.h"
#include "platform/host/modHostPath.h"
#include "source/VirtualProjectGroup.h"
#include "source/modDorvikUtils.h"

#include <algorithm>
#include <unordered_set>

namespace dorvik::modProjectFinder {

namespace {

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

/// False, with a sentence, for a path that would mean another one inside the program.
bool RequirePlainPath(FoundProjects& found, const HostPath& path, int codePage) {
    const bool isPlain = modHostPath::HasProgramForm(path, codePage);
    if (!isPlain) {
        found.Errors.push_back(
            "'" + modHostPath::Shown(path) +
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
    std::vector<std::string> ProjectsBelow(const HostPath& folder) {
        m_left.push_back(folder);
        while (!m_left.empty()) {
            const HostPath next = std::move(m_left.back());
            m_left.pop_back();
            Read(next);
        }
        return std::move(m_projects);
    }

private:
    void Read(const HostPath& folder) {
        const modHostFolder::FolderContent content = modHostFolder::Entries(folder);
        for (const modHostFolder::Entry& entry : content.Entries) {
            const HostPath path = folder / entry.Name;
            const FileKind kind =
                entry.Kind == FileKind::Unknown ? modHostFolder::KindOfEntry(path) : entry.Kind;
            if (kind == FileKind::Folder) {
                m_left.push_back(path);
            } else if (
                modTextCase::EndsWith(entry.Name, ".vbp") &&
                modHostFolder::KindOf(path) == FileKind::File) {
                Take(path);
            }
        }
        if (content.Failure) {
            m_found.Errors.push_back(
                "cannot read the folder '" + modHostPath::Shown(folder) + "': " + content.Reason);
        }
    }

    void Take(const HostPath& project) {
        if (RequirePlainPath(m_found, project, m_codePage)) {
            m_projects.push_back(modHostPath::ToProgram(project, m_codePage));
        }
    }

    FoundProjects& m_found;
    int m_codePage;
    std::vector<HostPath> m_left;
    std::vector<std::string> m_projects;
};

void AddFolder(ProjectList& list, const HostPath& folder, int codePage) {
    FoundProjects& found = list.Found;
    const std::size_t errorsBefore = found.Errors.size();
    std::vector<std::string> names = FolderSearch(found, codePage).ProjectsBelow(folder);
    if (names.empty() && found.Errors.size() == errorsBefore) {
        found.Errors.push_back(
            "there is no project file in or below '" + modHostPath::Shown(folder) + "'");
    }
    std::sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
        return modTextCase::Compare(left, right) < 0;
    });
    for (const std::string& name : names) {
        AddProject(list, name);
    }
}

void AddGroup(ProjectList& list, const HostPath& group, int codePage) {
    std::vector<std::string> projects;
    const bool read = Trap({"modProjectFinder", "AddGroup"}, [&] {
        projects = VirtualProjectGroup(modHostPath::ToProgram(group, codePage), codePage)
                       .ProjectFilenames();
    });
    if (!read) {
        list.Found.Errors.push_back(
            "cannot read the project group '" + modHostPath::Shown(group) + "'");
    } else if (projects.empty()) {
        list.Found.Errors.push_back(
            "the project group '" + modHostPath::Shown(group) + "' names no project");
    }
    for (const std::string& project : projects) {
        AddProject(list, project);
    }
}

void AddPath(ProjectList& list, const std::string& hostPath, int codePage) {
    const HostPath path = hostPath.empty() ? HostPath() : modHostPath::FromUser(hostPath);
    const FileKind kind = modHostFolder::KindOf(path);
    if (kind == FileKind::Nothing) {
        list.Found.Errors.push_back("'" + hostPath + "' does not exist");
        return;
    }
    if (!RequirePlainPath(list.Found, path, codePage)) {
        return;
    }
    if (kind == FileKind::Folder) {
        AddFolder(list, path, codePage);
    } else if (modTextCase::EndsWith(path.Name(), ".vbg")) {
        AddGroup(list, path, codePage);
    } else if (modDorvikUtils::IsVBPFile(path.Name())) {
        AddProject(list, modHostPath::ToProgram(path, codePage));
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
