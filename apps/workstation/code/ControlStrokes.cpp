#include "ControlStrokes.h"

#include "workstation/filehost/FileDesigner.h"
#include "workstation/look/modQt.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace dorvik::modControlPainter {

QColor Rgb(std::uint32_t colour) {
    return QColor(QRgb(0xFF000000U | colour));
}

const DesignerProperties& PropertiesOf(const DrawnControl& drawn) {
    return drawn.Control.Properties();
}

double Unit(const DrawnControl& drawn) {
    return 15 * drawn.Scale;
}

QRectF Inset(const QRectF& rect, double by) {
    return rect.adjusted(by, by, -by, -by);
}

void DrawBorder(QPainter& painter, const QRectF& rect) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Rgb(kShadow), 1));
    painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
}

void Fill(QPainter& painter, const DrawnControl& drawn, std::uint32_t otherwise) {
    painter.fillRect(drawn.Bounds, ColourOf(PropertiesOf(drawn), "BackColor", otherwise));
}

void DrawText(
    QPainter& painter,
    const DrawnControl& drawn,
    const QRectF& rect,
    const QString& text,
    int flags) {
    const DesignerProperties& properties = PropertiesOf(drawn);
    painter.setFont(FontOf(properties, drawn.Scale));
    const bool isEnabled = properties.Flag("Enabled", true);
    painter.setPen(isEnabled ? ColourOf(properties, "ForeColor", kBlack) : Rgb(kGrey));
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.drawText(rect, flags, text);
    painter.restore();
}

int AlignmentOf(const DesignerProperties& properties) {
    switch (properties.WholeNumber("Alignment")) {
        case 1: return Qt::AlignRight;
        case 2: return Qt::AlignHCenter;
        default: return Qt::AlignLeft;
    }
}

QString CaptionOf(const DrawnControl& drawn) {
    return modQt::Text(PropertiesOf(drawn).Text("Caption"));
}

QString NameOf(const DrawnControl& drawn) {
    return modQt::Text(drawn.Control.Name());
}

void DrawArrow(QPainter& painter, const QRectF& rect, double angle) {
    painter.save();
    painter.translate(rect.center());
    painter.rotate(angle);
    const double size = std::min(rect.width(), rect.height()) / 5;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Rgb(kGrey));
    painter.drawPolygon(QPolygonF({{-size, -size / 2}, {size, -size / 2}, {0, size / 2}}));
    painter.restore();
}

QColor ColourOf(const DesignerProperties& properties, const char* name, std::uint32_t otherwise) {
    return Rgb(properties.Colour(name, otherwise));
}

QFont FontOf(const DesignerProperties& properties, double scale) {
    constexpr double kUsualSize = 8.25;  // points
    constexpr double kTwipsOfPoint = 20;
    QFont font;
    const std::string family = properties.Text("Font.Name");
    if (!family.empty()) {
        font.setFamilies({modQt::Text(family), QFont().family()});
    }
    const double size = properties.Number("Font.Size").value_or(kUsualSize);
    font.setPixelSize(
        std::clamp(static_cast<int>(std::lround(size * kTwipsOfPoint * scale)), 1, 1000));
    font.setBold(properties.WholeNumber("Font.Weight", 400) >= 600);
    font.setItalic(properties.Flag("Font.Italic", false));
    font.setUnderline(properties.Flag("Font.Underline", false));
    font.setStrikeOut(properties.Flag("Font.Strikethrough", false));
    return font;
}

}  // namespace dorvik::modControlPainter
