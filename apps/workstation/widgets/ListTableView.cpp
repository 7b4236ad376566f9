#include "workstation/widgets/ListTableView.h"

#include "workstation/controls/ListTable.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QScopedValueRollback>

namespace dorvik {

namespace {

class ListTableRows final : public QAbstractTableModel {
public:
    ListTableRows(ListTable& table, QObject* parent) : QAbstractTableModel(parent), m_table(table) {
        m_onChanged =
            table.Changed.Subscribe([this](ListChange change, std::size_t) { Follow(change); });
    }

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_table.Count());
    }
    int columnCount(const QModelIndex&) const override {
        return static_cast<int>(m_table.Columns().size());
    }
    QVariant headerData(int section, Qt::Orientation, int role) const override {
        const ListColumn& column = m_table.Columns()[static_cast<std::size_t>(section)];
        switch (role) {
            case Qt::DisplayRole: return modQt::Text(column.Text);
            case Qt::TextAlignmentRole: return AlignmentOf(column);
            default: return {};
        }
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const ListRow& row = m_table.Row(static_cast<std::size_t>(index.row()));
        const auto column = static_cast<std::size_t>(index.column());
        if (role == Qt::DecorationRole && column == 0) {
            return modPictures::Icon(row.Icon);
        }
        return column < row.Cells.size()
                   ? CellData(row.Cells[column], m_table.Columns()[column], role)
                   : QVariant();
    }

private:
    static QVariant AlignmentOf(const ListColumn& column) {
        return int(
            (column.Alignment == ColumnAlignment::Right ? Qt::AlignRight : Qt::AlignLeft) |
            Qt::AlignVCenter);
    }
    static QVariant CellData(const ListCell& cell, const ListColumn& column, int role) {
        switch (role) {
            case Qt::DisplayRole:
            case Qt::ToolTipRole: return modQt::Text(cell.Text);
            case Qt::TextAlignmentRole: return AlignmentOf(column);
            case Qt::ForegroundRole:
                return cell.Colour.Automatic
                           ? QVariant()
                           : QColor(cell.Colour.Red, cell.Colour.Green, cell.Colour.Blue);
            case Qt::FontRole: {
                QFont font;
                font.setBold(cell.Bold);
                return cell.Bold ? QVariant(font) : QVariant();
            }
            default: return {};
        }
    }
    void Follow(ListChange change) {
        if (change == ListChange::Columns || change == ListChange::Rows ||
            change == ListChange::RowAdded) {
            beginResetModel();
            endResetModel();
        } else if (change != ListChange::Selection && rowCount({}) > 0) {
            Q_EMIT dataChanged(index(0, 0), index(rowCount({}) - 1, columnCount({}) - 1));
        }
    }

    ListTable& m_table;
    Subscription m_onChanged;
};

}  // namespace

ListTableView::ListTableView(ListTable& table, QWidget* parent)
    : QTreeView(parent), m_table(table) {
    setModel(&modQt::Make<ListTableRows>(table, this));
    setRootIsDecorated(false);
    setAllColumnsShowFocus(true);
    header()->setSectionsClickable(true);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    connect(header(), &QHeaderView::sectionClicked, this, [this](int column) {
        m_table.ClickColumn(static_cast<std::size_t>(column));
    });
    connect(header(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!m_isFollowing && viewport()->width() > 0) {
            const QScopedValueRollback following(m_isFollowing, true);
            m_table.SetWidth(static_cast<std::size_t>(column), double(width) / viewport()->width());
        }
    });
    connect(
        selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](QModelIndex row) {
            if (!m_isFollowing && row.isValid()) {
                const QScopedValueRollback following(m_isFollowing, true);
                m_table.Choose(static_cast<std::size_t>(row.row()));
            }
        });
    connect(this, &QTreeView::activated, this, [this](const QModelIndex& row) {
        m_table.DoubleClick(static_cast<std::size_t>(row.row()));
    });
    m_onChanged = table.Changed.Subscribe([this](ListChange, std::size_t) {
        if (!m_isFollowing) {
            ShowColumns();
            ShowSelection();
        }
    });
    ShowColumns();
    ShowSelection();
}

void ListTableView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    ShowColumns();
}

void ListTableView::ShowColumns() {
    const QScopedValueRollback following(m_isFollowing, true);
    header()->setSortIndicatorShown(true);
    int sorted = -1;
    for (std::size_t i = 0; i < m_table.Columns().size(); ++i) {
        const ListColumn& column = m_table.Columns()[i];
        header()->resizeSection(static_cast<int>(i), int(column.Width * viewport()->width()));
        if (!column.SortIcon.empty()) {
            sorted = static_cast<int>(i);
            header()->setSortIndicator(
                sorted,
                column.SortIcon == "SortAscending" ? Qt::AscendingOrder : Qt::DescendingOrder);
        }
    }
    if (sorted < 0) {
        header()->setSortIndicator(-1, Qt::AscendingOrder);
    }
}

void ListTableView::ShowSelection() {
    const QScopedValueRollback following(m_isFollowing, true);
    const auto row = m_table.SelectedIndex();
    if (row && *row < m_table.Count()) {
        setCurrentIndex(model()->index(static_cast<int>(*row), 0));
    } else {
        selectionModel()->clear();
    }
}

}  // namespace dorvik
