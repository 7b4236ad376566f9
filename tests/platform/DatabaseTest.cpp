#include "platform/Database.h"

#include "base/BasicError.h"
#include "platform/modFiles.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace dorvik {
namespace {

std::int32_t ErrorNumberOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const BasicError& error) {
        return error.Number();
    }
    return 0;
}

/// A small database of the kinds of column that a results database has, opened.
class DatabaseTest : public testing::Test {
protected:
    void SetUp() override {
        Run("CREATE TABLE Items (ItemID INTEGER PRIMARY KEY, Name TEXT COLLATE NOCASE, Size LONG,"
            " Done YESNO NOT NULL DEFAULT 0, [End] TEXT COLLATE NOCASE);"
            "CREATE TABLE Parts (PartID INTEGER PRIMARY KEY, ItemID LONG, Weight LONG);");
        m_database.Open(m_path);
    }

    /// Runs plain statements on the file through the engine itself.
    void Run(const std::string& sql) const {
        sqlite3* engine = nullptr;
        ASSERT_EQ(sqlite3_open(modFiles::HostPath(m_path).c_str(), &engine), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(engine, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(engine);
        sqlite3_close(engine);
    }

    void Add(std::string_view name, std::int32_t size) {
        auto rows = m_database.OpenRecordset("SELECT * FROM Items WHERE ItemID = 0");
        rows.AddNew();
        rows.SetValue("Name", name);
        rows.SetValue("Size", size);
        rows.Update();
    }

    std::vector<std::string> Texts(std::string_view sql) {
        std::vector<std::string> result;
        for (auto rows = m_database.OpenRecordset(sql, RecordsetType::Snapshot); !rows.EOF_();
             rows.MoveNext()) {
            result.push_back(rows.Value(0).AsText());
        }
        return result;
    }

    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.HostPath())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    test::TemporaryFolder m_folder;
    std::string m_path = m_folder.Path() + "Test.mdb";
    Database m_database;
};

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
    std::filesystem::permissions(modFiles::HostPath(m_path), std::filesystem::perms::owner_read);
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

TEST_F(DatabaseTest, AWriteThatAnotherConnectionKeepsOutIsToldAsLocked) {
    Add("a", 1);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(modFiles::HostPath(m_path).c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(ErrorNumberOf([&] { Add("b", 2); }), databaseerror::kLocked);
    sqlite3_close(other);
    Add("c", 3);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre("a", "c"));
}

// ---- deleting ----

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
    std::filesystem::permissions(modFiles::HostPath(m_path), std::filesystem::perms::owner_read);
    Database::DeleteFile(m_path);
    EXPECT_THAT(FilesInFolder(), testing::IsEmpty());
    Database::DeleteFile(m_path);  // nothing there is no failure
}

// ---- dynasets ----

TEST_F(DatabaseTest, MoveFirstOnAnEmptySetGoesToTheRowJustAdded) {
    Add("earlier", 1);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items WHERE ItemID = 0");
    rows.AddNew();
    rows.SetValue("Name", "new");
    rows.SetValue("Done", true);
    rows.Update();
    rows.MoveFirst();
    EXPECT_EQ(rows.Value("ItemID"), Variant(2));
    EXPECT_EQ(rows.Value("name"), Variant("new"));
    EXPECT_EQ(rows.Value("Done"), Variant(true));
    EXPECT_TRUE(rows.Value("Size").IsEmpty());
    rows.MoveNext();
    EXPECT_TRUE(rows.EOF_());
    EXPECT_FALSE(rows.BOF());
}

TEST_F(DatabaseTest, AddedRowsStandOnceBehindThoseOfTheQuery) {
    Add("b", 1);
    Add("a", 2);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items ORDER BY Name");
    rows.AddNew();
    rows.SetValue("Name", "aa");
    rows.Update();
    std::vector<std::string> names;
    for (rows.MoveFirst(); !rows.EOF_(); rows.MoveNext()) {
        names.push_back(rows.Value("Name").AsText());
    }
    EXPECT_THAT(names, testing::ElementsAre("a", "b", "aa"));
}

TEST_F(DatabaseTest, AddingLeavesTheCurrentRowWhereItWas) {
    Add("a", 1);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items");
    EXPECT_EQ(rows.Value("Name").AsText(), "a");
    rows.AddNew();
    rows.SetValue("Name", "b");
    rows.Update();
    EXPECT_EQ(rows.Value("Name").AsText(), "a");
}

TEST_F(DatabaseTest, EditWritesOnlyTheFieldsSet) {
    Add("a", 1);
    Add("b", 2);
    auto rows = m_database.OpenRecordset("SELECT Size, [End] FROM Items WHERE ItemID = 2");
    ASSERT_FALSE(rows.EOF_());
    rows.Edit();
    rows.SetValue("End", "later");
    EXPECT_EQ(rows.Value("End").AsText(), "later");
    rows.Update();
    EXPECT_EQ(rows.Value("End").AsText(), "later");
    EXPECT_EQ(rows.Value("Size"), Variant(2));
    EXPECT_THAT(Texts("SELECT [End] FROM Items"), testing::ElementsAre("", "later"));
}

