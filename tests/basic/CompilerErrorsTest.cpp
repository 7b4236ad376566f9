#include "basic/ScriptRun.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

namespace {

struct CompilerErrorRow {
    const char* What;
    const char* Text;
    std::int32_t Number;
    std::int32_t Line;
};

void PrintTo(const CompilerErrorRow& row, std::ostream* stream) {
    *stream << row.What;
}

class CompilerErrors : public testing::TestWithParam<CompilerErrorRow> {};

}  // namespace

TEST_P(CompilerErrors, AreToldWithTheirNumberAndLine) {
    const ScriptRun run = RunModule(GetParam().Text);
    ASSERT_FALSE(run.Errors.empty());
    EXPECT_EQ(run.Errors.front().Number, GetParam().Number) << run.Output();
    EXPECT_EQ(run.Errors.front().Place.Line, GetParam().Line) << run.Output();
}

TEST(CompilerError, NamesTheProcedureThatIsNotDefined) {
    const ScriptRun run = RunModule("Const c = 1\nSub Main\nCall Foo_1\nc = 2\nEnd Sub");
    ASSERT_EQ(run.Errors.size(), 2U) << run.Output();
    EXPECT_EQ(run.Errors[0].Name, "Foo_1");
    EXPECT_EQ(run.Errors[1].Name, "");
}

constexpr CompilerErrorRow kCompilerErrorRows[] = {
    {"duplicate procedure", "Sub Main\nEnd Sub\nSub main\nEnd Sub", 1041, 3},
    {"duplicate local", "Sub Main\nDim a\nDim A\nEnd Sub", 1041, 3},
    {"duplicate module name", "Const a = 1\nDim a\nSub Main\nEnd Sub", 1041, 2},
    {"unknown procedure", "Sub Main\nFoo 1\nEnd Sub", 35, 2},
    {"unknown function", "Sub Main\nx = Foo(1)\nEnd Sub", 35, 2},
    {"undeclared name", "Option Explicit\nSub Main\nx = 1\nEnd Sub", 500, 3},
    {"assignment to a constant", "Const c = 1\nSub Main\nc = 2\nEnd Sub", 1002, 3},
    {"too many arguments", "Sub S(a)\nEnd Sub\nSub Main\nS 1, 2\nEnd Sub", 1002, 4},
    {"missing argument", "Sub S(a)\nEnd Sub\nSub Main\nS\nEnd Sub", 449, 4},
    {"unknown named argument", "Sub S(a)\nEnd Sub\nSub Main\nS b:=1\nEnd Sub", 448, 4},
    {"Sub as a function", "Sub S()\nEnd Sub\nSub Main\nx = S\nEnd Sub", 1002, 4},
    {"unknown type", "Sub Main\nDim a As Foo\nEnd Sub", 1002, 2},
    {"circular constants", "Const a = b\nConst b = a\nSub Main\nEnd Sub", 1002, 1},
    {"constant with a call", "Const a = Len(\"x\")\nSub Main\nEnd Sub", 1045, 1},
    {"constant overflow", "Const a = 32767 + 1\nSub Main\nEnd Sub", 1002, 1},
    {"type that contains itself", "Type T\nA As T\nEnd Type\nSub Main\nEnd Sub", 1002, 1},
    {"reversed bounds", "Sub Main\nDim a(3 To 1)\nEnd Sub", 1002, 2},
    {"Exit outside", "Sub Main\nExit For\nEnd Sub", 1039, 2},
    {"same loop variable",
     "Sub Main\nFor i = 1 To 2\nFor i = 1 To 2\nNext\nNext\nEnd Sub",
     1040,
     3},
    {"ByVal array", "Sub S(ByVal a())\nEnd Sub\nSub Main\nEnd Sub", 1002, 1},
    {"Set of a number variable", "Sub Main\nDim n As Long\nSet n = Nothing\nEnd Sub", 1002, 3},
    {"ReDim of a fixed array", "Sub Main\nDim a(2)\nReDim a(3)\nEnd Sub", 1002, 3},
    {"property arguments differ",
     "Property Get P(a)\nEnd Property\nProperty Let P(v)\nEnd Property\nSub Main\nEnd Sub",
     1051,
     1},
};
INSTANTIATE_TEST_SUITE_P(Rows, CompilerErrors, testing::ValuesIn(kCompilerErrorRows));

TEST(CompilerMessages, ADuplicateNameTellsBothScripts) {
    IScriptHost host;
    ScriptEngine engine(host);
    engine.SetAcceptsModules(true);
    engine.SetOrigins({{1, 3, "rule 7 (A)", 7}, {4, 6, "rule 9 (B)", 9}});
    ASSERT_FALSE(engine.LoadText("m.dvs", "\nSub Help\nEnd Sub\n\nSub Help\nEnd Sub\n"));
    EXPECT_EQ(
        engine.LoadErrors().front().Text,
        "Name redefined: 'Help' is defined in line 2 of rule 9 (B) (line 5 of the module) and in "
        "line 2 of rule 7 (A) (line 2 of the module)");
    EXPECT_EQ(engine.ErrorText().substr(0, 10), "m.dvs(5, 5");
}

TEST(CompilerMessages, AllErrorsOfAModuleAreFound) {
    const ScriptRun run = RunModule("Sub Main\nFoo\nBar\nEnd Sub\nSub Main\nEnd Sub");
    EXPECT_EQ(run.Errors.size(), 3u);
}

TEST(CompilerWarnings, TellOfRefusedStatementsUnusedLabelsAndByRefTypes) {
    const ScriptRun run = RunModule(
        "Sub S(n As Long)\nEnd Sub\nSub Main\nDim i As Integer\nKill \"x\"\nS i\nunused:\nEnd Sub");
    ASSERT_EQ(run.Warnings.size(), 3u);
    EXPECT_EQ(run.Warnings[0].Place.Line, 5);
    EXPECT_EQ(run.Warnings[1].Place.Line, 6);
    EXPECT_EQ(run.Warnings[2].Text, "The label 'unused' is not used");
}

}  // namespace dorvik::basic
