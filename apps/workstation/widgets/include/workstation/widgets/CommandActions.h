#pragma once

#include "workstation/controls/CommandControl.h"
#include "workstation/controls/Event.h"

#include <QObject>

#include <vector>

class QAction;
class QWidget;

namespace dorvik {

/// The items of a command bar as actions of a menu, menu bar or toolbar, which stay as the items are: caption, picture,
/// enabled, checked, lines between groups, items that come and go. A popup among them is a menu of its own. An action that
/// is triggered clicks its item.
class CommandActions final : public QObject {
public:
    /// Adds the actions at the end of the target, which becomes the parent. REQUIRES: `bar` outlives this.
    CommandActions(CommandControl& bar, QWidget& target);
    ~CommandActions() override;

    /// In the order of the items, without the lines.
    const std::vector<QAction*>& Actions() const { return m_actions; }

private:
    void Rebuild();
    QAction& Add(CommandControl& item);
    static void Show(const CommandControl& item, QAction& action);

    CommandControl& m_bar;
    QWidget& m_target;
    QAction* m_before = nullptr;  // the target's first action that is not of the bar
    std::vector<const CommandControl*> m_items;
    std::vector<QAction*> m_actions;
    std::vector<QAction*> m_lines;
    std::vector<Subscription> m_itemChanges;
    Subscription m_barChanged;
};

}  // namespace dorvik
