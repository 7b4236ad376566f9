#include "platform/host/modFiles.h"

#include "HostPathSearch.h"
#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "modHostFolder.h"
#include "platform/host/HostFile.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/modEncoding.h"

#include <algorithm>
#include <cerrno>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace dorvik::modFiles {

namespace {

namespace fs = std::filesystem;

int g_nameCodePage = modEncoding::kDefaultCodePage;

int EffectiveCodePage(int codePage) {
    return codePage == kNameCodePage ? g_nameCodePage : codePage;
}

/// The host path of something that must be possible here; raises 76 otherwise.
fs::path PossibleHostPath(std::string_view path, int codePage = kNameCodePage) {
    fs::path host = HostPath(path, codePage);
    if (host.empty()) {
        RaiseHostError(ENOENT, host, path);
    }
    return host;
}

/// As above, and an ordinary file must be there.
fs::path HostPathOfFile(std::string_view path) {
    fs::path host = PossibleHostPath(path);
    std::error_code error;
    const fs::file_status status = fs::status(host, error);
    if (status.type() == fs::file_type::not_found) {
        RaiseHostError(ENOENT, host, path);
    }
    if (error) {
        RaiseHostError(error.value(), host, path);
    }
    if (!fs::is_regular_file(status)) {
        RaiseHostError(EISDIR, host, path);
    }
    return host;
}

void MakeWritable(const fs::path& host, std::error_code& error) {
    fs::permissions(host, fs::perms::owner_write, fs::perm_options::add, error);
}

std::string TextOfName(std::string name, int codePage) {
    return modUtf8::IsValid(name) ? name : modEncoding::DecodeByPage(name, codePage);
}

/// Where a write to `host` really goes: links are followed, so that they stay links.
fs::path WithoutLinks(const fs::path& host) {
    std::error_code error;
    fs::path real = fs::canonical(host, error);
    return error ? host : real;
}

/// A name that leads to an entry of the folder that it follows, and nowhere else.
bool IsPlainName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("\\/\0", 3)) == std::string_view::npos;
}

/// Raises unless the file may be replaced: a rename alone would replace a read-only file.
void CheckReplaceable(const fs::path& host, std::string_view path) {
    std::error_code ignored;
    const fs::file_status status = fs::status(host, ignored);
    if (!fs::exists(status)) {
        return;
    }
    if (!fs::is_regular_file(status)) {
        RaiseHostError(EISDIR, host, path);
    }
    if (::access(host.c_str(), W_OK) != 0) {
        RaiseHostError(errno == EROFS ? EROFS : EISDIR, host, path);
    }
}

/// A file beside another, deleted again unless it has taken the other's place.
class Replacement {
public:
    explicit Replacement(const fs::path& target)
        : m_target(target), m_place(target.parent_path() / UniqueName()) {}
    ~Replacement() {
        std::error_code ignored;
        fs::remove(m_place, ignored);
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    void Write(std::string_view bytes, std::string_view path) const {
        HostFile file(m_place, FileUse::CreateNew, path);
        std::error_code error;
        const fs::file_status old = fs::status(m_target, error);
        if (fs::exists(old)) {
            file.SetPermissions(static_cast<std::uint32_t>(old.permissions()));
        }
        file.Write(bytes);
        file.Synchronise();
        file.Close();
    }

    /// Raises unless the file holds exactly these bytes when it is read again.
    void ReadBack(std::string_view bytes, std::string_view path) const {
        HostFile file(m_place, FileUse::Read, path);
        if (file.ReadAll() != bytes) {
            RaiseHostError(EIO, m_place, path);
        }
    }

    void TakeThePlace(std::string_view path) const {
        std::error_code error;
        fs::rename(m_place, m_target, error);
        if (error) {
            RaiseHostError(error.value(), m_target, path);
        }
    }

private:
    /// No one can put something in the way of a name that he cannot guess.
    static std::string UniqueName() {
        static std::random_device random;
        return ".dorvik-" + std::to_string(::getpid()) + "-" + std::to_string(random()) + "-" +
               std::to_string(random()) + ".tmp";
    }

    fs::path m_target;
    fs::path m_place;
};

enum class AfterWriting { TakePlace, ReadBackFirst };

void ReplaceFile(
    const fs::path& target,
    std::string_view path,
    std::string_view bytes,
    AfterWriting after = AfterWriting::TakePlace) {
    CheckReplaceable(target, path);
    const Replacement replacement(target);
    replacement.Write(bytes, path);
    if (after == AfterWriting::ReadBackFirst) {
        replacement.ReadBack(bytes, path);
    }
    replacement.TakeThePlace(path);
}

}  // namespace

