#include "workstation/dialogs/SummaryFixture.h"
#include "workstation/dialogs/frmReviewSummary.h"

#include <array>

namespace dorvik {
namespace {

using test::ColumnsOf;
using test::RowsOf;
using testing::ElementsAre;
using testing::IsEmpty;

class ReviewSummaryUse : public test::SummaryFixture {};

// ---- complexities ----

TEST_F(ReviewSummaryUse, ThePageOfTheComplexitiesBeginsWithAllFiles) {
    WriteReview();
    Open();
    EXPECT_FALSE(m_form->SourceFilesVisible.Value());
    EXPECT_THAT(
        PageRows(5),
        ElementsAre(
            "Form|3|frmB (frmB.frm)|0|N/A|N/A|N/A",
            "Module|2|modA (modA.bas)|12|Difficult|Moderately easy|Moderate risk"));
    EXPECT_THAT(
        ColumnsOf(m_form->lvwReview),
        ElementsAre("Source File SortAscending", "Complexity", "Test", "Understand", "Modify"));
    EXPECT_TRUE(m_form->SourceFilesVisible.Value());
    EXPECT_EQ(m_form->lvwReview.SelectedIndex(), 0U);
    m_form->SwitchTab(6);
    EXPECT_FALSE(m_form->SourceFilesVisible.Value());
}

TEST_F(ReviewSummaryUse, AFileWithoutAProcedureIsMissingFromTheBox) {
    WriteReview();
    Open();
    EXPECT_EQ(m_form->cboSourceFiles.Count(), 0U);
    m_form->SwitchTab(5);
    EXPECT_THAT(
        m_form->cboSourceFiles.Items(),
        ElementsAre(
            ComboItem{"~AllItems~", "", "(All Source Files)", "AllItems"},
            ComboItem{"2", "", "modA (modA.bas)", "Module"}));
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "~AllItems~");
}

TEST_F(ReviewSummaryUse, OneFileShowsItsProceduresWithoutSections) {
    WriteReview();
    Open();
    m_form->SwitchTab(5);
    m_form->cboSourceFiles.Choose(1);
    EXPECT_THAT(
        RowsOf(m_form->lvwReview),
        ElementsAre(
            "Method||Help|60|Untestable|Extremely difficult|Extremely high risk",
            "PublicMethod||Total|12|Difficult|Moderately easy|Moderate risk",
            "Property||Value|3|Easy|Simple|Low risk",
            "PublicProperty||Value|0|N/A|N/A|N/A"))
        << "equal names in the order that sorting by swaps leaves";
    EXPECT_EQ(m_form->lvwReview.Columns()[0].Text, "Procedure");
    m_form->cboSourceFiles.Choose(0);
    EXPECT_EQ(m_form->lvwReview.Columns()[0].Text, "Source File");
    EXPECT_THAT(m_form->lvwReview.Row(0).Key, "3");
}

TEST_F(ReviewSummaryUse, ADoubleClickGoesFromAFileToItsProcedures) {
    WriteReview();
    Open();
    m_form->SwitchTab(5);
    m_form->lvwReview.DoubleClick(0);
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "~AllItems~") << "frmB is not in the box";
    m_form->lvwReview.DoubleClick(1);
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "2");
    EXPECT_EQ(m_form->lvwReview.Row(0).Cells[0].Text, "Help");
    m_form->lvwReview.DoubleClick(2);
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "2") << "with one file it does nothing";
    m_form->SwitchTab(3);
    m_form->lvwReview.DoubleClick(2);
    EXPECT_EQ(m_form->lvwReview.Count(), 3U);
}

TEST_F(ReviewSummaryUse, TheChosenFileStaysWhenThePageIsLeft) {
    WriteReview();
    Open();
    m_form->SwitchTab(5);
    m_form->cboSourceFiles.Choose(1);
    m_form->SwitchTab(1);
    m_form->SwitchTab(5);
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "2");
    EXPECT_EQ(m_form->lvwReview.Columns()[0].Text, "Procedure");
    EXPECT_EQ(m_form->lvwReview.Count(), 4U);
}

