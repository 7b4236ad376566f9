#include "workstation/desk/modFuzzySearch.h"

#include <gtest/gtest.h>

namespace dorvik::test {
namespace {

using modFuzzySearch::Find;
using modFuzzySearch::Score;

TEST(FuzzySearch, LettersAreFoundInTheirOrderWithoutRegardToCaseAndBlanks) {
    EXPECT_TRUE(Score("Review Project(s)...", "rvp"));
    EXPECT_TRUE(Score("Review Project(s)...", "PROJECT S"));
    EXPECT_FALSE(Score("Review Project(s)...", "pr x"));
    EXPECT_FALSE(Score("Find", "finder"));
    EXPECT_FALSE(Score("", "a"));
}

TEST(FuzzySearch, AnEmptyTextFindsAllInTheirOrder) {
    EXPECT_EQ(Find({"b", "a", "c"}, ""), (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_EQ(Find({"b", "a"}, "  "), (std::vector<std::size_t>{0, 1}));
}

TEST(FuzzySearch, BeginningsOfWordsAreBetterThanLettersInside) {
    EXPECT_EQ(Find({"Desktop", "Save project"}, "sp").front(), 1U);
    EXPECT_GT(Score("Group By: Severity", "gs"), Score("Configurations", "gs"));
}

TEST(FuzzySearch, LettersSideBySideAreBetterThanApart) {
    EXPECT_EQ(Find({"f i n d", "Refind"}, "find").front(), 1U);
}

TEST(FuzzySearch, TheTextAsItWasTypedIsBest) {
    EXPECT_EQ(Find({"Open the notes here", "xopenx"}, "open").front(), 0U);
    EXPECT_EQ(Find({"File: Close project", "File: Open folder..."}, "open f").front(), 1U);
}

TEST(FuzzySearch, LettersBeyondAsciiAreFound) {
    EXPECT_TRUE(Score("Größe", "grö"));
}

}  // namespace
}  // namespace dorvik::test