void SetNameCodePage(int codePage) {
    g_nameCodePage = codePage;
}

fs::path HostPath(std::string_view path, int codePage) {
    thread_local HostPathSearch search;
    const std::optional<PathParts> parts = CutPath(path);
    return parts ? search.Find(*parts, EffectiveCodePage(codePage)) : fs::path();
}

std::string FromHostPath(const fs::path& path, int codePage) {
    std::string text;
    std::string_view rest = path.native();
    while (!rest.empty()) {
        const std::size_t size = std::min(rest.find('/'), rest.size());
        text += TextOfName(std::string(rest.substr(0, size)), EffectiveCodePage(codePage));
        rest.remove_prefix(size);
        if (!rest.empty()) {
            text += '\\';
            rest.remove_prefix(1);
        }
    }
    return text;
}

bool FileExists(std::string_view path) {
    std::error_code ignored;
    return fs::is_regular_file(HostPath(path), ignored);
}

bool FolderExists(std::string_view path) {
    std::error_code ignored;
    return fs::is_directory(HostPath(path), ignored);
}

std::vector<FolderEntry> FolderEntries(std::string_view folder, int codePage) {
    const fs::path host = PossibleHostPath(folder, codePage);
    std::vector<FolderEntry> entries;
    std::error_code error;
    for (modHostFolder::Entry& entry : modHostFolder::Entries(host, error)) {
        std::error_code ignored;
        const bool isFolder =
            entry.IsFolder ? *entry.IsFolder : fs::is_directory(host / entry.Name, ignored);
        const bool isHidden = entry.Name.starts_with('.');
        entries.push_back(
            {TextOfName(std::move(entry.Name), EffectiveCodePage(codePage)), isFolder, isHidden});
    }
    if (error) {
        const bool isMissing = error.value() == ENOENT;
        RaiseHostError(isMissing ? ENOTDIR : error.value(), host, folder);
    }
    std::ranges::sort(entries, [](const FolderEntry& left, const FolderEntry& right) {
        const int order = modTextCase::Compare(left.Name, right.Name);
        return order != 0 ? order < 0 : left.Name < right.Name;
    });
    return entries;
}

void DeleteFile(std::string_view path) {
    const fs::path host = HostPathOfFile(path);
    std::error_code error;
    if (!fs::is_symlink(host, error)) {
        MakeWritable(host, error);  // some file systems do not delete a read-only file
    }
    fs::remove(host, error);
    if (error) {
        RaiseHostError(error.value(), host, path);
    }
}

void CreateFolder(std::string_view path) {
    const fs::path host = PossibleHostPath(path);
    std::error_code error;
    const bool created = fs::create_directory(host, error);
    if (error) {
        const bool isParentMissing = error.value() == ENOENT;
        RaiseHostError(isParentMissing ? ENOTDIR : error.value(), host, path);
    }
    if (!created) {
        RaiseHostError(EEXIST, host, path);
    }
}

std::string CreatePrivateFolder(std::string_view parent, std::string_view prefix) {
    const fs::path folder = PossibleHostPath(parent);
    std::string name = (folder / prefix).string() + "XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        RaiseHostError(errno == ENOENT ? ENOTDIR : errno, folder, parent);
    }
    return FromHostPath(name) + "\\";
}

void DeleteFolder(std::string_view path) {
    const fs::path host = PossibleHostPath(path);
    if (::rmdir(host.c_str()) != 0) {
        RaiseHostError(errno == ENOENT ? ENOTDIR : errno, host, path);
    }
}

