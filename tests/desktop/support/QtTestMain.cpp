#include "workstation/look/modTheme.h"

#include <QApplication>
#include <gtest/gtest.h>

/// Widgets are tested without a screen: the platform "offscreen" draws into memory.
int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    dorvik::modTheme::Apply(dorvik::ThemeName::Light);
    return RUN_ALL_TESTS();
}
