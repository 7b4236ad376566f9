#include "platform/regex/Prefilter.h"

#include "platform/regex/PatternReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

struct PrefilterRow {
    const char* Pattern;
    const char* Bytes;
    const char* Literal;
};

void PrintTo(const PrefilterRow& row, std::ostream* stream) {
    *stream << row.Pattern;
}

Prefilter PrefilterOf(std::string_view pattern, bool ignoreCase) {
    PatternTree tree;
    PatternReader reader(pattern, {ignoreCase, false});
    EXPECT_TRUE(reader.Read(tree)) << pattern;
    return PrefilterOf(tree);
}

class PrefilterTest : public testing::TestWithParam<PrefilterRow> {};

TEST_P(PrefilterTest, AreWhatEveryMatchHolds) {
    const Prefilter prefilter = PrefilterOf(GetParam().Pattern, false);
    EXPECT_EQ(prefilter.Bytes, ByteSet(GetParam().Bytes));
    EXPECT_EQ(prefilter.Literal, GetParam().Literal);
}

INSTANTIATE_TEST_SUITE_P(
    Understood,
    PrefilterTest,
    testing::Values(
        PrefilterRow{"", "", ""},
        PrefilterRow{"\\bGoTo\\b", "GoTo", "GoTo"},
        PrefilterRow{"On Error Resume Next", "On Error Resume Next", "On Error Resume Next"},
        PrefilterRow{"^Stop$", "Stop", "Stop"},
        PrefilterRow{"Debug\\.Print", "Debug.Print", "Debug.Print"},
        PrefilterRow{"Debug[.]Print", "Debug.Print", "Debug.Print"},
        PrefilterRow{"abc?de", "abde", "ab"},
        PrefilterRow{"abc*", "ab", "ab"},
        PrefilterRow{"ab+cd", "abcd", "ab"},
        PrefilterRow{"a{0}b", "b", "b"},
        PrefilterRow{"a{0,3}b", "b", "b"},
        PrefilterRow{"a{2}bc", "abc", "bc"},
        PrefilterRow{"(?:a{2}){0}b", "b", "b"},
        PrefilterRow{"a+?b", "ab", "a"},
        PrefilterRow{"(?:a+)??b", "b", "b"},
        PrefilterRow{"a??b", "b", "b"},
        PrefilterRow{"ab|cd", "", ""},
        PrefilterRow{"GoTo|GoSub", "Go", ""},
        PrefilterRow{"ab|ab", "ab", "ab"},
        PrefilterRow{"ab|", "", ""},
        PrefilterRow{"a(bc)d", "abcd", "bc"},
        PrefilterRow{"a(?:bc)*d", "ad", "a"},
        PrefilterRow{"a(bc|bd)e", "abe", "a"},
        PrefilterRow{"x(ab(cde)?f)y", "xabfy", "ab"},
        PrefilterRow{"a(?=bcd)", "abcd", "bcd"},
        PrefilterRow{"Error (?!GoTo)", "Error ", "Error "},
        PrefilterRow{"a[bc]d", "ad", "a"},
        PrefilterRow{
            "[]a]b", "ab]", "a]b"},  // an empty class, then text: it matches nothing at all
        PrefilterRow{"[^]]b", "b]", "]b"},
        PrefilterRow{"[\\]x]yz", "yz", "yz"},
        PrefilterRow{"a\\sb\\d", "ab", "a"},
        PrefilterRow{"a.b", "ab", "a"},
        PrefilterRow{
            "Stra\xC3\x9F"
            "e",
            "Stra\xC3\x9F"
            "e",
            "Stra\xC3\x9F"
            "e"},
        PrefilterRow{"\xC3\xA9?ab", "ab", "ab"},
        PrefilterRow{"]}", "]}", "]}"}));

INSTANTIATE_TEST_SUITE_P(
    Rewritten,
    PrefilterTest,
    testing::Values(
        PrefilterRow{"abc\\x41", "abcA", "abcA"},
        PrefilterRow{"abc\\u0041d", "abcdA", "abcAd"},
        PrefilterRow{"\\A\\Qa?\\Eb", "AQEb", "AQ"},
        PrefilterRow{"\\101b\\cMc", "Ab\rc", "Ab\rc"},
        PrefilterRow{"(a)b\\1c", "abc", "a"},
        PrefilterRow{"a{,3}b", "a{,3}b", "a{,3}b"},
        PrefilterRow{"a{b", "a{b", "a{b"},
        PrefilterRow{"{a", "{a", "{a"},
        PrefilterRow{"[[:alpha:]]b", "]b", "]b"},
        PrefilterRow{
            "[\\cA]b",
            "\x01"
            "b",
            "\x01"
            "b"},
        PrefilterRow{"(?:ab){2}c", "abc", "ab"},
        PrefilterRow{"(?:ab)c", "abc", "abc"},
        PrefilterRow{"\\p{L}b", "p{L}b", "p{L}b"}));

