#include "platform/regex/RegularExpression.h"

#include "PrefilterAccepts.h"
#include "base/BasicError.h"
#include "platform/regex/PatternSet.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>
#include <string>

namespace dorvik {
namespace {

using Matches = std::vector<Match>;

struct Raised {
    std::int32_t Number = 0;
    std::string Description;
};

template <typename Body>
Raised RaisedBy(Body&& body) {
    try {
        body();
    } catch (const BasicError& error) {
        return {error.Number(), error.what()};
    }
    return {};
}

bool IsMatch(std::string_view pattern, std::string_view text) {
    RegularExpression expression(pattern);
    return expression.Test(text);
}

TEST(RegularExpression, KnowsTheGrammarOfRuleAuthors) {
    struct Row {
        const char* Pattern;
        const char* Text;
        bool IsMatch;
    };
    for (const Row& row : {
             Row{"", "anything", true},
             Row{"\\bGoTo\\b", "If x Then GoTo Fail", true},
             Row{"\\bGoTo\\b", "GoToFail", false},
             Row{"^(Stop|End)$", "End", true},
             Row{"^(Stop|End)$", "End If", false},
             Row{"[A-Z][a-z]+", "m_Name", true},
             Row{"^[^_]*$", "m_Name", false},
             Row{"a{2,3}$", "baaa", true},
             Row{"colou?r", "color", true},
             Row{"Error (?!GoTo 0)", "On Error GoTo 0", false},
             Row{"Error (?!GoTo 0)", "On Error GoTo Fail", true},
             Row{"(.)\\1", "Miss", true},
             Row{"\\u0041\\x42", "xABx", true},
             Row{"(a)?b\\1c", "bc", true},  // a group that took no part matches the empty text
             Row{"[]", "a", false},
             Row{"[^]", "a", true},
             Row{"a.c", "a\nc", false},
             Row{"a.c", "a\rc", false},
             Row{"a$", "a\n", false},
             Row{"^b", "a\nb", false},
             Row{"^.$", "\xC3\xA9", true},
             Row{"\\w", "\xC3\xA9", false},
             Row{"[\xC3\xA0-\xC3\xBF]", "\xC3\xA9", true},
         }) {
        EXPECT_EQ(IsMatch(row.Pattern, row.Text), row.IsMatch) << row.Pattern << " / " << row.Text;
    }
}

TEST(RegularExpression, CaseCountsUnlessIgnored) {
    RegularExpression expression("Gosub \xC3\x84");
    EXPECT_FALSE(expression.Test("GOSUB \xC3\xA4"));
    expression.SetIgnoreCase(true);
    EXPECT_TRUE(expression.Test("GOSUB \xC3\xA4"));
    expression.SetIgnoreCase(false);
    EXPECT_FALSE(expression.Test("GOSUB \xC3\xA4"));
    EXPECT_TRUE(expression.Test("Gosub \xC3\x84"));
}

TEST(RegularExpression, ServesManyPatternsInTurn) {
    RegularExpression expression;
    for (int round = 0; round < 3; ++round) {
        expression.SetPattern("^a");
        EXPECT_TRUE(expression.Test("ab"));
        expression.SetPattern("^b");
        EXPECT_FALSE(expression.Test("ab"));
        EXPECT_EQ(expression.Pattern(), "^b");
    }
}

TEST(RegularExpression, ManyMorePatternsThanAreKeptStillWork) {
    RegularExpression first("x0y");
    EXPECT_TRUE(first.Test("x0y"));
    RegularExpression expression;
    for (int i = 0; i < 5000; ++i) {
        const std::string text = "x" + std::to_string(i) + "y";
        expression.SetPattern(text);
        ASSERT_TRUE(expression.Test(text));
    }
    EXPECT_TRUE(first.Test("x0y"));
}

TEST(RegularExpression, ExecuteGivesTheFirstMatchOrAllIfGlobal) {
    RegularExpression expression("[a-z]+");
    EXPECT_EQ(expression.Execute("12 ab cd"), (Matches{{3, "ab", {}}}));
    expression.SetGlobal(true);
    EXPECT_EQ(expression.Execute("12 ab cd"), (Matches{{3, "ab", {}}, {6, "cd", {}}}));
    EXPECT_EQ(expression.Execute("12"), Matches{});
    EXPECT_EQ(expression.Execute(""), Matches{});
}

TEST(RegularExpression, IndexCountsCharacters) {
    RegularExpression expression("[a-z]+");
    expression.SetGlobal(true);
    EXPECT_EQ(
        expression.Execute("\xC3\x84"
                           "b \xE6\x9C\xA8z"),
        (Matches{{1, "b", {}}, {4, "z", {}}}));
}

TEST(RegularExpression, EmptyMatchesMoveOnByOneCharacter) {
    RegularExpression expression("b*");
    expression.SetGlobal(true);
    EXPECT_EQ(
        expression.Execute("abb\xC3\xA9"),
        (Matches{{0, "", {}}, {1, "bb", {}}, {3, "", {}}, {4, "", {}}}));
    EXPECT_EQ(expression.Execute(""), (Matches{{0, "", {}}}));
    expression.SetPattern("$");
    EXPECT_EQ(expression.Execute("ab"), (Matches{{2, "", {}}}));
}

TEST(RegularExpression, BytesThatAreNoUtf8DisturbNothing) {
    RegularExpression expression("b.d|^\\W");
    expression.SetGlobal(true);
    EXPECT_TRUE(expression.Test("\xE9\xFF"
                                "bcd\x80"));
    EXPECT_FALSE(expression.Test("b\xE9"
                                 "d"));
    EXPECT_EQ(
        expression.Execute("\x80"
                           "bcd\xC3"
                           "bxd"),
        (Matches{{1, "bcd", {}}, {5, "bxd", {}}}));
    expression.SetPattern("x*");
    EXPECT_NO_THROW(expression.Execute("\xC3\xC3\xE6\x9C"));
}

TEST(RegularExpression, AnyBytesAreSearchedWithoutHarm) {
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (std::size_t size = random() % 40; size > 0; --size) {
            text += static_cast<char>(random() % 3 == 0 ? random() % 128 : 128 + random() % 128);
        }
        for (const char* pattern : {".", "\\b\\w+\\b", "(?:(a)|.)*?\\1", "[^a]", "\xC3\xA9|$"}) {
            RegularExpression expression(pattern);
            expression.SetGlobal(true);
            ASSERT_LE(expression.Execute(text).size(), text.size() + 1) << pattern;
        }
    }
}

TEST(RegularExpression, AMalformedPatternRaisesEachTimeItIsUsed) {
    RegularExpression expression;
    expression.SetPattern("Debug(Print");
    for (int round = 0; round < 2; ++round) {
        for (const auto& use : std::vector<std::function<void()>>{
                 [&] { expression.Test("x"); },
                 [&] { expression.Execute("x"); },
             }) {
            EXPECT_EQ(RaisedBy(use).Number, kRegularExpressionParenthesis);
        }
    }
    expression.SetPattern("x");
    EXPECT_TRUE(expression.Test("x"));
}

TEST(RegularExpression, ManyLinesAreSearchedOnceSwitchedOn) {
    RegularExpression expression("^b$");
    EXPECT_FALSE(expression.Test("a\r\nb\r\nc"));
    expression.SetMultiline(true);
    EXPECT_TRUE(expression.Multiline());
    EXPECT_TRUE(expression.Test("a\r\nb\r\nc"));
    expression.SetMultiline(false);
    EXPECT_FALSE(expression.Test("a\r\nb\r\nc"));
}

TEST(RegularExpression, AGroupThatTookNoPartIsToldFromAnEmptyOne) {
    RegularExpression expression("(a)(b)?(c*)");
    const Matches matches = expression.Execute("xa");
    ASSERT_EQ(matches.size(), 1U);
    EXPECT_EQ(matches[0].SubMatches, (std::vector<SubMatch>{{"a", true}, {"", false}, {"", true}}));
}

// ---- A PatternSet gives the same results ----

class PatternMaker {
public:
    explicit PatternMaker(std::mt19937& random) : m_random(random) {}

