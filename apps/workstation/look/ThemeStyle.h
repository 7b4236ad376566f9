#pragma once

#include <QProxyStyle>

namespace dorvik {

/// Qt's style "Fusion" with edges that are seen in every theme, and with boxes and buttons that grow with the font.
class ThemeStyle final : public QProxyStyle {
public:
    ThemeStyle();

    void drawPrimitive(
        PrimitiveElement element,
        const QStyleOption* option,
        QPainter* painter,
        const QWidget* widget) const override;
    void drawComplexControl(
        ComplexControl control,
        const QStyleOptionComplex* option,
        QPainter* painter,
        const QWidget* widget) const override;
    int pixelMetric(
        PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(
        ContentsType type,
        const QStyleOption* option,
        const QSize& size,
        const QWidget* widget) const override;
};

}  // namespace dorvik
