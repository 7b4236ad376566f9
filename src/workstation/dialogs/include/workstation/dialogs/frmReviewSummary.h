#pragma once

#include "workstation/controls/ComboBox.h"
#include "workstation/controls/Event.h"
#include "workstation/controls/ListTable.h"
#include "workstation/controls/Observable.h"
#include "workstation/controls/TabStrip.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace dorvik {

class IScreen;
class ResultsDB;
class ReviewSummaryPages;

/// Shows the outcome of the review of one project as seven pages of figures. It only reads the results. It is not modal:
/// the code that shows it keeps it until `Closed`. Needs the objects of `modGlobal`, where widths and sort orders are kept.
class frmReviewSummary {
public:
    static constexpr std::int16_t kSummaryTab = 1;
    static constexpr std::int16_t kCriteriaTab = 2;
    static constexpr std::int16_t kViolationsTab = 3;
    static constexpr std::int16_t kImpactTab = 4;
    static constexpr std::int16_t kComplexityTab = 5;
    static constexpr std::int16_t kLineCountsTab = 6;
    static constexpr std::int16_t kTolerancesTab = 7;

    /// In twips.
    struct Bounds {
        std::int32_t Top = 0;
        std::int32_t Left = 0;
        std::int32_t Width = 0;
        std::int32_t Height = 0;
    };

    /// REQUIRES: `screen` outlives this.
    explicit frmReviewSummary(IScreen& screen);
    ~frmReviewSummary();
    frmReviewSummary(const frmReviewSummary&) = delete;
    frmReviewSummary& operator=(const frmReviewSummary&) = delete;

    /// Takes over the results and shows the first page. `logFile` and `reportFile` are full names, the report's empty where
    /// there is none. REQUIRES: `results` are open, and stay so as long as this form shows pages.
    void Initialise(ResultsDB& results, const std::string& logFile, const std::string& reportFile);

    /// Nothing happens for the page that is shown already.
    void SwitchTab(std::int16_t tab);
    /// Ctrl+Tab.
    void NextTab();
    std::int16_t CurrentTab() const { return tbsReview.Shown.Value(); }

    /// The buttons.
    void ViewLog();
    void ViewReport();
    void Close();
    bool IsClosed() const { return m_isClosed; }
    /// A handler may destroy the form.
    Event<> Closed;

    /// Puts the columns of the page in front back to the widths of a first run.
    void ResetColumnWidths();

    /// Where the screen shows the form; kept for the next one when the form is closed.
    Bounds Position;
    Observable<std::string> Caption;
    TabStrip tbsReview;
    ListTable lvwReview;
    ComboBox cboSourceFiles;
    Observable<bool> SourceFilesVisible;  // on the page of complexities only
    Observable<bool> ViewLogEnabled;
    Observable<bool> ViewReportEnabled;

private:
    /// The column by which the page in front is sorted, the first one at first. Ascending by the first column, rows are in
    /// the order in which they were read, until the user clicks a heading.
    struct SortState {
        std::int16_t Column = 0;  // from 0
        bool Ascending = true;

        bool IsOrderOfReading() const { return Column == 0 && Ascending; }
    };

    void Form_Load();
    void SetupListView(std::int16_t tab);
    void FillPage(std::int16_t tab);
    void FillComplexityPage();
    void SaveListViewColumnData();
    void SavePosition() const;
    void SortRows();
    void SortFilledRows();
    void ShowSortIcon();
    void PopulateSourceFilesCombo();
    void PopulateComplexitySummary(std::int32_t sourceId);
    void ShellOpenFile(const std::string& file);

    void cboSourceFiles_Click();
    void lvwReview_DblClick();
    void lvwReview_ColumnClick(std::size_t column);

    IScreen& m_screen;
    std::unique_ptr<ReviewSummaryPages> m_pages;  // null before `Initialise`
    std::string m_logFile;
    std::string m_reportFile;
    SortState m_sort;
    bool m_isClosed = false;
    Subscription m_onSourceFile;
    Subscription m_onDoubleClick;
    Subscription m_onColumnClick;
};

}  // namespace dorvik
