#include "platform/database/Database.h"

#include "platform/DatabaseFixture.h"
#include "platform/host/FileInUse.h"
#include "platform/host/FileInUseMark.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/modFiles.h"
#include "support/FilesystemPaths.h"
#include "support/LockedDatabase.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <signal.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace dorvik {
namespace {

using test::ErrorNumberOf;

class DatabaseTest : public test::DatabaseFixture {};

// ---- opening and closing ----

TEST_F(DatabaseTest, AMissingFileIsNotCreated) {
    Database other;
    const std::string path = m_folder.Path() + "None.mdb";
    EXPECT_EQ(ErrorNumberOf([&] { other.Open(path); }), databaseerror::kFileNotFound);
    EXPECT_FALSE(other.IsOpen());
    EXPECT_FALSE(modFiles::FileExists(path));
}

TEST_F(DatabaseTest, AFileOfAnotherKindIsRefused) {
    m_folder.Write("Text.mdb", std::string(5000, 'x'));
    Database other;
    EXPECT_EQ(
        ErrorNumberOf([&] { other.Open(m_folder.Path() + "Text.mdb"); }),
        databaseerror::kNotADatabase);
}

TEST_F(DatabaseTest, ADatabaseThatIsOnlyReadIsNotChanged) {
    const std::string before = modFiles::ReadBytes(m_path);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::IsEmpty());
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Test.mdb"));
    m_database.Close();
    EXPECT_EQ(modFiles::ReadBytes(m_path), before);
}

TEST_F(DatabaseTest, ADatabaseClosedUntouchedIsLeftWithItsLogAsItWasFound) {
    Add("a", 1);
    const std::string left = m_folder.Path() + "Left.mdb";
    for (const char* const part : {"", "-wal"}) {
        modFiles::CopyFile(m_path + part, left + part);
    }
    const std::string file = modFiles::ReadBytes(left);
    const std::string log = modFiles::ReadBytes(left + "-wal");
    Database other;
    other.Open(left);
    EXPECT_EQ(
        other.OpenRecordset("SELECT Name FROM Items", RecordsetType::Snapshot).Value(0).AsText(),
        "a");  // it stands in the log only
    other.CloseUntouched();
    EXPECT_EQ(modFiles::ReadBytes(left), file);
    EXPECT_EQ(modFiles::ReadBytes(left + "-wal"), log);
}

TEST_F(DatabaseTest, ADatabaseClosedUntouchedKeepsItsJournalModeAndGetsNoCompanions) {
    m_database.Close();
    Run("PRAGMA journal_mode = WAL");
    const std::string file = modFiles::ReadBytes(m_path);
    m_database.Open(m_path);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::IsEmpty());
    m_database.CloseUntouched();
    EXPECT_FALSE(m_database.IsOpen());
    EXPECT_EQ(modFiles::ReadBytes(m_path), file);
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Test.mdb"));
}

TEST_F(DatabaseTest, AfterClosingItIsOneFileAgain) {
    Add("a", 1);
    EXPECT_THAT(FilesInFolder(), testing::Contains("Test.mdb-wal"));
    m_database.Close();
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Test.mdb"));
    m_database.Open(m_path);
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Test.mdb"));
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre("a"));
}

TEST_F(DatabaseTest, AReadOnlyFileCanBeReadAndTellsThatItCannotBeWritten) {
    Add("a", 1);
    m_database.Close();
    std::filesystem::permissions(test::FilesystemPath(m_path), std::filesystem::perms::owner_read);
    m_database.Open(m_path);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre("a"));
    if (geteuid() != 0) {  // nothing is read-only for the superuser
        EXPECT_EQ(ErrorNumberOf([&] { Add("b", 2); }), databaseerror::kReadOnly);
    }
}

