#include "workstation/session/ResultsViewDump.h"

#include "criteria/ReviewCriteria.h"
#include "workstation/session/modResultsViewCommands.h"
#include "workstation/view/WorkbenchFixture.h"

#include <map>

namespace dorvik {
namespace {

using testing::ElementsAre;

/// Three violations.
class FewRecords final : public IGridRecords {
public:
    void VisitKeys(std::string_view, const std::function<void(std::int32_t key)>& visit) override {
        for (std::int32_t key = 1; key <= 3; ++key) {
            visit(key);
        }
    }
    void VisitField(std::string_view, std::string_view field, const FieldVisitor& visit) override {
        for (std::int32_t key = 1; key <= 3; ++key) {
            visit(key, ReadRecord(key, {field}).at(0));
        }
    }
    std::vector<Variant>
    ReadRecord(std::int32_t key, const std::vector<std::string_view>& fields) override {
        const std::map<std::string_view, Variant> values{
            {"Completed", Marks[key]},
            {"Severity", key},
            {"Title", "Title " + std::to_string(key)},
            {"Impact", 100 * key},
            {"ItemIDType", "2_3"},
            {"CategoryID", key == 1 ? -1 : 7},
            {"ViolationID", key},
        };
        std::vector<Variant> read;
        for (const std::string_view field : fields) {
            read.push_back(values.at(field));
        }
        return read;
    }
    bool WriteCheck(std::int32_t key, bool checked) override {
        Marks[key] = checked;
        return true;
    }

    std::map<std::int32_t, bool> Marks;
};

class ResultsViewDump : public testing::Test {
protected:
    ResultsViewDump() { m_view.Initialise(); }

    void FillFiles() {
        m_controls.Files.Fill(
            {{"~AllItems~", "", "(All Source Files)", "AllItems"},
             {"2SFKey", "SourceFile", "mod\"A\" [5]", "Module"}});
    }
    void FillList() {
        GridValueList categories;
        categories.Add("7", {"Jumps"});
        GridValueList severities;
        severities.Add("1", {"1. Critical"});
        severities.Add("2", {"2. High"});
        GridValueList files;
        files.Add("2_3", {"modA"});
        Grid& list = m_controls.List;
        list.SetValueList(NumberOf(ViolationColumn::Category), categories);
        list.SetValueList(NumberOf(ViolationColumn::SeverityText), severities);
        list.SetValueList(NumberOf(ViolationColumn::SourceFile), files);
        list.Bind(&m_records);
        list.SetRecordSource("SELECT");
        list.Rebind();
    }
    void FillHotspots() {
        m_controls.Hotspots.Add(
            {"2SFKey", "Module", {{"modA"}, {"           5"}, {"       2,380"}}});
        m_controls.Hotspots.Add({"1SFKey", "AXDLL", {{"Billing"}, {"           1"}, {"N/A"}}});
    }
    std::vector<std::int32_t> Keys() const {
        std::vector<std::int32_t> keys;
        for (std::size_t row = 0; row < m_controls.List.DataRowCount(); ++row) {
            keys.push_back(m_controls.List.KeyOfDataRow(row));
        }
        return keys;
    }
    void ShowHotspots() { m_view.SwitchView(viewtype::kHotspots); }

    test::TemporaryFolder m_folder;
    HostFacts m_facts{
        "ann",
        m_folder.Path("Program\\"),
        m_folder.Path("User\\"),
        m_folder.Path(),
        m_folder.Path("Settings\\"),
        m_folder.Path("Machine\\")};
    ScopedInstall<const HostFacts> m_installed{m_facts};
    test::GlobalObjectsInUse m_globals;
    test::CapturedLog m_log;
    test::ScriptedScreen m_screen;
    FewRecords m_records;
    WorkbenchControls m_controls;
    ResultsView m_view{m_controls, m_screen};
};

TEST_F(ResultsViewDump, TheStateIsThatOfTheBench) {
    auto criteria = std::make_shared<ReviewCriteria>();
    m_view.PopulateResults(criteria, false);
    EXPECT_EQ(
        modResultsViewDump::DumpState(m_view, m_controls, true),
        R"J({"dump":"state","available":false,"view":1,"visible":false,)J"
        R"J("panel":"No projects open.","database":"","project":"","reviewing":true,"filter":""})J");
}

TEST_F(ResultsViewDump, BoxesHaveTheirItemsAndTheSelectedKey) {
    FillFiles();
    m_controls.Files.Select(1);
    EXPECT_EQ(
        modResultsViewDump::DumpFiles(m_controls),
        R"J({"dump":"files","items":[)J"
        R"J({"key":"~AllItems~","tag":"","text":"(All Source Files)","image":"AllItems"},)J"
        R"J({"key":"2SFKey","tag":"SourceFile","text":"mod\"A\" [5]","image":"Module"}],)J"
        R"J("selected":"2SFKey"})J");
    EXPECT_EQ(
        modResultsViewDump::DumpProcedures(m_controls),
        R"J({"dump":"procedures","items":[],"selected":"","enabled":true})J");
}

