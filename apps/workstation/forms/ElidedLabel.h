#pragma once

#include <QLabel>

namespace dorvik {

/// A line of text that is shortened in the middle where it does not fit, and whole in its tip.
class ElidedLabel final : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

}  // namespace dorvik
