#include "modViolationDocument.h"

#include "reports/format/HTMLHelper.h"
#include "source/Location.h"

#include <cstdint>

namespace dorvik::modViolationDocument {

namespace {

constexpr std::string_view kFont = "Tahoma";
constexpr std::int16_t kFontSize = 9;
constexpr std::size_t kRuleIdDigits = 4;
constexpr std::string_view kSmall = "<SMALL STYLE='font: bold 8pt'>";
constexpr std::string_view kEndSmall = "</SMALL>";

std::string WithZeros(std::int32_t number) {
    std::string text = std::to_string(number);
    text.insert(0, text.size() < kRuleIdDigits ? kRuleIdDigits - text.size() : 0, '0');
    return text;
}

void AddRule(HTMLHelper& html, std::int32_t ruleId, std::string_view category) {
    std::string text(kSmall);
    if (ruleId > 0) {
        text += "[" + WithZeros(ruleId) + "]";
    } else if (category.empty()) {
        return;
    }
    text += category;
    text += kEndSmall;
    html.AddHTML(text);
}

void AddTitle(HTMLHelper& html, std::string_view severity, std::string_view title) {
    std::string text = "<H3 ALIGN=left STYLE='font: bold 12pt \"";
    text.append(kFont).append("\"; color: #c33'>");
    text.append(severity).append(" ").append(title).append("</H3>");
    html.AddHTML(text);
}

void AddPart(HTMLHelper& html, std::string_view heading, std::string_view text) {
    html.AddParagraph(heading, kFont, kFontSize, true);
    html.AddParagraph(text, kFont, kFontSize, false);
}

}  // namespace

std::string ViolationDocument(
    const Violation& violation, std::string_view category, std::string_view severity) {
    HTMLHelper html;
    AddRule(html, violation.RuleID, category);
    AddTitle(html, severity, violation.Title);
    if (!violation.SourceLine.empty()) {
        AddPart(html, "Source Line:", violation.SourceLine);
        html.AddBreak();
    }
    if (static_cast<Location>(violation.Location) == Location::Control) {
        AddPart(html, "Control:", violation.LocationMember);
        html.AddBreak();
    }
    AddPart(html, "Description:", violation.Description);
    html.AddBreak();
    AddPart(html, "Advice:", violation.Advice);
    return html.Document();
}

}  // namespace dorvik::modViolationDocument
