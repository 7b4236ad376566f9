#include "foundation/text/modUtilFunctions.h"

#include "base/BasicError.h"
#include "foundation/lists/ITextBox.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <sys/inotify.h>
#include <unistd.h>

namespace dorvik {
namespace {

using namespace modUtilFunctions;

struct PathCase {
    std::string Relative;
    std::string Base;
    std::string Expected;
};

TEST(modUtilFunctions, RelativeToAbsolutePathGoesUpOnlyForLeadingDots) {
    const PathCase cases[] = {
        {"..\\..\\x.bas", "C:\\a\\b\\c\\", "C:\\a\\x.bas"},
        {"x.bas", "C:\\a\\", "C:\\a\\x.bas"},
        {"D:\\x.bas", "C:\\a\\", "D:\\x.bas"},
        {"x.bas", "C:\\a", "C:\\ax.bas"},
        {"b\\..\\x.bas", "C:\\a\\", "C:\\a\\b\\..\\x.bas"},
        {"\\x.bas", "C:\\a\\", "C:\\a\\\\x.bas"},
        {"..\\D:\\x.bas", "C:\\a\\b\\", "C:\\a\\D:\\x.bas"},
        {"..\\..\\x.bas", "C:\\a\\", "Cx.bas"},
        {"..\\..\\..\\x.bas", "C:\\a\\", "x.bas"},
        {"", "C:\\a\\", "C:\\a\\"},
        {"..\\x", "", "x"},
        {"\xC3\xA9:\\x", "C:\\a\\", "\xC3\xA9:\\x"},
    };
    for (const PathCase& row : cases) {
        EXPECT_EQ(RelativeToAbsolutePath(row.Relative, row.Base), row.Expected) << row.Relative;
    }
}

struct TextCase {
    std::string Text;
    std::string Expected;
};

TEST(modUtilFunctions, ParentFolderFromPathEndsInABackslash) {
    const TextCase cases[] = {
        {"C:\\a\\b\\", "C:\\a\\"},
        {"C:\\a", "C:\\"},
        {"C:\\", "C"},
        {"abc\\", "a"},
        {"\xC3\xA9"
         "bc\\",
         "\xC3\xA9"},
        {"abc", ""},
        {"", ""},
        {"\\", ""},
        {"\\a", "\\"},
    };
    for (const TextCase& row : cases) {
        EXPECT_EQ(ParentFolderFromPath(row.Text), row.Expected) << row.Text;
    }
}

TEST(modUtilFunctions, FilenameWithoutAnExtensionIsEmpty) {
    const TextCase cases[] = {
        {"C:\\a\\Makefile", ""},
        {"C:\\a\\b.txt", "b.txt"},
        {"b.txt", "b.txt"},
        {"C:\\a.b\\c", ""},
        {"C:\\a.b\\", ""},
        {"", ""},
    };
    for (const TextCase& row : cases) {
        EXPECT_EQ(FilenameFromFullPathName(row.Text), row.Expected) << row.Text;
    }
}

TEST(modUtilFunctions, PathFromFilenameReachesToTheLastBackslash) {
    EXPECT_EQ(PathFromFilename("C:\\a\\b.txt"), "C:\\a\\");
    EXPECT_EQ(PathFromFilename("C:\\a\\"), "C:\\a\\");
    EXPECT_EQ(PathFromFilename("b.txt"), "");
}

TEST(modUtilFunctions, TrimAtNullCutsAtTheFirstNul) {
    using namespace std::string_literals;
    EXPECT_EQ(TrimAtNull("abc"), "abc");
    EXPECT_EQ(TrimAtNull("\0abc"s), "");
    EXPECT_EQ(TrimAtNull("ab\0c\0"s), "ab");
    EXPECT_EQ(TrimAtNull(""), "");
}

TEST(modUtilFunctions, TrimAtNullHoldsThePositionInSixteenBits) {
    const std::string longText(40000, 'x');
    EXPECT_EQ(TrimAtNull(longText), longText);
    EXPECT_EQ(TrimAtNull(longText.substr(0, 32766) + '\0'), longText.substr(0, 32766));
    EXPECT_THROW(TrimAtNull(longText.substr(0, 32767) + '\0'), BasicError);
}

TEST(modUtilFunctions, BackslashIsAddedAndRemovedOnce) {
    EXPECT_EQ(AddBackslash("C:\\a"), "C:\\a\\");
    EXPECT_EQ(AddBackslash("C:\\a\\"), "C:\\a\\");
    EXPECT_EQ(AddBackslash(""), "\\");
    EXPECT_EQ(RemoveBackslash("C:\\a\\\\"), "C:\\a\\");
    EXPECT_EQ(RemoveBackslash("C:\\a"), "C:\\a");
    EXPECT_EQ(RemoveBackslash(""), "");
}

TEST(modUtilFunctions, EmptyPathIsNoFile) {
    const test::CapturedLog log;
    EXPECT_FALSE(FileExists(""));
    EXPECT_TRUE(log.Lines().empty());
}

TEST(modUtilFunctions, EmptyPathIsNoFileWithoutALookAtTheDisk) {
    const test::TemporaryFolder folder;
    folder.Write("a.txt", "x");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.HostPath());
    const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    inotify_add_watch(watch, ".", IN_ALL_EVENTS);
    std::array<char, 4096> events{};
    EXPECT_FALSE(FileExists(""));
    EXPECT_EQ(read(watch, events.data(), events.size()), -1) << "the folder was opened";
    EXPECT_TRUE(FileExists("*.txt"));
    EXPECT_GT(read(watch, events.data(), events.size()), 0) << "a look would be seen";
    close(watch);
    std::filesystem::current_path(before);
}

TEST(modUtilFunctions, FileExistsFindsFilesAndWildcardsButNoFoldersAndHiddenFiles) {
    const test::TemporaryFolder folder;
    folder.Write("Sub\\Module1.bas", "x");
    folder.Write("Sub\\.hidden", "x");
    folder.Write("Empty\\Deeper\\x", "x");
    folder.Write("OnlyHidden\\.a", "x");
    struct Case {
        std::string Name;
        bool IsFound;
    };
    const Case cases[] = {
        {"Sub\\Module1.bas", true},
        {"SUB\\MODULE1.BAS", true},
        {"Sub\\Module2.bas", false},
        {"Sub", false},
        {"Sub\\", true},
        {"Sub\\.hidden", false},
        {"Sub\\*.bas", true},
        {"Sub\\*.BAS", true},
        {"Sub\\M*1.*", true},
        {"Sub\\Module?.bas", true},
        {"Sub\\Module??.bas", false},
        {"Sub\\*.cls", false},
        {"Sub\\*", true},
        {"Empty\\*", false},
        {"OnlyHidden\\*", false},
        {"Missing\\*", false},
        {"Missing\\x.bas", false},
    };
    const test::CapturedLog log;
    for (const Case& row : cases) {
        EXPECT_EQ(FileExists(folder.Path(row.Name)), row.IsFound) << row.Name;
    }
    EXPECT_TRUE(log.Lines().empty());
}

TEST(modUtilFunctions, FolderExistsWithAndWithoutABackslashAtTheEnd) {
    const test::TemporaryFolder folder;
    folder.Write("Sub\\a.bas", "x");
    EXPECT_TRUE(FolderExists(folder.Path("Sub")));
    EXPECT_TRUE(FolderExists(folder.Path("SUB\\")));
    EXPECT_FALSE(FolderExists(folder.Path("Sub\\a.bas")));
    EXPECT_FALSE(FolderExists(folder.Path("Missing")));
    EXPECT_FALSE(FolderExists("Q:\\Missing"));
}

TEST(modUtilFunctions, DeleteFileDeletesReadOnlyFilesAndIgnoresMissingOnes) {
    const test::TemporaryFolder folder;
    const test::CapturedLog log;
    const std::string path = folder.Write("a.txt", "x");
    std::filesystem::permissions(folder.HostPath() / "a.txt", std::filesystem::perms::owner_read);
    DeleteFile(path);
    EXPECT_FALSE(FileExists(path));
    DeleteFile(path);
    EXPECT_TRUE(log.Lines().empty());
}

TEST(modUtilFunctions, DeleteFileOfAWildcardIsLoggedAndDeletesNothing) {
    const test::TemporaryFolder folder;
    const test::CapturedLog log;
    const std::string path = folder.Write("a.txt", "x");
    DeleteFile(folder.Path("*.txt"));
    EXPECT_TRUE(FileExists(path));
    EXPECT_TRUE(log.Contains("modUtilFunctions::DeleteFile"));
}

TEST(modUtilFunctions, CreateFullPathCreatesEveryMissingFolder) {
    const test::TemporaryFolder folder;
    const test::CapturedLog log;
    EXPECT_TRUE(CreateFullPath(folder.Path("a\\b\\c\\")));
    EXPECT_TRUE(FolderExists(folder.Path("a\\b\\c")));
    EXPECT_TRUE(CreateFullPath(folder.Path("A\\B\\d")));
    EXPECT_TRUE(FolderExists(folder.Path("a\\b\\d")));
    EXPECT_TRUE(CreateFullPath(folder.Path("a")));
    EXPECT_TRUE(log.Lines().empty());
}

TEST(modUtilFunctions, CreateFullPathThatFailsIsLoggedAndGivesFalse) {
    const test::TemporaryFolder folder;
    folder.Write("file", "x");
    const std::string paths[] = {
        folder.Path("file\\a"), "Q:\\a\\b", "\\\\server\\share\\a", "\\\\", ""};
    for (const std::string& path : paths) {
        const test::CapturedLog log;
        EXPECT_FALSE(CreateFullPath(path)) << path;
        EXPECT_TRUE(log.Contains("modUtilFunctions::CreateFullPath")) << path;
    }
}

TEST(modUtilFunctions, DatabaseDateReadsTheLastSecondOf2001) {
    EXPECT_EQ(KyDBDateToDate("20011231 235959"), (DateTime{2001, 12, 31, 23, 59, 59}));
}

TEST(modUtilFunctions, DatabaseDateSkipsTheNinthCharacterAndTakesTheLastTwoForSeconds) {
    EXPECT_EQ(KyDBDateToDate("20040229T010203"), (DateTime{2004, 2, 29, 1, 2, 3}));
    EXPECT_EQ(KyDBDateToDate("20040229 0102xx07"), (DateTime{2004, 2, 29, 1, 2, 7}));
}

TEST(modUtilFunctions, DatabaseDateBeyondItsRangeCarriesOver) {
    EXPECT_EQ(KyDBDateToDate("20011332 246060"), (DateTime{2002, 2, 2, 1, 1, 0}));
}

TEST(modUtilFunctions, DatabaseDateWithoutDigitsIsATypeMismatchForTheCaller) {
    for (const char* text : {"", "x", "2001", "20011231"}) {
        EXPECT_THROW((void)KyDBDateToDate(text), BasicError) << text;
    }
}

TEST(modUtilFunctions, PadRightCountsCharacters) {
    EXPECT_EQ(PadRight("ab", 4), "ab  ");
    EXPECT_EQ(PadRight("\xC3\xA9", 3), "\xC3\xA9  ");
    EXPECT_EQ(PadRight("abcde", 4), "abcde");
    EXPECT_EQ(PadRight("a", -1), "a");
}

struct NumberCase {
    std::string Text;
    double Expected;
};

TEST(modUtilFunctions, StringToDoubleReadsTheLeadingNumberWithCommaOrPoint) {
    const NumberCase cases[] = {
        {"3,5", 3.5},
        {"3.5", 3.5},
        {"12abc", 12},
        {"", 0},
        {"abc", 0},
        {"0,488", 0.488},
        {"-1,25x", -1.25},
    };
    for (const NumberCase& row : cases) {
        EXPECT_DOUBLE_EQ(StringToDouble(row.Text), row.Expected) << row.Text;
    }
}

TEST(modUtilFunctions, SelectAllTextSelectsEveryCharacter) {
    class Box final : public ITextBox {
    public:
        std::string Text() const override { return "\xC3\xA9t\xC3\xA9"; }
        void SetSelection(std::int32_t start, std::int32_t length) override {
            Start = start;
            Length = length;
        }
        std::int32_t Start = -1;
        std::int32_t Length = -1;
    };
    Box box;
    SelectAllText(box);
    EXPECT_EQ(box.Start, 0);
    EXPECT_EQ(box.Length, 3);
}

TEST(modUtilFunctions, CheckNumericKeyLetsDigitsAndBackspaceThrough) {
    for (std::int16_t code = 0; code < 300; ++code) {
        const bool accepted = (code >= 48 && code <= 57) || code == 8;
        EXPECT_EQ(CheckNumericKey(code), accepted ? code : 0) << code;
    }
}

}  // namespace
}  // namespace dorvik