TEST_F(DatabaseTest, ANewRowThatWasNotWrittenIsDropped) {
    {
        auto rows = m_database.OpenRecordset("SELECT * FROM Items");
        rows.AddNew();
        rows.SetValue("Name", "a");
    }
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::IsEmpty());
}

TEST_F(DatabaseTest, ARowWithoutFieldsTakesTheDefaults) {
    auto rows = m_database.OpenRecordset("SELECT * FROM Items");
    rows.AddNew();
    rows.Update();
    rows.MoveFirst();
    EXPECT_TRUE(rows.Value("Name").IsEmpty());
    EXPECT_EQ(rows.Value("Done"), Variant(false));
}

TEST_F(DatabaseTest, BooleansAreStoredAsMinusOneAndZero) {
    auto rows = m_database.OpenRecordset("SELECT * FROM Items");
    for (const bool flag : {true, false}) {
        rows.AddNew();
        rows.SetValue("Done", flag);
        rows.SetValue("Size", flag);
        rows.Update();
    }
    rows.AddNew();
    rows.SetValue("Done", "True");  // a property can hold it as a text
    rows.Update();
    EXPECT_THAT(Texts("SELECT Size FROM Items"), testing::ElementsAre("-1", "0", ""));
    EXPECT_THAT(Texts("SELECT Done & '' FROM Items"), testing::ElementsAre("-1", "0", "-1"));
    EXPECT_THAT(
        Texts("SELECT ItemID FROM Items WHERE Done = True"), testing::ElementsAre("1", "3"));
    EXPECT_THAT(Texts("SELECT ItemID FROM Items WHERE Done = False"), testing::ElementsAre("2"));
}

TEST_F(DatabaseTest, WrongUseIsANumberedError) {
    auto rows = m_database.OpenRecordset("SELECT Name FROM Items");
    EXPECT_EQ(ErrorNumberOf([&] { rows.MoveFirst(); }), databaseerror::kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows.MoveNext(); }), databaseerror::kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Edit(); }), databaseerror::kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Value("Name"); }), databaseerror::kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Update(); }), databaseerror::kUpdateWithoutEdit);
    EXPECT_EQ(
        ErrorNumberOf([&] { rows.SetValue("Name", "a"); }), databaseerror::kUpdateWithoutEdit);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Value("Size"); }), databaseerror::kUnknownField);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Value(1); }), databaseerror::kUnknownField);
    rows.Close();
    EXPECT_EQ(ErrorNumberOf([&] { rows.EOF_(); }), databaseerror::kObjectInvalid);
}

TEST_F(DatabaseTest, UnknownTablesAndColumnsFailOnOpening) {
    for (const auto type : {RecordsetType::Dynaset, RecordsetType::Snapshot}) {
        for (const std::string_view sql :
             {"SELECT * FROM Nothing",
              "SELECT Nothing FROM Items",
              "SELECT * FROM Items WHERE Nothing = 1"}) {
            EXPECT_EQ(
                ErrorNumberOf([&] { m_database.OpenRecordset(sql, type); }),
                databaseerror::kUnknownName)
                << sql;
        }
    }
}

TEST_F(DatabaseTest, AJoinCannotBeOpenedForEditing) {
    EXPECT_EQ(
        ErrorNumberOf([&] {
            m_database.OpenRecordset(
                "SELECT Items.Name FROM Items INNER JOIN Parts ON Items.ItemID = Parts.ItemID");
        }),
        databaseerror::kReadOnly);
}

TEST_F(DatabaseTest, TextsOfAnyLengthAndKindComeBackAsTheyWere) {
    const std::string text =
        std::string(20000, 'x') + "'\"[End] \xC3\xA4\xE6\xBC\xA2" + std::string("\0y", 2);
    Add(text, 1);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre(text));
}

// ---- snapshots and statements ----

TEST_F(DatabaseTest, ASnapshotCannotBeWritten) {
    Add("a", 1);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    EXPECT_EQ(ErrorNumberOf([&] { rows.AddNew(); }), databaseerror::kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Edit(); }), databaseerror::kReadOnly);
}

TEST_F(DatabaseTest, ASnapshotCanBeReadAgainFromTheFirstRow) {
    Add("a", 1);
    Add("b", 2);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_TRUE(rows.EOF_());
    EXPECT_EQ(ErrorNumberOf([&] { rows.Value("Name"); }), databaseerror::kNoCurrentRecord);
    rows.MoveFirst();
    EXPECT_EQ(rows.Value("Name").AsText(), "a");
}

