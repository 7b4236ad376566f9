#include "workstation/desk/Findings.h"

#include "ReviewedShop.h"
#include "workstation/desk/ProjectExplorer.h"
#include "workstation/desk/ProjectFacts.h"
#include "workstation/desk/ReviewComparison.h"

#include <algorithm>

namespace dorvik::test {
namespace {

class FindingsTest : public ReviewedShop {};

TEST_F(FindingsTest, AFileThatIsNotThereOrNoDatabaseHasNone) {
    EXPECT_TRUE(modFindings::Read("").empty());
    EXPECT_TRUE(modFindings::Read(m_folder.Path("none.mdb")).empty());
    EXPECT_TRUE(modFindings::Read(m_folder.Write("text.mdb", "no database")).empty());
    EXPECT_EQ(modFindings::ReadCounts("").Count, FindingCount());
    EXPECT_TRUE(modFindings::ReadAdvice("", 1).empty());
}

TEST_F(FindingsTest, EachViolationHasItsPlaceByNames) {
    App().ReviewAgain();
    const std::vector<FoundViolation> all = modFindings::Read(Database());
    ASSERT_FALSE(all.empty());
    const auto found = std::ranges::find_if(all, [](const FoundViolation& violation) {
        return violation.File == "modMain.bas" &&
               violation.Text.find("On Error Resume Next") != std::string::npos;
    });
    ASSERT_NE(found, all.end());
    EXPECT_EQ(found->Procedure, "Main");
    EXPECT_GT(found->Line, 0);
    EXPECT_GT(found->Severity, 0);
    EXPECT_FALSE(found->Title.empty());
}

TEST_F(FindingsTest, ThoseOfAFileAreThoseOfItsNameWithoutRegardToCase) {
    App().ReviewAgain();
    const auto all = modFindings::Read(Database());
    const auto ofFile = std::ranges::count(all, "modMain.bas", &FoundViolation::File);
    const auto read = modFindings::ReadFile(Database(), "MODMAIN.BAS");
    EXPECT_EQ(static_cast<std::ptrdiff_t>(read.size()), ofFile);
    EXPECT_TRUE(std::ranges::all_of(
        read, [](const FoundViolation& violation) { return violation.File == "modMain.bas"; }));
    EXPECT_TRUE(modFindings::ReadFile(Database(), "none.bas").empty());
}

TEST_F(FindingsTest, TheFilterLeavesViolationsOut) {
    App().ReviewAgain();
    const auto all = modFindings::Read(Database());
    const auto worst = modFindings::Read(Database(), " Severity <= 2");
    EXPECT_LT(worst.size(), all.size());
    EXPECT_EQ(
        modFindings::ReadCounts(Database(), " Severity <= 2").Count.Violations,
        static_cast<std::int32_t>(worst.size()));
}

TEST_F(FindingsTest, TheCountsOfFilesAndProceduresAddUp) {
    App().ReviewAgain();
    const ProjectFindingCounts counts = modFindings::ReadCounts(Database());
    EXPECT_EQ(counts.ProjectFile, m_folder.Path("Shop\\Shop.vbp"));
    EXPECT_EQ(
        counts.Count.Violations, static_cast<std::int32_t>(modFindings::Read(Database()).size()));
    const ProjectFindingCounts::File* const file = counts.FindFile("modmain.bas");
    ASSERT_NE(file, nullptr);
    EXPECT_GT(file->Count.Violations, 0);
    EXPECT_GE(file->Count.Worst, 1);
    FindingCount sum;
    for (const ProjectFindingCounts::Procedure& procedure : file->Procedures) {
        sum.Add(procedure.Count);
    }
    EXPECT_EQ(sum, file->Count);
}

// ---- reviewing again ----

TEST_F(FindingsTest, TheFirstReviewComesWithTheDialogAndTheNextWithout) {
    App().ReviewAgain();
    App().ReviewAgain();
    EXPECT_EQ(Dialogs(), 1);
    EXPECT_EQ(std::ranges::count(m_screen.Calls, "progress"), 2);
}

TEST_F(FindingsTest, AReviewThatTheDialogWouldRefuseComesWithIt) {
    App().ReviewAgain();
    std::filesystem::remove(m_folder.HostPath() / "Rules.dvk");
    App().ReviewAgain();
    EXPECT_EQ(Dialogs(), 2);
    EXPECT_FALSE(m_boxes.Messages.empty());
}

TEST_F(FindingsTest, BeforeAReviewTheOldResultsAreStillThereAndAfterItTheNewOnesAreShown) {
    std::vector<std::string> events;
    std::vector<FoundViolation> before;
    const Subscription begins = App().ReviewBegins.Subscribe([&] {
        events.emplace_back("begins");
        before = modFindings::Read(Database());
    });
    const Subscription ended = App().ReviewEnded.Subscribe([&] {
        events.emplace_back("ended");
        EXPECT_TRUE(m_connect.IDEHelper()->DorvikUserDocument()->Results().ResultsAvailable());
    });
    App().ReviewAgain();
    EXPECT_TRUE(before.empty());
    FileComponent& file = *m_host.FindComponent("modMain");
    file.CodeModule().InsertLines(
        file.CodeModule().CountOfLines() + 1,
        "Public Sub Added()\r\n    On Error Resume Next\r\nEnd Sub");
    ASSERT_TRUE(m_host.SaveAll());
    App().ReviewAgain();
    EXPECT_EQ(events, (std::vector<std::string>{"begins", "ended", "begins", "ended"}));
    const ReviewComparison comparison(before, modFindings::Read(Database()));
    ASSERT_EQ(comparison.Count(FindingChange::New), 1);
    EXPECT_EQ(comparison.Rows().front().Violation.Procedure, "Added");
    EXPECT_EQ(comparison.Count(FindingChange::Gone), 0);
    EXPECT_EQ(comparison.Count(FindingChange::Unchanged), static_cast<std::int32_t>(before.size()));
}

TEST_F(FindingsTest, APageOfTheOptionsIsShownInFront) {
    std::int16_t shown = 0;
    m_screen.OnOptions = [&](frmOptions& form) {
        shown = form.tbsOptions.Shown.Value();
    };
    App().ShowOptions(frmOptions::Page::Folders);
    EXPECT_EQ(shown, static_cast<std::int16_t>(frmOptions::Page::Folders));
}

TEST_F(FindingsTest, AFolderTypedAsRulebaseIsNoError) {
    m_screen.OnReviewOptions = [this](frmReviewOptions& form) {
        form.cboRulebase.Set(m_folder.Path());
        form.cboRulebase.Set("\\");
        form.Cancel();
    };
    App().ReviewAgain();
    EXPECT_TRUE(m_boxes.Messages.empty());
}

// ---- the tree of projects ----

const ExplorerNode* FindNode(const std::vector<ExplorerNode>& nodes, std::string_view text) {
    for (const ExplorerNode& node : nodes) {
        if (node.Text == text) {
            return &node;
        }
        if (const ExplorerNode* const found = FindNode(node.Children, text)) {
            return found;
        }
    }
    return nullptr;
}

TEST_F(FindingsTest, TheTreeHasKindsOfFilesAndFiles) {
    const ProjectExplorer explorer(m_host);
    const std::vector<ExplorerNode> projects = explorer.Projects();
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects[0].Text, "Shop");
    ASSERT_EQ(projects[0].Children.size(), 3U);
    EXPECT_EQ(projects[0].Children[0].Text, "Forms");
    EXPECT_EQ(projects[0].Children[1].Text, "Modules");
    EXPECT_EQ(projects[0].Children[2].Text, "Class modules");
    const ExplorerNode* const file = FindNode(projects, "modMain (modMain.bas)");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->Image, "Module");
    EXPECT_EQ(file->File, m_folder.Path("Shop\\modMain.bas"));
    EXPECT_EQ(file->Findings, FindingCount());
}

