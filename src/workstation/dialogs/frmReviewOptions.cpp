#include "workstation/dialogs/frmReviewOptions.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "modReviewOptionsFields.h"
#include "platform/host/modFiles.h"
#include "rulebase/file/RulebaseManager.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"
#include "workstation/dialogs/FileDialogs.h"
#include "workstation/screen/IScreen.h"

#include <optional>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmReviewOptions";
constexpr std::string_view kRulebaseFolder = "Settings\\Rulebase\\";
constexpr std::string_view kRulebaseEnding = ".dvk";
constexpr std::string_view kSampleRulebase = "Sample.dvk";

std::int16_t NumberOf(frmReviewOptions::Page page) {
    return static_cast<std::int16_t>(page);
}

std::string RulebaseFolder() {
    return modGlobal::Data().LocalAppPath() + std::string(kRulebaseFolder);
}

std::vector<std::string> InstalledRulebases() {
    std::vector<std::string> files;
    const std::string folder = RulebaseFolder();
    if (modFiles::FolderExists(folder)) {
        for (const modFiles::FolderEntry& entry : modFiles::FolderEntries(folder)) {
            if (!entry.IsFolder && modTextCase::EndsWith(entry.Name, kRulebaseEnding)) {
                files.push_back(folder + entry.Name);
            }
        }
    }
    return files;
}

/// Empty where it is not installed.
std::string DefaultRulebase() {
    const std::string sample = RulebaseFolder() + std::string(kSampleRulebase);
    return modUtilFunctions::FileExists(sample) ? sample : std::string();
}

}  // namespace

frmReviewOptions::frmReviewOptions(IScreen& screen)
    : tbsOptions({"Projects", "Results", "Conventions", "Categories", "Severities", "Tolerances"}),
      m_screen(screen),
      m_projectTree(tvwProjects),
      m_onResultsFolder(chkResultsFolder.Changed.Subscribe([this](bool) { EnableFolders(); })),
      m_onReportsFolder(chkReportsFolder.Changed.Subscribe([this](bool) { EnableFolders(); })),
      m_onReports(optReports.Changed.Subscribe([this](std::int32_t) { EnableFolders(); })) {}

frmReviewOptions::~frmReviewOptions() = default;

void frmReviewOptions::SetCategoryList(const CategoryList& categories) {
    m_categories.Clear();
    for (const auto& item : categories) {
        m_categories.Add(item, /*newItem=*/false);
    }
}

void frmReviewOptions::SetSeverityList(const SeverityTable& severities) {
    m_severities.Clear();
    for (const auto& item : severities) {
        m_severities.Add(item->Key(), item);
    }
}

void frmReviewOptions::ReviewOptions(std::shared_ptr<ReviewCriteria> criteria) {
    m_mode = Mode::Review;
    m_criteria = std::move(criteria);
    m_isFirstOpening = m_criteria->LoadCriteria().RulebaseFile().empty();
    Form_Load();
}

void frmReviewOptions::FilterOptions(RulebaseLoadCriteria& filter) {
    m_mode = Mode::Filter;
    m_filter = &filter;
    Form_Load();
}

void frmReviewOptions::Form_Load() {
    Trap({kModule, "Form_Load"}, [&] {
        const bool isFilter = m_mode == Mode::Filter;
        Caption.Set(isFilter ? "Filter Options" : "Review Options");
        const std::string action = isFilter ? "include:" : "enforce:";
        lblConventions.Set("Select the conventions to " + action);
        lblCategories.Set("Select the categories to " + action);
        lblSeverities.Set("Select the rule severity levels to " + action);
        if (!isFilter) {
            m_rulebaseFiles = InstalledRulebases();
        }
        tbsOptions.Shown.Set(NumberOf(isFilter ? Page::Conventions : Page::Projects));
        DataToScreen();
    });
}

void frmReviewOptions::DataToScreen() {
    Trap({kModule, "DataToScreen"}, [&] {
        const RulebaseLoadCriteria& criteria = LoadCriteria();
        modReviewOptionsFields::FillConventions(criteria, m_isFirstOpening, lvwConventions);
        if (m_mode == Mode::Filter) {
            FillLists();
            return;
        }
        TitleIsOffered.Set(modReviewOptionsFields::IsBatch(*m_criteria));
        txtTitle.Set(m_criteria->BatchTitle());
        ShowTolerances(m_criteria->Tolerances());
        cboRulebase.Set(m_isFirstOpening ? DefaultRulebase() : criteria.RulebaseFile());
        LoadRulebaseLists();
        m_onRulebase =
            cboRulebase.Changed.Subscribe([this](const std::string&) { cboRulebase_Change(); });
        m_projectTree.PopulateProjectTree(*m_criteria);
        chkBackground.Set(
            m_criteria->BackgroundReview() && !modReviewOptionsFields::IsBatch(*m_criteria));
        BackgroundEnabled.Set(!modReviewOptionsFields::IsBatch(*m_criteria));
        chkClearLog.Set(m_criteria->ClearLogBeforeReview());
        chkResultsFolder.Set(m_criteria->UseProjectFolderResults());
        txtResultsFolder.Set(m_criteria->FixedFolderResults());
        chkReportsFolder.Set(m_criteria->UseProjectFolderReports());
        txtReportsFolder.Set(m_criteria->FixedFolderReports());
        optReports.Set(m_criteria->ReportOption());
        EnableFolders();
    });
}

