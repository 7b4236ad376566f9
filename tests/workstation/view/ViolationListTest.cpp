#include "WorkbenchFixture.h"

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class ViolationList : public test::WorkbenchFixture {
protected:
    void SetUp() override { OpenBench(); }

    const std::string& Sql() const { return m_controls.List.RecordSource(); }
    std::string Shown(std::int32_t id, ViolationColumn column) {
        return m_controls.List.Shown(id, NumberOf(column)).Text;
    }
    bool IsCompleted(std::int32_t id) {
        return m_controls.List.Value(id, NumberOf(ViolationColumn::Completed)).AsBoolean();
    }
    /// What becomes current, 0 for nothing.
    template <typename Action>
    std::vector<std::int32_t> CurrentKeysDuring(const Action& action) {
        std::vector<std::int32_t> keys;
        const Subscription subscription = m_controls.List.CurrentRowChanged.Subscribe(
            [&] { keys.push_back(m_controls.List.CurrentKey().value_or(0)); });
        action();
        return keys;
    }
    static constexpr const char* kAll =
        "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations";
    static constexpr const char* kOfFile =
        "SELECT Violations.ItemID & '_' & Violations.ItemType As ItemIDType, Violations.* FROM "
        "(SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = Procedures.SourceID) INNER "
        "JOIN Violations ON Procedures.ProcID = Violations.ItemID WHERE (SourceFiles.SourceID = 2 "
        "AND Violations.ItemType = 3)";
};

