#include "typelib/modTypeLibraryFolder.h"

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHostPath.h"

#include <algorithm>
#include <array>
#include <deque>
#include <set>
#include <utility>

namespace dorvik::modTypeLibraryFolder {

namespace {

constexpr std::array<std::string_view, 5> kExtensions{".tlb", ".olb", ".dll", ".ocx", ".exe"};

/// What cannot be looked at holds nothing: no permission, or gone since its folder was read.
bool PassOver(const BasicError& /*failure*/) {
    return true;
}

/// One traversal, level by level, so that a limit costs what is deepest.
class Walk {
public:
    explicit Walk(const TypeLibraryFolderLimits& limits) : m_limits(limits) {}

    TypeLibraryFolderFiles Run(std::string_view folder) {
        m_open.push_back({std::string(folder), 0});
        while (!m_open.empty() && !m_found.IsCut) {
            const Folder next = std::move(m_open.front());
            m_open.pop_front();
            if (IsNew(next.Path)) {
                Look(next);
            }
        }
        return std::move(m_found);
    }

    void AddFile(const std::string& path);
    TypeLibraryFolderFiles& Found() { return m_found; }

private:
    struct Folder {
        std::string Path;
        std::int32_t Depth = 0;
    };

    /// False for a folder that a link has led to before.
    bool IsNew(const std::string& folder) {
        const auto real = modHostPath::RealPath(modHostPath::FromProgram(folder));
        return real && m_seen.insert(*real).second;
    }

    void Look(const Folder& folder);

    void Take(const modFiles::FolderEntry& entry, const std::string& path, std::int32_t depth) {
        if (!entry.IsFolder) {
            if (IsCandidate(entry.Name)) {
                AddFile(path);
            }
        } else if (!entry.IsHidden && depth < m_limits.Depth) {
            m_open.push_back({path, depth + 1});
        }
    }

    TypeLibraryFolderLimits m_limits;
    std::deque<Folder> m_open;
    std::set<HostPath> m_seen;
    TypeLibraryFolderFiles m_found;
    std::int32_t m_entries = 0;
};

void Walk::AddFile(const std::string& path) {
    Trap(
        {"modTypeLibraryFolder", "AddFile"},
        [&] {
            const modFiles::FileStamp stamp = modFiles::StampOf(path);
            m_found.Files.push_back({path, stamp.Size, stamp.Modified});
        },
        PassOver);
}

void Walk::Look(const Folder& folder) {
    Trap(
        {"modTypeLibraryFolder", "Look"},
        [&] {
            const std::string base = modUtilFunctions::AddBackslash(folder.Path);
            for (const modFiles::FolderEntry& entry : modFiles::FolderEntries(folder.Path)) {
                if (++m_entries > m_limits.Entries) {
                    m_found.IsCut = true;
                    return;
                }
                Take(entry, base + entry.Name, folder.Depth);
            }
        },
        PassOver);
}

}  // namespace

bool IsCandidate(std::string_view name) {
    return std::ranges::any_of(kExtensions, [name](std::string_view extension) {
        return modTextCase::EndsWith(name, extension);
    });
}

TypeLibraryFolderFiles FilesBelow(std::string_view folder, const TypeLibraryFolderLimits& limits) {
    Walk walk(limits);
    if (modFiles::FileExists(folder)) {
        walk.AddFile(std::string(folder));
        return std::move(walk.Found());
    }
    return walk.Run(folder);
}

}  // namespace dorvik::modTypeLibraryFolder
