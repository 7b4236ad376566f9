#include "workstation/look/modTheme.h"
#include "workstation/window/MainWindow.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    dorvik::modTheme::Apply(dorvik::ThemeName::System);
    dorvik::MainWindow window;
    window.show();
    return QApplication::exec();
}
