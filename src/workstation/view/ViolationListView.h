#pragma once

#include "ShownResults.h"
#include "ViolationRecords.h"
#include "workstation/controls/ComboBox.h"
#include "workstation/view/WorkbenchControls.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace dorvik {

struct DVKWorkData;

/// The list of violations, and the pane of documentation beside it.
class ViolationListView {
public:
    /// REQUIRES: all of them outlive this.
    ViolationListView(WorkbenchControls& controls, ShownResults& results)
        : m_controls(controls), m_results(results) {}

    /// Restores groups, sort keys and column widths from the settings.
    void Initialise();
    void SaveSortKeys() const;

    /// The results have been opened.
    void Bind();
    /// The results are about to be closed.
    void Clear();
    void ResetGridValueLists();
    /// The violations of an item of one of the boxes.
    void PopulateViolationsList(const ComboItem& item);
    /// Makes the first row current, if there is one.
    void SelectFirstRow();
    void DisplayViolationDocumentation(std::int32_t violationId);

    /// Adds or removes the group of a column, as the setting says.
    void GroupBy(ViolationColumn column, bool grouped);
    void GroupByNone();
    void StoreGroups() const;

private:
    void RestoreOrder();
    void ResizeColumns();
    void RebindWithoutSourceFileGroup();
    void WaitForPane();

    void m_grdList_RowColChange();
    void m_grdList_AfterGroupChange();
    void m_grdList_ColResize(std::int32_t column);
    void m_grdList_Error(std::int32_t number);

    WorkbenchControls& m_controls;
    ShownResults& m_results;
    std::unique_ptr<ViolationRecords> m_records;
    std::uint64_t m_lastDisplay = 0;  // numbers the violations that are shown in the pane
    std::vector<Subscription> m_subscriptions;
};

}  // namespace dorvik
