#pragma once

#include "workstation/controls/ListTable.h"

#include <cstdint>
#include <vector>

namespace dorvik {

struct DVKWorkData;

/// The columns of the pages of the review summary, and what of them the settings keep. Pages with as many columns share
/// their settings. A page is named by its tab, from 1; a number that is none has no columns.
namespace modSummaryLayout {

/// As the settings have it: columns from 0, order 0 ascending and 1 descending.
struct SortSetting {
    std::int16_t Column = 0;
    std::int16_t Order = 0;
};

std::vector<ListColumn> ColumnsOf(std::int16_t tab, const DVKWorkData& settings);
void SaveWidths(std::int16_t tab, const std::vector<ListColumn>& columns, DVKWorkData& settings);

/// That of a first run, for a page whose order is not kept.
SortSetting SortSettingOf(std::int16_t tab, const DVKWorkData& settings);
/// Nothing happens for such a page.
void SetSortSetting(std::int16_t tab, const SortSetting& sort, DVKWorkData& settings);

}  // namespace modSummaryLayout

}  // namespace dorvik
