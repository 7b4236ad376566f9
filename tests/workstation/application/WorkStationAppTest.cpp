#include "workstation/application/WorkStationApp.h"

#include "criteria/ReviewCriteria.h"
#include "platform/host/HostFacts.h"
#include "platform/host/ScopedInstall.h"
#include "settings/DVKWorkData.h"
#include "settings/DorvikData.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsKeys.h"
#include "settings/SettingsSections.h"
#include "settings/modGlobal.h"
#include "support/CapturedLog.h"
#include "support/LockedDatabase.h"
#include "support/TemporaryFolder.h"
#include "workstation/application/Connect.h"
#include "workstation/dialogs/frmOptions.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/support/ScriptedHost.h"
#include "workstation/support/ScriptedScreen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>

namespace dorvik::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Answers message boxes in order, and Yes or OK after the last answer.
class AnsweredBoxes final : public IMessageBox {
public:
    AnsweredBoxes() : m_installed(*this) {}

    MessageAnswer Show(const MessageText& message) override {
        Messages.push_back(message);
        if (Answers.empty()) {
            return message.Buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Yes;
        }
        const MessageAnswer answer = Answers.front();
        Answers.pop_front();
        return answer;
    }

    std::deque<MessageAnswer> Answers;
    std::vector<MessageText> Messages;

private:
    ScopedInstall<IMessageBox> m_installed;
};

class WorkStationAppTest : public testing::Test {
protected:
    WorkStationAppTest() : m_store(RegistryRoot::CurrentUser, m_settings) {
        m_facts.UserDataFolder = m_folder.Path();
        m_facts.ProgramFolder = m_folder.Path("Program\\");
    }
    void Start(ConnectMode mode = ConnectMode::Startup) {
        m_connect.AddinInstance_OnConnection(m_host, mode, m_screen);
        m_log.emplace();
    }
    void Click(std::string_view tag) {
        CommandControl* const item =
            m_connect.IDEHelper()->DorvikMenus()->DorvikMenu()->FindTag(tag);
        ASSERT_NE(item, nullptr) << tag;
        item->SetEnabled(true);
        item->Click();
    }
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const MessageText& message : m_boxes.Messages) {
            texts.push_back(message.Text);
        }
        return texts;
    }
    ReviewCriteria& Criteria() { return *m_connect.App()->Criteria(); }

    TemporaryFolder m_folder;
    HostFacts m_facts;
    ScopedInstall<const HostFacts> m_installedFacts{m_facts};
    SettingsSections m_settings;
    ScopedSettingsStore m_store;
    AnsweredBoxes m_boxes;
    ScriptedHost m_host;
    ScriptedScreen m_screen;
    Connect m_connect;
    std::optional<CapturedLog> m_log;
};

constexpr std::string_view kReviewOptions = "review options";

// ---- connection ----

TEST_F(WorkStationAppTest, AtAConnectionTheProjectsAreTakenOver) {
    m_host.AddProject("App", "C:\\App.vbp");
    m_host.AddProject("Lib", "", HostProjectType::ActiveXDll);
    Start();
    const auto& projects = Criteria().ProjectList();
    ASSERT_EQ(projects.Count(), 2);
    EXPECT_EQ(projects.Key(1), "App");
    EXPECT_EQ(projects.Item(1)->Filename(), "C:\\App.vbp");
    EXPECT_EQ(projects.Item(1)->Name(), "App");
    EXPECT_EQ(projects.Item(1)->ProjectType(), "Exe");
    EXPECT_EQ(projects.Item(2)->Filename(), "Lib");
    EXPECT_EQ(projects.Item(2)->ProjectType(), "OleDll");
    EXPECT_EQ(projects.SelectedCount(), 2);
    EXPECT_EQ(Criteria().ReviewType(), ReviewType_IDE);
}

TEST_F(WorkStationAppTest, TheSettingsOfAReviewAreTakenOver) {
    m_settings.Set(kWorkbenchKey, {{"BackgroundReview", "1"}, {"ClearLog", "0"}});
    Start();
    EXPECT_TRUE(Criteria().BackgroundReview());
    EXPECT_FALSE(Criteria().ClearLogBeforeReview());
}

