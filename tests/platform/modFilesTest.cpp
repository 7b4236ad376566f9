#include "platform/host/modFiles.h"

#include "base/BasicError.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace dorvik {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

std::int32_t ErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const BasicError& error) {
        return error.Number();
    }
    return 0;
}

class modFilesTest : public testing::Test {
protected:
    ~modFilesTest() override { modHostPath::SetNameCodePage(1252); }

    std::string Inside(const std::string& name) const { return m_folder.Path() + name; }
    fs::path Host(const std::string& name) const { return m_folder.HostPath() / name; }

    void Put(const std::string& name, const std::string& bytes = "x") const {
        fs::create_directories(Host(name).parent_path());
        std::ofstream(Host(name), std::ios::binary) << bytes;
    }

    /// A folder that has not changed for long is one whose names are remembered.
    void MakeFolderLookOld(const std::string& name) const {
        fs::last_write_time(Host(name), fs::file_time_type::clock::now() - std::chrono::hours(1));
    }

    test::TemporaryFolder m_folder;
};

TEST_F(modFilesTest, BackslashesBecomeTheHostsSeparators) {
    Put("sub/a.bas");
    EXPECT_EQ(test::FilesystemPath(Inside("sub\\a.bas")), Host("sub/a.bas"));
    EXPECT_EQ(test::FilesystemPath(Inside("sub/a.bas")), Host("sub/a.bas"));
    EXPECT_EQ(test::FilesystemPath(Inside("\\sub\\\\a.bas")), Host("sub/a.bas"));
    EXPECT_EQ(test::FilesystemPath("\\"), "/");
}

TEST_F(modFilesTest, PartsThatMatchOnlyCaseBlindAreFound) {
    Put("Forms/frmMain.FRM");
    Put("Übung/Ärger.bas");
    EXPECT_EQ(test::FilesystemPath(Inside("forms\\FRMMAIN.frm")), Host("Forms/frmMain.FRM"));
    EXPECT_EQ(test::FilesystemPath(Inside("üBUNG\\ärger.BAS")), Host("Übung/Ärger.bas"));
    EXPECT_TRUE(modFiles::FileExists(Inside("FORMS\\frmmain.frm")));
    EXPECT_TRUE(modFiles::FolderExists(Inside("FORMS")));
}

TEST_F(modFilesTest, ExactNameIsPreferredToOneThatDiffersInCase) {
    Put("a.bas", "small");
    Put("A.bas", "large");
    Put("A.BAS", "shout");
    EXPECT_EQ(modFiles::ReadBytes(Inside("a.bas")), "small");
    EXPECT_EQ(modFiles::ReadBytes(Inside("A.bas")), "large");
    EXPECT_EQ(modFiles::ReadBytes(Inside("a.BAS")), "shout");  // the first in byte order
}

TEST_F(modFilesTest, FileIsFoundInTheTwinFolderThatHoldsIt) {
    Put("Shared/modA.bas");
    Put("shared/modB.bas");
    EXPECT_EQ(test::FilesystemPath(Inside("shared\\modA.bas")), Host("Shared/modA.bas"));
    EXPECT_EQ(test::FilesystemPath(Inside("SHARED\\MODB.bas")), Host("shared/modB.bas"));
}

TEST_F(modFilesTest, ManyFoldersThatDifferOnlyInCaseEndTheSearchAllTheSame) {
    for (int bits = 0; bits < 16; ++bits) {
        std::string name;
        for (int bit = 0; bit < 4; ++bit) {
            name += (bits >> bit & 1) != 0 ? 'A' : 'a';
        }
        for (const char* deeper : {"bb", "bB", "Bb", "BB"}) {
            fs::create_directories(Host(name) / deeper / "c" / "d");
            fs::create_directories(Host(name) / deeper / "C" / "d");
        }
    }
    EXPECT_FALSE(modFiles::FileExists(Inside("aaaa\\bb\\c\\d\\absent.bas")));
}

TEST_F(modFilesTest, WhatIsFoundNowhereIsKeptAsWrittenBelowTheFolderThatWasMeant) {
    Put("Results/old.txt");
    EXPECT_EQ(test::FilesystemPath(Inside("RESULTS\\New.txt")), Host("Results/New.txt"));
    EXPECT_EQ(test::FilesystemPath(Inside("RESULTS\\Sub\\New.txt")), Host("Results/Sub/New.txt"));
}

