#include "platform/database/Recordset.h"

#include "platform/DatabaseFixture.h"

namespace dorvik {
namespace {

using test::ErrorNumberOf;

class RecordsetTest : public test::DatabaseFixture {};

// ---- dynasets ----

TEST_F(RecordsetTest, MoveFirstOnAnEmptySetGoesToTheRowJustAdded) {
    Add("earlier", 1);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items WHERE ItemID = 0");
    rows.AddNew();
    rows.SetValue("Name", "new");
    rows.SetValue("Done", true);
    rows.Update();
    rows.MoveFirst();
    EXPECT_EQ(rows.Value("ItemID"), Variant(2));
    EXPECT_EQ(rows.Value("name"), Variant("new"));
    EXPECT_EQ(rows.Value("Done"), Variant(true));
    EXPECT_TRUE(rows.Value("Size").IsEmpty());
    rows.MoveNext();
    EXPECT_TRUE(rows.EOF_());
    EXPECT_FALSE(rows.BOF());
}

TEST_F(RecordsetTest, AddedRowsStandOnceBehindThoseOfTheQuery) {
    Add("b", 1);
    Add("a", 2);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items ORDER BY Name");
    rows.AddNew();
    rows.SetValue("Name", "aa");
    rows.Update();
    std::vector<std::string> names;
    for (rows.MoveFirst(); !rows.EOF_(); rows.MoveNext()) {
        names.push_back(rows.Value("Name").AsText());
    }
    EXPECT_THAT(names, testing::ElementsAre("a", "b", "aa"));
}

TEST_F(RecordsetTest, AddingLeavesTheCurrentRowWhereItWas) {
    Add("a", 1);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items");
    EXPECT_EQ(rows.Value("Name").AsText(), "a");
    rows.AddNew();
    rows.SetValue("Name", "b");
    rows.Update();
    EXPECT_EQ(rows.Value("Name").AsText(), "a");
}

TEST_F(RecordsetTest, TheKeyOfTheLastRowAddedIsKnown) {
    Add("a", 1);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items");
    EXPECT_THROW(rows.LastAddedKey(), BasicError);
    for (const std::int32_t key : {2, 3}) {
        rows.AddNew();
        rows.SetValue("Name", "b");
        rows.Update();
        EXPECT_EQ(rows.LastAddedKey(), key);
    }
    auto snapshot = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    EXPECT_THROW(snapshot.LastAddedKey(), BasicError);
}

TEST_F(RecordsetTest, EditWritesOnlyTheFieldsSet) {
    Add("a", 1);
    Add("b", 2);
    auto rows = m_database.OpenRecordset("SELECT Size, [End] FROM Items WHERE ItemID = 2");
    ASSERT_FALSE(rows.EOF_());
    rows.Edit();
    rows.SetValue("End", "later");
    EXPECT_EQ(rows.Value("End").AsText(), "later");
    rows.Update();
    EXPECT_EQ(rows.Value("End").AsText(), "later");
    EXPECT_EQ(rows.Value("Size"), Variant(2));
    EXPECT_THAT(Texts("SELECT [End] FROM Items"), testing::ElementsAre("", "later"));
}

TEST_F(RecordsetTest, ANewRowThatWasNotWrittenIsDropped) {
    {
        auto rows = m_database.OpenRecordset("SELECT * FROM Items");
        rows.AddNew();
        rows.SetValue("Name", "a");
    }
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::IsEmpty());
}

TEST_F(RecordsetTest, ARowWithoutFieldsTakesTheDefaults) {
    auto rows = m_database.OpenRecordset("SELECT * FROM Items");
    rows.AddNew();
    rows.Update();
    rows.MoveFirst();
    EXPECT_TRUE(rows.Value("Name").IsEmpty());
    EXPECT_EQ(rows.Value("Done"), Variant(false));
}

TEST_F(RecordsetTest, BooleansAreStoredAsMinusOneAndZero) {
    auto rows = m_database.OpenRecordset("SELECT * FROM Items");
    for (const bool flag : {true, false}) {
        rows.AddNew();
        rows.SetValue("Done", flag);
        rows.SetValue("Size", flag);
        rows.Update();
    }
    rows.AddNew();
    rows.SetValue("Done", "True");  // a property can hold it as a text
    rows.Update();
    EXPECT_THAT(Texts("SELECT Size FROM Items"), testing::ElementsAre("-1", "0", ""));
    EXPECT_THAT(Texts("SELECT Done & '' FROM Items"), testing::ElementsAre("-1", "0", "-1"));
    EXPECT_THAT(
        Texts("SELECT ItemID FROM Items WHERE Done = True"), testing::ElementsAre("1", "3"));
    EXPECT_THAT(Texts("SELECT ItemID FROM Items WHERE Done = False"), testing::ElementsAre("2"));
}

TEST_F(RecordsetTest, WrongUseIsANumberedError) {
    auto rows = m_database.OpenRecordset("SELECT Name FROM Items");
    EXPECT_EQ(ErrorNumberOf([&] { rows.MoveFirst(); }), databaseerror::kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows.MoveNext(); }), databaseerror::kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Edit(); }), databaseerror::kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Value("Name"); }), databaseerror::kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Update(); }), databaseerror::kUpdateWithoutEdit);
    EXPECT_EQ(
        ErrorNumberOf([&] { rows.SetValue("Name", "a"); }), databaseerror::kUpdateWithoutEdit);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Value("Size"); }), databaseerror::kUnknownField);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Value(1); }), databaseerror::kUnknownField);
    rows.Close();
    EXPECT_EQ(ErrorNumberOf([&] { rows.EOF_(); }), databaseerror::kObjectInvalid);
}