TEST_F(ResultsViewDump, TheListHasItsRowsInTheOrderShown) {
    FillList();
    EXPECT_EQ(modResultsViewCommands::Sort(m_view, m_controls, "impact", true), std::nullopt);
    EXPECT_EQ(modResultsViewCommands::ChooseRow(m_view, m_controls, 3), std::nullopt);
    EXPECT_EQ(modResultsViewCommands::Complete(m_view, m_controls, 3, true), std::nullopt);
    EXPECT_EQ(
        modResultsViewDump::DumpList(m_controls),
        R"J({"dump":"list","sql":"SELECT","placeholder":false,"current":1,"rows":[)J"
        R"J({"Completed":false,"Severity":3,"Title":"Title 3","Impact":300,"SourceFile":"modA",)J"
        R"J("SeverityText":"","Category":"Jumps","ViolationID":3},)J"
        R"J({"Completed":false,"Severity":2,"Title":"Title 2","Impact":200,"SourceFile":"modA",)J"
        R"J("SeverityText":"2. High","Category":"Jumps","ViolationID":2},)J"
        R"J({"Completed":true,"Severity":1,"Title":"Title 1","Impact":100,"SourceFile":"modA",)J"
        R"J("SeverityText":"1. Critical","Category":"","ViolationID":1}],)J"
        R"J("groups":[],"sorts":[{"column":"Impact","descending":true}]})J");
}

TEST_F(ResultsViewDump, GroupsAreTheGroupRowsThatShow) {
    FillList();
    EXPECT_EQ(modResultsViewCommands::Group(m_view, m_controls, "Category", true), std::nullopt);
    EXPECT_EQ(modResultsViewCommands::Group(m_view, m_controls, "Title", false), std::nullopt);
    m_controls.List.SetExpanded(0, false);
    EXPECT_EQ(
        modResultsViewDump::DumpGroups(m_controls),
        R"J({"dump":"groups","rows":[)J"
        R"J({"column":"Category","level":1,"text":"Jumps (2)","count":2},)J"
        R"J({"column":"Category","level":1,"text":"Unallocated (1)","count":1},)J"
        R"J({"column":"Title","level":2,"text":"Title 1 (1)","count":1}]})J");
    EXPECT_EQ(Keys().size(), 3U);
}

TEST_F(ResultsViewDump, TheDocumentIsWhatThePaneHolds) {
    m_controls.Documentation.SetInnerHTML("<P>\r\n</P>");
    EXPECT_EQ(
        modResultsViewDump::DumpDocument(m_controls),
        R"J({"dump":"document","html":"<P>\r\n</P>"})J");
}

TEST_F(ResultsViewDump, HotspotsHaveNoPaddingAndTheirSortOrder) {
    m_controls.Hotspots.SetColumns(
        {{"Source Files"}, {"Violations", ColumnAlignment::Right, "SortDescending"}});
    FillHotspots();
    m_controls.Hotspots.Select(0);
    EXPECT_EQ(
        modResultsViewDump::DumpHotspot(m_controls),
        R"J({"dump":"hotspot","columns":[{"text":"Source Files","align":"left","icon":""},)J"
        R"J({"text":"Violations","align":"right","icon":"SortDescending"}],"rows":[)J"
        R"J({"key":"2SFKey","image":"Module","cells":["modA","5","2,380"]},)J"
        R"J({"key":"1SFKey","image":"AXDLL","cells":["Billing","1","N/A"]}],)J"
        R"J("selected":"2SFKey","sortColumn":2,"descending":true})J");
}

// ---- commands ----

