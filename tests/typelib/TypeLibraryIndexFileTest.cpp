#include "typelib/TypeLibraryIndexFile.h"

#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::CapturedLog;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

IndexedTypeLibraryFile Known(const std::string& path) {
    return {
        12,
        1'700'000'000'123'456'789,
        {{path, 3, "{1}", 2, 5, 1033, "Stock", "Stock\tcontrols\nof ours"}},
        {"the library 2 of it is damaged"}};
}

}  // namespace

TEST(TypeLibraryIndexFile, WhatWasPutInIsThereInTheNextRun) {
    const TemporaryFolder folder;
    const std::string library = folder.Write("a.tlb", "x");
    const std::string path = folder.Path("state\\below\\Libraries.index");
    TypeLibraryIndexFile first(path);
    first.Put(library, Known(library));
    EXPECT_TRUE(first.Save());

    const TypeLibraryIndexFile second(path);
    const IndexedTypeLibraryFile* const file = second.Find(library);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->Size, 12);
    EXPECT_EQ(file->Modified, 1'700'000'000'123'456'789);
    EXPECT_THAT(file->Faults, ElementsAre("the library 2 of it is damaged"));
    ASSERT_EQ(file->Libraries.size(), 1U);
    const IndexedTypeLibrary& kept = file->Libraries.front();
    EXPECT_EQ(kept.Path, library);
    EXPECT_EQ(kept.Number, 3);
    EXPECT_EQ(kept.Guid, "{1}");
    EXPECT_EQ(kept.MajorVersion, 2);
    EXPECT_EQ(kept.MinorVersion, 5);
    EXPECT_EQ(kept.Lcid, 1033);
    EXPECT_EQ(kept.Name, "Stock");
    EXPECT_EQ(kept.Description, "Stock controls of ours");
}

TEST(TypeLibraryIndexFile, FilesThatAreGoneAreLeftOut) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("Libraries.index");
    TypeLibraryIndexFile index(path);
    index.Put(folder.Path("gone.tlb"), Known(folder.Path("gone.tlb")));
    EXPECT_TRUE(index.Save());
    EXPECT_EQ(TypeLibraryIndexFile(path).Find(folder.Path("gone.tlb")), nullptr);
}

TEST(TypeLibraryIndexFile, NothingIsWrittenWhereNothingWasPutIn) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("Libraries.index");
    EXPECT_TRUE(TypeLibraryIndexFile(path).Save());
    EXPECT_EQ(folder.Read("Libraries.index"), "");
}

TEST(TypeLibraryIndexFile, PlaceThatCannotBeWrittenIsNoErrorAndNotLogged) {
    const CapturedLog log;
    const TemporaryFolder folder;
    folder.Write("file", "in the way");
    for (const std::string& path : {std::string("C:\\Windows\\x.index"), folder.Path("file")}) {
        TypeLibraryIndexFile index(path == folder.Path("file") ? path + "\\x.index" : path);
        index.Put("\\a.tlb", {});
        EXPECT_FALSE(index.Save());
        EXPECT_NE(index.Find("\\a.tlb"), nullptr);
    }
    EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(TypeLibraryIndexFile, EmptyPathStandsForNoFile) {
    TypeLibraryIndexFile index("");
    index.Put("\\a.tlb", {});
    EXPECT_TRUE(index.Save());
    EXPECT_NE(index.Find("\\a.tlb"), nullptr);
}

TEST(TypeLibraryIndexFile, DamagedFileIsTakenAsEmpty) {
    const TemporaryFolder folder;
    const std::string library = folder.Write("a.tlb", "x");
    const std::string path = folder.Path("Libraries.index");
    TypeLibraryIndexFile index(path);
    index.Put(library, Known(library));
    index.Save();
    const std::string good = folder.Read("Libraries.index");
    ASSERT_NE(TypeLibraryIndexFile(path).Find(library), nullptr);
    const std::size_t lineEnd = good.find('\n');
    for (const std::string& bad :
         {std::string(),
          std::string("something else\n"),
          good.substr(0, good.size() - 1),
          good.substr(0, lineEnd),
          good + "library\t1\n",
          good + "nonsense\n",
          "Another " + good,
          good.substr(0, lineEnd + 1) + "fault\tof nothing\n",
          good + std::string(1, '\0')}) {
        folder.Write("Libraries.index", bad);
        EXPECT_EQ(TypeLibraryIndexFile(path).Find(library), nullptr) << bad;
    }
}

}  // namespace dorvik
