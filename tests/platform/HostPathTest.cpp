#include "platform/host/HostPath.h"

#include "platform/host/HostFile.h"
#include "platform/host/modHostFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <type_traits>

namespace dorvik {
namespace {

template <class Text>
constexpr bool kIsApart =
    !std::is_convertible_v<Text, HostPath> && !std::is_constructible_v<HostPath, Text> &&
    !std::is_assignable_v<HostPath&, Text> && !std::is_convertible_v<HostPath, Text> &&
    !std::is_constructible_v<Text, HostPath>;

static_assert(kIsApart<std::string>);
static_assert(kIsApart<std::string_view>);
static_assert(kIsApart<const char*>);
static_assert(kIsApart<std::filesystem::path>);
// So that a text is no path where one is asked for.
static_assert(!std::is_invocable_v<decltype(&modHostFolder::KindOf), std::string>);
static_assert(!std::is_constructible_v<HostFile, std::string, FileUse, std::string>);
static_assert(std::is_constructible_v<HostFile, HostPath, FileUse, std::string>);

HostPath Path(const char* bytes) {
    return HostPath::FromBytes(bytes);
}

TEST(HostPath, KeepsItsBytes) {
    EXPECT_EQ(Path("/K\xE4se/a.vbp").Bytes(), "/K\xE4se/a.vbp");
    EXPECT_TRUE(HostPath().IsEmpty());
    EXPECT_FALSE(Path("a").IsEmpty());
}

TEST(HostPath, LeadsToAnEntry) {
    EXPECT_EQ((Path("/home") / "a.bas").Bytes(), "/home/a.bas");
    EXPECT_EQ((Path("/home/") / "a.bas").Bytes(), "/home/a.bas");
    EXPECT_EQ((Path("/") / "a.bas").Bytes(), "/a.bas");
    EXPECT_EQ((Path("") / "a.bas").Bytes(), "a.bas");
    EXPECT_EQ((Path("/home") / "").Bytes(), "/home/");
}

TEST(HostPath, LeadsToANeighbour) {
    EXPECT_EQ(Path("/home/a.mdb").WithEnding("-wal").Bytes(), "/home/a.mdb-wal");
}

TEST(HostPath, KnowsItsFolderAndItsName) {
    const struct {
        const char* Path;
        const char* Folder;
        const char* Name;
    } rows[] = {
        {"/home/ann/a.vbp", "/home/ann", "a.vbp"},
        {"sub/a.vbp", "sub", "a.vbp"},
        {"/a.vbp", "/", "a.vbp"},
        {"a.vbp", ".", "a.vbp"},
        {"/home/ann/", "/home/ann", ""},
        {"/home//a.vbp", "/home", "a.vbp"},
        {"/", "/", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Path(row.Path).Folder().Bytes(), row.Folder) << row.Path;
        EXPECT_EQ(Path(row.Path).Name(), row.Name) << row.Path;
    }
}

TEST(HostPath, IsEqualByItsBytesAndHasAnOrder) {
    EXPECT_EQ(Path("/a"), Path("/a"));
    EXPECT_NE(Path("/a"), Path("/A"));
    EXPECT_EQ((std::set<HostPath>{Path("/b"), Path("/a"), Path("/b")}).size(), 2U);
}

}  // namespace
}  // namespace dorvik
