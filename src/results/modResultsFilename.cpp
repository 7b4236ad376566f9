#include "results/modResultsFilename.h"

#include "base/modUtf8.h"
#include "foundation/modUtilFunctions.h"

namespace dorvik::modDorvikUtils {

namespace {

constexpr std::size_t kExtensionLength = 4;

/// Required: the last four characters go, whatever they are.
std::string InResultsFolder(
    std::string_view projectFile, std::string_view resultsFolder, std::string_view ending) {
    std::string base;
    if (resultsFolder.empty()) {
        base = ConvertToDorvikSubFolderPath(projectFile);
    } else {
        base = resultsFolder;
        base += base.back() == '\\' ? "" : "\\";
        base += modUtilFunctions::FilenameFromFullPathName(projectFile);
    }
    std::string result(modUtf8::WithoutLast(base, kExtensionLength));
    result += ending;
    return result;
}

}  // namespace

std::string CreateResultsFilename(std::string_view projectFile, std::string_view resultsFolder) {
    if (projectFile.find('.') == std::string_view::npos) {
        return {};
    }
    return InResultsFolder(projectFile, resultsFolder, "_DORVIK.mdb");
}

std::string CreateProjectLogFilename(std::string_view projectFile, std::string_view resultsFolder) {
    return InResultsFolder(projectFile, resultsFolder, "_DORVIK.txt");
}

std::string ConvertToDorvikSubFolderPath(std::string_view projectFile) {
    std::string result(modUtilFunctions::PathFromFilename(projectFile));
    result += "Dorvik\\";
    result +=
        modUtilFunctions::FilenameFromFullPathName(projectFile);  // empty for a name without "."
    return result;
}

}  // namespace dorvik::modDorvikUtils
