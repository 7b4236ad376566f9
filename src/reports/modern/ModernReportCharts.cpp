#include "ModernReportData.h"
#include "ModernReportPage.h"
#include "foundation/text/modHtmlText.h"
#include "reports/format/modReportFormat.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace dorvik::modModernReport {

namespace {

using modHtmlText::Escape;
using modReportFormat::FormatNumber;

std::string Figure(std::int32_t figure) {
    return FormatNumber(figure, 0, /*showZero=*/true);
}

std::string Percentage(double part, double whole) {
    constexpr double kHundred = 100;
    const double share = whole > 0 ? part / whole * kHundred : 0;
    return FormatNumber(share, 3, /*showZero=*/true) + "%";
}

std::int32_t SumOf(const SeverityFigures& figures) {
    return std::accumulate(figures.begin(), figures.end(), 0);
}

std::string
SeverityRow(const ModernReportData& data, Severity severity, const SeverityFigures& counts) {
    const ModernSeverity& reviewed = data.Severities.at(IndexOf(severity));
    const std::int32_t count = counts.at(IndexOf(severity));
    const std::int32_t most = *std::max_element(counts.begin(), counts.end());
    SeverityFigures only{};
    only.at(IndexOf(severity)) = count;
    std::string html = "<tr><th scope=\"row\">" + SeverityShape(severity) + " " +
                       Escape(reviewed.Title) + "</th><td class=\"bar-cell\">" +
                       StackedBar(only, most) + "</td>";
    if (!reviewed.Included) {
        return html + "<td class=\"number\" colspan=\"2\">not reviewed</td></tr>\n";
    }
    return html + "<td class=\"number\">" + Figure(count) + "</td><td class=\"number\">" +
           Figure(data.Violations.Impact(severity)) + "</td></tr>\n";
}

std::string SeverityChart(const ModernReportData& data) {
    std::string html = "<figure>\n<figcaption>By severity</figcaption>\n"
                       "<table class=\"chart severity-chart\">\n<thead><tr><th scope=\"col\">"
                       "Severity</th><th scope=\"col\"><span class=\"unseen\">Bar</span></th>"
                       "<th scope=\"col\" class=\"number\">Violations</th>"
                       "<th scope=\"col\" class=\"number\">Impact</th></tr></thead>\n<tbody>\n";
    const SeverityFigures& counts = data.Violations.Counts();
    for (const Severity severity : kSeverities) {
        html += SeverityRow(data, severity, counts);
    }
    return html + "</tbody>\n</table>\n</figure>\n";
}

std::string LineRow(std::string_view kind, std::int32_t count, std::int32_t whole) {
    return "<tr><th scope=\"row\">" + std::string(kind) +
           "</th><td class=\"bar-cell\"><svg class=\"bar\" width=\"100%\" height=\"12\" "
           "aria-hidden=\"true\" focusable=\"false\"><rect class=\"plain\" width=\"" +
           Percentage(count, whole) + "\" height=\"12\"/></svg></td><td class=\"number\">" +
           Figure(count) + "</td></tr>\n";
}

std::string LineChart(const SourceLineStatistics& lines) {
    const std::int32_t whole = lines.TotalLines();
    return "<figure>\n<figcaption>Lines</figcaption>\n<table class=\"chart severity-chart\">\n"
           "<thead><tr><th scope=\"col\">Kind</th><th scope=\"col\">"
           "<span class=\"unseen\">Bar</span></th><th scope=\"col\" class=\"number\">Lines</th>"
           "</tr></thead>\n<tbody>\n" +
           LineRow("Code", lines.CodeLines(), whole) +
           LineRow("Code with a comment", lines.InLineCommentLines(), whole) +
           LineRow("Comment", lines.CommentOnlyLines(), whole) +
           LineRow("Blank", lines.BlankLines(), whole) + "</tbody>\n</table>\n</figure>\n";
}

std::string
CategoryRow(const std::string& title, const SeverityFigures& counts, std::int32_t most) {
    std::string html = "<tr><th scope=\"row\" data-category=\"" + Escape(title) + "\">" +
                       Escape(title) + "</th><td class=\"bar-cell\">" + StackedBar(counts, most) +
                       "</td>";
    for (const std::int32_t count : counts) {
        html += "<td class=\"number" + std::string(count == 0 ? " none" : "") + "\">" +
                Figure(count) + "</td>";
    }
    return html + "<td class=\"number total\">" + Figure(SumOf(counts)) + "</td></tr>\n";
}

std::string CategoryHead(const ModernReportData& data) {
    std::string html = "<thead><tr><th scope=\"col\">Category</th><th scope=\"col\">"
                       "<span class=\"unseen\">Bar</span></th>";
    for (const Severity severity : kSeverities) {
        html += "<th scope=\"col\" class=\"number\">" + SeverityShape(severity) +
                "<span class=\"unseen\">" + Escape(data.Severities.at(IndexOf(severity)).Title) +
                "</span></th>";
    }
    return html + "<th scope=\"col\" class=\"number\">Total</th></tr></thead>\n";
}

std::string CategoryChart(const ModernReportData& data) {
    std::vector<std::pair<std::string, SeverityFigures>> rows;
    for (const CategoryStatistics& category : data.Categories) {
        rows.emplace_back(category.Category, category.Statistics.Counts());
    }
    std::stable_sort(rows.begin(), rows.end(), [](const auto& left, const auto& right) {
        return SumOf(left.second) > SumOf(right.second);
    });
    std::string html = "<figure>\n<figcaption>By category</figcaption>\n"
                       "<table class=\"chart category-chart\">\n" +
                       CategoryHead(data) + "<tbody>\n";
    const std::int32_t most = rows.empty() ? 0 : SumOf(rows.front().second);
    for (const auto& [title, counts] : rows) {
        html += CategoryRow(title, counts, most);
    }
    return html + "</tbody>\n</table>\n</figure>\n";
}

}  // namespace

