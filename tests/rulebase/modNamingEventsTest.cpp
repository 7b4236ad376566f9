#include "rulebase/catalogue/modNamingEvents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace dorvik {

namespace {

using testing::ElementsAre;

std::vector<ObjectType> TypesAt(ParserEvent event) {
    std::vector<ObjectType> types;
    for (const NamingEventRow& row : modNamingEvents::At(event)) {
        EXPECT_EQ(row.Event, event);
        types.push_back(row.Type);
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
    EXPECT_THAT(TypesAt(ParserEvent::Control), ElementsAre(ObjectType::Control));
    EXPECT_THAT(
        TypesAt(ParserEvent::Const),
        ElementsAre(ObjectType::Const, ObjectType::PublicConst, ObjectType::PrivateConst));
    EXPECT_THAT(TypesAt(ParserEvent::Declare), ElementsAre(ObjectType::Declare));
    EXPECT_THAT(
        TypesAt(ParserEvent::DeclareArgument),
        ElementsAre(ObjectType::Argument, ObjectType::DeclareArgument));
    EXPECT_THAT(
        TypesAt(ParserEvent::EventArgument),
        ElementsAre(ObjectType::Argument, ObjectType::EventArgument));
    EXPECT_THAT(
        TypesAt(ParserEvent::Variable),
        ElementsAre(
            ObjectType::Variable,
            ObjectType::NoWithEventsVariable,
            ObjectType::PublicVariable,
            ObjectType::PrivateVariable,
            ObjectType::WithEventsVariable,
            ObjectType::PublicWithEventsVariable,
            ObjectType::PrivateWithEventsVariable));
    EXPECT_THAT(
        TypesAt(ParserEvent::ProcedureArgument),
        ElementsAre(ObjectType::Argument, ObjectType::ProcedureArgument));
    EXPECT_THAT(
        TypesAt(ParserEvent::LocalConst), ElementsAre(ObjectType::Const, ObjectType::LocalConst));
    EXPECT_THAT(
        TypesAt(ParserEvent::LocalVariable),
        ElementsAre(
            ObjectType::Variable,
            ObjectType::NoWithEventsVariable,
            ObjectType::LocalVariable,
            ObjectType::LocalStaticVariable));
    EXPECT_THAT(
        TypesAt(ParserEvent::EndProcedure),
        ElementsAre(
            ObjectType::Procedure,
            ObjectType::SubProcedure,
            ObjectType::FunctionProcedure,
            ObjectType::PropertyProcedure));
    EXPECT_THAT(TypesAt(ParserEvent::EndFile), testing::Contains(ObjectType::MDIFormFile));
    EXPECT_THAT(TypesAt(ParserEvent::EndProject), ElementsAre(ObjectType::Project));
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
