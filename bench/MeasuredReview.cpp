#include "MeasuredReview.h"

#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/RuleEngine.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "review/ReviewManager.h"
#include "rulebase/model/Rulebase.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"

#include <memory>

namespace dorvik {

std::string InstalledRulebase() {
    modGlobal::CreateGlobalObjects();
    return modGlobal::WorkData().LastRulebase;
}

std::shared_ptr<ReviewCriteria>
CriteriaOf(const std::string& projectFile, const std::string& rulebaseFile) {
    auto criteria = std::make_shared<ReviewCriteria>();
    criteria->SetReportOption(0);
    criteria->SetWritesBatchReport(false);
    criteria->SetUseProjectFolderResults(true);
    RulebaseLoadCriteria& load = criteria->LoadCriteria();
    load.SetRulebaseFile(rulebaseFile);
    load.SetUnauthorisedKeywords(true);
    load.SetCodingConventions(true);
    load.SetNamingConventions(true);
    for (std::int32_t level = 1; level <= 5; ++level) {
        load.SetSeverityLevel(level, true);
    }
    const auto project = std::make_shared<VirtualProject>();
    project->SetFilename(projectFile);
    criteria->ProjectList().Add(projectFile, project, true, true);
    return criteria;
}

bool ReviewProject(const std::string& projectFile, const std::string& rulebaseFile) {
    modGlobal::CreateGlobalObjects();
    modLog::Log().SetQuiet(true);
    ReviewManager manager;
    manager.InitialiseReview(CriteriaOf(projectFile, rulebaseFile));
    return manager.ReviewTimeSlice(kWholeReview) == SliceResult::Complete;
}

}  // namespace dorvik
