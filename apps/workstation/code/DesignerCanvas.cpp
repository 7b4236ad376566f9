#include "DesignerCanvas.h"

#include "ControlPainter.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace dorvik {

namespace {

constexpr double kTwipsOfInch = 1440;
constexpr double kMostPixels = 16'000;
constexpr double kLeastZoom = 0.25;
constexpr double kMostZoom = 8;
constexpr double kStep = 1.25;
constexpr int kMostDepth = 8;  // of menus

}  // namespace

DesignerCanvas::DesignerCanvas(FileDesigner& designer, QWidget* parent)
    : QWidget(parent), m_designer(designer), m_layout(designer) {
    setFocusPolicy(Qt::StrongFocus);
    setBackgroundRole(QPalette::Mid);
    m_selection = designer.SelectionChanged.Subscribe([this](FileDesignerControl& control) {
        update();
        Describe();
        if (control.Selected()) {
            Shown.Raise(Selected());
        }
    });
    m_theme = modTheme::Changed().Subscribe([this] { update(); });
    setAccessibleName(modQt::Text("Layout of " + designer.Name()));
    Fit();
    Describe();
}

bool DesignerCanvas::HasTitle() const {
    const std::string& type = m_designer.Type();
    return (type == "VB.Form" && m_designer.Properties().WholeNumber("BorderStyle", 2) != 0) ||
           type == "VB.MDIForm";
}

QFont DesignerCanvas::FormFont() const {
    return modControlPainter::FontOf(DesignerProperties(), m_zoom * logicalDpiX() / kTwipsOfInch);
}

int DesignerCanvas::TitleHeight() const {
    return HasTitle() ? QFontMetrics(FormFont()).height() * 3 / 2 : 0;
}

int DesignerCanvas::MenuHeight() const {
    return m_layout.Menus().empty() ? 0 : QFontMetrics(FormFont()).height() * 3 / 2;
}

QRectF DesignerCanvas::Inner() const {
    const double scale = m_zoom * logicalDpiX() / kTwipsOfInch;
    const int margin = fontMetrics().height();
    return {
        static_cast<double>(margin),
        static_cast<double>(margin + TitleHeight() + MenuHeight()),
        std::min(m_layout.Width() * scale, kMostPixels),
        std::min(m_layout.Height() * scale, kMostPixels)};
}

QRectF DesignerCanvas::Pixels(const TwipRect& rect) const {
    const double scale = m_zoom * logicalDpiX() / kTwipsOfInch;
    const QPointF origin = Inner().topLeft();
    const auto round = [](double value) {
        return std::round(value);
    };
    return {
        QPointF(round(origin.x() + rect.Left * scale), round(origin.y() + rect.Top * scale)),
        QPointF(
            round(origin.x() + rect.Right() * scale), round(origin.y() + rect.Bottom() * scale))};
}

void DesignerCanvas::Fit() {
    const QRectF inner = Inner();
    const int margin = fontMetrics().height();
    resize(
        static_cast<int>(inner.right()) + margin + 1,
        static_cast<int>(inner.bottom()) + margin + 1);
    update();
}

void DesignerCanvas::SetZoom(double factor) {
    m_zoom = std::clamp(factor, kLeastZoom, kMostZoom);
    Fit();
}

QRect DesignerCanvas::RectOf(std::int32_t control) const {
    const PlacedControl* placed = m_layout.Find(control);
    return placed == nullptr || !placed->IsOnTop ? QRect() : Pixels(placed->Bounds).toAlignedRect();
}

QRect DesignerCanvas::MenuRect(std::int32_t menu) const {
    const QFontMetrics metrics(FormFont());
    const QRectF inner = Inner();
    int left = static_cast<int>(inner.left());
    for (const std::int32_t number : m_layout.Menus()) {
        QString caption = modQt::Text(m_designer.Control(number).Properties().Text("Caption"));
        const int width =
            metrics.horizontalAdvance(caption.remove(QLatin1Char('&'))) + metrics.height();
        if (number == menu) {
            return {left, static_cast<int>(inner.top()) - MenuHeight(), width, MenuHeight()};
        }
        left += width;
    }
    return {};
}

std::int32_t DesignerCanvas::Selected() const {
    for (std::int32_t number = 1; number <= m_designer.ControlCount(); ++number) {
        if (m_designer.Control(number).Selected()) {
            return number;
        }
    }
    return 0;
}

