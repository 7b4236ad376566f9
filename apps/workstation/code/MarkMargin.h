#pragma once

#include "workstation/controls/Event.h"

#include <QWidget>

namespace dorvik {

class CodeEditor;
class MarkLayer;

/// The marks of the lines that are shown, beside them.
class MarkMargin final : public QWidget {
public:
    MarkMargin(CodeEditor& editor, MarkLayer& marks, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;

private:
    int LineAt(const QPoint& place) const;

    CodeEditor& m_editor;
    MarkLayer& m_marks;
    Subscription m_changes;
};

/// All marks of a module and the part of it that is shown, over the whole height.
class MarkOverview final : public QWidget {
public:
    MarkOverview(CodeEditor& editor, MarkLayer& marks, QWidget* parent);

    QSize sizeHint() const override;
    /// Where the mark of a line is.
    QRect MarkRect(int line) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    /// The line of the mark that is nearest to a height; 0 where none is near.
    int MarkNear(int y) const;

    CodeEditor& m_editor;
    MarkLayer& m_marks;
    Subscription m_changes;
};

}  // namespace dorvik
