#include "FolderNames.h"

#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "platform/host/modEncoding.h"
#include "platform/host/modHostFolder.h"

#include <algorithm>
#include <ctime>
#include <sys/stat.h>

namespace dorvik {

namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;

std::int64_t Nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * kNanosecondsPerSecond + time.tv_nsec;
}

/// A file that appears within the same tick of the host's clock leaves the folder's time as it was.
/// Only a folder whose last change is this far back is known to show every later one.
bool LiesBack(std::int64_t changed) {
    constexpr std::int64_t kCoarsestTick = 2 * kNanosecondsPerSecond;
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return changed != 0 && Nanoseconds(now) - changed > kCoarsestTick;
}

}  // namespace

FolderNames::FolderNames(const HostPath& folder, int codePage)
    : m_folder(folder), m_version(VersionOf(folder)), m_isSettled(LiesBack(m_version.Changed)) {
    modHostFolder::FolderContent content = modHostFolder::Entries(folder);
    for (modHostFolder::Entry& entry : content.Entries) {
        std::string& name = entry.Name;
        std::string key = modTextCase::ToLower(
            modUtf8::IsValid(name) ? name : modEncoding::DecodeByPage(name, codePage));
        m_names[std::move(key)].push_back(std::move(name));
    }
    for (auto& [key, names] : m_names) {
        std::ranges::sort(names);
    }
}

const std::vector<std::string>* FolderNames::Matching(std::string_view name) const {
    const auto found = m_names.find(modTextCase::ToLower(name));
    return found == m_names.end() ? nullptr : &found->second;
}

bool FolderNames::IsUpToDate() const {
    return m_isSettled && m_version == VersionOf(m_folder);
}

FolderNames::Version FolderNames::VersionOf(const HostPath& folder) {
    struct stat status {};
    if (::stat(folder.Bytes().c_str(), &status) != 0) {
        return {};
    }
    return {status.st_dev, status.st_ino, Nanoseconds(status.st_mtim)};
}

}  // namespace dorvik
