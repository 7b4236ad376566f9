#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/FileDesigner.h"

#include <QScrollArea>

#include <cstdint>

namespace dorvik {

class DesignerCanvas;

/// A form to scale, as its layout describes it. A click selects a control, as do Tab and the arrow keys. REQUIRES: the
/// designer outlives it.
class DesignerView final : public QScrollArea {
public:
    explicit DesignerView(FileDesigner& designer, QWidget* parent = nullptr);

    /// 1 is the size that the form has on the screen.
    void SetZoom(double factor);
    double Zoom() const;
    /// Where a control is in the view; empty for a menu and for one that is not shown.
    QRect RectOf(std::int32_t control) const;
    /// Where the caption of a menu of the menu bar is.
    QRect MenuRect(std::int32_t menu) const;

    /// A control was double-clicked, or Enter pressed on it.
    Event<FileDesignerControl&> Activated;

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    DesignerCanvas& m_canvas;
    Subscription m_activations;
    Subscription m_shown;
};

}  // namespace dorvik