TEST_F(ViolationList, AllFilesShowEveryViolationOfTheDatabase) {
    EXPECT_EQ(Sql(), kAll);
    EXPECT_THAT(Violations(), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
    EXPECT_FALSE(m_controls.Placeholder.Value());
}

TEST_F(ViolationList, TheProjectFileShowsItsOwnViolations) {
    ChooseFile("1SFKey");
    EXPECT_EQ(Sql(), std::string(kAll) + " WHERE ItemID = 1 AND ItemType = 2");
    EXPECT_THAT(Violations(), ElementsAre(2));
}

TEST_F(ViolationList, AFileShowsTheViolationsOfItsProceduresAndNotItsOwn) {
    ChooseFile("2SFKey");
    EXPECT_EQ(Sql(), kOfFile);
    EXPECT_THAT(Violations(), ElementsAre(3, 4, 5, 7));
}

TEST_F(ViolationList, AProcedureShowsItsViolations) {
    ChooseFile("2SFKey");
    ChooseProcedure("2PRKey");
    EXPECT_EQ(Sql(), std::string(kAll) + " WHERE ItemID = 2 AND ItemType = 3");
    EXPECT_THAT(Violations(), ElementsAre(4, 5));
}

TEST_F(ViolationList, AViolationOfTheDeclarationsShowsInDeclarations) {
    ChooseFile("2SFKey");
    ChooseProcedure("1PRKey");
    EXPECT_EQ(m_controls.Procedures.SelectedItem()->Text, "(Declarations) [1]");
    EXPECT_THAT(Violations(), ElementsAre(3));
}

TEST_F(ViolationList, AnEmptyListShowsThePlaceholderAndABlankPane) {
    ChooseFile("2SFKey");
    ChooseProcedure("4PRKey");
    EXPECT_TRUE(m_controls.Placeholder.Value());
    EXPECT_EQ(m_controls.Documentation.InnerHTML(), "");
    EXPECT_EQ(m_controls.List.CurrentKey(), std::nullopt);
    ChooseProcedure("2PRKey");
    EXPECT_FALSE(m_controls.Placeholder.Value());
}

TEST_F(ViolationList, TheFirstRowBecomesCurrentAndThePaneShowsIt) {
    EXPECT_EQ(m_controls.List.CurrentKey(), 1);
    EXPECT_THAT(m_controls.Documentation.InnerHTML(), testing::HasSubstr("About Reference"));
    ChooseFile("2SFKey");
    EXPECT_EQ(m_controls.List.CurrentKey(), 3);
    EXPECT_THAT(m_controls.Documentation.InnerHTML(), testing::HasSubstr("About Too long"));
}

TEST_F(ViolationList, ColumnsShowValuesThroughTheirLists) {
    EXPECT_EQ(Shown(5, ViolationColumn::Title), "GoTo used");
    EXPECT_EQ(Shown(5, ViolationColumn::Impact), "1100");
    EXPECT_EQ(Shown(5, ViolationColumn::SourceFile), "modA");
    EXPECT_EQ(Shown(2, ViolationColumn::SourceFile), "Billing");
    EXPECT_EQ(Shown(1, ViolationColumn::SourceFile), "");
    EXPECT_EQ(Shown(1, ViolationColumn::SeverityText), "4. Low");
    EXPECT_EQ(Shown(3, ViolationColumn::Category), "clarity");
    EXPECT_EQ(Shown(1, ViolationColumn::Category), "");
    EXPECT_NE(m_controls.List.Shown(1, NumberOf(ViolationColumn::Severity)).Image, "");
}

TEST_F(ViolationList, TheColumnsAreThoseOfTheSettings) {
    std::vector<std::string> keys;
    std::vector<std::string> captions;
    std::vector<bool> visible;
    for (const GridColumn& column : m_controls.List.Columns()) {
        keys.push_back(column.Key);
        captions.push_back(column.Caption);
        visible.push_back(column.Visible);
    }
    EXPECT_THAT(
        keys,
        ElementsAre(
            "Completed",
            "Severity",
            "Title",
            "Impact",
            "SourceFile",
            "SeverityText",
            "Category",
            "ViolationID"));
    EXPECT_THAT(
        captions,
        ElementsAre("", "", "Title", "Impact", "Source File", "Severity", "Category", ""));
    EXPECT_THAT(visible, ElementsAre(true, true, true, true, true, false, false, false));
}

// ---- filter and completed items ----

TEST_F(ViolationList, CompletedItemsAreLeftOutWithAWhereOfTheirOwn) {
    Settings().CompletedItemsOption = 2;
    ChooseFile("~AllItems~");
    EXPECT_EQ(Sql(), std::string(kAll) + " WHERE Completed = False");
    ChooseFile("2SFKey");
    EXPECT_EQ(Sql(), std::string(kOfFile) + " AND Completed = False");
}

TEST_F(ViolationList, AMarkIsStoredAndMovesNothing) {
    m_controls.List.Check(4, true);
    EXPECT_TRUE(IsCompleted(4));
    EXPECT_FALSE(IsCompleted(5));
    ResultsDB other;
    ASSERT_TRUE(other.OpenReview(DatabaseFile("Billing")));
    auto rows = other.OpenRecordSource("SELECT ViolationID FROM Violations WHERE Completed = True");
    EXPECT_EQ(rows->Value(0).AsLong(), 4);
    EXPECT_THAT(Violations(), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST_F(ViolationList, AMarkedRowStaysUntilTheListIsMadeAgainEvenWhereItIsSorted) {
    Settings().CompletedItemsOption = 2;
    m_view.RefreshViolationsList();
    m_controls.List.Check(4, true);
    m_controls.List.SetSortKeys({{NumberOf(ViolationColumn::Completed)}});
    EXPECT_THAT(Violations(), ElementsAre(4, 1, 2, 3, 5, 6, 7, 8));
    m_view.RefreshViolationsList();
    EXPECT_THAT(Violations(), ElementsAre(1, 2, 3, 5, 6, 7, 8));
}

TEST_F(ViolationList, RefreshingTheListOfAFileSelectsAllItemsWhereNothingIsSelected) {
    ChooseFile("2SFKey");
    ChooseProcedure("2PRKey");
    m_view.RefreshViolationsList();
    EXPECT_THAT(Violations(), ElementsAre(4, 5));
    m_controls.Procedures.Select(std::nullopt);
    m_view.RefreshViolationsList();
    EXPECT_EQ(m_controls.Procedures.SelectedIndex(), 0U);
    EXPECT_THAT(Violations(), ElementsAre(3, 4, 5, 7));
}

TEST_F(ViolationList, RefreshingTheListOfAFileWithoutAProceduresBoxChangesNothing) {
    m_view.SwitchView(viewtype::kHotspots);
    ChooseFile("2SFKey");
    ASSERT_EQ(m_controls.Procedures.Count(), 0U);
    m_view.RefreshViolationsList();
    EXPECT_THAT(Violations(), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

// ---- order ----

TEST_F(ViolationList, SortsByValueWithoutRegardToCaseAndKeepsEqualRows) {
    Grid& list = m_controls.List;
    list.SetSortKeys({{NumberOf(ViolationColumn::Title)}});
    EXPECT_THAT(Violations(), ElementsAre(4, 5, 8, 6, 1, 2, 3, 7));
    list.SetSortKeys({{NumberOf(ViolationColumn::Title), true}});
    EXPECT_THAT(Violations(), ElementsAre(3, 7, 2, 1, 6, 8, 4, 5));
    list.SetSortKeys({{NumberOf(ViolationColumn::Impact), true}});
    EXPECT_THAT(Violations(), ElementsAre(5, 2, 4, 3, 1, 8, 7, 6));
    list.SetSortKeys({{NumberOf(ViolationColumn::Severity)}});
    EXPECT_THAT(Violations(), ElementsAre(2, 4, 5, 8, 3, 1, 7, 6));
}

TEST_F(ViolationList, SortsByTheTextOfTheListAndWhatItLacksFirst) {
    Grid& list = m_controls.List;
    list.SetSortKeys({{NumberOf(ViolationColumn::SourceFile)}});
    EXPECT_THAT(Violations(), ElementsAre(1, 2, 8, 3, 4, 5, 6, 7));
    list.SetSortKeys({{NumberOf(ViolationColumn::Category)}});
    EXPECT_THAT(Violations(), ElementsAre(1, 2, 6, 3, 7, 8, 4, 5));
}

TEST_F(ViolationList, ReadsSortKeysFromTheSettingsAndStoresThemAtItsEnd) {
    m_controls.List.SetSortKeys(
        {{NumberOf(ViolationColumn::Category)}, {NumberOf(ViolationColumn::Impact), true}});
    EXPECT_THAT(Violations(), ElementsAre(2, 1, 6, 3, 8, 7, 5, 4));
    m_view.Terminate();
    EXPECT_EQ(Settings().RVVLSortKeysNum, 2);
    EXPECT_EQ(Settings().RVVLSortCol.Item(1), 7);
    EXPECT_EQ(Settings().RVVLSortOrder.Item(1), 1);
    EXPECT_EQ(Settings().RVVLSortCol.Item(2), 4);
    EXPECT_EQ(Settings().RVVLSortOrder.Item(2), -1);

    WorkbenchControls controls;
    ResultsView view(controls, m_screen);
    view.Initialise();
    EXPECT_THAT(
        controls.List.SortKeys(), ElementsAre(GridOrderKey{7, false}, GridOrderKey{4, true}));
}

TEST_F(ViolationList, WithoutASortKeyTheStoredOnesStay) {
    Settings().RVVLSortKeysNum = 1;
    Settings().RVVLSortCol.SetItem(1, 3);
    m_view.Terminate();
    EXPECT_EQ(Settings().RVVLSortKeysNum, 1);
}

TEST_F(ViolationList, StoredWidthsAreThoseOfTitleImpactAndSourceFile) {
    EXPECT_EQ(m_controls.List.Column(NumberOf(ViolationColumn::Title)).Width, 0.488);
    EXPECT_EQ(m_controls.List.Column(NumberOf(ViolationColumn::SourceFile)).Width, 0.2);
    m_controls.List.ChooseWidth(NumberOf(ViolationColumn::Impact), 0.25);
    m_controls.List.ChooseWidth(NumberOf(ViolationColumn::Completed), 0.5);
    EXPECT_EQ(Settings().RVVLColWidth.Item(1), 0.488);
    EXPECT_EQ(Settings().RVVLColWidth.Item(2), 0.25);
    EXPECT_EQ(Settings().RVVLColWidth.Item(3), 0.2);
}

// ---- groups ----

TEST_F(ViolationList, TheCommandsGroupByTheirColumns) {
    Settings().GroupByCategory = true;
    m_view.GroupByCategory();
    Settings().GroupByRule = true;
    m_view.GroupByRule();
    Settings().GroupBySeverity = true;
    m_view.GroupBySeverity();
    Settings().GroupBySourceFile = true;
    m_view.GroupBySourceFile();
    EXPECT_THAT(
        m_controls.List.Groups(),
        ElementsAre(GridOrderKey{7}, GridOrderKey{3}, GridOrderKey{6}, GridOrderKey{5}));
    EXPECT_EQ(Settings().RVVLGroupsNum, 4);
    EXPECT_EQ(Settings().RVVLGroupCol.Item(3), 6);
    EXPECT_EQ(Settings().RVVLGroupSortOrder.Item(3), 1);
    Settings().GroupByRule = false;
    m_view.GroupByRule();
    EXPECT_THAT(
        m_controls.List.Groups(), ElementsAre(GridOrderKey{7}, GridOrderKey{6}, GridOrderKey{5}));
    EXPECT_EQ(Settings().RVVLGroupsNum, 3);
}

TEST_F(ViolationList, ACommandLeavesAGroupThatIsThere) {
    m_controls.List.ChooseGroups({{7, true}});
    Settings().GroupByCategory = true;
    m_view.GroupByCategory();
    EXPECT_THAT(m_controls.List.Groups(), ElementsAre(GridOrderKey{7, true}));
    EXPECT_EQ(Settings().RVVLGroupSortOrder.Item(1), -1);
}

TEST_F(ViolationList, GroupByNoneClearsThreeSettingsAndTheGroups) {
    Settings().GroupByCategory = true;
    Settings().GroupBySourceFile = true;
    m_view.GroupByCategory();
    m_view.GroupBySourceFile();
    m_view.GroupByNone();
    EXPECT_THAT(m_controls.List.Groups(), IsEmpty());
    EXPECT_EQ(Settings().RVVLGroupsNum, 0);
    EXPECT_FALSE(Settings().GroupByCategory);
    EXPECT_TRUE(Settings().GroupBySourceFile);
}

TEST_F(ViolationList, GroupRowsHaveTheTextOfTheirValueAndTheCount) {
    m_controls.List.ChooseGroups({{NumberOf(ViolationColumn::SeverityText)}});
    EXPECT_THAT(
        GroupTexts(), ElementsAre("Critical (1)", "High (3)", "Medium (1)", "Low (2)", "Info (1)"));
    EXPECT_THAT(Violations(), ElementsAre(2, 4, 5, 8, 3, 1, 7, 6));
    m_controls.List.ChooseGroups({{NumberOf(ViolationColumn::Category)}});
    EXPECT_THAT(
        GroupTexts(), ElementsAre("Unallocated (2)", " party (1)", "clarity (3)", "Jumps (2)"));
    m_controls.List.ChooseGroups({{NumberOf(ViolationColumn::SourceFile), true}});
    EXPECT_THAT(
        GroupTexts(), ElementsAre("modA (5)", "frmB (1)", "Billing (1)", "Unallocated (1)"));
    m_controls.List.ChooseGroups({{NumberOf(ViolationColumn::Title)}});
    EXPECT_THAT(
        GroupTexts(),
        ElementsAre(
            "goto used (2)",
            "Name (1)",
            "No header (1)",
            "Reference (1)",
            "Setting (1)",
            "Too long (2)"));
    m_controls.List.ChooseGroups({{NumberOf(ViolationColumn::Impact)}});
    EXPECT_THAT(
        GroupTexts(),
        ElementsAre(
            "10 (1)", "20 (1)", "30 (1)", "50 (1)", "500 (1)", "750 (1)", "900 (1)", "1100 (1)"));
}

TEST_F(ViolationList, AnOuterGroupRowCountsDataRows) {
    m_controls.List.ChooseGroups(
        {{NumberOf(ViolationColumn::Category), true}, {NumberOf(ViolationColumn::SeverityText)}});
    EXPECT_THAT(
        GroupTexts(),
        ElementsAre(
            "Jumps (2)",
            "High (2)",
            "clarity (3)",
            "High (1)",
            "Medium (1)",
            "Low (1)",
            " party (1)",
            "Info (1)",
            "Unallocated (2)",
            "Critical (1)",
            "Low (1)"));
    EXPECT_THAT(Violations(), ElementsAre(4, 5, 8, 3, 7, 6, 2, 1));
}

TEST_F(ViolationList, AGroupRowThatBecomesCurrentBlanksThePane) {
    m_controls.List.ChooseGroups({{NumberOf(ViolationColumn::SeverityText)}});
    EXPECT_EQ(m_controls.List.CurrentKey(), 1);
    ChooseFile("~AllItems~");
    EXPECT_EQ(m_controls.List.CurrentRow(), 0U);
    EXPECT_EQ(m_controls.List.CurrentKey(), std::nullopt);
    EXPECT_EQ(m_controls.Documentation.InnerHTML(), "");
    m_controls.List.SetCurrentRow(1);
    EXPECT_THAT(m_controls.Documentation.InnerHTML(), testing::HasSubstr("About Setting"));
}

TEST_F(ViolationList, OneFileDropsTheSourceFileGroupAndItDoesNotComeBack) {
    std::vector<bool> raised;
    std::vector<bool> marks;  // what the menus show by the settings
    const Subscription subscription =
        m_view.EnableDisableGroupBySrcFiles.Subscribe([&](bool enabled) {
            raised.push_back(enabled);
            marks.push_back(Settings().GroupBySourceFile);
        });
    Settings().GroupBySourceFile = true;
    m_view.GroupBySourceFile();
    Settings().GroupByCategory = true;
    m_view.GroupByCategory();
    ChooseFile("1SFKey");
    EXPECT_FALSE(Settings().GroupBySourceFile);
    EXPECT_THAT(m_controls.List.Groups(), ElementsAre(GridOrderKey{7}));
    EXPECT_EQ(Settings().RVVLGroupsNum, 1);
    ChooseFile("~AllItems~");
    EXPECT_THAT(m_controls.List.Groups(), ElementsAre(GridOrderKey{7}));
    EXPECT_THAT(raised, ElementsAre(false, true));
    EXPECT_THAT(marks, ElementsAre(false, false));
}

TEST_F(ViolationList, OneFileWithoutItsGroupIsArrangedOnce) {
    Settings().GroupBySourceFile = true;
    m_view.GroupBySourceFile();
    int arranged = 0;
    const Subscription subscription = m_controls.List.Changed.Subscribe(
        [&](GridChange change, std::size_t) { arranged += change == GridChange::Rows ? 1 : 0; });
    ChooseFile("1SFKey");
    EXPECT_EQ(arranged, 1);
    EXPECT_THAT(Violations(), ElementsAre(2));
}

TEST_F(ViolationList, AFileShowsItsFirstViolationOnce) {
    const std::vector<std::int32_t> shown = CurrentKeysDuring([&] { ChooseFile("2SFKey"); });
    EXPECT_THAT(shown, ElementsAre(0, 3));
}

TEST_F(ViolationList, AFileOfTheHotspotsShowsItsFirstViolationOnce) {
    m_view.SwitchView(viewtype::kHotspots);
    m_controls.Hotspots.Choose(m_controls.Hotspots.Find("3SFKey").value());
    const std::vector<std::int32_t> shown =
        CurrentKeysDuring([&] { m_view.SwitchView(viewtype::kViolationList); });
    EXPECT_THAT(shown, ElementsAre(0, 8));
}

TEST_F(ViolationList, RestoresTheStoredGroups) {
    m_controls.List.ChooseGroups({{6, true}, {3}});
    WorkbenchControls controls;
    ResultsView view(controls, m_screen);
    view.Initialise();
    EXPECT_THAT(controls.List.Groups(), ElementsAre(GridOrderKey{6, true}, GridOrderKey{3, false}));
}

// ---- events ----

TEST_F(ViolationList, TheRightButtonAndADoubleClickAreForTheDocument) {
    int popups = 0;
    int goTos = 0;
    const Subscription onPopup = m_view.DisplayListPopup.Subscribe([&] { ++popups; });
    const Subscription onGoTo = m_view.GotoSource.Subscribe([&] { ++goTos; });
    m_controls.List.PopupRequested.Raise();
    m_controls.List.DoubleClick(2);
    EXPECT_EQ(popups, 1);
    EXPECT_EQ(goTos, 1);
    EXPECT_EQ(m_controls.List.CurrentKey(), 3);
}

TEST_F(ViolationList, AnErrorOfTheGridIsLoggedAndShownInNoBox) {
    m_controls.List.SetRecordSource("SELECT Nothing FROM Violations");
    m_controls.List.Rebind();
    ASSERT_EQ(m_log.Entries().size(), 1U);
    EXPECT_THAT(
        m_log.Entries()[0],
        testing::AllOf(
            testing::StartsWith("Event #Encountered the following error: 3061"),
            EndsWith("#ResultsView::m_grdList_Error")));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
    EXPECT_EQ(m_controls.List.RowCount(), 0U);
}

TEST_F(ViolationList, AMarkThatCannotBeStoredIsAnErrorOfTheGrid) {
    ChangeResults(
        "Billing",
        "CREATE TRIGGER Refusal BEFORE UPDATE ON Violations BEGIN SELECT RAISE(ABORT, 'no'); END");
    m_controls.List.Check(4, true);
    ASSERT_EQ(m_log.Entries().size(), 1U);
    EXPECT_THAT(
        m_log.Entries()[0],
        testing::AllOf(
            testing::StartsWith("Event #Encountered the following error: "),
            EndsWith("#ResultsView::m_grdList_Error")));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
    EXPECT_EQ(m_controls.List.Value(4, NumberOf(ViolationColumn::Completed)).AsLong(), 0);
}

}  // namespace
}  // namespace dorvik
