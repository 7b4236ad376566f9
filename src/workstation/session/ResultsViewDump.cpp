#include "workstation/session/ResultsViewDump.h"

#include "foundation/text/modUtilFunctions.h"
#include "modControlJson.h"
#include "workstation/session/SessionJson.h"
#include "workstation/view/ResultsView.h"
#include "workstation/view/WorkbenchControls.h"

#include <string_view>
#include <utility>

namespace dorvik::modResultsViewDump {

using modSessionJson::Array;
using modSessionJson::CountedArray;
using modSessionJson::Dump;
using modSessionJson::Member;
using modSessionJson::Object;
using modSessionJson::Text;

namespace {

void WriteOrder(
    JsonWriter& writer,
    std::string_view name,
    const Grid& grid,
    const std::vector<GridOrderKey>& keys) {
    Array(writer, name, keys, [&](const GridOrderKey& key) {
        Object(writer, [&] {
            Member(writer, "column", grid.Column(key.Column).Key);
            Member(writer, "descending", key.Descending);
        });
    });
}

void WriteListRow(JsonWriter& writer, Grid& grid, std::int32_t key) {
    using enum ViolationColumn;
    const auto value = [&](ViolationColumn column) {
        return grid.Value(key, NumberOf(column)).AsLong();
    };
    const auto shown = [&](ViolationColumn column) {
        return grid.Shown(key, NumberOf(column)).Text;
    };
    Object(writer, [&] {
        Member(writer, "Completed", value(Completed) != 0);
        Member(writer, "Severity", value(Severity));
        Member(writer, "Title", shown(Title));
        Member(writer, "Impact", value(Impact));
        Member(writer, "SourceFile", shown(SourceFile));
        Member(writer, "SeverityText", shown(SeverityText));
        Member(writer, "Category", shown(Category));
        Member(writer, "ViolationID", key);
    });
}

void WriteGroupRow(JsonWriter& writer, Grid& grid, std::size_t row, const GridGroupRow& group) {
    Object(writer, [&] {
        Member(writer, "column", grid.Column(group.Column).Key);
        Member(writer, "level", group.Level);
        Member(writer, "text", grid.GroupText(row));
        Member(writer, "count", group.Count);
    });
}

std::string_view WithoutPadding(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string_view::npos ? std::string_view() : text.substr(begin);
}

void WriteHotspot(JsonWriter& writer, const ListRow& row) {
    Object(writer, [&] {
        Member(writer, "key", row.Key);
        Member(writer, "image", row.Icon);
        Array(writer, "cells", row.Cells, [&](const ListCell& cell) {
            Text(writer, WithoutPadding(cell.Text));
        });
    });
}

/// The column from 1 by which a list is sorted, 0 for none, and whether it is so in descending order.
std::pair<std::size_t, bool> SortOf(const ListTable& list) {
    std::pair<std::size_t, bool> sort(0, false);
    for (std::size_t column = 0; column < list.Columns().size(); ++column) {
        const std::string& icon = list.Columns()[column].SortIcon;
        if (!icon.empty()) {
            sort = {column + 1, icon == "SortDescending"};
        }
    }
    return sort;
}

}  // namespace

std::string DumpState(const ResultsView& view, const WorkbenchControls& controls, bool reviewing) {
    return Dump("state", [&](JsonWriter& writer) {
        const ShownReview shown = view.Shown();
        Member(writer, "available", view.ResultsAvailable());
        Member(writer, "view", view.ViewType());
        Member(writer, "visible", view.WorkbenchVisible());
        Member(writer, "panel", controls.Panel.Value());
        Member(writer, "database", modUtilFunctions::FilenameFromFullPathName(shown.DatabaseFile));
        Member(writer, "project", shown.ProjectName);
        Member(writer, "reviewing", reviewing);
        Member(writer, "filter", shown.Filter);
    });
}

std::string DumpFiles(const WorkbenchControls& controls) {
    return Dump(
        "files", [&](JsonWriter& writer) { modControlJson::WriteBox(writer, controls.Files); });
}

std::string DumpProcedures(const WorkbenchControls& controls) {
    return Dump("procedures", [&](JsonWriter& writer) {
        modControlJson::WriteBox(writer, controls.Procedures);
        Member(writer, "enabled", controls.Procedures.Enabled.Value());
    });
}

std::string DumpList(WorkbenchControls& controls) {
    return Dump("list", [&](JsonWriter& writer) {
        Grid& grid = controls.List;
        Member(writer, "sql", grid.RecordSource());
        Member(writer, "placeholder", controls.Placeholder.Value());
        Member(writer, "current", grid.CurrentKey().value_or(0));
        CountedArray(writer, "rows", grid.DataRowCount(), [&](std::size_t row) {
            WriteListRow(writer, grid, grid.KeyOfDataRow(row));
        });
        WriteOrder(writer, "groups", grid, grid.Groups());
        WriteOrder(writer, "sorts", grid, grid.SortKeys());
    });
}

std::string DumpGroups(WorkbenchControls& controls) {
    return Dump("groups", [&](JsonWriter& writer) {
        Grid& grid = controls.List;
        CountedArray(writer, "rows", grid.RowCount(), [&](std::size_t row) {
            if (const std::optional<GridGroupRow> group = grid.GroupRow(row)) {
                WriteGroupRow(writer, grid, row, *group);
            }
        });
    });
}

std::string DumpDocument(const WorkbenchControls& controls) {
    return Dump("document", [&](JsonWriter& writer) {
        Member(writer, "html", controls.Documentation.InnerHTML());
    });
}

std::string DumpHotspot(const WorkbenchControls& controls) {
    return Dump("hotspot", [&](JsonWriter& writer) {
        const ListTable& list = controls.Hotspots;
        modControlJson::WriteColumns(writer, list);
        CountedArray(writer, "rows", list.Count(), [&](std::size_t row) {
            WriteHotspot(writer, list.Row(row));
        });
        const ListRow* const selected = list.SelectedRow();
        const auto [column, isDescending] = SortOf(list);
        Member(writer, "selected", selected != nullptr ? std::string_view(selected->Key) : "");
        Member(writer, "sortColumn", column);
        Member(writer, "descending", isDescending);
    });
}

}  // namespace dorvik::modResultsViewDump
