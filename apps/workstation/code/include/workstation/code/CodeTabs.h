#pragma once

#include "workstation/code/CodePaneView.h"
#include "workstation/code/DesignerView.h"
#include "workstation/controls/Event.h"
#include "workstation/filehost/FileHost.h"

#include <QTabWidget>

#include <cstdint>
#include <memory>
#include <vector>

namespace dorvik {

/// The code panes and designers that are open, a tab each. Which are open is what the windows of the host say: showing one
/// there opens a tab, closing a tab hides the window. What was typed stays in the module. REQUIRES: the host outlives it.
class CodeTabs final : public QTabWidget {
public:
    explicit CodeTabs(FileHost& host, QWidget* parent = nullptr);
    ~CodeTabs() override;

    /// Open a tab, or bring it to the front. Raise as `FileComponent::CodeModule`; `ShowDesigner` does nothing for a
    /// component without one.
    void ShowCode(FileComponent& component);
    void ShowDesigner(FileComponent& component);
    void CloseTab(int index);

    /// Null where it is not open.
    CodePaneView* PaneOf(const FileComponent& component) const;
    DesignerView* DesignerOf(const FileComponent& component) const;
    /// Null where a designer or nothing is in front.
    CodePaneView* CurrentPane() const;
    FileComponent* CurrentComponent() const;
    std::vector<CodePaneView*> Panes() const;
    /// Of all panes, also those that are opened later.
    void SetZoom(int steps);

    Event<CodePaneView&> PaneOpened;
    Event<DesignerView&> DesignerOpened;
    Event<> CurrentChanged;
    // Of any pane.
    Event<FileComponent&> SaveRequested;
    Event<FileComponent&, const MarkedViolation&> MarkChosen;
    Event<std::int32_t, std::int32_t> CaretMoved;  // line and column of the pane in front
    Event<int> Zoomed;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    /// A component that is watched, and what of it is open.
    struct Member;

    void TakeProjects();
    void Watch(FileComponent& component);
    void WatchModule(Member& member);
    void WatchDesigner(Member& member);
    void OpenPane(Member& member);
    void OpenDesigner(Member& member);
    void Close(QWidget* view);
    void Name(const Member& member);
    void Front(QWidget* view);
    bool RunKey(QEvent& event);
    void Step(int by);
    Member* MemberOf(const QWidget* view) const;
    Member* Find(const FileComponent& component) const;

    FileHost& m_host;
    std::vector<std::unique_ptr<Member>> m_members;
    std::vector<Subscription> m_kept;
    int m_zoom = 0;
};

}  // namespace dorvik
