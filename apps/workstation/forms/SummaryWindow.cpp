#include "SummaryWindow.h"

#include "modControls.h"
#include "workstation/look/modQt.h"
#include "workstation/widgets/ListTableView.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>

namespace dorvik {

using modQt::Make;
using modQt::Text;

namespace {

constexpr int kTwipsPerInch = 1440;

int PixelsOf(std::int32_t twips, int dotsPerInch) {
    return qRound(double(twips) * dotsPerInch / kTwipsPerInch);
}

std::int32_t TwipsOf(int pixels, int dotsPerInch) {
    return qRound(double(pixels) * kTwipsPerInch / dotsPerInch);
}

/// Inside the screen, and not larger than it.
QRect Reachable(const QRect& wanted, const QRect& available) {
    QRect placed(wanted.topLeft(), wanted.size().boundedTo(available.size()));
    placed.moveLeft(
        std::clamp(placed.left(), available.left(), available.right() - placed.width() + 1));
    placed.moveTop(
        std::clamp(placed.top(), available.top(), available.bottom() - placed.height() + 1));
    return placed;
}

}  // namespace

SummaryWindow::SummaryWindow(frmReviewSummary& form, QWidget* parent)
    : FormWindow(parent, [&form] { form.Close(); }), m_form(form) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Bound().Title(*this, form.Caption);
    QVBoxLayout& layout = Make<QVBoxLayout>(this);
    AddTabs(layout);
    AddSourceFiles(layout);
    ListTableView& list = Make<ListTableView>(form.lvwReview, this);
    modControls::Name(list, "lvwReview", "Figures of the review");
    layout.addWidget(&list, 1);
    AddButtons(layout);
    OnNextPage([&form] { form.NextTab(); });
}

void SummaryWindow::AddTabs(QBoxLayout& layout) {
    QTabBar& tabs = Make<QTabBar>();
    modControls::Name(tabs, "tbsReview", "Pages");
    tabs.setUsesScrollButtons(false);
    tabs.setElideMode(Qt::ElideNone);
    tabs.setExpanding(false);
    Bound().Tabs(tabs, m_form.tbsReview, [this](std::int16_t tab) { m_form.SwitchTab(tab); });
    layout.addWidget(&tabs);
}

void SummaryWindow::AddSourceFiles(QBoxLayout& layout) {
    QHBoxLayout& row = Make<QHBoxLayout>();
    layout.addLayout(&row);
    QLabel& caption = Make<QLabel>(Text("&Source file:"));
    QComboBox& files = Make<QComboBox>(this);
    modControls::Name(files, "cboSourceFiles", "Source file");
    files.setSizeAdjustPolicy(QComboBox::AdjustToContents);
    Bound().Combo(files, m_form.cboSourceFiles);
    caption.setBuddy(&files);
    row.addWidget(&caption);
    row.addWidget(&files, 1);
    Bound().Visible(caption, m_form.SourceFilesVisible);
    Bound().Visible(files, m_form.SourceFilesVisible);
}

void SummaryWindow::AddButtons(QBoxLayout& layout) {
    QHBoxLayout& row = Make<QHBoxLayout>();
    layout.addLayout(&row);
    QPushButton& log =
        modControls::AddButton(row, "cmdViewLog", "&View Log", [this] { m_form.ViewLog(); });
    QPushButton& report = modControls::AddButton(
        row, "cmdViewReport", "View &Report", [this] { m_form.ViewReport(); });
    row.addStretch();
    modControls::AddButton(row, "cmdClose", "&Close", [this] { m_form.Close(); });
    Bound().Enabled(log, m_form.ViewLogEnabled);
    Bound().Enabled(report, m_form.ViewReportEnabled);
}

void SummaryWindow::showEvent(QShowEvent* event) {
    if (!m_isPlaced) {
        Place();
    }
    FormWindow::showEvent(event);
}

void SummaryWindow::Place() {
    const frmReviewSummary::Bounds& position = m_form.Position;
    const QRect wanted(
        PixelsOf(position.Left, logicalDpiX()),
        PixelsOf(position.Top, logicalDpiY()),
        PixelsOf(position.Width, logicalDpiX()),
        PixelsOf(position.Height, logicalDpiY()));
    const QScreen* const screen = QGuiApplication::screenAt(wanted.center());
    const QRect available =
        (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    const QRect placed =
        Reachable(QRect(wanted.topLeft(), wanted.size().expandedTo(minimumSizeHint())), available);
    resize(placed.size());
    move(placed.topLeft());
    m_placed = QRect(pos(), size());
    m_isPlaced = true;
}

void SummaryWindow::moveEvent(QMoveEvent* event) {
    FormWindow::moveEvent(event);
    KeepPosition();
}

void SummaryWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    KeepPosition();
}

/// Where nothing was moved, the position stays as it was, without the rounding to pixels and back.
void SummaryWindow::KeepPosition() {
    const QRect now(pos(), size());
    const bool isMoved = m_isPlaced && isVisible() && !isMaximized() && now != m_placed;
    if (IsDetached() || !isMoved) {
        return;
    }
    m_placed = now;
    m_form.Position = {
        TwipsOf(now.top(), logicalDpiY()),
        TwipsOf(now.left(), logicalDpiX()),
        TwipsOf(now.width(), logicalDpiX()),
        TwipsOf(now.height(), logicalDpiY())};
}

}  // namespace dorvik
