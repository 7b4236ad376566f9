#pragma once

#include "ShownResults.h"
#include "source/BasicObject.h"
#include "source/ItemType.h"
#include "workstation/view/WorkbenchControls.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace dorvik {

/// The table of files or procedures with their figures.
class HotspotView {
public:
    /// REQUIRES: all of them outlive this.
    HotspotView(WorkbenchControls& controls, ShownResults& results)
        : m_controls(controls), m_results(results) {}

    /// Columns, widths and sort order, from the settings.
    void SetupListView();
    void SaveColumns() const;
    void PopulateSourceFilesHotspotView();
    void PopulateProcsHotspotView(std::int32_t sourceId);
    void Clear() { m_controls.Hotspots.Clear(); }

private:
    /// `measured` is null for an item without figures.
    void AddRow(
        ComboItem item,
        const ViolationTally& tally,
        const BasicObject* measured,
        ItemType itemType);
    void AddFigures(ListRow& row, const BasicObject& object, ItemType itemType);
    void SortRows();
    void lvwHotspots_ColumnClick(std::size_t column);

    WorkbenchControls& m_controls;
    ShownResults& m_results;
    std::size_t m_sortColumn = 0;  // from 0
    bool m_descending = false;
    Subscription m_onColumn;
};

}  // namespace dorvik
