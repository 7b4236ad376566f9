#include "OptionsWindow.h"

#include "modControls.h"
#include "workstation/look/modQt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace dorvik {

using modControls::Name;
using modQt::Make;
using modQt::Text;

namespace {

/// The values of `optCompleted`.
constexpr std::int32_t kShowCompleted = 1;
constexpr std::int32_t kHideCompleted = 2;

}  // namespace

OptionsWindow::OptionsWindow(frmOptions& form, QWidget* parent)
    : FormWindow(parent, [&form] { form.Cancel(); }),
      m_form(form),
      m_pages(Make<QTabWidget>(this)) {
    setWindowTitle(Text(form.Caption()));
    QVBoxLayout& layout = Make<QVBoxLayout>(this);
    layout.addWidget(&m_pages);
    AddGeneralPage();
    AddReviewPage();
    AddResultsViewPage();
    AddFoldersPage();
    AddButtons(layout);
    modControls::BindPages(Bound(), m_pages, form.tbsOptions);
    OnNextPage([&form] { form.NextTab(); });
}

void OptionsWindow::AddGeneralPage() {
    QWidget& page = modControls::AddPage(m_pages, m_form.tbsOptions);
    QVBoxLayout& layout = Make<QVBoxLayout>(&page);
    modControls::AddCheck(
        layout,
        Bound(),
        m_form.chkShowWorkbench,
        "chkShowWorkbench",
        "Show the &work bench after each review");
    modControls::AddCheck(
        layout,
        Bound(),
        m_form.chkShowSummary,
        "chkShowSummary",
        "Show the &summary after each review");
    layout.addStretch();
}

void OptionsWindow::AddReviewPage() {
    QWidget& page = modControls::AddPage(m_pages, m_form.tbsOptions);
    QVBoxLayout& layout = Make<QVBoxLayout>(&page);
    modControls::AddCheck(
        layout, Bound(), m_form.chkClearLog, "chkClearLog", "&Clear the log before a review");
    modControls::AddCheck(
        layout, Bound(), m_form.chkBackground, "chkBackground", "Run reviews in the &background");
    QGridLayout& grid = Make<QGridLayout>();
    layout.addLayout(&grid);
    QLineEdit& ticks = Make<QLineEdit>();
    Name(ticks, "txtTickCount", "Steps at a time in the background");
    ticks.setMaximumWidth(modControls::LettersWide(*this, 11));
    Bound().Show<std::string>(m_form.txtTickCount, [&ticks](const std::string& now) {
        if (ticks.text() != Text(now)) {
            ticks.setText(Text(now));
        }
    });
    connect(&ticks, &QLineEdit::textEdited, this, [this, &ticks](const QString& typed) {
        m_form.TypeTickCount(modQt::Utf8(typed));
        // What is not a digit leaves the value as it was, and the box with it.
        ticks.setText(Text(m_form.txtTickCount.Value()));
    });
    modControls::AddRow(grid, "&Steps at a time in the background:", ticks);

    QComboBox& reports = Make<QComboBox>();
    Name(reports, "cboReports", "Reports");
    Bound().Combo(reports, m_form.cboReports);
    modControls::AddRow(grid, "&Reports:", reports);
    grid.setColumnStretch(2, 1);
    layout.addStretch();
}

void OptionsWindow::AddResultsViewPage() {
    QWidget& page = modControls::AddPage(m_pages, m_form.tbsOptions);
    QVBoxLayout& layout = Make<QVBoxLayout>(&page);
    AddCompletedItems(page, layout);
    modControls::AddCheck(
        layout,
        Bound(),
        m_form.chkSynchronise,
        "chkSynchronise",
        "Keep the violation list on the file &that is selected in the project");
    AddMembers(
        page,
        layout,
        {"Hotspots: source files",
         "Sort &files by:",
         "lstProjectMember",
         "optPMOrder",
         "chkPMZero",
         "Show source files &without violations",
         m_form.lstProjectMember,
         m_form.optPMOrder,
         m_form.chkPMZero});
    AddMembers(
        page,
        layout,
        {"Hotspots: procedures",
         "Sort &procedures by:",
         "lstFileMember",
         "optFMOrder",
         "chkFMZero",
         "Show procedures without &violations",
         m_form.lstFileMember,
         m_form.optFMOrder,
         m_form.chkFMZero});
    layout.addStretch();
}