std::string SymbolSheet() {
    return R"html(<svg class="symbols" width="0" height="0" aria-hidden="true" focusable="false"><defs>
<symbol id="shape-1" viewBox="0 0 16 16"><path d="M5 1h6l4 4v6l-4 4H5l-4-4V5z"/></symbol>
<symbol id="shape-2" viewBox="0 0 16 16"><path d="M8 1l7.5 14H.5z"/></symbol>
<symbol id="shape-3" viewBox="0 0 16 16"><path d="M8 .5L15.5 8 8 15.5.5 8z"/></symbol>
<symbol id="shape-4" viewBox="0 0 16 16"><circle cx="8" cy="8" r="6"/></symbol>
<symbol id="shape-5" viewBox="0 0 16 16"><circle cx="8" cy="8" r="5" fill="none" stroke="currentColor" stroke-width="2.5"/></symbol>
<pattern id="hatch-2" width="6" height="6" patternUnits="userSpaceOnUse" patternTransform="rotate(45)"><path d="M0 0V6"/></pattern>
<pattern id="hatch-3" width="6" height="6" patternUnits="userSpaceOnUse"><circle cx="3" cy="3" r="1.1"/></pattern>
<pattern id="hatch-4" width="6" height="5" patternUnits="userSpaceOnUse"><path d="M0 2.5H6"/></pattern>
<pattern id="hatch-5" width="5" height="6" patternUnits="userSpaceOnUse"><path d="M2.5 0V6"/></pattern>
</defs></svg>
)html";
}

std::string SeverityShape(Severity severity) {
    const std::string level = std::to_string(NumberOf(severity));
    return "<svg class=\"shape level-" + level +
           "\" aria-hidden=\"true\" focusable=\"false\"><use href=\"#shape-" + level + "\"/></svg>";
}

std::string StackedBar(const SeverityFigures& figures, std::int32_t whole) {
    std::string html = "<svg class=\"bar\" width=\"100%\" height=\"12\" aria-hidden=\"true\" "
                       "focusable=\"false\">";
    std::int32_t before = 0;
    for (const Severity severity : kSeverities) {
        const std::int32_t figure = figures.at(IndexOf(severity));
        if (figure > 0 && whole > 0) {
            const std::string level = std::to_string(NumberOf(severity));
            const std::string box = "x=\"" + Percentage(before, whole) + "\" width=\"" +
                                    Percentage(figure, whole) + "\" height=\"12\"";
            html += "<rect class=\"level-" + level + "\" " + box + "/>";
            if (severity != Severity::Critical) {
                html += "<rect " + box + " fill=\"url(#hatch-" + level + ")\"/>";
            }
        }
        before += figure;
    }
    return html + "</svg>";
}

std::string ChartsSection(const ModernReportData& data) {
    return "<section id=\"charts\" aria-labelledby=\"charts-title\">\n"
           "<h2 id=\"charts-title\">At a glance</h2>\n<div class=\"charts\">\n"
           "<div>" +
           SeverityChart(data) + LineChart(data.Lines) + "</div>\n" + CategoryChart(data) +
           "</div>\n</section>\n";
}

}  // namespace dorvik::modModernReport