void DesignerCanvas::Select(std::int32_t control) {
    for (std::int32_t number = 1; number <= m_designer.ControlCount(); ++number) {
        if (number != control) {
            m_designer.Control(number).SetSelected(false);
        }
    }
    if (control > 0) {
        m_designer.Control(control).SetSelected(true);
    }
}

void DesignerCanvas::Describe() {
    const std::int32_t selected = Selected();
    QString text = modQt::Text("%1 controls.").arg(m_designer.ControlCount());
    if (selected > 0) {
        const FileDesignerControl& control = m_designer.Control(selected);
        text += modQt::Text(" %1, %2, is selected.")
                    .arg(modQt::Text(control.Name()), modQt::Text(control.Type()));
    }
    setAccessibleDescription(text);
}

void DesignerCanvas::DrawForm(QPainter& painter) const {
    const QRectF inner = Inner();
    const QRectF outer = inner.adjusted(-1, -1.0 - TitleHeight() - MenuHeight(), 1, 1);
    painter.fillRect(outer, QColor(QRgb(0xFF9AA4B0)));
    const std::uint32_t surface =
        m_designer.Type() == "VB.MDIForm" ? 0xABABAB : modControlPainter::kFace;
    painter.fillRect(
        inner, modControlPainter::ColourOf(m_designer.Properties(), "BackColor", surface));
    if (HasTitle()) {
        const QRectF title(inner.left(), outer.top() + 1, inner.width(), TitleHeight());
        painter.fillRect(title, QColor(QRgb(0xFFDCE6F2)));
        painter.setFont(FormFont());
        painter.setPen(Qt::black);
        const double gap = QFontMetrics(FormFont()).height() / 2.0;
        painter.drawText(
            title.adjusted(gap, 0, -gap, 0),
            Qt::AlignVCenter | Qt::AlignLeft,
            modQt::Text(m_designer.Properties().Text("Caption")));
    }
}

void DesignerCanvas::DrawMenus(QPainter& painter) const {
    if (m_layout.Menus().empty()) {
        return;
    }
    const QRectF inner = Inner();
    const QRectF bar(inner.left(), inner.top() - MenuHeight(), inner.width(), MenuHeight());
    painter.fillRect(bar, QColor(QRgb(0xFFF7F7F7)));
    painter.setFont(FormFont());
    for (const std::int32_t menu : m_layout.Menus()) {
        const QRect rect = MenuRect(menu);
        painter.setPen(Qt::black);
        painter.drawText(
            rect,
            Qt::AlignCenter | Qt::TextShowMnemonic,
            modQt::Text(m_designer.Control(menu).Properties().Text("Caption")));
        if (m_designer.Control(menu).Selected()) {
            DrawSelection(painter, QRectF(rect));
        }
    }
}

void DesignerCanvas::DrawControls(QPainter& painter) const {
    const double scale = m_zoom * logicalDpiX() / kTwipsOfInch;
    for (const PlacedControl& placed : m_layout.Controls()) {
        if (placed.IsOnTop) {
            painter.save();
            painter.setClipRect(Pixels(placed.Clip), Qt::IntersectClip);
            const FileDesignerControl& control = m_designer.Control(placed.Control);
            modControlPainter::Draw(painter, {control, placed, Pixels(placed.Bounds), scale});
            painter.restore();
        }
    }
    for (const PlacedControl& placed : m_layout.Controls()) {
        if (placed.IsOnTop && m_designer.Control(placed.Control).Selected()) {
            DrawSelection(painter, Pixels(placed.Bounds));
        }
    }
}

void DesignerCanvas::DrawSelection(QPainter& painter, const QRectF& bounds) const {
    const double size = std::max(4.0, fontMetrics().height() / 3.0);
    const QColor colour =
        hasFocus() ? palette().color(QPalette::Highlight) : modTheme::Colours().Hint;
    painter.setPen(QPen(colour, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(bounds);
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(colour);
    for (const double x : {bounds.left(), bounds.center().x(), bounds.right()}) {
        for (const double y : {bounds.top(), bounds.center().y(), bounds.bottom()}) {
            if (QPointF(x, y) != bounds.center()) {
                painter.drawRect(QRectF(x - size / 2, y - size / 2, size, size));
            }
        }
    }
}

void DesignerCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawForm(painter);
    DrawMenus(painter);
    DrawControls(painter);
    if (m_designer.Type().empty()) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter, modQt::Text("The file has no layout."));
    }
}

std::int32_t DesignerCanvas::ControlAt(const QPoint& place) const {
    for (const std::int32_t menu : m_layout.Menus()) {
        if (MenuRect(menu).contains(place)) {
            return menu;
        }
    }
    const double scale = m_zoom * logicalDpiX() / kTwipsOfInch;
    const QPointF inside = (QPointF(place) - Inner().topLeft()) / scale;
    return m_layout.ControlAt(inside.x(), inside.y());
}

