#pragma once

#include "ControlPainter.h"

#include <QColor>
#include <QRectF>
#include <QString>

#include <cstdint>

/// What the drawings of controls are made of.
namespace dorvik::modControlPainter {

QColor Rgb(std::uint32_t colour);
const DesignerProperties& PropertiesOf(const DrawnControl& drawn);
/// The pixels of 15 twips, which were one on the screens that forms were made for.
double Unit(const DrawnControl& drawn);
QRectF Inset(const QRectF& rect, double by);
void DrawBorder(QPainter& painter, const QRectF& rect);
/// With its own colour, or another.
void Fill(QPainter& painter, const DrawnControl& drawn, std::uint32_t otherwise);
void DrawText(
    QPainter& painter,
    const DrawnControl& drawn,
    const QRectF& rect,
    const QString& text,
    int flags);
int AlignmentOf(const DesignerProperties& properties);
QString CaptionOf(const DrawnControl& drawn);
QString NameOf(const DrawnControl& drawn);
/// Down, turned by an angle.
void DrawArrow(QPainter& painter, const QRectF& rect, double angle);

}  // namespace dorvik::modControlPainter
