#include "workstation/widgets/GridView.h"

#include "workstation/controls/FakeRecords.h"
#include "workstation/look/modQt.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace dorvik::test {

namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;

/// Four records under check boxes, marks and texts; the levels group them.
class GridViewTest : public testing::Test {
protected:
    void SetUp() override {
        m_records.Records = {
            {11, {false, 3, "Beta"}},
            {12, {false, 1, "Alpha"}},
            {13, {true, 2, "Gamma"}},
            {14, {false, 3, "Alpha"}},
        };
        GridValueList levels;
        levels.Add("1", {"1. High"});
        levels.Add("2", {"2. Middle"});
        levels.Add("3", {"3. Low"});
        m_grid.SetValueList(kListed, levels);
        m_grid.Bind(&m_records);
        m_grid.SetRecordSource("all");
        m_grid.Rebind();
        m_view.resize(600, 400);
        m_view.show();
        m_view.setFocus();
    }

    static std::vector<GridColumn> Columns() {
        std::vector<GridColumn> columns = FakeColumns();
        columns[kMark - 1].IsCheckBox = true;
        columns[kNumber - 1].HasValueList = true;
        columns[kText - 1].Width = 0.5;
        columns[kListed - 1].Visible = false;
        return columns;
    }

    QModelIndex Cell(int row, int section) const { return m_view.model()->index(row, section); }
    QString Text(int row, int section) const { return Cell(row, section).data().toString(); }
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (int row = 0; row < m_view.model()->rowCount(); ++row) {
            const QString group = Text(row, 0);
            texts.push_back(modQt::Utf8(group.isEmpty() ? Text(row, 2) : group));
        }
        return texts;
    }
    void Click(
        int row,
        int section,
        Qt::KeyboardModifiers modifiers = {},
        Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(
            m_view.viewport(), button, modifiers, m_view.visualRect(Cell(row, section)).center());
    }
    void ClickHeading(int section, Qt::KeyboardModifiers modifiers = {}) {
        QHeaderView& header = *m_view.header();
        const int x = header.sectionViewportPosition(section) + header.sectionSize(section) / 2;
        QTest::mouseClick(header.viewport(), Qt::LeftButton, modifiers, {x, header.height() / 2});
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&m_view, key, modifiers);
    }
    std::vector<int> SelectedRows() const {
        std::vector<int> rows;
        for (const QModelIndex& index : m_view.selectionModel()->selectedRows()) {
            rows.push_back(index.row());
        }
        return rows;
    }

    FakeRecords m_records;
    Grid m_grid{Columns()};
    GridView m_view{m_grid};
};

