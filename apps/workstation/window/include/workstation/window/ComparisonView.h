#pragma once

#include "workstation/controls/Event.h"
#include "workstation/desk/ReviewComparison.h"

#include <QWidget>

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class QLabel;
class QToolButton;
class QTreeView;

namespace dorvik {

/// What is new, gone and unchanged since the review before: a line that says how much, buttons that say what to show, and
/// a list.
class ComparisonView final : public QWidget {
public:
    explicit ComparisonView(QWidget* parent);
    ~ComparisonView() override;

    /// Null for none. REQUIRES: it outlives what is shown of it.
    void Show(const ReviewComparison* comparison);
    /// Which rows are shown; new ones and those that are gone at first.
    void SetShown(FindingChange change, bool isShown);
    std::size_t ShownRows() const;

    Event<const FoundViolation&> Opened;  // double click or Enter

private:
    class Rows;

    void Refresh();

    const ReviewComparison* m_comparison = nullptr;
    std::unique_ptr<Rows> m_rows;
    QLabel& m_summary;
    std::array<QToolButton*, 3> m_buttons{};
    QTreeView& m_list;
};

}  // namespace dorvik
