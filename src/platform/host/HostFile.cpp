#include "platform/host/HostFile.h"

#include "platform/host/HostError.h"
#include "platform/host/OutputRefusal.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace dorvik {

namespace {

/// Nothing waits at a pipe: it is opened without blocking and then rejected.
constexpr int kAlways = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
constexpr int kWriting = O_WRONLY | O_CREAT | O_NOFOLLOW | kAlways;

int OpenFlags(FileUse use) {
    switch (use) {
        case FileUse::Read: return O_RDONLY | kAlways;
        case FileUse::Append: return kWriting | O_APPEND;
        // Emptied only when it has turned out to be an ordinary file.
        case FileUse::Replace: return kWriting;
        case FileUse::CreateNew: return kWriting | O_EXCL;
    }
    return O_RDONLY | kAlways;
}

/// Lengths of files are 32-bit numbers throughout.
constexpr off_t kMostBytes = 0x7FFFFFFE;

bool IsFolder(const std::filesystem::path& host) {
    std::error_code ignored;
    return std::filesystem::is_directory(host, ignored);
}

std::int32_t MissingNumber(const std::filesystem::path& host) {
    if (host.empty()) {
        return runtimeerror::kPathNotFound;
    }
    const std::filesystem::path folder = host.has_parent_path() ? host.parent_path() : ".";
    return IsFolder(folder) ? runtimeerror::kFileNotFound : runtimeerror::kPathNotFound;
}

std::int32_t ErrorNumber(int errorOfHost, const std::filesystem::path& host) {
    switch (errorOfHost) {
        case ENOENT: return MissingNumber(host);
        case ENOTDIR:
        case ENAMETOOLONG: return runtimeerror::kPathNotFound;
        case EACCES:
        case EPERM: return runtimeerror::kPermissionDenied;
        case ENOSPC:
        case EDQUOT: return runtimeerror::kDiskFull;
        default: return runtimeerror::kPathFileAccess;
    }
}

template <class Call>
auto Repeated(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

}  // namespace

void RaiseHostError(int errorOfHost, const std::filesystem::path& host, std::string_view path) {
    const std::int32_t number = ErrorNumber(errorOfHost, host);
    throw HostError(
        errorOfHost, number, RuntimeErrorText(number) + ": '" + std::string(path) + "'");
}

HostFile::HostFile(const std::filesystem::path& host, FileUse use, std::string_view path)
    : m_host(host), m_path(path) {
    constexpr mode_t kReadableByAll = 0666;  // less the user's mask
    if (use == FileUse::Append || use == FileUse::Replace) {
        modObstacles::NeedFile(m_host);
    }
    m_descriptor = Repeated([&] { return ::open(m_host.c_str(), OpenFlags(use), kReadableByAll); });
    if (m_descriptor < 0) {
        Raise(errno);
    }
    RefuseWhatIsNoFile();
    if (use == FileUse::Replace && ::ftruncate(m_descriptor, 0) != 0) {
        const int reason = errno;
        ::close(m_descriptor);
        Raise(reason);
    }
}

HostFile::~HostFile() {
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

void HostFile::RefuseWhatIsNoFile() {
    struct stat status {};
    if (::fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        return;
    }
    ::close(m_descriptor);
    Raise(EISDIR);
}

void HostFile::Raise(int errorOfHost) const {
    RaiseHostError(errorOfHost, m_host, m_path);
}

std::string HostFile::ReadAll() {
    struct stat status {};
    if (::fstat(m_descriptor, &status) != 0) {
        Raise(errno);
    }
    if (status.st_size > kMostBytes) {
        Raise(EFBIG);
    }
    // One byte more than the length finds the end of the file without growing the buffer.
    std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t size = 0;
    for (;;) {
        const ssize_t count = Repeated(
            [&] { return ::read(m_descriptor, bytes.data() + size, bytes.size() - size); });
        if (count < 0) {
            Raise(errno);
        }
        if (count == 0) {
            break;
        }
        size += static_cast<std::size_t>(count);
        if (size == bytes.size()) {
            bytes.resize(2 * bytes.size());  // the file has grown meanwhile
        }
    }
    bytes.resize(size);
    return bytes;
}

void HostFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            Repeated([&] { return ::write(m_descriptor, bytes.data(), bytes.size()); });
        if (count < 0) {
            Raise(errno);
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void HostFile::Synchronise() {
    if (::fsync(m_descriptor) != 0) {
        Raise(errno);
    }
}

void HostFile::Close() {
    const int descriptor = m_descriptor;
    m_descriptor = -1;
    if (::close(descriptor) != 0 && errno != EINTR) {
        Raise(errno);
    }
}

std::int64_t HostFile::Size() const {
    struct stat status {};
    if (::fstat(m_descriptor, &status) != 0) {
        Raise(errno);
    }
    return static_cast<std::int64_t>(status.st_size);
}

bool HostFile::LockAlone() const {
    return Repeated([&] { return ::flock(m_descriptor, LOCK_EX | LOCK_NB); }) == 0 ||
           errno != EWOULDBLOCK;
}

bool HostFile::Is(const std::filesystem::path& host) const {
    struct stat mine {};
    struct stat named {};
    return ::fstat(m_descriptor, &mine) == 0 && ::lstat(host.c_str(), &named) == 0 &&
           mine.st_dev == named.st_dev && mine.st_ino == named.st_ino;
}

std::uint32_t HostFile::Permissions() const {
    struct stat status {};
    if (::fstat(m_descriptor, &status) != 0) {
        Raise(errno);
    }
    return static_cast<std::uint32_t>(status.st_mode) & 07777U;
}

void HostFile::SetPermissions(std::uint32_t permissions) {
    if (::fchmod(m_descriptor, static_cast<mode_t>(permissions)) != 0) {
        Raise(errno);
    }
}

}  // namespace dorvik
