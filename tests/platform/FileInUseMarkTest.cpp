#include "platform/host/FileInUseMark.h"

#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>
#include <memory>

namespace dorvik {
namespace {

namespace fs = std::filesystem;
using MarkTask = std::future<std::shared_ptr<FileInUseMark>>;

class FileInUseMarkTest : public testing::Test {
protected:
    FileInUseMarkTest() { Create(); }

    void Create() const { std::ofstream(File()) << "content"; }
    fs::path File() const { return m_folder.HostPath() / "Results.mdb"; }
    HostPath Name() const { return test::ToHostPath(File()); }
    /// Sets a mark beside the test. A lock of a second descriptor counts as that of another process.
    MarkTask MarkLater() const {
        return std::async(std::launch::async, [this] { return FileInUseMark::Set(Name()); });
    }

    static bool IsDone(MarkTask& task) {
        return task.wait_for(std::chrono::milliseconds(50)) == std::future_status::ready;
    }

private:
    test::TemporaryFolder m_folder;
};

TEST_F(FileInUseMarkTest, NothingIsDoneToAFileWithAMark) {
    auto mark = FileInUseMark::Set(Name());
    bool isDone = false;
    EXPECT_FALSE(FileInUseMark::WhileUnused(Name(), [&] { isDone = true; }));
    EXPECT_FALSE(isDone);
    mark.reset();
    EXPECT_TRUE(FileInUseMark::WhileUnused(Name(), [&] { isDone = true; }));
    EXPECT_TRUE(isDone);
}

TEST_F(FileInUseMarkTest, AFileThatIsNotThereIsNotInUse) {
    fs::remove(File());
    bool isDone = false;
    EXPECT_TRUE(FileInUseMark::WhileUnused(Name(), [&] { isDone = true; }));
    EXPECT_TRUE(isDone);
}

TEST_F(FileInUseMarkTest, AMarkWaitsForADeletionAndThenFindsNoFile) {
    MarkTask task;
    EXPECT_TRUE(FileInUseMark::WhileUnused(Name(), [&] {
        task = MarkLater();
        EXPECT_FALSE(IsDone(task));
        fs::remove(File());
    }));
    EXPECT_EQ(task.get(), nullptr);
}

TEST_F(FileInUseMarkTest, AMarkThatWaitedForADeletionIsOnTheFileThatTookThePlace) {
    MarkTask task;
    EXPECT_TRUE(FileInUseMark::WhileUnused(Name(), [&] {
        task = MarkLater();
        EXPECT_FALSE(IsDone(task));
        fs::remove(File());
        Create();
    }));
    const auto mark = task.get();
    EXPECT_NE(mark, nullptr);
    EXPECT_FALSE(FileInUseMark::WhileUnused(Name(), [] {}));
}

}  // namespace
}  // namespace dorvik
