#include "rulebase/catalogue/ObjectHelper.h"

#include "rulebase/catalogue/ObjectCatalogue.h"
#include "rulebase/catalogue/ObjectType.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace dorvik {

namespace {

// By number, from 1.
// clang-format off
constexpr std::array kObjectNames = {
    "Argument",
    "Layout",
    "ControlProperties",
    "Component",
    "Const",
    "Control",
    "Declare",
    "LayoutProperties",
    "Enum",
    "EnumElement",
    "Event",
    "File",
    "Argument (Declare)",
    "Implements",
    "LineLabel",
    "NamingConvention",
    "Procedure",
    "Project",
    "Argument (Event)",
    "Argument (Procedure)",
    "Reference",
    "Const (Public)",
    "Source",
    "Type",
    "TypeElement",
    "Const (Private)",
    "Const (Local)",
    "Variable",
    "Variable (Public)",
    "Variable (Private)",
    "Variable (Local)",
    "Variable (Local Static)",
    "Variable (WithEvents)",
    "Variable (Public WithEvents)",
    "Variable (Private WithEvents)",
    "File (Form)",
    "File (Module)",
    "File (Class)",
    "File (Designer)",
    "File (Property Page)",
    "File (User Control)",
    "File (User Document)",
    "Variable (No WithEvents)",
    "Procedure (Sub)",
    "Procedure (Property Get/Let/Set)",
    "Procedure (Function)",
    "File (MDI Form)",
    "File (MDI Child Form)",
    "File (Non MDI Form)",
};
// clang-format on

constexpr std::int32_t kOutsideNumbers[] = {
    0,
    -1,
    50,
    151,
    std::numeric_limits<std::int32_t>::max(),
    std::numeric_limits<std::int32_t>::min()};

std::int32_t Number(ObjectType type) {
    return static_cast<std::int32_t>(type);
}

/// The names of the objects of a mode, with a blank between.
std::string ObjectsOfMode(std::int32_t mode) {
    StringArrayList names;
    LongArrayList types;
    ObjectHelper::GetObjectList(mode, names, types);
    EXPECT_EQ(names.Count(), types.Count());
    std::string text;
    for (std::int32_t i = 1; i <= names.Count(); ++i) {
        EXPECT_EQ(names.Item(i), ObjectHelper::ObjectName(types.Item(i)));
        text.append(text.empty() ? "" : " ").append(names.Item(i));
    }
    return text;
}

/// The numbers from 1 to 49 for which the function gives that text.
template <typename Function>
std::vector<std::int32_t> TypesWith(std::string_view text, Function function) {
    std::vector<std::int32_t> types;
    for (std::int32_t type = 1; type <= ObjectHelper::NumObjects(); ++type) {
        if (function(type) == text) {
            types.push_back(type);
        }
    }
    return types;
}

using Numbers = std::vector<std::int32_t>;

constexpr std::string_view kInEveryMode = "File Procedure Enum Type Argument Const Declare "
                                          "EnumElement Event LineLabel TypeElement Variable";

}  // namespace

TEST(ObjectHelper, ThereAre49ObjectTypes) {
    EXPECT_EQ(ObjectHelper::NumObjects(), 49);
    EXPECT_EQ(kObjectNames.size(), 49u);
}

TEST(ObjectHelper, EveryObjectTypeHasItsName) {
    const test::CapturedLog log;
    for (std::int32_t type = 1; type <= 49; ++type) {
        EXPECT_EQ(ObjectHelper::ObjectName(type), kObjectNames[static_cast<std::size_t>(type) - 1]);
    }
    EXPECT_TRUE(log.Lines().empty());
}

TEST(ObjectHelper, ObjectTypesCarryTheirOutsideNumbers) {
    EXPECT_EQ(Number(ObjectType::Argument), 1);
    EXPECT_EQ(Number(ObjectType::ControlProperties), 3);
    EXPECT_EQ(Number(ObjectType::DeclareArgument), 13);
    EXPECT_EQ(Number(ObjectType::NamingConvention), 16);
    EXPECT_EQ(Number(ObjectType::Project), 18);
    EXPECT_EQ(Number(ObjectType::Source), 23);
    EXPECT_EQ(Number(ObjectType::Variable), 28);
    EXPECT_EQ(Number(ObjectType::FormFile), 36);
    EXPECT_EQ(Number(ObjectType::NoWithEventsVariable), 43);
    EXPECT_EQ(Number(ObjectType::NonMDIFormFile), 49);
}

