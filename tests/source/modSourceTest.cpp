#include "source/modSource.h"

#include "RandomText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace dorvik {

namespace {

LineType TypeOf(std::string_view line) {
    return modSource::SourceLineType(line);
}

/// The statements of a line, as the parser takes them.
std::vector<std::string> StatementsOf(std::string_view line) {
    std::vector<std::string> statements;
    std::string_view rest = line;
    bool more = true;
    while (true) {
        const std::string_view statement = modSource::NextStatementFromSourceLine(rest, more);
        if (!more) {
            EXPECT_EQ(statement, "");
            return statements;
        }
        statements.emplace_back(statement);
        if (statements.size() > line.size() + 1) {
            ADD_FAILURE() << "no progress";
            return statements;
        }
    }
}

using Texts = std::vector<std::pair<std::string_view, std::string_view>>;

}  // namespace

TEST(modSource, LineTypesHaveTheirNumbers) {
    EXPECT_EQ(static_cast<int>(LineType::Blank), 0);
    EXPECT_EQ(static_cast<int>(LineType::CommentOnly), 1);
    EXPECT_EQ(static_cast<int>(LineType::CodeWithComment), 2);
    EXPECT_EQ(static_cast<int>(LineType::Code), 3);
    EXPECT_EQ(static_cast<int>(LineType::Continued), 4);
    EXPECT_EQ(static_cast<int>(LineType::None), 5);
}

TEST(modSource, EveryLineHasOneType) {
    const std::vector<std::pair<std::string_view, LineType>> rows = {
        {"", LineType::Blank},
        {"   ", LineType::Blank},
        {" \t \t", LineType::Blank},
        {"\xC2\xA0", LineType::Code},
        {"' text", LineType::CommentOnly},
        {"\t 'text", LineType::CommentOnly},
        {"rem text", LineType::CommentOnly},
        {"10: ' text", LineType::CommentOnly},
        {"10 Rem text", LineType::CommentOnly},
        {": Rem text", LineType::CommentOnly},
        {"x = 1 ' text", LineType::CodeWithComment},
        {"x = 1: REM text", LineType::CodeWithComment},
        {"10 x = 1 ' text", LineType::CodeWithComment},
        {"x = 1", LineType::Code},
        {"x = 1 Rem text", LineType::Code},
        {"10:", LineType::Code},
        {"x = 1 + _", LineType::Continued},
        {"x = 1 + _  ", LineType::Continued},
        {"x = a_", LineType::Continued},
        {"_", LineType::Continued},
        {"x = 1 + _\t", LineType::Code},
    };
    for (const auto& [line, type] : rows) {
        EXPECT_EQ(TypeOf(line), type) << line;
    }
}

TEST(modSource, RemAloneIsCodeAndRemWithTextIsAComment) {
    EXPECT_EQ(TypeOf("Rem"), LineType::Code);
    EXPECT_EQ(TypeOf("Rem   "), LineType::Code);
    EXPECT_EQ(TypeOf("Rem x"), LineType::CommentOnly);
    EXPECT_EQ(TypeOf("Remove x"), LineType::Code);
}

TEST(modSource, CommentLineThatEndsInAnUnderscoreJoinsNothing) {
    EXPECT_EQ(TypeOf("' text _"), LineType::CommentOnly);
}

TEST(modSource, CommentBehindCodeThatEndsInAnUnderscoreContinuesTheLine) {
    EXPECT_EQ(TypeOf("x = 1 ' text _"), LineType::Continued);
}

TEST(modSource, SingleQuoteInAStringIsNoComment) {
    EXPECT_EQ(TypeOf("s = \"it's\""), LineType::Code);
    EXPECT_EQ(TypeOf("s = \": Rem x\""), LineType::Code);
    EXPECT_EQ(TypeOf("s = \"it's\" ' so"), LineType::CodeWithComment);
    EXPECT_EQ(TypeOf("s = \"it's"), LineType::CodeWithComment);  // the string never ends
}

