#include "workstation/window/MainWindow.h"

#include "PaneTitle.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/bench/WorkbenchView.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"
#include "workstation/screen/IScreen.h"
#include "workstation/widgets/CommandBars.h"
#include "workstation/window/ComparisonView.h"
#include "workstation/window/Desk.h"
#include "workstation/window/ExplorerView.h"
#include "workstation/window/StartPage.h"
#include "workstation/window/modWindowSettings.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStackedWidget>
#include <QStatusBar>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

constexpr int kFirstCharactersWide = 150;
constexpr int kFirstRowsHigh = 46;
constexpr int kExplorerCharactersWide = 52;
constexpr int kWorkbenchRowsHigh = 22;
constexpr std::chrono::seconds kGapTip{1};

QDockWidget&
Pane(QMainWindow& window, const char* title, QWidget& content, Qt::DockWidgetArea area) {
    auto& pane = modQt::Make<QDockWidget>(modQt::Text(title), &window);
    pane.setObjectName(modQt::Text(title));
    pane.setWidget(&content);
    pane.setTitleBarWidget(&modQt::Make<PaneTitle>(pane));
    window.addDockWidget(area, &pane);
    return pane;
}

/// What can be opened of what is dragged: paths of this machine.
std::vector<std::string> DraggedPaths(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls()) {
        const QFileInfo file(url.toLocalFile());
        const QString ending = file.suffix().toLower();
        const bool isOpened = ending == modQt::Text("vbp") || ending == modQt::Text("vbg") ||
                              ending == modQt::Text("mdb") || file.isDir();
        if (url.isLocalFile() && isOpened) {
            paths.push_back(modQt::Utf8(file.filePath()));
        }
    }
    return paths;
}

/// A status bar is late to make room for a text that has become longer.
void SetLabel(QLabel& label, const QString& text) {
    label.setText(text);
    label.setMinimumWidth(label.fontMetrics().horizontalAdvance(text + u' '));
}

/// The size of texts without zoom.
qreal OriginalTextSize() {
    static const qreal size = QApplication::font().pointSizeF();
    return size;
}

}  // namespace

MainWindow::MainWindow(Desk& desk)
    : m_desk(desk),
      m_actions(*this, [this](WindowAction action) { Run(action); }),
      m_editors(desk) {
    OriginalTextSize();
    setAcceptDrops(true);
    setDockNestingEnabled(true);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    m_menuBar =
        std::make_unique<CommandMenuBar>(m_desk.Host().MenuBar(), *menuBar(), m_actions.Menus());
    QToolBar& bar = *addToolBar(modQt::Text("Window"));
    bar.setObjectName(modQt::Text("Window"));
    m_actions.FillToolBar(bar);
    MakePanes();
    MakeStatusBar();
    MakeThemeMenu();
    ListenToDesk();
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(0);
    connect(&m_refresh, &QTimer::timeout, this, [this] { m_desk.RefreshFindings(); });
    m_dropped.setSingleShot(true);
    m_dropped.setInterval(0);
    connect(
        &m_dropped, &QTimer::timeout, this, [this] { Open(std::exchange(m_droppedPaths, {})); });
}

MainWindow::~MainWindow() {
    m_events.clear();
}

void MainWindow::MakePanes() {
    m_centre = &modQt::Make<QStackedWidget>();
    m_startPage = &modQt::Make<StartPage>(nullptr);
    m_centre->addWidget(m_startPage);
    m_centre->addWidget(&m_editors.Widget());
    setCentralWidget(m_centre);
    m_startPage->SetSamples(SampleProjects(modQt::Utf8(QApplication::applicationDirPath())));

    m_explorer = &modQt::Make<ExplorerView>(m_desk.Explorer(), nullptr);
    m_explorerPane = &Pane(*this, "Project explorer", *m_explorer, Qt::LeftDockWidgetArea);
    m_comparison = &modQt::Make<ComparisonView>(nullptr);
    m_comparisonPane =
        &Pane(*this, "Changes since the review before", *m_comparison, Qt::BottomDockWidgetArea);
    m_comparisonPane->hide();

    m_events.push_back(m_editors.PlaceChanged.Subscribe([this] {
        ShowCentre();
        ShowPlace();
    }));
    m_events.push_back(
        m_explorer->Opened.Subscribe([this](const ExplorerNode& node) { OpenNode(node); }));
    m_events.push_back(m_explorer->MenuRequested.Subscribe(
        [this](const ExplorerNode& node, const QPoint& place) { ShowMenuOf(node, place); }));
    m_events.push_back(m_comparison->Opened.Subscribe(
        [this](const FoundViolation& violation) { m_desk.GoTo(violation); }));
    m_events.push_back(m_startPage->OpenRequested.Subscribe([this] { AskForFile(); }));
    m_events.push_back(m_startPage->OpenFolderRequested.Subscribe([this] { AskForFolder(); }));
    m_events.push_back(m_startPage->FileRequested.Subscribe([this](const std::string& file) {
        Open({file});  // a copy: the button that has it goes with the list
    }));
}

