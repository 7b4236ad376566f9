#include "workstation/code/DesignerView.h"

#include "DesignerCanvas.h"
#include "workstation/look/modQt.h"

#include <QScrollBar>
#include <QWheelEvent>

namespace dorvik {

DesignerView::DesignerView(FileDesigner& designer, QWidget* parent)
    : QScrollArea(parent), m_canvas(modQt::Make<DesignerCanvas>(designer, this)) {
    setFrameShape(QFrame::NoFrame);
    setWidget(&m_canvas);
    setBackgroundRole(QPalette::Mid);
    setFocusProxy(&m_canvas);
    m_activations = m_canvas.Activated.Subscribe(
        [this](FileDesignerControl& control) { Activated.Raise(control); });
    const auto show = [this](std::int32_t control) {
        const QRect rect = m_canvas.RectOf(control);
        if (!rect.isEmpty()) {
            ensureVisible(
                rect.center().x(), rect.center().y(), rect.width() / 2, rect.height() / 2);
        }
    };
    m_shown = m_canvas.Shown.Subscribe(show);
}

void DesignerView::SetZoom(double factor) {
    m_canvas.SetZoom(factor);
}

double DesignerView::Zoom() const {
    return m_canvas.Zoom();
}

QRect DesignerView::RectOf(std::int32_t control) const {
    return m_canvas.RectOf(control).translated(m_canvas.pos());
}

QRect DesignerView::MenuRect(std::int32_t menu) const {
    return m_canvas.MenuRect(menu).translated(m_canvas.pos());
}

void DesignerView::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) != 0) {
        SetZoom(event->angleDelta().y() > 0 ? Zoom() * 1.25 : Zoom() / 1.25);
        event->accept();
    } else {
        QScrollArea::wheelEvent(event);
    }
}

}  // namespace dorvik
