#include "FakeRecords.h"
#include "workstation/controls/modGridOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik::test {
namespace {

using testing::ElementsAre;

class GridOrder : public testing::Test {
protected:
    void SetUp() override {
        m_chosen = m_grid.GroupsChosen.Subscribe([this] { ++m_choices; });
    }

    Grid m_grid{FakeColumns()};
    int m_choices = 0;
    Subscription m_chosen;
};

TEST_F(GridOrder, AHeadingSortsUpThenDownThenUp) {
    modGridOrder::ClickHeading(m_grid, kText, false);
    EXPECT_THAT(m_grid.SortKeys(), ElementsAre(GridOrderKey{kText, false}));
    modGridOrder::ClickHeading(m_grid, kText, false);
    EXPECT_THAT(m_grid.SortKeys(), ElementsAre(GridOrderKey{kText, true}));
    modGridOrder::ClickHeading(m_grid, kText, false);
    EXPECT_THAT(m_grid.SortKeys(), ElementsAre(GridOrderKey{kText, false}));
    modGridOrder::ClickHeading(m_grid, kNumber, false);
    EXPECT_THAT(m_grid.SortKeys(), ElementsAre(GridOrderKey{kNumber, false}));
}

TEST_F(GridOrder, AHeadingThatKeepsTheOthersIsTheLeastKey) {
    modGridOrder::ClickHeading(m_grid, kText, false);
    modGridOrder::ClickHeading(m_grid, kNumber, true);
    EXPECT_THAT(
        m_grid.SortKeys(), ElementsAre(GridOrderKey{kText, false}, GridOrderKey{kNumber, false}));
    modGridOrder::ClickHeading(m_grid, kText, true);
    EXPECT_THAT(
        m_grid.SortKeys(), ElementsAre(GridOrderKey{kText, true}, GridOrderKey{kNumber, false}));
}

TEST_F(GridOrder, AGroupIsPlacedMovedTurnedAndRemoved) {
    modGridOrder::PlaceGroup(m_grid, kText, 0);
    modGridOrder::PlaceGroup(m_grid, kListed, 1);
    modGridOrder::PlaceGroup(m_grid, kMark, 99);
    modGridOrder::TurnGroup(m_grid, kText);
    EXPECT_THAT(
        m_grid.Groups(),
        ElementsAre(
            GridOrderKey{kText, true}, GridOrderKey{kListed, false}, GridOrderKey{kMark, false}));
    modGridOrder::PlaceGroup(m_grid, kText, 2);  // in front of the mark
    EXPECT_THAT(
        m_grid.Groups(),
        ElementsAre(
            GridOrderKey{kListed, false}, GridOrderKey{kText, true}, GridOrderKey{kMark, false}));
    modGridOrder::RemoveGroup(m_grid, kListed);
    EXPECT_EQ(m_grid.Groups().size(), 2U);
    EXPECT_EQ(m_choices, 6);
}

TEST_F(GridOrder, WhatChangesNothingIsNoChoice) {
    modGridOrder::PlaceGroup(m_grid, kText, 0);
    modGridOrder::PlaceGroup(m_grid, kText, 1);  // dropped where it is
    modGridOrder::RemoveGroup(m_grid, kMark);
    modGridOrder::TurnGroup(m_grid, kMark);
    EXPECT_EQ(m_choices, 1);
}

TEST_F(GridOrder, PicturesAreDescribedByTheTextsOfTheSameField) {
    std::vector<GridColumn> columns = FakeColumns();
    columns[kNumber - 1].HasValueList = true;
    columns[kListed - 1].Visible = false;
    columns[kListed - 1].Caption = "Level";
    const Grid grid(columns);
    EXPECT_EQ(modGridOrder::DescribingColumn(grid, kNumber), kListed);
    EXPECT_EQ(modGridOrder::DescribingColumn(grid, kText), kText);
    EXPECT_EQ(modGridOrder::TitleOf(grid, kListed), "Level");
    EXPECT_EQ(modGridOrder::TitleOf(grid, kText), "Text");
    EXPECT_THAT(modGridOrder::ColumnsToGroupBy(grid), ElementsAre(kMark, kText, kListed));
}

TEST_F(GridOrder, AHiddenColumnWithoutACaptionIsNotForTheUser) {
    std::vector<GridColumn> columns = FakeColumns();
    columns[kNumber - 1].Visible = false;
    Grid grid(columns);
    grid.SetGroups({{kText}});
    EXPECT_THAT(modGridOrder::ColumnsToGroupBy(grid), ElementsAre(kMark, kListed));
}

}  // namespace
}  // namespace dorvik::test
