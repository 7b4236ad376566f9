#include "WorkbenchFixture.h"

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HotspotTable : public test::WorkbenchFixture {
protected:
    void SetUp() override {
        OpenBench();
        m_view.SwitchView(viewtype::kHotspots);
    }

    std::vector<std::string> RowKeys() const {
        std::vector<std::string> keys;
        for (std::size_t row = 0; row < m_controls.Hotspots.Count(); ++row) {
            keys.push_back(m_controls.Hotspots.Row(row).Key);
        }
        return keys;
    }
    std::vector<std::string> Cells(std::string_view key) const {
        const ListRow& row = m_controls.Hotspots.Row(m_controls.Hotspots.Find(key).value());
        std::vector<std::string> texts;
        for (const ListCell& cell : row.Cells) {
            texts.push_back(cell.Text.substr(cell.Text.find_first_not_of(' ')));
        }
        return texts;
    }
    std::vector<std::string> SortIcons() const {
        std::vector<std::string> icons;
        for (const ListColumn& column : m_controls.Hotspots.Columns()) {
            icons.push_back(column.SortIcon);
        }
        return icons;
    }
    void ClickHeader(std::size_t column) { m_controls.Hotspots.ClickColumn(column); }
    void ChooseRow(std::string_view key) {
        m_controls.Hotspots.Choose(m_controls.Hotspots.Find(key).value());
    }
};

TEST_F(HotspotTable, HasNineColumnsWithTheNumbersOnTheRight) {
    std::vector<std::string> texts;
    std::string alignments;
    for (const ListColumn& column : m_controls.Hotspots.Columns()) {
        texts.push_back(column.Text);
        alignments += column.Alignment == ColumnAlignment::Right ? 'R' : 'L';
    }
    EXPECT_THAT(
        texts,
        ElementsAre(
            "Source Files",
            "Violations",
            "Impact",
            "Lines",
            "%Comments",
            "Complexity",
            "Test",
            "Understand",
            "Modify"));
    EXPECT_EQ(alignments, "LRRRRRLLL");
}

TEST_F(HotspotTable, ShowsAllFilesWithTheMostViolationsFirst) {
    EXPECT_THAT(RowKeys(), ElementsAre("2SFKey", "1SFKey", "3SFKey", "4SFKey"));
    EXPECT_THAT(
        Cells("2SFKey"),
        ElementsAre("modA", "5", "2,380", "100", "20%", "9", "Easy", "Simple", "Low risk"));
    EXPECT_THAT(
        Cells("1SFKey"),
        ElementsAre("Billing", "1", "900", "N/A", "N/A", "N/A", "N/A", "N/A", "N/A"));
    EXPECT_THAT(
        Cells("4SFKey"), ElementsAre("clsC", "0", "0", "3", "33%", "0", "N/A", "N/A", "N/A"));
    EXPECT_THAT(
        Cells("3SFKey"), ElementsAre("frmB", "1", "30", "0", "0%", "0", "N/A", "N/A", "N/A"));
    EXPECT_EQ(m_controls.Hotspots.Row(0).Icon, "Module");
    EXPECT_EQ(m_controls.Hotspots.Row(1).Icon, "AXDLL");
    EXPECT_EQ(m_controls.Hotspots.SelectedRow(), nullptr);
    EXPECT_FALSE(m_controls.Procedures.Enabled.Value());
}

TEST_F(HotspotTable, ShowsTheProceduresOfAFile) {
    ChooseFile("2SFKey");
    EXPECT_FALSE(m_controls.Procedures.Enabled.Value());
    EXPECT_THAT(RowKeys(), ElementsAre("2PRKey", "1PRKey", "3PRKey", "4PRKey"));
    EXPECT_THAT(
        Cells("2PRKey"),
        ElementsAre("Total", "2", "1,850", "20", "20%", "9", "Easy", "Simple", "Low risk"));
    EXPECT_THAT(
        Cells("1PRKey"),
        ElementsAre("(Declarations)", "1", "500", "N/A", "N/A", "N/A", "N/A", "N/A", "N/A"));
    EXPECT_THAT(
        Cells("3PRKey"),
        ElementsAre(
            "Rate (Get)",
            "1",
            "20",
            "1,200",
            "1%",
            "12",
            "Difficult",
            "Moderately easy",
            "Moderate risk"));
    EXPECT_THAT(
        Cells("4PRKey"),
        ElementsAre("Rate (Let)", "0", "0", "8", "13%", "1", "Easy", "Simple", "Low risk"));
    EXPECT_EQ(m_controls.Hotspots.Row(0).Icon, "PublicMethod");
    EXPECT_EQ(m_controls.Hotspots.Row(1).Icon, "Declarations");
    EXPECT_EQ(m_controls.Hotspots.Row(2).Icon, "FriendProperty");
    EXPECT_EQ(m_controls.Hotspots.Columns()[0].Text, "Source Files");
}

