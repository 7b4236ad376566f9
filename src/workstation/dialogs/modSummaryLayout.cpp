#include "modSummaryLayout.h"

#include "settings/DVKWorkData.h"
#include "workstation/dialogs/frmReviewSummary.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>
#include <utility>

namespace dorvik::modSummaryLayout {

namespace {

/// What the settings keep of a page.
struct Kept {
    double (*Width)(const DVKWorkData&, std::int32_t column);  // columns from 1
    void (*SetWidth)(DVKWorkData&, std::int32_t column, double width);
    std::int32_t Widths = 0;
    std::int16_t DVKWorkData::*SortCol = nullptr;  // null where the order is not kept
    std::int16_t DVKWorkData::*SortOrder = nullptr;
};

template <auto Row>
constexpr Kept WidthsIn(
    std::int16_t DVKWorkData::*sortCol = nullptr, std::int16_t DVKWorkData::*sortOrder = nullptr) {
    return {
        [](const DVKWorkData& settings, std::int32_t column) {
            return (settings.*Row).Item(column);
        },
        [](DVKWorkData& settings, std::int32_t column, double width) {
            (settings.*Row).SetItem(column, width);
        },
        std::remove_reference_t<decltype(std::declval<DVKWorkData&>().*Row)>::Count(),
        sortCol,
        sortOrder};
}

struct PageRow {
    std::int16_t Tab = 0;
    std::array<std::string_view, 7> Columns;  // empty ones are none
    Kept Settings;
};

constexpr std::array<std::string_view, 7> kItems{"Item", "Value"};
constexpr std::array<std::string_view, 7> kSeverities{
    "Source File", "Critical", "High", "Medium", "Low", "Information", "Total"};

const PageRow kPages[] = {
    {frmReviewSummary::kSummaryTab, kItems, WidthsIn<&DVKWorkData::RDT1ColWidth>()},
    {frmReviewSummary::kCriteriaTab, kItems, WidthsIn<&DVKWorkData::RDT6ColWidth>()},
    {frmReviewSummary::kViolationsTab,
     kSeverities,
     WidthsIn<&DVKWorkData::RDT2ColWidth>(&DVKWorkData::RDT2SortCol, &DVKWorkData::RDT2SortOrder)},
    {frmReviewSummary::kImpactTab,
     kSeverities,
     WidthsIn<&DVKWorkData::RDT2ColWidth>(&DVKWorkData::RDT2SortCol, &DVKWorkData::RDT2SortOrder)},
    {frmReviewSummary::kComplexityTab,
     {"Procedure", "Complexity", "Test", "Understand", "Modify"},
     WidthsIn<&DVKWorkData::RDT4ColWidth>(&DVKWorkData::RDT4SortCol, &DVKWorkData::RDT4SortOrder)},
    {frmReviewSummary::kLineCountsTab,
     {"Source File", "Code", "Comment Only", "In-line Comment", "Blank", "Total"},
     WidthsIn<&DVKWorkData::RDT5ColWidth>(&DVKWorkData::RDT5SortCol, &DVKWorkData::RDT5SortOrder)},
    {frmReviewSummary::kTolerancesTab,
     {"Source File", "Verdict"},
     WidthsIn<&DVKWorkData::RDT7ColWidth>()},
};

/// Null for a number that is no page.
const PageRow* PageOf(std::int16_t tab) {
    for (const PageRow& page : kPages) {
        if (page.Tab == tab) {
            return &page;
        }
    }
    return nullptr;
}

}  // namespace

std::vector<ListColumn> ColumnsOf(std::int16_t tab, const DVKWorkData& settings) {
    std::vector<ListColumn> columns;
    const PageRow* const page = PageOf(tab);
    if (page == nullptr) {
        return columns;
    }
    for (const std::string_view title : page->Columns) {
        if (!title.empty()) {
            const std::size_t place = columns.size();
            ListColumn column{std::string(title)};
            column.Width = page->Settings.Width(settings, static_cast<std::int32_t>(place) + 1);
            columns.push_back(std::move(column));
        }
    }
    return columns;
}

void SaveWidths(std::int16_t tab, const std::vector<ListColumn>& columns, DVKWorkData& settings) {
    const PageRow* const page = PageOf(tab);
    if (page == nullptr) {
        return;
    }
    const std::size_t count =
        std::min(columns.size(), static_cast<std::size_t>(page->Settings.Widths));
    for (std::size_t place = 0; place < count; ++place) {
        page->Settings.SetWidth(
            settings, static_cast<std::int32_t>(place) + 1, columns[place].Width);
    }
}

SortSetting SortSettingOf(std::int16_t tab, const DVKWorkData& settings) {
    const PageRow* const page = PageOf(tab);
    if (page == nullptr || page->Settings.SortCol == nullptr) {
        return {};
    }
    return {settings.*page->Settings.SortCol, settings.*page->Settings.SortOrder};
}

void SetSortSetting(std::int16_t tab, const SortSetting& sort, DVKWorkData& settings) {
    const PageRow* const page = PageOf(tab);
    if (page != nullptr && page->Settings.SortCol != nullptr) {
        settings.*page->Settings.SortCol = sort.Column;
        settings.*page->Settings.SortOrder = sort.Order;
    }
}

}  // namespace dorvik::modSummaryLayout
