#pragma once

#include "workstation/controls/Event.h"

#include <QObject>

namespace dorvik {

class CodeEditor;
class FileCodeModule;
class FileCodePane;
class ModuleText;

/// Keeps top line and selection of an editor and of its pane alike. What is set in the pane is shown when the program is idle
/// next. REQUIRES: all outlive it.
class PaneFollower {
public:
    PaneFollower(CodeEditor& editor, FileCodeModule& module, ModuleText& text);
    PaneFollower(const PaneFollower&) = delete;
    PaneFollower& operator=(const PaneFollower&) = delete;

    /// Shows now what is set.
    void Show();
    /// The pane has what the editor shows.
    void Take();

private:
    void ShowLater();

    CodeEditor& m_editor;
    FileCodePane& m_pane;
    ModuleText& m_text;
    QObject m_context;
    Subscription m_top;
    Subscription m_selection;
    Subscription m_changes;
    Subscription m_undone;
    bool m_isTaking = false;
    bool m_hasTop = true;  // to be shown
    bool m_hasSelection = true;
    bool m_hadSelection = false;  // before the pane's selection was set last
};

}  // namespace dorvik
