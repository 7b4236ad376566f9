#include "reports/format/HTMLHelper2.h"

#include "reports/format/HtmlTag.h"
#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace dorvik {
namespace {

TEST(HTMLHelper2, StartTagWithoutAttributesHasNoBlankInIt) {
    HTMLHelper2 html;
    html.StartTag("tr");
    html.StartTag("ul", {});
    EXPECT_EQ(html.DocumentText(), "<tr><ul>");
}

TEST(HTMLHelper2, AttributesStandInTheirOrderInDoubleQuotes) {
    HTMLHelper2 html;
    html.StartTag("td", {"align", "left", "colspan", "7", "class", ""});
    EXPECT_EQ(html.DocumentText(), "<td align=\"left\" colspan=\"7\" class=\"\">");
}

TEST(HTMLHelper2, TableCellWithAllThreeAttributesEmptyIsAPlainCell) {
    HTMLHelper2 html;
    html.InsertTableCell("12", "", "", "");
    EXPECT_EQ(html.DocumentText(), "<td>12</td>");
}

TEST(HTMLHelper2, CellAttributesComeAsAlignClassWidth) {
    HTMLHelper2 html;
    html.InsertTableCell("12", "left", "pass", "20%");
    html.InsertTableCell("12", "", "pass");
    html.InsertHyperLinkedTableCell("Total", "#Total", "left", "", "5%");
    EXPECT_EQ(
        html.DocumentText(),
        "<td align=\"left\" class=\"pass\" width=\"20%\">12</td><td class=\"pass\">12</td>"
        "<td align=\"left\" width=\"5%\"><a href=\"#Total\">Total</a></td>");
}

TEST(HTMLHelper2, TableHeadingWithAnEmptyWidthWritesTheWidthWithItsQuotes) {
    HTMLHelper2 html;
    html.InsertTableHeading("Total", "", "");
    html.InsertTableHeading("High", "10%", "high");
    EXPECT_EQ(
        html.DocumentText(), "<th width=\"\">Total</th><th width=\"10%\" class=\"high\">High</th>");
}

TEST(HTMLHelper2, SmallPiecesAddNothingOfTheirOwn) {
    HTMLHelper2 html;
    html.InsertQuickTag("h3", "Contents");
    html.InsertBreak();
    html.InsertHyperlinkedText("#a", "A");
    html.InsertHyperlinkedLI("#b", "B");
    html.TagValue("value");
    html.EndTag("ul");
    EXPECT_EQ(
        html.DocumentText(),
        "<h3>Contents</h3><br><a href=\"#a\">A</a><li><a href=\"#b\">B</a></li>value</ul>");
}

TEST(HTMLHelper2, ABlankLineIsALineEndOfTheText) {
    HTMLHelper2 html;
    html.InsertBlankLine();
    EXPECT_EQ(html.DocumentText(), "\r\n");
}

TEST(HTMLHelper2, NothingIsEscaped) {
    HTMLHelper2 html;
    html.InsertTableCell("a < b & \"c\"");
    EXPECT_EQ(html.DocumentText(), "<td>a < b & \"c\"</td>");
}

TEST(HTMLHelper2, DocumentBeginsAndEndsToTheByte) {
    HTMLHelper2 html;
    html.StartDocument("Title", "<style></style>");
    html.EndDocument();
    EXPECT_EQ(
        html.DocumentText(),
        "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 "
        "Transitional//EN\">\r\n\r\n<html>\r\n<head>\r\n"
        "    <title>Title</title>\r\n    <style></style>\r\n</head>\r\n\r\n<body>\r\n\r\n"
        "</body>\r\n</html>\r\n");
}

TEST(HTMLHelper2, StartDocumentDiscardsWhatWasThere) {
    HTMLHelper2 html;
    html.TagValue("old");
    html.StartDocument("", "");
    EXPECT_THAT(html.DocumentText(), testing::StartsWith("<!DOCTYPE"));
    EXPECT_THAT(html.DocumentText(), testing::Not(testing::HasSubstr("old")));
}

TEST(HTMLHelper2, ATextLongerThanABlockOfTheBuilderGoesInWhole) {
    const test::CapturedLog log;
    const std::string longText = std::string(260000, 'x') + "end";
    HTMLHelper2 html;
    html.StartDocument("", "");
    const std::size_t before = html.DocumentText().size();
    html.TagValue(longText);
    html.TagValue("!");
    EXPECT_EQ(html.DocumentText().substr(before), longText + "!");
    EXPECT_THAT(log.Entries(), testing::IsEmpty());
}

TEST(HtmlTag, EndsWithItsScope) {
    HTMLHelper2 html;
    {
        const HtmlTag row(html, "tr", {"class", "totalsline"});
        const HtmlTag cell(html, "td");
        html.TagValue("1");
    }
    html.InsertBreak();
    EXPECT_EQ(html.DocumentText(), "<tr class=\"totalsline\"><td>1</td></tr><br>");
}

TEST(HtmlTag, AddsNothingAfterAFailure) {
    HTMLHelper2 html;
    try {
        const HtmlTag row(html, "tr");
        throw std::runtime_error("failure");
    } catch (const std::runtime_error&) {
        html.InsertBreak();
    }
    EXPECT_EQ(html.DocumentText(), "<tr><br>");
}

}  // namespace
}  // namespace dorvik
