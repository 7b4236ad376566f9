#include "basic/ParsedText.h"

#include <gtest/gtest.h>

namespace dorvik::basic {
namespace {

struct StatementRow {
    const char* Source;
    const char* Tree;
};

void ExpectStatementTrees(std::initializer_list<StatementRow> rows) {
    for (const StatementRow& row : rows) {
        EXPECT_EQ(BodyText(row.Source), row.Tree) << row.Source;
    }
}

TEST(ParserStatements, AssignmentsAreLetOrSet) {
    ExpectStatementTrees({
        {"x = 1", "x = 1"},
        {"Let x = 1", "x = 1"},
        {"x$ = \"a\"", "x$ = \"a\""},
        {"a(1, 2).b = c", "a(1, 2).b = c"},
        {"Set x = Nothing", "Set x = Nothing"},
        {"Set a.b(1) = New C", "Set a.b(1) = (New C)"},
        {"d!key = 1", "d!key = 1"},
        {"[End] = 1", "End = 1"},
    });
}

TEST(ParserStatements, CallsTakeTheirArgumentsWithAndWithoutParentheses) {
    ExpectStatementTrees({
        {"Foo", "call Foo <>"},
        {"Foo a, b", "call Foo <a, b>"},
        {"Foo a, , c", "call Foo <a, _, c>"},
        {"Foo , b", "call Foo <_, b>"},
        {"Foo()", "call Foo <>"},
        {"Foo (a)", "call Foo <{a}>"},
        {"Foo(a)", "call Foo <{a}>"},
        {"Foo (a), b", "call Foo <{a}, b>"},
        {"Foo (a) + 1, 2", "call Foo <({a} + 1), 2>"},
        {"Foo (a) And b", "call Foo <({a} And b)>"},
        {"Foo -1", "call Foo <(- 1)>"},
        {"Foo x:=1, y:=2", "call Foo <x:=1, y:=2>"},
        {"Foo ByVal a", "call Foo <ByVal a>"},
        {"x.y(1).z 2", "call x.y(1).z <2>"},
        {"x.y(1).z (2), 3", "call x.y(1).z <{2}, 3>"},
        {"x.y(1).z", "call x.y(1).z <>"},
        {"Call Foo", "Call Foo <>"},
        {"Call Foo(a, b)", "Call Foo <a, b>"},
        {"Call Foo((a))", "Call Foo <{a}>"},
        {"Call o.m(1).n(2)", "Call o.m(1).n <2>"},
        {"Foo Not a", "call Foo <(Not a)>"},
        {"Foo \"a\" & b", "call Foo <(\"a\" & b)>"},
    });
}

TEST(ParserStatements, ANameWithAColonAtTheStartOfALineIsALabel) {
    ExpectStatementTrees({
        {"Foo: Bar", "Foo:; call Bar <>"},
        {"x = 1: Foo: Bar", "x = 1; call Foo <>; call Bar <>"},
        {"Close: x = 1", "Close:; x = 1"},
        {"10 x = 1", "10:; x = 1"},
        {"007: x = 1", "7:; x = 1"},
        {"0", "0:"},
        {"2147483647 GoTo 2147483647", "2147483647:; GoTo 2147483647"},
        {"  L: GoTo l", "L:; GoTo l"},
    });
}

TEST(ParserStatements, ASingleLineIfHoldsTheRestOfItsLine) {
    ExpectStatementTrees({
        {"If a Then x: y Else z: w\nv",
         "LineIf a [call x <>; call y <>] Else [call z <>; call w <>]; call v <>"},
        {"If a Then If b Then x Else y", "LineIf a [LineIf b [call x <>] Else [call y <>]]"},
        {"If a Then If b Then x Else y Else z",
         "LineIf a [LineIf b [call x <>] Else [call y <>]] Else [call z <>]"},
        {"If a Then Else x", "LineIf a [] Else [call x <>]"},
        {"If a Then x Else", "LineIf a [call x <>]"},
        {"If a Then: x", "LineIf a [call x <>]"},
        {"1 If a Then 1 Else 2\n2", "1:; LineIf a [GoTo 1] Else [GoTo 2]; 2:"},
        {"If a Then For i = 1 To 2: x: Next: y Else z",
         "LineIf a [For i = 1 To 2 [call x <>]; call y <>] Else [call z <>]"},
        {"If a Then Exit Sub", "LineIf a [Exit Sub]"},
        {"If a Then Close #1 Else Debug.Print Else", "2:37 1025 Expected end of statement"},
    });
}

TEST(ParserStatements, ABlockIfHasElseIfAndElse) {
    ExpectStatementTrees({
        {"If a Then\nx\nEnd If", "If a [call x <>]"},
        {"If a Then ' comment\nx\nEndIf", "If a [call x <>]"},
        {"If a Then\nElseIf b Then x: y\nElse z\nEnd If",
         "If a [] ElseIf b [call x <>; call y <>] Else [call z <>]"},
        {"If a Then\nx\nElse\nIf b Then\ny\nEnd If\nEnd If",
         "If a [call x <>] Else [If b [call y <>]]"},
        {"If a Then\nIf b Then x Else y\nElse: z\nEnd If",
         "If a [LineIf b [call x <>] Else [call y <>]] Else [call z <>]"},
    });
}

TEST(ParserStatements, SelectCaseTakesValuesRangesAndComparisons) {
    ExpectStatementTrees({
        {"Select Case x\nCase 1, 2 To 3, Is > 4, < 5\ny\nCase Is <= a\nCase Else\nz\nEnd Select",
         "Select x Case 1, 2 To 3, Is > 4, Is < 5 [call y <>] Case Is <= a [] Case Else [call z "
         "<>]"},
        {"Select Case x: Case = 1: y: End Select", "Select x Case Is = 1 [call y <>]"},
        {"Select Case x\nEnd Select", "Select x"},
        {"Select Case x\n' comment\n\nCase -1 To 1\nEnd Select", "Select x Case (- 1) To 1 []"},
    });
}

TEST(ParserStatements, LoopsNest) {
    ExpectStatementTrees({
        {"For i = 1 To 10\nx\nNext", "For i = 1 To 10 [call x <>]"},
        {"For i = 10 To 1 Step -1: Next i", "For i = 10 To 1 Step (- 1) []"},
        {"For i = 1 To 2\nFor j = 1 To 3\nx\nNext j, i",
         "For i = 1 To 2 [For j = 1 To 3 [call x <>]]"},
        {"For i% = 1 To Step: Next I", "For i% = 1 To Step []"},
        {"For Each v In c.Items\nx v\nNext v", "ForEach v In c.Items [call x <v>]"},
        {"For i = 1 To 2: Next: For i = 1 To 2: Next", "For i = 1 To 2 []; For i = 1 To 2 []"},
        {"Do\nx\nLoop", "Do [call x <>]"},
        {"Do While a\nLoop", "Do While a []"},
        {"Do Until a: Loop", "Do Until a []"},
        {"Do: Loop While a", "Do [] While a"},
        {"Do: Exit Do: Loop Until a", "Do [Exit Do] Until a"},
        {"While a\nx\nWend", "While While a [call x <>]"},
        {"With a.b\n.x = .y + !z\n.m 1\nWith .c\n.x = 1\nEnd With\nEnd With",
         "With a.b [.x = (.y + !z); call .m <1>; With .c [.x = 1]]"},
    });
}

TEST(ParserStatements, JumpsNameLabels) {
    ExpectStatementTrees({
        {"L: GoSub L: Return", "L:; GoSub L; Return"},
        {"1 On x GoTo 1, L\nL:\nOn x + 1 GoSub L", "1:; On x GoTo 1, L; L:; On (x + 1) GoSub L"},
        {"L: On Error GoTo L", "L:; On Error GoTo L"},
        {"On Error Resume Next", "On Error Resume Next"},
        {"On Error GoTo 0: On Error GoTo -1", "On Error off; On Error end handler"},
        {"On Local Error GoTo 0", "On Error off"},
        {"L: Resume: Resume 0: Resume Next: Resume L", "L:; Resume; Resume; Resume Next; Resume L"},
        {"End: Stop", "End; Stop"},
        {"Error 5: Error x + 1", "Error 5; Error (x + 1)"},
    });
}

TEST(ParserStatements, MidLSetAndRSetChangeText) {
    ExpectStatementTrees({
        {"Mid(s, 1) = t", "Mid s from 1 = t"},
        {"Mid$(s.x, 1, 2) = t", "Mid s.x from 1 for 2 = t"},
        {"Mid(1) = t", "Mid(1) = t"},
        {"LSet s = t", "LSet s = t"},
        {"RSet s.a = t", "RSet s.a = t"},
    });
}

TEST(ParserStatements, ReDimTakesNamesAndMembers) {
    ExpectStatementTrees({
        {"ReDim a(5)", "ReDim a(5)"},
        {"ReDim Preserve a(1 To 3, n) As Long, b(2)", "ReDim Preserve a(1 To 3, n) As Long, b(2)"},
        {"ReDim r.m(1), r.a(2).b(3)", "ReDim r.m(1), r.a(2).b(3)"},
        {"With r\nReDim .m(f(1))\nEnd With", "With r [ReDim .m(f(1))]"},
        {"Erase a, r.m", "Erase a, r.m"},
    });
}

TEST(ParserStatements, LocalDeclarations) {
    ExpectStatementTrees({
        {"Dim a As Long, b, c$, d(5) As String, e() As Variant, f As String * 10, g As New "
         "Collection",
         "Dim a As Long, b, c$, d(5) As String, e() As Variant, f As String * 10, g As New "
         "Collection"},
        {"Static n As Integer", "Static n As Integer"},
        {"Const A = 1, B As Long = A + 1", "Const A = 1, B As Long = (A + 1)"},
        {"Dim Name, Type, Step", "Dim Name, Type, Step"},
        {"Attribute x.VB_Description = \"a\"", ""},
    });
}

TEST(ParserStatements, DebugPrintKeepsItsSeparators) {
    ExpectStatementTrees({
        {"Debug.Print", "Print "},
        {"Debug.Print a; b, c", "Print a; b, c"},
        {"Debug.Print a;", "Print a;"},
        {"Debug.Print , ; a", "Print , ; a"},
        {"Debug.Print Spc(3); Tab(n + 1), Tab; \"x\"", "Print Spc:3; Tab:(n + 1), Tab:; \"x\""},
        {"Debug.Print \"a\" b", "Print \"a\"; b"},
        {"Debug.Assert a = b", "Assert (a = b)"},
    });
}

TEST(ParserStatements, FileStatementsAreRefusedAndNotRead) {
    ExpectStatementTrees({
        {"Open \"f\" For Input As #1: x = 1", "refused Open; x = 1"},
        {"Open (p) For Binary Access Read Lock Write As f Len = 3", "refused Open"},
        {"Close #1, #2", "refused Close"},
        {"Print #1, \"a\"; b,", "refused Print"},
        {"Print#1, a", "refused Print"},
        {"Write #1, a, #1/1/2000#", "refused Write"},
        {"Line Input #1, a$", "refused Line Input"},
        {"Input #1, a, b", "refused Input"},
        {"Get #1, , x", "refused Get"},
        {"Lock #1, 1 To 2", "refused Lock"},
        {"Lock 1, 1 To 2", "refused Lock"},
        {"Width #1, 80", "refused Width"},
        {"Name \"a\" As \"b\"", "refused Name"},
        {"Date = 5", "refused Date"},
        {"Time$ = \"12:00\"", "refused Time"},
        {"If a Then Close #1 Else x", "LineIf a [refused Close] Else [call x <>]"},
    });
}

TEST(ParserStatements, FileStatementsThatLookLikeCallsKeepTheCall) {
    ExpectStatementTrees({
        {"Reset", "refused Reset <>"},
        {"x = 1: Close", "x = 1; refused Close <>"},
        {"Close 1, 2", "refused Close <1, 2>"},
        {"Put 1, , x", "refused Put <1, _, x>"},
        {"Seek (1), 2", "refused Seek <{1}, 2>"},
    });
}

TEST(ParserStatements, NamesOfStatementsAreVariablesWhereTheRestDoesNotFit) {
    ExpectStatementTrees({
        {"Name = 5", "Name = 5"},
        {"Open = Close", "Open = Close"},
        {"Get(1) = Put", "Get(1) = Put"},
        {"Lock.x = 1", "Lock.x = 1"},
        {"Line = Input", "Line = Input"},
        {"Error = 1: Mid = 2", "Error = 1; Mid = 2"},
        {"Property = Type", "Property = Type"},
        {"Attribute = 1", "Attribute = 1"},
        {"Dim Date: Date = 5", "Dim Date; Date = 5"},
        {"Debug = 1", "Debug = 1"},
        {"Width Step", "refused Width <Step>"},
        {"Remark = 1", "Remark = 1"},
    });
}

TEST(ParserStatements, AModuleNameTakesDateAndTimeForItself) {
    EXPECT_EQ(ModuleText("Dim Time\nSub M()\nTime = 1\nEnd Sub"), "Dim Time; Sub M() [Time = 1]");
    EXPECT_EQ(ModuleText("Function Date()\nDate = 1\nEnd Function"), "Function Date() [Date = 1]");
}

TEST(ParserStatements, EmptyStatementsAreAllowed) {
    EXPECT_EQ(BodyText("::x = 1::\n:\n: y = 2"), "x = 1; y = 2");
}

TEST(ParserStatements, NextKnowsItsPlace) {
    const ParsedModule parsed = ParseModule("Sub M()\nFor i = 1 To 2\nx\n  Next\nEnd Sub");
    const auto& body = std::get<ProcedureNode>(parsed.Module.Items.at(0)).Body;
    EXPECT_EQ(std::get<ForStatement>(body.at(0).Node).NextPlace, (SourcePlace{4, 3}));
}

}  // namespace
}  // namespace dorvik::basic
