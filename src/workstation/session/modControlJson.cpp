#include "modControlJson.h"

#include "workstation/controls/ComboBox.h"
#include "workstation/controls/ListTable.h"

namespace dorvik::modControlJson {

using modSessionJson::Array;
using modSessionJson::Member;
using modSessionJson::Object;

void WriteBox(JsonWriter& writer, const ComboBox& box) {
    Array(writer, "items", box.Items(), [&](const ComboItem& item) {
        Object(writer, [&] {
            Member(writer, "key", item.Key);
            Member(writer, "tag", item.Tag);
            Member(writer, "text", item.Text);
            Member(writer, "image", item.Image);
        });
    });
    const ComboItem* const selected = box.SelectedItem();
    Member(writer, "selected", selected != nullptr ? std::string_view(selected->Key) : "");
}

void WriteColumns(JsonWriter& writer, const ListTable& list) {
    Array(writer, "columns", list.Columns(), [&](const ListColumn& column) {
        Object(writer, [&] {
            const bool isRight = column.Alignment == ColumnAlignment::Right;
            Member(writer, "text", column.Text);
            Member(writer, "align", isRight ? "right" : "left");
            Member(writer, "icon", column.SortIcon);
        });
    });
}

}  // namespace dorvik::modControlJson
