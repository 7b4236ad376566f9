#include "results/modResultsFilename.h"

#include "base/modUtf8.h"
#include "foundation/text/modFileName.h"
#include "foundation/text/modUtilFunctions.h"

namespace dorvik::modDorvikUtils {

namespace {

constexpr std::size_t kExtensionLength = 4;

// Required: the last four characters are cut off, whatever they are. If the name is shorter, they include the end
// of the folder's path, and the file is stored next to that folder.
OutputPlace InResultsFolder(
    std::string_view projectFile, std::string_view resultsFolder, std::string_view ending) {
    OutputPlace place = OutputPlace::For(std::string(projectFile), std::string(resultsFolder));
    std::string base = place.Folder();
    base += modUtilFunctions::FilenameFromFullPathName(projectFile);
    base = modUtf8::WithoutLast(base, kExtensionLength);
    if (base.size() < place.Folder().size()) {
        place = {modUtilFunctions::PathFromFilename(base)};
    }
    const std::size_t folderSize = place.Folder().size();
    place.Name = modFileName::FromText(std::string_view(base).substr(folderSize), ending);
    return place;
}

}  // namespace

OutputPlace ResultsPlace(std::string_view projectFile, std::string_view resultsFolder) {
    return projectFile.find('.') == std::string_view::npos
               ? OutputPlace()
               : InResultsFolder(projectFile, resultsFolder, "_DORVIK.mdb");
}

std::string CreateResultsFilename(std::string_view projectFile, std::string_view resultsFolder) {
    return ResultsPlace(projectFile, resultsFolder).Path();
}

std::string CreateProjectLogFilename(std::string_view projectFile, std::string_view resultsFolder) {
    return InResultsFolder(projectFile, resultsFolder, "_DORVIK.txt").Path();
}

}  // namespace dorvik::modDorvikUtils
