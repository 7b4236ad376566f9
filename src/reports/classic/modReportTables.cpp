#include "modReportTables.h"

#include "reports/format/HtmlTag.h"
#include "reports/format/modReportFormat.h"
#include "reports/format/modReportLinks.h"
#include "settings/ComponentVersion.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <limits>

namespace dorvik::modReportTables {

namespace {

using modReportFormat::FormatNumber;

struct Convention {
    std::string_view Label;
    bool (RulebaseLoadCriteria::*IsIncluded)() const;
};

/// Required: the documentation conventions are not among them.
constexpr std::array<Convention, 5> kConventions = {{
    {"Authorised Components", &RulebaseLoadCriteria::AuthorisedComponents},
    {"Authorised References", &RulebaseLoadCriteria::AuthorisedReferences},
    {"Coding Conventions", &RulebaseLoadCriteria::CodingConventions},
    {"Naming Conventions", &RulebaseLoadCriteria::NamingConventions},
    {"Unauthorised Keywords", &RulebaseLoadCriteria::UnauthorisedKeywords},
}};

constexpr std::string_view kNotKnown = "Not known";

std::string Sum(std::int64_t sum) {
    return FormatNumber(static_cast<double>(sum));
}

void InsertSummaryRow(HTMLHelper2& html, std::string_view label, std::string_view value) {
    const HtmlTag row(html, "tr");
    html.InsertTableCell(label, "left", {}, "30%");
    html.InsertTableCell(value, "left", {}, "70%");
}

/// The link opens the log in a window of its own.
void InsertLogRow(HTMLHelper2& html, const std::string& logFile) {
    const HtmlTag row(html, "tr");
    html.InsertTableCell("Log File", "left", {}, "30%");
    const HtmlTag cell(html, "td", {"align", "left", "width", "70%"});
    html.InsertQuickTag(
        "a",
        modReportLinks::PathText(logFile),
        {"href", modReportLinks::HrefOfPath(logFile), "target", "_blank"});
}

/// A row of the criteria, without widths.
void InsertCriteriaRow(HTMLHelper2& html, std::string_view label, std::string_view value) {
    const HtmlTag row(html, "tr");
    html.InsertTableCell(label, "left");
    html.InsertTableCell(value);
}

void InsertCriteriaLine(HTMLHelper2& html, std::string_view value) {
    const HtmlTag row(html, "tr");
    html.InsertQuickTag("td", value, {"colspan", "2"});
}

void InsertCriteriaGroup(HTMLHelper2& html, std::string_view title) {
    const HtmlTag row(html, "tr");
    html.InsertQuickTag("th", title, {"class", "lefttableheading", "colspan", "2"});
}

void InsertRulebaseGroup(HTMLHelper2& html, const ReviewCriteriaInfo& info) {
    const RulebaseLoadCriteria& load = info.LoadCriteria;
    InsertCriteriaGroup(html, "Rulebase");
    {
        const HtmlTag row(html, "tr");
        html.InsertTableCell("Rulebase Title", "left", {}, "40%");
        html.InsertTableCell(load.RulebaseTitle(), {}, {}, "60%");
    }
    InsertCriteriaRow(html, "Rulebase Version", load.RulebaseVersion());
    InsertCriteriaRow(
        html,
        "Rulebase Filename",
        load.RulebaseFile().empty() ? std::string(kNotKnown)
                                    : modReportLinks::PathText(load.RulebaseFile()));
    InsertCriteriaRow(
        html,
        "Rule Engine",
        info.RuleEngine.empty() ? "Dorvik Rule Engine " + ComponentVersion() : info.RuleEngine);
}

std::string ReviewedFilesText(const ReviewCriteriaInfo& info) {
    if (info.ReviewedFiles == info.TotalFiles) {
        return "All Source Files";
    }
    // The number of files of the project is unknown if pages are made from a database alone.
    const std::string total =
        info.TotalFiles < 0 ? std::string() : " of " + std::to_string(info.TotalFiles);
    return std::to_string(info.ReviewedFiles) + total + " Source Files Reviewed";
}

void InsertRulesAndFiles(HTMLHelper2& html, const ReviewCriteriaInfo& info) {
    if (info.RuleCount == ReviewCriteriaInfo::kNoRuleCount) {
        return;
    }
    InsertCriteriaRow(html, "Rules Selected", FormatNumber(info.RuleCount));
    InsertCriteriaRow(html, "Rule Execution Count", FormatNumber(info.RuleExecutions));
    InsertCriteriaGroup(html, "Source Files");
    InsertCriteriaLine(html, ReviewedFilesText(info));
}

void InsertLimit(HTMLHelper2& html, std::string_view label, std::int32_t limit) {
    InsertCriteriaRow(html, label, FormatNumber(limit, 0, true));
}

/// `label` keeps its value from limit to limit.
// Required: the total has no title of its own, so it gets the label of the limit before it, including the
// suffix.
void InsertLimits(
    HTMLHelper2& html,
    const ReportLegend& legend,
    const LongArrayList& limits,
    std::string_view suffix,
    std::string& label) {
    for (std::int32_t index = 1; index <= limits.Count(); ++index) {
        if (limits.Item(index) == ToleranceSettings::kNotSet) {
            continue;
        }
        if (SeverityOf(index)) {
            label = legend.GetSeverityText(index);
        }
        label += suffix;
        InsertLimit(html, label, limits.Item(index));
    }
}

void InsertTolerancesGroup(
    HTMLHelper2& html, const ReportLegend& legend, const ToleranceSettings& tolerances) {
    InsertCriteriaGroup(html, "Tolerances");
    if (!tolerances.IsAnySet()) {
        InsertCriteriaLine(html, "No Tolerances Set");
        return;
    }
    std::string label;
    InsertLimits(html, legend, tolerances.Count, " Violation Count", label);
    InsertLimits(html, legend, tolerances.Impact, " Violation Impact", label);
    if (tolerances.CyclomaticComplexity != ToleranceSettings::kNotSet) {
        InsertLimit(html, "Max Cyclomatic Complexity", tolerances.CyclomaticComplexity);
    }
    if (tolerances.PercentageComments != ToleranceSettings::kNotSet) {
        InsertLimit(html, "Min Percentage Comments", tolerances.PercentageComments);
    }
}

void InsertLineRow(
    HTMLHelper2& html, std::string_view label, std::string_view className, std::string_view count) {
    const HtmlTag row(html, "tr");
    html.InsertTableCell(label, "left", className);
    html.InsertTableCell(count);
}

struct Heading {
    std::string_view Title;
    std::string_view Width;
};

void InsertWideHeadings(HTMLHelper2& html, std::initializer_list<Heading> headings) {
    const HtmlTag row(html, "tr");
    for (const Heading& heading : headings) {
        html.InsertTableHeading(heading.Title, heading.Width);
    }
}

void InsertSeverityRow(
    HTMLHelper2& html,
    const ReportLegend& legend,
    std::int32_t severity,
    std::string_view count,
    std::string_view impact) {
    const HtmlTag row(html, "tr");
    html.InsertTableCell(
        legend.GetSeverityText(severity), "left", ReportLegend::GetSeverityClass(severity));
    html.InsertTableCell(count);
    html.InsertTableCell(impact);
}

/// The sums of the columns of the categories, which may need more than 32 bits.
struct CategorySums {
    std::array<std::int64_t, kSeverities.size()> BySeverity{};
    std::int64_t Total = 0;
};

void InsertCategoryRow(HTMLHelper2& html, CategoryStatistics& category, CategorySums& sums) {
    const HtmlTag row(html, "tr");
    html.InsertTableCell(category.Category, "left");
    std::int64_t sum = 0;
    for (const Severity severity : kSeverities) {
        const std::int32_t count = category.Statistics.Count(severity);
        html.InsertTableCell(FormatNumber(count));
        sum += count;
        sums.BySeverity.at(IndexOf(severity)) += count;
    }
    html.InsertTableCell(Sum(sum));
    category.Statistics.SetTotalViolations(static_cast<std::int32_t>(
        std::min<std::int64_t>(sum, std::numeric_limits<std::int32_t>::max())));
    sums.Total += sum;
}

}  // namespace

void InsertSectionHeading(HTMLHelper2& html, std::string_view id, std::string_view title) {
    html.InsertQuickTag("h3", title, {"id", id});
}

void InsertHeadings(
    HTMLHelper2& html, std::initializer_list<std::string_view> titles, std::string_view width) {
    const HtmlTag row(html, "tr");
    for (const std::string_view title : titles) {
        html.InsertTableHeading(title, width);
    }
}

void InsertDashes(HTMLHelper2& html) {
    for (int column = 0; column < 3; ++column) {
        html.InsertTableCell("-");
    }
}

void InsertReviewSummaryInfo(HTMLHelper2& html, const ReviewSummaryInfo& info) {
    InsertSectionHeading(html, "ReviewSummaryInformation", "Review Summary Information");
    const HtmlTag table(html, "table", {"cellspacing", "0"});
    InsertSummaryRow(html, info.Heading, info.Value);
    if (!info.LogFile.empty()) {
        InsertLogRow(html, info.LogFile);
    }
    InsertSummaryRow(html, "Reviewed By", info.ReviewedBy);
    InsertSummaryRow(html, "Review Start", info.ReviewStart);
    InsertSummaryRow(html, "Review End", info.ReviewEnd);
    InsertSummaryRow(html, "Review Duration", info.ReviewDuration);
    if (!info.SourceFilesReviewed.empty()) {
        InsertSummaryRow(html, "Source Files Reviewed", info.SourceFilesReviewed);
        InsertSummaryRow(html, "Total Source Lines", info.TotalSourceLines);
        InsertSummaryRow(html, "Total Violations", info.TotalViolations);
        InsertSummaryRow(html, "Total Impact", info.TotalImpact);
        InsertSummaryRow(html, "Violations/Source Lines Ratio", info.ViolationsRatio);
        InsertSummaryRow(html, "Percentage Comments", info.PercentageComments);
    }
}

void InsertToleranceFailures(
    HTMLHelper2& html, const std::vector<ToleranceFailure>& failures, bool isProject) {
    InsertSectionHeading(html, "ToleranceFailures", "Tolerance Failures");
    if (isProject) {
        for (const ToleranceFailure& failure : failures) {
            html.TagValue(failure.Description);
            html.InsertBreak();
        }
        return;
    }
    const HtmlTag table(html, "table");
    InsertWideHeadings(html, {{"Description", "40%"}, {"Tolerance", "30%"}, {"Actual", "30%"}});
    for (const ToleranceFailure& failure : failures) {
        const HtmlTag row(html, "tr");
        html.InsertTableCell(failure.Description, "left");
        html.InsertTableCell(FormatNumber(failure.ToleranceLimit, 0, true));
        html.InsertTableCell(FormatNumber(failure.ToleranceValue, 0, true));
    }
}

void InsertViolStatsTable(
    HTMLHelper2& html,
    const ReportLegend& legend,
    const RulebaseLoadCriteria& filter,
    const ViolationStatistics& statistics) {
    InsertSectionHeading(html, "ViolationStatistics", "Violation Statistics");
    const HtmlTag table(html, "table");
    InsertWideHeadings(html, {{"Severity Level", "40%"}, {"Violations", "30%"}, {"Impact", "30%"}});
    for (const Severity severity : kSeverities) {
        const bool isSelected = filter.SeverityLevel(NumberOf(severity));
        InsertSeverityRow(
            html,
            legend,
            NumberOf(severity),
            isSelected ? FormatNumber(statistics.Count(severity)) : "N/A",
            isSelected ? FormatNumber(statistics.Impact(severity)) : "N/A");
    }
    const HtmlTag totals(html, "tr", {"class", "totalsline"});
    html.InsertTableCell("TOTALS");
    html.InsertTableCell(FormatNumber(statistics.TotalViolations()));
    html.InsertTableCell(FormatNumber(statistics.TotalImpact()));
}

void InsertSeverityHeadings(HTMLHelper2& html, const ReportLegend& legend) {
    for (const Severity severity : kSeverities) {
        const std::int32_t number = NumberOf(severity);
        html.InsertTableHeading(
            legend.GetSeverityText(number), "10%", ReportLegend::GetSeverityClass(number));
    }
    html.InsertTableHeading("Total", "10%");
}

void InsertViolStatsByCatTable(
    HTMLHelper2& html,
    const ReportLegend& legend,
    std::vector<CategoryStatistics>& categories,
    std::int32_t totalViolations) {
    InsertSectionHeading(html, "ViolationStatisticsByCategory", "Violation Statistics By Category");
    const HtmlTag table(html, "table");
    if (totalViolations < 1) {
        const HtmlTag row(html, "tr");
        html.InsertTableCell("No Violations", "left", {}, "100%");
        return;
    }
    {
        const HtmlTag headings(html, "tr");
        html.InsertTableHeading("Category Title", "40%");
        InsertSeverityHeadings(html, legend);
    }
    CategorySums sums;
    for (CategoryStatistics& category : categories) {
        InsertCategoryRow(html, category, sums);
    }
    const HtmlTag totals(html, "tr", {"class", "totalsline"});
    html.InsertTableCell("TOTALS");
    for (const std::int64_t sum : sums.BySeverity) {
        html.InsertTableCell(Sum(sum));
    }
    html.InsertTableCell(Sum(sums.Total));
}

void InsertSourceLineStatsTable(HTMLHelper2& html, const SourceLineStatistics& statistics) {
    InsertSectionHeading(html, "SourceLineStatistics", "Source Line Statistics");
    const HtmlTag table(html, "table");
    InsertWideHeadings(html, {{"Line Type", "40%"}, {"Count", "60%"}});
    InsertLineRow(html, "Code", "code", FormatNumber(statistics.CodeLines()));
    InsertLineRow(html, "Comment", "comment", FormatNumber(statistics.CommentOnlyLines()));
    // In parentheses, because these lines are counted as code as well.
    InsertLineRow(
        html,
        "In-Line Comment",
        "inlinecomment",
        "(" + FormatNumber(statistics.InLineCommentLines()) + ")");
    InsertLineRow(html, "Blank", "blank", FormatNumber(statistics.BlankLines()));
    const HtmlTag totals(html, "tr", {"class", "totalsline"});
    html.InsertTableCell("TOTAL");
    html.InsertTableCell(FormatNumber(statistics.TotalLines()));
}

void InsertReviewCriteriaTable(
    HTMLHelper2& html, const ReportLegend& legend, const ReviewCriteriaInfo& info) {
    InsertSectionHeading(html, "ReviewCriteria", info.Title);
    const HtmlTag table(html, "table", {"cellspacing", "0"});
    InsertRulebaseGroup(html, info);
    InsertRulesAndFiles(html, info);
    InsertCriteriaGroup(html, "Conventions");
    for (const Convention& convention : kConventions) {
        InsertCriteriaRow(
            html,
            convention.Label,
            (info.LoadCriteria.*convention.IsIncluded)() ? "Included" : "Not Included");
    }
    InsertTolerancesGroup(html, legend, info.Tolerances);
    InsertCriteriaGroup(html, "Categories Included");
    for (std::int32_t index = 1; index <= info.Categories.Count(); ++index) {
        InsertCriteriaLine(html, info.Categories.Item(index)->Title());
    }
}

}  // namespace dorvik::modReportTables
