#include "ControlPainter.h"

#include "ControlStrokes.h"
#include "workstation/filehost/FileDesigner.h"
#include "workstation/look/modQt.h"

#include <QFontMetricsF>

#include <algorithm>
#include <array>
#include <cmath>

namespace dorvik::modControlPainter {

namespace {

void DrawLabel(QPainter& painter, const DrawnControl& drawn) {
    const DesignerProperties& properties = PropertiesOf(drawn);
    if (properties.WholeNumber("BackStyle", 1) == 1 && properties.Find("BackColor") != nullptr) {
        Fill(painter, drawn, kFace);
    }
    if (properties.WholeNumber("BorderStyle") == 1) {
        DrawBorder(painter, drawn.Bounds);
    }
    const int mnemonic = properties.Flag("UseMnemonic", true) ? Qt::TextShowMnemonic : 0;
    DrawText(
        painter,
        drawn,
        drawn.Bounds,
        CaptionOf(drawn),
        AlignmentOf(properties) | Qt::AlignTop | Qt::TextWordWrap | mnemonic);
}

void DrawTextBox(QPainter& painter, const DrawnControl& drawn) {
    const DesignerProperties& properties = PropertiesOf(drawn);
    Fill(painter, drawn, kWindow);
    if (properties.WholeNumber("BorderStyle", 1) != 0) {
        DrawBorder(painter, drawn.Bounds);
    }
    const bool hasLines = properties.Flag("MultiLine", false);
    const int flags = hasLines ? Qt::AlignTop | Qt::TextWordWrap : Qt::AlignVCenter;
    const bool isHidden = !properties.Text("PasswordChar").empty();
    QString text = modQt::Text(properties.Text("Text"));
    if (isHidden) {
        text.fill(QLatin1Char('*'));
    }
    const QRectF inner = Inset(drawn.Bounds, 3 * Unit(drawn));
    DrawText(painter, drawn, inner, text, AlignmentOf(properties) | flags);
}

void DrawFrame(QPainter& painter, const DrawnControl& drawn) {
    Fill(painter, drawn, kFace);
    if (PropertiesOf(drawn).WholeNumber("BorderStyle", 1) == 0) {
        return;
    }
    const QFontMetricsF metrics(FontOf(PropertiesOf(drawn), drawn.Scale));
    const QString caption = CaptionOf(drawn);
    const double half = caption.isEmpty() ? 0 : metrics.height() / 2;
    const QRectF line = drawn.Bounds.adjusted(0, half, 0, 0);
    DrawBorder(painter, line);
    if (!caption.isEmpty()) {
        QString plain = caption;
        const double width = metrics.horizontalAdvance(plain.remove(QLatin1Char('&')));
        const QRectF text(
            drawn.Bounds.left() + 8 * Unit(drawn), drawn.Bounds.top(), width + 4, metrics.height());
        painter.fillRect(text, ColourOf(PropertiesOf(drawn), "BackColor", kFace));
        DrawText(painter, drawn, text, caption, Qt::AlignCenter | Qt::TextShowMnemonic);
    }
}

void DrawButton(QPainter& painter, const DrawnControl& drawn) {
    const QRectF face = drawn.Bounds.adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(Rgb(kShadow), 1));
    painter.setBrush(ColourOf(PropertiesOf(drawn), "BackColor", 0xE8E8E8));
    painter.drawRoundedRect(face, 2 * Unit(drawn), 2 * Unit(drawn));
    DrawText(
        painter,
        drawn,
        Inset(drawn.Bounds, 2 * Unit(drawn)),
        CaptionOf(drawn),
        Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextWordWrap);
}

void DrawMarkedText(QPainter& painter, const DrawnControl& drawn, bool isRound) {
    const DesignerProperties& properties = PropertiesOf(drawn);
    if (properties.WholeNumber("Style") == 1) {
        DrawButton(painter, drawn);
        return;
    }
    if (properties.Find("BackColor") != nullptr) {
        Fill(painter, drawn, kFace);
    }
    const double size = 13 * Unit(drawn);
    const bool isRight = properties.WholeNumber("Alignment") == 1;
    const QRectF& all = drawn.Bounds;
    const QRectF box(
        isRight ? all.right() - size : all.left(), all.center().y() - size / 2, size, size);
    painter.setPen(QPen(Rgb(kGrey), 1));
    painter.setBrush(Rgb(kWindow));
    const bool isChecked = properties.Flag("Value", false);
    if (isRound) {
        painter.drawEllipse(Inset(box, 0.5));
        if (isChecked) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(Rgb(kBlack));
            painter.drawEllipse(Inset(box, size / 3.2));
        }
    } else {
        painter.drawRect(Inset(box, 0.5));
        if (isChecked) {
            painter.setPen(QPen(Rgb(kBlack), size / 8));
            painter.drawPolyline(QPolygonF(
                {box.topLeft() + QPointF(size * 0.22, size * 0.5),
                 box.topLeft() + QPointF(size * 0.42, size * 0.72),
                 box.topLeft() + QPointF(size * 0.8, size * 0.26)}));
        }
    }
    const double gap = size + 4 * Unit(drawn);
    const QRectF text = isRight ? all.adjusted(0, 0, -gap, 0) : all.adjusted(gap, 0, 0, 0);
    DrawText(
        painter,
        drawn,
        text,
        CaptionOf(drawn),
        Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextWordWrap);
}

