#include "ReportLegend.h"

#include "base/modText.h"
#include "reports/format/modNamedColour.h"

#include <optional>

namespace dorvik {

namespace {

constexpr std::int32_t kNoCategory = -1;

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

void ReportLegend::Load(const SeverityTable& severities, const CategoryList& categories) {
    for (const auto& item : severities) {
        if (const auto severity = SeverityOf(item->SeverityLevel())) {
            m_severities[IndexOf(*severity)] = {
                item->Title(), std::string(LongColourToTextColour(item->Colour()))};
        }
    }
    m_categories.Clear();
    for (std::int32_t index = 1; index <= categories.Count(); ++index) {
        m_categories.Add(categories.Item(index), /*newItem=*/false);
    }
}

std::string_view ReportLegend::LongColourToTextColour(std::int32_t colour) {
    const NamedColour* const named = modNamedColour::ByNumber(colour);
    return named != nullptr ? named->Name : std::string_view();
}

const std::string& ReportLegend::GetSeverityText(std::int32_t number) const {
    static const std::string none;
    const std::optional<Severity> severity = SeverityOf(number);
    return severity ? m_severities[IndexOf(*severity)].Title : none;
}

std::string_view ReportLegend::GetSeverityClass(std::int32_t number) {
    const std::optional<Severity> severity = SeverityOf(number);
    return severity ? kClasses[IndexOf(*severity)] : std::string_view();
}

// Required: a severity without a colour keeps its line, with nothing in place of the name.
std::string ReportLegend::GetStyleSheet() const {
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

std::string ReportLegend::GetCategoryText(std::int32_t categoryId) const {
    if (categoryId == kNoCategory) {
        return "Unallocated";
    }
    const std::string key = CategoryList::CategoryIDToKey(categoryId);
    return m_categories.Contains(key) ? m_categories.Item(key)->Title() : std::string();
}

}  // namespace dorvik
