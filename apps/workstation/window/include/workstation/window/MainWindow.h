#pragma once

#include "workstation/controls/Event.h"
#include "workstation/desk/ProjectExplorer.h"
#include "workstation/look/modTheme.h"
#include "workstation/window/EditorArea.h"
#include "workstation/window/EventGaps.h"
#include "workstation/window/WindowActions.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

class QDockWidget;
class QLabel;
class QStackedWidget;

namespace dorvik {

class CommandMenuBar;
class ComparisonView;
class Desk;
class ExplorerView;
class FileToolWindow;
class StartPage;
class WorkbenchView;
struct PaletteEntry;

/// The program's one window.
class MainWindow final : public QMainWindow {
public:
    /// REQUIRES: the desk outlives this, and is not started yet.
    explicit MainWindow(Desk& desk);
    ~MainWindow() override;

    /// Shows what the add-in has made of the environment. REQUIRES: the desk is started.
    void ShowDesk();
    /// Paths of this machine.
    void Open(const std::vector<std::string>& paths);
    void Run(WindowAction action);

    WindowActions& Actions() { return m_actions; }
    ExplorerView& Explorer() { return *m_explorer; }
    ComparisonView& Comparison() { return *m_comparison; }
    EditorArea& Editors() { return m_editors; }
    /// Null before `ShowDesk`.
    WorkbenchView* Workbench() { return m_workbench; }
    EventGaps& Gaps() { return m_gaps; }
    /// Everything that the palette of commands finds.
    std::vector<PaletteEntry> PaletteEntries();
    bool StartPageIsShown() const;
    void SetTheme(ThemeName theme);
    void SetZoom(int percent);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    static constexpr int kLayoutVersion = 1;  // of the stored panes

    void RunSmall(WindowAction action);
    void ZoomBy(int percent);
    void CloseActiveProject();
    EditorPlace FileAtHand() const;
    void MakePanes();
    void MakeThemeMenu();
    void MakeStatusBar();
    void ListenToDesk();
    void ShowWorkbench(FileToolWindow& window);
    void ShowRecentFiles();
    void ShowState();
    void ShowFindings();
    void ShowPlace();
    void ShowTitle();
    void ShowCentre();
    void ShowFacts(std::int32_t command);
    void ShowMenuOf(const ExplorerNode& node, const QPoint& place);
    void OpenNode(const ExplorerNode& node);
    void AskForFile();
    void AskForFolder();
    void ShowPalette();
    void RestoreLayout();
    void SaveFile();

    Desk& m_desk;
    WindowActions m_actions;
    EditorArea m_editors;
    std::unique_ptr<CommandMenuBar> m_menuBar;
    QStackedWidget* m_centre = nullptr;
    StartPage* m_startPage = nullptr;
    ExplorerView* m_explorer = nullptr;
    ComparisonView* m_comparison = nullptr;
    WorkbenchView* m_workbench = nullptr;
    QDockWidget* m_explorerPane = nullptr;
    QDockWidget* m_comparisonPane = nullptr;
    QDockWidget* m_workbenchPane = nullptr;
    FileToolWindow* m_toolWindow = nullptr;
    QLabel* m_projectLabel = nullptr;
    QLabel* m_placeLabel = nullptr;
    QLabel* m_findingsLabel = nullptr;
    QLabel* m_stateLabel = nullptr;
    QByteArray m_firstLayout;
    QActionGroup m_themeGroup{nullptr};
    QTimer m_refresh;  // the results have changed
    QTimer m_dropped;  // something was dropped onto the window
    std::vector<std::string> m_droppedPaths;
    EventGaps m_gaps;
    std::vector<Subscription> m_events;
};

}  // namespace dorvik
