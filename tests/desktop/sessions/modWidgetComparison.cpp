#include "modWidgetComparison.h"

#include "workstation/bench/WorkbenchView.h"
#include "workstation/controls/CheckList.h"
#include "workstation/controls/CheckTree.h"
#include "workstation/look/modQt.h"
#include "workstation/view/ResultsView.h"
#include "workstation/widgets/GridModel.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QTextDocument>
#include <QToolButton>
#include <QTreeView>
#include <gtest/gtest.h>

#include <functional>

namespace dorvik::test::modWidgetComparison {

namespace {

std::string TextAt(const QModelIndex& index) {
    return modQt::Utf8(index.data().toString());
}

bool IsMarked(const QModelIndex& index) {
    return index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

std::string WithoutPadding(const std::string& text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

void CompareDataRow(const GridModel& model, int row, Grid& grid, std::int32_t key) {
    for (int section = 0; section < model.columnCount(); ++section) {
        const QModelIndex index = model.index(row, section);
        const std::int32_t column = model.ColumnOf(section);
        if (grid.Column(column).IsCheckBox) {
            EXPECT_EQ(IsMarked(index), grid.Value(key, column).AsLong() != 0) << "row " << row;
        } else if (!model.ShowsSeverity(section)) {
            EXPECT_EQ(TextAt(index), grid.Shown(key, column).Text)
                << "row " << row << ", " << grid.Column(column).Key;
        }
    }
}

void CompareGrid(const GridView& view, Grid& grid) {
    const auto& model = static_cast<const GridModel&>(*view.model());
    ASSERT_EQ(static_cast<std::size_t>(model.rowCount()), grid.RowCount());
    for (std::size_t row = 0; row < grid.RowCount(); ++row) {
        const int shown = static_cast<int>(row);
        if (const auto key = grid.KeyOfRow(row)) {
            CompareDataRow(model, shown, grid, *key);
        } else {
            EXPECT_EQ(TextAt(model.index(shown, 0)), grid.GroupText(row)) << "row " << row;
        }
    }
    const auto current = grid.CurrentRow();
    EXPECT_EQ(view.currentIndex().row(), current ? static_cast<int>(*current) : -1);
    const QModelIndexList selected = view.selectionModel()->selectedRows();
    ASSERT_EQ(selected.size(), current ? 1 : 0);
    if (current) {
        EXPECT_EQ(selected.front().row(), static_cast<int>(*current));
    }
}

/// What the page says, whatever it looks like.
void ComparePage(const DocumentationView& view, const DocumentPane& pane) {
    QTextDocument page;
    page.setHtml(modQt::Text(pane.InnerHTML()));
    EXPECT_EQ(modQt::Utf8(view.toPlainText()), modQt::Utf8(page.toPlainText()));
}

bool ShowsText(const QWidget& window, const std::string& text) {
    for (const QLabel* const label : window.findChildren<QLabel*>()) {
        if (label->isVisible() && label->text() == modQt::Text(text)) {
            return true;
        }
    }
    return false;
}

bool IsDown(const QWidget& window, const char* text) {
    for (const QToolButton* const button : window.findChildren<QToolButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == QLatin1String(text)) {
            return button->isChecked();
        }
    }
    return false;
}

void CompareNodes(
    const QAbstractItemModel& model,
    const QModelIndex& parent,
    const std::vector<std::unique_ptr<CheckNode>>& nodes) {
    ASSERT_EQ(static_cast<std::size_t>(model.rowCount(parent)), nodes.size());
    for (std::size_t row = 0; row < nodes.size(); ++row) {
        const QModelIndex index = model.index(static_cast<int>(row), 0, parent);
        EXPECT_EQ(TextAt(index), nodes[row]->Text);
        EXPECT_EQ(IsMarked(index), nodes[row]->Checked) << nodes[row]->Text;
        CompareNodes(model, index, nodes[row]->Children);
    }
}

}  // namespace

void Compare(const QComboBox& box, const ComboBox& items) {
    ASSERT_EQ(static_cast<std::size_t>(box.count()), items.Count());
    for (std::size_t item = 0; item < items.Count(); ++item) {
        EXPECT_EQ(modQt::Utf8(box.itemText(static_cast<int>(item))), items.Item(item).Text);
    }
    const ComboItem* const selected = items.SelectedItem();
    EXPECT_EQ(modQt::Utf8(box.currentText()), selected == nullptr ? "" : selected->Text);
    EXPECT_EQ(
        box.currentIndex(), selected == nullptr ? -1 : static_cast<int>(*items.SelectedIndex()));
    EXPECT_EQ(box.isEnabledTo(box.window()), items.Enabled.Value());
}

void Compare(const QTreeView& view, const ListTable& table) {
    const QAbstractItemModel& model = *view.model();
    ASSERT_EQ(static_cast<std::size_t>(model.rowCount()), table.Count());
    ASSERT_EQ(static_cast<std::size_t>(model.columnCount()), table.Columns().size());
    for (int column = 0; column < model.columnCount(); ++column) {
        const std::string heading =
            modQt::Utf8(model.headerData(column, Qt::Horizontal).toString());
        EXPECT_EQ(heading, table.Columns()[static_cast<std::size_t>(column)].Text);
    }
    for (std::size_t row = 0; row < table.Count(); ++row) {
        const std::vector<ListCell>& cells = table.Row(row).Cells;
        for (std::size_t cell = 0; cell < table.Columns().size(); ++cell) {
            EXPECT_EQ(
                TextAt(model.index(static_cast<int>(row), static_cast<int>(cell))),
                cell < cells.size() ? WithoutPadding(cells[cell].Text) : "")
                << "row " << row;
        }
    }
    const auto selected = table.SelectedIndex();
    const QModelIndexList shown = view.selectionModel()->selectedRows();
    ASSERT_EQ(shown.size(), selected ? 1 : 0);
    if (selected) {
        EXPECT_EQ(shown.front().row(), static_cast<int>(*selected));
    }
}

void Compare(const QTreeView& view, const CheckList& list) {
    ASSERT_EQ(static_cast<std::size_t>(view.model()->rowCount()), list.Count());
    for (std::size_t row = 0; row < list.Count(); ++row) {
        const QModelIndex index = view.model()->index(static_cast<int>(row), 0);
        EXPECT_EQ(TextAt(index), list.Item(row).Text);
        EXPECT_EQ(IsMarked(index), list.Item(row).Checked) << list.Item(row).Text;
    }
}

void Compare(const QTreeView& view, const CheckTree& tree) {
    CompareNodes(*view.model(), {}, tree.Roots());
}

void Compare(const QWidget& bar, const CommandControl& items) {
    std::vector<QAction*> actions;
    for (QAction* const action : bar.actions()) {
        if (!action->isSeparator()) {
            actions.push_back(action);
        }
    }
    Compare(actions, items);
}

void Compare(const std::vector<QAction*>& actions, const CommandControl& items) {
    ASSERT_EQ(actions.size(), items.Items().size());
    for (std::size_t place = 0; place < actions.size(); ++place) {
        const QAction& action = *actions[place];
        const CommandControl& item = *items.Items()[place];
        const CommandLook& look = item.Look();
        EXPECT_EQ(modQt::Utf8(action.text()), look.Caption);
        EXPECT_EQ(action.isEnabled(), look.Enabled) << look.Tag;
        EXPECT_EQ(action.isChecked(), look.Checked) << look.Tag;
        if (item.Kind() == CommandKind::Popup) {
            ASSERT_NE(action.menu(), nullptr) << look.Tag;
            Compare(*action.menu(), item);
        }
    }
}

void Compare(WorkbenchView& bench, const ResultsView& results, WorkbenchControls& controls) {
    CompareGrid(bench.List(), controls.List);
    Compare(bench.Hotspots(), controls.Hotspots);
    ComparePage(bench.Documentation(), controls.Documentation);
    const bool isList = results.ViewType() == viewtype::kViolationList;
    EXPECT_EQ(IsDown(bench, "Violation list"), isList);
    EXPECT_EQ(IsDown(bench, "Hotspots"), !isList);
    const std::string& panel = controls.Panel.Value();
    EXPECT_EQ(bench.List().isVisible(), isList && panel.empty());
    EXPECT_EQ(bench.Hotspots().isVisible(), !isList && panel.empty());
    EXPECT_TRUE(panel.empty() || ShowsText(bench, panel)) << panel;
    const bool hasPlaceholder = controls.Placeholder.Value() && bench.List().isVisible();
    EXPECT_EQ(ShowsText(bench, "There are no violations to show."), hasPlaceholder);
    EXPECT_EQ(
        bench.Groups().isVisibleTo(bench.Groups().parentWidget()), controls.GroupByBox.Value());
    const std::vector<QToolButton*> chips = bench.Groups().Chips();
    const std::vector<GridOrderKey>& groups = controls.List.Groups();
    ASSERT_EQ(chips.size(), groups.size());
    for (std::size_t group = 0; group < groups.size(); ++group) {
        EXPECT_EQ(
            chips[group]->arrowType(), groups[group].Descending ? Qt::DownArrow : Qt::UpArrow);
    }
}

}  // namespace dorvik::test::modWidgetComparison
