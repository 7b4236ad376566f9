#pragma once

#include "platform/host/modHostPath.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Files and folders by the program's own paths. Such a path separates its parts with backslashes
/// (a slash is taken too) as the reviewed project files do; nothing outside `modHostPath` knows the
/// form of the host's paths. `\home\ann\a.vbp` is a path of this machine. A path with a drive letter
/// or a network path (`C:\x`, `\\server\share`) names nothing here and is treated as missing.
///
/// Failures raise a `BasicError` whose description ends in the path: 53 no such file, 76 no such
/// folder, 75 a folder or device where a file is expected (or the other way round) or something
/// that is already there or a file of 2 GB, 70 no permission, 61 disk full.
namespace dorvik::modFiles {

/// True for an ordinary file of exactly this name (in any case); wildcards mean nothing here.
bool FileExists(std::string_view path);
bool FolderExists(std::string_view path);

struct FolderEntry {
    std::string Name;       // UTF-8
    bool IsFolder = false;  // links are followed
    bool IsHidden = false;  // by the host's convention: the name begins with a dot
};

/// The files and folders in a folder, "." and ".." left out, ordered by name without regard to case.
std::vector<FolderEntry>
FolderEntries(std::string_view folder, int codePage = modHostPath::kNameCodePage);

/// Deletes a file, also a read-only one.
void DeleteFile(std::string_view path);
/// Creates one folder; the folder above it must exist.
void CreateFolder(std::string_view path);
/// Creates a folder below `parent` that no other program can read and whose name, `prefix` and
/// a suffix, no one has. Its path ends in a backslash.
std::string CreatePrivateFolder(std::string_view parent, std::string_view prefix);
/// Deletes a folder that is empty.
void DeleteFolder(std::string_view path);
/// Copies a file to a name that nothing has yet; no part of a copy is left behind. The copy can be written
/// to, even if the original cannot.
void CopyFile(std::string_view from, std::string_view to);

std::string ReadBytes(std::string_view path, int codePage = modHostPath::kNameCodePage);
/// Length in bytes.
std::int64_t FileSize(std::string_view path);

/// What shows whether a file is still the one that it was.
struct FileStamp {
    std::int64_t Size = 0;      // bytes
    std::int64_t Modified = 0;  // nanoseconds since 1970

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};
FileStamp StampOf(std::string_view path);

/// Creates the folder unless there is one, maybe made by someone else at this moment.
void EnsureFolder(std::string_view path);

inline constexpr std::int64_t kAnySize = INT64_MAX;

/// Adds the line and CR LF to the file, which is created if need be and is open only for this call. False,
/// with nothing written, where the file would grow beyond `mostBytes`. Raises an `OutputRefusal` (75) where
/// a link is there, or anything else that is not an ordinary file.
bool AppendLine(std::string_view path, std::string_view line, std::int64_t mostBytes = kAnySize);
/// Leaves an empty file there, whether there was one before or not. Raises as `AppendLine`.
void EmptyFile(std::string_view path);
/// Gives a file that has `fromBytes` or more the name `older`, in place of whatever file has that name so
/// far. Of several processes that try at the same time only one does it; false for the others, and for a
/// file that is shorter. Raises as `AppendLine`.
bool TurnOver(std::string_view path, std::string_view older, std::int64_t fromBytes);

/// Replaces the file's content or creates the file. A reader, or a failure on the way, sees either
/// the old content or the new, never a part.
void WriteBytesAtomically(std::string_view path, std::string_view bytes);
/// The same, and what was written is read again and compared before it takes the old content's place.
void WriteBytesChecked(std::string_view path, std::string_view bytes);
/// The same as the first under exactly this name in the folder, which is looked up as ever: a file whose name differs
/// in case stays beside it. For files that others refer to by name. Costs the same however many files
/// the folder holds, whereas a name that is not there yet is otherwise looked for among all of them.
///
/// Nothing is written outside the folder: a name with a separator or a NUL in it, "." and ".." raise 75,
/// and what is there already and is a link, or no ordinary file, raises an `OutputRefusal`.
void WriteBytesAtomicallyAsNamed(
    std::string_view folder, std::string_view name, std::string_view bytes);

}  // namespace dorvik::modFiles
