#pragma once

#include "platform/host/HostPath.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

enum class FileUse {
    Read,
    Append,    // creates the file if need be
    Replace,   // creates the file or empties it
    CreateNew  // fails where something is already there
};

/// One ordinary file of the host, open as long as the object lives. Folders, devices and pipes are
/// rejected with 75, so that no reading waits or continues for ever; a file to be written to is rejected with
/// an `OutputRefusal` if it is one of those or a link. Every failure raises.
class HostFile {
public:
    /// `path` is what the descriptions of failures name.
    HostFile(const HostPath& host, FileUse use, std::string_view path);
    ~HostFile();
    HostFile(const HostFile&) = delete;
    HostFile& operator=(const HostFile&) = delete;

    std::string ReadAll();
    void Write(std::string_view bytes);
    /// Returns when the bytes written are on the disk.
    void Synchronise();
    /// Closes the file; reports failures that only show then.
    void Close();

    /// Length in bytes.
    std::int64_t Size() const;
    /// Keeps everybody else from locking the file until it is closed; false where someone else does. True
    /// on a file system without locks.
    bool LockAlone() const;
    /// Whether this file, and not another by now, has that name.
    bool Is(const HostPath& host) const;
    /// Gives this file the rights of another, if there is that one.
    void TakeRightsOf(const HostPath& other);

private:
    /// Raises what the system reported last.
    [[noreturn]] void RaiseLastFailure() const;
    void RefuseWhatIsNoFile() const;
    int Descriptor() const { return static_cast<int>(m_handle); }

    HostPath m_host;
    std::string m_path;
    std::intptr_t m_handle = -1;  // the system's number of the open file; -1 once it is closed
};

}  // namespace dorvik
