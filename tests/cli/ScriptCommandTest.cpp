#include "cli/CommandLineFixture.h"

#include <gmock/gmock.h>

#include <chrono>
#include <sstream>
#include <thread>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class ScriptCommand : public CommandLineFixture {};

}  // namespace

TEST_F(ScriptCommand, RunPrintsLinesOnStandardOutputAndEndsWithZero) {
    WriteLines("a.dvs", {"Sub Main", "Debug.Print \"one\"; 2", "Debug.Print", "End Sub"});
    const ProgramResult result = Run({"script", "run", "a.dvs"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_EQ(result.Output, "one 2 \n\n");
    EXPECT_THAT(result.Error, IsEmpty());
}

TEST_F(ScriptCommand, AnUntrappedErrorTellsNumberTextFileAndLineAndEndsWithOne) {
    WriteLines(
        "a.dvs",
        {"Sub Main", "Debug.Print 1", "Helper", "End Sub", "Sub Helper", "x = 1 / 0", "End Sub"});
    const ProgramResult result = Run({"script", "run", "a.dvs"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(result.Output, " 1 \n");
    EXPECT_EQ(result.Error, "Run-time error '11': Division by zero (a.dvs, line 6)\n");
}

TEST_F(ScriptCommand, ARaisedErrorHasItsOwnText) {
    WriteLines("a.dvs", {"Sub Main", "Err.Raise 1000, , \"no luck\"", "End Sub"});
    const ProgramResult result = Run({"script", "run", "a.dvs"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(result.Error, "Run-time error '1000': no luck (a.dvs, line 2)\n");
}

TEST_F(ScriptCommand, EachCompileErrorIsALineWithFileLineAndColumnAndEndsWithTwo) {
    WriteLines("bad.dvs", {"Sub Main", "  If x The", "  y = (1", "End Sub"});
    for (const char* command : {"run", "check", "disassemble"}) {
        const ProgramResult result = Run({"script", command, "bad.dvs"});
        EXPECT_EQ(result.ExitCode, 2) << command;
        EXPECT_EQ(result.Error, "bad.dvs:2:8: Expected 'Then'\nbad.dvs:3:9: Expected ')'\n")
            << command;
        EXPECT_THAT(result.Output, IsEmpty()) << command;
    }
}

TEST_F(ScriptCommand, SubNamesWhatIsRunInAnyCase) {
    WriteLines(
        "a.dvs",
        {"Sub Main", "Debug.Print 1", "End Sub", "Sub Other()", "Debug.Print 2", "End Sub"});
    EXPECT_EQ(Run({"script", "run", "a.dvs", "--sub", "OTHER"}).Output, " 2 \n");
}

TEST_F(ScriptCommand, ASubThatIsNotThereIsARunTimeErrorWithoutALine) {
    WriteLines("a.dvs", {"Sub Main(x)", "End Sub"});
    for (const char* name : {"Nope", "Main"}) {
        const ProgramResult result = Run({"script", "run", "a.dvs", "--sub", name});
        EXPECT_EQ(result.ExitCode, 1);
        EXPECT_EQ(
            result.Error,
            "Run-time error '35': Sub, Function, or Property not defined: '" + std::string(name) +
                "' without arguments (a.dvs)\n");
    }
}

TEST_F(ScriptCommand, WithoutFactsTheExtensionObjectIsNotThereAndTheUserIsTold) {
    WriteLines("a.dvs", {"Sub Main", "Dorvik.RaiseViolation", "End Sub"});
    const ProgramResult result = Run({"script", "run", "a.dvs"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(
        result.Error,
        "Run-time error '424': Object required (a.dvs, line 2)\n"
        "dorvik: the object 'Dorvik' exists only with --facts\n");
}

TEST_F(ScriptCommand, AMissingFileAndAFolderAreNamedInOneSentence) {
    WriteLines("a.dvs", {"Sub Main", "End Sub"});
    const struct {
        std::vector<std::string> Arguments;
        std::string Error;
    } kCases[] = {
        {{"run", "no.dvs"}, "dorvik: the script 'no.dvs' does not exist\n"},
        {{"check", "no.dvs"}, "dorvik: the script 'no.dvs' does not exist\n"},
        {{"disassemble", "no.dvs"}, "dorvik: the script 'no.dvs' does not exist\n"},
        {{"run", "."}, "dorvik: the script '.' is a folder\n"},
        {{"run", "a.dvs", "--facts", "no.json"},
         "dorvik: the file of facts 'no.json' does not exist\n"},
        {{"run", "a.dvs", "--facts", "."}, "dorvik: the file of facts '.' is a folder\n"},
    };
    for (const auto& [arguments, error] : kCases) {
        std::vector<std::string> words{"script"};
        words.insert(words.end(), arguments.begin(), arguments.end());
        const ProgramResult result = Run(words);
        EXPECT_EQ(result.ExitCode, 2);
        EXPECT_EQ(result.Error, error);
        EXPECT_THAT(result.Output, IsEmpty());
    }
}

TEST_F(ScriptCommand, SecondsStopAScriptThatRunsLonger) {
    WriteLines("a.dvs", {"Sub Main", "On Error Resume Next", "Do", "Loop", "End Sub"});
    const ProgramResult result = Run({"script", "run", "a.dvs", "--seconds", "0.2"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_THAT(
        result.Error,
        HasSubstr("Run-time error '18': The script was stopped: the limit of 200 milliseconds was "
                  "reached (a.dvs, line "));
}

TEST_F(ScriptCommand, ATimeLimitBelowAMillisecondIsOne) {
    WriteLines("a.dvs", {"Sub Main", "Do", "Loop", "End Sub"});
    const ProgramResult result = Run({"script", "run", "a.dvs", "--seconds", "0.0001"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_THAT(result.Error, HasSubstr("the limit of 1 milliseconds"));
}

TEST_F(ScriptCommand, ATimeLimitThatIsNoneIsRefusedInOneSentence) {
    WriteLines("a.dvs", {"Sub Main", "End Sub"});
    for (const char* seconds : {"x", "-1", "2000001", "nan", ""}) {
        const ProgramResult result = Run({"script", "run", "a.dvs", "--seconds", seconds});
        EXPECT_EQ(result.ExitCode, 2) << seconds;
        EXPECT_THAT(result.Error, HasSubstr("--seconds")) << seconds;
        ExpectClearSentences(result);
    }
}

TEST_F(ScriptCommand, CtrlCEndsAScriptWithTheCodeThatShellsKnow) {
    WriteLines("a.dvs", {"Sub Main", "Debug.Print \"ready\"", "Do", "Loop", "End Sub"});
    ProgramRun run(Settings({"script", "run", "a.dvs", "--seconds", "60"}));
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    run.Interrupt();
    run.Wait();
    EXPECT_EQ(run.ExitCode(), 130);
    EXPECT_THAT(run.Error(), HasSubstr("Run-time error '18': User interrupt occurred"));
}

TEST_F(ScriptCommand, AScriptIsReadAsCodePage1252OrAsUtf8WithItsMark) {
    WriteBytes(
        "ansi.dvs", "Sub Main\nDebug.Print Len(\"\xE4\"); AscW(\"\xE4\"); \"\xE4\"\nEnd Sub\n");
    WriteBytes(
        "utf8.dvs",
        "\xEF\xBB\xBFSub Main\nDebug.Print Len(\"\xC3\xA4\"); AscW(\"\xC3\xA4\"); "
        "\"\xC3\xA4\"\nEnd Sub\n");
    for (const char* file : {"ansi.dvs", "utf8.dvs"}) {
        EXPECT_EQ(Run({"script", "run", file}).Output, " 1  228 \xC3\xA4\n") << file;
    }
}

TEST_F(ScriptCommand, ARefusedStatementRaises70AndTheTextOfAMessageBoxIsTold) {
    WriteLines("a.dvs", {"Sub Main", "MsgBox \"hello\"", "End Sub"});
    const ProgramResult result = Run({"script", "run", "a.dvs"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(
        result.Error,
        "dorvik: the script would have shown: hello\n"
        "Run-time error '70': Permission denied (a.dvs, line 2)\n");
}

TEST_F(ScriptCommand, CheckIsSilentAboutAScriptWithoutFaults) {
    WriteLines("a.dvs", {"Sub Main", "Dorvik.RaiseViolation", "End Sub"});
    const ProgramResult result = Run({"script", "check", "a.dvs"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Output + result.Error, IsEmpty());
}

TEST_F(ScriptCommand, CheckTellsWarningsOfSeveralFilesAndTheWorstDecides) {
    WriteLines(
        "warn.dvs",
        {"Sub Main",
         "  Kill \"x\"",
         "  Open \"y\" For Input As #1",
         "  Dorvik.RaiseViolations",
         "  Dorvik.RaiseViolation 1",
         "Unused:",
         "End Sub"});
    WriteLines("bad.dvs", {"Sub Main", "Nope", "End Sub"});
    const ProgramResult warned = Run({"script", "check", "warn.dvs"});
    EXPECT_EQ(warned.ExitCode, 0);
    EXPECT_THAT(warned.Error, IsEmpty());
    for (const char* line : {
             "warn.dvs:2:3: warning: 'Kill' is refused: reaching it raises error 70\n",
             "warn.dvs:3:3: warning: 'Open' is refused: reaching it raises error 70\n",
             "warning: 'Dorvik.RaiseViolations' does not exist: reaching it raises error 438\n",
             "warning: 'Dorvik.RaiseViolation' takes 0 arguments, not 1",
             "warn.dvs:6:1: warning: The label 'Unused' is not used\n",
         }) {
        EXPECT_THAT(warned.Output, HasSubstr(line));
    }
    const ProgramResult both = Run({"script", "check", "bad.dvs", "warn.dvs"});
    EXPECT_EQ(both.ExitCode, 2);
    EXPECT_EQ(both.Output, warned.Output);
    EXPECT_THAT(both.Error, HasSubstr("bad.dvs:2:1: "));
}

TEST_F(ScriptCommand, CheckRunsNothing) {
    WriteLines("a.dvs", {"Sub Main", "Debug.Print 1", "x = 1 / 0", "End Sub"});
    EXPECT_THAT(Run({"script", "check", "a.dvs"}).Output, Not(HasSubstr("1")));
}

TEST_F(ScriptCommand, DisassembleShowsEachLineAndItsInstructions) {
    WriteLines(
        "a.dvs", {"Sub Main", "  Debug.Print \"one\"", "  Dorvik.RaiseViolation", "End Sub"});
    const ProgramResult result = Run({"script", "disassemble", "a.dvs"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Output, HasSubstr("Sub Main"));
    EXPECT_THAT(result.Output, HasSubstr("    2    Debug.Print \"one\"\n"));
    EXPECT_THAT(result.Output, HasSubstr("LoadConstant"));
    EXPECT_THAT(result.Output, HasSubstr("; RaiseViolation\n"));
    EXPECT_THAT(result.Output, Not(HasSubstr(" \n"))) << "blanks at the end of a line";
}

TEST_F(ScriptCommand, TheHelpFitsATerminal) {
    for (const char* command : {"run", "check", "disassemble"}) {
        const ProgramResult result = Run({"script", command, "--help"});
        EXPECT_EQ(result.ExitCode, 0);
        std::istringstream lines(result.Output);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(line.size(), 80U) << line;
        }
    }
}

}  // namespace dorvik::test