TEST_F(WorkStationAppTest, TheAddInStartsAfterStartupAtStartupAndFromOutside) {
    for (const ConnectMode mode :
         {ConnectMode::AfterStartup, ConnectMode::Startup, ConnectMode::External}) {
        Connect connect;
        connect.AddinInstance_OnConnection(m_host, mode, m_screen);
        EXPECT_NE(connect.App()->Criteria(), nullptr);
    }
}

TEST_F(WorkStationAppTest, FromTheCommandLineTheApplicationIsThereButNotStarted) {
    Start(ConnectMode::CommandLine);
    ASSERT_NE(m_connect.App(), nullptr);
    EXPECT_EQ(m_connect.App()->Criteria(), nullptr);
    m_connect.AddinInstance_OnStartupComplete();
    m_connect.AddinInstance_OnBeginShutdown();
    m_connect.AddinInstance_OnDisconnection();
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
}

TEST_F(WorkStationAppTest, DisconnectionTakesMenusAndBenchAndGivesBackTheSettings) {
    Start();
    m_connect.AddinInstance_OnAddInsUpdate();
    m_connect.AddinInstance_OnDisconnection();
    m_log.reset();
    EXPECT_EQ(m_connect.App(), nullptr);
    EXPECT_EQ(m_host.ToolWindow(), nullptr);
    EXPECT_EQ(m_host.MenuBar().FindTag("DORVIK"), nullptr);
    EXPECT_FALSE(modGlobal::IsInUse());
    EXPECT_FALSE(m_settings.List(kWorkbenchKey).empty());
    m_connect.AddinInstance_OnBeginShutdown();
    m_connect.AddinInstance_OnStartupComplete();
}

TEST_F(WorkStationAppTest, TheSettingsStayWhileAnotherAddInUsesThem) {
    Start();
    {
        Connect other;
        other.AddinInstance_OnConnection(m_host, ConnectMode::Startup, m_screen);
    }
    EXPECT_TRUE(modGlobal::IsInUse());
}

TEST_F(WorkStationAppTest, StartupCompleteRefreshesTheMenus) {
    m_host.AddProject("App", "C:\\App.vbp");
    Start();
    CommandControl& open =
        *m_connect.IDEHelper()->DorvikMenus()->DorvikMenu()->FindTag("DORVIK.OPEN");
    open.SetEnabled(false);
    m_connect.AddinInstance_OnStartupComplete();
    EXPECT_TRUE(open.Look().Enabled);
}

// ---- the review command: what it asks first ----

TEST_F(WorkStationAppTest, AProjectNeverSavedStopsTheReview) {
    m_host.AddProject("New", "");
    Start();
    Click("DORVIK.REVIEW");
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
    EXPECT_EQ(m_boxes.Messages[0].Icon, MessageIcon::Exclamation);
    EXPECT_EQ(m_boxes.Messages[0].Title, "Dorvik Workstation");
    EXPECT_EQ(
        m_boxes.Messages[0].Text, "'New' is a new project and must be saved prior to review.");
    EXPECT_THAT(m_screen.Calls, Not(Contains(kReviewOptions)));
}

TEST_F(WorkStationAppTest, AChangedProjectIsAskedFor) {
    m_host.AddProject("App", "C:\\App.vbp").Dirty = true;
    Start();
    Click("DORVIK.REVIEW");
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
    EXPECT_EQ(m_boxes.Messages[0].Icon, MessageIcon::Question);
    EXPECT_EQ(m_boxes.Messages[0].Buttons, MessageButtons::YesNo);
    EXPECT_EQ(
        m_boxes.Messages[0].Text,
        "Project 'App' has changed.\r\rDo you want to continue the review without saving it?");
    EXPECT_THAT(m_screen.Calls, Contains(kReviewOptions));
}

TEST_F(WorkStationAppTest, NoReviewOfAChangedProjectThatTheUserWantsToSave) {
    m_host.AddProject("App", "C:\\App.vbp").Dirty = true;
    Start();
    m_boxes.Answers = {MessageAnswer::No};
    Click("DORVIK.REVIEW");
    ASSERT_EQ(m_boxes.Messages.size(), 2U);
    EXPECT_EQ(m_boxes.Messages[1].Icon, MessageIcon::Information);
    EXPECT_EQ(m_boxes.Messages[1].Text, "Please save the project and restart the review.");
    EXPECT_THAT(m_screen.Calls, Not(Contains(kReviewOptions)));
}

