#pragma once

#include <QTreeView>

namespace dorvik {

class CheckTree;

/// Shows a tree with check marks. A click on the mark and Space check the node; what that means for other nodes is up to the
/// owner of the tree. Nodes are open as `CheckNode::Expanded` has it, and what the user opens and closes is kept there.
/// REQUIRES: the tree outlives it.
class CheckTreeView final : public QTreeView {
public:
    CheckTreeView(CheckTree& tree, QWidget* parent);

private:
    void Expand();
};

}  // namespace dorvik
