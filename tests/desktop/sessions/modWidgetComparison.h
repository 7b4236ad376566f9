#pragma once

#include <vector>

class QAction;
class QComboBox;
class QTreeView;
class QWidget;

namespace dorvik {
class CheckList;
class CheckTree;
class ComboBox;
class CommandControl;
class ListTable;
class ResultsView;
class WorkbenchView;
struct WorkbenchControls;
}  // namespace dorvik

/// A test fails where a widget does not show what its model has.
namespace dorvik::test::modWidgetComparison {

void Compare(const QComboBox& box, const ComboBox& items);
void Compare(const QTreeView& view, const ListTable& table);
void Compare(const QTreeView& view, const CheckList& list);
void Compare(const QTreeView& view, const CheckTree& tree);
void Compare(const std::vector<QAction*>& actions, const CommandControl& items);
/// The actions of a menu or bar, and of those below it.
void Compare(const QWidget& bar, const CommandControl& items);
/// All of the bench but its boxes.
void Compare(WorkbenchView& bench, const ResultsView& results, WorkbenchControls& controls);

}  // namespace dorvik::test::modWidgetComparison