    std::string Branches(int depth) {
        std::string pattern = Branch(depth);
        while (Chance(4)) {
            pattern += "|" + Branch(depth);
        }
        return pattern;
    }

    std::string Tokens() {
        std::string pattern;
        for (std::size_t count = m_random() % 8; count > 0; --count) {
            pattern += Pick(kTokens);
        }
        return pattern;
    }

private:
    static constexpr std::array<const char*, 30> kAtoms{
        "a",   "b", "B", "-",    ".",        "\\.",    "\\b",      "\\w",   "[ab]", "[^a]",
        "[-]", "^", "$", "a",    "b",        "\\-",    "\xC3\xA9", "\\x61", "\\1",  "[]a]",
        "\\s", " ", "]", "(?i)", "\\Qa*\\E", "[\\]a]", "}",        "a{",    "{",    "[[:alpha:]-]"};
    static constexpr std::array<const char*, 10> kCounts{
        "?", "*", "+", "{0}", "{1,2}", "{0,}", "{2}", "??", "+?", "*+"};
    static constexpr std::array<const char*, 6> kOpeners{"(", "(?:", "(?=", "(?!", "(?i:", "(?<n>"};
    static constexpr std::array<const char*, 28> kTokens{
        "a", "b",  "(", ")",  "[", "]", "^",   "?",   "*", "+", "{", "}",    "{0}", "0",
        ",", "\\", "|", "(?", ":", "!", "\\Q", "\\E", "-", ".", "i", "\\u0", "=",   "\\cA"};

