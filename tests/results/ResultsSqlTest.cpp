// Every SQL text that a results database is written and read with, as it stands, and what it does to a
// small review of a known shape.

#include "results/FilledResultsFixture.h"
#include "results/modViolationListSql.h"
#include "support/FilesystemPaths.h"

namespace dorvik {
namespace {

/// A text, how many of its columns are looked at, and what they hold: joined with "|", the rows with "/".
struct SqlText {
    std::string_view Sql;
    int Columns;
    std::string_view Expected;
};

void PrintTo(const SqlText& text, std::ostream* out) {
    *out << text.Sql;
}

class ResultsSqlFixture : public test::FilledResultsFixture {
protected:
    std::string Joined(std::string_view sql, int columns) const {
        std::string joined;
        for (const auto& row : Rows(sql, columns)) {
            joined += (joined.empty() ? "" : "/") + row;
        }
        return joined;
    }
};

// ---- texts that read ----

class ResultsSqlReading : public ResultsSqlFixture, public testing::WithParamInterface<SqlText> {};

TEST_P(ResultsSqlReading, RunsAsItStands) {
    EXPECT_EQ(Joined(GetParam().Sql, GetParam().Columns), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Review,
    ResultsSqlReading,
    testing::Values(
        SqlText{"SELECT Version FROM SystemInfo", 1, "6.02.0000"},
        SqlText{"SELECT ReviewID, ProjectID FROM Review", 2, "1|1"},
        SqlText{
            "SELECT RulebaseTitle, RulebaseVersion, Reviewer, Start, [End], ActiveRules, "
            "RuleExecutions FROM Review",
            7,
            "House rules|1.0.0|ann|20261121 140509|20261121 140509|0|12"},
        SqlText{"SELECT * FROM Review", 5, "1|1|20261121 140509|20261121 140509|2"},
        SqlText{"SELECT * FROM Review WHERE ReviewID = 1", 2, "1|1"},
        SqlText{"SELECT * FROM Review WHERE ReviewID = 2", 2, ""},
        SqlText{"SELECT CategoryID, Category FROM CategoryList", 2, "7|Jumps/8|Clarity"},
        SqlText{
            "SELECT CategoryID, Category FROM CategoryList ORDER BY Category",
            2,
            "8|Clarity/7|Jumps"},
        SqlText{
            "SELECT SeverityColour, SeverityLevel, SeverityText, Included FROM SeverityList",
            4,
            "14|1|Critical|False/16|2|High|True/2|3|Medium|False/11|4|Low|False/15|5|Info|False"}));

INSTANTIATE_TEST_SUITE_P(
    Items,
    ResultsSqlReading,
    testing::Values(
        SqlText{
            "SELECT Name, Filename, Type FROM Projects WHERE ProjectID = 1",
            3,
            "Billing|Billing.vbp|Exe"},
        SqlText{"SELECT Filename FROM Projects", 1, "Billing.vbp"},
        SqlText{
            "SELECT SourceID, Name, Filename, Path, Type, CyclomaticComplexity FROM SourceFiles "
            "WHERE ProjectID = 1",
            6,
            "1|Billing|Billing.vbp|C:\\Src\\|Project|/2|modA|modA.bas|C:\\Src\\|Module|9/"
            "3|frmB|frmB.frm|C:\\Src\\|Form|"},
        SqlText{
            "SELECT ProcID, Name, Type, Scope, CyclomaticComplexity FROM Procedures WHERE SourceID "
            "= 2",
            5,
            "1|Declarations|||/2|Total|Function|Public|9"},
        SqlText{"SELECT Count(ProcID) FROM Procedures WHERE SourceID = 2", 1, "2"},
        SqlText{
            "SELECT Count(ProcID) FROM Procedures WHERE SourceID = 2 AND Name <> 'Declarations' "
            "AND Name <> 'Layout'",
            1,
            "1"},
        SqlText{"SELECT Count(SourceID) FROM SourceFiles", 1, "3"},
        SqlText{"SELECT Count(SourceID) FROM SourceFiles WHERE Type = 'module'", 1, "1"},
        SqlText{
            "SELECT ProcID, Name, Type, Scope FROM Procedures WHERE ProcID = 2",
            4,
            "2|Total|Function|Public"},
        SqlText{"SELECT ProcID FROM Procedures WHERE SourceID = 3", 1, "3/4"},
        SqlText{"SELECT Filename FROM SourceFiles WHERE SourceID = 2", 1, "modA.bas"},
        SqlText{"SELECT SourceID FROM Procedures WHERE ProcID = 4", 1, "3"}));

INSTANTIATE_TEST_SUITE_P(
    Figures,
    ResultsSqlReading,
    testing::Values(
        SqlText{
            "SELECT TotalCount, TotalImpact FROM ViolationStats WHERE ItemID = 2 AND ItemType = 3",
            2,
            "2|850"},
        SqlText{
            "SELECT Count(ViolationID) AS TotalCount, Sum(Impact) AS TotalImpact FROM (Violations "
            "INNER JOIN Procedures ON Violations.ItemID = Procedures.ProcID)  INNER JOIN "
            "SourceFiles ON Procedures.SourceID = SourceFiles.SourceID WHERE "
            "SourceFiles.SourceID=2 AND Violations.ItemType=3 AND  RuleType <> 1 AND CategoryID <> "
            "8",
            2,
            "2|850"},
        SqlText{
            "SELECT Count(ViolationID) As TotalCount, Sum(Impact) AS TotalImpact FROM Violations "
            "WHERE  Severity <> 1",
            2,
            "5|1410"},
        SqlText{
            "SELECT Count(ViolationID) As TotalCount, Sum(Impact) AS TotalImpact FROM Violations "
            "WHERE ItemID = 2 AND ItemType = 3 AND  RuleType <> 4",
            2,
            "1|750"},
        SqlText{
            "SELECT Count(ViolationID) As TotalCount, Sum(Impact) AS TotalImpact FROM Violations "
            "WHERE ItemID = 9 AND ItemType = 3 AND  CategoryID <> 7",
            2,
            "0|"},
        SqlText{
            "SELECT TotalCount, InlineCommentCount, CommentCount, CodeCount FROM LineCountStats "
            "WHERE ItemID = 2 AND ItemType = 2",
            4,
            "100|0|20|80"},
        SqlText{"SELECT * FROM ViolationStats WHERE ItemID = 1 AND ItemType = 2", 5, "2|1|2|1|1"},
        SqlText{
            "SELECT * FROM LineCountStats WHERE ItemID = 2 AND ItemType = 3",
            8,
            "1|2|3|20|16|0|4|0"},
        SqlText{
            "SELECT Count(Violations.ViolationID) AS ViolCount FROM Violations WHERE CategoryID = "
            "7 AND Severity = 2",
            1,
            "2"},
        SqlText{
            "SELECT Count(Violations.ViolationID) AS ViolCount FROM Violations WHERE CategoryID = "
            "-1 AND Severity = 4",
            1,
            "1"},
        SqlText{
            "SELECT Count(Violations.ViolationID) AS ViolCount FROM (SELECT "
            "Violations.ViolationID, Violations.CategoryID, Violations.Severity FROM SourceFiles "
            "INNER JOIN Violations ON SourceFiles.SourceID = Violations.ItemID WHERE "
            "SourceFiles.SourceID = 1 AND Violations.ItemType = 2) WHERE CategoryID = -1 AND "
            "Severity = 1",
            1,
            "1"},
        SqlText{
            "SELECT Count(Violations.ViolationID) AS ViolCount FROM (SELECT "
            "Violations.ViolationID, Violations.CategoryID, Violations.Severity FROM SourceFiles "
            "INNER JOIN (Procedures INNER JOIN Violations  ON Procedures.ProcID = "
            "Violations.ItemID)  ON SourceFiles.SourceID = Procedures.SourceID WHERE "
            "SourceFiles.SourceID = 2 AND Violations.ItemType = 3) WHERE CategoryID = 7 AND "
            "Severity = 2",
            1,
            "2"}));

INSTANTIATE_TEST_SUITE_P(
    Violations,
    ResultsSqlReading,
    testing::Values(
        SqlText{
            "SELECT ViolationID, RuleID, RuleType, Title, Severity, Impact, CategoryID, Completed, "
            "SourceLine, Description, Advice, LineNum FROM Violations WHERE ItemID = 2 AND "
            "ItemType = 3 ORDER BY Severity, Impact",
            12,
            "5|5000|4|Title 2|2|100|7|False|    GoTo Failed|Description|Advice|12/"
            "4|5000|3|Title 2|2|750|7|False|    GoTo Failed|Description|Advice|12"},
        SqlText{
            "SELECT * FROM Violations WHERE ViolationID = 3",
            17,
            "3|1|3|5000|3|Title 3|Description|Advice|3|500|8|12|4|Member|    GoTo "
            "Failed|0|False"},
        SqlText{"SELECT ItemID, ItemType FROM Violations WHERE ViolationID = 2", 2, "1|2"},
        SqlText{
            "SELECT SourceFiles.Name As SFName, Violations.ItemID & '_' & Violations.ItemType As "
            "ItemIDType FROM  (SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = "
            "Procedures.SourceID) INNER JOIN Violations ON Procedures.ProcID = Violations.ItemID "
            "WHERE Violations.ItemType = 3 UNION SELECT SourceFiles.Name As SFName, "
            "Violations.ItemID & '_' & Violations.ItemType As ItemIDType FROM SourceFiles INNER "
            "JOIN Violations ON SourceFiles.SourceID = Violations.ItemID WHERE Violations.ItemType "
            "= 2",
            2,
            "Billing|1_2/modA|1_3/modA|2_2/modA|2_3"}));

INSTANTIATE_TEST_SUITE_P(
    ListsOfTheView,
    ResultsSqlReading,
    testing::Values(
        SqlText{
            "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations",
            4,
            "1_1|1|1|1/1_2|2|1|2/1_3|3|1|3/2_3|4|2|3/2_3|5|2|3/2_2|6|2|2"},
        SqlText{
            "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE ItemID = 1 AND "
            "ItemType = 2",
            2,
            "1_2|2"},
        SqlText{
            "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE ItemID = 2 AND "
            "ItemType = 3",
            2,
            "2_3|4/2_3|5"},
        SqlText{
            "SELECT Violations.ItemID & '_' & Violations.ItemType As ItemIDType, Violations.* FROM "
            "(SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = Procedures.SourceID) "
            "INNER JOIN Violations ON Procedures.ProcID = Violations.ItemID WHERE "
            "(SourceFiles.SourceID = 2 AND Violations.ItemType = 3)",
            2,
            "1_3|3/2_3|4/2_3|5"},
        SqlText{
            "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE  Severity <> 2",
            2,
            "1_1|1/1_2|2/1_3|3/2_2|6"},
        SqlText{
            "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE Completed = "
            "False",
            2,
            "1_1|1/1_2|2/1_3|3/2_3|4/2_3|5/2_2|6"},
        SqlText{
            "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE Completed = "
            "True",
            2,
            ""},
        SqlText{
            "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE  Severity <> 2 "
            "AND Completed = False",
            2,
            "1_1|1/1_2|2/1_3|3/2_2|6"},
        SqlText{
            "SELECT Violations.ItemID & '_' & Violations.ItemType As ItemIDType, Violations.* FROM "
            "(SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = Procedures.SourceID) "
            "INNER JOIN Violations ON Procedures.ProcID = Violations.ItemID WHERE "
            "(SourceFiles.SourceID = 2 AND Violations.ItemType = 3) AND  CategoryID <> 8 AND "
            "Completed = False",
            2,
            "2_3|4/2_3|5"}));

INSTANTIATE_TEST_SUITE_P(
    Tolerances,
    ResultsSqlReading,
    testing::Values(
        SqlText{
            "SELECT MAX(CVCPass) As CVCResult, 0 As CVCValue, 0 As CVCTol, MAX(HVCPass) As "
            "HVCResult, 0 As HVCValue, 0 As HVCTol, MAX(MVCPass) As MVCResult, 0 As MVCValue, 0 As "
            "MVCTol, MAX(LVCPass) As LVCResult, 0 As LVCValue, 0 As LVCTol, MAX(IVCPass) As "
            "IVCResult, 0 As IVCValue, 0 As IVCTol, MAX(TVCPass) As TVCResult, 0 As TVCValue, 0 As "
            "TVCTol, MAX(CVIPass) As CVIResult, 0 As CVIValue, 0 As CVITol, MAX(HVIPass) As "
            "HVIResult, 0 As HVIValue, 0 As HVITol, MAX(MVIPass) As MVIResult, 0 As MVIValue, 0 As "
            "MVITol, MAX(LVIPass) As LVIResult, 0 As LVIValue, 0 As LVITol, MAX(IVIPass) As "
            "IVIResult, 0 As IVIValue, 0 As IVITol, MAX(TVIPass) As TVIResult, 0 As TVIValue, 0 As "
            "TVITol, MAX(PCPass) As PCResult, 0 As PCValue, 0 As PCTol, MAX(CCPass) As CCResult, 0 "
            "As CCValue, 0 As CCTol FROM SourceFiles",
            42,
            "0|0|0||0|0||0|0||0|0||0|0||0|0||0|0||0|0||0|0||0|0||0|0||0|0|-1|0|0|-1|0|0"},
        SqlText{
            "SELECT CVCPass As CVCResult, CVC As CVCValue, CVCLimit As CVCTol, HVCPass As "
            "HVCResult, HVC As HVCValue, HVCLimit As HVCTol, MVCPass As MVCResult, MVC As "
            "MVCValue, MVCLimit As MVCTol, LVCPass As LVCResult, LVC As LVCValue, LVCLimit As "
            "LVCTol, IVCPass As IVCResult, IVC As IVCValue, IVCLimit As IVCTol, TVCPass As "
            "TVCResult, TVC As TVCValue, TVCLimit As TVCTol, CVIPass As CVIResult, CVI As "
            "CVIValue, CVILimit As CVITol, HVIPass As HVIResult, HVI As HVIValue, HVILimit As "
            "HVITol, MVIPass As MVIResult, MVI As MVIValue, MVILimit As MVITol, LVIPass As "
            "LVIResult, LVI As LVIValue, LVILimit As LVITol, IVIPass As IVIResult, IVI As "
            "IVIValue, IVILimit As IVITol, TVIPass As TVIResult, TVI As TVIValue, TVILimit As "
            "TVITol, PCPass As PCResult, PC As PCValue, PCLimit As PCTol, CCPass As CCResult, CC "
            "As CCValue, CCLimit As CCTol FROM SourceFiles WHERE SourceID = 1",
            42,
            "0|1|0||||||||||||||||||||||||||||||||||-1|0|0|-1|0|0"},
        SqlText{
            "SELECT CVCPass As CVCResult, CVC As CVCValue, CVCLimit As CVCTol FROM SourceFiles "
            "WHERE SourceID = 2",
            3,
            "-1|0|0"}));

/// The filter behind ORDER BY belongs to the last sort term: the impact where it holds, 0 where not. It
/// leaves out no row.
class ResultsSqlOrder : public ResultsSqlFixture {
protected:
    void SetUp() override {
        ResultsSqlFixture::SetUp();
        m_results.Writer().LogViolation(2, ItemType::Procedure, Breach(2, 40, 8));  // violation 7
    }

    std::string Order(const std::string& clause) const {
        return Joined(
            "SELECT ViolationID, RuleID, RuleType, Title, Severity, Impact, CategoryID, Completed, "
            "SourceLine, Description, Advice, LineNum FROM Violations WHERE ItemID = 2 AND "
            "ItemType = 3 ORDER BY Severity, Impact" +
                clause,
            1);
    }
};

TEST_F(ResultsSqlOrder, AFilterBehindOrderByChangesTheOrderAndLeavesOutNoRow) {
    EXPECT_EQ(Order(""), "7/5/4");
    EXPECT_EQ(Order(" AND  CategoryID <> 8"), "7/5/4");                    // 0, 100, 750
    EXPECT_EQ(Order(" AND  CategoryID <> 7"), "4/5/7");                    // 0, 0, 40
    EXPECT_EQ(Order(" AND  RuleType <> 3 AND CategoryID <> 8"), "4/7/5");  // 0, 0, 100
    EXPECT_EQ(Order(" AND  Severity <> 2"), "4/5/7");
}

// ---- texts whose rows are edited ----

/// A text, the rows that it opens, and a field of the first of them.
class ResultsSqlEditing : public ResultsSqlFixture, public testing::WithParamInterface<SqlText> {};

TEST_P(ResultsSqlEditing, OpensRowsThatCanBeEdited) {
    Database database;
    database.Open(m_path);
    auto rows = database.OpenRecordset(GetParam().Sql, RecordsetType::Dynaset);
    std::string found;
    for (; !rows.EOF_(); rows.MoveNext()) {
        found += (found.empty() ? "" : "/") + rows.Value(0).AsText();
    }
    EXPECT_EQ(found, GetParam().Expected);
    rows.AddNew();  // does not raise
}

INSTANTIATE_TEST_SUITE_P(
    Texts,
    ResultsSqlEditing,
    testing::Values(
        SqlText{"SELECT * FROM Review WHERE ReviewID = 0", 0, ""},
        SqlText{"SELECT * FROM CategoryList WHERE CategoryListID = 0", 0, ""},
        SqlText{"SELECT * FROM SeverityList WHERE SeverityRecordID = 0", 0, ""},
        SqlText{"SELECT * FROM Projects", 0, "1"},
        SqlText{"SELECT * FROM SourceFiles WHERE Filename='modA.bas' AND Path='c:\\src\\'", 0, "2"},
        SqlText{"SELECT * FROM SourceFiles WHERE Filename='modC.bas' AND Path='C:\\Src\\'", 0, ""},
        SqlText{
            "SELECT * FROM Procedures WHERE Name = 'Total' AND SourceID = 3 AND Type = 'Sub'",
            0,
            "4"},
        SqlText{"SELECT * FROM Procedures WHERE Name = 'Layout' AND SourceID = 3", 0, "3"},
        SqlText{"SELECT * FROM Procedures WHERE Name = 'Layout' AND SourceID = 2", 0, ""},
        SqlText{"SELECT * FROM Violations WHERE ViolationID = 0", 0, ""},
        SqlText{"SELECT * FROM LineCountStats WHERE StatsID = 0", 0, ""},
        SqlText{"SELECT * FROM ViolationStats WHERE StatsID = 0", 0, ""},
        SqlText{"SELECT RuleExecutions, [End] FROM Review WHERE ReviewID = 1", 0, "12"},
        SqlText{"SELECT Name FROM Projects WHERE ProjectID = 1", 0, "Billing"},
        SqlText{"SELECT Name FROM SourceFiles WHERE SourceID = 2", 0, "modA"}));

// ---- texts that write ----

struct WritingText {
    std::string_view Sql;
    std::string_view Check;
    std::string_view Expected;
};

void PrintTo(const WritingText& text, std::ostream* out) {
    *out << text.Sql;
}

class ResultsSqlWriting : public ResultsSqlFixture,
                          public testing::WithParamInterface<WritingText> {};

TEST_P(ResultsSqlWriting, ChangesWhatItNames) {
    Database database;
    database.Open(m_path);
    database.Execute(GetParam().Sql);
    EXPECT_EQ(Joined(GetParam().Check, 1), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts,
    ResultsSqlWriting,
    testing::Values(
        WritingText{
            "UPDATE Review Set ProjectID = 5 WHERE ReviewID = 1",
            "SELECT ProjectID FROM Review",
            "5"},
        WritingText{
            "UPDATE Projects SET ExeName32 = 'Billing [End] & True.exe' WHERE ProjectID = 1",
            "SELECT ExeName32 FROM Projects",
            "Billing [End] & True.exe"},
        WritingText{
            "UPDATE SourceFiles SET CyclomaticComplexity = 4 WHERE SourceID = 3",
            "SELECT SourceID & '_' & CyclomaticComplexity FROM SourceFiles",
            "1_/2_9/3_4"},
        WritingText{
            "UPDATE Procedures SET CyclomaticComplexity = 3 WHERE ProcID = 4",
            "SELECT ProcID & '_' & CyclomaticComplexity FROM Procedures",
            "1_/2_9/3_/4_3"},
        WritingText{
            "UPDATE SourceFiles SET CVC = 3, CVCLimit = 0, CVCPass = 0, PC = 40, PCLimit = 10, "
            "PCPass = -1 WHERE SourceID = 3",
            "SELECT CVC & '_' & CVCLimit & '_' & CVCPass & '_' & PC & '_' & PCLimit & '_' & PCPass "
            "FROM SourceFiles",
            "1_0_0_0_0_-1/0_0_-1___/3_0_0_40_10_-1"}));

// ---- the rest ----

TEST(ResultsSqlTemplate, HoldsItsTablesAndOnlyTheVersion) {
    Database database;
    database.Open(test::ProgramPath(DORVIK_RESULTS_TEMPLATE));
    for (const std::string table :
         {"Review",
          "CategoryList",
          "SeverityList",
          "Projects",
          "SourceFiles",
          "Procedures",
          "Violations",
          "LineCountStats",
          "ViolationStats"}) {
        EXPECT_EQ(
            database.OpenRecordset("SELECT Count(*) FROM " + table, RecordsetType::Snapshot)
                .Value(0),
            Variant(0))
            << table;
    }
}

TEST_F(ResultsSqlFixture, AnUnknownTextIsToldWithItsPlace) {
    EXPECT_FALSE(m_results.OpenRecordSource("SELECT Name FROM Projects HAVING Name = 'a'"));
    EXPECT_TRUE(m_log.Contains("HAVING Name"));
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::GetReadOnlyRecordset"));
}

TEST_F(ResultsSqlFixture, AListThatIsBoundReportsItsFailuresItself) {
    EXPECT_THROW(
        m_results.OpenRecordSource("SELECT Nothing FROM Projects", OnFailure::Raise), BasicError);
    EXPECT_THAT(m_log.Entries(), testing::IsEmpty());
    EXPECT_EQ(m_results.Failures().Count(), 0);
    EXPECT_FALSE(
        m_results.OpenRecordSource("SELECT Version FROM SystemInfo", OnFailure::Raise)->EOF_());
}

}  // namespace
}  // namespace dorvik
