#include "PaneFollower.h"

#include "CodeEditor.h"
#include "ModuleText.h"
#include "workstation/filehost/FileCodeModule.h"

#include <QScopedValueRollback>
#include <QTimer>

#include <utility>

namespace dorvik {

PaneFollower::PaneFollower(CodeEditor& editor, FileCodeModule& module, ModuleText& text)
    : m_editor(editor), m_pane(module.CodePane()), m_text(text) {
    m_top = m_pane.TopLineChanged.Subscribe([this](std::int32_t) {
        m_hasTop = true;
        ShowLater();
    });
    m_selection = m_pane.SelectionChanged.Subscribe([this] {
        if (!m_isTaking && !m_text.IsMirroring()) {
            m_hadSelection = std::exchange(m_hasSelection, true);
            ShowLater();
        }
    });
    // The pane has followed the lines just before. So has the editor, and it may have been given another selection since.
    m_changes = module.Changed.Subscribe([this](const LinesChange&) {
        if (!m_text.IsMirroring()) {
            m_hasSelection = m_hadSelection;
        }
    });
    m_undone = text.Undone.Subscribe([this] {
        m_hasSelection = false;
        Take();
    });
    QObject::connect(&editor, &QsciScintillaBase::SCN_UPDATEUI, &m_context, [this](int) {
        if (!m_hasTop && !m_hasSelection) {
            Take();
        }
    });
    ShowLater();
}

void PaneFollower::ShowLater() {
    QTimer::singleShot(0, &m_context, [this] { Show(); });
}

void PaneFollower::Show() {
    if (m_hasSelection) {
        m_editor.Select(m_pane.Selection());
    }
    if (m_hasTop) {
        m_editor.SetTopLine(m_pane.TopLine());
    }
    m_hasSelection = false;
    m_hasTop = false;
}

void PaneFollower::Take() {
    const QScopedValueRollback<bool> taking(m_isTaking, true);
    const CodeRange range = m_editor.Range();
    if (!(range == m_pane.Selection())) {
        m_pane.SetSelection(range);
    }
    m_pane.TakeTopLine(m_editor.TopLine());
}

}  // namespace dorvik
