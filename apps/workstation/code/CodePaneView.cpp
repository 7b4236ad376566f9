#include "workstation/code/CodePaneView.h"

#include "BoxesBar.h"
#include "CodeEditor.h"
#include "FindBar.h"
#include "MarkLayer.h"
#include "MarkMargin.h"
#include "ModuleText.h"
#include "NoticeBar.h"
#include "PaneFollower.h"
#include "base/BasicError.h"
#include "workstation/filehost/modCodeEdits.h"
#include "workstation/look/modQt.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QToolTip>
#include <QVBoxLayout>

#include <utility>

namespace dorvik {

namespace {

constexpr int kDiskInterval = 2000;  // milliseconds

}  // namespace

/// What a view is made of, from the text up.
class CodePaneView::Parts {
public:
    explicit Parts(CodePaneView& view)
        : Editor(modQt::Make<CodeEditor>(&view)),
          Text(Editor, view.m_module),
          Follower(Editor, view.m_module, Text),
          Marks(Editor, view.m_marks),
          Boxes(modQt::Make<BoxesBar>(view.m_component, &view)),
          Notice(modQt::Make<NoticeBar>(&view)),
          Margin(modQt::Make<MarkMargin>(Editor, Marks, &view)),
          Overview(modQt::Make<MarkOverview>(Editor, Marks, &view)),
          Line(modQt::Make<LineBar>(Editor, &view)),
          Find(modQt::Make<FindBar>(Editor, view.m_search, &view)) {}