TEST_F(FindingsTest, TheTreeHasTheViolationsThatAreShown) {
    App().ReviewAgain();
    ProjectExplorer explorer(m_host);
    int changes = 0;
    const Subscription changed = explorer.Changed.Subscribe([&] { ++changes; });
    const ProjectFindingCounts counts = modFindings::ReadCounts(Database());
    explorer.SetCounts(counts);
    EXPECT_EQ(changes, 1);
    const std::vector<ExplorerNode> projects = explorer.Projects();
    EXPECT_EQ(projects[0].Findings, counts.Count);
    const ExplorerNode* const file = FindNode(projects, "modMain (modMain.bas)");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->Findings, counts.FindFile("modMain.bas")->Count);
    const auto procedures = explorer.ProceduresOf("Shop", file->File);
    ASSERT_EQ(procedures.size(), 4U);
    EXPECT_EQ(procedures[0].Text, "Main");
    EXPECT_GT(procedures[0].Findings.Violations, 0);
    EXPECT_EQ(procedures[1].Text, "Count (Get)");
    EXPECT_EQ(procedures[1].Findings.Violations, 0);
    EXPECT_EQ(procedures[2].Text, "Count (Let)");
    EXPECT_GT(procedures[2].Findings.Violations, 0);
    explorer.SetCounts({});
    EXPECT_EQ(explorer.Projects()[0].Findings, FindingCount());
}

