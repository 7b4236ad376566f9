#pragma once

#include "FormWindow.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/widgets/TimerDriver.h"

#include <QTimer>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QGridLayout;
class QProgressBar;
class QPushButton;

namespace dorvik {

class ElidedLabel;

/// Keeps the time of the form's timer as long as it is attached.
class ProgressWindow final : public FormWindow {
public:
    ProgressWindow(frmProgress& form, QWidget* parent);

    void Detach() override;

private:
    struct Line {
        ElidedLabel* Label;
        const Observable<std::string>* Text;
    };
    struct Bar {
        QProgressBar* Shown;
        const Observable<std::int32_t>* Percentage;
    };

    void AddLine(QGridLayout& grid, Observable<std::string>& text, std::string_view name);
    void AddBar(
        QGridLayout& grid,
        Observable<std::int32_t>& percentage,
        std::string_view name,
        std::string_view spoken);
    template <typename Value>
    void Follow(Observable<Value>& value);
    void Refresh();

    QPushButton* m_cancel = nullptr;
    std::vector<Line> m_lines;
    std::vector<Bar> m_bars;
    /// A review reports far more than anyone can read: what is shown follows it from time to time.
    QTimer m_refreshDue;
    std::optional<TimerDriver> m_timer;
};

}  // namespace dorvik
