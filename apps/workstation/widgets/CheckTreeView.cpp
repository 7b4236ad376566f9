#include "workstation/widgets/CheckTreeView.h"

#include "workstation/controls/CheckTree.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QSignalBlocker>

#include <functional>

namespace dorvik {

namespace {

CheckNode* NodeOf(const QModelIndex& index) {
    return static_cast<CheckNode*>(index.internalPointer());
}

class CheckTreeNodes final : public QAbstractItemModel {
public:
    CheckTreeNodes(CheckTree& tree, QObject* parent)
        : QAbstractItemModel(parent),
          m_tree(tree),
          m_onChanged(tree.Changed.Subscribe(
              [this](TreeChange change, const CheckNode* node) { Follow(change, node); })) {}

    QModelIndex index(int row, int column, const QModelIndex& parent) const override {
        const auto& nodes = Below(parent);
        const bool isThere = row >= 0 && row < static_cast<int>(nodes.size()) && column == 0;
        return isThere ? createIndex(row, column, nodes[static_cast<std::size_t>(row)].get())
                       : QModelIndex();
    }
    QModelIndex parent(const QModelIndex& index) const override {
        return index.isValid() ? IndexOf(NodeOf(index)->Parent) : QModelIndex();
    }
    int rowCount(const QModelIndex& parent) const override {
        return static_cast<int>(Below(parent).size());
    }
    int columnCount(const QModelIndex&) const override { return 1; }
    Qt::ItemFlags flags(const QModelIndex&) const override {
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const CheckNode& node = *NodeOf(index);
        switch (role) {
            case Qt::DisplayRole: return modQt::Text(node.Text);
            case Qt::CheckStateRole: return node.Checked ? Qt::Checked : Qt::Unchecked;
            case Qt::DecorationRole: return modPictures::Icon(node.Image);
            default: return {};
        }
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        if (role == Qt::CheckStateRole) {
            m_tree.Check(*NodeOf(index), value.toInt() == Qt::Checked);
        }
        return role == Qt::CheckStateRole;
    }

private:
    const std::vector<std::unique_ptr<CheckNode>>& Below(const QModelIndex& parent) const {
        return parent.isValid() ? NodeOf(parent)->Children : m_tree.Roots();
    }
    /// Not valid for null, the place of the roots.
    QModelIndex IndexOf(const CheckNode* node) const {
        if (node == nullptr) {
            return {};
        }
        const auto& siblings = node->Parent != nullptr ? node->Parent->Children : m_tree.Roots();
        for (std::size_t row = 0; row < siblings.size(); ++row) {
            if (siblings[row].get() == node) {
                return createIndex(static_cast<int>(row), 0, siblings[row].get());
            }
        }
        return {};
    }
    void Follow(TreeChange change, const CheckNode* node) {
        if (change == TreeChange::Nodes || node == nullptr) {
            beginResetModel();
            endResetModel();
        } else {
            const QModelIndex changed = IndexOf(node);
            Q_EMIT dataChanged(changed, changed);
        }
    }

    CheckTree& m_tree;
    Subscription m_onChanged;
};

void ForEachNode(
    const QAbstractItemModel& model,
    const QModelIndex& parent,
    const std::function<void(const QModelIndex&)>& visit) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        visit(index);
        ForEachNode(model, index, visit);
    }
}

}  // namespace

CheckTreeView::CheckTreeView(CheckTree& tree, QWidget* parent) : QTreeView(parent) {
    CheckTreeNodes& nodes = modQt::Make<CheckTreeNodes>(tree, this);
    setModel(&nodes);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    connect(this, &QTreeView::expanded, this, [](const QModelIndex& index) {
        NodeOf(index)->Expanded = true;
    });
    connect(this, &QTreeView::collapsed, this, [](const QModelIndex& index) {
        NodeOf(index)->Expanded = false;
    });
    connect(&nodes, &QAbstractItemModel::modelReset, this, [this] { Expand(); });
    Expand();
}

void CheckTreeView::Expand() {
    const QSignalBlocker blocked(this);
    ForEachNode(*model(), {}, [this](const QModelIndex& index) {
        setExpanded(index, NodeOf(index)->Expanded);
    });
}

}  // namespace dorvik
