#pragma once

#include <QDockWidget>
#include <QWidget>

namespace dorvik {

/// The title of a pane with its two buttons, whose sizes follow that of all texts; the one of the style does not grow.
class PaneTitle final : public QWidget {
public:
    explicit PaneTitle(QDockWidget& pane);
};

}  // namespace dorvik
