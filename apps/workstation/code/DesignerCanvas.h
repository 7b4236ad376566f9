#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/FileDesigner.h"
#include "workstation/filehost/FormLayout.h"

#include <QMenu>
#include <QWidget>

#include <cstdint>
#include <memory>

namespace dorvik {

/// What a `DesignerView` scrolls: the form with its title and menu bar.
class DesignerCanvas final : public QWidget {
public:
    DesignerCanvas(FileDesigner& designer, QWidget* parent);

    void SetZoom(double factor);
    double Zoom() const { return m_zoom; }
    QRect RectOf(std::int32_t control) const;
    QRect MenuRect(std::int32_t menu) const;
    /// Selects one control only; 0 for none.
    void Select(std::int32_t control);
    std::int32_t Selected() const;

    Event<FileDesignerControl&> Activated;
    Event<std::int32_t> Shown;  // a control that was selected

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool event(QEvent* event) override;

private:
    bool HasTitle() const;
    int TitleHeight() const;
    int MenuHeight() const;
    QFont FormFont() const;
    QRectF Inner() const;
    QRectF Pixels(const TwipRect& rect) const;
    std::int32_t ControlAt(const QPoint& place) const;
    /// The next control in the order of the layout; 0 at an end.
    std::int32_t Neighbour(bool next) const;
    void Fit();
    void Describe();
    void DrawForm(QPainter& painter) const;
    void DrawMenus(QPainter& painter) const;
    void DrawControls(QPainter& painter) const;
    void DrawSelection(QPainter& painter, const QRectF& bounds) const;
    void OpenMenu(std::int32_t menu);
    void FillMenu(QMenu& menu, std::int32_t control);

    FileDesigner& m_designer;
    FormLayout m_layout;
    double m_zoom = 1;
    Subscription m_selection;
    Subscription m_theme;
};

}  // namespace dorvik
