#include "rulebase/RulebaseManagerFixture.h"
#include "support/KillRounds.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace dorvik {
namespace {

namespace fs = std::filesystem;

/// A rulebase file, and saves that go wrong in ways that a process cannot take back; these run in a
/// process of their own.
class RulebaseAtomicSaveTest : public test::RulebaseManagerFixture {
protected:
    RulebaseAtomicSaveTest() { m_rulebase.SetAutoIncrementVersion(false); }

    /// Saves a rulebase of about `size` bytes.
    bool Save(const std::string& title, std::size_t size, const std::string& path) {
        m_rulebase.SetTitle(title);
        m_rulebase.SetDescription(std::string(size, 'd'));
        return m_manager.Save(m_rulebase, path);
    }
    /// The file as it is after a save that worked.
    std::string Saved(const std::string& title, std::size_t size) {
        EXPECT_TRUE(Save(title, size, m_folder.Path("team.dvk")));
        return m_folder.Read("team.dvk");
    }
    /// True if the save failed with a box of this text, the rulebase then being dirty.
    bool FailsWith(const std::string& reason, const std::string& path) {
        return !Save("New", 300000, path) && m_rulebase.Dirty() && m_box.Messages.size() == 1 &&
               m_box.Messages[0].Text == "Error during save: " + reason;
    }
    /// Whether the check holds in a process of its own.
    static bool HoldsInAChild(const std::function<bool()>& check) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::_exit(check() ? 0 : 1);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    /// Makes the process one that permissions bind, which those of the administrator are not.
    bool BecomeBound() {
        constexpr uid_t kNobody = 65534;
        m_log.Log().SetLogFilePath("");
        return ::geteuid() != 0 || ::setuid(kNobody) == 0;
    }
    /// Nothing but this file is in the folder.
    void ExpectAlone(const std::string& name) const {
        for (const auto& entry : fs::directory_iterator(m_folder.HostPath())) {
            EXPECT_EQ(entry.path().filename(), name);
        }
    }

    Rulebase m_rulebase;
};

TEST_F(RulebaseAtomicSaveTest, AFileThatMayNotGrowLongEnoughLeavesTheOldOne) {
    const std::string old = Saved("Old", 100);
    EXPECT_TRUE(HoldsInAChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{20000, 20000};
        return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
               FailsWith("Not enough space.", m_folder.Path("team.dvk"));
    }));
    EXPECT_TRUE(m_folder.Read("team.dvk") == old);
    ExpectAlone("team.dvk");
}

/// A file system of its own on a folder, for the administrator only.
class MountedFolder {
public:
    MountedFolder(const fs::path& folder, const char* options) : m_folder(folder) {
        fs::create_directories(folder);
        m_isMounted = ::mount("tmpfs", folder.c_str(), "tmpfs", 0, options) == 0;
    }
    ~MountedFolder() {
        if (m_isMounted) {
            ::umount2(m_folder.c_str(), MNT_DETACH);
        }
    }
    MountedFolder(const MountedFolder&) = delete;
    MountedFolder& operator=(const MountedFolder&) = delete;