TEST_F(WorkStationAppTest, ALaterYesUndoesAnEarlierNo) {
    m_host.AddProject("App", "C:\\App.vbp").Dirty = true;
    m_host.AddProject("Lib", "C:\\Lib.vbp").Dirty = true;
    Start();
    m_boxes.Answers = {MessageAnswer::No, MessageAnswer::Ok, MessageAnswer::Yes};
    Click("DORVIK.REVIEW");
    EXPECT_EQ(m_boxes.Messages.size(), 3U);
    EXPECT_THAT(m_screen.Calls, Contains(kReviewOptions));
}

TEST_F(WorkStationAppTest, ALaterNoUndoesAnEarlierYes) {
    m_host.AddProject("App", "C:\\App.vbp").Dirty = true;
    m_host.AddProject("Lib", "C:\\Lib.vbp").Dirty = true;
    Start();
    m_boxes.Answers = {MessageAnswer::Yes, MessageAnswer::No};
    Click("DORVIK.REVIEW");
    EXPECT_THAT(m_screen.Calls, Not(Contains(kReviewOptions)));
}

TEST_F(WorkStationAppTest, ASavedProjectLeavesAnEarlierNoAsItIs) {
    m_host.AddProject("New", "");
    m_host.AddProject("App", "C:\\App.vbp");
    Start();
    Click("DORVIK.REVIEW");
    EXPECT_THAT(m_screen.Calls, Not(Contains(kReviewOptions)));
}

TEST_F(WorkStationAppTest, ALaterYesUndoesThatAProjectWasNeverSaved) {
    m_host.AddProject("New", "");
    m_host.AddProject("App", "C:\\App.vbp").Dirty = true;
    Start();
    Click("DORVIK.REVIEW");
    EXPECT_THAT(m_screen.Calls, Contains(kReviewOptions));
}

TEST_F(WorkStationAppTest, TheSettingSavesChangedProjectsWithoutAsking) {
    m_settings.Set(kWorkbenchKey, {{"OptionPromptSave", "1"}});
    m_host.AddProject("App", "C:\\App.vbp").Dirty = true;
    Start();
    Click("DORVIK.REVIEW");
    EXPECT_THAT(m_host.Calls, Contains("save App"));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
    EXPECT_THAT(m_screen.Calls, Contains(kReviewOptions));
}

TEST_F(WorkStationAppTest, TheSettingReviewsChangedProjectsAsTheyStandOnDisk) {
    m_settings.Set(kWorkbenchKey, {{"OptionPromptSave", "3"}});
    m_host.AddProject("App", "C:\\App.vbp").Dirty = true;
    Start();
    Click("DORVIK.REVIEW");
    EXPECT_THAT(m_host.Calls, Not(Contains("save App")));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
    EXPECT_THAT(m_screen.Calls, Contains(kReviewOptions));
}

TEST_F(WorkStationAppTest, AProjectThatIsNotSelectedIsNotAskedFor) {
    m_host.AddProject("App", "C:\\App.vbp");
    m_host.AddProject("New", "");
    Start();
    Criteria().ProjectList().SetSelected("New", false);
    Click("DORVIK.REVIEW");
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
    EXPECT_THAT(m_screen.Calls, Contains(kReviewOptions));
}

TEST_F(WorkStationAppTest, WithNoProjectSelectedTheCommandStopsWithoutAMessage) {
    m_host.AddProject("App", "C:\\App.vbp").Dirty = true;
    Start();
    Criteria().ProjectList().SetSelected("App", false);
    Click("DORVIK.REVIEW");
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
    EXPECT_THAT(m_screen.Calls, Not(Contains(kReviewOptions)));
}

TEST_F(WorkStationAppTest, WithNoProjectOpenTheErrorOfTheEmptyListIsLogged) {
    Start();
    Click("DORVIK.REVIEW");
    EXPECT_THAT(
        m_log->Entries(),
        ElementsAre(HasSubstr("WorkStationApp::PromptToSaveProjectsBeforeReview")));
    EXPECT_THAT(m_screen.Calls, Not(Contains(kReviewOptions)));
}

