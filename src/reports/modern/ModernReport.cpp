#include "reports/modern/ModernReport.h"

#include "ModernReportData.h"
#include "ModernReportPage.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modFileName.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/OutputRefusal.h"
#include "reports/format/modReportFile.h"

namespace dorvik {

std::string ModernReport::CreatePage(ResultsDB& results, const ModernReportFacts& facts) {
    return Trapped({kModule, "CreatePage"}, std::string(), [&] {
        return modModernReport::Page(ModernReportData::ReadFrom(results, facts));
    });
}

OutputPlace ModernReport::PlaceFor(std::string_view projectFile, std::string_view folder) {
    std::string name = modUtilFunctions::FilenameFromFullPathName(projectFile);
    if (const std::size_t dot = name.rfind('.'); dot != std::string::npos) {
        name.erase(dot);
    }
    OutputPlace place = OutputPlace::For(std::string(projectFile), std::string(folder));
    place.Name = modFileName::FromText(name, "_Review.html");
    return place;
}

bool ModernReport::Save(
    ResultsDB& results,
    const ModernReportFacts& facts,
    const OutputPlace& place,
    std::string* refusal) {
    bool saved = false;
    const auto save = [&] {
        const std::string page = CreatePage(results, facts);
        if (!page.empty()) {
            modReportFile::WriteAsItIs(place, page);
            saved = true;
        }
    };
    Trap({kModule, "Save"}, save, [&](const BasicError& failure) {
        if (refusal != nullptr) {
            *refusal = OutputRefusal::SentenceIn(failure);
        }
        return false;
    });
    return saved;
}

}  // namespace dorvik
