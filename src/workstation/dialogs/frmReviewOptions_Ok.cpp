#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "modReviewOptionsFields.h"
#include "workstation/controls/modWorkstationMessage.h"
#include "workstation/dialogs/frmReviewOptions.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmReviewOptions";

void Warn(std::string text) {
    modWorkstationMessage::Show(MessageIcon::Exclamation, std::move(text));
}

bool AskToCreate(std::string_view word) {
    const MessageAnswer answer = modWorkstationMessage::Show(
        MessageIcon::Question,
        "The " + std::string(word) +
            " folder does not exist, or is not available, would you like to create it?",
        MessageButtons::YesNo);
    return answer == MessageAnswer::Yes;
}

/// A folder that is not there is created if the user wants it.
bool IsValidFolder(const std::string& path, std::string_view word) {
    return Trapped({kModule, "IsValidFolder"}, false, [&] {
        const std::string folder(word);
        if (path.empty()) {
            Warn("Please enter a path to the " + folder + " folder.");
            return false;
        }
        if (modUtilFunctions::FolderExists(path)) {
            return true;
        }
        if (!AskToCreate(word)) {
            Warn("Please create the " + folder + " folder manually, or enter an alternative path.");
            return false;
        }
        if (modUtilFunctions::CreateFullPath(path)) {
            return true;
        }
        Warn(
            "Unable to create the " + folder +
            " folder, please create it manually, or enter an alternative path.");
        return false;
    });
}

void TakeTolerances(const ToleranceSettings& tolerances, ReviewCriteria& criteria) {
    for (std::int32_t index = 1; index <= ToleranceSettings::kPlaces; ++index) {
        criteria.SetToleranceCount(index, tolerances.Count.Item(index));
        criteria.SetToleranceImpact(index, tolerances.Impact.Item(index));
    }
    criteria.SetTolerancePercentageComments(tolerances.PercentageComments);
    criteria.SetToleranceCyclomaticComplexity(tolerances.CyclomaticComplexity);
}

}  // namespace

bool frmReviewOptions::ScreenIsValid() {
    return Trapped({kModule, "ScreenIsValid"}, false, [&] {
        if (m_mode == Mode::Review && !ReviewIsValid()) {
            return false;
        }
        return lvwConventions.AnyChecked() ||
               Refuse(
                   Page::Conventions,
                   "lvwConventions",
                   "Please select the conventions to enforce during the review.");
    });
}

bool frmReviewOptions::ReviewIsValid() {
    if (modReviewOptionsFields::IsBatch(*m_criteria) && txtTitle.Value().empty()) {
        return Refuse(Page::Projects, "txtTitle", "Please enter a title for the batch.");
    }
    if (!RulebaseIsValid()) {
        return false;
    }
    if (modReviewOptionsFields::IsBatch(*m_criteria) && !m_projectTree.AnyProjectChecked()) {
        return Refuse(Page::Projects, "tvwProjects", "Please select the project(s) to review.");
    }
    return FoldersAreValid();
}

bool frmReviewOptions::RulebaseIsValid() {
    const std::string& file = cboRulebase.Value();
    if (file.empty()) {
        return Refuse(Page::Projects, "cboRulebase", "Please select a rulebase for the review.");
    }
    return modUtilFunctions::FileExists(file) ||
           Refuse(
               Page::Projects,
               "cboRulebase",
               "The selected rulebase '" + file + "' cannot be found, please check the path.");
}

bool frmReviewOptions::FoldersAreValid() {
    if (!chkResultsFolder.Value() && !IsValidFolder(txtResultsFolder.Value(), "results")) {
        return MoveTo(Page::Results, "txtResultsFolder");
    }
    const bool needsReportsFolder = optReports.Value() != 0 && !chkReportsFolder.Value();
    if (needsReportsFolder && !IsValidFolder(txtReportsFolder.Value(), "reports")) {
        return MoveTo(Page::Results, "txtReportsFolder");
    }
    return true;
}

bool frmReviewOptions::Refuse(Page page, std::string_view control, std::string_view text) {
    Warn(std::string(text));
    return MoveTo(page, control);
}

/// Always false: what the user has entered there is not valid.
bool frmReviewOptions::MoveTo(Page page, std::string_view control) {
    tbsOptions.Shown.Set(static_cast<std::int16_t>(page));
    Focus.Set(std::string(control));
    return false;
}

bool frmReviewOptions::DataFromScreen() {
    return Trap({kModule, "DataFromScreen"}, [&] {
        if (m_mode == Mode::Review) {
            // A text that is no limit raises, in front of all that is taken over.
            const ToleranceSettings tolerances = TolerancesOnScreen();
            ReviewFromScreen();
            TakeTolerances(tolerances, *m_criteria);
        }
        RulebaseLoadCriteria& criteria = LoadCriteria();
        modReviewOptionsFields::TakeConventions(lvwConventions, criteria);
        modReviewOptionsFields::TakeCategories(lvwCategories, criteria);
        modReviewOptionsFields::TakeSeverities(lvwSeverities, criteria);
    });
}

void frmReviewOptions::ReviewFromScreen() {
    m_criteria->LoadCriteria().SetRulebaseFile(cboRulebase.Value());
    m_projectTree.DataFromScreen(*m_criteria);
    if (modReviewOptionsFields::IsBatch(*m_criteria)) {
        m_criteria->SetBatchTitle(txtTitle.Value());
    }
    m_criteria->SetBackgroundReview(chkBackground.Value());
    m_criteria->SetClearLogBeforeReview(chkClearLog.Value());
    m_criteria->SetUseProjectFolderResults(chkResultsFolder.Value());
    m_criteria->SetUseProjectFolderReports(chkReportsFolder.Value());
    m_criteria->SetFixedFolderResults(txtResultsFolder.Value());
    m_criteria->SetFixedFolderReports(txtReportsFolder.Value());
    m_criteria->SetReportOption(optReports.Value());
}

ToleranceSettings frmReviewOptions::TolerancesOnScreen() const {
    using modReviewOptionsFields::LimitOfText;
    ToleranceSettings tolerances;
    for (std::int32_t index = 1; index <= ToleranceSettings::kPlaces; ++index) {
        const auto place = static_cast<std::size_t>(index) - 1;
        tolerances.Count.SetItem(index, LimitOfText(txtCount[place].Value()));
        tolerances.Impact.SetItem(index, LimitOfText(txtImpact[place].Value()));
    }
    tolerances.PercentageComments = LimitOfText(txtComments.Value());
    tolerances.CyclomaticComplexity = LimitOfText(txtComplexity.Value());
    return tolerances;
}

}  // namespace dorvik
