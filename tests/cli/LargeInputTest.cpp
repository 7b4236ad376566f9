#include "cli/CommandLineFixture.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::size_t kTenMegabytes = 10U << 20U;

std::string Repeated(std::string_view piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t count = 0; count < times; ++count) {
        text += piece;
    }
    return text;
}

/// As many pieces as give the length.
std::string Filled(std::string_view piece, std::size_t length) {
    return Repeated(piece, length / piece.size());
}

std::string Form(std::string_view layout) {
    return "VERSION 5.00\r\nBegin VB.Form Big \r\n   Caption = \"x\"\r\n" + std::string(layout) +
           "End\r\nAttribute VB_Name = \"Big\"\r\nSub A()\r\n    DoEvents\r\nEnd Sub\r\n";
}

class LargeInput : public CommandLineFixture {
protected:
    ProgramResult RunOnForm(const std::string& form) const {
        WriteLines("Big.vbp", {"Type=Exe", "Form=Big.frm", "Name=\"Big\""});
        WriteBytes("Big.frm", form);
        return Run({"review", "Big.vbp", "--quiet", "--conventions", "uk"});
    }
    void ReviewForm(const std::string& form) const {
        const ProgramResult result = RunOnForm(form);
        EXPECT_EQ(result.ExitCode, 0) << result.Error;
        EXPECT_THAT(result.Error, IsEmpty());
    }
    std::string Results(std::string_view sql) const { return Query("Dorvik/Big_DORVIK.mdb", sql); }
};

struct LongLineRow {
    const char* Name;
    std::string Start;
    std::string Piece;
    std::string End;
    std::size_t Length = kTenMegabytes;
};

void PrintTo(const LongLineRow& row, std::ostream* out) {
    *out << row.Name;
}

/// One source line of ten megabytes. Where each piece is a statement or a declared name of its own,
/// a smaller line does.
class LongLine : public LargeInput, public ::testing::WithParamInterface<LongLineRow> {};

TEST_P(LongLine, IsReviewedLikeAnyOther) {
    const LongLineRow& row = GetParam();
    WriteModuleProject(
        "Big", row.Start + Filled(row.Piece, row.Length) + row.End + "\r\n    DoEvents");
    const ProgramResult result = Run({"review", "Big.vbp", "--quiet", "--conventions", "uk"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(result.Error, IsEmpty());
    EXPECT_EQ(Results("SELECT COUNT(*) FROM Violations WHERE Title = 'No DoEvents'"), "1");
    EXPECT_EQ(Results("SELECT TotalCount FROM LineCountStats WHERE ItemType = 1"), "5");
}

constexpr std::size_t kSmaller = 300000;

INSTANTIATE_TEST_SUITE_P(
    TenMegabytes,
    LongLine,
    ::testing::Values(
        LongLineRow{"Code", "    x = ", "a + ", "1"},
        LongLineRow{"String", "    s = \"", "y", "\""},
        LongLineRow{"OpenString", "    s = \"", "y", ""},
        LongLineRow{"Quotes", "    s = ", "\"", ""},
        LongLineRow{"ManyStrings", "    s = ", "\"a\" & ", "\"\""},
        LongLineRow{"Comment", "    ' ", "y", ""},
        LongLineRow{"Apostrophes", "    x = 1 ", "'", ""},
        LongLineRow{"Blanks", "    x = 1", " ", "+ 1"},
        LongLineRow{"Tabs", "", "\t", "x = 1"},
        LongLineRow{"BlanksAndTabs", "", "\t ", "x = 1"},
        LongLineRow{"Digits", "", "1", " x = 1"},
        LongLineRow{"DigitsAndColons", "", " 1:", "'"},
        LongLineRow{"Brackets", "    x = ", "(", "1"},
        LongLineRow{"ArrayBounds", "    Dim a(", "1, ", "1) As Long"},
        LongLineRow{"OpenArrayBounds", "    Dim a(", "1, ", ""},
        LongLineRow{"Statements", "    ", "x = 1: ", "y = 2", kSmaller},
        LongLineRow{"Variables", "    Dim a", ", a", "", kSmaller},
        LongLineRow{"Constants", "    Const A = 1", ", A = 1", "", kSmaller}),
    [](const auto& row) { return row.param.Name; });

TEST_F(LargeInput, ALogicalLineOfManyContinuationsIsOneLine) {
    WriteModuleProject("Big", Filled("    x + _\r\n", 1000000) + "1\r\n    DoEvents");
    EXPECT_EQ(Run({"review", "Big.vbp", "--quiet", "--conventions", "uk"}).ExitCode, 0);
    // The line numbers count physical lines, the statistics logical ones.
    EXPECT_EQ(Results("SELECT LineNum FROM Violations WHERE Title = 'No DoEvents'"), "90913");
    EXPECT_EQ(Results("SELECT TotalCount FROM LineCountStats WHERE ItemType = 1"), "5");
}

TEST_F(LargeInput, AProcedureOfAHundredThousandLinesIsReviewed) {
    WriteModuleProject("Big", Repeated("    total = total + 1\r\n", 100000) + "    DoEvents");
    EXPECT_EQ(Run({"review", "Big.vbp", "--quiet", "--conventions", "uk"}).ExitCode, 0);
    EXPECT_EQ(Results("SELECT LineNum FROM Violations WHERE Title = 'No DoEvents'"), "100003");
    EXPECT_EQ(Results("SELECT TotalCount FROM LineCountStats WHERE ItemType = 3"), "100003");
}

TEST_F(LargeInput, ADeepNestOfContainersIsReviewed) {
    constexpr std::size_t kDepth = 2000;
    ReviewForm(Form(
        Repeated("Begin VB.Frame f \r\n   Left = 1\r\n", kDepth) + Repeated("End\r\n", kDepth)));
    EXPECT_EQ(Results("SELECT LineNum FROM Violations WHERE Title = 'No DoEvents'"), "2");
}

TEST_F(LargeInput, ADeepNestOfContainersThatNeverCloseIsNamed) {
    const ProgramResult result = RunOnForm(
        "VERSION 5.00\r\nBegin VB.Form Big \r\n" + Repeated("Begin VB.Frame f \r\n", 2000));
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(result.Error, HasSubstr("in line 2002 the layout ends before 'Big' does"));
}

TEST_F(LargeInput, ADeepNestOfPropertyBlocksIsReviewed) {
    constexpr std::size_t kDepth = 2000;
    ReviewForm(Form(
        "Begin VB.Frame f \r\n" + Repeated("BeginProperty p\r\n", kDepth) +
        Repeated("EndProperty\r\n", kDepth) + "End\r\n"));
}

TEST_F(LargeInput, AFormOfFiveThousandControlsIsReviewed) {
    std::string controls;
    for (int number = 0; number < 5000; ++number) {
        const std::string text = std::to_string(number);
        controls += "   Begin VB.TextBox txt" + text +
                    " \r\n      Height = 285\r\n      Left = " + text +
                    "\r\n      TabIndex = " + text + "\r\n      Top = 1\r\n   End\r\n";
    }
    ReviewForm(Form(controls));
    EXPECT_EQ(Results("SELECT LineNum FROM Violations WHERE Title = 'No DoEvents'"), "2");
}

TEST_F(LargeInput, EventsOfALongLineAreWholeJsonLines) {
    WriteModuleProject("Big", "    s = \"" + std::string(1000000, 'y') + "\"");
    const ProgramResult result = Run({"events", "Big.vbp"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Output, HasSubstr(std::string(1000000, 'y')));
    EXPECT_TRUE(result.Output.ends_with("}\n"));
}

}  // namespace

}  // namespace dorvik::test
