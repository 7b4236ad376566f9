#pragma once

#include <QLabel>

class QAbstractScrollArea;

namespace dorvik {

/// A panel over a list without rows.
class Placeholder final : public QLabel {
public:
    Placeholder(const QString& text, QAbstractScrollArea& list);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Place();

    QAbstractScrollArea& m_list;
};

}  // namespace dorvik
