// Names out of a stranger's project on a terminal and in a spreadsheet.

#include "cli/ResultsCommandFixture.h"
#include "cli/ShellRun.h"
#include "cli/output/CsvOutput.h"
#include "cli/output/modTerminalText.h"

#include <gmock/gmock.h>

#include <rapidjson/document.h>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kBidi = "\xE2\x80\xAE";  // right-to-left override
const std::string kC1 = "\xC2\x9B";        // the control sequence introducer in one character

/// No character of the text steers a terminal, line ends apart.
void ExpectHarmless(const std::string& text) {
    for (const char character : text) {
        EXPECT_TRUE(character == '\n' || static_cast<unsigned char>(character) >= ' ') << text;
    }
    EXPECT_THAT(text, AllOf(Not(HasSubstr("\x7f")), Not(HasSubstr(kC1)), Not(HasSubstr(kBidi))));
}

class HarmlessOutput : public ShellFixture {
protected:
    /// A project whose folder, file and module have such names.
    HarmlessOutput() {
        WriteLines(
            kFolder + "/A\x1b[31m.vbp",
            {"Type=Exe", "Module=A; A\x1b.bas", "Module=B; none\x1b]0;x\x07.bas", "Name=\"A\""});
        WriteLines(kFolder + "/A\x1b.bas", {"Sub Work()", "    Stop", "End Sub"});
    }

    const std::string kFolder = "odd\x1b[2J" + kC1 + "\nname";
};

}  // namespace

TEST(HarmlessText, ShowsWhatSteersATerminalAndLeavesAllElse) {
    EXPECT_EQ(modTerminalText::Harmless("plain \\x1B text"), "plain \\x1B text");
    EXPECT_EQ(modTerminalText::Harmless("a\x1b[2Jb\x07\n\r\x7f"), "a\\x1B[2Jb\\x07\\x0A\\x0D\\x7F");
    EXPECT_EQ(modTerminalText::Harmless("a\tb"), "a b");
    EXPECT_EQ(modTerminalText::Harmless(kC1 + kBidi + "\xE2\x81\xA6"), "\\x9B\\u202E\\u2066");
    const std::string words = "Gr\xC3\xBC\xC3\x9F"
                              "e \xE6\xBC\xA2 \xF0\x9F\x98\x80";
    EXPECT_EQ(modTerminalText::Harmless(words), words);
    EXPECT_EQ(modTerminalText::Harmless("\x9b"), "\xEF\xBF\xBD") << "a byte that is no character";
    EXPECT_EQ(modTerminalText::Harmless(std::string("a\0b", 3)), "a\\x00b");
}

TEST(HarmlessText, LinesKeepTheirEndsAndOnlyTheProgramsOwnColours) {
    const std::string coloured = modTerminalText::Shaded("x", Shade::Bad, true) + "\n\ty\r\n";
    EXPECT_EQ(modTerminalText::HarmlessLines(coloured, true), coloured);
    EXPECT_THAT(modTerminalText::HarmlessLines(coloured, false), Not(HasSubstr("\x1b")));
    EXPECT_EQ(modTerminalText::HarmlessLines("\x1b[5mx\ry", true), "\\x1B[5mx\\x0Dy");
}

TEST(HarmlessText, JsonKeepsItsValues) {
    const std::string json = "{\n  \"a\": \"" + kC1 + kBidi + "\x7f\"\n}";
    const std::string harmless = modTerminalText::HarmlessJson(json);
    ExpectHarmless(harmless);
    rapidjson::Document document;
    document.Parse(harmless.c_str());
    ASSERT_FALSE(document.HasParseError());
    EXPECT_EQ(document["a"].GetString(), kC1 + kBidi + "\x7f");
}

TEST_F(HarmlessOutput, ReviewAndItsMessagesShowNamesAsTheyAre) {
    const ProgramResult result = Run({"review", kFolder, "--report", "summary"});
    EXPECT_EQ(result.ExitCode, 3);
    ExpectHarmless(result.Output);
    ExpectHarmless(result.Error);
    EXPECT_THAT(
        result.Output,
        AllOf(HasSubstr("odd\\x1B[2J\\x9B\\x0Aname/A\\x1B[31m.vbp"), HasSubstr("Wrote '")));
    EXPECT_THAT(result.Error, HasSubstr("none\\x1B]0;x\\x07.bas"));
    EXPECT_EQ(result.Errors().size(), 1U) << "a line end in a name makes no line: " << result.Error;
}

TEST_F(HarmlessOutput, ArgumentsThatErrorsRepeatAreShownAsTheyAre) {
    const std::string name = "x\x1b[2J\n" + kBidi;
    const std::vector<std::vector<std::string>> commands = {
        {"review", name},
        {name},
        {"review", "--" + name},
        {"review", "a", "--tolerance", name},
        {"rulebase", "check", name},
        {"results", name, "summary"},
        {"script", "check", name},
        {"events", name},
        {"typelib", "list", name}};
    for (const std::vector<std::string>& command : commands) {
        const ProgramResult result = Run(command);
        EXPECT_EQ(result.ExitCode, 2);
        ExpectHarmless(result.Output);
        ExpectHarmless(result.Error);
        EXPECT_EQ(result.Errors().size(), 1U) << result.Error;
    }
}

TEST_F(HarmlessOutput, ResultsInEveryFormAreHarmless) {
    Run({"review", kFolder, "--results", "out"});
    for (const std::string form : {"", " --json", " --csv"}) {
        for (const std::string command : {"summary", "violations", "criteria", "tolerances"}) {
            const ProgramResult result = Shell("$DORVIK results out/*.mdb " + command + form);
            EXPECT_EQ(result.ExitCode, 0) << command << form << result.Error;
            std::string text = result.Output;
            std::erase(text, '\r');
            ExpectHarmless(text);
        }
    }
}

TEST(CsvFormulas, ATextThatASpreadsheetWouldRunIsTakenForText) {
    CsvOutput csv;
    csv.AddLine(
        {"=1+1",
         "+x",
         "-x",
         "@SUM(A1)",
         "  =1",
         "\t=1",
         "\xEF\xBC\x9D"
         "1",
         "=\"a\""});
    EXPECT_EQ(
        csv.Result(),
        "'=1+1,'+x,'-x,'@SUM(A1),'  =1,'\t=1,'\xEF\xBC\x9D"
        "1,\"'=\"\"a\"\"\"\r\n");
}

TEST(CsvFormulas, NumbersStayNumbers) {
    CsvOutput csv;
    csv.AddLine({"-1", "-0.5", "12", "-", "-1+2", "-1.", "a=b", ""});
    EXPECT_EQ(csv.Result(), "-1,-0.5,12,'-,'-1+2,'-1.,a=b,\r\n");
}

}  // namespace dorvik::test
