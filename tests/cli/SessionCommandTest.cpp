#include "cli/ShellRun.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kNoCalls = "{\"dump\":\"host\",\"calls\":[]}\n";

class SessionCommand : public ShellFixture {
protected:
    ProgramResult Play(std::initializer_list<std::string_view> lines) {
        WriteLines("a.session", lines);
        return RunAsTyped({"session", "a.session"});
    }
};

}  // namespace

TEST_F(SessionCommand, ASessionPrintsALineOfJsonForEachDumpAndEndsWithZero) {
    const ProgramResult result = Play({"start", "expect state available false", "dump settings"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_EQ(result.Output, "{\"dump\":\"settings\",\"values\":{}}\n");
    EXPECT_THAT(result.Error, IsEmpty());
}

TEST_F(SessionCommand, AnExpectationThatIsNotMetEndsWithOne) {
    const ProgramResult result = Play({"start", "expect state view 2", "dump messages"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(
        result.Output,
        "{\"failed\":\"state\",\"path\":\"view\",\"is\":1,\"line\":2}\n"
        "{\"dump\":\"messages\",\"boxes\":[]}\n");
}

TEST_F(SessionCommand, ARefusedCommandEndsWithZero) {
    const ProgramResult result = Play({"start", "menu DORVIK.GOTO"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Output, HasSubstr("\"refused\":"));
    EXPECT_THAT(result.Output, HasSubstr("\"line\":2"));
}

TEST_F(SessionCommand, ALineThatIsNotUnderstoodIsNamedAndEndsWithTwo) {
    const ProgramResult result = Play({"start", "", "fly high", "dump messages"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_EQ(result.Error, "a.session:3: there is no command 'fly'\n");
    EXPECT_THAT(result.Output, IsEmpty());
}

TEST_F(SessionCommand, AScriptThatIsNotThereEndsWithTwo) {
    const ProgramResult result = RunAsTyped({"session", "gone.session"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("cannot read the script 'gone.session'"));
}

TEST_F(SessionCommand, AScriptComesFromStandardInput) {
    for (const std::string name : {"-", "/dev/stdin"}) {
        const ProgramResult result =
            Shell("printf 'start\\r\\nexpect state view 2\\n' | $DORVIK session " + name);
        EXPECT_EQ(result.ExitCode, 1) << name << result.Error;
        EXPECT_EQ(result.Output, "{\"failed\":\"state\",\"path\":\"view\",\"is\":1,\"line\":2}\n");
        EXPECT_EQ(Shell("echo dump host | $DORVIK session " + name).Output, kNoCalls) << name;
        EXPECT_EQ(Shell("$DORVIK session " + name + " < /dev/null").ExitCode, 0) << name;
    }
    WriteLines("a.session", {"dump host"});
    EXPECT_EQ(Shell("$DORVIK session - < a.session").Output, kNoCalls);
    EXPECT_EQ(Shell("echo fly | $DORVIK session -").Error, "-:1: there is no command 'fly'\n");
    EXPECT_EQ(Shell("$DORVIK session - <&-").ExitCode, 0);
}

TEST_F(SessionCommand, AScriptComesFromAPipeOfTheShell) {
    EXPECT_EQ(Shell("$DORVIK session <(echo dump host)").Output, kNoCalls);
    EXPECT_EQ(
        Shell("mkfifo pipe\n(echo dump host; sleep 0.2; echo dump host) > pipe & $DORVIK session "
              "pipe")
            .Output,
        kNoCalls + kNoCalls);
    // Larger than what a pipe holds at once.
    EXPECT_EQ(
        Shell("$DORVIK session <(yes '# nothing' | head -n 100000; echo dump host)").Output,
        kNoCalls);
}

TEST_F(SessionCommand, AFolderAndAnEndlessDeviceAreNoScripts) {
    EXPECT_EQ(Shell("$DORVIK session .").ExitCode, 2);
    const ProgramResult result = Shell("$DORVIK session /dev/zero");
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("cannot read the script '/dev/zero'"));
}

TEST_F(SessionCommand, AScriptIsInUtf8) {
    const ProgramResult result =
        Play({"setting LastRulebase \"Regelwerk \u00fc \u20ac \u62d6.dvk\"", "dump settings"});
    EXPECT_EQ(
        result.Output,
        "{\"dump\":\"settings\",\"values\":{\"LastRulebase\":\"Regelwerk \u00fc \u20ac "
        "\u62d6.dvk\"}}\n");
}

TEST_F(SessionCommand, AnEmptyPathIsRefusedAndTheScriptContinues) {
    const ProgramResult result = Play(
        {"start", "open \"\"", "choose \"\"", "menu DORVIK.OPEN", "results \"\"", "dump state"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(result.Output, HasSubstr("{\"refused\":"));
    EXPECT_THAT(result.Output, HasSubstr("{\"dump\":\"state\""));
}

TEST_F(SessionCommand, ThereIsNoTickAndNoFileBeforeTheFirst) {
    for (const char* const line : {"tick 0", "tick -1", "cancel-at 0"}) {
        const ProgramResult result = Play({"start", line});
        EXPECT_EQ(result.ExitCode, 2) << line;
        EXPECT_THAT(result.Error, HasSubstr("a.session:2: ")) << line;
    }
}

TEST_F(SessionCommand, AProjectIsReviewedAndBrowsed) {
    WriteModuleProject("Jump", "    GoTo Done\r\nDone:");
    const ProgramResult result = Play(
        {"setting AlwaysShowSummary 0",
         "open Jump.vbp",
         "start",
         "show",
         "expect state panel \"No results exist for 'Jump', please perform a review to create "
         "them.\"",
         "expect menus menu.3.enabled true"});
    EXPECT_EQ(result.ExitCode, 0) << result.Output << result.Error;
}

}  // namespace dorvik::test
