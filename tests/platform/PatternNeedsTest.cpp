#include "platform/regex/PatternNeeds.h"

#include "platform/regex/PatternReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

struct NeedsRow {
    const char* Pattern;
    const char* Bytes;
    const char* Literal;
};

void PrintTo(const NeedsRow& row, std::ostream* stream) {
    *stream << row.Pattern;
}

PatternNeeds NeedsOf(std::string_view pattern, bool ignoreCase) {
    PatternTree tree;
    PatternReader reader(pattern, {ignoreCase, false});
    EXPECT_TRUE(reader.Read(tree)) << pattern;
    return NeedsOfPattern(tree);
}

class PatternNeedsTest : public testing::TestWithParam<NeedsRow> {};

TEST_P(PatternNeedsTest, AreWhatEveryMatchHolds) {
    const PatternNeeds needs = NeedsOf(GetParam().Pattern, false);
    EXPECT_EQ(needs.Bytes, ByteSet(GetParam().Bytes));
    EXPECT_EQ(needs.Literal, GetParam().Literal);
}

INSTANTIATE_TEST_SUITE_P(
    Understood,
    PatternNeedsTest,
    testing::Values(
        NeedsRow{"", "", ""},
        NeedsRow{"\\bGoTo\\b", "GoTo", "GoTo"},
        NeedsRow{"On Error Resume Next", "On Error Resume Next", "On Error Resume Next"},
        NeedsRow{"^Stop$", "Stop", "Stop"},
        NeedsRow{"Debug\\.Print", "Debug.Print", "Debug.Print"},
        NeedsRow{"Debug[.]Print", "Debug.Print", "Debug.Print"},
        NeedsRow{"abc?de", "abde", "ab"},
        NeedsRow{"abc*", "ab", "ab"},
        NeedsRow{"ab+cd", "abcd", "ab"},
        NeedsRow{"a{0}b", "b", "b"},
        NeedsRow{"a{0,3}b", "b", "b"},
        NeedsRow{"a{2}bc", "abc", "bc"},
        NeedsRow{"(?:a{2}){0}b", "b", "b"},
        NeedsRow{"a+?b", "ab", "a"},
        NeedsRow{"(?:a+)??b", "b", "b"},
        NeedsRow{"a??b", "b", "b"},
        NeedsRow{"ab|cd", "", ""},
        NeedsRow{"GoTo|GoSub", "Go", ""},
        NeedsRow{"ab|ab", "ab", "ab"},
        NeedsRow{"ab|", "", ""},
        NeedsRow{"a(bc)d", "abcd", "bc"},
        NeedsRow{"a(?:bc)*d", "ad", "a"},
        NeedsRow{"a(bc|bd)e", "abe", "a"},
        NeedsRow{"x(ab(cde)?f)y", "xabfy", "ab"},
        NeedsRow{"a(?=bcd)", "abcd", "bcd"},
        NeedsRow{"Error (?!GoTo)", "Error ", "Error "},
        NeedsRow{"a[bc]d", "ad", "a"},
        NeedsRow{"[]a]b", "ab]", "a]b"},  // an empty class, then text: it matches nothing at all
        NeedsRow{"[^]]b", "b]", "]b"},
        NeedsRow{"[\\]x]yz", "yz", "yz"},
        NeedsRow{"a\\sb\\d", "ab", "a"},
        NeedsRow{"a.b", "ab", "a"},
        NeedsRow{
            "Stra\xC3\x9F"
            "e",
            "Stra\xC3\x9F"
            "e",
            "Stra\xC3\x9F"
            "e"},
        NeedsRow{"\xC3\xA9?ab", "ab", "ab"},
        NeedsRow{"]}", "]}", "]}"}));

INSTANTIATE_TEST_SUITE_P(
    Rewritten,
    PatternNeedsTest,
    testing::Values(
        NeedsRow{"abc\\x41", "abcA", "abcA"},
        NeedsRow{"abc\\u0041d", "abcdA", "abcAd"},
        NeedsRow{"\\A\\Qa?\\Eb", "AQEb", "AQ"},
        NeedsRow{"\\101b\\cMc", "Ab\rc", "Ab\rc"},
        NeedsRow{"(a)b\\1c", "abc", "a"},
        NeedsRow{"a{,3}b", "a{,3}b", "a{,3}b"},
        NeedsRow{"a{b", "a{b", "a{b"},
        NeedsRow{"{a", "{a", "{a"},
        NeedsRow{"[[:alpha:]]b", "]b", "]b"},
        NeedsRow{
            "[\\cA]b",
            "\x01"
            "b",
            "\x01"
            "b"},
        NeedsRow{"(?:ab){2}c", "abc", "ab"},
        NeedsRow{"(?:ab)c", "abc", "abc"},
        NeedsRow{"\\p{L}b", "p{L}b", "p{L}b"}));

TEST(PatternNeeds, LettersAreNeededOnlyWhereCaseCounts) {
    const PatternNeeds needs = NeedsOf("Debug\\.Print = 12", true);
    EXPECT_EQ(needs.Bytes, ByteSet(". =12"));
    EXPECT_EQ(needs.Literal, " = 12");
}

using PieceTexts = std::vector<std::string>;

struct PiecesRow {
    const char* Pattern;
    std::vector<PieceTexts> OneOfEach;
};

class PatternPiecesTest : public testing::TestWithParam<PiecesRow> {};