void DrawCheckBox(QPainter& painter, const DrawnControl& drawn) {
    DrawMarkedText(painter, drawn, false);
}

void DrawOption(QPainter& painter, const DrawnControl& drawn) {
    DrawMarkedText(painter, drawn, true);
}

void DrawCombo(QPainter& painter, const DrawnControl& drawn) {
    Fill(painter, drawn, kWindow);
    DrawBorder(painter, drawn.Bounds);
    const double side = std::min(drawn.Bounds.height(), 21 * Unit(drawn));
    const QRectF arrow(
        drawn.Bounds.right() - side, drawn.Bounds.top(), side, drawn.Bounds.height());
    painter.fillRect(Inset(arrow, 1.5), Rgb(0xE8E8E8));
    DrawArrow(painter, arrow, 0);
    const QString text = modQt::Text(PropertiesOf(drawn).Text("Text"));
    DrawText(
        painter,
        drawn,
        Inset(drawn.Bounds, 3 * Unit(drawn)).adjusted(0, 0, -side, 0),
        text.isEmpty() ? NameOf(drawn) : text,
        Qt::AlignVCenter);
}

/// The items are not in the layout: the name is shown, as in the environment.
void DrawList(QPainter& painter, const DrawnControl& drawn) {
    Fill(painter, drawn, kWindow);
    DrawBorder(painter, drawn.Bounds);
    DrawText(painter, drawn, Inset(drawn.Bounds, 3 * Unit(drawn)), NameOf(drawn), Qt::AlignTop);
}

void DrawScroll(QPainter& painter, const DrawnControl& drawn, bool isAcross) {
    painter.fillRect(drawn.Bounds, Rgb(0xE3E3E3));
    const QRectF& all = drawn.Bounds;
    const double side = isAcross ? std::min(all.height(), all.width() / 2)
                                 : std::min(all.width(), all.height() / 2);
    const QRectF first(
        all.left(), all.top(), isAcross ? side : all.width(), isAcross ? all.height() : side);
    const QRectF last = isAcross ? first.translated(all.width() - side, 0)
                                 : first.translated(0, all.height() - side);
    const QRectF thumb = isAcross ? first.translated(side, 0) : first.translated(0, side);
    painter.fillRect(Inset(thumb, 1), Rgb(0xC2C2C2));
    DrawArrow(painter, first, isAcross ? 90 : 180);
    DrawArrow(painter, last, isAcross ? -90 : 0);
    DrawBorder(painter, all);
}

void DrawAcross(QPainter& painter, const DrawnControl& drawn) {
    DrawScroll(painter, drawn, true);
}

void DrawDown(QPainter& painter, const DrawnControl& drawn) {
    DrawScroll(painter, drawn, false);
}

