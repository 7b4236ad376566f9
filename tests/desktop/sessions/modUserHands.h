#pragma once

#include <QPoint>
#include <QString>

class QAbstractButton;
class QAbstractItemView;
class QComboBox;
class QHeaderView;
class QLineEdit;
class QModelIndex;
class QTabBar;
class QWidget;

/// What a user does with mouse and keyboard.
namespace dorvik::test::modUserHands {

/// Where the text or the mark of a check box and the like is.
void Click(QAbstractButton& button);
/// False where the box has it already, so that there is nothing to do.
bool SetChecked(QAbstractButton& button, bool checked);
void ClickCell(QAbstractItemView& view, const QModelIndex& index);
void DoubleClickCell(QAbstractItemView& view, const QModelIndex& index);
void ClickHeading(QHeaderView& headings, int section);
void ClickTab(QTabBar& tabs, int index);
/// With the keys of the list that opens.
void ChooseItem(QComboBox& box, int index);
/// Key by key, in place of what is there.
void TypeText(QLineEdit& box, const QString& text);
/// At once, in place of what is there.
void PasteText(QLineEdit& box, const QString& text);
/// Space on the item, where its mark is another one.
void SetMark(QAbstractItemView& view, const QModelIndex& index, bool checked);
/// What waits is drawn, laid out and deleted; no time passes for timers.
void Settle();

}  // namespace dorvik::test::modUserHands
