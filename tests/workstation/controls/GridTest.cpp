#include "workstation/controls/Grid.h"

#include "FakeRecords.h"
#include "workstation/controls/Splitter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace dorvik::test {
namespace {

using testing::ElementsAre;
using testing::Pair;

class GridTest : public testing::Test {
protected:
    void SetUp() override {
        m_records.Records = {
            {11, {false, 3, "b"}},
            {12, {false, 1, "A"}},
            {13, {true, 2, "B"}},
            {14, {false, 3, "a"}},
        };
        m_grid.Bind(&m_records);
        m_grid.SetRecordSource("all");
        m_grid.Rebind();
        m_subscriptions.push_back(m_grid.Changed.Subscribe(
            [&](GridChange change, std::size_t row) { m_changes.emplace_back(change, row); }));
        m_subscriptions.push_back(m_grid.CurrentRowChanged.Subscribe([&] { ++m_currentChanges; }));
        m_subscriptions.push_back(
            m_grid.Failed.Subscribe([&](std::int32_t number) { m_failures.push_back(number); }));
    }

    std::vector<std::int32_t> Keys() const {
        std::vector<std::int32_t> keys;
        for (std::size_t row = 0; row < m_grid.DataRowCount(); ++row) {
            keys.push_back(m_grid.KeyOfDataRow(row));
        }
        return keys;
    }
    /// What shows: the texts of group rows and the keys of the others.
    std::vector<std::string> Rows() {
        std::vector<std::string> rows;
        for (std::size_t row = 0; row < m_grid.RowCount(); ++row) {
            rows.push_back(
                m_grid.GroupRow(row) ? m_grid.GroupText(row)
                                     : std::to_string(m_grid.KeyOfRow(row).value()));
        }
        return rows;
    }

