#include "CodeEditor.h"

#include "CodeLexer.h"
#include "base/modUtf8.h"
#include "workstation/filehost/modCodeEdits.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

constexpr int kNumberMargin = 0;
constexpr int kTabWidth = 4;

/// Those whose keys are the program's, or that would undo by the editor's own list.
constexpr std::array kTakenCommands = {
    QsciCommand::Undo,
    QsciCommand::Redo,
    QsciCommand::ZoomIn,
    QsciCommand::ZoomOut,
    QsciCommand::LineCut,
    QsciCommand::LineDelete,
    QsciCommand::LineCopy,
    QsciCommand::LineTranspose,
    QsciCommand::SelectionLowerCase,
    QsciCommand::SelectionUpperCase,
    QsciCommand::EditToggleOvertype};

QFont CodeFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(QFont().pointSizeF());
    return font;
}

}  // namespace

CodeEditor::CodeEditor(QWidget* parent) : QsciScintilla(parent) {
    setUtf8(true);
    setEolMode(EolUnix);
    setFrameShape(QFrame::NoFrame);
    setTabWidth(kTabWidth);
    setIndentationsUseTabs(false);
    setTabIndents(true);
    setCaretLineVisible(true);
    setMarginType(kNumberMargin, NumberMargin);
    setMarginWidth(1, 0);
    SendScintilla(SCI_SETMARGINLEFT, 0UL, static_cast<long>(fontMetrics().height() / 3));
    SendScintilla(SCI_SETUNDOCOLLECTION, 0UL);
    SendScintilla(SCI_EMPTYUNDOBUFFER);
    SendScintilla(SCI_SETENDATLASTLINE, 0UL);
    SendScintilla(SCI_SETSCROLLWIDTHTRACKING, 1UL);
    SendScintilla(SCI_SETSCROLLWIDTH, 1UL);
    SendScintilla(SCI_SETMULTIPLESELECTION, 0UL);
    for (const QsciCommand::Command command : kTakenCommands) {
        if (QsciCommand* found = standardCommands()->find(command)) {
            found->setKey(0);
            found->setAlternateKey(0);
        }
    }
    setLexer(&modQt::Make<CodeLexer>(this));
    ShowTheme();
    m_theme = modTheme::Changed().Subscribe([this] { ShowTheme(); });
    connect(this, &QsciScintilla::linesChanged, this, [this] { FitMargin(); });
    connect(this, &QsciScintillaBase::SCN_ZOOM, this, [this] { FitMargin(); });
}

void CodeEditor::ShowTheme() {
    const ThemeColours& colours = modTheme::Colours();
    if (auto* lexer = dynamic_cast<CodeLexer*>(this->lexer())) {
        lexer->ShowTheme(CodeFont());
    }
    setMarginsFont(CodeFont());
    setMarginsBackgroundColor(colours.Margin);
    setMarginsForegroundColor(colours.MarginText);
    setCaretLineBackgroundColor(colours.CurrentLine);
    setCaretForegroundColor(colours.CodeText);
    setSelectionBackgroundColor(palette().color(QPalette::Highlight));
    setSelectionForegroundColor(palette().color(QPalette::HighlightedText));
    FitMargin();
}

void CodeEditor::FitMargin() {
    const auto digits = std::max<qsizetype>(QString::number(LineCount()).size(), 3);
    setMarginWidth(kNumberMargin, QStringLiteral("0").repeated(static_cast<int>(digits) + 1));
}

std::string CodeEditor::LineText(int line) const {
    const int start = LineStart(line);
    const int size = LineEnd(line) - start;
    if (size <= 0) {
        return {};
    }
    const auto* bytes = static_cast<const char*>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER));
    return {bytes + start, static_cast<std::size_t>(size)};
}

int CodeEditor::LineStart(int line) const {
    return static_cast<int>(
        SendScintilla(SCI_POSITIONFROMLINE, static_cast<unsigned long>(line - 1)));
}

int CodeEditor::LineEnd(int line) const {
    return static_cast<int>(
        SendScintilla(SCI_GETLINEENDPOSITION, static_cast<unsigned long>(line - 1)));
}

int CodeEditor::LineOf(int position) const {
    return static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, position)) + 1;
}

int CodeEditor::LineHeight() const {
    return std::max(1, static_cast<int>(SendScintilla(SCI_TEXTHEIGHT, 0UL)));
}

int CodeEditor::LineAtY(int y) const {
    const int line = TopLine() + y / LineHeight();
    return y >= 0 && line <= LineCount() ? line : 0;
}

int CodeEditor::YOfLine(int line) const {
    return (line - TopLine()) * LineHeight();
}

int CodeEditor::Position(int line, int column) const {
    const std::string text = LineText(line);
    const auto characters = static_cast<std::size_t>(std::max(column, 1)) - 1;
    return LineStart(line) + static_cast<int>(modUtf8::Left(text, characters).size());
}

