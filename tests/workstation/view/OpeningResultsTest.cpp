#include "WorkbenchFixture.h"
#include "platform/database/Database.h"
#include "source/VirtualProject.h"

namespace dorvik {
namespace {

using testing::IsEmpty;

class OpeningResults : public test::WorkbenchFixture {
protected:
    void SpoilVersion(std::string_view name) const {
        Database database;
        database.Open(DatabaseFile(name));
        database.Execute("UPDATE SystemInfo SET Version = '6.01.0000'");
    }

    static constexpr const char* kNone =
        "No results exist for 'Billing', please perform a review to create them.";
};

TEST_F(OpeningResults, WithoutAProjectThePanelSaysSo) {
    m_view.SetWorkbenchVisible(true);
    m_view.PopulateResults(m_criteria, false);
    EXPECT_EQ(m_controls.Panel.Value(), "No projects open.");
    EXPECT_FALSE(m_view.ResultsAvailable());
    EXPECT_EQ(m_view.Shown().DatabaseFile, "");
}

TEST_F(OpeningResults, AProjectThatWasNotReviewedHasAPanel) {
    AddProject("Billing");
    m_view.SetWorkbenchVisible(true);
    m_view.PopulateResults(m_criteria, false);
    EXPECT_EQ(m_controls.Panel.Value(), kNone);
    EXPECT_EQ(m_view.Shown().DatabaseFile, DatabaseFile("Billing"));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
}

TEST_F(OpeningResults, ADatabaseOfAnotherVersionShowsTheMessageAndTheBenchStaysUsable) {
    AddProject("Billing");
    WriteResults("Billing");
    SpoilVersion("Billing");
    m_view.SetWorkbenchVisible(true);
    m_view.PopulateResults(m_criteria, false);
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
    EXPECT_EQ(m_boxes.Messages[0].Icon, MessageIcon::Exclamation);
    EXPECT_EQ(m_boxes.Messages[0].Title, "Dorvik Workstation");
    EXPECT_EQ(
        m_boxes.Messages[0].Text,
        "Incorrect results database version. Please perform a fresh review of this project to "
        "ensure that the results database is correctly updated.");
    EXPECT_FALSE(m_view.ResultsAvailable());
    EXPECT_EQ(m_controls.Panel.Value(), kNone);

    AddProject("Other");
    WriteResults("Other");
    m_view.ProjectAdded();
    m_view.ProjectSelected("other");
    EXPECT_TRUE(m_view.ResultsAvailable());
    EXPECT_EQ(m_controls.Panel.Value(), "");
    EXPECT_EQ(m_view.Shown().ProjectName, "Other");
}

TEST_F(OpeningResults, AHiddenBenchDefersOpeningUntilItIsShown) {
    AddProject("Billing");
    WriteResults("Billing");
    m_view.PopulateResults(m_criteria, false);
    EXPECT_FALSE(m_view.ResultsAvailable());
    EXPECT_EQ(m_controls.Panel.Value(), "");
    m_view.SetWorkbenchVisible(true);
    EXPECT_TRUE(m_view.ResultsAvailable());
    EXPECT_EQ(SelectedKey(m_controls.Files), "~AllItems~");
    EXPECT_EQ(m_controls.List.DataRowCount(), 8U);
}

TEST_F(OpeningResults, AfterAReviewAHiddenBenchOpensAtOnce) {
    AddProject("Billing");
    WriteResults("Billing");
    m_view.PopulateResults(m_criteria, true);
    EXPECT_TRUE(m_view.ResultsAvailable());
}

TEST_F(OpeningResults, ShowingABenchThatIsOpenSelectsNothingAnew) {
    OpenBench();
    ChooseFile("2SFKey");
    ChooseProcedure("2PRKey");
    m_view.SetWorkbenchVisible(false);
    m_view.SetWorkbenchVisible(true);
    EXPECT_EQ(SelectedKey(m_controls.Files), "2SFKey");
    EXPECT_EQ(SelectedKey(m_controls.Procedures), "2PRKey");
}

TEST_F(OpeningResults, TheFirstSelectedProjectIsShown) {
    AddProject("Other");
    AddProject("Billing");
    m_criteria->ProjectList().SetSelected(1, false);
    WriteResults("Billing");
    m_view.SetWorkbenchVisible(true);
    m_view.PopulateResults(m_criteria, false);
    EXPECT_EQ(m_view.Shown().ProjectName, "Billing");
}

TEST_F(OpeningResults, WithSeveralProjectsTheFirstFileIsSelected) {
    AddProject("Billing");
    AddProject("Other");
    WriteResults("Billing");
    m_view.SetWorkbenchVisible(true);
    m_view.PopulateResults(m_criteria, false);
    EXPECT_EQ(SelectedKey(m_controls.Files), m_controls.Files.Item(1).Key);
}

TEST_F(OpeningResults, ADatabaseInTheFixedFolderIsFoundThere) {
    AddProject("Billing");
    m_criteria->SetUseProjectFolderResults(false);
    m_criteria->SetFixedFolderResults(m_folder.Path("Results"));
    m_view.PopulateResults(m_criteria, false);
    EXPECT_EQ(m_view.Shown().DatabaseFile, m_folder.Path("Results\\Billing_DORVIK.mdb"));
}

TEST_F(OpeningResults, TheFilterBeginsAsTheReviewWasAndLeavesOutNothing) {
    OpenBench();
    EXPECT_EQ(m_view.Shown().Filter, "");
}

TEST_F(OpeningResults, ADatabaseOpenedByItselfHasTheNameOfItsProject) {
    WriteResults("Billing");
    m_view.PopulateResults(m_criteria, false);
    auto database = std::make_unique<ResultsDB>();
    ASSERT_TRUE(database->OpenReview(DatabaseFile("Billing")));
    m_view.SetResultsDB(std::move(database), DatabaseFile("Billing"));
    EXPECT_TRUE(m_view.ResultsAvailable());
    EXPECT_EQ(m_controls.Panel.Value(), "");
    EXPECT_EQ(m_view.Shown().ProjectName, "Billing");
    EXPECT_EQ(m_view.Shown().DatabaseFile, DatabaseFile("Billing"));
    EXPECT_EQ(SelectedKey(m_controls.Files), m_controls.Files.Item(1).Key);
}

TEST_F(OpeningResults, ClosedResultsLeaveAnEmptyBenchAndAFileThatCanBeReplaced) {
    OpenBench();
    ChooseViolation(3);
    m_view.CloseResults();
    EXPECT_FALSE(m_view.ResultsAvailable());
    EXPECT_EQ(m_controls.Documentation.InnerHTML(), "");
    EXPECT_EQ(m_controls.Documentation.Address(), "about:blank");
    EXPECT_EQ(m_controls.Files.Count(), 0U);
    EXPECT_EQ(m_controls.List.RowCount(), 0U);
    EXPECT_NO_THROW(Database::DeleteFile(DatabaseFile("Billing")));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

// ---- projects come, go and get other names ----

TEST_F(OpeningResults, TheFirstProjectThatIsAddedIsShown) {
    m_view.SetWorkbenchVisible(true);
    m_view.PopulateResults(m_criteria, false);
    AddProject("Billing");
    WriteResults("Billing");
    m_view.ProjectAdded();
    EXPECT_TRUE(m_view.ResultsAvailable());
    AddProject("Other");
    m_view.ProjectAdded();
    EXPECT_EQ(m_view.Shown().ProjectName, "Billing");
}

TEST_F(OpeningResults, RemovingTheShownProjectClosesItsResults) {
    OpenBench();
    m_criteria->ProjectList().Remove(1);
    m_view.ProjectRemoved(1);
    EXPECT_FALSE(m_view.ResultsAvailable());
    EXPECT_EQ(m_controls.Panel.Value(), "No projects open.");
}

TEST_F(OpeningResults, RemovingAnotherProjectLeavesTheShownOne) {
    AddProject("Other");
    AddProject("Billing");
    WriteResults("Billing");
    m_view.SetWorkbenchVisible(true);
    m_view.PopulateResults(m_criteria, false);
    m_view.ProjectSelected("Billing");
    m_criteria->ProjectList().Remove(1);
    m_view.ProjectRemoved(1);
    EXPECT_TRUE(m_view.ResultsAvailable());
    m_view.ProjectRenamed("Billing", "Invoices");
    EXPECT_EQ(m_view.Shown().ProjectName, "Invoices");
}

TEST_F(OpeningResults, ActivatingTheShownProjectSelectsNothingAnew) {
    OpenBench();
    ChooseFile("2SFKey");
    m_view.ProjectSelected("Billing");
    EXPECT_EQ(SelectedKey(m_controls.Files), "2SFKey");
}

TEST_F(OpeningResults, ARenamedProjectHasItsNameInListDatabaseBoxAndHotspots) {
    OpenBench();
    m_view.ProjectRenamed("billing", "Invoices");
    EXPECT_EQ(m_criteria->ProjectList().Item("Invoices")->Name(), "Invoices");
    EXPECT_EQ(m_controls.Files.Item(m_controls.Files.Find("1SFKey").value()).Text, "Invoices [1]");

    m_view.SwitchView(viewtype::kHotspots);
    m_view.ProjectRenamed("Invoices", "Bills");
    const auto row = m_controls.Hotspots.Find("1SFKey").value();
    EXPECT_EQ(m_controls.Hotspots.Row(row).Cells[0].Text, "Bills");
    m_view.CloseResults();
    ResultsDB database;
    ASSERT_TRUE(database.OpenReview(DatabaseFile("Billing")));
    EXPECT_EQ(database.Items().GetProjectData("Name"), "Bills");
}

TEST_F(OpeningResults, ARenamedFileHasItsNameInDatabaseBoxAndHotspots) {
    OpenBench();
    m_view.FileRenamed("Billing", "MODA", "modMain");
    EXPECT_EQ(m_controls.Files.Item(m_controls.Files.Find("2SFKey").value()).Text, "modMain [5]");
    m_view.SwitchView(viewtype::kHotspots);
    m_view.FileRenamed("Billing", "modMain", "modB");
    const auto row = m_controls.Hotspots.Find("2SFKey").value();
    EXPECT_EQ(m_controls.Hotspots.Row(row).Cells[0].Text, "modB");
    m_view.FileRenamed("Other", "modB", "modC");
    m_view.FileRenamed("Billing", "nothing", "modC");
    m_view.CloseResults();
    ResultsDB database;
    ASSERT_TRUE(database.OpenReview(DatabaseFile("Billing")));
    EXPECT_EQ(database.Items().GetSourceFileData("Name", 2), "modB");
}

TEST_F(OpeningResults, ARenamedProjectFileIsKeptInTheList) {
    OpenBench();
    m_view.ProjectFileRenamed("Billing", m_folder.Path("New.vbp"));
    EXPECT_EQ(m_criteria->ProjectList().Item(1)->Filename(), m_folder.Path("New.vbp"));
    EXPECT_EQ(m_view.Shown().ProjectFile, m_folder.Path("New.vbp"));
    EXPECT_TRUE(m_view.ResultsAvailable());
}

TEST_F(OpeningResults, ANameThatNoProjectHasChangesNothing) {
    OpenBench();
    m_view.ProjectSelected("nothing");
    m_view.ProjectRenamed("nothing", "something");
    m_view.ProjectFileRenamed("nothing", "something");
    EXPECT_EQ(m_view.Shown().ProjectName, "Billing");
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

}  // namespace
}  // namespace dorvik
