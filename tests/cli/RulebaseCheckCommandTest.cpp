#include "cli/RulebaseCommandFixture.h"

#include <gmock/gmock.h>

#include <rapidjson/document.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class RulebaseCheckCommand : public RulebaseCommandFixture {
protected:
    void WriteFlawed(const std::string& name) const {
        RulebaseText text = Team();
        text.Keywords =
            "<UnauthorisedKeywords>" + KeywordElement("5000", 3, 9) + "</UnauthorisedKeywords>";
        WriteBytes(name, text.Text());
    }

    /// A rulebase of coding conventions 6001, 6002, ... with these scripts.
    void WriteScripts(const std::string& name, const std::vector<std::string>& scripts) const {
        RulebaseText text = Team();
        text.LastRuleID = "6999";
        text.Coding = "<CodingConventions>";
        int number = 6001;
        for (std::string script : scripts) {
            for (const auto& [sign, token] :
                 {std::pair("&", "&amp;"), std::pair("\"", "&quot;"), std::pair("\n", "%CRLF%")}) {
                for (std::size_t at = 0; (at = script.find(sign, at)) != std::string::npos;) {
                    script.replace(at, 1, token);
                    at += std::string_view(token).size();
                }
            }
            text.Coding +=
                R"(<CodingConvention RuleID=")" + std::to_string(number) +
                R"(" RuleActive="True" Title="R)" + std::to_string(number) +
                R"(" Description="" PendingViolation="False" EndEventID="-1" Condition=")" +
                script +
                R"(" ParserEventID="30"><ViolationDefinition Name="C" Description="" SeverityLevel="3" Impact="1" CategoryID="-1" Advice=""/></CodingConvention>)";
            ++number;
        }
        text.Coding += "</CodingConventions>";
        WriteBytes(name, text.Text());
    }

    /// What is found in a rulebase of these scripts.
    std::string FoundIn(const std::vector<std::string>& scripts) const {
        WriteScripts("scripts.dvk", scripts);
        const ProgramResult result = Run({"rulebase", "check", "scripts.dvk"});
        EXPECT_EQ(result.ExitCode, result.Output.empty() ? 0 : 1) << result.Error;
        EXPECT_THAT(result.Error, IsEmpty());
        return result.Output;
    }

    static std::string Line(int rule, const std::string& sentence) {
        const std::string number = std::to_string(rule);
        return "scripts.dvk: CodingConvention " + number + " 'R" + number +
               "', Condition: " + sentence + "\n";
    }
};

}  // namespace

TEST_F(RulebaseCheckCommand, IsSilentWhereNothingIsWrong) {
    for (const char* file : {"team.dvk", DORVIK_RULEBASE}) {
        const ProgramResult result = Run({"rulebase", "check", file});
        EXPECT_EQ(result.ExitCode, 0) << result.Output;
        EXPECT_THAT(result.Output, IsEmpty());
        EXPECT_THAT(result.Error, IsEmpty());
    }
}