TEST_F(GridViewTest, ShowsRowsTextsAndWidths) {
    EXPECT_THAT(Texts(), ElementsAre("Beta", "Alpha", "Gamma", "Alpha"));
    EXPECT_EQ(m_view.model()->columnCount(), 3);
    EXPECT_EQ(Cell(2, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(Cell(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_EQ(modQt::Utf8(Cell(0, 1).data(Qt::AccessibleTextRole).toString()), "3. Low");
    m_grid.SetWidth(kMark, 0.25);
    EXPECT_EQ(m_view.header()->sectionSize(0), static_cast<int>(0.25 * m_view.viewport()->width()));
    // The last column also takes what is left.
    EXPECT_EQ(m_view.header()->length(), m_view.viewport()->width());
}

TEST_F(GridViewTest, ReadsNoRowThatIsNotSeen) {
    for (std::int32_t key = 100; key < 5000; ++key) {
        m_records.Records[key] = {false, 1, "row"};
    }
    m_records.Reads = 0;
    m_grid.Rebind();
    m_view.grab();
    EXPECT_GT(m_records.Reads, 0);
    EXPECT_LT(m_records.Reads, 200);
}

TEST_F(GridViewTest, AClickMakesARowCurrent) {
    Click(2, 2);
    EXPECT_THAT(m_grid.CurrentKey(), Optional(13));
    Click(0, 2);
    EXPECT_THAT(m_grid.CurrentKey(), Optional(11));
    EXPECT_THAT(SelectedRows(), ElementsAre(0));
}

TEST_F(GridViewTest, TheCurrentRowOfTheModelIsSelectedAndSeen) {
    for (std::int32_t key = 100; key < 300; ++key) {
        m_records.Records[key] = {false, 1, "row"};
    }
    m_grid.Rebind();
    EXPECT_THAT(SelectedRows(), IsEmpty());
    m_grid.ChooseDataRow(150);
    EXPECT_THAT(SelectedRows(), ElementsAre(150));
    EXPECT_TRUE(m_view.viewport()->rect().contains(m_view.visualRect(Cell(150, 2))));
}

TEST_F(GridViewTest, KeysMoveTheCurrentRow) {
    Click(0, 2);
    Key(Qt::Key_Down);
    EXPECT_THAT(m_grid.CurrentKey(), Optional(12));
    Key(Qt::Key_End);
    EXPECT_THAT(m_grid.CurrentKey(), Optional(14));
    Key(Qt::Key_Home);
    EXPECT_THAT(m_grid.CurrentKey(), Optional(11));
}

TEST_F(GridViewTest, ControlAndShiftSelectMoreRows) {
    Click(0, 2);
    Click(2, 2, Qt::ControlModifier);
    EXPECT_THAT(m_view.SelectedKeys(), ElementsAre(11, 13));
    Click(0, 2);
    Click(3, 2, Qt::ShiftModifier);
    EXPECT_THAT(m_view.SelectedKeys(), ElementsAre(11, 12, 13, 14));
    EXPECT_THAT(m_grid.CurrentKey(), Optional(14));
}

TEST_F(GridViewTest, ACheckBoxIsClickedAndSpaceChecksWhatIsSelected) {
    QStyleOptionViewItem option;
    option.initFrom(&m_view);
    const QRect cell = m_view.visualRect(Cell(0, 0));
    const QPoint box(cell.x() + m_view.fontMetrics().height() / 2, cell.center().y());
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, box);
    EXPECT_TRUE(m_records.Records[11].Mark);
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, box);
    EXPECT_FALSE(m_records.Records[11].Mark);
    Click(1, 2, Qt::ShiftModifier);
    Key(Qt::Key_Space);
    EXPECT_TRUE(m_records.Records[11].Mark);
    EXPECT_TRUE(m_records.Records[12].Mark);
    EXPECT_FALSE(m_records.Records[14].Mark);
    EXPECT_EQ(Cell(1, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    Key(Qt::Key_Space);
    EXPECT_FALSE(m_records.Records[11].Mark);
    EXPECT_THAT(m_view.SelectedKeys(), ElementsAre(11, 12));
}

TEST_F(GridViewTest, AHeadingSorts) {
    Click(0, 2);
    ClickHeading(2);
    EXPECT_THAT(Texts(), ElementsAre("Alpha", "Alpha", "Beta", "Gamma"));
    EXPECT_TRUE(m_view.header()->isSortIndicatorShown());
    EXPECT_EQ(m_view.header()->sortIndicatorSection(), 2);
    EXPECT_THAT(m_grid.CurrentKey(), Optional(11));
    EXPECT_THAT(SelectedRows(), ElementsAre(2));
    ClickHeading(2);
    EXPECT_THAT(Texts(), ElementsAre("Gamma", "Beta", "Alpha", "Alpha"));
    EXPECT_EQ(m_view.header()->sortIndicatorOrder(), Qt::DescendingOrder);
    ClickHeading(1, Qt::ShiftModifier);
    EXPECT_THAT(
        m_grid.SortKeys(), ElementsAre(GridOrderKey{kText, true}, GridOrderKey{kNumber, false}));
}

TEST_F(GridViewTest, AColumnIsMadeWiderByItsEdge) {
    int chosen = 0;
    const Subscription heard =
        m_grid.WidthChosen.Subscribe([&](std::int32_t column) { chosen = column; });
    m_view.header()->resizeSection(2, 150);
    EXPECT_EQ(chosen, kText);
    EXPECT_NEAR(m_grid.Column(kText).Width, 150.0 / m_view.viewport()->width(), 1e-9);
    chosen = 0;
    m_view.resize(400, 300);
    EXPECT_EQ(chosen, 0);
}

TEST_F(GridViewTest, GroupRowsOpenAndClose) {
    m_grid.SetGroups({{kListed}});
    EXPECT_THAT(
        Texts(), ElementsAre("1. High", "Alpha", "2. Middle", "Gamma", "3. Low", "Beta", "Alpha"));
    Click(4, 0);
    EXPECT_THAT(m_grid.CurrentKey(), Eq(std::nullopt));
    Key(Qt::Key_Minus);
    EXPECT_THAT(Texts(), ElementsAre("1. High", "Alpha", "2. Middle", "Gamma", "3. Low"));
    EXPECT_THAT(m_grid.CurrentRow(), Optional(4U));
    Key(Qt::Key_Plus);
    EXPECT_EQ(Texts().size(), 7U);
    Key(Qt::Key_Left);
    EXPECT_EQ(Texts().size(), 5U);
    Key(Qt::Key_Right);
    EXPECT_EQ(Texts().size(), 7U);
    Key(Qt::Key_Return);
    EXPECT_EQ(Texts().size(), 5U);
    EXPECT_THAT(
        modQt::Utf8(Cell(4, 0).data(Qt::AccessibleTextRole).toString()),
        "3. Low, collapsed, level 1");
    Key(Qt::Key_Asterisk);
    EXPECT_EQ(Texts().size(), 7U);
    QTest::mouseDClick(
        m_view.viewport(), Qt::LeftButton, {}, m_view.visualRect(Cell(0, 0)).center());
    EXPECT_EQ(Texts().size(), 6U);
}

TEST_F(GridViewTest, TheExpanderOpensWithOneClick) {
    m_grid.SetGroups({{kListed}});
    const QRect row = m_view.visualRect(Cell(0, 0));
    const QPoint expander(m_view.fontMetrics().height() / 2, row.center().y());
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, expander);
    EXPECT_EQ(Texts().size(), 6U);
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, expander);
    EXPECT_EQ(Texts().size(), 7U);
    EXPECT_THAT(m_grid.CurrentRow(), Eq(std::nullopt));
}

TEST_F(GridViewTest, LeftGoesFromARowToItsGroups) {
    m_grid.SetGroups({{kListed}, {kText}});
    ASSERT_THAT(
        Texts(),
        ElementsAre(
            "1. High",
            "Alpha",
            "Alpha",
            "2. Middle",
            "Gamma",
            "Gamma",
            "3. Low",
            "Alpha",
            "Alpha",
            "Beta",
            "Beta"));
    Click(10, 2);
    Key(Qt::Key_Left);
    EXPECT_THAT(m_grid.CurrentRow(), Optional(9U));
    Key(Qt::Key_Left);  // closes
    Key(Qt::Key_Left);
    EXPECT_THAT(m_grid.CurrentRow(), Optional(6U));
}

TEST_F(GridViewTest, AClosedGroupTakesTheCurrentRow) {
    m_grid.SetGroups({{kListed}});
    Click(1, 2);
    m_grid.SetExpanded(0, false);
    EXPECT_THAT(SelectedRows(), ElementsAre(0));
    EXPECT_THAT(m_grid.CurrentRow(), Optional(0U));
    m_grid.SetExpanded(0, true);
    EXPECT_THAT(SelectedRows(), ElementsAre(0));
}

TEST_F(GridViewTest, RowsBelowAClosedGroupKeepTheirSelection) {
    m_grid.SetGroups({{kListed}});
    Click(6, 2);
    m_grid.SetExpanded(0, false);
    EXPECT_THAT(SelectedRows(), ElementsAre(5));
    EXPECT_THAT(m_grid.CurrentKey(), Optional(14));
}

TEST_F(GridViewTest, EnterAndADoubleClickAreTheDoubleClickOfTheModel) {
    int clicks = 0;
    const Subscription heard = m_grid.DoubleClicked.Subscribe([&] { ++clicks; });
    QTest::mouseDClick(
        m_view.viewport(), Qt::LeftButton, {}, m_view.visualRect(Cell(1, 2)).center());
    EXPECT_EQ(clicks, 1);
    EXPECT_THAT(m_grid.CurrentKey(), Optional(12));
    Key(Qt::Key_Enter);
    EXPECT_EQ(clicks, 2);
}

TEST_F(GridViewTest, ThePopupIsRequestedByMouseAndKeyboard) {
    int requests = 0;
    const Subscription heard = m_grid.PopupRequested.Subscribe([&] { ++requests; });
    Click(2, 2, {}, Qt::RightButton);
    const QPoint place = m_view.visualRect(Cell(2, 2)).center();
    QContextMenuEvent mouse(QContextMenuEvent::Mouse, place, m_view.viewport()->mapToGlobal(place));
    QApplication::sendEvent(m_view.viewport(), &mouse);
    EXPECT_EQ(requests, 1);
    EXPECT_EQ(m_view.PopupPosition(), m_view.viewport()->mapToGlobal(place));
    EXPECT_THAT(m_grid.CurrentKey(), Optional(13));
    QContextMenuEvent keyboard(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(m_view.viewport(), &keyboard);
    EXPECT_EQ(requests, 2);
    const QRect row = m_view.visualRect(m_view.currentIndex());
    EXPECT_TRUE(row.contains(m_view.viewport()->mapFromGlobal(m_view.PopupPosition())));
}

TEST_F(GridViewTest, CopyIsRequested) {
    int requests = 0;
    const Subscription heard = m_view.CopyRequested.Subscribe([&] { ++requests; });
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(requests, 1);
}

TEST_F(GridViewTest, TypingDoesNotSearchTheRows) {
    Click(0, 2);
    m_records.Reads = 0;
    QTest::keyClicks(&m_view, QStringLiteral("g"));
    EXPECT_THAT(m_grid.CurrentKey(), Optional(11));
}

TEST_F(GridViewTest, ATextThatIsCutHasATip) {
    m_records.Records[11].Text = std::string(200, 'W');
    m_grid.Rebind();
    EXPECT_EQ(Cell(0, 2).data(Qt::ToolTipRole).toString().size(), 200);
    EXPECT_EQ(modQt::Utf8(Cell(0, 1).data(Qt::ToolTipRole).toString()), "3. Low");
}

TEST_F(GridViewTest, AGridThatLosesItsRecordsIsEmpty) {
    Click(2, 2);
    m_grid.Bind(nullptr);
    EXPECT_EQ(m_view.model()->rowCount(), 0);
    EXPECT_THAT(SelectedRows(), IsEmpty());
    m_view.grab();
}

}  // namespace

}  // namespace dorvik::test
