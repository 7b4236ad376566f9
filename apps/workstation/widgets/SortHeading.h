#pragma once

#include <QHeaderView>

namespace dorvik {

/// Headings that are clicked. The arrow points up where rows are in ascending order, as it does in the pictures and in the
/// group-by box; Qt's style has it the other way round.
class SortHeading : public QHeaderView {
public:
    explicit SortHeading(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
        setHighlightSections(false);
        setStretchLastSection(false);
        setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
        QHeaderView::initStyleOptionForIndex(option, section);
        if (option->sortIndicator == QStyleOptionHeader::SortUp) {
            option->sortIndicator = QStyleOptionHeader::SortDown;
        } else if (option->sortIndicator == QStyleOptionHeader::SortDown) {
            option->sortIndicator = QStyleOptionHeader::SortUp;
        }
    }
};

}  // namespace dorvik
