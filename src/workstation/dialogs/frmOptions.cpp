#include "workstation/dialogs/frmOptions.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "workstation/dialogs/FileDialogs.h"
#include "workstation/screen/IScreen.h"

#include <limits>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmOptions";

/// What the lists of the hotspot view are sorted by, in the order of the sort keys from 1.
constexpr std::string_view kSortMembers[] = {"Name", "Violations", "Impact", "Complexity"};
/// In the order of the values from 0.
constexpr std::string_view kReports[] = {"None", "Summary", "Detailed"};

void FillSortMembers(ComboBox& list, std::int32_t sortKey) {
    std::int32_t key = 0;
    for (const std::string_view member : kSortMembers) {
        ++key;
        list.Add({std::to_string(key), {}, std::string(member), {}});
    }
    list.Select(list.Find(std::to_string(sortKey)));
}

/// A list without a selection leaves the setting as it is.
void TakeSortKey(const ComboBox& list, std::int32_t& sortKey) {
    if (const auto index = list.SelectedIndex()) {
        sortKey = static_cast<std::int32_t>(*index) + 1;
    }
}

std::int16_t ShortFromText(std::string_view text) {
    const double number = modText::LeadingNumber(text);
    const std::int32_t whole = number > std::numeric_limits<std::int16_t>::max()
                                   ? std::numeric_limits<std::int32_t>::max()
                                   : modText::RoundToLong(number);
    if (whole > std::numeric_limits<std::int16_t>::max()) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return static_cast<std::int16_t>(whole);
}

}  // namespace

frmOptions::frmOptions(IScreen& screen)
    : tbsOptions({"General", "Review", "Results View", "Folders"}),
      m_screen(screen),
      m_caption("Options") {
    m_onResultsFolder = chkResultsFolder.Changed.Subscribe([this](bool) { EnableFolders(); });
    m_onReportsFolder = chkReportsFolder.Changed.Subscribe([this](bool) { EnableFolders(); });
    Trap({kModule, "frmOptions"}, [&] { DataToScreen(modGlobal::WorkData()); });
    tbsOptions.Shown.Set(static_cast<std::int16_t>(Page::General));
}

void frmOptions::DataToScreen(const DVKWorkData& settings) {
    chkShowWorkbench.Set(settings.AlwaysShowWorkbench);
    chkShowSummary.Set(settings.AlwaysShowSummary);
    chkResultsFolder.Set(settings.UseProjectFolderResults);
    txtResultsFolder.Set(settings.UseProjectFolderResults ? "" : settings.LastResultsPath);
    chkReportsFolder.Set(settings.UseProjectFolderReports);
    txtReportsFolder.Set(settings.UseProjectFolderReports ? "" : settings.LastReportsPath);
    EnableFolders();
    for (const std::string_view report : kReports) {
        cboReports.Add({std::to_string(cboReports.Count()), {}, std::string(report), {}});
    }
    cboReports.Select(cboReports.Find(std::to_string(settings.LastReportOption)));
    const bool hasButton = settings.CompletedItemsOption == 1 || settings.CompletedItemsOption == 2;
    optCompleted.Set(hasButton ? settings.CompletedItemsOption : 0);
    chkSynchronise.Set(settings.AlwaysSynchroniseVL);
    FillSortMembers(lstProjectMember, settings.RVFileSortKey);
    optPMOrder.Set(settings.RVFileSortAscending);
    chkPMZero.Set(settings.RVFileShowZeroItems);
    FillSortMembers(lstFileMember, settings.RVProcSortKey);
    optFMOrder.Set(settings.RVProcSortAscending);
    chkFMZero.Set(settings.RVProcShowZeroItems);
    chkClearLog.Set(settings.ClearLog);
    chkBackground.Set(settings.BackgroundReview);
    txtTickCount.Set(std::to_string(settings.BackgroundTickCount));
    txtRBDoc.Set(settings.RBDocPath);
}

void frmOptions::DataFromScreen(DVKWorkData& settings) const {
    settings.AlwaysShowWorkbench = chkShowWorkbench.Value();
    settings.AlwaysShowSummary = chkShowSummary.Value();
    settings.UseProjectFolderResults = chkResultsFolder.Value();
    if (!chkResultsFolder.Value()) {
        settings.LastResultsPath = txtResultsFolder.Value();
    }
    settings.UseProjectFolderReports = chkReportsFolder.Value();
    if (!chkReportsFolder.Value()) {
        settings.LastReportsPath = txtReportsFolder.Value();
    }
    if (const auto report = cboReports.SelectedIndex()) {
        settings.LastReportOption = static_cast<std::int32_t>(*report);
    }
    if (optCompleted.Value() == 1 || optCompleted.Value() == 2) {
        settings.CompletedItemsOption = optCompleted.Value();
    }
    settings.AlwaysSynchroniseVL = chkSynchronise.Value();
    TakeSortKey(lstProjectMember, settings.RVFileSortKey);
    settings.RVFileSortAscending = optPMOrder.Value();
    settings.RVFileShowZeroItems = chkPMZero.Value();
    TakeSortKey(lstFileMember, settings.RVProcSortKey);
    settings.RVProcSortAscending = optFMOrder.Value();
    settings.RVProcShowZeroItems = chkFMZero.Value();
    settings.ClearLog = chkClearLog.Value();
    settings.BackgroundReview = chkBackground.Value();
    settings.BackgroundTickCount = ShortFromText(txtTickCount.Value());
    settings.RBDocPath = txtRBDoc.Value();
}

void frmOptions::EnableFolders() {
    ResultsFolderEnabled.Set(!chkResultsFolder.Value());
    ReportsFolderEnabled.Set(!chkReportsFolder.Value());
}

bool frmOptions::Ok() {
    const bool isTaken = Trap({kModule, "Ok"}, [&] {
        DVKWorkData settings = modGlobal::WorkData();
        DataFromScreen(settings);
        modGlobal::WorkData() = std::move(settings);
    });
    if (isTaken) {
        m_cancelled = false;
        Close();
    }
    return isTaken;
}

void frmOptions::Cancel() {
    m_cancelled = true;
    Close();
}

void frmOptions::Close() {
    m_isClosed = true;
    Closed.Raise();
}

bool frmOptions::PageIsShown(Page page) const {
    return tbsOptions.Shown.Value() == static_cast<std::int16_t>(page);
}

void frmOptions::NextTab() {
    tbsOptions.Shown.Set(tbsOptions.Next());
}

void frmOptions::BrowseResultsFolder() {
    if (ResultsFolderEnabled.Value()) {
        if (const auto folder =
                m_screen.ChooseFolder("Choose Fixed Results Folder", txtResultsFolder.Value())) {
            txtResultsFolder.Set(*folder);
        }
    }
}

void frmOptions::BrowseReportsFolder() {
    if (ReportsFolderEnabled.Value()) {
        if (const auto folder =
                m_screen.ChooseFolder("Choose Reports Folder", txtReportsFolder.Value())) {
            txtReportsFolder.Set(*folder);
        }
    }
}

void frmOptions::BrowseRulebaseDocument() {
    if (const auto file = FileDialogs(m_screen).GetOpenFileName(
            FileKind::RulebaseDocument, "Select Rulebase Document", txtRBDoc.Value())) {
        txtRBDoc.Set(*file);
    }
}

void frmOptions::TypeTickCount(std::string_view text) {
    std::string taken;
    for (const char character : text) {
        if (modUtilFunctions::CheckNumericKey(static_cast<unsigned char>(character)) != 0) {
            taken += character;
        }
    }
    txtTickCount.Set(std::move(taken));
}

}  // namespace dorvik