TEST_F(WorkStationAppTest, ACancelledDialogReviewsNothing) {
    m_host.AddProject("App", "C:\\App.vbp");
    Start();
    m_screen.OnReviewOptions = [](frmReviewOptions& form) {
        form.Cancel();
    };
    Click("DORVIK.REVIEW");
    EXPECT_THAT(m_screen.Calls, Contains(kReviewOptions));
    EXPECT_THAT(m_screen.Calls, Not(Contains("progress")));
}

// ---- project events ----

TEST_F(WorkStationAppTest, AnAddedProjectIsSelected) {
    Start();
    m_host.AddProject("Lib", "C:\\Lib.vbp", HostProjectType::ActiveXControl);
    ASSERT_EQ(Criteria().ProjectList().Count(), 1);
    EXPECT_TRUE(Criteria().ProjectList().Selected("Lib"));
    EXPECT_EQ(Criteria().ProjectList().Item("Lib")->ProjectType(), "Control");
}

TEST_F(WorkStationAppTest, ARemovedProjectGoesWithItsSelectedFiles) {
    m_host.AddProject("App", "C:\\App.vbp");
    m_host.AddProject("Lib", "C:\\Lib.vbp");
    Start();
    Criteria().PreviouslySelectedFiles().Add("App", std::make_shared<StringKeyedArrayList>());
    m_host.RemoveProject("App");
    EXPECT_FALSE(Criteria().ProjectList().Contains("App"));
    EXPECT_FALSE(Criteria().PreviouslySelectedFiles().Contains("App"));
    EXPECT_EQ(Criteria().ProjectList().Count(), 1);
}

TEST_F(WorkStationAppTest, ARenamedProjectKeepsItsSelectedFiles) {
    m_host.AddProject("App", "C:\\App.vbp");
    Start();
    const auto files = std::make_shared<StringKeyedArrayList>();
    Criteria().PreviouslySelectedFiles().Add("App", files);
    m_host.RenameProject("App", "Program");
    EXPECT_FALSE(Criteria().PreviouslySelectedFiles().Contains("App"));
    EXPECT_EQ(Criteria().PreviouslySelectedFiles().Item("Program"), files);
    EXPECT_TRUE(Criteria().ProjectList().Contains("Program"));
    EXPECT_EQ(Criteria().ProjectList().Item("Program")->Name(), "Program");
}

// ---- other commands ----

TEST_F(WorkStationAppTest, PagesOfTheMakerAreOpenedInTheBrowser) {
    Start();
    Click("DORVIK.HELPHOMEPAGE");
    Click("DORVIK.HELPTECHSUPPORT");
    EXPECT_THAT(
        m_screen.Calls,
        ElementsAre(
            "open " + modGlobal::Data().HomePageURL(),
            "open " + modGlobal::Data().TechSupportPageURL()));
}

TEST_F(WorkStationAppTest, TheHelpFileIsOpened) {
    Start();
    Click("DORVIK.HELPCONTENTS");
    Click("DORVIK.HELPSEARCH");
    const std::string open = "open " + m_folder.Path("Program\\Dorvik.chm");
    EXPECT_THAT(m_screen.Calls, ElementsAre(open, open));
}

TEST_F(WorkStationAppTest, TheAboutBoxIsShown) {
    Start();
    Click("DORVIK.HELPABOUT");
    EXPECT_THAT(m_screen.Calls, ElementsAre("about"));
}

TEST_F(WorkStationAppTest, TheRulebaseDocumentIsOpened) {
    Start();
    modGlobal::WorkData().RBDocPath = m_folder.Write("Rules.html", "<html/>");
    Click("DORVIK.RBDOC");
    EXPECT_THAT(m_screen.Calls, ElementsAre("open " + m_folder.Path("Rules.html")));
}

TEST_F(WorkStationAppTest, AMissingRulebaseDocumentIsReported) {
    Start();
    modGlobal::WorkData().RBDocPath = "C:\\Gone.html";
    CommandControl& item =
        *m_connect.IDEHelper()->DorvikMenus()->DorvikMenu()->FindTag("DORVIK.RBDOC");
    item.SetEnabled(true);
    item.Click();
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
    EXPECT_EQ(m_boxes.Messages[0].Icon, MessageIcon::Exclamation);
    EXPECT_EQ(
        m_boxes.Messages[0].Text,
        "Cannot display the rulebase document 'C:\\Gone.html' because it cannot be found.");
}

