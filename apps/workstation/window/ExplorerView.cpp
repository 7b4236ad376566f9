#include "workstation/window/ExplorerView.h"

#include "base/modTextCase.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTreeWidgetItemIterator>

#include <map>
#include <utility>

namespace dorvik {

namespace {

constexpr int kNumberRole = Qt::UserRole;
constexpr int kNameColumn = 0;
constexpr int kCountColumn = 1;

QString TextOf(const ExplorerNode& node) {
    return modQt::Text(node.Dirty ? node.Text + " *" : node.Text);
}

void ShowNode(QTreeWidgetItem& item, const ExplorerNode& node) {
    item.setText(kNameColumn, TextOf(node));
    item.setIcon(kNameColumn, modPictures::Icon(node.Image));
    item.setToolTip(kNameColumn, modQt::Text(node.File.empty() ? node.Text : node.File));
    if (node.Findings.Violations == 0) {
        return;
    }
    const QString count = QString::number(node.Findings.Violations);
    item.setText(kCountColumn, count);
    item.setIcon(kCountColumn, modPictures::SeverityIcon(node.Findings.Worst));
    item.setTextAlignment(kCountColumn, Qt::AlignRight | Qt::AlignVCenter);
    item.setToolTip(
        kCountColumn,
        node.Findings.Violations == 1 ? modQt::Text("1 violation")
                                      : count + modQt::Text(" violations"));
}

}  // namespace

ExplorerView::ExplorerView(ProjectExplorer& explorer, QWidget* parent)
    : QTreeWidget(parent), m_explorer(explorer) {
    const QString name = modQt::Text("Project explorer");
    setAccessibleName(name);
    setObjectName(name);
    setColumnCount(2);
    setHeaderLabels({modQt::Text("Projects"), QString()});
    headerItem()->setIcon(kCountColumn, modPictures::Icon("Warning"));
    headerItem()->setToolTip(kCountColumn, modQt::Text("Violations"));
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
    header()->setSectionResizeMode(kCountColumn, QHeaderView::ResizeToContents);
    setUniformRowHeights(true);
    setAnimated(false);
    connect(
        this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { Expand(*item); });
    connect(this, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* item) {
        m_expanded.erase(KeyOf(*item));
    });
    setExpandsOnDoubleClick(false);
    connect(
        this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) { Open(item); });
    m_events.push_back(m_explorer.Changed.Subscribe([this] { Rebuild(); }));
    m_events.push_back(m_explorer.DirtyChanged.Subscribe([this] { ShowDirt(); }));
    Rebuild();
}

const ExplorerNode* ExplorerView::NodeOf(const QTreeWidgetItem* item) const {
    return item == nullptr ? nullptr
                           : &m_nodes.at(item->data(kNameColumn, kNumberRole).toULongLong());
}

std::string ExplorerView::KeyOf(const QTreeWidgetItem& item) const {
    const ExplorerNode& node = *NodeOf(&item);
    return modTextCase::ToLower(
        node.Kind == ExplorerKind::FileKind ? node.Project + "|" + node.Text
                                            : node.Project + "|" + node.File + "|");
}

/// What was open stays open, and what was selected selected.
void ExplorerView::Rebuild() {
    const std::string current = currentItem() == nullptr ? std::string() : KeyOf(*currentItem());
    const std::set<std::string> known = std::exchange(m_expanded, {});
    const int scrolled = verticalScrollBar()->value();
    clear();
    m_nodes.clear();
    AddNodes(*invisibleRootItem(), m_explorer.Projects());
    for (QTreeWidgetItemIterator place(this); *place != nullptr; ++place) {
        QTreeWidgetItem& item = **place;
        const ExplorerNode& node = *NodeOf(&item);
        // Projects and kinds of files are open at first.
        if (node.Kind == ExplorerKind::Project || node.Kind == ExplorerKind::FileKind ||
            known.contains(KeyOf(item))) {
            item.setExpanded(true);
        }
        if (!current.empty() && KeyOf(item) == current && node.Kind != ExplorerKind::Procedure) {
            setCurrentItem(&item);
        }
    }
    verticalScrollBar()->setValue(scrolled);
}

void ExplorerView::ShowDirt() {
    std::map<std::pair<std::string, std::string>, bool> dirt;  // by project and file
    for (const ExplorerNode& project : m_explorer.Projects()) {
        dirt[{project.Project, project.File}] = project.Dirty;
        for (const ExplorerNode& kind : project.Children) {
            for (const ExplorerNode& file : kind.Children) {
                dirt[{file.Project, file.File}] = file.Dirty;
            }
        }
    }
    for (QTreeWidgetItemIterator place(this); *place != nullptr; ++place) {
        ExplorerNode& node = m_nodes.at((*place)->data(kNameColumn, kNumberRole).toULongLong());
        const auto found = dirt.find({node.Project, node.File});
        const bool isFile = node.Kind == ExplorerKind::Project || node.Kind == ExplorerKind::File;
        if (isFile && found != dirt.end() && node.Dirty != found->second) {
            node.Dirty = found->second;
            (*place)->setText(kNameColumn, TextOf(node));
        }
    }
}

void ExplorerView::AddNodes(QTreeWidgetItem& parent, std::vector<ExplorerNode> nodes) {
    for (ExplorerNode& node : nodes) {
        std::vector<ExplorerNode> children = std::exchange(node.Children, {});
        QTreeWidgetItem& item = AddNode(parent, std::move(node));
        AddNodes(item, std::move(children));
    }
}

QTreeWidgetItem& ExplorerView::AddNode(QTreeWidgetItem& parent, ExplorerNode node) {
    auto& item = modQt::Make<QTreeWidgetItem>(&parent);
    item.setData(kNameColumn, kNumberRole, static_cast<qulonglong>(m_nodes.size()));
    ShowNode(item, node);
    if (node.HasProcedures) {
        item.setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    }
    m_nodes.push_back(std::move(node));
    return item;
}

void ExplorerView::Expand(QTreeWidgetItem& item) {
    m_expanded.insert(KeyOf(item));
    const ExplorerNode node = *NodeOf(&item);
    if (node.HasProcedures && item.childCount() == 0) {
        AddNodes(item, m_explorer.ProceduresOf(node.Project, node.File));
        if (item.childCount() == 0) {
            item.setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicator);
        }
    }
}

void ExplorerView::Open(QTreeWidgetItem* item) {
    if (const ExplorerNode* const node = NodeOf(item)) {
        if (node->Kind == ExplorerKind::Project || node->Kind == ExplorerKind::FileKind) {
            item->setExpanded(!item->isExpanded());
        }
        const ExplorerNode opened = *node;  // the tree may change
        Opened.Raise(opened);
    }
}

void ExplorerView::SelectFile(std::string_view project, std::string_view file) {
    for (QTreeWidgetItemIterator place(this); *place != nullptr; ++place) {
        const ExplorerNode& node = *NodeOf(*place);
        if (node.Kind == ExplorerKind::File && modTextCase::Equal(node.Project, project) &&
            modTextCase::Equal(node.File, file)) {
            setCurrentItem(*place);
            scrollToItem(*place);
            return;
        }
    }
}

void ExplorerView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Open(currentItem());
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

void ExplorerView::contextMenuEvent(QContextMenuEvent* event) {
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    QTreeWidgetItem* const item = isByKey ? currentItem() : itemAt(event->pos());
    if (const ExplorerNode* const node = NodeOf(item)) {
        const ExplorerNode asked = *node;
        MenuRequested.Raise(
            asked,
            isByKey ? viewport()->mapToGlobal(visualItemRect(item).center()) : event->globalPos());
    }
}

}  // namespace dorvik
