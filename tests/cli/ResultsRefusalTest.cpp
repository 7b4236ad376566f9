// What is not a results database, or names what is not in it: one sentence, and nothing is touched.

#include "cli/ResultsCommandFixture.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <cstdlib>
#include <unistd.h>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class ResultsRefusal : public ResultsCommandFixture {
protected:
    /// Runs plain statements on a file through the engine itself.
    void RunSql(const std::string& name, const std::string& sql) const {
        sqlite3* engine = nullptr;
        ASSERT_EQ(sqlite3_open(Work(name).c_str(), &engine), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(engine, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(engine);
        sqlite3_close(engine);
    }

    /// A copy of the results as a review leaves it that is killed: with changes still in the log, and
    /// without its end.
    void MakeKilled(const std::string& folder) const {
        fs::create_directories(Work(folder));
        const fs::path file = Work(folder + "/Alive.mdb");
        fs::copy_file(Work(kDatabase), file);
        sqlite3* engine = nullptr;
        ASSERT_EQ(sqlite3_open(file.c_str(), &engine), SQLITE_OK);
        sqlite3_exec(
            engine,
            "PRAGMA journal_mode = WAL; UPDATE Review SET [End] = NULL;"
            "DELETE FROM ViolationStats; DELETE FROM Violations WHERE ViolationID > 4",
            nullptr,
            nullptr,
            nullptr);
        for (const char* const part : {"", "-wal", "-shm"}) {
            fs::copy_file(file.string() + part, Work(folder + "/Killed.mdb").string() + part);
        }
        sqlite3_close(engine);
        fs::remove(file);
    }

    static void ExpectRefusal(const ProgramResult& result, const std::string& sentence) {
        EXPECT_EQ(result.ExitCode, 2);
        EXPECT_EQ(result.Output, "");
        EXPECT_THAT(result.Error, HasSubstr(sentence));
        EXPECT_THAT(result.Errors(), SizeIs(1));
        ExpectClearSentences(result);
    }
};

TEST_F(ResultsRefusal, WhatIsNoResultsDatabaseIsToldAndLeftAsItIs) {
    fs::create_directories(Work("bad"));
    WriteBytes("bad/text.mdb", "This is a text, and a long one, by the standards of texts here.\n");
    WriteBytes("bad/empty.mdb", "");
    WriteBytes("bad/cut.mdb", Bytes(kDatabase).substr(0, 9000));
    for (const char* const name : {"old", "noversion", "noreview"}) {
        fs::copy_file(Work(kDatabase), Work("bad/" + std::string(name) + ".mdb"));
    }
    RunSql("bad/old.mdb", "UPDATE SystemInfo SET Version = '6.01.0000'");
    RunSql("bad/noversion.mdb", "DELETE FROM SystemInfo");
    RunSql("bad/noreview.mdb", "DELETE FROM Review");
    RunSql("bad/other.mdb", "PRAGMA journal_mode = WAL; CREATE TABLE A (B)");
    const struct {
        const char* Name;
        const char* Sentence;
    } rows[] = {
        {"bad/text.mdb", "'bad/text.mdb' is not a database"},
        {"bad/empty.mdb", "'bad/empty.mdb' is not a results database"},
        {"bad/cut.mdb", "'bad/cut.mdb' is not a database, or is damaged"},
        {"bad/old.mdb", "of version '6.01.0000' instead of '6.02.0000'; review the project again"},
        {"bad/noversion.mdb", "'bad/noversion.mdb' is not a results database"},
        {"bad/noreview.mdb", "'bad/noreview.mdb' holds no review"},
        {"bad/other.mdb", "'bad/other.mdb' is not a results database"},
    };
    for (const auto& row : rows) {
        const std::string before = Bytes(row.Name);
        for (const char* const command : {"summary", "files", "violations", "criteria"}) {
            ExpectRefusal(Run({"results", row.Name, command}), row.Sentence);
        }
        ExpectRefusal(Run({"results", row.Name, "complete", "1"}), row.Sentence);
        EXPECT_EQ(Bytes(row.Name), before) << row.Name;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(Work("bad")), {}), std::ssize(rows));
}

TEST_F(ResultsRefusal, AFileThatIsNotThereIsNotMade) {
    ExpectRefusal(
        Run({"results", "none.mdb", "summary"}), "the results database 'none.mdb' does not exist");
    ExpectRefusal(Run({"results", "none.mdb", "complete", "1"}), "does not exist");
    ExpectRefusal(Run({"results", "Dorvik", "summary"}), "'Dorvik' is a folder");
    ExpectRefusal(Run({"results", "", "summary"}), "'' does not exist");
    EXPECT_FALSE(Exists("none.mdb"));
}

