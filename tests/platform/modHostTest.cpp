#include "platform/host/modHost.h"

#include "platform/host/ScopedInstall.h"
#include "platform/host/modFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace dorvik {
namespace {

class StandingClock : public IClock {
public:
    DateTime Now() override { return {2026, 11, 21, 14, 5, 9}; }
};

class RecordingMessageBox : public IMessageBox {
public:
    MessageAnswer Show(const MessageText& message) override {
        Shown.push_back(message);
        return Answer;
    }
    std::vector<MessageText> Shown;
    MessageAnswer Answer = MessageAnswer::Ok;
};

class ScriptedInput : public IHostInput {
public:
    bool InputIsWaiting() override { return Waiting > 0; }
    void ProcessInput() override {
        --Waiting;
        ++Processed;
    }
    int Waiting = 0;
    int Processed = 0;
};

/// Sets an environment variable, or takes it away, for the length of a scope.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::optional<std::string>& value) : m_name(name) {
        if (const char* before = std::getenv(name)) {
            m_before = before;
        }
        Set(value);
    }
    ~ScopedVariable() { Set(m_before); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void Set(const std::optional<std::string>& value) {
        if (value) {
            setenv(m_name, value->c_str(), 1);
        } else {
            unsetenv(m_name);
        }
    }

    const char* m_name;
    std::optional<std::string> m_before;
};

TEST(modHost, AnInstalledClockTellsTheTime) {
    StandingClock clock;
    {
        const ScopedInstall guard(clock);
        EXPECT_EQ(modHost::Now(), (DateTime{2026, 11, 21, 14, 5, 9}));
        EXPECT_EQ(modHost::ExactNow().Time, modHost::Now());
        EXPECT_EQ(modHost::ExactNow().Fraction, 0);
    }
    EXPECT_EQ(modHost::Install(static_cast<IClock*>(nullptr)), nullptr)
        << "the guard has cleaned up";
}

TEST(modHost, TheMachinesClockGivesAPossibleTime) {
    const DateTime now = modHost::Now();
    EXPECT_GE(now.Year, 2000);
    EXPECT_TRUE(now.Month >= 1 && now.Month <= 12);
    EXPECT_TRUE(now.Day >= 1 && now.Day <= 31);
    EXPECT_TRUE(now.Hour >= 0 && now.Hour <= 23);
    EXPECT_TRUE(now.Minute >= 0 && now.Minute <= 59);
    EXPECT_TRUE(now.Second >= 0 && now.Second <= 60);
}

TEST(modHost, TheMachinesClockMovesWithinASecond) {
    const double before = modHost::ExactNow().Fraction;
    double after = before;
    for (int look = 0; look < 1'000'000 && after == before; ++look) {
        after = modHost::ExactNow().Fraction;
        EXPECT_TRUE(after >= 0 && after < 1);
    }
    EXPECT_NE(after, before);
}

TEST(modHost, MessagesGoToTheInstalledBoxOnly) {
    const MessageText message{MessageIcon::Critical, "Title", "Text"};
    modHost::ShowMessage(message);
    RecordingMessageBox box;
    {
        const ScopedInstall guard(box);
        modHost::ShowMessage(message);
    }
    modHost::ShowMessage(message);
    EXPECT_EQ(box.Shown, std::vector<MessageText>{message});
}

TEST(modHost, AQuestionComesBackWithItsAnswer) {
    RecordingMessageBox box;
    const ScopedInstall guard(box);
    const MessageText question{MessageIcon::Question, "Dorvik", "Go on?", MessageButtons::YesNo};
    for (const MessageAnswer answer :
         {MessageAnswer::Yes, MessageAnswer::No, MessageAnswer::Cancel, MessageAnswer::Ok}) {
        box.Answer = answer;
        EXPECT_EQ(modHost::ShowMessage(question), answer);
    }
    EXPECT_EQ(box.Shown.front().Buttons, MessageButtons::YesNo);
}

