#include "PaneTitle.h"

#include "workstation/look/modQt.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace dorvik {

namespace {

QToolButton& TitleButton(QWidget& title, QStyle::StandardPixmap picture, const char* name) {
    auto& button = modQt::Make<QToolButton>(&title);
    button.setAutoRaise(true);
    button.setIcon(title.style()->standardIcon(picture));
    button.setToolTip(modQt::Text(name));
    button.setAccessibleName(modQt::Text(name));
    return button;
}

}  // namespace

PaneTitle::PaneTitle(QDockWidget& pane) : QWidget(&pane) {
    auto& row = modQt::Make<QHBoxLayout>(this);
    row.setContentsMargins(fontMetrics().averageCharWidth(), 0, 0, 0);
    row.setSpacing(0);
    auto& label = modQt::Make<QLabel>(pane.windowTitle(), this);
    label.setTextFormat(Qt::PlainText);
    row.addWidget(&label);
    row.addStretch();
    QToolButton& floating = TitleButton(*this, QStyle::SP_TitleBarNormalButton, "Detach or attach");
    QToolButton& closing = TitleButton(*this, QStyle::SP_TitleBarCloseButton, "Close");
    row.addWidget(&floating);
    row.addWidget(&closing);
    connect(&pane, &QWidget::windowTitleChanged, &label, &QLabel::setText);
    connect(
        &floating, &QToolButton::clicked, &pane, [&pane] { pane.setFloating(!pane.isFloating()); });
    connect(&closing, &QToolButton::clicked, &pane, &QWidget::close);
}

}  // namespace dorvik
