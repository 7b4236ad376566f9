// What the program tells of the results of a review that was killed, at any moment of it.

#include "cli/CommandLineFixture.h"
#include "support/KillRounds.h"
#include "support/LineText.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <random>
#include <thread>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr int kUsualRounds = 10;
constexpr int kModules = 4;
constexpr int kViolationsOfAModule = 150;
constexpr int kViolations = kModules * kViolationsOfAModule;
constexpr const char* kDatabase = "Dorvik/Big_DORVIK.mdb";

/// How far a review may come: until so many violations are stored (-1: until it has started), then so
/// many microseconds.
struct KillPoint {
    int Violations;
    int Microseconds;
};

class KilledReviewOfTheProgram : public CommandLineFixture {
protected:
    KilledReviewOfTheProgram() {
        std::string project = "Type=Exe\r\nName=\"Big\"\r\n";
        std::string module = "Option Explicit\r\nSub Work()\r\n";
        for (int number = 0; number < kViolationsOfAModule; ++number) {
            module += "    DoEvents\r\n";
        }
        module += "End Sub\r\n";
        for (int number = 1; number <= kModules; ++number) {
            const std::string name = "mod" + std::to_string(number);
            project += "Module=" + name + "; " + name + ".bas\r\n";
            WriteBytes(name + ".bas", "Attribute VB_Name = \"" + name + "\"\r\n" + module);
        }
        WriteBytes("Big.vbp", project);
    }

    /// The number that a query of the bare engine gives; nothing where the database cannot answer yet.
    std::optional<int> Ask(const char* sql) const {
        if (!Exists(kDatabase)) {
            return std::nullopt;
        }
        sqlite3* opened = nullptr;
        const int result =
            sqlite3_open_v2(Work(kDatabase).c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
        const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> engine(opened, sqlite3_close);
        std::optional<int> answer;
        const auto note = [](void* number, int, char** values, char**) {
            *static_cast<std::optional<int>*>(number) = std::atoi(values[0]);
            return 0;
        };
        if (result == SQLITE_OK) {
            sqlite3_exec(engine.get(), sql, note, &answer, nullptr);
        }
        return answer;
    }
    std::optional<int> Violations() const { return Ask("SELECT count(*) FROM Violations"); }

    /// Reviews the project, kills the program at that point, and gives the number of violations that
    /// others saw in the database by then.
    int ReviewUntil(const KillPoint& point) const {
        if (point.Violations > 0) {
            // What is counted below is this review's. Others find what the last kill left in their way.
            std::filesystem::remove_all(Work("Dorvik"));
        }
        ProgramRun run(Settings({"review", "Big.vbp", "--quiet"}));
        int seen = 0;
        while (seen < point.Violations && run.IsRunning()) {
            seen = std::max(seen, Violations().value_or(0));
        }
        std::this_thread::sleep_for(std::chrono::microseconds(point.Microseconds));
        run.Kill();
        run.Wait();
        return seen;
    }

    static KillPoint PickKillPoint(std::mt19937& random) {
        const auto pick = [&random](int low, int high) {
            return std::uniform_int_distribution<int>(low, high)(random);
        };
        switch (pick(1, 4)) {
            case 1: return {-1, pick(0, 100'000)};          // at its start
            case 2: return {kViolations, pick(0, 20'000)};  // at its end
            default: return {pick(1, kViolations), pick(0, 2'000)};
        }
    }

    /// The program reads every row that anybody saw, or says in a sentence that there is no review.
    void ExpectWhatWasStored(int seen) const {
        const ProgramResult result = Run({"results", kDatabase, "violations", "--csv"});
        ExpectClearSentences(result);
        if (Ask("SELECT count(*) FROM Review").value_or(0) == 0) {
            EXPECT_EQ(seen, 0);
            EXPECT_EQ(result.ExitCode, 2);
            EXPECT_THAT(result.Output, IsEmpty());
            return;
        }
        EXPECT_NE(result.ExitCode, 2) << result.Error;
        const auto lines = static_cast<int>(LinesOf(result.Output).size());
        EXPECT_GE(lines - 1, seen);
        EXPECT_EQ(lines - 1, Violations());
        if (Ask("SELECT count(*) FROM Review WHERE [End] IS NULL").value_or(0) == 1) {
            EXPECT_THAT(result.Error, HasSubstr("did not finish"));
        }
    }
};

TEST_F(KilledReviewOfTheProgram, AtAnyMomentLeavesResultsThatTheProgramReads) {
    std::mt19937 random(20261122);
    const int rounds = KillRounds(kUsualRounds);
    int interrupted = 0;
    for (int round = 1; round <= rounds; ++round) {
        const KillPoint point = PickKillPoint(random);
        SCOPED_TRACE(
            "round " + std::to_string(round) + ", killed at " + std::to_string(point.Violations) +
            " and " + std::to_string(point.Microseconds) + " microseconds");
        const int seen = ReviewUntil(point);
        ExpectWhatWasStored(seen);
        interrupted += seen > 0 && seen < kViolations ? 1 : 0;
        if (HasFailure()) {
            return;  // with what is left as it was found
        }
    }
    EXPECT_GT(interrupted, 0) << "no review was killed in its middle";
    EXPECT_EQ(Run({"review", "Big.vbp", "--quiet"}).ExitCode, 0)
        << "what a kill left is in the way";
    EXPECT_EQ(Violations(), kViolations);
}

}  // namespace

}  // namespace dorvik::test
