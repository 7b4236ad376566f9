// The tables of the page.

#include "SourceFileReport.h"
#include "base/modTextCase.h"
#include "modReportTables.h"
#include "reports/format/HtmlTag.h"
#include "results/ListOrder.h"
#include "source/modMemberStats.h"

#include <algorithm>

namespace dorvik {

namespace {

using modReportTables::InsertSectionHeading;

constexpr std::string_view kLeftHeading = "lefttableheading";
constexpr std::string_view kTotalsLine = "totalsline";
constexpr std::int32_t kUntestable = 51;

// Required: pages describe a negative complexity like one above all limits; elsewhere it has no description.
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

// Required: the number of violations decides whether the table of impacts has rows, too.
bool SourceFileReport::InsertFigureTable(const FigureTable& table) {
    InsertSectionHeading(m_html, table.Id, table.Title);
    const HtmlTag element(m_html, "table", {"cellspacing", "0"});
    if (m_statistics.TotalViolations() == 0) {
        const HtmlTag row(m_html, "tr");
        m_html.InsertQuickTag("td", "No Violations", {"align", "left", "colspan", "7"});
        return true;
    }
    InsertFigureHeading();
    if (!InsertFigureRows(table)) {
        return false;
    }
    const HtmlTag totals(m_html, "tr", {"class", kTotalsLine});
    m_html.InsertTableCell("TOTALS", "left");
    InsertFigureCells(m_statistics, table);
    return true;
}

void SourceFileReport::InsertFigureHeading() {
    const HtmlTag row(m_html, "tr");
    m_html.InsertTableHeading("Location", "40%", kLeftHeading);
    modReportTables::InsertSeverityHeadings(m_html, m_context.Legend);
}

bool SourceFileReport::InsertFigureRows(const FigureTable& table) {
    for (const BasicObject& location : m_procedures) {
        const ViolationStatistics& statistics = FiguresOf(location);
        if ((statistics.*table.Total)() <= 0) {
            continue;
        }
        {
            const HtmlTag row(m_html, "tr");
            m_html.InsertHyperLinkedTableCell(LabelOf(location), "#" + AnchorOf(location), "left");
            InsertFigureCells(statistics, table);
        }
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
        m_results.Figures().GetViolationStatsByCategory(m_subject.File.ObjectID, m_isProjectFile);
    modReportTables::InsertViolStatsByCatTable(
        m_html, m_context.Legend, categories, m_statistics.TotalViolations());
}

// ---- lines and complexity ----

bool SourceFileReport::InsertLineCounts() {
    InsertSectionHeading(m_html, "LineCountStatistics", "Line Count Statistics");
    const HtmlTag table(m_html, "table");
    {
        const HtmlTag row(m_html, "tr");
        m_html.InsertTableHeading("Location", "28%", kLeftHeading);
        for (const std::string_view title : {"Code", "Comment", "In-Line Comment", "Blank"}) {
            m_html.InsertTableHeading(title, "14%");
        }
        m_html.InsertTableHeading("Total", "16%");
    }
    for (const BasicObject& location : m_procedures) {
        if (IsLayout(location)) {
            continue;
        }
        InsertLineCountRow(LabelOf(location), ItemType::Procedure, location.ObjectID);
        if (!Advance()) {
            return false;
        }
    }
    InsertLineCountRow("TOTALS", ItemType::File, m_subject.File.ObjectID);
    return true;
}

void SourceFileReport::InsertLineCountRow(
    std::string_view label, ItemType itemType, std::int32_t itemId) {
    const HtmlTag row(m_html, "tr");
    m_html.InsertTableCell(label);
    InsertLineCountCells(m_results.Figures().GetLineStats(itemType, itemId));
}

void SourceFileReport::InsertLineCountCells(const SourceLineStatistics& statistics) {
    InsertNumber(statistics.CodeLines());
    InsertNumber(statistics.CommentOnlyLines());
    InsertNumber(statistics.InLineCommentLines());
    InsertNumber(statistics.BlankLines());
    InsertNumber(statistics.TotalLines());
}

bool SourceFileReport::InsertComplexity() {
    ListOrder::SortBasicObjectList(m_procedures, ListOrder::kSortByComplexity, false, false);
    InsertSectionHeading(m_html, "ComplexityMetrics", "Cyclomatic Complexity");
    {
        const HtmlTag table(m_html, "table");
        if (!InsertComplexityRows()) {
            return false;
        }
    }
    m_html.InsertBlankLine();
    return true;
}

bool SourceFileReport::InsertComplexityRows() {
    {
        const HtmlTag row(m_html, "tr");
        m_html.InsertTableHeading("Location", "28%", kLeftHeading);
        for (const std::string_view title : {"Complexity", "Test", "Understand", "Modify"}) {
            m_html.InsertTableHeading(title, "18%");
        }
    }
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
    return true;
}

void SourceFileReport::InsertComplexityRow(const BasicObject& procedure) {
    const std::int32_t complexity = Assessed(procedure.CyclomaticComplexity);
    const HtmlTag row(m_html, "tr");
    m_html.InsertTableCell(LabelOf(procedure));
    InsertNumber(procedure.CyclomaticComplexity);
    m_html.InsertTableCell(modMemberStats::CyclomaticComplexityToTestText(complexity));
    m_html.InsertTableCell(modMemberStats::CyclomaticComplexityToUnderstandText(complexity));
    m_html.InsertTableCell(modMemberStats::CyclomaticComplexityToChangeText(complexity));
}

void SourceFileReport::InsertComplexitySummary(std::string_view label, std::int32_t complexity) {
    const HtmlTag row(m_html, "tr", {"class", kTotalsLine});
    m_html.InsertTableCell(label);
    InsertNumber(complexity);
    modReportTables::InsertDashes(m_html);
}

// ---- violations in full ----

bool SourceFileReport::InsertViolations() {
    ListOrder::SortBasicObjectList(m_procedures, ListOrder::kSortByName, true, false);
    InsertSectionHeading(m_html, "ViolationDetails", "Violation Details");
    m_html.InsertBlankLine();
    if (m_isProjectFile) {
        m_html.StartTag("table", {"cellspacing", "0"});  // ended by `Build`
        return InsertViolationTable(
            "VBP File", m_results.Violations().GetVBPFileViolationsList(m_subject.File.ObjectID));
    }
    for (const BasicObject& location : m_procedures) {
        // The stored figures do not decide here: two procedures of one name have those of one of them.
        const auto violations = m_results.Violations().GetProcedureViolationList(location.ObjectID);
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
    std::string_view heading, const ViolationReader::ViolationList& list) {
    // Required: neither this row nor the table is ended.
    m_html.StartTag("tr");
    m_html.InsertQuickTag("th", heading, {"colspan", "4", "class", kLeftHeading});
    for (const auto& violation : list) {
        modReportTables::AddViolation(m_html, m_context.Legend, *violation);
        if (!Advance()) {
            return false;
        }
    }
    return true;
}

}  // namespace dorvik