void MainWindow::MakeStatusBar() {
    const auto make = [this](const char* name) {
        auto& label = modQt::Make<QLabel>();
        label.setTextFormat(Qt::PlainText);
        label.setAccessibleName(modQt::Text(name));
        label.setObjectName(modQt::Text(name));
        statusBar()->addPermanentWidget(&label);
        return &label;
    };
    m_stateLabel = make("Review");
    m_findingsLabel = make("Violations");
    m_placeLabel = make("Place");
    m_projectLabel = make("Project");
    auto& clock = modQt::Make<QTimer>(this);
    connect(&clock, &QTimer::timeout, this, [this] {
        m_stateLabel->setToolTip(
            modQt::Text("The longest pause was ") + QString::number(m_gaps.Longest().count()) +
            modQt::Text(" ms."));
    });
    clock.start(kGapTip);
}

void MainWindow::MakeThemeMenu() {
    for (const ThemeName theme :
         {ThemeName::System, ThemeName::Light, ThemeName::Dark, ThemeName::HighContrast}) {
        QAction& action = *m_actions.ThemeMenu().addAction(
            modQt::Text(modTheme::NameOf(theme)), this, [this, theme] {
                SetTheme(theme);
                modWindowSettings::SetTheme(theme);
            });
        action.setCheckable(true);
        action.setActionGroup(&m_themeGroup);
        m_events.push_back(modTheme::Changed().Subscribe(
            [&action, theme] { action.setChecked(modTheme::Current() == theme); }));
    }
}

void MainWindow::ListenToDesk() {
    FileHost& host = m_desk.Host();
    m_events.push_back(host.ToolWindowCreated.Subscribe(
        [this](FileToolWindow& window) { m_toolWindow = &window; }));
    m_events.push_back(
        host.CommandExecuted.Subscribe([this](std::int32_t command) { ShowFacts(command); }));
    m_events.push_back(host.Events().FileSelected.Subscribe(
        [this](const IHostProject& project, const IHostComponent& file) {
            m_explorer->SelectFile(project.Name(), file.FileName());
        }));
    m_events.push_back(
        host.Events().ProjectActivated.Subscribe([this](IHostProject&) { ShowTitle(); }));
    m_events.push_back(m_desk.Explorer().Changed.Subscribe([this] {
        ShowTitle();
        ShowCentre();
    }));
    m_events.push_back(m_desk.Explorer().DirtyChanged.Subscribe([this] { ShowTitle(); }));
    m_events.push_back(m_desk.RecentFilesChanged.Subscribe([this] { ShowRecentFiles(); }));
    m_events.push_back(m_desk.StateChanged.Subscribe([this] { ShowState(); }));
    m_events.push_back(m_desk.FindingsChanged.Subscribe([this] { ShowFindings(); }));
    m_events.push_back(m_desk.ComparisonChanged.Subscribe([this] {
        m_comparison->Show(m_desk.Comparison());
        if (m_desk.Comparison() != nullptr) {
            m_comparisonPane->show();
        }
    }));
}

