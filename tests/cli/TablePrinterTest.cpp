#include "cli/output/TablePrinter.h"

#include "base/modUtf8.h"
#include "support/LineText.h"

#include <gtest/gtest.h>

namespace dorvik::test {

namespace {

std::vector<std::string> Wrapped(std::string_view text, std::size_t width) {
    return modTerminalText::Wrap(text, width);
}

using Lines = std::vector<std::string>;

}  // namespace

TEST(TablePrinter, ColumnsAreAsWideAsTheirTextsAndNoLineEndsInBlanks) {
    TablePrinter table({{"No", true}, {"Name"}, {"Text"}});
    table.AddRow({{5}, {"a"}, {"x"}});
    table.AddRow({{500}, {"abcdef"}});
    EXPECT_EQ(
        table.Text(80, false),
        " No  Name    Text\n"
        "  5  a       x\n"
        "500  abcdef\n");
}

TEST(TablePrinter, ATableWithoutTitlesHasNoHead) {
    TablePrinter table({{""}, {""}});
    table.AddRow({{"a"}, {"b"}});
    EXPECT_EQ(table.Text(80, false), "a  b\n");
}

TEST(TablePrinter, TheWidestColumnThatMayWrapGivesWay) {
    TablePrinter table({{"K"}, {"Text", false, true}});
    table.AddRow({{"key"}, {"one two three four five six"}});
    EXPECT_EQ(
        LinesOf(table.Text(20, false)),
        (Lines{"K    Text", "key  one two three", "     four five six"}));
}

TEST(TablePrinter, NoLineIsWiderThanTheTerminal) {
    TablePrinter table({{"A", true}, {"B", false, true}, {"C", false, true}});
    table.SetIndent(2);
    for (int row = 1; row < 30; ++row) {
        table.AddRow(
            {{row * 1000},
             {std::string(static_cast<std::size_t>(row * 7), 'b')},
             {"some words and more"}});
    }
    for (const std::size_t width : {30U, 40U, 80U, 120U}) {
        for (const std::string& line : LinesOf(table.Text(width, false))) {
            EXPECT_LE(line.size(), width) << line;
        }
    }
}

TEST(TablePrinter, WidthsCountCharactersNotBytes) {
    TablePrinter table({{""}, {""}});
    table.AddRow({{"gr\xC3\xBC\xC3\x9F"}, {"x"}});
    table.AddRow({{"abcd"}, {"y"}});
    EXPECT_EQ(LinesOf(table.Text(80, false)), (Lines{"gr\xC3\xBC\xC3\x9F  x", "abcd  y"}));
}

TEST(TablePrinter, ATextCannotSteerTheTerminal) {
    TablePrinter table({{""}});
    table.AddRow({{"a\x1B[31mb\tc\x7F"}});
    EXPECT_EQ(table.Text(80, false), "a\\x1B[31mb c\\x7F\n");
}

TEST(TablePrinter, ColoursStandAroundTheTextOnly) {
    TablePrinter table({{"N", true}, {"Word"}});
    table.AddRow({{5}, {"bad", Shade::Bad}});
    EXPECT_EQ(table.Text(80, true), "\x1b[1mN\x1b[0m  \x1b[1mWord\x1b[0m\n5  \x1b[31mbad\x1b[0m\n");
}

TEST(TerminalText, BreaksAtBlanksAndCutsLongWords) {
    EXPECT_EQ(Wrapped("", 10), (Lines{""}));
    EXPECT_EQ(Wrapped("aa bb cc", 5), (Lines{"aa bb", "cc"}));
    EXPECT_EQ(Wrapped("abcdefgh", 3), (Lines{"abc", "def", "gh"}));
    EXPECT_EQ(Wrapped("a\r\nb\n\nc", 9), (Lines{"a", "b", "", "c"}));
    EXPECT_EQ(Wrapped("  indented text", 12), (Lines{"  indented", "text"}));
    EXPECT_EQ(Wrapped("    abcdef", 6), (Lines{"    ab", "cdef"}));
    EXPECT_EQ(Wrapped("aa   ", 3), (Lines{"aa"}));
}

TEST(TerminalText, ALongTextIsWrapped) {
    std::string text;
    for (int word = 0; word < 20000; ++word) {
        text += "word ";
    }
    TablePrinter table({{"A"}, {"B", false, true}});
    table.AddRow({{"x"}, {text}});
    EXPECT_GT(LinesOf(table.Text(80, false)).size(), 1000U);
}

}  // namespace dorvik::test