TEST_F(WorkStationAppTest, ResultsAreChosenInAFileDialog) {
    Start();
    Click("DORVIK.OPEN");
    EXPECT_EQ(m_screen.LastRequest.Title, "Select Results Database");
    EXPECT_THAT(m_screen.LastRequest.Filters, ElementsAre("Results Databases (*.mdb)|*.mdb"));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
}

TEST_F(WorkStationAppTest, AFileThatIsNoResultsDatabaseIsReported) {
    Start();
    m_screen.ChosenFile = m_folder.Write("Other.mdb", "no database");
    Click("DORVIK.OPEN");
    EXPECT_THAT(
        Texts(),
        Contains(
            "The selected database does not appear to be a valid Dorvik results database or is an "
            "incorrect version.  Please select a different file or ensure that '" +
            m_folder.Path("Other.mdb") + "' is the correct version."));
    EXPECT_EQ(m_boxes.Messages.back().Icon, MessageIcon::Exclamation);
}

TEST_F(WorkStationAppTest, AResultsDatabaseThatAnotherProgramLocksIsReported) {
    Start();
    m_screen.ChosenFile = m_folder.Write("Other.mdb", "");
    const LockedDatabase other(*m_screen.ChosenFile);
    Click("DORVIK.OPEN");
    EXPECT_THAT(
        Texts(),
        Contains(
            "The results database '" + *m_screen.ChosenFile +
            "' is locked by another program.  Please wait until that program has finished, or "
            "close it, and open the results again."));
    EXPECT_EQ(m_boxes.Messages.back().Icon, MessageIcon::Exclamation);
}

TEST_F(WorkStationAppTest, OptionsThatAreTakenOverAreStored) {
    Start();
    m_screen.OnOptions = [](frmOptions& form) {
        form.chkShowSummary.Set(false);
        form.Ok();
    };
    Click("DORVIK.OPTIONS");
    EXPECT_EQ(m_settings.Get(kWorkbenchKey, "AlwaysShowSummary"), StoredSetting("0"));
}

TEST_F(WorkStationAppTest, CancelledOptionsAreNotStored) {
    Start();
    m_screen.OnOptions = [](frmOptions& form) {
        form.chkShowSummary.Set(false);
        form.Cancel();
    };
    Click("DORVIK.OPTIONS");
    EXPECT_FALSE(m_settings.Get(kWorkbenchKey, "AlwaysShowSummary"));
    EXPECT_TRUE(modGlobal::WorkData().AlwaysShowSummary);
}

TEST_F(WorkStationAppTest, TheBenchIsShownByItsCommand) {
    Start();
    Click("DORVIK.SHOW");
    EXPECT_TRUE(m_connect.IDEHelper()->WorkbenchVisible());
}

TEST_F(WorkStationAppTest, TheGroupByBoxIsShownByItsCommand) {
    Start();
    CommandControl& item =
        *m_connect.IDEHelper()->DorvikMenus()->ListPopupMenu()->FindTag("DORVIK.LPSHOWGROUPBY");
    item.SetEnabled(true);
    item.Click();
    EXPECT_TRUE(m_connect.IDEHelper()->DorvikUserDocument()->Controls().GroupByBox.Value());
    item.Click();
    EXPECT_FALSE(m_connect.IDEHelper()->DorvikUserDocument()->Controls().GroupByBox.Value());
}

TEST_F(WorkStationAppTest, WithoutASelectedViolationThereIsNothingToGoTo) {
    m_host.AddProject("App", "C:\\App.vbp");
    Start();
    Click("DORVIK.GOTO");
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
    EXPECT_EQ(m_boxes.Messages[0].Icon, MessageIcon::Information);
    EXPECT_EQ(m_boxes.Messages[0].Text, "Please select a violation to goto in the source.");
    EXPECT_FALSE(m_connect.IDEHelper()->DorvikUserDocument()->Results().IgnoreFileEvents());
}

}  // namespace
}  // namespace dorvik::test
