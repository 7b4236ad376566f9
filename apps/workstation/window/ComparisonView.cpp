#include "workstation/window/ComparisonView.h"

#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QAbstractTableModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <string_view>

namespace dorvik {

namespace {

struct ChangeRow {
    FindingChange Change;
    const char* Text;
    std::string_view Picture;
    bool IsShownAtFirst;
};

constexpr std::array<ChangeRow, 3> kChanges{{
    {FindingChange::New, "New", "New", true},
    {FindingChange::Gone, "Gone", "Gone", true},
    {FindingChange::Unchanged, "Unchanged", "Unchanged", false},
}};

const ChangeRow& RowOf(FindingChange change) {
    return kChanges.at(static_cast<std::size_t>(change));
}

constexpr std::array kHeadings = {"Change", "Title", "File", "Procedure", "Line"};

}  // namespace

/// The rows of the changes that are to be shown.
class ComparisonView::Rows final : public QAbstractTableModel {
public:
    void Set(const ReviewComparison* comparison, const std::array<bool, 3>& isShown) {
        beginResetModel();
        m_rows.clear();
        if (comparison != nullptr) {
            for (const ReviewComparison::Row& row : comparison->Rows()) {
                if (isShown.at(static_cast<std::size_t>(row.Change))) {
                    m_rows.push_back(&row);
                }
            }
        }
        endResetModel();
    }
    const ReviewComparison::Row& Row(int row) const {
        return *m_rows.at(static_cast<std::size_t>(row));
    }

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(kHeadings.size());
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        return orientation == Qt::Horizontal && role == Qt::DisplayRole
                   ? modQt::Text(kHeadings.at(static_cast<std::size_t>(section)))
                   : QVariant();
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const ReviewComparison::Row& row = Row(index.row());
        if (role == Qt::DecorationRole && index.column() == 0) {
            return modPictures::Icon(RowOf(row.Change).Picture);
        }
        if (role == Qt::DecorationRole && index.column() == 1) {
            return modPictures::SeverityIcon(row.Violation.Severity);
        }
        return role == Qt::DisplayRole || role == Qt::ToolTipRole ? Text(row, index.column())
                                                                  : QVariant();
    }

private:
    static QVariant Text(const ReviewComparison::Row& row, int column) {
        const FoundViolation& violation = row.Violation;
        switch (column) {
            case 0: return modQt::Text(RowOf(row.Change).Text);
            case 1: return modQt::Text(violation.Title);
            case 2: return modQt::Text(violation.File);
            case 3: return modQt::Text(violation.Procedure);
            default: return modQt::Text(violation.Text).simplified();
        }
    }

    std::vector<const ReviewComparison::Row*> m_rows;
};

ComparisonView::ComparisonView(QWidget* parent)
    : QWidget(parent),
      m_rows(std::make_unique<Rows>()),
      m_summary(modQt::Make<QLabel>()),
      m_list(modQt::Make<QTreeView>()) {
    auto& layout = modQt::Make<QVBoxLayout>(this);
    auto& line = modQt::Make<QHBoxLayout>();
    layout.addLayout(&line);
    line.addWidget(&m_summary);
    line.addStretch();
    for (const ChangeRow& row : kChanges) {
        auto& button = modQt::Make<QToolButton>();
        button.setText(modQt::Text(row.Text));
        button.setIcon(modPictures::Icon(row.Picture));
        button.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button.setCheckable(true);
        button.setChecked(row.IsShownAtFirst);
        button.setFocusPolicy(Qt::StrongFocus);
        connect(&button, &QToolButton::toggled, this, [this] { Refresh(); });
        line.addWidget(&button);
        m_buttons.at(static_cast<std::size_t>(row.Change)) = &button;
    }
    m_list.setAccessibleName(modQt::Text("Changes since the review before"));
    m_list.setModel(m_rows.get());
    m_list.setRootIsDecorated(false);
    m_list.setUniformRowHeights(true);
    m_list.setAlternatingRowColors(true);
    m_list.header()->resizeSection(1, fontMetrics().averageCharWidth() * 45);
    layout.addWidget(&m_list);
    connect(&m_list, &QTreeView::activated, this, [this](const QModelIndex& index) {
        const FoundViolation opened = m_rows->Row(index.row()).Violation;
        Opened.Raise(opened);
    });
    Show(nullptr);
}

ComparisonView::~ComparisonView() {
    m_list.setModel(nullptr);
}

void ComparisonView::Show(const ReviewComparison* comparison) {
    m_comparison = comparison;
    m_summary.setText(modQt::Text(
        comparison == nullptr ? "There is no review before this one to compare with."
                              : "Since the review before: " + comparison->Summary()));
    Refresh();
}

void ComparisonView::SetShown(FindingChange change, bool isShown) {
    m_buttons.at(static_cast<std::size_t>(change))->setChecked(isShown);
}

std::size_t ComparisonView::ShownRows() const {
    return static_cast<std::size_t>(m_rows->rowCount({}));
}

void ComparisonView::Refresh() {
    std::array<bool, 3> isShown{};
    for (std::size_t i = 0; i < isShown.size(); ++i) {
        isShown.at(i) = m_buttons.at(i)->isChecked();
    }
    m_rows->Set(m_comparison, isShown);
}

}  // namespace dorvik
