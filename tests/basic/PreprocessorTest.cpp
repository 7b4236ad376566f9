#include "basic/ParsedText.h"

#include <gtest/gtest.h>

namespace dorvik::basic {
namespace {

/// What is left of a body where the condition chooses between a, b and c.
std::string Chosen(const std::string& first, const std::string& second) {
    return BodyText("#If " + first + " Then\na\n#ElseIf " + second + " Then\nb\n#Else\nc\n#End If");
}

TEST(Preprocessor, TheFirstBranchWhoseConditionHoldsIsTaken) {
    EXPECT_EQ(Chosen("True", "True"), "call a <>");
    EXPECT_EQ(Chosen("False", "1"), "call b <>");
    EXPECT_EQ(Chosen("0", "1 > 2"), "call c <>");
}

TEST(Preprocessor, ConstantsAreKnownFromTheirLineOn) {
    EXPECT_EQ(
        ModuleText("#If A Then\nDim x\n#End If\n#Const A = 2 * 3\n#If a = 6 Then\nDim y\n#End If"),
        "Dim y");
}

TEST(Preprocessor, UnknownNamesAreEmpty) {
    EXPECT_EQ(Chosen("Unknown", "Unknown = 0"), "call b <>");
    EXPECT_EQ(Chosen("Unknown = \"\"", "True"), "call a <>");
}

TEST(Preprocessor, ThisIsA32BitVersion6) {
    EXPECT_EQ(Chosen("Win32 And VBA6", "True"), "call a <>");
    EXPECT_EQ(Chosen("Win64 Or VBA7 Or Mac", "True"), "call b <>");
}

TEST(Preprocessor, NullHoldsNot) {
    EXPECT_EQ(Chosen("Null", "Null = 1"), "call c <>");
}

TEST(Preprocessor, BranchesNest) {
    EXPECT_EQ(
        BodyText(
            "#If 0 Then\n#If 1 Then\na\n#Else\nb\n#End If\n#Else\n#If 1 Then\nc\n#End If\n#End If"),
        "call c <>");
}

TEST(Preprocessor, LinesOfADeadBranchAreNotRead) {
    EXPECT_EQ(
        BodyText("#If 0 Then\n) ( [ \"\n#Nonsense ?\nIf x Then\n#Const = \n#End If\nx = 1"),
        "x = 1");
}

TEST(Preprocessor, AContinuedLineOfADeadBranchTakesItsNextLineWithIt) {
    EXPECT_EQ(BodyText("#If 0 Then\na ' note _\n#Else\nb\n#End If\nx = 1"), "x = 1");
    EXPECT_EQ(BodyText("#If 0 Then\na = \"text _\n#Else\nb\n#End If"), "call b <>");
}

TEST(Preprocessor, AConstantOfADeadBranchIsNotDefined) {
    EXPECT_EQ(
        BodyText("#If 0 Then\n#Const A = 1\n#End If\n#If A Then\nx\n#Else\ny\n#End If"),
        "call y <>");
}

TEST(Preprocessor, EndIfIsOneWordOrTwo) {
    EXPECT_EQ(BodyText("#If 1 Then\nx\n#EndIf"), "call x <>");
}

TEST(Preprocessor, TheConditionOfABranchBehindATakenOneIsNotComputed) {
    EXPECT_EQ(BodyText("#If 1 Then\nx\n#ElseIf 1 / 0 Then\n#End If"), "call x <>");
}

TEST(Preprocessor, LinesKeepTheirNumbers) {
    EXPECT_EQ(BodyText("#If 0 Then\nx\n#End If\nx = )"), "5:5 1023 Expected expression");
}

TEST(Preprocessor, ErrorsNameTheDirective) {
    struct Row {
        const char* Source;
        const char* Errors;
    };
    const Row rows[] = {
        {"#If 1 Then", "1:1 1014 Expected 'End': '#If' without '#End If'"},
        {"#If 1\n#End If", "1:6 1017 Expected 'Then'"},
        {"#If Then\n#End If", "1:5 1023 Expected expression"},
        {"#Else", "1:1 1002 '#Else' without '#If'"},
        {"#ElseIf 1 Then", "1:1 1002 '#ElseIf' without '#If'"},
        {"#End If", "1:1 1002 '#End If' without '#If'"},
        {"#If 1 Then\n#Else\n#Else\n#End If", "3:1 1002 '#Else' after '#Else'"},
        {"#If 1 Then\n#Else\n#ElseIf 1 Then\n#End If", "3:1 1002 '#ElseIf' after '#Else'"},
        {"#Const 5 = 1", "1:8 1010 Expected identifier"},
        {"#Const a 1", "1:10 1011 Expected '='"},
        {"#Const a = 1 2", "1:14 1025 Expected end of statement"},
        {"#Region x", "1:1 1002 Expected '#If', '#ElseIf', '#Else', '#End If' or '#Const'"},
        {"#Const a = 1 / 0", "1:14 1002 This constant cannot be computed: Division by zero"},
        {"#If f(1) Then\n#End If", "1:5 1045 A constant expression is expected here"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ErrorLines(ParseModule(row.Source)), row.Errors) << row.Source;
    }
}

}  // namespace
}  // namespace dorvik::basic
