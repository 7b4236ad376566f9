// What a process that is killed in the middle of a review leaves behind, and what others see of it
// while it is at work. tests/cli/KilledReviewTest.cpp kills the program itself.

#include "platform/host/modFiles.h"
#include "results/ResultsDBFixture.h"
#include "support/FilesystemPaths.h"
#include "support/KillRounds.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace dorvik {
namespace {

constexpr int kUsualRounds = 25;

/// A review in a process of its own, which tells of each thing that it has stored: the number 0 when the
/// review row is there, then the key of each violation.
class ReviewProcess {
public:
    explicit ReviewProcess(const std::function<void(const ReviewProcess&)>& review) {
        if (pipe(m_pipe) != 0) {
            std::abort();
        }
        m_child = fork();
        if (m_child == 0) {
            close(m_pipe[0]);
            review(*this);
            _exit(0);
        }
        close(m_pipe[1]);
    }

    /// In the child.
    void Tell(std::int32_t number) const {
        if (write(m_pipe[1], &number, sizeof number) != sizeof number) {
            _exit(1);
        }
    }

    /// In the parent: waits for the next number; false when the child has nothing more to tell.
    bool Hear() {
        std::int32_t number = 0;
        if (read(m_pipe[0], &number, sizeof number) != sizeof number) {
            return false;
        }
        m_last = number;
        return true;
    }

    /// The last number heard, -1 if none.
    std::int32_t Last() const { return m_last; }

    /// Hears the rest; the wait status.
    int End(int signalNumber = 0) {
        if (signalNumber != 0) {
            kill(m_child, signalNumber);
        }
        while (Hear()) {
        }
        close(m_pipe[0]);
        int status = 0;
        waitpid(m_child, &status, 0);
        return status;
    }

private:
    int m_pipe[2]{};
    pid_t m_child = 0;
    std::int32_t m_last = -1;
};

class KilledReview : public test::ResultsDBFixture {
protected:
    /// A whole review, from taking away the file of the one before to closing the finished database.
    void Review(const ReviewProcess& process, std::int32_t violations) {
        Database::DeleteFile(m_path);
        Database::CopyFile(test::ProgramPath(DORVIK_RESULTS_TEMPLATE), m_path);
        ResultsDB results;
        if (!results.Writer().StartReview(m_path, m_rulebase, m_criteria)) {
            _exit(2);
        }
        process.Tell(0);
        VirtualObject project;
        FillObject(project, "Billing");
        results.Writer().SetupVObjectResults("Project", project);
        constexpr std::int32_t kOfAFile = 40;
        VirtualObject file;
        for (std::int32_t number = 1; number <= violations; ++number) {
            if (number % kOfAFile == 1) {
                LogFile(results, "mod" + std::to_string(number), file);
            }
            results.Writer().LogViolation(
                file.ObjectID(), ItemType::File, Breach(number % 5 + 1, number));
            process.Tell(number);
        }
        results.Writer().EndReview(violations);
        results.CloseReview();
    }

    static void FillObject(VirtualObject& object, const std::string& name) {
        object.Properties().Clear();
        object.Properties().Add("Name", name);
        object.Properties().Add("Path", "C:\\Src\\");
        object.Properties().Add("Filename", name + ".bas");
        object.Properties().Add("Type", "Module");
    }

    static void LogFile(ResultsDB& results, const std::string& name, VirtualObject& file) {
        FillObject(file, name);
        results.Writer().SetupVObjectResults("File", file);
        results.Writer().LogVirtualObjectViolationStats(file);
        results.Writer().LogVirtualObjectLineStats(file);
    }

    /// Copies the file with its log, so that the next review finds what the killed one left.
    std::string CopyOfWhatIsLeft() const {
        const auto source = test::FilesystemPath(m_path);
        const auto target = test::FilesystemPath(m_path).parent_path() / "Left.mdb";
        for (const char* const companion : {"", "-wal", "-shm", "-journal"}) {
            const auto from = std::filesystem::path(source).concat(companion);
            const auto to = std::filesystem::path(target).concat(companion);
            std::filesystem::remove(to);
            if (std::filesystem::exists(from)) {
                std::filesystem::copy_file(from, to);
            }
        }
        return test::ProgramPath(target);
    }

    /// Asks the bare engine, as its own command line tool would.
    static std::string Ask(const std::string& path, const char* sql) {
        sqlite3* engine = nullptr;
        std::string answer;
        const auto note = [](void* text, int, char** values, char**) {
            *static_cast<std::string*>(text) += values[0] != nullptr ? values[0] : "";
            return 0;
        };
        EXPECT_EQ(sqlite3_open(test::FilesystemPath(path).c_str(), &engine), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(engine, sql, note, &answer, nullptr), SQLITE_OK)
            << sqlite3_errmsg(engine);
        sqlite3_close(engine);
        return answer;
    }

    void ExpectEveryRow(const std::string& path, std::int32_t lastTold) {
        EXPECT_EQ(Ask(path, "PRAGMA integrity_check"), "ok");
        ResultsDB reader;
        EXPECT_EQ(reader.OpenReview(path) || lastTold < 0, true);
        Database database;
        database.Open(path);
        auto rows = database.OpenRecordset(
            "SELECT Count(ViolationID) As C, Max(ViolationID) As M FROM Violations",
            RecordsetType::Snapshot);
        EXPECT_GE(rows.Value("C").AsLong(), lastTold);
        EXPECT_EQ(rows.Value("C").AsLong(), rows.Value("M").AsLong());
    }

    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.HostPath())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }
};