TEST(ObjectHelper, ObjectNameOf50IsEmptyAndNotedInTheLog) {
    const test::CapturedLog log;
    EXPECT_EQ(ObjectHelper::ObjectName(50), "");
    EXPECT_EQ(
        log.Entries(),
        std::vector<std::string>{
            "Debug #Object type 50 is not in the catalogue.#ObjectHelper::ObjectName"});
}

TEST(ObjectHelper, EveryQuestionAboutANumberThatIsNoObjectGivesNothingAndOneNote) {
    for (const std::int32_t number : kOutsideNumbers) {
        const test::CapturedLog log;
        EXPECT_EQ(ObjectHelper::ObjectName(number), "");
        EXPECT_EQ(ObjectHelper::ObjectDescription(number), "");
        EXPECT_EQ(ObjectHelper::ObjectIcon(number), "");
        EXPECT_EQ(ObjectHelper::ObjectText(number), "");
        EXPECT_EQ(ObjectHelper::ObjectTreeIcon(number), "");
        EXPECT_FALSE(ObjectHelper::ObjectHasWorkfields(number));
        EXPECT_EQ(ObjectHelper::ObjectPropertyDescription(number, 37), "");
        EXPECT_EQ(log.Lines().size(), 7u) << number;
    }
}

TEST(ObjectHelper, ObjectKeyIsTheNumberFollowedByKeyForAnyNumber) {
    EXPECT_EQ(ObjectHelper::ObjectKey(1), "1Key");
    EXPECT_EQ(ObjectHelper::ObjectKey(26), "26Key");
    EXPECT_EQ(ObjectHelper::ObjectKey(49), "49Key");
    EXPECT_EQ(ObjectHelper::ObjectKey(50), "50Key");
}

TEST(ObjectHelper, EveryObjectHasWorkfieldsButThoseThatAreNone) {
    const auto hasNone = [](std::int32_t type) {
        return ObjectHelper::ObjectHasWorkfields(type) ? "" : "none";
    };
    EXPECT_EQ(TypesWith("none", hasNone), (Numbers{3, 8, 16, 23}));
}

TEST(ObjectHelper, ObjectTextIsTheNameButForSpacedForms) {
    const std::vector<std::pair<std::int32_t, std::string_view>> spaced = {
        {3, "Control Properties"},
        {8, "Layout Properties"},
        {10, "Enum Element"},
        {15, "Line Label"},
        {16, "Naming Convention"},
        {25, "Type Element"}};
    auto next = spaced.begin();
    for (std::int32_t type = 1; type <= 49; ++type) {
        if (next != spaced.end() && next->first == type) {
            EXPECT_EQ(ObjectHelper::ObjectText(type), next->second);
            ++next;
        } else {
            EXPECT_EQ(ObjectHelper::ObjectText(type), ObjectHelper::ObjectName(type));
        }
    }
    EXPECT_EQ(next, spaced.end());
}

TEST(ObjectHelper, TypesFrom1To28HaveAnIconAndTheOthersAreNoted) {
    const test::CapturedLog log;
    for (std::int32_t type = 1; type <= 28; ++type) {
        EXPECT_NE(ObjectHelper::ObjectIcon(type), "") << type;
    }
    EXPECT_TRUE(log.Lines().empty());
    for (std::int32_t type = 29; type <= 49; ++type) {
        EXPECT_EQ(ObjectHelper::ObjectIcon(type), "") << type;
    }
    EXPECT_EQ(log.Lines().size(), 21u);
}

TEST(ObjectHelper, FamiliesShareOneTreeIcon) {
    const auto icon = ObjectHelper::ObjectTreeIcon;
    EXPECT_EQ(TypesWith("Argument", icon), (Numbers{1, 13, 19, 20}));
    EXPECT_EQ(TypesWith("Const", icon), (Numbers{5, 22, 26, 27}));
    EXPECT_EQ(TypesWith("Module", icon), (Numbers{12, 37}));
    EXPECT_EQ(TypesWith("ProcedureBody", icon), (Numbers{17, 44, 45, 46}));
    EXPECT_EQ(TypesWith("", icon), Numbers{});
}

