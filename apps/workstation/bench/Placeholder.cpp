#include "Placeholder.h"

#include "workstation/view/WorkbenchControls.h"

#include <QAbstractScrollArea>
#include <QEvent>

#include <algorithm>

namespace dorvik {

namespace {

constexpr int kTwipsOfAnInch = 1440;

}  // namespace

Placeholder::Placeholder(const QString& text, QAbstractScrollArea& list)
    : QLabel(text, &list), m_list(list) {
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setForegroundRole(QPalette::PlaceholderText);
    list.viewport()->installEventFilter(this);
    Place();
}

bool Placeholder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        Place();
    }
    return QLabel::eventFilter(watched, event);
}

void Placeholder::showEvent(QShowEvent* event) {
    QLabel::showEvent(event);
    Place();
}

void Placeholder::Place() {
    const auto pixels = [this](int twips) {
        return twips * logicalDpiX() / kTwipsOfAnInch;
    };
    const QRect inside = m_list.viewport()->geometry();
    setGeometry(
        inside.x() + pixels(WorkbenchControls::kPlaceholderIndent),
        inside.y() + pixels(WorkbenchControls::kPlaceholderIndent),
        std::max(0, inside.width() - pixels(WorkbenchControls::kPlaceholderNarrower)),
        std::max(pixels(WorkbenchControls::kPlaceholderHeight), sizeHint().height()));
}

}  // namespace dorvik
