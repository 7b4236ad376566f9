#include "platform/host/modHostStream.h"

#include "base/BasicError.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <thread>

namespace dorvik {
namespace {

class modHostStreamTest : public testing::Test {
protected:
    std::filesystem::path File(const std::string& name) const { return m_folder.HostPath() / name; }
    static std::string Read(const std::filesystem::path& path) {
        return modHostStream::ReadAll(test::ToHostPath(path), path.string());
    }
    static std::int32_t FailureOf(const std::filesystem::path& path) {
        try {
            Read(path);
        } catch (const BasicError& failure) {
            return failure.Number();
        }
        return 0;
    }

    test::TemporaryFolder m_folder;
};

TEST_F(modHostStreamTest, AnOrdinaryFileIsReadWhole) {
    const std::string text = std::string(100'000, 'a') + std::string(1, '\0') + "\r\n";
    m_folder.Write("a.txt", text);
    EXPECT_EQ(Read(File("a.txt")), text);
    m_folder.Write("empty.txt", "");
    EXPECT_EQ(Read(File("empty.txt")), "");
}

TEST_F(modHostStreamTest, APipeIsReadUntilItsLastWriterIsGone) {
    const std::string text(300'000, 'b');  // more than a pipe holds
    ASSERT_EQ(::mkfifo(File("pipe").c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(File("pipe"), std::ios::binary) << text; });
    EXPECT_EQ(Read(File("pipe")), text);
    writer.join();
}

TEST_F(modHostStreamTest, WhatIsNotThereAFolderAndAnEndlessDeviceAreRefused) {
    EXPECT_EQ(FailureOf(File("gone")), runtimeerror::kFileNotFound);
    EXPECT_EQ(FailureOf(m_folder.HostPath()), runtimeerror::kPathFileAccess);
    EXPECT_EQ(FailureOf("/dev/zero"), runtimeerror::kPathFileAccess);
}

}  // namespace
}  // namespace dorvik