    CodeEditor& Editor;
    ModuleText Text;
    PaneFollower Follower;
    MarkLayer Marks;
    BoxesBar& Boxes;
    NoticeBar& Notice;
    MarkMargin& Margin;
    MarkOverview& Overview;
    LineBar& Line;
    FindBar& Find;
    QTimer Disk;
    std::vector<Subscription> Kept;
};

CodePaneView::CodePaneView(FileComponent& component, QWidget* parent)
    : QWidget(parent),
      m_component(component),
      m_module(component.CodeModule()),
      m_marks(m_module),
      m_search(m_module),
      m_parts(std::make_unique<Parts>(*this)) {
    m_parts->Editor.setAccessibleName(modQt::Text("Code of " + component.Name()));
    setFocusProxy(&m_parts->Editor);
    Arrange();
    AddCommands();
    Connect();
    SetReadOnly(component.IsReadOnly());
    m_parts->Follower.Show();
}

CodePaneView::~CodePaneView() {
    // The widgets go after the parts that look at them: none of them may report any more.
    disconnect(&m_parts->Editor, nullptr, nullptr, nullptr);
    for (QWidget* widget :
         {static_cast<QWidget*>(&m_parts->Find),
          static_cast<QWidget*>(&m_parts->Line),
          static_cast<QWidget*>(&m_parts->Margin),
          static_cast<QWidget*>(&m_parts->Overview),
          static_cast<QWidget*>(&m_parts->Boxes)}) {
        const std::unique_ptr<QWidget> gone(widget);
    }
}

void CodePaneView::Arrange() {
    auto& column = modQt::Make<QVBoxLayout>(this);
    column.setContentsMargins(0, 0, 0, 0);
    column.setSpacing(0);
    column.addWidget(&m_parts->Boxes);
    column.addWidget(&m_parts->Notice);
    auto& row = modQt::Make<QHBoxLayout>();
    row.setSpacing(0);
    row.addWidget(&m_parts->Margin);
    row.addWidget(&m_parts->Editor, 1);
    row.addWidget(&m_parts->Overview);
    column.addLayout(&row, 1);
    column.addWidget(&m_parts->Line);
    column.addWidget(&m_parts->Find);
}

void CodePaneView::Add(
    const char* text, const QList<QKeySequence>& keys, std::function<void()> run) {
    m_commands.push_back({modQt::Text(text), keys, std::move(run), false});
}

void CodePaneView::AddCommands() {
    Parts& parts = *m_parts;
    CodeEditor& editor = parts.Editor;
    const auto key = [](auto combination) {
        return QList<QKeySequence>{combination};
    };
    const auto write = [&editor](auto run) {
        return [&editor, run] {
            if (!editor.isReadOnly()) {
                run();
            }
        };
    };
    Add("&Undo", key(Qt::CTRL | Qt::Key_Z), write([&parts] { parts.Text.Undo(); }));
    Add("&Redo", {Qt::CTRL | Qt::Key_Y, Qt::CTRL | Qt::SHIFT | Qt::Key_Z}, write([&parts] {
            parts.Text.Redo();
        }));
    Add("Cu&t", key(Qt::CTRL | Qt::Key_X), write([&editor] { editor.cut(); }));
    Add("&Copy", key(Qt::CTRL | Qt::Key_C), [&editor] { editor.copy(); });
    Add("&Paste", key(Qt::CTRL | Qt::Key_V), write([this, &editor] {
            const ChangeGroup group(m_module);
            editor.paste();
        }));
    Add("Select &all", key(Qt::CTRL | Qt::Key_A), [&editor] { editor.selectAll(); });
    for (PaneCommand& command : m_commands) {
        command.IsOfText = true;
    }
    Add("&Save", key(Qt::CTRL | Qt::Key_S), [this] { Save(); });
    Add("&Find...", key(Qt::CTRL | Qt::Key_F), [&parts] { parts.Find.Open(false); });
    Add("R&eplace...", key(Qt::CTRL | Qt::Key_H), [&parts] { parts.Find.Open(true); });
    Add("Find &next", key(Qt::Key_F3), [&parts] { parts.Find.FindNext(); });
    Add("Find pre&vious", key(Qt::SHIFT | Qt::Key_F3), [&parts] { parts.Find.FindPrevious(); });
    Add("&Go to line...", key(Qt::CTRL | Qt::Key_G), [&parts] { parts.Line.Open(); });
    Add("&Make comments", key(Qt::CTRL | Qt::Key_M), write([this] {
            EditLines(&modCodeEdits::Comment);
        }));
    Add("Make c&ode of comments", key(Qt::CTRL | Qt::SHIFT | Qt::Key_M), write([this] {
            EditLines(&modCodeEdits::Uncomment);
        }));
    Add("Next vio&lation", key(Qt::Key_F8), [this] { GoToNextViolation(); });
    Add("Previous violat&ion", key(Qt::SHIFT | Qt::Key_F8), [this] { GoToPreviousViolation(); });
    Add("&Zoom in",
        {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal, Qt::CTRL | Qt::SHIFT | Qt::Key_Plus},
        [this] { SetZoom(Zoom() + 1); });
    Add("Zoom out", key(Qt::CTRL | Qt::Key_Minus), [this] { SetZoom(Zoom() - 1); });
    Add("Normal size", key(Qt::CTRL | Qt::Key_0), [this] { SetZoom(0); });
}

void CodePaneView::Connect() {
    Parts& parts = *m_parts;
    parts.Editor.installEventFilter(this);
    parts.Editor.viewport()->installEventFilter(this);
    connect(&parts.Editor, &QsciScintilla::cursorPositionChanged, this, [this, &parts] {
        const CodeRange range = parts.Editor.Range();
        parts.Boxes.ShowLine(parts.Editor.CaretLine());
        CaretMoved.Raise(range.EndLine, range.EndColumn);
    });
    connect(&parts.Editor, &QsciScintillaBase::SCN_ZOOM, this, [this] { Zoomed.Raise(Zoom()); });
    const auto keep = [&parts](Subscription subscription) {
        parts.Kept.push_back(std::move(subscription));
    };
    keep(parts.Boxes.LineChosen.Subscribe([this](std::int32_t line) { GoToLine(line); }));
    keep(parts.Line.LineChosen.Subscribe([this](std::int32_t line) { GoToLine(line); }));
    keep(parts.Marks.Chosen.Subscribe([this](const MarkedViolation& violation) {
        m_parts->Editor.Reveal({violation.Line, 1, violation.Line, 1});
        m_parts->Editor.setFocus();
        MarkChosen.Raise(violation);
    }));
    keep(parts.Editor.MenuRequested.Subscribe([this](const QPoint& place) { ShowMenu(place); }));
    keep(parts.Text.Undone.Subscribe([this] { m_marks.FindAgain(); }));
    keep(parts.Notice.LoadChosen.Subscribe([this] { LoadFromDisk(); }));
    keep(parts.Notice.KeepChosen.Subscribe([this] { Overwrite(); }));
    keep(m_module.CodePane().Window().Focused.Subscribe([this] { setFocus(); }));
    parts.Disk.setInterval(kDiskInterval);
    connect(&parts.Disk, &QTimer::timeout, this, [this] {
        if (isVisible() && isActiveWindow()) {
            FollowDisk();
        }
    });
    parts.Disk.start();
}

void CodePaneView::SetMarkTips(MarkTipSource tips) {
    m_parts->Marks.SetTips(std::move(tips));
}

void CodePaneView::SetZoom(int steps) {
    m_parts->Editor.SetZoom(steps);
}

int CodePaneView::Zoom() const {
    return m_parts->Editor.Zoom();
}

void CodePaneView::SetReadOnly(bool isReadOnly) {
    m_parts->Editor.setReadOnly(isReadOnly);
    if (isReadOnly) {
        m_parts->Notice.ShowReadOnly();
    } else {
        m_parts->Notice.hide();
    }
}

void CodePaneView::FollowDisk() {
    try {
        if (m_component.FollowDisk() == DiskState::Conflict) {
            m_parts->Notice.ShowConflict();
        }
    } catch (const BasicError& error) {
        m_parts->Notice.ShowFailure(modQt::Text(error.what()));
    }
}

void CodePaneView::LoadFromDisk() {
    try {
        m_component.Reload();
    } catch (const BasicError& error) {
        m_parts->Notice.ShowFailure(modQt::Text(error.what()));
    }
}

void CodePaneView::Overwrite() {
    m_module.AcceptFileOnDisk();
}

void CodePaneView::Save() {
    FollowDisk();
    if (!m_module.File().HasChangedOnDisk()) {
        SaveRequested.Raise(m_component);
    }
}

void CodePaneView::GoToLine(std::int32_t line) {
    m_parts->Editor.Reveal({line, 1, line, 1});
    m_parts->Editor.setFocus();
}

bool CodePaneView::GoToNextViolation() {
    return GoToMark(m_marks.NextLine(m_parts->Editor.CaretLine()));
}

bool CodePaneView::GoToPreviousViolation() {
    return GoToMark(m_marks.PreviousLine(m_parts->Editor.CaretLine()));
}

bool CodePaneView::GoToMark(std::int32_t line) {
    if (line > 0) {
        GoToLine(line);
    }
    return line > 0;
}

void CodePaneView::EditLines(void (*edit)(FileCodeModule&, std::int32_t, std::int32_t)) {
    const CodeRange range = m_parts->Editor.Range();
    const bool endsBefore = range.EndLine > range.StartLine && range.EndColumn == 1;
    const std::int32_t last = endsBefore ? range.EndLine - 1 : range.EndLine;
    edit(m_module, range.StartLine, last);
    if (range.EndLine > range.StartLine) {
        m_parts->Editor.Select({range.StartLine, 1, range.EndLine, endsBefore ? 1 : 1'000'000});
    }
}

bool CodePaneView::Escape() {
    if (m_parts->Find.isVisible()) {
        m_parts->Find.Close();
        return true;
    }
    return false;
}

/// A key that the program has elsewhere is the pane's as long as it has the focus.
bool CodePaneView::RunKey(QEvent& event, bool isOfText) {
    auto& keyEvent = static_cast<QKeyEvent&>(event);
    const QKeySequence keys(keyEvent.keyCombination());
    const auto* found = std::as_const(m_commands).data();
    const auto* end = found + m_commands.size();
    while (found != end && (!found->Keys.contains(keys) || (found->IsOfText && !isOfText))) {
        ++found;
    }
    const bool isEscape = keyEvent.key() == Qt::Key_Escape && m_parts->Find.isVisible();
    if (found == end && !isEscape) {
        return false;
    }
    event.accept();
    if (event.type() == QEvent::KeyPress && !(isEscape && Escape())) {
        found->Run();
    }
    return true;
}

bool CodePaneView::event(QEvent* event) {
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isKey && RunKey(*event, false)) {
        return true;
    }
    if (event->type() == QEvent::WindowActivate) {
        FollowDisk();
    }
    return QWidget::event(event);
}

