// Arguments, variables and the elements of types.

#include "BagText.h"
#include "source/modVOSource.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {

namespace {

using modVOSource::VirtualObjects;

struct DeclarationRow {
    std::string_view Text;
    std::string_view Expected;
};

/// "name:data type" of each object, and behind them what is out of the ordinary.
std::string Join(const VirtualObjects& objects, const std::vector<std::string_view>& names) {
    std::string text;
    for (const auto& object : objects) {
        std::string one;
        for (const std::string_view name : names) {
            const std::string value = PropertyText(*object, name);
            if (value == "True") {
                one += std::string(":") + std::string(name);
            } else if (value != "False") {
                one += (one.empty() ? "" : ":") + value;
            }
        }
        text += one + ";";
    }
    return text;
}

std::string ArgumentsText(std::string_view list) {
    VirtualObjects objects;
    EXPECT_TRUE(modVOSource::ExtractArgsFromArgumentList(list, "Procedure", objects));
    return Join(
        objects,
        {"Name", "DataType", "DefaultValue", "PassBy", "IsOptional", "IsParamArray", "IsArray"});
}

std::string VariablesText(std::string_view declaration) {
    VirtualObjects objects;
    if (!modVOSource::ExtractVariablesFromDeclaration(declaration, "File", objects)) {
        return "failed";
    }
    return Join(
        objects,
        {"Name",
         "DataType",
         "ArraySize",
         "Scope",
         "IsArray",
         "IsStatic",
         "IsWithEvents",
         "IsAsNew"});
}

std::string ElementText(std::string_view text) {
    VirtualObject element;
    return modVOSource::ExtractTypeElementFromDeclaration(text, element) ? BagText(element)
                                                                         : "failed";
}

}  // namespace

TEST(modVOSourceArguments, ArgumentHasItsPropertiesInOrder) {
    VirtualObjects objects;
    ASSERT_TRUE(modVOSource::ExtractArgsFromArgumentList(
        "ByVal x As Long, Optional y As String = \"a, b\"", "Event", objects));
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(
        BagText(*objects[0]),
        "Name=x|DefaultValue=|DataType=Long|IsOptional=False|IsParamArray=False|IsArray=False|"
        "ParentObject=Event|PassBy=ByVal|Index=1");
    EXPECT_EQ(
        BagText(*objects[1]),
        "Name=y|DefaultValue=\"a, b\"|DataType=String|IsOptional=True|IsParamArray=False|"
        "IsArray=False|ParentObject=Event|PassBy=|Index=2");
    EXPECT_TRUE(objects[1]->Properties().Item("Index").IsLong());
}

TEST(modVOSourceArguments, CommaInADefaultValueDoesNotDivide) {
    EXPECT_EQ(
        ArgumentsText("ByVal x As Long, Optional y As String = \"a, b\""),
        "x:Long::ByVal;y:String:\"a, b\"::IsOptional;");
}

TEST(modVOSourceArguments, ArgumentsWithoutATypeHaveAnEmptyOneAndAreCounted) {
    VirtualObjects objects;
    ASSERT_TRUE(modVOSource::ExtractArgsFromArgumentList("a, b", "Procedure", objects));
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(PropertyText(*objects[0], "DataType"), "");
    EXPECT_EQ(PropertyText(*objects[1], "DataType"), "");
    EXPECT_EQ(PropertyText(*objects[0], "Index"), "1");
    EXPECT_EQ(PropertyText(*objects[1], "Index"), "2");
}

TEST(modVOSourceArguments, ParamArrayKeepsItsBracketsAndIsAnArray) {
    EXPECT_EQ(ArgumentsText("ParamArray v() As Variant"), "v():Variant:::IsParamArray:IsArray;");
}

TEST(modVOSourceArguments, SuffixInFrontOfTheBracketsIsTheDataType) {
    EXPECT_EQ(ArgumentsText("x$()"), "x$():$:::IsArray;");
}

TEST(modVOSourceArguments, ArgumentsAreWalkedTokenByToken) {
    const std::vector<DeclarationRow> rows = {
        {"byval x%, ByRef y As Foo.Bar", "x%:%::byval;y:Foo.Bar::ByRef;"},
        {"a As Long , b", "a:Long::;b:::;"},
        {"Optional a = 1 + 2, b", "a::1 + 2::IsOptional;b:::;"},
        {"Optional a = -1", "a::-1::IsOptional;"},
        {"Optional a As String = \"x\", Optional b = \"y, z\", c",
         "a:String:\"x\"::IsOptional;b::\"y, z\"::IsOptional;c:::;"},
        {"Optional a = \"x\" , Optional b = \"y\"", "a::\"x\"::IsOptional;b::\"y\"::IsOptional;"},
        {"Optional a = \"\", b", "a::\"\"::IsOptional;b:::;"},
        {"Optional a = 1 , b", "a::1::IsOptional;b:::;"},
        {"Optional a = #1/2/2000 10:00:00 AM#", "a::#1/2/2000 10:00:00 AM#::IsOptional;"},
        {"", ";"},  // the comma that ends the walk completes an argument without a name
        {"\xC3\xA9t\xC3\xA9 As Long", "\xC3\xA9t\xC3\xA9:Long::;"},
    };
    for (const DeclarationRow& row : rows) {
        EXPECT_EQ(ArgumentsText(row.Text), row.Expected) << row.Text;
    }
}

TEST(modVOSourceArguments, SeveralBlanksInAListCostNothing) {
    EXPECT_EQ(
        ArgumentsText("  ByVal   x   As  Long,   Optional  y = \"a,  b\",  Optional z =  \"c\" "),
        "x:Long::ByVal;y::\"a,  b\"::IsOptional;z::\"c\"::IsOptional;");
}

