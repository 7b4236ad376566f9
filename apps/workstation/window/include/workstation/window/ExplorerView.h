#pragma once

#include "workstation/controls/Event.h"
#include "workstation/desk/ProjectExplorer.h"

#include <QTreeWidget>

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// The tree of projects, kinds of files, files and procedures, each with the count of its violations.
class ExplorerView final : public QTreeWidget {
public:
    /// REQUIRES: the explorer outlives this.
    ExplorerView(ProjectExplorer& explorer, QWidget* parent);

    Event<const ExplorerNode&> Opened;                        // double click or Enter
    Event<const ExplorerNode&, const QPoint&> MenuRequested;  // at a place of the screen
    /// Selects the file, if it is there. Nothing is opened by it.
    void SelectFile(std::string_view project, std::string_view file);
    /// The node of an item; null for none.
    const ExplorerNode* NodeOf(const QTreeWidgetItem* item) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void Rebuild();
    void ShowDirt();
    void AddNodes(QTreeWidgetItem& parent, std::vector<ExplorerNode> nodes);
    QTreeWidgetItem& AddNode(QTreeWidgetItem& parent, ExplorerNode node);
    void Expand(QTreeWidgetItem& item);
    void Open(QTreeWidgetItem* item);
    std::string KeyOf(const QTreeWidgetItem& item) const;

    ProjectExplorer& m_explorer;
    std::vector<ExplorerNode> m_nodes;  // of the items, which have their numbers
    std::set<std::string> m_expanded;   // what the user has opened
    std::vector<Subscription> m_events;
};

}  // namespace dorvik
