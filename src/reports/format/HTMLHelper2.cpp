#include "reports/format/HTMLHelper2.h"

#include "base/modText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace dorvik {

namespace {

constexpr std::int32_t kInitialSize = 100000;
constexpr std::int32_t kGrowth = 50000;

}  // namespace

void HTMLHelper2::StartDocument(std::string_view title, std::string_view style) {
    m_builder = StringBuilder();
    m_builder.Initialise(kInitialSize, kGrowth);
    Append("<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\r\n\r\n");
    Append("<html>\r\n<head>\r\n    <title>");
    Append(title);
    Append("</title>\r\n    ");
    Append(style);
    Append("\r\n</head>\r\n\r\n<body>\r\n\r\n");
}

void HTMLHelper2::EndDocument() {
    Append("</body>\r\n</html>\r\n");
}

void HTMLHelper2::StartTag(std::string_view tag, Attributes attributes) {
    Append("<");
    Append(tag);
    for (const auto* name = attributes.begin(); name != attributes.end(); name += 2) {
        AppendAttribute(name[0], name[1]);
    }
    Append(">");
}

void HTMLHelper2::EndTag(std::string_view tag) {
    Append("</");
    Append(tag);
    Append(">");
}

void HTMLHelper2::InsertQuickTag(
    std::string_view tag, std::string_view value, Attributes attributes) {
    StartTag(tag, attributes);
    TagValue(value);
    EndTag(tag);
}

void HTMLHelper2::InsertBreak() {
    Append("<br>");
}

void HTMLHelper2::InsertBlankLine() {
    Append(modText::kLineEnd);
}

void HTMLHelper2::InsertHyperlinkedText(std::string_view href, std::string_view text) {
    InsertQuickTag("a", text, {"href", href});
}

void HTMLHelper2::InsertHyperlinkedLI(std::string_view href, std::string_view text) {
    StartTag("li");
    InsertHyperlinkedText(href, text);
    EndTag("li");
}

void HTMLHelper2::InsertTableHeading(
    std::string_view value, std::string_view width, std::string_view className) {
    if (className.empty()) {
        InsertQuickTag("th", value, {"width", width});
    } else {
        InsertQuickTag("th", value, {"width", width, "class", className});
    }
}

void HTMLHelper2::InsertTableCell(
    std::string_view value,
    std::string_view align,
    std::string_view className,
    std::string_view width) {
    StartTableCellTag(align, className, width);
    TagValue(value);
    EndTag("td");
}

void HTMLHelper2::InsertHyperLinkedTableCell(
    std::string_view value,
    std::string_view href,
    std::string_view align,
    std::string_view className,
    std::string_view width) {
    StartTableCellTag(align, className, width);
    InsertHyperlinkedText(href, value);
    EndTag("td");
}

/// The builder accepts one block at a time, so a longer text is appended in parts.
void HTMLHelper2::Append(std::string_view text) {
    while (!text.empty()) {
        m_builder.Append(text.substr(0, kGrowth));
        text.remove_prefix(std::min<std::size_t>(text.size(), kGrowth));
    }
}

void HTMLHelper2::AppendAttribute(std::string_view name, std::string_view value) {
    Append(" ");
    Append(name);
    Append("=\"");
    Append(value);
    Append("\"");
}

void HTMLHelper2::StartTableCellTag(
    std::string_view align, std::string_view className, std::string_view width) {
    Append("<td");
    if (!align.empty()) {
        AppendAttribute("align", align);
    }
    if (!className.empty()) {
        AppendAttribute("class", className);
    }
    if (!width.empty()) {
        AppendAttribute("width", width);
    }
    Append(">");
}

}  // namespace dorvik
