// The rows of one violation.

#include "modReportTables.h"

#include <array>
#include <cstdio>

namespace dorvik::modReportTables {

namespace {

constexpr std::string_view kNextRow = "</tr><tr>";

/// A cell of these rows; `attributes` follow the alignment and begin with a blank.
void AddCell(std::string& text, std::string_view attributes, std::string_view value) {
    text += "<td align=\"left\"";
    text += attributes;
    text += '>';
    text += value;
    text += "</td>";
}

void AddLabel(std::string& text, std::string_view label) {
    AddCell(text, " width=\"20%\"", label);
}

void AddWideCell(std::string& text, std::string_view value) {
    AddCell(text, " colspan=\"3\"", value);
}

// Required: a title without a number begins with the blank, too.
std::string NumberedTitle(const Violation& violation) {
    std::string text;
    if (violation.RuleID > 0) {
        std::array<char, 16> number{};
        std::snprintf(number.data(), number.size(), "%04d", violation.RuleID);
        text += "<small style='font: 8pt'>[";
        text += number.data();
        text += "]</small>";
    }
    return text + " " + violation.Title;
}

std::string SourceLineLabel(const Violation& violation) {
    std::string label = "Source Line";
    if (violation.SourceLineNumber >= 1) {
        label += " " + std::to_string(violation.SourceLineNumber);
    }
    return label;
}

}  // namespace

void AddViolation(HTMLHelper2& html, const ReportLegend& legend, const Violation& violation) {
    std::string rows = "<tr class=\"violationsheading\">";
    AddLabel(rows, "Violation");
    AddWideCell(rows, NumberedTitle(violation));
    rows += kNextRow;
    AddLabel(rows, "Category");
    AddWideCell(rows, legend.GetCategoryText(violation.CategoryID));
    rows += kNextRow;
    AddLabel(rows, "Severity");
    const std::string severityClass(ReportLegend::GetSeverityClass(violation.Severity));
    AddCell(
        rows,
        " class=\"" + severityClass + "\" width=\"20%\"",
        legend.GetSeverityText(violation.Severity));
    AddLabel(rows, "Impact");
    AddLabel(rows, std::to_string(violation.Impact));
    rows += "</tr>";
    if (!violation.SourceLine.empty()) {
        rows += "<tr>";
        AddCell(rows, "", SourceLineLabel(violation));
        AddWideCell(rows, violation.SourceLine);
        rows += "</tr>";
    }
    rows += "<tr>";
    AddCell(rows, "", "Description");
    AddWideCell(rows, violation.Description);
    rows += kNextRow;
    AddCell(rows, "", "Advice");
    AddWideCell(rows, violation.Advice);
    rows += "</tr>";
    html.TagValue(rows);
}

}  // namespace dorvik::modReportTables