TEST_F(RecordsetTest, UnknownTablesAndColumnsFailOnOpening) {
    for (const auto type : {RecordsetType::Dynaset, RecordsetType::Snapshot}) {
        for (const std::string_view sql :
             {"SELECT * FROM Nothing",
              "SELECT Nothing FROM Items",
              "SELECT * FROM Items WHERE Nothing = 1"}) {
            EXPECT_EQ(
                ErrorNumberOf([&] { m_database.OpenRecordset(sql, type); }),
                databaseerror::kUnknownName)
                << sql;
        }
    }
}

TEST_F(RecordsetTest, AJoinCannotBeOpenedForEditing) {
    EXPECT_EQ(
        ErrorNumberOf([&] {
            m_database.OpenRecordset(
                "SELECT Items.Name FROM Items INNER JOIN Parts ON Items.ItemID = Parts.ItemID");
        }),
        databaseerror::kReadOnly);
}

TEST_F(RecordsetTest, TextsOfAnyLengthAndKindComeBackAsTheyWere) {
    const std::string text =
        std::string(20000, 'x') + "'\"[End] \xC3\xA4\xE6\xBC\xA2" + std::string("\0y", 2);
    Add(text, 1);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre(text));
}

// ---- snapshots and statements ----

TEST_F(RecordsetTest, ASnapshotCannotBeWritten) {
    Add("a", 1);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    EXPECT_EQ(ErrorNumberOf([&] { rows.AddNew(); }), databaseerror::kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] { rows.Edit(); }), databaseerror::kReadOnly);
}

TEST_F(RecordsetTest, ASnapshotCanBeReadAgainFromTheFirstRow) {
    Add("a", 1);
    Add("b", 2);
    auto rows = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_TRUE(rows.EOF_());
    EXPECT_EQ(ErrorNumberOf([&] { rows.Value("Name"); }), databaseerror::kNoCurrentRecord);
    rows.MoveFirst();
    EXPECT_EQ(rows.Value("Name").AsText(), "a");
}

TEST_F(RecordsetTest, TwoRecordsetsOfOneTextDoNotDisturbEachOther) {
    Add("a", 1);
    Add("b", 2);
    auto outer = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    auto inner = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    inner.MoveNext();
    EXPECT_EQ(outer.Value("Name").AsText(), "a");
    EXPECT_EQ(inner.Value("Name").AsText(), "b");
}

TEST_F(RecordsetTest, WritingGoesOnWhileASnapshotIsOpen) {
    Run("INSERT INTO Items (Name) VALUES ('a'), ('b')");
    auto rows = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    Add("c", 3);
    EXPECT_EQ(rows.Value("Name").AsText(), "a");
    rows.Close();
    EXPECT_THAT(Texts("SELECT Count(ItemID) FROM Items"), testing::ElementsAre("3"));
}

TEST_F(RecordsetTest, ExecuteUpdatesTheRowsThatMatch) {
    Add("a", 1);
    Add("b", 2);
    m_database.Execute("UPDATE Items Set Size = 7, Name = 'x' WHERE ItemID = 2");
    EXPECT_THAT(Texts("SELECT Size FROM Items"), testing::ElementsAre("1", "7"));
    EXPECT_EQ(
        ErrorNumberOf([&] { m_database.Execute("SELECT * FROM Items"); }), databaseerror::kSyntax);
}

TEST_F(RecordsetTest, TextsCompareAndSortWithoutRegardToCase) {
    Add("\xC3\x84rger", 1);  // A with two dots
    Add("zebra", 2);
    Add("Apfel", 3);
    EXPECT_THAT(
        Texts("SELECT Size FROM Items WHERE Name = '\xC3\xA4RGER'"), testing::ElementsAre("1"));
    EXPECT_THAT(Texts("SELECT Size FROM Items ORDER BY Name"), testing::ElementsAre("3", "2", "1"));
}

TEST_F(RecordsetTest, NothingCountsAsAnEmptyTextWhenTextsAreJoined) {
    Add("a", 1);
    EXPECT_THAT(Texts("SELECT Name & '_' & [End] & Size FROM Items"), testing::ElementsAre("a_1"));
}

