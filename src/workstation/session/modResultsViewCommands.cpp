#include "workstation/session/modResultsViewCommands.h"

#include "workstation/view/ResultsView.h"
#include "workstation/view/WorkbenchControls.h"

#include <algorithm>
#include <string>
#include <vector>

namespace dorvik::modResultsViewCommands {

namespace {

SessionRefusal Choose(ComboBox& box, std::string_view key) {
    const std::optional<std::size_t> index = box.Find(key);
    if (!index) {
        return "The box has no item '" + std::string(key) + "'.";
    }
    if (!box.Enabled.Value()) {
        return "The box is disabled.";
    }
    box.Choose(*index);
    return std::nullopt;
}

/// Runs what can be done in one of the views only.
template <typename Body>
SessionRefusal InView(const ResultsView& view, std::int32_t viewType, Body&& body) {
    if (view.ViewType() != viewType) {
        return "The other view is shown.";
    }
    return body();
}

template <typename Body>
SessionRefusal OnDataRow(
    const ResultsView& view, const WorkbenchControls& controls, std::size_t row, Body&& body) {
    return InView(view, viewtype::kViolationList, [&]() -> SessionRefusal {
        if (row < 1 || row > controls.List.DataRowCount()) {
            return "The list has no row " + std::to_string(row) + ".";
        }
        body(row - 1);
        return std::nullopt;
    });
}

template <typename Body>
SessionRefusal OnColumn(
    const ResultsView& view, const WorkbenchControls& controls, std::string_view key, Body&& body) {
    return InView(view, viewtype::kViolationList, [&]() -> SessionRefusal {
        const std::optional<std::int32_t> column = controls.List.FindColumn(key);
        if (!column) {
            return "The list has no column '" + std::string(key) + "'.";
        }
        return body(*column);
    });
}

auto Of(std::int32_t column) {
    return [column](const GridOrderKey& key) {
        return key.Column == column;
    };
}

}  // namespace

SessionRefusal ChooseFile(WorkbenchControls& controls, std::string_view key) {
    return Choose(controls.Files, key);
}

SessionRefusal ChooseProcedure(WorkbenchControls& controls, std::string_view key) {
    return Choose(controls.Procedures, key);
}

SessionRefusal ChooseRow(const ResultsView& view, WorkbenchControls& controls, std::size_t row) {
    return OnDataRow(
        view, controls, row, [&](std::size_t dataRow) { controls.List.ChooseDataRow(dataRow); });
}

SessionRefusal
Complete(const ResultsView& view, WorkbenchControls& controls, std::size_t row, bool completed) {
    return OnDataRow(view, controls, row, [&](std::size_t dataRow) {
        controls.List.Check(controls.List.KeyOfDataRow(dataRow), completed);
    });
}

SessionRefusal Sort(
    const ResultsView& view,
    WorkbenchControls& controls,
    std::string_view column,
    bool descending) {
    return OnColumn(view, controls, column, [&](std::int32_t number) -> SessionRefusal {
        controls.List.SetSortKeys({{number, descending}});
        return std::nullopt;
    });
}

SessionRefusal Group(
    const ResultsView& view,
    WorkbenchControls& controls,
    std::string_view column,
    bool descending) {
    return OnColumn(view, controls, column, [&](std::int32_t number) -> SessionRefusal {
        std::vector<GridOrderKey> groups = controls.List.Groups();
        const auto found = std::find_if(groups.begin(), groups.end(), Of(number));
        if (found != groups.end()) {
            found->Descending = descending;
        } else {
            groups.push_back({number, descending});
        }
        controls.List.ChooseGroups(std::move(groups));
        return std::nullopt;
    });
}

SessionRefusal
Ungroup(const ResultsView& view, WorkbenchControls& controls, std::string_view column) {
    return OnColumn(view, controls, column, [&](std::int32_t number) -> SessionRefusal {
        std::vector<GridOrderKey> groups = controls.List.Groups();
        if (std::erase_if(groups, Of(number)) == 0) {
            return "The list is not grouped by that column.";
        }
        controls.List.ChooseGroups(std::move(groups));
        return std::nullopt;
    });
}

SessionRefusal
ClickHeader(const ResultsView& view, WorkbenchControls& controls, std::size_t column) {
    return InView(view, viewtype::kHotspots, [&]() -> SessionRefusal {
        if (column < 1 || column > controls.Hotspots.Columns().size()) {
            return "There is no column " + std::to_string(column) + ".";
        }
        controls.Hotspots.ClickColumn(column - 1);
        return std::nullopt;
    });
}

SessionRefusal ChooseItem(const ResultsView& view, WorkbenchControls& controls, std::size_t row) {
    return InView(view, viewtype::kHotspots, [&]() -> SessionRefusal {
        if (row < 1 || row > controls.Hotspots.Count()) {
            return "There is no row " + std::to_string(row) + ".";
        }
        controls.Hotspots.Choose(row - 1);
        return std::nullopt;
    });
}

}  // namespace dorvik::modResultsViewCommands
