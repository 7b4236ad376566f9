#pragma once

#include "FormWindow.h"
#include "workstation/dialogs/frmReviewSummary.h"

class QBoxLayout;

namespace dorvik {

/// Shown where the form's position says, which it keeps up to date.
class SummaryWindow final : public FormWindow {
public:
    SummaryWindow(frmReviewSummary& form, QWidget* parent);

protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void AddTabs(QBoxLayout& layout);
    void AddSourceFiles(QBoxLayout& layout);
    void AddButtons(QBoxLayout& layout);
    void Place();
    void KeepPosition();

    frmReviewSummary& m_form;
    bool m_isPlaced = false;
    QRect m_placed;
};

}  // namespace dorvik
