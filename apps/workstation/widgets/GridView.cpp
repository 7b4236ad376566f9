#include "workstation/widgets/GridView.h"

#include "GridDelegate.h"
#include "GridHeading.h"
#include "GridModel.h"
#include "modFractions.h"
#include "workstation/controls/modGridOrder.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"
#include "workstation/widgets/modSlices.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace dorvik {

namespace {

constexpr auto kWholeRow = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;

}  // namespace

GridView::GridView(Grid& grid, QWidget* parent)
    : QTreeView(parent), m_grid(grid), m_model(modQt::Make<GridModel>(grid)) {
    m_model.setParent(this);
    MakeHeading();
    setModel(&m_model);
    setItemDelegate(&modQt::Make<GridDelegate>(m_grid, m_model, this));
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setAlternatingRowColors(true);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerItem);
    m_changed = m_grid.Changed.Subscribe(
        [this](GridChange change, std::size_t row) { Follow(change, row); });
    header()->setMinimumSectionSize(fontMetrics().height());
    ShowOrder();
    FollowCurrent();
}

GridView::~GridView() = default;

void GridView::MakeHeading() {
    auto& heading = modQt::Make<GridHeading>(m_grid, m_model, m_drag, this);
    setHeader(&heading);
    heading.setSectionsClickable(true);  // the tree takes that away
    m_headingClicked = heading.Clicked.Subscribe([this](int section) {
        modGridOrder::ClickHeading(
            m_grid,
            m_model.ColumnOf(section),
            QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier));
    });
    QObject::connect(
        &heading, &QHeaderView::sectionResized, this, [this](int section, int, int pixels) {
            TakeWidth(section, pixels);
        });
}

// ---- what the grid reports ----

void GridView::Follow(GridChange change, std::size_t row) {
    const QScopedValueRollback following(m_following, true);
    m_model.Apply(change, row);
    switch (change) {
        case GridChange::Column: ApplyWidths(); break;
        case GridChange::Rows:
            ApplyWidths();
            ShowOrder();
            FollowCurrent();
            break;
        case GridChange::RowsFrom:
        case GridChange::Current: FollowCurrent(); break;
        case GridChange::Row: break;
    }
}

/// Rows that the user selected besides the current one stay selected.
void GridView::FollowCurrent() {
    const QScopedValueRollback following(m_following, true);
    const std::optional<std::size_t> row = m_grid.CurrentRow();
    if (!row) {
        setCurrentIndex({});
        selectionModel()->clear();
        return;
    }
    const QModelIndex index = m_model.index(static_cast<int>(*row), 0);
    const bool isCurrent = currentIndex().row() == index.row();
    if (isCurrent && m_userMoves) {
        return;  // Qt selects what the user has clicked
    }
    if (!isCurrent || !selectionModel()->isSelected(index)) {
        selectionModel()->setCurrentIndex(index, kWholeRow);
    }
    scrollTo(index);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (m_following || !current.isValid() || current.row() == previous.row()) {
        return;
    }
    const QScopedValueRollback moving(m_userMoves, true);
    m_grid.SetCurrentRow(static_cast<std::size_t>(current.row()));
}

/// The arrow in the headings is that of the most important sort key.
void GridView::ShowOrder() {
    int section = -1;
    Qt::SortOrder order = Qt::AscendingOrder;
    if (!m_grid.SortKeys().empty()) {
        const GridOrderKey& key = m_grid.SortKeys().front();
        order = key.Descending ? Qt::DescendingOrder : Qt::AscendingOrder;
        for (int i = 0; i < m_model.columnCount(); ++i) {
            section = m_model.ColumnOf(i) == key.Column ? i : section;
        }
    }
    header()->setSortIndicatorShown(section >= 0);
    header()->setSortIndicator(section, order);
}

void GridView::FillSortMenu(QMenu& menu) {
    for (int section = 0; section < m_model.columnCount(); ++section) {
        const std::int32_t column = m_model.ColumnOf(section);
        const std::vector<GridOrderKey>& keys = m_grid.SortKeys();
        QAction* const action = menu.addAction(modQt::Text(modGridOrder::TitleOf(m_grid, column)));
        action->setCheckable(true);
        action->setChecked(!keys.empty() && keys.front().Column == column);
        QObject::connect(action, &QAction::triggered, this, [this, column] {
            modGridOrder::ClickHeading(m_grid, column, false);
        });
    }
}

// ---- widths ----