void DrawPicture(QPainter& painter, const DrawnControl& drawn) {
    Fill(painter, drawn, kFace);
    if (PropertiesOf(drawn).WholeNumber("BorderStyle", 1) != 0) {
        DrawBorder(painter, drawn.Bounds);
    }
}

void DrawImage(QPainter& painter, const DrawnControl& drawn) {
    const QRectF rect = drawn.Bounds.adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Rgb(kShadow), 1, Qt::DashLine));
    painter.drawRect(rect);
    // A picture of a picture: two hills and a sun.
    const double side = std::min({rect.width(), rect.height(), 32 * Unit(drawn)}) * 0.6;
    const QPointF middle = rect.center();
    painter.setPen(QPen(Rgb(kShadow), std::max(1.0, Unit(drawn))));
    painter.drawPolyline(QPolygonF(
        {middle + QPointF(-side / 2, side / 3),
         middle + QPointF(-side / 6, -side / 6),
         middle + QPointF(side / 8, side / 6),
         middle + QPointF(side / 4, 0),
         middle + QPointF(side / 2, side / 3)}));
    painter.drawEllipse(middle + QPointF(side / 4, -side / 4), side / 10, side / 10);
}

void DrawShape(QPainter& painter, const DrawnControl& drawn) {
    const DesignerProperties& properties = PropertiesOf(drawn);
    const double width = std::max(1.0, properties.WholeNumber("BorderWidth", 1) * Unit(drawn));
    const bool hasLine = properties.WholeNumber("BorderStyle", 1) != 0;
    const QColor line = ColourOf(properties, "BorderColor", kBlack);
    painter.setPen(hasLine ? QPen(line, width) : QPen(Qt::NoPen));
    painter.setBrush(Qt::NoBrush);
    if (properties.WholeNumber("FillStyle", 1) == 0) {
        painter.setBrush(ColourOf(properties, "FillColor", kBlack));
    } else if (properties.WholeNumber("BackStyle") == 1) {
        painter.setBrush(ColourOf(properties, "BackColor", kWindow));
    }
    QRectF rect = Inset(drawn.Bounds, width / 2);
    const std::int32_t shape = properties.WholeNumber("Shape");
    if (shape == 1 || shape == 3 || shape == 5) {
        const double side = std::min(rect.width(), rect.height());
        rect = QRectF(rect.center().x() - side / 2, rect.center().y() - side / 2, side, side);
    }
    const double corner = std::min(rect.width(), rect.height()) / 6;
    switch (shape) {
        case 2:
        case 3: painter.drawEllipse(rect); break;
        case 4:
        case 5: painter.drawRoundedRect(rect, corner, corner); break;
        default: painter.drawRect(rect); break;
    }
}

void DrawLine(QPainter& painter, const DrawnControl& drawn) {
    const DesignerProperties& properties = PropertiesOf(drawn);
    const double width = std::max(1.0, properties.WholeNumber("BorderWidth", 1) * Unit(drawn));
    painter.setPen(QPen(ColourOf(properties, "BorderColor", kBlack), width));
    const TwipLine& line = drawn.Placed.Line;
    const QPointF origin = drawn.Bounds.topLeft() -
                           QPointF(drawn.Placed.Bounds.Left, drawn.Placed.Bounds.Top) * drawn.Scale;
    painter.drawLine(
        origin + QPointF(line.X1, line.Y1) * drawn.Scale,
        origin + QPointF(line.X2, line.Y2) * drawn.Scale);
}

