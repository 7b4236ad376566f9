#include "workstation/look/modPictures.h"

#include "modDrawnShapes.h"
#include "workstation/look/modTheme.h"

#include <QIconEngine>
#include <QPainterPath>
#include <QPixmap>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <numbers>

namespace dorvik::modPictures {

namespace {

using Draw = std::function<void(QPainter& painter, const QRectF& bounds)>;

/// Draws its picture anew for each size and theme.
class DrawnIcon final : public QIconEngine {
public:
    explicit DrawnIcon(Draw draw) : m_draw(std::move(draw)) {}

    void paint(QPainter* painter, const QRect& bounds, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (mode == QIcon::Disabled) {
            painter->setOpacity(0.4);
        }
        m_draw(*painter, QRectF(bounds));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return std::make_unique<DrawnIcon>(m_draw).release(); }

private:
    Draw m_draw;
};

QIcon IconOf(Draw draw) {
    return QIcon(std::make_unique<DrawnIcon>(std::move(draw)).release());
}

QPolygonF RegularPolygon(const QRectF& bounds, int corners, double turn) {
    QPolygonF polygon;
    for (int i = 0; i < corners; ++i) {
        const double angle = turn + 2 * std::numbers::pi * i / corners;
        polygon << bounds.center() + QPointF(
                                         bounds.width() / 2 * std::cos(angle),
                                         bounds.height() / 2 * std::sin(angle));
    }
    return polygon;
}

void DrawSheet(QPainter& painter, const QRectF& bounds) {
    const double unit = bounds.width() / 16;
    const QRectF sheet = bounds.adjusted(3 * unit, 1.5 * unit, -3 * unit, -1.5 * unit);
    painter.setPen(QPen(modTheme::Colours().Hint, unit));
    painter.setBrush(modTheme::Colours().Code);
    painter.drawRect(sheet);
}

}  // namespace

QIcon Icon(std::string_view name) {
    if (name.empty()) {
        return {};
    }
    const std::string_view shapes = modDrawnShapes::ShapesOf(name);
    return shapes.empty() ? IconOf(DrawSheet)
                          : IconOf([shapes](QPainter& painter, const QRectF& bounds) {
                                modDrawnShapes::Draw(painter, bounds, shapes);
                            });
}

std::vector<std::string_view> Names() {
    std::vector<std::string_view> names;
    for (const modDrawnShapes::Picture& picture : modDrawnShapes::Pictures()) {
        names.push_back(picture.Name);
    }
    return names;
}

void DrawSeverity(QPainter& painter, const QRectF& bounds, std::int32_t severity) {
    const auto level = static_cast<std::size_t>(std::clamp(severity, 0, 5));
    const QRectF shape = bounds.adjusted(
        bounds.width() / 10, bounds.height() / 10, -bounds.width() / 10, -bounds.height() / 10);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(modTheme::Colours().Severity[level]);
    constexpr double kPi = std::numbers::pi;
    switch (level) {
        case 1: painter.drawPolygon(RegularPolygon(shape, 8, kPi / 8)); break;
        case 2:
            painter.drawPolygon(
                RegularPolygon(shape.translated(0, shape.height() / 8), 3, -kPi / 2));
            break;
        case 3: painter.drawPolygon(RegularPolygon(shape, 4, 0)); break;
        case 4: painter.drawEllipse(shape.adjusted(1, 1, -1, -1)); break;
        case 5: painter.drawRect(shape.adjusted(1, 1, -1, -1)); break;
        default: break;
    }
    painter.restore();
}

QIcon SeverityIcon(std::int32_t severity) {
    return IconOf([severity](QPainter& painter, const QRectF& bounds) {
        DrawSeverity(painter, bounds, severity);
    });
}

}  // namespace dorvik::modPictures
