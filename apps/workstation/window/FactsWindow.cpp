#include "workstation/window/FactsWindow.h"

#include "workstation/look/modQt.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace dorvik {

namespace {

constexpr int kCharactersWide = 80;
constexpr int kRowsHigh = 24;

QTreeWidget& Tree(const std::vector<ProjectFacts::Section>& sections, const char* name) {
    auto& tree = modQt::Make<QTreeWidget>();
    tree.setAccessibleName(modQt::Text(name));
    tree.setHeaderLabels({modQt::Text("Name"), modQt::Text("Value")});
    tree.setUniformRowHeights(true);
    for (const ProjectFacts::Section& section : sections) {
        const std::string count = " (" + std::to_string(section.Rows.size()) + ")";
        auto& heading =
            modQt::Make<QTreeWidgetItem>(&tree, QStringList{modQt::Text(section.Heading + count)});
        heading.setFirstColumnSpanned(true);
        for (const auto& [rowName, value] : section.Rows) {
            auto& row = modQt::Make<QTreeWidgetItem>(
                &heading, QStringList{modQt::Text(rowName), modQt::Text(value)});
            row.setToolTip(1, modQt::Text(value));
        }
        heading.setExpanded(true);
    }
    tree.header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    return tree;
}

}  // namespace

FactsWindow::FactsWindow(const ProjectFacts& facts, Page page, QWidget* parent) : QDialog(parent) {
    setWindowTitle(modQt::Text(facts.Title + " - project"));
    auto& layout = modQt::Make<QVBoxLayout>(this);
    auto& tabs = modQt::Make<QTabWidget>();
    tabs.addTab(&Tree(facts.Properties, "Properties"), modQt::Text("&Properties"));
    tabs.addTab(&Tree(facts.References, "References"), modQt::Text("&References and components"));
    tabs.setCurrentIndex(page == Page::Properties ? 0 : 1);
    layout.addWidget(&tabs);
    auto& buttons = modQt::Make<QDialogButtonBox>(QDialogButtonBox::Close);
    layout.addWidget(&buttons);
    connect(&buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(fontMetrics().averageCharWidth() * kCharactersWide, fontMetrics().height() * kRowsHigh);
}

}  // namespace dorvik