/// A clock for a timer, for others the first letters of their class.
void DrawSign(QPainter& painter, const DrawnControl& drawn) {
    const QRectF rect = drawn.Bounds.adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(Rgb(kShadow), 1));
    painter.setBrush(Rgb(0xFAFAFA));
    painter.drawRect(rect);
    const double size = rect.width();
    const QString type = modQt::Text(drawn.Control.Type()).section(QLatin1Char('.'), -1);
    if (type.contains(QStringLiteral("timer"), Qt::CaseInsensitive)) {
        painter.setPen(QPen(Rgb(kBlack), std::max(1.0, Unit(drawn))));
        painter.drawEllipse(Inset(rect, size / 5));
        painter.drawLine(rect.center(), rect.center() - QPointF(0, size / 5));
        painter.drawLine(rect.center(), rect.center() + QPointF(size / 7, 0));
        return;
    }
    QFont font = FontOf(DesignerProperties(), drawn.Scale);
    font.setPixelSize(std::max(1, static_cast<int>(size / 2.4)));
    painter.setFont(font);
    painter.setPen(Rgb(kGrey));
    painter.drawText(rect, Qt::AlignCenter, type.left(2));
}

void DrawTabs(QPainter& painter, const DrawnControl& drawn) {
    const DesignerProperties& properties = PropertiesOf(drawn);
    const QFont font = FontOf(properties, drawn.Scale);
    const QFontMetricsF metrics(font);
    const double height = metrics.height() + 6 * Unit(drawn);
    const QRectF page = drawn.Bounds.adjusted(0, height, 0, 0);
    painter.fillRect(page, Rgb(kFace));
    DrawBorder(painter, page);
    const std::vector<std::string> captions = TabCaptions(properties);
    const std::size_t shown = ShownTab(properties);
    double left = drawn.Bounds.left();
    for (std::size_t index = 0; index < captions.size() && left < drawn.Bounds.right(); ++index) {
        QString caption = modQt::Text(captions[index]);
        QString plain = caption;
        plain.remove(QLatin1Char('&'));
        const double width = metrics.horizontalAdvance(plain) + 16 * Unit(drawn);
        const double lift = index == shown ? 0 : 2 * Unit(drawn);
        const QRectF tab(left, drawn.Bounds.top() + lift, width, height - lift + 1);
        painter.fillRect(tab, Rgb(index == shown ? kFace : 0xE0E0E0));
        DrawBorder(painter, tab);
        if (index == shown) {
            painter.fillRect(
                QRectF(tab.left() + 1, tab.bottom() - 1, tab.width() - 2, 2), Rgb(kFace));
        }
        DrawText(painter, drawn, tab, caption, Qt::AlignCenter | Qt::TextShowMnemonic);
        left += width;
    }
}

void DrawTree(QPainter& painter, const DrawnControl& drawn) {
    Fill(painter, drawn, kWindow);
    DrawBorder(painter, drawn.Bounds);
    const double step = 17 * Unit(drawn);
    const std::array<const char*, 3> nodes = {"Sample node", "Sample node", "Sample node"};
    QRectF row = Inset(drawn.Bounds, 4 * Unit(drawn));
    row.setHeight(step);
    for (std::size_t index = 0; index < nodes.size(); ++index) {
        if (row.bottom() < drawn.Bounds.bottom()) {
            DrawText(
                painter,
                drawn,
                row.adjusted(index == 0 ? 0 : step, 0, 0, 0),
                modQt::Text(nodes.at(index)),
                Qt::AlignVCenter);
        }
        row.translate(0, step);
    }
}

void DrawListView(QPainter& painter, const DrawnControl& drawn) {
    Fill(painter, drawn, kWindow);
    const double height = std::min(18 * Unit(drawn), drawn.Bounds.height() / 2);
    QRectF head = drawn.Bounds;
    head.setHeight(height);
    painter.fillRect(head, Rgb(0xE8E8E8));
    painter.setPen(QPen(Rgb(0xDADADA), 1));
    for (double y = head.bottom(); y < drawn.Bounds.bottom(); y += height) {
        painter.drawLine(QPointF(drawn.Bounds.left(), y), QPointF(drawn.Bounds.right(), y));
    }
    DrawBorder(painter, drawn.Bounds);
    DrawText(
        painter, drawn, head.adjusted(4 * Unit(drawn), 0, 0, 0), NameOf(drawn), Qt::AlignVCenter);
}

