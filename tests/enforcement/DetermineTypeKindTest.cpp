#include "enforcement/NamingConventionHelper.h"
#include "enforcement/ResultsManager.h"
#include "rulebase/model/Rulebase.h"
#include "source/VirtualComponent.h"
#include "source/VirtualObject.h"
#include "source/VirtualReference.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace dorvik {

namespace {

constexpr std::int32_t kEnumeration = 0;
constexpr std::int32_t kRecord = 1;
constexpr std::int32_t kClass = 5;

/// The libraries of a project: "VB" and "Lib" are references, "Ctl" is a component.
class ThreeLibraries final : public ITypeLibraries {
public:
    std::optional<TypeLibraryContents>
    Open(std::string_view guid, std::int32_t, std::int32_t, std::int32_t) const override {
        if (guid == "VB") {
            return TypeLibraryContents{
                "VB", {{"Label", kClass}, {"Printer", kClass}, {"Shared", kClass}}};
        }
        if (guid == "Lib") {
            return TypeLibraryContents{
                "Lib",
                {{"Label", kClass},
                 {"Foo", kClass},
                 {"Colours", kEnumeration},
                 {"Point", kRecord},
                 {"Shared", kEnumeration}}};
        }
        return TypeLibraryContents{"Ctl", {{"Dial", kClass}, {"DialStyle", kEnumeration}}};
    }
};

class DetermineTypeKindTest : public testing::Test {
protected:
    DetermineTypeKindTest() {
        for (const char* name : {"VB", "Lib"}) {
            const auto library = std::make_shared<VirtualTypeLibrary>(&m_libraries);
            VirtualReference reference;
            reference.GUID = name;
            reference.Version = "6.0";
            EXPECT_TRUE(library->LoadVirtualReferenceTypeLib(reference));
            m_helper.AddTypeLibrary(library->Name(), library);
        }
        const auto library = std::make_shared<VirtualTypeLibrary>(&m_libraries);
        VirtualComponent component;
        component.GUID = "Ctl";
        component.Version = "1.0";
        EXPECT_TRUE(library->LoadVirtualComponentTypeLib(component));
        m_helper.AddTypeLibrary(library->Name(), library);
    }

    /// The kind as a number, followed by the qualified name.
    std::string KindOf(std::string_view typeName) const {
        std::string qualified;
        const TypeKind kind = m_helper.DetermineTypeKind(typeName, qualified);
        return std::to_string(static_cast<int>(kind)) + " " + qualified;
    }

    test::CapturedLog m_log;
    ThreeLibraries m_libraries;
    NamingConventionHelper m_helper;
};

TEST_F(DetermineTypeKindTest, AnIntrinsicControlOfVbIsAControlWithOrWithoutItsLibrary) {
    EXPECT_EQ(KindOf("VB.Label"), "9 VB.Label");
    EXPECT_EQ(KindOf("Label"), "9 VB.Label");
    EXPECT_EQ(KindOf("label"), "9 VB.label");
}

TEST_F(DetermineTypeKindTest, AnotherClassOfVbIsAClass) {
    EXPECT_EQ(KindOf("VB.Printer"), "7 VB.Printer");
    EXPECT_EQ(KindOf("Printer"), "7 VB.Printer");
}

TEST_F(DetermineTypeKindTest, AClassNamedLikeAControlInAnotherReferenceIsAClass) {
    EXPECT_EQ(KindOf("Lib.Label"), "7 Lib.Label");
}

TEST_F(DetermineTypeKindTest, EveryClassOfAComponentIsAControl) {
    EXPECT_EQ(KindOf("Dial"), "9 Ctl.Dial");
    EXPECT_EQ(KindOf("Ctl.Dial"), "9 Ctl.Dial");
    EXPECT_EQ(KindOf("DialStyle"), "6 ");
}

TEST_F(DetermineTypeKindTest, EnumerationsAndTypesHaveNoQualifiedNameUnlessItIsGiven) {
    EXPECT_EQ(KindOf("Colours"), "6 ");
    EXPECT_EQ(KindOf("Point"), "8 ");
    EXPECT_EQ(KindOf("Lib.Point"), "8 Lib.Point");
}

TEST_F(DetermineTypeKindTest, TheFirstLibraryThatKnowsANameAnswers) {
    EXPECT_EQ(KindOf("Shared"), "7 VB.Shared");
    EXPECT_EQ(KindOf("Lib.Shared"), "6 Lib.Shared");
}

TEST_F(DetermineTypeKindTest, ANameWithALoadedLibraryIsLookedForInThatLibraryOnly) {
    EXPECT_EQ(KindOf("VB.Foo"), "5 VB.Foo");
    EXPECT_EQ(KindOf("lib.Foo"), "7 lib.Foo");
}

TEST_F(DetermineTypeKindTest, ANameWithAnUnknownLibraryIsLookedForInAll) {
    EXPECT_EQ(KindOf("Other.Foo"), "7 Lib.Foo");
    EXPECT_EQ(KindOf("Other.Nothing"), "5 Other.Nothing");
    EXPECT_EQ(KindOf("Nothing"), "5 ");
}

/// The tag that a data type of the project "modA" gets from a new rulebase.
class DataTypeKindTest : public DetermineTypeKindTest {
protected:
    DataTypeKindTest() {
        m_helper.SetScope(&m_results.ParserState(), &m_results.Log());
        m_helper.SetRulebase(&m_rulebase);
        for (const char* row :
             {"(Classes)", "(Controls)", "(Enumerations)", "(User-Defined Types)"}) {
            m_rulebase.DataTypeTags().Item(row)->SetTagValue(row);
        }
        m_rulebase.ControlTags().Item("VB.Label")->SetTagValue("lbl");
        Attach("File", "Name", "modA");
    }

    void Attach(std::string_view name, std::string_view property, const std::string& value) {
        const auto object = std::make_shared<VirtualObject>();
        object->Properties().Add(property, value, false);
        m_results.ParserState().Attach(object, name);
    }

    std::string TagOf(const std::string& type) {
        if (m_results.ParserState().FindVirtualObject("Variable") != nullptr) {
            m_results.ParserState().Detach("Variable");
        }
        Attach("Variable", "DataType", type);
        std::string tag;
        EXPECT_EQ(m_helper.GetAppropriateDataTypeTag("Variable", tag), NamingResult::Success);
        return tag;
    }

    ResultsManager m_results;
    Rulebase m_rulebase;
};

TEST_F(DataTypeKindTest, TypesOfALibraryTakeTheTagOfTheirKind) {
    EXPECT_EQ(TagOf("Colours"), "(Enumerations)");
    EXPECT_EQ(TagOf("Lib.Point"), "(User-Defined Types)");
    EXPECT_EQ(TagOf("Foo"), "(Classes)");
    EXPECT_EQ(TagOf("Dial"), "(Controls)");
    EXPECT_EQ(TagOf("Label"), "(Controls)");
}

TEST_F(DataTypeKindTest, AControlTakesTheTagOfItsProgramIdentifierIfTheRulebaseSaysSo) {
    m_rulebase.SetUseCTagsAsDTTags(true);
    EXPECT_EQ(TagOf("Label"), "lbl");
    EXPECT_EQ(TagOf("VB.Label"), "lbl");
    EXPECT_EQ(TagOf("Dial"), "(Controls)");  // its program identifier has no tag
}

}  // namespace

}  // namespace dorvik
