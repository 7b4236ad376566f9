// The functions of modUtilFunctions that look at the disk.

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modFiles.h"

#include <algorithm>
#include <vector>

namespace dorvik::modUtilFunctions {

namespace {

constexpr std::string_view kWildcards = "*?";
constexpr std::string_view kAnyName = "*";

/// True if the name has the form of the pattern; both in lower case. A "*" stands for any number of
/// characters, a "?" for one. On a mismatch the last "*" takes one character more.
bool HasForm(std::string_view name, std::string_view pattern) {
    std::size_t at = 0;
    std::size_t form = 0;
    std::size_t star = std::string_view::npos;
    std::size_t behindStar = 0;
    while (at < name.size()) {
        if (form < pattern.size() && pattern[form] == '*') {
            star = form++;
            behindStar = at;
        } else if (form < pattern.size() && pattern[form] == '?') {
            at += modUtf8::CharacterSize(name, at);
            ++form;
        } else if (form < pattern.size() && pattern[form] == name[at]) {
            ++at;
            ++form;
        } else if (star != std::string_view::npos) {
            behindStar += modUtf8::CharacterSize(name, behindStar);
            at = behindStar;
            form = star + 1;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', form) == std::string_view::npos;
}

bool AnyFileHasForm(std::string_view folder, std::string_view pattern) {
    const std::string_view searched = folder.empty() ? std::string_view(".") : folder;
    if (!modFiles::FolderExists(searched)) {
        return false;
    }
    const std::string form = modTextCase::ToLower(pattern);
    const std::vector<modFiles::FolderEntry> entries = modFiles::FolderEntries(searched);
    return std::any_of(entries.begin(), entries.end(), [&](const modFiles::FolderEntry& entry) {
        return !entry.IsFolder && !entry.IsHidden &&
               HasForm(modTextCase::ToLower(entry.Name), form);
    });
}

bool SearchFindsFile(std::string_view path) {
    const std::size_t nameBegin = path.find_last_of("\\/") + 1;
    const std::string_view name = path.substr(nameBegin);
    if (name.empty()) {
        return AnyFileHasForm(path, kAnyName);
    }
    if (name.find_first_of(kWildcards) != std::string_view::npos) {
        return AnyFileHasForm(path.substr(0, nameBegin), name);
    }
    return !name.starts_with('.') && modFiles::FileExists(path);
}

/// The part at that index; raises where the path has no such part.
std::string PartOf(const std::vector<std::string_view>& parts, std::size_t index) {
    if (index >= parts.size()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return std::string(parts[index]);
}

struct Walk {
    std::string Root;       // exists, or is not for us to create
    std::size_t FirstPart;  // index of the first folder to create
};

Walk WalkThrough(const std::vector<std::string_view>& parts) {
    const std::string first = PartOf(parts, 0);
    if (first.ends_with(':')) {
        return {first + "\\", 1};
    }
    if (!first.empty()) {
        return {"", 0};
    }
    // One leading backslash is the root of this machine, two begin a network path.
    if (!PartOf(parts, 1).empty()) {
        return {"\\", 1};
    }
    return {"\\\\" + PartOf(parts, 2) + "\\", 3};
}

void CreateFolders(std::string_view path) {
    if (path.empty()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    const std::vector<std::string_view> parts = modText::Split(path, '\\');
    const Walk walk = WalkThrough(parts);
    std::string folder = walk.Root;
    for (std::size_t index = walk.FirstPart; index < parts.size(); ++index) {
        if (index > walk.FirstPart) {
            folder += '\\';
        }
        folder += parts[index];
        if (!FolderExists(folder)) {
            modFiles::EnsureFolder(folder);  // someone else may be making it at this moment
        }
    }
}

}  // namespace

bool FileExists(std::string_view path) {
    return Trapped({"modUtilFunctions", "FileExists"}, false, [&] {
        return !path.empty() && SearchFindsFile(path);
    });
}

bool FolderExists(std::string_view path) {
    return Trapped({"modUtilFunctions", "FolderExists"}, false, [&] {
        return modFiles::FolderExists(AddBackslash(path));
    });
}

void DeleteFile(std::string_view path) {
    Trap({"modUtilFunctions", "DeleteFile"}, [&] {
        if (FileExists(path)) {
            modFiles::DeleteFile(path);
        }
    });
}

bool CreateFullPath(std::string_view path) {
    return Trap(
        {"modUtilFunctions", "CreateFullPath"}, [&] { CreateFolders(RemoveBackslash(path)); });
}

}  // namespace dorvik::modUtilFunctions
