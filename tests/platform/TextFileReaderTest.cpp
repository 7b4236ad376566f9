#include "platform/host/TextFileReader.h"

#include "base/BasicError.h"
#include "base/modUtf8.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace dorvik {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

class TextFileReaderTest : public testing::Test {
protected:
    std::string Put(const std::string& bytes) { return m_folder.Write("file.txt", bytes); }

    static std::vector<std::string> LinesOf(const std::string& path, int codePage = 1252) {
        TextFileReader reader(path, codePage);
        std::vector<std::string> lines;
        while (!reader.AtEnd()) {
            lines.emplace_back(reader.ReadLine());
        }
        return lines;
    }

    std::vector<std::string> Lines(const std::string& bytes, int codePage = 1252) {
        return LinesOf(Put(bytes), codePage);
    }

    static std::int32_t OpenError(const std::string& path) {
        try {
            const TextFileReader reader(path, 1252);
        } catch (const BasicError& error) {
            EXPECT_THAT(error.what(), testing::HasSubstr(path));
            return error.Number();
        }
        return 0;
    }

    test::TemporaryFolder m_folder;
};

TEST_F(TextFileReaderTest, RecognisesEveryLineEndAndMixturesOfThem) {
    struct Row {
        std::string Bytes;
        std::vector<std::string> Lines;
    };
    const std::vector<Row> rows = {
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\nb\n", {"a", "b"}},
        {"a\rb\r", {"a", "b"}},
        {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
        {"a\r\r\nb", {"a", "", "b"}},
        {"a\n\rb", {"a", "", "b"}},
        {"a\n\nb", {"a", "", "b"}},
        {"a\r\rb", {"a", "", "b"}},
        {"a\r\n\r\nb", {"a", "", "b"}},
        {"\r\na", {"", "a"}},
        {"\na", {"", "a"}},
        {"\ra", {"", "a"}},
        {"\r\n", {""}},
        {"\n", {""}},
        {"\r", {""}},
        {"\n\n", {"", ""}},
        {"\r\r", {"", ""}},
        {"\r\n\r\n", {"", ""}},
        {"a\nb\r\nc", {"a", "b", "c"}},
        {"a\rb\nc\r\nd\re", {"a", "b", "c", "d", "e"}},
        {" \ta \t", {" \ta \t"}},
        {"a\x1A"
         "b\r\nc",
         {"a\x1A"
          "b",
          "c"}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Lines(row.Bytes), row.Lines) << testing::PrintToString(row.Bytes);
    }
}

TEST_F(
    TextFileReaderTest, EveryTextOfFourBytesOutOfLettersAndLineEndsIsCutLikeATextReadByteByByte) {
    const auto cutByteByByte = [](const std::string& bytes) {
        std::vector<std::string> lines;
        bool isLineOpen = false;
        for (std::size_t index = 0; index < bytes.size(); ++index) {
            if (!isLineOpen) {
                lines.emplace_back();
            }
            isLineOpen = bytes[index] != '\r' && bytes[index] != '\n';
            if (isLineOpen) {
                lines.back() += bytes[index];
            } else if (
                bytes[index] == '\r' && index + 1 < bytes.size() && bytes[index + 1] == '\n') {
                ++index;
            }
        }
        return lines;
    };
    const std::string alphabet = "a\r\n";
    for (int number = 0; number < 81; ++number) {
        std::string bytes;
        for (int rest = number, count = 0; count < 4; ++count, rest /= 3) {
            bytes += alphabet[static_cast<std::size_t>(rest % 3)];
        }
        EXPECT_EQ(Lines(bytes), cutByteByByte(bytes)) << testing::PrintToString(bytes);
    }
}

TEST_F(TextFileReaderTest, MissingLastLineEndGivesTheLastLineAllTheSame) {
    EXPECT_THAT(Lines("a\r\nb"), ElementsAre("a", "b"));
}

TEST_F(TextFileReaderTest, TrailingLineEndGivesNoFurtherLine) {
    EXPECT_THAT(Lines("a\r\n"), ElementsAre("a"));
}

TEST_F(TextFileReaderTest, EmptyFileIsAtItsEndAtOnceAndHasSizeZero) {
    TextFileReader reader(Put(""), 1252);
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_EQ(reader.Size(), 0);
    EXPECT_EQ(reader.ReadLine(), "");
    EXPECT_TRUE(reader.AtEnd());
}

TEST_F(TextFileReaderTest, ByteOrderMarkAloneIsAnEmptyTextWithASize) {
    for (const std::string& mark : {"\xEF\xBB\xBF"s, "\xFF\xFE"s, "\xFE\xFF"s}) {
        const TextFileReader reader(Put(mark), 1252);
        EXPECT_TRUE(reader.AtEnd());
        EXPECT_EQ(reader.Size(), static_cast<std::int64_t>(mark.size()));
    }
}

TEST_F(TextFileReaderTest, ByteOrderMarkBelongsToNoLine) {
    EXPECT_THAT(Lines("\xEF\xBB\xBFType=Exe\r\nName=x"), ElementsAre("Type=Exe", "Name=x"));
    EXPECT_THAT(Lines("\xEF\xBB\xBF\r\nx"), ElementsAre("", "x"));
    EXPECT_THAT(
        Lines("\xFF\xFE"
              "a\0\r\0\n\0\xE9\0"s),
        ElementsAre("a", "é"));
    EXPECT_THAT(Lines("\xFE\xFF\0a\0\n\0b\0\r"s), ElementsAre("a", "b"));
}

TEST_F(TextFileReaderTest, Utf16UnitsThatHoldTheBytesOfLineEndsEndNoLine) {
    // U+0A0D and U+0D0A are letters, not line ends.
    EXPECT_THAT(Lines("\xFF\xFE\x0D\x0A\x0A\x0D"s), ElementsAre("\u0A0D\u0D0A"));
}

TEST_F(TextFileReaderTest, DecodesByTheCodePageThatItWasGiven) {
    EXPECT_THAT(Lines("caf\xE9\r\n\x80"), ElementsAre("café", "€"));
    EXPECT_THAT(Lines("\xCF\xF0\n\xCF", 1251), ElementsAre("Пр", "П"));
    EXPECT_THAT(Lines("' \x9F\x5F\r\n\x95\x5C", 932), ElementsAre("' 歙", "表"));
}

TEST_F(TextFileReaderTest, SizeCountsTheBytesOnDiskNotTheCharacters) {
    EXPECT_EQ(TextFileReader(Put("caf\xE9\r\n"), 1252).Size(), 6);
    EXPECT_EQ(
        TextFileReader(
            Put("\xFF\xFE"
                "a\0"s),
            1252)
            .Size(),
        4);
}

TEST_F(TextFileReaderTest, LinesStayValidAsLongAsTheReader) {
    TextFileReader reader(Put("first\r\nsecond\r\nthird"), 1252);
    const std::string_view first = reader.ReadLine();
    const std::string_view second = reader.ReadLine();
    reader.ReadLine();
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_EQ(first, "first");
    EXPECT_EQ(second, "second");
}

TEST_F(TextFileReaderTest, FileIsNotHeldOpenWhileItsLinesAreRead) {
    const std::string path = Put("a\r\nb");
    TextFileReader reader(path, 1252);
    std::filesystem::remove(m_folder.HostPath() / "file.txt");
    EXPECT_EQ(reader.ReadLine(), "a");
    EXPECT_EQ(reader.ReadLine(), "b");
}

TEST_F(TextFileReaderTest, BlockOfNulsIsOneLine) {
    const std::string nuls(5000, '\0');
    EXPECT_THAT(Lines("a\r\n" + nuls + "\r\nb"), ElementsAre("a", nuls, "b"));
}

TEST_F(TextFileReaderTest, StrayBytesAreReadToTheEndOfTheFileInEveryCodePage) {
    std::string bytes;
    std::uint32_t state = 12345;
    for (int count = 0; count < 50'000; ++count) {
        state = state * 1664525U + 1013904223U;
        const auto byte = static_cast<unsigned char>(state >> 24U);
        // Of the control characters, the tenth part of what is no text at all.
        bytes += byte < 0x20 && count % 10 != 0 ? 'x' : static_cast<char>(byte);
    }
    for (const int codePage : {1252, 65001, 932, 936, 949, 950}) {
        for (const std::string& line : Lines(bytes, codePage)) {
            ASSERT_TRUE(modUtf8::IsValid(line));
            ASSERT_EQ(line.find_first_of("\r\n"), std::string::npos);
        }
    }
}

TEST_F(TextFileReaderTest, LineOfTenMegabytesIsOneLine) {
    const std::string line(10'000'000, 'x');
    for (const std::string& lineEnd : {"\r\n"s, "\n"s, "\r"s, ""s}) {
        TextFileReader reader(Put(line + lineEnd), 1252);
        EXPECT_TRUE(reader.ReadLine() == line);
        EXPECT_TRUE(reader.AtEnd());
    }
}

TEST_F(TextFileReaderTest, AMillionLinesOfOneKindOfLineEndAreRead) {
    constexpr int kLineCount = 1'000'000;
    for (const std::string& lineEnd : {"\r"s, "\n"s}) {
        std::string bytes;
        for (int count = 0; count < kLineCount; ++count) {
            bytes += 'x';
            bytes += lineEnd;
        }
        TextFileReader reader(Put(bytes), 1252);
        int lineCount = 0;
        for (; !reader.AtEnd(); ++lineCount) {
            ASSERT_TRUE(reader.ReadLine() == "x");
        }
        EXPECT_EQ(lineCount, kLineCount);
    }
}

TEST_F(TextFileReaderTest, FileCutAtAnyByteGivesTheSameLinesUpToTheCut) {
    const std::string sample = "VERSION 5.00\r\nBegin VB.Form frmK\xE4se\n   Caption = "
                               "\"\x80\"\rEnd\r\n\r\nSub A() _\r\nEnd";
    const std::vector<std::string> whole = Lines(sample);
    ASSERT_EQ(whole.size(), 7U);
    for (std::size_t size = 0; size <= sample.size(); ++size) {
        std::vector<std::string> lines = Lines(sample.substr(0, size));
        ASSERT_LE(lines.size(), whole.size()) << size;
        for (std::size_t index = 0; index < lines.size(); ++index) {
            const bool isLast = index + 1 == lines.size();
            ASSERT_EQ(
                lines[index], isLast ? whole[index].substr(0, lines[index].size()) : whole[index])
                << "cut at byte " << size;
        }
    }
}

TEST_F(TextFileReaderTest, MarkedFilesCutAtAnyByteAreReadToTheirEnd) {
    for (const std::string& sample :
         {"\xFF\xFE"
          "a\0\r\0\n\0\x3D\xD8\x00\xDE\n\0"s,
          "\xFE\xFF\0a\0\r\0\n\xD8\x3D\xDE\x00"s,
          "\xEF\xBB\xBF"
          "a\r\n\xE2\x82\xAC\r\n"s}) {
        for (std::size_t size = 0; size <= sample.size(); ++size) {
            for (const std::string& line : Lines(sample.substr(0, size))) {
                ASSERT_TRUE(modUtf8::IsValid(line)) << "cut at byte " << size;
            }
        }
    }
}

TEST_F(TextFileReaderTest, MissingFileRaisesFileNotFound) {
    EXPECT_EQ(OpenError(m_folder.Path() + "absent.frm"), runtimeerror::kFileNotFound);
}

TEST_F(TextFileReaderTest, MissingFolderDriveOrServerRaisesPathNotFound) {
    for (const std::string& path :
         {m_folder.Path() + "absent\\a.frm", "C:\\a\\b.frm"s, "\\\\server\\share\\a.frm"s}) {
        EXPECT_EQ(OpenError(path), runtimeerror::kPathNotFound) << path;
    }
}

TEST_F(TextFileReaderTest, FolderInPlaceOfAFileRaisesPathFileAccessError) {
    std::filesystem::create_directory(m_folder.HostPath() / "Form1.frm");
    EXPECT_EQ(OpenError(m_folder.Path() + "Form1.frm"), runtimeerror::kPathFileAccess);
}

TEST_F(TextFileReaderTest, NameOnDiskInTheCodePageOfTheFileIsFound) {
    std::ofstream(m_folder.HostPath() / "\x95\x5C\x8E\xA6.bas") << "x";
    EXPECT_THAT(LinesOf(m_folder.Path() + "表示.bas", 932), ElementsAre("x"));
}

TEST_F(TextFileReaderTest, Utf16WithoutAMarkIsReadInBothByteOrders) {
    EXPECT_THAT(Lines("x\0\r\0\n\0\xE9\0y\0z\0"s), ElementsAre("x", "\xC3\xA9yz"));
    EXPECT_THAT(Lines("\0x\0\r\0\n\0\xE9\0y\0z"s), ElementsAre("x", "\xC3\xA9yz"));
}

TEST_F(TextFileReaderTest, WhatIsNoTextItCanReadIsRefusedWithItsForm) {
    const auto formOf = [&](const std::string& bytes) {
        try {
            const TextFileReader reader(Put(bytes), 1252);
        } catch (const UnreadableText& error) {
            EXPECT_EQ(error.Number(), 321);
            EXPECT_THAT(error.what(), testing::HasSubstr("file.txt"));
            return error.Form();
        }
        return modTextForm::TextForm::Bytes;
    };
    EXPECT_EQ(formOf("x\0\0\0y\0\0\0"s), modTextForm::TextForm::Utf32);
    EXPECT_EQ(formOf(std::string(100, '\0')), modTextForm::TextForm::Binary);
}

TEST_F(TextFileReaderTest, SaysWhetherItsTextContainsSomething) {
    const TextFileReader reader(Put("a\fb\xA0"), 1252);
    EXPECT_TRUE(reader.Contains("\f"));
    EXPECT_TRUE(reader.Contains("\xC2\xA0"));
    EXPECT_FALSE(reader.Contains("\0"s));
}

}  // namespace
}  // namespace dorvik
