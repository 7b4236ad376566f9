#include "workstation/bench/WorkbenchView.h"

#include "Placeholder.h"
#include "TopRow.h"
#include "workstation/bench/BenchSplitter.h"
#include "workstation/bench/modTableSaving.h"
#include "workstation/controls/GridTableRows.h"
#include "workstation/controls/ListTableRows.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"
#include "workstation/view/ResultsView.h"
#include "workstation/widgets/CommandMenu.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QToolButton>

#include <functional>
#include <utility>

namespace dorvik {

namespace {

/// How many characters a box shows at least.
constexpr int kBoxLength = 12;

/// The button of the shown view has the colours of a selection: that a button is down is hardly seen on a dark surface.
void ShowPressed(QToolButton& button, bool isPressed) {
    button.setChecked(isPressed);
    const QPalette usual = QApplication::palette();
    QPalette palette;
    if (isPressed) {
        // The style makes it lighter, which the text has to be read on.
        palette.setColor(QPalette::Button, usual.color(QPalette::Highlight).darker(125));
        palette.setColor(QPalette::ButtonText, usual.color(QPalette::HighlightedText));
    }
    button.setPalette(palette);
}

QBoxLayout& RowIn(QWidget& widget) {
    auto& row = modQt::Make<QHBoxLayout>(&widget);
    row.setContentsMargins(0, 0, 0, 0);
    row.setSpacing(widget.fontMetrics().height() / 3);
    return row;
}

/// The headings are not reached by the keyboard, this menu is.
QMenu& SortMenu(QWidget& parent, std::function<void(QMenu&)> fill) {
    auto& menu = modQt::Make<QMenu>(QStringLiteral("Sort b&y"), &parent);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu, fill = std::move(fill)] {
        menu.clear();
        fill(menu);
    });
    return menu;
}

QComboBox& MakeBox(QBoxLayout& row, const QString& caption, QWidget& parent) {
    auto& label = modQt::Make<QLabel>(caption, &parent);
    auto& box = modQt::Make<QComboBox>(&parent);
    label.setBuddy(&box);
    box.setAccessibleName(QString(caption).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box.setMinimumContentsLength(kBoxLength);
    box.setMaxVisibleItems(30);
    row.addWidget(&label);
    row.addWidget(&box, 1);
    return box;
}

}  // namespace

WorkbenchView::WorkbenchView(udocDorvik& document, QWidget* parent)
    : QWidget(parent),
      m_document(document),
      m_controls(document.Controls()),
      m_list(modQt::Make<GridView>(m_controls.List, this)),
      m_groups(modQt::Make<GroupByBar>(m_controls.List, this)),
      m_documentation(modQt::Make<DocumentationView>(m_controls.Documentation, this)),
      m_hotspots(modQt::Make<ListTableView>(m_controls.Hotspots, this)),
      m_pages(modQt::Make<QStackedWidget>(this)),
      m_panel(modQt::Make<QLabel>(this)) {
    auto& page = modQt::Make<QVBoxLayout>(this);
    page.setContentsMargins(0, 0, 0, 0);
    page.setSpacing(0);
    MakeActions();
    MakeTopRow(page);
    page.addWidget(&m_pages, 1);
    m_panel.setAlignment(Qt::AlignCenter);
    m_panel.setWordWrap(true);
    m_panel.setMargin(fontMetrics().height());
    m_pages.addWidget(&m_panel);
    m_pages.addWidget(&MakeListPage());
    m_pages.addWidget(&m_hotspots);
    m_list.setAccessibleName(QStringLiteral("Violations"));
    m_hotspots.setAccessibleName(QStringLiteral("Hotspots"));
    m_groups.TakeFrom(m_list.Headings());

    m_bindings.Text(m_panel, m_controls.Panel);
    m_bindings.Show<std::string>(m_controls.Panel, [this](const std::string&) { ShowView(); });
    m_bindings.Keep(modTheme::Changed().Subscribe([this] { ShowView(); }));
    m_bindings.Keep(m_document.Results().ViewChanged.Subscribe([this] { ShowView(); }));
    m_bindings.Keep(
        m_document.PopupMenu.Subscribe([this](CommandControl& popup) { ShowPopup(popup); }));
    m_bindings.Keep(m_list.CopyRequested.Subscribe([this] { CopySelection(); }));
    m_bindings.Keep(m_documentation.LinkActivated.Subscribe(
        [this](const std::string& link) { LinkActivated.Raise(link); }));
}

