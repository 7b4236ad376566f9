#pragma once

#include "workstation/code/MarkTip.h"
#include "workstation/controls/Event.h"
#include "workstation/filehost/CodeSearch.h"
#include "workstation/filehost/FileComponent.h"

#include <QKeySequence>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QMenu;

namespace dorvik {

class BoxesBar;
class CodeEditor;
class FindBar;
class LineBar;
class MarkLayer;
class NoticeBar;

/// What a code pane can do: for its keys, its menu, and lists of commands.
struct PaneCommand {
    QString Text;
    QList<QKeySequence> Keys;  // the first one is shown
    std::function<void()> Run;
    bool IsOfText = false;  // its keys mean something else to the other boxes of the pane
};

/// The code of a component on the screen, to be read and edited: with the boxes of objects and procedures, the marks of
/// violations, and finding and replacing. REQUIRES: the component outlives it.
class CodePaneView final : public QWidget {
public:
    /// Raises as `FileComponent::CodeModule`.
    explicit CodePaneView(FileComponent& component, QWidget* parent = nullptr);
    ~CodePaneView() override;

    FileComponent& Component() { return m_component; }
    ViolationMarks& Marks() { return m_marks; }
    void SetMarkTips(MarkTipSource tips);
    const std::vector<PaneCommand>& Commands() const { return m_commands; }

    /// In steps from the size of the program's font.
    void SetZoom(int steps);
    int Zoom() const;
    void SetReadOnly(bool isReadOnly);
    /// Looks whether the file was changed by another program. Where something would be lost by reading it, the user has to
    /// choose.
    void FollowDisk();
    /// Requests that the file be saved, unless the user has to choose first; see `FollowDisk`.
    void Save();
    void GoToLine(std::int32_t line);
    /// False where there is no mark in that direction.
    bool GoToNextViolation();
    bool GoToPreviousViolation();

    Event<FileComponent&> SaveRequested;
    Event<const MarkedViolation&> MarkChosen;
    Event<std::int32_t, std::int32_t> CaretMoved;  // line and column
    Event<int> Zoomed;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    class Parts;

    void AddCommands();
    void Arrange();
    void Connect();
    void Add(const char* text, const QList<QKeySequence>& keys, std::function<void()> run);
    bool RunKey(QEvent& event, bool isOfText);
    bool Escape();
    void ShowTip(const QPoint& place, const QPoint& onScreen);
    void ShowMenu(const QPoint& onScreen);
    bool GoToMark(std::int32_t line);
    void EditLines(void (*edit)(FileCodeModule&, std::int32_t, std::int32_t));
    void Overwrite();
    void LoadFromDisk();

    FileComponent& m_component;
    FileCodeModule& m_module;
    ViolationMarks m_marks;
    CodeSearch m_search;
    std::vector<PaneCommand> m_commands;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace dorvik
