// The environment disconnects the add-in while one of its commands gives way to input.
#include "criteria/ReviewCriteria.h"
#include "platform/host/ScopedInstall.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "support/CapturedLog.h"
#include "workstation/application/Connect.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/dialogs/frmOptions.h"
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
#include <functional>
#include <optional>

namespace dorvik::test {
namespace {

using testing::IsEmpty;

/// What happens while a box is shown or input is processed.
class Interruption final : public IMessageBox, public IHostInput {
public:
    MessageAnswer Show(const MessageText& message) override {
        Texts.push_back(message.Text);
        if (OnMessage) {
            OnMessage();
        }
        return message.Buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Yes;
    }
    bool InputIsWaiting() override { return OnInput != nullptr; }
    void ProcessInput() override { OnInput(); }

    std::vector<std::string> Texts;
    std::function<void()> OnMessage;
    std::function<void()> OnInput;

private:
    ScopedInstall<IMessageBox> m_asBox{*this};
    ScopedInstall<IHostInput> m_asInput{*this};
};

class DisconnectionTest : public SessionProjectsTest {
protected:
    DisconnectionTest() {
        m_project = &m_host.AddProject("Shop", m_folder.Path("Shop\\Shop.vbp"));
        m_connect.AddinInstance_OnConnection(m_host, ConnectMode::Startup, m_screen);
        modGlobal::WorkData().AlwaysShowSummary = false;
        m_log.emplace();
    }
    /// After it the environment hears no more of the add-in, and nothing is logged.
    void TearDown() override {
        EXPECT_TRUE(m_isDisconnected);
        EXPECT_EQ(m_connect.App(), nullptr);
        EXPECT_FALSE(modGlobal::IsInUse());
        EXPECT_THAT(m_host.Calls, IsEmpty());
        EXPECT_THAT(m_log->Entries(), IsEmpty());
        EXPECT_EQ(m_screen.ShownProgress, nullptr);
    }

    void Disconnect() {
        m_interruption.OnInput = nullptr;
        m_interruption.OnMessage = nullptr;
        if (!m_isDisconnected) {
            m_connect.AddinInstance_OnDisconnection();
            m_isDisconnected = true;
            m_host.Calls.clear();
            m_log->Clear();
        }
    }
    std::function<void()> Disconnecting() {
        return [this] {
            Disconnect();
        };
    }
    void Click(std::string_view tag) {
        CommandControl& item = *m_connect.IDEHelper()->DorvikMenus()->DorvikMenu()->FindTag(tag);
        item.SetEnabled(true);
        item.Click();
    }
    udocDorvik& Document() { return *m_connect.IDEHelper()->DorvikUserDocument(); }
    void ShowResults() {
        Click("DORVIK.REVIEW");
        ASSERT_TRUE(Document().Results().ResultsAvailable());
        m_log->Clear();
    }