    FakeRecords m_records;
    Grid m_grid{FakeColumns()};
    std::vector<std::pair<GridChange, std::size_t>> m_changes;
    std::vector<std::int32_t> m_failures;
    int m_currentChanges = 0;
    std::vector<Subscription> m_subscriptions;
};

TEST_F(GridTest, WithoutASortKeyRowsAreInTheOrderOfTheirKeys) {
    EXPECT_THAT(Keys(), ElementsAre(11, 12, 13, 14));
    EXPECT_EQ(m_grid.CurrentRow(), std::nullopt);
}

TEST_F(GridTest, ARowWithoutANumberComesBeforeThoseWithOneAndIsAGroupOfItsOwn) {
    m_records.Records = {
        {11, {false, 0, ""}}, {12, {false, std::nullopt, ""}}, {13, {false, -1, ""}}};
    m_grid.Rebind();
    m_grid.SetSortKeys({{kNumber}});
    EXPECT_THAT(Keys(), ElementsAre(12, 13, 11));
    m_grid.SetSortKeys({});
    m_grid.SetGroups({{kNumber, true}});
    EXPECT_THAT(Rows(), ElementsAre("0", "11", "-1", "13", "(none)", "12"));
}

TEST_F(GridTest, ColumnsAreFoundByTheirKeyInAnyCase) {
    EXPECT_EQ(m_grid.FindColumn("text"), kText);
    EXPECT_EQ(m_grid.FindColumn("none"), std::nullopt);
}

TEST_F(GridTest, SortsByNumberTextAndSeveralKeys) {
    m_grid.SetSortKeys({{kNumber}});
    EXPECT_THAT(Keys(), ElementsAre(12, 13, 11, 14));
    m_grid.SetSortKeys({{kText}});
    EXPECT_THAT(Keys(), ElementsAre(12, 14, 11, 13));
    m_grid.SetSortKeys({{kText, true}, {kNumber}});
    EXPECT_THAT(Keys(), ElementsAre(13, 11, 12, 14));
    m_grid.SetSortKeys({{kMark}});
    EXPECT_THAT(Keys(), ElementsAre(13, 11, 12, 14));
    m_grid.SetSortKeys({});
    EXPECT_THAT(Keys(), ElementsAre(11, 12, 13, 14));
}

TEST_F(GridTest, SortsByTheTextsOfAValueListAndWhatItLacksFirst) {
    GridValueList list;
    list.Add("3", {"alpha"});
    list.Add("1", {"beta"});
    m_grid.SetValueList(kListed, list);
    EXPECT_THAT(m_changes, ElementsAre(Pair(GridChange::Column, std::size_t{kListed})));
    m_grid.SetSortKeys({{kListed}});
    EXPECT_THAT(Keys(), ElementsAre(13, 11, 14, 12));
    EXPECT_EQ(m_grid.Shown(13, kListed).Text, "");
    EXPECT_EQ(m_grid.Shown(11, kListed).Text, "alpha");
}

TEST_F(GridTest, AnUnknownColumnIsNoKey) {
    m_grid.SetSortKeys({{0}, {5}, {kNumber}});
    EXPECT_THAT(m_grid.SortKeys(), ElementsAre(GridOrderKey{kNumber}));
}

TEST_F(GridTest, GroupsAreExpandedAndTheirRowsCollapseAndExpand) {
    m_grid.SetGroups({{kText}});
    EXPECT_THAT(Rows(), ElementsAre("A", "12", "14", "b", "11", "13"));
    m_changes.clear();
    m_grid.SetExpanded(0, false);
    EXPECT_THAT(m_changes, ElementsAre(Pair(GridChange::RowsFrom, 0U)));
    EXPECT_THAT(Rows(), ElementsAre("A", "b", "11", "13"));
    EXPECT_FALSE(m_grid.GroupRow(0)->Expanded);
    EXPECT_EQ(m_grid.GroupRow(0)->Count, 2U);
    m_grid.ExpandAll(false);
    EXPECT_THAT(Rows(), ElementsAre("A", "b"));
    m_grid.ExpandAll(true);
    EXPECT_THAT(Rows(), ElementsAre("A", "12", "14", "b", "11", "13"));
}

TEST_F(GridTest, GroupsInGroupsCountTheirDataRows) {
    m_grid.SetGroups({{kText, true}, {kNumber}});
    EXPECT_THAT(Rows(), ElementsAre("B", "2", "13", "3", "11", "A", "1", "12", "3", "14"));
    EXPECT_EQ(m_grid.GroupRow(0)->Level, 1);
    EXPECT_EQ(m_grid.GroupRow(0)->Count, 2U);
    EXPECT_EQ(m_grid.GroupRow(1)->Level, 2);
    EXPECT_EQ(m_grid.GroupRow(1)->Column, kNumber);
    m_grid.SetExpanded(0, false);
    EXPECT_THAT(Rows(), ElementsAre("B", "A", "1", "12", "3", "14"));
    m_grid.SetExpanded(2, false);
    EXPECT_THAT(Rows(), ElementsAre("B", "A", "1", "3", "14"));
}

TEST_F(GridTest, SortKeysOrderTheRowsOfAGroup) {
    m_grid.SetSortKeys({{kNumber, true}});
    m_grid.SetGroups({{kText}});
    EXPECT_THAT(Rows(), ElementsAre("a", "14", "12", "b", "11", "13"));
}

TEST_F(GridTest, AnEmptyTextHasAGroupThatSaysSo) {
    m_records.Records[15] = {};
    m_grid.Rebind();
    m_grid.SetGroups({{kText}});
    EXPECT_THAT(Rows(), ElementsAre("(none)", "15", "A", "12", "14", "b", "11", "13"));
}

TEST_F(GridTest, ARuleGivesTheTextOfGroupRows) {
    m_grid.SetGroupTextRule([](const GridGroupRow& group, const std::string& text) {
        return text + "/" + std::to_string(group.Count);
    });
    m_grid.SetGroups({{kText}});
    EXPECT_EQ(m_grid.GroupText(0), "A/2");
    EXPECT_EQ(m_grid.GroupText(1), "");
}

TEST_F(GridTest, ARecordStaysCurrentInAnotherOrderAndAGroupDoesNot) {
    m_grid.SetCurrentRow(1);
    EXPECT_EQ(m_currentChanges, 1);
    m_grid.SetSortKeys({{kNumber}});
    EXPECT_EQ(m_grid.CurrentKey(), 12);
    EXPECT_EQ(m_grid.CurrentRow(), 0U);
    m_grid.SetGroups({{kText}});
    EXPECT_EQ(m_grid.CurrentKey(), 12);
    EXPECT_EQ(m_grid.CurrentRow(), 1U);
    EXPECT_EQ(m_currentChanges, 1);
    m_grid.SetCurrentRow(0);
    EXPECT_EQ(m_grid.CurrentKey(), std::nullopt);
    m_grid.SetGroups({});
    EXPECT_EQ(m_grid.CurrentRow(), std::nullopt);
    EXPECT_EQ(m_currentChanges, 3);
}

TEST_F(GridTest, TheGroupRowThatHidesTheCurrentRowBecomesCurrent) {
    m_grid.SetGroups({{kText}});
    m_grid.SetCurrentRow(4);
    EXPECT_EQ(m_grid.CurrentKey(), 11);
    m_grid.SetExpanded(3, false);
    EXPECT_EQ(m_grid.CurrentRow(), 3U);
    EXPECT_EQ(m_grid.CurrentKey(), std::nullopt);
}

TEST_F(GridTest, ADataRowInACollapsedGroupIsRevealed) {
    m_grid.SetGroups({{kText}});
    m_grid.ExpandAll(false);
    m_grid.ChooseDataRow(3);
    EXPECT_EQ(m_grid.CurrentKey(), 13);
    EXPECT_THAT(Rows(), ElementsAre("A", "b", "11", "13"));
    m_grid.ChooseDataRow(4);
    EXPECT_EQ(m_grid.CurrentKey(), 13);
}

TEST_F(GridTest, RebindingReadsTheRecordsAnewAndLosesTheCurrentRow) {
    m_grid.SetCurrentRow(1);
    m_records.Records.erase(12);
    m_grid.Rebind();
    EXPECT_THAT(Keys(), ElementsAre(11, 13, 14));
    EXPECT_EQ(m_grid.CurrentRow(), std::nullopt);
    EXPECT_EQ(m_currentChanges, 2);
}

TEST_F(GridTest, AMarkIsStoredAndChangesItsRowAlone) {
    m_grid.SetSortKeys({{kMark}});
    EXPECT_THAT(Keys(), ElementsAre(13, 11, 12, 14));
    m_changes.clear();
    m_grid.Check(12, true);
    EXPECT_TRUE(m_records.Records[12].Mark);
    EXPECT_TRUE(m_grid.Value(12, kMark).AsBoolean());
    EXPECT_THAT(m_changes, ElementsAre(Pair(GridChange::Row, 2U)));
    EXPECT_THAT(Keys(), ElementsAre(13, 11, 12, 14));
}

TEST_F(GridTest, TheValuesOfARowAreReadOnceForAllItsColumns) {
    m_grid.Value(12, kText);
    m_grid.Value(12, kNumber);
    m_grid.Shown(12, kMark);
    EXPECT_EQ(m_records.Reads, 1);
}

TEST_F(GridTest, WhatFailsIsReportedAndLeavesNoRows) {
    m_records.Fails = true;
    EXPECT_EQ(m_grid.Value(12, kText).AsText(), "");
    m_grid.SetSortKeys({{kText}});
    m_grid.Rebind();
    EXPECT_THAT(m_failures, ElementsAre(3260, 3260, 3260));
    EXPECT_EQ(m_grid.RowCount(), 0U);
}

TEST_F(GridTest, TheUserChangesGroupsAndWidths) {
    int groups = 0;
    std::vector<std::int32_t> widths;
    const Subscription onGroups = m_grid.GroupsChosen.Subscribe([&] { ++groups; });
    const Subscription onWidth =
        m_grid.WidthChosen.Subscribe([&](std::int32_t column) { widths.push_back(column); });
    m_grid.SetGroups({{kText}});
    m_grid.SetWidth(kText, 0.5);
    EXPECT_EQ(groups, 0);
    m_grid.ChooseGroups({{kNumber}});
    m_grid.ChooseWidth(kText, 0.25);
    EXPECT_EQ(groups, 1);
    EXPECT_THAT(widths, ElementsAre(kText));
    EXPECT_EQ(m_grid.Column(kText).Width, 0.25);
}

TEST_F(GridTest, AGroupIsAddedInsideTheOthersAndRemoved) {
    m_grid.AddGroup({kText});
    m_grid.AddGroup({kNumber, true});
    EXPECT_THAT(m_grid.Groups(), ElementsAre(GridOrderKey{kText}, GridOrderKey{kNumber, true}));
    EXPECT_TRUE(m_grid.HasGroup(kNumber));
    m_grid.RemoveGroup(kText);
    EXPECT_THAT(m_grid.Groups(), ElementsAre(GridOrderKey{kNumber, true}));
    EXPECT_FALSE(m_grid.HasGroup(kText));
}

TEST_F(GridTest, ADoubleClickOnAGroupRowIsNone) {
    int clicks = 0;
    const Subscription subscription = m_grid.DoubleClicked.Subscribe([&] { ++clicks; });
    m_grid.SetGroups({{kText}});
    m_grid.DoubleClick(0);
    EXPECT_EQ(clicks, 0);
    m_grid.DoubleClick(1);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(m_grid.CurrentKey(), 12);
}

TEST(Splitter, ADisabledOneDoesNothing) {
    Splitter splitter;
    int events = 0;
    const Subscription onEnter = splitter.InSplitArea.Subscribe([&] { ++events; });
    const Subscription onMove = splitter.SplitterMoved.Subscribe([&](std::int32_t) { ++events; });
    splitter.SetFraction(0.5);
    splitter.Resize(8000, 100);
    EXPECT_EQ(splitter.Left.Value(), 4000);
    EXPECT_EQ(splitter.Height.Value(), 100);
    splitter.Enabled.Set(false);
    splitter.Enter();
    splitter.Release(3000);
    EXPECT_EQ(events, 0);
    splitter.Enabled.Set(true);
    splitter.Enter();
    splitter.Release(3000);
    EXPECT_EQ(events, 2);
    EXPECT_EQ(splitter.Fraction(), 0.375);
}

}  // namespace
}  // namespace dorvik::test