TEST_F(modFilesTest, FileThatAppearsDuringTheRunIsFound) {
    Put("src/a.bas");
    for (const char* name : {"New1.bas", "New2.bas", "New3.bas"}) {
        MakeFolderLookOld("src");
        const std::string asWritten = Inside("src\\" + std::string(name).replace(0, 3, "nEW"));
        EXPECT_FALSE(modFiles::FileExists(asWritten));
        EXPECT_FALSE(modFiles::FileExists(asWritten));
        Put(std::string("src/") + name);
        EXPECT_TRUE(modFiles::FileExists(asWritten)) << name;
    }
}

TEST_F(modFilesTest, FileThatDisappearsDuringTheRunIsMissing) {
    Put("src/a.bas");
    MakeFolderLookOld("src");
    EXPECT_TRUE(modFiles::FileExists(Inside("src\\A.BAS")));
    fs::remove(Host("src/a.bas"));
    EXPECT_FALSE(modFiles::FileExists(Inside("src\\A.BAS")));
}

TEST_F(modFilesTest, ParentPartsAreTakenOffAsText) {
    Put("Shared/a.bas");
    fs::create_directory(Host("Project"));
    EXPECT_EQ(test::FilesystemPath(Inside("Project\\..\\Shared\\a.bas")), Host("Shared/a.bas"));
    EXPECT_EQ(test::FilesystemPath(Inside("absent\\..\\shared\\.\\A.bas")), Host("Shared/a.bas"));
    EXPECT_EQ(test::FilesystemPath("\\..\\.."), "/");
    EXPECT_EQ(test::FilesystemPath("..\\..\\no such file"), "../../no such file");
    EXPECT_EQ(test::FilesystemPath("no such folder\\.."), ".");
}

TEST_F(modFilesTest, DriveLettersNetworkPathsNulsAndTheEmptyPathNameNothing) {
    for (const std::string& path : {
             std::string(),
             std::string("C:\\x.bas"),
             std::string("c:x.bas"),
             std::string("Z:\\"),
             std::string("\\\\server\\share\\x.bas"),
             std::string("//server/share"),
             Inside("a.bas") + std::string(1, '\0') + "b",
         }) {
        Put("a.bas");
        EXPECT_EQ(test::FilesystemPath(path), fs::path()) << path;
        EXPECT_FALSE(modFiles::FileExists(path)) << path;
        EXPECT_FALSE(modFiles::FolderExists(path)) << path;
        for (const auto& call : std::vector<std::function<void()>>{
                 [&] { modFiles::ReadBytes(path); },
                 [&] { modFiles::FileSize(path); },
                 [&] { modFiles::DeleteFile(path); },
                 [&] { modFiles::CreateFolder(path); },
                 [&] { modFiles::CopyFile(path, Inside("b")); },
                 [&] { modFiles::CopyFile(Inside("a.bas"), path); },
                 [&] { modFiles::AppendLine(path, "x"); },
                 [&] { modFiles::EmptyFile(path); },
                 [&] { modFiles::WriteBytesAtomically(path, "x"); },
                 [&] { modFiles::FolderEntries(path); },
             }) {
            EXPECT_EQ(ErrorOf(call), runtimeerror::kPathNotFound) << path;
        }
    }
}

TEST_F(modFilesTest, ShortNamesAndWildcardsMatchNothing) {
    Put("Project1.vbp");
    EXPECT_FALSE(modFiles::FileExists(Inside("PROJEC~1.VBP")));
    EXPECT_FALSE(modFiles::FileExists(Inside("*.vbp")));
    EXPECT_FALSE(modFiles::FileExists(Inside("Project?.vbp")));
}

TEST_F(modFilesTest, TrailingBlanksAndDotsOfANameAreNotSeen) {
    Put("Forms/frmMain.frm");
    EXPECT_TRUE(modFiles::FileExists(Inside("Forms \\frmMain.frm. ")));
    EXPECT_FALSE(modFiles::FileExists(Inside("Forms\\...\\frmMain.frm")));
}

TEST_F(modFilesTest, NameThatIsNotUtf8IsFoundThroughItsCodePage) {
    Put("Formul\xE1rio.frm", "Latin");
    Put("\xD4\xEE\xF0\xEC\xE0.frm", "Cyrillic");
    Put("\x95\x5C/\x9F\x5F.bas", "Japanese");
    EXPECT_EQ(modFiles::ReadBytes(Inside("Formulário.frm")), "Latin");
    EXPECT_EQ(modFiles::ReadBytes(Inside("FORMULÁRIO.FRM")), "Latin");
    EXPECT_EQ(modFiles::ReadBytes(Inside("форма.frm"), 1251), "Cyrillic");
    EXPECT_EQ(modFiles::ReadBytes(Inside("表\\歙.bas"), 932), "Japanese");
    EXPECT_EQ(
        ErrorOf([&] { modFiles::ReadBytes(Inside("форма.frm")); }), runtimeerror::kFileNotFound);
}

