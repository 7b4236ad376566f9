#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace dorvik {

enum class FileUse {
    Read,
    Append,    // creates the file if need be
    Replace,   // creates the file or empties it
    CreateNew  // fails where something is already there
};

/// Raises the `HostError` for a failure of the host: 53, 76, 75, 70 or 61. `host` is where it
/// failed (empty: a place that cannot exist here), `path` what the description names.
[[noreturn]] void
RaiseHostError(int errorOfHost, const std::filesystem::path& host, std::string_view path);

/// One ordinary file of the host, open as long as the object lives. Folders, devices and pipes are
/// rejected with 75, so that no reading waits or continues for ever; a file to be written to is rejected with
/// an `OutputRefusal` if it is one of those or a link. Every failure raises.
class HostFile {
public:
    HostFile(const std::filesystem::path& host, FileUse use, std::string_view path);
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
    bool Is(const std::filesystem::path& host) const;
    std::uint32_t Permissions() const;
    void SetPermissions(std::uint32_t permissions);

private:
    [[noreturn]] void Raise(int errorOfHost) const;
    void RefuseWhatIsNoFile();

    std::filesystem::path m_host;
    std::string m_path;
    int m_descriptor = -1;
};

}  // namespace dorvik
