#include "workstation/window/WindowActions.h"

#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QKeySequence>
#include <QMenu>
#include <QToolBar>

#include <array>
#include <string_view>
#include <utility>

namespace dorvik {

namespace {

using enum WindowAction;

struct MenuRow {
    std::int32_t Id;
    const char* Text;
};

constexpr std::array<MenuRow, 7> kMenus{{
    {WindowActions::kFile, "&File"},
    {WindowActions::kEdit, "&Edit"},
    {WindowActions::kView, "&View"},
    {WindowActions::kProject, "&Project"},
    {WindowActions::kTools, "&Tools"},
    {WindowActions::kWindow, "&Window"},
    {WindowActions::kHelp, "&Help"},
}};

struct ActionRow {
    WindowAction Action;
    std::int32_t Menu;
    const char* Text;
    std::string_view Picture;
    const char* Shortcut;
    bool BeginsGroup = false;
};

// clang-format off
constexpr ActionRow kActions[] = {
    {Open, WindowActions::kFile, "&Open...", "OpenFile", "Ctrl+O"},
    {OpenFolder, WindowActions::kFile, "Open &folder...", "Folder", "Ctrl+Shift+O"},
    {Save, WindowActions::kFile, "&Save", "Save", "Ctrl+S", true},
    {SaveAll, WindowActions::kFile, "Save &all", "SaveAll", "Ctrl+Shift+S"},
    {CloseProject, WindowActions::kFile, "&Close project", "CloseProject", "", true},
    {ExportCsv, WindowActions::kFile, "Export the list as C&SV...", "Export", "", true},
    {ExportHtml, WindowActions::kFile, "Export the list as &HTML...", "Export", ""},
    {Exit, WindowActions::kFile, "E&xit", "Exit", "Ctrl+Q", true},
    {Undo, WindowActions::kEdit, "&Undo", "Undo", "Ctrl+Z"},
    {Redo, WindowActions::kEdit, "&Redo", "Redo", "Ctrl+Y"},
    {Cut, WindowActions::kEdit, "Cu&t", "", "", true},
    {Copy, WindowActions::kEdit, "&Copy", "", ""},
    {Paste, WindowActions::kEdit, "&Paste", "", ""},
    {SelectAll, WindowActions::kEdit, "Select &all", "", ""},
    {Find, WindowActions::kEdit, "&Find...", "Find", "Ctrl+F", true},
    {Replace, WindowActions::kEdit, "R&eplace...", "Replace", "Ctrl+H"},
    {FindNext, WindowActions::kEdit, "Find &next", "", "F3"},
    {FindPrevious, WindowActions::kEdit, "Find pre&vious", "", "Shift+F3"},
    {GoToLine, WindowActions::kEdit, "&Go to line...", "", "Ctrl+G"},
    {Comment, WindowActions::kEdit, "Co&mment block", "", "Ctrl+M", true},
    {Uncomment, WindowActions::kEdit, "Unc&omment block", "", "Ctrl+Shift+M"},
    {ShowCode, WindowActions::kView, "&Code", "Module", "F7"},
    {ShowDesigner, WindowActions::kView, "&Layout", "Form", "Shift+F7"},
    {NextViolation, WindowActions::kView, "&Next violation", "Next", "F8", true},
    {PreviousViolation, WindowActions::kView, "&Previous violation", "Previous", "Shift+F8"},
    {ZoomIn, WindowActions::kView, "Zoom &in", "", "Ctrl+Alt+="},
    {ZoomOut, WindowActions::kView, "Zoom &out", "", "Ctrl+Alt+-"},
    {ZoomReset, WindowActions::kView, "&Actual size", "", "Ctrl+Alt+0"},
    {StartPage, WindowActions::kView, "&Start page", "", "", true},
    {ReviewAgain, WindowActions::kProject, "&Review this project again", "ReviewAgain", "F5"},
    {Properties, WindowActions::kProject, "&Properties", "Project", "", true},
    {References, WindowActions::kProject, "R&eferences", "AuthorisedReference", ""},
    {Palette, WindowActions::kTools, "&Commands and settings...", "Palette", "Ctrl+Shift+P"},
    {Options, WindowActions::kTools, "&Options...", "Settings", "Ctrl+,"},
    {NextTab, WindowActions::kWindow, "&Next tab", "", ""},
    {PreviousTab, WindowActions::kWindow, "&Previous tab", "", ""},
    {CloseTab, WindowActions::kWindow, "&Close tab", "Close", "Ctrl+W"},
    {ResetLayout, WindowActions::kWindow, "&Reset layout", "", "", true},
    {Shortcuts, WindowActions::kHelp, "&Keyboard shortcuts", "Palette", ""},
    {About, WindowActions::kHelp, "&About Dorvik Workstation...", "Information", "", true},
};
// clang-format on

constexpr std::array kToolBar = {
    Open, SaveAll, Undo, Redo, Find, ReviewAgain, PreviousViolation, NextViolation};

}  // namespace

WindowActions::WindowActions(QWidget& window, std::function<void(WindowAction)> run) {
    for (const MenuRow& row : kMenus) {
        m_menus.emplace(row.Id, &modQt::Make<QMenu>(modQt::Text(row.Text), &window));
    }
    for (const ActionRow& row : kActions) {
        QMenu& menu = *m_menus.at(row.Menu);
        if (row.BeginsGroup) {
            menu.addSeparator();
        }
        auto& action =
            modQt::Make<QAction>(modPictures::Icon(row.Picture), modQt::Text(row.Text), &window);
        action.setShortcut(QKeySequence(modQt::Text(row.Shortcut)));
        QObject::connect(
            &action, &QAction::triggered, &action, [run, which = row.Action] { run(which); });
        menu.addAction(&action);
        window.addAction(&action);
        m_actions.emplace(row.Action, &action);
        if (row.Action == OpenFolder) {
            m_recent = menu.addMenu(modPictures::Icon("Recent"), modQt::Text("&Recent"));
        } else if (row.Action == ZoomReset) {
            m_themes = menu.addMenu(modPictures::Icon("Theme"), modQt::Text("&Theme"));
        }
    }
}

void WindowActions::FillToolBar(QToolBar& bar) const {
    for (const WindowAction action : kToolBar) {
        bar.addAction(m_actions.at(action));
    }
}

}  // namespace dorvik
