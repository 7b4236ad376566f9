// Names in a stranger's project or results database, which must not choose where pages and results go.

#include "cli/CommandLineFixture.h"
#include "cli/ReportPages.h"
#include "platform/host/modFiles.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <algorithm>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

class HostileNames : public CommandLineFixture {
protected:
    static constexpr const char* kKept = "what the user has";

    HostileNames() { WriteBytes("victim.txt", kKept); }

    /// A project below "in" with a module of that name.
    void WriteProject(const std::string& memberName) const {
        WriteBytes("in/A.vbp", "Type=Exe\r\nModule=" + memberName + "; modA.bas\r\nName=\"A\"\r\n");
        WriteLines(
            "in/modA.bas", {"Attribute VB_Name = \"modA\"", "Sub Work()", "    Stop", "End Sub"});
    }

    /// Every file below the working folder that does not lie in that folder.
    std::vector<std::string> FilesOutside(const std::string& folder) const {
        std::vector<std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(Work("."))) {
            const std::string name = fs::relative(entry.path(), Work(".")).string();
            if (entry.is_regular_file() && !name.starts_with(folder + "/")) {
                files.push_back(name);
            }
        }
        std::sort(files.begin(), files.end());
        return files;
    }

    std::vector<std::string> NamesIn(const std::string& folder) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(Work(folder))) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    void Change(const std::string& database, const std::string& sql) const {
        sqlite3* engine = nullptr;
        ASSERT_EQ(sqlite3_open(Work(database).c_str(), &engine), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(engine, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(engine);
    }

    void ExpectNothingElsewhere(const std::string& folder) const {
        EXPECT_TRUE(Bytes("victim.txt") == kKept) << "written over";
        const std::vector<std::string> inputs = {"in/A.vbp", "in/modA.bas", "victim.txt"};
        EXPECT_EQ(FilesOutside(folder), inputs);
    }
};

/// As a member's name each of them leads from the folder of the pages to the user's file.
const std::vector<std::string> kWaysOut = {
    std::string("x\\..\\..\\..\\victim.txt\0.x", 25),
    std::string("x/../../../victim.txt\0.x", 24),
    "x\\..\\..\\..\\victim.txt",
    "x\\..\\..\\..\\new\\deep",
};

TEST_F(HostileNames, AMemberCannotChooseWhereItsPageGoes) {
    for (const std::string& name : kWaysOut) {
        SCOPED_TRACE(name);
        WriteProject(name);
        Run({"review", "in/A.vbp", "--report", "detailed"});
        ExpectNothingElsewhere("in/Dorvik");
        fs::remove_all(Work("in/Dorvik"));
    }
}

TEST_F(HostileNames, NorWithFoldersForResultsAndPages) {
    for (const std::string& name : kWaysOut) {
        SCOPED_TRACE(name);
        WriteProject(name);
        Run(
            {"review",
             "in/A.vbp",
             "--report",
             "detailed",
             "--results",
             "out/a",
             "--reports",
             "out/b",
             "--report-style",
             "modern"});
        ExpectNothingElsewhere("out");
        EXPECT_THAT(NamesIn("out/b"), SizeIs(4)) << "project, project file, module, modern";
        EXPECT_THAT(BrokenLinks(PagesBelow(Work("out"))), IsEmpty());
        fs::remove_all(Work("out"));
    }
}

TEST_F(HostileNames, ADatabaseCannotChooseWhereThePagesOfItGo) {
    WriteProject("modA");
    ASSERT_EQ(Run({"review", "in/A.vbp", "--results", "out"}).ExitCode, 0);
    for (const std::string sql : {
             "UPDATE SourceFiles SET Name = 'x\\..\\..\\victim.txt'",
             "UPDATE SourceFiles SET Filename = 'x/../../victim.x.bas'",
             "UPDATE SourceFiles SET Name = CAST(x'782F2E2E2F2E2E2F76696374696D2E747874002E78' AS "
             "TEXT)",
             "UPDATE Projects SET Filename = 'x/../../victim.vbp'",
             "UPDATE Projects SET Filename = '..\\victim.vbp', Path = '\\..\\'",
         }) {
        SCOPED_TRACE(sql);
        fs::copy_file(
            Work("out/A_DORVIK.mdb"), Work("out/B.mdb"), fs::copy_options::overwrite_existing);
        Change("out/B.mdb", sql);
        Run({"report", "out/B.mdb", "--detailed", "--report-style", "modern"});
        ExpectNothingElsewhere("out");
        Run(
            {"report",
             "out/B.mdb",
             "--detailed",
             "--report-style",
             "modern",
             "--reports",
             "out/pages"});
        ExpectNothingElsewhere("out");
    }
}

TEST_F(HostileNames, MembersWhoseNamesComeOutAlikeHaveAPageEach) {
    WriteLines(
        "in/A.vbp",
        {"Type=Exe",
         "Module=a\\b; x\\mod.bas",
         "Module=a/b; y\\mod.bas",
         "Module=a_b; z\\mod.bas",
         "Name=\"A\""});
    for (const std::string folder : {"x", "y", "z"}) {
        WriteLines(
            "in/" + folder + "/mod.bas", {"Attribute VB_Name = \"mod\"", "Sub Work()", "End Sub"});
    }
    const ProgramResult result = Run({"review", "in/A.vbp", "--report", "detailed"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(PagesBelow(Work("in/Dorvik")), SizeIs(5)) << "project, project file, three modules";
    EXPECT_THAT(BrokenLinks(PagesBelow(Work("in/Dorvik"))), IsEmpty());
    EXPECT_TRUE(Exists("in/Dorvik/mod_a_b_Detail.html")) << "the ordinary one has its old name";
}

TEST_F(HostileNames, AControlCharacterInAProjectsNameIsInNoNameOfAResult) {
    WriteBytes("in/a\nb.vbp", "Type=Exe\r\nModule=modA; modA.bas\r\nName=\"A\"\r\n");
    WriteLines("in/modA.bas", {"Attribute VB_Name = \"modA\"", "Sub Work()", "End Sub"});
    Run({"review", "in", "--report", "detailed", "--report-style", "modern"});
    ASSERT_TRUE(Exists("in/Dorvik"));
    for (const std::string& name : NamesIn("in/Dorvik")) {
        EXPECT_THAT(name, Not(HasSubstr("\n")));
    }
    EXPECT_THAT(NamesIn("in/Dorvik"), SizeIs(6)) << "database, log and four pages";
}

TEST_F(HostileNames, ANameThatIsTooLongForAFileIsShortened) {
    WriteProject(std::string(300, 'm'));
    const ProgramResult result = Run({"review", "in/A.vbp", "--report", "detailed"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(PagesBelow(Work("in/Dorvik")), SizeIs(3));
    EXPECT_THAT(BrokenLinks(PagesBelow(Work("in/Dorvik"))), IsEmpty());
}

TEST_F(HostileNames, AProjectFileWithABackslashInItsNameIsToldAndNotMistakenForAnother) {
    WriteProject("modA");
    WriteBytes("in/x\\..\\A.vbp", "");
    fs::rename(Work("in/A.vbp"), Work("A.vbp"));
    const ProgramResult result = Run({"review", "in"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("backslash"));
    EXPECT_FALSE(Exists("Dorvik"));
    EXPECT_FALSE(Exists("in/Dorvik"));
}

}  // namespace

}  // namespace dorvik::test
