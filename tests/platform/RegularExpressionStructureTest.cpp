// Alternatives, repetitions, groups, lookaheads and back references. The rows follow the third edition of the
// ECMAScript standard (its own examples are marked) and the syntax reference of VBScript.
#include "MatchText.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

class RegularExpressionStructureTest : public testing::TestWithParam<PatternCase> {};

TEST_P(RegularExpressionStructureTest, MatchesAsTheDialectSays) {
    RegularExpression expression = ExpressionOf(GetParam().Pattern, GetParam().Flags);
    EXPECT_EQ(MatchText(expression, GetParam().Text), GetParam().Expected);
    EXPECT_EQ(expression.Test(GetParam().Text), GetParam().Expected != "none");
}

INSTANTIATE_TEST_SUITE_P(
    Standard,
    RegularExpressionStructureTest,
    testing::Values(
        PatternCase{"a|ab", "", "abc", "0:a"},
        PatternCase{"((a)|(ab))((c)|(bc))", "", "abc", "0:abc,a,a,~,bc,~,bc"},
        PatternCase{"a[a-z]{2,4}", "", "abcdefghi", "0:abcde"},
        PatternCase{"a[a-z]{2,4}?", "", "abcdefghi", "0:abc"},
        PatternCase{"(aa|aabaac|ba|b|c)*", "", "aabaac", "0:aaba,ba"},
        PatternCase{"(z)((a+)?(b+)?(c))*", "", "zaacbbbcac", "0:zaacbbbcac,z,ac,a,~,c"},
        PatternCase{"(a*)*", "", "b", "0:,~"},
        PatternCase{R"((a*)b\1+)", "", "baaaac", "0:b,"},
        PatternCase{"(?=(a+))", "", "baaabac", "1:,aaa"},
        PatternCase{R"((?=(a+))a*b\1)", "", "baaabac", "3:aba,a"},
        PatternCase{R"((.*?)a(?!(a+)b\2c)\2(.*))", "", "baaabaac", "0:baaabaac,ba,~,abaac"}));

INSTANTIATE_TEST_SUITE_P(
    Reference,
    RegularExpressionStructureTest,
    testing::Values(
        PatternCase{"zo*", "", "z", "0:z"},
        PatternCase{"zo*", "", "zoo", "0:zoo"},
        PatternCase{"zo+", "", "z", "none"},
        PatternCase{"zo+", "", "zoo", "0:zoo"},
        PatternCase{"do(es)?", "", "do", "0:do,~"},
        PatternCase{"do(es)?", "", "does", "0:does,es"},
        PatternCase{"a?ve?", "", "never", "2:ve"},
        PatternCase{"o{2}", "", "Bob", "none"},
        PatternCase{"o{2}", "", "foooood", "1:oo"},
        PatternCase{"o{2,}", "", "foooood", "1:ooooo"},
        PatternCase{"o{2,}", "", "Bob", "none"},
        PatternCase{"o{1,3}", "", "fooooood", "1:ooo"},
        PatternCase{"o{0,1}", "", "ood", "0:o"},
        PatternCase{"o+?", "", "oooo", "0:o"},
        PatternCase{"o+", "", "oooo", "0:oooo"},
        PatternCase{"z|food", "", "zood", "0:z"},
        PatternCase{"z|food", "", "food", "0:food"},
        PatternCase{"(z|f)ood", "", "a food", "2:food,f"},
        PatternCase{"industr(?:y|ies)", "", "industries", "0:industries"},
        PatternCase{"Windows (?=95|98|NT|2000)", "", "Windows 2000", "0:Windows "},
        PatternCase{"Windows (?=95|98|NT|2000)", "", "Windows 3.1", "none"},
        PatternCase{"Windows (?!95|98|NT|2000)", "", "Windows 3.1", "0:Windows "},
        PatternCase{"Windows (?!95|98|NT|2000)", "", "Windows 2000", "none"},
        PatternCase{R"((.)\1)", "", "Miss", "2:ss,s"},
        PatternCase{
            R"((\w+)://([^/:]+)(:\d*)?([^# ]*))",
            "",
            "http://example.org:80/scripting/",
            "0:http://example.org:80/scripting/,http,example.org,:80,/scripting/"},
        PatternCase{
            R"(\b([a-z]+) \1\b)",
            "gi",
            "Is is the cost of of gasoline going up up?",
            "0:Is is,Is;15:of of,of;36:up up,up"},
        PatternCase{R"(^\s*((\w+)\s*=)?\s*$)", "", "  x = ", "0:  x = ,x =,x"}));

