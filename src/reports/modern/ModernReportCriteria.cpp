#include "ModernReportData.h"
#include "ModernReportPage.h"
#include "foundation/text/modHtmlText.h"
#include "reports/format/modReportFormat.h"

namespace dorvik::modModernReport {

namespace {

using modHtmlText::Escape;

std::string Figure(std::int32_t figure) {
    return modReportFormat::FormatNumber(figure, 0, /*showZero=*/true);
}

std::string Row(const std::string& label, const std::string& value) {
    return "<tr><th scope=\"row\">" + label + "</th><td>" + value + "</td></tr>\n";
}

std::string Table(std::string_view caption, const std::string& rows) {
    return "<table class=\"criteria\">\n<caption>" + std::string(caption) +
           "</caption>\n<tbody>\n" + rows + "</tbody>\n</table>\n";
}

std::string RulebaseRows(const ReviewData& review) {
    return Row("Title", Escape(review.RulebaseTitle)) +
           Row("Version", Escape(review.RulebaseVersion)) +
           Row("Rules selected", Figure(review.ActiveRules)) +
           Row("Rule executions", Figure(review.RuleExecutions));
}

struct ConventionRow {
    std::string_view Title;
    bool (RulebaseLoadCriteria::*Included)() const;
};

constexpr std::array<ConventionRow, 5> kConventions = {{
    {"Authorised components", &RulebaseLoadCriteria::AuthorisedComponents},
    {"Authorised references", &RulebaseLoadCriteria::AuthorisedReferences},
    {"Coding conventions", &RulebaseLoadCriteria::CodingConventions},
    {"Naming conventions", &RulebaseLoadCriteria::NamingConventions},
    {"Unauthorised keywords", &RulebaseLoadCriteria::UnauthorisedKeywords},
}};

std::string ConventionRows(const RulebaseLoadCriteria& criteria) {
    std::string rows;
    for (const ConventionRow& row : kConventions) {
        rows +=
            Row(std::string(row.Title), (criteria.*row.Included)() ? "included" : "not included");
    }
    return rows;
}

std::string
LimitRows(const ModernReportData& data, const LongArrayList& limits, const std::string& what) {
    std::string rows;
    for (std::int32_t index = 1; index <= ToleranceSettings::kPlaces; ++index) {
        if (limits.Item(index) != ToleranceSettings::kNotSet) {
            const std::optional<Severity> severity = SeverityOf(index);  // none: the total
            std::string label =
                severity ? Escape(data.Severities.at(IndexOf(*severity)).Title) : "Total";
            label.append(" ").append(what);
            rows += Row(label, "at most " + Figure(limits.Item(index)));
        }
    }
    return rows;
}

std::string ToleranceRows(const ModernReportData& data) {
    const ToleranceSettings& tolerances = data.Criteria.Tolerances;
    std::string rows = LimitRows(data, tolerances.Count, "violations in a file") +
                       LimitRows(data, tolerances.Impact, "impact of a file");
    if (tolerances.CyclomaticComplexity != ToleranceSettings::kNotSet) {
        rows +=
            Row("Complexity of a procedure", "at most " + Figure(tolerances.CyclomaticComplexity));
    }
    if (tolerances.PercentageComments != ToleranceSettings::kNotSet) {
        rows +=
            Row("Comments of a file", "at least " + Figure(tolerances.PercentageComments) + "%");
    }
    return rows.empty() ? "<tr><td>No tolerances are set.</td></tr>\n" : rows;
}

std::string CategoryRows(const CategoryList& categories) {
    std::string rows;
    for (std::int32_t index = 1; index <= categories.Count(); ++index) {
        rows += "<tr><td>" + Escape(categories.Item(index)->Title()) + "</td></tr>\n";
    }
    return rows.empty() ? "<tr><td>There are none.</td></tr>\n" : rows;
}

}  // namespace

std::string CriteriaSection(const ModernReportData& data) {
    return "<section id=\"criteria\" aria-labelledby=\"criteria-title\">\n"
           "<h2 id=\"criteria-title\">Review criteria</h2>\n<div class=\"criteria-tables\">\n" +
           Table("Rulebase", RulebaseRows(data.Review)) +
           Table("Rules reviewed", ConventionRows(data.Criteria.LoadCriteria)) +
           Table("Tolerances", ToleranceRows(data)) +
           Table("Categories", CategoryRows(data.Criteria.Lists.Categories)) +
           "</div>\n</section>\n";
}

}  // namespace dorvik::modModernReport