WorkbenchView::~WorkbenchView() = default;

// ---- layout ----

QToolButton& WorkbenchView::MakeViewButton(const QString& text, std::int32_t viewType) {
    auto& button = modQt::Make<QToolButton>(this);
    button.setText(text);
    button.setCheckable(true);
    button.setFocusPolicy(Qt::StrongFocus);
    QObject::connect(&button, &QToolButton::clicked, this, [this, viewType] {
        m_document.optView_Click(viewType);
        ShowView();  // the button of the shown view stays down
    });
    return button;
}

void WorkbenchView::MakeTopRow(QBoxLayout& page) {
    auto& top = modQt::Make<TopRow>(this);
    page.addWidget(&top);
    m_listButton = &MakeViewButton(QStringLiteral("V&iolation list"), viewtype::kViolationList);
    m_hotspotsButton = &MakeViewButton(QStringLiteral("Hotspo&ts"), viewtype::kHotspots);
    QBoxLayout& views = RowIn(top.Left());
    views.addWidget(m_listButton);
    views.addWidget(m_hotspotsButton);
    QBoxLayout& boxes = RowIn(top.Middle());
    m_bindings.Combo(MakeBox(boxes, QStringLiteral("Source fi&le:"), *this), m_controls.Files);
    boxes.addSpacing(boxes.spacing());
    m_bindings.Combo(MakeBox(boxes, QStringLiteral("&Procedure:"), *this), m_controls.Procedures);
    QBoxLayout& commands = RowIn(top.Right());
    commands.addWidget(&MakeSourceButton());
    commands.addWidget(&MakeExportButton());
}

QToolButton& WorkbenchView::MakeSourceButton() {
    auto& button = modQt::Make<QToolButton>(this);
    button.setText(QStringLiteral("&Go To Source"));
    button.setIcon(modPictures::Icon("GotoSource"));
    button.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button.setFocusPolicy(Qt::StrongFocus);
    QObject::connect(
        &button, &QToolButton::clicked, this, [this] { m_document.cmdGotoSource_Click(); });
    return button;
}

QToolButton& WorkbenchView::MakeExportButton() {
    auto& button = modQt::Make<QToolButton>(this);
    button.setText(QStringLiteral("E&xport"));
    button.setFocusPolicy(Qt::StrongFocus);
    button.setPopupMode(QToolButton::InstantPopup);
    auto& menu = modQt::Make<QMenu>(&button);
    for (QAction* const action : m_exports) {
        menu.addAction(action);
    }
    button.setMenu(&menu);
    return button;
}

QWidget& WorkbenchView::MakeListPage() {
    auto& splitter = modQt::Make<BenchSplitter>(m_controls.Splitter, this);
    auto& left = modQt::Make<QWidget>(&splitter);
    auto& column = modQt::Make<QVBoxLayout>(&left);
    column.setContentsMargins(0, 0, 0, 0);
    column.setSpacing(0);
    column.addWidget(&m_groups);
    column.addWidget(&m_list, 1);
    splitter.addWidget(&left);
    splitter.addWidget(&m_documentation);
    auto& placeholder =
        modQt::Make<Placeholder>(QStringLiteral("There are no violations to show."), m_list);
    m_bindings.Visible(placeholder, m_controls.Placeholder);
    m_bindings.Visible(m_groups, m_controls.GroupByBox);
    return splitter;
}

