#include "workstation/controls/TableExport.h"

#include "FakeRecords.h"
#include "workstation/controls/GridTableRows.h"
#include "workstation/controls/ListTableRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik::test {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

class TableExportTest : public testing::Test {
protected:
    void SetUp() override {
        m_records.Records = {
            {11, {false, 3, "b, \"quoted\""}},
            {12, {true, 1, "A\nB"}},
            {13, {false, 2, "<Straße & \tco>"}},
        };
        std::vector<GridColumn> columns = FakeColumns();
        columns[kMark - 1].IsCheckBox = true;
        columns[kMark - 1].Caption = "Done";
        columns[kNumber - 1].HasValueList = true;
        columns[kListed - 1].Visible = false;
        columns[kListed - 1].Caption = "Level";
        m_grid = std::make_unique<Grid>(columns);
        GridValueList levels;
        levels.Add("1", {"1. High"});
        levels.Add("2", {"2. Low"});
        m_grid->SetValueList(kListed, levels);
        m_grid->Bind(&m_records);
        m_grid->SetRecordSource("all");
        m_grid->Rebind();
    }

    static std::string Written(ITableRows& rows, TableFormat format, std::size_t atOnce = 100) {
        std::string text;
        TableExport table(rows, format, "List <1>", [&](std::string_view part) { text += part; });
        while (table.WriteNext(atOnce)) {
        }
        return text;
    }

    FakeRecords m_records;
    std::unique_ptr<Grid> m_grid;
};

TEST_F(TableExportTest, ACsvFileQuotesWhatNeedsIt) {
    GridTableRows rows(*m_grid);
    EXPECT_EQ(
        Written(rows, TableFormat::Csv),
        "Done,Level,Text\r\n"
        "No,,\"b, \"\"quoted\"\"\"\r\n"
        "Yes,1. High,\"A\nB\"\r\n"
        "No,2. Low,<Straße & \tco>\r\n");
}

TEST_F(TableExportTest, GroupsAreColumnsAndRowsAreInTheOrderShown) {
    m_grid->SetSortKeys({{kText, true}});
    m_grid->SetGroups({{kListed, true}, {kText}});
    m_grid->ExpandAll(false);
    GridTableRows rows(*m_grid);
    EXPECT_EQ(
        Written(rows, TableFormat::Text),
        "2. Low\t<Straße &  co>\tNo\n"
        "1. High\tA B\tYes\n"
        "\tb, \"quoted\"\tNo\n");
    EXPECT_THAT(rows.Headings(), ElementsAre("Level", "Text", "Done"));
}

TEST_F(TableExportTest, APageEscapesItsTexts) {
    GridTableRows rows(*m_grid, {13});
    const std::string page = Written(rows, TableFormat::Html);
    EXPECT_THAT(page, HasSubstr("<title>List &lt;1&gt;</title>"));
    EXPECT_THAT(page, HasSubstr("<tr><th>Done</th><th>Level</th><th>Text</th></tr>\n"));
    EXPECT_THAT(
        page, HasSubstr("<tr><td>No</td><td>2. Low</td><td>&lt;Straße &amp; \tco&gt;</td></tr>"));
    EXPECT_THAT(page, EndsWith("</table>\n</body>\n</html>\n"));
}

TEST_F(TableExportTest, RowsAreWrittenSomeAtATime) {
    GridTableRows rows(*m_grid);
    std::string text;
    TableExport table(rows, TableFormat::Text, "", [&](std::string_view part) { text += part; });
    EXPECT_TRUE(table.WriteNext(1));
    EXPECT_EQ(table.Written(), 1U);
    EXPECT_TRUE(table.WriteNext(1));
    EXPECT_FALSE(table.WriteNext(1));
    EXPECT_FALSE(table.WriteNext(1));
    EXPECT_EQ(text, Written(rows, TableFormat::Text));
    for (const TableFormat format : {TableFormat::Csv, TableFormat::Html}) {
        EXPECT_EQ(Written(rows, format, 1), Written(rows, format));
    }
}

TEST_F(TableExportTest, ARecordThatIsGoneHasEmptyTexts) {
    GridTableRows rows(*m_grid, {12});
    m_grid->Bind(nullptr);
    EXPECT_EQ(Written(rows, TableFormat::Csv), "Done,Level,Text\r\nNo,,\r\n");
}

TEST_F(TableExportTest, AnEmptyTableHasItsHeadings) {
    GridTableRows rows(*m_grid, {});
    EXPECT_EQ(Written(rows, TableFormat::Csv), "Done,Level,Text\r\n");
}

TEST(ListTableRows, NumbersLoseTheBlanksThatPadThem) {
    ListTable list;
    list.SetColumns({{"Name"}, {"Count", ColumnAlignment::Right}});
    list.Add({"1", "", {{"one"}, {"    7"}}});
    list.Add({"2", "", {{"two"}}});
    list.Sort(0, false);
    ListTableRows rows(list);
    EXPECT_EQ(rows.Count(), 2U);
    EXPECT_THAT(rows.Headings(), ElementsAre("Name", "Count"));
    EXPECT_THAT(rows.Cells(0), ElementsAre("two", ""));
    EXPECT_THAT(rows.Cells(1), ElementsAre("one", "7"));
    ListTableRows row(list, 1);
    EXPECT_EQ(row.Count(), 1U);
    EXPECT_THAT(row.Cells(0), ElementsAre("one", "7"));
    list.Clear();
    EXPECT_THAT(row.Cells(0), ElementsAre("", ""));
}

}  // namespace
}  // namespace dorvik::test