TEST_F(DatabaseTest, AKilledProcessLeavesADatabaseWithEveryRowWrittenBefore) {
    m_database.Close();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        m_database.Open(m_path);
        for (int i = 0; i < 3000; ++i) {  // more than the log holds between two foldings
            Add("row", i);
        }
        kill(getpid(), SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    m_database.Open(m_path);
    EXPECT_THAT(Texts("SELECT Count(ItemID) FROM Items"), testing::ElementsAre("3000"));
    m_database.Close();
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Test.mdb"));
}

/// A process that holds the lock for writing for so long. To be made before this process opens the file,
/// for the engine does not stand a fork.
class LockHolder {
public:
    LockHolder(const std::string& path, std::chrono::milliseconds time) {
        if (pipe(m_begin) != 0 || pipe(m_ready) != 0) {
            std::abort();
        }
        m_child = fork();
        if (m_child == 0) {
            char mark = 0;
            sqlite3* engine = nullptr;
            const bool isAsked = read(m_begin[0], &mark, 1) == 1;
            sqlite3_open(test::FilesystemPath(path).c_str(), &engine);
            const int code = sqlite3_exec(engine, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
            const bool isTold = write(m_ready[1], "!", 1) == 1;
            std::this_thread::sleep_for(time);
            _exit(isAsked && isTold ? code : 1);
        }
    }
    ~LockHolder() {
        int status = 0;
        waitpid(m_child, &status, 0);
        EXPECT_EQ(status, 0);
        for (const int end : {m_begin[0], m_begin[1], m_ready[0], m_ready[1]}) {
            close(end);
        }
    }
    LockHolder(const LockHolder&) = delete;
    LockHolder& operator=(const LockHolder&) = delete;

    /// Returns when the lock is held.
    void Begin() const {
        char mark = '!';
        EXPECT_EQ(write(m_begin[1], &mark, 1), 1);
        EXPECT_EQ(read(m_ready[0], &mark, 1), 1);
    }

private:
    int m_begin[2]{};
    int m_ready[2]{};
    pid_t m_child = 0;
};

TEST_F(DatabaseTest, AWriterWaitsForTheLockOfAnotherProcess) {
    m_database.Close();
    const LockHolder holder(m_path, std::chrono::milliseconds(2500));
    m_database.Open(m_path);
    Add("a", 1);
    Add("b", 2);
    Add("c", 3);  // finds the state of the file still held
    holder.Begin();
    Add("d", 4);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre("a", "b", "c", "d"));
}

TEST_F(DatabaseTest, RecordsetsOfAClosedDatabaseAreInvalid) {
    Add("a", 1);
    auto snapshot = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    auto dynaset = m_database.OpenRecordset("SELECT * FROM Items");
    m_database.Close();
    EXPECT_EQ(ErrorNumberOf([&] { snapshot.MoveFirst(); }), databaseerror::kObjectInvalid);
    EXPECT_EQ(ErrorNumberOf([&] { dynaset.AddNew(); }), databaseerror::kObjectInvalid);
    EXPECT_EQ(
        ErrorNumberOf([&] { m_database.OpenRecordset("SELECT * FROM Items"); }),
        databaseerror::kObjectInvalid);
}

TEST_F(DatabaseTest, AnOpeningWaitsForALockNoLongerThanItIsTold) {
    using namespace std::chrono_literals;
    m_database.Close();
    const test::LockedDatabase other(m_path);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ErrorNumberOf([&] { m_database.Open(m_path, 100ms); }), databaseerror::kLocked);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 8s);
    EXPECT_FALSE(m_database.IsOpen());
}

TEST_F(DatabaseTest, AWriteThatAnotherConnectionKeepsOutIsToldAsLocked) {
    Add("a", 1);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(test::FilesystemPath(m_path).c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    m_database.SetPatience(std::chrono::milliseconds(20));
    EXPECT_EQ(ErrorNumberOf([&] { Add("b", 2); }), databaseerror::kLocked);
    sqlite3_close(other);
    Add("c", 3);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre("a", "c"));
}

