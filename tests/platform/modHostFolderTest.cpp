#include "platform/host/modHostFolder.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

namespace dorvik {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string Shown(const modHostFolder::Entry& entry) {
    return entry.Name + (!entry.IsFolder ? "?" : *entry.IsFolder ? "/" : "");
}

TEST(modHostFolder, NamesWhatIsInAFolderAndWhichOfItIsAFolder) {
    const test::TemporaryFolder folder;
    folder.Write("a.bas", "");
    folder.Write(".hidden", "");
    std::filesystem::create_directory(folder.HostPath() / "sub");
    std::filesystem::create_symlink("sub", folder.HostPath() / "link");
    std::error_code error;
    std::vector<std::string> found;
    for (const modHostFolder::Entry& entry : modHostFolder::Entries(folder.HostPath(), error)) {
        found.push_back(Shown(entry));
    }
    EXPECT_FALSE(error);
    EXPECT_THAT(found, UnorderedElementsAre("a.bas", ".hidden", "sub/", "link?"));
}

TEST(modHostFolder, SaysWhyAFolderCannotBeRead) {
    const test::TemporaryFolder folder;
    folder.Write("a.bas", "");
    std::error_code error;
    EXPECT_THAT(modHostFolder::Entries(folder.HostPath() / "gone", error), IsEmpty());
    EXPECT_EQ(error.value(), ENOENT);
    EXPECT_THAT(modHostFolder::Entries(folder.HostPath() / "a.bas", error), IsEmpty());
    EXPECT_EQ(error.value(), ENOTDIR);
    EXPECT_THAT(modHostFolder::Entries(folder.HostPath(), error), testing::SizeIs(1));
    EXPECT_FALSE(error);
}

}  // namespace
}  // namespace dorvik
