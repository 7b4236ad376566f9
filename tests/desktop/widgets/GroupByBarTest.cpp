#include "workstation/widgets/GroupByBar.h"

#include "workstation/controls/FakeRecords.h"
#include "workstation/look/modQt.h"
#include "workstation/widgets/GridView.h"

#include <QHeaderView>
#include <QMenu>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A group-by box above its grid.
class GroupByBarTest : public testing::Test {
protected:
    void SetUp() override {
        m_records.Records = {{11, {false, 3, "Beta"}}, {12, {true, 1, "Alpha"}}};
        m_grid.Bind(&m_records);
        m_grid.SetRecordSource("all");
        m_grid.Rebind();
        auto& column = modQt::Make<QVBoxLayout>(&m_window);
        column.addWidget(&m_bar);
        column.addWidget(&m_view);
        m_bar.TakeFrom(m_view.Headings());
        m_window.resize(700, 300);
        m_window.show();
        m_chosen = m_grid.GroupsChosen.Subscribe([this] { ++m_choices; });
    }

    static std::vector<GridColumn> Columns() {
        std::vector<GridColumn> columns = FakeColumns();
        columns[kNumber - 1].HasValueList = true;
        columns[kText - 1].Width = 0.5;
        columns[kListed - 1].Visible = false;
        columns[kListed - 1].Caption = "Level";
        return columns;
    }

    QPoint CenterOf(int section) const {
        const QHeaderView& header = *m_view.header();
        return {
            header.sectionViewportPosition(section) + header.sectionSize(section) / 2,
            header.height() / 2};
    }
    /// Drags from a widget to a place in the box.
    void Drag(QWidget& from, QPoint start, QPoint inBar, bool drops = true) {
        const QPoint end = from.mapFromGlobal(m_bar.mapToGlobal(inBar));
        QTest::mousePress(&from, Qt::LeftButton, {}, start);
        QTest::mouseMove(&from, start + QPoint(0, -3));
        Move(from, (start + end) / 2);
        Move(from, end);
        if (!drops) {
            QTest::keyClick(&m_window, Qt::Key_Escape);
        }
        QTest::mouseRelease(&from, Qt::LeftButton, {}, end);
    }
    /// `QTest::mouseMove` moves with no button down.
    static void Move(QWidget& widget, QPoint place) {
        QMouseEvent move(
            QEvent::MouseMove,
            place,
            widget.mapToGlobal(place),
            Qt::NoButton,
            Qt::LeftButton,
            Qt::NoModifier);
        QApplication::sendEvent(&widget, &move);
    }
    QPoint RightEnd() const { return {m_bar.width() - 5, m_bar.height() / 2}; }
    std::vector<std::string> Captions() const {
        std::vector<std::string> captions;
        for (const QToolButton* const chip : m_bar.Chips()) {
            captions.push_back(modQt::Utf8(chip->text()));
        }
        return captions;
    }
    /// Deletes chips that have been replaced.
    static void Settle() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    FakeRecords m_records;
    Grid m_grid{Columns()};
    QWidget m_window;
    GroupByBar m_bar{m_grid};
    GridView m_view{m_grid};
    int m_choices = 0;
    Subscription m_chosen;
};

TEST_F(GroupByBarTest, AHeadingIsDraggedIntoTheBox) {
    Drag(*m_view.header()->viewport(), CenterOf(2), RightEnd());
    EXPECT_THAT(m_grid.Groups(), ElementsAre(GridOrderKey{kText, false}));
    EXPECT_THAT(Captions(), ElementsAre("Text"));
    EXPECT_EQ(m_choices, 1);
    EXPECT_THAT(m_grid.SortKeys(), IsEmpty());  // a drag is not a click
}

TEST_F(GroupByBarTest, TheColumnOfMarksGroupsByTheTextsOfItsValues) {
    Drag(*m_view.header()->viewport(), CenterOf(1), RightEnd());
    EXPECT_THAT(m_grid.Groups(), ElementsAre(GridOrderKey{kListed, false}));
    EXPECT_THAT(Captions(), ElementsAre("Level"));
}