TEST_F(modFilesTest, NameCodePageServesEveryOperationThatNamesNone) {
    Put("\xD4\xEE\xF0\xEC\xE0.frm", "Cyrillic");
    EXPECT_FALSE(modFiles::FileExists(Inside("Форма.frm")));
    modHostPath::SetNameCodePage(1251);
    EXPECT_TRUE(modFiles::FileExists(Inside("Форма.frm")));
    EXPECT_EQ(modFiles::FolderEntries(m_folder.Path()).at(0).Name, "Форма.frm");
}

TEST_F(modFilesTest, HostPathReadsBackAsTheProgramsPath) {
    EXPECT_EQ(test::ProgramPath("/home/ann/a.vbp"), "\\home\\ann\\a.vbp");
    EXPECT_EQ(test::ProgramPath("sub/a.vbp"), "sub\\a.vbp");
    EXPECT_EQ(test::ProgramPath("/home/ann/"), "\\home\\ann\\");
    EXPECT_EQ(test::ProgramPath("/"), "\\");
    EXPECT_EQ(test::ProgramPath(""), "");
    EXPECT_EQ(test::ProgramPath("/K\xE4se/\xC3\xA4.vbp"), "\\Käse\\ä.vbp");
    EXPECT_EQ(test::ProgramPath("/\x95\x5C/a", 932), "\\表\\a");
    Put("\x95\x5C/a.vbp");
    const std::string path = test::ProgramPath(Host("\x95\x5C/a.vbp"), 932);
    EXPECT_EQ(test::FilesystemPath(path, 932), Host("\x95\x5C/a.vbp"));
}

TEST_F(modFilesTest, FileExistsIsTrueForFilesOnlyAndFolderExistsForFoldersOnly) {
    Put("sub/a.bas");
    EXPECT_TRUE(modFiles::FileExists(Inside("sub\\a.bas")));
    EXPECT_FALSE(modFiles::FileExists(Inside("sub\\a.bas\\")));
    EXPECT_FALSE(modFiles::FileExists(Inside("sub")));
    EXPECT_FALSE(modFiles::FileExists(Inside("sub\\b.bas")));
    EXPECT_TRUE(modFiles::FolderExists(Inside("sub")));
    EXPECT_TRUE(modFiles::FolderExists(Inside("sub\\")));
    EXPECT_FALSE(modFiles::FolderExists(Inside("sub\\a.bas")));
    EXPECT_FALSE(modFiles::FolderExists(Inside("absent")));
}

TEST_F(modFilesTest, FolderEntriesAreOrderedByNameWithoutRegardToCase) {
    Put("b.bas");
    Put("A.bas");
    Put("C/inner.bas");
    Put(".hidden");
    Put("K\xE4se.bas");
    std::vector<std::string> names;
    for (const modFiles::FolderEntry& entry : modFiles::FolderEntries(m_folder.Path())) {
        names.push_back(entry.Name);
        EXPECT_EQ(entry.IsFolder, entry.Name == "C") << entry.Name;
        EXPECT_EQ(entry.IsHidden, entry.Name == ".hidden") << entry.Name;
    }
    EXPECT_THAT(names, ElementsAre(".hidden", "A.bas", "b.bas", "C", "Käse.bas"));
    EXPECT_THAT(modFiles::FolderEntries(Inside("c")), testing::SizeIs(1));
    fs::create_directory(Host("empty"));
    EXPECT_THAT(modFiles::FolderEntries(Inside("empty")), IsEmpty());
}

TEST_F(modFilesTest, FolderEntriesOfNoFolderRaisePathNotFound) {
    Put("a.bas");
    for (const char* name : {"absent", "a.bas", "absent\\deeper"}) {
        EXPECT_EQ(
            ErrorOf([&] { modFiles::FolderEntries(Inside(name)); }), runtimeerror::kPathNotFound)
            << name;
    }
}