// ---- sorting ----

TEST_F(ReviewSummaryUse, AColumnClickOnTheFirstPageDoesNothing) {
    WriteReview();
    Open();
    const std::vector<std::string> before = RowsOf(m_form->lvwReview);
    m_form->lvwReview.ClickColumn(0);
    EXPECT_EQ(RowsOf(m_form->lvwReview), before);
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Item", "Value"));
}

TEST_F(ReviewSummaryUse, AColumnClickSortsByTextAndASecondOneSwapsTheOrder) {
    WriteReview();
    Open();
    m_form->SwitchTab(3);
    m_form->lvwReview.ClickColumn(6);
    EXPECT_THAT(
        FirstCells(), ElementsAre("frmB (frmB.frm)", "Billing (Billing.vbp)", "modA (modA.bas)"))
        << "0, 1, 1302";
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[6], "Total SortAscending");
    EXPECT_EQ(Settings().RDT2SortCol, 6);
    EXPECT_EQ(Settings().RDT2SortOrder, 0);
    m_form->lvwReview.ClickColumn(6);
    EXPECT_THAT(
        FirstCells(), ElementsAre("modA (modA.bas)", "Billing (Billing.vbp)", "frmB (frmB.frm)"));
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[6], "Total SortDescending");
    EXPECT_EQ(Settings().RDT2SortOrder, 1);
    m_form->lvwReview.ClickColumn(0);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[6], "Total");
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[0], "Source File SortAscending");
    EXPECT_EQ(FirstCells()[0], "Billing (Billing.vbp)");
}

TEST_F(ReviewSummaryUse, EqualRowsStayInTheOrderThatIsShown) {
    WriteReview();
    Open();
    m_form->SwitchTab(3);
    m_form->lvwReview.ClickColumn(6);
    m_form->lvwReview.ClickColumn(3);
    EXPECT_THAT(
        FirstCells(), ElementsAre("frmB (frmB.frm)", "Billing (Billing.vbp)", "modA (modA.bas)"))
        << "the third severity is 0 in all of them";
    m_form->lvwReview.ClickColumn(3);
    EXPECT_THAT(
        FirstCells(), ElementsAre("frmB (frmB.frm)", "Billing (Billing.vbp)", "modA (modA.bas)"));
}

TEST_F(ReviewSummaryUse, TheFirstColumnIsTheSortedOneAtFirst) {
    WriteReview();
    Settings().RVFileSortAscending = false;
    m_results.Order().Fields().FileSortAscending = false;
    Open();
    m_form->SwitchTab(3);
    EXPECT_EQ(FirstCells()[0], "modA (modA.bas)") << "in the order of reading";
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[0], "Source File");
    m_form->lvwReview.ClickColumn(0);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[0], "Source File SortDescending");
    EXPECT_EQ(Settings().RDT2SortOrder, 1);
    m_form->lvwReview.ClickColumn(0);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[0], "Source File SortAscending");
    EXPECT_EQ(FirstCells()[0], "Billing (Billing.vbp)");
    EXPECT_EQ(Settings().RDT2SortCol, 0);
    EXPECT_EQ(Settings().RDT2SortOrder, 0);
    m_form->SwitchTab(4);
    EXPECT_EQ(FirstCells()[0], "modA (modA.bas)") << "in the order of reading again";
}

TEST_F(ReviewSummaryUse, PagesWithAsManyColumnsShareTheirOrder) {
    WriteReview();
    Open();
    m_form->SwitchTab(3);
    m_form->lvwReview.ClickColumn(1);
    m_form->lvwReview.ClickColumn(1);
    m_form->SwitchTab(4);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[1], "Critical SortDescending");
    EXPECT_EQ(FirstCells()[0], "Billing (Billing.vbp)");
    m_form->SwitchTab(6);
    EXPECT_THAT(ColumnsOf(m_form->lvwReview)[1], "Code");
}

