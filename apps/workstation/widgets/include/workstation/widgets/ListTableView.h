#pragma once

#include "workstation/controls/Event.h"

#include <QTreeView>

namespace dorvik {

class ListTable;

/// Shows a table of texts. REQUIRES: the table outlives it.
class ListTableView final : public QTreeView {
public:
    ListTableView(ListTable& table, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowColumns();
    void ShowSelection();

    ListTable& m_table;
    bool m_isFollowing = false;  // columns and selection are set by the table, not by the user
    Subscription m_onChanged;
};

}  // namespace dorvik
