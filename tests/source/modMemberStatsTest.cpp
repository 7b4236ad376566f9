#include "source/modMemberStats.h"

#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "source/VirtualObject.h"
#include "source/VirtualProject.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

using test::TemporaryFolder;

/// The bag as "name=value", in order.
std::vector<std::string> Entries(const KeyedArrayList& properties) {
    std::vector<std::string> entries;
    for (std::int32_t index = 1; index <= properties.Count(); ++index) {
        entries.push_back(properties.Key(index) + "=" + properties.Item(index).AsText());
    }
    return entries;
}

TEST(modMemberStats, AProjectBeginsWithTheCountsOfItsListsInTheirOrder) {
    TemporaryFolder folder;
    folder.Write(
        "a.vbp",
        "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#std.tlb#OLE\r\n"
        "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; comctl.ocx\r\n"
        "RelatedDoc=readme.txt\r\n"
        "Module=modA; a.bas\r\n"
        "Module=modB; b.bas\r\n"
        "Class=clsC; c.cls\r\n");
    VirtualProject project;
    ASSERT_EQ(project.LoadProjectFile(folder.Path() + "a.vbp", false), ProjectLoadStatus::Good);
    modMemberStats::InitialiseProjectMemberStats(project);
    EXPECT_EQ(
        Entries(project.Properties()),
        (std::vector<std::string>{
            "RelatedDocCount=1",
            "ComponentCount=1",
            "ReferenceCount=4",
            "SourceFileCount=4",
            "FormFileCount=0",
            "ClassFileCount=1",
            "DesignerFileCount=0",
            "ModuleFileCount=2",
            "PropertyPageFileCount=0",
            "UserControlFileCount=0",
            "UserDocumentFileCount=0"}));
}

TEST(modMemberStats, AProjectWithThreeSourceFilesHasASourceFileCountOfFour) {
    VirtualProject project;
    for (const char* name : {"a", "b", "c"}) {
        project.SourceFiles().Add(name, std::make_shared<VirtualSourceFile>(), false, true);
    }
    modMemberStats::InitialiseProjectMemberStats(project);
    EXPECT_EQ(project.Properties().Item("SourceFileCount").AsLong(), 4);
}

TEST(modMemberStats, EveryKindOfFileHasItsCountInAProject) {
    TemporaryFolder folder;
    folder.Write(
        "a.vbp",
        "Form=a; a\nMDIForm=b; b\nClass=c; c\nDesigner=d; d\nDesigner=d2; d\n"
        "PropertyPage=e; e\nPropertyPage=e2; e\nPropertyPage=e3; e\n"
        "UserControl=f; f\nUserControl=f2; f\nUserControl=f3; f\nUserControl=f4; f\n"
        "UserDocument=g; g\nUserDocument=g2; g\nUserDocument=g3; g\nUserDocument=g4; g\n"
        "UserDocument=g5; g\n");
    VirtualProject project;
    ASSERT_EQ(project.LoadProjectFile(folder.Path() + "a.vbp", false), ProjectLoadStatus::Good);
    modMemberStats::InitialiseProjectMemberStats(project);
    const std::pair<const char*, std::int32_t> rows[] = {
        {"FormFileCount", 2},
        {"ClassFileCount", 1},
        {"DesignerFileCount", 2},
        {"ModuleFileCount", 0},
        {"PropertyPageFileCount", 3},
        {"UserControlFileCount", 4},
        {"UserDocumentFileCount", 5},
    };
    for (const auto& [name, count] : rows) {
        EXPECT_EQ(project.Properties().Item(std::string_view(name)).AsLong(), count) << name;
    }
}

TEST(modMemberStats, AFileBeginsWithNineteenCountsOfZero) {
    VirtualObject file;
    modMemberStats::InitialiseFileMemberStats(file);
    EXPECT_EQ(
        Entries(file.Properties()),
        (std::vector<std::string>{
            "ComponentCount=0",
            "ConstCount=0",
            "PublicConstCount=0",
            "PrivateConstCount=0",
            "VariableCount=0",
            "PublicVariableCount=0",
            "PrivateVariableCount=0",
            "TypeCount=0",
            "PublicTypeCount=0",
            "PrivateTypeCount=0",
            "EnumCount=0",
            "PublicEnumCount=0",
            "PrivateEnumCount=0",
            "DeclareCount=0",
            "PublicDeclareCount=0",
            "PrivateDeclareCount=0",
            "ImplementsCount=0",
            "ProcedureCount=0",
            "EventCount=0"}));
    EXPECT_TRUE(file.Properties().Item(1).IsLong());
}

TEST(modMemberStats, AProcedureBeginsWithTwoCountsAndASecondCallFailsOnTheDuplicateKeys) {
    VirtualObject procedure;
    modMemberStats::InitialiseProcedureMemberStats(procedure);
    EXPECT_EQ(
        Entries(procedure.Properties()),
        (std::vector<std::string>{"ConstCount=0", "VariableCount=0"}));
    try {
        modMemberStats::InitialiseProcedureMemberStats(procedure);
        FAIL() << "no error";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), modKyErrors::kyErrKeyInUse);
    }
}

TEST(modMemberStats, AComplexityHasItsWordsByBands) {
    struct Row {
        std::int32_t Complexity;
        const char* ToUnderstand;
        const char* ToTest;
        const char* ToChange;
    };
    const Row rows[] = {
        {-2000000000, "", "", ""},
        {-1, "", "", ""},
        {0, "N/A", "N/A", "N/A"},
        {1, "Simple", "Easy", "Low risk"},
        {10, "Simple", "Easy", "Low risk"},
        {11, "Moderately easy", "Difficult", "Moderate risk"},
        {20, "Moderately easy", "Difficult", "Moderate risk"},
        {21, "Complex", "Very Difficult", "High risk"},
        {50, "Complex", "Very Difficult", "High risk"},
        {51, "Extremely difficult", "Untestable", "Extremely high risk"},
        {2000000000, "Extremely difficult", "Untestable", "Extremely high risk"},
    };
    for (const Row& row : rows) {
        using namespace modMemberStats;
        EXPECT_EQ(CyclomaticComplexityToUnderstandText(row.Complexity), row.ToUnderstand);
        EXPECT_EQ(CyclomaticComplexityToTestText(row.Complexity), row.ToTest);
        EXPECT_EQ(CyclomaticComplexityToChangeText(row.Complexity), row.ToChange);
    }
}

}  // namespace
}  // namespace dorvik
