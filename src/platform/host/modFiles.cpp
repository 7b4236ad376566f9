#include "platform/host/modFiles.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "platform/host/HostError.h"
#include "platform/host/HostFile.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/modHostFolder.h"
#include "platform/host/modHostProcess.h"

#include <algorithm>
#include <optional>
#include <random>

namespace dorvik::modFiles {

namespace {

using modHostPath::kNameCodePage;

/// The host path of something that must be possible here; raises 76 otherwise.
HostPath PossibleHostPath(std::string_view path, int codePage = kNameCodePage) {
    HostPath host = modHostPath::FromProgram(path, codePage);
    if (host.IsEmpty()) {
        RaiseHostError(HostFailure::NoFolder, path);
    }
    return host;
}

void RaiseIfFailed(const std::optional<HostFailure>& failure, std::string_view path) {
    if (failure) {
        RaiseHostError(*failure, path);
    }
}

/// Raises unless an ordinary file is there.
modHostFolder::FileFacts FactsOfFile(const HostPath& host, std::string_view path) {
    const modHostFolder::FileFacts facts = modHostFolder::Facts(host);
    RaiseIfFailed(facts.Failure, path);
    if (facts.Kind != FileKind::File) {
        RaiseHostError(HostFailure::NoOrdinaryFile, path);
    }
    return facts;
}

/// Where a write to `host` really goes: links are followed, so that they stay links.
HostPath WithoutLinks(const HostPath& host) {
    return modHostPath::RealPath(host).value_or(host);
}

/// A name that leads to an entry of the folder that it follows, and nowhere else.
bool IsPlainName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("\\/\0", 3)) == std::string_view::npos;
}

/// Raises unless the file may be replaced: a rename alone would replace a read-only file.
void CheckReplaceable(const HostPath& host, std::string_view path) {
    const FileKind kind = modHostFolder::KindOf(host);
    if (kind == FileKind::Nothing) {
        return;
    }
    if (kind != FileKind::File) {
        RaiseHostError(HostFailure::NoOrdinaryFile, path);
    }
    if (const auto obstacle = modHostFolder::WriteObstacle(host)) {
        // A read-only file is not a lack of rights: it can be made one that is not.
        RaiseHostError(
            *obstacle == HostFailure::WriteProtected ? *obstacle : HostFailure::Other, path);
    }
}

/// A file beside another, deleted again unless it has taken the other's place.
class Replacement {
public:
    explicit Replacement(const HostPath& target)
        : m_target(target), m_place(target.Folder() / UniqueName()) {}
    ~Replacement() { modHostFolder::Delete(m_place); }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    void Write(std::string_view bytes, std::string_view path) const {
        HostFile file(m_place, FileUse::CreateNew, path);
        file.TakeRightsOf(m_target);
        file.Write(bytes);
        file.Synchronise();
        file.Close();
    }

    /// Raises unless the file holds exactly these bytes when it is read again.
    void ReadBack(std::string_view bytes, std::string_view path) const {
        HostFile file(m_place, FileUse::Read, path);
        if (file.ReadAll() != bytes) {
            RaiseHostError(HostFailure::NotReady, path);
        }
    }

    void TakeThePlace(std::string_view path) const {
        RaiseIfFailed(modHostFolder::Replace(m_place, m_target), path);
    }

private:
    /// No one can put something in the way of a name that he cannot guess.
    static std::string UniqueName() {
        static std::random_device random;
        return ".dorvik-" + std::to_string(modHostProcess::OwnNumber()) + "-" +
               std::to_string(random()) + "-" + std::to_string(random()) + ".tmp";
    }

    HostPath m_target;
    HostPath m_place;
};

enum class AfterWriting { TakePlace, ReadBackFirst };

