#pragma once

#include "ReportLegend.h"
#include "ReportTables.h"
#include "reports/format/HTMLHelper2.h"
#include "results/CategoryStatistics.h"
#include "results/ToleranceFailure.h"
#include "results/Violation.h"
#include "rulebase/model/RulebaseLoadCriteria.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

/// The headings and tables that pages share.
namespace dorvik::modReportTables {

/// The heading of a section, to which links within the page lead.
void InsertSectionHeading(HTMLHelper2& html, std::string_view id, std::string_view title);
/// A row of headings, all of the same width.
void InsertHeadings(
    HTMLHelper2& html, std::initializer_list<std::string_view> titles, std::string_view width);
/// The last three cells of a row without figures.
void InsertDashes(HTMLHelper2& html);

void InsertReviewSummaryInfo(HTMLHelper2& html, const ReviewSummaryInfo& info);
/// At project level values and limits are not available, and are omitted.
void InsertToleranceFailures(
    HTMLHelper2& html, const std::vector<ToleranceFailure>& failures, bool isProject);
void InsertViolStatsTable(
    HTMLHelper2& html,
    const ReportLegend& legend,
    const RulebaseLoadCriteria& filter,
    const ViolationStatistics& statistics);
/// Stores the sum of each row as its `TotalViolations`.
void InsertViolStatsByCatTable(
    HTMLHelper2& html,
    const ReportLegend& legend,
    std::vector<CategoryStatistics>& categories,
    std::int32_t totalViolations);
/// The heading cells of the severities and their total.
void InsertSeverityHeadings(HTMLHelper2& html, const ReportLegend& legend);
void InsertSourceLineStatsTable(HTMLHelper2& html, const SourceLineStatistics& statistics);
void InsertReviewCriteriaTable(
    HTMLHelper2& html, const ReportLegend& legend, const ReviewCriteriaInfo& info);
/// The rows of one violation.
void AddViolation(HTMLHelper2& html, const ReportLegend& legend, const Violation& violation);

}  // namespace dorvik::modReportTables
