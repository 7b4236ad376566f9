// Reviews of projects on disk that are open in an environment which the test writes.
#include "criteria/ReviewCriteria.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "support/CapturedLog.h"
#include "support/RecordingMessageBox.h"
#include "workstation/application/Connect.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/support/ScriptedHost.h"
#include "workstation/support/SessionProjectsTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

namespace dorvik::test {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

class ReviewCommandTest : public SessionProjectsTest {
protected:
    void Start() {
        m_host.AddProject("Shop", m_folder.Path("Shop\\Shop.vbp"))
            .AddComponent(
                "modMain", "Public Sub Main()\r\n    On Error Resume Next\r\nEnd Sub\r\n");
        m_connect.AddinInstance_OnConnection(m_host, ConnectMode::Startup, m_screen);
        modGlobal::WorkData().AlwaysShowSummary = false;
        m_log.emplace();
        m_host.Calls.clear();
    }
    void Review() { Item("DORVIK.REVIEW").Click(); }
    CommandControl& Item(std::string_view tag) {
        return *m_connect.IDEHelper()->DorvikMenus()->DorvikMenu()->FindTag(tag);
    }
    ResultsView& Results() { return m_connect.IDEHelper()->DorvikUserDocument()->Results(); }
    frmProgress* Progress() { return m_connect.App()->Progress(); }
    void TickToTheEnd() {
        while (Progress() != nullptr) {
            Progress()->tmrInterrupt.Tick();
        }
    }
    bool HasResults(std::string_view project) const {
        const std::string name(project);
        return std::filesystem::exists(
            m_folder.HostPath() / name / "Dorvik" / (name + "_DORVIK.mdb"));
    }

    RecordingMessageBox m_boxes;
    ScriptedHost m_host;
    Connect m_connect;
    std::optional<CapturedLog> m_log;
};

TEST_F(ReviewCommandTest, AForegroundReviewShowsItsResultsAndTheBench) {
    Start();
    Review();
    EXPECT_TRUE(HasResults("Shop"));
    EXPECT_TRUE(Results().ResultsAvailable());
    EXPECT_TRUE(m_connect.IDEHelper()->WorkbenchVisible());
    EXPECT_EQ(Progress(), nullptr);
    EXPECT_TRUE(Item("DORVIK.GOTO").Look().Enabled);
}

TEST_F(ReviewCommandTest, TheSettingsDecideWhatIsShownAfterIt) {
    Start();
    modGlobal::WorkData().AlwaysShowWorkbench = false;
    modGlobal::WorkData().AlwaysShowSummary = true;
    Review();
    EXPECT_FALSE(m_connect.IDEHelper()->WorkbenchVisible());
    EXPECT_TRUE(Results().ResultsAvailable());
    EXPECT_NE(m_screen.ShownSummary, nullptr);
}

TEST_F(ReviewCommandTest, AReviewThatFailsShowsWhateverResultsThereAre) {
    Start();
    m_screen.OnReviewOptions = [this](frmReviewOptions& form) {
        form.cboRulebase.Set(m_folder.Write("Bad.dvk", "no rulebase"));
        form.Ok();
    };
    m_screen.OnProgress = [](frmProgress& form) {
        form.Activate();
    };
    Review();
    EXPECT_FALSE(HasResults("Shop"));
    EXPECT_FALSE(Results().ResultsAvailable());
    EXPECT_EQ(Progress(), nullptr);
}

TEST_F(ReviewCommandTest, ABackgroundReviewHidesTheBenchAndLetsTheUserWork) {
    m_inBackground = true;
    Start();
    m_connect.IDEHelper()->SetWorkbenchVisible(true);
    Review();
    ASSERT_NE(Progress(), nullptr);
    EXPECT_TRUE(m_connect.App()->BackgroundReviewActive());
    EXPECT_FALSE(m_connect.IDEHelper()->WorkbenchVisible());
    EXPECT_EQ(Item("DORVIK.REVIEW").Look().Caption, "Cancel Review");
    EXPECT_FALSE(HasResults("Shop"));
    TickToTheEnd();
    EXPECT_TRUE(HasResults("Shop"));
    EXPECT_TRUE(Results().ResultsAvailable());
    EXPECT_TRUE(m_connect.IDEHelper()->WorkbenchVisible());
    EXPECT_EQ(Item("DORVIK.REVIEW").Look().Caption, "Review Project(s)...");
}

TEST_F(ReviewCommandTest, TheSecondCommandCancelsWithoutADialog) {
    m_inBackground = true;
    Start();
    modGlobal::WorkData().BackgroundTickCount = 3;
    Review();
    Progress()->tmrInterrupt.Tick();
    m_screen.Calls.clear();
    Review();
    EXPECT_THAT(m_screen.Calls, Not(Contains("review options")));
    ASSERT_NE(Progress(), nullptr);
    Progress()->tmrInterrupt.Tick();
    EXPECT_EQ(Progress(), nullptr);
    EXPECT_FALSE(m_connect.App()->BackgroundReviewActive());
    EXPECT_FALSE(HasResults("Shop"));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
}

TEST_F(ReviewCommandTest, ClosingTheEnvironmentCancelsABackgroundReview) {
    m_inBackground = true;
    Start();
    modGlobal::WorkData().BackgroundTickCount = 3;
    Review();
    Progress()->tmrInterrupt.Tick();
    m_connect.AddinInstance_OnBeginShutdown();
    Progress()->tmrInterrupt.Tick();
    EXPECT_EQ(Progress(), nullptr);
    EXPECT_FALSE(m_connect.App()->BackgroundReviewActive());
    m_connect.AddinInstance_OnDisconnection();
    m_log.reset();
    EXPECT_FALSE(HasResults("Shop"));
}

TEST_F(ReviewCommandTest, AProjectThatIsAddedDuringAReviewIsReviewed) {
    m_inBackground = true;
    Start();
    modGlobal::WorkData().BackgroundTickCount = 3;
    Review();
    Progress()->tmrInterrupt.Tick();
    m_host.AddProject("Stock", m_folder.Path("Stock\\Stock.vbp"));
    TickToTheEnd();
    EXPECT_TRUE(HasResults("Shop"));
    EXPECT_TRUE(HasResults("Stock"));
}

TEST_F(ReviewCommandTest, RemovingTheProjectAtHandPassesOverTheNext) {
    m_inBackground = true;
    m_host.AddProject("Stock", m_folder.Path("Stock\\Stock.vbp"));
    Start();
    m_host.AddProject("Parts", m_folder.Path("Parts\\Parts.vbp"));
    modGlobal::WorkData().BackgroundTickCount = 1;
    Review();
    while (!HasResults("Stock")) {
        Progress()->tmrInterrupt.Tick();
    }
    m_host.RemoveProject("Stock");
    TickToTheEnd();
    EXPECT_FALSE(HasResults("Shop"));
    EXPECT_TRUE(HasResults("Parts"));
}

TEST_F(ReviewCommandTest, AReviewedLineIsGoneToInTheEnvironment) {
    Start();
    Review();
    WorkbenchControls& controls = m_connect.IDEHelper()->DorvikUserDocument()->Controls();
    for (std::size_t row = 0; row < controls.List.DataRowCount(); ++row) {
        if (controls.List.KeyOfDataRow(row) == 4) {  // On Error Resume Next, in modMain
            controls.List.ChooseDataRow(row);
        }
    }
    m_host.Calls.clear();
    Item("DORVIK.GOTO").Click();
    EXPECT_THAT(m_host.Calls, Contains("pane modMain top 2"));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
}

}  // namespace
}  // namespace dorvik::test
