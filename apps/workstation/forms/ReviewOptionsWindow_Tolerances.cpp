#include "ReviewOptionsWindow.h"
#include "modControls.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>

#include <cstddef>

namespace dorvik {

using modQt::Make;
using modQt::Text;

namespace {

/// By place: the severities as a rulebase has them at first, and their sum.
constexpr std::array<std::string_view, 6> kPlaces{
    "Critical", "High", "Medium", "Low", "Information", "Total"};

constexpr int kCaptionColumn = 0;
constexpr int kCountColumn = 1;
constexpr int kImpactColumn = 2;

/// The rulebase has titles of its own for severities.
void ShowTitle(QLabel& label, const CheckList& severities, std::size_t place) {
    const bool hasTitle = place + 1 < kPlaces.size() && place < severities.Count();
    const std::string title =
        hasTitle ? severities.Item(place).Text : std::string(kPlaces.at(place));
    label.setText(Text(title + ":"));
}

QLineEdit& NumberBox(
    Bindings& bindings,
    Observable<std::string>& number,
    const std::string& name,
    const std::string& spoken) {
    QLineEdit& box = Make<QLineEdit>();
    modControls::Name(box, name, spoken);
    modControls::BindNumber(bindings, box, number);
    return box;
}

}  // namespace

void ReviewOptionsWindow::AddTolerancesPage() {
    QWidget& page = modControls::AddPage(m_pages, m_form.tbsOptions);
    QVBoxLayout& layout = Make<QVBoxLayout>(&page);
    QLabel& heading =
        Make<QLabel>(Text("A review that exceeds a limit fails. An empty box sets none."));
    heading.setWordWrap(true);
    layout.addWidget(&heading);
    QGridLayout& grid = Make<QGridLayout>();
    layout.addLayout(&grid);
    grid.setHorizontalSpacing(fontMetrics().averageCharWidth() * 3);
    grid.addWidget(&Make<QLabel>(Text("Maximum violation count")), 0, kCountColumn);
    grid.addWidget(&Make<QLabel>(Text("Maximum violation impact")), 0, kImpactColumn);
    for (std::size_t place = 0; place < kPlaces.size(); ++place) {
        const int row = static_cast<int>(place) + 1;
        QLabel& caption = Make<QLabel>();
        caption.setTextFormat(Qt::PlainText);
        ShowTitle(caption, m_form.lvwSeverities, place);
        Bound().Keep(m_form.lvwSeverities.Changed.Subscribe(
            [this, &caption, place](std::optional<std::size_t>) {
                ShowTitle(caption, m_form.lvwSeverities, place);
            }));
        const std::string name(kPlaces.at(place));
        const std::string index = std::to_string(place + 1);
        grid.addWidget(&caption, row, kCaptionColumn);
        grid.addWidget(
            &NumberBox(
                Bound(),
                m_form.txtCount.at(place),
                "txtCount" + index,
                name + ", maximum violation count"),
            row,
            kCountColumn);
        grid.addWidget(
            &NumberBox(
                Bound(),
                m_form.txtImpact.at(place),
                "txtImpact" + index,
                name + ", maximum violation impact"),
            row,
            kImpactColumn);
    }
    modControls::AddRow(
        grid,
        "&Minimum percentage of comments:",
        NumberBox(Bound(), m_form.txtComments, "txtComments", "Minimum percentage of comments"));
    modControls::AddRow(
        grid,
        "Maximum &cyclomatic complexity:",
        NumberBox(Bound(), m_form.txtComplexity, "txtComplexity", "Maximum cyclomatic complexity"));
    grid.setColumnStretch(kImpactColumn + 1, 1);
    layout.addStretch();
}

}  // namespace dorvik
