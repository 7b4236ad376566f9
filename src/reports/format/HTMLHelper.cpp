#include "reports/format/HTMLHelper.h"

#include "base/modText.h"

#include <array>
#include <cstddef>

namespace dorvik {

namespace {

/// Begins a style, or adds a part to one.
void AddToStyle(std::string& style, std::string_view beginning, std::string_view separator) {
    style += style.empty() ? beginning : separator;
}

void AddFont(std::string& style, std::string_view beginning, std::string_view font) {
    AddToStyle(style, beginning, " ");
    style += '"';
    style += font;
    style += '"';
}

std::string PointSize(std::int16_t size) {
    return std::to_string(size) + "pt";
}

std::string HeadingStyle(std::string_view font, std::int16_t size, std::string_view colour) {
    std::string style;
    if (size > 0) {
        style = " STYLE='font: bold " + PointSize(size);
    }
    if (!font.empty()) {
        AddFont(style, " STYLE='font: bold ", font);
    }
    if (!colour.empty()) {
        AddToStyle(style, " STYLE='color: ", "; color: ");
        style += colour;
        style += '\'';
    }
    return style;
}

std::string ParagraphStyle(std::string_view font, std::int16_t size, bool bold) {
    std::string style = bold ? " STYLE='font: bold" : "";
    if (size > 0) {
        AddToStyle(style, " STYLE='font: ", " ");
        style += PointSize(size);
    }
    if (!font.empty()) {
        AddFont(style, " STYLE='font: ", font);
    }
    AddToStyle(style, " STYLE='margin: 0'", "; margin: 0'");
    return style;
}

std::string_view AlignName(std::int32_t align) {
    constexpr std::array<std::string_view, 5> kNames{"", "left", "center", "right", "justify"};
    const bool isKnown = align > 0 && static_cast<std::size_t>(align) < kNames.size();
    return isKnown ? kNames[static_cast<std::size_t>(align)] : std::string_view();
}

}  // namespace

void HTMLHelper::BeginDocument() {
    m_document = "<HTML>";
}

void HTMLHelper::BeginHeader() {
    AddHTML("<HEAD>");
}

void HTMLHelper::SetTitle(std::string_view title) {
    AddHTML("<TITLE>");
    m_document += title;
    m_document += "</TITLE>";
}

void HTMLHelper::EndHeader() {
    AddHTML("</HEAD>");
}

void HTMLHelper::BeginBody() {
    AddHTML("<BODY>");
}

void HTMLHelper::AddHTML(std::string_view text) {
    m_document += modText::kLineEnd;
    m_document += text;
}

void HTMLHelper::AddHeading(
    std::int16_t level,
    std::string_view text,
    std::string_view font,
    std::int16_t size,
    std::string_view colour,
    std::int32_t align) {
    const std::string tag = "H" + std::to_string(level);
    AddHTML("<" + tag + " ALIGN=");
    m_document += AlignName(align);
    m_document += HeadingStyle(font, size, colour);
    m_document += '>';
    m_document += text;
    m_document += "</" + tag + ">";
}

void HTMLHelper::AddParagraph(
    std::string_view text, std::string_view font, std::int16_t size, bool bold) {
    if (text.empty()) {
        m_document += "<P>&nbsp;</P>";
        return;
    }
    m_document += "<P" + ParagraphStyle(font, size, bold) + ">";
    m_document += text;
    m_document += "</P>";
}

void HTMLHelper::StartLabel(std::string_view name) {
    m_document += "<A NAME='";
    m_document += name;
    m_document += "'>";
}

void HTMLHelper::EndLabel() {
    m_document += "</A>";
}

void HTMLHelper::AddBreak() {
    m_document += "<br>";
}

void HTMLHelper::AddHyperlink(std::string_view text, std::string_view url) {
    m_document += "<A HREF='";
    m_document += url;
    m_document += "'>";
    m_document += text;
    m_document += "</A>";
}

void HTMLHelper::EndBody() {
    AddHTML("</BODY>");
}

void HTMLHelper::EndDocument() {
    m_document = "</HTML>";
}

}  // namespace dorvik
