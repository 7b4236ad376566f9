#include "modProjectResults.h"

#include "enforcement/ResultsManager.h"
#include "results/ResultsDB.h"
#include "results/modTolerances.h"
#include "source/VirtualProject.h"

namespace dorvik::modProjectResults {

void MeasureTolerances(
    ResultsManager& results,
    const ReviewCriteria& criteria,
    VirtualObject& object,
    bool isProjectFile) {
    if (!modTolerances::SetTolerancePassValue(object, criteria, isProjectFile)) {
        results.ResultsDB().NoteLoss("a measure could not be computed, see the log");
    }
}

void RecordLosses(VirtualProject& project, ResultsManager& results) {
    const StoreFailures& failures = results.ResultsDB().Failures();
    if (failures.Count() > 0) {
        project.Outcome().ResultsLost = {failures.Count(), failures.Reason()};
        project.Outcome().ReviewStatus = 1;
    }
}

}  // namespace dorvik::modProjectResults