bool CodePaneView::eventFilter(QObject* object, QEvent* event) {
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (object == &m_parts->Editor && isKey && RunKey(*event, true)) {
        return true;
    }
    if (object == m_parts->Editor.viewport() && event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        ShowTip(help->pos(), help->globalPos());
        return true;
    }
    return QWidget::eventFilter(object, event);
}

void CodePaneView::ShowTip(const QPoint& place, const QPoint& onScreen) {
    const auto position = static_cast<int>(m_parts->Editor.SendScintilla(
        QsciScintillaBase::SCI_POSITIONFROMPOINTCLOSE,
        static_cast<unsigned long>(place.x()),
        static_cast<long>(place.y())));
    const std::int32_t line = position < 0 ? 0 : m_parts->Marks.MarkAt(position);
    QToolTip::showText(onScreen, m_parts->Marks.TipOf(line), &m_parts->Editor);
}

void CodePaneView::ShowMenu(const QPoint& onScreen) {
    auto& menu = modQt::Make<QMenu>(this);
    menu.setAttribute(Qt::WA_DeleteOnClose);
    for (const PaneCommand& command : m_commands) {
        QAction* action = menu.addAction(command.Text);
        action->setShortcut(command.Keys.front());
        action->setShortcutContext(Qt::WidgetShortcut);  // shown only: the keys are the pane's
        connect(action, &QAction::triggered, this, [run = command.Run] { run(); });
    }
    menu.popup(onScreen);
}

}  // namespace dorvik
