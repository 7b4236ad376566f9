#include "basic/syntax/Lexer.h"

#include "basic/ParsedText.h"
#include "basic/syntax/SourceLines.h"

#include <gtest/gtest.h>

namespace dorvik::basic {
namespace {

struct TokenRow {
    std::string Source;
    const char* Expected;
};

/// The texts of the tokens of every line, "|" between tokens and a new line between lines.
std::string TokenTexts(std::string_view source) {
    const auto lines = SplitLines(source);
    ErrorList errors;
    Lexer lexer(lines, errors);
    std::vector<Token> tokens;
    std::string text;
    while (lexer.HasLine()) {
        lexer.ReadLine(tokens);
        for (const Token& token : tokens) {
            if (token.Kind != TokenKind::EndOfLine) {
                text +=
                    std::string(token.Text) +
                    (token.Kind == TokenKind::Name && token.Suffix ? std::string(1, token.Suffix)
                                                                   : "") +
                    "|";
            }
        }
        text += "\n";
    }
    for (const CompileError& error : errors.Take()) {
        text += "error " + std::to_string(error.Number) + "\n";
    }
    return text;
}

TEST(Lexer, LinesEndWithAnyMixtureOfLineEnds) {
    EXPECT_EQ(TokenTexts("a\r\nb\nc\rd\n\re"), "a|\nb|\nc|\nd|\n\ne|\n");
    EXPECT_EQ(SplitLines("a\r\n").size(), 1u);
    EXPECT_EQ(SplitLines("a\n\n").size(), 2u);
    EXPECT_TRUE(SplitLines("").empty());
}

TEST(Lexer, AContinuationJoinsLines) {
    EXPECT_EQ(TokenTexts("a _\nb _\r\n c\nd"), "a|b|c|\nd|\n");
    EXPECT_EQ(TokenTexts("a\t_\nb"), "a|b|\n");
    EXPECT_EQ(TokenTexts("a_\nb"), "a_|\nb|\n");
    EXPECT_EQ(TokenTexts("a _"), "a|\n");
}

TEST(Lexer, AContinuationContinuesACommentButNoString) {
    EXPECT_EQ(TokenTexts("a ' note _\nb\nc"), "a|\nc|\n");
    EXPECT_EQ(TokenTexts("Rem note _\nb\nc"), "\nc|\n");
    EXPECT_EQ(TokenTexts("a = \"x _\nb"), "a|=|\"x _|\nb|\n");
}

TEST(Lexer, CommentsBeginOutsideStrings) {
    EXPECT_EQ(TokenTexts("a 'b"), "a|\n");
    EXPECT_EQ(TokenTexts("a = \"it's\" 'c"), "a|=|\"it's\"|\n");
    EXPECT_EQ(TokenTexts("'#Uses \"x\""), "\n");
}

TEST(Lexer, RemIsACommentWhereAStatementMayBegin) {
    EXPECT_EQ(TokenTexts("Rem a\nb: rem c\n10 REM d\nRem"), "\nb|:|\n10|\n\n");
    EXPECT_EQ(TokenTexts("Remark = 1\nx = Rem"), "Remark|=|1|\nx|=|Rem|\n");
}

TEST(Lexer, SuffixesBelongToTheirNames) {
    EXPECT_EQ(TokenTexts("a% b& c! d# e@ f$"), "a%|b&|c!|d#|e@|f$|\n");
    EXPECT_EQ(TokenTexts("a!b"), "a|!|b|\n");
    EXPECT_EQ(TokenTexts("a![b c]"), "a|!|b c|\n");
    EXPECT_EQ(TokenTexts("a&b & c&\"d\""), "a|&|b|&|c|&|\"d\"|\n");
    EXPECT_EQ(TokenTexts("Then&HFF"), "Then|&HFF|\n");
}

TEST(Lexer, HexAndOctalNumbersAndTheJoiningSignAreToldApart) {
    EXPECT_EQ(TokenTexts("x = &HFF & &O17 + &17"), "x|=|&HFF|&|&O17|+|&17|\n");
    EXPECT_EQ(TokenTexts("\"a\"&1"), "\"a\"|&|1|\n");
    EXPECT_EQ(TokenTexts("\"a\" &1"), "\"a\"|&|1|\n");
    EXPECT_EQ(TokenTexts("\"a\"&Head"), "\"a\"|&|Head|\n");
    EXPECT_EQ(TokenTexts("Foo &HFF&, &H8000%"), "Foo|&HFF&|,|&H8000%|\n");
}

TEST(Lexer, NumbersTakeTheirPointExponentAndSuffix) {
    EXPECT_EQ(
        TokenTexts("1 1.5 .5 1. 1E5 1d-3 1e+5 2% 3# 1.5!"),
        "1|1.5|.5|1.|1E5|1d-3|1e+5|2%|3#|1.5!|\n");
    EXPECT_EQ(TokenTexts("1E"), "1|E|\n");
}

TEST(Lexer, DatesAndFileNumbersAreToldApart) {
    EXPECT_EQ(
        TokenTexts("x = #1/31/2000# + #Jan 31, 2000 5:30 PM#"),
        "x|=|1/31/2000|+|Jan 31, 2000 5:30 PM|\n");
    EXPECT_EQ(TokenTexts("Print #1, #2"), "Print|#|1|,|#|2|\n");
    EXPECT_EQ(TokenTexts("Write #1, a, #1/2/2000#"), "Write|#|1|,|a|,|1/2/2000|\n");
    EXPECT_EQ(TokenTexts("Open f As #1: Close #1"), "Open|f|As|#|1|:|Close|#|1|\n");
}

TEST(Lexer, LettersOfOtherLanguagesBelongToNames) {
    EXPECT_EQ(TokenTexts("\xC3\xA4_\xC3\xB6 1\xC3\x97"), "\xC3\xA4_\xC3\xB6|1|\xC3\x97|\n");
}

TEST(Lexer, ABracketedNameNeedsItsBracketOnTheLine) {
    EXPECT_EQ(TokenTexts("[a b] = 1"), "a b|=|1|\n");
    EXPECT_EQ(TokenTexts("[a b\n]"), "a b|\n]|\nerror 1007\n");
    EXPECT_EQ(TokenTexts("[]"), "|\nerror 1010\n");
}

TEST(Lexer, ANameHasAtMost255Characters) {
    EXPECT_EQ(BodyText(std::string(255, 'a') + " = 1"), std::string(255, 'a') + " = 1");
    EXPECT_EQ(BodyText(std::string(256, 'a') + " = 1"), "2:1 1030 Identifier too long");
    std::string umlauts;
    for (int i = 0; i < 255; ++i) {
        umlauts += "\xC3\xA4";
    }
    EXPECT_EQ(BodyText(umlauts + " = 1"), umlauts + " = 1");
}

TEST(Lexer, ColumnsCountCharacters) {
    EXPECT_EQ(BodyText("\xC3\xA4\xC3\xA4 = ?"), "2:6 1032 Invalid character: '?'");
}

TEST(Lexer, NumbersHaveTheTypeThatTheyFit) {
    const TokenRow rows[] = {
        {"0", "0"},
        {"32767", "32767"},
        {"32768", "32768&"},
        {"2147483647", "2147483647&"},
        {"2147483648", "2147483648#"},
        {"1.0", "1#"},
        {"1E2", "100#"},
        {"1D2", "100#"},
        {".5", "0.5#"},
        {"1E-400", "0#"},
        {"5%", "5"},
        {"5&", "5&"},
        {"1.5!", "1.5!"},
        {"5#", "5#"},
        {"1.23455@", "1.2346@"},
        {"1.23445@", "1.2344@"},
        {"922337203685477.5807@", "922337203685478@"},
        {"&HFFFF", "-1"},
        {"&H8000", "-32768"},
        {"&H7FFF", "32767"},
        {"&H10000", "65536&"},
        {"&HFFFFFFFF", "-1&"},
        {"&HFFFF&", "65535&"},
        {"&H0000FFFF", "-1"},
        {"&O17", "15"},
        {"&17", "15"},
        {"&O177777", "-1"},
        {"&O37777777777", "-1&"},
    };
    for (const TokenRow& row : rows) {
        EXPECT_EQ(ExpressionText(row.Source), row.Expected) << row.Source;
    }
}

TEST(Lexer, ANumberOutOfTheRangeOfItsTypeIsAnError) {
    const TokenRow rows[] = {
        {"32768%", "2:5 1031 Invalid number: '32768%' is out of the range of an Integer"},
        {"1.5%", "2:5 1031 Invalid number: '1.5%' is out of the range of an Integer"},
        {"2147483648&", "2:5 1031 Invalid number: '2147483648&' is out of the range of a Long"},
        {"1E39!", "2:5 1031 Invalid number: '1E39!' is out of the range of a Single"},
        {"1E309", "2:5 1031 Invalid number: '1E309' is out of the range of a Double"},
        {"922337203685477.5808@",
         "2:5 1031 Invalid number: '922337203685477.5808@' is out of the range of a Currency"},
        {"&H100000000", "2:5 1031 Invalid number: '&H100000000'"},
        {"&HFFFFF%", "2:5 1031 Invalid number: '&HFFFFF%'"},
        {"&O19", "2:5 1031 Invalid number: '&O19'"},
    };
    for (const TokenRow& row : rows) {
        EXPECT_EQ(ExpressionText(row.Source), row.Expected) << row.Source;
    }
}

TEST(Lexer, AStringWithoutItsLastQuoteEndsWithTheLine) {
    const TokenRow rows[] = {
        {"\"abc", "\"abc\""},
        {"\"abc\"\"", "\"abc\"\""},
        {"\"", "\"\""},
        {"\"\"", "\"\""},
        {"\"\"\"", "\"\"\""},
        {"\"\"\"\"", "\"\"\""},
        {"\"a\"\"b\"", "\"a\"b\""},
    };
    for (const TokenRow& row : rows) {
        EXPECT_EQ(ExpressionText(row.Source), row.Expected) << row.Source;
    }
}

TEST(Lexer, DatesAreRead) {
    const TokenRow rows[] = {
        {"#1/31/2000#", "#36556#"},
        {"#13:00:05#", "#0.541724537037037#"},
        {"#Jan 31, 2000 6:00 PM#", "#36556.75#"},
        {"#13/45/2000#", "2:5 1002 '#13/45/2000#' is not a date"},
    };
    for (const TokenRow& row : rows) {
        EXPECT_EQ(ExpressionText(row.Source), row.Expected) << row.Source;
    }
}

}  // namespace
}  // namespace dorvik::basic
