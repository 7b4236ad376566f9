#include "platform/host/modPrivateFolder.h"

#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace dorvik {

namespace {

namespace fs = std::filesystem;

/// The number of a process that was there and is gone.
std::string GoneProcess() {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return std::to_string(child);
}

class modPrivateFolderTest : public testing::Test {
protected:
    /// A folder with a module in it that was last touched so many hours ago.
    fs::path AddFolder(const std::string& name, int hours) {
        m_folder.Write(name + "\\Module.dvs", "");
        const fs::path path = m_folder.HostPath() / name;
        fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(hours));
        return path;
    }

    void Clean() { modPrivateFolder::RemoveAbandoned(m_folder.Path(), "Dorvik", "Module.dvs"); }

    test::TemporaryFolder m_folder;
};

TEST_F(modPrivateFolderTest, Create_NamesTheProcessAndKeepsOthersOut) {
    const std::string path = modPrivateFolder::Create(m_folder.Path(), "Dorvik");
    const fs::path host = test::FilesystemPath(path);
    EXPECT_TRUE(path.ends_with('\\'));
    const std::string name = host.parent_path().filename().string();
    EXPECT_TRUE(name.starts_with("Dorvik" + std::to_string(::getpid()) + "-")) << name;
    EXPECT_EQ(fs::status(host).permissions(), fs::perms::owner_all);
    EXPECT_NE(modPrivateFolder::Create(m_folder.Path(), "Dorvik"), path);
}

TEST_F(modPrivateFolderTest, RemoveAbandoned_TakesTheFolderOfAProcessThatIsGone) {
    const fs::path abandoned = AddFolder("Dorvik" + GoneProcess() + "-aBc123", 2);
    Clean();
    EXPECT_FALSE(fs::exists(abandoned));
}

TEST_F(modPrivateFolderTest, RemoveAbandoned_LeavesWhatAnybodyMayStillNeed) {
    const std::string gone = "Dorvik" + GoneProcess();
    const fs::path ofALivingOne = AddFolder("Dorvik" + std::to_string(::getpid()) + "-aBc123", 2);
    const fs::path young = AddFolder(gone + "-young1", 0);
    const fs::path nameless = AddFolder("DorvikAbc-123456", 2);
    const fs::path withoutProcess = AddFolder("Dorvik-123456", 2);
    const fs::path ofOthers = AddFolder("Other1-123456", 2);
    m_folder.Write(gone + "-more12\\notes.txt", "");
    const fs::path withMore = AddFolder(gone + "-more12", 2);
    Clean();
    for (const fs::path& path : {ofALivingOne, young, nameless, withoutProcess, ofOthers}) {
        EXPECT_TRUE(fs::exists(path / "Module.dvs")) << path;
    }
    EXPECT_TRUE(fs::exists(withMore / "Module.dvs"));
}

TEST_F(modPrivateFolderTest, RemoveAbandoned_OfAFolderThatIsNotThereDoesNothing) {
    modPrivateFolder::RemoveAbandoned(m_folder.Path("missing"), "Dorvik", "Module.dvs");
}

}  // namespace

}  // namespace dorvik
