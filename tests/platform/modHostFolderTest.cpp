#include "platform/host/modHostFolder.h"

#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace dorvik {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string Shown(const modHostFolder::Entry& entry) {
    const std::string hidden = entry.IsHidden ? "(hidden)" : "";
    switch (entry.Kind) {
        case FileKind::File: return entry.Name + hidden;
        case FileKind::Folder: return entry.Name + hidden + "/";
        case FileKind::Link: return entry.Name + hidden + "@";
        case FileKind::Nothing:
        case FileKind::Pipe:
        case FileKind::Socket:
        case FileKind::Device:
        case FileKind::Unknown: break;
    }
    return entry.Name + hidden + "?";
}

TEST(modHostFolder, NamesWhatIsInAFolderAndItsKinds) {
    const test::TemporaryFolder folder;
    folder.Write("a.bas", "");
    folder.Write(".hidden", "");
    std::filesystem::create_directory(folder.HostPath() / "sub");
    std::filesystem::create_symlink("sub", folder.HostPath() / "link");
    std::vector<std::string> found;
    const auto content = modHostFolder::Entries(test::ToHostPath(folder.HostPath()));
    for (const modHostFolder::Entry& entry : content.Entries) {
        found.push_back(Shown(entry));
    }
    EXPECT_FALSE(content.Failure);
    EXPECT_THAT(found, UnorderedElementsAre("a.bas", ".hidden(hidden)", "sub/", "link@"));
}

TEST(modHostFolder, SaysWhyAFolderCannotBeRead) {
    const test::TemporaryFolder folder;
    folder.Write("a.bas", "");
    const HostPath host = test::ToHostPath(folder.HostPath());
    const auto gone = modHostFolder::Entries(host / "gone");
    EXPECT_THAT(gone.Entries, IsEmpty());
    EXPECT_EQ(gone.Failure, HostFailure::NoFolder);
    EXPECT_EQ(gone.Reason, "No such file or directory");
    const auto file = modHostFolder::Entries(host / "a.bas");
    EXPECT_THAT(file.Entries, IsEmpty());
    EXPECT_EQ(file.Failure, HostFailure::NoFolder);
    EXPECT_EQ(file.Reason, "Not a directory");
    const auto right = modHostFolder::Entries(host);
    EXPECT_THAT(right.Entries, testing::SizeIs(1));
    EXPECT_FALSE(right.Failure);
    EXPECT_EQ(right.Reason, "");
}

TEST(modHostFolder, KnowsTheKindOfALinkAndOfWhatItLeadsTo) {
    const test::TemporaryFolder folder;
    folder.Write("a.bas", "");
    std::filesystem::create_symlink("a.bas", folder.HostPath() / "link");
    std::filesystem::create_symlink("gone", folder.HostPath() / "dead");
    const HostPath host = test::ToHostPath(folder.HostPath());
    EXPECT_EQ(modHostFolder::KindOf(host / "link"), FileKind::File);
    EXPECT_EQ(modHostFolder::KindOfEntry(host / "link"), FileKind::Link);
    EXPECT_EQ(modHostFolder::KindOf(host / "dead"), FileKind::Nothing);
    EXPECT_EQ(modHostFolder::KindOfEntry(host / "dead"), FileKind::Link);
    EXPECT_EQ(modHostFolder::KindOf(host), FileKind::Folder);
    EXPECT_EQ(modHostFolder::KindOf(HostPath::FromBytes("/dev/null")), FileKind::Device);
    EXPECT_EQ(modHostFolder::KindOf(host / "gone"), FileKind::Nothing);
    EXPECT_EQ(modHostFolder::KindOf(HostPath()), FileKind::Nothing);
}

TEST(modHostFolder, FactsAreThoseOfTheFileOrSayWhyThereAreNone) {
    const test::TemporaryFolder folder;
    folder.Write("a.bas", "12345");
    const HostPath host = test::ToHostPath(folder.HostPath());
    const auto facts = modHostFolder::Facts(host / "a.bas");
    EXPECT_EQ(facts.Kind, FileKind::File);
    EXPECT_EQ(facts.Size, 5);
    const auto age = std::chrono::system_clock::now().time_since_epoch() -
                     std::chrono::nanoseconds(facts.Modified);
    EXPECT_LT(std::chrono::abs(age), std::chrono::hours(1));
    EXPECT_FALSE(facts.Failure);
    EXPECT_EQ(modHostFolder::Facts(host / "gone").Failure, HostFailure::NoFile);
    EXPECT_EQ(modHostFolder::Facts(host / "gone" / "x").Failure, HostFailure::NoFolder);
    EXPECT_EQ(modHostFolder::Facts(host / "a.bas" / "x").Failure, HostFailure::NoFolder);
}

TEST(modHostFolder, SaysWhyAFolderIsNotMadeOrNotDeleted) {
    const test::TemporaryFolder folder;
    const HostPath host = test::ToHostPath(folder.HostPath());
    EXPECT_FALSE(modHostFolder::CreateFolder(host / "sub"));
    EXPECT_EQ(modHostFolder::CreateFolder(host / "sub"), HostFailure::AlreadyThere);
    EXPECT_EQ(modHostFolder::CreateFolder(host / "gone" / "sub"), HostFailure::NoFolder);
    folder.Write("sub\\a.bas", "");
    EXPECT_EQ(modHostFolder::DeleteFolder(host / "sub"), HostFailure::NotEmpty);
    EXPECT_FALSE(modHostFolder::Delete(host / "sub" / "a.bas"));
    EXPECT_FALSE(modHostFolder::DeleteFolder(host / "sub"));
    EXPECT_EQ(modHostFolder::DeleteFolder(host / "sub"), HostFailure::NoFolder);
    EXPECT_EQ(modHostFolder::CreateUniqueFolder(host / "gone", "x").Failure, HostFailure::NoFolder);
}

TEST(modHostFolder, ReplacesAFileAndDeletesOneThatMayBeGone) {
    const test::TemporaryFolder folder;
    folder.Write("new", "new");
    folder.Write("old", "old");
    const HostPath host = test::ToHostPath(folder.HostPath());
    EXPECT_FALSE(modHostFolder::Replace(host / "new", host / "old"));
    EXPECT_EQ(folder.Read("old"), "new");
    EXPECT_EQ(modHostFolder::Replace(host / "new", host / "old"), HostFailure::NoFile);
    EXPECT_FALSE(modHostFolder::Delete(host / "old"));
    EXPECT_FALSE(modHostFolder::Delete(host / "old")) << "nothing is there, as was wanted";
    EXPECT_TRUE(modHostFolder::Delete(host)) << "a folder is no file";
}

}  // namespace
}  // namespace dorvik