TEST_F(ResultsViewDump, BoxesTakeTheKeysThatTheyHave) {
    FillFiles();
    int clicks = 0;
    const Subscription subscription = m_controls.Files.Clicked.Subscribe([&] { ++clicks; });
    EXPECT_EQ(modResultsViewCommands::ChooseFile(m_controls, "2sfkey"), std::nullopt);
    EXPECT_EQ(clicks, 1);
    EXPECT_NE(modResultsViewCommands::ChooseFile(m_controls, "3SFKey"), std::nullopt);
    m_controls.Procedures.Fill({{"1PRKey", "Procedure", "Total", "PublicMethod"}});
    EXPECT_EQ(modResultsViewCommands::ChooseProcedure(m_controls, "1PRKey"), std::nullopt);
    m_controls.Procedures.Enabled.Set(false);
    EXPECT_NE(modResultsViewCommands::ChooseProcedure(m_controls, "1PRKey"), std::nullopt);
}

TEST_F(ResultsViewDump, RowsAndColumnsThatAreNotThereAreRefused) {
    FillList();
    EXPECT_NE(modResultsViewCommands::ChooseRow(m_view, m_controls, 0), std::nullopt);
    EXPECT_NE(modResultsViewCommands::ChooseRow(m_view, m_controls, 4), std::nullopt);
    EXPECT_NE(modResultsViewCommands::Complete(m_view, m_controls, 4, true), std::nullopt);
    EXPECT_NE(modResultsViewCommands::Sort(m_view, m_controls, "Line", false), std::nullopt);
    EXPECT_NE(modResultsViewCommands::Group(m_view, m_controls, "Line", false), std::nullopt);
    EXPECT_NE(modResultsViewCommands::Ungroup(m_view, m_controls, "Title"), std::nullopt);
}

TEST_F(ResultsViewDump, SortingReplacesAndGroupingAddsOrTurns) {
    FillList();
    modResultsViewCommands::Sort(m_view, m_controls, "Title", false);
    modResultsViewCommands::Sort(m_view, m_controls, "Severity", true);
    EXPECT_THAT(m_controls.List.SortKeys(), ElementsAre(GridOrderKey{2, true}));
    modResultsViewCommands::Group(m_view, m_controls, "Title", false);
    modResultsViewCommands::Group(m_view, m_controls, "Category", false);
    modResultsViewCommands::Group(m_view, m_controls, "Title", true);
    EXPECT_THAT(
        m_controls.List.Groups(), ElementsAre(GridOrderKey{3, true}, GridOrderKey{7, false}));
    EXPECT_EQ(modResultsViewCommands::Ungroup(m_view, m_controls, "Title"), std::nullopt);
    EXPECT_THAT(m_controls.List.Groups(), ElementsAre(GridOrderKey{7, false}));
}

TEST_F(ResultsViewDump, WhatBelongsToTheOtherViewIsRefused) {
    FillList();
    FillHotspots();
    EXPECT_NE(modResultsViewCommands::ClickHeader(m_view, m_controls, 1), std::nullopt);
    EXPECT_NE(modResultsViewCommands::ChooseItem(m_view, m_controls, 1), std::nullopt);
    ShowHotspots();
    EXPECT_NE(modResultsViewCommands::ChooseRow(m_view, m_controls, 1), std::nullopt);
    EXPECT_NE(modResultsViewCommands::Complete(m_view, m_controls, 1, true), std::nullopt);
    EXPECT_NE(modResultsViewCommands::Sort(m_view, m_controls, "Title", false), std::nullopt);
    EXPECT_NE(modResultsViewCommands::Group(m_view, m_controls, "Title", false), std::nullopt);
    EXPECT_NE(modResultsViewCommands::Ungroup(m_view, m_controls, "Title"), std::nullopt);
    EXPECT_EQ(modResultsViewCommands::ClickHeader(m_view, m_controls, 1), std::nullopt);
    EXPECT_EQ(m_controls.Hotspots.Columns()[0].SortIcon, "SortAscending");
    EXPECT_EQ(modResultsViewCommands::ChooseItem(m_view, m_controls, 2), std::nullopt);
    EXPECT_EQ(m_controls.Hotspots.SelectedRow()->Key, "2SFKey");
    EXPECT_NE(modResultsViewCommands::ClickHeader(m_view, m_controls, 10), std::nullopt);
    EXPECT_NE(modResultsViewCommands::ChooseItem(m_view, m_controls, 3), std::nullopt);
}

}  // namespace
}  // namespace dorvik
