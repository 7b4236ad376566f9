// The tables that the reports share.

#include "reports/classic/ReportsEngine.h"
#include "reports/format/modReportLinks.h"
#include "settings/ComponentVersion.h"

#include <algorithm>
#include <array>
#include <limits>

namespace dorvik {

namespace {

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
    return ReportsEngine::FormatNumber(static_cast<double>(sum));
}

void InsertSection(HTMLHelper2& html, std::string_view id, std::string_view title) {
    html.StartTag("h3", {"id", id});
    html.TagValue(title);
    html.EndTag("h3");
}

void InsertSummaryRow(HTMLHelper2& html, std::string_view label, std::string_view value) {
    html.StartTag("tr");
    html.InsertTableCell(label, "left", {}, "30%");
    html.InsertTableCell(value, "left", {}, "70%");
    html.EndTag("tr");
}

/// The log opens beside the report, not in its place.
void InsertLogRow(HTMLHelper2& html, const std::string& logFile) {
    html.StartTag("tr");
    html.InsertTableCell("Log File", "left", {}, "30%");
    html.StartTag("td", {"align", "left", "width", "70%"});
    html.StartTag("a", {"href", modReportLinks::HrefOfPath(logFile), "target", "_blank"});
    html.TagValue(modReportLinks::PathText(logFile));
    html.EndTag("a");
    html.EndTag("td");
    html.EndTag("tr");
}

/// A row of the criteria, without widths.
void InsertCriteriaRow(HTMLHelper2& html, std::string_view label, std::string_view value) {
    html.StartTag("tr");
    html.InsertTableCell(label, "left");
    html.InsertTableCell(value);
    html.EndTag("tr");
}

void InsertCriteriaLine(HTMLHelper2& html, std::string_view value) {
    html.StartTag("tr");
    html.StartTag("td", {"colspan", "2"});
    html.TagValue(value);
    html.EndTag("td");
    html.EndTag("tr");
}

void InsertCriteriaGroup(HTMLHelper2& html, std::string_view title) {
    html.StartTag("tr");
    html.StartTag("th", {"class", "lefttableheading", "colspan", "2"});
    html.TagValue(title);
    html.EndTag("th");
    html.EndTag("tr");
}

void InsertRulebaseGroup(HTMLHelper2& html, const ReviewCriteriaInfo& info) {
    const RulebaseLoadCriteria& load = info.LoadCriteria;
    InsertCriteriaGroup(html, "Rulebase");
    html.StartTag("tr");
    html.InsertTableCell("Rulebase Title", "left", {}, "40%");
    html.InsertTableCell(load.RulebaseTitle(), {}, {}, "60%");
    html.EndTag("tr");
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
    // Pages that are made from a database alone do not know how many files the project has.
    const std::string total =
        info.TotalFiles < 0 ? std::string() : " of " + std::to_string(info.TotalFiles);
    return std::to_string(info.ReviewedFiles) + total + " Source Files Reviewed";
}

void InsertRulesAndFiles(HTMLHelper2& html, const ReviewCriteriaInfo& info) {
    if (info.RuleCount == ReviewCriteriaInfo::kNoRuleCount) {
        return;
    }
    InsertCriteriaRow(html, "Rules Selected", ReportsEngine::FormatNumber(info.RuleCount));
    InsertCriteriaRow(
        html, "Rule Execution Count", ReportsEngine::FormatNumber(info.RuleExecutions));
    InsertCriteriaGroup(html, "Source Files");
    InsertCriteriaLine(html, ReviewedFilesText(info));
}

void InsertLimit(HTMLHelper2& html, std::string_view label, std::int32_t limit) {
    InsertCriteriaRow(html, label, ReportsEngine::FormatNumber(limit, 0, true));
}

/// `label` carries over from limit to limit.
// Required: the total has no title of its own, so it gets the label of the limit before it, suffix
// and all.
void InsertLimits(
    HTMLHelper2& html,
    const ReportsEngine& engine,
    const LongArrayList& limits,
    std::string_view suffix,
    std::string& label) {
    for (std::int32_t index = 1; index <= limits.Count(); ++index) {
        if (limits.Item(index) == ToleranceSettings::kNotSet) {
            continue;
        }
        if (SeverityOf(index)) {
            label = engine.GetSeverityText(index);
        }
        label += suffix;
        InsertLimit(html, label, limits.Item(index));
    }
}

void InsertTolerancesGroup(
    HTMLHelper2& html, const ReportsEngine& engine, const ToleranceSettings& tolerances) {
    InsertCriteriaGroup(html, "Tolerances");
    if (!ReportsEngine::TolerancesSet(tolerances)) {
        InsertCriteriaLine(html, "No Tolerances Set");
        return;
    }
    std::string label;
    InsertLimits(html, engine, tolerances.Count, " Violation Count", label);
    InsertLimits(html, engine, tolerances.Impact, " Violation Impact", label);
    if (tolerances.CyclomaticComplexity != ToleranceSettings::kNotSet) {
        InsertLimit(html, "Max Cyclomatic Complexity", tolerances.CyclomaticComplexity);
    }
    if (tolerances.PercentageComments != ToleranceSettings::kNotSet) {
        InsertLimit(html, "Min Percentage Comments", tolerances.PercentageComments);
    }
}

void InsertLineRow(
    HTMLHelper2& html, std::string_view label, std::string_view className, std::string_view count) {
    html.StartTag("tr");
    html.InsertTableCell(label, "left", className);
    html.InsertTableCell(count);
    html.EndTag("tr");
}

}  // namespace