TEST(Prefilter, LettersAreRequiredOnlyWhereCaseCounts) {
    const Prefilter prefilter = PrefilterOf("Debug\\.Print = 12", true);
    EXPECT_EQ(prefilter.Bytes, ByteSet(". =12"));
    EXPECT_EQ(prefilter.Literal, " = 12");
}

using Literals = std::vector<std::string>;

struct ChoiceRow {
    const char* Pattern;
    std::vector<Literals> OneOfEach;
};

class LiteralChoiceTest : public testing::TestWithParam<ChoiceRow> {};

TEST_P(LiteralChoiceTest, EveryMatchContainsOneOfEach) {
    std::vector<Literals> lists;
    for (const LiteralChoice& choice : PrefilterOf(GetParam().Pattern, false).OneOfEach) {
        lists.push_back(choice.Texts);
        ASSERT_EQ(choice.Bigrams.size(), choice.Texts.size());
        for (std::size_t i = 0; i < choice.Texts.size(); ++i) {
            EXPECT_EQ(choice.Bigrams[i], BigramSet(choice.Texts[i]));
        }
    }
    EXPECT_EQ(lists, GetParam().OneOfEach) << GetParam().Pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Alternatives,
    LiteralChoiceTest,
    testing::Values(
        ChoiceRow{"\\s(Eqv|Imp)\\s", {Literals{"Eqv", "Imp"}}},
        ChoiceRow{"^GoSub|^Return$", {Literals{"GoSub", "Return"}}},
        ChoiceRow{"(?=.*\\s(?:And|Or)\\s).*", {Literals{"And", "Or"}}},
        ChoiceRow{"(?!.*(And|Or)).*", {}},
        ChoiceRow{"(Date|Time)?=", {}},
        ChoiceRow{"(Date|\\d)=", {}},
        ChoiceRow{"(Date|\\d|Time)=", {}},
        ChoiceRow{"((ab|cd)|ef)", {Literals{"ab", "cd", "ef"}}},
        ChoiceRow{
            "(a|b)(cd|ef)", {Literals{"cd", "ef"}, Literals{"a", "b"}}},  // the rarer ones first
        ChoiceRow{"(cd|ef)(a|b)", {Literals{"cd", "ef"}, Literals{"a", "b"}}},
        ChoiceRow{
            "(a|b)(c|d)(ef|gh)(ij|kl)",
            {Literals{"ef", "gh"}, Literals{"ij", "kl"}, Literals{"a", "b"}}},  // three are enough
        ChoiceRow{"((a|b)(cd|ef))|gh", {Literals{"cd", "ef", "gh"}}},
        ChoiceRow{"a|b|c|d|e|f|g|h|i", {}}));  // more than are tested

TEST(Prefilter, ATextWithoutALiteralOfEachChoiceHasNoMatch) {
    const Prefilter prefilter = PrefilterOf("^(?=.*\\s(?:And|Or)\\s).*(Nothing|EOF)", false);
    const auto mayMatch = [&](std::string_view text) {
        return prefilter.MayMatch(text, TextSignature(text)) && prefilter.HasLiterals(text);
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
    const Prefilter prefilter = PrefilterOf(GetParam().Pattern, false);
    ASSERT_EQ(prefilter.First.has_value(), GetParam().First != nullptr) << GetParam().Pattern;
    if (prefilter.First) {
        EXPECT_EQ(*prefilter.First, ByteSet(GetParam().First)) << GetParam().Pattern;
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

TEST(Prefilter, TheFirstByteIsNotKnownWhereCaseDoesNotCountOrLinesDo) {
    EXPECT_FALSE(PrefilterOf("^Do", true).First.has_value());
    PatternReader reader("^Do", {false, true});
    PatternTree tree;
    ASSERT_TRUE(reader.Read(tree));
    EXPECT_FALSE(PrefilterOf(tree).First.has_value());
}

TEST(Prefilter, NestedAlternativesAreLookedAtOnce) {
    std::string pattern = "a";
    for (int depth = 0; depth < 100; ++depth) {
        pattern = "(" + pattern + "|b)";
    }
    EXPECT_TRUE(PrefilterOf(pattern, false).Bytes.IsEmpty());
}

TEST(Prefilter, DeepNestingIsLookedInto) {
    const std::string pattern = std::string(250, '(') + "a" + std::string(250, ')');
    EXPECT_EQ(PrefilterOf(pattern, false).Literal, "a");
}

}  // namespace
}  // namespace dorvik