TEST(ObjectHelper, DescriptionsThatRulebasesQuoteReadWordForWord) {
    constexpr std::string_view kArgument =
        "Argument: A collection of properties relating to an individual argument defined within a "
        "'Sub', 'Function', 'Property Get/Let/Set', 'Event' declaration or 'Declare' statement.";
    EXPECT_EQ(TypesWith(kArgument, ObjectHelper::ObjectDescription), (Numbers{1, 13, 19, 20}));
    EXPECT_EQ(
        ObjectHelper::ObjectDescription(16),
        "NamingConvention: A collection of properties to permit more meaningful violation advice "
        "documentation during the enforcement of naming conventions.");
    EXPECT_EQ(
        ObjectHelper::ObjectDescription(38),
        "File (Class): Add naming conventions applicable to class files.");
}

// Required: "modfied" stands as it is.
TEST(ObjectHelper, DescriptionOfTheProjectKeepsItsMisspelling) {
    EXPECT_EQ(
        ObjectHelper::ObjectDescription(18),
        "Project: A collection of properties and statistics relating to the Visual Basic project "
        "currently being reviewed. Allows access to many of the property values held in the VBP "
        "file and modfied by the Project-><project> Properties dialog.");
}

TEST(ObjectHelper, TypesFrom1To43HaveADescriptionThatBeginsWithAName) {
    const test::CapturedLog log;
    for (std::int32_t type = 1; type <= 43; ++type) {
        const std::string_view description = ObjectHelper::ObjectDescription(type);
        const ObjectRow& row = *modObjectCatalogue::Find(type);
        const std::string root = std::string(ObjectHelper::ObjectName(Number(row.Root))) + ": ";
        const std::string own = std::string(row.Name) + ": ";
        EXPECT_TRUE(description.starts_with(root) || description.starts_with(own)) << description;
        EXPECT_TRUE(description.ends_with('.')) << description;
    }
    EXPECT_TRUE(log.Lines().empty());
    for (std::int32_t type = 44; type <= 49; ++type) {
        EXPECT_EQ(ObjectHelper::ObjectDescription(type), "") << type;
    }
    EXPECT_EQ(log.Lines().size(), 6u);
}

TEST(ObjectHelper, Mode1ListsAllObjects) {
    EXPECT_EQ(
        ObjectsOfMode(1),
        std::string(kInEveryMode) + " Implements Control Project Component Reference Source Layout "
                                    "LayoutProperties ControlProperties NamingConvention");
}

TEST(ObjectHelper, Mode2ListsAllButTheNamingConvention) {
    EXPECT_EQ(
        ObjectsOfMode(2),
        std::string(kInEveryMode) + " Implements Control Project Component Reference Source Layout "
                                    "LayoutProperties ControlProperties");
}

TEST(ObjectHelper, Mode3AddsControlAndProject) {
    EXPECT_EQ(ObjectsOfMode(3), std::string(kInEveryMode) + " Control Project");
}

TEST(ObjectHelper, Mode4AddsImplements) {
    EXPECT_EQ(ObjectsOfMode(4), std::string(kInEveryMode) + " Implements");
}

TEST(ObjectHelper, AnyOtherModeListsWhatEveryModeHas) {
    for (const std::int32_t mode :
         {0, 5, 9, 12, 124, -1, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(ObjectsOfMode(mode), kInEveryMode) << mode;
    }
}

TEST(ObjectHelper, AListIsClearedBeforeItIsFilled) {
    StringArrayList names;
    LongArrayList numbers;
    names.Add("stale");
    numbers.Add(7);
    ObjectHelper::GetObjectList(4, names, numbers);
    EXPECT_EQ(names.Item(1), "File");
    EXPECT_EQ(numbers.Item(1), 12);
    EXPECT_EQ(names.Count(), 13);
    ObjectHelper::GetPropertyList(1, 15, names, numbers);
    EXPECT_EQ(names.Count(), 1);
    EXPECT_EQ(names.Item(1), "Name");
    EXPECT_EQ(numbers.Item(1), 37);
}

}  // namespace dorvik