void WorkbenchView::MakeActions() {
    const auto add = [this](const QString& text, auto&& run) {
        auto& action = modQt::Make<QAction>(text, this);
        QObject::connect(&action, &QAction::triggered, this, run);
        m_exports.push_back(&action);
    };
    add(QStringLiteral("Copy all as &text"), [this] { CopyAsText(); });
    add(QStringLiteral("Export as &CSV..."), [this] { Export(TableFormat::Csv); });
    add(QStringLiteral("Export as &HTML..."), [this] { Export(TableFormat::Html); });
    add(QStringLiteral("&Print the documentation..."), [this] { m_documentation.PreviewPrint(); });
    m_hotspots.setContextMenuPolicy(Qt::ActionsContextMenu);
    auto& source = modQt::Make<QAction>(QStringLiteral("&Go To Source"), this);
    QObject::connect(
        &source, &QAction::triggered, this, [this] { m_document.cmdGotoSource_Click(); });
    m_hotspots.addAction(&source);
    m_hotspots.addAction(
        SortMenu(m_hotspots, [this](QMenu& menu) { m_hotspots.FillSortMenu(menu); }).menuAction());
    m_hotspots.addActions({m_exports[0], m_exports[1], m_exports[2]});
}

// ---- what shows ----

void WorkbenchView::ShowView() {
    const bool isList = m_document.Results().ViewType() == viewtype::kViolationList;
    ShowPressed(*m_listButton, isList);
    ShowPressed(*m_hotspotsButton, !isList);
    if (!m_controls.Panel.Value().empty()) {
        m_pages.setCurrentIndex(0);
    } else {
        m_pages.setCurrentIndex(isList ? 1 : 2);
    }
}

void WorkbenchView::ShowPopup(CommandControl& popup) {
    auto& menu = modQt::Make<CommandMenu>(popup, this);
    menu.setAttribute(Qt::WA_DeleteOnClose);
    menu.addSeparator();
    menu.addMenu(&SortMenu(menu, [this](QMenu& items) { m_list.FillSortMenu(items); }));
    QAction* const copy = menu.addAction(QStringLiteral("C&opy"));
    copy->setShortcut(QKeySequence::Copy);
    QObject::connect(copy, &QAction::triggered, this, [this] { CopySelection(); });
    menu.addActions({m_exports[0], m_exports[1], m_exports[2]});
    menu.popup(m_list.PopupPosition());
}

// ---- export ----

template <typename Use>
auto WorkbenchView::WithShownRows(Use&& use) {
    if (m_document.Results().ViewType() == viewtype::kViolationList) {
        GridTableRows rows(m_controls.List);
        return use(rows);
    }
    ListTableRows rows(m_controls.Hotspots);
    return use(rows);
}

std::string WorkbenchView::Title() const {
    const bool isList = m_document.Results().ViewType() == viewtype::kViolationList;
    const std::string& project = m_document.Results().Shown().ProjectName;
    return project + (isList ? " violations" : " hotspots");
}

void WorkbenchView::CopyAsText() {
    WithShownRows(
        [this](ITableRows& rows) { return modTableSaving::CopyToClipboard(rows, *this); });
}

void WorkbenchView::CopySelection() {
    GridTableRows rows(m_controls.List, m_list.SelectedKeys());
    if (rows.Count() > 0) {
        modTableSaving::CopyToClipboard(rows, *this);
    }
}

void WorkbenchView::Export(TableFormat format) {
    const bool isCsv = format == TableFormat::Csv;
    const QString file = QFileDialog::getSaveFileName(
        this,
        isCsv ? QStringLiteral("Export as CSV") : QStringLiteral("Export as HTML"),
        modQt::Text(Title()) + (isCsv ? QStringLiteral(".csv") : QStringLiteral(".html")),
        isCsv ? QStringLiteral("Comma-separated values (*.csv)")
              : QStringLiteral("Web pages (*.html)"));
    if (!file.isEmpty()) {
        ExportTo(file, format);
    }
}

bool WorkbenchView::ExportTo(const QString& file, TableFormat format) {
    return WithShownRows([&](ITableRows& rows) {
        return modTableSaving::SaveAs(file, rows, format, Title(), *this);
    });
}

}  // namespace dorvik
