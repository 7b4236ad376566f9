#pragma once

#include "workstation/controls/CommandControl.h"

#include <QToolBar>

#include <cstdint>
#include <functional>
#include <map>

class QMenu;
class QMenuBar;

namespace dorvik {

/// A bar of the models as a tool bar. REQUIRES: the bar outlives it.
class CommandToolBar final : public QToolBar {
public:
    CommandToolBar(CommandControl& bar, QWidget* parent);
};

/// The menu bar of the models: shows its popups in their order, those of the window itself and those of an add-in.
class CommandMenuBar {
public:
    /// The window's own menus for the popups of the environment, by their numbers. Popups without one are not shown.
    using OwnMenus = std::map<std::int32_t, QMenu*>;

    /// REQUIRES: all of them outlive this.
    CommandMenuBar(CommandControl& menus, QMenuBar& bar, OwnMenus ownMenus);
    CommandMenuBar(const CommandMenuBar&) = delete;
    CommandMenuBar& operator=(const CommandMenuBar&) = delete;

private:
    void Fill();

    CommandControl& m_menus;
    QMenuBar& m_bar;
    OwnMenus m_ownMenus;
    std::map<const CommandControl*, QMenu*> m_added;  // menus of add-ins
    Subscription m_changed;
};

}  // namespace dorvik
