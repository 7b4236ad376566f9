// Malformed patterns, and searches that are given up.
#include "MatchText.h"
#include "base/BasicError.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

struct ErrorRow {
    std::string Pattern;
    std::int32_t Number;
    int Position;
};

void PrintTo(const ErrorRow& row, std::ostream* stream) {
    *stream << '/' << row.Pattern << '/';
}

class RegularExpressionErrorTest : public testing::TestWithParam<ErrorRow> {};

TEST_P(RegularExpressionErrorTest, NamesTheNumberAndThePlace) {
    for (const char* flags : {"", "i", "gm"}) {
        RegularExpression expression = ExpressionOf(GetParam().Pattern, flags);
        const std::string expected = "error " + std::to_string(GetParam().Number) + " at " +
                                     std::to_string(GetParam().Position);
        EXPECT_EQ(MatchText(expression, "aaa"), expected);
        EXPECT_THROW(expression.Test(""), BasicError);
        EXPECT_THROW(expression.Replace("", ""), BasicError);
        EXPECT_THROW(expression.LongestMatch(""), BasicError);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Syntax,
    RegularExpressionErrorTest,
    testing::Values(
        ErrorRow{")", 5017, 1},
        ErrorRow{"a)", 5017, 2},
        ErrorRow{"(a))b", 5017, 4},
        ErrorRow{"a|)", 5017, 3},
        ErrorRow{"\\", 5017, 1},
        ErrorRow{"ab\\", 5017, 3},
        ErrorRow{"[\\", 5017, 2},
        ErrorRow{"[z-a]", 5017, 2},
        ErrorRow{"x[ab-ac]y", 5017, 4},
        ErrorRow{"[b-\\x61]", 5017, 2},
        ErrorRow{"a{3,2}", 5017, 2},
        ErrorRow{"(ab{2,1}", 5017, 4},
        ErrorRow{"\xFF", 5017, 1},
        ErrorRow{"\xC3\xA9\xFF", 5017, 2},
        ErrorRow{std::string(251, '(') + std::string(251, ')'), 5017, 251}));

INSTANTIATE_TEST_SUITE_P(
    UnexpectedQuantifier,
    RegularExpressionErrorTest,
    testing::Values(
        ErrorRow{"*", 5018, 1},
        ErrorRow{"*a", 5018, 1},
        ErrorRow{"+a", 5018, 1},
        ErrorRow{"?a", 5018, 1},
        ErrorRow{"{2}", 5018, 1},
        ErrorRow{"{2,}a", 5018, 1},
        ErrorRow{"a**", 5018, 3},
        ErrorRow{"a++", 5018, 3},  // no possessive repetition
        ErrorRow{"a*+", 5018, 3},
        ErrorRow{"a?+", 5018, 3},
        ErrorRow{"a???", 5018, 4},
        ErrorRow{"a+??", 5018, 4},
        ErrorRow{"a{2}{3}", 5018, 5},
        ErrorRow{"a{2}+", 5018, 5},
        ErrorRow{"a*{2}", 5018, 3},
        ErrorRow{"a|*b", 5018, 3},
        ErrorRow{"(*a)", 5018, 2},
        ErrorRow{"(|+a)", 5018, 3},
        ErrorRow{"(?:+a)", 5018, 4},
        ErrorRow{"^*", 5018, 2},
        ErrorRow{"^+a", 5018, 2},
        ErrorRow{"a$?", 5018, 3},
        ErrorRow{"\\b+", 5018, 3},
        ErrorRow{"\\B{2}", 5018, 3},
        ErrorRow{"\xC3\xA9**", 5018, 3},
        ErrorRow{"(?i)a", 5018, 2},  // what other dialects know begins with "(?", too
        ErrorRow{"(?i:a)", 5018, 2},
        ErrorRow{"(?-i)a", 5018, 2},
        ErrorRow{"(?<=a)b", 5018, 2},
        ErrorRow{"(?<!a)b", 5018, 2},
        ErrorRow{"(?<name>a)", 5018, 2},
        ErrorRow{"(?P<name>a)", 5018, 2},
        ErrorRow{"(?'name'a)", 5018, 2},
        ErrorRow{"(?>a)", 5018, 2},
        ErrorRow{"(?#text)", 5018, 2},
        ErrorRow{"(?|a)", 5018, 2},
        ErrorRow{"(?R)", 5018, 2},
        ErrorRow{"(?1)", 5018, 2},
        ErrorRow{"(?(1)a|b)", 5018, 2},
        ErrorRow{"(?)", 5018, 2},
        ErrorRow{"(?", 5018, 2},
        ErrorRow{"(*UTF)a", 5018, 2},
        ErrorRow{"(*FAIL)", 5018, 2}));

INSTANTIATE_TEST_SUITE_P(
    ExpectedBracket,
    RegularExpressionErrorTest,
    testing::Values(
        ErrorRow{"[", 5019, 2},
        ErrorRow{"[a", 5019, 3},
        ErrorRow{"[^", 5019, 3},
        ErrorRow{"[a-", 5019, 4},
        ErrorRow{"x[\\]", 5019, 5},
        ErrorRow{"[[:alpha:", 5019, 10},
        ErrorRow{"([)", 5019, 4},
        ErrorRow{"[\xC3\xA9", 5019, 3}));

INSTANTIATE_TEST_SUITE_P(
    ExpectedParenthesis,
    RegularExpressionErrorTest,
    testing::Values(
        ErrorRow{"(", 5020, 2},
        ErrorRow{"(a", 5020, 3},
        ErrorRow{"((a)", 5020, 5},
        ErrorRow{"(?:a", 5020, 5},
        ErrorRow{"(?=a|b", 5020, 7},
        ErrorRow{"(?!", 5020, 4},
        ErrorRow{"(\\)", 5020, 4},
        ErrorRow{"([)]", 5020, 5},
        ErrorRow{"Debug(Print", 5020, 12},
        ErrorRow{"\xC3\xA4(\xC3\xA4", 5020, 4}));

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
        "5017 Syntax error in regular expression 'a)' at position 2: an unmatched ')'");
    EXPECT_EQ(
        DescriptionOf("[z-a]", ""),
        "5017 Syntax error in regular expression '[z-a]' at position 2: a range in "
        "descending order");
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
                               std::string(GetParam()) + "' was aborted, ";
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
