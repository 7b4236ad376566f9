// Several reviews of one project at one time.

#include "cli/CommandLineFixture.h"

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <unistd.h>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class SimultaneousReviews : public CommandLineFixture {
protected:
    static constexpr int kViolations = 40;

    SimultaneousReviews() {
        std::string body = "Attribute VB_Name = \"A\"\r\nSub Work()\r\n";
        for (int line = 0; line < kViolations; ++line) {
            body += "    Stop\r\n";
        }
        WriteBytes("A.bas", body + "End Sub\r\n");
        WriteLines("A.vbp", {"Type=Exe", "Module=A; A.bas", "Name=\"A\""});
    }

    std::unique_ptr<ProgramRun> Start(int number, std::vector<std::string> arguments) const {
        ProgramRun::Settings settings = Settings(std::move(arguments));
        settings.StateFolder = Work("state" + std::to_string(number));
        fs::create_directories(settings.StateFolder);
        return std::make_unique<ProgramRun>(settings);
    }
};

/// The lock of a review under way, as the program itself takes it.
class HeldLock {
public:
    HeldLock(const fs::path& file, const std::string& text)
        : m_descriptor(::open(file.c_str(), O_RDWR | O_CREAT, 0600)) {
        EXPECT_EQ(::flock(m_descriptor, LOCK_EX | LOCK_NB), 0);
        EXPECT_EQ(
            ::write(m_descriptor, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    ~HeldLock() { ::close(m_descriptor); }
    HeldLock(const HeldLock&) = delete;
    HeldLock& operator=(const HeldLock&) = delete;

private:
    int m_descriptor;
};

TEST_F(SimultaneousReviews, OneIsCompleteAndTheOthersSayWhoHoldsTheResults) {
    constexpr int kRounds = 12;
    constexpr int kAtOnce = 4;
    int refused = 0;
    for (int round = 1; round <= kRounds; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        std::array<std::unique_ptr<ProgramRun>, kAtOnce> runs;
        for (int number = 0; number < kAtOnce; ++number) {
            runs.at(static_cast<std::size_t>(number)) =
                Start(number, {"review", "A.vbp", "--report", "summary"});
        }
        int complete = 0;
        for (const auto& run : runs) {
            run->Wait();
            if (run->ExitCode() == 0) {
                ++complete;
                EXPECT_THAT(run->Error(), IsEmpty());
                EXPECT_THAT(run->Output(), HasSubstr("Violations  " + std::to_string(kViolations)));
            } else {
                ++refused;
                EXPECT_EQ(run->ExitCode(), 2) << run->Error();
                EXPECT_THAT(
                    run->Error(), AllOf(HasSubstr("another review"), HasSubstr("process ")));
            }
        }
        EXPECT_GE(complete, 1);
        EXPECT_EQ(
            Query("Dorvik/A_DORVIK.mdb", "SELECT Count(*) FROM Violations"),
            std::to_string(kViolations));
        EXPECT_NE(Query("Dorvik/A_DORVIK.mdb", "SELECT [End] FROM Review"), "");
        for (const auto& entry : fs::directory_iterator(Work("Dorvik"))) {
            const std::string name = entry.path().filename().string();
            EXPECT_THAT(name, testing::AnyOf("A_DORVIK.mdb", "A_DORVIK.txt", "A_Dorvik.html"));
        }
        fs::remove_all(Work("Dorvik"));
    }
    EXPECT_GT(refused, 0) << "no two of them met";
}

TEST_F(SimultaneousReviews, TheHolderIsNamedAndItsResultsAndLogStayAsTheyAre) {
    ASSERT_EQ(Run({"review", "A.vbp"}).ExitCode, 0);
    const std::string database = Bytes("Dorvik/A_DORVIK.mdb");
    const std::string log = Bytes("Dorvik/A_DORVIK.txt");
    const HeldLock lock(Work("Dorvik/A_DORVIK.mdb-lock"), "process 4711 of ann, since noon");
    const ProgramResult result = Run({"review", "A.vbp", "--clear-log", "--report", "summary"});
    EXPECT_EQ(result.ExitCode, 2);
    ExpectClearSentences(result);
    EXPECT_THAT(result.Error, HasSubstr("process 4711 of ann, since noon"));
    EXPECT_EQ(Bytes("Dorvik/A_DORVIK.mdb"), database);
    EXPECT_EQ(Bytes("Dorvik/A_DORVIK.txt"), log);
    EXPECT_FALSE(Exists("Dorvik/A_Dorvik.html"));
}

TEST_F(SimultaneousReviews, AnotherProjectIsReviewedAllTheSame) {
    WriteModuleProject("B", "    x = 1");
    fs::create_directories(Work("Dorvik"));
    const HeldLock lock(Work("Dorvik/A_DORVIK.mdb-lock"), "process 4711");
    EXPECT_EQ(Run({"review", "A.vbp", "B.vbp"}).ExitCode, 3);
    EXPECT_TRUE(Exists("Dorvik/B_DORVIK.mdb"));
}

TEST_F(SimultaneousReviews, ALockThatAKilledProcessLeftDoesNotBlock) {
    fs::create_directories(Work("Dorvik"));
    { const HeldLock lock(Work("Dorvik/A_DORVIK.mdb-lock"), "process 4711"); }
    ASSERT_TRUE(Exists("Dorvik/A_DORVIK.mdb-lock"));
    const ProgramResult result = Run({"review", "A.vbp"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_FALSE(Exists("Dorvik/A_DORVIK.mdb-lock"));
}

TEST_F(SimultaneousReviews, ALockDoesNotKeepReadersOut) {
    ASSERT_EQ(Run({"review", "A.vbp"}).ExitCode, 0);
    const HeldLock lock(Work("Dorvik/A_DORVIK.mdb-lock"), "process 4711");
    EXPECT_EQ(Run({"results", "Dorvik/A_DORVIK.mdb", "summary"}).ExitCode, 0);
    EXPECT_EQ(Run({"report", "Dorvik/A_DORVIK.mdb"}).ExitCode, 0);
}

}  // namespace

}  // namespace dorvik::test