void CopyFile(std::string_view from, std::string_view to) {
    const fs::path host = PossibleHostPath(to);
    const std::string bytes = ReadBytes(from);
    HostFile copy(host, FileUse::CreateNew, to);
    try {
        copy.Write(bytes);
        copy.Close();
    } catch (...) {  // on a full disk, say
        std::error_code ignored;
        fs::remove(host, ignored);
        throw;
    }
}

std::string ReadBytes(std::string_view path, int codePage) {
    return HostFile(HostPath(path, codePage), FileUse::Read, path).ReadAll();
}

std::int64_t FileSize(std::string_view path) {
    const fs::path host = HostPathOfFile(path);
    std::error_code error;
    const std::uintmax_t size = fs::file_size(host, error);
    if (error) {
        RaiseHostError(error.value(), host, path);
    }
    return static_cast<std::int64_t>(size);
}

FileStamp StampOf(std::string_view path) {
    constexpr std::int64_t kNanosecondsInASecond = 1'000'000'000;
    const fs::path host = HostPathOfFile(path);
    struct stat status {};
    if (::stat(host.c_str(), &status) != 0) {
        RaiseHostError(errno, host, path);
    }
    return {
        static_cast<std::int64_t>(status.st_size),
        static_cast<std::int64_t>(status.st_mtim.tv_sec) * kNanosecondsInASecond +
            static_cast<std::int64_t>(status.st_mtim.tv_nsec)};
}

void EnsureFolder(std::string_view path) {
    const fs::path host = PossibleHostPath(path);
    std::error_code error;
    fs::create_directory(host, error);  // a folder that is there is no failure of it
    if (error && !fs::is_directory(host)) {
        RaiseHostError(error.value() == ENOENT ? ENOTDIR : error.value(), host, path);
    }
}

bool AppendLine(std::string_view path, std::string_view line, std::int64_t mostBytes) {
    HostFile file(HostPath(path), FileUse::Append, path);
    std::string bytes;
    bytes.reserve(line.size() + modText::kLineEnd.size());
    bytes.append(line).append(modText::kLineEnd);
    if (mostBytes != kAnySize &&
        file.Size() > mostBytes - static_cast<std::int64_t>(bytes.size())) {
        return false;
    }
    file.Write(bytes);  // in one piece, so that lines of two programs do not mix
    file.Close();
    return true;
}

bool TurnOver(std::string_view path, std::string_view older, std::int64_t fromBytes) {
    const fs::path host = PossibleHostPath(path);
    const HostFile file(host, FileUse::Append, path);
    // The holder of the lock of the file that has this name renames it; the others find another file.
    if (!file.LockAlone() || file.Size() < fromBytes || !file.Is(host)) {
        return false;
    }
    std::error_code error;
    fs::rename(host, PossibleHostPath(older), error);
    if (error) {
        RaiseHostError(error.value(), host, path);
    }
    return true;
}

void EmptyFile(std::string_view path) {
    HostFile(HostPath(path), FileUse::Replace, path).Close();
}

void WriteBytesAtomically(std::string_view path, std::string_view bytes) {
    ReplaceFile(WithoutLinks(PossibleHostPath(path)), path, bytes);
}

void WriteBytesChecked(std::string_view path, std::string_view bytes) {
    ReplaceFile(WithoutLinks(PossibleHostPath(path)), path, bytes, AfterWriting::ReadBackFirst);
}

void WriteBytesAtomicallyAsNamed(
    std::string_view folder, std::string_view name, std::string_view bytes) {
    const std::string path = std::string(folder) + std::string(name);
    const fs::path host = folder.empty() ? "." : PossibleHostPath(folder);
    if (!IsPlainName(name)) {
        RaiseHostError(EINVAL, host, path);
    }
    const fs::path target = host / name;
    modObstacles::NeedFile(target);
    ReplaceFile(target, path, bytes);
}

}  // namespace dorvik::modFiles