TEST_F(ReviewSummaryUse, EachPageWithAnOrderHasItsOwnSettings) {
    WriteReview();
    Settings().RDT4SortCol = 1;
    Settings().RDT5SortCol = 1;
    Settings().RDT5SortOrder = 1;
    Open();
    m_form->SwitchTab(5);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[1], "Complexity SortAscending");
    EXPECT_EQ(FirstCells()[0], "frmB (frmB.frm)");
    m_form->lvwReview.ClickColumn(1);
    EXPECT_EQ(Settings().RDT4SortOrder, 1);
    m_form->cboSourceFiles.Choose(1);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[1], "Complexity SortDescending")
        << "the icon comes back when the page is filled";
    EXPECT_EQ(FirstCells()[0], "Help");
    m_form->SwitchTab(6);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[1], "Code SortDescending");
    EXPECT_EQ(FirstCells()[0], "modA (modA.bas)");
}

TEST_F(ReviewSummaryUse, OnThePagesOfItemsTheOrderIsNotKept) {
    WriteReview();
    Open();
    m_form->SwitchTab(2);
    m_form->lvwReview.ClickColumn(1);
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Item", "Value SortAscending"));
    m_form->lvwReview.ClickColumn(0);
    EXPECT_EQ(FirstCells()[0], "");
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Item SortAscending", "Value"));
    m_form->SwitchTab(1);
    m_form->SwitchTab(2);
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Item", "Value"));
    EXPECT_EQ(FirstCells()[0], "Review Criteria");
}

// ---- tabs and widths ----

TEST_F(ReviewSummaryUse, TheShownTabIsNotFilledAgain) {
    WriteReview();
    Open();
    m_form->lvwReview.Clear();
    m_form->SwitchTab(1);
    EXPECT_EQ(m_form->lvwReview.Count(), 0U);
}

TEST_F(ReviewSummaryUse, CtrlTabGoesFromTheLastTabToTheFirst) {
    WriteReview();
    Open();
    std::vector<std::int16_t> tabs;
    for (int step = 0; step < 7; ++step) {
        m_form->NextTab();
        tabs.push_back(m_form->CurrentTab());
    }
    EXPECT_THAT(tabs, ElementsAre(2, 3, 4, 5, 6, 7, 1));
}

TEST_F(ReviewSummaryUse, ColumnWidthsAreThoseOfTheSettingsByPage) {
    WriteReview();
    Settings().RDT1ColWidth.SetItem(1, 0.11);
    Settings().RDT6ColWidth.SetItem(1, 0.12);
    Settings().RDT2ColWidth.SetItem(1, 0.13);
    Settings().RDT4ColWidth.SetItem(1, 0.15);
    Settings().RDT5ColWidth.SetItem(1, 0.16);
    Settings().RDT7ColWidth.SetItem(1, 0.17);
    Open();
    std::vector<double> widths;
    for (std::int16_t tab = 1; tab <= 7; ++tab) {
        m_form->SwitchTab(tab);
        widths.push_back(m_form->lvwReview.Columns()[0].Width);
    }
    EXPECT_THAT(widths, ElementsAre(0.11, 0.12, 0.13, 0.13, 0.15, 0.16, 0.17));
}

TEST_F(ReviewSummaryUse, LeavingAPageAndClosingSaveItsWidths) {
    WriteReview();
    Open();
    m_form->SwitchTab(3);
    m_form->lvwReview.SetWidth(6, 0.25);
    m_form->SwitchTab(6);
    EXPECT_EQ(Settings().RDT2ColWidth.Item(7), 0.25);
    m_form->lvwReview.SetWidth(5, 0.26);
    EXPECT_NE(Settings().RDT5ColWidth.Item(6), 0.26);
    int closed = 0;
    const Subscription heard = m_form->Closed.Subscribe([&] { ++closed; });
    m_form->Close();
    EXPECT_EQ(Settings().RDT5ColWidth.Item(6), 0.26);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_EQ(closed, 1);
    EXPECT_THAT(m_screen.Calls, ElementsAre("hide summary"));
}

