#include "typelib/modTypeLibraryFolder.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace dorvik {

namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The paths as seen from the folder.
std::vector<std::string> NamesBelow(
    const TemporaryFolder& folder,
    const std::string& path,
    const TypeLibraryFolderLimits& limits = {}) {
    std::vector<std::string> names;
    for (const TypeLibraryCandidate& file : modTypeLibraryFolder::FilesBelow(path, limits).Files) {
        names.push_back(file.Path.substr(folder.Path().size()));
    }
    return names;
}

}  // namespace

TEST(modTypeLibraryFolder, CandidatesAreKnownByTheirExtensionInAnyCase) {
    for (const char* const name : {"a.tlb", "a.OLB", "a.Dll", "a.ocx", "a.EXE"}) {
        EXPECT_TRUE(modTypeLibraryFolder::IsCandidate(name)) << name;
    }
    for (const char* const name : {"a.txt", "tlb", "a.tlb.bak", "a.vbp", ""}) {
        EXPECT_FALSE(modTypeLibraryFolder::IsCandidate(name)) << name;
    }
}

TEST(modTypeLibraryFolder, OwnFilesComeBeforeThoseBelowAndEachLevelInTheOrderOfNames) {
    const TemporaryFolder folder;
    folder.Write("b.tlb", "1");
    folder.Write("A.OCX", "22");
    folder.Write("readme.txt", "no");
    folder.Write("aa\\z.dll", "1");
    folder.Write("aa\\deep\\x.exe", "1");
    folder.Write("bb\\a.olb", "1");
    EXPECT_THAT(
        NamesBelow(folder, folder.Path()),
        ElementsAre("A.OCX", "b.tlb", "aa\\z.dll", "bb\\a.olb", "aa\\deep\\x.exe"));
    const auto files = modTypeLibraryFolder::FilesBelow(folder.Path()).Files;
    EXPECT_EQ(files.front().Size, 2);
    EXPECT_GT(files.front().Modified, 0);
}

TEST(modTypeLibraryFolder, PathThatNamesAFileGivesThatFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("b.bin", "1");
    EXPECT_THAT(NamesBelow(folder, path), ElementsAre("b.bin"));
}

TEST(modTypeLibraryFolder, AbsentFolderHoldsNothing) {
    const TemporaryFolder folder;
    EXPECT_THAT(NamesBelow(folder, folder.Path("absent")), IsEmpty());
    EXPECT_THAT(NamesBelow(folder, "C:\\Windows"), IsEmpty());
}

TEST(modTypeLibraryFolder, WalkEndsAtTheDepth) {
    const TemporaryFolder folder;
    folder.Write("0.tlb", "");
    folder.Write("1\\1.tlb", "");
    folder.Write("1\\2\\2.tlb", "");
    EXPECT_THAT(NamesBelow(folder, folder.Path(), {1, 1000}), ElementsAre("0.tlb", "1\\1.tlb"));
    EXPECT_THAT(NamesBelow(folder, folder.Path(), {0, 1000}), ElementsAre("0.tlb"));
    EXPECT_FALSE(modTypeLibraryFolder::FilesBelow(folder.Path(), {0, 1000}).IsCut);
}

TEST(modTypeLibraryFolder, WalkEndsAtTheNumberOfEntriesAndSaysSo) {
    const TemporaryFolder folder;
    for (const char* const name : {"a.txt", "b.tlb", "c.tlb", "d\\e.tlb"}) {
        folder.Write(name, "");
    }
    const TypeLibraryFolderFiles cut = modTypeLibraryFolder::FilesBelow(folder.Path(), {8, 2});
    EXPECT_THAT(cut.Files, SizeIs(1));
    EXPECT_TRUE(cut.IsCut);
    EXPECT_FALSE(modTypeLibraryFolder::FilesBelow(folder.Path(), {8, 5}).IsCut);
}

TEST(modTypeLibraryFolder, HiddenFoldersBelowArePassedOver) {
    const TemporaryFolder folder;
    folder.Write(".git\\a.tlb", "");
    folder.Write("open\\b.tlb", "");
    EXPECT_THAT(NamesBelow(folder, folder.Path()), ElementsAre("open\\b.tlb"));
    EXPECT_THAT(NamesBelow(folder, folder.Path(".git")), ElementsAre(".git\\a.tlb"));
}

TEST(modTypeLibraryFolder, LinksInACircleAreFollowedOnce) {
    const TemporaryFolder folder;
    folder.Write("in\\a.tlb", "");
    std::filesystem::create_directory_symlink(
        folder.HostPath(), folder.HostPath() / "in" / "around");
    EXPECT_THAT(NamesBelow(folder, folder.Path()), ElementsAre("in\\a.tlb"));
}

TEST(modTypeLibraryFolder, LinkThatLeadsNowhereIsPassedOver) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder.HostPath() / "a.tlb");
    folder.Write("b.tlb", "");
    EXPECT_THAT(NamesBelow(folder, folder.Path()), ElementsAre("b.tlb"));
}

}  // namespace dorvik
