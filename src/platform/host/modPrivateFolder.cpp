#include "platform/host/modPrivateFolder.h"

#include "modHostFolder.h"
#include "platform/host/modFiles.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <optional>
#include <sys/types.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace dorvik::modPrivateFolder {

namespace fs = std::filesystem;

namespace {

/// A process of another machine or container may share the folder, and its number says nothing here.
constexpr std::chrono::hours kSurelyAbandoned{1};

constexpr char kBehindProcess = '-';

/// The process in the name of a folder; nothing if the name is not of that form.
std::optional<pid_t> ProcessIn(std::string_view name, std::string_view prefix) {
    const std::size_t end = name.find(kBehindProcess);
    if (!name.starts_with(prefix) || end == std::string_view::npos || end <= prefix.size()) {
        return std::nullopt;
    }
    pid_t process = 0;
    const auto [rest, error] =
        std::from_chars(name.data() + prefix.size(), name.data() + end, process);
    const bool isNumber = error == std::errc() && rest == name.data() + end && process > 0;
    return isNumber ? std::optional(process) : std::nullopt;
}

bool IsGone(pid_t process) {
    return ::kill(process, 0) != 0 && errno == ESRCH;
}

bool IsOld(const fs::path& folder) {
    std::error_code error;
    const fs::file_time_type touched = fs::last_write_time(folder, error);
    return !error && fs::file_time_type::clock::now() - touched > kSurelyAbandoned;
}

bool HoldsNothingBut(const fs::path& folder, std::string_view filename) {
    std::error_code error;
    for (const modHostFolder::Entry& entry : modHostFolder::Entries(folder, error)) {
        std::error_code ofEntry;
        if (entry.Name != filename || !fs::is_regular_file(folder / entry.Name, ofEntry)) {
            return false;
        }
    }
    return !error;
}

std::vector<fs::path> AbandonedFolders(const fs::path& parent, std::string_view prefix) {
    std::vector<fs::path> folders;
    std::error_code ignored;
    for (const modHostFolder::Entry& entry : modHostFolder::Entries(parent, ignored)) {
        const auto process = ProcessIn(entry.Name, prefix);
        if (!process) {
            continue;
        }
        const fs::path folder = parent / entry.Name;
        std::error_code ofEntry;
        const bool isFolder =
            fs::symlink_status(folder, ofEntry).type() == fs::file_type::directory;
        if (isFolder && IsGone(*process) && IsOld(folder)) {
            folders.push_back(folder);
        }
    }
    return folders;
}

}  // namespace

std::string Create(std::string_view parent, std::string_view prefix) {
    return modFiles::CreatePrivateFolder(
        parent, std::string(prefix) + std::to_string(::getpid()) + kBehindProcess);
}

void RemoveAbandoned(std::string_view parent, std::string_view prefix, std::string_view filename) {
    for (const fs::path& folder : AbandonedFolders(modFiles::HostPath(parent), prefix)) {
        if (HoldsNothingBut(folder, filename)) {
            std::error_code error;
            fs::remove(folder / filename, error);
            fs::remove(folder, error);
        }
    }
}

}  // namespace dorvik::modPrivateFolder
