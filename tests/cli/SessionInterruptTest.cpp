// Ctrl-C while a session is played: its review is abandoned, and nothing else is lost.

#include "cli/CommandLineFixture.h"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <thread>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr int kSmall = 1;
constexpr int kLarge = 20'000;  // procedures, whose review takes its time

/// Two projects, of which Long is opened and reviewed first.
class InterruptedSession : public CommandLineFixture {
protected:
    InterruptedSession() {
        WriteBytes("Rules.dvk", ReadRulebase());
        WriteProject("Long", kLarge);
        WriteProject("Other", kSmall);
        WriteLines("Both.vbg", {"VBGROUP 5.0", "StartupProject=Long.vbp", "Project=Other.vbp"});
    }

    void WriteProject(const std::string& name, int procedures) const {
        std::string module = "Attribute VB_Name = \"" + name + "\"\r\n";
        for (int number = 0; number < procedures; ++number) {
            module += "Sub Work" + std::to_string(number) + "()\r\n  Stop\r\nEnd Sub\r\n";
        }
        WriteBytes(name + ".bas", module);
        WriteLines(
            name + ".vbp",
            {"Type=Exe", "Module=" + name + "; " + name + ".bas", "Name=\"" + name + "\""});
    }

    /// Results of both, of which all is there.
    void ReviewBothBefore() const {
        WriteProject("Long", kSmall);
        ASSERT_EQ(Run({"review", "Long.vbp", "Other.vbp"}).ExitCode, 0);
        WriteProject("Long", kLarge);
    }

    static std::string ReviewOf(const std::string& file, const std::string& mode) {
        return "setting AlwaysShowSummary 0\nopen " + file + "\nstart\n" +
               "dialog rulebase Rules.dvk\ndialog background " + mode +
               "\ndialog ok\nmenu DORVIK.REVIEW\n";
    }

    /// Some seconds of commands that print nothing.
    static std::string ManyCommands() {
        std::string script;
        for (int count = 0; count < 200'000; ++count) {
            script += "expect menus menu.10.tag DORVIK.HELP\n";
        }
        return script;
    }

    /// Interrupts the session that plays the script as soon as `hasBegun` says so.
    ProgramResult
    Interrupted(const std::string& script, const std::function<bool()>& hasBegun) const {
        using namespace std::chrono_literals;
        WriteBytes("a.session", script);
        ProgramRun run(Settings({"session", "a.session"}));
        while (run.IsRunning() && !hasBegun()) {
            std::this_thread::sleep_for(5ms);
        }
        std::this_thread::sleep_for(50ms);
        run.Interrupt();
        run.Wait();
        return {run.ExitCode(), run.Output(), run.Error()};
    }
    std::function<bool()> ReviewOfLongHasBegun() const {
        return [this] {
            return Exists("Dorvik/Long_DORVIK.mdb");
        };
    }
    /// The same where there are older results, which the review puts away.
    std::function<bool()> ResultsOfLongAreNew() const {
        return [this, before = fs::last_write_time(Work("Dorvik/Long_DORVIK.mdb"))] {
            std::error_code missing;
            const auto now = fs::last_write_time(Work("Dorvik/Long_DORVIK.mdb"), missing);
            return !missing && now != before;
        };
    }

    std::set<std::string> Left() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Work("Dorvik"))) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
    static void ExpectInterrupted(const ProgramResult& result) {
        EXPECT_EQ(result.ExitCode, 130);
        EXPECT_THAT(result.Error, HasSubstr("interrupted; the script was not played to its end"));
        EXPECT_THAT(result.Output, Not(HasSubstr("\"dump\":\"state\"")));
    }

private:
    static std::string ReadRulebase() {
        std::ifstream stream(DORVIK_RULEBASE, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
};

}  // namespace

TEST_F(InterruptedSession, AForegroundReviewIsAbandoned) {
    ExpectInterrupted(
        Interrupted(ReviewOf("Long.vbp", "off") + "dump state\n", ReviewOfLongHasBegun()));
    EXPECT_THAT(Left(), ElementsAre("Long_DORVIK.txt"));
}

TEST_F(InterruptedSession, ABackgroundReviewIsAbandoned) {
    ExpectInterrupted(
        Interrupted(ReviewOf("Long.vbp", "on") + "tick all\ndump state\n", ReviewOfLongHasBegun()));
    EXPECT_THAT(Left(), ElementsAre("Long_DORVIK.txt"));
}

TEST_F(InterruptedSession, OlderResultsOfAProjectThatTheReviewHasNotReachedStayWhole) {
    for (const std::string mode : {"off", "on"}) {
        ReviewBothBefore();
        const std::string older = Bytes("Dorvik/Other_DORVIK.mdb");
        ExpectInterrupted(Interrupted(
            ReviewOf("Both.vbg", mode) + "tick all\ndump state\n", ResultsOfLongAreNew()));
        EXPECT_FALSE(Exists("Dorvik/Long_DORVIK.mdb")) << mode;
        EXPECT_EQ(Bytes("Dorvik/Other_DORVIK.mdb"), older) << mode;
        EXPECT_FALSE(Exists("Dorvik/Other_DORVIK.mdb-wal")) << mode;
        EXPECT_EQ(Query("Dorvik/Other_DORVIK.mdb", "SELECT COUNT(*) FROM Review"), "1") << mode;
    }
}

TEST_F(InterruptedSession, BetweenCommandsAReviewThatWaitsForItsTimerIsAbandoned) {
    const std::string script = ReviewOf("Long.vbp", "on") + "tick 3\n" + ManyCommands();
    ExpectInterrupted(Interrupted(script + "dump state\n", ReviewOfLongHasBegun()));
    EXPECT_THAT(Left(), ElementsAre("Long_DORVIK.txt"));
}

TEST_F(InterruptedSession, BetweenCommandsResultsThatAreShownStayWhole) {
    ReviewBothBefore();
    const std::string before = Bytes("Other.bas");
    const std::string script = "open Other.vbp\nstart\nshow\nedit Other 2 \"  End\"\n"
                               "complete 1 on\nsave\n" +
                               ManyCommands();
    ExpectInterrupted(
        Interrupted(script + "dump state\n", [&] { return Bytes("Other.bas") != before; }));
    EXPECT_EQ(
        Left(),
        (std::set<std::string>{
            "Long_DORVIK.mdb", "Long_DORVIK.txt", "Other_DORVIK.mdb", "Other_DORVIK.txt"}));
    EXPECT_EQ(
        Query("Dorvik/Other_DORVIK.mdb", "SELECT COUNT(*) FROM Violations WHERE Completed = True"),
        "1");
}

}  // namespace dorvik::test
