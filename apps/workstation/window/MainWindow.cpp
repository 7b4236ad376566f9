#include "workstation/window/MainWindow.h"

#include "workstation/look/modQt.h"

namespace dorvik {

MainWindow::MainWindow() {
    setWindowTitle(modQt::Text("Dorvik Workstation"));
}

}  // namespace dorvik