void MainWindow::ShowDesk() {
    if (m_toolWindow != nullptr) {
        ShowWorkbench(*m_toolWindow);
    }
    CommandControl* const tools = m_desk.AddIn().IDEHelper()->DorvikMenus()->Toolbar();
    auto& bar = modQt::Make<CommandToolBar>(*tools, this);
    addToolBar(&bar);
    bar.setVisible(tools->Place().Visible);

    QMenu& view = m_actions.Menu(WindowActions::kView);
    view.addSeparator();
    for (const QDockWidget* const pane : {m_explorerPane, m_workbenchPane, m_comparisonPane}) {
        if (pane != nullptr) {
            view.addAction(pane->toggleViewAction());
        }
    }
    for (const QToolBar* const shown : findChildren<QToolBar*>()) {
        view.addAction(shown->toggleViewAction());
    }
    const auto refresh = [this] {
        m_refresh.start();
    };
    WorkbenchControls& controls = m_desk.Document().Controls();
    m_events.push_back(controls.Files.Changed.Subscribe([refresh](ComboChange change) {
        if (change == ComboChange::Items) {
            refresh();
        }
    }));
    m_events.push_back(
        controls.Panel.Changed.Subscribe([refresh](const std::string&) { refresh(); }));
    m_events.push_back(m_desk.App().BackgroundReviewChanged.Subscribe([this] { ShowState(); }));
    RestoreLayout();
    ShowRecentFiles();
    ShowState();
    ShowFindings();
    ShowPlace();
    ShowTitle();
    ShowCentre();
}

void MainWindow::ShowWorkbench(FileToolWindow& window) {
    m_workbench = &modQt::Make<WorkbenchView>(m_desk.Document(), nullptr);
    m_workbenchPane = &Pane(*this, "Work bench", *m_workbench, Qt::BottomDockWidgetArea);
    m_events.push_back(m_workbench->LinkActivated.Subscribe(
        [this](const std::string& link) { m_desk.Screen().OpenWithSystem(link); }));
    m_workbenchPane->setWindowTitle(modQt::Text(window.Request().Caption));
    m_workbenchPane->toggleViewAction()->setText(modQt::Text(window.Request().Caption));
    tabifyDockWidget(m_comparisonPane, m_workbenchPane);
    m_workbenchPane->setVisible(window.IsVisible.Value());
    m_events.push_back(window.IsVisible.Changed.Subscribe([this](const bool& visible) {
        m_workbenchPane->setVisible(visible);
        if (visible) {
            m_workbenchPane->raise();
        }
    }));
    m_events.push_back(window.Focused.Subscribe([this] {
        m_workbenchPane->raise();
        m_workbenchPane->widget()->setFocus();
    }));
    // Closed by the user, not covered by another tab.
    connect(
        m_workbenchPane->toggleViewAction(), &QAction::toggled, this, [this, &window](bool shown) {
            if (!isHidden() && window.Document() != nullptr && window.IsVisible.Value() != shown) {
                window.SetVisible(shown);
            }
        });
}

void MainWindow::RestoreLayout() {
    resize(
        fontMetrics().averageCharWidth() * kFirstCharactersWide,
        fontMetrics().height() * kFirstRowsHigh);
    resizeDocks(
        {m_explorerPane},
        {fontMetrics().averageCharWidth() * kExplorerCharactersWide},
        Qt::Horizontal);
    if (m_workbenchPane != nullptr) {
        resizeDocks({m_workbenchPane}, {fontMetrics().height() * kWorkbenchRowsHigh}, Qt::Vertical);
    }
    m_firstLayout = saveState(kLayoutVersion);
    restoreGeometry(modWindowSettings::Geometry());
    const bool workbench = m_toolWindow != nullptr && m_toolWindow->IsVisible.Value();
    restoreState(modWindowSettings::Layout(), kLayoutVersion);
    m_comparisonPane->hide();  // there is nothing to compare yet
    if (m_workbenchPane != nullptr && m_workbenchPane->isVisibleTo(this) != workbench) {
        m_toolWindow->SetVisible(!workbench);
    }
}

// ---- what happens ----

void MainWindow::ShowRecentFiles() {
    const std::vector<std::string> files = m_desk.RecentFiles();
    m_startPage->SetRecentFiles(files);
    QMenu& menu = m_actions.RecentMenu();
    menu.clear();
    menu.setEnabled(!files.empty());
    for (std::size_t i = 0; i < files.size(); ++i) {
        QString text = modQt::Text(files[i]);
        text.replace(modQt::Text("&"), modQt::Text("&&"));
        menu.addAction(
            modQt::Text("&" + std::to_string(i + 1) + " ") + text, this, [this, file = files[i]] {
                Open({file});
            });
    }
}

void MainWindow::ShowState() {
    const bool isInBackground =
        m_desk.AddIn().App() != nullptr && m_desk.App().BackgroundReviewActive();
    std::string text = "Ready";
    if (isInBackground) {
        text = "Reviewing in the background";
    } else if (m_desk.State() == ReviewState::Running) {
        text = "Reviewing";
    } else if (m_desk.State() == ReviewState::Done) {
        text = "Reviewed";
        if (const ReviewComparison* const comparison = m_desk.Comparison()) {
            text += ": " + comparison->Summary();
        }
    }
    SetLabel(*m_stateLabel, modQt::Text(text));
    ShowTitle();
}

