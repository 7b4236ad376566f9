#include "cli/CommandLineFixture.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dorvik::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class ProjectFinder : public CommandLineFixture {
protected:
    /// A project of one module in a folder.
    void WriteProject(const std::string& folder, const std::string& name) const {
        WriteLines(
            folder + "/" + name + ".vbp", {"Type=Exe", "Module=modA; modA.bas", "Name=\"A\""});
        WriteLines(folder + "/modA.bas", {"Attribute VB_Name = \"modA\"", "Sub Work()", "End Sub"});
    }

    /// Folders so deep in each other that the path of the last ones cannot be opened, by nobody.
    void MakeUnreadableFolders(const std::string& name) const {
        constexpr int kDepth = 20;
        const std::string part(250, 'd');
        int folder = ::open(Work(name).c_str(), O_RDONLY | O_DIRECTORY);
        ASSERT_GE(folder, 0);
        for (int depth = 0; depth < kDepth; ++depth) {
            ASSERT_EQ(::mkdirat(folder, part.c_str(), 0700), 0);
            const int deeper = ::openat(folder, part.c_str(), O_RDONLY | O_DIRECTORY);
            ::close(folder);
            folder = deeper;
        }
        ::close(folder);
    }
};

TEST_F(ProjectFinder, AFolderThatCannotBeReadIsNamedAndTheOthersAreSearched) {
    WriteProject("in/a", "A");
    WriteProject("in/b", "B");
    MakeUnreadableFolders("in/a");
    const ProgramResult result = Run({"review", "in"});
    EXPECT_EQ(result.ExitCode, 3) << result.Error;
    ExpectClearSentences(result);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(HasSubstr("cannot read the folder '" + Work("in/a").string())));
    EXPECT_THAT(result.Output, HasSubstr("A.vbp"));
    EXPECT_THAT(result.Output, HasSubstr("B.vbp"));
}

TEST_F(ProjectFinder, NothingButAFolderThatCannotBeReadIsNothingDone) {
    WriteBytes("in/readme.txt", "");
    MakeUnreadableFolders("in");
    const ProgramResult result = Run({"review", "in"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("cannot read the folder"));
    EXPECT_THAT(result.Error, Not(HasSubstr("there is no project file"))) << "nobody knows";
}

TEST_F(ProjectFinder, AByteOfAnotherCharacterIsNoBackslash) {
    WriteProject("in/\x95\x5C", "A");  // one character of code page 932
    const ProgramResult result = Run({"review", "in", "--code-page", "932"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
}

TEST_F(ProjectFinder, ALinkToAFolderIsNotFollowed) {
    WriteProject("in", "A");
    std::filesystem::create_directory_symlink("..", Work("in/up"));
    EXPECT_EQ(Run({"review", "in"}).ExitCode, 0);
}

}  // namespace

}  // namespace dorvik::test
