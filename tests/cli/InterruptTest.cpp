// Signals in the middle of a review: whatever comes, and however often, no half database stays behind.

#include "cli/ShellRun.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class InterruptedReview : public ShellFixture {
protected:
    /// A project whose review takes its time.
    InterruptedReview() {
        std::string module = "Attribute VB_Name = \"A\"\r\n";
        for (int number = 0; number < 20000; ++number) {
            module += "Sub Work" + std::to_string(number) + "()\r\n  Stop\r\nEnd Sub\r\n";
        }
        WriteBytes("A.bas", module);
        WriteLines("A.vbp", {"Type=Exe", "Module=A; A.bas", "Name=\"A\""});
    }

    /// Sends the signals one behind the other as soon as the results file is there.
    ProgramResult Interrupted(const std::string& signals) const {
        return Shell(
            "set -m\nrm -rf Dorvik\n"  // else the shell has SIGINT ignored in the background
            "$DORVIK review A.vbp --rulebase $RULEBASE & review=$!\n"
            "while [ ! -e Dorvik/A_DORVIK.mdb ] && kill -0 $review; do sleep 0.01; done\n"
            "sleep 0.1\n"
            "for signal in " +
            signals +
            "; do kill -$signal $review 2> /dev/null; done\n"
            "wait $review");
    }

    std::string Left() const {
        std::string names;
        for (const auto& entry : fs::directory_iterator(Work("Dorvik"))) {
            names += entry.path().filename().string() + " ";
        }
        return names;
    }
};

}  // namespace

TEST_F(InterruptedReview, EndsInOrderAtEachSignalThatAsksForAnEnd) {
    for (const std::string signal : {"INT", "TERM", "HUP", "PIPE"}) {
        const ProgramResult result = Interrupted(signal);
        EXPECT_EQ(result.ExitCode, 130) << signal;
        EXPECT_THAT(result.Error, HasSubstr("interrupted; the current project has no results"));
        EXPECT_EQ(Left(), "A_DORVIK.txt ") << signal;
    }
}

TEST_F(InterruptedReview, LeavesNothingHalfBehindWhereASecondSignalEndsItAtOnce) {
    for (const std::string signals : {"INT INT", "INT INT INT", "TERM HUP", "HUP TERM INT"}) {
        Interrupted(signals);
        EXPECT_EQ(Left(), "A_DORVIK.txt ") << signals;
    }
}

TEST_F(InterruptedReview, ASignalThatTheCallerWantsIgnoredStaysIgnored) {
    const ProgramResult result =
        Shell("set -m\ntrap '' HUP\n"
              "$DORVIK review A.vbp --rulebase $RULEBASE & review=$!\n"
              "while [ ! -e Dorvik/A_DORVIK.mdb ] && kill -0 $review; do sleep 0.01; done\n"
              "kill -HUP $review\n"
              "wait $review");
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(result.Output, HasSubstr("20,000"));
}

}  // namespace dorvik::test
