#include "modUserHands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace dorvik::test::modUserHands {

void Click(QAbstractButton& button) {
    const bool isWhole = qobject_cast<QPushButton*>(&button) != nullptr ||
                         qobject_cast<QToolButton*>(&button) != nullptr;
    const QPoint mark(button.fontMetrics().height() / 2, button.height() / 2);
    QTest::mouseClick(&button, Qt::LeftButton, {}, isWhole ? button.rect().center() : mark);
}

bool SetChecked(QAbstractButton& button, bool checked) {
    if (button.isChecked() == checked) {
        return false;
    }
    Click(button);
    EXPECT_EQ(button.isChecked(), checked) << button.objectName().toStdString();
    return true;
}

namespace {

QPoint PlaceOf(QAbstractItemView& view, const QModelIndex& index) {
    view.scrollTo(index);
    const QPoint place = view.visualRect(index).center();
    EXPECT_TRUE(view.viewport()->rect().contains(place))
        << "row " << index.row() << " at " << place.x() << ", " << place.y();
    return place;
}

}  // namespace

void ClickCell(QAbstractItemView& view, const QModelIndex& index) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, PlaceOf(view, index));
}

void DoubleClickCell(QAbstractItemView& view, const QModelIndex& index) {
    const QPoint place = PlaceOf(view, index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
}

void ClickHeading(QHeaderView& headings, int section) {
    QTest::mouseClick(
        headings.viewport(),
        Qt::LeftButton,
        {},
        {headings.sectionViewportPosition(section) + headings.sectionSize(section) / 2,
         headings.height() / 2});
}

void ClickTab(QTabBar& tabs, int index) {
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(index).center());
}

void ChooseItem(QComboBox& box, int index) {
    box.showPopup();
    QTest::keyClick(box.view(), Qt::Key_Home);
    for (int below = 0; below < index; ++below) {
        QTest::keyClick(box.view(), Qt::Key_Down);
    }
    EXPECT_EQ(box.view()->currentIndex().row(), index);
    QTest::keyClick(box.view(), Qt::Key_Return);
    box.hidePopup();
}

void TypeText(QLineEdit& box, const QString& text) {
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
}

void PasteText(QLineEdit& box, const QString& text) {
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) {
        QTest::keyClick(&box, Qt::Key_Delete);
        return;
    }
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
}

void SetMark(QAbstractItemView& view, const QModelIndex& index, bool checked) {
    if ((index.data(Qt::CheckStateRole).toInt() == Qt::Checked) == checked) {
        return;
    }
    view.setFocus();
    view.setCurrentIndex(index);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(index.data(Qt::CheckStateRole).toInt() == Qt::Checked, checked)
        << index.data().toString().toStdString();
}

void Settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace dorvik::test::modUserHands
