#include "source/modVOSource.h"

#include "BagText.h"
#include "RandomText.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {

namespace {

using modVOSource::VirtualObjects;

struct LineRow {
    std::string_view Text;
    std::string_view Expected;
};

/// Name, value and data type of each constant, and "multi" where it is one of several.
std::string ConstantsText(std::string_view declaration, std::string_view parent = "File") {
    VirtualObjects objects;
    std::string text;
    if (!modVOSource::ExtractConstantsFromDeclaration(declaration, parent, objects)) {
        return "failed";
    }
    for (const auto& object : objects) {
        text += PropertyText(*object, "Name") + "=" + PropertyText(*object, "Value") + ":" +
                PropertyText(*object, "DataType") +
                (PropertyText(*object, "IsMultiItem") == "True" ? ":multi;" : ";");
    }
    return text;
}

std::string ComponentText(std::string_view line) {
    VirtualObject component;
    return modVOSource::ComponentFromObjectDefinition(line, component) ? BagText(component)
                                                                       : "failed";
}

std::string FilenameText(std::string_view filename) {
    VirtualObject object;
    modVOSource::AddFilenameRelatedProperties(object, filename);
    return BagText(object);
}

}  // namespace

TEST(modVOSource, ComponentIsCutByColumns) {
    EXPECT_EQ(
        ComponentText(
            "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.1#0\"; \"MSCOMCTL.OCX\""),
        "DesignTime=False|GUID={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}|Version=2.1|"
        "Filename=MSCOMCTL.OCX");
}

TEST(modVOSource, ComponentOfAnotherProjectIsOfDesignTime) {
    EXPECT_EQ(ComponentText("Object = \"*\\Aother.vbp\""), "DesignTime=True|Filename=Aother.vbp");
}

TEST(modVOSource, ComponentColumnsCountCharacters) {
    EXPECT_EQ(
        ComponentText("Object = \"{\xC3\xA9"
                      "31FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.1#0\"; \"\xC3\xA9.ocx\""),
        "DesignTime=False|GUID={\xC3\xA9"
        "31FDD16-0C5C-11D2-A9FC-0000F8754DA1}|Version=2.1|"
        "Filename=\xC3\xA9.ocx");
}

TEST(modVOSource, ComponentLineThatIsTooShortIsLoggedAndFails) {
    test::CapturedLog log;
    EXPECT_EQ(ComponentText("Object = \"{831FDD16}#2.1#0\"; \"A.OCX\""), "failed");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("C_VOSource::ComponentFromObjectDefinition"), std::string::npos);
}

TEST(modVOSource, ComponentLineThatEndsInFrontOfItsFilenameIsLoggedAndFails) {
    for (const std::string_view line : {
             "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.1#0\";",
             "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.1#0\"; ",
             "Object = \"*\\",
         }) {
        test::CapturedLog log;
        EXPECT_EQ(ComponentText(line), "failed") << line;
        EXPECT_EQ(log.Lines().size(), 1U) << line;
    }
}

TEST(modVOSource, FilenameIsKeptWholeAndInParts) {
    EXPECT_EQ(
        FilenameText("C:\\a\\frm.Main.frm"),
        "FullFilename=C:\\a\\frm.Main.frm|Path=C:\\a\\|Filename=frm.Main.frm|Extension=.frm");
}

TEST(modVOSource, FilenameWithoutAPointHasNeitherFilenameNorExtension) {
    EXPECT_EQ(
        FilenameText("C:\\a.b\\Makefile"),
        "FullFilename=C:\\a.b\\Makefile|Path=C:\\a.b\\|Filename=|Extension=");
}

TEST(modVOSource, ConstantHasItsPropertiesInOrder) {
    VirtualObjects objects;
    ASSERT_TRUE(modVOSource::ExtractConstantsFromDeclaration(
        "Public Const C As Long = 1 ' note", "File", objects));
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(
        BagText(*objects[0]),
        "Name=C|Scope=Public|Value=1|IsMultiItem=False|DataType=Long|IsLocal=False");
    EXPECT_TRUE(objects[0]->Properties().Item("IsLocal").IsBoolean());
}

TEST(modVOSource, ConstantInAProcedureIsLocal) {
    VirtualObjects objects;
    ASSERT_TRUE(modVOSource::ExtractConstantsFromDeclaration("Const C = 1", "Procedure", objects));
    EXPECT_EQ(PropertyText(*objects.at(0), "IsLocal"), "True");
    EXPECT_EQ(PropertyText(*objects.at(0), "Scope"), "");
}