int GridView::WidthOf(int section) const {
    const GridColumn& column = m_grid.Column(m_model.ColumnOf(section));
    if (column.Width > 0) {
        return std::max(
            modFractions::Pixels(column.Width, viewport()->width()),
            header()->sectionSizeHint(section));  // room for the heading
    }
    const int text = fontMetrics().height();
    if (column.IsCheckBox || m_model.ShowsSeverity(section)) {
        const int depth = section == 0 ? static_cast<int>(m_grid.Groups().size()) : 0;
        return text * 2 + depth * GridDelegate::Indentation(fontMetrics());
    }
    return text * 8;
}

/// The last column also takes what the others leave.
void GridView::ApplyWidths() {
    const QScopedValueRollback following(m_following, true);
    int left = viewport()->width();
    for (int section = 0; section < m_model.columnCount(); ++section) {
        const bool isLast = section + 1 == m_model.columnCount();
        const int width = isLast ? std::max(WidthOf(section), left) : WidthOf(section);
        header()->resizeSection(section, width);
        left -= width;
    }
    updateGeometries();  // or Qt shows a bar for the widths of before
}

void GridView::TakeWidth(int section, int pixels) {
    if (m_following || viewport()->width() <= 0) {
        return;
    }
    m_grid.ChooseWidth(
        m_model.ColumnOf(section), static_cast<double>(pixels) / viewport()->width());
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    ApplyWidths();
}

/// Qt makes a row current without selecting it where the view had none.
void GridView::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    if (currentIndex().isValid() && !selectionModel()->hasSelection()) {
        selectionModel()->select(currentIndex(), kWholeRow);
    }
}

void GridView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange && header() != nullptr) {
        header()->setMinimumSectionSize(fontMetrics().height());
        ApplyWidths();
    }
}

// ---- group rows ----

std::optional<GridGroupRow> GridView::GroupAt(const QModelIndex& index) const {
    return index.isValid() ? m_grid.GroupRow(static_cast<std::size_t>(index.row())) : std::nullopt;
}

QRect GridView::GroupRowRect(const QModelIndex& index) const {
    const QRect row = visualRect(index.siblingAtColumn(0));
    return {0, row.y(), std::max(viewport()->width(), header()->length()), row.height()};
}

QRect GridView::ExpanderRect(const QModelIndex& index, int level) const {
    const QRect row = GroupRowRect(index);
    const int step = GridDelegate::Indentation(fontMetrics());
    const QRect expander(row.x() + step / 4 + (level - 1) * step, row.y(), step, row.height());
    return QStyle::visualRect(layoutDirection(), viewport()->rect(), expander);
}

void GridView::drawRow(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const std::optional<GridGroupRow> group = GroupAt(index);
    if (!group) {
        QTreeView::drawRow(painter, option, index);
        return;
    }
    const QRect row = GroupRowRect(index);
    const bool isSelected = selectionModel()->isSelected(index.siblingAtColumn(0));
    const QPalette::ColorGroup state = hasFocus() ? QPalette::Active : QPalette::Inactive;
    painter->save();
    painter->fillRect(
        row,
        isSelected ? palette().color(state, QPalette::Highlight) : modTheme::Colours().GroupRow);
    painter->setPen(palette().color(QPalette::Mid));
    painter->drawLine(row.bottomLeft(), row.bottomRight());
    const QColor text =
        palette().color(state, isSelected ? QPalette::HighlightedText : QPalette::Text);

    QStyleOption branch;
    branch.initFrom(this);
    branch.rect = ExpanderRect(index, group->Level);
    branch.palette.setColor(QPalette::WindowText, text);
    branch.palette.setColor(QPalette::Text, text);
    branch.state |= QStyle::State_Children;
    branch.state.setFlag(QStyle::State_Open, group->Expanded);
    style()->drawPrimitive(QStyle::PE_IndicatorBranch, &branch, painter, this);

    QFont bold = font();
    bold.setBold(true);
    painter->setFont(bold);
    painter->setPen(text);
    const int step = GridDelegate::Indentation(fontMetrics());
    const QRect place = QStyle::visualRect(
        layoutDirection(),
        viewport()->rect(),
        QRect(
            row.x() + step / 4 + group->Level * step + step / 4,
            row.y(),
            viewport()->width(),
            row.height())
            .intersected(viewport()->rect().adjusted(0, -row.height(), 0, row.height())));
    painter->drawText(
        place,
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        QFontMetrics(bold).elidedText(
            index.siblingAtColumn(0).data().toString(), Qt::ElideRight, place.width()));
    if (hasFocus() && currentIndex().row() == index.row()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = row.intersected(viewport()->rect());
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, this);
    }
    painter->restore();
}

