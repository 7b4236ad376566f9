#pragma once

#include <QIcon>
#include <QPainter>
#include <QRectF>

#include <cstdint>
#include <string_view>
#include <vector>

/// The pictures of the program, drawn in the colours of the theme, so that they are sharp at every scale.
namespace dorvik::modPictures {

/// The picture that the models know by that name: the face of a command, the image of an item. An empty icon for an
/// empty name, a plain sheet for an unknown one.
QIcon Icon(std::string_view name);
/// Those that `Icon` has a picture for.
std::vector<std::string_view> Names();

/// Draws the mark of a severity, each level in a shape of its own: 1 octagon, 2 triangle, 3 diamond, 4 circle, 5 square.
void DrawSeverity(QPainter& painter, const QRectF& bounds, std::int32_t severity);
QIcon SeverityIcon(std::int32_t severity);

}  // namespace dorvik::modPictures
