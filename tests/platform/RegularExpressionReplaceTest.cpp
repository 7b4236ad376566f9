// Replacements, and the longest match.
#include "MatchText.h"
#include "base/BasicError.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

struct ReplaceRow {
    const char* Pattern;
    const char* Flags;
    std::string Text;
    const char* Replacement;
    std::string Expected;
};

void PrintTo(const ReplaceRow& row, std::ostream* stream) {
    *stream << '/' << row.Pattern << '/' << row.Flags << " -> '" << row.Replacement << "'";
}

class RegularExpressionReplaceTest : public testing::TestWithParam<ReplaceRow> {};

TEST_P(RegularExpressionReplaceTest, PutsTheReplacementForTheMatches) {
    RegularExpression expression = ExpressionOf(GetParam().Pattern, GetParam().Flags);
    EXPECT_EQ(expression.Replace(GetParam().Text, GetParam().Replacement), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table,
    RegularExpressionReplaceTest,
    testing::Values(
        ReplaceRow{"fox", "", "The fox and the fox", "cat", "The cat and the fox"},
        ReplaceRow{"fox", "g", "The fox and the fox", "cat", "The cat and the cat"},
        ReplaceRow{"FOX", "gi", "The fox", "cat", "The cat"},
        ReplaceRow{"dog", "g", "The fox", "cat", "The fox"},
        ReplaceRow{"fox", "g", "", "cat", ""},
        ReplaceRow{"fox", "g", "a fox b", "", "a  b"},
        ReplaceRow{
            R"((\S+)(\s+)(\S+))", "g", "The quick brown fox", "$3$2$1", "quick The fox brown"},
        ReplaceRow{"b", "", "abc", "[$&]", "a[b]c"},
        ReplaceRow{"b", "", "abc", "[$`]", "a[a]c"},
        ReplaceRow{"b", "", "abc", "[$']", "a[c]c"},
        ReplaceRow{"b", "g", "abcb", "[$`|$']", "a[a|cb]c[abc|]"},
        ReplaceRow{"b", "", "abc", "$$", "a$c"},
        ReplaceRow{"b", "", "abc", "$$&", "a$&c"},
        ReplaceRow{"b", "", "abc", "$", "a$c"},
        ReplaceRow{"b", "", "abc", "x$", "ax$c"},
        ReplaceRow{"b", "", "abc", "$x", "a$xc"},
        ReplaceRow{"b", "", "abc", "$1", "a$1c"},  // there is no such group
        ReplaceRow{"(b)", "", "abc", "$0", "a$0c"},
        ReplaceRow{"(b)", "", "abc", "$00", "a$00c"},
        ReplaceRow{"(b)", "", "abc", "$01", "abc"},
        ReplaceRow{"(b)", "", "abc", "$1$1", "abbc"},
        ReplaceRow{"(b)", "", "abc", "$12", "ab2c"},
        ReplaceRow{"(b)", "", "abc", "$2", "a$2c"},
        ReplaceRow{"(b)(x)?", "", "abc", "<$2>", "a<>c"},
        ReplaceRow{"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)", "", "abcdefghijk", "$11$10$1", "kja"},
        ReplaceRow{"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)", "", "abcdefghijk", "$110-$12", "k0-a2"},
        ReplaceRow{"(a)", "", "a", "$1\xC3\xA9$\xC3\xA9", "a\xC3\xA9$\xC3\xA9"},
        ReplaceRow{"x*", "g", "abxc", "-", "-a-b--c-"},
        ReplaceRow{"x*", "", "abxc", "-", "-abxc"},
        ReplaceRow{"", "g", "\xC3\xA9\xE6\x9C\xA8", "-", "-\xC3\xA9-\xE6\x9C\xA8-"},
        ReplaceRow{"^", "gm", "a\nb", "> ", "> a\n> b"},
        ReplaceRow{"\\s+$", "", "a b  ", "", "a b"},
        ReplaceRow{"^(a+)\\1*,\\1+$", "", "aaaaaaaaaa,aaaaaaaaaaaaaaa", "$1", "aaaaa"},
        ReplaceRow{"(?:(a)|b)*", "", "abx", "<$1>", "<>x"},
        ReplaceRow{
            "b",
            "g",
            "\xFF"
            "b\x80"
            "b",
            "c",
            "\xFF"
            "c\x80"
            "c"}));

TEST(RegularExpressionReplace, ALongPieceOfWorkTellsItsSizeAndCanBeEnded) {
    RegularExpression expression = ExpressionOf("a", "g");
    const auto stopAt100 = [](std::size_t bytes) {
        if (bytes > 100) {
            throw BasicError(14, "Out of string space");
        }
    };
    EXPECT_EQ(expression.Replace("aa", "bc", stopAt100), "bcbc");
    EXPECT_THROW(expression.Replace(std::string(60, 'a'), "bc", stopAt100), BasicError);
    EXPECT_THROW(expression.Execute(std::string(60, 'a'), stopAt100), BasicError);
}

// ---- The longest match ----

struct LongestRow {
    const char* Pattern;
    const char* Flags;
    std::string Text;
    std::string Expected;  // "index:value" or "none"
};

void PrintTo(const LongestRow& row, std::ostream* stream) {
    *stream << '/' << row.Pattern << '/' << row.Flags << " on '" << row.Text << "'";
}

class LongestMatchTest : public testing::TestWithParam<LongestRow> {};

TEST_P(LongestMatchTest, IsTheLongestAtTheFirstPlace) {
    RegularExpression expression = ExpressionOf(GetParam().Pattern, GetParam().Flags);
    const std::optional<Match> match = expression.LongestMatch(GetParam().Text);
    EXPECT_EQ(
        match ? std::to_string(match->Index) + ":" + match->Value : "none", GetParam().Expected);
    EXPECT_TRUE(!match || match->SubMatches.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Table,
    LongestMatchTest,
    testing::Values(
        LongestRow{"^m_a(s|str)", "", "m_astrNames", "0:m_astr"},
        LongestRow{"^m_a(str|s)", "", "m_astrNames", "0:m_astr"},
        LongestRow{"^m_a(s|str)", "", "m_asNames", "0:m_as"},
        LongestRow{"^m_a(s|str)", "", "M_ASTRNames", "none"},
        LongestRow{"^m_a(s|str)", "i", "M_ASTRNames", "0:M_ASTR"},
        LongestRow{"^m_as", "", "m_asNames", "0:m_as"},
        LongestRow{"(s|str)$", "", "Namesstr", "5:str"},
        LongestRow{"(Str|tr)$", "", "NameStr", "4:Str"},  // the first place, not the shortest
        LongestRow{"a|ab|abc", "", "xabcd", "1:abc"},
        LongestRow{"a|b+", "", "abbb", "0:a"},
        LongestRow{"a+?", "", "aaa", "0:aaa"},
        LongestRow{"a*?", "", "aaa", "0:aaa"},
        LongestRow{"a{1,2}?", "", "aaa", "0:aa"},
        LongestRow{"(?:a|ab)(?:c|bcd)?", "", "abcd", "0:abcd"},
        LongestRow{"(?:a|ab)*", "", "aabab", "0:aabab"},
        LongestRow{"|a", "", "a", "0:a"},
        LongestRow{"(?:|a)*", "", "aa", "0:aa"},
        LongestRow{"(?:|a)?", "", "ab", "0:a"},
        LongestRow{"(?:(a)|b)*", "", "abx", "0:ab"},
        LongestRow{"a(?=b)|ab(?=c)|abc", "", "abc", "0:abc"},
        LongestRow{"(?!a)[a-c]|ab", "", "ab", "0:ab"},
        LongestRow{R"((a|ab)(c|bcd)\1)", "", "abcdab", "0:abcda"},
        LongestRow{R"((a|ab)\1)", "", "abab", "0:abab"},
        LongestRow{R"((a)|(ab)\2)", "", "abab", "0:a"},  // with a back reference: the dialect's own
        LongestRow{"a.*b|a.*c", "", "axbxc", "0:axbxc"},
        LongestRow{"^(a|b|ab|ba)+$", "m", "xx\nabba\nab", "3:abba"},
        LongestRow{"\xC3\xA9|\xC3\xA9x", "", "a\xC3\xA9x", "1:\xC3\xA9x"},
        LongestRow{
            "a|ab",
            "",
            "\xFF"
            "ab\xFF",
            "1:ab"},
        LongestRow{"(?:s|str){1,70000}", "", "strs", "0:strs"},
        LongestRow{"x", "", "", "none"},
        LongestRow{"x?", "", "", "0:"},
        LongestRow{"[]|a", "", "a", "0:a"}));

TEST(LongestMatch, ManyWaysCostNoMoreThanOne) {
    RegularExpression expression("^(?:a|aa|aaa)*");
    const std::optional<Match> match = expression.LongestMatch(std::string(2000, 'a') + "b");
    ASSERT_TRUE(match);
    EXPECT_EQ(match->Value.size(), 2000U);
}

TEST(LongestMatch, IsBoundedInBytesThatAreNoUtf8) {
    RegularExpression expression("^(?:a|aa|aaa)*");
    EXPECT_THROW(expression.LongestMatch(std::string(2000, 'a') + "\xFF"), BasicError);
    EXPECT_EQ(expression.LongestMatch("aaaa\xFF")->Value, "aaaa");
}

}  // namespace
}  // namespace dorvik
