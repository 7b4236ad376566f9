#include "platform/host/OutputRefusal.h"

#include "platform/host/modFiles.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace dorvik {
namespace {

namespace fs = std::filesystem;

/// A folder with one of each thing that is not written to.
class OutputRefusalTest : public testing::Test {
protected:
    OutputRefusalTest() {
        m_folder.Write("victim", "kept");
        fs::create_symlink("victim", Host("link"));
        fs::create_symlink("new", Host("dangling"));
        fs::create_directory(Host("folder"));
        EXPECT_EQ(::mkfifo(Host("pipe").c_str(), 0600), 0);
        MakeSocket(Host("socket"));
    }

    fs::path Host(const std::string& name) const { return m_folder.HostPath() / name; }

    static void MakeSocket(const fs::path& place) {
        const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        place.string().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(
            ::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        ::close(descriptor);
    }

    /// What is said of the place; empty where a file may be written there.
    static std::string SentenceFor(const fs::path& place) {
        try {
            modObstacles::NeedFile(test::ToHostPath(place));
        } catch (const BasicError& failure) {
            EXPECT_EQ(failure.Number(), runtimeerror::kPathFileAccess);
            return OutputRefusal::SentenceIn(failure);
        }
        return {};
    }

    test::TemporaryFolder m_folder;
};

TEST_F(OutputRefusalTest, NothingAndAnOrdinaryFileAreNoObstacles) {
    EXPECT_EQ(SentenceFor(Host("victim")), "");
    EXPECT_EQ(SentenceFor(Host("absent")), "");
    EXPECT_EQ(SentenceFor(Host("absent/deeper")), "");
}

TEST_F(OutputRefusalTest, EveryOtherThingIsNamedWithItsPlaceAndTheRemedy) {
    const std::string remedy = ": remove it, or choose another folder for results and reports";
    for (const std::string kind : {"folder", "pipe", "socket"}) {
        EXPECT_EQ(
            SentenceFor(Host(kind)),
            "'" + Host(kind).string() + "' is a " + kind + " where a file is needed" + remedy);
    }
    for (const std::string name : {"link", "dangling"}) {
        EXPECT_EQ(
            SentenceFor(Host(name)),
            "'" + Host(name).string() + "' is a link, and nothing is written through links" +
                remedy);
    }
    EXPECT_EQ(SentenceFor("/dev/null"), "'/dev/null' is a device where a file is needed" + remedy);
}

TEST_F(OutputRefusalTest, AFolderIsNeededToBeOneAndNoLinkToOne) {
    EXPECT_NO_THROW(modObstacles::NeedFolder(test::ToHostPath(Host("folder"))));
    EXPECT_NO_THROW(modObstacles::NeedFolder(test::ToHostPath(Host("absent/"))));
    fs::create_directory_symlink("folder", Host("way"));
    for (const std::string name : {"way", "way/", "victim", "pipe"}) {
        EXPECT_THROW(modObstacles::NeedFolder(test::ToHostPath(Host(name))), OutputRefusal) << name;
    }
}

TEST_F(OutputRefusalTest, AnyOtherFailureHasNoSentence) {
    EXPECT_EQ(OutputRefusal::SentenceIn(BasicError(75, "Path/File access error")), "");
}

TEST_F(OutputRefusalTest, WhatLiesInTheWayIsNotWrittenTo) {
    for (const std::string name : {"link", "dangling", "folder", "pipe", "socket"}) {
        const std::string path = m_folder.Path(name);
        EXPECT_THROW(modFiles::AppendLine(path, "x"), OutputRefusal) << name;
        EXPECT_THROW(modFiles::EmptyFile(path), OutputRefusal) << name;
        EXPECT_THROW(
            modFiles::WriteBytesAtomicallyAsNamed(m_folder.Path(), name, "x"), OutputRefusal)
            << name;
        EXPECT_THROW(modFiles::CopyFile(m_folder.Path("victim"), path), BasicError) << name;
    }
    EXPECT_EQ(m_folder.Read("victim"), "kept");
    EXPECT_FALSE(fs::exists(Host("new")));
}

}  // namespace
}  // namespace dorvik
