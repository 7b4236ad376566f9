#pragma once

#include "workstation/controls/Event.h"
#include "workstation/desk/Findings.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace dorvik {

class CodePaneView;
class CodeTabs;
class Desk;
class FileComponent;

/// What the user does to the code in front.
enum class EditorCommand : std::int32_t {
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    SelectAll,
    Find,
    Replace,
    FindNext,
    FindPrevious,
    GoToLine,
    Comment,
    Uncomment,
    CloseTab,
    NextTab,
    PreviousTab,
};

/// Where the user is in the code.
struct EditorPlace {
    std::string Project;
    std::string File;       // full path
    std::int32_t Line = 0;  // 0 on a designer
    std::int32_t Column = 0;
};

/// The tabs with the code and the designers of the open projects, with the violations that are shown marked in them.
class EditorArea {
public:
    /// REQUIRES: the desk outlives this, and this the widget's input.
    explicit EditorArea(Desk& desk);
    EditorArea(const EditorArea&) = delete;
    EditorArea& operator=(const EditorArea&) = delete;

    QWidget& Widget();
    CodeTabs& Tabs() { return m_tabs; }
    bool IsEmpty() const;
    /// Nothing without a tab.
    std::optional<EditorPlace> Place() const;
    /// Whether there is a pane in front that has the command.
    bool Can(EditorCommand command) const;
    /// Does nothing where it makes no sense.
    void Do(EditorCommand command);
    /// Marks the violations that are shown now beside their lines.
    void ShowFindings();

    /// Another tab, another place in it, or none any more.
    Event<> PlaceChanged;

private:
    void Take(CodePaneView& pane);
    void Mark(CodePaneView& pane);
    void StepTab(int by);

    Desk& m_desk;
    CodeTabs& m_tabs;
    std::map<std::int32_t, std::string> m_titles;  // of the violations that are marked
    std::vector<Subscription> m_events;
};

}  // namespace dorvik
