#include "WorkbenchFixture.h"
#include "workstation/view/LiveBytes.h"

namespace dorvik {
namespace {

constexpr std::int32_t kRows = 300'000;

/// More violations than a copy of all would be good for: their texts alone are about 100 MB.
class LargeList : public test::WorkbenchFixture {
protected:
    void SetUp() override {
        AddProject("Billing");
        WriteResults("Billing");
        AddRows(kRows - 8);
        m_view.SetWorkbenchVisible(true);
    }

    void AddRows(int count) const {
        const std::string sql =
            "WITH RECURSIVE Counter(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM Counter WHERE n "
            "< " +
            std::to_string(count) +
            ") INSERT INTO Violations (ItemID, ItemType, RuleID, RuleType, Title, Description, "
            "Advice, Severity, Impact, CategoryID, LineNum, Loc, LocMember, SourceLine, "
            "BottomOffset, Completed) SELECT 1 + n % 5, 3, 5000, 4, 'Title ' || (n % 200), "
            "printf('%200d', n), printf('%100d', n), 1 + n % 5, n % 1000, 7, n, 4, 'Total', "
            "printf('%50d', n), 0, 0 FROM Counter";
        ChangeResults("Billing", sql);
    }

    static double BytesForEachRow(std::size_t before, std::size_t after) {
        return (static_cast<double>(after) - static_cast<double>(before)) / kRows;
    }
};

TEST_F(LargeList, OpensSortsAndGroupsWithoutACopyOfItsRows) {
    const std::size_t before = test::LiveBytes();
    test::ResetPeak();
    m_view.PopulateResults(m_criteria, false);
    ASSERT_EQ(m_controls.List.DataRowCount(), static_cast<std::size_t>(kRows));
    m_controls.List.SetSortKeys({{NumberOf(ViolationColumn::Title), true}});
    m_controls.List.ChooseGroups(
        {{NumberOf(ViolationColumn::SeverityText)}, {NumberOf(ViolationColumn::SourceFile)}});

    // The key and the order of each row stay; the values of a column and the sort are gone again.
    EXPECT_LT(BytesForEachRow(before, test::LiveBytes()), 9);
    EXPECT_LT(BytesForEachRow(before, test::PeakBytes()), 28);

    EXPECT_THAT(m_log.Entries(), testing::IsEmpty());
    EXPECT_EQ(m_controls.List.RowCount(), static_cast<std::size_t>(kRows) + GroupTexts().size());
    EXPECT_EQ(GroupTexts().front(), "Critical (59999)");
    const std::int32_t last = m_controls.List.KeyOfDataRow(kRows - 1);
    EXPECT_EQ(m_controls.List.Shown(last, NumberOf(ViolationColumn::SeverityText)).Text, "5. Info");
}

TEST_F(LargeList, ReadsARowWhenItIsShown) {
    m_view.PopulateResults(m_criteria, false);
    const std::size_t before = test::LiveBytes();
    for (std::int32_t key = 1000; key < 2000; ++key) {
        EXPECT_EQ(
            m_controls.List.Shown(key, NumberOf(ViolationColumn::Title)).Text,
            "Title " + std::to_string((key - 8) % 200));
    }
    EXPECT_LT(BytesForEachRow(before, test::LiveBytes()), 0.1);
}

}  // namespace
}  // namespace dorvik
