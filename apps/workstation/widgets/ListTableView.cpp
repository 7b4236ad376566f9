#include "workstation/widgets/ListTableView.h"

#include "ListTableModel.h"
#include "SortHeading.h"
#include "modFractions.h"
#include "workstation/controls/ListTableRows.h"
#include "workstation/controls/TableExport.h"
#include "workstation/look/modQt.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

#include <algorithm>

namespace dorvik {

namespace {

class RoomyRows final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        size.setHeight(std::max(size.height(), option.fontMetrics.height() * 3 / 2));
        return size;
    }
};

}  // namespace

ListTableView::ListTableView(ListTable& list, QWidget* parent)
    : QTreeView(parent), m_list(list), m_model(modQt::Make<ListTableModel>(list)) {
    m_model.setParent(this);
    setHeader(&modQt::Make<SortHeading>(this));
    setModel(&m_model);
    setItemDelegate(&modQt::Make<RoomyRows>(this));
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    header()->setSectionsClickable(true);
    header()->setMinimumSectionSize(fontMetrics().height());
    m_changed = m_list.Changed.Subscribe(
        [this](ListChange change, std::size_t index) { Follow(change, index); });
    QObject::connect(header(), &QHeaderView::sectionClicked, this, [this](int section) {
        m_list.ClickColumn(static_cast<std::size_t>(section));
    });
    QObject::connect(
        header(), &QHeaderView::sectionResized, this, [this](int section, int, int pixels) {
            if (!m_following && viewport()->width() > 0) {
                m_list.SetWidth(
                    static_cast<std::size_t>(section),
                    static_cast<double>(pixels) / viewport()->width());
            }
        });
    ApplyColumns();
    FollowSelection();
}

ListTableView::~ListTableView() = default;

// ---- what the list reports ----

void ListTableView::Follow(ListChange change, std::size_t index) {
    const QScopedValueRollback following(m_following, true);
    m_model.Apply(change, index);
    switch (change) {
        case ListChange::Columns: ApplyColumns(); break;
        case ListChange::Rows:
        case ListChange::Order:
        case ListChange::Selection: FollowSelection(); break;
        case ListChange::RowAdded:
        case ListChange::Cell: break;
    }
}

void ListTableView::FollowSelection() {
    const QScopedValueRollback following(m_following, true);
    const std::optional<std::size_t> row = m_list.SelectedIndex();
    if (!row) {
        selectionModel()->clear();
        return;
    }
    const QModelIndex index = m_model.index(static_cast<int>(*row), 0);
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

/// The last column also takes what the others leave.
void ListTableView::ApplyColumns() {
    const QScopedValueRollback following(m_following, true);
    int sorted = -1;
    Qt::SortOrder order = Qt::AscendingOrder;
    int left = viewport()->width();
    for (int section = 0; section < m_model.columnCount(); ++section) {
        const ListColumn& column = m_list.Columns()[static_cast<std::size_t>(section)];
        const bool isLast = section + 1 == m_model.columnCount();
        int width = modFractions::Pixels(column.Width, viewport()->width());
        width = isLast ? std::max(width, left) : width;
        header()->resizeSection(section, width);
        left -= width;
        if (!column.SortIcon.empty()) {
            sorted = section;
            order = column.SortIcon == "SortDescending" ? Qt::DescendingOrder : Qt::AscendingOrder;
        }
    }
    header()->setSortIndicatorShown(sorted >= 0);
    header()->setSortIndicator(sorted, order);
}

void ListTableView::FillSortMenu(QMenu& menu) {
    for (std::size_t column = 0; column < m_list.Columns().size(); ++column) {
        const ListColumn& heading = m_list.Columns()[column];
        QAction* const action = menu.addAction(modQt::Text(heading.Text));
        action->setCheckable(true);
        action->setChecked(!heading.SortIcon.empty());
        QObject::connect(
            action, &QAction::triggered, this, [this, column] { m_list.ClickColumn(column); });
    }
}

void ListTableView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    ApplyColumns();
}

void ListTableView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange && header() != nullptr) {
        header()->setMinimumSectionSize(fontMetrics().height());
    }
}

// ---- the user ----

void ListTableView::selectionChanged(
    const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    if (!m_following && !selected.indexes().isEmpty()) {
        const QScopedValueRollback following(m_following, true);
        m_list.Choose(static_cast<std::size_t>(selected.indexes().front().row()));
    }
}

void ListTableView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() && event->button() == Qt::LeftButton) {
        m_list.DoubleClick(static_cast<std::size_t>(index.row()));
    }
}

void ListTableView::keyPressEvent(QKeyEvent* event) {
    const std::optional<std::size_t> row = m_list.SelectedIndex();
    if (event->matches(QKeySequence::Copy)) {
        CopyRow();
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && row) {
        m_list.DoubleClick(*row);
    } else {
        QTreeView::keyPressEvent(event);
    }
}

void ListTableView::CopyRow() const {
    const std::optional<std::size_t> selected = m_list.SelectedIndex();
    if (!selected) {
        return;
    }
    ListTableRows rows(m_list, selected);
    std::string text;
    TableExport table(
        rows, TableFormat::Text, "", [&text](std::string_view part) { text += part; });
    table.WriteNext(rows.Count());
    QGuiApplication::clipboard()->setText(modQt::Text(text));
}

}  // namespace dorvik
