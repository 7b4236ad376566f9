#include "workstation/filehost/modLineTokens.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {

namespace {

using modLineTokens::LineStart;
using modLineTokens::Tokenise;

/// The parts of a line with a letter for the kind of each: "k:Dim n:x".
std::string Parts(std::string_view line, LineStart start = LineStart::Statement) {
    std::string parts;
    for (const modLineTokens::LineToken& token : Tokenise(line, start).Tokens) {
        parts += parts.empty() ? "" : " ";
        parts += "kctnio_"[static_cast<std::size_t>(token.Kind)];
        parts += ':';
        parts += line.substr(token.Start, token.Size);
    }
    return parts;
}

LineStart NextOf(std::string_view line, LineStart start = LineStart::Statement) {
    return Tokenise(line, start).Next;
}

}  // namespace

TEST(modLineTokens, KeywordsNamesAndOperators) {
    EXPECT_EQ(Parts("Dim x As LONG"), "k:Dim i:x k:As k:LONG");
    EXPECT_EQ(Parts("\tx_1 = a+Me.Print(b)"), "i:x_1 o:= i:a o:+ k:Me o:. i:Print o:( i:b o:)");
    EXPECT_EQ(Parts("rs!Name = [End Sub]"), "i:rs o:! i:Name o:= i:[End Sub]");
    EXPECT_EQ(Parts("\u00C4rger = _x"), "i:\u00C4rger o:= o:_ i:x");
    EXPECT_EQ(Parts(""), "");
    EXPECT_EQ(Parts("Left$(a$, b%) & c&"), "i:Left$ o:( i:a$ o:, i:b% o:) o:& i:c&");
    EXPECT_EQ(Parts("s = a&\"b\""), "i:s o:= i:a o:& t:\"b\"");
}

TEST(modLineTokens, TextsHaveDoubledQuotes) {
    EXPECT_EQ(Parts("x = \"a \"\" ' b\" 'c"), "i:x o:= t:\"a \"\" ' b\" c:'c");
    EXPECT_EQ(Parts("x = \"open"), "i:x o:= t:\"open");
    EXPECT_EQ(Parts("x = \""), "i:x o:= t:\"");
    EXPECT_EQ(Parts("x = \"a\"\""), "i:x o:= t:\"a\"\"");
}

TEST(modLineTokens, NumbersOfAllKinds) {
    EXPECT_EQ(Parts("1.5E+3# .5 &HFF& &o17 10% 1e"), "n:1.5E+3# n:.5 n:&HFF& n:&o17 n:10% n:1 i:e");
    EXPECT_EQ(Parts("d = #1/31/2000 10:00 PM#"), "i:d o:= n:#1/31/2000 10:00 PM#");
    EXPECT_EQ(Parts("Print #1, x"), "k:Print o:# n:1 o:, i:x");
}

TEST(modLineTokens, RemIsACommentWhereAStatementBegins) {
    EXPECT_EQ(Parts("Rem all of it: x"), "c:Rem all of it: x");
    EXPECT_EQ(Parts("  REM"), "c:REM");
    EXPECT_EQ(Parts("x = 1: Rem y"), "i:x o:= n:1 o:: c:Rem y");
    EXPECT_EQ(Parts("If a Then Rem y"), "k:If i:a k:Then c:Rem y");
    EXPECT_EQ(Parts("10 Rem y"), "n:10 c:Rem y");
    EXPECT_EQ(Parts("Remark = 1"), "i:Remark o:= n:1");
    EXPECT_EQ(Parts("x = Rem y"), "i:x o:= k:Rem i:y");
}

TEST(modLineTokens, LinesAreContinued) {
    EXPECT_EQ(Parts("x = a + _"), "i:x o:= i:a o:+ _:_");
    EXPECT_EQ(NextOf("x = a + _  "), LineStart::ContinuedStatement);
    EXPECT_EQ(NextOf("x = a_"), LineStart::Statement);
    EXPECT_EQ(Parts("Rem y", LineStart::ContinuedStatement), "k:Rem i:y");
    EXPECT_EQ(NextOf("' note _"), LineStart::ContinuedComment);
    EXPECT_EQ(NextOf("x = 1 ' note"), LineStart::Statement);
    EXPECT_EQ(Parts("Dim x _", LineStart::ContinuedComment), "c:Dim x _");
    EXPECT_EQ(NextOf("Dim x _", LineStart::ContinuedComment), LineStart::ContinuedComment);
    EXPECT_EQ(NextOf("Dim x", LineStart::ContinuedComment), LineStart::Statement);
    EXPECT_EQ(Parts("", LineStart::ContinuedComment), "");
}

TEST(modLineTokens, DirectivesAreKeywords) {
    EXPECT_EQ(Parts("#If Win32 Then"), "k:#If i:Win32 k:Then");
    EXPECT_EQ(Parts("#End If"), "k:#End k:If");
}

TEST(modLineTokens, AnyBytesEnd) {
    std::string line;
    for (int index = 0; index < 100'000; ++index) {
        line += static_cast<char>((index * 7919) % 256);
    }
    std::size_t end = 0;
    for (const modLineTokens::LineToken& token : Tokenise(line).Tokens) {
        EXPECT_GE(token.Start, end);
        EXPECT_GT(token.Size, 0U);
        end = token.Start + token.Size;
    }
    EXPECT_LE(end, line.size());
    EXPECT_EQ(Tokenise(std::string(5'000'000, '#')).Tokens.size(), 5'000'000U);
}

}  // namespace dorvik