TEST_F(ReviewSummaryUse, ResetPutsTheWidthsOfThePageBack) {
    WriteReview();
    Settings().RDT4ColWidth.SetItem(5, 0.9);
    Open();
    m_form->SwitchTab(5);
    EXPECT_EQ(m_form->lvwReview.Columns()[4].Width, 0.9);
    m_form->ResetColumnWidths();
    EXPECT_EQ(m_form->lvwReview.Columns()[4].Width, 0.16);
    EXPECT_EQ(m_form->lvwReview.Columns()[0].Text, "Source File");
}

// ---- buttons ----

TEST_F(ReviewSummaryUse, TheButtonsAreEnabledWhereTheirFilesAre) {
    WriteReview();
    const std::string log = m_folder.Write("log.txt", "x");
    const std::string report = m_folder.Write("report.html", "x");
    const auto enabled = [&](const std::string& logFile, const std::string& reportFile) {
        frmReviewSummary form(m_screen);
        form.Initialise(m_results, logFile, reportFile);
        return std::array{form.ViewLogEnabled.Value(), form.ViewReportEnabled.Value()};
    };
    EXPECT_THAT(enabled(log, report), ElementsAre(true, true));
    EXPECT_THAT(enabled(log, ""), ElementsAre(true, false));
    EXPECT_THAT(
        enabled(m_folder.Path("no.txt"), m_folder.Path("no.html")), ElementsAre(false, false));
}

TEST_F(ReviewSummaryUse, TheButtonsOpenTheirFiles) {
    WriteReview();
    const std::string log = m_folder.Write("log.txt", "x");
    const std::string report = m_folder.Write("report.html", "x");
    frmReviewSummary form(m_screen);
    form.Initialise(m_results, log, report);
    form.ViewLog();
    m_screen.HasProgram = false;
    form.ViewReport();
    EXPECT_THAT(
        m_screen.Calls, ElementsAre("open " + log, "open " + report, "choose for " + report));
}

TEST_F(ReviewSummaryUse, DisabledButtonsOpenNothing) {
    WriteReview();
    frmReviewSummary form(m_screen);
    form.Initialise(m_results, "", "");
    form.ViewLog();
    form.ViewReport();
    EXPECT_THAT(m_screen.Calls, IsEmpty());
}

// ---- position ----

TEST_F(ReviewSummaryUse, ThePositionIsKeptForTheNextForm) {
    WriteReview();
    Open();
    m_form->Position = {100, 200, 3000, 4000};
    m_form->Close();
    Open();
    EXPECT_EQ(m_form->Position.Top, 100);
    EXPECT_EQ(m_form->Position.Left, 200);
    EXPECT_EQ(m_form->Position.Width, 3000);
    EXPECT_EQ(m_form->Position.Height, 4000);
}

TEST_F(ReviewSummaryUse, AFormThatNeverShowedAPageLeavesThePosition) {
    const std::int32_t width = Settings().RVDWidth;
    frmReviewSummary(m_screen).Close();
    EXPECT_EQ(Settings().RVDWidth, width);
}

TEST_F(ReviewSummaryUse, AFormThatGoesHidesItself) {
    WriteReview();
    Open();
    m_form.reset();
    EXPECT_THAT(m_screen.Calls, ElementsAre("hide summary"));
    Open();
    m_form->Close();
    m_form.reset();
    EXPECT_THAT(m_screen.Calls, testing::SizeIs(2)) << "it is hidden once";
}

}  // namespace
}  // namespace dorvik
