#include "platform/host/modHostFolder.h"

#include "SystemFailure.h"

#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <memory>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dorvik::modHostFolder {

namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

FileKind KindOfMode(mode_t mode) {
    switch (mode & S_IFMT) {
        case S_IFREG: return FileKind::File;
        case S_IFDIR: return FileKind::Folder;
        case S_IFLNK: return FileKind::Link;
        case S_IFIFO: return FileKind::Pipe;
        case S_IFSOCK: return FileKind::Socket;
        case S_IFBLK:
        case S_IFCHR: return FileKind::Device;
        default: return FileKind::Unknown;
    }
}

FileKind ListedKind(const dirent& entry) {
    return entry.d_type == DT_UNKNOWN ? FileKind::Unknown : KindOfMode(DTTOIF(entry.d_type));
}

/// The failure of a call that gives back 0 where it worked.
std::optional<HostFailure> FailureOfFile(int result, const HostPath& path) {
    return result == 0 ? std::nullopt : std::optional(modSystemFailure::OfFile(errno, path));
}

std::optional<HostFailure> FailureOfFolder(int result) {
    return result == 0 ? std::nullopt : std::optional(modSystemFailure::OfFolder(errno));
}

}  // namespace

FileKind KindOf(const HostPath& path) {
    struct stat status {};
    return ::stat(path.Bytes().c_str(), &status) == 0 ? KindOfMode(status.st_mode)
                                                      : FileKind::Nothing;
}

FileKind KindOfEntry(const HostPath& path) {
    struct stat status {};
    return ::lstat(path.Bytes().c_str(), &status) == 0 ? KindOfMode(status.st_mode)
                                                       : FileKind::Nothing;
}

FileFacts Facts(const HostPath& path) {
    struct stat status {};
    FileFacts facts;
    facts.Failure = FailureOfFile(::stat(path.Bytes().c_str(), &status), path);
    if (!facts.Failure) {
        facts.Kind = KindOfMode(status.st_mode);
        facts.Size = static_cast<std::int64_t>(status.st_size);
        facts.Modified = static_cast<std::int64_t>(status.st_mtim.tv_sec) * kNanosecondsPerSecond +
                         static_cast<std::int64_t>(status.st_mtim.tv_nsec);
    }
    return facts;
}

// Not by the directory iterators of the standard library: they end the program where memory runs out between two
// entries, as they step on in functions that may not raise.
FolderContent Entries(const HostPath& folder) {
    FolderContent content;
    errno = 0;
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.Bytes().c_str()));
    while (open != nullptr) {
        errno = 0;
        const dirent* const entry = ::readdir(open.get());
        if (entry == nullptr) {
            break;
        }
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            content.Entries.push_back({std::string(name), name.front() == '.', ListedKind(*entry)});
        }
    }
    if (const int number = errno; number != 0) {
        content.Failure = modSystemFailure::OfFolder(number);
        content.Reason = modSystemFailure::Words(number);
    }
    return content;
}

std::optional<HostFailure> CreateFolder(const HostPath& folder) {
    constexpr mode_t kForAll = 0777;  // less the user's mask
    return FailureOfFolder(::mkdir(folder.Bytes().c_str(), kForAll));
}

CreatedFolder CreateUniqueFolder(const HostPath& parent, std::string_view prefix) {
    std::string name = (parent / prefix).WithEnding("XXXXXX").Bytes();
    if (::mkdtemp(name.data()) == nullptr) {
        return {{}, modSystemFailure::OfFolder(errno)};
    }
    return {HostPath::FromBytes(std::move(name)), std::nullopt};
}

std::optional<HostFailure> DeleteFolder(const HostPath& folder) {
    return FailureOfFolder(::rmdir(folder.Bytes().c_str()));
}

std::optional<HostFailure> Delete(const HostPath& file) {
    const int result = ::unlink(file.Bytes().c_str());
    return result != 0 && errno == ENOENT ? std::nullopt : FailureOfFile(result, file);
}

void DeleteAtOnce(const char* file) noexcept {
    ::unlink(file);
}

std::optional<HostFailure> Replace(const HostPath& from, const HostPath& to) {
    return FailureOfFile(::rename(from.Bytes().c_str(), to.Bytes().c_str()), to);
}

void MakeWritable(const HostPath& file) {
    constexpr mode_t kRights = 07777;
    struct stat status {};
    if (::lstat(file.Bytes().c_str(), &status) == 0 && !S_ISLNK(status.st_mode)) {
        ::chmod(file.Bytes().c_str(), (status.st_mode & kRights) | S_IWUSR);
    }
}

std::optional<HostFailure> WriteObstacle(const HostPath& file) {
    return FailureOfFile(::access(file.Bytes().c_str(), W_OK), file);
}

}  // namespace dorvik::modHostFolder
