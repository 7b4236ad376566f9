#pragma once

#include "foundation/text/OutputPlace.h"

#include <string>
#include <string_view>

/// Where the results of a project are stored. All paths use the backslash. The names are made by `modFileName`.
namespace dorvik::modDorvikUtils {

/// Folder and name of the results database; without a name if the path of the project contains no ".". If
/// `resultsFolder` is empty, the folder is "Dorvik\" beside the project file.
OutputPlace ResultsPlace(std::string_view projectFile, std::string_view resultsFolder);

/// Its full path; empty if it has no name.
std::string CreateResultsFilename(std::string_view projectFile, std::string_view resultsFolder);

/// Full path of the project's review log, under the same rules, except that a path without "." has one too.
std::string CreateProjectLogFilename(std::string_view projectFile, std::string_view resultsFolder);

}  // namespace dorvik::modDorvikUtils
