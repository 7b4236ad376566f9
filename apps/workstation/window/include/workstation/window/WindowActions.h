#pragma once

#include <QAction>

#include <cstdint>
#include <functional>
#include <map>

class QMenu;
class QToolBar;
class QWidget;

namespace dorvik {

/// What the user does with the window's own menus.
enum class WindowAction : std::int32_t {
    Open,
    OpenFolder,
    Save,
    SaveAll,
    CloseProject,
    ExportCsv,
    ExportHtml,
    Exit,
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
    ZoomIn,
    ZoomOut,
    ZoomReset,
    ShowCode,
    ShowDesigner,
    NextViolation,
    PreviousViolation,
    ReviewAgain,
    Properties,
    References,
    Palette,
    Options,
    CloseTab,
    NextTab,
    PreviousTab,
    ResetLayout,
    StartPage,
    Shortcuts,
    About,
};

/// The window's own actions, with their menus, by the numbers that the environment has for its menus.
class WindowActions {
public:
    /// REQUIRES: `window` outlives this; it owns the actions and the menus.
    WindowActions(QWidget& window, std::function<void(WindowAction)> run);
    WindowActions(const WindowActions&) = delete;
    WindowActions& operator=(const WindowActions&) = delete;

    QAction& Action(WindowAction action) const { return *m_actions.at(action); }
    QMenu& Menu(std::int32_t id) const { return *m_menus.at(id); }
    const std::map<std::int32_t, QMenu*>& Menus() const { return m_menus; }
    /// Below "Open"; filled by the window.
    QMenu& RecentMenu() const { return *m_recent; }
    /// In "View"; filled by the window.
    QMenu& ThemeMenu() const { return *m_themes; }
    void FillToolBar(QToolBar& bar) const;

    static constexpr std::int32_t kFile = 30002;
    static constexpr std::int32_t kEdit = 30003;
    static constexpr std::int32_t kView = 30004;
    static constexpr std::int32_t kProject = 30005;
    static constexpr std::int32_t kTools = 30007;
    static constexpr std::int32_t kWindow = 30009;
    static constexpr std::int32_t kHelp = 30010;

private:
    std::map<WindowAction, QAction*> m_actions;
    std::map<std::int32_t, QMenu*> m_menus;
    QMenu* m_recent = nullptr;
    QMenu* m_themes = nullptr;
};

}  // namespace dorvik
