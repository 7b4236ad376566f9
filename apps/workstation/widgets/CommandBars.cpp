#include "workstation/widgets/CommandBars.h"

#include "workstation/look/modQt.h"
#include "workstation/widgets/CommandActions.h"
#include "workstation/widgets/CommandMenu.h"

#include <QMenu>
#include <QMenuBar>

#include <utility>

namespace dorvik {

CommandToolBar::CommandToolBar(CommandControl& bar, QWidget* parent) : QToolBar(parent) {
    const QString name = modQt::Text(bar.Look().Caption);
    setObjectName(name);
    setWindowTitle(name);
    setAccessibleName(name);
    modQt::Make<CommandActions>(bar, *this);
}

CommandMenuBar::CommandMenuBar(CommandControl& menus, QMenuBar& bar, OwnMenus ownMenus)
    : m_menus(menus), m_bar(bar), m_ownMenus(std::move(ownMenus)) {
    for (const auto& popup : m_menus.Items()) {
        if (const auto own = m_ownMenus.find(popup->Id()); own != m_ownMenus.end()) {
            // What an add-in puts into a menu of the environment follows the window's own items.
            modQt::Make<CommandActions>(*popup, *own->second);
        }
    }
    m_changed = m_menus.Changed.Subscribe([this] { Fill(); });
    Fill();
}

void CommandMenuBar::Fill() {
    m_bar.clear();
    std::map<const CommandControl*, QMenu*> before = std::exchange(m_added, {});
    for (const auto& popup : m_menus.Items()) {
        if (popup->Id() != 0) {
            const auto own = m_ownMenus.find(popup->Id());
            if (own != m_ownMenus.end()) {
                m_bar.addMenu(own->second);
            }
            continue;
        }
        const auto known = before.find(popup.get());
        QMenu* const menu =
            known != before.end() ? known->second : &modQt::Make<CommandMenu>(*popup, &m_bar);
        before.erase(popup.get());
        m_added.emplace(popup.get(), menu);
        m_bar.addMenu(menu);
    }
    for (const auto& [popup, menu] : before) {
        menu->deleteLater();
    }
}

}  // namespace dorvik