void OptionsWindow::AddCompletedItems(QWidget& page, QBoxLayout& layout) {
    QGroupBox& group = Make<QGroupBox>(Text("Completed violations"), &page);
    layout.addWidget(&group);
    QHBoxLayout& inside = Make<QHBoxLayout>(&group);
    QRadioButton& show = Make<QRadioButton>(Text("&Show"));
    show.setObjectName(Text("optCompleted1"));
    show.setAccessibleName(Text("Show completed violations"));
    QRadioButton& hide = Make<QRadioButton>(Text("&Hide"));
    hide.setObjectName(Text("optCompleted2"));
    hide.setAccessibleName(Text("Hide completed violations"));
    inside.addWidget(&show);
    inside.addWidget(&hide);
    inside.addStretch();
    Bound().Option(show, m_form.optCompleted, kShowCompleted);
    Bound().Option(hide, m_form.optCompleted, kHideCompleted);
}

void OptionsWindow::AddMembers(QWidget& page, QBoxLayout& layout, const MemberList& members) {
    QGroupBox& group = Make<QGroupBox>(Text(members.Title), &page);
    layout.addWidget(&group);
    QVBoxLayout& inside = Make<QVBoxLayout>(&group);
    QHBoxLayout& row = Make<QHBoxLayout>();
    inside.addLayout(&row);
    QLabel& caption = Make<QLabel>(Text(members.Caption));
    QComboBox& list = Make<QComboBox>();
    list.setObjectName(Text(members.ListName));
    caption.setBuddy(&list);
    Bound().Combo(list, members.SortBy);
    QRadioButton& ascending = Make<QRadioButton>(Text("Ascending"));
    ascending.setObjectName(Text(std::string(members.OrderName) + "Ascending"));
    QRadioButton& descending = Make<QRadioButton>(Text("Descending"));
    descending.setObjectName(Text(std::string(members.OrderName) + "Descending"));
    Bound().Option(ascending, members.IsAscending, true);
    Bound().Option(descending, members.IsAscending, false);
    for (QWidget* const control :
         {static_cast<QWidget*>(&caption),
          static_cast<QWidget*>(&list),
          static_cast<QWidget*>(&ascending),
          static_cast<QWidget*>(&descending)}) {
        row.addWidget(control);
    }
    row.addStretch();
    modControls::AddCheck(
        inside, Bound(), members.ShowsZero, members.ZeroName, members.ZeroCaption);
}

void OptionsWindow::AddFoldersPage() {
    QWidget& page = modControls::AddPage(m_pages, m_form.tbsOptions);
    QVBoxLayout& layout = Make<QVBoxLayout>(&page);
    modControls::AddFolder(
        modControls::AddGroup(layout, "Results"), Bound(), modControls::ResultsFolderOf(m_form));
    modControls::AddFolder(
        modControls::AddGroup(layout, "Reports"), Bound(), modControls::ReportsFolderOf(m_form));
    QGridLayout& grid = Make<QGridLayout>();
    layout.addLayout(&grid);
    QLineEdit& document = Make<QLineEdit>();
    Name(document, "txtRBDoc", "Rulebase document");
    modControls::BindPath(Bound(), document, m_form.txtRBDoc);
    modControls::AddRowWithBrowse(
        grid,
        "Rulebase &document:",
        document,
        "cmdRBDoc",
        "Browse for the rulebase document",
        [this] { m_form.BrowseRulebaseDocument(); });
    layout.addStretch();
}

void OptionsWindow::AddButtons(QBoxLayout& layout) {
    QDialogButtonBox& buttons =
        Make<QDialogButtonBox>(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout.addWidget(&buttons);
    buttons.button(QDialogButtonBox::Ok)->setDefault(true);
    connect(&buttons, &QDialogButtonBox::accepted, this, [this] { m_form.Ok(); });
    connect(&buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
}

}  // namespace dorvik
