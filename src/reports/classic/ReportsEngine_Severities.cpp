// The severities as a report shows them, and the style sheet, which holds their colours.

#include "base/modText.h"
#include "reports/classic/ReportsEngine.h"

namespace dorvik {

namespace {

/// By index from 1.
constexpr std::array<std::string_view, 16> kColours{
    "Black",
    "Blue",
    "Aqua",
    "Navy",
    "Teal",
    "Green",
    "Gray",
    "Purple",
    "Maroon",
    "Olive",
    "Lime",
    "Silver",
    "Magenta",
    "Red",
    "White",
    "Yellow"};

/// In the order of `kSeverities`.
constexpr std::array<std::string_view, kSeverities.size()> kClasses{
    "critical", "high", "medium", "low", "information"};

constexpr std::array<std::string_view, 16> kLinesBeforeSeverities{
    "<style type=\"text/css\">",
    "<!--",
    "body {font-family : Verdana; font-size : x-small;}",
    "h1 {text-align : left; color : Green;}",
    "h2 {text-align : left;}",
    "h3 {text-align : left;}",
    "table {font-size : x-small; border : thin ridge; padding : 2px 2px 2px 2px; "
    "margin : 2px 2px 2px 2px; width : 100%;}",
    "th {background-color : Maroon; text-align : center; color : White; border : 1px inset;}",
    "tr {font-weight : bold; text-align : right;}",
    "td {border : 1px inset;}",
    ".totalsline{background-color : #FAFAD2; font-weight : bold;}",
    ".pass{text-align : center; background-color : Lime;}",
    ".fail{text-align : center; background-color : Red;}",
    ".error{text-align : center; background-color : Yellow;}",
    ".violationsheading{background-color : #F4A460; font-weight : bold;}",
    ".lefttableheading{text-align : left;}"};

constexpr std::array<std::string_view, 9> kLinesAfterSeverities{
    ".passtext{background-color : Lime;}",
    ".failtext{background-color : Red;}",
    ".emphasisedtext{font-weight : bold;}",
    ".code{background-color : Blue; color : White;}",
    ".comment{background-color : Lime; color : Black;}",
    ".inlinecomment{background-color : Cyan; color : Black;}",
    ".blank{background-color : White; color : Black;}",
    "-->",
    "</style>"};

template <typename Lines>
void AddLines(std::string& text, const Lines& lines) {
    for (const std::string_view line : lines) {
        text += line;
        text += modText::kLineEnd;
    }
}

}  // namespace

void ReportsEngine::TakeSeverities(const SeverityTable& severities) {
    for (std::int32_t index = 1; index <= severities.Count(); ++index) {
        const SeverityItem& item = *severities.Item(index);
        if (const auto severity = SeverityOf(item.SeverityLevel())) {
            m_severities[IndexOf(*severity)] = {
                item.Title(), std::string(LongColourToTextColour(item.Colour()))};
        }
    }
}

std::string_view ReportsEngine::LongColourToTextColour(std::int32_t colour) {
    const bool isKnown = colour >= 1 && static_cast<std::size_t>(colour) <= kColours.size();
    return isKnown ? kColours[static_cast<std::size_t>(colour) - 1] : std::string_view();
}

const std::string& ReportsEngine::GetSeverityText(std::int32_t level) const {
    static const std::string none;
    const std::optional<Severity> severity = SeverityOf(level);
    return severity ? m_severities[IndexOf(*severity)].Title : none;
}

std::string_view ReportsEngine::GetSeverityClass(std::int32_t level) {
    const std::optional<Severity> severity = SeverityOf(level);
    return severity ? kClasses[IndexOf(*severity)] : std::string_view();
}

// Required: a severity without a colour keeps its line, with nothing in place of the name.
std::string ReportsEngine::GetStyleSheet() const {
    std::string sheet;
    AddLines(sheet, kLinesBeforeSeverities);
    for (const Severity severity : kSeverities) {
        sheet += '.';
        sheet += kClasses[IndexOf(severity)];
        sheet +=
            "{background-color : " + m_severities[IndexOf(severity)].Colour + "; color : Black;}";
        sheet += modText::kLineEnd;
    }
    AddLines(sheet, kLinesAfterSeverities);
    return sheet;
}

}  // namespace dorvik
