#pragma once

#include "workstation/filehost/FormLayout.h"

#include <QFont>
#include <QPainter>

namespace dorvik {

class FileDesignerControl;
class DesignerProperties;

/// A control to be drawn, in pixels.
struct DrawnControl {
    const FileDesignerControl& Control;
    const PlacedControl& Placed;
    QRectF Bounds;
    double Scale = 1;  // pixels of a twip
};

/// Draws controls as a form shows them.
namespace modControlPainter {

void Draw(QPainter& painter, const DrawnControl& drawn);
QColor ColourOf(const DesignerProperties& properties, const char* name, std::uint32_t otherwise);
/// `scale` in pixels of a twip.
QFont FontOf(const DesignerProperties& properties, double scale);

inline constexpr std::uint32_t kFace = 0xF0F0F0;
inline constexpr std::uint32_t kWindow = 0xFFFFFF;
inline constexpr std::uint32_t kBlack = 0;
inline constexpr std::uint32_t kShadow = 0xA0A0A0;
inline constexpr std::uint32_t kGrey = 0x6D6D6D;

}  // namespace modControlPainter

}  // namespace dorvik
