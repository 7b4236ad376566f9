#include "HotspotView.h"

#include "foundation/log/Trap.h"
#include "modSourceItems.h"
#include "reports/format/modReportFormat.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "source/modDorvikUtils.h"
#include "source/modMemberStats.h"

#include <array>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "ResultsView";
constexpr std::string_view kNotAvailable = "N/A";
constexpr std::size_t kFiguresNotAvailable = 6;
constexpr std::size_t kPaddedWidth = 14;        // room for a 32-bit number with its separators
constexpr std::int16_t kSettingDescending = 1;  // the setting `HVSortOrder`

struct HeaderRow {
    std::string_view Text;
    ColumnAlignment Alignment;
};

constexpr std::array<HeaderRow, 9> kHeaders = {{
    {"Source Files", ColumnAlignment::Left},
    {"Violations", ColumnAlignment::Right},
    {"Impact", ColumnAlignment::Right},
    {"Lines", ColumnAlignment::Right},
    {"%Comments", ColumnAlignment::Right},
    {"Complexity", ColumnAlignment::Right},
    {"Test", ColumnAlignment::Left},
    {"Understand", ColumnAlignment::Left},
    {"Modify", ColumnAlignment::Left},
}};

/// Of one width, so that the order of the texts is that of the numbers. Any other text comes after all numbers.
std::string Padded(std::string text) {
    text.insert(0, text.size() < kPaddedWidth ? kPaddedWidth - text.size() : 0, ' ');
    return text;
}

std::string PaddedNumber(std::int32_t number) {
    return Padded(modReportFormat::FormatNumber(number, 0, true));
}

/// Halves are rounded up.
std::string CommentPercentage(const SourceLineStatistics& lines) {
    const std::int64_t comments =
        std::int64_t{lines.CommentOnlyLines()} + lines.InLineCommentLines();
    const std::int64_t base = comments + lines.CodeLines();
    const std::int64_t percentage = base < 1 ? 0 : (comments * 200 + base) / (base * 2);
    return Padded(std::to_string(percentage) + "%");
}

void AddCell(ListRow& row, std::string_view text) {
    row.Cells.push_back({std::string(text)});
}

}  // namespace

// ---- columns ----

void HotspotView::SetupListView() {
    const DVKWorkData& settings = modGlobal::WorkData();
    std::vector<ListColumn> columns;
    for (const HeaderRow& header : kHeaders) {
        const auto index = static_cast<std::int32_t>(columns.size()) + 1;
        columns.push_back(
            {std::string(header.Text), header.Alignment, "", settings.HVColWidth.Item(index)});
    }
    m_controls.Hotspots.SetColumns(std::move(columns));
    const auto column = static_cast<std::size_t>(settings.HVSortCol);
    m_sortColumn = column < kHeaders.size() ? column : 0;
    m_descending = settings.HVSortOrder == kSettingDescending;
    SortRows();
    m_onColumn = m_controls.Hotspots.ColumnClicked.Subscribe(
        [this](std::size_t clicked) { lvwHotspots_ColumnClick(clicked); });
}

void HotspotView::SaveColumns() const {
    DVKWorkData& settings = modGlobal::WorkData();
    std::int32_t index = 1;
    for (const ListColumn& column : m_controls.Hotspots.Columns()) {
        settings.HVColWidth.SetItem(index, column.Width);
        ++index;
    }
    settings.HVSortCol = static_cast<std::int16_t>(m_sortColumn);
    settings.HVSortOrder = m_descending ? kSettingDescending : std::int16_t{0};
}

void HotspotView::lvwHotspots_ColumnClick(std::size_t column) {
    Trap({kModule, "lvwHotspots_ColumnClick"}, [&] {
        m_descending = column == m_sortColumn && !m_descending;
        m_sortColumn = column;
        SortRows();
    });
}

void HotspotView::SortRows() {
    m_controls.Hotspots.ShowSortIcon(m_sortColumn, !m_descending);
    // Equal rows are in the order of filling, whatever was sorted before.
    m_controls.Hotspots.RestoreOrder();
    m_controls.Hotspots.Sort(m_sortColumn, !m_descending);
}

// ---- rows ----

void HotspotView::PopulateSourceFilesHotspotView() {
    m_controls.Hotspots.Clear();
    const std::string projectType = m_results.DB().Items().GetProjectData("Type");
    for (const BasicObject& file : m_results.DB().Items().GetProjectSourceFileList(true, false)) {
        ComboItem item = modSourceItems::FileItem(file, m_results.Review.ProjectName, projectType);
        const bool hasFigures = item.Tag != modSourceItems::kProjectFileTag;
        const ViolationTally tally = m_results.DB().Figures().GetSourceFileViolationStats(
            file.ObjectID, /*ignoreFilter=*/true);
        AddRow(std::move(item), tally, hasFigures ? &file : nullptr, ItemType::File);
    }
    SortRows();
}

void HotspotView::PopulateProcsHotspotView(std::int32_t sourceId) {
    m_controls.Hotspots.Clear();
    for (const BasicObject& procedure : m_results.DB().Items().GetSourceFileProcList(
             sourceId, /*includeAll=*/true, /*withStats=*/true)) {
        const bool hasFigures = !modSourceItems::IsSection(procedure);
        const ViolationTally tally = m_results.DB().Figures().GetProcedureViolationStats(
            procedure.ObjectID, /*ignoreFilter=*/true);
        AddRow(
            modSourceItems::ProcedureItem(procedure),
            tally,
            hasFigures ? &procedure : nullptr,
            ItemType::Procedure);
    }
    SortRows();
}

void HotspotView::AddRow(
    ComboItem item, const ViolationTally& tally, const BasicObject* measured, ItemType itemType) {
    ListRow row{std::move(item.Key), std::move(item.Image), {}};
    AddCell(row, item.Text);
    AddCell(row, PaddedNumber(tally.Count));
    AddCell(row, PaddedNumber(tally.Impact));
    if (measured != nullptr) {
        AddFigures(row, *measured, itemType);
    } else {
        row.Cells.insert(row.Cells.end(), kFiguresNotAvailable, {std::string(kNotAvailable)});
    }
    m_controls.Hotspots.Add(std::move(row));
}

void HotspotView::AddFigures(ListRow& row, const BasicObject& object, ItemType itemType) {
    const SourceLineStatistics lines =
        m_results.DB().Figures().GetLineStats(itemType, object.ObjectID);
    const std::int32_t complexity = object.CyclomaticComplexity;
    AddCell(row, PaddedNumber(lines.TotalLines()));
    AddCell(row, CommentPercentage(lines));
    AddCell(row, PaddedNumber(complexity));
    AddCell(row, modMemberStats::CyclomaticComplexityToTestText(complexity));
    AddCell(row, modMemberStats::CyclomaticComplexityToUnderstandText(complexity));
    AddCell(row, modMemberStats::CyclomaticComplexityToChangeText(complexity));
}

}  // namespace dorvik