CodeRange CodeEditor::Range() const {
    const auto place = [this](unsigned int message, std::int32_t& line, std::int32_t& column) {
        const auto position = static_cast<int>(SendScintilla(message));
        line = LineOf(position);
        const auto bytes = static_cast<std::size_t>(position - LineStart(line));
        column = static_cast<std::int32_t>(modUtf8::Length(LineText(line).substr(0, bytes))) + 1;
    };
    CodeRange range;
    place(SCI_GETSELECTIONSTART, range.StartLine, range.StartColumn);
    place(SCI_GETSELECTIONEND, range.EndLine, range.EndColumn);
    return range;
}

void CodeEditor::Select(const CodeRange& range) {
    const int last = LineCount();
    const int start = Position(std::clamp(range.StartLine, 1, last), range.StartColumn);
    const int end = Position(std::clamp(range.EndLine, 1, last), range.EndColumn);
    SendScintilla(SCI_SETSEL, static_cast<unsigned long>(start), static_cast<long>(end));
}

void CodeEditor::Reveal(const CodeRange& range) {
    const int line = range.StartLine;
    if (line < TopLine() + 1 || line > TopLine() + VisibleLines() - 3) {
        SetTopLine(std::max(1, line - VisibleLines() / 3));
    }
    Select(range);
}

int CodeEditor::CaretLine() const {
    return LineOf(static_cast<int>(SendScintilla(SCI_GETCURRENTPOS)));
}

int CodeEditor::TopLine() const {
    return static_cast<int>(SendScintilla(SCI_GETFIRSTVISIBLELINE)) + 1;
}

void CodeEditor::SetTopLine(int line) {
    SendScintilla(SCI_SETFIRSTVISIBLELINE, static_cast<unsigned long>(std::max(line, 1) - 1));
}

int CodeEditor::VisibleLines() const {
    return std::max(1, static_cast<int>(SendScintilla(SCI_LINESONSCREEN)));
}

void CodeEditor::PutText(int start, int end, const std::string& text) {
    const bool isKept = isReadOnly();
    SendScintilla(SCI_SETREADONLY, 0UL);
    SendScintilla(SCI_SETTARGETRANGE, static_cast<unsigned long>(start), static_cast<long>(end));
    SendScintilla(SCI_REPLACETARGET, static_cast<unsigned long>(text.size()), text.data());
    SendScintilla(SCI_SETREADONLY, isKept ? 1UL : 0UL);
}

void CodeEditor::SetAll(const std::vector<std::string>& lines) {
    std::string text;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        text += index > 0 ? "\n" : "";
        text += lines[index];
    }
    PutText(0, static_cast<int>(SendScintilla(SCI_GETLENGTH)), text);
}

void CodeEditor::SetZoom(int steps) {
    zoomTo(steps);
}

int CodeEditor::Zoom() const {
    return static_cast<int>(SendScintilla(SCI_GETZOOM));
}

/// The new line begins as the one it comes from.
void CodeEditor::BreakLine() {
    const CodeRange range = Range();
    const std::string line = LineText(range.StartLine);
    const auto bytes = static_cast<std::size_t>(
        Position(range.StartLine, range.StartColumn) - LineStart(range.StartLine));
    const std::string indentation(modCodeEdits::Indentation(line.substr(0, bytes)));
    const std::string text = "\n" + indentation;
    SendScintilla(SCI_REPLACESEL, text.c_str());
    SendScintilla(SCI_SCROLLCARET);
    SendScintilla(SCI_CHOOSECARETX);
}

void CodeEditor::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    InputBegins.Raise();
    if (isEnter && (modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier)) {
        if (!isReadOnly()) {
            BreakLine();
        }
    } else {
        QsciScintilla::keyPressEvent(event);
    }
    InputEnds.Raise();
}

void CodeEditor::inputMethodEvent(QInputMethodEvent* event) {
    InputBegins.Raise();
    QsciScintilla::inputMethodEvent(event);
    InputEnds.Raise();
}

void CodeEditor::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) {
        event->ignore();
    } else {
        QsciScintilla::dragEnterEvent(event);
    }
}

void CodeEditor::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasUrls()) {
        event->ignore();
    } else {
        QsciScintilla::dragMoveEvent(event);
    }
}

void CodeEditor::dropEvent(QDropEvent* event) {
    InputBegins.Raise();
    QsciScintilla::dropEvent(event);
    InputEnds.Raise();
}

void CodeEditor::mouseReleaseEvent(QMouseEvent* event) {
    InputBegins.Raise();
    QsciScintilla::mouseReleaseEvent(event);
    InputEnds.Raise();
}

void CodeEditor::changeEvent(QEvent* event) {
    QsciScintilla::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange) {
        ShowTheme();
    }
}

void CodeEditor::contextMenuEvent(QContextMenuEvent* event) {
    MenuRequested.Raise(event->globalPos());
    event->accept();
}

}  // namespace dorvik
