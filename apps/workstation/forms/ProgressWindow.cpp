#include "ProgressWindow.h"

#include "ElidedLabel.h"
#include "modControls.h"
#include "workstation/look/modQt.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>
#include <chrono>

namespace dorvik {

using modQt::Make;

namespace {

constexpr std::chrono::milliseconds kBarInterval{40};
constexpr int kLettersWide = 64;
constexpr std::int32_t kWhole = 100;

ElidedLabel& AddLine(
    QGridLayout& grid, Bindings& bindings, Observable<std::string>& text, std::string_view name) {
    ElidedLabel& label = Make<ElidedLabel>();
    label.setObjectName(modQt::Text(name));
    bindings.Text(label, text);
    grid.addWidget(&label, grid.rowCount(), 0);
    return label;
}

}  // namespace

ProgressWindow::ProgressWindow(frmProgress& form, QWidget* parent)
    : FormWindow(parent, [this, &form] {
          form.Cancel();
          m_cancel->setEnabled(false);
      }),
      m_form(form) {
    Bound().Title(*this, form.Caption);
    setMinimumWidth(fontMetrics().averageCharWidth() * kLettersWide);
    QGridLayout& grid = Make<QGridLayout>(this);
    AddTexts(grid);
    grid.setRowStretch(grid.rowCount(), 1);
    QDialogButtonBox& buttons = Make<QDialogButtonBox>(QDialogButtonBox::Cancel);
    grid.addWidget(&buttons, grid.rowCount(), 0);
    m_cancel = buttons.button(QDialogButtonBox::Cancel);
    m_cancel->setAutoDefault(false);
    connect(&buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });

    m_barsDue.setSingleShot(true);
    m_barsDue.setInterval(kBarInterval);
    connect(&m_barsDue, &QTimer::timeout, this, [this] { ShowBars(); });
    FollowBar(*m_project, form.prgProject);
    FollowBar(*m_sourceFile, form.prgSourceFile);
    ShowBars();
    m_timer.emplace(form.tmrInterrupt);
}

void ProgressWindow::AddTexts(QGridLayout& grid) {
    QFont large = font();
    large.setBold(true);
    AddLine(grid, Bound(), m_form.lblAction, "lblAction").setFont(large);
    AddLine(grid, Bound(), m_form.lblProject, "lblProject");
    AddLine(grid, Bound(), m_form.lblProjectData, "lblProjectData");
    m_project = &AddBar(grid, "prgProject", "Project");
    AddLine(grid, Bound(), m_form.lblSourceFile, "lblSourceFile");
    AddLine(grid, Bound(), m_form.lblSourceFileData, "lblSourceFileData");
    m_sourceFile = &AddBar(grid, "prgSourceFile", "Source file");
    AddLine(grid, Bound(), m_form.lblComplete, "lblComplete");
    AddLine(grid, Bound(), m_form.lblMessage, "lblMessage");
}

QProgressBar&
ProgressWindow::AddBar(QGridLayout& grid, std::string_view name, std::string_view spoken) {
    QProgressBar& bar = Make<QProgressBar>();
    modControls::Name(bar, name, spoken);
    bar.setRange(0, kWhole);
    grid.addWidget(&bar, grid.rowCount(), 0);
    return bar;
}

void ProgressWindow::FollowBar(QProgressBar& bar, Observable<std::int32_t>& percentage) {
    Bound().Show<std::int32_t>(percentage, [this, &bar](const std::int32_t& now) {
        if (bar.value() != now && !m_barsDue.isActive()) {
            m_barsDue.start();
        }
    });
}

/// That of a source file may pass the whole.
void ProgressWindow::ShowBars() {
    m_project->setValue(std::min(m_form.prgProject.Value(), kWhole));
    m_sourceFile->setValue(std::min(m_form.prgSourceFile.Value(), kWhole));
}

/// What a detached window shows stays as it is.
void ProgressWindow::Detach() {
    m_timer.reset();
    m_barsDue.stop();
    FormWindow::Detach();
}

}  // namespace dorvik
