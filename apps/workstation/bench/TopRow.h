#pragma once

#include <QWidget>

class QGridLayout;

namespace dorvik {

/// Three parts in one row, or, where that has no room, the middle one in a row of its own below the others.
class TopRow final : public QWidget {
public:
    explicit TopRow(QWidget* parent);

    QWidget& Left() { return m_left; }
    QWidget& Middle() { return m_middle; }
    QWidget& Right() { return m_right; }

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int WidthOfOneRow() const;
    void Arrange(bool oneRow);

    QGridLayout& m_grid;
    QWidget& m_left;
    QWidget& m_middle;
    QWidget& m_right;
    bool m_oneRow = true;
};

}  // namespace dorvik
