#include "workstation/widgets/CommandMenu.h"

#include "workstation/look/modQt.h"

namespace dorvik {

CommandMenu::CommandMenu(CommandControl& popup, QWidget* parent)
    : QMenu(parent), m_commands(modQt::Make<CommandActions>(popup, *this)) {
    setTitle(modQt::Text(popup.Look().Caption));
    QObject::connect(this, &QMenu::aboutToShow, this, [&popup] { popup.Click(); });
}

}  // namespace dorvik
