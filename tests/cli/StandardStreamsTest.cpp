// What the program does where its streams take nothing, its folder is gone or its memory is not enough.

#include "base/BasicError.h"
#include "cli/LastResort.h"
#include "cli/ShellRun.h"

#include <gmock/gmock.h>

#include <new>
#include <stdexcept>
#include <unistd.h>

namespace dorvik::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class StandardStreams : public ShellFixture {
protected:
    StandardStreams() { WriteModuleProject("A", "    Stop"); }
};

/// The commands that print, as a person types them; all of them work where the output does.
const char* const kPrintingCommands[] = {
    "$DORVIK --help",
    "$DORVIK --version",
    "$DORVIK review --help",
    "$DORVIK review A.vbp --rulebase $RULEBASE",
    "$DORVIK results Dorvik/A_DORVIK.mdb summary",
    "$DORVIK results Dorvik/A_DORVIK.mdb violations --csv",
    "$DORVIK results Dorvik/A_DORVIK.mdb criteria --json",
    "$DORVIK events A.vbp",
    "$DORVIK report Dorvik/A_DORVIK.mdb",
    "$DORVIK rulebase list $RULEBASE",
    "$DORVIK rulebase check bad.dvk",
    "$DORVIK catalogue objects",
    "$DORVIK script disassemble a.bas",
    "$DORVIK script run print.bas",
};

}  // namespace

TEST_F(StandardStreams, AFullDiskBehindTheOutputIsToldAndEndsEveryCommandWithTwo) {
    WriteBytes("a.bas", "Sub Main()\nEnd Sub\n");
    WriteBytes("print.bas", "Sub Main()\nDebug.Print \"x\"\nEnd Sub\n");
    WriteBytes("bad.dvk", "<Dorvik_Rulebase SchemaVersion=\"6.2\"/>");
    Shell("$DORVIK review A.vbp --rulebase $RULEBASE");
    for (const std::string command : kPrintingCommands) {
        const ProgramResult result = Shell(command + " > /dev/full");
        EXPECT_EQ(result.ExitCode, 2) << command;
        EXPECT_THAT(
            result.Error,
            HasSubstr("dorvik: cannot write to standard output: No space left on device\n"))
            << command;
    }
}

TEST_F(StandardStreams, AClosedOutputIsToldAndNothingOfItGoesIntoAFile) {
    const ProgramResult result = Shell("$DORVIK review A.vbp --rulebase $RULEBASE >&-");
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("cannot write to standard output"));
    EXPECT_EQ(Query("Dorvik/A_DORVIK.mdb", "SELECT Count(ViolationID) FROM Violations"), "1");
    EXPECT_EQ(
        Shell("$DORVIK review A.vbp --rulebase $RULEBASE --tolerance TVC=0 --quiet >&- 2>&- <&-")
            .ExitCode,
        1)
        << "where nothing is printed, nothing is missing";
}

TEST_F(StandardStreams, AReaderThatHasEnoughEndsThePrintingQuietly) {
    for (const std::string command :
         {"$DORVIK events A.vbp", "$DORVIK rulebase list $RULEBASE", "$DORVIK --help"}) {
        const ProgramResult result =
            Shell("(" + command + "; echo code $? >&2) | (exec 0<&-; sleep 0.2)");
        EXPECT_THAT(result.Errors(), ElementsAre("code 0")) << command;
    }
}

TEST_F(StandardStreams, AReviewWhoseReaderLeavesKeepsItsVerdict) {
    const ProgramResult result = Shell("($DORVIK review A.vbp --rulebase $RULEBASE --tolerance "
                                       "TVC=0; echo code $? >&2) | (exec 0<&-; sleep 0.2)");
    EXPECT_THAT(result.Errors(), ElementsAre("code 1"));
}

TEST_F(StandardStreams, AWorkingFolderThatIsGoneIsToldInOneSentence) {
    for (const std::string command :
         {"$DORVIK rulebase check a.dvk",
          "$DORVIK rulebase new a.dvk",
          "$DORVIK review a.vbp",
          "$DORVIK report a.mdb",
          "$DORVIK results a.mdb summary",
          "$DORVIK script check a.bas",
          "$DORVIK events a.vbp",
          "$DORVIK typelib index x"}) {
        const ProgramResult result = Shell("mkdir gone; cd gone; rmdir ../gone; " + command);
        EXPECT_EQ(result.ExitCode, 2) << command;
        EXPECT_EQ(result.Errors().size(), 1U) << command << result.Error;
        EXPECT_THAT(result.Error, HasSubstr("the working folder no longer exists")) << command;
    }
}

TEST_F(StandardStreams, WithoutAWorkingFolderWholePathsWork) {
    const ProgramResult result = Shell(
        "mkdir gone; cd gone; rmdir ../gone; $DORVIK review '" + Work("A.vbp").string() +
        "' --rulebase $RULEBASE --tolerance TVC=0");
    EXPECT_EQ(result.ExitCode, 1) << result.Error;
    EXPECT_THAT(result.Error, IsEmpty());
}

TEST_F(StandardStreams, AFolderThatMayNotBeWrittenToIsNotToldAsLocked) {
    const std::string bound =
        ::geteuid() == 0 ? "setpriv --reuid 65534 --regid 65534 --clear-groups " : "";
    if (!bound.empty() && Shell(bound + "true").ExitCode != 0) {
        GTEST_SKIP() << "nobody can be made here whom permissions bind";
    }
    const ProgramResult result = Shell(
        "chmod 755 .. .; chmod 777 ../state; mkdir Dorvik; chmod 555 Dorvik\n" + bound +
        "$DORVIK review A.vbp --rulebase $RULEBASE");
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(
        result.Error,
        HasSubstr(
            "Nothing can be written to '" + Work("Dorvik/").string() + "': Permission denied\n"));
    EXPECT_THAT(result.Error, Not(HasSubstr("locked")));
}

TEST(LastResort, AnyFailureIsOneSentenceAndTheCodeOfNothingDone) {
    const auto told = [](const std::function<int()>& command) {
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(modLastResort::Run(command), 2);
        return ::testing::internal::GetCapturedStderr();
    };
    EXPECT_EQ(
        told([]() -> int { throw std::bad_alloc(); }),
        "dorvik: out of memory; the command was aborted\n");
    EXPECT_EQ(told([]() -> int { throw BasicError(76, "no folder"); }), "dorvik: no folder\n");
    EXPECT_EQ(
        told([]() -> int { throw std::runtime_error("odd\x1b[2J"); }),
        "dorvik: aborted by an unexpected error: odd\\x1B[2J\n");
    EXPECT_EQ(
        told([]() -> int { throw 1; }), "dorvik: aborted by an unexpected error of unknown type\n");
    EXPECT_EQ(modLastResort::Run([] { return 3; }), 3);
}

void FailWithoutACatch(bool fails) noexcept {
    const std::function<void()> body = [fails] {
        if (fails) {
            throw std::bad_alloc();
        }
    };
    body();
}

TEST(LastResortDeathTest, WhatNoCatchReachesEndsTheSameWay) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            modLastResort::InstallForTermination();
            FailWithoutACatch(true);
        },
        ::testing::ExitedWithCode(2),
        "dorvik: out of memory");
}

}  // namespace dorvik::test
