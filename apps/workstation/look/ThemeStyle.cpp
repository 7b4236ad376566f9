#include "ThemeStyle.h"

#include <QApplication>
#include <QStyleFactory>
#include <QStyleOption>

#include <algorithm>

namespace dorvik {

namespace {

constexpr int kEdgeDarkening =
    140;  // per cent: Fusion's edges are that much darker than the window
constexpr double kBoxOfLine = 0.75;  // of the height of a line

/// Fusion's own edges are hardly seen on a dark window.
QPalette WithEdges(const QPalette& palette) {
    QPalette edged(palette);
    const QColor edge = palette.color(QPalette::Active, QPalette::PlaceholderText);
    edged.setColor(QPalette::Window, edge.lighter(kEdgeDarkening));
    return edged;
}

/// True where the option is of that type: a copy of it with edges was drawn.
template <typename Option, typename Base, typename Draw>
bool DrawnAs(const Base* option, Draw draw) {
    const auto* const known = qstyleoption_cast<const Option*>(option);
    if (known == nullptr) {
        return false;
    }
    Option edged(*known);
    edged.palette = WithEdges(known->palette);
    draw(&edged);
    return true;
}

bool HasEdge(QStyle::PrimitiveElement element) {
    // Others draw with the colour of the window too.
    const auto edged = {
        QStyle::PE_IndicatorCheckBox,
        QStyle::PE_IndicatorRadioButton,
        QStyle::PE_IndicatorItemViewItemCheck,
        QStyle::PE_PanelButtonCommand,
        QStyle::PE_PanelLineEdit,
        QStyle::PE_FrameLineEdit,
        QStyle::PE_Frame};
    return std::find(edged.begin(), edged.end(), element) != edged.end();
}

bool IsBox(QStyle::PixelMetric metric) {
    const auto boxes = {
        QStyle::PM_IndicatorWidth,
        QStyle::PM_IndicatorHeight,
        QStyle::PM_ExclusiveIndicatorWidth,
        QStyle::PM_ExclusiveIndicatorHeight};
    return std::find(boxes.begin(), boxes.end(), metric) != boxes.end();
}

/// Whether a metric is the size of a picture beside a text.
bool IsPicture(QStyle::PixelMetric metric) {
    return metric == QStyle::PM_SmallIconSize || metric == QStyle::PM_ButtonIconSize ||
           metric == QStyle::PM_ListViewIconSize || metric == QStyle::PM_TabBarIconSize;
}

}  // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void ThemeStyle::drawPrimitive(
    PrimitiveElement element,
    const QStyleOption* option,
    QPainter* painter,
    const QWidget* widget) const {
    const auto draw = [&](const QStyleOption* drawn) {
        QProxyStyle::drawPrimitive(element, drawn, painter, widget);
    };
    const bool isDrawn = HasEdge(element) && (DrawnAs<QStyleOptionViewItem>(option, draw) ||
                                              DrawnAs<QStyleOptionButton>(option, draw) ||
                                              DrawnAs<QStyleOptionFrame>(option, draw));
    if (!isDrawn) {
        draw(option);
    }
}

void ThemeStyle::drawComplexControl(
    ComplexControl control,
    const QStyleOptionComplex* option,
    QPainter* painter,
    const QWidget* widget) const {
    const auto draw = [&](const QStyleOptionComplex* drawn) {
        QProxyStyle::drawComplexControl(control, drawn, painter, widget);
    };
    if (control != CC_ComboBox || !DrawnAs<QStyleOptionComboBox>(option, draw)) {
        draw(option);
    }
}

int ThemeStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const int size = QProxyStyle::pixelMetric(metric, option, widget);
    if (!IsBox(metric) && !IsPicture(metric)) {
        return size;
    }
    const QFontMetrics letters =
        widget != nullptr ? widget->fontMetrics() : QFontMetrics(QApplication::font());
    return std::max(size, IsBox(metric) ? int(letters.height() * kBoxOfLine) : letters.height());
}

QSize ThemeStyle::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const {
    QSize whole = QProxyStyle::sizeFromContents(type, option, size, widget);
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (type == CT_PushButton && button != nullptr && !button->text.isEmpty()) {
        whole.rwidth() += button->fontMetrics.averageCharWidth() * 2;
    }
    return whole;
}

}  // namespace dorvik
