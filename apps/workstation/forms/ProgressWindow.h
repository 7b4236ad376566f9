#pragma once

#include "FormWindow.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/widgets/TimerDriver.h"

#include <QTimer>

#include <cstdint>
#include <optional>

class QGridLayout;
class QProgressBar;
class QPushButton;

namespace dorvik {

/// Keeps the time of the form's timer as long as it is attached.
class ProgressWindow final : public FormWindow {
public:
    ProgressWindow(frmProgress& form, QWidget* parent);

    void Detach() override;

private:
    void AddTexts(QGridLayout& grid);
    QProgressBar& AddBar(QGridLayout& grid, std::string_view name, std::string_view spoken);
    void FollowBar(QProgressBar& bar, Observable<std::int32_t>& percentage);
    void ShowBars();

    frmProgress& m_form;
    QProgressBar* m_project = nullptr;
    QProgressBar* m_sourceFile = nullptr;
    QPushButton* m_cancel = nullptr;
    /// A bar draws itself at once when it moves, which is more often than anyone can see.
    QTimer m_barsDue;
    std::optional<TimerDriver> m_timer;
};

}  // namespace dorvik
