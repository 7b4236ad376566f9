#include "HostPathSearch.h"

#include "platform/host/modHostFolder.h"

#include <algorithm>
#include <iterator>

namespace dorvik {

namespace {

constexpr std::string_view kSeparators = "\\/";

bool HasDriveLetter(std::string_view path) {
    const auto isLetter = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    return path.size() >= 2 && path[1] == ':' && isLetter(path[0]);
}

bool IsSeparator(char character) {
    return kSeparators.find(character) != std::string_view::npos;
}

bool IsNetworkPath(std::string_view path) {
    return path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]);
}

void TakePart(PathParts& path, std::string_view part) {
    if (part.empty() || part == ".") {
        return;
    }
    if (part != "..") {
        path.Parts.push_back(part);
    } else if (!path.Parts.empty() && path.Parts.back() != "..") {
        path.Parts.pop_back();
    } else if (!path.IsAbsolute) {
        path.Parts.push_back(part);
    }
}

/// The host's form of the path from part `index` on, below `folder`.
HostPath Joined(HostPath folder, const PathParts& path, std::size_t index) {
    for (; index < path.Parts.size(); ++index) {
        folder = folder / path.Parts[index];
    }
    if (path.EndsInSeparator && !path.Parts.empty()) {
        folder = folder / "";
    }
    return folder.IsEmpty() ? HostPath::FromBytes(".") : folder;
}

bool Exists(const HostPath& path) {
    return modHostFolder::KindOf(path) != FileKind::Nothing;
}

/// Windows does not see blanks and dots at the end of a name.
std::string_view WithoutTrailingBlanksAndDots(std::string_view part) {
    return part.substr(0, part.find_last_not_of(" .") + 1);
}

}  // namespace

std::optional<PathParts> CutPath(std::string_view path) {
    if (path.empty() || HasDriveLetter(path) || IsNetworkPath(path) ||
        path.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    PathParts result;
    result.IsAbsolute = IsSeparator(path.front());
    result.EndsInSeparator = IsSeparator(path.back());
    while (!path.empty()) {
        const std::size_t size = std::min(path.find_first_of(kSeparators), path.size());
        TakePart(result, path.substr(0, size));
        path.remove_prefix(std::min(size + 1, path.size()));
    }
    return result;
}

HostPath HostPathSearch::Find(const PathParts& path, int codePage) {
    const HostPath root = HostPath::FromBytes(path.IsAbsolute ? "/" : "");
    const HostPath asWritten = Joined(root, path, 0);
    if (Exists(asWritten)) {
        return asWritten;
    }
    constexpr std::size_t kMostSteps = 256;  // folders that differ only in case could multiply
    m_path = &path;
    m_codePage = codePage;
    m_stepsLeft = kMostSteps;
    m_deepest = root;
    m_deepestCount = 0;
    Walk(root, 0);
    return Joined(m_deepest, path, m_deepestCount);
}

/// True when the whole path has been found below `folder`.
bool HostPathSearch::Walk(const HostPath& folder, std::size_t index) {
    if (index > m_deepestCount) {
        m_deepest = folder;
        m_deepestCount = index;
    }
    if (index == m_path->Parts.size() || m_stepsLeft == 0) {
        return index == m_path->Parts.size();
    }
    --m_stepsLeft;
    const std::string_view part = m_path->Parts[index];
    if (Exists(folder / part) && Walk(folder / part, index + 1)) {
        return true;
    }
    return std::ranges::any_of(OtherSpellings(folder, part), [&](const std::string& name) {
        return m_stepsLeft > 0 && Walk(folder / name, index + 1);
    });
}

/// The names on disk that the part may mean, other than itself. A copy, since deeper steps may read
/// the folder anew.
std::vector<std::string>
HostPathSearch::OtherSpellings(const HostPath& folder, std::string_view part) {
    const std::string_view bare = WithoutTrailingBlanksAndDots(part);
    const std::vector<std::string>* names = bare.empty() ? nullptr : NamesIn(folder).Matching(bare);
    std::vector<std::string> others;
    if (names != nullptr) {
        std::ranges::copy_if(
            *names, std::back_inserter(others), [part](const auto& name) { return name != part; });
    }
    return others;
}

const FolderNames& HostPathSearch::NamesIn(const HostPath& folder) {
    constexpr std::size_t kMostFolders = 64;
    const HostPath place = folder.IsEmpty() ? HostPath::FromBytes(".") : folder;
    const std::pair key(place, m_codePage);
    const auto known = m_folders.find(key);
    if (known != m_folders.end() && known->second.IsUpToDate()) {
        return known->second;
    }
    if (m_folders.size() >= kMostFolders) {
        m_folders.clear();
    }
    return m_folders.insert_or_assign(key, FolderNames(place, m_codePage)).first->second;
}

}  // namespace dorvik
