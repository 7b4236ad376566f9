#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/CodeSearch.h"

#include <QTimer>
#include <QWidget>

#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace dorvik {

class CodeEditor;

/// Finds and replaces in an editor.
class FindBar final : public QWidget {
public:
    FindBar(CodeEditor& editor, CodeSearch& search, QWidget* parent);

    /// Begins with what is selected: a part of a line is looked for, several lines are looked in.
    void Open(bool withReplace);
    void Close();
    void FindNext();
    void FindPrevious();
    void Replace();
    void ReplaceAll();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Arrange();
    void Connect();
    QCheckBox& Option(const char* text);
    QPushButton& Button(const char* text, void (FindBar::*run)());
    void TakeOptions();
    void TakeScope(bool isWanted);
    /// False where there is nothing to look for: the bar is opened then.
    bool HasText();
    void TakeText();
    void Go(const std::optional<CodeSearch::Hit>& hit);
    void ShowHits();
    void ShowCount(const QString& message);
    void ClearHits();
    void Paint(const CodeRange& hit, bool isShown);
    /// The hit that is selected has the surface of the selection.
    void ShowSelected();

    CodeEditor& m_editor;
    CodeSearch& m_search;
    QLineEdit& m_text;
    QLineEdit& m_replacement;
    QCheckBox& m_matchCase;
    QCheckBox& m_wholeWord;
    QCheckBox& m_wraps;
    QCheckBox& m_inSelection;
    QLabel& m_count;
    QWidget& m_replaceRow;
    QTimer m_later;
    std::optional<CodeRange> m_selected;  // without a surface of its own
    CodeRange m_origin;                   // what is typed is looked for from here on
    Subscription m_changes;
    Subscription m_theme;
};

}  // namespace dorvik