TEST_F(modFilesTest, ReadsWholeFilesAndTheirSizes) {
    const std::string bytes = std::string("a\0b\r\n\xFF", 6);
    Put("a.bin", bytes);
    Put("empty.bin", "");
    EXPECT_EQ(modFiles::ReadBytes(Inside("A.bin")), bytes);
    EXPECT_EQ(modFiles::FileSize(Inside("A.bin")), 6);
    EXPECT_EQ(modFiles::ReadBytes(Inside("empty.bin")), "");
    EXPECT_EQ(modFiles::FileSize(Inside("empty.bin")), 0);
}

TEST_F(modFilesTest, StampChangesWithSizeAndTimeAndWithNothingElse) {
    Put("a.bin", "123456");
    const modFiles::FileStamp stamp = modFiles::StampOf(Inside("A.bin"));
    EXPECT_EQ(stamp.Size, 6);
    EXPECT_GT(stamp.Modified, 0);
    modFiles::ReadBytes(Inside("a.bin"));
    EXPECT_EQ(modFiles::StampOf(Inside("a.bin")), stamp);
    const std::filesystem::path host = test::FilesystemPath(Inside("a.bin"));
    const auto time = std::filesystem::last_write_time(host);
    std::filesystem::last_write_time(host, time + std::chrono::microseconds(3));
    const modFiles::FileStamp later = modFiles::StampOf(Inside("a.bin"));
    EXPECT_EQ(later.Modified, stamp.Modified + 3000);
    EXPECT_NE(later, stamp);
    EXPECT_EQ(ErrorOf([&] { modFiles::StampOf(Inside("absent")); }), runtimeerror::kFileNotFound);
}

TEST_F(modFilesTest, MissingFileIsToldApartFromMissingFolder) {
    Put("a.bas");
    const std::vector<std::pair<std::string, std::int32_t>> rows = {
        {"absent.bas", runtimeerror::kFileNotFound},
        {"absent\\b.bas", runtimeerror::kPathNotFound},
        {"a.bas\\b.bas", runtimeerror::kPathNotFound},
        {std::string(300, 'x'), runtimeerror::kPathNotFound},
    };
    for (const auto& [name, number] : rows) {
        EXPECT_EQ(ErrorOf([&] { modFiles::ReadBytes(Inside(name)); }), number) << name;
    }
    EXPECT_EQ(ErrorOf([&] { modFiles::FileSize(Inside("absent")); }), runtimeerror::kFileNotFound);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::DeleteFile(Inside("absent")); }), runtimeerror::kFileNotFound);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::FileSize(Inside("absent\\b")); }), runtimeerror::kPathNotFound);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::CopyFile(Inside("absent"), Inside("b")); }),
        runtimeerror::kFileNotFound);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::AppendLine(Inside("absent\\b.txt"), "x"); }),
        runtimeerror::kPathNotFound);
}

TEST_F(modFilesTest, DescriptionNamesThePathAsItWasGiven) {
    try {
        modFiles::ReadBytes("C:\\Projects\\Café.vbp");
        ADD_FAILURE() << "nothing raised";
    } catch (const BasicError& error) {
        EXPECT_STREQ(error.what(), "Path not found: 'C:\\Projects\\Café.vbp'");
    }
}

TEST_F(modFilesTest, FolderInPlaceOfAFileRaisesPathFileAccessError) {
    Put("Form1.frm/inner.txt");
    Put("a.bas");
    const std::string folder = Inside("Form1.frm");
    for (const auto& call : std::vector<std::function<void()>>{
             [&] { modFiles::ReadBytes(folder); },
             [&] { modFiles::FileSize(folder); },
             [&] { modFiles::DeleteFile(folder); },
             [&] { modFiles::CopyFile(folder, Inside("b")); },
             [&] { modFiles::CopyFile(Inside("a.bas"), folder); },
             [&] { modFiles::AppendLine(folder, "x"); },
             [&] { modFiles::EmptyFile(folder); },
             [&] { modFiles::WriteBytesAtomically(folder, "x"); },
             [&] { modFiles::CreateFolder(folder); },
         }) {
        EXPECT_EQ(ErrorOf(call), runtimeerror::kPathFileAccess);
    }
    EXPECT_TRUE(modFiles::FileExists(folder + "\\inner.txt"));
}