void ReportsEngine::InsertReviewSummaryInfo(HTMLHelper2& html, const ReviewSummaryInfo& info) {
    InsertSection(html, "ReviewSummaryInformation", "Review Summary Information");
    html.StartTag("table", {"cellspacing", "0"});
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
    html.EndTag("table");
}

void ReportsEngine::InsertToleranceFailures(
    HTMLHelper2& html, const std::vector<ToleranceFailure>& failures, bool isProject) {
    InsertSection(html, "ToleranceFailures", "Tolerance Failures");
    if (isProject) {
        for (const ToleranceFailure& failure : failures) {
            html.TagValue(failure.Description);
            html.InsertBreak();
        }
        return;
    }
    html.StartTag("table");
    html.StartTag("tr");
    html.InsertTableHeading("Description", "40%");
    html.InsertTableHeading("Tolerance", "30%");
    html.InsertTableHeading("Actual", "30%");
    html.EndTag("tr");
    for (const ToleranceFailure& failure : failures) {
        html.StartTag("tr");
        html.InsertTableCell(failure.Description, "left");
        html.InsertTableCell(FormatNumber(failure.ToleranceLimit, 0, true));
        html.InsertTableCell(FormatNumber(failure.ToleranceValue, 0, true));
        html.EndTag("tr");
    }
    html.EndTag("table");
}

void ReportsEngine::InsertViolStatsTable(
    HTMLHelper2& html,
    const RulebaseLoadCriteria& filter,
    const ViolationStatistics& statistics) const {
    InsertSection(html, "ViolationStatistics", "Violation Statistics");
    html.StartTag("table");
    html.StartTag("tr");
    html.InsertTableHeading("Severity Level", "40%");
    html.InsertTableHeading("Violations", "30%");
    html.InsertTableHeading("Impact", "30%");
    html.EndTag("tr");
    for (const Severity severity : kSeverities) {
        const std::int32_t level = NumberOf(severity);
        const bool isSelected = filter.SeverityLevel(level);
        html.StartTag("tr");
        html.InsertTableCell(GetSeverityText(level), "left", GetSeverityClass(level));
        html.InsertTableCell(isSelected ? FormatNumber(statistics.Count(severity)) : "N/A");
        html.InsertTableCell(isSelected ? FormatNumber(statistics.Impact(severity)) : "N/A");
        html.EndTag("tr");
    }
    html.StartTag("tr", {"class", "totalsline"});
    html.InsertTableCell("TOTALS");
    html.InsertTableCell(FormatNumber(statistics.TotalViolations()));
    html.InsertTableCell(FormatNumber(statistics.TotalImpact()));
    html.EndTag("tr");
    html.EndTag("table");
}