void DesignerCanvas::mousePressEvent(QMouseEvent* event) {
    const std::int32_t control = ControlAt(event->pos());
    Select(control);
    if (std::ranges::find(m_layout.Menus(), control) != m_layout.Menus().end()) {
        OpenMenu(control);
    }
}

void DesignerCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    const std::int32_t control = ControlAt(event->pos());
    if (control > 0) {
        Activated.Raise(m_designer.Control(control));
    }
}

void DesignerCanvas::OpenMenu(std::int32_t menu) {
    auto& popup = modQt::Make<QMenu>(this);
    popup.setAttribute(Qt::WA_DeleteOnClose);
    FillMenu(popup, menu);
    if (!popup.isEmpty()) {
        popup.popup(mapToGlobal(MenuRect(menu).bottomLeft()));
    }
}

/// The menus of a form, as they would open. Choosing one selects it.
void DesignerCanvas::FillMenu(QMenu& menu, std::int32_t control) {
    int depth = 0;
    for (const QObject* above = &menu; above != nullptr; above = above->parent()) {
        ++depth;
    }
    for (std::int32_t number = control + 1; number <= m_designer.ControlCount(); ++number) {
        const FileDesignerControl& item = m_designer.Control(number);
        if (item.Container() != control) {
            continue;
        }
        const QString caption = modQt::Text(item.Properties().Text("Caption"));
        const bool hasItems = number < m_designer.ControlCount() &&
                              m_designer.Control(number + 1).Container() == number;
        if (caption == QStringLiteral("-")) {
            menu.addSeparator();
        } else if (hasItems && depth < kMostDepth + 8) {
            QMenu& below = *menu.addMenu(caption);
            FillMenu(below, number);
        } else {
            QAction& action = *menu.addAction(caption);
            action.setCheckable(item.Properties().Flag("Checked", false));
            action.setChecked(item.Properties().Flag("Checked", false));
            connect(&action, &QAction::triggered, this, [this, number] { Select(number); });
        }
    }
}

std::int32_t DesignerCanvas::Neighbour(bool next) const {
    const std::int32_t count = m_designer.ControlCount();
    std::int32_t number = Selected();
    if (number == 0 && !next) {
        number = count + 1;
    }
    do {
        number += next ? 1 : -1;
    } while (number >= 1 && number <= count && RectOf(number).isNull() &&
             MenuRect(number).isNull());
    return number >= 1 && number <= count ? number : 0;
}

/// Tab goes through the controls and leaves after the last.
bool DesignerCanvas::focusNextPrevChild(bool next) {
    if (const std::int32_t control = Neighbour(next)) {
        Select(control);
        return true;
    }
    return QWidget::focusNextPrevChild(next);
}

void DesignerCanvas::keyPressEvent(QKeyEvent* event) {
    const bool isControl = (event->modifiers() & Qt::ControlModifier) != 0;
    const int key = event->key();
    if (isControl && (key == Qt::Key_Plus || key == Qt::Key_Equal)) {
        SetZoom(m_zoom * kStep);
    } else if (isControl && key == Qt::Key_Minus) {
        SetZoom(m_zoom / kStep);
    } else if (isControl && key == Qt::Key_0) {
        SetZoom(1);
    } else if (key == Qt::Key_Escape) {
        Select(0);
    } else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && Selected() > 0) {
        Activated.Raise(m_designer.Control(Selected()));
    } else if (key == Qt::Key_Right || key == Qt::Key_Down) {
        Select(std::max(Neighbour(true), Selected()));
    } else if (key == Qt::Key_Left || key == Qt::Key_Up) {
        const std::int32_t before = Neighbour(false);
        Select(before > 0 ? before : Selected());
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool DesignerCanvas::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const std::int32_t number = ControlAt(help->pos());
        QString text;
        if (number > 0) {
            const FileDesignerControl& control = m_designer.Control(number);
            text = modQt::Text(control.Name());
            if (control.Index()) {
                text += QStringLiteral("(%1)").arg(*control.Index());
            }
            text += QStringLiteral(": ") + modQt::Text(control.Type());
        }
        QToolTip::showText(help->globalPos(), text, this);
        return true;
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    }
    if (event->type() == QEvent::FontChange) {
        Fit();
    }
    return QWidget::event(event);
}

}  // namespace dorvik