TEST_F(RecordsetTest, ASumOverNoRowsIsEmptyAndALargeOneIsADouble) {
    auto none =
        m_database.OpenRecordset("SELECT Sum(Size) AS S FROM Items", RecordsetType::Snapshot);
    EXPECT_TRUE(none.Value("S").IsEmpty());
    none.Close();
    Add("a", 2000000000);
    Add("b", 2000000000);
    auto large =
        m_database.OpenRecordset("SELECT Sum(Size) AS S FROM Items", RecordsetType::Snapshot);
    EXPECT_EQ(large.Value("S"), Variant(4000000000.0));
}

TEST_F(RecordsetTest, JoinsInBracketsSubQueriesAndUnionsRun) {
    Add("a", 1);
    Add("b", 2);
    Run("INSERT INTO Parts (ItemID, Weight) VALUES (1, 10), (2, 20), (2, 30)");
    EXPECT_THAT(
        Texts("SELECT Parts.ItemID & '_' & Parts.Weight As X, Parts.* FROM (Items INNER JOIN Parts "
              "ON "
              "Items.ItemID = Parts.ItemID)  INNER JOIN Items AS I2 ON I2.ItemID = Parts.ItemID "
              "WHERE "
              "(Items.ItemID = 2 AND Parts.Weight > 20)"),
        testing::ElementsAre("2_30"));
    EXPECT_THAT(
        Texts(
            "SELECT Count(Parts.PartID) AS N FROM (SELECT Parts.PartID, Parts.Weight FROM Items "
            "INNER "
            "JOIN Parts ON Items.ItemID = Parts.ItemID WHERE Items.ItemID = 2) WHERE Weight = 20"),
        testing::ElementsAre("1"));
    EXPECT_THAT(
        Texts("SELECT Name As X FROM Items UNION SELECT Weight & '' FROM Parts"),
        testing::UnorderedElementsAre("a", "b", "10", "20", "30"));
}

TEST_F(RecordsetTest, AQuoteInATextFailsAndCostsOnlyThatStatement) {
    EXPECT_EQ(
        ErrorNumberOf(
            [&] { m_database.OpenRecordset("SELECT * FROM Items WHERE Name = 'O'Brien'"); }),
        databaseerror::kSyntax);
    Add("O'Brien", 1);
    EXPECT_THAT(Texts("SELECT Name FROM Items"), testing::ElementsAre("O'Brien"));
}

TEST_F(RecordsetTest, LogicalOperatorsOnNumbersWorkBitByBit) {
    Add("a", 6);
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"Size AND 3", "2"},
        {"Size OR 9", "15"},
        {"NOT Size", "-7"},
        {"Size AND Name = 'a'", "6"},
        {"Size AND Name = 'b'", "0"},
        {"Name = 'a' AND ItemID = 1", "-1"},
        {"Size AND 2.5", "2"},  // 2.5 counts as 2
        {"Size AND Null", ""},
        {"Null AND False", "0"},
        {"Null OR True", "-1"},
        {"Null OR False", ""},
        {"Done OR Size", "6"},
    };
    for (const auto& [expression, expected] : cases) {
        EXPECT_THAT(
            Texts("SELECT " + expression + " AS X FROM Items"), testing::ElementsAre(expected))
            << expression;
    }
    EXPECT_THAT(Texts("SELECT Name FROM Items WHERE Size AND 8"), testing::IsEmpty());
    EXPECT_THAT(Texts("SELECT Name FROM Items WHERE Size AND 4"), testing::ElementsAre("a"));
}

TEST_F(RecordsetTest, TheGreatestOfMinusOneZeroAndNothing) {
    const std::string greatest = "SELECT MAX(Size) AS M FROM Items WHERE Name = ";
    Run("INSERT INTO Items (Name, Size) VALUES ('a', -1), ('a', NULL), ('b', -1), ('b', 0), "
        "('c', NULL)");
    EXPECT_THAT(Texts(greatest + "'a'"), testing::ElementsAre("-1"));
    EXPECT_THAT(Texts(greatest + "'b'"), testing::ElementsAre("0"));
    EXPECT_THAT(Texts(greatest + "'c'"), testing::ElementsAre(""));
    EXPECT_THAT(Texts(greatest + "'d'"), testing::ElementsAre(""));
}

TEST_F(RecordsetTest, MoreShapesThanAreKeptStillWork) {
    Add("a", 1);
    auto kept = m_database.OpenRecordset("SELECT * FROM Items", RecordsetType::Snapshot);
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "N" + std::to_string(i);
        auto rows = m_database.OpenRecordset(
            "SELECT Size AS " + name + " FROM Items", RecordsetType::Snapshot);
        EXPECT_EQ(rows.Value(name), Variant(1));
    }
    EXPECT_EQ(kept.Value("Name").AsText(), "a");
}

}  // namespace
}  // namespace dorvik
