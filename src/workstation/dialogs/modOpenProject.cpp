#include "workstation/dialogs/modOpenProject.h"

#include "source/VirtualProject.h"

#include <string>

namespace dorvik::modOpenProject {

void Read(VirtualProject& project) {
    const std::string name = project.Name();
    const std::string filename = project.Filename();
    const std::string type = project.ProjectType();
    const bool isRead = project.LoadProject(filename) == ProjectLoadStatus::Good;
    if (!isRead) {
        project.SetFilename(filename);
        project.SetProjectType(type);
    }
    if (!name.empty()) {
        project.SetName(name);
    }
}

}  // namespace dorvik::modOpenProject