void MainWindow::ShowFindings() {
    m_editors.ShowFindings();
    std::int32_t violations = 0;
    for (const ExplorerNode& project : m_desk.Explorer().Projects()) {
        violations += project.Findings.Violations;
    }
    const bool hasResults = m_desk.Results().ResultsAvailable();
    SetLabel(
        *m_findingsLabel,
        !hasResults       ? modQt::Text("No results")
        : violations == 1 ? modQt::Text("1 violation")
                          : QString::number(violations) + modQt::Text(" violations"));
    m_actions.Action(WindowAction::NextViolation).setEnabled(hasResults);
    m_actions.Action(WindowAction::PreviousViolation).setEnabled(hasResults);
    m_actions.Action(WindowAction::ExportCsv).setEnabled(hasResults);
    m_actions.Action(WindowAction::ExportHtml).setEnabled(hasResults);
}

void MainWindow::ShowPlace() {
    const std::optional<EditorPlace> place = m_editors.Place();
    SetLabel(
        *m_placeLabel,
        place && place->Line > 0 ? modQt::Text(
                                       "Line " + std::to_string(place->Line) + ", column " +
                                       std::to_string(place->Column))
                                 : QString());
    const bool isCode = place && place->Line > 0;
    for (const WindowAction action :
         {WindowAction::Find,
          WindowAction::Replace,
          WindowAction::FindNext,
          WindowAction::FindPrevious,
          WindowAction::GoToLine,
          WindowAction::Comment,
          WindowAction::Uncomment,
          WindowAction::Undo,
          WindowAction::Redo}) {
        m_actions.Action(action).setEnabled(isCode);
    }
    m_actions.Action(WindowAction::Save).setEnabled(place.has_value());
    m_actions.Action(WindowAction::CloseTab).setEnabled(place.has_value());
}

void MainWindow::ShowTitle() {
    FileHost& host = m_desk.Host();
    FileProject* const active = host.ActiveProject();
    bool isDirty = false;
    for (std::int32_t index = 1; index <= host.ProjectCount(); ++index) {
        isDirty = isDirty || host.Project(index).IsDirty();
    }
    setWindowTitle(
        (active == nullptr ? QString() : modQt::Text(active->Name() + "[*] - ")) +
        modQt::Text("Dorvik Workstation"));
    if (active != nullptr) {
        setWindowModified(isDirty);
    }
    SetLabel(*m_projectLabel, modQt::Text(active == nullptr ? "No project" : active->Name()));
    const bool isFree = m_desk.AddIn().App() == nullptr || !m_desk.App().BackgroundReviewActive();
    m_actions.Action(WindowAction::ReviewAgain).setEnabled(active != nullptr && isFree);
    for (const WindowAction action :
         {WindowAction::CloseProject, WindowAction::Properties, WindowAction::References}) {
        m_actions.Action(action).setEnabled(active != nullptr);
    }
    m_actions.Action(WindowAction::SaveAll).setEnabled(isDirty);
}

void MainWindow::ShowCentre() {
    QWidget* const shown = m_editors.IsEmpty() ? m_startPage : &m_editors.Widget();
    m_centre->setCurrentWidget(shown);
}

bool MainWindow::StartPageIsShown() const {
    return m_centre->currentWidget() == m_startPage;
}

void MainWindow::SetTheme(ThemeName theme) {
    modTheme::Apply(theme);
}

void MainWindow::SetZoom(int percent) {
    QFont font = QApplication::font();
    font.setPointSizeF(OriginalTextSize() * percent / modWindowSettings::kWholeSize);
    QApplication::setFont(font);
    const int height = QFontMetrics(font).height();
    setIconSize(QSize(height, height) * 3 / 2);
    m_explorer->setIconSize(QSize(height, height));
}

// ---- events of the screen ----

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!m_desk.MayClose()) {
        event->ignore();
        return;
    }
    m_desk.BeginShutdown();
    modWindowSettings::SetLayout(saveGeometry(), saveState(kLayoutVersion));
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedPaths(*event->mimeData()).empty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // The program that drags waits until this returns, and there may be a message box.
    m_droppedPaths = DraggedPaths(*event->mimeData());
    m_dropped.start();
}

}  // namespace dorvik