void GridView::ToggleGroup(const QModelIndex& index) {
    if (const std::optional<GridGroupRow> group = GroupAt(index)) {
        m_grid.SetExpanded(static_cast<std::size_t>(index.row()), !group->Expanded);
    }
}

// ---- the user ----

void GridView::mousePressEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    const QModelIndex index = indexAt(place);
    const std::optional<GridGroupRow> group = GroupAt(index);
    if (group && event->button() == Qt::LeftButton &&
        ExpanderRect(index, group->Level).contains(place)) {
        ToggleGroup(index);
        return;
    }
    QTreeView::mousePressEvent(event);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid() || event->button() != Qt::LeftButton) {
        return;
    }
    const std::optional<GridGroupRow> group = GroupAt(index);
    if (group) {
        ToggleGroup(index);
    } else if (m_model.flags(index).testFlag(Qt::ItemIsUserCheckable)) {
        QTreeView::mouseDoubleClickEvent(event);  // the second click on a check box
    } else {
        m_grid.DoubleClick(static_cast<std::size_t>(index.row()));
    }
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        CopyRequested.Raise();
        return;
    }
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier ||
                         event->key() == Qt::Key_Plus || event->key() == Qt::Key_Asterisk;
    if (isPlain && event->key() == Qt::Key_Space) {
        CheckSelected();
    } else if (!isPlain || !HandleGroupKey(event->key())) {
        QTreeView::keyPressEvent(event);
    }
}

/// Gives whether the key has a meaning here.
bool GridView::HandleGroupKey(int key) {
    const QModelIndex index = currentIndex();
    const std::optional<GridGroupRow> group = GroupAt(index);
    const auto expand = [&](bool expanded) {
        if (group && group->Expanded != expanded) {
            m_grid.SetExpanded(static_cast<std::size_t>(index.row()), expanded);
        }
    };
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            ToggleGroup(index);
            if (index.isValid() && !group) {
                m_grid.DoubleClick(static_cast<std::size_t>(index.row()));
            }
            return true;
        case Qt::Key_Asterisk: m_grid.ExpandAll(true); return true;
        case Qt::Key_Plus: expand(true); return true;
        case Qt::Key_Minus: expand(false); return true;
        case Qt::Key_Right: expand(true); return group.has_value();
        case Qt::Key_Left:
            if (group && group->Expanded) {
                expand(false);
            } else {
                GoToGroupAbove(index.row(), group ? group->Level : 0);
            }
            return !m_grid.Groups().empty();
        default: return false;
    }
}

/// The nearest group row above that contains the row. `level` is 0 for a data row.
void GridView::GoToGroupAbove(int row, std::int32_t level) {
    while (--row >= 0) {
        const std::optional<GridGroupRow> group = m_grid.GroupRow(static_cast<std::size_t>(row));
        if (group && (level == 0 || group->Level < level)) {
            m_grid.SetCurrentRow(static_cast<std::size_t>(row));
            return;
        }
    }
}

std::vector<std::int32_t> GridView::SelectedKeys() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(row);
        }
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::vector<std::int32_t> keys;
    for (const int row : rows) {
        if (const auto key = m_grid.KeyOfRow(static_cast<std::size_t>(row))) {
            keys.push_back(*key);
        }
    }
    return keys;
}

/// All selected rows get the mark that the current one has not.
void GridView::CheckSelected() {
    const auto& columns = m_grid.Columns();
    const auto box = std::find_if(
        columns.begin(), columns.end(), [](const GridColumn& column) { return column.IsCheckBox; });
    const std::optional<std::int32_t> current = m_grid.CurrentKey();
    if (box == columns.end() || !current) {
        return;
    }
    const auto column = static_cast<std::int32_t>(box - columns.begin()) + 1;
    const bool checked = m_grid.Value(*current, column).AsLong() == 0;
    const std::vector<std::int32_t> keys = SelectedKeys();
    modSlices::Run(*this, QStringLiteral("Marking rows..."), keys.size(), [&](std::size_t number) {
        m_grid.Check(keys[number], checked);
    });
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    const QRect current = visualRect(currentIndex()).intersected(viewport()->rect());
    m_popupPosition = event->reason() == QContextMenuEvent::Keyboard
                          ? viewport()->mapToGlobal(current.bottomLeft())
                          : event->globalPos();
    m_grid.PopupRequested.Raise();
}

}  // namespace dorvik
