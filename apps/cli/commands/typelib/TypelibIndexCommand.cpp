#include "cli/commands/typelib/TypelibIndexCommand.h"

#include "TypeLibraryText.h"
#include "base/modTextCase.h"
#include "cli/output/Console.h"
#include "cli/output/JsonOutput.h"
#include "cli/output/TablePrinter.h"
#include "cli/output/modCommandPath.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modFiles.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"
#include "typelib/TypeLibraryIndex.h"

namespace dorvik {

namespace {

/// The path as seen from the folder, with the number of the library as project files write it.
std::string PlaceIn(const std::string& folder, const IndexedTypeLibrary& library) {
    const std::string base = modUtilFunctions::AddBackslash(folder);
    const bool isBelow = library.Path.starts_with(base);
    std::string place = isBelow ? modConsole::ShownPath(library.Path.substr(base.size()))
                                : modConsole::ShownPath(library.Path);
    if (library.Number != 1) {
        place += "\\" + std::to_string(library.Number);
    }
    return place;
}

std::string VersionOf(const IndexedTypeLibrary& library) {
    return modTypeLibraryText::Version(library.MajorVersion, library.MinorVersion);
}

void PrintTable(const std::string& folder, const TypeLibraryFolderListing& listing) {
    TablePrinter table(
        {{"Library"}, {"Version"}, {"File", false, true}, {"Description", false, true}});
    for (const IndexedTypeLibrary& library : listing.Libraries) {
        table.AddRow(
            {{library.Name},
             {VersionOf(library)},
             {PlaceIn(folder, library)},
             {library.Description}});
    }
    table.Print();
}

void PrintJson(const TypeLibraryFolderListing& listing) {
    JsonOutput json;
    json.BeginObject();
    json.BeginArray("libraries");
    for (const IndexedTypeLibrary& library : listing.Libraries) {
        json.BeginObject();
        json.Text("name", library.Name);
        json.Text("guid", library.Guid);
        json.Text("version", VersionOf(library));
        json.Number("language", library.Lcid);
        json.Text("description", library.Description);
        json.Text("file", modConsole::ShownPath(library.Path));
        json.Number("number", library.Number);
        json.EndObject();
    }
    json.EndArray();
    json.Number("filesLookedAt", static_cast<std::int64_t>(listing.FileCount));
    json.Flag("cut", listing.IsCut);
    json.EndObject();
    json.Print();
}

void PrintListing(
    const TypelibIndexOptions& options,
    const std::string& folder,
    const TypeLibraryFolderListing& listing) {
    if (options.Json) {
        PrintJson(listing);
    } else if (listing.Libraries.empty()) {
        modConsole::Print("No type libraries.\n");
    } else {
        PrintTable(folder, listing);
    }
}

}  // namespace

ExitCode RunTypelibIndex(const TypelibIndexOptions& options) {
    const std::string folder = modCommandPath::Inner(options.Folder);
    if (!modFiles::FolderExists(folder)) {
        modConsole::PrintError(
            "the folder '" + options.Folder +
            (modFiles::FileExists(folder) ? "' is a file (see 'dorvik typelib list')"
                                          : "' does not exist"));
        return ExitCode::NothingDone;
    }
    TypeLibraryIndex index(modGlobal::Data().TypeLibraryIndexFile());
    const TypeLibraryFolderListing& listing = index.LibrariesIn(folder);
    PrintListing(options, folder, listing);
    for (const TypeLibraryFault& fault : listing.Faults) {
        modConsole::PrintError(modTypeLibraryText::Sentence(
            fault.What, fault.Path, modConsole::ShownPath(fault.Path)));
    }
    if (listing.IsCut) {
        modConsole::PrintError(
            "the folder '" + options.Folder + "' holds more than " +
            std::to_string(TypeLibraryFolderLimits().Entries) +
            " files and folders; the rest was not searched");
    }
    return listing.Faults.empty() && !listing.IsCut ? ExitCode::Passed : ExitCode::Incomplete;
}

}  // namespace dorvik
