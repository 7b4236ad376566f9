// What single characters, escapes and classes match, and where places are. The rows follow the third edition
// of the ECMAScript standard and the syntax reference of VBScript.
#include "MatchText.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using namespace std::string_view_literals;

class RegularExpressionCharactersTest : public testing::TestWithParam<PatternCase> {};

TEST_P(RegularExpressionCharactersTest, MatchAsTheDialectSays) {
    RegularExpression expression = ExpressionOf(GetParam().Pattern, GetParam().Flags);
    EXPECT_EQ(MatchText(expression, GetParam().Text), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Literals,
    RegularExpressionCharactersTest,
    testing::Values(
        PatternCase{"abc", "", "xabcx", "1:abc"},
        PatternCase{"abc", "", "ABC", "none"},
        PatternCase{"", "", "abc", "0:"},
        PatternCase{"n", "", "on", "1:n"},
        PatternCase{R"(\\)", "", R"(a\b)", R"(1:\)"},
        PatternCase{R"(\()", "", "a(b", "1:("},
        PatternCase{R"(\.)", "", "ab.c", "2:."},
        PatternCase{R"(\*\+\?\|\^\$)", "", "*+?|^$", "0:*+?|^$"},
        PatternCase{R"(\[\]\{\}\(\))", "", "[]{}()", "0:[]{}()"},
        PatternCase{R"(\/\-\_\ \"\')", "", "/-_ \"'", "0:/-_ \"'"},
        PatternCase{"]", "", "a]", "1:]"},
        PatternCase{"}", "", "a}", "1:}"},
        PatternCase{"{", "", "a{", "1:{"},
        PatternCase{"a{", "", "a{", "0:a{"},
        PatternCase{"a{b", "", "a{b", "0:a{b"},
        PatternCase{"a{1", "", "a{1", "0:a{1"},
        PatternCase{"a{1,", "", "a{1,", "0:a{1,"},
        PatternCase{"a{1,2", "", "a{1,2", "0:a{1,2"},
        PatternCase{"a{,3}", "", "aa{,3}", "1:a{,3}"},
        PatternCase{"a{}", "", "a{}", "0:a{}"},
        PatternCase{"a{ 2}", "", "aa a{ 2}", "3:a{ 2}"},
        PatternCase{"a{x}*", "", "a{x}}", "0:a{x}}"},
        PatternCase{"#a b", "", "#a b", "0:#a b"},
        PatternCase{
            "Stra\xC3\x9F"
            "e",
            "",
            "Die Stra\xC3\x9F"
            "e",
            "4:Stra\xC3\x9F"
            "e"},
        PatternCase{
            "\xF0\x9F\x98\x80+",
            "",
            "\xC3\xA9\xF0\x9F\x98\x80\xF0\x9F\x98\x80",
            "1:\xF0\x9F\x98\x80\xF0\x9F\x98\x80"}));

INSTANTIATE_TEST_SUITE_P(
    Escapes,
    RegularExpressionCharactersTest,
    testing::Values(
        PatternCase{R"(\n)", "", "a\nb", "1:\n"},
        PatternCase{R"(\r\n)", "", "a\r\nb", "1:\r\n"},
        PatternCase{R"(\t)", "", "a\tb", "1:\t"},
        PatternCase{R"(\v)", "", "a\vb", "1:\v"},
        PatternCase{R"(\v)", "", "a\nb\rc\f", "none"},
        PatternCase{R"(\f)", "", "a\fb", "1:\f"},
        PatternCase{R"(\cM)", "", "a\rb", "1:\r"},
        PatternCase{R"(\cm)", "", "a\rb", "1:\r"},
        PatternCase{R"(\cJ\cI)", "", "\n\t", "0:\n\t"},
        PatternCase{R"(\c1)", "", "c1", "0:c1"},
        PatternCase{R"(\c)", "", "c", "0:c"},
        PatternCase{R"(\c\()", "", "c(", "0:c("},
        PatternCase{R"([\cA-\cC]+)", "", "\x01\x02\x03\x04", "0:\x01\x02\x03"},
        PatternCase{R"([\c1]+)", "", "x1c", "1:1c"},
        PatternCase{R"(\x41)", "", "A", "0:A"},
        PatternCase{
            R"(\x041)",
            "",
            "\x04"
            "1",
            "0:\x04"
            "1"},
        PatternCase{R"(\xe9)", "", "\xC3\xA9", "0:\xC3\xA9"},
        PatternCase{R"(\x4)", "", "x4", "0:x4"},
        PatternCase{R"(\xg1)", "", "xg1", "0:xg1"},
        PatternCase{R"(\x{41})", "", "x{41}", "none"},
        PatternCase{R"(\x{3})", "", "xxxx", "0:xxx"},
        PatternCase{R"(\u00A9)", "", "\xC2\xA9", "0:\xC2\xA9"},
        PatternCase{R"(\u0041B)", "", "AB", "0:AB"},
        PatternCase{R"(\u004)", "", "u004", "0:u004"},
        PatternCase{R"(^\u{4}$)", "", "uuuu", "0:uuuu"},
        PatternCase{R"(\uD83D\uDE00)", "", "a\xF0\x9F\x98\x80", "1:\xF0\x9F\x98\x80"},
        PatternCase{R"([\uD83D\uDE00])", "", "a\xF0\x9F\x98\x80", "1:\xF0\x9F\x98\x80"},
        PatternCase{R"(\uD83D)", "", "a\xF0\x9F\x98\x80", "none"},
        PatternCase{R"(\0)", "", "a\0b"sv, std::string("1:\0", 3)},
        PatternCase{R"(\012)", "", "a\nb", "1:\n"},
        PatternCase{
            R"(\08)",
            "",
            "\0"
            "8"sv,
            std::string(
                "0:\0"
                "8",
                4)},
        PatternCase{R"(\101)", "", "A", "0:A"},
        PatternCase{R"(\60)", "", "0", "0:0"},
        PatternCase{R"(\377)", "", "\xC3\xBF", "0:\xC3\xBF"},
        PatternCase{R"(\400)", "", " 0", "0: 0"},
        PatternCase{R"(\7)", "", "\a", "0:\a"},
        PatternCase{R"(\8\9)", "", "89", "0:89"},
        PatternCase{R"([\101\0])", "", "xA", "1:A"},
        PatternCase{R"([\8])", "", "8", "0:8"},
        PatternCase{R"(\A)", "", "bA", "1:A"},
        PatternCase{R"(\Z\z)", "", "Zz", "0:Zz"},
        PatternCase{R"(\h\H\R\K\N\X)", "", "hHRKNX", "0:hHRKNX"},
        PatternCase{R"(\a\e\i\g)", "", "aeig", "0:aeig"},
        PatternCase{R"(\Qa+\E)", "", "QaaE", "0:QaaE"},
        PatternCase{R"(\p{L})", "", "p{L}", "0:p{L}"},
        PatternCase{R"(\k<n>)", "", "k<n>", "0:k<n>"},
        PatternCase{R"(\G\C\y)", "", "GCy", "0:GCy"},
        PatternCase{"\\\xC3\xA9", "", "\xC3\xA9", "0:\xC3\xA9"},
        PatternCase{"\\\n", "", "\n", "0:\n"}));

INSTANTIATE_TEST_SUITE_P(
    Sets,
    RegularExpressionCharactersTest,
    testing::Values(
        PatternCase{R"(\d+)", "", "ab123c", "2:123"},
        PatternCase{R"(\d)", "", "\xD9\xA1\xEF\xBC\x91", "none"},  // digits of other scripts
        PatternCase{R"(\D+)", "", "12ab3", "2:ab"},
        PatternCase{R"(\D)", "", "\xD9\xA1", "0:\xD9\xA1"},
        PatternCase{R"(\w+)", "", "-a_Z9-", "1:a_Z9"},
        PatternCase{R"(\w)", "", "\xC3\xA9\xD0\x96", "none"},
        PatternCase{R"(\W)", "", "a\xC3\xA9", "1:\xC3\xA9"},
        PatternCase{R"(\w)", "i", "\xC5\xBF\xE2\x84\xAA", "none"},
        PatternCase{R"(\W+)", "i", "\xC5\xBF\xE2\x84\xAAs", "0:\xC5\xBF\xE2\x84\xAA"},
        PatternCase{R"([\W]+)", "i", "kKsS\xC5\xBF", "4:\xC5\xBF"},
        PatternCase{R"(\s+)", "", "a \t\n\v\f\rb", "1: \t\n\v\f\r"},
        PatternCase{
            R"(\s)",
            "",
            "a\xC2\xA0"
            "b",
            "1:\xC2\xA0"},
        PatternCase{
            R"(\s+)",
            "",
            "\xE2\x80\x80\xE2\x80\x8A\xE3\x80\x80\xE1\x9A\x80",
            "0:\xE2\x80\x80\xE2\x80\x8A\xE3\x80\x80\xE1\x9A\x80"},
        PatternCase{R"(\s+)", "", "a\xE2\x80\xA8\xE2\x80\xA9", "1:\xE2\x80\xA8\xE2\x80\xA9"},
        PatternCase{
            R"(\s)", "", "\xE2\x80\x8B\xC2\x85\x1C_", "none"},  // zero width, next line, separator
        PatternCase{R"(\S+)", "", " ab\xC2\xA0", "1:ab"},
        PatternCase{R"(\S)", "", "\xC2\xA0\xE2\x80\xA8 ", "none"},
        PatternCase{"a.c", "", "a\nc", "none"},
        PatternCase{"a.c", "", "a\rc", "none"},
        PatternCase{
            "a.c",
            "",
            "a\xE2\x80\xA8"
            "c",
            "none"},
        PatternCase{
            "a.c",
            "",
            "a\xE2\x80\xA9"
            "c",
            "none"},
        PatternCase{
            "a.c",
            "",
            "a\xC2\x85"
            "c",
            "0:a\xC2\x85"
            "c"},
        PatternCase{"a.c", "", "a\vc", "0:a\vc"},
        PatternCase{"a.c", "", "a\0c"sv, std::string("0:a\0c", 5)},
        PatternCase{"^.$", "", "\xC3\xA9", "0:\xC3\xA9"},
        PatternCase{"^.$", "", "\xF0\x9F\x98\x80", "0:\xF0\x9F\x98\x80"},
        PatternCase{".*", "", "ab\r\ncd", "0:ab"}));

INSTANTIATE_TEST_SUITE_P(
    Classes,
    RegularExpressionCharactersTest,
    testing::Values(
        PatternCase{"[abc]", "", "plain", "2:a"},
        PatternCase{"[^abc]", "", "plain", "0:p"},
        PatternCase{"[a-z]+", "", "ABcdE", "2:cd"},
        PatternCase{"[^a-z]", "", "abC", "2:C"},
        PatternCase{"[a-c-e]+", "", "-dbe", "0:-"},
        PatternCase{"[-a]+", "", "b-a", "1:-a"},
        PatternCase{"[a-]+", "", "b-a", "1:-a"},
        PatternCase{"[^-a]", "", "-ab", "2:b"},
        PatternCase{"[a^]+", "", "b^a", "1:^a"},
        PatternCase{"[]", "", "a]", "none"},
        PatternCase{"[]a]", "", "]a]", "none"},
        PatternCase{"x[]|b", "", "xb", "1:b"},
        PatternCase{"[]*a", "", "ba", "1:a"},
        PatternCase{"[^]", "", "\n", "0:\n"},
        PatternCase{"[^]]", "", "a]", "0:a]"},
        PatternCase{"[^]+", "", "a\r\n\xE2\x80\xA8", "0:a\r\n\xE2\x80\xA8"},
        PatternCase{R"([\]]+)", "", "a]]", "1:]]"},
        PatternCase{R"([\\]+)", "", R"(a\\)", R"(1:\\)"},
        PatternCase{R"([\-x]+)", "", "a-x", "1:-x"},
        PatternCase{R"([a\-c]+)", "", "ba-c", "1:a-c"},
        PatternCase{R"([.*+?(){}|^$]+)", "", "a.*+?(){}|^$b", "1:.*+?(){}|^$"},
        PatternCase{R"([\b])", "", "a\bb", "1:\b"},
        PatternCase{R"([\B])", "", "aB", "1:B"},
        PatternCase{R"([\d-x]+)", "", "w-5x", "1:-5x"},
        PatternCase{R"([\d-x]+)", "", "efg", "none"},
        PatternCase{R"([a-\d]+)", "", "b-a7", "1:-a7"},
        PatternCase{R"([\w-]+)", "", " a-b", "1:a-b"},
        PatternCase{R"([\s\S]+)", "", "a\n\r", "0:a\n\r"},
        PatternCase{R"([^\s\S])", "", "a\n", "none"},
        PatternCase{R"([^\d\s]+)", "", "1 ab 2", "2:ab"},
        PatternCase{R"([\x41-\x43]+)", "", "zABCD", "1:ABC"},
        PatternCase{R"([\u00e0-\u00ff]+)", "", "a\xC3\xA9\xC3\xBF", "1:\xC3\xA9\xC3\xBF"},
        PatternCase{R"([\n-\r]+)", "", "a\n\v\f\rb", "1:\n\v\f\r"},
        PatternCase{R"([\uD800-\uDFFF])", "", "\xF0\x9F\x98\x80", "none"},
        PatternCase{R"([^\uD800-\uDFFF])", "", "\xF0\x9F\x98\x80", "0:\xF0\x9F\x98\x80"},
        PatternCase{
            "[\xF0\x9F\x98\x80-\xF0\x9F\x98\x8F]", "", "\xF0\x9F\x98\x85", "0:\xF0\x9F\x98\x85"},
        PatternCase{"[[:alpha:]]+", "", "b:]]a]", "1::]]"},
        PatternCase{"[[:alpha:]]", "", "b]", "none"},
        PatternCase{"[[a]+", "", "b[a", "1:[a"},
        PatternCase{"[a&&b]+", "", "x&ba", "1:&ba"},
        PatternCase{"[[.a.]]", "", "a]", "0:a]"},
        PatternCase{"[,-.]+", "", "a,-.", "1:,-."},
        PatternCase{"[+--]+", "", "a+,-.", "1:+,-"},
        PatternCase{R"([\c])", "", "c", "0:c"}));

INSTANTIATE_TEST_SUITE_P(
    Case,
    RegularExpressionCharactersTest,
    testing::Values(
        PatternCase{"aBc", "i", "AbC", "0:AbC"},
        PatternCase{"sub|ask", "i", "ASK", "0:ASK"},
        PatternCase{"[a-c]+", "i", "xABc", "1:ABc"},
        PatternCase{"[^a-c]", "i", "ABcD", "3:D"},
        PatternCase{"[^x]", "i", "Xxy", "2:y"},
        PatternCase{"[W-c]+", "i", "wXyZ[Ab_d", "0:wXyZ[Ab_"},
        PatternCase{"k", "i", "\xE2\x84\xAA", "none"},  // the Kelvin sign
        PatternCase{"\xE2\x84\xAA", "i", "k\xE2\x84\xAA", "1:\xE2\x84\xAA"},
        PatternCase{"s", "i", "\xC5\xBF", "none"},  // the long s
        PatternCase{"\xC5\xBF", "i", "sS\xC5\xBF", "2:\xC5\xBF"},
        PatternCase{"[a-z]", "i", "\xC5\xBF\xE2\x84\xAA", "none"},
        PatternCase{"[^a-z]", "i", "\xC5\xBF", "0:\xC5\xBF"},
        PatternCase{"\xC3\xA4", "i", "\xC3\x84", "0:\xC3\x84"},
        PatternCase{"\xC3\x84", "i", "\xC3\xA4", "0:\xC3\xA4"},
        PatternCase{"\xC3\x84", "", "\xC3\xA4", "none"},
        PatternCase{"[\xC3\xA0-\xC3\xBF]", "i", "\xC3\x89", "0:\xC3\x89"},
        PatternCase{"\xC3\xBF", "i", "\xC5\xB8", "0:\xC5\xB8"},  // far from its capital
        PatternCase{"\xC3\x9F", "i", "SS\xE1\xBA\x9E", "none"},  // its capital is two letters
        PatternCase{"\xCF\x83", "i", "\xCF\x82\xCE\xA3", "0:\xCF\x82"},
        PatternCase{"\xCE\xA3+", "i", "\xCF\x82\xCF\x83\xCE\xA3", "0:\xCF\x82\xCF\x83\xCE\xA3"},
        PatternCase{"\xC2\xB5+", "i", "\xCE\xBC\xCE\x9C\xC2\xB5", "0:\xCE\xBC\xCE\x9C\xC2\xB5"},
        PatternCase{"\xC3\xA5", "i", "\xE2\x84\xAB", "none"},      // the Angstrom sign
        PatternCase{"\xCF\x89", "i", "\xE2\x84\xA6", "none"},      // the Ohm sign
        PatternCase{"\xC4\xB1", "i", "Ii\xC4\xB1", "2:\xC4\xB1"},  // without a dot
        PatternCase{"\xC4\xB0", "i", "Ii\xC4\xB0", "2:\xC4\xB0"},  // a capital with a dot
        PatternCase{"\xC7\x86+", "i", "\xC7\x84\xC7\x85\xC7\x86", "0:\xC7\x84\xC7\x85\xC7\x86"},
        PatternCase{
            "\xE1\xBE\xB3", "i", "\xE1\xBE\xBC", "none"},  // with iota: the capital is two letters
        PatternCase{"\xD0\xB6", "i", "\xD0\x96", "0:\xD0\x96"},
        PatternCase{"\xF0\x90\x90\xA8", "i", "\xF0\x90\x90\x80", "none"},  // above U+FFFF
        PatternCase{R"(\u0073)", "i", "S", "0:S"},
        PatternCase{R"((a)\1)", "i", "aA", "0:aA,a"},
        PatternCase{"(\xC3\xA4)\\1", "i", "\xC3\xA4\xC3\x84", "0:\xC3\xA4\xC3\x84,\xC3\xA4"},
        PatternCase{R"((.)\1)", "i", "k\xE2\x84\xAAK", "none"},
        PatternCase{R"((.)\1)", "i", "\xC2\xB5\xCE\xBC", "0:\xC2\xB5\xCE\xBC,\xC2\xB5"},
        PatternCase{R"((a)\1)", "", "aA", "none"}));

INSTANTIATE_TEST_SUITE_P(
    Places,
    RegularExpressionCharactersTest,
    testing::Values(
        PatternCase{"^a", "", "ab", "0:a"},
        PatternCase{"^b", "", "ab", "none"},
        PatternCase{"^b", "", "a\nb", "none"},
        PatternCase{"a$", "", "ba", "1:a"},
        PatternCase{"a$", "", "a\n", "none"},
        PatternCase{"a$", "", "a\r\n", "none"},
        PatternCase{"^$", "", "", "0:"},
        PatternCase{"^$", "", "\n", "none"},
        PatternCase{"a^b", "", "a^b", "none"},
        PatternCase{"a$b", "", "a$b", "none"},
        PatternCase{"^^a$$", "", "a", "0:a"},
        PatternCase{"^b", "m", "a\nb", "2:b"},
        PatternCase{"^b", "m", "a\rb", "2:b"},
        PatternCase{"^b", "m", "a\r\nb", "3:b"},
        PatternCase{
            "^b",
            "m",
            "a\xE2\x80\xA8"
            "b",
            "2:b"},
        PatternCase{
            "^b",
            "m",
            "a\xE2\x80\xA9"
            "b",
            "2:b"},
        PatternCase{
            "^b",
            "m",
            "a\xC2\x85"
            "b",
            "none"},
        PatternCase{"^b", "m", "a\vb\fb", "none"},
        PatternCase{"a$", "m", "a\nb", "0:a"},
        PatternCase{"a$", "m", "a\rb", "0:a"},
        PatternCase{
            "a$",
            "m",
            "a\xE2\x80\xA9"
            "b",
            "0:a"},
        PatternCase{"a$", "m", "a\fb", "none"},
        PatternCase{"^", "gm", "a\r\nb\n", "0:;2:;3:;5:"},
        PatternCase{"$", "gm", "a\r\nb\n", "1:;2:;4:;5:"},
        PatternCase{"^.*$", "gm", "ab\ncd", "0:ab;3:cd"},
        PatternCase{"^a", "g", "aaa", "0:a"},
        PatternCase{R"(er\b)", "", "never", "3:er"},
        PatternCase{R"(er\b)", "", "verb", "none"},
        PatternCase{R"(er\B)", "", "verb", "1:er"},
        PatternCase{R"(er\B)", "", "never", "none"},
        PatternCase{R"(ea*r\B)", "", "never early", "6:ear"},
        PatternCase{R"(\bGoTo\b)", "", "If x Then GoTo Fail", "10:GoTo"},
        PatternCase{R"(\bGoTo\b)", "", "GoToFail", "none"},
        PatternCase{R"(\b)", "g", "a b", "0:;1:;2:;3:"},
        PatternCase{R"(\B)", "g", "ab ", "1:;3:"},
        PatternCase{R"(\b)", "", "", "none"},
        PatternCase{R"(\B)", "", "", "0:"},
        PatternCase{R"(\bn)", "", "\xC3\xA9n", "1:n"},  // an accented letter is no word character
        PatternCase{R"(_\b1)", "", "_1", "none"}));

}  // namespace
}  // namespace dorvik
