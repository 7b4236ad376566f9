#include "ReviewOptionsWindow.h"

#include "modControls.h"
#include "modPathText.h"
#include "workstation/look/modQt.h"
#include "workstation/widgets/CheckListView.h"
#include "workstation/widgets/CheckTreeView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

namespace dorvik {

using modControls::Name;
using modQt::Make;
using modQt::Text;

namespace {

using Page = frmReviewOptions::Page;

constexpr int kLettersOfAPath = 48;
constexpr int kLinesOfATree = 14;

/// In the order of the values from 0.
constexpr std::string_view kReports[] = {"&None", "&Summary", "&Detailed"};

}  // namespace

ReviewOptionsWindow::ReviewOptionsWindow(frmReviewOptions& form, QWidget* parent)
    : FormWindow(parent, [&form] { form.Cancel(); }),
      m_form(form),
      m_pages(Make<QTabWidget>(this)) {
    Bound().Title(*this, form.Caption);
    QVBoxLayout& layout = Make<QVBoxLayout>(this);
    layout.addWidget(&m_pages);
    AddProjectsPage();
    AddResultsPage();
    AddListPage(form.lvwConventions, form.lblConventions, "lvwConventions", "Conventions");
    AddListPage(form.lvwCategories, form.lblCategories, "lvwCategories", "Categories");
    AddListPage(form.lvwSeverities, form.lblSeverities, "lvwSeverities", "Severity levels");
    AddTolerancesPage();
    AddButtons(layout);
    ShowOfferedPages();
    modControls::BindPages(Bound(), m_pages, form.tbsOptions);
    OnNextPage([&form] { form.NextTab(); });
    Bound().Keep(form.Focus.Changed.Subscribe([this](const std::string&) { MoveFocus(); }));
}

void ReviewOptionsWindow::AddProjectsPage() {
    QWidget& page = modControls::AddPage(m_pages, m_form.tbsOptions);
    QVBoxLayout& layout = Make<QVBoxLayout>(&page);
    AddRulebaseBox(page, layout);

    QLabel& heading = Make<QLabel>(Text("&Projects to review:"));
    layout.addWidget(&heading);
    CheckTreeView& tree = Make<CheckTreeView>(m_form.tvwProjects, &page);
    Name(tree, "tvwProjects", "Projects to review");
    tree.setMinimumHeight(fontMetrics().lineSpacing() * kLinesOfATree);
    heading.setBuddy(&tree);
    layout.addWidget(&tree);
    AddSelectButtons(layout, "Projects");
}

void ReviewOptionsWindow::AddRulebaseBox(QWidget& page, QBoxLayout& layout) {
    QGridLayout& grid = Make<QGridLayout>();
    layout.addLayout(&grid);
    QLineEdit& title = Make<QLineEdit>(&page);
    Name(title, "txtTitle", "Title of the batch");
    Bound().Text(title, m_form.txtTitle);
    QLabel& label = modControls::AddRow(grid, "T&itle of the batch:", title);
    grid.addWidget(&title, grid.rowCount() - 1, 1, 1, 2);
    Bound().Visible(label, m_form.TitleIsOffered);
    Bound().Visible(title, m_form.TitleIsOffered);

    QComboBox& rulebase = Make<QComboBox>(&page);
    Name(rulebase, "cboRulebase", "Rulebase");
    rulebase.setEditable(true);
    rulebase.setInsertPolicy(QComboBox::NoInsert);
    rulebase.setCompleter(nullptr);
    rulebase.lineEdit()->setAccessibleName(Text("Rulebase"));
    rulebase.setMinimumWidth(modControls::LettersWide(*this, kLettersOfAPath));
    rulebase.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const std::string& file : m_form.RulebaseFiles()) {
        rulebase.addItem(modPathText::Shown(file));
    }
    rulebase.setCurrentIndex(-1);
    rulebase.clearEditText();
    modControls::BindPath(Bound(), *rulebase.lineEdit(), m_form.cboRulebase);
    modControls::AddRowWithBrowse(
        grid, "&Rulebase:", rulebase, "cmdRulebase", "Browse for a rulebase", [this] {
            m_form.BrowseRulebase();
        });
}

