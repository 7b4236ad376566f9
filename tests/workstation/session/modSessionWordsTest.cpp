#include "workstation/session/modSessionWords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

SessionWords Words(std::string_view line) {
    const auto words = modSessionWords::Split(line);
    EXPECT_TRUE(words.has_value()) << line;
    return words.value_or(SessionWords());
}

TEST(modSessionWordsTest, WordsAreSeparatedByBlanks) {
    EXPECT_THAT(Words("  file   3SFKey "), ElementsAre("file", "3SFKey"));
    EXPECT_THAT(Words("row\t2"), ElementsAre("row", "2"));
}

TEST(modSessionWordsTest, AWordInQuotesMayHoldBlanksAndQuotes) {
    EXPECT_THAT(
        Words(R"(edit M 3 "  a = ""x"" # y")"), ElementsAre("edit", "M", "3", "  a = \"x\" # y"));
    EXPECT_THAT(Words(R"(dialog rulebase "")"), ElementsAre("dialog", "rulebase", ""));
}

TEST(modSessionWordsTest, AQuoteWithinAWordIsAQuote) {
    EXPECT_THAT(Words(R"(edit M 3 a"b)"), ElementsAre("edit", "M", "3", "a\"b"));
}

TEST(modSessionWordsTest, ANumberSignBeginsACommentAtTheStartOfAWordOnly) {
    EXPECT_THAT(Words("# all of it"), IsEmpty());
    EXPECT_THAT(Words("start # now"), ElementsAre("start"));
    EXPECT_THAT(Words("file a#b"), ElementsAre("file", "a#b"));
    EXPECT_THAT(Words("   "), IsEmpty());
}

TEST(modSessionWordsTest, AQuotedWordHasToEnd) {
    EXPECT_FALSE(modSessionWords::Split("file \"a b"));
    EXPECT_FALSE(modSessionWords::Split("file \"a\"b"));
}

TEST(modSessionWordsTest, WordsFitAShape) {
    EXPECT_TRUE(modSessionWords::Fit({"a", "3", "on"}, "tns"));
    EXPECT_FALSE(modSessionWords::Fit({"a", "x", "on"}, "tns"));
    EXPECT_FALSE(modSessionWords::Fit({"a", "3", "yes"}, "tns"));
    EXPECT_FALSE(modSessionWords::Fit({"a", "3"}, "tns"));
    EXPECT_FALSE(modSessionWords::Fit({"a", "3", "on", "b"}, "tns"));
    EXPECT_TRUE(modSessionWords::Fit({}, ""));
}

TEST(modSessionWordsTest, WordsInUpperCaseMayBeMissing) {
    EXPECT_TRUE(modSessionWords::Fit({}, "N"));
    EXPECT_TRUE(modSessionWords::Fit({"2"}, "N"));
    EXPECT_FALSE(modSessionWords::Fit({"b"}, "N"));
    EXPECT_TRUE(modSessionWords::Fit({"a"}, "tTT"));
    EXPECT_FALSE(modSessionWords::Fit({}, "tTT"));
}

}  // namespace
}  // namespace dorvik::test
