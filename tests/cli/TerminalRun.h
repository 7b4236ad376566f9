#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace dorvik::test {

/// Runs the program with a terminal of so many columns as its output, and returns what that shows.
/// `environment` is set in addition, as "NAME=value".
std::string RunInTerminal(
    const std::vector<std::string>& arguments,
    const std::filesystem::path& workingFolder,
    const std::filesystem::path& stateFolder,
    unsigned short columns,
    const std::string& environment = {});

}  // namespace dorvik::test