TEST_F(HotspotTable, ListsProceduresWithoutViolationsAlsoWhereTheyAreHiddenInTheBox) {
    Settings().RVProcShowZeroItems = false;
    ChooseFile("3SFKey");
    EXPECT_THAT(RowKeys(), ElementsAre("5PRKey", "6PRKey"));
}

TEST_F(HotspotTable, TheProjectFileHasNoProcedures) {
    ChooseFile("1SFKey");
    EXPECT_EQ(m_controls.Hotspots.Count(), 0U);
}

TEST_F(HotspotTable, AHeaderTogglesItsOwnDirectionAndAnotherSortsAscending) {
    EXPECT_EQ(SortIcons()[1], "SortDescending");
    ClickHeader(1);
    EXPECT_EQ(SortIcons()[1], "SortAscending");
    EXPECT_THAT(RowKeys(), ElementsAre("4SFKey", "1SFKey", "3SFKey", "2SFKey"));
    ClickHeader(3);
    EXPECT_THAT(SortIcons(), ElementsAre("", "", "", "SortAscending", "", "", "", "", ""));
    EXPECT_THAT(Hotspots(3), ElementsAre("0", "3", "100", "N/A"));
    ClickHeader(3);
    EXPECT_THAT(Hotspots(3), ElementsAre("N/A", "100", "3", "0"));
    ClickHeader(0);
    EXPECT_THAT(Hotspots(0), ElementsAre("Billing", "clsC", "frmB", "modA"));
}

TEST_F(HotspotTable, NumbersSortByValueAndNotByTheirFirstDigit) {
    ChooseFile("2SFKey");
    ClickHeader(3);
    EXPECT_THAT(Hotspots(3), ElementsAre("8", "20", "1,200", "N/A"));
    ClickHeader(4);
    EXPECT_THAT(Hotspots(4), ElementsAre("1%", "13%", "20%", "N/A"));
}

TEST_F(HotspotTable, EqualRowsAreInTheOrderOfFillingWhateverWasSortedBefore) {
    ClickHeader(6);
    const std::vector<std::string> afterMostViolations = RowKeys();
    ClickHeader(1);
    ClickHeader(6);
    EXPECT_EQ(RowKeys(), afterMostViolations);
}

TEST_F(HotspotTable, AnotherFillingKeepsTheSortOrder) {
    ClickHeader(0);
    ClickHeader(0);
    ChooseFile("2SFKey");
    EXPECT_THAT(Hotspots(0), ElementsAre("Total", "Rate (Let)", "Rate (Get)", "(Declarations)"));
}

TEST_F(HotspotTable, StoresSortOrderAndWidths) {
    ClickHeader(4);
    m_controls.Hotspots.SetWidth(2, 0.25);
    m_view.SwitchView(viewtype::kViolationList);
    EXPECT_EQ(Settings().HVSortCol, 4);
    EXPECT_EQ(Settings().HVSortOrder, 0);
    EXPECT_EQ(Settings().HVColWidth.Item(1), 0.2);
    EXPECT_EQ(Settings().HVColWidth.Item(3), 0.25);
    WorkbenchControls controls;
    ResultsView view(controls, m_screen);
    view.Initialise();
    EXPECT_EQ(controls.Hotspots.Columns()[4].SortIcon, "SortAscending");
    EXPECT_EQ(controls.Hotspots.Columns()[2].Width, 0.25);
}

TEST_F(HotspotTable, ADoubleClickGoesToTheSource) {
    int goTos = 0;
    const Subscription subscription = m_view.GotoSource.Subscribe([&] { ++goTos; });
    m_controls.Hotspots.DoubleClick(0);
    EXPECT_EQ(goTos, 1);
}

// ---- from view to view ----

TEST_F(HotspotTable, GoingToTheHotspotsSelectsAnew) {
    m_view.SwitchView(viewtype::kViolationList);
    ChooseFile("2SFKey");
    m_view.SwitchView(viewtype::kHotspots);
    EXPECT_EQ(SelectedKey(m_controls.Files), "~AllItems~");
    EXPECT_FALSE(m_controls.Splitter.Enabled.Value());
}

