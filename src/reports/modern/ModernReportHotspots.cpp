#include "ModernReportData.h"
#include "ModernReportPage.h"
#include "foundation/text/modHtmlText.h"
#include "reports/format/modReportFormat.h"
#include "source/modMemberStats.h"

#include <algorithm>

namespace dorvik::modModernReport {

namespace {

using modHtmlText::Escape;
using Procedures = std::vector<const ModernProcedure*>;

constexpr std::size_t kShown = 10;

std::string Figure(std::int32_t figure) {
    return modReportFormat::FormatNumber(figure, 0, /*showZero=*/true);
}

/// The first of the procedures with a figure, in descending order; equal ones in the order of the database.
template <typename Key>
Procedures Worst(const ModernReportData& data, Key key) {
    Procedures found;
    for (const ModernProcedure& procedure : data.Procedures) {
        if (key(procedure).first > 0) {
            found.push_back(&procedure);
        }
    }
    std::stable_sort(found.begin(), found.end(), [&](const auto* left, const auto* right) {
        return key(*left) > key(*right);
    });
    found.resize(std::min(found.size(), kShown));
    return found;
}

std::string NameCell(const ModernReportData& data, const ModernProcedure& procedure) {
    return "<th scope=\"row\" data-procedure=\"" + std::to_string(procedure.ID) +
           "\"><span class=\"name\">" + Escape(procedure.Name) + "</span> <span class=\"note\">" +
           Escape(data.Files.at(procedure.File).Filename) + "</span></th>";
}

std::string Figures(std::string_view caption, std::string_view head, const std::string& rows) {
    std::string html = "<figure>\n<figcaption>" + std::string(caption) + "</figcaption>\n";
    if (rows.empty()) {
        return html + "<p class=\"note\">There are none.</p>\n</figure>\n";
    }
    return html + "<table class=\"chart hotspot-chart\">\n<thead><tr>" + std::string(head) +
           "</tr></thead>\n<tbody>\n" + rows + "</tbody>\n</table>\n</figure>\n";
}

std::string ByComplexity(const ModernReportData& data) {
    const Procedures worst = Worst(data, [](const ModernProcedure& procedure) {
        return std::pair(procedure.IsSection ? 0 : procedure.Complexity, 0);
    });
    std::string rows;
    for (const ModernProcedure* procedure : worst) {
        const std::int32_t complexity = procedure->Complexity;
        rows += "<tr>" + NameCell(data, *procedure) + "<td class=\"number\">" + Figure(complexity) +
                "</td><td>" +
                std::string(modMemberStats::CyclomaticComplexityToChangeText(complexity)) +
                "</td></tr>\n";
    }
    return Figures(
        "By complexity",
        "<th scope=\"col\">Procedure</th><th scope=\"col\" class=\"number\">Complexity</th>"
        "<th scope=\"col\">To modify</th>",
        rows);
}

std::string ByViolations(const ModernReportData& data) {
    const Procedures worst = Worst(data, [](const ModernProcedure& procedure) {
        return std::pair(procedure.TotalViolations, procedure.TotalImpact);
    });
    std::string rows;
    for (const ModernProcedure* procedure : worst) {
        rows += "<tr>" + NameCell(data, *procedure) + "<td class=\"number\">" +
                Figure(procedure->TotalViolations) + "</td><td class=\"bar-cell\">" +
                StackedBar(procedure->Violations, worst.front()->TotalViolations) + "</td></tr>\n";
    }
    return Figures(
        "By violations",
        "<th scope=\"col\">Procedure or section</th>"
        "<th scope=\"col\" class=\"number\">Violations</th>"
        "<th scope=\"col\"><span class=\"unseen\">Bar</span></th>",
        rows);
}

}  // namespace

std::string HotspotsSection(const ModernReportData& data) {
    return "<section id=\"hotspots\" aria-labelledby=\"hotspots-title\">\n"
           "<h2 id=\"hotspots-title\">Hotspots</h2>\n<div class=\"charts\">\n" +
           ByComplexity(data) + ByViolations(data) + "</div>\n</section>\n";
}

}  // namespace dorvik::modModernReport
