#pragma once

#include "source/ViolationStatistics.h"

#include <cstdint>
#include <string>

namespace dorvik {

struct ModernReportData;
struct ToleranceFailure;

/// The parts of the interactive page as HTML. They escape every text of the results, once.
namespace modModernReport {

/// The whole document.
std::string Page(const ModernReportData& data);

/// Verdict, missed tolerances and the figures of the review.
std::string SummarySection(const ModernReportData& data);
/// Violations by severity and by category and lines by kind, as tables with bars.
std::string ChartsSection(const ModernReportData& data);
/// The procedures and sections that are worst by complexity and by violations.
std::string HotspotsSection(const ModernReportData& data);
/// The criteria of the review.
std::string CriteriaSection(const ModernReportData& data);

/// The frames of the two tables that the script fills; hidden until it runs.
std::string FilesSection();
std::string ViolationsSection(const ModernReportData& data);

/// The files and violations as JSON that is safe inside a script element: it contains no "<".
std::string DataBlock(const ModernReportData& data);

/// The shapes of the severity levels and the hatchings of the bars, which other elements refer to by number.
std::string SymbolSheet();
/// The shape of a severity, without text.
std::string SeverityShape(Severity severity);
/// The value or the limit of a measure with its unit, if it has one.
std::string MeasureFigure(const ToleranceFailure& measure, std::int32_t figure);
/// A bar of the stacked figures, as wide as their share of `whole`. Hidden from a screen reader, since the figures are
/// also shown as text.
std::string StackedBar(const SeverityFigures& figures, std::int32_t whole);

}  // namespace modModernReport

}  // namespace dorvik
