#include "source/modLogicalLine.h"

#include <gtest/gtest.h>

namespace dorvik {

TEST(modLogicalLine, LineContinuesByItsLastCharacterUnlessItIsAComment) {
    EXPECT_TRUE(modLogicalLine::IsContinued("x = 1 + _  "));
    EXPECT_TRUE(modLogicalLine::IsContinued("x = 1 ' note _"));
    EXPECT_FALSE(modLogicalLine::IsContinued("' note _"));
    EXPECT_FALSE(modLogicalLine::IsContinued("x = 1"));
    EXPECT_FALSE(modLogicalLine::IsContinued(""));
}

TEST(modLogicalLine, PartsAreJoinedByOneBlank) {
    std::string logical(modLogicalLine::WithoutContinuation("  x = 1 +  _ "));
    modLogicalLine::AppendJoined(logical, "   2 ");
    EXPECT_EQ(logical, "  x = 1 + 2");
    std::string begin;
    modLogicalLine::AppendJoined(begin, "  x ");
    EXPECT_EQ(begin, "  x ");
}

TEST(modLogicalLine, DigitsOfTheFirstColumnAreALineNumber) {
    std::string logical = "120 x = 1";
    modLogicalLine::RemoveLineNumber(logical);
    EXPECT_EQ(logical, " x = 1");
    modLogicalLine::RemoveLineNumber(logical);
    EXPECT_EQ(logical, " x = 1");
    logical = "120";
    modLogicalLine::RemoveLineNumber(logical);
    EXPECT_EQ(logical, "");
    logical = " 120 x";
    modLogicalLine::RemoveLineNumber(logical);
    EXPECT_EQ(logical, " 120 x");
}

}  // namespace dorvik
