// The tables of the page.

#include "SourceFileReport.h"
#include "base/modTextCase.h"
#include "reports/classic/ReportsEngine.h"
#include "source/modMemberStats.h"

#include <algorithm>

namespace dorvik {

namespace {

constexpr std::string_view kLeftHeading = "lefttableheading";
constexpr std::string_view kTotalsLine = "totalsline";
constexpr std::string_view kNothing = "-";
constexpr std::int32_t kUntestable = 51;

/// Required: a report takes a negative complexity for one beyond all measure; elsewhere it has no words.
std::int32_t Assessed(std::int32_t complexity) {
    return complexity < 0 ? kUntestable : complexity;
}

bool IsSection(const BasicObject& location) {
    return location.ObjectType.empty();
}

bool IsLayout(const BasicObject& location) {
    return IsSection(location) && modTextCase::Equal(location.Name, "Layout");
}

std::string LabelOf(const BasicObject& location) {
    return IsSection(location) ? location.Name : location.Name + " (" + location.ObjectType + ")";
}

std::string AnchorOf(const BasicObject& location) {
    return IsSection(location) ? location.Name : location.Name + "_" + location.ObjectType;
}

std::string HeadingOf(const BasicObject& location) {
    return IsSection(location) ? location.Name : location.ObjectType + " " + location.Name;
}

}  // namespace

// ---- violations and impacts ----

// Required: the count of violations decides in the table of impacts, too.
bool SourceFileReport::InsertFigureTable(const FigureTable& table) {
    InsertSectionHeading(table.Id, table.Title);
    m_html.StartTag("table", {"cellspacing", "0"});
    if (m_statistics.TotalViolations() == 0) {
        m_html.StartTag("tr");
        m_html.StartTag("td", {"align", "left", "colspan", "7"});
        m_html.TagValue("No Violations");
        m_html.EndTag("td");
        m_html.EndTag("tr");
    } else {
        InsertFigureHeading();
        if (!InsertFigureRows(table)) {
            return false;
        }
        m_html.StartTag("tr", {"class", kTotalsLine});
        m_html.InsertTableCell("TOTALS", "left");
        InsertFigureCells(m_statistics, table);
        m_html.EndTag("tr");
    }
    m_html.EndTag("table");
    return true;
}

void SourceFileReport::InsertFigureHeading() {
    m_html.StartTag("tr");
    m_html.InsertTableHeading("Location", "40%", kLeftHeading);
    for (const Severity severity : kSeverities) {
        const std::int32_t level = NumberOf(severity);
        m_html.InsertTableHeading(
            m_engine.GetSeverityText(level), "10%", ReportsEngine::GetSeverityClass(level));
    }
    m_html.InsertTableHeading("Total", "10%");
    m_html.EndTag("tr");
}

bool SourceFileReport::InsertFigureRows(const FigureTable& table) {
    for (const BasicObject& location : m_procedures) {
        const ViolationStatistics& statistics = FiguresOf(location);
        if ((statistics.*table.Total)() <= 0) {
            continue;
        }
        m_html.StartTag("tr");
        m_html.InsertHyperLinkedTableCell(LabelOf(location), "#" + AnchorOf(location), "left");
        InsertFigureCells(statistics, table);
        m_html.EndTag("tr");
        if (table.RowsAreProgress && !Advance()) {
            return false;
        }
    }
    return true;
}

const ViolationStatistics& SourceFileReport::FiguresOf(const BasicObject& location) const {
    return m_locationStatistics.at(location.ObjectID);
}

void SourceFileReport::InsertFigureCells(
    const ViolationStatistics& statistics, const FigureTable& table) {
    for (const std::int32_t figure : (statistics.*table.BySeverity)()) {
        InsertNumber(figure);
    }
    InsertNumber((statistics.*table.Total)());
}

void SourceFileReport::InsertCategoryTable() {
    auto categories =
        m_results.GetViolationStatsByCategory(m_subject.File.ObjectID, m_isProjectFile);
    m_engine.InsertViolStatsByCatTable(m_html, categories, m_statistics.TotalViolations());
}

// ---- lines and complexity ----

bool SourceFileReport::InsertLineCounts() {
    InsertSectionHeading("LineCountStatistics", "Line Count Statistics");
    m_html.StartTag("table");
    m_html.StartTag("tr");
    m_html.InsertTableHeading("Location", "28%", kLeftHeading);
    for (const std::string_view title : {"Code", "Comment", "In-Line Comment", "Blank"}) {
        m_html.InsertTableHeading(title, "14%");
    }
    m_html.InsertTableHeading("Total", "16%");
    m_html.EndTag("tr");
    for (const BasicObject& location : m_procedures) {
        if (IsLayout(location)) {
            continue;
        }
        m_html.StartTag("tr");
        m_html.InsertTableCell(LabelOf(location));
        InsertLineCountCells(m_results.GetLineStats(ItemType::Procedure, location.ObjectID));
        m_html.EndTag("tr");
        if (!Advance()) {
            return false;
        }
    }
    m_html.StartTag("tr");
    m_html.InsertTableCell("TOTALS");
    InsertLineCountCells(m_results.GetLineStats(ItemType::File, m_subject.File.ObjectID));
    m_html.EndTag("tr");
    m_html.EndTag("table");
    return true;
}

void SourceFileReport::InsertLineCountCells(const SourceLineStatistics& statistics) {
    InsertNumber(statistics.CodeLines());
    InsertNumber(statistics.CommentOnlyLines());
    InsertNumber(statistics.InLineCommentLines());
    InsertNumber(statistics.BlankLines());
    InsertNumber(statistics.TotalLines());
}

bool SourceFileReport::InsertComplexity() {
    ResultsDB::SortBasicObjectList(m_procedures, ResultsDB::kSortByComplexity, false, false);
    InsertSectionHeading("ComplexityMetrics", "Cyclomatic Complexity");
    m_html.StartTag("table");
    m_html.StartTag("tr");
    m_html.InsertTableHeading("Location", "28%", kLeftHeading);
    for (const std::string_view title : {"Complexity", "Test", "Understand", "Modify"}) {
        m_html.InsertTableHeading(title, "18%");
    }
    m_html.EndTag("tr");
    std::int32_t greatest = 0;
    for (const BasicObject& procedure : m_procedures) {
        if (IsSection(procedure)) {
            continue;
        }
        greatest = std::max(greatest, procedure.CyclomaticComplexity);
        InsertComplexityRow(procedure);
        if (!Advance()) {
            return false;
        }
    }
    InsertComplexitySummary("MAXIMUM", greatest);
    InsertComplexitySummary("AVERAGE", m_subject.File.CyclomaticComplexity);
    m_html.EndTag("table");
    m_html.InsertBlankLine();
    return true;
}

void SourceFileReport::InsertComplexityRow(const BasicObject& procedure) {
    const std::int32_t complexity = Assessed(procedure.CyclomaticComplexity);
    m_html.StartTag("tr");
    m_html.InsertTableCell(LabelOf(procedure));
    InsertNumber(procedure.CyclomaticComplexity);
    m_html.InsertTableCell(modMemberStats::CyclomaticComplexityToTestText(complexity));
    m_html.InsertTableCell(modMemberStats::CyclomaticComplexityToUnderstandText(complexity));
    m_html.InsertTableCell(modMemberStats::CyclomaticComplexityToChangeText(complexity));
    m_html.EndTag("tr");
}

void SourceFileReport::InsertComplexitySummary(std::string_view label, std::int32_t complexity) {
    m_html.StartTag("tr", {"class", kTotalsLine});
    m_html.InsertTableCell(label);
    InsertNumber(complexity);
    for (int column = 0; column < 3; ++column) {
        m_html.InsertTableCell(kNothing);
    }
    m_html.EndTag("tr");
}

// ---- violations in full ----

bool SourceFileReport::InsertViolations() {
    ResultsDB::SortBasicObjectList(m_procedures, ResultsDB::kSortByName, true, false);
    InsertSectionHeading("ViolationDetails", "Violation Details");
    m_html.InsertBlankLine();
    if (m_isProjectFile) {
        m_html.StartTag("table", {"cellspacing", "0"});
        return InsertViolationTable(
            "VBP File", m_results.GetVBPFileViolationsList(m_subject.File.ObjectID));
    }
    for (const BasicObject& location : m_procedures) {
        // Not by the figures: a procedure that is written twice has those of one copy only.
        const auto violations = m_results.GetProcedureViolationList(location.ObjectID);
        if (violations.Count() == 0) {
            continue;
        }
        m_html.StartTag("table", {"id", AnchorOf(location), "cellspacing", "0"});
        if (!InsertViolationTable(HeadingOf(location), violations)) {
            return false;
        }
    }
    return true;
}

bool SourceFileReport::InsertViolationTable(
    std::string_view heading, const ResultsDB::ViolationList& list) {
    // Required: neither this row nor the table is ended.
    m_html.StartTag("tr");
    m_html.StartTag("th", {"colspan", "4", "class", kLeftHeading});
    m_html.TagValue(heading);
    m_html.EndTag("th");
    for (std::int32_t index = 1; index <= list.Count(); ++index) {
        m_engine.AddViolation(m_html, *list.Item(index));
        if (!Advance()) {
            return false;
        }
    }
    return true;
}

}  // namespace dorvik