TEST(modSource, LineIsMultiStatementByItsFirstColonOutsideAString) {
    const std::vector<std::pair<std::string_view, bool>> rows = {
        {"x = 1", false},
        {"x = \"a:b\"", false},
        {"x = 1: y = 2", true},
        {"x = 1:", false},
        {"x = 1:   ", false},
        {"Call f(a:=1)", false},
        {"Call f(a:=1): y = 2", false},
        {"x = 1: ' note", false},
        {"x = 1: Rem note", false},
        {"x = 1 ' a: b", false},
        {"x = \"a\": y = 2", true},
        {"x = \"it's\": y = 2", true},
        {"x = \"a", false},
    };
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(modSource::IsMultiStatementLine(line), expected) << line;
    }
}

TEST(modSource, WordThatBeginsWithRemBehindAColonPassesForAComment) {
    EXPECT_FALSE(modSource::IsMultiStatementLine("x = 1 : Remark = 2"));
    EXPECT_FALSE(modSource::IsMultiStatementLine("x = 1: Remove x"));
}

TEST(modSource, DoubledQuoteKeepsTheStringOpen) {
    EXPECT_TRUE(modSource::IsMultiStatementLine("a = \"x\"\"y\": b = 1"));
    EXPECT_FALSE(modSource::IsMultiStatementLine("a = \"x\"\": b = 1\""));
}

TEST(modSource, CommentDirectlyBehindAStringIsWalkedAsCode) {
    EXPECT_TRUE(modSource::IsMultiStatementLine("x = \"a\"' b: c"));
    EXPECT_FALSE(modSource::IsMultiStatementLine("x = \"a\" ' b: c"));
}

TEST(modSource, StatementsComeOneByOneAndThenAnEmptyOne) {
    std::string_view rest = "a = 1: b = 2";
    bool more = false;
    EXPECT_EQ(modSource::NextStatementFromSourceLine(rest, more), "a = 1");
    EXPECT_TRUE(more);
    EXPECT_EQ(modSource::NextStatementFromSourceLine(rest, more), "b = 2");
    EXPECT_TRUE(more);
    EXPECT_EQ(modSource::NextStatementFromSourceLine(rest, more), "");
    EXPECT_FALSE(more);
}

TEST(modSource, StatementsAreCutAtColonsOutsideStrings) {
    const std::vector<std::pair<std::string_view, std::vector<std::string>>> rows = {
        {"", {}},
        {"  a = 1 ", {"  a = 1 "}},
        {"  a = 1 : b", {"a = 1", "b"}},
        {"s = \"a:b\": t = \"c\"", {"s = \"a:b\"", "t = \"c\""}},
        {"a::b", {"a", "", "b"}},
        {"a: ", {"a"}},
        {"a: Rem x: y", {"a"}},
        {"a: Remove x: y", {"a"}},
        {"a: 'x: y", {"a"}},
        {"Retry: x = 1", {"Retry", "x = 1"}},
        {"f a:=1", {"f a", "=1"}},
    };
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(StatementsOf(line), expected) << line;
    }
}

TEST(modSource, CommentBehindAStatementIsCutAtItsColonsToo) {
    EXPECT_EQ(
        StatementsOf("a = 1: b = 2 ' see: there"),
        (std::vector<std::string>{"a = 1", "b = 2 ' see", "there"}));
}

TEST(modSource, IntelligentSeekPassesOverStrings) {
    EXPECT_EQ(modSource::IntelligentSeek("a, b", ',', false), 2U);
    EXPECT_EQ(modSource::IntelligentSeek("\"a, b\", c", ',', false), 7U);
    EXPECT_EQ(modSource::IntelligentSeek("\"a\"\", b\", c", ',', false), 9U);
    EXPECT_EQ(modSource::IntelligentSeek("\"a, b\"", ',', false), 0U);
    EXPECT_EQ(modSource::IntelligentSeek("abc", ',', false), 0U);
    EXPECT_EQ(modSource::IntelligentSeek("", ',', true), 0U);
    EXPECT_EQ(modSource::IntelligentSeek("a X", 'x', false), 3U);
    EXPECT_EQ(modSource::IntelligentSeek("a x", 'X', false), 3U);
    EXPECT_EQ(modSource::IntelligentSeek("\"a\"", '"', false), 0U);
}