TEST_F(RulebaseCheckCommand, TellsFileRulePlaceAndReasonOnOneLineAndEndsWithOne) {
    WriteFlawed("bad.dvk");
    const ProgramResult result = Run({"rulebase", "check", "bad.dvk"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(
        result.Output,
        "bad.dvk: UnauthorisedKeyword 5000 'No Stop', ViolationDefinition CategoryID: there is no "
        "category 9; use the ID of a category, or -1 for none\n");
    EXPECT_THAT(result.Error, IsEmpty());
}

TEST_F(RulebaseCheckCommand, JsonHasTheKindAndTheRule) {
    WriteFlawed("bad.dvk");
    const ProgramResult result = Run({"rulebase", "check", "bad.dvk", "--json"});
    EXPECT_EQ(result.ExitCode, 1);
    rapidjson::Document json;
    json.Parse(result.Output.c_str());
    ASSERT_FALSE(json.HasParseError());
    ASSERT_EQ(json.Size(), 1U);
    EXPECT_STREQ(json[0]["kind"].GetString(), "unknown");
    EXPECT_EQ(json[0]["rule"].GetInt(), 5000);
    EXPECT_STREQ(json[0]["file"].GetString(), "bad.dvk");
    EXPECT_EQ(Run({"rulebase", "check", "team.dvk", "--json"}).Output, "[]\n");
}

TEST_F(RulebaseCheckCommand, SeveralFilesAreCheckedAndTheWorstDecides) {
    WriteFlawed("bad.dvk");
    const ProgramResult both = Run({"rulebase", "check", "bad.dvk", "team.dvk"});
    EXPECT_EQ(both.ExitCode, 1);
    const ProgramResult result = Run({"rulebase", "check", "missing.dvk", "bad.dvk"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("the rulebase 'missing.dvk' does not exist"));
    EXPECT_THAT(result.Output, HasSubstr("there is no category 9"));
}

TEST_F(RulebaseCheckCommand, MissingSectionsAreFindings) {
    WriteBytes("bare.dvk", "<Dorvik_Rulebase SchemaVersion=\"6.2\"/>");
    const ProgramResult result = Run({"rulebase", "check", "bare.dvk"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_THAT(
        result.Output, HasSubstr("bare.dvk: Dorvik_Rulebase: the element 'Rules' is missing"));
}

TEST_F(RulebaseCheckCommand, AFileIsNotChanged) {
    RulebaseText text = Team();
    text.SchemaVersion = "6.1";
    WriteBytes("old.dvk", text.Text());
    Run({"rulebase", "check", "old.dvk"});
    EXPECT_EQ(Bytes("old.dvk"), text.Text());
}

TEST_F(RulebaseCheckCommand, AScriptThatDoesNotCompileIsToldWithItsOwnLineAndColumn) {
    EXPECT_EQ(
        FoundIn({"Sub Main()\nEnd Sub", "' two\nSub Main()\n  If x The\n  y = (1\nEnd Sub"}),
        Line(6002, "line 3, column 8: Expected 'Then'") +
            Line(6002, "line 4, column 9: Expected ')'"));
}

TEST_F(RulebaseCheckCommand, AScriptThatCannotBeReadHidesNothingInTheOthers) {
    const std::string found = FoundIn(
        {"Sub Main()\nIf x Then\nEnd Sub",
         "Sub Main()\n  GoTo Nowhere\nEnd Sub",
         "Sub Main()\n  Kill \"x\"\nEnd Sub"});
    EXPECT_THAT(
        found,
        HasSubstr("'R6001', Condition: line 2, column 1: Expected 'End If': 'End Sub' in line 3 "
                  "comes before it\n"));
    EXPECT_THAT(
        found,
        HasSubstr(
            Line(6002, "line 2, column 8: The label 'Nowhere' does not exist in this procedure")));
    EXPECT_THAT(
        found,
        HasSubstr(Line(6003, "line 2, column 3: 'Kill' is refused: reaching it raises error 70")));
}

TEST_F(RulebaseCheckCommand, AScriptWithoutItsEndIsToldAtItsProcedure) {
    EXPECT_EQ(
        FoundIn({"Sub Main()\n  x = 1", "Sub Main()\nEnd Sub"}),
        Line(6001, "line 1, column 5: Expected 'End Sub': the text ends"));
}

TEST_F(RulebaseCheckCommand, AColumnBehindTheNameOfTheMainProcedureIsThatOfTheScript) {
    EXPECT_THAT(
        FoundIn({"Sub Main(): Nowhere\nEnd Sub"}),
        HasSubstr("'R6001', Condition: line 1, column 13: "));
}

TEST_F(RulebaseCheckCommand, ScriptsUseEachOthersProceduresAndMustNotShareAName) {
    const std::string helper = "Function Twice(n)\nTwice = 2 * n\nEnd Function\n";
    EXPECT_EQ(FoundIn({"Sub Main()\nx = Twice(2)\nEnd Sub", helper + "Sub Main()\nEnd Sub"}), "");
    const std::string found =
        FoundIn({helper + "Sub Main()\nEnd Sub", "Sub Main()\nEnd Sub\n" + helper});
    EXPECT_THAT(found, HasSubstr("'R6002', Condition: line 3, column "));
    EXPECT_THAT(
        found, HasSubstr("Name redefined: 'Twice' is defined in line 3 of CodingConvention 6002"));
    EXPECT_THAT(found, HasSubstr("line 1 of CodingConvention 6001 'R6001'"));
}

TEST_F(RulebaseCheckCommand, AnOptionInAScriptIsToldBecauseItStandsBehindAProcedure) {
    EXPECT_THAT(
        FoundIn({"Option Explicit\nSub Main()\nEnd Sub"}),
        HasSubstr("'R6001', Condition: line 1, column 1: "));
}

TEST_F(RulebaseCheckCommand, WhatWouldRaiseAnErrorWhenReachedIsTold) {
    EXPECT_EQ(
        FoundIn({"Sub Main()\n  Kill \"x\"\n  Dorvik.RaiseViolations\nEnd Sub"}),
        Line(6001, "line 2, column 3: 'Kill' is refused: reaching it raises error 70") +
            Line(
                6001,
                "line 3, column 10: 'Dorvik.RaiseViolations' does not exist: reaching it raises "
                "error 438"));
}

TEST_F(RulebaseCheckCommand, AScriptWithoutSubMainIsToldAndDoesNotSpoilTheRest) {
    EXPECT_EQ(
        FoundIn({"Sub Other()\nEnd Sub", "Sub Main()\nEnd Sub"}),
        Line(6001, "the script has no 'Sub Main'"));
}

TEST_F(RulebaseCheckCommand, ANameThatIsReadAndNeverSetIsToldOnceAndADeclaredOneIsNot) {
    EXPECT_EQ(
        FoundIn({"Sub Main()\n  Dovrik.RaiseViolation\n  Dovrik.RaiseViolation\nEnd Sub"}),
        Line(6001, "line 2, column 3: 'Dovrik' is read and never set"));
    EXPECT_EQ(
        FoundIn({"Sub Main()\n  If cuont > 2 Then Dorvik.RaiseViolation\nEnd Sub"}),
        Line(6001, "line 2, column 6: 'cuont' is read and never set"));
    const std::string silent[] = {
        "Sub Main()\nDim n\nDebug.Print n\nEnd Sub",
        "Sub Main()\nFor i = 1 To 2\nDebug.Print i\nNext\nEnd Sub",
        "Sub Main()\nFor Each v In Array(1)\nDebug.Print v\nNext\nEnd Sub",
        "Sub Main()\nDorvik.GetObjectProperty \"File\", \"Name\", v\nDebug.Print v\nEnd Sub",
        "Sub Main()\nFill v\nDebug.Print v\nEnd Sub\nSub Fill(x)\nx = 1\nEnd Sub",
        "Sub Main()\nReDim a(2)\nDebug.Print a(1)\nEnd Sub",
        "Sub Main()\nSet d = CreateObject(\"Scripting.Dictionary\")\nd(\"a\") = 1\nEnd Sub",
        "Dim m\nSub Main()\nDebug.Print m, vbCrLf, Err.Number, Now\nEnd Sub",
        "Sub Main()\nx = 1\nWith x\nEnd With\nEnd Sub",
    };
    for (const std::string& script : silent) {
        EXPECT_EQ(FoundIn({script}), "") << script;
    }
}

TEST_F(RulebaseCheckCommand, AnObjectThatCannotBeCreatedIsTold) {
    EXPECT_EQ(
        FoundIn({"Sub Main()\nSet x = CreateObject(\"Excel.Application\")\nEnd Sub"}),
        Line(
            6001,
            "line 2, column 22: 'Excel.Application' cannot be created, only "
            "'Scripting.Dictionary' and 'VBScript.RegExp' can: reaching it raises error 429"));
}

TEST_F(RulebaseCheckCommand, ASyntaxErrorHidesNoFaultOfAnotherRule) {
    EXPECT_EQ(
        FoundIn(
            {"Sub Main()\nx = )\nEnd Sub\nFunction Helper(n)\nEnd Function",
             "Sub Main()\nNowhere 1\nEnd Sub",
             "Sub Main()\nx = Helper(1)\nDovrik.Raise\nEnd Sub"}),
        Line(6001, "line 2, column 5: Expected expression") +
            Line(6002, "line 2, column 1: Sub, Function or Property 'Nowhere' is not defined") +
            Line(6003, "line 3, column 1: 'Dovrik' is read and never set"));
}

TEST_F(RulebaseCheckCommand, ACompileErrorHidesNoHintOfAnotherRule) {
    EXPECT_EQ(
        FoundIn({"Sub Main()\nExit Function\nEnd Sub", "Sub Main()\nDovrik.Raise\nEnd Sub"}),
        Line(
            6001,
            "line 2, column 1: Invalid 'Exit' statement: 'Exit Function' is not in anything that "
            "it "
            "could leave") +
            Line(6002, "line 2, column 1: 'Dovrik' is read and never set"));
}

TEST_F(RulebaseCheckCommand, ASubMainThatAReviewCannotCallIsToldAndHidesNothing) {
    EXPECT_THAT(
        FoundIn(
            {"' the Sub Main of this rule\nSub Main()\nEnd Sub",
             "Sub Main(x)\nEnd Sub",
             "Sub MainRule()\nEnd Sub",
             "Sub Main(Optional x)\nEnd Sub",
             "Sub Main\nDovrik.Raise\nEnd Sub"}),
        AllOf(
            HasSubstr("'R6001', Condition: line 1, column 7: the first 'Sub Main' of the script"),
            HasSubstr("'R6002', Condition: line 1, column 1: a review calls 'Sub Main' without"),
            HasSubstr("'R6003', Condition: line 1, column 1: the first 'Sub Main' of the script"),
            Not(HasSubstr("R6004")),
            HasSubstr("'R6005', Condition: line 2, column 1: 'Dovrik' is read and never set")));
}

TEST_F(RulebaseCheckCommand, HabitsOfOtherLanguagesGetAHint) {
    const std::pair<std::string, std::string> lines[] = {
        {"If a != 1 Then b = 1", "'!=' is written '<>' here"},
        {"If a == 1 Then b = 1", "'==' is written '=' here"},
        {"// a comment", "a comment begins with ' here"},
        {"b = 1 // a comment", "a comment begins with ' here"},
        {"b = 'abc'", "a ' begins a comment; a string is in double quotes"},
        {"If b = \"abc Then", "the text at the end of the line has no closing quote"},
        {"b = Left(\"abc, 2)", "the text at the end of the line has no closing quote"},
    };
    for (const auto& [line, hint] : lines) {
        EXPECT_THAT(
            FoundIn({"Sub Main()\na = 1: b = 2\n" + line + "\nEnd Sub"}),
            HasSubstr(" (" + hint + ")\n"))
            << line;
    }
    EXPECT_THAT(
        FoundIn({"Sub Main()\nb = )  ' it's a comment\nEnd Sub"}), Not(HasSubstr("double quotes")));
}

}  // namespace dorvik::test
