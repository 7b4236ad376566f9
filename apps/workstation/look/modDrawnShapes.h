#pragma once

#include <QPainter>
#include <QPainterPath>
#include <QRectF>

#include <span>
#include <string_view>

/// Pictures that are written as texts.
///
/// A picture is 16 units wide and high and consists of shapes, one after the other, divided by ";". A shape begins with the
/// letter of its colour, a small one for a line and a capital one for a surface, and continues with its path: "M x y" to
/// begin, "L x y" a line to a point, "H x", "V y" a level or upright one, "Z" back to the beginning, "Q x y x y" a curve by
/// one point to another, "O x y r" a circle. Numbers are absolute.
namespace dorvik::modDrawnShapes {

struct Picture {
    std::string_view Name;
    std::string_view Shapes;
};

/// Empty where the text is not understood.
QPainterPath PathOf(std::string_view text);
void Draw(QPainter& painter, const QRectF& bounds, std::string_view shapes);

/// All pictures that have a name.
std::span<const Picture> Pictures();
/// Empty for a name that there is no picture of.
std::string_view ShapesOf(std::string_view name);

}  // namespace dorvik::modDrawnShapes