TEST_F(HotspotTable, TheSelectedFileIsTheFileOfTheList) {
    ChooseRow("2SFKey");
    m_view.SwitchView(viewtype::kViolationList);
    EXPECT_EQ(SelectedKey(m_controls.Files), "2SFKey");
    EXPECT_TRUE(m_controls.Procedures.Enabled.Value());
    EXPECT_EQ(m_controls.Procedures.SelectedIndex(), 0U);
    EXPECT_THAT(Violations(), ElementsAre(3, 4, 5, 7));
    EXPECT_EQ(m_controls.List.CurrentKey(), 3);
    EXPECT_TRUE(m_controls.Splitter.Enabled.Value());
}

TEST_F(HotspotTable, TheSelectedProcedureIsTheProcedureOfTheList) {
    ChooseFile("2SFKey");
    ChooseRow("2PRKey");
    m_view.SwitchView(viewtype::kViolationList);
    EXPECT_EQ(SelectedKey(m_controls.Files), "2SFKey");
    EXPECT_EQ(SelectedKey(m_controls.Procedures), "2PRKey");
    EXPECT_THAT(Violations(), ElementsAre(4, 5));
}

TEST_F(HotspotTable, WithoutAProcedureToSelectAllItemsOfTheFileAreShown) {
    ChooseFile("3SFKey");
    m_view.SwitchView(viewtype::kViolationList);
    EXPECT_EQ(SelectedKey(m_controls.Files), "3SFKey");
    EXPECT_EQ(m_controls.Procedures.SelectedIndex(), 0U);
    EXPECT_THAT(Violations(), ElementsAre(8));
}

TEST_F(HotspotTable, WithoutAFileToSelectTheListShowsAll) {
    m_view.SwitchView(viewtype::kViolationList);
    EXPECT_EQ(SelectedKey(m_controls.Files), "~AllItems~");
    EXPECT_FALSE(m_controls.Procedures.Enabled.Value());
    EXPECT_EQ(m_controls.List.DataRowCount(), 8U);
}

TEST_F(HotspotTable, TheProjectFileIsShownInTheListWithoutProcedures) {
    ChooseRow("1SFKey");
    m_view.SwitchView(viewtype::kViolationList);
    EXPECT_EQ(SelectedKey(m_controls.Files), "1SFKey");
    EXPECT_FALSE(m_controls.Procedures.Enabled.Value());
    EXPECT_THAT(Violations(), ElementsAre(2));
}

TEST_F(HotspotTable, TheButtonOfTheShownViewDoesNothing) {
    int changes = 0;
    const Subscription subscription = m_view.ViewChanged.Subscribe([&] { ++changes; });
    ChooseRow("3SFKey");
    m_view.SwitchView(viewtype::kHotspots);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(m_controls.Hotspots.SelectedRow()->Key, "3SFKey");
    m_view.SwitchView(viewtype::kViolationList);
    EXPECT_EQ(changes, 1);
}

TEST_F(HotspotTable, SwitchingWithoutResultsChangesTheViewAlone) {
    m_view.CloseResults();
    m_view.SwitchView(viewtype::kViolationList);
    EXPECT_EQ(m_view.ViewType(), viewtype::kViolationList);
    EXPECT_EQ(m_controls.Files.Count(), 0U);
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

// ---- going to the source ----

TEST_F(HotspotTable, AFileIsItsSource) {
    EXPECT_EQ(m_view.GetSourceDetails(), std::nullopt);
    ChooseRow("2SFKey");
    const auto details = m_view.GetSourceDetails();
    ASSERT_TRUE(details);
    EXPECT_EQ(details->Project, "Billing");
    EXPECT_EQ(details->File, "modA");
    EXPECT_EQ(details->Procedure, "");
}

TEST_F(HotspotTable, TheProjectFileHasTheNameOfTheProject) {
    m_view.ProjectRenamed("Billing", "Invoices");
    ChooseRow("1SFKey");
    const auto details = m_view.GetSourceDetails();
    ASSERT_TRUE(details);
    EXPECT_EQ(details->Project, "Invoices");
    EXPECT_EQ(details->File, "Invoices");
}

TEST_F(HotspotTable, AProcedureHasItsFileNameAndType) {
    ChooseFile("2SFKey");
    ChooseRow("3PRKey");
    const auto details = m_view.GetSourceDetails();
    ASSERT_TRUE(details);
    EXPECT_EQ(details->File, "modA");
    EXPECT_EQ(details->Procedure, "Rate");
    EXPECT_EQ(details->ProcedureType, "Property Get");
}

}  // namespace
}  // namespace dorvik