TEST(modSource, IntelligentSeekLooksIntoTheCommentUnlessItIsStripped) {
    EXPECT_EQ(modSource::IntelligentSeek("a ' b, c", ',', false), 6U);
    EXPECT_EQ(modSource::IntelligentSeek("a ' b, c", ',', true), 0U);
}

TEST(modSource, InLineCommentIsStripped) {
    const Texts rows = {
        {"x = 1", "x = 1"},
        {"  x = 1  ", "  x = 1  "},
        {"x = 1 ' a", "x = 1"},
        {"x = 1: ' a", "x = 1"},
        {"x = 1 : Rem a", "x = 1"},
        {"x = 1:: ' a", "x = 1:"},
        {"x = \"it's\" ' a", "x = \"it's\""},
        {"' a", ""},
        {"x = 1 Rem a", "x = 1 Rem a"},
        {"x = 1 ' a: Rem b", "x = 1 ' a"},
    };
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(modSource::StripInLineComment(line), expected) << line;
    }
}

TEST(modSource, RemBehindAColonIsCutInsideAStringToo) {
    EXPECT_EQ(modSource::StripInLineComment("Dim s: s = \": Rem \""), "Dim s: s = \"");
}

TEST(modSource, QuotedTextIsEmptied) {
    const Texts rows = {
        {"", ""},
        {"x", "x"},
        {"s = \"abc\"", "s = \"\""},
        {"s = \"\"", "s = \"\""},
        {"s = \"a\" & \"b\" & c", "s = \"\" & \"\" & c"},
        {"s = \"a\"\"b\"", "s = \"\"\"\""},
        {"s = \"a\" & \"b", "s = \"\" & \"b"},
        {"\"", "\""},
    };
    std::string buffer;
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(modSource::StripQuotedText(line), expected) << line;
        EXPECT_EQ(modSource::StripQuotedText(line, buffer), expected) << line;
    }
}

TEST(modSource, TabsAreStrippedOnlyAtTheStart) {
    const Texts rows = {
        {"  x = 1  ", "x = 1"},
        {" \t\t x = 1", "x = 1"},
        {" \t \tx = 1", "\tx = 1"},  // a tab behind a blank stays
        {"x = 1\t", "x = 1\t"},
        {" \t ", ""},
    };
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(modSource::StripTabsAndSpaces(line), expected) << line;
        EXPECT_EQ(modSource::StripTabsAndComment(line), expected) << line;
    }
}

TEST(modSource, KeywordTestsSeeTheLineCutAtASingleQuoteInAString) {
    EXPECT_EQ(modSource::StripTabsAndComment("s = \"it's\""), "s = \"it");
    EXPECT_EQ(modSource::StripTabsAndComment("\tx = 1 ' a"), "x = 1");
    EXPECT_EQ(modSource::StripTabsAndComment("' a"), "");
}

TEST(modSource, SourceLineIsStrippedOfStringsCommentAndOuterBlanks) {
    EXPECT_EQ(modSource::StripSourceLine("\t s = \"it's: Rem x\" ' a"), "s = \"\"");
    EXPECT_EQ(modSource::StripSourceLine(" x = 1: Rem \"a\""), "x = 1");
    EXPECT_EQ(modSource::StripSourceLine(" 'a"), "");
}

TEST(modSource, QuotesAreRemovedAtEachEndByItself) {
    const Texts rows = {
        {"\"a\"", "a"},
        {"\"a", "a"},
        {"a\"", "a"},
        {"a", "a"},
        {"\"", ""},
        {"", ""},
        {"\"\"\"", "\""},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(modSource::RemoveQuotes(text), expected) << text;
    }
}