    template <std::size_t Size>
    std::string Pick(const std::array<const char*, Size>& choices) {
        return choices.at(m_random() % Size);
    }
    bool Chance(unsigned of) { return m_random() % of == 0; }

    std::string Branch(int depth) {
        std::string pattern;
        for (std::size_t count = m_random() % 5; count > 0; --count) {
            const bool isGroup = depth < 3 && Chance(5);
            pattern += isGroup ? Pick(kOpeners) + Branches(depth + 1) + ")" : Atom();
            while (Chance(4)) {
                pattern += Pick(kCounts);
            }
        }
        return pattern;
    }

    /// Mostly the plain ones; the odd ones at the end of the list make the rest not understood.
    std::string Atom() {
        return Chance(8) ? Pick(kAtoms) : std::string(kAtoms.at(m_random() % 17));
    }

    std::mt19937& m_random;
};

std::string RandomLine(std::mt19937& random) {
    static constexpr std::array<const char*, 12> kPieces{
        "a", "b", "a", "b", "B", "-", ".", " ", "\xC3\xA9", "\x80", "]", "i"};
    std::string text;
    for (std::size_t count = random() % 7; count > 0; --count) {
        text += kPieces.at(random() % kPieces.size());
    }
    return text;
}

struct TestTally {
    int Malformed = 0;
    int Matched = 0;
    int Unmatched = 0;
    int Rejected = 0;  // by the prefilter
};

void CompareWithSet(RegularExpression& expression, const std::string& text, TestTally& tally) {
    bool searched = false;
    bool quick = false;
    const Raised raised = RaisedBy([&] { searched = expression.Test(text); });
    PatternSet set;
    const std::size_t pattern = set.Add(expression.Pattern());
    set.SetText(text);
    const Raised raisedQuickly = RaisedBy([&] { quick = set.Matches(pattern); });
    if (raised.Number == kRegularExpressionTooComplex && raisedQuickly.Number == 0) {
        ASSERT_FALSE(quick);
        return;
    }
    ASSERT_EQ(raised.Description, raisedQuickly.Description);
    ASSERT_EQ(searched, quick) << expression.Pattern() << " / " << text;
    tally.Malformed += raised.Number == kRegularExpressionSyntax ? 1 : 0;
    tally.Matched += searched ? 1 : 0;
    tally.Unmatched += raised.Number == 0 && !searched ? 1 : 0;
    tally.Rejected += PrefilterAccepts(expression, text) ? 0 : 1;
}

TEST(RegularExpression, APatternSetAgreesOnRandomPatterns) {
    std::mt19937 random(20261121);
    PatternMaker maker(random);
    TestTally tally;
    for (int round = 0; round < 12000; ++round) {
        RegularExpression expression(round % 4 == 0 ? maker.Tokens() : maker.Branches(0));
        for (int i = 0; i < 12; ++i) {
            CompareWithSet(expression, RandomLine(random), tally);
            ASSERT_FALSE(HasFatalFailure());
        }
    }
    EXPECT_GT(tally.Malformed, 1000);
    EXPECT_GT(tally.Matched, 10000);
    EXPECT_GT(tally.Unmatched, 10000);
    EXPECT_GT(tally.Rejected, 1000);
}

}  // namespace
}  // namespace dorvik