// A write that follows another one at once stands on the state that this left.
TEST_F(DatabaseTest, WritersThatTakeTurnsLoseNothing) {
    Database other;
    other.Open(m_path);
    const auto addTo = [](Database& database, std::string_view name) {
        auto rows = database.OpenRecordset("SELECT * FROM Items WHERE ItemID = 0");
        rows.AddNew();
        rows.SetValue("Name", name);
        rows.Update();
    };
    for (int turn = 0; turn < 3; ++turn) {
        for (Database* const database : {&m_database, &other}) {
            addTo(*database, "a");
            addTo(*database, "b");
            addTo(*database, "c");
        }
    }
    EXPECT_THAT(Texts("SELECT Count(ItemID) FROM Items"), testing::ElementsAre("18"));
}

TEST_F(DatabaseTest, ReadingAfterWritingSeesWhatOthersWrote) {
    Add("a", 1);
    Add("b", 2);
    Add("c", 3);
    Run("UPDATE Items SET Size = 30 WHERE Name = 'c'");
    EXPECT_THAT(Texts("SELECT Size FROM Items WHERE ItemID = 3"), testing::ElementsAre("30"));
    Add("d", 4);
    Add("e", 5);
    Run("DELETE FROM Items WHERE ItemID = 1");
    auto rows = m_database.OpenRecordset("SELECT * FROM Items");
    EXPECT_EQ(rows.Value("Name").AsText(), "b");
}

TEST_F(DatabaseTest, TheLogDoesNotGrowWithTheRows) {
    std::uintmax_t largest = 0;
    const auto log = test::FilesystemPath(m_path + "-wal");
    for (int i = 0; i < 6000; ++i) {
        Add("row", i);
        largest = std::max(largest, std::filesystem::file_size(log));
    }
    EXPECT_LT(
        largest,
        18U * 1024 * 1024);  // four thousand pages of 4 KB and a little; 24 MB without a limit
}

TEST_F(DatabaseTest, AnIndexChangesNothingButSpeed) {
    Add("b", 2);
    Add("a", 1);
    Add("c", 2);
    m_database.EnsureIndex("ItemsBySize", "Items", {"Size", "Done"});
    m_database.EnsureIndex("ItemsBySize", "Items", {"Size", "Done"});  // there already
    m_database.AnalyseIndexes();
    EXPECT_THAT(Texts("SELECT Name FROM Items WHERE Size = 2"), testing::ElementsAre("b", "c"));
    Add("d", 2);
    EXPECT_THAT(
        Texts("SELECT Name FROM Items WHERE Size = 2"), testing::ElementsAre("b", "c", "d"));
    EXPECT_EQ(
        ErrorNumberOf([&] { m_database.EnsureIndex("Wrong", "Items", {"Nothing"}); }),
        databaseerror::kUnknownName);
}

// ---- copying and deleting ----

TEST_F(DatabaseTest, ACopyIsAWholeDatabase) {
    Add("a", 1);
    m_database.Close();
    const std::string copy = m_folder.Path("Copy.mdb");
    Database::CopyFile(m_path, copy);
    m_database.Open(copy);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre("a"));
    EXPECT_THAT(FilesInFolder(), testing::UnorderedElementsAre("Copy.mdb", "Test.mdb"));
}

TEST_F(DatabaseTest, ACopyThatWasNotFinishedGoesWithTheFile) {
    m_database.Close();
    m_folder.Write("Test.mdb-new", "x");
    Database::DeleteFile(m_path);
    EXPECT_THAT(FilesInFolder(), testing::IsEmpty());
}

TEST_F(DatabaseTest, AnOpenDatabaseCannotBeDeleted) {
    EXPECT_EQ(
        ErrorNumberOf([&] { Database::DeleteFile(m_path); }), runtimeerror::kPermissionDenied);
    EXPECT_TRUE(modFiles::FileExists(m_path));
    m_database.Close();
    Database::DeleteFile(m_path);
    EXPECT_FALSE(modFiles::FileExists(m_path));
}