/// How far a review may come before it is killed: `Told` numbers, then so many microseconds.
struct KillPoint {
    std::int32_t Told;
    std::int32_t Microseconds;
};

KillPoint PickKillPoint(std::mt19937& random, std::int32_t violations) {
    const auto pick = [&random](std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(random);
    };
    switch (pick(1, 4)) {
        case 1: return {0, pick(0, 4000)};               // at its start
        case 2: return {violations + 1, pick(0, 6000)};  // at its end
        default: return {pick(0, violations), pick(0, 300)};
    }
}

TEST_F(KilledReview, AtAnyMomentItLeavesADatabaseThatOpensWithEveryRowLogged) {
    std::mt19937 random(20261121);
    const int rounds = test::KillRounds(kUsualRounds);
    for (int round = 1; round <= rounds; ++round) {
        const std::int32_t violations =
            std::uniform_int_distribution<std::int32_t>(0, 1500)(random);
        const KillPoint point = PickKillPoint(random, violations);
        ReviewProcess process([&](const ReviewProcess& self) { Review(self, violations); });
        for (std::int32_t told = 0; told < point.Told && process.Hear(); ++told) {
        }
        usleep(static_cast<useconds_t>(point.Microseconds));
        process.End(SIGKILL);
        SCOPED_TRACE("round " + std::to_string(round) + ", told " + std::to_string(process.Last()));
        if (!modFiles::FileExists(m_path)) {
            EXPECT_EQ(process.Last(), -1);  // it did not come as far as the file
        } else {
            ExpectEveryRow(CopyOfWhatIsLeft(), process.Last());
        }
    }
    Database::DeleteFile(m_path);
    for (const std::string& name : FilesInFolder()) {
        EXPECT_THAT(name, testing::StartsWith("Left.mdb"));
    }
}

TEST_F(KilledReview, AFinishedDatabaseIsOneFileThatTheBareEngineReads) {
    Database::DeleteFile(m_path);
    ReviewProcess process([&](const ReviewProcess& self) { Review(self, 2500); });
    EXPECT_EQ(process.End(), 0);
    EXPECT_EQ(process.Last(), 2500);
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Billing_DORVIK.mdb"));
    EXPECT_EQ(Ask(m_path, "PRAGMA journal_mode"), "delete");
    EXPECT_EQ(Ask(m_path, "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(Ask(m_path, "SELECT count(*) FROM Violations WHERE Title = 'TITLE 1'"), "500");
    EXPECT_EQ(Ask(m_path, "SELECT Name FROM SourceFiles ORDER BY Name LIMIT 1"), "mod1");
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Billing_DORVIK.mdb"));
}

TEST_F(KilledReview, AReaderInAnotherProcessSeesEveryRowToldAndNoHalfState) {
    ReviewProcess process([&](const ReviewProcess& self) { Review(self, 3000); });
    ASSERT_TRUE(process.Hear());
    Database database;
    database.Open(m_path);
    std::int32_t seen = 0;
    bool isMoving = true;
    while (isMoving) {
        for (int heard = 0; heard < 100 && isMoving; ++heard) {
            isMoving = process.Hear();
        }
        auto rows = database.OpenRecordset(
            "SELECT Count(ViolationID) As C, Max(ViolationID) As M FROM Violations",
            RecordsetType::Snapshot);
        const std::int32_t count = rows.Value("C").AsLong();
        EXPECT_EQ(count, rows.Value("M").AsLong());
        EXPECT_GE(count, process.Last());
        EXPECT_GE(count, seen);
        seen = count;
    }
    EXPECT_EQ(seen, 3000);
    EXPECT_EQ(process.End(), 0);
    database.Close();  // the last one who has it open folds the log
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Billing_DORVIK.mdb"));
    ExpectEveryRow(m_path, 3000);
}

TEST_F(KilledReview, AReaderKeepsTheStateThatItBeganToRead) {
    Start();
    m_results.Writer().LogViolation(1, ItemType::Procedure, Breach(1, 1));
    m_results.Writer().LogViolation(1, ItemType::Procedure, Breach(1, 2));
    Database database;
    database.Open(m_path);
    auto rows = database.OpenRecordset("SELECT Impact FROM Violations", RecordsetType::Snapshot);
    for (std::int32_t number = 3; number <= 2000; ++number) {  // more than one folding of the log
        m_results.Writer().LogViolation(1, ItemType::Procedure, Breach(1, number));
    }
    std::int32_t count = 0;
    for (; !rows.EOF_(); rows.MoveNext()) {
        ++count;
    }
    EXPECT_EQ(count, 2);
    rows.MoveFirst();
    EXPECT_THAT(Rows("SELECT Count(ViolationID) FROM Violations"), testing::ElementsAre("2000"));
    EXPECT_THAT(m_log.Entries(), testing::IsEmpty());
}

}  // namespace
}  // namespace dorvik
