#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/ListTable.h"

#include <QTreeView>

class QMenu;

namespace dorvik {

class ListTableModel;

/// A list of rows with headings on the screen. Enter is a double click, Ctrl+C copies the selected row.
class ListTableView final : public QTreeView {
public:
    /// REQUIRES: `list` outlives this.
    explicit ListTableView(ListTable& list, QWidget* parent = nullptr);
    ~ListTableView() override;

    /// Adds what clicks on the headings do.
    void FillSortMenu(QMenu& menu);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void
    selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void Follow(ListChange change, std::size_t index);
    void FollowSelection();
    void ApplyColumns();
    void CopyRow() const;

    ListTable& m_list;
    ListTableModel& m_model;
    bool m_following = false;  // while the list's own changes are shown
    Subscription m_changed;
};

}  // namespace dorvik