TEST_F(DatabaseTest, TwoRecordsetsOfOneTextDoNotDisturbEachOther) {
    Add("a", 1);
    Add("b", 2);
    auto outer = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    auto inner = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    inner.MoveNext();
    EXPECT_EQ(outer.Value("Name").AsText(), "a");
    EXPECT_EQ(inner.Value("Name").AsText(), "b");
}

TEST_F(DatabaseTest, WritingGoesOnWhileASnapshotIsOpen) {
    Run("INSERT INTO Items (Name) VALUES ('a'), ('b')");
    auto rows = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    Add("c", 3);
    EXPECT_EQ(rows.Value("Name").AsText(), "a");
    rows.Close();
    EXPECT_THAT(Texts("SELECT Count(ItemID) FROM Items"), testing::ElementsAre("3"));
}

TEST_F(DatabaseTest, ExecuteUpdatesTheRowsThatMatch) {
    Add("a", 1);
    Add("b", 2);
    m_database.Execute("UPDATE Items Set Size = 7, Name = 'x' WHERE ItemID = 2");
    EXPECT_THAT(Texts("SELECT Size FROM Items"), testing::ElementsAre("1", "7"));
    EXPECT_EQ(
        ErrorNumberOf([&] { m_database.Execute("SELECT * FROM Items"); }), databaseerror::kSyntax);
}

TEST_F(DatabaseTest, TextsCompareAndSortWithoutRegardToCase) {
    Add("\xC3\x84rger", 1);  // A with two dots
    Add("zebra", 2);
    Add("Apfel", 3);
    EXPECT_THAT(
        Texts("SELECT Size FROM Items WHERE Name = '\xC3\xA4RGER'"), testing::ElementsAre("1"));
    EXPECT_THAT(Texts("SELECT Size FROM Items ORDER BY Name"), testing::ElementsAre("3", "2", "1"));
}

TEST_F(DatabaseTest, NothingCountsAsAnEmptyTextWhenTextsAreJoined) {
    Add("a", 1);
    EXPECT_THAT(Texts("SELECT Name & '_' & [End] & Size FROM Items"), testing::ElementsAre("a_1"));
}

TEST_F(DatabaseTest, ASumOverNoRowsIsEmptyAndALargeOneIsADouble) {
    auto none =
        m_database.OpenRecordset("SELECT Sum(Size) AS S FROM Items", RecordsetType::Snapshot);
    EXPECT_TRUE(none.Value("S").IsEmpty());
    none.Close();
    Add("a", 2000000000);
    Add("b", 2000000000);
    auto large =
        m_database.OpenRecordset("SELECT Sum(Size) AS S FROM Items", RecordsetType::Snapshot);
    EXPECT_EQ(large.Value("S"), Variant(4000000000.0));
}

TEST_F(DatabaseTest, JoinsInBracketsSubQueriesAndUnionsRun) {
    Add("a", 1);
    Add("b", 2);
    Run("INSERT INTO Parts (ItemID, Weight) VALUES (1, 10), (2, 20), (2, 30)");
    EXPECT_THAT(
        Texts("SELECT Parts.ItemID & '_' & Parts.Weight As X, Parts.* FROM (Items INNER JOIN Parts "
              "ON "
              "Items.ItemID = Parts.ItemID)  INNER JOIN Items AS I2 ON I2.ItemID = Parts.ItemID "
              "WHERE "
              "(Items.ItemID = 2 AND Parts.Weight > 20)"),
        testing::ElementsAre("2_30"));
    EXPECT_THAT(
        Texts(
            "SELECT Count(Parts.PartID) AS N FROM (SELECT Parts.PartID, Parts.Weight FROM Items "
            "INNER "
            "JOIN Parts ON Items.ItemID = Parts.ItemID WHERE Items.ItemID = 2) WHERE Weight = 20"),
        testing::ElementsAre("1"));
    EXPECT_THAT(
        Texts("SELECT Name As X FROM Items UNION SELECT Weight & '' FROM Parts"),
        testing::UnorderedElementsAre("a", "b", "10", "20", "30"));
}

TEST_F(DatabaseTest, AQuoteInATextFailsAndCostsOnlyThatStatement) {
    EXPECT_EQ(
        ErrorNumberOf(
            [&] { m_database.OpenRecordset("SELECT * FROM Items WHERE Name = 'O'Brien'"); }),
        databaseerror::kSyntax);
    Add("O'Brien", 1);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre("O'Brien"));
}

TEST_F(DatabaseTest, MoreShapesThanAreKeptStillWork) {
    Add("a", 1);
    auto kept = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "N" + std::to_string(i);
        auto rows = m_database.OpenRecordset(
            "SELECT Size AS " + name + " FROM Items", RecordsetType::Snapshot);
        EXPECT_EQ(rows.Value(name), Variant(1));
    }
    EXPECT_EQ(kept.Value("Name").AsText(), "a");
}

}  // namespace
}  // namespace dorvik
