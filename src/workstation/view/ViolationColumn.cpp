#include "workstation/view/ViolationColumn.h"

#include <string_view>

namespace dorvik {

namespace {

struct ColumnRow {
    std::string_view Key;
    std::string_view Caption;
    std::string_view Field;
    GridOrdering Ordering;
    bool HasValueList;
    bool Visible;
};

constexpr ColumnRow kColumns[] = {
    {"Completed", "", "Completed", GridOrdering::Number, false, true},
    {"Severity", "", "Severity", GridOrdering::Number, true, true},
    {"Title", "Title", "Title", GridOrdering::Text, false, true},
    {"Impact", "Impact", "Impact", GridOrdering::Number, false, true},
    {"SourceFile", "Source File", "ItemIDType", GridOrdering::ListText, true, true},
    {"SeverityText", "Severity", "Severity", GridOrdering::ListText, true, false},
    {"Category", "Category", "CategoryID", GridOrdering::ListText, true, false},
    {"ViolationID", "", "ViolationID", GridOrdering::Number, false, false},
};

}  // namespace

std::vector<GridColumn> ViolationColumns() {
    std::vector<GridColumn> columns;
    for (const ColumnRow& row : kColumns) {
        GridColumn column;
        column.Key = row.Key;
        column.Caption = row.Caption;
        column.Field = row.Field;
        column.Ordering = row.Ordering;
        column.HasValueList = row.HasValueList;
        column.Visible = row.Visible;
        columns.push_back(column);
    }
    columns.front().IsCheckBox = true;
    return columns;
}

}  // namespace dorvik
