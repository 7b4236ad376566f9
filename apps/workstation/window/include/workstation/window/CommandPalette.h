#pragma once

#include "workstation/controls/Event.h"

#include <QDialog>
#include <QIcon>

#include <functional>
#include <string>
#include <vector>

class QKeyEvent;
class QLineEdit;
class QListWidget;

namespace dorvik {

/// Something that can be done by its name.
struct PaletteEntry {
    std::string Text;      // "Dorvik: Review Project(s)..."
    std::string Shortcut;  // as it is shown, empty for none
    QIcon Picture;
    std::function<void()> Run;
};

/// A box in which some letters of a command find it. The arrow keys choose, Enter runs.
class CommandPalette final : public QDialog {
public:
    CommandPalette(std::vector<PaletteEntry> entries, QWidget* parent);

    QLineEdit& Box() { return m_box; }
    QListWidget& List() { return m_list; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show();
    void RunCurrent();

    std::vector<PaletteEntry> m_entries;
    std::vector<std::string> m_texts;
    QLineEdit& m_box;
    QListWidget& m_list;
};

}  // namespace dorvik
