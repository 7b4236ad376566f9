#pragma once

#include "Scintilla.h"
#include "workstation/controls/Event.h"
#include "workstation/host/ICodeModule.h"

#include <string>
#include <vector>

namespace dorvik {

/// The surface on which code is edited: its look, and its text by lines and columns as the models have them, from 1 and in
/// characters. It undoes nothing itself.
class CodeEditor final : public QsciScintilla {
public:
    explicit CodeEditor(QWidget* parent);

    int LineCount() const { return static_cast<int>(SendScintilla(SCI_GETLINECOUNT)); }
    std::string LineText(int line) const;
    /// The byte in the whole text. A column after the end of its line is the end.
    int Position(int line, int column) const;
    int LineStart(int line) const;
    int LineEnd(int line) const;
    int LineOf(int position) const;
    /// The line at a height of the widget; 0 below the last.
    int LineAtY(int y) const;
    int YOfLine(int line) const;
    int LineHeight() const;

    CodeRange Range() const;
    void Select(const CodeRange& range);
    /// Selects, and scrolls so that there are lines around it.
    void Reveal(const CodeRange& range);
    int CaretLine() const;
    int TopLine() const;
    void SetTopLine(int line);
    int VisibleLines() const;

    /// Puts a text in the place of bytes; also where the user may not.
    void PutText(int start, int end, const std::string& text);
    void SetAll(const std::vector<std::string>& lines);

    /// The font size is that of the program times this; 0 is 100 %.
    void SetZoom(int steps);
    int Zoom() const;

    /// Around what one input changes.
    Event<> InputBegins;
    Event<> InputEnds;
    Event<const QPoint&> MenuRequested;  // on the screen

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    /// Files are for the window.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ShowTheme();
    void FitMargin();
    void BreakLine();

    Subscription m_theme;
};

}  // namespace dorvik