void ReplaceFile(
    const HostPath& target,
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

bool FileExists(std::string_view path) {
    return modHostFolder::KindOf(modHostPath::FromProgram(path)) == FileKind::File;
}

bool FolderExists(std::string_view path) {
    return modHostFolder::KindOf(modHostPath::FromProgram(path)) == FileKind::Folder;
}

std::vector<FolderEntry> FolderEntries(std::string_view folder, int codePage) {
    const HostPath host = PossibleHostPath(folder, codePage);
    const modHostFolder::FolderContent content = modHostFolder::Entries(host);
    RaiseIfFailed(content.Failure, folder);
    std::vector<FolderEntry> entries;
    for (const modHostFolder::Entry& entry : content.Entries) {
        const bool needsLook = entry.Kind == FileKind::Link || entry.Kind == FileKind::Unknown;
        const FileKind kind = needsLook ? modHostFolder::KindOf(host / entry.Name) : entry.Kind;
        entries.push_back(
            {modHostPath::ToProgram(HostPath::FromBytes(entry.Name), codePage),
             kind == FileKind::Folder,
             entry.IsHidden});
    }
    std::ranges::sort(entries, [](const FolderEntry& left, const FolderEntry& right) {
        const int order = modTextCase::Compare(left.Name, right.Name);
        return order != 0 ? order < 0 : left.Name < right.Name;
    });
    return entries;
}

void DeleteFile(std::string_view path) {
    const HostPath host = PossibleHostPath(path);
    FactsOfFile(host, path);
    modHostFolder::MakeWritable(host);  // some file systems do not delete a read-only file
    RaiseIfFailed(modHostFolder::Delete(host), path);
}

void CreateFolder(std::string_view path) {
    RaiseIfFailed(modHostFolder::CreateFolder(PossibleHostPath(path)), path);
}

std::string CreatePrivateFolder(std::string_view parent, std::string_view prefix) {
    const auto created = modHostFolder::CreateUniqueFolder(PossibleHostPath(parent), prefix);
    RaiseIfFailed(created.Failure, parent);
    return modHostPath::ToProgram(created.Path) + "\\";
}

void DeleteFolder(std::string_view path) {
    RaiseIfFailed(modHostFolder::DeleteFolder(PossibleHostPath(path)), path);
}

void CopyFile(std::string_view from, std::string_view to) {
    const HostPath host = PossibleHostPath(to);
    const std::string bytes = ReadBytes(from);
    HostFile copy(host, FileUse::CreateNew, to);
    try {
        copy.Write(bytes);
        copy.Close();
    } catch (...) {  // on a full disk, say
        modHostFolder::Delete(host);
        throw;
    }
}

std::string ReadBytes(std::string_view path, int codePage) {
    return HostFile(modHostPath::FromProgram(path, codePage), FileUse::Read, path).ReadAll();
}

std::int64_t FileSize(std::string_view path) {
    return FactsOfFile(PossibleHostPath(path), path).Size;
}

FileStamp StampOf(std::string_view path) {
    const modHostFolder::FileFacts facts = FactsOfFile(PossibleHostPath(path), path);
    return {facts.Size, facts.Modified};
}

void EnsureFolder(std::string_view path) {
    const HostPath host = PossibleHostPath(path);
    const auto failure = modHostFolder::CreateFolder(host);
    if (failure && modHostFolder::KindOf(host) != FileKind::Folder) {
        RaiseHostError(*failure, path);
    }
}

bool AppendLine(std::string_view path, std::string_view line, std::int64_t mostBytes) {
    HostFile file(modHostPath::FromProgram(path), FileUse::Append, path);
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
    const HostPath host = PossibleHostPath(path);
    const HostFile file(host, FileUse::Append, path);
    // The holder of the lock of the file that has this name renames it; the others find another file.
    if (!file.LockAlone() || file.Size() < fromBytes || !file.Is(host)) {
        return false;
    }
    RaiseIfFailed(modHostFolder::Replace(host, PossibleHostPath(older)), path);
    return true;
}

void EmptyFile(std::string_view path) {
    HostFile(modHostPath::FromProgram(path), FileUse::Replace, path).Close();
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
    const HostPath host = folder.empty() ? HostPath::FromBytes(".") : PossibleHostPath(folder);
    if (!IsPlainName(name)) {
        RaiseHostError(HostFailure::Other, path);
    }
    const HostPath target = host / name;
    modObstacles::NeedFile(target);
    ReplaceFile(target, path, bytes);
}

}  // namespace dorvik::modFiles
