#pragma once

#include "workstation/controls/Event.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace dorvik {

/// A node of a tree with check marks. It lives as long as the tree holds it.
struct CheckNode {
    std::string Key = {};
    std::string Tag = {};
    std::string Text = {};
    std::string Image = {};
    bool Checked = false;
    bool Expanded = false;
    CheckNode* Parent = nullptr;
    std::vector<std::unique_ptr<CheckNode>> Children = {};
};

/// What a screen has to draw anew.
enum class TreeChange : std::int32_t { Nodes, Check };

/// A tree with check marks. It holds marks and knows no rule for them: what a mark means for the nodes above and below is
/// up to the owner, who hears of the user's clicks by `NodeChecked`.
class CheckTree {
public:
    const std::vector<std::unique_ptr<CheckNode>>& Roots() const { return m_roots; }
    void Clear();
    /// At the end of the parent's children; null for a root. The parent of `node` is set here.
    CheckNode& Add(CheckNode* parent, CheckNode node);
    void Remove(CheckNode& node);
    void SetChecked(CheckNode& node, bool checked);
    /// What the user does: `SetChecked`, then `NodeChecked`.
    void Check(CheckNode& node, bool checked);

    /// Every node, a parent before its children, in the order shown.
    std::vector<CheckNode*> Nodes() const;

    Event<TreeChange, const CheckNode*> Changed;  // null where it is about all of them
    Event<CheckNode&> NodeChecked;

private:
    std::vector<std::unique_ptr<CheckNode>> m_roots;
};

}  // namespace dorvik
