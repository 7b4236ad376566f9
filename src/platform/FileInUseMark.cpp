#include "platform/FileInUseMark.h"

#include <fcntl.h>
#include <map>
#include <sys/file.h>
#include <sys/stat.h>
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

FileIdentity IdentityOf(const std::filesystem::path& file) {
    struct stat status {};
    return ::stat(file.c_str(), &status) == 0 ? FileIdentity{status.st_dev, status.st_ino}
                                              : FileIdentity{0, 0};
}

/// True where another process holds a lock on the bytes that SQLite locks.
bool HasEngineLock(int descriptor) {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = 0x40000000;  // the lock bytes stand at a fixed place, whatever the file's size
    lock.l_len = 512;
    return ::fcntl(descriptor, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

}  // namespace

std::shared_ptr<FileInUseMark> FileInUseMark::Set(const std::filesystem::path& file) {
    const auto identity = IdentityOf(file);
    auto& marks = MarksOfThisProcess();
    std::erase_if(marks, [](const auto& entry) { return entry.second.expired(); });
    if (const auto found = marks.find(identity); found != marks.end()) {
        return found->second.lock();
    }
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return nullptr;
    }
    ::flock(descriptor, LOCK_SH | LOCK_NB);
    std::shared_ptr<FileInUseMark> mark(new FileInUseMark(descriptor));
    marks[identity] = mark;
    return mark;
}

bool FileInUseMark::IsInUse(const std::filesystem::path& file) {
    const auto& marks = MarksOfThisProcess();
    if (const auto found = marks.find(IdentityOf(file));
        found != marks.end() && !found->second.expired()) {
        return true;
    }
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    const bool isMarked = ::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    const bool isInUse = isMarked || HasEngineLock(descriptor);
    ::close(descriptor);
    return isInUse;
}

FileInUseMark::~FileInUseMark() {
    ::close(m_descriptor);
}

}  // namespace dorvik