void frmReviewOptions::EnableFolders() {
    ResultsFolderEnabled.Set(!chkResultsFolder.Value());
    ReportsFolderEnabled.Set(optReports.Value() != 0 && !chkReportsFolder.Value());
}

void frmReviewOptions::FillLists() {
    const RulebaseLoadCriteria& criteria = LoadCriteria();
    modReviewOptionsFields::FillCategories(m_categories, criteria, m_isFirstOpening, lvwCategories);
    modReviewOptionsFields::FillSeverities(m_severities, criteria, m_isFirstOpening, lvwSeverities);
}

void frmReviewOptions::cboRulebase_Change() {
    Trap({kModule, "cboRulebase_Change"}, [&] { LoadRulebaseLists(); });
}

/// A file that is not there, and one that cannot be read, has no categories and no severities of its own.
void frmReviewOptions::LoadRulebaseLists() {
    m_categories.Clear();
    m_severities.Clear();
    const std::string& file = cboRulebase.Value();
    if (modFiles::FileExists(file)) {
        ToleranceSettings tolerances;
        const bool isLoaded = RulebaseManager().LoadReviewOptions(
            file,
            m_categories,
            m_severities,
            m_criteria->LoadCriteria(),
            m_isFirstOpening ? &tolerances : nullptr);
        if (isLoaded && m_isFirstOpening) {
            ShowTolerances(tolerances);
        }
    }
    FillLists();
}

void frmReviewOptions::ShowTolerances(const ToleranceSettings& tolerances) {
    using modReviewOptionsFields::TextOfLimit;
    for (std::int32_t index = 1; index <= ToleranceSettings::kPlaces; ++index) {
        const auto place = static_cast<std::size_t>(index) - 1;
        txtCount[place].Set(TextOfLimit(tolerances.Count.Item(index)));
        txtImpact[place].Set(TextOfLimit(tolerances.Impact.Item(index)));
    }
    txtComments.Set(TextOfLimit(tolerances.PercentageComments));
    txtComplexity.Set(TextOfLimit(tolerances.CyclomaticComplexity));
}

bool frmReviewOptions::Ok() {
    if (!ScreenIsValid() || !DataFromScreen()) {
        return false;
    }
    m_cancelled = false;
    Close();
    return true;
}

void frmReviewOptions::Cancel() {
    Trap({kModule, "Cancel"}, [&] {
        m_cancelled = true;
        if (m_criteria != nullptr) {
            for (const auto& project : m_criteria->ProjectList()) {
                project->ClearListProperties();
            }
        }
    });
    Close();
}

void frmReviewOptions::Close() {
    m_isClosed = true;
    Closed.Raise();
}

void frmReviewOptions::Reset() {
    lvwConventions.SetAll(true);
    lvwCategories.SetAll(true);
    lvwSeverities.SetAll(true);
}

void frmReviewOptions::SelectAllOrNone(bool select) {
    switch (static_cast<Page>(tbsOptions.Shown.Value())) {
        case Page::Projects: m_projectTree.SelectAllOrNone(select); break;
        case Page::Conventions: lvwConventions.SetAll(select); break;
        case Page::Categories: lvwCategories.SetAll(select); break;
        case Page::Severities: lvwSeverities.SetAll(select); break;
        case Page::Results:
        case Page::Tolerances: break;
    }
}

bool frmReviewOptions::PageIsOffered(Page page) const {
    return m_mode == Mode::Review || page == Page::Conventions || page == Page::Categories ||
           page == Page::Severities;
}

void frmReviewOptions::NextTab() {
    std::int16_t next = tbsOptions.Shown.Value();
    do {
        next = next >= tbsOptions.Count() ? std::int16_t{1} : static_cast<std::int16_t>(next + 1);
    } while (!PageIsOffered(static_cast<Page>(next)));
    tbsOptions.Shown.Set(next);
}

void frmReviewOptions::BrowseRulebase() {
    if (const auto file = FileDialogs(m_screen).GetOpenFileName(
            FileKind::Rulebase, "Select Rulebase", cboRulebase.Value())) {
        cboRulebase.Set(*file);
    }
}

void frmReviewOptions::BrowseResultsFolder() {
    if (const auto folder =
            m_screen.ChooseFolder("Choose Fixed Results Folder", txtResultsFolder.Value())) {
        txtResultsFolder.Set(*folder);
    }
}

void frmReviewOptions::BrowseReportsFolder() {
    if (const auto folder =
            m_screen.ChooseFolder("Choose Reports Folder", txtReportsFolder.Value())) {
        txtReportsFolder.Set(*folder);
    }
}

RulebaseLoadCriteria& frmReviewOptions::LoadCriteria() const {
    return m_mode == Mode::Filter ? *m_filter : m_criteria->LoadCriteria();
}

}  // namespace dorvik
