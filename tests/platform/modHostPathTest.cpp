#include "platform/host/modHostPath.h"

#include "base/BasicError.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace dorvik {
namespace {

namespace fs = std::filesystem;

class modHostPathTest : public testing::Test {
protected:
    fs::path Host(const std::string& name) const { return m_folder.HostPath() / name; }
    HostPath Path(const std::string& name) const { return test::ToHostPath(Host(name)); }

    test::TemporaryFolder m_folder;
};

TEST_F(modHostPathTest, WhatAUserTypesBecomesWholeAndNormal) {
    const std::string here = fs::current_path().string();
    EXPECT_EQ(modHostPath::FromUser("/a/./b//../c.vbp").Bytes(), "/a/c.vbp");
    EXPECT_EQ(modHostPath::FromUser("/a/b/").Bytes(), "/a/b/");
    EXPECT_EQ(modHostPath::FromUser("sub/../c.vbp").Bytes(), here + "/c.vbp");
    EXPECT_EQ(modHostPath::FromUser(".").Bytes(), here + "/");
}

TEST_F(modHostPathTest, WhatAUserTypesMayStayRelative) {
    EXPECT_EQ(modHostPath::FromUserRelative("sub/../c.vbp").Bytes(), "c.vbp");
    EXPECT_EQ(modHostPath::FromUserRelative("./sub//c.vbp").Bytes(), "sub/c.vbp");
    EXPECT_EQ(modHostPath::FromUserRelative("/a/../c.vbp").Bytes(), "/c.vbp");
    EXPECT_TRUE(modHostPath::FromUserRelative("").IsEmpty());
}

TEST_F(modHostPathTest, AnEmptyTextOfAUserIsRefused) {
    try {
        modHostPath::FromUser("");
        FAIL() << "nothing was raised";
    } catch (const BasicError& failure) {
        EXPECT_EQ(failure.Number(), runtimeerror::kPathNotFound);
        EXPECT_STREQ(failure.what(), "an empty text is not a path");
    }
}

TEST_F(modHostPathTest, ANameWithABackslashHasNoProgramForm) {
    EXPECT_TRUE(modHostPath::HasProgramForm(HostPath::FromBytes("/home/ann/a.vbp")));
    EXPECT_TRUE(modHostPath::HasProgramForm(HostPath::FromBytes("/")));
    EXPECT_FALSE(modHostPath::HasProgramForm(HostPath::FromBytes("/home/a\\b.vbp")));
    EXPECT_FALSE(modHostPath::HasProgramForm(HostPath::FromBytes("/home\\ann/a.vbp")));
    const HostPath japanese = HostPath::FromBytes("/\x95\x5C/a.vbp");
    EXPECT_TRUE(modHostPath::HasProgramForm(japanese, 932)) << "a byte of another character";
    EXPECT_FALSE(modHostPath::HasProgramForm(japanese, 1252));
}

TEST_F(modHostPathTest, IsShownAndOpenedByTheEngineAsItIs) {
    const HostPath path = HostPath::FromBytes("/K\xE4se/a b?.mdb");
    EXPECT_EQ(modHostPath::Shown(path), "/K\xE4se/a b?.mdb");
    EXPECT_EQ(modHostPath::ForEngine(path), "/K\xE4se/a b?.mdb");
}

TEST_F(modHostPathTest, OneFileIsTheSameByAnyPath) {
    m_folder.Write("a.dvk", "x");
    m_folder.Write("b.dvk", "x");
    fs::create_symlink("a.dvk", Host("link"));
    fs::create_hard_link(Host("a.dvk"), Host("twin"));
    EXPECT_TRUE(modHostPath::IsSameFile(Path("a.dvk"), Path("./a.dvk")));
    EXPECT_TRUE(modHostPath::IsSameFile(Path("a.dvk"), Path("link")));
    EXPECT_TRUE(modHostPath::IsSameFile(Path("a.dvk"), Path("twin")));
    EXPECT_FALSE(modHostPath::IsSameFile(Path("a.dvk"), Path("b.dvk")));
    EXPECT_FALSE(modHostPath::IsSameFile(Path("a.dvk"), Path("gone")));
    EXPECT_FALSE(modHostPath::IsSameFile(Path("gone"), Path("gone")));
}

TEST_F(modHostPathTest, TheRealPathFollowsLinks) {
    m_folder.Write("sub\\a.dvk", "x");
    fs::create_symlink("sub", Host("link"));
    fs::create_symlink("gone", Host("dead"));
    EXPECT_EQ(modHostPath::RealPath(Path("link/a.dvk")), Path("sub/a.dvk"));
    EXPECT_EQ(modHostPath::RealPath(Path("dead")), std::nullopt);
    EXPECT_EQ(modHostPath::RealPath(HostPath()), std::nullopt);
}

}  // namespace
}  // namespace dorvik
