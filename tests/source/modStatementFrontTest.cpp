#include "source/modStatementFront.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {
namespace {

using namespace std::string_literals;

struct FrontRow {
    const char* Name;
    std::string Line;
    std::string Expected;
};

void PrintTo(const FrontRow& row, std::ostream* out) {
    *out << row.Name;
}

class StatementFront : public testing::TestWithParam<FrontRow> {};

TEST_P(StatementFront, HasBlanksForWhatHidesAStatementAndNothingElseChanges) {
    std::string buffer = "left of the line before";
    EXPECT_EQ(modStatementFront::WithBlanks(GetParam().Line, buffer), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Lines,
    StatementFront,
    testing::Values(
        FrontRow{"Plain", "    Stop", "    Stop"},
        FrontRow{"Nothing", "", ""},
        FrontRow{"Nul", "\0Stop"s, " Stop"},
        FrontRow{"FormFeed", "\fStop", " Stop"},
        FrontRow{"NoBreakSpace", "\xC2\xA0Stop", " Stop"},
        FrontRow{"Several", " \f\xC2\xA0\t\0Stop"s, "   \t Stop"},
        FrontRow{"NothingElse", "\f\xC2\xA0", "  "},
        FrontRow{"BehindALineNumber", "100\xC2\xA0Stop", "100 Stop"},
        FrontRow{"BehindAColon", "x = 1:\xC2\xA0Stop", "x = 1: Stop"},
        FrontRow{"BehindALabelAndBlanks", "Again: \f Stop", "Again:   Stop"},
        FrontRow{"InTheMiddle", "x\xC2\xA0=\f1", "x\xC2\xA0=\f1"},
        FrontRow{"InAString", "s = \":\xC2\xA0Stop\"", "s = \":\xC2\xA0Stop\""},
        FrontRow{"BehindAStringWithQuotes", "s = \"a\"\"b\":\fStop", "s = \"a\"\"b\": Stop"},
        FrontRow{"InAComment", "x = 1 ' a:\fb", "x = 1 ' a:\fb"},
        FrontRow{"FrontOfAComment", "\f' page", " ' page"},
        FrontRow{"HalfOfTheCharacter", "\xC2Stop", "\xC2Stop"}),
    [](const auto& row) { return row.param.Name; });

}  // namespace
}  // namespace dorvik
