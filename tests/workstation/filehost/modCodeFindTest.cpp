#include "workstation/filehost/modCodeFind.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {

namespace {

using modCodeFind::InLine;
using modCodeFind::LineMatch;

constexpr FindOptions kPlain{};
constexpr FindOptions kWord{.WholeWord = true};
constexpr FindOptions kCase{.MatchCase = true};
constexpr FindOptions kPattern{.PatternSearch = true};

}  // namespace

TEST(modCodeFind, PlainSearchIgnoresCaseAndCountsCharacters) {
    EXPECT_EQ(InLine("  Dim Total", "total", kPlain), (LineMatch{7, 12}));
    EXPECT_EQ(InLine("'\u00C4\u00D6: \u00FCber", "\u00DCBER", kPlain), (LineMatch{6, 10}));
    EXPECT_EQ(InLine("Dim x", "y", kPlain), std::nullopt);
    EXPECT_EQ(InLine("Dim x", "", kPlain), std::nullopt);
    EXPECT_EQ(InLine("", "x", kPlain), std::nullopt);
}

TEST(modCodeFind, SearchBeginsAtTheColumn) {
    EXPECT_EQ(InLine("aa a", "a", kPlain, 2), (LineMatch{2, 3}));
    EXPECT_EQ(InLine("aa a", "a", kPlain, 3), (LineMatch{4, 5}));
    EXPECT_EQ(InLine("aa a", "a", kPlain, 5), std::nullopt);
    EXPECT_EQ(InLine("aa a", "a", kPlain, 99), std::nullopt);
}

TEST(modCodeFind, CaseIsHeldToOnDemand) {
    EXPECT_EQ(InLine("x = X", "X", kCase), (LineMatch{5, 6}));
}

TEST(modCodeFind, WholeWordHasNoLetterAtItsSides) {
    EXPECT_EQ(InLine("Total1 = mTotal + total_ + Total", "total", kWord), (LineMatch{28, 33}));
    EXPECT_EQ(InLine("Total", "otal", kWord), std::nullopt);
    EXPECT_EQ(InLine("(Total)", "(Total", kWord), (LineMatch{1, 7}));
}

TEST(modCodeFind, SpecialCharactersAreThemselvesWithoutAPattern) {
    EXPECT_EQ(InLine("Open #1", "#", kPlain), (LineMatch{6, 7}));
    EXPECT_EQ(InLine("a * b", "*", kPlain), (LineMatch{3, 4}));
    EXPECT_EQ(InLine("ab", "?", kPlain), std::nullopt);
}

TEST(modCodeFind, PatternsMatchAsInTheEnvironment) {
    EXPECT_EQ(InLine("Sub Form_Load()", "s?b f*(", kPattern), (LineMatch{1, 15}));
    EXPECT_EQ(InLine("Open f For Input As #12", "##", kPattern), (LineMatch{22, 24}));
    EXPECT_EQ(InLine("x1 = y2", "[x-z]#", kPattern), (LineMatch{1, 3}));
    EXPECT_EQ(InLine("x1 = y2", "[!x]#", kPattern), (LineMatch{6, 8}));
    EXPECT_EQ(InLine("a(1) = b[2", "[2", kPattern), (LineMatch{9, 11}));
    EXPECT_EQ(InLine("a*b", "[*]", kPattern), (LineMatch{2, 3}));
    EXPECT_EQ(InLine("abc", "b*", kPattern), (LineMatch{2, 3}));
    EXPECT_EQ(InLine("abc", "a*c*d", kPattern), std::nullopt);
    EXPECT_EQ(InLine("abc", "[]", kPattern), std::nullopt);
}

TEST(modCodeFind, PatternWithManyAsterisksOverALongLineEnds) {
    const std::string line(200'000, 'a');
    std::string pattern;
    for (int i = 0; i < 30; ++i) {
        pattern += "a*";
    }
    EXPECT_EQ(InLine(line, pattern + "b", kPattern), std::nullopt);
    EXPECT_EQ(InLine(line, pattern, kPattern), (LineMatch{1, 31}));
}

}  // namespace dorvik
