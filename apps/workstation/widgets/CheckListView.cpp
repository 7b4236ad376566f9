#include "workstation/widgets/CheckListView.h"

#include "workstation/controls/CheckList.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <QAbstractTableModel>
#include <QHeaderView>

#include <algorithm>

namespace dorvik {

namespace {

constexpr int kTextColumn = 0;
constexpr int kGapLetters = 3;

class CheckListRows final : public QAbstractTableModel {
public:
    CheckListRows(CheckList& list, QObject* parent)
        : QAbstractTableModel(parent),
          m_list(list),
          m_onChanged(
              list.Changed.Subscribe([this](std::optional<std::size_t> item) { Follow(item); })) {
        Follow(std::nullopt);
    }

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_list.Count());
    }
    int columnCount(const QModelIndex&) const override {
        const bool hasDescriptions =
            std::any_of(m_list.Items().begin(), m_list.Items().end(), [](const CheckItem& item) {
                return !item.Description.empty();
            });
        return hasDescriptions ? 2 : 1;
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        return index.column() == kTextColumn ? shown | Qt::ItemIsUserCheckable : shown;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const CheckItem& item = m_list.Item(static_cast<std::size_t>(index.row()));
        return index.column() == kTextColumn ? TextData(item, role) : DescriptionData(item, role);
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        if (role == Qt::CheckStateRole) {
            m_list.SetChecked(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
        }
        return role == Qt::CheckStateRole;
    }

private:
    static QVariant TextData(const CheckItem& item, int role) {
        switch (role) {
            case Qt::DisplayRole: return modQt::Text(item.Text);
            case Qt::ToolTipRole: return modQt::Text(item.Description);
            case Qt::AccessibleDescriptionRole: return modQt::Text(item.Description);
            case Qt::CheckStateRole: return item.Checked ? Qt::Checked : Qt::Unchecked;
            case Qt::DecorationRole: return modPictures::Icon(item.Image);
            case Qt::ForegroundRole:
                return item.Colour.Automatic
                           ? QVariant()
                           : QColor(item.Colour.Red, item.Colour.Green, item.Colour.Blue);
            default: return {};
        }
    }
    static QVariant DescriptionData(const CheckItem& item, int role) {
        switch (role) {
            case Qt::DisplayRole:
            case Qt::ToolTipRole: return modQt::Text(item.Description);
            case Qt::ForegroundRole: return modTheme::Colours().Hint;
            default: return {};
        }
    }

    void Follow(std::optional<std::size_t> item) {
        const int rows = rowCount({});
        const int columns = columnCount({});
        if (item) {
            const QModelIndex changed = index(static_cast<int>(*item), kTextColumn);
            Q_EMIT dataChanged(changed, changed);
        } else if (rows > 0 && rows == m_shownRows && columns == m_shownColumns) {
            Q_EMIT dataChanged(index(0, 0), index(rows - 1, columns - 1));
        } else {
            beginResetModel();
            m_shownRows = rows;
            m_shownColumns = columns;
            endResetModel();
        }
    }

    CheckList& m_list;
    int m_shownRows = 0;
    int m_shownColumns = 0;
    Subscription m_onChanged;
};

}  // namespace

CheckListView::CheckListView(CheckList& list, QWidget* parent) : QTreeView(parent) {
    setModel(&modQt::Make<CheckListRows>(list, this));
    setRootIsDecorated(false);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    header()->setStretchLastSection(true);
    connect(model(), &QAbstractItemModel::modelReset, this, [this] { FitColumns(); });
    FitColumns();
}

void CheckListView::FitColumns() {
    if (model()->columnCount() > 1) {
        const int gap = fontMetrics().averageCharWidth() * kGapLetters;
        header()->resizeSection(kTextColumn, sizeHintForColumn(kTextColumn) + gap);
    }
}

}  // namespace dorvik
