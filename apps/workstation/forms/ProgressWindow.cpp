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

constexpr std::chrono::milliseconds kRefreshInterval{50};
constexpr int kLettersWide = 64;
constexpr std::int32_t kWhole = 100;

}  // namespace

ProgressWindow::ProgressWindow(frmProgress& form, QWidget* parent)
    : FormWindow(parent, [this, &form] {
          form.Cancel();
          m_cancel->setEnabled(false);
      }) {
    Bound().Title(*this, form.Caption);
    setMinimumWidth(fontMetrics().averageCharWidth() * kLettersWide);
    QGridLayout& grid = Make<QGridLayout>(this);
    AddLine(grid, form.lblAction, "lblAction");
    QFont heavy = font();
    heavy.setBold(true);
    m_lines.front().Label->setFont(heavy);
    AddLine(grid, form.lblProject, "lblProject");
    AddLine(grid, form.lblProjectData, "lblProjectData");
    AddBar(grid, form.prgProject, "prgProject", "Project");
    AddLine(grid, form.lblSourceFile, "lblSourceFile");
    AddLine(grid, form.lblSourceFileData, "lblSourceFileData");
    AddBar(grid, form.prgSourceFile, "prgSourceFile", "Source file");
    AddLine(grid, form.lblComplete, "lblComplete");
    AddLine(grid, form.lblMessage, "lblMessage");
    grid.setRowStretch(grid.rowCount(), 1);
    QDialogButtonBox& buttons = Make<QDialogButtonBox>(QDialogButtonBox::Cancel);
    grid.addWidget(&buttons, grid.rowCount(), 0);
    m_cancel = buttons.button(QDialogButtonBox::Cancel);
    m_cancel->setAutoDefault(false);
    connect(&buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });

    m_refreshDue.setSingleShot(true);
    m_refreshDue.setInterval(kRefreshInterval);
    connect(&m_refreshDue, &QTimer::timeout, this, [this] { Refresh(); });
    Refresh();
    m_timer.emplace(form.tmrInterrupt);
}

void ProgressWindow::AddLine(
    QGridLayout& grid, Observable<std::string>& text, std::string_view name) {
    ElidedLabel& label = Make<ElidedLabel>();
    label.setObjectName(modQt::Text(name));
    grid.addWidget(&label, grid.rowCount(), 0);
    m_lines.push_back({&label, &text});
    Follow(text);
}

void ProgressWindow::AddBar(
    QGridLayout& grid,
    Observable<std::int32_t>& percentage,
    std::string_view name,
    std::string_view spoken) {
    QProgressBar& bar = Make<QProgressBar>();
    modControls::Name(bar, name, spoken);
    bar.setRange(0, kWhole);
    grid.addWidget(&bar, grid.rowCount(), 0);
    m_bars.push_back({&bar, &percentage});
    Follow(percentage);
}

template <typename Value>
void ProgressWindow::Follow(Observable<Value>& value) {
    Bound().Keep(value.Changed.Subscribe([this](const Value&) {
        if (!m_refreshDue.isActive()) {
            m_refreshDue.start();
        }
    }));
}

void ProgressWindow::Refresh() {
    for (const Line& line : m_lines) {
        const QString text = modQt::Text(line.Text->Value());
        if (line.Label->text() != text) {
            line.Label->setText(text);
        }
    }
    for (const Bar& bar : m_bars) {
        // That of a source file may pass the whole.
        bar.Shown->setValue(std::min(bar.Percentage->Value(), kWhole));
    }
}

/// What a detached window shows stays as it is.
void ProgressWindow::Detach() {
    m_timer.reset();
    m_refreshDue.stop();
    FormWindow::Detach();
}

}  // namespace dorvik
