#include "rulebase/catalogue/ObjectCatalogue.h"
#include "rulebase/catalogue/ObjectHelper.h"
#include "rulebase/catalogue/PropertyDescriptions.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>
#include <string>
#include <vector>

namespace dorvik {

namespace {

struct PropertyFact {
    std::int32_t Number;
    std::string_view Name;
    std::string_view Type;  // empty where a description tells none
};

// clang-format off
constexpr PropertyFact kProperties[] = {
    {1, "Alias", "String"},
    {2, "ArgumentCount", "Long"},
    {3, "ArgumentList", "String"},
    {5, "AuthorisedVersions", "String"},
    {6, "Class", "String"},
    {7, "ExeName32", "String"},
    {8, "ThreadingModel", "String"},
    {9, "DataType", "String"},
    {12, "DefaultValue", "String"},
    {13, "Description", "String"},
    {14, "ElementCount", "Long"},
    {15, "Extension", "String"},
    {16, "Filename", "String"},
    {17, "DesignTime", "Boolean"},
    {18, "FullFilename", "String"},
    {19, "GUID", "String"},
    {20, "HasValue", "Boolean"},
    {21, "HelpFile", "String"},
    {22, "Instancing", ""},
    {23, "Interface", "String"},
    {24, "IsArray", "Boolean"},
    {25, "IsAuthorised", "Boolean"},
    {26, "StrippedStatement", "String"},
    {27, "IsComment", "Boolean"},
    {28, "IsMDIChild", "Boolean"},
    {29, "IsMDIParent", "Boolean"},
    {30, "IsOptional", "Boolean"},
    {31, "IsStatic", "Boolean"},
    {32, "Lib", "String"},
    {33, "Library", "String"},
    {34, "Line", "String"},
    {35, "Startup", "String"},
    {37, "Name", "String"},
    {38, "Optional", ""},
    {39, "ParentObject", "String"},
    {40, "PassBy", "String"},
    {41, "Path", "String"},
    {43, "ProcedureType", "String"},
    {44, "VersionProductName", "String"},
    {45, "DataTypeTag", "String"},
    {46, "Scope", "String"},
    {47, "Title", "String"},
    {48, "Type", "String"},
    {49, "Value", "String"},
    {50, "Version", "String"},
    {51, "VersionComments", "String"},
    {52, "VersionCompanyName", "String"},
    {53, "VersionFileDescription", "String"},
    {54, "VersionLegalCopyright", "String"},
    {55, "VersionLegalTrademarks", "String"},
    {56, "ResFile32", "String"},
    {57, "HelpContextID", "String"},
    {58, "NoControlUpgrade", "String"},
    {59, "Command32", "String"},
    {60, "CompatibleMode", "String"},
    {61, "CompatibleEXE32", "String"},
    {62, "VersionCompatible32", "String"},
    {63, "MajorVer", "String"},
    {64, "MinorVer", "String"},
    {65, "RevisionVer", "String"},
    {66, "AutoIncrementVer", "String"},
    {67, "ServerSupportFiles", "String"},
    {68, "CompilationType", "String"},
    {69, "OptimizationType", "String"},
    {70, "FavorPentiumPro", "String"},
    {71, "CodeViewDebugInfo", "String"},
    {72, "NoAliasing", "String"},
    {73, "BoundsCheck", "String"},
    {74, "OverflowCheck", "String"},
    {75, "FlPointCheck", "String"},
    {76, "FDIVCheck", "String"},
    {77, "UnroundedFP", "String"},
    {78, "StartMode", "String"},
    {79, "Unattended", "String"},
    {80, "Retained", "String"},
    {81, "ThreadPerObject", "String"},
    {82, "MaxNumberOfThreads", "String"},
    {83, "LineNumber", "Long"},
    {84, "CondComp", "String"},
    {85, "DllBaseAddress", "String"},
    {86, "RemoveUnusedControlInfo", "String"},
    {87, "IconForm", "String"},
    {88, "UseExistingBrowser", "String"},
    {89, "RequireLicenseKey", "String"},
    {90, "DebugStartupOption", "String"},
    {91, "DebugStartupComponent", "String"},
    {92, "StrippedLine", "String"},
    {93, "IsCode", "Boolean"},
    {94, "IsMultiStatement", "Boolean"},
    {95, "PhysicalLine", "String"},
    {96, "PhysicalLineCount", "Long"},
    {97, "IsMultiItem", "Boolean"},
    {98, "Statement", "String"},
    {99, "IsEventProcedure", "Boolean"},
    {100, "ArraySize", "String"},
    {101, "IsWithEvents", "Boolean"},
    {102, "ControlCount", "Long"},
    {103, "Container", "String"},
    {104, "ProgID", "String"},
    {105, "TotalLineCount", "Long"},
    {106, "BlankLineCount", "Long"},
    {107, "CodeLineCount", "Long"},
    {108, "CommentLineCount", "Long"},
    {109, "InLineCommentCount", "Long"},
    {110, "IsLocal", "Boolean"},
    {111, "RelatedDocCount", "Long"},
    {112, "SourceFileCount", "Long"},
    {113, "ComponentCount", "Long"},
    {114, "ReferenceCount", "Long"},
    {115, "Index", "Long/String"},
    {116, "IsAsNew", "Boolean"},
    {117, "ControlTag", "String"},
    {118, "ScopeTag", "String"},
    {119, "FormFileCount", "Long"},
    {120, "ClassFileCount", "Long"},
    {121, "DesignerFileCount", "Long"},
    {122, "ModuleFileCount", "Long"},
    {123, "PropertyPageFileCount", "Long"},
    {124, "UserControlFileCount", "Long"},
    {125, "UserDocumentFileCount", "Long"},
    {126, "CyclomaticComplexity", "Long"},
    {127, "ProcedureCount", "Long"},
    {128, "ConstCount", "Long"},
    {129, "PublicConstCount", "Long"},
    {130, "PrivateConstCount", "Long"},
    {131, "VariableCount", "Long"},
    {132, "PublicVariableCount", "Long"},
    {133, "PrivateVariableCount", "Long"},
    {134, "AverageCyclomatic", "Long"},
    {135, "ImplementsCount", "Long"},
    {136, "DeclareCount", "Long"},
    {137, "PublicDeclareCount", "Long"},
    {138, "PrivateDeclareCount", "Long"},
    {139, "TypeCount", "Long"},
    {140, "PublicTypeCount", "Long"},
    {141, "PrivateTypeCount", "Long"},
    {142, "EnumCount", "Long"},
    {143, "PublicEnumCount", "Long"},
    {144, "PrivateEnumCount", "Long"},
    {145, "EventCount", "Long"},
    {146, "IsParamArray", "Boolean"},
    {147, "MaximumCyclomatic", "Long"},
    {148, "ArrayTag", "String"},
    {149, "HeaderComment", "String"},
    {150, "CommentBlock", "String"},
};

struct ListFact {
    ObjectType Object;
    std::string_view Names;
    bool HasLineStatistics;
};

constexpr ListFact kLists[] = {
    {ObjectType::Argument, "DataType DefaultValue IsArray IsParamArray IsOptional ParentObject PassBy Index Name", false},
    {ObjectType::Layout, "ControlCount IsMDIParent IsMDIChild Name", false},
    {ObjectType::Component, "AuthorisedVersions Filename GUID IsAuthorised Version DesignTime", false},
    {ObjectType::Const, "DataType Scope Value IsLocal IsMultiItem Name", false},
    {ObjectType::Control, "Class Library ProgID Container Index Name", false},
    {ObjectType::Declare, "Alias ArgumentCount ArgumentList DataType Lib ProcedureType Scope Name", false},
    {ObjectType::Enum, "ElementCount Scope Name", true},
    {ObjectType::Type, "ElementCount Scope Name", true},
    {ObjectType::EnumElement, "HasValue Value Name", false},
    {ObjectType::Event, "ArgumentCount ArgumentList Scope Name", false},
    {ObjectType::File, "Type Path FullFilename EventCount ComponentCount ProcedureCount AverageCyclomatic MaximumCyclomatic ConstCount PublicConstCount PrivateConstCount VariableCount PublicVariableCount PrivateVariableCount ImplementsCount EnumCount PublicEnumCount PrivateEnumCount TypeCount PublicTypeCount PrivateTypeCount DeclareCount PublicDeclareCount PrivateDeclareCount HeaderComment Extension Filename Name", true},
    {ObjectType::Implements, "Interface Library", false},
    {ObjectType::LineLabel, "Name", false},
    {ObjectType::NamingConvention, "ArrayTag DataTypeTag ControlTag ScopeTag", false},
    {ObjectType::Procedure, "ArgumentCount ArgumentList CyclomaticComplexity DataType IsStatic ProcedureType Scope IsEventProcedure ConstCount VariableCount Name", true},
    {ObjectType::Project, "Type HelpContextID ThreadingModel ThreadPerObject MaxNumberOfThreads AutoIncrementVer OverflowCheck FlPointCheck BoundsCheck FDIVCheck UnroundedFP Unattended NoAliasing NoControlUpgrade OptimizationType CompilationType StartMode Startup Retained CodeViewDebugInfo ServerSupportFiles Command32 CompatibleMode VersionCompatible32 FavorPentiumPro Path FullFilename DllBaseAddress CondComp RemoveUnusedControlInfo IconForm UseExistingBrowser RequireLicenseKey DebugStartupOption DebugStartupComponent MajorVer MinorVer RevisionVer ComponentCount SourceFileCount ReferenceCount RelatedDocCount FormFileCount ClassFileCount DesignerFileCount ModuleFileCount UserControlFileCount UserDocumentFileCount PropertyPageFileCount CompatibleEXE32 Description ExeName32 HelpFile Filename Name Title VersionComments VersionCompanyName VersionProductName VersionFileDescription VersionLegalCopyright VersionLegalTrademarks ResFile32 Extension", true},
    {ObjectType::Reference, "AuthorisedVersions Description GUID IsAuthorised Version FullFilename DesignTime", false},
    {ObjectType::Source, "IsCode IsComment Line StrippedLine StrippedStatement LineNumber PhysicalLine PhysicalLineCount IsMultiStatement Statement CommentBlock", false},
    {ObjectType::TypeElement, "DataType IsArray ArraySize Name", false},
    {ObjectType::Variable, "DataType IsArray ArraySize IsWithEvents IsStatic Scope IsLocal IsAsNew IsMultiItem Name", false},
};
// clang-format on

constexpr std::string_view kLineStatistics =
    " TotalLineCount BlankLineCount CodeLineCount CommentLineCount InLineCommentCount";

/// The facts above go up to this number and hold for good; a property with a later one may join the catalogue
/// and any list without them.
constexpr std::int32_t kLastFact = 150;

constexpr std::int32_t kUnused[] = {4, 10, 11, 36, 42};
constexpr std::int32_t kNoProperty[] = {
    0,
    -1,
    4,
    10,
    11,
    36,
    42,
    std::numeric_limits<std::int32_t>::max(),
    std::numeric_limits<std::int32_t>::min()};

std::int32_t TypeNumber(ObjectType type) {
    return static_cast<std::int32_t>(type);
}

/// The number behind the last one of the catalogue.
std::int32_t FirstFreeNumber() {
    return static_cast<std::int32_t>(modPropertyCatalogue::Rows().back().Number) + 1;
}

/// The names in a list, but for those of properties that came after the facts.
std::string PropertiesOf(std::int32_t mode, std::int32_t objectType) {
    StringArrayList names;
    LongArrayList numbers;
    ObjectHelper::GetPropertyList(mode, objectType, names, numbers);
    EXPECT_EQ(names.Count(), numbers.Count());
    std::string text;
    for (std::int32_t i = 1; i <= names.Count(); ++i) {
        EXPECT_EQ(names.Item(i), ObjectHelper::PropertyName(numbers.Item(i)));
        if (numbers.Item(i) <= kLastFact) {
            text.append(text.empty() ? "" : " ").append(names.Item(i));
        }
    }
    return text;
}

std::string PropertiesOf(std::int32_t mode, ObjectType type) {
    return PropertiesOf(mode, TypeNumber(type));
}

std::string Described(ObjectType type, PropertyNumber property) {
    return ObjectHelper::ObjectPropertyDescription(
        TypeNumber(type), static_cast<std::int32_t>(property));
}

}  // namespace

TEST(ObjectHelper, EveryPropertyNumberHasItsName) {
    const test::CapturedLog log;
    for (const PropertyFact& fact : kProperties) {
        EXPECT_EQ(ObjectHelper::PropertyName(fact.Number), fact.Name);
    }
    EXPECT_EQ(std::size(kProperties), 145u);
    EXPECT_TRUE(log.Lines().empty());
}

TEST(ObjectHelper, UnusedNumbersAreTheOnlyHoles) {
    const test::CapturedLog log;
    std::vector<std::int32_t> holes;
    for (std::int32_t number = 1; number < FirstFreeNumber(); ++number) {
        if (ObjectHelper::PropertyName(number).empty()) {
            holes.push_back(number);
        }
    }
    EXPECT_TRUE(std::ranges::equal(holes, kUnused));
}

TEST(ObjectHelper, TheNameOfTheFirstFreeNumberIsEmptyAndNotedInTheLog) {
    const test::CapturedLog log;
    EXPECT_GT(FirstFreeNumber(), kLastFact);
    EXPECT_EQ(ObjectHelper::PropertyName(FirstFreeNumber()), "");
    EXPECT_EQ(
        log.Entries(),
        std::vector<std::string>{
            "Debug #There is no property number " + std::to_string(FirstFreeNumber()) +
            " in the catalogue.#ObjectHelper::PropertyName"});
}

TEST(ObjectHelper, EveryQuestionAboutANumberThatIsNoPropertyGivesNothingAndOneNote) {
    for (const std::int32_t number : kNoProperty) {
        const test::CapturedLog log;
        EXPECT_EQ(ObjectHelper::PropertyName(number), "");
        EXPECT_EQ(ObjectHelper::PropertyIcon(number), "");
        EXPECT_EQ(ObjectHelper::ObjectPropertyDescription(1, number), "");
        EXPECT_EQ(log.Lines().size(), 3u) << number;
    }
}

TEST(ObjectHelper, CountsHaveTheIconOfStatisticsAndThreeTagsTheirOwn) {
    for (const PropertyFact& fact : kProperties) {
        const bool isTag = fact.Number == 45 || fact.Number == 117 || fact.Number == 118;
        const std::string_view expected = isTag                          ? fact.Name
                                          : fact.Name.ends_with("Count") ? "Statistic"
                                                                         : "Property";
        EXPECT_EQ(ObjectHelper::PropertyIcon(fact.Number), expected) << fact.Name;
    }
    EXPECT_EQ(ObjectHelper::PropertyIcon(105), "Statistic");
    EXPECT_EQ(ObjectHelper::PropertyIcon(148), "Property");  // the array tag has none of its own
}

TEST(ObjectHelper, EveryModeBut3ListsTheWholeListOfAnObject) {
    for (const ListFact& fact : kLists) {
        const std::string expected =
            std::string(fact.Names).append(fact.HasLineStatistics ? kLineStatistics : "");
        for (const std::int32_t mode : {0, 1, 2, 4, 5}) {
            EXPECT_EQ(PropertiesOf(mode, fact.Object), expected) << TypeNumber(fact.Object);
        }
    }
}

TEST(ObjectHelper, Mode3LeavesOnlyTheNameOfObjectsThatHaveOne) {
    for (const ObjectType type :
         {ObjectType::Argument,
          ObjectType::Layout,
          ObjectType::Const,
          ObjectType::Control,
          ObjectType::Declare,
          ObjectType::Enum,
          ObjectType::Type,
          ObjectType::EnumElement,
          ObjectType::Event,
          ObjectType::Procedure,
          ObjectType::TypeElement,
          ObjectType::Variable}) {
        EXPECT_EQ(PropertiesOf(3, type), "Name") << TypeNumber(type);
    }
}

TEST(ObjectHelper, Mode3LeavesThreeNamesOfAFileAndThoseOfAProject) {
    EXPECT_EQ(PropertiesOf(3, ObjectType::File), "Extension Filename Name");
    EXPECT_EQ(
        PropertiesOf(3, ObjectType::Project),
        "CompatibleEXE32 Description ExeName32 HelpFile Filename Name Title VersionComments "
        "VersionCompanyName VersionProductName VersionFileDescription VersionLegalCopyright "
        "VersionLegalTrademarks ResFile32 Extension");
}

TEST(ObjectHelper, Mode3ListsTheWholeListOfObjectsThatAreNotCutDown) {
    for (const ObjectType type :
         {ObjectType::Component,
          ObjectType::Implements,
          ObjectType::LineLabel,
          ObjectType::NamingConvention,
          ObjectType::Reference,
          ObjectType::Source}) {
        EXPECT_EQ(PropertiesOf(3, type), PropertiesOf(1, type)) << TypeNumber(type);
        EXPECT_NE(PropertiesOf(3, type), "") << TypeNumber(type);
    }
}

TEST(ObjectHelper, ARefinementListsThePropertiesOfItsFamily) {
    for (const ObjectRow& row : modObjectCatalogue::Rows()) {
        for (const std::int32_t mode : {1, 2, 3, 4}) {
            EXPECT_EQ(PropertiesOf(mode, row.Type), PropertiesOf(mode, row.Root)) << row.Name;
        }
    }
}

TEST(ObjectHelper, Type36ListsThePropertiesOfFileAndIsReadThroughTheNameFile) {
    EXPECT_EQ(ObjectHelper::ObjectName(36), "File (Form)");
    EXPECT_EQ(PropertiesOf(1, 36), PropertiesOf(1, 12));
    EXPECT_EQ(ObjectHelper::ObjectName(TypeNumber(modObjectCatalogue::Find(36)->Root)), "File");
}

TEST(ObjectHelper, PropertiesThatDependOnTheControlGiveAnEmptyListWithoutANote) {
    const test::CapturedLog log;
    EXPECT_EQ(PropertiesOf(1, ObjectType::ControlProperties), "");
    EXPECT_EQ(PropertiesOf(1, ObjectType::LayoutProperties), "");
    EXPECT_TRUE(log.Lines().empty());
}

TEST(ObjectHelper, TheListOfANumberThatIsNoObjectIsEmptyAndNotedInTheLog) {
    const test::CapturedLog log;
    EXPECT_EQ(PropertiesOf(1, 50), "");
    EXPECT_EQ(
        log.Entries(),
        std::vector<std::string>{
            "Debug #Object type 50 is not in the catalogue.#ObjectHelper::GetPropertyList"});
}

TEST(ObjectHelper, PropertyDescriptionsThatRulebasesQuoteReadWordForWord) {
    EXPECT_EQ(
        Described(ObjectType::NamingConvention, PropertyNumber::ArrayTag),
        "ArrayTag As String\r\nThe array tag value computed during the processing of a naming "
        "convention.");
    EXPECT_EQ(
        Described(ObjectType::Project, PropertyNumber::BoundsCheck),
        "BoundsCheck As String\r\nRemove array bounds checks ('0' if unchecked, '-1' if checked).");
    EXPECT_EQ(
        Described(ObjectType::Project, PropertyNumber::CompatibleMode),
        "CompatibleMode As String\r\nComponent version compatibility (No compatibility = '0', "
        "Project compatibility = '1', Binary compatibility = '2').");
}

TEST(ObjectHelper, EveryListedPropertyOfEveryTypeHasADeclarationAndASentence) {
    const test::CapturedLog log;
    for (std::int32_t type = 1; type <= ObjectHelper::NumObjects(); ++type) {
        StringArrayList names;
        LongArrayList numbers;
        ObjectHelper::GetPropertyList(1, type, names, numbers);
        for (std::int32_t i = 1; i <= numbers.Count(); ++i) {
            const auto* fact =
                std::ranges::find(kProperties, numbers.Item(i), &PropertyFact::Number);
            const bool isFact = fact != std::end(kProperties);
            ASSERT_NE(isFact, numbers.Item(i) > kLastFact) << numbers.Item(i);
            const std::string description =
                ObjectHelper::ObjectPropertyDescription(type, numbers.Item(i));
            const std::size_t lineEnd = description.find("\r\n");
            ASSERT_NE(lineEnd, std::string::npos) << type << " " << names.Item(i);
            EXPECT_TRUE(description.starts_with(names.Item(i) + " As ")) << description;
            if (isFact && fact->Type != "Long/String") {
                EXPECT_EQ(
                    description.substr(0, lineEnd),
                    std::string(fact->Name).append(" As ").append(fact->Type));
            }
            const std::string sentence = description.substr(lineEnd + 2);
            EXPECT_GT(sentence.size(), 12u) << description;
            EXPECT_TRUE(sentence.ends_with('.')) << description;
            EXPECT_EQ(sentence.find_first_of("\r\n"), std::string::npos) << description;
        }
    }
    EXPECT_TRUE(log.Lines().empty());
}

TEST(ObjectHelper, TheIndexOfAnArgumentIsANumberAndThatOfAControlAText) {
    const auto firstLine = [](const std::string& text) {
        return text.substr(0, text.find('\r'));
    };
    EXPECT_EQ(firstLine(Described(ObjectType::Argument, PropertyNumber::Index)), "Index As Long");
    EXPECT_EQ(firstLine(Described(ObjectType::Control, PropertyNumber::Index)), "Index As String");
}

TEST(ObjectHelper, KeysOfTheProjectFileAreStringsAndCountsAreNumbers) {
    for (const PropertyDescription& row :
         modPropertyDescriptions::FindList(ObjectType::Project)->Properties) {
        const std::string description = Described(ObjectType::Project, row.Number);
        const bool isCount = description.find("Count As Long\r\n") != std::string::npos;
        EXPECT_NE(isCount, description.find(" As String\r\n") != std::string::npos) << description;
    }
}

TEST(ObjectHelper, ARefinementDescribesAPropertyAsItsFamilyDoes) {
    EXPECT_EQ(
        Described(ObjectType::FormFile, PropertyNumber::HeaderComment),
        Described(ObjectType::File, PropertyNumber::HeaderComment));
    EXPECT_NE(Described(ObjectType::FormFile, PropertyNumber::HeaderComment), "");
}

TEST(ObjectHelper, APropertyThatTheObjectDoesNotHaveIsEmptyAndNotedInTheLog) {
    const test::CapturedLog log;
    EXPECT_EQ(Described(ObjectType::LineLabel, PropertyNumber::Scope), "");
    EXPECT_EQ(Described(ObjectType::ControlProperties, PropertyNumber::Name), "");
    EXPECT_EQ(
        log.Entries(),
        (std::vector<std::string>{
            "Debug #Object type 15 has no property number 46.#ObjectHelper::"
            "ObjectPropertyDescription",
            "Debug #Object type 3 has no property number 37.#ObjectHelper::"
            "ObjectPropertyDescription"}));
}

TEST(ObjectHelper, OnlyRetiredPropertiesAreInNoList) {
    std::set<std::int32_t> listed;
    for (const ObjectPropertyList& list : modPropertyDescriptions::Lists()) {
        for (const PropertyDescription& row : list.Properties) {
            listed.insert(static_cast<std::int32_t>(row.Number));
        }
    }
    std::string unlisted;
    for (const PropertyFact& fact : kProperties) {
        if (!listed.contains(fact.Number)) {
            unlisted.append(fact.Name).append(" ");
        }
    }
    EXPECT_EQ(unlisted, "Instancing Optional ");
}

}  // namespace dorvik
