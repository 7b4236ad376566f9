#include "workstation/look/modTheme.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace dorvik::test {

namespace {

double Luminance(QColor colour) {
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 3);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF());
}

double Contrast(QColor left, QColor right) {
    const double brighter = std::max(Luminance(left), Luminance(right));
    const double darker = std::min(Luminance(left), Luminance(right));
    return (brighter + 0.05) / (darker + 0.05);
}

/// The largest contrast between the window and a pixel of the row through the middle of the widget's left end.
double EdgeContrast(QWidget& widget, int width) {
    widget.resize(widget.sizeHint());
    const QImage picture = widget.grab().toImage();
    const QColor window = widget.palette().color(QPalette::Window);
    double largest = 0;
    for (int x = 0; x < width; ++x) {
        largest = std::max(largest, Contrast(picture.pixelColor(x, picture.height() / 2), window));
    }
    return largest;
}

class ThemeStyleTest : public testing::Test {
public:
    ~ThemeStyleTest() override {
        QApplication::setFont(m_font);
        modTheme::Apply(ThemeName::Light);
    }

private:
    QFont m_font = QApplication::font();
};

TEST_F(ThemeStyleTest, EdgesAreSeenInEveryTheme) {
    for (const ThemeName theme : {ThemeName::Light, ThemeName::Dark, ThemeName::HighContrast}) {
        modTheme::Apply(theme);
        QCheckBox box;
        QLineEdit line;
        QPushButton button;
        const int mark = box.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &box);
        EXPECT_GE(EdgeContrast(box, mark), 3) << modTheme::NameOf(theme);
        EXPECT_GE(EdgeContrast(line, 4), 3) << modTheme::NameOf(theme);
        EXPECT_GE(EdgeContrast(button, 4), 3) << modTheme::NameOf(theme);
    }
}

TEST_F(ThemeStyleTest, BoxesGrowWithTheFont) {
    QFont font = QApplication::font();
    font.setPointSize(24);
    QApplication::setFont(font);
    const QCheckBox box;
    const int size = box.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &box);
    EXPECT_GT(size, box.fontMetrics().height() / 2);
    EXPECT_EQ(box.style()->pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, nullptr, &box), size);
}

}  // namespace

}  // namespace dorvik::test
