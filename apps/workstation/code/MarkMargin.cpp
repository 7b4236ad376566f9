#include "MarkMargin.h"

#include "CodeEditor.h"
#include "MarkLayer.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace dorvik {

MarkMargin::MarkMargin(CodeEditor& editor, MarkLayer& marks, QWidget* parent)
    : QWidget(parent), m_editor(editor), m_marks(marks) {
    setAccessibleName(modQt::Text("Violations of the lines"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    m_changes = marks.Changed.Subscribe([this] { update(); });
    connect(&editor, &QsciScintillaBase::SCN_UPDATEUI, this, [this] { update(); });
    connect(&editor, &QsciScintillaBase::SCN_ZOOM, this, [this] { update(); });
}

QSize MarkMargin::sizeHint() const {
    return {fontMetrics().height() + fontMetrics().height() / 3, 0};
}

int MarkMargin::LineAt(const QPoint& place) const {
    return m_editor.LineAtY(m_editor.viewport()->mapFrom(window(), mapTo(window(), place)).y());
}

void MarkMargin::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), modTheme::Colours().Margin);
    const int offset = mapFrom(window(), m_editor.viewport()->mapTo(window(), QPoint())).y();
    const int height = m_editor.LineHeight();
    const int size = std::min(height, width()) - 2;
    const int last = m_editor.TopLine() + m_editor.VisibleLines() + 1;
    for (auto mark = m_marks.Lines().lower_bound(m_editor.TopLine());
         mark != m_marks.Lines().end() && mark->first <= last;
         ++mark) {
        const int y = offset + m_editor.YOfLine(mark->first) + (height - size) / 2;
        modPictures::DrawSeverity(
            painter, QRectF((width() - size) / 2.0, y, size, size), mark->second);
    }
}

void MarkMargin::mousePressEvent(QMouseEvent* event) {
    m_marks.Choose(LineAt(event->pos()));
}

void MarkMargin::wheelEvent(QWheelEvent* event) {
    QApplication::sendEvent(m_editor.viewport(), event);
}

bool MarkMargin::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), m_marks.TipOf(LineAt(help->pos())), this);
        return true;
    }
    return QWidget::event(event);
}

MarkOverview::MarkOverview(CodeEditor& editor, MarkLayer& marks, QWidget* parent)
    : QWidget(parent), m_editor(editor), m_marks(marks) {
    setAccessibleName(modQt::Text("Violations of the module"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    m_changes = marks.Changed.Subscribe([this] { update(); });
    connect(&editor, &QsciScintillaBase::SCN_UPDATEUI, this, [this] { update(); });
}

QSize MarkOverview::sizeHint() const {
    return {fontMetrics().height() * 3 / 4, 0};
}

QRect MarkOverview::MarkRect(int line) const {
    const int thickness = std::max(3, fontMetrics().height() / 5);
    const double share = (line - 0.5) / std::max(m_editor.LineCount(), 1);
    const int y = static_cast<int>(std::lround(share * (height() - thickness)));
    return {2, y, width() - 4, thickness};
}

void MarkOverview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ThemeColours& colours = modTheme::Colours();
    painter.fillRect(rect(), colours.Margin);
    const QRect top = MarkRect(m_editor.TopLine());
    const QRect bottom =
        MarkRect(std::min(m_editor.TopLine() + m_editor.VisibleLines() - 1, m_editor.LineCount()));
    QColor shown = colours.MarginText;
    shown.setAlphaF(0.18F);
    painter.fillRect(QRect(QPoint(0, top.top()), QPoint(width(), bottom.bottom())), shown);
    // The worst ones last, over all others.
    for (std::int32_t severity = 5; severity >= 1; --severity) {
        for (const auto& [line, worst] : m_marks.Lines()) {
            if (worst == severity) {
                painter.fillRect(
                    MarkRect(line), colours.Severity.at(static_cast<std::size_t>(severity)));
            }
        }
    }
}

int MarkOverview::MarkNear(int y) const {
    int nearest = 0;
    int least = fontMetrics().height() / 2;
    for (const auto& [line, severity] : m_marks.Lines()) {
        const int distance = std::abs(MarkRect(line).center().y() - y);
        if (distance < least) {
            least = distance;
            nearest = line;
        }
    }
    return nearest;
}

void MarkOverview::mousePressEvent(QMouseEvent* event) {
    const int mark = MarkNear(event->pos().y());
    const double share = event->pos().y() / static_cast<double>(std::max(height(), 1));
    const int line = mark > 0 ? mark : static_cast<int>(share * m_editor.LineCount()) + 1;
    m_editor.Reveal({line, 1, line, 1});
    m_marks.Choose(mark);
}

bool MarkOverview::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), m_marks.TipOf(MarkNear(help->pos().y())), this);
        return true;
    }
    return QWidget::event(event);
}

}  // namespace dorvik
