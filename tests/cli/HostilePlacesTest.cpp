// Links, pipes and other obstacles that lie where results and pages go.

#include "cli/CommandLineFixture.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// A project "A" in a folder "in", and a file of the user elsewhere.
class HostilePlaces : public CommandLineFixture {
protected:
    static constexpr const char* kKept = "what the user has";

    HostilePlaces() {
        WriteLines("in/A.vbp", {"Type=Exe", "Module=modA; modA.bas", "Name=\"A\""});
        WriteLines(
            "in/modA.bas", {"Attribute VB_Name = \"modA\"", "Sub Work()", "    Stop", "End Sub"});
        WriteBytes("home/victim.txt", kKept);
    }

    /// Runs the program; a run that waits for ever is given up early.
    ProgramResult RunBriefly(std::vector<std::string> arguments) const {
        ProgramRun::Settings settings = Settings(std::move(arguments));
        settings.Patience = std::chrono::seconds(20);
        ProgramRun run(settings);
        run.Wait();
        EXPECT_NE(run.ExitCode(), ProgramRun::kKilled) << "the program hung";
        return {run.ExitCode(), run.Output(), run.Error()};
    }

    void ExpectTheUsersFileUntouched() const {
        EXPECT_EQ(Bytes("home/victim.txt"), kKept);
        for (const auto& entry : fs::directory_iterator(Work("home"))) {
            EXPECT_EQ(entry.path().filename(), "victim.txt") << "something new lies there";
        }
    }

    /// The project was not reviewed, and a sentence names the place and says what to do.
    static void
    ExpectRefusal(const ProgramResult& result, const fs::path& place, const char* what) {
        EXPECT_EQ(result.ExitCode, 2) << result.Error;
        EXPECT_THAT(
            result.Error,
            AllOf(HasSubstr("'" + place.string() + "' is a " + what), HasSubstr("remove it")));
        EXPECT_THAT(result.Output, Not(HasSubstr("passed")));
        ExpectClearSentences(result);
    }
};

const std::vector<std::string> kResultFiles = {
    "A_DORVIK.mdb",
    "A_DORVIK.mdb-wal",
    "A_DORVIK.mdb-shm",
    "A_DORVIK.mdb-journal",
    "A_DORVIK.mdb-new",
    "A_DORVIK.mdb-lock",
    "A_DORVIK.txt"};

TEST_F(HostilePlaces, NothingIsWrittenThroughALinkAmongTheResults) {
    for (const std::string& name : kResultFiles) {
        for (const std::string target : {"../../home/victim.txt", "../../home/new.txt"}) {
            SCOPED_TRACE(name + " -> " + target);
            fs::create_directories(Work("in/Dorvik"));
            fs::create_symlink(target, Work("in/Dorvik/" + name));
            ExpectRefusal(
                RunBriefly({"review", "in/A.vbp", "--clear-log", "--report", "detailed"}),
                Work("in/Dorvik/" + name),
                "link");
            ExpectTheUsersFileUntouched();
            EXPECT_TRUE(fs::is_symlink(Work("in/Dorvik/" + name)));
            fs::remove_all(Work("in/Dorvik"));
        }
    }
}

TEST_F(HostilePlaces, NorAmongThoseInAFolderThatTheUserNamed) {
    for (const std::string& name : kResultFiles) {
        SCOPED_TRACE(name);
        fs::create_directories(Work("out"));
        fs::create_symlink("../home/victim.txt", Work("out/" + name));
        ExpectRefusal(
            RunBriefly({"review", "in/A.vbp", "--results", "out"}), Work("out/" + name), "link");
        ExpectTheUsersFileUntouched();
        fs::remove_all(Work("out"));
    }
}

TEST_F(HostilePlaces, TheFolderOfTheResultsMayNotBeALinkInTheProject) {
    for (const std::string target : {"../home", "../home/new"}) {
        SCOPED_TRACE(target);
        fs::create_symlink(target, Work("in/Dorvik"));
        ExpectRefusal(RunBriefly({"review", "in/A.vbp"}), Work("in/Dorvik"), "link");
        ExpectTheUsersFileUntouched();
        fs::remove(Work("in/Dorvik"));
    }
    fs::create_symlink("../home", Work("in/dorvik"));  // the same folder in other letters
    ExpectRefusal(RunBriefly({"review", "in/A.vbp"}), Work("in/dorvik"), "link");
    ExpectTheUsersFileUntouched();
}