TEST_P(PatternPiecesTest, OneOfEachListStandsInEveryMatch) {
    std::vector<PieceTexts> lists;
    for (const PatternPieces& pieces : NeedsOf(GetParam().Pattern, false).OneOfEach) {
        lists.push_back(pieces.Texts);
        ASSERT_EQ(pieces.Pairs.size(), pieces.Texts.size());
        for (std::size_t i = 0; i < pieces.Texts.size(); ++i) {
            EXPECT_EQ(pieces.Pairs[i], PairSet(pieces.Texts[i]));
        }
    }
    EXPECT_EQ(lists, GetParam().OneOfEach) << GetParam().Pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Alternatives,
    PatternPiecesTest,
    testing::Values(
        PiecesRow{"\\s(Eqv|Imp)\\s", {PieceTexts{"Eqv", "Imp"}}},
        PiecesRow{"^GoSub|^Return$", {PieceTexts{"GoSub", "Return"}}},
        PiecesRow{"(?=.*\\s(?:And|Or)\\s).*", {PieceTexts{"And", "Or"}}},
        PiecesRow{"(?!.*(And|Or)).*", {}},
        PiecesRow{"(Date|Time)?=", {}},
        PiecesRow{"(Date|\\d)=", {}},
        PiecesRow{"(Date|\\d|Time)=", {}},
        PiecesRow{"((ab|cd)|ef)", {PieceTexts{"ab", "cd", "ef"}}},
        PiecesRow{
            "(a|b)(cd|ef)",
            {PieceTexts{"cd", "ef"}, PieceTexts{"a", "b"}}},  // the rarer ones first
        PiecesRow{"(cd|ef)(a|b)", {PieceTexts{"cd", "ef"}, PieceTexts{"a", "b"}}},
        PiecesRow{
            "(a|b)(c|d)(ef|gh)(ij|kl)",
            {PieceTexts{"ef", "gh"},
             PieceTexts{"ij", "kl"},
             PieceTexts{"a", "b"}}},  // three are enough
        PiecesRow{"((a|b)(cd|ef))|gh", {PieceTexts{"cd", "ef", "gh"}}},
        PiecesRow{"a|b|c|d|e|f|g|h|i", {}}));  // more than anybody looks for

TEST(PatternNeeds, ATextWithoutAPieceOfEachListHasNoMatch) {
    const PatternNeeds needs = NeedsOf("^(?=.*\\s(?:And|Or)\\s).*(Nothing|EOF)", false);
    const auto mayMatch = [&](std::string_view text) {
        return needs.MayMatch(text, TextTraits(text)) && needs.HasPieces(text);
    };
    EXPECT_TRUE(mayMatch("If a Or b Is Nothing Then"));
    EXPECT_TRUE(mayMatch("While Not r.EOF And n > 0"));
    EXPECT_FALSE(mayMatch("If a Or b Then"));
    EXPECT_FALSE(mayMatch("If b Is Nothing Then"));
    EXPECT_FALSE(mayMatch(""));
}

struct FirstRow {
    const char* Pattern;
    const char* First;  // null: not known
};

class PatternFirst : public testing::TestWithParam<FirstRow> {};

TEST_P(PatternFirst, EveryMatchBeginsATextWithOneOfThem) {
    const PatternNeeds needs = NeedsOf(GetParam().Pattern, false);
    ASSERT_EQ(needs.First.has_value(), GetParam().First != nullptr) << GetParam().Pattern;
    if (needs.First) {
        EXPECT_EQ(*needs.First, ByteSet(GetParam().First)) << GetParam().Pattern;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Anchored,
    PatternFirst,
    testing::Values(
        FirstRow{"^(Dim|Private|Public)\\s", "DP"},
        FirstRow{"^(?:Do\\s+)?(?:If|While)\\b", "DIW"},
        FirstRow{"^Do|^Loop", "DL"},
        FirstRow{"(^Do|^Loop)x", "DL"},
        FirstRow{"^(?!On)(?=G)\\bGo", "G"},
        FirstRow{"^a*b", "ab"},
        FirstRow{"^a{0}b", "ab"},  // more than it can be does no harm
        FirstRow{"^\xC3\xA9", "\xC3"},
        FirstRow{"Do", nullptr},
        FirstRow{"^Do|Loop", nullptr},
        FirstRow{"(^|:)Do", nullptr},
        FirstRow{"^[DL]o", nullptr},
        FirstRow{"^a*", nullptr},
        FirstRow{"^$", nullptr},
        FirstRow{"^(a|)b?", nullptr}));

TEST(PatternNeeds, TheFirstByteIsNotKnownWhereCaseDoesNotCountOrLinesDo) {
    EXPECT_FALSE(NeedsOf("^Do", true).First.has_value());
    PatternReader reader("^Do", {false, true});
    PatternTree tree;
    ASSERT_TRUE(reader.Read(tree));
    EXPECT_FALSE(NeedsOfPattern(tree).First.has_value());
}

TEST(PatternNeeds, NestedAlternativesAreLookedAtOnce) {
    std::string pattern = "a";
    for (int depth = 0; depth < 100; ++depth) {
        pattern = "(" + pattern + "|b)";
    }
    EXPECT_TRUE(NeedsOf(pattern, false).Bytes.IsEmpty());
}

TEST(PatternNeeds, DeepNestingIsLookedInto) {
    const std::string pattern = std::string(250, '(') + "a" + std::string(250, ')');
    EXPECT_EQ(NeedsOf(pattern, false).Literal, "a");
}

}  // namespace
}  // namespace dorvik
