#include "modHostFolder.h"

#include <cerrno>
#include <dirent.h>
#include <memory>
#include <string_view>

namespace dorvik::modHostFolder {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

std::optional<bool> IsFolder(const dirent& entry) {
    return entry.d_type == DT_UNKNOWN || entry.d_type == DT_LNK
               ? std::nullopt
               : std::optional(entry.d_type == DT_DIR);
}

}  // namespace

std::vector<Entry> Entries(const std::filesystem::path& folder, std::error_code& error) {
    std::vector<Entry> entries;
    error.clear();
    errno = 0;
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.c_str()));
    while (open != nullptr) {
        errno = 0;
        const dirent* const entry = ::readdir(open.get());
        if (entry == nullptr) {
            break;
        }
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            entries.push_back({std::string(name), IsFolder(*entry)});
        }
    }
    if (errno != 0) {
        error.assign(errno, std::system_category());
    }
    return entries;
}

}  // namespace dorvik::modHostFolder
