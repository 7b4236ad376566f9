#include "typelib/TypeLibraryIndex.h"

#include "support/ScriptedInput.h"
#include "support/TemporaryFolder.h"
#include "typelib/LibraryFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

namespace dorvik {

namespace {

using test::kKinds;
using test::LibraryBytes;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> NamesIn(TypeLibraryIndex& index, const std::string& folder) {
    std::vector<std::string> names;
    for (const IndexedTypeLibrary& library : index.LibrariesIn(folder).Libraries) {
        names.push_back(library.Name);
    }
    return names;
}

/// Gives the file another time, as a program does that replaces it.
void Touch(const TemporaryFolder& folder, const char* name) {
    const auto path = folder.HostPath() / name;
    std::filesystem::last_write_time(
        path, std::filesystem::last_write_time(path) + std::chrono::seconds(5));
}

}  // namespace

TEST(TypeLibraryIndex, ALookThroughAFolderGivesWayToInputBehindEachFile) {
    const TemporaryFolder folder;
    folder.Write("kinds.tlb", LibraryBytes("kinds"));
    folder.Write("below\\old.OLB", LibraryBytes("old"));
    folder.Write("program.exe", "no program");
    TypeLibraryIndex index("");
    test::ScriptedInput input;
    index.LibrariesIn(folder.Path());
    EXPECT_EQ(input.Yields, 3);
    index.LibrariesIn(folder.Path());
    EXPECT_EQ(input.Yields, 3) << "the folder is known";
}

TEST(TypeLibraryIndex, ALookThroughAFolderMayBeAskedForTheSameFolderWhileItGivesWay) {
    const TemporaryFolder folder;
    folder.Write("kinds.tlb", LibraryBytes("kinds"));
    folder.Write("old.tlb", LibraryBytes("old"));
    TypeLibraryIndex index("");
    test::ScriptedInput input;
    std::size_t inner = 0;
    input.OnYield = [&] {
        input.OnYield = {};
        inner = index.LibrariesIn(folder.Path()).Libraries.size();
    };
    EXPECT_EQ(index.LibrariesIn(folder.Path()).Libraries.size(), 2U);
    EXPECT_EQ(inner, 2U);
}

TEST(TypeLibraryIndex, FindsTheLibrariesInAFolderAndBelow) {
    const TemporaryFolder folder;
    folder.Write("kinds.tlb", LibraryBytes("kinds"));
    folder.Write("below\\old.OLB", LibraryBytes("old"));
    folder.Write("readme.txt", LibraryBytes("german"));
    folder.Write("program.exe", "no program");
    TypeLibraryIndex index("");
    const TypeLibraryFolderListing& listing = index.LibrariesIn(folder.Path());
    EXPECT_EQ(listing.FileCount, 3U);
    EXPECT_FALSE(listing.IsCut);
    EXPECT_THAT(listing.Faults, IsEmpty());
    ASSERT_EQ(listing.Libraries.size(), 2U);
    const IndexedTypeLibrary& kinds = listing.Libraries.front();
    EXPECT_EQ(kinds.Path, folder.Path("kinds.tlb"));
    EXPECT_EQ(kinds.Number, 1);
    EXPECT_EQ(kinds.Guid, kKinds);
    EXPECT_EQ(kinds.MajorVersion, 3);
    EXPECT_EQ(kinds.MinorVersion, 7);
    EXPECT_EQ(kinds.Name, "KindsLibrary");
    EXPECT_EQ(kinds.Description, "Kinds of Types");
    EXPECT_EQ(listing.Libraries[1].Lcid, 0x407);
}

TEST(TypeLibraryIndex, DamagedLibraryIsToldWithItsFileAndTheOthersAreFound) {
    const TemporaryFolder folder;
    const std::string bytes = LibraryBytes("kinds");
    folder.Write("broken.tlb", bytes.substr(0, bytes.size() / 3));
    folder.Write("german.tlb", LibraryBytes("german"));
    TypeLibraryIndex index("");
    const TypeLibraryFolderListing& listing = index.LibrariesIn(folder.Path());
    EXPECT_THAT(NamesIn(index, folder.Path()), ElementsAre("GermanLibrary"));
    ASSERT_FALSE(listing.Faults.empty());
    EXPECT_EQ(listing.Faults.front().Path, folder.Path("broken.tlb"));
    EXPECT_NE(listing.Faults.front().What.find("broken.tlb"), std::string::npos);
}

TEST(TypeLibraryIndex, UnchangedFileIsNotReadAgain) {
    const TemporaryFolder folder;
    const std::string indexFile = folder.Path("state\\Libraries.index");
    folder.Write("libs\\a.tlb", LibraryBytes("kinds"));
    const auto path = folder.HostPath() / "libs" / "a.tlb";
    const auto time = std::filesystem::last_write_time(path);
    {
        TypeLibraryIndex index(indexFile);
        EXPECT_THAT(NamesIn(index, folder.Path("libs")), ElementsAre("KindsLibrary"));
    }
    // The same size and time, so that only a reader could tell.
    folder.Write("libs\\a.tlb", std::string(LibraryBytes("kinds").size(), 'x'));
    std::filesystem::last_write_time(path, time);
    TypeLibraryIndex second(indexFile);
    EXPECT_THAT(NamesIn(second, folder.Path("libs")), ElementsAre("KindsLibrary"));
}

TEST(TypeLibraryIndex, ChangedFileIsReadAgain) {
    const TemporaryFolder folder;
    const std::string indexFile = folder.Path("state\\Libraries.index");
    folder.Write("libs\\a.tlb", LibraryBytes("kinds"));
    {
        TypeLibraryIndex index(indexFile);
        EXPECT_THAT(NamesIn(index, folder.Path("libs")), ElementsAre("KindsLibrary"));
    }
    folder.Write("libs\\a.tlb", LibraryBytes("german"));
    Touch(folder, "libs/a.tlb");
    {
        TypeLibraryIndex index(indexFile);
        EXPECT_THAT(NamesIn(index, folder.Path("libs")), ElementsAre("GermanLibrary"));
    }
    std::filesystem::remove(folder.HostPath() / "libs" / "a.tlb");
    TypeLibraryIndex third(indexFile);
    EXPECT_THAT(NamesIn(third, folder.Path("libs")), IsEmpty());
}

TEST(TypeLibraryIndex, FaultsOfAnUnchangedFileAreToldInEveryRun) {
    const TemporaryFolder folder;
    const std::string indexFile = folder.Path("state\\Libraries.index");
    const std::string bytes = LibraryBytes("kinds");
    folder.Write("libs\\broken.tlb", bytes.substr(0, bytes.size() / 3));
    for (int run = 0; run < 2; ++run) {
        TypeLibraryIndex index(indexFile);
        EXPECT_FALSE(index.LibrariesIn(folder.Path("libs")).Faults.empty()) << run;
    }
}

TEST(TypeLibraryIndex, FolderIsWalkedOnceInALife) {
    const TemporaryFolder folder;
    TypeLibraryIndex index("");
    EXPECT_THAT(NamesIn(index, folder.Path()), IsEmpty());
    folder.Write("kinds.tlb", LibraryBytes("kinds"));
    EXPECT_THAT(NamesIn(index, folder.Path()), IsEmpty());
}

TEST(TypeLibraryIndex, FindTakesTheFirstFolderAmongEquals) {
    const TemporaryFolder folder;
    folder.Write("one\\a.tlb", LibraryBytes("kinds"));
    folder.Write("two\\b.tlb", LibraryBytes("kinds"));
    TypeLibraryIndex index("");
    const std::vector<std::string> folders{folder.Path("two"), folder.Path("one")};
    const IndexedTypeLibrary* const found = index.Find(folders, {kKinds, 3, 7, 0});
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->Path, folder.Path("two\\b.tlb"));
    EXPECT_NE(index.Find(folders, {kKinds, 3, 2, 0}), nullptr);
    EXPECT_EQ(index.Find(folders, {kKinds, 3, 8, 0}), nullptr);
    EXPECT_EQ(index.Find(folders, {kKinds, 2, 7, 0}), nullptr);
    EXPECT_EQ(index.Find({}, {kKinds, 3, 7, 0}), nullptr);
}

}  // namespace dorvik
