#include "workstation/filehost/CodeFile.h"

#include "base/BasicError.h"
#include "platform/host/TextFileReader.h"
#include "platform/host/modEncoding.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

namespace dorvik {

namespace {

using Texts = std::vector<std::string>;

/// Lines of a source file in no order, with line ends of all kinds.
std::string RandomFile(std::mt19937& random) {
    static const Texts kPieces{
        "Attribute VB_Name = \"m\"",
        "Attribute x.VB_UserMemId = 0",
        "Attribute y _",
        "VERSION 5.00",
        "BEGIN",
        "Begin VB.Form m ",
        "End",
        "Dim x",
        "x = 1 + _",
        "",
        "' \xC4\xE3\x81",
        "' \xE0\xFF\x80",
        "Sub A()",
        "End Sub",
        std::string("\0", 1)};
    static const Texts kEnds{"\r\n", "\n", "\r", "\r\n", ""};
    std::string bytes;
    for (auto count = random() % 20; count > 0; --count) {
        bytes += kPieces[random() % kPieces.size()] + kEnds[random() % kEnds.size()];
    }
    return bytes;
}

Texts LinesOf(const std::string& path, int codePage) {
    TextFileReader reader(path, codePage);
    Texts lines;
    while (!reader.AtEnd()) {
        lines.emplace_back(reader.ReadLine());
    }
    return lines;
}

/// Opens what can be opened; few of the files look like data that is no text.
std::optional<CodeFile>
Opened(const std::string& path, int codePage, std::optional<FileType> type) {
    try {
        return CodeFile(path, codePage, type);
    } catch (const BasicError&) {
        return std::nullopt;
    }
}

}  // namespace

TEST(CodeFile, AnyFileIsWrittenAsItWasRead) {
    const test::TemporaryFolder folder;
    std::mt19937 random(7);  // NOLINT: the same files each time
    int opened = 0;
    for (int round = 0; round < 1500; ++round) {
        const std::string bytes = RandomFile(random);
        const std::string path = folder.Write("f", bytes);
        const int codePage = std::vector{1252, 1251, 936, 932, 65001}[random() % 5];
        const auto type =
            std::vector{FileType::Module, FileType::Class, FileType::Form}[random() % 3];
        std::optional<CodeFile> file = Opened(path, codePage, type);
        if (!file) {
            continue;
        }
        ++opened;
        ASSERT_EQ(file->Encoded().Bytes, bytes);
        // Exchanged and exchanged back.
        const auto count = static_cast<std::int32_t>(file->Texts().size());
        FileLines old = file->Exchange(1, count, file->ForTexts(1, count, {"a", "b"}));
        file->Exchange(1, 2, std::move(old));
        ASSERT_EQ(file->Encoded().Bytes, bytes);
    }
    EXPECT_GT(opened, 1000);
}

TEST(CodeFile, LinesAreThoseOfTheReaderOfAReview) {
    const test::TemporaryFolder folder;
    std::mt19937 random(8);  // NOLINT: the same files each time
    for (int round = 0; round < 500; ++round) {
        const std::string bytes = RandomFile(random);
        const std::string path = folder.Write("f", bytes);
        const int codePage = std::vector{1252, 1251, 936, 949}[random() % 4];
        if (const std::optional<CodeFile> file = Opened(path, codePage, std::nullopt)) {
            ASSERT_EQ(file->Texts(), LinesOf(path, codePage));
        }
    }
}

TEST(CodeFile, LinesOfUtf16AreThoseOfTheReaderOfAReview) {
    const test::TemporaryFolder folder;
    for (const bool isBigEndian : {false, true}) {
        const std::string bytes =
            std::string(isBigEndian ? "\xFE\xFF" : "\xFF\xFE") +
            modEncoding::EncodeUtf16("Dim a\r\n' \u0D0A\u0A0D \r\r\n\nDim b \u4F60\n", isBigEndian);
        // An odd byte at the end.
        for (const std::string& odd : Texts{bytes, bytes + "x"}) {
            const std::string path = folder.Write("f", odd);
            const CodeFile file(path, modEncoding::kDefaultCodePage, FileType::Module);
            EXPECT_EQ(file.Texts(), LinesOf(path, modEncoding::kDefaultCodePage));
            EXPECT_EQ(file.Encoded().Bytes, odd);
        }
    }
}

TEST(CodeFile, RunsOfAttributesAreKeptWithTheShownLineBeforeThem) {
    const test::TemporaryFolder folder;
    std::string attributes;
    for (int number = 0; number < 100'000; ++number) {
        attributes += "Attribute x.VB_VarHelpID = " + std::to_string(number) + "\n";
    }
    const std::string head = "Attribute VB_Name = \"m\"\n";
    const std::string bytes = head + "Dim x\n" + attributes + "Dim \xE4\n" + attributes;
    CodeFile file(folder.Write("m.bas", bytes), 1252, FileType::Module);
    EXPECT_EQ(file.Texts(), (Texts{"Dim x", "Dim \u00E4"}));
    EXPECT_TRUE(file.Encoded().Bytes == bytes);
    file.Exchange(1, 1, {});
    EXPECT_TRUE(file.Encoded().Bytes == head + "Dim \xE4\n" + attributes);
}

TEST(CodeFile, CommentAfterAPageBreakIsNotContinued) {
    const test::TemporaryFolder folder;
    const std::string path =
        folder.Write("m.bas", "Attribute VB_Name = \"m\"\n\f' note _\nAttribute x.VB_A = 1\nDim y");
    EXPECT_EQ(CodeFile(path, 1252, FileType::Module).Texts(), (Texts{"\f' note _", "Dim y"}));
}

TEST(CodeFile, FileThatIsNotThereRaises) {
    const test::TemporaryFolder folder;
    EXPECT_THROW(CodeFile(folder.Path("gone.bas"), 1252, FileType::Module), BasicError);
    EXPECT_THROW(CodeFile(folder.Path(), 1252, FileType::Module), BasicError);
}

TEST(CodeFile, UnknownCodePageRaises) {
    const test::TemporaryFolder folder;
    EXPECT_THROW(CodeFile(folder.Write("m.bas", "\xE4\r\n"), 12, FileType::Module), BasicError);
}

}  // namespace dorvik
