#include "reports/format/HTMLHelper.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(HTMLHelper, APageOfAPanelStandsToTheByte) {
    HTMLHelper html;
    html.AddHTML("dropped");
    html.BeginDocument();
    html.BeginHeader();
    html.SetTitle("Rule");
    html.EndHeader();
    html.BeginBody();
    html.StartLabel("top");
    html.AddHTML("a < b");
    html.EndLabel();
    html.AddBreak();
    html.AddHyperlink("Up", "#top");
    html.EndBody();
    EXPECT_EQ(
        html.Document(),
        "<HTML>\r\n<HEAD>\r\n<TITLE>Rule</TITLE>\r\n</HEAD>\r\n<BODY><A NAME='top'>\r\na < "
        "b</A><br>"
        "<A HREF='#top'>Up</A>\r\n</BODY>");
}

TEST(HTMLHelper, ClearEmptiesTheDocument) {
    HTMLHelper html;
    html.BeginDocument();
    html.Clear();
    EXPECT_EQ(html.Document(), "");
}

TEST(HTMLHelper, EndDocumentReplacesAllThatStoodThere) {
    HTMLHelper html;
    html.BeginDocument();
    html.AddBreak();
    html.EndDocument();
    EXPECT_EQ(html.Document(), "</HTML>");
}

struct HeadingCase {
    const char* Font;
    std::int16_t Size;
    const char* Colour;
    std::int32_t Align;
    const char* Expected;
};

class HTMLHelperHeading : public testing::TestWithParam<HeadingCase> {};

TEST_P(HTMLHelperHeading, HasItsAlignmentAndStyle) {
    HTMLHelper html;
    const HeadingCase& row = GetParam();
    html.AddHeading(2, "Text", row.Font, row.Size, row.Colour, row.Align);
    EXPECT_EQ(html.Document(), std::string("\r\n<H2 ALIGN=") + row.Expected + ">Text</H2>");
}

INSTANTIATE_TEST_SUITE_P(
    All,
    HTMLHelperHeading,
    testing::Values(
        HeadingCase{"", 0, "", 0, ""},
        HeadingCase{"", 0, "", 1, "left"},
        HeadingCase{"", 0, "", 2, "center"},
        HeadingCase{"", 0, "", 3, "right"},
        HeadingCase{"", 0, "", 4, "justify"},
        HeadingCase{"", 0, "", 5, ""},
        HeadingCase{"", 0, "", -1, ""},
        // Without a colour the quote stays open.
        HeadingCase{"", 12, "", 1, "left STYLE='font: bold 12pt"},
        HeadingCase{"Arial", 12, "", 1, "left STYLE='font: bold 12pt \"Arial\""},
        HeadingCase{"Arial", 0, "", 1, "left STYLE='font: bold \"Arial\""},
        HeadingCase{"", 0, "Red", 1, "left STYLE='color: Red'"},
        HeadingCase{"", 12, "Red", 1, "left STYLE='font: bold 12pt; color: Red'"},
        HeadingCase{"Arial", 12, "Red", 1, "left STYLE='font: bold 12pt \"Arial\"; color: Red'"},
        HeadingCase{"Arial", -3, "Red", 1, "left STYLE='font: bold \"Arial\"; color: Red'"}));

struct ParagraphCase {
    const char* Font;
    std::int16_t Size;
    bool Bold;
    const char* Expected;
};

class HTMLHelperParagraph : public testing::TestWithParam<ParagraphCase> {};

TEST_P(HTMLHelperParagraph, HasItsStyleAndNoLineEnd) {
    HTMLHelper html;
    const ParagraphCase& row = GetParam();
    html.AddParagraph("Text", row.Font, row.Size, row.Bold);
    EXPECT_EQ(html.Document(), std::string("<P STYLE='") + row.Expected + "'>Text</P>");
}

INSTANTIATE_TEST_SUITE_P(
    All,
    HTMLHelperParagraph,
    testing::Values(
        ParagraphCase{"", 0, false, "margin: 0"},
        ParagraphCase{"", 0, true, "font: bold; margin: 0"},
        ParagraphCase{"", 8, false, "font: 8pt; margin: 0"},
        ParagraphCase{"", 8, true, "font: bold 8pt; margin: 0"},
        ParagraphCase{"Arial", 0, false, "font: \"Arial\"; margin: 0"},
        ParagraphCase{"Arial", 0, true, "font: bold \"Arial\"; margin: 0"},
        ParagraphCase{"Arial", 8, false, "font: 8pt \"Arial\"; margin: 0"},
        ParagraphCase{"Arial", 8, true, "font: bold 8pt \"Arial\"; margin: 0"}));

TEST(HTMLHelper, AnEmptyParagraphIgnoresFontSizeAndBold) {
    HTMLHelper html;
    html.AddParagraph("", "Arial", 12, true);
    EXPECT_EQ(html.Document(), "<P>&nbsp;</P>");
}

}  // namespace
}  // namespace dorvik
