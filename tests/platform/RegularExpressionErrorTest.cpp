// Malformed patterns, and searches that are given up.
#include "MatchText.h"
#include "base/BasicError.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

struct Row {
    std::string Pattern;
    std::int32_t Number;
    int Position;
};

void PrintTo(const Row& row, std::ostream* stream) {
    *stream << '/' << row.Pattern << '/';
}

class RegularExpressionErrorTest : public testing::TestWithParam<Row> {};

TEST_P(RegularExpressionErrorTest, NamesTheNumberAndThePlace) {
    for (const char* flags : {"", "i", "gm"}) {
        RegularExpression expression = ExpressionOf(GetParam().Pattern, flags);
        const std::string expected = "error " + std::to_string(GetParam().Number) + " at " +
                                     std::to_string(GetParam().Position);
        EXPECT_EQ(MatchText(expression, "aaa"), expected);
        EXPECT_THROW(expression.Test(""), BasicError);
        EXPECT_THROW(expression.Test("", TextTraits()), BasicError);
        EXPECT_THROW(expression.Replace("", ""), BasicError);
        EXPECT_THROW(expression.LongestMatch(""), BasicError);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Syntax,
    RegularExpressionErrorTest,
    testing::Values(
        Row{")", 5017, 1},
        Row{"a)", 5017, 2},
        Row{"(a))b", 5017, 4},
        Row{"a|)", 5017, 3},
        Row{"\\", 5017, 1},
        Row{"ab\\", 5017, 3},
        Row{"[\\", 5017, 2},
        Row{"[z-a]", 5017, 2},
        Row{"x[ab-ac]y", 5017, 4},
        Row{"[b-\\x61]", 5017, 2},
        Row{"a{3,2}", 5017, 2},
        Row{"(ab{2,1}", 5017, 4},
        Row{"\xFF", 5017, 1},
        Row{"\xC3\xA9\xFF", 5017, 2},
        Row{std::string(251, '(') + std::string(251, ')'), 5017, 251}));

INSTANTIATE_TEST_SUITE_P(
    UnexpectedQuantifier,
    RegularExpressionErrorTest,
    testing::Values(
        Row{"*", 5018, 1},
        Row{"*a", 5018, 1},
        Row{"+a", 5018, 1},
        Row{"?a", 5018, 1},
        Row{"{2}", 5018, 1},
        Row{"{2,}a", 5018, 1},
        Row{"a**", 5018, 3},
        Row{"a++", 5018, 3},  // no possessive repetition
        Row{"a*+", 5018, 3},
        Row{"a?+", 5018, 3},
        Row{"a???", 5018, 4},
        Row{"a+??", 5018, 4},
        Row{"a{2}{3}", 5018, 5},
        Row{"a{2}+", 5018, 5},
        Row{"a*{2}", 5018, 3},
        Row{"a|*b", 5018, 3},
        Row{"(*a)", 5018, 2},
        Row{"(|+a)", 5018, 3},
        Row{"(?:+a)", 5018, 4},
        Row{"^*", 5018, 2},
        Row{"^+a", 5018, 2},
        Row{"a$?", 5018, 3},
        Row{"\\b+", 5018, 3},
        Row{"\\B{2}", 5018, 3},
        Row{"\xC3\xA9**", 5018, 3},
        Row{"(?i)a", 5018, 2},  // what other dialects know begins with "(?", too
        Row{"(?i:a)", 5018, 2},
        Row{"(?-i)a", 5018, 2},
        Row{"(?<=a)b", 5018, 2},
        Row{"(?<!a)b", 5018, 2},
        Row{"(?<name>a)", 5018, 2},
        Row{"(?P<name>a)", 5018, 2},
        Row{"(?'name'a)", 5018, 2},
        Row{"(?>a)", 5018, 2},
        Row{"(?#text)", 5018, 2},
        Row{"(?|a)", 5018, 2},
        Row{"(?R)", 5018, 2},
        Row{"(?1)", 5018, 2},
        Row{"(?(1)a|b)", 5018, 2},
        Row{"(?)", 5018, 2},
        Row{"(?", 5018, 2},
        Row{"(*UTF)a", 5018, 2},
        Row{"(*FAIL)", 5018, 2}));

INSTANTIATE_TEST_SUITE_P(
    ExpectedBracket,
    RegularExpressionErrorTest,
    testing::Values(
        Row{"[", 5019, 2},
        Row{"[a", 5019, 3},
        Row{"[^", 5019, 3},
        Row{"[a-", 5019, 4},
        Row{"x[\\]", 5019, 5},
        Row{"[[:alpha:", 5019, 10},
        Row{"([)", 5019, 4},
        Row{"[\xC3\xA9", 5019, 3}));

INSTANTIATE_TEST_SUITE_P(
    ExpectedParenthesis,
    RegularExpressionErrorTest,
    testing::Values(
        Row{"(", 5020, 2},
        Row{"(a", 5020, 3},
        Row{"((a)", 5020, 5},
        Row{"(?:a", 5020, 5},
        Row{"(?=a|b", 5020, 7},
        Row{"(?!", 5020, 4},
        Row{"(\\)", 5020, 4},
        Row{"([)]", 5020, 5},
        Row{"Debug(Print", 5020, 12},
        Row{"\xC3\xA4(\xC3\xA4", 5020, 4}));

std::string DescriptionOf(std::string_view pattern, std::string_view text) {
    try {
        RegularExpression(pattern).Test(text);
    } catch (const BasicError& error) {
        return std::to_string(error.Number()) + " " + error.what();
    }
    return "";
}

TEST(RegularExpressionError, TheDescriptionNamesThePatternThePlaceAndTheFault) {
    EXPECT_EQ(
        DescriptionOf("Debug(Print", ""),
        "5020 Expected ')' in regular expression 'Debug(Print' at position 12");
    EXPECT_EQ(
        DescriptionOf("a[b", ""), "5019 Expected ']' in regular expression 'a[b' at position 4");
    EXPECT_EQ(
        DescriptionOf("a++", ""),
        "5018 Unexpected quantifier in regular expression 'a++' at position 3");
    EXPECT_EQ(
        DescriptionOf("a)", ""),
        "5017 Syntax error in regular expression 'a)' at position 2: a ')' without its '('");
    EXPECT_EQ(
        DescriptionOf("[z-a]", ""),
        "5017 Syntax error in regular expression '[z-a]' at position 2: a range that runs "
        "backwards");
}

// ---- Searches that are given up ----

const std::string& LongText() {
    static const std::string text = std::string(5000, 'a') + "!";
    return text;
}

class GivenUpTest : public testing::TestWithParam<const char*> {};

TEST_P(GivenUpTest, IsAnErrorThatNamesTheLimitAndNoMatch) {
    const std::string description = DescriptionOf(GetParam(), LongText());
    const std::string prefix = "16 Expression too complex: the search for regular expression '" +
                               std::string(GetParam()) + "' was given up, ";
    ASSERT_EQ(description.substr(0, prefix.size()), prefix);
    EXPECT_NE(description.find("limit exceeded", prefix.size()), std::string::npos) << description;
    RegularExpression expression = ExpressionOf(GetParam(), "g");
    EXPECT_EQ(MatchText(expression, LongText()), "error 16");
    EXPECT_THROW(expression.Replace(LongText(), "x"), BasicError);
}

INSTANTIATE_TEST_SUITE_P(
    Exponential,
    GivenUpTest,
    testing::Values(
        "^(\\w+\\s?)*$",
        "(a+)+$",
        "^(a+)+$",
        "^(a|a)*$",
        "^(a|aa)+$",
        "^([a-z]+)*$",
        "^(\\w*)*$",
        "^(a?){40}a{40}$",
        "^(?:a*)*[bc]",
        "^(?:(a)|a)*\\1$",
        "^(.*)*(.*)*\\2!x$",
        "(x+x+)+y|(a+a+)+[xy]",
        "^(?=(a+a+)+[xy])"));

TEST(RegularExpressionError, AfterASearchThatWasGivenUpTheNextOneWorks) {
    RegularExpression expression("^(\\w+\\s?)*$");
    EXPECT_THROW(expression.Test(LongText()), BasicError);
    EXPECT_TRUE(expression.Test("all is well"));
}

TEST(RegularExpressionError, ARepetitionThatTheLibraryCannotHoldIsStillBounded) {
    RegularExpression expression("(?:(?:a|a){1,70000}b){2}");
    EXPECT_FALSE(expression.Test("aab"));
    EXPECT_TRUE(expression.Test("aabab"));
    EXPECT_THROW(expression.Test(std::string(200, 'a')), BasicError);
}

TEST(RegularExpressionError, ALongTextNeedsNoLargeStack) {
    for (const char* pattern : {"^(?:a|b)*c$", "^(?:(a)|b|)*c$"}) {
        RegularExpression expression(pattern);
        const std::string text(50000, 'a');
        EXPECT_TRUE(expression.Test(text + "c")) << pattern;
        const std::string found = MatchText(expression, text + "c");
        EXPECT_EQ(found.substr(0, 10), "0:aaaaaaaa") << pattern;
        const std::string description = DescriptionOf(pattern, std::string(2000000, 'a'));
        EXPECT_TRUE(description.empty() || description.starts_with("16 ")) << description;
    }
}

}  // namespace
}  // namespace dorvik