TEST_F(FindingsTest, AProjectThatComesGoesOrChangesIsKnown) {
    ProjectExplorer explorer(m_host);
    int changes = 0;
    int dirt = 0;
    const Subscription changed = explorer.Changed.Subscribe([&] { ++changes; });
    const Subscription dirty = explorer.DirtyChanged.Subscribe([&] { ++dirt; });
    m_host.Open(m_folder.Path("Stock\\Stock.vbp"));
    EXPECT_EQ(changes, 1);
    m_host.FindComponent("modMain")->CodeModule().ReplaceLine(1, "' changed");
    EXPECT_GT(dirt, 0);
    EXPECT_TRUE(explorer.Projects()[0].Dirty);
    EXPECT_TRUE(FindNode(explorer.Projects(), "modMain (modMain.bas)")->Dirty);
    m_host.RenameProject("Shop", "Store");
    EXPECT_EQ(explorer.Projects()[0].Text, "Store");
    m_host.CloseProject("Store");
    EXPECT_EQ(explorer.Projects().size(), 1U);
    EXPECT_EQ(changes, 3);
}

TEST_F(FindingsTest, AFileThatCannotBeReadHasNoProcedures) {
    const ProjectExplorer explorer(m_host);
    EXPECT_TRUE(explorer.ProceduresOf("Nobody", "none.bas").empty());
}

// ---- facts ----

TEST_F(FindingsTest, TheFactsOfAProjectAreThoseOfItsFile) {
    const ProjectFacts facts = FactsOf(m_host.Project("Shop"));
    EXPECT_EQ(facts.Title, "Shop");
    ASSERT_EQ(facts.Properties.size(), 3U);
    EXPECT_EQ(facts.Properties[0].Rows[0], (std::pair<std::string, std::string>{"Name", "Shop"}));
    EXPECT_EQ(
        facts.Properties[0].Rows[2],
        (std::pair<std::string, std::string>{"File", m_folder.Path("Shop\\Shop.vbp")}));
    EXPECT_EQ(facts.Properties[1].Rows.size(), 3U);
    ASSERT_EQ(facts.References.size(), 2U);
    EXPECT_FALSE(facts.References[0].Rows.empty());
}

TEST_F(FindingsTest, ACommandOfTheEnvironmentIsRaised) {
    std::vector<std::int32_t> commands;
    const Subscription executed = m_host.CommandExecuted.Subscribe(
        [&](std::int32_t command) { commands.push_back(command); });
    m_host.ExecuteCommand(hostcommand::kReferences);
    m_host.ExecuteCommand(hostcommand::kProjectProperties);
    EXPECT_EQ(
        commands,
        (std::vector<std::int32_t>{hostcommand::kReferences, hostcommand::kProjectProperties}));
}

TEST_F(FindingsTest, SeveralProjectsAreOpenedWithOneMessage) {
    EXPECT_TRUE(m_host.Open(std::vector<std::string>{
        m_folder.Path("none.vbp"), m_folder.Path("Stock\\Stock.vbp"), m_folder.Path("x.vbg")}));
    EXPECT_EQ(m_host.ProjectCount(), 2);
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
}

}  // namespace
}  // namespace dorvik::test
