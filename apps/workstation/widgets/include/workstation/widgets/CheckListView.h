#pragma once

#include <QTreeView>

namespace dorvik {

class CheckList;

/// Shows a list with check marks, its descriptions in a second column where it has any. A click on the mark and Space check
/// the item. REQUIRES: the list outlives it.
class CheckListView final : public QTreeView {
public:
    CheckListView(CheckList& list, QWidget* parent);

private:
    void FitColumns();
};

}  // namespace dorvik