TEST(modSource, LineLabelIsATextWithoutBlankOrBracketUpToAColon) {
    const std::vector<std::pair<std::string_view, bool>> rows = {
        {"Retry:", true},
        {"Retry: x = 1", true},
        {"Else: x = 1", true},
        {" Retry:", false},
        {"\tRetry:", true},
        {"x = 1: y = 2", false},
        {":", false},
        {"Retry", false},
        {"f(1): x", false},
        {"", false},
        {"a:b(", true},
    };
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(modSource::IsLineLabel(line), expected) << line;
    }
}

TEST(modSource, ObjectDefinitionIsKnownByItsFirstCharacters) {
    EXPECT_TRUE(modSource::IsOCXObjectDefinition("Object = \"{A}#1.0#0\"; \"a.ocx\""));
    EXPECT_TRUE(modSource::IsOCXObjectDefinition("OBJECT = x"));
    EXPECT_FALSE(modSource::IsOCXObjectDefinition(" Object = x"));
    EXPECT_FALSE(modSource::IsOCXObjectDefinition("Object=x"));
    EXPECT_FALSE(modSource::IsOCXObjectDefinition("Object ="));
}

TEST(modSource, LinesOfChanceAreClassifiedAndCutWithoutStandingStill) {
    RandomText random;
    std::string buffer;
    for (int i = 0; i < 20000; ++i) {
        const std::string line = i % 4 == 0 ? random.Bytes(random.Number(40))
                                            : random.Pieces(kSourcePieces, random.Number(12));
        SCOPED_TRACE(line);
        const LineType type = TypeOf(line);
        EXPECT_EQ(type == LineType::Blank, modSource::IsBlankLine(line));
        EXPECT_NE(type, LineType::None);
        EXPECT_LE(StatementsOf(line).size(), line.size() + 1);
        EXPECT_EQ(modSource::StripQuotedText(line), modSource::StripQuotedText(line, buffer));
        EXPECT_LE(modSource::IntelligentSeek(line, '\'', i % 2 == 0), line.size());
        EXPECT_LE(modSource::StripSourceLine(line).size(), line.size());
        EXPECT_LE(modSource::StripTabsAndComment(line).size(), line.size());
        EXPECT_LE(modSource::RemoveQuotes(line).size(), line.size());
        if (modSource::IsMultiStatementLine(line)) {
            EXPECT_GE(StatementsOf(line).size(), 2U);
        }
        modSource::IsLineLabel(line);
        modSource::IsOCXObjectDefinition(line);
    }
}

TEST(modSource, EmptyingStringsAsStatedGivesTheSameAsEmptyingThemPairByPair) {
    const auto asStated = [](std::string text) {
        std::size_t start = 0;
        while (start < text.size()) {
            const std::size_t opening = text.find('"', start);
            if (opening == std::string::npos) {
                break;
            }
            const std::size_t closing = text.find('"', opening + 1);
            if (closing == std::string::npos) {
                break;
            }
            text.erase(opening + 1, closing - opening - 1);
            start = opening + 2;
        }
        return text;
    };
    RandomText random;
    for (int i = 0; i < 20000; ++i) {
        const std::string line = random.Pieces({"\"", "a", " ", "'", "\"\""}, random.Number(14));
        EXPECT_EQ(modSource::StripQuotedText(line), asStated(line)) << line;
    }
}

TEST(modSource, ALineOfTenMegabytesIsHandledLikeAnyOther) {
    std::string line = "x = \"";
    while (line.size() < 10'000'000) {
        line += "a: b \"\" '";
    }
    EXPECT_EQ(TypeOf(line + '"'), LineType::Code);
    EXPECT_FALSE(modSource::IsMultiStatementLine(line));
    std::string statements;
    while (statements.size() < 10'000'000) {
        statements += "x = 1: ";
    }
    EXPECT_EQ(StatementsOf(statements).size(), statements.size() / 7);
}

}  // namespace dorvik
