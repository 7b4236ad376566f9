#include "platform/host/FileInUseMark.h"

#include "SystemFailure.h"
#include "base/modUtf8.h"
#include "platform/host/FileInUse.h"
#include "platform/host/HostError.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/modHostPath.h"
#include "platform/host/modHostProcess.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <functional>
#include <map>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace dorvik {

namespace {

using FileIdentity = std::pair<dev_t, ino_t>;

/// The marks of this process. Closing any descriptor of a file drops all record locks that the process
/// holds on it, those of the database engine too; so a marked file is never opened and closed again here.
std::map<FileIdentity, std::weak_ptr<FileInUseMark>>& MarksOfThisProcess() {
    static std::map<FileIdentity, std::weak_ptr<FileInUseMark>> marks;
    return marks;
}

FileIdentity IdentityOf(const HostPath& file) {
    struct stat status {};
    return ::stat(file.Bytes().c_str(), &status) == 0 ? FileIdentity{status.st_dev, status.st_ino}
                                                      : FileIdentity{0, 0};
}

FileIdentity IdentityOf(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 ? FileIdentity{status.st_dev, status.st_ino}
                                             : FileIdentity{0, 0};
}

/// True where another process holds a lock on the bytes that SQLite locks.
bool HasEngineLock(int descriptor) {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = 0x40000000;  // the lock bytes are at a fixed place, whatever the file's size
    lock.l_len = 512;
    return ::fcntl(descriptor, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

/// Nothing waits at a pipe.
constexpr int kAnyFile = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

/// A descriptor of the file of a mark that is to be the caller's alone.
int OpenOwn(const HostPath& file) {
    constexpr mode_t kReadableByAll = 0666;  // less the user's mask
    modObstacles::NeedFile(file);
    const int use = kAnyFile | O_NOFOLLOW;
    int descriptor = ::open(file.Bytes().c_str(), O_RDWR | O_CREAT | use, kReadableByAll);
    const int reason = errno;
    if (descriptor < 0 && reason == EACCES) {
        descriptor =
            ::open(file.Bytes().c_str(), O_RDONLY | use);  // one that another user left behind
    }
    if (descriptor < 0) {
        RaiseHostError(modSystemFailure::OfFile(reason, file), modHostPath::Shown(file));
    }
    return descriptor;
}

/// Takes the lock without waiting. False also where the file system has no locks.
bool IsLockedByAnother(int descriptor, int kind) {
    return ::flock(descriptor, kind | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

/// A descriptor of the file that has that name now, locked for sharing; below 0 where there is none. Only a deletion
/// locks a file against that, for a moment, and after it the descriptor is that of a file without a name.
int OpenShared(const HostPath& file) {
    constexpr int kMostTries =
        200;  // a second; and there are file systems that number a file anew at each look
    constexpr auto kPause = std::chrono::milliseconds(5);
    for (int attempt = 1;; ++attempt) {
        const int descriptor = ::open(file.Bytes().c_str(), O_RDONLY | kAnyFile);
        const bool isBeingDeleted = descriptor >= 0 && IsLockedByAnother(descriptor, LOCK_SH);
        if (descriptor < 0 || attempt == kMostTries ||
            (!isBeingDeleted && IdentityOf(descriptor) == IdentityOf(file))) {
            return descriptor;
        }
        ::close(descriptor);
        if (isBeingDeleted) {
            std::this_thread::sleep_for(kPause);
        }
    }
}

/// A descriptor that is closed with its scope.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (IsOpen()) {
            ::close(m_number);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return m_number >= 0; }
    int Number() const { return m_number; }

private:
    int m_number;
};

/// Who holds the file. The text comes a moment after the lock.
std::string HolderIn(int descriptor) {
    constexpr int kLooks = 20;
    constexpr auto kPause = std::chrono::milliseconds(5);
    std::array<char, 200> bytes{};
    ssize_t count = 0;
    for (int look = 0; look < kLooks && count <= 0; ++look) {
        if (look > 0) {
            std::this_thread::sleep_for(kPause);
        }
        count = ::pread(descriptor, bytes.data(), bytes.size(), 0);
    }
    std::string text(bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    // Anything may be in a file of that name.
    const auto isControl = [](char character) {
        return static_cast<unsigned char>(character) < ' ' || character == '\x7f';
    };
    std::erase_if(text, isControl);
    return modUtf8::IsValid(text) ? text : std::string();
}

void WriteHolder(int descriptor, std::string_view holder) {
    std::string text = "process " + std::to_string(modHostProcess::OwnNumber());
    text += holder;
    // On a full disk no one learns who it is; the lock holds all the same.
    const bool isWritten =
        ::ftruncate(descriptor, 0) == 0 &&
        ::pwrite(descriptor, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
    static_cast<void>(isWritten);
}

}  // namespace

std::shared_ptr<FileInUseMark>
FileInUseMark::SetAlone(const HostPath& file, std::string_view holder) {
    constexpr int kMostTries = 100;  // there are file systems that number a file anew at each look
    for (int attempt = 1;; ++attempt) {
        const int descriptor = OpenOwn(file);
        if (IsLockedByAnother(descriptor, LOCK_EX)) {
            const std::string other = HolderIn(descriptor);
            ::close(descriptor);
            throw FileInUse(file, other);
        }
        // The last holder may have deleted it since it was opened.
        if (IdentityOf(descriptor) == IdentityOf(file) || attempt == kMostTries) {
            WriteHolder(descriptor, holder);
            return std::shared_ptr<FileInUseMark>(new FileInUseMark(descriptor, file));
        }
        ::close(descriptor);
    }
}

std::shared_ptr<FileInUseMark> FileInUseMark::Set(const HostPath& file) {
    const auto identity = IdentityOf(file);
    auto& marks = MarksOfThisProcess();
    std::erase_if(marks, [](const auto& entry) { return entry.second.expired(); });
    if (const auto found = marks.find(identity); found != marks.end()) {
        return found->second.lock();
    }
    const int descriptor = OpenShared(file);
    if (descriptor < 0) {
        return nullptr;
    }
    std::shared_ptr<FileInUseMark> mark(new FileInUseMark(descriptor));
    marks[IdentityOf(descriptor)] = mark;
    return mark;
}

bool FileInUseMark::WhileUnused(const HostPath& file, const std::function<void()>& body) {
    const auto& marks = MarksOfThisProcess();
    if (const auto found = marks.find(IdentityOf(file));
        found != marks.end() && !found->second.expired()) {
        return false;
    }
    const Descriptor held(::open(file.Bytes().c_str(), O_RDONLY | kAnyFile));
    if (held.IsOpen() &&
        (IsLockedByAnother(held.Number(), LOCK_EX) || HasEngineLock(held.Number()))) {
        return false;
    }
    body();
    return true;
}

FileInUseMark::~FileInUseMark() {
    // As long as the lock is held no one else deletes the file or puts another into its place.
    const int descriptor = static_cast<int>(m_handle);
    if (!m_own.IsEmpty() && IdentityOf(descriptor) == IdentityOf(m_own)) {
        ::unlink(m_own.Bytes().c_str());
    }
    ::close(descriptor);
}

}  // namespace dorvik