TEST_F(ResultsRefusal, NamesThatAreNotInTheDatabaseAreTold) {
    ExpectRefusal(Show({"violations", "--file", "x.bas"}), "the results have no file 'x.bas'");
    ExpectRefusal(Show({"procedures", "x.bas"}), "the results have no file 'x.bas'");
    ExpectRefusal(Show({"tolerances", "--file", "x"}), "the results have no file 'x'");
    ExpectRefusal(Show({"violations", "--procedure", "Odd"}), "have no procedure 'Odd'");
    ExpectRefusal(
        Show({"violations", "--procedure", "Work", "--file", "modTwo"}),
        "have no procedure 'Work'");
    ExpectRefusal(
        Show({"files", "--severity", "9"}),
        "no severity '9' (it has 1 Fatal, 2 High, 3 Medium, 4 Low, 5 Info)");
    ExpectRefusal(Show({"violations", "--severity", "1,bad"}), "no severity 'bad'");
    ExpectRefusal(Show({"files", "--category", "Colours"}), "no category 'Colours'");
    ExpectRefusal(Show({"violations", "--kind", "odd"}), "odd not in {component,reference");
    ExpectRefusal(Show({"violations", "--sort", "odd"}), "odd not in {severity,file,line");
    ExpectRefusal(Show({"files", "--sort", "odd"}), "odd not in {name,violations");
}

TEST_F(ResultsRefusal, WrongUseNamesTheCommandThatHelps) {
    ExpectRefusal(Show({"odd"}), "unknown command 'odd' of 'dorvik results DATABASE'");
    ExpectRefusal(Show({}), "(see 'dorvik results DATABASE --help')");
    ExpectRefusal(Run({"results"}), "DATABASE is required");
    ExpectRefusal(Show({"complete"}), "(see 'dorvik results DATABASE complete --help')");
    ExpectRefusal(Show({"files", "--json", "--csv"}), "--csv");
}

TEST_F(ResultsRefusal, AKilledReviewIsShownAsFarAsItCame) {
    MakeKilled("killed");
    const ProgramResult summary = Run({"results", "killed/Killed.mdb", "summary"});
    EXPECT_EQ(summary.ExitCode, 0);
    EXPECT_THAT(summary.Error, HasSubstr("did not finish"));
    EXPECT_THAT(
        summary.Output, HasSubstr("Violations  4  (2 critical, 0 high, 1 medium, 1 low, 0 info)"));
    EXPECT_TRUE(fs::exists(Work("killed/Killed.mdb")));
    EXPECT_EQ(std::distance(fs::directory_iterator(Work("killed")), {}), 1);
    EXPECT_EQ(Run({"results", "killed/Killed.mdb", "complete", "4"}).ExitCode, 0);
    EXPECT_EQ(
        Query("killed/Killed.mdb", "SELECT Count(ViolationID) FROM Violations WHERE Completed"),
        "1");
}

TEST_F(ResultsRefusal, ADatabaseThatSomebodyWritesToCannotBeMarkedButRead) {
    sqlite3* engine = nullptr;
    ASSERT_EQ(sqlite3_open(Work(kDatabase).c_str(), &engine), SQLITE_OK);
    sqlite3_exec(engine, "PRAGMA journal_mode = WAL; BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    ExpectRefusal(Show({"complete", "1"}), "cannot be changed");
    EXPECT_EQ(Values({"violations", "--severity", "1"}, "violations", "id"), "1 3 ");
    sqlite3_close(engine);
}

TEST_F(ResultsRefusal, ADamagedTableIsToldThoughTheRestIsShown) {
    RunSql(kDatabase, "DROP TABLE LineCountStats");
    const ProgramResult result = Show({"files"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Output, HasSubstr("modOne.bas"));
    EXPECT_THAT(result.Errors(), SizeIs(1));
    EXPECT_THAT(result.Error, HasSubstr("parts of the results database"));
}

TEST_F(ResultsRefusal, AReadOnlyFolderIsNoHindranceToReading) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "nothing is read-only for the superuser";
    }
    MakeKilled("fixed");
    fs::copy_file(Work(kDatabase), Work("fixed/Whole.mdb"));
    const auto rights = fs::perms::owner_read | fs::perms::owner_exec;
    for (const auto& entry : fs::directory_iterator(Work("fixed"))) {
        fs::permissions(entry.path(), fs::perms::owner_read);
    }
    fs::permissions(Work("fixed"), rights);
    for (const char* const name : {"fixed/Whole.mdb", "fixed/Killed.mdb"}) {
        EXPECT_EQ(Run({"results", name, "violations"}).ExitCode, 0) << name;
        const ProgramResult mark = Run({"results", name, "complete", "1"});
        EXPECT_EQ(mark.ExitCode, 2) << name;
        EXPECT_THAT(mark.Error, HasSubstr("cannot be changed: it is read-only"));
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(Work("fixed")), {}), 4);
    fs::permissions(Work("fixed"), fs::perms::owner_all);
}

TEST_F(ResultsRefusal, TheDatabaseEnginesOwnProgramOpensTheFile) {
    if (std::system("command -v sqlite3 >/dev/null 2>&1") != 0) {
        GTEST_SKIP() << "the program sqlite3 is not installed";
    }
    const std::string command = "sqlite3 -batch '" + Work(kDatabase).string() +
                                "' 'PRAGMA integrity_check; SELECT count(*) FROM Violations' > '" +
                                Work("told.txt").string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(Bytes("told.txt"), "ok\n9\n");
}

}  // namespace

}  // namespace dorvik::test
