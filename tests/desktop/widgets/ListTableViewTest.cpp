#include "workstation/widgets/ListTableView.h"

#include "workstation/look/modQt.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik::test {

namespace {

using testing::Eq;
using testing::Optional;

class ListTableViewTest : public testing::Test {
protected:
    void SetUp() override {
        m_list.SetColumns(
            {{"File", ColumnAlignment::Left, "", 0.5},
             {"Lines", ColumnAlignment::Right, "SortDescending", 0.25}});
        m_list.Add({"1", "Module", {{"modA"}, {"   12"}}});
        m_list.Add({"2", "", {{"clsB", Rgb(200, 0, 0), true}, {"    3"}}});
        m_view.resize(400, 300);
        m_view.show();
        m_chosen = m_list.SelectionChosen.Subscribe([this] { ++m_choices; });
    }

    QModelIndex Cell(int row, int section) const { return m_view.model()->index(row, section); }
    QPoint Center(int row, int section) const {
        return m_view.visualRect(Cell(row, section)).center();
    }

    ListTable m_list;
    ListTableView m_view{m_list};
    int m_choices = 0;
    Subscription m_chosen;
};

TEST_F(ListTableViewTest, ShowsTextsPicturesColoursAndWidths) {
    EXPECT_EQ(modQt::Utf8(Cell(0, 1).data().toString()), "12");
    EXPECT_FALSE(Cell(0, 0).data(Qt::DecorationRole).isNull());
    EXPECT_TRUE(Cell(1, 0).data(Qt::DecorationRole).isNull());
    EXPECT_EQ(Cell(1, 0).data(Qt::ForegroundRole).value<QColor>(), QColor(200, 0, 0));
    EXPECT_TRUE(Cell(1, 0).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_TRUE(Cell(0, 0).data(Qt::ForegroundRole).isNull());
    EXPECT_TRUE(Cell(0, 1).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    EXPECT_EQ(m_view.header()->sectionSize(0), static_cast<int>(0.5 * m_view.viewport()->width()));
    EXPECT_EQ(m_view.header()->sortIndicatorSection(), 1);
    EXPECT_EQ(m_view.header()->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(ListTableViewTest, NothingIsSelectedUntilTheUserChooses) {
    m_view.setFocus();
    EXPECT_THAT(m_list.SelectedIndex(), Eq(std::nullopt));
    EXPECT_EQ(m_choices, 0);
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, Center(1, 0));
    EXPECT_THAT(m_list.SelectedIndex(), Optional(1U));
    EXPECT_EQ(m_choices, 1);
    QTest::keyClick(&m_view, Qt::Key_Up);
    EXPECT_THAT(m_list.SelectedIndex(), Optional(0U));
    EXPECT_EQ(m_choices, 2);
}

TEST_F(ListTableViewTest, TheSelectionOfTheProgramIsShownAndNotChosen) {
    m_list.Select(1);
    EXPECT_TRUE(m_view.selectionModel()->isSelected(Cell(1, 0)));
    m_list.Sort(0, true);
    EXPECT_TRUE(m_view.selectionModel()->isSelected(Cell(0, 0)));
    EXPECT_EQ(modQt::Utf8(Cell(0, 0).data().toString()), "clsB");
    m_list.Select(std::nullopt);
    EXPECT_FALSE(m_view.selectionModel()->hasSelection());
    EXPECT_EQ(m_choices, 0);
}

TEST_F(ListTableViewTest, ADoubleClickAndEnter) {
    int clicks = 0;
    const Subscription heard = m_list.DoubleClicked.Subscribe([&] { ++clicks; });
    QTest::keyClick(&m_view, Qt::Key_Return);
    EXPECT_EQ(clicks, 0);
    QTest::mouseDClick(m_view.viewport(), Qt::LeftButton, {}, Center(1, 0));
    EXPECT_THAT(m_list.SelectedIndex(), Optional(1U));
    QTest::keyClick(&m_view, Qt::Key_Return);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ListTableViewTest, AHeadingIsClicked) {
    std::size_t clicked = 99;
    const Subscription heard =
        m_list.ColumnClicked.Subscribe([&](std::size_t column) { clicked = column; });
    QHeaderView& header = *m_view.header();
    QTest::mouseClick(
        header.viewport(),
        Qt::LeftButton,
        {},
        {header.sectionViewportPosition(1) + 20, header.height() / 2});
    EXPECT_EQ(clicked, 1U);
    m_list.ShowSortIcon(1, true);
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder);
}

TEST_F(ListTableViewTest, AWidthThatTheUserChangesIsAFraction) {
    m_view.header()->resizeSection(0, 100);
    EXPECT_NEAR(m_list.Columns()[0].Width, 100.0 / m_view.viewport()->width(), 1e-9);
    m_view.resize(800, 300);
    EXPECT_NEAR(
        m_view.header()->sectionSize(0), m_list.Columns()[0].Width * m_view.viewport()->width(), 1);
}

TEST_F(ListTableViewTest, RowsAndColumnsComeAndGo) {
    m_list.Add({"3", "", {{"new"}}});
    EXPECT_EQ(m_view.model()->rowCount(), 3);
    m_list.SetCell(2, 0, {"renamed"});
    EXPECT_EQ(modQt::Utf8(Cell(2, 0).data().toString()), "renamed");
    EXPECT_TRUE(Cell(2, 1).data().toString().isEmpty());
    m_list.Clear();
    EXPECT_EQ(m_view.model()->rowCount(), 0);
    m_list.SetColumns({{"One", ColumnAlignment::Left, "", 1}});
    EXPECT_EQ(m_view.model()->columnCount(), 1);
}

TEST_F(ListTableViewTest, TheSelectedRowIsCopied) {
    m_list.Select(0);
    QTest::keyClick(&m_view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(modQt::Utf8(QApplication::clipboard()->text()), "modA\t12\n");
}

}  // namespace

}  // namespace dorvik::test