INSTANTIATE_TEST_SUITE_P(
    Repetitions,
    RegularExpressionStructureTest,
    testing::Values(
        PatternCase{"a{0}", "", "aa", "0:"},
        PatternCase{"a{0}b", "", "ab", "1:b"},
        PatternCase{"a{0,0}b", "", "ab", "1:b"},
        PatternCase{"a{1}", "", "aa", "0:a"},
        PatternCase{"a{02}", "", "aaa", "0:aa"},
        PatternCase{"a{2,2}", "", "aaa", "0:aa"},
        PatternCase{"a{2}?", "", "aaa", "0:aa"},
        PatternCase{"a{2,}?", "", "aaaa", "0:aa"},
        PatternCase{"a??", "", "a", "0:"},
        PatternCase{"a??b", "", "ab", "0:ab"},
        PatternCase{"a*?", "", "aa", "0:"},
        PatternCase{"a*?$", "", "aa", "0:aa"},
        PatternCase{"<.+?>", "g", "<a><b>", "0:<a>;3:<b>"},
        PatternCase{"<.+>", "g", "<a><b>", "0:<a><b>"},
        PatternCase{"a{2,3}$", "", "baaa", "1:aaa"},
        PatternCase{"a{100000}", "", "aaa", "none"},
        PatternCase{"a{0,100000}b", "", "aab", "0:aab"},
        PatternCase{"a{99999999999999999999}", "", "a", "none"},
        PatternCase{"a{0,99999999999999999999}", "", "aa", "0:aa"},
        PatternCase{"(?:a{2}){2}", "", "aaaaa", "0:aaaa"},
        PatternCase{"(?:a+)+b", "", "aab", "0:aab"},
        PatternCase{"(?:a*)*b", "", "aab", "0:aab"},
        PatternCase{"(?:a?)*?b", "", "aab", "0:aab"},
        PatternCase{"((a+)?b)*", "", "abb", "0:abb,b,~"},
        PatternCase{"(?:|a)*", "", "aa", "0:aa"},  // an empty round is none
        PatternCase{"(?:|a)+", "", "aa", "0:aa"},
        PatternCase{"(?:|a)?", "", "aa", "0:a"},
        PatternCase{"(?:|a){2}", "", "aa", "0:"},
        PatternCase{"(?:|a){2,3}", "", "aaaa", "0:a"},
        PatternCase{"(?:|a)*?b", "", "aab", "0:aab"},
        PatternCase{"(|a)*", "", "aa", "0:aa,a"},
        PatternCase{"(a|)*", "", "b", "0:,~"},
        PatternCase{"(a|)+", "", "b", "0:,"},
        PatternCase{"(a|){2,}", "", "ab", "0:a,"},
        PatternCase{"(a*)?", "", "b", "0:,~"},
        PatternCase{"(a*)+", "", "b", "0:,"},
        PatternCase{"(a?){3}", "", "aa", "0:aa,"},
        PatternCase{"(?:^)*a", "", "ba", "1:a"},
        PatternCase{R"((?:\b)+a)", "", "ba a", "3:a"},
        PatternCase{"x*", "g", "axb", "0:;1:x;2:;3:"}));

