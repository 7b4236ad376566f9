#pragma once

#include "workstation/session/SessionRefusal.h"

#include <cstddef>
#include <string_view>

namespace dorvik {

class ResultsView;
struct WorkbenchControls;

/// What the user of a session does in the boxes, the list and the hotspots. Columns are named by their keys; rows and
/// columns that are numbered count from 1.
namespace modResultsViewCommands {

SessionRefusal ChooseFile(WorkbenchControls& controls, std::string_view key);
SessionRefusal ChooseProcedure(WorkbenchControls& controls, std::string_view key);

// In the list only.

/// Group rows do not count.
SessionRefusal ChooseRow(const ResultsView& view, WorkbenchControls& controls, std::size_t row);
SessionRefusal
Complete(const ResultsView& view, WorkbenchControls& controls, std::size_t row, bool completed);
/// In place of all sort keys of before.
SessionRefusal Sort(
    const ResultsView& view, WorkbenchControls& controls, std::string_view column, bool descending);
/// What dragging a column above the list does: another group in those of before, or another direction of the same.
SessionRefusal Group(
    const ResultsView& view, WorkbenchControls& controls, std::string_view column, bool descending);
SessionRefusal
Ungroup(const ResultsView& view, WorkbenchControls& controls, std::string_view column);

// In the hotspots only.

SessionRefusal
ClickHeader(const ResultsView& view, WorkbenchControls& controls, std::size_t column);
SessionRefusal ChooseItem(const ResultsView& view, WorkbenchControls& controls, std::size_t row);

}  // namespace modResultsViewCommands

}  // namespace dorvik