void ReviewOptionsWindow::AddResultsPage() {
    QWidget& page = modControls::AddPage(m_pages, m_form.tbsOptions);
    QVBoxLayout& layout = Make<QVBoxLayout>(&page);
    QCheckBox& background = modControls::AddCheck(
        layout,
        Bound(),
        m_form.chkBackground,
        "chkBackground",
        "Run the review in the &background");
    Bound().Enabled(background, m_form.BackgroundEnabled);
    modControls::AddCheck(
        layout, Bound(), m_form.chkClearLog, "chkClearLog", "&Clear the log before the review");
    modControls::AddFolder(
        modControls::AddGroup(layout, "Results"), Bound(), modControls::ResultsFolderOf(m_form));
    AddReports(layout);
    layout.addStretch();
}

void ReviewOptionsWindow::AddReports(QBoxLayout& layout) {
    QBoxLayout& inside = modControls::AddGroup(layout, "Reports");
    QHBoxLayout& options = Make<QHBoxLayout>();
    inside.addLayout(&options);
    std::int32_t report = 0;
    for (const std::string_view caption : kReports) {
        QRadioButton& option = Make<QRadioButton>(Text(caption));
        option.setObjectName(Text("optReports" + std::to_string(report)));
        Bound().Option(option, m_form.optReports, report);
        options.addWidget(&option);
        ++report;
    }
    options.addStretch();
    modControls::AddFolder(inside, Bound(), modControls::ReportsFolderOf(m_form));
}

void ReviewOptionsWindow::AddListPage(
    CheckList& list,
    Observable<std::string>& heading,
    std::string_view name,
    std::string_view spoken) {
    QWidget& page = modControls::AddPage(m_pages, m_form.tbsOptions);
    QVBoxLayout& layout = Make<QVBoxLayout>(&page);
    modControls::AddHeading(layout, Bound(), heading);
    CheckListView& view = Make<CheckListView>(list, &page);
    Name(view, name, spoken);
    layout.addWidget(&view);
    AddSelectButtons(layout, spoken);
}

void ReviewOptionsWindow::AddSelectButtons(QBoxLayout& layout, std::string_view page) {
    QHBoxLayout& row = Make<QHBoxLayout>();
    layout.addLayout(&row);
    modControls::AddButton(row, "cmdSelectAll", "Select &all", [this] {
        m_form.SelectAllOrNone(true);
    }).setAccessibleDescription(Text(page));
    modControls::AddButton(row, "cmdSelectNone", "Select &none", [this] {
        m_form.SelectAllOrNone(false);
    }).setAccessibleDescription(Text(page));
    row.addStretch();
}

void ReviewOptionsWindow::AddButtons(QBoxLayout& layout) {
    QDialogButtonBox& buttons =
        Make<QDialogButtonBox>(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout.addWidget(&buttons);
    QPushButton& reset = *buttons.addButton(Text("Rese&t"), QDialogButtonBox::ResetRole);
    reset.setObjectName(Text("cmdReset"));
    reset.setToolTip(Text("Check all conventions, categories and severity levels"));
    reset.setAutoDefault(false);
    buttons.button(QDialogButtonBox::Ok)->setDefault(true);
    connect(&reset, &QPushButton::clicked, this, [this] { m_form.Reset(); });
    connect(&buttons, &QDialogButtonBox::accepted, this, [this] { Ok(); });
    connect(&buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
}

void ReviewOptionsWindow::ShowOfferedPages() {
    for (int index = 0; index < m_pages.count(); ++index) {
        m_pages.setTabVisible(index, m_form.PageIsOffered(static_cast<Page>(index + 1)));
    }
}

void ReviewOptionsWindow::Ok() {
    if (!m_form.Ok()) {
        // It may be the control that it was the last time.
        MoveFocus();
    }
}

/// To the control that the form found a fault in.
void ReviewOptionsWindow::MoveFocus() {
    QWidget* const control = findChild<QWidget*>(Text(m_form.Focus.Value()));
    if (control != nullptr && !m_form.Focus.Value().empty()) {
        control->setFocus(Qt::OtherFocusReason);
    }
}

}  // namespace dorvik