TEST_F(GroupByBarTest, AHeadingIsDroppedInFrontOfAChip) {
    m_grid.SetGroups({{kListed}});
    Settle();
    Drag(*m_view.header()->viewport(), CenterOf(2), {2, m_bar.height() / 2});
    EXPECT_THAT(Captions(), ElementsAre("Text", "Level"));
}

TEST_F(GroupByBarTest, EscapeAndADropBesideTheBoxChangeNothing) {
    Drag(*m_view.header()->viewport(), CenterOf(2), RightEnd(), /*drops=*/false);
    EXPECT_THAT(m_grid.Groups(), IsEmpty());
    Drag(*m_view.header()->viewport(), CenterOf(2), {50, 200});
    EXPECT_THAT(m_grid.Groups(), IsEmpty());
    EXPECT_EQ(m_choices, 0);
    EXPECT_FALSE(m_view.Headings().Active());
}

TEST_F(GroupByBarTest, AChipIsDraggedToAnotherPlace) {
    m_grid.SetGroups({{kListed}, {kText}});
    Settle();
    QToolButton& first = *m_bar.Chips().front();
    Drag(first, first.rect().center(), RightEnd());
    EXPECT_THAT(Captions(), ElementsAre("Text", "Level"));
    EXPECT_EQ(m_choices, 1);
}

TEST_F(GroupByBarTest, AClickTurnsTheOrderAndTheCrossRemoves) {
    m_grid.SetGroups({{kListed}, {kText}});
    Settle();
    QTest::mouseClick(m_bar.Chips()[1], Qt::LeftButton);
    EXPECT_THAT(
        m_grid.Groups(), ElementsAre(GridOrderKey{kListed, false}, GridOrderKey{kText, true}));
    EXPECT_EQ(m_bar.Chips()[1]->arrowType(), Qt::DownArrow);
    Settle();
    const auto crosses = m_bar.Chips()[0]->parentWidget()->findChildren<QToolButton*>();
    QTest::mouseClick(crosses[1], Qt::LeftButton);
    EXPECT_THAT(Captions(), ElementsAre("Text"));
}

TEST_F(GroupByBarTest, ChipsAreUsedByTheKeyboard) {
    m_grid.SetGroups({{kListed}, {kText}, {kMark}});
    Settle();
    QApplication::setActiveWindow(&m_window);
    m_bar.Chips()[0]->setFocus();
    const auto focused = [this] {
        return dynamic_cast<QToolButton*>(m_window.focusWidget());
    };
    QTest::keyClick(focused(), Qt::Key_Right, Qt::ControlModifier);
    Settle();
    EXPECT_THAT(Captions(), ElementsAre("Text", "Level", "Mark"));
    EXPECT_EQ(focused(), m_bar.Chips()[1]);
    QTest::keyClick(focused(), Qt::Key_Right);
    EXPECT_EQ(focused(), m_bar.Chips()[2]);
    QTest::keyClick(focused(), Qt::Key_Left, Qt::ControlModifier);
    Settle();
    EXPECT_THAT(Captions(), ElementsAre("Text", "Mark", "Level"));
    QTest::keyClick(focused(), Qt::Key_Space);
    Settle();
    EXPECT_TRUE(m_grid.Groups()[1].Descending);
    EXPECT_EQ(focused(), m_bar.Chips()[1]);
    QTest::keyClick(focused(), Qt::Key_Delete);
    Settle();
    EXPECT_THAT(Captions(), ElementsAre("Text", "Level"));
}

TEST_F(GroupByBarTest, TheMenuAddsWhatIsLeft) {
    m_grid.SetGroups({{kText}});
    QMenu& menu = *m_bar.AddButton().menu();
    Q_EMIT menu.aboutToShow();
    std::vector<std::string> titles;
    for (const QAction* const action : menu.actions()) {
        titles.push_back(modQt::Utf8(action->text()));
    }
    EXPECT_THAT(titles, ElementsAre("Mark", "Level"));
    menu.actions()[1]->trigger();
    EXPECT_THAT(Captions(), ElementsAre("Text", "Level"));
}

}  // namespace

}  // namespace dorvik::test
