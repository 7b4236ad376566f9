#include "cli/CommandLineFixture.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <chrono>
#include <rapidjson/document.h>
#include <thread>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr int kViolationsToLose = 1500;
constexpr const char* kLostDatabase = "out/Lost_DORVIK.mdb";

/// Reviews whose results do not all reach the disk.
class LostResults : public CommandLineFixture {
protected:
    LostResults() { WriteProject(kViolationsToLose); }

    void WriteProject(int violations) const {
        std::string body;
        for (int line = 0; line < violations; ++line) {
            body += (line == 0 ? "" : "\r\n") + std::string("    Stop");
        }
        WriteModuleProject("Lost", body);
    }

    static std::vector<std::string> Review() {
        return {"review", "Lost.vbp", "--results", "out", "--tolerance", "TVC=1000"};
    }

    /// The disk is full at some moment in the middle of the review.
    ProgramResult ReviewOnAFullDisk(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = Review();
        arguments.insert(arguments.end(), more.begin(), more.end());
        ProgramRun::Settings settings = Settings(arguments);
        settings.LargestFile = 700'000;
        ProgramRun run(settings);
        run.Wait();
        return {run.ExitCode(), run.Output(), run.Error()};
    }

    bool HasStored(sqlite3* engine, const char* condition) const {
        bool has = false;
        const auto note = [](void* answer, int, char**, char**) {
            *static_cast<bool*>(answer) = true;
            return 0;
        };
        sqlite3_exec(engine, condition, note, &has, nullptr);
        return has;
    }
};

TEST_F(LostResults, WithoutTroubleTheReviewFailsForItsViolations) {
    const ProgramResult result = Run(Review());
    EXPECT_EQ(result.ExitCode, 1) << result.Error;
    EXPECT_THAT(result.Output, HasSubstr("Verdict     failed: Total Violation Count"));
}

TEST_F(LostResults, AFullDiskGivesNoVerdictButTheReasonAndExitCode3) {
    const ProgramResult result = ReviewOnAFullDisk();
    EXPECT_EQ(result.ExitCode, 3);
    ExpectClearSentences(result);
    EXPECT_THAT(result.Output, Not(HasSubstr("passed")));
    EXPECT_THAT(
        result.Output,
        AllOf(
            HasSubstr("Verdict     none: "), HasSubstr("results could not be stored: no room is")));
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(AllOf(
            HasSubstr("the results of '" + Work("Lost.vbp").string() + "' are incomplete"),
            HasSubstr("no room is left on the disk"))));
    EXPECT_THAT(Bytes("out/Lost_DORVIK.txt"), Not(HasSubstr("Project reviewed successfully")));
}

TEST_F(LostResults, ALaterReaderSeesThatTheResultsAreIncomplete) {
    ReviewOnAFullDisk();
    const int stored = std::stoi(Query(kLostDatabase, "SELECT Count(ViolationID) FROM Violations"));
    EXPECT_GT(stored, 0);
    EXPECT_LT(stored, kViolationsToLose);
    const ProgramResult summary = Run({"results", kLostDatabase, "summary"});
    EXPECT_EQ(summary.ExitCode, 0);
    EXPECT_THAT(summary.Error, HasSubstr("are incomplete"));
    EXPECT_THAT(summary.Output, AllOf(HasSubstr("Verdict     none"), Not(HasSubstr("passed"))));
    rapidjson::Document json;
    json.Parse(Run({"results", kLostDatabase, "summary", "--json"}).Output.c_str());
    ASSERT_TRUE(json.IsObject());
    EXPECT_FALSE(json["ended"].GetBool());
    EXPECT_TRUE(json["passed"].IsNull());
    json.Parse(Run({"results", kLostDatabase, "tolerances", "--json"}).Output.c_str());
    ASSERT_TRUE(json.IsObject());
    EXPECT_TRUE(json["passed"].IsNull());
    EXPECT_THAT(
        Run({"results", kLostDatabase, "summary", "--csv"}).Output, Not(HasSubstr(",true,")));
    const ProgramResult report = Run({"report", kLostDatabase});
    EXPECT_EQ(report.ExitCode, 2);
    EXPECT_THAT(report.Error, HasSubstr("are incomplete"));
    EXPECT_FALSE(Exists("out/Lost_DORVIK.html"));
}

TEST_F(LostResults, PagesOfSuchAReviewShowNoVerdict) {
    ReviewOnAFullDisk({"--report", "detailed", "--report-style", "modern", "--batch-title", "All"});
    int pages = 0;
    for (const auto& entry : fs::recursive_directory_iterator(Work(""))) {
        if (entry.path().extension() == ".html") {
            ++pages;
            const std::string page = Bytes(fs::relative(entry.path(), Work("")).string());
            EXPECT_THAT(page, Not(HasSubstr("&nbsp;Pass&nbsp;"))) << entry.path();
            EXPECT_THAT(page, Not(HasSubstr("class=\"pass\">Pass"))) << entry.path();
            EXPECT_THAT(page, Not(HasSubstr("class=\"verdict pass"))) << entry.path();
        }
    }
    EXPECT_GE(pages, 3);
}

// The review is halted while the lock is tried for, since it could come to its end in the meantime.
bool LocksBetweenTwoWrites(sqlite3* engine, ProgramRun& review) {
    bool isLocked = false;
    sqlite3_busy_timeout(engine, 0);
    while (!isLocked && review.IsRunning()) {
        review.Halt();
        isLocked = sqlite3_exec(engine, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK;
        review.Continue();
    }
    return isLocked;
}

// Another program that writes to the database for two seconds.
TEST_F(LostResults, ARowWaitsForTheLockOfAnotherProgram) {
    constexpr int kManyViolations = 15'000;  // so that the lock comes in the middle
    WriteProject(kManyViolations);
    ProgramRun run(Settings(Review()));
    sqlite3* engine = nullptr;
    const fs::path file = Work(kLostDatabase);
    bool isLocked = false;
    while (!isLocked && run.IsRunning()) {
        std::error_code ignored;
        if (fs::exists(file, ignored) &&
            sqlite3_open_v2(file.c_str(), &engine, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK) {
            sqlite3_busy_timeout(engine, 5000);
            isLocked = HasStored(engine, "SELECT 1 FROM Violations LIMIT 1") &&
                       LocksBetweenTwoWrites(engine, run);
        }
        if (!isLocked) {
            sqlite3_close(std::exchange(engine, nullptr));
        }
    }
    ASSERT_TRUE(isLocked);
    std::this_thread::sleep_for(std::chrono::seconds(2));
    EXPECT_TRUE(run.IsRunning()) << "the review did not meet the lock";
    sqlite3_close(engine);
    run.Wait();
    EXPECT_EQ(run.ExitCode(), 1) << run.Error();
    EXPECT_THAT(run.Error(), IsEmpty());
    EXPECT_EQ(
        Query(kLostDatabase, "SELECT Count(ViolationID) FROM Violations"),
        std::to_string(kManyViolations));
}

TEST_F(LostResults, ReadersDoNotFailWhileAReviewWrites) {
    Run(Review());
    ProgramRun run(Settings(Review()));
    int reads = 0;
    while (run.IsRunning()) {
        const ProgramResult read = Run({"results", kLostDatabase, "summary"});
        // The review takes away the results of the one before; they are not there for a moment, and then
        // hold nothing for another.
        if (read.ExitCode != 0) {
            EXPECT_THAT(
                read.Error, AnyOf(HasSubstr("does not exist"), HasSubstr("holds no review")));
        }
        ++reads;
    }
    EXPECT_GT(reads, 0);
}

}  // namespace

}  // namespace dorvik::test
