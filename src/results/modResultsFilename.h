#pragma once

#include <string>
#include <string_view>

/// Where the results of a project lie. All paths use the backslash.
namespace dorvik::modDorvikUtils {

/// Full path of the results database; empty where the project's path holds no ".". `resultsFolder` empty
/// means the sub-folder "Dorvik\" beside the project file.
std::string CreateResultsFilename(std::string_view projectFile, std::string_view resultsFolder);

/// Full path of the project's review log, under the same rules, except that a path without "." has one too.
std::string CreateProjectLogFilename(std::string_view projectFile, std::string_view resultsFolder);

/// The path of the project file moved into the sub-folder "Dorvik\" of its own folder.
std::string ConvertToDorvikSubFolderPath(std::string_view projectFile);

}  // namespace dorvik::modDorvikUtils