TEST_F(DatabaseTest, ADatabaseThatAnotherProcessHasOpenCannotBeDeleted) {
    m_database.Close();
    int toParent[2];
    int toChild[2];
    ASSERT_EQ(pipe(toParent), 0);
    ASSERT_EQ(pipe(toChild), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    char signal = 'x';
    if (child == 0) {
        m_database.Open(m_path);
        const auto sent = write(toParent[1], &signal, 1);
        const auto received = read(toChild[0], &signal, 1);
        _exit(sent + received == 2 ? 0 : 1);
    }
    ASSERT_EQ(read(toParent[0], &signal, 1), 1);
    EXPECT_EQ(
        ErrorNumberOf([&] { Database::DeleteFile(m_path); }), runtimeerror::kPermissionDenied);
    ASSERT_EQ(write(toChild[1], &signal, 1), 1);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    Database::DeleteFile(m_path);  // the mark went with the process
    EXPECT_FALSE(modFiles::FileExists(m_path));
}

TEST_F(DatabaseTest, DeletingTakesTheCompanionsAlong) {
    m_database.Close();
    m_folder.Write("Test.mdb-wal", "x");
    m_folder.Write("Test.mdb-shm", "x");
    std::filesystem::permissions(test::FilesystemPath(m_path), std::filesystem::perms::owner_read);
    Database::DeleteFile(m_path);
    EXPECT_THAT(FilesInFolder(), testing::IsEmpty());
    Database::DeleteFile(m_path);  // nothing there is no failure
}

TEST_F(DatabaseTest, CopiesThatKilledProcessesLeftGoWithTheFile) {
    m_database.Close();
    m_folder.Write("Test.mdb-new-4711-1", "x");
    m_folder.Write("Test.mdb-new-4711-2", "x");
    m_folder.Write("Test.mdb2-new-1-1", "x");
    Database::DeleteFile(m_path);
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Test.mdb2-new-1-1"));
}

TEST_F(DatabaseTest, APlaceIsReservedOnce) {
    m_database.Close();
    auto mine = Database::Reserve(m_path, " of ann");
    try {
        Database::Reserve(m_path, " of bob");
        ADD_FAILURE() << "reserved twice";
    } catch (const FileInUse& failure) {
        EXPECT_EQ(failure.Number(), runtimeerror::kPermissionDenied);
        EXPECT_EQ(failure.Holder(), "process " + std::to_string(getpid()) + " of ann");
    }
    m_database.Open(m_path);  // which keeps nobody from reading
    m_database.Close();
    mine.reset();
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Test.mdb"));
    EXPECT_NE(Database::Reserve(m_path, " of bob"), nullptr);
}

TEST_F(DatabaseTest, AReservationThatAProcessLeftBehindIsTaken) {
    m_database.Close();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const auto mine = Database::Reserve(m_path, "");
        kill(getpid(), SIGKILL);
    }
    waitpid(child, nullptr, 0);
    EXPECT_THAT(FilesInFolder(), testing::Contains("Test.mdb-lock"));
    EXPECT_NE(Database::Reserve(m_path, ""), nullptr);
    EXPECT_THAT(FilesInFolder(), testing::ElementsAre("Test.mdb"));
}

TEST_F(DatabaseTest, ACompanionThatTheEngineWouldWaitForIsRefused) {
    m_database.Close();
    for (const char* companion : {"-journal", "-wal", "-shm"}) {
        const std::filesystem::path file = test::FilesystemPath(m_path).native() + companion;
        ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
        EXPECT_THROW(m_database.Open(m_path), OutputRefusal);
        EXPECT_THROW(Database::NeedRoom(m_path), OutputRefusal);
        std::filesystem::remove(file);
        std::filesystem::create_symlink("elsewhere", file);
        EXPECT_THROW(m_database.Open(m_path), OutputRefusal);
        std::filesystem::remove(file);
    }
    m_database.Open(m_path);
}

}  // namespace
}  // namespace dorvik