TEST_F(HostilePlaces, FoldersThatTheUserNamesAndTheirParentsMayBeLinks) {
    fs::create_directories(Work("real"));
    fs::create_directory_symlink("real", Work("out"));
    fs::create_directory_symlink("in", Work("other"));
    const ProgramResult result = RunBriefly(
        {"review", "other/A.vbp", "--results", "out", "--report", "summary", "--reports", "out"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_TRUE(Exists("real/A_DORVIK.mdb"));
    EXPECT_TRUE(Exists("real/A_Dorvik.html"));
}

TEST_F(HostilePlaces, APageIsNotWrittenThroughALink) {
    const std::vector<std::pair<std::string, std::string>> pages = {
        {"A_Dorvik.html", "classic"},
        {"modA_modA_Detail.html", "classic"},
        {"A_Review.html", "modern"}};
    for (const auto& [name, style] : pages) {
        SCOPED_TRACE(name);
        fs::create_directories(Work("pages"));
        fs::create_symlink("../home/victim.txt", Work("pages/" + name));
        const ProgramResult result = RunBriefly(
            {"review",
             "in/A.vbp",
             "--report",
             "detailed",
             "--reports",
             "pages",
             "--report-style",
             style});
        EXPECT_EQ(result.ExitCode, 3) << result.Error;
        EXPECT_THAT(
            result.Errors(),
            ElementsAre(AllOf(
                HasSubstr("not written"),
                HasSubstr("'" + Work("pages/" + name).string() + "' is a link"),
                HasSubstr("remove it"))));
        ExpectTheUsersFileUntouched();
        EXPECT_TRUE(fs::is_symlink(Work("pages/" + name)));
        const ProgramResult again = RunBriefly(
            {"report",
             "in/Dorvik/A_DORVIK.mdb",
             "--detailed",
             "--reports",
             "pages",
             "--report-style",
             style});
        EXPECT_EQ(again.ExitCode, 3) << again.Error;
        EXPECT_THAT(again.Error, HasSubstr("is a link"));
        ExpectTheUsersFileUntouched();
        EXPECT_TRUE(fs::is_symlink(Work("pages/" + name)));
        fs::remove_all(Work("pages"));
    }
}

TEST_F(HostilePlaces, ABatchPageIsNotWrittenThroughALink) {
    WriteModuleProject("in/B", "    x = 1");
    fs::create_directories(Work("pages"));
    fs::create_symlink("../home/victim.txt", Work("pages/Review_batch_BatchSummary.html"));
    const ProgramResult result =
        RunBriefly({"review", "in/A.vbp", "in/B.vbp", "--report", "summary", "--reports", "pages"});
    EXPECT_EQ(result.ExitCode, 3) << result.Error;
    EXPECT_THAT(result.Error, HasSubstr("is a link"));
    ExpectTheUsersFileUntouched();
}

TEST_F(HostilePlaces, APipeInTheWayOfResultsIsRefusedAndDoesNotHoldTheReviewUp) {
    for (const std::string& name : kResultFiles) {
        SCOPED_TRACE(name);
        fs::create_directories(Work("in/Dorvik"));
        ASSERT_EQ(::mkfifo(Work("in/Dorvik/" + name).c_str(), 0600), 0);
        ExpectRefusal(
            RunBriefly({"review", "in/A.vbp", "--clear-log"}), Work("in/Dorvik/" + name), "pipe");
        fs::remove_all(Work("in/Dorvik"));
    }
}

TEST_F(HostilePlaces, AFolderInTheWayOfResultsIsRefused) {
    for (const std::string& name : kResultFiles) {
        SCOPED_TRACE(name);
        fs::create_directories(Work("in/Dorvik/" + name));
        ExpectRefusal(RunBriefly({"review", "in/A.vbp"}), Work("in/Dorvik/" + name), "folder");
        fs::remove_all(Work("in/Dorvik"));
    }
    WriteBytes("in/Dorvik", "");
    ExpectRefusal(RunBriefly({"review", "in/A.vbp"}), Work("in/Dorvik"), "file");
}

TEST_F(HostilePlaces, APipeInTheWayOfAPageIsRefused) {
    fs::create_directories(Work("pages"));
    ASSERT_EQ(::mkfifo(Work("pages/A_Dorvik.html").c_str(), 0600), 0);
    const ProgramResult result =
        RunBriefly({"review", "in/A.vbp", "--report", "summary", "--reports", "pages"});
    EXPECT_EQ(result.ExitCode, 3) << result.Error;
    EXPECT_THAT(
        result.Error, HasSubstr("'" + Work("pages/A_Dorvik.html").string() + "' is a pipe"));
}

TEST_F(HostilePlaces, APipeBesideADatabaseDoesNotHoldItsReadersUp) {
    ASSERT_EQ(RunBriefly({"review", "in/A.vbp"}).ExitCode, 0);
    for (const std::string name : {"-journal", "-wal", "-shm"}) {
        SCOPED_TRACE(name);
        const fs::path pipe = Work("in/Dorvik/A_DORVIK.mdb" + name);
        ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
        for (const std::string command : {"results", "report"}) {
            std::vector<std::string> arguments{command, "in/Dorvik/A_DORVIK.mdb"};
            if (command == "results") {
                arguments.push_back("summary");
            }
            const ProgramResult result = RunBriefly(arguments);
            EXPECT_EQ(result.ExitCode, 2) << result.Error;
            EXPECT_THAT(result.Error, HasSubstr("'" + pipe.string() + "' is a pipe"));
            EXPECT_THAT(result.Output, IsEmpty());
        }
        fs::remove(pipe);
    }
}

}  // namespace

}  // namespace dorvik::test
