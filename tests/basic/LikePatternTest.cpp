#include "basic/values/LikePattern.h"

#include "SampleValues.h"

#include <gtest/gtest.h>

#include <string_view>

namespace dorvik::basic {

namespace {

struct LikeCase {
    std::string_view Text;
    std::string_view Pattern;
    bool Expected;
};

}  // namespace

TEST(LikePattern, Matches) {
    const LikeCase cases[] = {
        {"", "", true},
        {"", "*", true},
        {"", "?", false},
        {"abc", "abc", true},
        {"abc", "ab", false},
        {"abc", "abcd", false},
        {"abc", "a?c", true},
        {"ac", "a?c", false},
        {"abc", "*", true},
        {"abc", "a*", true},
        {"abc", "*c", true},
        {"abc", "*b*", true},
        {"abc", "a**c", true},
        {"aXbXc", "a*X*c", true},
        {"aaab", "a*ab", true},
        {"abcabd", "*ab?", true},
        {"a5", "a#", true},
        {"aa", "a#", false},
        {"a", "a#", false},
        {"F", "[A-Z]", true},
        {"f", "[A-Z]", false},
        {"F", "[!A-Z]", false},
        {"f", "[!A-Z]", true},
        {"", "[!A-Z]", false},
        {"a2a", "a#a", true},
        {"aM5b", "a[L-P]#[!c-e]", true},
        {"BAT123khg", "B?T*", true},
        {"CAT123khg", "B?T*", false},
        {"-", "[-a]", true},
        {"-", "[a-]", true},
        {"-", "[!-a]", false},
        {"b", "[!-a]", true},
        {"!", "[a!]", true},
        {"!", "[!]", true},
        {"ab", "a[]b", true},
        {"", "[]", true},
        {"]", "]", true},
        {"a]", "a]", true},
        {"*", "[*]", true},
        {"x", "[*]", false},
        {"?", "[?]", true},
        {"#", "[#]", true},
        {"[", "[[]", true},
        {"a[b", "a[[]b", true},
        {"e", "[a-ce-g]", true},
        {"d", "[a-ce-g]", false},
        {"ä", "?", true},
        {"äö", "??", true},
        {"ä", "[à-ü]", true},
        {"äbc", "ä*", true},
        {"bä", "*ä", true},
        {"ä", "#", false},
        {"Label1", "*[0-9]", true},
        {"Label", "*[0-9]", false},
        {"a", "a[]", true},
        {"a", "A", false},
    };
    for (const LikeCase& one : cases) {
        EXPECT_EQ(MatchesLike(one.Text, one.Pattern, false), one.Expected)
            << "\"" << one.Text << "\" Like \"" << one.Pattern << "\"";
    }
}

TEST(LikePattern, IgnoresCaseWhenAskedTo) {
    const LikeCase cases[] = {
        {"abc", "ABC", true},
        {"f", "[A-Z]", true},
        {"F", "[a-z]", true},
        {"ÄB", "ä?", true},
        {"F", "[!a-z]", false},
    };
    for (const LikeCase& one : cases) {
        EXPECT_EQ(MatchesLike(one.Text, one.Pattern, true), one.Expected)
            << "\"" << one.Text << "\" Like \"" << one.Pattern << "\"";
    }
}

TEST(LikePattern, RefusesBadLists) {
    for (const std::string_view pattern : {"[", "a[bc", "[z-a]", "x[a-cz-b]", "[]["}) {
        for (const std::string_view text : {"", "a", "zzz"}) {
            EXPECT_EQ(sample::ErrorOf([&] { MatchesLike(text, pattern, false); }), 93) << pattern;
        }
    }
}

TEST(LikePattern, TakesOperandsOfAnyType) {
    using namespace sample;
    EXPECT_TRUE(Apply(BinaryOperator::Like, I(123), X("1#3"), kTyped).AsBoolean());
    EXPECT_TRUE(Apply(BinaryOperator::Like, E(), X(""), kTyped).AsBoolean());
    EXPECT_EQ(Shown(Apply(BinaryOperator::Like, N(), X("["), kTyped)), "Null");
    EXPECT_EQ(Shown(Apply(BinaryOperator::Like, X("a"), N(), kTyped)), "Null");
    EXPECT_TRUE(Apply(BinaryOperator::Like, X("A"), X("a"), {false, false, true}).AsBoolean());
}

TEST(LikePattern, TakesManyStars) {
    const std::string text(2000, 'a');
    std::string pattern;
    for (int i = 0; i < 100; ++i) {
        pattern += "*a";
    }
    EXPECT_FALSE(MatchesLike(text, pattern + "*b", false));
    EXPECT_TRUE(MatchesLike(text, pattern, false));
}

}  // namespace dorvik::basic
