#include "ElidedLabel.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace dorvik {

namespace {

constexpr int kFewLetters = 12;
constexpr int kManyLetters = 64;

}  // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::sizeHint() const {
    const int most = fontMetrics().averageCharWidth() * kManyLetters;
    return {std::min(fontMetrics().horizontalAdvance(text()), most), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * kFewLetters, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    style()->drawItemText(
        &painter,
        rect(),
        int(Qt::AlignLeft | Qt::AlignVCenter),
        palette(),
        isEnabled(),
        shown,
        foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const bool isCut = fontMetrics().horizontalAdvance(text()) > width();
        QToolTip::showText(
            static_cast<QHelpEvent*>(event)->globalPos(), isCut ? text() : QString(), this);
        return true;
    }
    return QLabel::event(event);
}

}  // namespace dorvik
