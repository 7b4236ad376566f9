#pragma once

#include "workstation/controls/CommandControl.h"
#include "workstation/widgets/CommandActions.h"

#include <QMenu>

namespace dorvik {

/// A popup of a command bar as a menu. When it opens, the popup is clicked, so that the model can bring its items up to date.
class CommandMenu final : public QMenu {
public:
    /// REQUIRES: `popup` outlives this.
    explicit CommandMenu(CommandControl& popup, QWidget* parent = nullptr);

    /// Those of the popup's items, for tests and for what is added around them.
    const CommandActions& Commands() const { return m_commands; }

private:
    CommandActions& m_commands;
};

}  // namespace dorvik
