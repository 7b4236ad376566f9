#include "cli/commands/typelib/TypelibListCommand.h"

#include "TypeLibraryText.h"
#include "base/modTextCase.h"
#include "cli/commands/typelib/TypeLibrarySettings.h"
#include "cli/output/Console.h"
#include "cli/output/JsonOutput.h"
#include "cli/output/modCommandPath.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modFiles.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"
#include "typelib/TypeLibraryStore.h"
#include "typelib/modTypeLibraryFile.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kCatalogueExtension = ".txt";

/// What was found, and a sentence for each thing that is wrong.
struct Found {
    std::vector<KnownTypeLibrary> Libraries;
    std::vector<std::string> Problems;
};

/// The GUID in its braces; empty if the text is none.
std::string GuidOf(std::string_view text) {
    constexpr std::size_t kLength = 38;
    std::string guid(text);
    if (!guid.starts_with('{')) {
        guid = "{" + guid + "}";
    }
    const bool isGuid = guid.size() == kLength && guid.back() == '}' && guid[9] == '-' &&
                        guid[24] == '-' &&
                        guid.find_first_not_of("0123456789abcdefABCDEF-", 1) == guid.size() - 1;
    return isGuid ? guid : std::string();
}

void AddFile(
    Found& found, const std::string& path, const std::string& shown, TypeLibraryFile file) {
    for (NumberedTypeLibrary& library : file.Libraries) {
        found.Libraries.push_back({std::move(library.Facts), shown, library.Number, {}, {}});
    }
    for (const std::string& fault : file.Faults) {
        found.Problems.push_back(modTypeLibraryText::Sentence(fault, path, shown));
    }
}

/// One out of a file that the user named.
void AddNamed(Found& found, const CatalogueLibrary& library, const std::string& shown) {
    found.Libraries.push_back({library.Facts, shown, 0, library.Source, library.Note});
}

void AddCatalogued(Found& found, const CatalogueLibrary& library) {
    const std::string& path = library.CatalogueFile;
    const bool isOfProgram = path.starts_with(modGlobal::Data().TypeCataloguePath());
    found.Libraries.push_back(
        {library.Facts,
         modConsole::ShownPath(path),
         0,
         library.Source,
         library.Note,
         (isOfProgram ? "the program's type catalogue, " : "your own type catalogue, ") +
             modUtilFunctions::FilenameFromFullPathName(path)});
}

Found ReadPlace(const std::string& text) {
    Found found;
    const std::string whole = modCommandPath::Inner(text);
    if (modFiles::FileExists(whole)) {
        AddFile(found, whole, text, modTypeLibraryFile::ReadAll(whole));
        return found;
    }
    const TypeLibraryPlace place = modTypeLibraryFile::PlaceOf(whole);
    if (place.Path != whole && modFiles::FileExists(place.Path)) {
        AddFile(
            found,
            place.Path,
            text.substr(0, text.find_last_of("\\/")),
            modTypeLibraryFile::Read(place.Path, place.Number));
    } else {
        found.Problems.push_back(
            "the file '" + text +
            (modFiles::FolderExists(whole) ? "' is a folder (see 'dorvik typelib index')"
                                           : "' does not exist"));
    }
    return found;
}

Found ReadCatalogueFile(const std::string& text, TypeLibraryStore& store) {
    const std::string path = modCommandPath::Inner(text);
    if (!modFiles::FileExists(path)) {
        return ReadPlace(text);
    }
    Found found;
    TypeCatalogue catalogue = store.Catalogue();  // its libraries may lend their types
    catalogue.ReadFile(path);
    for (const CatalogueLibrary& library : catalogue.Libraries()) {
        if (library.CatalogueFile == path) {
            AddNamed(found, library, text);
        }
    }
    for (const TypeCatalogueFault& fault : catalogue.Faults()) {
        if (fault.File == path) {
            found.Problems.push_back(modTypeLibrarySettings::Sentence(fault, text));
        }
    }
    if (found.Libraries.empty() && found.Problems.empty()) {
        found.Problems.push_back("the file '" + text + "' describes no type library");
    }
    return found;
}

Found LookUp(const std::string& guid, TypeLibraryStore& store) {
    Found found;
    for (const std::string& folder : store.Folders()) {
        for (const IndexedTypeLibrary& library : store.Index().LibrariesIn(folder).Libraries) {
            if (modTextCase::Equal(library.Guid, guid)) {
                TypeLibraryFile file = modTypeLibraryFile::Read(library.Path, library.Number);
                std::erase_if(file.Libraries, [&](const NumberedTypeLibrary& read) {
                    return read.Facts.Lcid != library.Lcid;
                });
                AddFile(found, library.Path, modConsole::ShownPath(library.Path), std::move(file));
            }
        }
    }
    for (const CatalogueLibrary& library : store.Catalogue().Libraries()) {
        if (modTextCase::Equal(library.Facts.Guid, guid)) {
            AddCatalogued(found, library);
        }
    }
    if (found.Libraries.empty() && found.Problems.empty()) {
        found.Problems.push_back(
            "no type library with the GUID '" + guid +
            "' is known; name a folder that holds it with '--type-libraries'");
    }
    return found;
}

Found Find(const std::string& what, TypeLibraryStore& store) {
    const std::string guid = GuidOf(what);
    if (!guid.empty()) {
        return LookUp(guid, store);
    }
    return modTextCase::EndsWith(what, kCatalogueExtension) ? ReadCatalogueFile(what, store)
                                                            : ReadPlace(what);
}

void Print(const std::vector<KnownTypeLibrary>& libraries) {
    bool isFirst = true;
    for (const KnownTypeLibrary& library : libraries) {
        modConsole::Print(isFirst ? "" : "\n");
        isFirst = false;
        modTypeLibraryText::Print(library);
    }
}

void PrintJson(const std::vector<KnownTypeLibrary>& libraries) {
    JsonOutput json;
    json.BeginObject();
    json.BeginArray("libraries");
    for (const KnownTypeLibrary& library : libraries) {
        modTypeLibraryText::WriteAsJson(json, library);
    }
    json.EndArray();
    json.EndObject();
    json.Print();
}

}  // namespace

ExitCode RunTypelibList(const TypelibListOptions& options) {
    TypeLibraryStore store(modTypeLibrarySettings::Places(options.Folders));
    const Found found = Find(options.What, store);
    if (!found.Libraries.empty()) {
        if (options.Json) {
            PrintJson(found.Libraries);
        } else {
            Print(found.Libraries);
        }
    }
    for (const std::string& problem : found.Problems) {
        modConsole::PrintError(problem);
    }
    if (found.Libraries.empty()) {
        return ExitCode::NothingDone;
    }
    return found.Problems.empty() ? ExitCode::Passed : ExitCode::Incomplete;
}

}  // namespace dorvik
