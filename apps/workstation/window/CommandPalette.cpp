#include "workstation/window/CommandPalette.h"

#include "workstation/desk/modFuzzySearch.h"
#include "workstation/look/modQt.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include <utility>

namespace dorvik {

namespace {

constexpr int kCharactersWide = 90;
constexpr int kRowsHigh = 16;

}  // namespace

CommandPalette::CommandPalette(std::vector<PaletteEntry> entries, QWidget* parent)
    : QDialog(parent),
      m_entries(std::move(entries)),
      m_box(modQt::Make<QLineEdit>()),
      m_list(modQt::Make<QListWidget>()) {
    setWindowTitle(modQt::Text("Commands and settings"));
    setObjectName(modQt::Text("CommandPalette"));
    for (const PaletteEntry& entry : m_entries) {
        m_texts.push_back(entry.Text);
    }
    auto& layout = modQt::Make<QVBoxLayout>(this);
    layout.addWidget(&m_box);
    layout.addWidget(&m_list);
    m_box.setPlaceholderText(modQt::Text("Some letters of a command or setting"));
    m_box.setAccessibleName(modQt::Text("Command"));
    m_box.setClearButtonEnabled(true);
    m_box.installEventFilter(this);
    m_list.setAccessibleName(modQt::Text("Commands"));
    m_list.setUniformItemSizes(true);
    m_list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list.setFocusPolicy(Qt::NoFocus);
    setMinimumWidth(fontMetrics().averageCharWidth() * kCharactersWide);
    m_list.setMinimumHeight(fontMetrics().height() * kRowsHigh);
    connect(&m_box, &QLineEdit::textChanged, this, [this] { Show(); });
    connect(&m_box, &QLineEdit::returnPressed, this, [this] { RunCurrent(); });
    connect(&m_list, &QListWidget::itemClicked, this, [this] { RunCurrent(); });
    Show();
}

void CommandPalette::Show() {
    m_list.clear();
    for (const std::size_t place : modFuzzySearch::Find(m_texts, modQt::Utf8(m_box.text()))) {
        const PaletteEntry& entry = m_entries[place];
        const std::string text =
            entry.Shortcut.empty() ? entry.Text : entry.Text + "  \u2014  " + entry.Shortcut;
        auto& item = modQt::Make<QListWidgetItem>(entry.Picture, modQt::Text(text), &m_list);
        item.setData(Qt::UserRole, static_cast<qulonglong>(place));
    }
    m_list.setCurrentRow(0);
}

void CommandPalette::RunCurrent() {
    const QListWidgetItem* const item = m_list.currentItem();
    if (item == nullptr) {
        return;
    }
    const std::function<void()> run = m_entries.at(item->data(Qt::UserRole).toULongLong()).Run;
    accept();
    run();
}

/// The list is moved through from the box.
bool CommandPalette::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_box && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
            key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(&m_list, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace dorvik
