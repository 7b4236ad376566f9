#include "platform/regex/PatternNeeds.h"

#include "platform/regex/PatternReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

struct Row {
    const char* Pattern;
    const char* Bytes;
    const char* Literal;
};

void PrintTo(const Row& row, std::ostream* stream) {
    *stream << row.Pattern;
}

PatternNeeds NeedsOf(std::string_view pattern, bool ignoreCase) {
    PatternTree tree;
    PatternReader reader(pattern, {ignoreCase, false});
    EXPECT_TRUE(reader.Read(tree)) << pattern;
    return NeedsOfPattern(tree);
}

class PatternNeedsTest : public testing::TestWithParam<Row> {};

TEST_P(PatternNeedsTest, AreWhatEveryMatchHolds) {
    const PatternNeeds needs = NeedsOf(GetParam().Pattern, false);
    EXPECT_EQ(needs.Bytes, ByteSet(GetParam().Bytes));
    EXPECT_EQ(needs.Literal, GetParam().Literal);
}

INSTANTIATE_TEST_SUITE_P(
    Understood,
    PatternNeedsTest,
    testing::Values(
        Row{"", "", ""},
        Row{"\\bGoTo\\b", "GoTo", "GoTo"},
        Row{"On Error Resume Next", "On Error Resume Next", "On Error Resume Next"},
        Row{"^Stop$", "Stop", "Stop"},
        Row{"Debug\\.Print", "Debug.Print", "Debug.Print"},
        Row{"Debug[.]Print", "Debug.Print", "Debug.Print"},
        Row{"abc?de", "abde", "ab"},
        Row{"abc*", "ab", "ab"},
        Row{"ab+cd", "abcd", "ab"},
        Row{"a{0}b", "b", "b"},
        Row{"a{0,3}b", "b", "b"},
        Row{"a{2}bc", "abc", "bc"},
        Row{"(?:a{2}){0}b", "b", "b"},
        Row{"a+?b", "ab", "a"},
        Row{"(?:a+)??b", "b", "b"},
        Row{"a??b", "b", "b"},
        Row{"ab|cd", "", ""},
        Row{"GoTo|GoSub", "Go", ""},
        Row{"ab|ab", "ab", "ab"},
        Row{"ab|", "", ""},
        Row{"a(bc)d", "abcd", "bc"},
        Row{"a(?:bc)*d", "ad", "a"},
        Row{"a(bc|bd)e", "abe", "a"},
        Row{"x(ab(cde)?f)y", "xabfy", "ab"},
        Row{"a(?=bcd)", "abcd", "bcd"},
        Row{"Error (?!GoTo)", "Error ", "Error "},
        Row{"a[bc]d", "ad", "a"},
        Row{"[]a]b", "ab]", "a]b"},  // an empty class, then text: it matches nothing at all
        Row{"[^]]b", "b]", "]b"},
        Row{"[\\]x]yz", "yz", "yz"},
        Row{"a\\sb\\d", "ab", "a"},
        Row{"a.b", "ab", "a"},
        Row{"Stra\xC3\x9F"
            "e",
            "Stra\xC3\x9F"
            "e",
            "Stra\xC3\x9F"
            "e"},
        Row{"\xC3\xA9?ab", "ab", "ab"},
        Row{"]}", "]}", "]}"}));

INSTANTIATE_TEST_SUITE_P(
    Rewritten,
    PatternNeedsTest,
    testing::Values(
        Row{"abc\\x41", "abcA", "abcA"},
        Row{"abc\\u0041d", "abcdA", "abcAd"},
        Row{"\\A\\Qa?\\Eb", "AQEb", "AQ"},
        Row{"\\101b\\cMc", "Ab\rc", "Ab\rc"},
        Row{"(a)b\\1c", "abc", "a"},
        Row{"a{,3}b", "a{,3}b", "a{,3}b"},
        Row{"a{b", "a{b", "a{b"},
        Row{"{a", "{a", "{a"},
        Row{"[[:alpha:]]b", "]b", "]b"},
        Row{"[\\cA]b",
            "\x01"
            "b",
            "\x01"
            "b"},
        Row{"(?:ab){2}c", "abc", "ab"},
        Row{"(?:ab)c", "abc", "abc"},
        Row{"\\p{L}b", "p{L}b", "p{L}b"}));

TEST(PatternNeeds, LettersAreNeededOnlyWhereCaseCounts) {
    const PatternNeeds needs = NeedsOf("Debug\\.Print = 12", true);
    EXPECT_EQ(needs.Bytes, ByteSet(". =12"));
    EXPECT_EQ(needs.Literal, " = 12");
}

using Pieces = std::vector<std::string>;

struct PiecesRow {
    const char* Pattern;
    std::vector<Pieces> OneOfEach;
};

class PatternPiecesTest : public testing::TestWithParam<PiecesRow> {};

TEST_P(PatternPiecesTest, OneOfEachListStandsInEveryMatch) {
    std::vector<Pieces> lists;
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
        PiecesRow{"\\s(Eqv|Imp)\\s", {Pieces{"Eqv", "Imp"}}},
        PiecesRow{"^GoSub|^Return$", {Pieces{"GoSub", "Return"}}},
        PiecesRow{"(?=.*\\s(?:And|Or)\\s).*", {Pieces{"And", "Or"}}},
        PiecesRow{"(?!.*(And|Or)).*", {}},
        PiecesRow{"(Date|Time)?=", {}},
        PiecesRow{"(Date|\\d)=", {}},
        PiecesRow{"(Date|\\d|Time)=", {}},
        PiecesRow{"((ab|cd)|ef)", {Pieces{"ab", "cd", "ef"}}},
        PiecesRow{"(a|b)(cd|ef)", {Pieces{"cd", "ef"}, Pieces{"a", "b"}}},  // the rarer ones first
        PiecesRow{"(cd|ef)(a|b)", {Pieces{"cd", "ef"}, Pieces{"a", "b"}}},
        PiecesRow{
            "(a|b)(c|d)(ef|gh)(ij|kl)",
            {Pieces{"ef", "gh"}, Pieces{"ij", "kl"}, Pieces{"a", "b"}}},  // three are enough
        PiecesRow{"((a|b)(cd|ef))|gh", {Pieces{"cd", "ef", "gh"}}},
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
