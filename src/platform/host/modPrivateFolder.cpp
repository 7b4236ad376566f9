#include "platform/host/modPrivateFolder.h"

#include "platform/host/modFiles.h"
#include "platform/host/modHostFolder.h"
#include "platform/host/modHostPath.h"
#include "platform/host/modHostProcess.h"

#include <charconv>
#include <chrono>
#include <optional>
#include <system_error>
#include <vector>

namespace dorvik::modPrivateFolder {

namespace {

/// A process of another machine or container may share the folder, and its number says nothing here.
constexpr std::chrono::hours kSurelyAbandoned{1};

constexpr char kBehindProcess = '-';

/// The process in the name of a folder; nothing if the name is not of that form.
std::optional<int> ProcessIn(std::string_view name, std::string_view prefix) {
    const std::size_t end = name.find(kBehindProcess);
    if (!name.starts_with(prefix) || end == std::string_view::npos || end <= prefix.size()) {
        return std::nullopt;
    }
    int process = 0;
    const auto [rest, error] =
        std::from_chars(name.data() + prefix.size(), name.data() + end, process);
    const bool isNumber = error == std::errc() && rest == name.data() + end && process > 0;
    return isNumber ? std::optional(process) : std::nullopt;
}

bool IsOld(const HostPath& folder) {
    const modHostFolder::FileFacts facts = modHostFolder::Facts(folder);
    const std::chrono::nanoseconds now = std::chrono::system_clock::now().time_since_epoch();
    return !facts.Failure && now - std::chrono::nanoseconds(facts.Modified) > kSurelyAbandoned;
}

bool HoldsNothingBut(const HostPath& folder, std::string_view filename) {
    const modHostFolder::FolderContent content = modHostFolder::Entries(folder);
    for (const modHostFolder::Entry& entry : content.Entries) {
        if (entry.Name != filename ||
            modHostFolder::KindOf(folder / entry.Name) != FileKind::File) {
            return false;
        }
    }
    return !content.Failure;
}

std::vector<HostPath> AbandonedFolders(const HostPath& parent, std::string_view prefix) {
    std::vector<HostPath> folders;
    const modHostFolder::FolderContent content = modHostFolder::Entries(parent);
    for (const modHostFolder::Entry& entry : content.Entries) {
        const auto process = ProcessIn(entry.Name, prefix);
        if (!process) {
            continue;
        }
        const HostPath folder = parent / entry.Name;
        const bool isFolder = modHostFolder::KindOfEntry(folder) == FileKind::Folder;
        if (isFolder && modHostProcess::IsGone(*process) && IsOld(folder)) {
            folders.push_back(folder);
        }
    }
    return folders;
}

}  // namespace

std::string Create(std::string_view parent, std::string_view prefix) {
    return modFiles::CreatePrivateFolder(
        parent, std::string(prefix) + std::to_string(modHostProcess::OwnNumber()) + kBehindProcess);
}

void RemoveAbandoned(std::string_view parent, std::string_view prefix, std::string_view filename) {
    for (const HostPath& folder : AbandonedFolders(modHostPath::FromProgram(parent), prefix)) {
        if (HoldsNothingBut(folder, filename)) {
            modHostFolder::Delete(folder / filename);
            modHostFolder::DeleteFolder(folder);
        }
    }
}

}  // namespace dorvik::modPrivateFolder
