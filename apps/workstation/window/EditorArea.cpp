#include "workstation/window/EditorArea.h"

#include "workstation/code/CodeTabs.h"
#include "workstation/look/modQt.h"
#include "workstation/window/Desk.h"

#include <algorithm>
#include <array>
#include <utility>

namespace dorvik {

namespace {

struct PaneRow {
    EditorCommand Command;
    const char* Text;  // of the pane's command
};

constexpr std::array<PaneRow, 13> kPaneRows{{
    {EditorCommand::Undo, "&Undo"},
    {EditorCommand::Redo, "&Redo"},
    {EditorCommand::Cut, "Cu&t"},
    {EditorCommand::Copy, "&Copy"},
    {EditorCommand::Paste, "&Paste"},
    {EditorCommand::SelectAll, "Select &all"},
    {EditorCommand::Find, "&Find..."},
    {EditorCommand::Replace, "R&eplace..."},
    {EditorCommand::FindNext, "Find &next"},
    {EditorCommand::FindPrevious, "Find pre&vious"},
    {EditorCommand::GoToLine, "&Go to line..."},
    {EditorCommand::Comment, "&Make comments"},
    {EditorCommand::Uncomment, "Make c&ode of comments"},
}};

/// Null where the pane has no such command.
const PaneCommand* Find(const CodePaneView* pane, EditorCommand command) {
    const auto* const row = std::ranges::find(kPaneRows, command, &PaneRow::Command);
    if (pane == nullptr || row == kPaneRows.end()) {
        return nullptr;
    }
    const auto found =
        std::ranges::find(pane->Commands(), modQt::Text(row->Text), &PaneCommand::Text);
    return found == pane->Commands().end() ? nullptr : &*found;
}

}  // namespace

EditorArea::EditorArea(Desk& desk)
    : m_desk(desk), m_tabs(modQt::Make<CodeTabs>(desk.Host(), nullptr)) {
    m_events.push_back(m_tabs.PaneOpened.Subscribe([this](CodePaneView& pane) { Take(pane); }));
    m_events.push_back(m_tabs.CurrentChanged.Subscribe([this] { PlaceChanged.Raise(); }));
    m_events.push_back(
        m_tabs.CaretMoved.Subscribe([this](std::int32_t, std::int32_t) { PlaceChanged.Raise(); }));
    m_events.push_back(m_tabs.SaveRequested.Subscribe(
        [this](FileComponent& component) { m_desk.SaveProjectOf(component); }));
    m_events.push_back(
        m_tabs.MarkChosen.Subscribe([this](FileComponent&, const MarkedViolation& violation) {
            m_desk.SelectViolation(violation.ViolationID);
        }));
}

QWidget& EditorArea::Widget() {
    return m_tabs;
}

bool EditorArea::IsEmpty() const {
    return m_tabs.count() == 0;
}

std::optional<EditorPlace> EditorArea::Place() const {
    FileComponent* const component = m_tabs.CurrentComponent();
    const FileProject* const project = component == nullptr ? nullptr : m_desk.OwnerOf(*component);
    if (project == nullptr) {
        return std::nullopt;
    }
    EditorPlace place{project->Name(), component->FileName(), 0, 0};
    if (m_tabs.CurrentPane() != nullptr) {
        const CodeRange selection = component->CodeModule().CodePane().Selection();
        place.Line = selection.EndLine;
        place.Column = selection.EndColumn;
    }
    return place;
}

bool EditorArea::Can(EditorCommand command) const {
    return Find(m_tabs.CurrentPane(), command) != nullptr;
}

void EditorArea::Do(EditorCommand command) {
    if (command == EditorCommand::NextTab || command == EditorCommand::PreviousTab) {
        StepTab(command == EditorCommand::NextTab ? 1 : -1);
    } else if (command == EditorCommand::CloseTab) {
        if (!IsEmpty()) {
            m_tabs.CloseTab(m_tabs.currentIndex());
        }
    } else if (const PaneCommand* const found = Find(m_tabs.CurrentPane(), command)) {
        found->Run();
    }
}

void EditorArea::StepTab(int by) {
    if (const int count = m_tabs.count(); count > 0) {
        m_tabs.setCurrentIndex((m_tabs.currentIndex() + by + count) % count);
    }
}

void EditorArea::Take(CodePaneView& pane) {
    pane.SetMarkTips([this](const MarkedViolation& violation) {
        return MarkTip{m_titles[violation.ViolationID], m_desk.AdviceOf(violation.ViolationID)};
    });
    Mark(pane);
}

void EditorArea::Mark(CodePaneView& pane) {
    std::vector<MarkedViolation> marks;
    if (const FileProject* const project = m_desk.OwnerOf(pane.Component())) {
        for (const FoundViolation& found : m_desk.FindingsOf(*project, pane.Component())) {
            m_titles[found.ViolationID] = found.Title;
            marks.push_back(
                {found.ViolationID,
                 found.Severity,
                 {found.Text, found.Line, found.Location, found.Procedure},
                 0});
        }
    }
    pane.Marks().Set(std::move(marks));
}

void EditorArea::ShowFindings() {
    m_titles.clear();
    for (CodePaneView* const pane : m_tabs.Panes()) {
        Mark(*pane);
    }
}

}  // namespace dorvik