void ReportsEngine::InsertViolStatsByCatTable(
    HTMLHelper2& html,
    std::vector<CategoryStatistics>& categories,
    std::int32_t totalViolations) const {
    InsertSection(html, "ViolationStatisticsByCategory", "Violation Statistics By Category");
    html.StartTag("table");
    if (totalViolations < 1) {
        html.StartTag("tr");
        html.InsertTableCell("No Violations", "left", {}, "100%");
        html.EndTag("tr");
        html.EndTag("table");
        return;
    }
    html.StartTag("tr");
    html.InsertTableHeading("Category Title", "40%");
    for (const Severity severity : kSeverities) {
        const std::int32_t level = NumberOf(severity);
        html.InsertTableHeading(GetSeverityText(level), "10%", GetSeverityClass(level));
    }
    html.InsertTableHeading("Total", "10%");
    html.EndTag("tr");

    std::array<std::int64_t, kSeverities.size()> sums{};
    std::int64_t sumOfAll = 0;
    for (CategoryStatistics& category : categories) {
        html.StartTag("tr");
        html.InsertTableCell(category.Category, "left");
        std::int64_t sum = 0;
        for (const Severity severity : kSeverities) {
            const std::int32_t count = category.Statistics.Count(severity);
            html.InsertTableCell(FormatNumber(count));
            sum += count;
            sums.at(IndexOf(severity)) += count;
        }
        html.InsertTableCell(Sum(sum));
        html.EndTag("tr");
        category.Statistics.SetTotalViolations(static_cast<std::int32_t>(
            std::min<std::int64_t>(sum, std::numeric_limits<std::int32_t>::max())));
        sumOfAll += sum;
    }
    html.StartTag("tr", {"class", "totalsline"});
    html.InsertTableCell("TOTALS");
    for (const std::int64_t sum : sums) {
        html.InsertTableCell(Sum(sum));
    }
    html.InsertTableCell(Sum(sumOfAll));
    html.EndTag("tr");
    html.EndTag("table");
}

void ReportsEngine::InsertSourceLineStatsTable(
    HTMLHelper2& html, const SourceLineStatistics& statistics) {
    InsertSection(html, "SourceLineStatistics", "Source Line Statistics");
    html.StartTag("table");
    html.StartTag("tr");
    html.InsertTableHeading("Line Type", "40%");
    html.InsertTableHeading("Count", "60%");
    html.EndTag("tr");
    InsertLineRow(html, "Code", "code", FormatNumber(statistics.CodeLines()));
    InsertLineRow(html, "Comment", "comment", FormatNumber(statistics.CommentOnlyLines()));
    // In parentheses, because these lines are counted as code as well.
    InsertLineRow(
        html,
        "In-Line Comment",
        "inlinecomment",
        "(" + FormatNumber(statistics.InLineCommentLines()) + ")");
    InsertLineRow(html, "Blank", "blank", FormatNumber(statistics.BlankLines()));
    html.StartTag("tr", {"class", "totalsline"});
    html.InsertTableCell("TOTAL");
    html.InsertTableCell(FormatNumber(statistics.TotalLines()));
    html.EndTag("tr");
    html.EndTag("table");
}

void ReportsEngine::InsertReviewCriteriaTable(
    HTMLHelper2& html, const ReviewCriteriaInfo& info) const {
    InsertSection(html, "ReviewCriteria", info.Title);
    html.StartTag("table", {"cellspacing", "0"});
    InsertRulebaseGroup(html, info);
    InsertRulesAndFiles(html, info);
    InsertCriteriaGroup(html, "Conventions");
    for (const Convention& convention : kConventions) {
        InsertCriteriaRow(
            html,
            convention.Label,
            (info.LoadCriteria.*convention.IsIncluded)() ? "Included" : "Not Included");
    }
    InsertTolerancesGroup(html, *this, info.Tolerances);
    InsertCriteriaGroup(html, "Categories Included");
    for (std::int32_t index = 1; index <= info.Categories.Count(); ++index) {
        InsertCriteriaLine(html, info.Categories.Item(index)->Title());
    }
    html.EndTag("table");
}

}  // namespace dorvik
