#include "foundation/text/StringBuilder.h"

#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {
namespace {

TEST(StringBuilder, GetsItsFirstBlockOnTheFirstAppendWithoutInitialise) {
    const test::CapturedLog log;
    StringBuilder builder;
    EXPECT_EQ(builder.Text(), "");
    builder.Append("abc");
    builder.Append("def");
    EXPECT_EQ(builder.Text(), "abcdef");
    EXPECT_TRUE(log.Lines().empty());
}

TEST(StringBuilder, GrowsByBlocks) {
    const test::CapturedLog log;
    StringBuilder builder;
    builder.Initialise(4, 5);
    std::string expected;
    for (int number = 0; number < 100; ++number) {
        const std::string piece = std::to_string(number);
        builder.Append(piece);
        expected += piece;
    }
    EXPECT_EQ(builder.Text(), expected);
    EXPECT_TRUE(log.Lines().empty());
}

TEST(StringBuilder, InitialiseDoesNotResetTheWritePosition) {
    using namespace std::string_literals;
    StringBuilder builder;
    builder.Append("abc");
    builder.Initialise(10, 10);
    builder.Append("de");
    EXPECT_EQ(builder.Text(), "\0\0\0de"s);
}

TEST(StringBuilder, PieceLongerThanABlockIsCutAndTheNextAppendFailsIntoTheLog) {
    const test::CapturedLog log;
    StringBuilder builder;
    builder.Initialise(0, 5);
    builder.Append("abcdefgh");
    EXPECT_EQ(builder.Text(), "abcde");
    EXPECT_TRUE(log.Lines().empty());
    // The block that this one takes reaches to position 10 only.
    builder.Append("0123456789abcdef");
    EXPECT_TRUE(log.Lines().empty());
    builder.Append("x");
    EXPECT_EQ(log.Lines().size(), 1U);
    EXPECT_TRUE(log.Contains("5 - Invalid procedure call or argument#StringBuilder::Append"));
}

TEST(StringBuilder, AppendOfAnEmptyTextChangesNothing) {
    const test::CapturedLog log;
    StringBuilder builder;
    builder.Append("");
    EXPECT_EQ(builder.Text(), "");
    builder.Append("a");
    builder.Append("");
    EXPECT_EQ(builder.Text(), "a");
    EXPECT_TRUE(log.Lines().empty());
}

TEST(StringBuilder, DefaultBlockHoldsFiftyThousand) {
    const test::CapturedLog log;
    StringBuilder builder;
    builder.Append(std::string(50001, 'x'));
    EXPECT_EQ(builder.Text().size(), 50000U);
    EXPECT_TRUE(log.Lines().empty());
}

}  // namespace
}  // namespace dorvik
