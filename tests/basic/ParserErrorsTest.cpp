#include "basic/ParsedText.h"

#include <gtest/gtest.h>

namespace dorvik::basic {
namespace {

struct ParserErrorRow {
    const char* Source;
    const char* Errors;
};

/// The sources are bodies of a Sub that begin in line 2.
void ExpectBodyErrors(std::initializer_list<ParserErrorRow> rows) {
    for (const ParserErrorRow& row : rows) {
        EXPECT_EQ(BodyText(row.Source), row.Errors) << row.Source;
    }
}

void ExpectModuleErrors(std::initializer_list<ParserErrorRow> rows) {
    for (const ParserErrorRow& row : rows) {
        EXPECT_EQ(ErrorLines(ParseModule(row.Source)), row.Errors) << row.Source;
    }
}

TEST(ParserErrors, AMissingWordIsNamed) {
    ExpectBodyErrors({
        {"If x\ny\nEnd If", "2:5 1017 Expected 'Then'"},
        {"If x y Then z", "2:6 1017 Expected 'Then'"},
        {"x = (1", "2:7 1006 Expected ')'"},
        {"x = f(1", "2:8 1006 Expected ')'"},
        {"x = ", "2:5 1023 Expected expression"},
        {"x = * 2", "2:5 1023 Expected expression"},
        {"Let x 1", "2:7 1011 Expected '='"},
        {"Set x", "2:6 1011 Expected '='"},
        {"For i 1 To 2\nNext", "2:7 1011 Expected '='"},
        {"For i = 1\nNext", "2:10 1013 Expected 'To'"},
        {"For Each v c\nNext", "2:12 1046 Expected 'In'"},
        {"For = 1 To 2\nNext", "2:5 1010 Expected identifier"},
        {"Select x\nCase 1\nEnd Select", "2:8 1021 Expected 'Case'"},
        {"Do x\nLoop", "2:4 1028 Expected 'While', 'Until' or end of statement"},
        {"Do\nLoop x", "3:6 1028 Expected 'While', 'Until' or end of statement"},
        {"Dim 5", "2:5 1010 Expected identifier"},
        {"Dim Next", "2:5 1010 Expected identifier: 'Next' is a reserved word"},
        {"Const A", "2:8 1011 Expected '='"},
        {"Dim a(5", "2:8 1006 Expected ')'"},
        {"ReDim a", "2:8 1005 Expected '('"},
        {"On Error Resume x", "2:17 1020 Expected 'Next'"},
        {"GoTo", "2:5 1010 Expected identifier: the name or number of a label"},
        {"On x y", "2:6 1002 Syntax error: expected 'GoTo' or 'GoSub'"},
        {"x.", "2:3 1010 Expected identifier"},
        {"x = [a", "2:7 1007 Expected ']'"},
        {"= 1", "2:1 1024 Expected statement"},
        {"x = TypeOf a",
         "2:13 1002 Syntax error: 'TypeOf x' is followed by 'Is' and the name of a class"},
        {"Select Case x\nCase Is y\nEnd Select",
         "3:9 1002 Syntax error: 'Case Is' is followed by a comparison operator"},
        {"Foo 1,", "2:7 1023 Expected expression"},
        {"Foo(1,)", "2:7 1023 Expected expression"},
    });
}

TEST(ParserErrors, SomethingBehindAStatementIsNamed) {
    ExpectBodyErrors({
        {"x = 1 2", "2:7 1025 Expected end of statement"},
        {"Foo(a) b", "2:8 1025 Expected end of statement"},
        {"x = 1; y", "2:6 1025 Expected end of statement"},
        {"Dim x = 1",
         "2:7 1025 Expected end of statement: a declaration gives no value; assign it in a "
         "statement of its own"},
        {"Return x",
         "2:8 1025 Expected end of statement: 'Return' gives no value; assign it to the name of "
         "the function"},
        {"Call Foo a",
         "2:10 1025 Expected end of statement: the arguments of 'Call' must be in parentheses"},
        {"Call Foo (a), b",
         "2:13 1025 Expected end of statement: the arguments of 'Call' must be in parentheses"},
        {"Do While a\nLoop Until b",
         "3:6 1025 Expected end of statement: the 'Do' has a condition already"},
        {"If a Then b Else c Else d", "2:20 1025 Expected end of statement"},
        {"Exit Sub x", "2:10 1025 Expected end of statement"},
        {"x = ? 1", "2:5 1032 Invalid character: '?'"},
    });
}

TEST(ParserErrors, WhatOtherDialectsHaveIsRefusedByName) {
    ExpectBodyErrors({
        {"x += 1", "2:3 1002 '+=' is not an operator of this language; write 'x = x + ...'"},
        {"x &= 1", "2:3 1002 '&=' is not an operator of this language; write 'x = x & ...'"},
        {"If a AndAlso b Then c",
         "2:6 1002 'AndAlso' is not an operator of this language; write 'And'"},
        {"x = a OrElse b", "2:7 1002 'OrElse' is not an operator of this language; write 'Or'"},
        {"x = a IsNot b",
         "2:7 1002 'IsNot' is not an operator of this language; write 'Not a Is b'"},
        {"Try\nx\nCatch e As Exception\ny\nFinally\nz\nEnd Try",
         "2:1 1002 'Try' is not part of this language; use 'On Error'"},
        {"Begin Dialog D 1,2\nOKButton 1,2,3\n) nonsense\nEnd Dialog\nx = 1",
         "2:1 1002 Dialogs ('Begin Dialog') are not available"},
        {"Me.x = 1", "2:1 1002 'Me' is not available in a module"},
        {"x = AddressOf Foo", "2:5 1002 'AddressOf' is not available"},
    });
}

TEST(ParserErrors, ParenthesesAroundTheArgumentsOfACallStatement) {
    ExpectBodyErrors({
        {"Foo(a, b)", "2:4 1044 Cannot use parentheses when calling a Sub"},
        {"Foo (a, b)", "2:5 1044 Cannot use parentheses when calling a Sub"},
        {"x.y(1).Foo(a, (b))", "2:11 1044 Cannot use parentheses when calling a Sub"},
        {"Foo(x:=1)", "2:4 1044 Cannot use parentheses when calling a Sub"},
    });
}

TEST(ParserErrors, ArgumentsWithoutANameStandBeforeThoseWithOne) {
    ExpectBodyErrors({
        {"Foo a:=1, 2", "2:11 1002 An argument without a name follows a named one"},
        {"x = f(a:=1, , b:=2)", "2:13 1002 An argument without a name follows a named one"},
    });
}

TEST(ParserErrors, AnUnclosedBlockIsReportedWhereItBegins) {
    ExpectBodyErrors({
        {"If a Then\nx", "2:1 1014 Expected 'End If': 'End Sub' in line 4 comes before it"},
        {"For i = 1 To 2\nx", "2:1 1020 Expected 'Next': 'End Sub' in line 4 comes before it"},
        {"Do\nx", "2:1 1019 Expected 'Loop': 'End Sub' in line 4 comes before it"},
        {"While a\nx", "2:1 1018 Expected 'Wend': 'End Sub' in line 4 comes before it"},
        {"Select Case a\nCase 1",
         "2:1 1014 Expected 'End Select': 'End Sub' in line 4 comes before it"},
        {"With a\nx", "2:1 1014 Expected 'End With': 'End Sub' in line 4 comes before it"},
        {"Do\nIf a Then\nx",
         "2:1 1019 Expected 'Loop': 'End Sub' in line 5 comes before it\n"
         "3:1 1014 Expected 'End If': 'End Sub' in line 5 comes before it"},
    });
}

TEST(ParserErrors, CrossedBlocksAreReportedOnce) {
    ExpectBodyErrors({
        {"For i = 1 To 2\nIf a Then\nNext\nEnd If",
         "3:1 1014 Expected 'End If': 'Next' in line 4 comes before it"},
        {"Do\nWith a\nLoop\nEnd With",
         "3:1 1014 Expected 'End With': 'Loop' in line 4 comes before it"},
        {"If a Then\nFor i = 1 To 2\nElse\nNext\nEnd If",
         "3:1 1020 Expected 'Next': 'Else' in line 4 comes before it"},
        {"For i = 1 To 2\nFor j = 1 To 2\nNext i\nNext j",
         "4:6 1040 Invalid 'For' loop control variable: 'Next i' does not belong to the 'For' in "
         "line 3"},
        {"If a Then For i = 1 To 2\nx\nNext",
         "2:11 1020 Expected 'Next' on the same line: the block began after a single-line 'If'"},
    });
}

TEST(ParserErrors, AClosingWordWithoutItsBlock) {
    ExpectBodyErrors({
        {"Next", "2:1 1055 Unexpected 'Next'"},
        {"Loop", "2:1 1038 'Loop' without 'Do'"},
        {"Wend", "2:1 1002 'Wend' without 'While'"},
        {"End If", "2:1 1002 'End If' without 'If'"},
        {"EndIf", "2:1 1002 'End If' without 'If'"},
        {"Else", "2:1 1002 'Else' without 'If'"},
        {"ElseIf a Then", "2:1 1002 'ElseIf' without 'If'"},
        {"End Select", "2:1 1002 'End Select' without 'Select Case'"},
        {"Case 1", "2:1 1002 'Case' without 'Select Case'"},
        {"End With", "2:1 1002 'End With' without 'With'"},
        {"If a Then\nElse\nElse\nEnd If", "4:1 1002 'Else' after 'Else'"},
        {"If a Then\nElse\nElseIf b Then\nEnd If", "4:1 1002 'ElseIf' after 'Else'"},
        {"Select Case a\nCase Else\nCase 1\nEnd Select", "4:1 1002 'Case' after 'Case Else'"},
        {"Select Case a\nx\ny\nCase 1\nEnd Select",
         "3:1 1021 Expected 'Case': no statement can come before the first one"},
        {"If a Then x: End If", "2:14 1002 'End If' cannot end a single-line 'If'"},
        {"If a Then\nx = 1: Else\nEnd If", "3:8 1042 Must be first statement on the line"},
        {"If a Then\nx = 1: End If", "3:8 1042 Must be first statement on the line"},
    });
}

TEST(ParserErrors, ABrokenBlockHeadStillOpensItsBlock) {
    ExpectBodyErrors({
        {"If x = Then\ny\nElse\nz\nEnd If", "2:8 1023 Expected expression"},
        {"If x = Then y Else z", "2:8 1023 Expected expression"},
        {"For i = To 3\nNext", "2:9 1023 Expected expression"},
        {"While )\nWend", "2:7 1023 Expected expression"},
        {"With )\n.x = 1\nEnd With", "2:6 1023 Expected expression"},
        {"Select Case )\nCase 1\nEnd Select", "2:13 1023 Expected expression"},
    });
}

TEST(ParserErrors, ParsingGoesOnBehindAnError) {
    ExpectBodyErrors({
        {"x = )\ny = 1\nz = (", "2:5 1023 Expected expression\n4:6 1023 Expected expression"},
        {"x = ): Do\nLoop\nFoo(a, b)",
         "2:5 1023 Expected expression\n4:4 1044 Cannot use parentheses when calling a Sub"},
    });
}

TEST(ParserErrors, ALineHasAtMostOneError) {
    ExpectBodyErrors({{"x = ): y = ): z = )", "2:5 1023 Expected expression"}});
}

TEST(ParserErrors, ExitStandsInWhatItLeaves) {
    ExpectBodyErrors({
        {"Exit For",
         "2:1 1039 Invalid 'Exit' statement: 'Exit For' is not in anything that it could leave"},
        {"While a\nExit Do\nWend",
         "3:1 1039 Invalid 'Exit' statement: 'Exit Do' is not in anything that it could leave"},
        {"Exit Function",
         "2:1 1039 Invalid 'Exit' statement: 'Exit Function' is not in anything that it could "
         "leave"},
        {"Exit While",
         "2:6 1039 Invalid 'Exit' statement: expected 'Sub', 'Function', 'Property', 'Do' or "
         "'For'"},
    });
}

TEST(ParserErrors, ANestedForNeedsAVariableOfItsOwn) {
    ExpectBodyErrors({
        {"For i = 1 To 2\nFor I% = 1 To 2\nNext\nNext",
         "3:5 1040 Invalid 'For' loop control variable: the 'For' in line 2 has the same"},
        {"For Each v In a\nFor v = 1 To 2\nNext\nNext",
         "3:5 1040 Invalid 'For' loop control variable: the 'For' in line 2 has the same"},
        {"For a(1) = 1 To 2\nNext", "2:5 1040 Invalid 'For' loop control variable"},
    });
}

TEST(ParserErrors, LabelsAreUniqueAndKnown) {
    ExpectBodyErrors({
        {"L: x\nl: y", "3:1 1041 Name redefined: the label 'l' is in line 2 already"},
        {"1 x\n01 y", "3:1 1041 Name redefined: the label '1' is in line 2 already"},
        {"GoTo L", "2:6 1002 The label 'L' does not exist in this procedure"},
        {"If a Then 5", "2:11 1002 The label '5' does not exist in this procedure"},
        {"1 On x GoTo 1, 2", "2:16 1002 The label '2' does not exist in this procedure"},
        {"Resume L", "2:8 1002 The label 'L' does not exist in this procedure"},
        {"On Error GoTo L", "2:15 1002 The label 'L' does not exist in this procedure"},
        {"2147483648 x", "2:1 1031 Invalid number: a line number is at most 2147483647"},
    });
}

TEST(ParserErrors, LabelsBelongToTheirProcedure) {
    ExpectModuleErrors({
        {"Sub A()\nL: GoTo L\nEnd Sub\nSub B()\nL: GoTo L\nEnd Sub", ""},
        {"Sub A()\nL:\nEnd Sub\nSub B()\nGoTo L\nEnd Sub",
         "5:6 1002 The label 'L' does not exist in this procedure"},
    });
}

TEST(ParserErrors, APointNeedsAWith) {
    ExpectBodyErrors({
        {".x = 1", "2:1 1002 '.x' is not in a 'With'"},
        {"With a\nEnd With\ny = !x", "4:5 1002 '!x' is not in a 'With'"},
    });
}

TEST(ParserErrors, DeclarationsOfModulesStandOutsideProcedures) {
    ExpectBodyErrors({
        {"Public x", "2:1 1002 'Public' is allowed outside procedures only"},
        {"Private Const A = 1", "2:1 1002 'Private' is allowed outside procedures only"},
        {"Type T\nx As Long\nEnd Type", "2:1 1002 'Type' is allowed outside procedures only"},
        {"Enum E\nA\nEnd Enum", "2:1 1002 'Enum' is allowed outside procedures only"},
        {"Private Enum E\nA = \nEnd Enum", "2:1 1002 'Private' is allowed outside procedures only"},
        {"Type T\nx As Long", "2:1 1002 'Type' is allowed outside procedures only"},
        {"DefInt A-Z", "2:1 1002 'DefInt' is allowed outside procedures only"},
        {"Option Explicit", "2:1 1002 An 'Option' must come before the first procedure"},
    });
}

TEST(ParserErrors, OptionsStandBeforeTheFirstProcedureAndOnce) {
    ExpectModuleErrors({
        {"Sub A()\nEnd Sub\nOption Explicit",
         "3:1 1002 An 'Option' must come before the first procedure"},
        {"Option Explicit\nOption Explicit",
         "2:1 1041 Name redefined: 'Option Explicit' is in line 1 already"},
        {"Option Base 2", "1:13 1002 'Option Base' must be 0 or 1"},
        {"Option Base x", "1:13 1026 Expected integer constant"},
        {"Option Compare Database", "1:16 1002 Expected 'Binary' or 'Text'"},
        {"Option Strict", "1:8 1002 Expected 'Explicit', 'Base', 'Compare' or 'Private Module'"},
        {"DefInt A-C\nDefStr B",
         "2:8 1041 Name redefined: the letter 'b' has a type from line 1 already"},
        {"DefInt Z-A", "1:8 1002 The letters of a range must be in alphabetical order"},
        {"DefInt xy", "1:8 1002 Expected a letter"},
        {"Sub A()\nEnd Sub\nDefInt A", "3:1 1002 'DefInt' must come before the first procedure"},
    });
}

TEST(ParserErrors, StatementsStandInProcedures) {
    ExpectModuleErrors({
        {"x = 1", "1:1 1002 A statement must be in a procedure"},
        {"x = 1\ny = 2\nIf a Then\nEnd If\nSub A()\nEnd Sub\nz = 1",
         "1:1 1002 A statement must be in a procedure\n"
         "7:1 1002 A statement must be in a procedure"},
        {"End Sub", "1:1 1002 'End Sub' without 'Sub'"},
        {"Event X()", "1:1 1002 'Event' is not available in a module"},
        {"Class C\nSub A()\nEnd Sub\nEnd Class", "1:1 1002 'Class' is not available in a module"},
        {"Implements X", "1:1 1002 'Implements' is not available in a module"},
        {"Dim WithEvents x As Y", "1:5 1002 'WithEvents' is not available in a module"},
        {"Static x", "1:1 1002 'Static' and 'Friend' are allowed before procedures only"},
    });
}

TEST(ParserErrors, AProcedureEndsWithItsOwnWords) {
    ExpectModuleErrors({
        {"Sub A()\nEnd Function", "2:1 1016 Expected 'End Sub', found 'End Function'"},
        {"Function A()\nEnd Sub", "2:1 1015 Expected 'End Function', found 'End Sub'"},
        {"Property Get A()\nEnd Sub", "2:1 1050 Expected 'End Property', found 'End Sub'"},
        {"Sub A()\nx = 1", "1:5 1014 Expected 'End Sub': the text ends"},
        {"Sub A()\nSub B()\nEnd Sub",
         "1:5 1014 Expected 'End Sub': 'Sub' in line 2 comes before it"},
        {"Sub A()\nIf x Then\nPrivate Function B()\nEnd Function",
         "1:5 1014 Expected 'End Sub': 'Private' in line 3 comes before it\n"
         "2:1 1014 Expected 'End If': 'Private' in line 3 comes before it"},
        {"Sub A()\nIf x Then End Sub", "2:11 1002 'End Sub' cannot follow a single-line 'If'"},
    });
}

TEST(ParserErrors, HeadsOfProcedures) {
    ExpectModuleErrors({
        {"Sub ()\nEnd Sub", "1:5 1010 Expected identifier"},
        {"Sub A(x\nEnd Sub", "1:8 1006 Expected ')'"},
        {"Sub A() As Long\nEnd Sub", "1:9 1025 Expected end of statement"},
        {"Sub A$()\nEnd Sub", "1:5 1002 Only a function has a type suffix"},
        {"Property A()\nEnd Property", "1:10 1049 Expected Let, Set or Get"},
        {"Property Let A()\nEnd Property", "1:14 1054 Property Let or Set needs an argument"},
        {"Sub A(Optional a, b)\nEnd Sub", "1:19 1002 A required parameter follows an optional one"},
        {"Sub A(ParamArray a(), b)\nEnd Sub",
         "1:23 1002 A 'ParamArray' must be the last parameter"},
        {"Sub A(Optional a, ParamArray b())\nEnd Sub",
         "1:30 1002 A 'ParamArray' cannot follow an optional parameter"},
        {"Sub A(ParamArray a)\nEnd Sub",
         "1:18 1002 A 'ParamArray' is written 'ParamArray name() As Variant'"},
        {"Sub A(ParamArray a() As Long)\nEnd Sub",
         "1:18 1002 A 'ParamArray' is written 'ParamArray name() As Variant'"},
        {"Sub A(Optional ParamArray a())\nEnd Sub",
         "1:27 1002 A 'ParamArray' is neither 'Optional' nor 'ByVal'"},
        {"Sub A(ByVal a() As Long)\nEnd Sub", "1:13 1002 An array parameter cannot be 'ByVal'"},
        {"Sub A(a = 1)\nEnd Sub", "1:9 1002 Only an optional parameter has a default value"},
        {"Sub A(a As New C)\nEnd Sub", "1:16 1002 A parameter cannot be declared with 'New'"},
        {"Sub A(a%  As Long)\nEnd Sub", "1:11 1002 A name with a type suffix takes no 'As'"},
    });
}

TEST(ParserErrors, TypesAndEnums) {
    ExpectModuleErrors({
        {"Type T\nEnd Type", "1:6 1002 A 'Type' needs a member"},
        {"Enum E\nEnd Enum", "1:6 1002 An 'Enum' needs a member"},
        {"Type T\nx\nEnd Type", "2:2 1002 Expected 'As': a member of a Type needs one"},
        {"Type T\nx As New C\nEnd Type",
         "2:10 1002 A member of a Type cannot be declared with 'New'"},
        {"Type T\nx As Long", "1:6 1014 Expected 'End Type': the text ends"},
        {"Type T\nx As Long\nSub A()\nEnd Sub",
         "1:6 1014 Expected 'End Type': 'Sub' in line 3 comes before it"},
        {"Type T\nx As Long\nEnd Enum", "3:5 1014 Expected 'End': the block ends with 'End Type'"},
        {"Enum E\nA = \nB\nEnd Enum", "2:5 1023 Expected expression"},
        {"Enum E\nA\nDim x", "1:6 1014 Expected 'End Enum': 'Dim' in line 3 comes before it"},
    });
}

TEST(ParserErrors, OtherDeclarations) {
    ExpectModuleErrors({
        {"Dim a As", "1:9 1010 Expected identifier"},
        {"Dim a As Long * 5", "1:15 1025 Expected end of statement"},
        {"Dim a% As Long", "1:8 1002 A name with a type suffix takes no 'As'"},
        {"Declare Foo Lib \"x\"", "1:9 1016 Expected 'Sub'"},
        {"Declare Sub Foo", "1:16 1002 Expected 'Lib'"},
        {"Const A = ", "1:11 1023 Expected expression"},
        {"Private Private x", "1:9 1010 Expected identifier: 'Private' is a reserved word"},
    });
}

TEST(ParserErrors, StandInTheOrderOfTheText) {
    EXPECT_EQ(
        BodyText("Do\nx = )\nGoTo L"),
        "2:1 1019 Expected 'Loop': 'End Sub' in line 5 comes before it\n"
        "3:5 1023 Expected expression\n"
        "4:6 1002 The label 'L' does not exist in this procedure");
}

}  // namespace
}  // namespace dorvik::basic
