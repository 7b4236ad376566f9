#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

/// Reads folders of this machine. The directory iterators of the standard library end the program where
/// memory runs out between two entries, as they step on in functions that may not raise.
namespace dorvik::modHostFolder {

struct Entry {
    std::string Name;
    std::optional<bool> IsFolder;  // nothing where only the file itself shows it, as for a link
};

/// What is in the folder, without "." and "..", in the order of the disk. `error` says why it is not, or
/// not all, there. Raises nothing but a lack of memory.
std::vector<Entry> Entries(const std::filesystem::path& folder, std::error_code& error);

}  // namespace dorvik::modHostFolder
