#pragma once

#include "platform/host/HostFailure.h"
#include "platform/host/HostPath.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// What is at a path.
enum class FileKind {
    Nothing,  // or something that cannot be looked at
    File,
    Folder,
    Link,
    Pipe,
    Socket,
    Device,
    Unknown
};

/// The operations on files and folders of this machine. None raises anything but the want of memory: what gives
/// back a `HostFailure` gives back nothing where it worked.
namespace modHostFolder {

/// Links are followed.
FileKind KindOf(const HostPath& path);
/// A link is a `Link`, wherever it leads.
FileKind KindOfEntry(const HostPath& path);

struct FileFacts {
    FileKind Kind = FileKind::Nothing;
    std::int64_t Size = 0;               // bytes
    std::int64_t Modified = 0;           // nanoseconds since 1970
    std::optional<HostFailure> Failure;  // why nothing else is known
};
/// Links are followed.
FileFacts Facts(const HostPath& path);

struct Entry {
    std::string Name;  // in the system's own form
    bool IsHidden = false;
    /// As the folder lists it, so a link is a `Link`; `Unknown` where the folder does not say.
    FileKind Kind = FileKind::Unknown;
};
struct FolderContent {
    std::vector<Entry> Entries;
    std::optional<HostFailure> Failure;  // why nothing, or not all, is there
    std::string Reason;                  // the same in the words of the system
};
/// What is in the folder, without "." and "..", in the order of the disk.
FolderContent Entries(const HostPath& folder);

/// Creates one folder; the folder above it must exist.
std::optional<HostFailure> CreateFolder(const HostPath& folder);
/// Creates a folder in `parent` that no other user can read and whose name, `prefix` and something after it,
/// nothing has. An empty path and the failure where that is not possible.
struct CreatedFolder {
    HostPath Path;
    std::optional<HostFailure> Failure;
};
CreatedFolder CreateUniqueFolder(const HostPath& parent, std::string_view prefix);
/// Deletes a folder that is empty.
std::optional<HostFailure> DeleteFolder(const HostPath& folder);

/// Deletes a file, or a link, where there is one.
std::optional<HostFailure> Delete(const HostPath& file);
/// The same for a path in the system's own form that ends in a NUL. May be called from a signal handler.
void DeleteAtOnce(const char* file) noexcept;
/// Gives the file another name, in place of whatever file has that name.
std::optional<HostFailure> Replace(const HostPath& from, const HostPath& to);

/// Takes a write protection from the file; a link stays as it is.
void MakeWritable(const HostPath& file);
/// What keeps this user from writing to the file.
std::optional<HostFailure> WriteObstacle(const HostPath& file);

}  // namespace modHostFolder

}  // namespace dorvik