TEST(modHost, AQuestionThatNobodySeesIsAnsweredByAgreeingToNothing) {
    const auto ask = [](MessageButtons buttons) {
        return modHost::ShowMessage({MessageIcon::Question, "Dorvik", "Go on?", buttons});
    };
    EXPECT_EQ(ask(MessageButtons::Ok), MessageAnswer::Ok);
    EXPECT_EQ(ask(MessageButtons::OkCancel), MessageAnswer::Cancel);
    EXPECT_EQ(ask(MessageButtons::YesNoCancel), MessageAnswer::Cancel);
    EXPECT_EQ(ask(MessageButtons::YesNo), MessageAnswer::No);
}

TEST(modHost, GuardsNest) {
    RecordingMessageBox outer;
    RecordingMessageBox inner;
    const ScopedInstall outerGuard(outer);
    {
        const ScopedInstall innerGuard(inner);
        modHost::ShowMessage({});
    }
    modHost::ShowMessage({});
    EXPECT_EQ(inner.Shown.size(), 1U);
    EXPECT_EQ(outer.Shown.size(), 1U);
}

TEST(modHost, YieldToInputProcessesOnlyWaitingInput) {
    modHost::YieldToInput();
    ScriptedInput input;
    const ScopedInstall guard(input);
    modHost::YieldToInput();
    EXPECT_EQ(input.Processed, 0);
    input.Waiting = 2;
    modHost::YieldToInput();
    EXPECT_EQ(input.Processed, 1);
    modHost::YieldToInput();
    modHost::YieldToInput();
    EXPECT_EQ(input.Processed, 2);
}

TEST(modHost, InstalledFactsReplaceTheMachinesAnswers) {
    const HostFacts facts{"ann", "\\program\\", "\\data\\", "\\temp\\"};
    const ScopedInstall guard(facts);
    EXPECT_EQ(modHost::LogonName(), "ann");
    EXPECT_EQ(modHost::ProgramFolder(), "\\program\\");
    EXPECT_EQ(modHost::UserDataFolder(), "\\data\\");
    EXPECT_EQ(modHost::TemporaryFolder(), "\\temp\\");
}

TEST(modHost, AnEmptyFactAsksTheMachine) {
    const std::string program = modHost::ProgramFolder();
    const HostFacts facts{"ann", "", "", ""};
    const ScopedInstall guard(facts);
    EXPECT_EQ(modHost::ProgramFolder(), program);
}

TEST(modHost, TheProgramFolderIsThere) {
    const std::string folder = modHost::ProgramFolder();
    EXPECT_TRUE(folder.ends_with('\\'));
    EXPECT_TRUE(modFiles::FolderExists(folder)) << folder;
}

TEST(modHost, UserDataLiesInTheStateFolder) {
    const test::TemporaryFolder folder;
    const ScopedVariable home("HOME", folder.HostPath().string());
    {
        const ScopedVariable state("XDG_STATE_HOME", folder.HostPath() / "state");
        EXPECT_EQ(modHost::UserDataFolder(), folder.Path("state\\dorvik\\"));
        EXPECT_FALSE(modFiles::FolderExists(folder.Path("state"))) << "nothing is created";
    }
    for (const std::optional<std::string>& unfit :
         {std::optional<std::string>(), {""}, {"not/whole"}}) {
        const ScopedVariable state("XDG_STATE_HOME", unfit);
        EXPECT_EQ(modHost::UserDataFolder(), folder.Path(".local\\state\\dorvik\\"));
    }
}

TEST(modHost, WithoutAHomeVariableTheSystemsListOfUsersIsAsked) {
    const ScopedVariable state("XDG_STATE_HOME", std::nullopt);
    const ScopedVariable home("HOME", std::nullopt);
    EXPECT_TRUE(modHost::UserDataFolder().ends_with("\\.local\\state\\dorvik\\"));
}

TEST(modHost, TheTemporaryFolderFollowsTheEnvironment) {
    const test::TemporaryFolder folder;
    {
        const ScopedVariable temporary("TMPDIR", folder.HostPath().string());
        EXPECT_EQ(modHost::TemporaryFolder(), folder.Path());
    }
    const ScopedVariable temporary("TMPDIR", "/no/such/folder");
    EXPECT_TRUE(modHost::TemporaryFolder().ends_with('\\'));
}

}  // namespace
}  // namespace dorvik
