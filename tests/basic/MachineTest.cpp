#include "basic/ScriptRun.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

namespace {

struct ScriptRow {
    const char* What;
    const char* Text;
    const char* Output;
};

void PrintTo(const ScriptRow& row, std::ostream* stream) {
    *stream << row.What;
}

class MachineStatements : public testing::TestWithParam<ScriptRow> {};
class MachineModules : public testing::TestWithParam<ScriptRow> {};

}  // namespace

TEST_P(MachineStatements, PrintWhatTheyShould) {
    EXPECT_EQ(RunStatements(GetParam().Text).Output(), GetParam().Output);
}

TEST_P(MachineModules, PrintWhatTheyShould) {
    EXPECT_EQ(RunModule(GetParam().Text).Output(), GetParam().Output);
}

constexpr ScriptRow kStatements[] = {
    {"sum", "Debug.Print 1 + 2", " 3 \n"},
    {"typed overflow", "Debug.Print 32767 + 1", "Error 6: Overflow\n"},
    {"Variants widen", "a = 32767: Debug.Print a + 1", " 32768 \n"},
    {"Long overflow", "Dim a As Long: a = 2147483647: a = a + 1", "Error 6: Overflow\n"},
    {"Double loop variable", "For d# = 0 To 1 Step 0.5: Debug.Print d#;: Next", " 0  0.5  1 \n"},
    {"variable behind the loop", "Dim i As Long: For i = 1 To 3: Next: Debug.Print i", " 4 \n"},
    {"Integer overflow at Next", "For i% = 32766 To 32767: Next", "Error 6: Overflow\n"},
    {"downward loop",
     "Dim i As Long: For i = 3 To 1 Step -1: Debug.Print i;: Next: Debug.Print",
     " 3  2  1 \n"},
    {"Exit For", "For i = 1 To 9: If i = 3 Then Exit For\nNext: Debug.Print i", " 3 \n"},
    {"Do Until", "Do Until n = 2: n = n + 1: Loop: Debug.Print n", " 2 \n"},
    {"Loop While", "Do: n = n + 1: Loop While n < 3: Debug.Print n", " 3 \n"},
    {"Null condition is False", "If Null Then Debug.Print 1 Else Debug.Print 2", " 2 \n"},
    {"sparse Select",
     "Dim n As Long: n = 9000: Select Case n\nCase 1: x = 1\nCase 900: x = 2\nCase 9000: x = 3\n"
     "Case 90000: x = 4\nEnd Select: Debug.Print x",
     " 3 \n"},
    {"dense Select",
     "Dim n As Long: For n = 0 To 6: Select Case n\nCase 1: x = 1\nCase 2 To 3: x = 2\nCase 4: x = "
     "3\n"
     "Case 5: x = 4\nCase Else: x = 9\nEnd Select: Debug.Print x;: Next",
     " 9  1  2  2  3  4  9 \n"},
    {"Select on text",
     "Select Case \"b\"\nCase \"a\": x = 1\nCase \"b\", \"c\": x = 2\nEnd Select\nDebug.Print x",
     " 2 \n"},
    {"array is copied", "a = Array(1, 2): b = a: b(0) = 9: Debug.Print a(0); b(0)", " 1  9 \n"},
    {"nested arrays", "a = Array(1, Array(2, 3)): a(1)(0) = 7: Debug.Print a(1)(0)", " 7 \n"},
    {"index out of range", "Dim a(3): a(4) = 1", "Error 9: Subscript out of range\n"},
    {"two dimensions",
     "Dim a(1 To 2, 3) As Long: a(2, 3) = 5: Debug.Print a(2, 3); a(1, 0)",
     " 5  0 \n"},
    {"ReDim Preserve",
     "ReDim a(1): a(1) = 4: ReDim Preserve a(3): Debug.Print a(1); UBound(a)",
     " 4  3 \n"},
    {"locked in For Each",
     "a = Array(1): For Each x In a: ReDim a(5): Next",
     "Error 10: This array is fixed or temporarily locked\n"},
    {"For Each over columns",
     "Dim a(1, 1): a(1, 0) = 1: a(0, 1) = 2: a(1, 1) = 3\n"
     "a(0, 0) = 0: For Each x In a: Debug.Print x;: Next",
     " 0  1  2  3 \n"},
    {"handler and Resume Next",
     "On Error GoTo h: x = 1 / 0: Debug.Print \"on\": Exit Sub\n"
     "h: Debug.Print Err.Number: Resume Next",
     " 11 \non\n"},
    {"failing If enters the block",
     "On Error Resume Next\nIf 1 / 0 Then\nDebug.Print \"in\"\nEnd If",
     "in\n"},
    {"failing Select goes to Else",
     "On Error Resume Next\nSelect Case 1 / 0\nCase 0: Debug.Print 0\nCase Else: Debug.Print "
     "1\nEnd Select",
     " 1 \n"},
    {"Resume Next keeps the target",
     "x = 5: On Error Resume Next: x = 1 / 0: Debug.Print x",
     " 5 \n"},
    {"Resume without error", "Resume Next", "Error 20: Resume without error\n"},
    {"GoSub", "GoSub a: Debug.Print 2: Exit Sub\na: Debug.Print 1: Return", " 1 \n 2 \n"},
    {"Return without GoSub", "Return", "Error 3: Return without GoSub\n"},
    {"jump into a For",
     "GoTo a\nFor i = 1 To 2\na: Debug.Print 1: Next",
     " 1 \nError 92: For loop not initialized\n"},
    {"On GoTo", "On 2 GoTo a, b\na: Debug.Print 1\nb: Debug.Print 2", " 2 \n"},
    {"zones", "Debug.Print \"a\", 1; -1; True", "a              1 -1 True\n"},
    {"open line", "Debug.Print 1;: Debug.Print \"x\"", " 1 x\n"},
    {"Mid statement", "s = \"abcd\": Mid(s, 2, 2) = \"XYZ\": Debug.Print s", "aXYd\n"},
    {"LSet", "s = \"abcd\": LSet s = \"x\": Debug.Print s & \"|\"", "x   |\n"},
    {"dictionary",
     "Set d = CreateObject(\"Scripting.Dictionary\"): d!k = 2: Debug.Print d(\"k\"); d.Count",
     " 2  1 \n"},
    {"Nothing",
     "Dim o As Object: Debug.Print o.Count",
     "Error 91: Object variable or With block variable not set\n"},
    {"Set with a value", "Set x = 5", "Error 424: Object required\n"},
    {"As New",
     "Dim c As New Collection: c.Add 4: Debug.Print c(1): Set c = Nothing: Debug.Print c.Count",
     " 4 \n 0 \n"},
    {"End", "Debug.Print 1: End: Debug.Print 2", " 1 \n"},
    {"refused statement", "Kill \"x\"", "Error 70: Permission denied\n"},
    {"text grows in place",
     "For i = 1 To 3: s = s & i & \";\": Next: t = s: s = s & \"!\": Debug.Print t, s",
     "1;2;3;        1;2;3;!\n"},
};
INSTANTIATE_TEST_SUITE_P(Rows, MachineStatements, testing::ValuesIn(kStatements));

