#include "foundation/text/OutputPlace.h"

#include "foundation/text/modUtilFunctions.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHostPath.h"

namespace dorvik {

OutputPlace OutputPlace::For(const std::string& projectFile, const std::string& folder) {
    return folder.empty() ? OutputPlace{modUtilFunctions::PathFromFilename(projectFile), "Dorvik\\"}
                          : OutputPlace{modUtilFunctions::AddBackslash(folder)};
}

void OutputPlace::MakeFolder() const {
    if (!Chosen.empty() && !modUtilFunctions::FolderExists(Chosen)) {
        modUtilFunctions::CreateFullPath(Chosen);  // that it failed shows below, or at the file
    }
    if (!Below.empty()) {
        const std::string folder = modUtilFunctions::RemoveBackslash(Folder());
        modObstacles::NeedFolder(modHostPath::FromProgram(folder));
        modFiles::EnsureFolder(folder);
    }
}

}  // namespace dorvik