TEST_F(modFilesTest, PipesAndDevicesAreRefusedWithoutWaiting) {
    ASSERT_EQ(::mkfifo(Host("pipe.bas").c_str(), 0600), 0);
    for (const std::string& path : {Inside("pipe.bas"), std::string("\\dev\\zero")}) {
        EXPECT_EQ(ErrorOf([&] { modFiles::ReadBytes(path); }), runtimeerror::kPathFileAccess);
    }
    EXPECT_EQ(
        ErrorOf([&] { modFiles::AppendLine(Inside("pipe.bas"), "x"); }),
        runtimeerror::kPathFileAccess);
}

TEST_F(modFilesTest, FileOfTwoGigabytesIsRefused) {
    Put("huge.bas");
    fs::resize_file(Host("huge.bas"), 0x7FFFFFFF);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::ReadBytes(Inside("huge.bas")); }), runtimeerror::kPathFileAccess);
}

TEST_F(modFilesTest, FileThatMayNotBeReadRaisesPermissionDenied) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "the administrator may read every file";
    }
    Put("secret.bas");
    fs::permissions(Host("secret.bas"), fs::perms::none);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::ReadBytes(Inside("secret.bas")); }),
        runtimeerror::kPermissionDenied);
}

TEST_F(modFilesTest, DeletesReadOnlyFilesAndLinksButNotWhatTheLinkNames) {
    Put("readonly.txt");
    fs::permissions(Host("readonly.txt"), fs::perms::owner_read);
    modFiles::DeleteFile(Inside("READONLY.txt"));
    EXPECT_FALSE(fs::exists(Host("readonly.txt")));
    Put("target.txt");
    fs::permissions(Host("target.txt"), fs::perms::owner_read);
    fs::create_symlink(Host("target.txt"), Host("link.txt"));
    modFiles::DeleteFile(Inside("link.txt"));
    EXPECT_FALSE(fs::exists(fs::symlink_status(Host("link.txt"))));
    EXPECT_EQ(fs::status(Host("target.txt")).permissions(), fs::perms::owner_read);
}

TEST_F(modFilesTest, CreatesOneFolderAtATime) {
    modFiles::CreateFolder(Inside("one"));
    modFiles::CreateFolder(Inside("ONE\\two\\"));
    EXPECT_TRUE(fs::is_directory(Host("one/two")));
    EXPECT_EQ(
        ErrorOf([&] { modFiles::CreateFolder(Inside("x\\y")); }), runtimeerror::kPathNotFound);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::CreateFolder(Inside("ONE")); }), runtimeerror::kPathFileAccess);
}

TEST_F(modFilesTest, CopyTakesNoNameThatIsThereAndCanBeWrittenTo) {
    Put("template.mdb", "new");
    Put("results.mdb", "old and longer");
    fs::permissions(Host("template.mdb"), fs::perms::owner_read);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::CopyFile(Inside("TEMPLATE.mdb"), Inside("Results.mdb")); }),
        runtimeerror::kPathFileAccess);
    EXPECT_EQ(modFiles::ReadBytes(Inside("results.mdb")), "old and longer");
    modFiles::CopyFile(Inside("template.mdb"), Inside("second.mdb"));
    EXPECT_NE(
        fs::status(Host("second.mdb")).permissions() & fs::perms::owner_write, fs::perms::none);
    EXPECT_EQ(modFiles::ReadBytes(Inside("second.mdb")), "new");
    EXPECT_EQ(
        ErrorOf([&] { modFiles::CopyFile(Inside("template.mdb"), Inside("absent\\x.mdb")); }),
        runtimeerror::kPathNotFound);
}

TEST_F(modFilesTest, AppendsLinesWithCarriageReturnAndLineFeed) {
    modFiles::AppendLine(Inside("log.txt"), "first");
    modFiles::AppendLine(Inside("LOG.txt"), "");
    modFiles::AppendLine(Inside("log.txt"), "Käse");
    EXPECT_EQ(modFiles::ReadBytes(Inside("log.txt")), "first\r\n\r\nKäse\r\n");
}

TEST_F(modFilesTest, EmptiesAFileOrCreatesAnEmptyOne) {
    Put("log.txt", "content");
    modFiles::EmptyFile(Inside("Log.txt"));
    modFiles::EmptyFile(Inside("new.txt"));
    EXPECT_EQ(modFiles::FileSize(Inside("log.txt")), 0);
    EXPECT_EQ(modFiles::FileSize(Inside("new.txt")), 0);
}

