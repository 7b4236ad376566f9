#include "workstation/controls/CheckTree.h"

#include <utility>

namespace dorvik {

namespace {

using NodeList = std::vector<std::unique_ptr<CheckNode>>;

void Collect(const NodeList& nodes, std::vector<CheckNode*>& found) {
    for (const auto& node : nodes) {
        found.push_back(node.get());
        Collect(node->Children, found);
    }
}

}  // namespace

void CheckTree::Clear() {
    m_roots.clear();
    Changed.Raise(TreeChange::Nodes, nullptr);
}

CheckNode& CheckTree::Add(CheckNode* parent, CheckNode node) {
    NodeList& siblings = parent != nullptr ? parent->Children : m_roots;
    node.Parent = parent;
    siblings.push_back(std::make_unique<CheckNode>(std::move(node)));
    Changed.Raise(TreeChange::Nodes, siblings.back().get());
    return *siblings.back();
}

void CheckTree::Remove(CheckNode& node) {
    NodeList& siblings = node.Parent != nullptr ? node.Parent->Children : m_roots;
    std::erase_if(siblings, [&node](const auto& sibling) { return sibling.get() == &node; });
    Changed.Raise(TreeChange::Nodes, nullptr);
}

void CheckTree::SetChecked(CheckNode& node, bool checked) {
    node.Checked = checked;
    Changed.Raise(TreeChange::Check, &node);
}

void CheckTree::Check(CheckNode& node, bool checked) {
    SetChecked(node, checked);
    NodeChecked.Raise(node);
}

std::vector<CheckNode*> CheckTree::Nodes() const {
    std::vector<CheckNode*> found;
    Collect(m_roots, found);
    return found;
}

}  // namespace dorvik
