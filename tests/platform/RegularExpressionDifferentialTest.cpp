// Random patterns on random texts: the engine and `TinyMatcher` must give the same matches and groups.
#include "MatchText.h"
#include "PrefilterAccepts.h"
#include "TinyMatcher.h"
#include "base/BasicError.h"
#include "base/modUtf8.h"

#include <gtest/gtest.h>

#include <array>

namespace dorvik {
namespace {

constexpr int kPatterns = 4000;
constexpr int kTextsEach = 5;

std::string Utf8(std::u32string_view text) {
    std::string result;
    for (const char32_t character : text) {
        modUtf8::Append(result, character);
    }
    return result;
}

std::u32string RandomText(std::mt19937& random) {
    static constexpr std::u32string_view kCharacters = U"aaabbbAB1s-\n\r \u00E9\u00C9\u017F\u2028";
    std::u32string text;
    for (std::size_t count = random() % 8; count > 0; --count) {
        text += kCharacters[random() % kCharacters.size()];
    }
    return text;
}

/// What `MatchText` writes for all matches, found by the other engine; empty if that gave up.
std::string ExpectedText(const TinyPattern& pattern, std::u32string_view text) {
    std::string result;
    TinyMatcher matcher(pattern, text);
    for (std::size_t start = 0; start <= text.size();) {
        TinyMatcher::State state;
        const bool isFound = matcher.MatchAt(start, state);
        if (matcher.IsGivenUp()) {
            return "";
        }
        if (!isFound) {
            ++start;
            continue;
        }
        result += (result.empty() ? "" : ";") + std::to_string(start) + ":";
        for (const auto& [first, last] : state.Groups) {
            const bool isWhole = &first == &state.Groups.front().first;
            const bool isSet = first != std::u32string_view::npos;
            result += isWhole ? "" : ",";
            result += isSet ? Utf8(text.substr(first, last - first)) : "~";
        }
        start = state.End == start ? start + 1 : state.End;
    }
    return result.empty() ? "none" : result;
}

/// "index:value" of the longest match at the first place; empty if the other engine gave up.
std::string ExpectedLongest(const TinyPattern& pattern, std::u32string_view text) {
    TinyMatcher matcher(pattern, text);
    for (std::size_t start = 0; start <= text.size(); ++start) {
        std::size_t end = 0;
        TinyMatcher::State state;
        bool isFound = false;
        if (pattern.HasReference) {
            isFound = matcher.MatchAt(start, state);
            end = state.End;
        } else {
            isFound = matcher.LongestAt(start, end);
        }
        if (matcher.IsGivenUp()) {
            return "";
        }
        if (isFound) {
            return std::to_string(start) + ":" + Utf8(text.substr(start, end - start));
        }
    }
    return "none";
}

std::string LongestText(RegularExpression& expression, std::string_view text) {
    const std::optional<Match> match = expression.LongestMatch(text);
    return match ? std::to_string(match->Index) + ":" + match->Value : "none";
}

struct Tally {
    int GivenUp = 0;
    int Matched = 0;
    int Unmatched = 0;
    int WithReference = 0;
};

void Compare(const TinyPattern& pattern, std::u32string_view characters, Tally& tally) {
    const std::string text = Utf8(characters);
    RegularExpression expression = ExpressionOf(
        pattern.Text(),
        std::string("g") + (pattern.IgnoreCase ? "i" : "") + (pattern.Multiline ? "m" : ""));
    const PatternCase row{expression.Pattern().c_str(), "", text, ""};
    const std::string expected = ExpectedText(pattern, characters);
    if (expected.empty()) {
        ++tally.GivenUp;
        return;
    }
    ASSERT_EQ(MatchText(expression, text), expected)
        << testing::PrintToString(row) << (pattern.IgnoreCase ? " i" : "")
        << (pattern.Multiline ? " m" : "");
    ASSERT_EQ(expression.Test(text), expected != "none") << testing::PrintToString(row);
    ASSERT_TRUE(expected == "none" || PrefilterAccepts(expression, text))
        << testing::PrintToString(row);
    const std::string longest = ExpectedLongest(pattern, characters);
    if (!longest.empty()) {
        ASSERT_EQ(LongestText(expression, text), longest) << testing::PrintToString(row);
    }
    ++(expected == "none" ? tally.Unmatched : tally.Matched);
    tally.WithReference += pattern.HasReference ? 1 : 0;
}

TEST(RegularExpressionDifferential, RandomPatternsMatchAsInASecondEngine) {
    std::mt19937 random(20260723);
    TinyPatternMaker maker(random);
    Tally tally;
    for (int round = 0; round < kPatterns; ++round) {
        const TinyPattern pattern = maker.Make();
        for (int i = 0; i < kTextsEach; ++i) {
            Compare(pattern, RandomText(random), tally);
            ASSERT_FALSE(HasFatalFailure());
        }
    }
    EXPECT_GT(tally.Matched, 8000);
    EXPECT_GT(tally.Unmatched, 2000);
    EXPECT_GT(tally.WithReference, 2000);
    EXPECT_LT(tally.GivenUp, 200);
}

TEST(RegularExpressionDifferential, RandomPatternsGetThroughAnyBytes) {
    std::mt19937 random(20260724);
    TinyPatternMaker maker(random);
    for (int round = 0; round < 1500; ++round) {
        const TinyPattern pattern = maker.Make();
        RegularExpression expression = ExpressionOf(pattern.Text(), "g");
        std::string text = Utf8(RandomText(random)) + Utf8(RandomText(random));
        for (char& each : text) {
            each = random() % 4 == 0 ? static_cast<char>(random() % 256) : each;
        }
        const std::string found = MatchText(expression, text);
        ASSERT_EQ(expression.Test(text), found != "none") << expression.Pattern();
        ASSERT_EQ(expression.LongestMatch(text).has_value(), found != "none");
        ASSERT_NO_THROW(expression.Replace(text, "$1$`$'$&"));
    }
}

TEST(RegularExpressionDifferential, RandomCharactersAreAPatternOrAreRefused) {
    static constexpr std::array<const char*, 40> kTokens{
        "a",   "b",   "(",   ")",   "[",   "]",        "^",    "$",    "?",    "*",
        "+",   "{",   "}",   "{2}", "{1,", "0",        ",",    "\\",   "|",    "(?",
        ":",   "!",   "=",   "-",   ".",   "i",        "\\u0", "\\cA", "\\x4", "\\1",
        "\\b", "\\d", "(?:", "(?=", "[^",  "\xC3\xA9", "\xFF", "<",    "\\",   "1"};
    std::mt19937 random(20260725);
    int refused = 0;
    int read = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string pattern;
        for (std::size_t count = random() % 8; count > 0; --count) {
            pattern += kTokens.at(random() % kTokens.size());
        }
        RegularExpression expression = ExpressionOf(pattern, round % 2 == 0 ? "gi" : "gm");
        const std::string found = MatchText(expression, "ab01\xC3\xA9-\n");
        const bool isRefused = found.starts_with("error 50");
        ASSERT_FALSE(found.starts_with("error") && !isRefused) << pattern << " " << found;
        ++(isRefused ? refused : read);
    }
    EXPECT_GT(refused, 4000);
    EXPECT_GT(read, 4000);
}

}  // namespace
}  // namespace dorvik
