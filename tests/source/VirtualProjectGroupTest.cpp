#include "source/VirtualProjectGroup.h"

#include "base/BasicError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using test::TemporaryFolder;

std::vector<std::string> ProjectsOf(const TemporaryFolder& folder, std::string_view bytes) {
    folder.Write("Group1.vbg", bytes);
    return VirtualProjectGroup(folder.Path() + "Group1.vbg").ProjectFilenames();
}

TEST(VirtualProjectGroup, ListsTheProjectsInTheOrderOfTheFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(
        ProjectsOf(
            folder, "VBGROUP 5.0\r\nStartupProject=A\\A.vbp\r\nProject=B\\B.vbp\r\nProject=C.vbp"),
        (std::vector<std::string>{
            folder.Path() + "A\\A.vbp", folder.Path() + "B\\B.vbp", folder.Path() + "C.vbp"}));
}

TEST(VirtualProjectGroup, NamesEachProjectOnceInWhateverCase) {
    const TemporaryFolder folder;
    EXPECT_EQ(
        ProjectsOf(folder, "startupproject=A.vbp\nPROJECT=a.VBP\nProject=A.vbp\n"),
        std::vector<std::string>{folder.Path() + "A.vbp"});
}

TEST(VirtualProjectGroup, AbsolutePathsStandAsWritten) {
    const TemporaryFolder folder;
    EXPECT_EQ(
        ProjectsOf(folder, "Project=C:\\Work\\A.vbp\n"),
        std::vector<std::string>{"C:\\Work\\A.vbp"});
}

TEST(VirtualProjectGroup, PathsThatLeadUpwardsAreResolved) {
    const TemporaryFolder folder;
    folder.Write("sub\\Group1.vbg", "Project=..\\A.vbp\n");
    EXPECT_EQ(
        VirtualProjectGroup(folder.Path() + "sub\\Group1.vbg").ProjectFilenames(),
        std::vector<std::string>{folder.Path() + "A.vbp"});
}

TEST(VirtualProjectGroup, OtherLinesBlankLinesAndEmptyNamesArePassedOver) {
    const TemporaryFolder folder;
    EXPECT_EQ(
        ProjectsOf(folder, "VBGROUP 5.0\n\n[x]\nProject=\nProject = A.vbp \nOther=B.vbp\n"),
        std::vector<std::string>{folder.Path() + "A.vbp"});
    EXPECT_TRUE(ProjectsOf(folder, "").empty());
}

TEST(VirtualProjectGroup, AMissingGroupFileRaisesFileNotFound) {
    const TemporaryFolder folder;
    try {
        const VirtualProjectGroup group(folder.Path() + "none.vbg");
        FAIL() << "no error";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), runtimeerror::kFileNotFound);
    }
}

}  // namespace
}  // namespace dorvik
