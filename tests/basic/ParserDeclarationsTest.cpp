#include "basic/ParsedText.h"

#include <gtest/gtest.h>

namespace dorvik::basic {
namespace {

struct DeclarationRow {
    const char* Source;
    const char* Tree;
};

void ExpectTrees(std::initializer_list<DeclarationRow> rows) {
    for (const DeclarationRow& row : rows) {
        EXPECT_EQ(ModuleText(row.Source), row.Tree) << row.Source;
    }
}

TEST(ParserDeclarations, ModuleVariablesHaveFourWords) {
    ExpectTrees({
        {"Dim a\nPrivate b As Long\nPublic c$\nGlobal d(1 To 2) As Byte",
         "Dim a; Dim b As Long; Dim c$; Dim d(1 To 2) As Byte"},
        {"Dim a As Scripting.Dictionary, b As New VBA.Collection",
         "Dim a As Scripting.Dictionary, b As New VBA.Collection"},
        {"Dim a(1 To 3, -1 To 1)", "Dim a(1 To 3, (- 1) To 1)"},
        {"Dim s As String * LENGTH", "Dim s As String * LENGTH"},
        {"Dim Type, Property As Long", "Dim Type, Property As Long"},
        {"Private Property As Long", "Dim Property As Long"},
        {"Private Type As Long", "Dim Type As Long"},
    });
}

TEST(ParserDeclarations, ConstantsMayHaveAScope) {
    ExpectTrees({
        {"Const A = 1\nPublic Const B = 2\nPrivate Const C$ = \"x\"",
         "Const A = 1; Const B = 2; Const C$ = \"x\""},
    });
}

TEST(ParserDeclarations, TypesHaveMembersOfAnyName) {
    ExpectTrees({
        {"Type P\nx As Long: y As Double\n' note\n\nEnd As Date\nSub As Long\nNext As Byte\n"
         "a(5) As Integer\nb() As Variant\ns As String * 4\nn%\nEnd Type",
         "Type P [x As Long, y As Double, End As Date, Sub As Long, Next As Byte, a(5) As Integer, "
         "b() As Variant, s As String * 4, n%]"},
        {"Private Type P\nx As Long\nEnd Type: Dim a As P", "Type P [x As Long]; Dim a As P"},
    });
}

TEST(ParserDeclarations, EnumsHaveMembersWithAndWithoutValues) {
    ExpectTrees({
        {"Enum E\nA\nB = 5: C\n[A name] = B * 2\nEnd Enum\nPublic Enum F\nG\nEnd Enum",
         "Enum E [A, B = 5, C, A name = (B * 2)]; Enum F [G]"},
    });
}

TEST(ParserDeclarations, DeclareIsAccepted) {
    ExpectTrees({
        {"Declare Sub Beep Lib \"kernel32\"", "Declare Sub Beep()"},
        {"Private Declare PtrSafe Function F& Lib \"x\" Alias \"y\" (ByVal a As Any, b())",
         "Declare Function F(ByVal a As Any, b())"},
    });
}

TEST(ParserDeclarations, ProceduresHaveScopeKindParametersAndResult) {
    ExpectTrees({
        {"Sub Main\nEnd Sub", "Sub Main() []"},
        {"Private Static Sub A()\nEnd Sub", "Private Static Sub A() []"},
        {"Static Function A()\nEnd Function", "Static Function A() []"},
        {"Friend Function A%()\nEnd Function", "Function A%() []"},
        {"Public Function A() As String()\nEnd Function", "Function A() As String() []"},
        {"Sub A(): x = 1: End Sub: Sub B(): End Sub", "Sub A() [x = 1]; Sub B() []"},
        {"Property Get P() As Long\nEnd Property\nProperty Let P(v)\nEnd Property\n"
         "Private Property Set P(v)\nEnd Property",
         "Property Get P() As Long []; Property Let P(v) []; Private Property Set P(v) []"},
        {"Sub A(x, ByVal y As Long, ByRef z$, a() As Byte)\nEnd Sub",
         "Sub A(x, ByVal y As Long, z$, a() As Byte) []"},
        {"Sub A(Optional x = 1, Optional ByVal y As Long)\nEnd Sub",
         "Sub A(Optional x = 1, Optional ByVal y As Long) []"},
        {"Sub A(x, ParamArray p() As Variant)\nEnd Sub", "Sub A(x, ParamArray p() As Variant) []"},
        {"Sub Name(Type, Step)\nEnd Sub", "Sub Name(Type, Step) []"},
        {"Function Dir()\nEnd Function", "Function Dir() []"},
    });
}

TEST(ParserDeclarations, DeclarationsMayStandBetweenProcedures) {
    ExpectTrees({
        {"Sub A()\nEnd Sub\nDim x\nConst C = 1\nSub B()\nEnd Sub\nEnum E\nF\nEnd Enum",
         "Sub A() []; Dim x; Const C = 1; Sub B() []; Enum E [F]"},
    });
}

TEST(ParserDeclarations, OptionsAreNoted) {
    const auto parsed = ParseModule("Option Explicit\nOption Base 1\nOption Compare Text\nOption "
                                    "Private Module\nSub A()\nEnd Sub");
    EXPECT_EQ(ErrorLines(parsed), "");
    EXPECT_TRUE(parsed.Module.OptionExplicit);
    EXPECT_TRUE(parsed.Module.ComparesText);
    EXPECT_EQ(parsed.Module.OptionBase, 1);
    const auto plain = ParseModule("Option Base 0: Option Compare Binary");
    EXPECT_EQ(ErrorLines(plain), "");
    EXPECT_FALSE(plain.Module.OptionExplicit);
    EXPECT_FALSE(plain.Module.ComparesText);
    EXPECT_EQ(plain.Module.OptionBase, 0);
}

TEST(ParserDeclarations, DefaultTypesGoByLetter) {
    const auto parsed = ParseModule("DefInt I-N, a\nDefStr s\nDefObj O: DefVar z");
    EXPECT_EQ(ErrorLines(parsed), "");
    const auto kindOf = [&](char letter) {
        return parsed.Module.DefaultKinds[letter - 'a'];
    };
    EXPECT_EQ(kindOf('a'), DeclaredKind::Integer);
    EXPECT_EQ(kindOf('b'), DeclaredKind::Variant);
    EXPECT_EQ(kindOf('h'), DeclaredKind::Variant);
    EXPECT_EQ(kindOf('i'), DeclaredKind::Integer);
    EXPECT_EQ(kindOf('n'), DeclaredKind::Integer);
    EXPECT_EQ(kindOf('o'), DeclaredKind::Object);
    EXPECT_EQ(kindOf('s'), DeclaredKind::String);
}

TEST(ParserDeclarations, AttributesAreReadOverAndNameTheModule) {
    const auto parsed =
        ParseModule("Attribute VB_Name = \"Rules\"\nDim x\nAttribute x.VB_VarUserMemId = 0\n"
                    "Sub A()\nAttribute A.VB_Description = \"d\"\nEnd Sub");
    EXPECT_EQ(ErrorLines(parsed), "");
    EXPECT_EQ(parsed.Module.Name, "Rules");
    EXPECT_EQ(parsed.Module.Items.size(), 2u);
}

TEST(ParserDeclarations, TheModuleKeepsItsPhysicalLines) {
    const auto parsed = ParseModule("\xEF\xBB\xBFSub A()\r\nx = 1 + _\r2\nEnd Sub");
    EXPECT_EQ(ErrorLines(parsed), "");
    EXPECT_EQ(
        parsed.Module.Lines, (std::vector<std::string>{"Sub A()", "x = 1 + _", "2", "End Sub"}));
}

TEST(ParserDeclarations, AProcedureKnowsItsPlaces) {
    const auto parsed = ParseModule("\n  Public Sub A()\n  End Sub");
    const auto& procedure = std::get<ProcedureNode>(parsed.Module.Items.at(0));
    EXPECT_EQ(procedure.Place, (SourcePlace{2, 14}));
    EXPECT_EQ(procedure.EndPlace, (SourcePlace{3, 3}));
}

}  // namespace
}  // namespace dorvik::basic