constexpr ScriptRow kModules[] = {
    {"recursion",
     "Function F(n As Long) As Long\nIf n < 2 Then F = n Else F = F(n - 1) + F(n - 2)\nEnd "
     "Function\n"
     "Sub Main\nDebug.Print F(15)\nEnd Sub",
     " 610 \n"},
    {"ByRef changes the variable",
     "Sub S(n)\nn = n + 1\nEnd Sub\nSub Main\nx = 1: S x: S (x): Debug.Print x\nEnd Sub",
     " 2 \n"},
    {"ByRef with another type is coerced back",
     "Sub S(n As Long)\nn = n + 1\nEnd Sub\nSub Main\nDim x As Integer: x = 1: S x: Debug.Print "
     "x\nEnd Sub",
     " 2 \n"},
    {"typed variable behind a Variant parameter",
     "Sub S(n)\nn = \"x\"\nEnd Sub\nSub Main\nDim x As Long: S x\nEnd Sub",
     "Error 13: Type mismatch\n"},
    {"ByRef element",
     "Dim a(2) As Long\nSub S(n As Long)\nn = 8\nEnd Sub\nSub Main\nS a(1): Debug.Print a(1)\nEnd "
     "Sub",
     " 8 \n"},
    {"array is locked while an element is out",
     "Dim a() As Long\nSub S(n As Long)\nReDim a(9)\nEnd Sub\nSub Main\nReDim a(2): S a(1)\nEnd "
     "Sub",
     "Error 10: This array is fixed or temporarily locked\n"},
    {"and free again after the error",
     "Dim a() As Long\nSub S(n As Long)\nReDim a(9)\nEnd Sub\nSub Main\nOn Error Resume Next: "
     "ReDim a(2): S a(1)\n"
     "ReDim a(5): Debug.Print UBound(a)\nEnd Sub",
     " 5 \n"},
    {"ParamArray refers to the arguments",
     "Sub S(ParamArray p())\np(0) = p(0) * 2\nEnd Sub\nSub Main\nx = 4: S x, 1: Debug.Print x\nEnd "
     "Sub",
     " 8 \n"},
    {"named and missing arguments",
     "Function F(a, Optional b, Optional c As Long = 7)\nF = a & IsMissing(b) & c\nEnd Function\n"
     "Sub Main\nDebug.Print F(c:=1, a:=2), F(3)\nEnd Sub",
     "2True1        3True7\n"},
    {"Type values are copied deeply",
     "Type T\nA(1) As Long\nEnd Type\nSub Main\nDim x As T, y As T: x.A(0) = 1: y = x: y.A(0) = 2\n"
     "Debug.Print x.A(0); y.A(0)\nEnd Sub",
     " 1  2 \n"},
    {"With of a Type",
     "Type T\nN As Long\nEnd Type\nSub S(n As Long)\nn = 5\nEnd Sub\nSub Main\nDim x(1) As T\nWith "
     "x(1)\nS .N\n"
     ".N = .N + 1\nEnd With\nDebug.Print x(1).N\nEnd Sub",
     " 6 \n"},
    {"Static",
     "Function N()\nStatic c\nc = c + 1: N = c\nEnd Function\nSub Main\nCall N: Debug.Print N\nEnd "
     "Sub",
     " 2 \n"},
    {"property procedures",
     "Private m\nProperty Let P(i, v)\nm = i * v\nEnd Property\nProperty Get P(i)\nP = m + i\nEnd "
     "Property\n"
     "Sub Main\nP(2) = 5: Debug.Print P(1)\nEnd Sub",
     " 11 \n"},
    {"error goes to the caller",
     "Sub S()\nx = 1 / 0\nEnd Sub\nSub Main\nOn Error GoTo h: S: Exit Sub\nh: Debug.Print "
     "Err.Number\nEnd Sub",
     " 11 \n"},
    {"enum and constants",
     "Enum E\nA = 3\nB\nEnd Enum\nConst C = E.B * 2\nSub Main\nDebug.Print B; C\nEnd Sub",
     " 4  8 \n"},
    {"left operand is read first",
     "Function F(n)\nn = 10: F = 1\nEnd Function\nSub Main\nx = 1: Debug.Print x + F(x)\nEnd Sub",
     " 2 \n"},
};
INSTANTIATE_TEST_SUITE_P(Rows, MachineModules, testing::ValuesIn(kModules));

}  // namespace dorvik::basic
