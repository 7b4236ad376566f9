#include "cli/CommandLineFixture.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

/// UTF-8 of Windows-1252 bytes, as far as the samples use them: what is not ASCII is Latin-1.
std::string Utf8(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x80) {
            text += byte;
        } else {
            text += static_cast<char>(0xC0U | (code >> 6U));
            text += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return text;
}

std::string Utf16(std::string_view bytes, bool bigEndian) {
    std::string text;
    for (const char byte : bytes) {
        text += bigEndian ? std::string{'\0', byte} : std::string{byte, '\0'};
    }
    return text;
}

using Rewriting = std::string (*)(const std::string& bytes);

struct EncodingRow {
    const char* Name;
    Rewriting Rewrite;
};

void PrintTo(const EncodingRow& row, std::ostream* out) {
    *out << row.Name;
}

const EncodingRow kEncodings[] = {
    {"LoneLF",
     [](const std::string& bytes) {
         return Replaced(bytes, "\r\n", "\n");
     }},
    {"LoneCR",
     [](const std::string& bytes) {
         return Replaced(bytes, "\r\n", "\r");
     }},
    {"NoLastLineEnd",
     [](const std::string& bytes) {
         return bytes.substr(0, bytes.size() - 2);
     }},
    {"Utf8WithMark",
     [](const std::string& bytes) {
         return "\xEF\xBB\xBF" + Utf8(bytes);
     }},
    {"Utf16LittleEndian",
     [](const std::string& bytes) {
         return "\xFF\xFE" + Utf16(bytes, false);
     }},
    {"Utf16BigEndian",
     [](const std::string& bytes) {
         return "\xFE\xFF" + Utf16(bytes, true);
     }},
    {"Utf16LittleEndianWithoutMark",
     [](const std::string& bytes) {
         return Utf16(bytes, false);
     }},
    {"Utf16BigEndianWithoutMark", [](const std::string& bytes) {
         return Utf16(bytes, true);
     }}};

/// The same text, stored in another way.
class EncodedInput : public CommandLineFixture, public ::testing::WithParamInterface<EncodingRow> {
protected:
    void Rewrite(const std::string& file) const {
        const std::string bytes = Bytes(file);
        ASSERT_TRUE(bytes.ends_with("\r\n")) << file;
        WriteBytes(file, GetParam().Rewrite(bytes));
    }
    std::string Events() const {
        const ProgramResult result = Run({"events", "Billing/Billing.vbp"});
        EXPECT_EQ(result.ExitCode, 0) << result.Error;
        return result.Output;
    }
};

TEST_P(EncodedInput, SourcesGiveTheSameEventsAsTheOriginal) {
    CopySample("Billing");
    for (const char* file :
         {"Billing/Forms/frmMain.frm",
          "Billing/modGlobals.bas",
          "Billing/Classes/clsInvoice.cls"}) {
        if (!Bytes(file).ends_with("\r\n")) {
            WriteBytes(file, Bytes(file) + "\r\n");
        }
    }
    const std::string original = Events();
    Rewrite("Billing/Forms/frmMain.frm");
    Rewrite("Billing/modGlobals.bas");
    Rewrite("Billing/Classes/clsInvoice.cls");
    EXPECT_TRUE(original == Events());
}

TEST_P(EncodedInput, AProjectFileGivesTheSameEventsAsTheOriginal) {
    CopySample("Billing");
    const std::string original = Events();
    Rewrite("Billing/Billing.vbp");
    EXPECT_TRUE(original == Events());
}

TEST_P(EncodedInput, AGroupNamesTheSameProjects) {
    WriteModuleProject("Good", "    x = 1");
    WriteLines("G.vbg", {"VBGROUP 5.0", "StartupProject=Good.vbp"});
    Rewrite("G.vbg");
    EXPECT_EQ(Run({"review", "G.vbg", "--quiet"}).ExitCode, 0);
}

INSTANTIATE_TEST_SUITE_P(Text, EncodedInput, ::testing::ValuesIn(kEncodings), [](const auto& row) {
    return row.param.Name;
});

class DoubleByteInput : public CommandLineFixture {};

// In code page 932 the second byte of "\xE3\x82\xBC" is "[", that of "\xE3\x83\x80" is "_" and that
// of "\xE3\x82\xBD" is the backslash.
constexpr std::string_view kBracket = "\x83\x5B";
constexpr std::string_view kUnderscore = "\x83\x5F";
constexpr std::string_view kBackslash = "\x83\x5C";

TEST_F(DoubleByteInput, ATrailByteLikeAnUnderscoreContinuesNoLine) {
    WriteModuleProject("D", "    x = " + std::string(kUnderscore) + "\r\n    DoEvents");
    const ProgramResult result = Run({"events", "D.vbp", "--code-page", "932"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Output, HasSubstr("\"statement\":\"    x = \xE3\x83\x80\""));
    EXPECT_THAT(result.Output, HasSubstr("\"statement\":\"    DoEvents\""));
    // Read by the usual page the same bytes do continue.
    EXPECT_THAT(Run({"events", "D.vbp"}).Output, Not(HasSubstr("\"statement\":\"    DoEvents\"")));
}

TEST_F(DoubleByteInput, ATrailByteLikeABracketBeginsNoSection) {
    WriteModuleProject("D", "    x = 1");
    WriteLines(
        "D.vbp",
        {"Type=Exe", "Title=\"" + std::string(kBracket) + "\"", "Module=D; D.bas", "Name=\"D\""});
    const ProgramResult result = Run({"events", "D.vbp", "--code-page", "932"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Output, HasSubstr("\"Title\":\"\xE3\x82\xBC\""));
    EXPECT_THAT(result.Output, HasSubstr("\"SourceFileCount\":\"2\""));
}

TEST_F(DoubleByteInput, ATrailByteLikeABackslashDividesNoPath) {
    WriteModuleProject("D", "    x = 1");
    WriteLines("D.vbp", {"Module=D; " + std::string(kBackslash) + "D.bas", "Name=\"D\""});
    // The name on disk is UTF-8.
    std::filesystem::rename(
        Work("D.bas"),
        Work("\xE3\x82\xBD"
             "D.bas"));
    const ProgramResult result = Run({"review", "D.vbp", "--code-page", "932"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(
        Query("Dorvik/D_DORVIK.mdb", "SELECT Filename FROM SourceFiles WHERE Type = 'Module'"),
        "\xE3\x82\xBD"
        "D.bas");
}

TEST_F(DoubleByteInput, IdeographsAreNamesLikeAnyOther) {
    WriteModuleProject(
        "D", "    Dim " + std::string(kBracket) + std::string(kUnderscore) + " As Long");
    EXPECT_THAT(
        Run({"events", "D.vbp", "--code-page", "932"}).Output,
        HasSubstr("\"Name\":\"\xE3\x82\xBC\xE3\x83\x80\""));
}

TEST_F(DoubleByteInput, HalfACharacterAtTheEndOfALineIsKeptAndHarmsNothing) {
    for (const char* page : {"932", "936", "949", "950"}) {
        WriteModuleProject("D", "    s = \"\x83\r\n    DoEvents");
        const ProgramResult result = Run({"events", "D.vbp", "--code-page", page});
        EXPECT_EQ(result.ExitCode, 0) << page;
        EXPECT_THAT(result.Error, IsEmpty());
        EXPECT_THAT(result.Output, HasSubstr("\"statement\":\"    DoEvents\"")) << page;
    }
}

}  // namespace

}  // namespace dorvik::test
