#pragma once

#include "workstation/controls/Splitter.h"

#include <QSplitter>

namespace dorvik {

/// The bar between the list and its documentation. The model accepts where the user lets go of it, or the bar goes back;
/// with the keyboard Left and Right move it.
class BenchSplitter final : public QSplitter {
public:
    /// REQUIRES: `splitter` outlives this.
    explicit BenchSplitter(Splitter& splitter, QWidget* parent = nullptr);

    /// The user lets go of the bar, or moves it with a key by that many pixels.
    void ReleaseBar(int movedBy);
    Splitter& Model() { return m_splitter; }

protected:
    QSplitterHandle* createHandle() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int Twips(int pixels) const;
    void ShowPosition();

    Splitter& m_splitter;
    Subscription m_moved;
};

}  // namespace dorvik
