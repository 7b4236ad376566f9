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
    std::optional<bool> IsFolder;  // nothing where only a look at the file tells, as for a link
};

/// What is in the folder, without "." and "..", in the order of the disk. `error` tells why it is not, or
/// not all, there. Raises nothing but the want of memory.
std::vector<Entry> Entries(const std::filesystem::path& folder, std::error_code& error);

}  // namespace dorvik::modHostFolder