INSTANTIATE_TEST_SUITE_P(
    Alternatives,
    RegularExpressionStructureTest,
    testing::Values(
        PatternCase{"|a", "", "a", "0:"},
        PatternCase{"a|", "", "b", "0:"},
        PatternCase{"|", "", "ab", "0:"},
        PatternCase{"a||b", "", "b", "0:"},
        PatternCase{"()", "", "a", "0:,"},
        PatternCase{"(|a)b", "", "ab", "0:ab,a"},
        PatternCase{"(a|)b", "", "b", "0:b,"},
        PatternCase{"(?:)a", "", "a", "0:a"},
        PatternCase{"^(Stop|End)$", "", "End", "0:End,End"},
        PatternCase{"^(Stop|End)$", "", "End If", "none"},
        PatternCase{"^a|b$", "", "cb", "1:b"},
        PatternCase{"ab|a|abc", "", "abc", "0:ab"},
        PatternCase{"(?:ab|a)(?:c|bcd)", "", "abcd", "0:abc"},
        PatternCase{"str|s", "", "sstr", "0:s"},
        PatternCase{"(?:a|)[0-9]*ab", "", "ab", "0:ab"},
        PatternCase{"(?:Public |Private |)[a-z]*Price", "", "Private Price", "0:Private Price"},
        PatternCase{"([ab]|)(a*|[ab]b+?[^a])b{2}", "", "b11bb", "3:bb,,"},
        PatternCase{"^m_a(s|str)", "", "m_astrNames", "0:m_as,s"}));

INSTANTIATE_TEST_SUITE_P(
    Groups,
    RegularExpressionStructureTest,
    testing::Values(
        PatternCase{"(a)(b)?(c)", "", "ac", "0:ac,a,~,c"},
        PatternCase{"(a)|(b)", "g", "ab", "0:a,a,~;1:b,~,b"},
        PatternCase{"(?:(a)|b)*", "", "ab", "0:ab,~"},  // each round forgets its groups
        PatternCase{"(?:(a)|b)*", "", "ba", "0:ba,a"},
        PatternCase{"(?:(a)|(b)|(c))+", "", "abc", "0:abc,~,~,c"},
        PatternCase{"((a)|b)*?$", "", "ab", "0:ab,b,~"},
        PatternCase{"(?:(a)?b){2}", "", "abb", "0:abb,~"},
        PatternCase{"(?:(x)|(y)){1,2}z", "", "xyz", "0:xyz,~,y"},
        PatternCase{"(a){0}", "", "a", "0:,~"},
        PatternCase{"(a)+", "", "aaa", "0:aaa,a"},
        PatternCase{"(ab|cd)+", "", "abcdab", "0:abcdab,ab"},
        PatternCase{"((((((((((a))))))))))", "", "a", "0:a,a,a,a,a,a,a,a,a,a,a"},
        PatternCase{"(a(b(c)))", "", "abc", "0:abc,abc,bc,c"},
        PatternCase{"(a+)(a*)", "", "aaa", "0:aaa,aaa,"},
        PatternCase{"(a+?)(a*)", "", "aaa", "0:aaa,a,aa"},
        PatternCase{"(?:(?:(?:a)))", "", "a", "0:a"},
        PatternCase{"[(](a)[)]", "", "(a)", "0:(a),a"},
        PatternCase{R"(\((a)\))", "", "(a)", "0:(a),a"}));