TEST_F(modFilesTest, WriteBytesAtomicallyAsNamed_TakesTheNameAsWrittenAndTheFolderInAnyCase) {
    std::filesystem::create_directory(m_folder.HostPath() / "Pages");
    modFiles::WriteBytesAtomicallyAsNamed(Inside("Pages\\"), "a.html", "first");
    modFiles::WriteBytesAtomicallyAsNamed(Inside("pages\\"), "A.html", "second");
    modFiles::WriteBytesAtomicallyAsNamed(Inside("PAGES\\"), "A.html", "third");
    EXPECT_TRUE(std::filesystem::exists(m_folder.HostPath() / "Pages" / "a.html"));
    EXPECT_EQ(modFiles::ReadBytes(Inside("Pages\\a.html")), "first");
    EXPECT_EQ(modFiles::ReadBytes(Inside("Pages\\A.html")), "third");
    EXPECT_EQ(modFiles::FolderEntries(Inside("Pages")).size(), 2U) << "nothing else is left there";
    EXPECT_THROW(
        modFiles::WriteBytesAtomicallyAsNamed(Inside("nowhere\\"), "A.html", "x"), BasicError);
}

TEST_F(modFilesTest, AtomicWritingReplacesTheContentAndLeavesNothingBeside) {
    modFiles::WriteBytesAtomically(Inside("rules.dvk"), "first");
    fs::permissions(Host("rules.dvk"), fs::perms::owner_read | fs::perms::owner_write);
    modFiles::WriteBytesAtomically(Inside("RULES.dvk"), std::string("sec\0ond", 7));
    EXPECT_EQ(modFiles::ReadBytes(Inside("rules.dvk")), std::string("sec\0ond", 7));
    EXPECT_EQ(
        fs::status(Host("rules.dvk")).permissions(),
        fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_THAT(modFiles::FolderEntries(m_folder.Path()), testing::SizeIs(1));
}

TEST_F(modFilesTest, AtomicWritingFollowsLinks) {
    Put("real/rules.dvk", "old");
    fs::create_symlink(Host("real/rules.dvk"), Host("link.dvk"));
    modFiles::WriteBytesAtomically(Inside("link.dvk"), "new");
    EXPECT_TRUE(fs::is_symlink(Host("link.dvk")));
    EXPECT_EQ(modFiles::ReadBytes(Inside("real\\rules.dvk")), "new");
}

TEST_F(modFilesTest, AtomicWritingThatFailsLeavesTheOldContent) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "the administrator may write every file";
    }
    Put("rules.dvk", "old");
    fs::permissions(Host("rules.dvk"), fs::perms::owner_read);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::WriteBytesAtomically(Inside("rules.dvk"), "new"); }),
        runtimeerror::kPathFileAccess);
    EXPECT_EQ(modFiles::ReadBytes(Inside("rules.dvk")), "old");
    EXPECT_THAT(modFiles::FolderEntries(m_folder.Path()), testing::SizeIs(1));
}

TEST_F(modFilesTest, EnsureFolderTakesAFolderThatIsThere) {
    modFiles::EnsureFolder(Inside("sub"));
    modFiles::EnsureFolder(Inside("sub"));
    EXPECT_TRUE(modFiles::FolderExists(Inside("sub")));
    Put("a.bas");
    EXPECT_EQ(
        ErrorOf([&] { modFiles::EnsureFolder(Inside("a.bas")); }), runtimeerror::kPathFileAccess);
    EXPECT_EQ(
        ErrorOf([&] { modFiles::EnsureFolder(Inside("absent\\sub")); }),
        runtimeerror::kPathNotFound);
}

TEST_F(modFilesTest, AppendLineKeepsToALimit) {
    EXPECT_TRUE(modFiles::AppendLine(Inside("log.txt"), "1234", 6));
    EXPECT_FALSE(modFiles::AppendLine(Inside("log.txt"), "", 6));
    EXPECT_TRUE(modFiles::AppendLine(Inside("log.txt"), "", 8));
    EXPECT_EQ(modFiles::ReadBytes(Inside("log.txt")), "1234\r\n\r\n");
}

TEST_F(modFilesTest, AFileIsTurnedOverOnceItIsLongEnough) {
    Put("a.log", "12345");
    EXPECT_FALSE(modFiles::TurnOver(Inside("a.log"), Inside("b.log"), 6));
    EXPECT_TRUE(modFiles::TurnOver(Inside("a.log"), Inside("b.log"), 5));
    EXPECT_FALSE(fs::exists(Host("a.log")));
    EXPECT_EQ(modFiles::ReadBytes(Inside("b.log")), "12345");
}

}  // namespace
}  // namespace dorvik
