#include "rulebase/catalogue/modEventScope.h"

#include "parser/ParserEventTable.h"
#include "rulebase/catalogue/ObjectCatalogue.h"
#include "rulebase/catalogue/ObjectHelper.h"
#include "rulebase/catalogue/modNamingEvents.h"

#include <gtest/gtest.h>

#include <set>

namespace dorvik {

TEST(modEventScope, EveryEventPromisesTheProjectLast) {
    for (const ParserEventRow& row : kParserEvents) {
        const auto promised = modEventScope::DocumentedScope(static_cast<std::int32_t>(row.Event));
        ASSERT_FALSE(promised.empty()) << row.Text;
        EXPECT_EQ(promised.back(), "Project") << row.Text;
    }
}

TEST(modEventScope, TheNoteAtTheSourceLineIsNoObject) {
    EXPECT_EQ(
        modEventScope::DocumentedScope(4),
        (std::vector<std::string_view>{"Source", "File", "Project"}));
}

TEST(modEventScope, ANumberThatIsNoEventHoldsNothing) {
    for (const std::int32_t event : {-1, 0, 38}) {
        EXPECT_TRUE(modEventScope::DocumentedScope(event).empty());
        EXPECT_FALSE(modEventScope::MayBeInScope(event, "Project"));
    }
}

struct HoldRow {
    std::int32_t Event;
    const char* Object;
    bool Holds;
};

TEST(modEventScope, KnowsWhatARuleMayAskWhere) {
    constexpr HoldRow kRows[] = {
        {30, "Procedure", true},
        {30, "procedure", true},
        {10, "Procedure", false},
        {4, "Procedure", true},  // the line may stand in one
        {4, "Layout", true},
        {4, "Variable", false},  // fires behind its line
        {1, "VBP", true},
        {1, "Declarations", false},
        {3, "Declarations", true},
        {37, "NamingConvention", true},
        {35, "Source", false},
        {26, "Reference", true},
        {26, "File", false},
    };
    for (const HoldRow& row : kRows) {
        EXPECT_EQ(modEventScope::MayBeInScope(row.Event, row.Object), row.Holds)
            << row.Event << " " << row.Object;
    }
}

TEST(modNamingEvents, TheObjectOfEachRowIsInScopeAndNamesTheFamily) {
    for (const NamingEventRow& row : modNamingEvents::Rows()) {
        EXPECT_TRUE(
            modEventScope::MayBeInScope(static_cast<std::int32_t>(row.Event), row.ObjectName));
        const ObjectRow* type = modObjectCatalogue::Find(static_cast<std::int32_t>(row.Type));
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(
            row.ObjectName, modObjectCatalogue::Find(static_cast<std::int32_t>(type->Root))->Name);
    }
}

TEST(modNamingEvents, OnlyTheseObjectsAreNeverTested) {
    std::set<std::string_view> never;
    for (std::int32_t type = kFirstObjectType; type <= kLastObjectType; ++type) {
        if (modNamingEvents::Of(type).empty()) {
            never.insert(ObjectHelper::ObjectName(type));
        }
    }
    EXPECT_EQ(
        never,
        (std::set<std::string_view>{
            "Layout",
            "ControlProperties",
            "Component",
            "LayoutProperties",
            "Implements",
            "NamingConvention",
            "Reference",
            "Source"}));
}

TEST(modEventScope, NumbersReadAsASentenceNamesThem) {
    const auto tests = [](const ParserEventRow& row) {
        return row.Rules.TestsKeywords;
    };
    EXPECT_EQ(modEventScope::NumbersOf(tests, "and"), "10, 28 and 30");
    EXPECT_EQ(modEventScope::NumbersOf(CanEndScope, "or"), "8, 17, 24, 27, 34, 35, 36 or 37");
    const auto first = [](const ParserEventRow& row) {
        return row.Event == ParserEvent::BeginProject;
    };
    EXPECT_EQ(modEventScope::NumbersOf(first, "or"), "1");
    EXPECT_EQ(modEventScope::NumbersOf([](const ParserEventRow&) { return false; }, "or"), "");
}

}  // namespace dorvik
