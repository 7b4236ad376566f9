#include "reports/ModernReport.h"

#include "foundation/Trap.h"
#include "foundation/modUtilFunctions.h"
#include "platform/modFiles.h"
#include "reports/ModernReportData.h"
#include "reports/ModernReportPage.h"
#include "results/modResultsFilename.h"

namespace dorvik {

std::string ModernReport::CreatePage(ResultsDB& results, const ModernReportFacts& facts) {
    std::string page;
    Trap({kModule, "CreatePage"}, [&] {
        page = modModernReport::Page(ModernReportData::ReadFrom(results, facts));
    });
    return page;
}

std::string ModernReport::CreateFilename(std::string_view projectFile, std::string_view folder) {
    std::string name = folder.empty() ? modDorvikUtils::ConvertToDorvikSubFolderPath(projectFile)
                                      : modUtilFunctions::AddBackslash(folder) +
                                            modUtilFunctions::FilenameFromFullPathName(projectFile);
    const std::size_t dot = name.rfind('.');
    const std::size_t separator = name.rfind('\\');
    if (dot != std::string::npos && (separator == std::string::npos || dot > separator)) {
        name.erase(dot);
    }
    return name + "_Review.html";
}

bool ModernReport::Save(
    ResultsDB& results, const ModernReportFacts& facts, std::string_view filename) {
    bool saved = false;
    Trap({kModule, "Save"}, [&] {
        const std::string page = CreatePage(results, facts);
        if (!page.empty()) {
            modUtilFunctions::CreateFullPath(modUtilFunctions::PathFromFilename(filename));
            modFiles::WriteBytesAtomically(filename, page);
            saved = true;
        }
    });
    return saved;
}

}  // namespace dorvik
