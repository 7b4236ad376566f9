#include "WorkbenchFixture.h"

namespace dorvik {
namespace {

using testing::ElementsAre;

class SourceBoxes : public test::WorkbenchFixture {
protected:
    void SetUp() override { OpenBench(); }

    void SortFilesBy(std::int32_t key, bool ascending) {
        Settings().RVFileSortKey = key;
        Settings().RVFileSortAscending = ascending;
        m_view.OptionsChanged();
    }
};

TEST_F(SourceBoxes, FilesHaveKeysTagsTextsAndImages) {
    EXPECT_THAT(
        m_controls.Files.Items(),
        ElementsAre(
            ComboItem{"~AllItems~", "", "(All Source Files)", "AllItems"},
            ComboItem{"1SFKey", "VBPFile", "Billing [1]", "AXDLL"},
            ComboItem{"4SFKey", "SourceFile", "clsC", "Class"},
            ComboItem{"3SFKey", "SourceFile", "frmB [1]", "Form"},
            ComboItem{"2SFKey", "SourceFile", "modA [5]", "Module"}));
    EXPECT_EQ(SelectedKey(m_controls.Files), "~AllItems~");
    EXPECT_FALSE(m_controls.Procedures.Enabled.Value());
    EXPECT_EQ(m_controls.Procedures.Count(), 0U);
}

TEST_F(SourceBoxes, AFileWithoutViolationsIsNotInTheBoxOfTheListWhenZeroItemsAreHidden) {
    Settings().RVFileShowZeroItems = false;
    m_view.OptionsChanged();
    EXPECT_THAT(Keys(m_controls.Files), ElementsAre("~AllItems~", "1SFKey", "3SFKey", "2SFKey"));
    m_view.SwitchView(viewtype::kHotspots);
    EXPECT_THAT(
        Keys(m_controls.Files), ElementsAre("~AllItems~", "1SFKey", "4SFKey", "3SFKey", "2SFKey"));
}

TEST_F(SourceBoxes, TheFigureIsThatOfTheSortKeyAndNotGrouped) {
    SortFilesBy(3, false);
    EXPECT_THAT(
        Texts(m_controls.Files),
        ElementsAre("(All Source Files)", "modA [2380]", "Billing [900]", "frmB [30]", "clsC"));
    SortFilesBy(4, false);
    EXPECT_THAT(
        Texts(m_controls.Files),
        ElementsAre("(All Source Files)", "modA", "Billing", "frmB", "clsC"));
}

TEST_F(SourceBoxes, TheHotspotViewShowsNoFigures) {
    m_view.SwitchView(viewtype::kHotspots);
    EXPECT_THAT(
        Texts(m_controls.Files),
        ElementsAre("(All Source Files)", "Billing", "clsC", "frmB", "modA"));
}

TEST_F(SourceBoxes, ProceduresHaveKeysTagsTextsAndImages) {
    ChooseFile("2SFKey");
    EXPECT_TRUE(m_controls.Procedures.Enabled.Value());
    EXPECT_THAT(
        m_controls.Procedures.Items(),
        ElementsAre(
            ComboItem{"2SFKey", "BlankItem", "(All Items)", "AllItems"},
            ComboItem{"1PRKey", "Procedure", "(Declarations) [1]", "Declarations"},
            ComboItem{"3PRKey", "Procedure", "Rate (Get) [1]", "FriendProperty"},
            ComboItem{"4PRKey", "Procedure", "Rate (Let)", "PublicProperty"},
            ComboItem{"2PRKey", "Procedure", "Total [2]", "PublicMethod"}));
    EXPECT_EQ(m_controls.Procedures.SelectedIndex(), 0U);
    ChooseFile("3SFKey");
    EXPECT_THAT(
        m_controls.Procedures.Items(),
        ElementsAre(
            ComboItem{"3SFKey", "BlankItem", "(All Items)", "AllItems"},
            ComboItem{"6PRKey", "Procedure", "Form_Load", "PrivateMethod"},
            ComboItem{"5PRKey", "Procedure", "(Layout) [1]", "Layout"}));
}

TEST_F(SourceBoxes, ProceduresWithoutViolationsAreLeftOutWhenZeroItemsAreHidden) {
    Settings().RVProcShowZeroItems = false;
    Settings().RVProcSortKey = 3;
    Settings().RVProcSortAscending = false;
    m_view.OptionsChanged();
    ChooseFile("2SFKey");
    EXPECT_THAT(
        Texts(m_controls.Procedures),
        ElementsAre("(All Items)", "Total [1850]", "(Declarations) [500]", "Rate (Get) [20]"));
}

TEST_F(SourceBoxes, ADisabledProceduresBoxKeepsItsItemsAndSelection) {
    ChooseFile("2SFKey");
    ChooseProcedure("2PRKey");
    ChooseFile("1SFKey");
    EXPECT_FALSE(m_controls.Procedures.Enabled.Value());
    EXPECT_EQ(m_controls.Procedures.Count(), 5U);
    EXPECT_EQ(SelectedKey(m_controls.Procedures), "2PRKey");
}

TEST_F(SourceBoxes, ChoosingWhatIsChosenRunsItsHandlingAgain) {
    ChooseFile("2SFKey");
    ChooseProcedure("2PRKey");
    ChooseViolation(5);
    ChooseProcedure("2PRKey");
    EXPECT_EQ(m_controls.List.CurrentKey(), 4);
    ChooseFile("2SFKey");
    EXPECT_EQ(m_controls.Procedures.SelectedIndex(), 0U);
}

TEST_F(SourceBoxes, OptionsKeepTheSelectedFileAndSelectAllItemsOfIt) {
    ChooseFile("2SFKey");
    ChooseProcedure("2PRKey");
    SortFilesBy(2, false);
    EXPECT_EQ(SelectedKey(m_controls.Files), "2SFKey");
    EXPECT_EQ(m_controls.Procedures.SelectedIndex(), 0U);
    ChooseFile("4SFKey");
    Settings().RVFileShowZeroItems = false;
    m_view.OptionsChanged();
    EXPECT_EQ(SelectedKey(m_controls.Files), "~AllItems~");
}

TEST_F(SourceBoxes, OptionsWithoutResultsWaitForTheNextOpening) {
    m_view.CloseResults();
    SortFilesBy(2, false);
    EXPECT_EQ(m_controls.Files.Count(), 0U);
    m_view.PopulateResults(m_criteria, true);
    EXPECT_EQ(m_controls.Files.Item(1).Key, "2SFKey");
}

// ---- the environment's selection ----

TEST_F(SourceBoxes, AFileSelectedInTheEnvironmentIsSelectedHereIfTheSettingSaysSo) {
    m_view.FileSelected("Billing", "modA");
    EXPECT_EQ(SelectedKey(m_controls.Files), "~AllItems~");
    Settings().AlwaysSynchroniseVL = true;
    m_view.FileSelected("Billing", "MODA");
    EXPECT_EQ(SelectedKey(m_controls.Files), "2SFKey");
    EXPECT_THAT(Violations(), ElementsAre(3, 4, 5, 7));
    m_view.FileSelected("Billing", "clsC");
    EXPECT_EQ(SelectedKey(m_controls.Files), "4SFKey");
}

TEST_F(SourceBoxes, OnlyAWholeNameIsSelected) {
    Settings().AlwaysSynchroniseVL = true;
    m_view.FileSelected("Billing", "mod");
    EXPECT_EQ(SelectedKey(m_controls.Files), "~AllItems~");
}

TEST_F(SourceBoxes, NoFileIsSelectedWhileFileEventsAreIgnored) {
    Settings().AlwaysSynchroniseVL = true;
    m_view.SetIgnoreFileEvents(true);
    m_view.FileSelected("Billing", "modA");
    EXPECT_EQ(SelectedKey(m_controls.Files), "~AllItems~");
    m_view.SetIgnoreFileEvents(false);
    m_view.FileSelected("Billing", "modA");
    EXPECT_EQ(SelectedKey(m_controls.Files), "2SFKey");
}

}  // namespace
}  // namespace dorvik
