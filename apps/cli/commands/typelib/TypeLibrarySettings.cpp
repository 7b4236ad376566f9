#include "cli/commands/typelib/TypeLibrarySettings.h"

#include "cli/output/Console.h"
#include "cli/output/TablePrinter.h"
#include "cli/output/modCommandPath.h"
#include "platform/host/modFiles.h"
#include "settings/DVKWorkData.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"

namespace dorvik::modTypeLibrarySettings {

TypeLibraryPlaces Places(const std::vector<std::string>& folders) {
    const DorvikData& data = modGlobal::Data();
    TypeLibraryPlaces places;
    for (const std::string& folder : folders) {
        const std::string path = modCommandPath::Inner(folder);
        if (modFiles::FolderExists(path) || modFiles::FileExists(path)) {
            places.Folders.push_back(path);
        } else {
            modConsole::PrintError(
                "the folder '" + folder + "' for type libraries does not exist and is skipped");
        }
    }
    const std::vector<std::string>& set = modGlobal::WorkData().TypeLibraryFolders;
    places.Folders.insert(places.Folders.end(), set.begin(), set.end());
    places.CatalogueFolders = {data.TypeCataloguePath(), data.UserTypeCataloguePath()};
    places.IndexFile = data.TypeLibraryIndexFile();
    return places;
}

std::string Sentence(const TypeCatalogueFault& fault, const std::string& shown) {
    return "line " + std::to_string(fault.Line) + " of the type catalogue '" + shown +
           "' is skipped: " + modTerminalText::Harmless(fault.What);
}

void ReportFaults(const TypeCatalogue& catalogue) {
    for (const TypeCatalogueFault& fault : catalogue.Faults()) {
        modConsole::PrintError(Sentence(fault, modConsole::ShownPath(fault.File)));
    }
}

}  // namespace dorvik::modTypeLibrarySettings