TEST(modVOSource, ConstantsAreDividedAtCommasOutsideStrings) {
    const std::vector<LineRow> rows = {
        {"Const A = 1, B = 2", "A=1::multi;B=2::multi;"},
        {"Const C = \"x, y\"", "C=x, y:;"},
        {"Const C$ = \"x\", D As Long = 2", "C$=x:$:multi;D=2:Long:multi;"},
        {"Const A = 1, B = \"x, y\", C = 3", "A=1::multi;B=x, y::multi;C=3::multi;"},
        {"Const A = B + 1", "A=B + 1:;"},
        {"Const A = \"a\"\"b\"", "A=a\"\"b:;"},
        {"Const A = \"a\" & \"b\"", "A=a\" & \"b:;"},
        {"Const A, B", "A=::multi;B=::multi;"},
        {"Global Const A = #1/2/2000 10:00:00 AM#", "A=#1/2/2000 10:00:00 AM#:;"},
        {"Const A = 1 , B = 2", "A=1 ::multi;B=2::multi;"},
    };
    for (const LineRow& row : rows) {
        EXPECT_EQ(ConstantsText(row.Text), row.Expected) << row.Text;
    }
}

TEST(modVOSource, TwoConstantsAreBothOfSeveral) {
    EXPECT_EQ(ConstantsText("Const A = 1, B = 2"), "A=1::multi;B=2::multi;");
}

TEST(modVOSource, StringConstantWithACommaIsOneConstant) {
    EXPECT_EQ(ConstantsText("Const C = \"x, y\""), "C=x, y:;");
}

TEST(modVOSource, SeveralBlanksInAConstantCostNothing) {
    EXPECT_EQ(ConstantsText("Const N    As Long = &H20"), "N=&H20:Long;");
    EXPECT_EQ(ConstantsText("Const   N =   5,   M   = \"a\""), "N=5::multi;M=a::multi;");
}

TEST(modVOSource, TabInFrontOfAConstantNameStays) {
    EXPECT_EQ(ConstantsText("Const \tN = 1"), "\tN=1:;");
}

TEST(modVOSource, ConstantThatCannotBeCutIsLoggedAndFails) {
    for (const std::string_view line : {"Const A = \"x", "Const A = 1 ' n: Rem y", "Const"}) {
        test::CapturedLog log;
        EXPECT_EQ(ConstantsText(line), "failed") << line;
        ASSERT_EQ(log.Lines().size(), 1U) << line;
        EXPECT_NE(
            log.Lines()[0].find("C_VOSource::ExtractConstantsFromDeclaration"), std::string::npos);
    }
}

TEST(modVOSource, DeclarationsOfChanceAreWalkedToTheirEnd) {
    const test::CapturedLog log;
    RandomText random;
    for (int i = 0; i < 600; ++i) {
        const std::string text = i % 4 == 0 ? random.Bytes(random.Number(40))
                                            : random.Pieces(kSourcePieces, random.Number(16));
        SCOPED_TRACE(text);
        VirtualObjects objects;
        VirtualObject component;
        VirtualObject element;
        modVOSource::ExtractArgsFromArgumentList(text, "Procedure", objects);
        modVOSource::ExtractConstantsFromDeclaration("Const " + text, "File", objects);
        modVOSource::ExtractVariablesFromDeclaration("Dim " + text, "File", objects);
        modVOSource::ExtractTypeElementFromDeclaration(text, element);
        modVOSource::ComponentFromObjectDefinition("Object = " + text, component);
        EXPECT_LE(objects.size(), 3 * text.size() + 3);
    }
}

TEST(modVOSource, ALongDeclarationGivesAllItsObjects) {
    std::string constants = "Const A0 = 1";
    std::string variables = "Dim a0(1";
    for (int i = 1; i < 20000; ++i) {
        constants += ", A" + std::to_string(i) + " = \"x, y\"";
        variables += " To";
    }
    VirtualObjects objects;
    ASSERT_TRUE(modVOSource::ExtractConstantsFromDeclaration(constants, "File", objects));
    EXPECT_EQ(objects.size(), 20000U);
    objects.clear();
    ASSERT_TRUE(
        modVOSource::ExtractVariablesFromDeclaration(variables + ") As Long", "File", objects));
    EXPECT_EQ(objects.size(), 1U);
}

}  // namespace dorvik