void DrawBar(QPainter& painter, const DrawnControl& drawn) {
    Fill(painter, drawn, kFace);
    DrawBorder(painter, drawn.Bounds);
    const QString text = modQt::Text(PropertiesOf(drawn).Text("SimpleText"));
    DrawText(
        painter,
        drawn,
        Inset(drawn.Bounds, 3 * Unit(drawn)),
        text.isEmpty() ? NameOf(drawn) : text,
        Qt::AlignVCenter);
}

void DrawProgress(QPainter& painter, const DrawnControl& drawn) {
    painter.fillRect(drawn.Bounds, Rgb(0xE6E6E6));
    QRectF part = Inset(drawn.Bounds, 2 * Unit(drawn));
    part.setWidth(part.width() * 0.4);
    painter.fillRect(part, Rgb(0x3BA55D));
    DrawBorder(painter, drawn.Bounds);
}

void DrawSlider(QPainter& painter, const DrawnControl& drawn) {
    if (PropertiesOf(drawn).Find("BackColor") != nullptr) {
        Fill(painter, drawn, kFace);
    }
    const QRectF& all = drawn.Bounds;
    const bool isAcross = all.width() >= all.height();
    const double thickness = 4 * Unit(drawn);
    const QRectF track =
        isAcross ? QRectF(all.left(), all.center().y() - thickness / 2, all.width(), thickness)
                 : QRectF(all.center().x() - thickness / 2, all.top(), thickness, all.height());
    DrawBorder(painter, Inset(track, 0));
    const double side = 10 * Unit(drawn);
    painter.fillRect(
        QRectF(
            isAcross ? all.left() + side : all.center().x() - side,
            isAcross ? all.center().y() - side : all.top() + side,
            isAcross ? side : 2 * side,
            isAcross ? 2 * side : side),
        Rgb(0x6D8FB8));
}

void DrawUnknown(QPainter& painter, const DrawnControl& drawn) {
    Fill(painter, drawn, kFace);
    const QRectF rect = drawn.Bounds.adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(Rgb(kShadow), 1, Qt::DashLine));
    painter.setBrush(QBrush(Rgb(0xDDDDDD), Qt::BDiagPattern));
    painter.drawRect(rect);
    const QString caption = CaptionOf(drawn);
    QFont font = FontOf(PropertiesOf(drawn), drawn.Scale);
    const QFontMetricsF metrics(font);
    const bool isTwoLines = rect.height() > 2.2 * metrics.height();
    const QString type = modQt::Text(drawn.Control.Type()).section(QLatin1Char('.'), -1);
    const QString text = !caption.isEmpty() ? caption
                         : isTwoLines       ? NameOf(drawn) + QLatin1Char('\n') + type
                                            : NameOf(drawn);
    const double width = metrics.boundingRect(rect, Qt::AlignCenter, text).width() + 6;
    painter.fillRect(
        QRectF(rect.center().x() - width / 2, rect.top() + 1, width, rect.height() - 2)
            .intersected(Inset(rect, 1)),
        ColourOf(PropertiesOf(drawn), "BackColor", kFace));
    DrawText(painter, drawn, rect, text, Qt::AlignCenter);
}

using DrawOperation = void (*)(QPainter&, const DrawnControl&);

/// By `ControlLook`.
constexpr std::array<DrawOperation, 22> kOperations = {
    &DrawUnknown,  &DrawLabel, &DrawTextBox,  &DrawFrame,  &DrawButton, &DrawCheckBox,
    &DrawOption,   &DrawCombo, &DrawList,     &DrawAcross, &DrawDown,   &DrawPicture,
    &DrawImage,    &DrawShape, &DrawLine,     &DrawSign,   &DrawTabs,   &DrawTree,
    &DrawListView, &DrawBar,   &DrawProgress, &DrawSlider};

}  // namespace

void Draw(QPainter& painter, const DrawnControl& drawn) {
    const auto look = static_cast<std::size_t>(drawn.Placed.Look);
    if (look >= kOperations.size()) {
        return;
    }
    painter.save();
    if (!PropertiesOf(drawn).Flag("Visible", true)) {
        painter.setOpacity(0.45);
    }
    kOperations.at(look)(painter, drawn);
    painter.restore();
}

}  // namespace dorvik::modControlPainter
