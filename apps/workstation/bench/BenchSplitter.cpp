#include "workstation/bench/BenchSplitter.h"

#include "workstation/look/modQt.h"

#include <QKeyEvent>
#include <QSplitterHandle>

#include <algorithm>
#include <cmath>
#include <memory>

namespace dorvik {

namespace {

constexpr int kTwipsOfAnInch = 1440;

/// The bar itself.
class Bar final : public QSplitterHandle {
public:
    explicit Bar(BenchSplitter& splitter)
        : QSplitterHandle(Qt::Horizontal, &splitter), m_splitter(splitter) {
        setFocusPolicy(Qt::TabFocus);
        setAccessibleName(QStringLiteral("Bar between list and documentation"));
    }

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        QSplitterHandle::mouseReleaseEvent(event);
        m_splitter.ReleaseBar(0);
    }
    void enterEvent(QEnterEvent* event) override {
        QSplitterHandle::enterEvent(event);
        m_splitter.Model().Enter();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
            const int step = fontMetrics().height();
            m_splitter.ReleaseBar(event->key() == Qt::Key_Left ? -step : step);
        } else {
            QSplitterHandle::keyPressEvent(event);
        }
    }
    void focusInEvent(QFocusEvent* event) override {
        QSplitterHandle::focusInEvent(event);
        setBackgroundRole(QPalette::Highlight);
        setAutoFillBackground(true);
    }
    void focusOutEvent(QFocusEvent* event) override {
        QSplitterHandle::focusOutEvent(event);
        setAutoFillBackground(false);
    }

private:
    BenchSplitter& m_splitter;
};

}  // namespace

BenchSplitter::BenchSplitter(Splitter& splitter, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent), m_splitter(splitter) {
    setChildrenCollapsible(false);
    setHandleWidth(std::max(4, fontMetrics().height() / 3));
    m_moved = m_splitter.Left.Changed.Subscribe([this](const std::int32_t&) { ShowPosition(); });
}

QSplitterHandle* BenchSplitter::createHandle() {
    return std::make_unique<Bar>(*this).release();
}

int BenchSplitter::Twips(int pixels) const {
    return static_cast<int>(std::lround(1.0 * pixels * kTwipsOfAnInch / logicalDpiX()));
}

void BenchSplitter::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    m_splitter.Resize(Twips(width()), Twips(height()));
    ShowPosition();
}

void BenchSplitter::ReleaseBar(int movedBy) {
    m_splitter.Release(Twips(sizes().value(0) + movedBy));
    ShowPosition();
}

void BenchSplitter::ShowPosition() {
    if (count() < 2 || m_splitter.ContainerWidth() == 0) {
        return;
    }
    const int left = static_cast<int>(
        std::lround(1.0 * m_splitter.Left.Value() * logicalDpiX() / kTwipsOfAnInch));
    if (sizes().value(0) != left) {
        setSizes({left, std::max(0, width() - handleWidth() - left)});
    }
}

}  // namespace dorvik
