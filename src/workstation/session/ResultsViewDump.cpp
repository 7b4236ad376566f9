#include "workstation/session/ResultsViewDump.h"

#include "foundation/text/modUtilFunctions.h"
#include "workstation/view/ResultsView.h"
#include "workstation/view/WorkbenchControls.h"

#include <string_view>
#include <utility>

namespace dorvik::modResultsViewDump {

namespace {

using rapidjson::Document;
using rapidjson::Value;

/// An object under construction.
class DumpObject {
public:
    explicit DumpObject(Document::AllocatorType& allocator)
        : m_allocator(allocator), m_value(rapidjson::kObjectType) {}

    DumpObject& Text(std::string_view name, std::string_view text) {
        return Member(name, Copied(text));
    }
    DumpObject& Flag(std::string_view name, bool flag) { return Member(name, Value(flag)); }
    DumpObject& Number(std::string_view name, std::int64_t number) {
        return Member(name, Value(number));
    }
    DumpObject& Member(std::string_view name, Value value) {
        m_value.AddMember(Copied(name), value, m_allocator);
        return *this;
    }
    Value Take() { return std::move(m_value); }
    Value Copied(std::string_view text) const {
        return {text.data(), static_cast<rapidjson::SizeType>(text.size()), m_allocator};
    }

private:
    Document::AllocatorType& m_allocator;
    Value m_value;
};

/// The dump whose members `fill` adds.
template <typename Fill>
Document Dump(std::string_view what, Fill&& fill) {
    Document document;
    DumpObject object(document.GetAllocator());
    object.Text("dump", what);
    fill(object, document.GetAllocator());
    static_cast<Value&>(document) = object.Take();
    return document;
}

/// An array with what `make` gives for each element.
template <typename Elements, typename Make>
Value ArrayOf(const Elements& elements, Document::AllocatorType& allocator, Make&& make) {
    Value array(rapidjson::kArrayType);
    for (const auto& element : elements) {
        array.PushBack(make(element), allocator);
    }
    return array;
}

void AddBox(DumpObject& dump, const ComboBox& box, Document::AllocatorType& allocator) {
    dump.Member("items", ArrayOf(box.Items(), allocator, [&](const ComboItem& item) {
                    return DumpObject(allocator)
                        .Text("key", item.Key)
                        .Text("tag", item.Tag)
                        .Text("text", item.Text)
                        .Text("image", item.Image)
                        .Take();
                }));
    const ComboItem* const selected = box.SelectedItem();
    dump.Text("selected", selected != nullptr ? std::string_view(selected->Key) : "");
}

Value OrderKeys(
    const Grid& grid, const std::vector<GridOrderKey>& keys, Document::AllocatorType& allocator) {
    return ArrayOf(keys, allocator, [&](const GridOrderKey& key) {
        return DumpObject(allocator)
            .Text("column", grid.Column(key.Column).Key)
            .Flag("descending", key.Descending)
            .Take();
    });
}

Value ListRowOf(Grid& grid, std::int32_t key, Document::AllocatorType& allocator) {
    using enum ViolationColumn;
    const auto value = [&](ViolationColumn column) {
        return grid.Value(key, NumberOf(column));
    };
    const auto shown = [&](ViolationColumn column) {
        return grid.Shown(key, NumberOf(column)).Text;
    };
    return DumpObject(allocator)
        .Flag("Completed", value(Completed).AsLong() != 0)
        .Number("Severity", value(Severity).AsLong())
        .Text("Title", shown(Title))
        .Number("Impact", value(Impact).AsLong())
        .Text("SourceFile", shown(SourceFile))
        .Text("SeverityText", shown(SeverityText))
        .Text("Category", shown(Category))
        .Number("ViolationID", key)
        .Take();
}

std::string_view WithoutPadding(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string_view::npos ? std::string_view() : text.substr(begin);
}

}  // namespace

Document DumpState(const ResultsView& view, const WorkbenchControls& controls, bool reviewing) {
    return Dump("state", [&](DumpObject& dump, auto&) {
        const ShownReview shown = view.Shown();
        dump.Flag("available", view.ResultsAvailable())
            .Number("view", view.ViewType())
            .Flag("visible", view.WorkbenchVisible())
            .Text("panel", controls.Panel.Value())
            .Text("database", modUtilFunctions::FilenameFromFullPathName(shown.DatabaseFile))
            .Text("project", shown.ProjectName)
            .Flag("reviewing", reviewing)
            .Text("filter", shown.Filter);
    });
}

Document DumpFiles(const WorkbenchControls& controls) {
    return Dump("files", [&](DumpObject& dump, auto& allocator) {
        AddBox(dump, controls.Files, allocator);
    });
}

Document DumpProcedures(const WorkbenchControls& controls) {
    return Dump("procedures", [&](DumpObject& dump, auto& allocator) {
        AddBox(dump, controls.Procedures, allocator);
        dump.Flag("enabled", controls.Procedures.Enabled.Value());
    });
}

Document DumpList(WorkbenchControls& controls) {
    return Dump("list", [&](DumpObject& dump, auto& allocator) {
        Grid& grid = controls.List;
        Value rows(rapidjson::kArrayType);
        for (std::size_t row = 0; row < grid.DataRowCount(); ++row) {
            rows.PushBack(ListRowOf(grid, grid.KeyOfDataRow(row), allocator), allocator);
        }
        dump.Text("sql", grid.RecordSource())
            .Flag("placeholder", controls.Placeholder.Value())
            .Number("current", grid.CurrentKey().value_or(0))
            .Member("rows", std::move(rows))
            .Member("groups", OrderKeys(grid, grid.Groups(), allocator))
            .Member("sorts", OrderKeys(grid, grid.SortKeys(), allocator));
    });
}

Document DumpGroups(WorkbenchControls& controls) {
    return Dump("groups", [&](DumpObject& dump, auto& allocator) {
        Grid& grid = controls.List;
        Value rows(rapidjson::kArrayType);
        for (std::size_t row = 0; row < grid.RowCount(); ++row) {
            if (const std::optional<GridGroupRow> group = grid.GroupRow(row)) {
                rows.PushBack(
                    DumpObject(allocator)
                        .Text("column", grid.Column(group->Column).Key)
                        .Number("level", group->Level)
                        .Text("text", grid.GroupText(row))
                        .Number("count", static_cast<std::int64_t>(group->Count))
                        .Take(),
                    allocator);
            }
        }
        dump.Member("rows", std::move(rows));
    });
}

Document DumpDocument(const WorkbenchControls& controls) {
    return Dump("document", [&](DumpObject& dump, auto&) {
        dump.Text("html", controls.Documentation.InnerHTML());
    });
}

Document DumpHotspot(const WorkbenchControls& controls) {
    return Dump("hotspot", [&](DumpObject& dump, auto& allocator) {
        const ListTable& list = controls.Hotspots;
        std::int64_t sortColumn = 0;
        bool isDescending = false;
        for (std::size_t column = 0; column < list.Columns().size(); ++column) {
            const std::string& icon = list.Columns()[column].SortIcon;
            if (!icon.empty()) {
                sortColumn = static_cast<std::int64_t>(column) + 1;
                isDescending = icon == "SortDescending";
            }
        }
        dump.Member("columns", ArrayOf(list.Columns(), allocator, [&](const ListColumn& column) {
                        const bool isRight = column.Alignment == ColumnAlignment::Right;
                        return DumpObject(allocator)
                            .Text("text", column.Text)
                            .Text("align", isRight ? "right" : "left")
                            .Text("icon", column.SortIcon)
                            .Take();
                    }));
        Value rows(rapidjson::kArrayType);
        for (std::size_t row = 0; row < list.Count(); ++row) {
            rows.PushBack(
                DumpObject(allocator)
                    .Text("key", list.Row(row).Key)
                    .Text("image", list.Row(row).Icon)
                    .Member(
                        "cells",
                        ArrayOf(
                            list.Row(row).Cells,
                            allocator,
                            [&](const ListCell& cell) {
                                return dump.Copied(WithoutPadding(cell.Text));
                            }))
                    .Take(),
                allocator);
        }
        const ListRow* const selected = list.SelectedRow();
        dump.Member("rows", std::move(rows))
            .Text("selected", selected != nullptr ? std::string_view(selected->Key) : "")
            .Number("sortColumn", sortColumn)
            .Flag("descending", isDescending);
    });
}

}  // namespace dorvik::modResultsViewDump
