#pragma once

#include <QMainWindow>

namespace dorvik {

/// The program's one window.
class MainWindow final : public QMainWindow {
public:
    MainWindow();
};

}  // namespace dorvik
