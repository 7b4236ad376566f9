#include "workstation/dialogs/frmReviewSummary.h"

#include "ReviewSummaryPages.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "modSummaryLayout.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "workstation/screen/IScreen.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmReviewSummary";
constexpr std::string_view kAscendingIcon = "SortAscending";
constexpr std::string_view kDescendingIcon = "SortDescending";

}  // namespace

frmReviewSummary::frmReviewSummary(IScreen& screen)
    : tbsReview(
          {"Summary",
           "Criteria",
           "Violations",
           "Impact",
           "Complexity",
           "Line Counts",
           "Tolerances"}),
      m_screen(screen),
      m_onSourceFile(cboSourceFiles.Clicked.Subscribe([this] { cboSourceFiles_Click(); })),
      m_onDoubleClick(lvwReview.DoubleClicked.Subscribe([this] { lvwReview_DblClick(); })),
      m_onColumnClick(lvwReview.ColumnClicked.Subscribe(
          [this](std::size_t column) { lvwReview_ColumnClick(column); })) {}

frmReviewSummary::~frmReviewSummary() {
    if (!m_isClosed) {
        Trap({kModule, "frmReviewSummary"}, [&] { m_screen.Hide(*this); });
    }
}

void frmReviewSummary::Initialise(
    ResultsDB& results, const std::string& logFile, const std::string& reportFile) {
    Trap({kModule, "Initialise"}, [&] {
        m_pages = std::make_unique<ReviewSummaryPages>(results, lvwReview);
        m_logFile = logFile;
        m_reportFile = reportFile;
        Caption.Set(m_pages->ProjectName() + " - Review Summary");
        ViewLogEnabled.Set(modUtilFunctions::FileExists(m_logFile));
        ViewReportEnabled.Set(!m_reportFile.empty() && modUtilFunctions::FileExists(m_reportFile));
        Form_Load();
    });
}

void frmReviewSummary::Form_Load() {
    Trap({kModule, "Form_Load"}, [&] {
        const DVKWorkData& settings = modGlobal::WorkData();
        Position = {settings.RVDTop, settings.RVDLeft, settings.RVDWidth, settings.RVDHeight};
        SwitchTab(kSummaryTab);
    });
}

void frmReviewSummary::SwitchTab(std::int16_t tab) {
    Trap({kModule, "SwitchTab"}, [&] {
        if (tab == CurrentTab() || tab < kSummaryTab || tab > tbsReview.Count()) {
            return;
        }
        SaveListViewColumnData();
        lvwReview.Clear();
        SetupListView(tab);
        SourceFilesVisible.Set(tab == kComplexityTab);
        FillPage(tab);
        tbsReview.Shown.Set(tab);
    });
}

void frmReviewSummary::NextTab() {
    SwitchTab(tbsReview.Next());
}

void frmReviewSummary::SetupListView(std::int16_t tab) {
    Trap({kModule, "SetupListView"}, [&] {
        const DVKWorkData& settings = modGlobal::WorkData();
        lvwReview.SetColumns(modSummaryLayout::ColumnsOf(tab, settings));
        const modSummaryLayout::SortSetting stored = modSummaryLayout::SortSettingOf(tab, settings);
        const bool isColumn = stored.Column >= 0 &&
                              static_cast<std::size_t>(stored.Column) < lvwReview.Columns().size();
        m_sort = isColumn ? SortState{stored.Column, stored.Order == 0} : SortState{};
        if (!m_sort.IsOrderOfReading()) {
            ShowSortIcon();
        }
    });
}

void frmReviewSummary::FillPage(std::int16_t tab) {
    switch (tab) {
        case kSummaryTab: m_pages->PopulateReviewSummary(); break;
        case kCriteriaTab: m_pages->PopulateReviewCriteria(); break;
        case kViolationsTab: m_pages->PopulateViolationsSummary(); break;
        case kImpactTab: m_pages->PopulateImpactSummary(); break;
        case kComplexityTab: FillComplexityPage(); return;
        case kLineCountsTab: m_pages->PopulateLineCountSummary(); break;
        case kTolerancesTab: m_pages->PopulateTolerancesSummary(); break;
        default: break;
    }
    SortFilledRows();
}

/// The files box is filled once; its choice stays for as long as the form.
void frmReviewSummary::FillComplexityPage() {
    if (cboSourceFiles.Count() == 0) {
        PopulateSourceFilesCombo();
    } else {
        cboSourceFiles_Click();
    }
}

void frmReviewSummary::PopulateSourceFilesCombo() {
    Trap({kModule, "PopulateSourceFilesCombo"}, [&] {
        cboSourceFiles.Fill(m_pages->SourceFileItems());
        cboSourceFiles.Choose(0);
    });
}

