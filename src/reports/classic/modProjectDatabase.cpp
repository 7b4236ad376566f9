#include "reports/classic/modProjectDatabase.h"

#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "platform/host/modFiles.h"
#include "results/ResultsDB.h"
#include "results/modResultsFilename.h"
#include "source/VirtualProject.h"

namespace dorvik::modProjectDatabase {

namespace {

std::string ResultsFolder(const ReviewCriteria& criteria) {
    return criteria.UseProjectFolderResults() ? std::string() : criteria.FixedFolderResults();
}

}  // namespace

bool OpenResultsDatabase(
    const VirtualProject& project,
    const ReviewCriteria& criteria,
    std::unique_ptr<ResultsDB>& results) {
    return Trapped({"ReportsEngine", "OpenResultsDatabase"}, false, [&] {
        results = std::make_unique<ResultsDB>();
        const std::string filename =
            modDorvikUtils::CreateResultsFilename(project.Filename(), ResultsFolder(criteria));
        return modFiles::FileExists(filename) && results->OpenReview(filename);
    });
}

std::string LogFilename(const VirtualProject& project, const ReviewCriteria& criteria) {
    return modDorvikUtils::CreateProjectLogFilename(project.Filename(), ResultsFolder(criteria));
}

}  // namespace dorvik::modProjectDatabase
