#pragma once

#include "source/ViolationStatistics.h"

#include <cstdint>
#include <string>

namespace dorvik {

struct ModernReportData;
struct ToleranceFailure;

/// The parts of the modern report's page, each a function that gives its HTML. Every text that comes
/// from the results is escaped here, once.
namespace modModernReport {

/// The whole document.
std::string Page(const ModernReportData& data);

/// Verdict, missed tolerances and the figures of the review.
std::string SummarySection(const ModernReportData& data);
/// Violations by severity and by category and lines by kind, as tables with bars.
std::string ChartsSection(const ModernReportData& data);
/// The procedures and sections that are worst by complexity and by violations.
std::string HotspotsSection(const ModernReportData& data);
/// What the review was asked to do.
std::string CriteriaSection(const ModernReportData& data);

/// The frames of the two tables that the script fills; hidden until it has.
std::string FilesSection();
std::string ViolationsSection(const ModernReportData& data);

/// The files and violations as JSON that may stand in a script element: no "<" in it.
std::string DataBlock(const ModernReportData& data);

/// The shapes of the severity levels and the hatchings of the bars, to be used by number.
std::string SymbolSheet();
/// The shape of a severity, without words.
std::string SeverityShape(Severity severity);
/// The value or the limit of a measure with its unit, if it has one.
std::string MeasureFigure(const ToleranceFailure& measure, std::int32_t figure);
/// A bar of the stacked figures, as wide as their part of `whole`. Hidden from a screen reader, since
/// the figures are shown as text too.
std::string StackedBar(const SeverityFigures& figures, std::int32_t whole);

}  // namespace modModernReport

}  // namespace dorvik