    bool IsMounted() const { return m_isMounted; }
    bool MakeReadOnly() const {
        return ::mount("tmpfs", m_folder.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }

private:
    fs::path m_folder;
    bool m_isMounted = false;
};

TEST_F(RulebaseAtomicSaveTest, AFullDiskLeavesTheOldFile) {
    const MountedFolder disk(m_folder.HostPath() / "disk", "size=64k");
    if (!disk.IsMounted()) {
        GTEST_SKIP() << "only the administrator may mount a small disk";
    }
    const std::string path = m_folder.Path("disk\\team.dvk");
    ASSERT_TRUE(Save("Old", 100, path));
    const std::string old = m_folder.Read("disk\\team.dvk");
    EXPECT_TRUE(FailsWith("Not enough space.", path));
    EXPECT_EQ(m_folder.Read("disk\\team.dvk"), old);
    m_box.Messages.clear();
    EXPECT_TRUE(Save("New", 200, path)) << "nothing is left of the failed save";
}

TEST_F(RulebaseAtomicSaveTest, AWriteProtectedDiskIsToldAsThat) {
    const MountedFolder disk(m_folder.HostPath() / "disk", "size=64k");
    const std::string path = m_folder.Path("disk\\team.dvk");
    if (!disk.IsMounted() || !Save("Old", 100, path) || !disk.MakeReadOnly()) {
        GTEST_SKIP() << "only the administrator may mount a read-only disk";
    }
    EXPECT_TRUE(FailsWith("Media is write-protected.", path));
    m_box.Messages.clear();
    EXPECT_TRUE(FailsWith("Media is write-protected.", m_folder.Path("disk\\new.dvk")));
}

TEST_F(RulebaseAtomicSaveTest, AFolderThatMayNotBeWrittenToLeavesTheOldFile) {
    const std::string old = Saved("Old", 100);
    fs::permissions(m_folder.HostPath(), fs::perms{0555});
    fs::permissions(m_folder.HostPath() / "team.dvk", fs::perms{0666});
    EXPECT_TRUE(HoldsInAChild(
        [&] { return BecomeBound() && FailsWith("Access denied.", m_folder.Path("team.dvk")); }));
    fs::permissions(m_folder.HostPath(), fs::perms{0755});
    EXPECT_TRUE(m_folder.Read("team.dvk") == old);
    ExpectAlone("team.dvk");
}

TEST_F(RulebaseAtomicSaveTest, AReadOnlyFileIsNotReplaced) {
    const std::string old = Saved("Old", 100);
    fs::permissions(m_folder.HostPath() / "team.dvk", fs::perms{0444});
    EXPECT_TRUE(HoldsInAChild([&] {
        fs::permissions(m_folder.HostPath(), fs::perms{0777});
        return BecomeBound() && FailsWith("Access denied.", m_folder.Path("team.dvk"));
    }));
    EXPECT_TRUE(m_folder.Read("team.dvk") == old);
    ExpectAlone("team.dvk");
}

TEST_F(RulebaseAtomicSaveTest, AMissingFolderIsAnInvalidPath) {
    EXPECT_TRUE(FailsWith("Invalid path.", m_folder.Path("none\\team.dvk")));
}

TEST_F(RulebaseAtomicSaveTest, AFolderOrADeviceInPlaceOfTheFileIsNotReplaced) {
    fs::create_directory(m_folder.HostPath() / "team.dvk");
    EXPECT_TRUE(FailsWith("Access denied.", m_folder.Path("team.dvk")));
    m_box.Messages.clear();
    EXPECT_TRUE(FailsWith("Access denied.", "\\dev\\null"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    ExpectAlone("team.dvk");
}

TEST_F(RulebaseAtomicSaveTest, AKillAtAnyMomentLeavesTheOldFileOrTheNewWhole) {
    const int rounds = test::KillRounds(30);
    constexpr std::size_t kSize = 40000;
    const std::string other = Saved("B", kSize * 2);
    const auto start = std::chrono::steady_clock::now();
    const std::string one = Saved("A", kSize);
    const auto saveTime = std::chrono::steady_clock::now() - start;
    const auto longest =
        std::chrono::duration_cast<std::chrono::microseconds>(saveTime * 6).count() + 1000;
    std::mt19937 engine(20011231);
    int finished = 0;
    for (int round = 0; round < rounds; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (;;) {
                Save("B", kSize * 2, m_folder.Path("team.dvk"));
                Save("A", kSize, m_folder.Path("team.dvk"));
            }
        }
        ::usleep(static_cast<useconds_t>(engine() % static_cast<unsigned long>(longest)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string found = m_folder.Read("team.dvk");
        ASSERT_TRUE(found == one || found == other) << "round " << round << ": " << found.size();
        finished += found == other ? 1 : 0;
    }
    EXPECT_GT(finished, 0) << "no save came to its end before a kill";
    EXPECT_TRUE(Save("C", 10, m_folder.Path("team.dvk"))) << "what a kill left is not in the way";
}

}  // namespace
}  // namespace dorvik