INSTANTIATE_TEST_SUITE_P(
    BackReferences,
    RegularExpressionStructureTest,
    testing::Values(
        PatternCase{R"((a)?b\1c)", "", "bc", "0:bc,~"},
        PatternCase{R"((a)?b\1c)", "", "abac", "0:abac,a"},
        PatternCase{R"((?:(a)|b)\1)", "", "b", "0:b,~"},
        PatternCase{R"((?:(a)|b)*\1c)", "", "abc", "0:abc,~"},  // of the round that was the last
        PatternCase{R"((?:(a)|b)*\1c)", "", "baac", "0:baac,a"},
        PatternCase{R"(\1(a))", "", "aa", "0:a,a"},
        PatternCase{R"((\2a)(b)\2)", "", "abb", "0:abb,a,b"},
        PatternCase{R"((a\1))", "", "aa", "0:a,a"},
        PatternCase{R"((a\1)+)", "", "aaa", "0:aaa,a"},
        PatternCase{R"((?:\1(a))*)", "", "aaa", "0:aaa,a"},
        PatternCase{R"((a|ab)(c|bcd)\1)", "", "abcda", "0:abcda,a,bcd"},
        PatternCase{R"((a)(b)(c)\3\2\1)", "", "abccba", "0:abccba,a,b,c"},
        PatternCase{R"((a)\12)", "", "aa2", "0:aa2,a"},
        PatternCase{R"((a)\10)", "", "aa0", "0:aa0,a"},
        PatternCase{R"((a)(b)\21)", "", "abb1", "0:abb1,a,b"},
        PatternCase{R"((a)\2)", "", "a\x02", "0:a\x02,a"},
        PatternCase{R"((a)\8)", "", "a8", "0:a8,a"},
        PatternCase{
            R"((a)(b)(c)(d)(e)(f)(g)(h)(i)(j)\10)",
            "",
            "abcdefghijj",
            "0:abcdefghijj,a,b,c,d,e,f,g,h,i,j"},
        PatternCase{R"((a)[\1])", "", "a\x01", "0:a\x01,a"},
        PatternCase{R"((a)\1{2})", "", "aaaa", "0:aaa,a"},
        PatternCase{R"((a)?\1{2}b)", "", "b", "0:b,~"},
        PatternCase{R"((?!(x))\1{2,3}b)", "", "b", "0:b,~"},
        PatternCase{R"((a)?\1+b)", "", "b", "0:b,~"},
        PatternCase{R"((a*)\1)", "", "aaaaa", "0:aaaa,aa"},
        PatternCase{
            R"(^(a+)\1*,\1+$)",
            "",
            "aaaaaaaaaa,aaaaaaaaaaaaaaa",
            "0:aaaaaaaaaa,aaaaaaaaaaaaaaa,aaaaa"},
        PatternCase{"(\xC3\xA9)x\\1", "", "\xC3\xA9x\xC3\xA9", "0:\xC3\xA9x\xC3\xA9,\xC3\xA9"},
        PatternCase{R"(([a-z])\1(?!\1))", "", "aaabb", "1:aa,a"}));

INSTANTIATE_TEST_SUITE_P(
    Lookaheads,
    RegularExpressionStructureTest,
    testing::Values(
        PatternCase{"a(?=b)", "", "acab", "2:a"},
        PatternCase{"a(?!b)", "", "abac", "2:a"},
        PatternCase{"(?=a)", "", "ba", "1:"},
        PatternCase{"(?!)", "", "a", "none"},
        PatternCase{"(?=)", "", "a", "0:"},
        PatternCase{"(?!a)(.)", "", "ab", "1:b,b"},
        PatternCase{"(?=(a))(?=(b))?a", "", "a", "0:a,a,~"},
        PatternCase{"(?!(a))b", "", "b", "0:b,~"},
        PatternCase{"(?!(a)b)a", "", "ac", "0:a,~"},
        PatternCase{"(?!(?!(a)))a", "", "a", "0:a,~"},
        PatternCase{"(?=(a*))a*b", "", "aab", "0:aab,aa"},
        PatternCase{"(?=(a|ab))\\1c", "", "abc", "none"},  // no other way is tried inside
        PatternCase{"(?=a)b?a", "i", "xA", "1:A"},
        PatternCase{"[ab]{0}(?=a(?=()?))a+", "i", "a", "0:a,~"},
        PatternCase{"(?=a)*b", "", "ab", "1:b"},
        PatternCase{"(?=(a))*a", "", "a", "0:a,~"},
        PatternCase{"(?=(a))+a", "", "a", "0:a,a"},
        PatternCase{"(?=(a)){0}b", "", "b", "0:b,~"},
        PatternCase{"(?!a){2}b", "", "ab", "1:b"},
        PatternCase{"(?=a|b)c?", "", "xb", "1:"},
        PatternCase{"^(?=.*\\d)(?=.*[a-z]).{4,8}$", "", "pass1", "0:pass1"},
        PatternCase{"^(?=.*\\d)(?=.*[a-z]).{4,8}$", "", "pass", "none"},
        PatternCase{"Error (?!GoTo 0)", "", "On Error GoTo 0", "none"},
        PatternCase{"Error (?!GoTo 0)", "", "On Error GoTo Fail", "3:Error "},
        PatternCase{"\\d(?=(\\d{3})+$)", "g", "1234567", "0:1,567;3:4,567"}));

}  // namespace
}  // namespace dorvik
