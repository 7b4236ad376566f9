#include "modControls.h"

#include "modPathText.h"
#include "workstation/controls/TabStrip.h"
#include "workstation/look/modQt.h"
#include "workstation/widgets/Bindings.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>

#include <utility>

namespace dorvik::modControls {

namespace {

constexpr int kLettersOfANumber = 11;
constexpr int kLettersOfAPath = 36;

}  // namespace

void Name(QWidget& control, std::string_view name, std::string_view spoken) {
    control.setObjectName(modQt::Text(name));
    control.setAccessibleName(modQt::Text(spoken));
}

QLabel& AddHeading(QBoxLayout& layout, Bindings& bindings, Observable<std::string>& text) {
    QLabel& label = modQt::Make<QLabel>();
    bindings.Text(label, text);
    layout.addWidget(&label);
    return label;
}

QCheckBox& AddCheck(
    QBoxLayout& layout,
    Bindings& bindings,
    Observable<bool>& value,
    std::string_view name,
    std::string_view caption) {
    QCheckBox& box = modQt::Make<QCheckBox>(modQt::Text(caption));
    box.setObjectName(modQt::Text(name));
    bindings.Check(box, value);
    layout.addWidget(&box);
    return box;
}

QPushButton& AddButton(
    QBoxLayout& layout,
    std::string_view name,
    std::string_view caption,
    std::function<void()> click) {
    QPushButton& button = modQt::Make<QPushButton>(modQt::Text(caption));
    button.setObjectName(modQt::Text(name));
    button.setAutoDefault(false);
    QObject::connect(&button, &QPushButton::clicked, &button, std::move(click));
    layout.addWidget(&button);
    return button;
}

QLabel& AddRow(QGridLayout& grid, std::string_view caption, QWidget& control) {
    const int row = grid.rowCount();
    QLabel& label = modQt::Make<QLabel>(modQt::Text(caption));
    label.setBuddy(&control);
    grid.addWidget(&label, row, 0);
    grid.addWidget(&control, row, 1);
    return label;
}

QPushButton& AddRowWithBrowse(
    QGridLayout& grid,
    std::string_view caption,
    QWidget& control,
    std::string_view browseName,
    std::string_view spoken,
    std::function<void()> browse) {
    AddRow(grid, caption, control);
    grid.setColumnStretch(1, 1);
    QBoxLayout& place = modQt::Make<QHBoxLayout>();
    grid.addLayout(&place, grid.rowCount() - 1, 2);
    QPushButton& button = AddButton(place, browseName, "Browse...", std::move(browse));
    button.setAccessibleName(modQt::Text(spoken));
    return button;
}

QBoxLayout& AddGroup(QBoxLayout& layout, std::string_view title) {
    QGroupBox& group = modQt::Make<QGroupBox>(modQt::Text(title));
    layout.addWidget(&group);
    return modQt::Make<QVBoxLayout>(&group);
}

void AddFolder(QBoxLayout& layout, Bindings& bindings, const FolderChoice& choice) {
    AddCheck(layout, bindings, choice.IsOfProject, choice.CheckName, choice.CheckCaption);
    QGridLayout& grid = modQt::Make<QGridLayout>();
    layout.addLayout(&grid);
    QLineEdit& folder = modQt::Make<QLineEdit>();
    folder.setObjectName(modQt::Text(choice.BoxName));
    folder.setMinimumWidth(LettersWide(folder, kLettersOfAPath));
    BindPath(bindings, folder, choice.Path);
    QPushButton& browse = AddRowWithBrowse(
        grid, choice.BoxCaption, folder, choice.BrowseName, choice.BrowseSpoken, choice.Browse);
    bindings.Enabled(folder, choice.IsEnabled);
    bindings.Enabled(browse, choice.IsEnabled);
}

void BindPath(Bindings& bindings, QLineEdit& box, Observable<std::string>& path) {
    bindings.Show<std::string>(path, [&box](const std::string& now) {
        if (modPathText::Typed(box.text()) != now) {
            box.setText(modPathText::Shown(now));
        }
    });
    QObject::connect(&box, &QLineEdit::textChanged, &box, [&path](const QString& typed) {
        path.Set(modPathText::Typed(typed));
    });
}

void BindNumber(Bindings& bindings, QLineEdit& box, Observable<std::string>& number) {
    static const QRegularExpression digits(QStringLiteral("[0-9]{0,9}"));
    box.setValidator(&modQt::Make<QRegularExpressionValidator>(digits, &box));
    box.setMaximumWidth(LettersWide(box, kLettersOfANumber));
    bindings.Text(box, number);
}

QWidget& AddPage(QTabWidget& pages, const TabStrip& tabs) {
    const auto number = static_cast<std::size_t>(pages.count());
    QWidget& page = modQt::Make<QWidget>();
    pages.addTab(&page, modQt::Text(tabs.Captions().at(number)));
    return page;
}

void BindPages(Bindings& bindings, QTabWidget& pages, TabStrip& tabs) {
    QTabBar& bar = *pages.tabBar();
    // All captions are seen, however large they are.
    bar.setUsesScrollButtons(false);
    bar.setElideMode(Qt::ElideNone);
    for (QWidget* const control : {static_cast<QWidget*>(&pages), static_cast<QWidget*>(&bar)}) {
        control->setAccessibleName(modQt::Text("Pages"));
    }
    bindings.Show<std::int16_t>(
        tabs.Shown, [&pages](const std::int16_t& shown) { pages.setCurrentIndex(shown - 1); });
    QObject::connect(&pages, &QTabWidget::currentChanged, &pages, [&tabs](int index) {
        if (index >= 0) {
            tabs.Shown.Set(static_cast<std::int16_t>(index + 1));
        }
    });
}

int LettersWide(const QWidget& widget, int count) {
    return widget.fontMetrics().horizontalAdvance(QLatin1Char('0')) * count;
}

}  // namespace dorvik::modControls
