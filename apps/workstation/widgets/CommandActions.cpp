#include "workstation/widgets/CommandActions.h"

#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"
#include "workstation/widgets/CommandMenu.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QWidget>

#include <algorithm>

namespace dorvik {

namespace {

// An item with one of these faces is checked or not.
constexpr std::string_view kCheckedFace = "Checked";
constexpr std::string_view kBlankFace = "Blank";

bool IsCheckable(const CommandLook& look) {
    return look.Checked || look.Face == kCheckedFace || look.Face == kBlankFace;
}

/// What is discarded may be the action whose trigger is being handled. That of a submenu goes with its menu.
void Discard(QWidget& target, QAction* action) {
    target.removeAction(action);
    QObject* const owner = action->menu();
    (owner != nullptr ? owner : action)->deleteLater();
}

}  // namespace

CommandActions::CommandActions(CommandControl& bar, QWidget& target)
    : QObject(&target), m_bar(bar), m_target(target) {
    m_barChanged = m_bar.Changed.Subscribe([this] {
        const bool isSame = std::equal(
            m_items.begin(),
            m_items.end(),
            m_bar.Items().begin(),
            m_bar.Items().end(),
            [](const CommandControl* shown, const auto& item) { return shown == item.get(); });
        if (!isSame) {
            Rebuild();
        }
    });
    Rebuild();
}

CommandActions::~CommandActions() = default;

void CommandActions::Rebuild() {
    m_itemChanges.clear();
    QList<QAction*> present = m_target.actions();
    if (!m_actions.empty()) {
        const qsizetype last = present.indexOf(m_actions.back());
        m_before = last >= 0 && last + 1 < present.size() ? present.at(last + 1) : nullptr;
    }
    for (QAction* const action : m_actions) {
        Discard(m_target, action);
    }
    for (QAction* const line : m_lines) {
        Discard(m_target, line);
    }
    m_items.clear();
    m_actions.clear();
    m_lines.clear();
    for (const auto& item : m_bar.Items()) {
        if (item->Look().BeginGroup && !m_actions.empty()) {
            auto& line = modQt::Make<QAction>(this);
            line.setSeparator(true);
            m_target.insertAction(m_before, &line);
            m_lines.push_back(&line);
        }
        QAction& action = Add(*item);
        m_target.insertAction(m_before, &action);
        m_items.push_back(item.get());
        m_actions.push_back(&action);
        m_itemChanges.push_back(
            item->Changed.Subscribe([&control = *item, shown = QPointer<QAction>(&action)] {
                if (shown) {
                    Show(control, *shown);
                }
            }));
    }
}

QAction& CommandActions::Add(CommandControl& item) {
    if (item.Kind() == CommandKind::Popup) {
        auto& menu = modQt::Make<CommandMenu>(item, &m_target);
        QAction& action = *menu.menuAction();
        Show(item, action);
        return action;
    }
    auto& action = modQt::Make<QAction>(this);
    Show(item, action);
    QObject::connect(&action, &QAction::triggered, &action, [&item, &action] {
        Show(item, action);  // Qt has turned the check mark, which is the model's to do
        item.Click();
    });
    return action;
}

void CommandActions::Show(const CommandControl& item, QAction& action) {
    const CommandLook& look = item.Look();
    const bool isCheckable = IsCheckable(look);
    action.setText(modQt::Text(look.Caption));
    action.setObjectName(modQt::Text(look.Tag));
    action.setIcon(isCheckable ? QIcon() : modPictures::Icon(look.Face));
    action.setCheckable(isCheckable && item.Kind() == CommandKind::Button);
    action.setChecked(look.Checked);
    action.setEnabled(look.Enabled);
}

}  // namespace dorvik
