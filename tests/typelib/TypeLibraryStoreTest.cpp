#include "typelib/TypeLibraryStore.h"

#include "support/TemporaryFolder.h"
#include "typelib/LibraryFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace dorvik {

namespace {

using test::kKinds;
using test::LibraryBytes;
using test::TemporaryFolder;

constexpr const char* kCatalogue =
    "library FromCatalogue\nguid {6f5b1c10-8a4e-4d3a-9b61-0c2f5e7a1d01}\nversion 3.9\n"
    "class Listed\n"
    "library Other\nguid {00000001-0000-0000-0000-000000000000}\nversion 1.0\nenum Colours\n";

/// The name of the library that answers; empty if none does.
std::string NameOf(
    const ITypeLibraries& libraries,
    std::string_view guid,
    std::int32_t major,
    std::int32_t minor) {
    const auto contents = libraries.Open(guid, major, minor, 0);
    return contents ? contents->Name : "";
}

class TypeLibraryStoreTest : public ::testing::Test {
protected:
    TypeLibraryStoreTest() { m_folder.Write("catalogue\\a.txt", kCatalogue); }

    TypeLibraryPlaces Places(std::vector<std::string> folders) const {
        return {std::move(folders), {m_folder.Path("catalogue")}, ""};
    }

    TemporaryFolder m_folder;
};

}  // namespace

TEST_F(TypeLibraryStoreTest, FileAnswersBeforeTheCatalogue) {
    m_folder.Write("libs\\kinds.tlb", LibraryBytes("kinds"));
    TypeLibraryStore store(Places({m_folder.Path("libs")}));
    const auto libraries = store.ForProject("");
    const auto contents = libraries->Open(kKinds, 3, 7, 0);
    ASSERT_TRUE(contents.has_value());
    EXPECT_EQ(contents->Name, "KindsLibrary");
    EXPECT_FALSE(contents->Types.empty());
    EXPECT_EQ(store.LoadedCatalogue(), nullptr);
}

TEST_F(TypeLibraryStoreTest, CatalogueAnswersWhereNoFileDoes) {
    m_folder.Write("libs\\kinds.tlb", LibraryBytes("kinds"));
    TypeLibraryStore store(Places({m_folder.Path("libs")}));
    const auto libraries = store.ForProject("");
    EXPECT_EQ(NameOf(*libraries, "{00000001-0000-0000-0000-000000000000}", 1, 0), "Other");
    // The file is of a lower minor version than the one asked for.
    EXPECT_EQ(NameOf(*libraries, kKinds, 3, 8), "FromCatalogue");
    EXPECT_EQ(NameOf(*libraries, kKinds, 4, 0), "");
    EXPECT_EQ(NameOf(*libraries, "{00000002-0000-0000-0000-000000000000}", 1, 0), "");
    EXPECT_NE(store.LoadedCatalogue(), nullptr);
}

TEST_F(TypeLibraryStoreTest, ProjectsOwnFolderIsLookedThroughForThatProjectOnly) {
    m_folder.Write("project\\bin\\kinds.tlb", LibraryBytes("kinds"));
    TypeLibraryStore store(Places({}));
    EXPECT_EQ(NameOf(*store.ForProject(m_folder.Path("project\\")), kKinds, 3, 7), "KindsLibrary");
    EXPECT_EQ(NameOf(*store.ForProject(m_folder.Path("else\\")), kKinds, 3, 7), "FromCatalogue");
}

TEST_F(TypeLibraryStoreTest, SearchPathComesBeforeTheProjectsOwnFolder) {
    m_folder.Write("libs\\kinds.tlb", LibraryBytes("kinds"));
    m_folder.Write("project\\kinds.tlb", LibraryBytes("kinds"));
    TypeLibraryStore store(Places({m_folder.Path("libs")}));
    const auto libraries = store.ForProject(m_folder.Path("project\\"));
    EXPECT_EQ(NameOf(*libraries, kKinds, 3, 7), "KindsLibrary");
    std::filesystem::remove(m_folder.HostPath() / "project" / "kinds.tlb");
    EXPECT_EQ(NameOf(*libraries, kKinds, 3, 7), "KindsLibrary");
}

TEST_F(TypeLibraryStoreTest, FileThatHasChangedUnderUsIsLeftToTheCatalogue) {
    m_folder.Write("libs\\kinds.tlb", LibraryBytes("kinds"));
    TypeLibraryStore store(Places({m_folder.Path("libs")}));
    const auto libraries = store.ForProject("");
    EXPECT_EQ(NameOf(*libraries, kKinds, 3, 7), "KindsLibrary");
    m_folder.Write("libs\\kinds.tlb", LibraryBytes("german"));
    EXPECT_EQ(NameOf(*libraries, kKinds, 3, 7), "FromCatalogue");
}

}  // namespace dorvik
