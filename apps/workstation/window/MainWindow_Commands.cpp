// What the window does at its own commands.
#include "platform/host/modHostPath.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/bench/WorkbenchView.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"
#include "workstation/screen/IScreen.h"
#include "workstation/window/CommandPalette.h"
#include "workstation/window/Desk.h"
#include "workstation/window/ExplorerView.h"
#include "workstation/window/FactsWindow.h"
#include "workstation/window/MainWindow.h"
#include "workstation/window/modWindowSettings.h"

#include <QMenu>
#include <QMenuBar>
#include <QStackedWidget>

#include <algorithm>
#include <array>
#include <functional>
#include <map>

namespace dorvik {

namespace {

struct EditorRow {
    WindowAction Action;
    EditorCommand Command;
};

constexpr EditorRow kEditorRows[] = {
    {WindowAction::Undo, EditorCommand::Undo},
    {WindowAction::Redo, EditorCommand::Redo},
    {WindowAction::Cut, EditorCommand::Cut},
    {WindowAction::Copy, EditorCommand::Copy},
    {WindowAction::Paste, EditorCommand::Paste},
    {WindowAction::SelectAll, EditorCommand::SelectAll},
    {WindowAction::Find, EditorCommand::Find},
    {WindowAction::Replace, EditorCommand::Replace},
    {WindowAction::FindNext, EditorCommand::FindNext},
    {WindowAction::FindPrevious, EditorCommand::FindPrevious},
    {WindowAction::GoToLine, EditorCommand::GoToLine},
    {WindowAction::Comment, EditorCommand::Comment},
    {WindowAction::Uncomment, EditorCommand::Uncomment},
    {WindowAction::CloseTab, EditorCommand::CloseTab},
    {WindowAction::NextTab, EditorCommand::NextTab},
    {WindowAction::PreviousTab, EditorCommand::PreviousTab},
};

struct OptionRow {
    frmOptions::Page Page;
    const char* Text;
};

/// What the options dialog has on its pages, in the words by which it is looked for.
constexpr OptionRow kOptions[] = {
    {frmOptions::Page::General, "General: show the work bench after a review"},
    {frmOptions::Page::General, "General: show the review summary after a review"},
    {frmOptions::Page::General, "General: rulebase document"},
    {frmOptions::Page::Review, "Review: background review, steps per tick"},
    {frmOptions::Page::Review, "Review: clear the log before a review"},
    {frmOptions::Page::ResultsView, "Results view: completed items"},
    {frmOptions::Page::ResultsView, "Results view: synchronise with the selected file"},
    {frmOptions::Page::ResultsView, "Results view: order of files and procedures"},
    {frmOptions::Page::ResultsView, "Results view: files and procedures without violations"},
    {frmOptions::Page::Folders, "Folders: results"},
    {frmOptions::Page::Folders, "Folders: reports"},
};

std::string HostPathOf(const std::string& path) {
    return modHostPath::Shown(modHostPath::FromProgram(path));
}

std::string WithoutMnemonic(const QString& text) {
    QString plain = text;
    return modQt::Utf8(plain.replace(modQt::Text("&&"), QString(QChar(u'\0')))
                           .remove(u'&')
                           .replace(QChar(u'\0'), u'&'));
}

void AddEntries(const QMenu& menu, const std::string& path, std::vector<PaletteEntry>& entries) {
    for (QAction* const action : menu.actions()) {
        const std::string text = WithoutMnemonic(action->text());
        if (action->menu() != nullptr) {
            AddEntries(*action->menu(), path + text + ": ", entries);
        } else if (!action->isSeparator() && action->isEnabled()) {
            entries.push_back(
                {path + text,
                 modQt::Utf8(action->shortcut().toString(QKeySequence::NativeText)),
                 action->icon(),
                 [action] {
                     action->trigger();
                 }});
        }
    }
}

}  // namespace

void MainWindow::Run(WindowAction action) {
    using enum WindowAction;
    struct Row {
        WindowAction Action;
        void (MainWindow::*Run)();
    };
    static constexpr Row kRows[] = {
        {WindowAction::Open, &MainWindow::AskForFile},
        {OpenFolder, &MainWindow::AskForFolder},
        {Save, &MainWindow::SaveFile},
        {CloseProject, &MainWindow::CloseActiveProject},
        {Palette, &MainWindow::ShowPalette},
        {Shortcuts, &MainWindow::ShowPalette},
    };
    const auto* const editor = std::ranges::find(kEditorRows, action, &EditorRow::Action);
    const auto* const own = std::ranges::find(kRows, action, &Row::Action);
    if (editor != std::end(kEditorRows)) {
        m_editors.Do(editor->Command);
    } else if (own != std::end(kRows)) {
        (this->*own->Run)();
    } else {
        RunSmall(action);
    }
}

/// The commands of one step.
void MainWindow::RunSmall(WindowAction action) {
    using enum WindowAction;
    const std::map<WindowAction, std::function<void()>> steps = {
        {SaveAll,
         [this] {
             m_desk.Host().SaveAll();
         }},
        {ExportCsv,
         [this] {
             m_workbench->Export(TableFormat::Csv);
         }},
        {ExportHtml,
         [this] {
             m_workbench->Export(TableFormat::Html);
         }},
        {Exit,
         [this] {
             close();
         }},
        {ZoomIn,
         [this] {
             ZoomBy(modWindowSettings::kZoomStep);
         }},
        {ZoomOut,
         [this] {
             ZoomBy(-modWindowSettings::kZoomStep);
         }},
        {ZoomReset,
         [this] {
             ZoomBy(modWindowSettings::kWholeSize - modWindowSettings::Zoom());
         }},
        {WindowAction::ShowCode,
         [this] {
             const EditorPlace file = FileAtHand();
             m_desk.ShowCode(file.Project, file.File, 0);
         }},
        {WindowAction::ShowDesigner,
         [this] {
             const EditorPlace file = FileAtHand();
             m_desk.ShowDesigner(file.Project, file.File);
         }},
        {NextViolation,
         [this] {
             m_desk.GoToViolation(/*forward=*/true);
         }},
        {PreviousViolation,
         [this] {
             m_desk.GoToViolation(/*forward=*/false);
         }},
        {StartPage,
         [this] {
             m_centre->setCurrentIndex(0);
         }},
        {ResetLayout,
         [this] {
             restoreState(m_firstLayout, kLayoutVersion);
         }},
        {ReviewAgain,
         [this] {
             m_desk.App().ReviewAgain();
         }},
        {Properties,
         [this] {
             ShowFacts(hostcommand::kProjectProperties);
         }},
        {References,
         [this] {
             ShowFacts(hostcommand::kReferences);
         }},
        {Options,
         [this] {
             m_desk.App().ShowOptions(frmOptions::Page::General);
         }},
        {About,
         [this] {
             m_desk.Click("DORVIK.HELPABOUT");
         }},
    };
    steps.at(action)();
}

void MainWindow::ZoomBy(int percent) {
    modWindowSettings::SetZoom(modWindowSettings::Zoom() + percent);
    SetZoom(modWindowSettings::Zoom());
}

/// The file that is selected in the tree, if the tree has the input, otherwise the one in front.
EditorPlace MainWindow::FileAtHand() const {
    const std::optional<EditorPlace> place = m_editors.Place();
    const ExplorerNode* const node = m_explorer->NodeOf(m_explorer->currentItem());
    if (node != nullptr && (m_explorer->hasFocus() || !place)) {
        return {node->Project, node->File, node->Line, 0};
    }
    return place.value_or(EditorPlace());
}

void MainWindow::CloseActiveProject() {
    if (const FileProject* const active = m_desk.Host().ActiveProject()) {
        m_desk.CloseProject(std::string(active->Name()));
    }
}

void MainWindow::Open(const std::vector<std::string>& paths) {
    if (!paths.empty()) {
        m_desk.OpenPaths(paths);
    }
}

void MainWindow::AskForFile() {
    const std::optional<std::string> file = m_desk.Screen().ChooseFile(
        {.Title = "Open",
         .Filters = {
             "Projects, groups and results (*.vbp;*.vbg;*.mdb)|*.vbp;*.vbg;*.mdb",
             "Visual Basic projects (*.vbp)|*.vbp",
             "Visual Basic project groups (*.vbg)|*.vbg",
             "Results Databases (*.mdb)|*.mdb"}});
    if (file) {
        Open({HostPathOf(*file)});
    }
}

void MainWindow::AskForFolder() {
    const std::optional<std::string> folder = m_desk.Screen().ChooseFolder("Open folder", "");
    if (folder) {
        Open({HostPathOf(*folder)});
    }
}

/// The project of the file in front: what was changed in it is written.
void MainWindow::SaveFile() {
    const std::optional<EditorPlace> place = m_editors.Place();
    FileProject* const project =
        place ? &m_desk.Host().Project(place->Project) : m_desk.Host().ActiveProject();
    if (project != nullptr && project->IsDirty()) {
        project->Save();
    }
}

void MainWindow::ShowFacts(std::int32_t command) {
    const FileProject* const active = m_desk.Host().ActiveProject();
    if (active == nullptr) {
        return;
    }
    const FactsWindow::Page page = command == hostcommand::kReferences
                                       ? FactsWindow::Page::References
                                       : FactsWindow::Page::Properties;
    auto& window = modQt::Make<FactsWindow>(FactsOf(*active), page, this);
    window.setAttribute(Qt::WA_DeleteOnClose);
    window.show();
}

void MainWindow::OpenNode(const ExplorerNode& node) {
    switch (node.Kind) {
        case ExplorerKind::Project: m_desk.Host().ActivateProject(node.Project); break;
        case ExplorerKind::FileKind: break;
        case ExplorerKind::File:
        case ExplorerKind::Procedure: m_desk.ShowCode(node.Project, node.File, node.Line); break;
    }
}

void MainWindow::ShowMenuOf(const ExplorerNode& node, const QPoint& place) {
    auto& menu = modQt::Make<QMenu>(this);
    menu.setAttribute(Qt::WA_DeleteOnClose);
    if (node.Kind == ExplorerKind::Project) {
        menu.addAction(modQt::Text("&Activate"), this, [this, node] { OpenNode(node); });
        menu.addAction(&m_actions.Action(WindowAction::ReviewAgain));
        menu.addSeparator();
        menu.addAction(modQt::Text("&Close project"), this, [this, node] {
            m_desk.CloseProject(node.Project);
        });
        menu.addAction(modQt::Text("&Properties"), this, [this, node] {
            m_desk.Host().ActivateProject(node.Project);
            ShowFacts(hostcommand::kProjectProperties);
        });
    } else if (node.Kind != ExplorerKind::FileKind) {
        menu.addAction(modQt::Text("&Open code"), this, [this, node] { OpenNode(node); });
        const bool hasDesigner =
            m_desk.Host().Project(node.Project).Component(node.File).DesignerWindow() != nullptr;
        menu.addAction(
                modQt::Text("Show &designer"),
                this,
                [this, node] { m_desk.ShowDesigner(node.Project, node.File); })
            ->setEnabled(hasDesigner);
    }
    menu.popup(place);
}

std::vector<PaletteEntry> MainWindow::PaletteEntries() {
    std::vector<PaletteEntry> entries;
    for (QAction* const action : menuBar()->actions()) {
        if (action->menu() != nullptr) {
            AddEntries(*action->menu(), WithoutMnemonic(action->text()) + ": ", entries);
        }
    }
    for (const OptionRow& row : kOptions) {
        entries.push_back(
            {std::string("Options: ") + row.Text,
             "",
             modPictures::Icon("Settings"),
             [this, page = row.Page] {
                 m_desk.App().ShowOptions(page);
             }});
    }
    return entries;
}

void MainWindow::ShowPalette() {
    auto& palette = modQt::Make<CommandPalette>(PaletteEntries(), this);
    palette.setAttribute(Qt::WA_DeleteOnClose);
    palette.open();
}

}  // namespace dorvik