void frmReviewSummary::cboSourceFiles_Click() {
    Trap({kModule, "cboSourceFiles_Click"}, [&] {
        if (const ComboItem* const item = cboSourceFiles.SelectedItem()) {
            PopulateComplexitySummary(modText::RoundToLong(modText::LeadingNumber(item->Key)));
            if (lvwReview.Count() > 0) {
                lvwReview.Select(0);
            }
        }
    });
}

void frmReviewSummary::PopulateComplexitySummary(std::int32_t sourceId) {
    Trap({kModule, "PopulateComplexitySummary"}, [&] {
        lvwReview.Clear();
        lvwReview.SetColumnText(0, sourceId != 0 ? "Procedure" : "Source File");
        m_pages->PopulateComplexitySummary(sourceId);
        SortFilledRows();
        ShowSortIcon();
    });
}

void frmReviewSummary::lvwReview_DblClick() {
    Trap({kModule, "lvwReview_DblClick"}, [&] {
        const ComboItem* const shown = cboSourceFiles.SelectedItem();
        const ListRow* const row = lvwReview.SelectedRow();
        const bool isFileList = CurrentTab() == kComplexityTab && shown != nullptr &&
                                shown->Key == ReviewSummaryPages::kAllItems;
        if (!isFileList || row == nullptr) {
            return;
        }
        if (const auto index = cboSourceFiles.Find(row->Key)) {
            cboSourceFiles.Choose(*index);
        }
    });
}

void frmReviewSummary::lvwReview_ColumnClick(std::size_t column) {
    Trap({kModule, "lvwReview_ColumnClick"}, [&] {
        if (CurrentTab() == kSummaryTab) {
            return;
        }
        const auto number = static_cast<std::int16_t>(column);
        m_sort = {number, m_sort.Column == number ? !m_sort.Ascending : true};
        modSummaryLayout::SetSortSetting(
            CurrentTab(),
            {m_sort.Column, static_cast<std::int16_t>(m_sort.Ascending ? 0 : 1)},
            modGlobal::WorkData());
        SortRows();
        ShowSortIcon();
    });
}

void frmReviewSummary::SortRows() {
    lvwReview.Sort(static_cast<std::size_t>(m_sort.Column), m_sort.Ascending);
}

void frmReviewSummary::SortFilledRows() {
    if (!m_sort.IsOrderOfReading()) {
        SortRows();
    }
}

void frmReviewSummary::ShowSortIcon() {
    for (std::size_t column = 0; column < lvwReview.Columns().size(); ++column) {
        const bool isSorted = column == static_cast<std::size_t>(m_sort.Column);
        const std::string_view icon = m_sort.Ascending ? kAscendingIcon : kDescendingIcon;
        lvwReview.SetSortIcon(column, isSorted ? std::string(icon) : std::string());
    }
}

void frmReviewSummary::SaveListViewColumnData() {
    Trap({kModule, "SaveListViewColumnData"}, [&] {
        if (CurrentTab() != 0) {
            modSummaryLayout::SaveWidths(CurrentTab(), lvwReview.Columns(), modGlobal::WorkData());
        }
    });
}

void frmReviewSummary::ResetColumnWidths() {
    Trap({kModule, "ResetColumnWidths"}, [&] {
        const std::vector<ListColumn> columns =
            modSummaryLayout::ColumnsOf(CurrentTab(), DVKWorkData());
        for (std::size_t column = 0; column < columns.size(); ++column) {
            lvwReview.SetWidth(column, columns[column].Width);
        }
    });
}

void frmReviewSummary::ViewLog() {
    if (ViewLogEnabled.Value()) {
        ShellOpenFile(m_logFile);
    }
}

void frmReviewSummary::ViewReport() {
    if (ViewReportEnabled.Value()) {
        ShellOpenFile(m_reportFile);
    }
}

/// Where the system has no program for the file, the user chooses one.
void frmReviewSummary::ShellOpenFile(const std::string& file) {
    Trap({kModule, "ShellOpenFile"}, [&] {
        if (!m_screen.OpenWithSystem(file)) {
            m_screen.OpenWithChoice(file);
        }
    });
}

void frmReviewSummary::SavePosition() const {
    if (m_pages != nullptr) {
        DVKWorkData& settings = modGlobal::WorkData();
        settings.RVDTop = Position.Top;
        settings.RVDLeft = Position.Left;
        settings.RVDWidth = Position.Width;
        settings.RVDHeight = Position.Height;
    }
}

void frmReviewSummary::Close() {
    SaveListViewColumnData();
    SavePosition();
    m_isClosed = true;
    m_screen.Hide(*this);
    Closed.Raise();
}

}  // namespace dorvik
