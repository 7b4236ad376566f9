#include "platform/host/HostFile.h"

#include "DescriptorReading.h"
#include "SystemFailure.h"
#include "platform/host/HostError.h"
#include "platform/host/OutputRefusal.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dorvik {

namespace {

/// Nothing waits at a pipe: it is opened without blocking and then refused.
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

using modDescriptor::Reading;
using modDescriptor::Repeated;

}  // namespace

HostFile::HostFile(const HostPath& host, FileUse use, std::string_view path)
    : m_host(host), m_path(path) {
    constexpr mode_t kReadableByAll = 0666;  // less the user's mask
    if (use == FileUse::Append || use == FileUse::Replace) {
        modObstacles::NeedFile(m_host);
    }
    m_handle =
        Repeated([&] { return ::open(m_host.Bytes().c_str(), OpenFlags(use), kReadableByAll); });
    if (m_handle < 0) {
        RaiseLastFailure();
    }
    try {
        RefuseWhatIsNoFile();
        if (use == FileUse::Replace && ::ftruncate(Descriptor(), 0) != 0) {
            RaiseLastFailure();
        }
    } catch (...) {  // a constructor that fails has no destructor
        ::close(Descriptor());
        throw;
    }
}

HostFile::~HostFile() {
    if (m_handle >= 0) {
        ::close(Descriptor());
    }
}

void HostFile::RefuseWhatIsNoFile() const {
    struct stat status {};
    if (::fstat(Descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) {
        RaiseHostError(HostFailure::NoOrdinaryFile, m_path);
    }
}

void HostFile::RaiseLastFailure() const {
    RaiseHostError(modSystemFailure::OfFile(errno, m_host), m_path);
}

std::string HostFile::ReadAll() {
    struct stat status {};
    if (::fstat(Descriptor(), &status) != 0) {
        RaiseLastFailure();
    }
    if (status.st_size > kMostBytes) {
        RaiseHostError(HostFailure::TooLong, m_path);
    }
    std::string bytes;
    const auto size = static_cast<std::size_t>(status.st_size);
    switch (modDescriptor::ReadToEnd(Descriptor(), size, kMostBytes, bytes)) {
        case Reading::Done: break;
        case Reading::Failed: RaiseLastFailure();
        case Reading::TooLong: RaiseHostError(HostFailure::TooLong, m_path);
    }
    return bytes;
}

void HostFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            Repeated([&] { return ::write(Descriptor(), bytes.data(), bytes.size()); });
        if (count < 0) {
            RaiseLastFailure();
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void HostFile::Synchronise() {
    if (::fsync(Descriptor()) != 0) {
        RaiseLastFailure();
    }
}

void HostFile::Close() {
    const int descriptor = Descriptor();
    m_handle = -1;
    if (::close(descriptor) != 0 && errno != EINTR) {
        RaiseLastFailure();
    }
}

std::int64_t HostFile::Size() const {
    struct stat status {};
    if (::fstat(Descriptor(), &status) != 0) {
        RaiseLastFailure();
    }
    return static_cast<std::int64_t>(status.st_size);
}

bool HostFile::LockAlone() const {
    return Repeated([&] { return ::flock(Descriptor(), LOCK_EX | LOCK_NB); }) == 0 ||
           errno != EWOULDBLOCK;
}

bool HostFile::Is(const HostPath& host) const {
    struct stat mine {};
    struct stat named {};
    return ::fstat(Descriptor(), &mine) == 0 && ::lstat(host.Bytes().c_str(), &named) == 0 &&
           mine.st_dev == named.st_dev && mine.st_ino == named.st_ino;
}

void HostFile::TakeRightsOf(const HostPath& other) {
    constexpr mode_t kRights = 07777;
    struct stat status {};
    if (::stat(other.Bytes().c_str(), &status) == 0 &&
        ::fchmod(Descriptor(), status.st_mode & kRights) != 0) {
        RaiseLastFailure();
    }
}

}  // namespace dorvik