TEST(modVOSourceArguments, DefaultValueBehindADoubledQuoteIsStillTakenAsWritten) {
    EXPECT_EQ(
        ArgumentsText("Optional a = \"x\"\"y\", Optional b = \"z\""),
        "a::\"\"\"\"::IsOptional;b::\"z\"::IsOptional;");
}

TEST(modVOSourceVariables, VariableHasItsPropertiesInOrder) {
    VirtualObjects objects;
    ASSERT_TRUE(modVOSource::ExtractVariablesFromDeclaration(
        "Dim a(1 To 3) As Long, b ' note", "Procedure", objects));
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(
        BagText(*objects[0]),
        "Scope=|IsStatic=False|IsWithEvents=False|Name=a|IsArray=True|IsMultiItem=True|"
        "ArraySize=1 To 3|DataType=Long|IsLocal=True|IsAsNew=False");
    EXPECT_EQ(
        BagText(*objects[1]),
        "Scope=|IsStatic=False|IsWithEvents=False|Name=b|IsArray=False|IsMultiItem=True|"
        "ArraySize=|DataType=|IsLocal=True|IsAsNew=False");
}

TEST(modVOSourceVariables, ArrayWithBoundsAndAPlainVariableAreTwoObjects) {
    EXPECT_EQ(VariablesText("Dim a(1 To 3) As Long, b"), "a:Long:1 To 3::IsArray;b:::;");
}

TEST(modVOSourceVariables, FixedStringKeepsItsLength) {
    EXPECT_EQ(VariablesText("Dim s As String * 10"), "s:String * 10::;");
    EXPECT_EQ(VariablesText("Dim s As String * 10, t"), "s:String * 10::;t:::;");
}

TEST(modVOSourceVariables, WithEventsIsKnownBehindTheScope) {
    EXPECT_EQ(VariablesText("Private WithEvents m As Foo"), "m:Foo::Private:IsWithEvents;");
}

TEST(modVOSourceVariables, AsNewIsKnown) {
    EXPECT_EQ(VariablesText("Dim x As New Foo"), "x:Foo:::IsAsNew;");
}

TEST(modVOSourceVariables, VariablesAreWalkedTokenByToken) {
    const std::vector<DeclarationRow> rows = {
        {"Dim a, b As Long", "a:::;b:Long::;"},
        {"Static n As Long", "n:Long:::IsStatic;"},
        {"Public s$, n%", "s$:$::Public;n%:%::Public;"},
        {"Global g", "g:::Global;"},
        {"Dim a()", "a::::IsArray;"},
        {"Dim a(), b() As Byte", "a::::IsArray;b:Byte:::IsArray;"},
        {"Dim a(1 To 3, 0 To 4), b", "a::1 To 3, 0 To 4::IsArray;b:::;"},
        {"Dim s$(3)", "s$:$:3::IsArray;"},
        {"Dim  a   As   Long", "a:Long::;"},
        {"Dim a As New Foo, b As Foo", "a:Foo:::IsAsNew;b:Foo::;"},
        {"Dim s As String*10", "s:String*10::;"},
        {"Dim a As Foo.Bar: Rem x", "a:Foo.Bar::;"},
    };
    for (const DeclarationRow& row : rows) {
        EXPECT_EQ(VariablesText(row.Text), row.Expected) << row.Text;
    }
}

TEST(modVOSourceVariables, StaticBehindAScopeWordIsReadAsANameAndReplaced) {
    EXPECT_EQ(VariablesText("Private Static x As Long"), "x:Long::Private;");
}

TEST(modVOSourceVariables, TokenBehindTheDataTypeIsAppended) {
    EXPECT_EQ(VariablesText("Dim s As String *10"), "s:String*10::;");
    EXPECT_EQ(VariablesText("Dim s As String * 10 x"), "s:String * 10x::;");
    EXPECT_EQ(VariablesText("Dim x As Foo Bar, y As Long"), "x:FooBar::;y:Long::;");
    // A procedure's first line where none is expected.
    EXPECT_EQ(
        VariablesText("Public Function F(v) As Variant) As Long"),
        "F:Variant)Long:v:Public:IsArray;");
}

TEST(modVOSourceVariables, TabInFrontOfADeclarationIsNotTrimmed) {
    EXPECT_EQ(VariablesText("\tDim x"), "x:::;");  // the first word is read as a name, and replaced
    EXPECT_EQ(VariablesText("Dim \tx"), "\tx:::;");
}

TEST(modVOSourceVariables, BracketThatNeverClosesIsLoggedAndFails) {
    test::CapturedLog log;
    EXPECT_EQ(VariablesText("Dim a(1 To"), "failed");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(
        log.Lines()[0].find("C_VOSource::ExtractVariablesFromDeclaration"), std::string::npos);
}

TEST(modVOSourceTypeElements, ElementIsWalkedLikeAVariableWithoutNewAndComma) {
    const std::vector<DeclarationRow> rows = {
        {"x As Long", "Name=x|IsArray=False|ArraySize=|DataType=Long"},
        {"  x(1 To 3) As String * 5 ' note",
         "Name=x|IsArray=True|ArraySize=1 To 3|DataType=String * 5"},
        {"x() As Byte", "Name=x|IsArray=True|ArraySize=|DataType=Byte"},
        {"s$", "Name=s$|IsArray=False|ArraySize=|DataType=$"},
        {"x, As New Foo", "Name=x,|IsArray=False|ArraySize=|DataType=NewFoo"},
        {"", "Name=|IsArray=False|ArraySize=|DataType="},
        {"x(1 To", "failed"},
    };
    for (const DeclarationRow& row : rows) {
        const test::CapturedLog log;
        EXPECT_EQ(ElementText(row.Text), row.Expected) << row.Text;
    }
}

}  // namespace dorvik
