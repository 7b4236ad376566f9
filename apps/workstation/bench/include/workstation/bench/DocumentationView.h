#pragma once

#include "workstation/controls/DocumentPane.h"
#include "workstation/controls/Event.h"

#include <QTextBrowser>

#include <string>

class QPrinter;

namespace dorvik {

/// The pane that documents a violation. Its page loads nothing. Ctrl with +, - and 0 or the wheel sets its size, Ctrl+P
/// shows what would be printed.
class DocumentationView final : public QTextBrowser {
public:
    /// REQUIRES: `pane` outlives this.
    explicit DocumentationView(DocumentPane& pane, QWidget* parent = nullptr);

    /// By that many steps of a tenth. The page is between a half and three times its own size.
    void ZoomBy(int steps);
    void ResetZoom();
    double Zoom() const { return 1 + m_zoom / 10.0; }
    void PreviewPrint();
    /// In the colours of paper.
    void Print(QPrinter& printer) const;

    /// The user has followed a link.
    Event<const std::string&> LinkActivated;

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void ShowPage();
    void AddActions();

    DocumentPane& m_pane;
    int m_zoom = 0;  // in tenths, from the page's own size
    QList<QAction*> m_commands;
    Subscription m_changed;
    Subscription m_themeChanged;
};

}  // namespace dorvik