    Interruption m_interruption;
    ScriptedHost m_host;
    Connect m_connect;
    std::optional<CapturedLog> m_log;
    ScriptedProject* m_project = nullptr;
    bool m_isDisconnected = false;
};

TEST_F(DisconnectionTest, InTheDialogOfAReviewNothingIsReviewed) {
    m_screen.OnReviewOptions = [this](frmReviewOptions& form) {
        form.cboRulebase.Set(m_folder.Path("Rules.dvk"));
        form.Ok();
        Disconnect();
    };
    Click("DORVIK.REVIEW");
    EXPECT_FALSE(std::filesystem::exists(m_folder.HostPath() / "Shop" / "Dorvik"));
}

TEST_F(DisconnectionTest, InTheQuestionBeforeAReviewNoDialogIsShown) {
    m_host.AddProject("Parts", m_folder.Path("Parts\\Parts.vbp")).Dirty = true;
    m_project->Dirty = true;
    m_interruption.OnMessage = Disconnecting();
    Click("DORVIK.REVIEW");
    EXPECT_EQ(m_interruption.Texts.size(), 1U);
    EXPECT_THAT(m_screen.Calls, IsEmpty());
}

TEST_F(DisconnectionTest, InASaveBeforeAReviewNoDialogIsShown) {
    modGlobal::WorkData().OptionPromptSave = 1;
    m_host.AddProject("Parts", m_folder.Path("Parts\\Parts.vbp")).Dirty = true;
    m_project->Dirty = true;
    m_host.BusyTurns = 3;
    m_interruption.OnInput = Disconnecting();
    Click("DORVIK.REVIEW");
    EXPECT_THAT(m_screen.Calls, IsEmpty());
}

TEST_F(DisconnectionTest, InAForegroundReviewItIsAbandoned) {
    m_screen.OnProgress = [this](frmProgress& form) {
        m_interruption.OnInput = Disconnecting();
        form.Activate();
    };
    Click("DORVIK.REVIEW");
}

TEST_F(DisconnectionTest, InATickOfABackgroundReviewItIsAbandoned) {
    m_inBackground = true;
    Click("DORVIK.REVIEW");
    const auto progress = m_connect.App()->Progress();
    m_interruption.OnInput = Disconnecting();
    progress->tmrInterrupt.Tick();
}

TEST_F(DisconnectionTest, WhenABackgroundReviewClosesNothingIsShown) {
    m_inBackground = true;
    Click("DORVIK.REVIEW");
    m_screen.Calls.clear();
    modGlobal::WorkData().AlwaysShowSummary = true;
    const Subscription ended = m_connect.App()->Progress()->Closed.Subscribe(Disconnecting());
    while (m_connect.App() != nullptr && m_connect.App()->Progress() != nullptr) {
        m_connect.App()->Progress()->tmrInterrupt.Tick();
    }
    EXPECT_THAT(m_screen.Calls, testing::Not(testing::Contains("summary shown")));
}

TEST_F(DisconnectionTest, InTheOptionsTheyAreNotTakenOver) {
    m_screen.OnOptions = [this](frmOptions& form) {
        form.Ok();
        Disconnect();
    };
    Click("DORVIK.OPTIONS");
}

TEST_F(DisconnectionTest, InTheFileDialogNothingIsOpened) {
    m_screen.OnChooseFile = Disconnecting();
    m_screen.ChosenFile = m_folder.Write("Other.mdb", "no database");
    Click("DORVIK.OPEN");
    EXPECT_THAT(m_interruption.Texts, IsEmpty());
}

TEST_F(DisconnectionTest, InTheFilterNothingIsFiltered) {
    ShowResults();
    m_screen.OnReviewOptions = [this](frmReviewOptions& form) {
        form.Ok();
        Disconnect();
    };
    Click("DORVIK.FILTER");
}

TEST_F(DisconnectionTest, InTheMessageOfTheCommandThatGoesToTheSource) {
    m_interruption.OnMessage = Disconnecting();
    Click("DORVIK.GOTO");
}

TEST_F(DisconnectionTest, InTheMessageOfTheButtonThatGoesToTheSource) {
    m_interruption.OnMessage = Disconnecting();
    Document().cmdGotoSource_Click();
}

TEST_F(DisconnectionTest, WhileTheBenchIsShown) {
    m_interruption.OnInput = Disconnecting();
    Click("DORVIK.SHOW");
}

TEST_F(DisconnectionTest, InTheMessageAboutResultsOfAnotherVersion) {
    m_host.RemoveProject("Shop");
    m_connect.IDEHelper()->SetWorkbenchVisible(true);
    std::filesystem::create_directory(m_folder.HostPath() / "Parts" / "Dorvik");
    m_folder.Write("Parts\\Dorvik\\Parts_DORVIK.mdb", "no database");
    m_interruption.OnMessage = Disconnecting();
    m_host.AddProject("Parts", m_folder.Path("Parts\\Parts.vbp"));
}

TEST_F(DisconnectionTest, InThatMessageWhileTheBenchIsShown) {
    m_host.RemoveProject("Shop");
    std::filesystem::create_directory(m_folder.HostPath() / "Parts" / "Dorvik");
    m_folder.Write("Parts\\Dorvik\\Parts_DORVIK.mdb", "no database");
    m_host.AddProject("Parts", m_folder.Path("Parts\\Parts.vbp"));
    m_interruption.OnMessage = Disconnecting();
    Click("DORVIK.SHOW");
}

}  // namespace
}  // namespace dorvik::test
