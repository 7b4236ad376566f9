#include "rulebase/catalogue/modNamingEvents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace dorvik {

namespace {

using testing::ElementsAre;

std::vector<int> TypesAt(ParserEvent event) {
    std::vector<int> types;
    for (const NamingEventRow& row : modNamingEvents::At(event)) {
        EXPECT_EQ(row.Event, event);
        types.push_back(static_cast<int>(row.Type));
    }
    return types;
}

TEST(modNamingEvents, TheEventsTogetherHaveAllRowsInTheirOrder) {
    std::size_t rows = 0;
    for (int event = 1; event <= kLastParserEvent; ++event) {
        const auto atEvent = modNamingEvents::At(static_cast<ParserEvent>(event));
        if (!atEvent.empty()) {
            EXPECT_EQ(atEvent.data(), modNamingEvents::Rows().data() + rows);
        }
        rows += atEvent.size();
    }
    EXPECT_EQ(rows, modNamingEvents::Rows().size());
}

TEST(modNamingEvents, EachEventHasItsTypesInTheOrderInWhichTheyAreTried) {
    EXPECT_THAT(TypesAt(ParserEvent::Control), ElementsAre(6));
    EXPECT_THAT(TypesAt(ParserEvent::Const), ElementsAre(5, 22, 26));
    EXPECT_THAT(TypesAt(ParserEvent::Declare), ElementsAre(7));
    EXPECT_THAT(TypesAt(ParserEvent::DeclareArgument), ElementsAre(1, 13));
    EXPECT_THAT(TypesAt(ParserEvent::EventArgument), ElementsAre(1, 19));
    EXPECT_THAT(TypesAt(ParserEvent::Variable), ElementsAre(28, 43, 29, 30, 33, 34, 35));
    EXPECT_THAT(TypesAt(ParserEvent::ProcedureArgument), ElementsAre(1, 20));
    EXPECT_THAT(TypesAt(ParserEvent::LocalConst), ElementsAre(5, 27));
    EXPECT_THAT(TypesAt(ParserEvent::LocalVariable), ElementsAre(28, 43, 31, 32));
    EXPECT_THAT(TypesAt(ParserEvent::EndProcedure), ElementsAre(17, 44, 46, 45));
    EXPECT_THAT(TypesAt(ParserEvent::EndFile), testing::Contains(47));
    EXPECT_THAT(TypesAt(ParserEvent::EndProject), ElementsAre(18));
}

TEST(modNamingEvents, OtherEventsHaveNone) {
    for (const ParserEvent event :
         {ParserEvent::BeginProject,
          ParserEvent::SourceLine,
          ParserEvent::Component,
          ParserEvent::ProcedureBody,
          ParserEvent::EndSourceFiles}) {
        EXPECT_TRUE(modNamingEvents::At(event).empty());
    }
}

}  // namespace

}  // namespace dorvik
