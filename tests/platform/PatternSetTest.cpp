#include "platform/regex/PatternSet.h"

#include "base/BasicError.h"
#include "platform/regex/RegularExpression.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

const std::vector<std::string> kMatchedPatterns = {
    "\\bGoTo\\b",
    "^Stop$",
    "^(Dim|Private|Public)\\s",
    "\\s(Eqv|Imp)\\s",
    "Debug[.]Print",
    "(?=.*\\s(?:And|Or)\\s).*(Nothing|EOF)",
    "",
    "^$",
    "[A-Z]\\d",
    "(a|b)\\1",
    "Stra\xC3\x9F"
    "e",
};

const std::vector<std::string> kTexts = {
    "",
    "GoTo Fail",
    "On Error GoTo 0",
    "GoToo",
    "Stop",
    "Stop ",
    "Dim a1 As Long",
    "x = a Imp b",
    "Debug.Print A1",
    "DebugXPrint",
    "If a Or b Is Nothing Then",
    "If b Is Nothing Then",
    "Stra\xC3\x9F"
    "e",
    "xbb",
    "\xFF\xFE",
};

std::int32_t ErrorOf(const PatternSet& patterns, std::size_t pattern) {
    try {
        patterns.Matches(pattern);
    } catch (const BasicError& error) {
        return error.Number();
    }
    return 0;
}

TEST(PatternSet, FindsWhatSingleExpressionsFind) {
    PatternSet patterns;
    for (const std::string& pattern : kMatchedPatterns) {
        patterns.Add(pattern);
    }
    int matches = 0;
    for (const std::string& text : kTexts) {
        patterns.SetText(text);
        for (std::size_t i = 0; i < kMatchedPatterns.size(); ++i) {
            const bool expected = RegularExpression(kMatchedPatterns[i]).Test(text);
            EXPECT_EQ(patterns.Matches(i), expected) << kMatchedPatterns[i] << " in " << text;
            matches += expected ? 1 : 0;
        }
    }
    EXPECT_GT(matches, 25);
}

TEST(PatternSet, NumbersPatternsInTheOrderOfTheirAddition) {
    PatternSet patterns;
    EXPECT_EQ(patterns.Add("a"), 0U);
    EXPECT_EQ(patterns.Add("a"), 1U);
    EXPECT_EQ(patterns.Add("("), 2U);
}

TEST(PatternSet, AMalformedPatternRaisesItsErrorOnAnyText) {
    PatternSet patterns;
    const std::size_t good = patterns.Add("GoTo");
    const std::size_t bad = patterns.Add("(GoTo");
    EXPECT_FALSE(patterns.IsMalformed(good));
    EXPECT_TRUE(patterns.IsMalformed(bad));
    for (const char* text : {"", "GoTo", "Stop"}) {
        patterns.SetText(text);
        EXPECT_EQ(ErrorOf(patterns, bad), kRegularExpressionParenthesis) << text;
        EXPECT_EQ(ErrorOf(patterns, good), 0) << text;
    }
}

TEST(PatternSet, AnAbandonedSearchRaisesAnErrorUnlessTheTextLacksALiteral) {
    PatternSet patterns;
    const std::size_t pattern = patterns.Add("^(\\w+\\s?)*;$");
    const std::string text = std::string(60, 'a') + "!";
    patterns.SetText(text);
    EXPECT_FALSE(patterns.Matches(pattern));
    const std::string other = text + ";";
    patterns.SetText(other);
    EXPECT_EQ(ErrorOf(patterns, pattern), kRegularExpressionTooComplex);
}

TEST(PatternSet, WithoutATextNothingMatches) {
    PatternSet patterns;
    EXPECT_FALSE(patterns.Matches(patterns.Add("")));
}

TEST(PatternSet, AMovedSetKeepsItsPatternsAndItsText) {
    PatternSet first;
    first.Add("GoTo");
    first.SetText("GoTo 1");
    const PatternSet second = std::move(first);
    EXPECT_TRUE(second.Matches(0));
}

}  // namespace
}  // namespace dorvik
