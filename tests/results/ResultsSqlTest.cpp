// Every SQL text that reads a results database, as it stands, on a small review of a known shape.

#include "results/ResultsDBFixture.h"

namespace dorvik {
namespace {

/// A query and its rows, the first columns joined with "|", the rows with "/".
struct Query {
    std::string_view Sql;
    int Columns;
    std::string_view Expected;
};

void PrintTo(const Query& query, std::ostream* out) {
    *out << query.Sql;
}

class ResultsSql : public test::ResultsDBFixture, public testing::WithParamInterface<Query> {
protected:
    /// Project Billing with the project file (1 violation) and modA (2 in procedure Total, 1 in its
    /// declarations).
    void SetUp() override {
        ResultsDBFixture::SetUp();
        AddCategory(7, "Jumps");
        AddCategory(8, "Clarity");
        Start();
        SetUpProject();
        SetUpFile("Billing", "VBP");
        SetUpFile("modA");
        VirtualObject declarations;
        m_results.SetupVObjectResults("Declarations", declarations);
        SetUpProcedure("Total", "Function");
        m_results.LogViolation(1, 2, Breach(1, 900, -1));
        m_results.LogViolation(1, 3, Breach(3, 500, 8));
        m_results.LogViolation(2, 3, Breach(2, 750, 7));
        m_results.LogViolation(2, 3, Breach(2, 100, 7));
        m_results.EndReview(12);
    }
};

TEST_P(ResultsSql, RunsAsItStands) {
    std::string joined;
    for (const auto& row : Rows(GetParam().Sql, GetParam().Columns)) {
        joined += (joined.empty() ? "" : "/") + row;
    }
    EXPECT_EQ(joined, GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts,
    ResultsSql,
    testing::Values(
        Query{"SELECT Version FROM SystemInfo", 1, "6.02.0000"},
        Query{"SELECT ReviewID, ProjectID FROM Review", 2, "1|1"},
        Query{
            "SELECT RulebaseTitle, RulebaseVersion, Reviewer, Start, [End], ActiveRules, "
            "RuleExecutions "
            "FROM Review",
            7,
            "Untitled|1.0.0|ann|20261121 140509|20261121 140509|0|12"},
        Query{"SELECT * FROM Review", 2, "1|1"},
        Query{"SELECT CategoryID, Category FROM CategoryList", 2, "7|Jumps/8|Clarity"},
        Query{
            "SELECT CategoryID, Category FROM CategoryList ORDER BY Category",
            2,
            "8|Clarity/7|Jumps"},
        Query{
            "SELECT SeverityColour, SeverityLevel, SeverityText, Included FROM SeverityList",
            2,
            "14|1/16|2/2|3/11|4/15|5"},
        Query{
            "SELECT TotalCount, TotalImpact FROM ViolationStats WHERE ItemID = 1 AND ItemType = 2",
            2,
            ""},
        Query{
            "SELECT Count(ViolationID) AS TotalCount, Sum(Impact) AS TotalImpact FROM (Violations "
            "INNER "
            "JOIN Procedures ON Violations.ItemID = Procedures.ProcID)  INNER JOIN SourceFiles ON "
            "Procedures.SourceID = SourceFiles.SourceID WHERE SourceFiles.SourceID=2 AND "
            "Violations.ItemType=3 AND  RuleType <> 1 AND CategoryID <> 8",
            2,
            "2|850"},
        Query{
            "SELECT Count(ViolationID) As TotalCount, Sum(Impact) AS TotalImpact FROM Violations "
            "WHERE  "
            "Severity <> 1",
            2,
            "3|1350"},
        Query{
            "SELECT Count(ViolationID) As TotalCount, Sum(Impact) AS TotalImpact FROM Violations "
            "WHERE "
            "ItemID = 9 AND ItemType = 3 AND  CategoryID <> 7",
            2,
            "0|"},
        Query{
            "SELECT Name, Filename, Type FROM Projects WHERE ProjectID = 1",
            3,
            "Billing|Billing.vbp|Exe"},
        Query{
            "SELECT SourceID, Name, Filename, Path, Type, CyclomaticComplexity FROM SourceFiles "
            "WHERE "
            "ProjectID = 1",
            3,
            "1|Billing|Billing.bas/2|modA|modA.bas"},
        Query{
            "SELECT ProcID, Name, Type, Scope, CyclomaticComplexity FROM Procedures WHERE SourceID "
            "= 2",
            4,
            "1|Declarations||/2|Total|Function|Public"},
        Query{
            "SELECT TotalCount, InlineCommentCount, CommentCount, CodeCount FROM LineCountStats "
            "WHERE "
            "ItemID = 1 AND ItemType = 2",
            1,
            ""},
        Query{
            "SELECT Count(ProcID) FROM Procedures WHERE SourceID = 2 AND Name <> 'Declarations' "
            "AND Name "
            "<> 'Layout'",
            1,
            "1"},
        Query{"SELECT Count(SourceID) FROM SourceFiles WHERE Type = 'module'", 1, "2"},
        Query{"SELECT ProcID, Name, Type, Scope FROM Procedures WHERE ProcID = 2", 2, "2|Total"},
        Query{
            "SELECT ViolationID, RuleID, RuleType, Title, Severity, Impact, CategoryID, Completed, "
            "SourceLine, Description, Advice, LineNum FROM Violations WHERE ItemID = 2 AND "
            "ItemType = 3 "
            "ORDER BY Severity, Impact",
            1,
            "4/3"},
        Query{"SELECT * FROM Violations WHERE ViolationID = 3", 3, "3|2|3"},
        Query{"SELECT ItemID, ItemType FROM Violations WHERE ViolationID = 1", 2, "1|2"},
        Query{"SELECT * FROM ViolationStats WHERE ItemID = 1 AND ItemType = 1", 1, ""},
        Query{"SELECT * FROM LineCountStats WHERE ItemID = 1 AND ItemType = 1", 1, ""},
        Query{
            "SELECT Count(Violations.ViolationID) AS ViolCount FROM Violations WHERE CategoryID = "
            "7 AND "
            "Severity = 2",
            1,
            "2"},
        Query{
            "SELECT Count(Violations.ViolationID) AS ViolCount FROM (SELECT "
            "Violations.ViolationID, "
            "Violations.CategoryID, Violations.Severity FROM SourceFiles INNER JOIN Violations ON "
            "SourceFiles.SourceID = Violations.ItemID WHERE SourceFiles.SourceID = 1 AND "
            "Violations.ItemType = 2) WHERE CategoryID = -1 AND Severity = 1",
            1,
            "1"},
        Query{
            "SELECT Count(Violations.ViolationID) AS ViolCount FROM (SELECT "
            "Violations.ViolationID, "
            "Violations.CategoryID, Violations.Severity FROM SourceFiles INNER JOIN (Procedures "
            "INNER JOIN "
            "Violations  ON Procedures.ProcID = Violations.ItemID)  ON SourceFiles.SourceID = "
            "Procedures.SourceID WHERE SourceFiles.SourceID = 2 AND Violations.ItemType = 3) WHERE "
            "CategoryID = 7 AND Severity = 2",
            1,
            "2"},
        Query{
            "SELECT SourceFiles.Name As SFName, Violations.ItemID & '_' & Violations.ItemType As "
            "ItemIDType FROM  (SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = "
            "Procedures.SourceID) INNER JOIN Violations ON Procedures.ProcID = Violations.ItemID "
            "WHERE "
            "Violations.ItemType = 3 UNION SELECT SourceFiles.Name As SFName, Violations.ItemID & "
            "'_' & "
            "Violations.ItemType As ItemIDType FROM SourceFiles INNER JOIN Violations ON "
            "SourceFiles.SourceID = Violations.ItemID WHERE Violations.ItemType = 2",
            2,
            "Billing|1_2/modA|1_3/modA|2_3"},
        Query{"SELECT Name FROM Projects WHERE ProjectID = 1", 1, "Billing"},
        Query{"SELECT Filename FROM SourceFiles WHERE SourceID = 2", 1, "modA.bas"},
        Query{
            "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE ItemID = 1 AND "
            "ItemType = 2",
            2,
            "1_2|1"},
        Query{
            "SELECT Violations.ItemID & '_' & Violations.ItemType As ItemIDType, Violations.* FROM "
            "(SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = Procedures.SourceID) "
            "INNER JOIN "
            "Violations ON Procedures.ProcID = Violations.ItemID WHERE (SourceFiles.SourceID = 2 "
            "AND "
            "Violations.ItemType = 3) AND Completed = False",
            2,
            "1_3|2/2_3|3/2_3|4"},
        Query{
            "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE  Severity <> 2 "
            "AND "
            "Completed = False",
            2,
            "1_2|1/1_3|2"}));

// The filter stands behind ORDER BY: it sorts by whether it holds and leaves out no row.
TEST_F(ResultsSql, AFilterBehindOrderByLeavesOutNoRow) {
    EXPECT_THAT(
        Rows("SELECT ViolationID FROM Violations WHERE ItemID = 2 AND ItemType = 3 ORDER BY "
             "Severity, Impact "
             "AND  Severity <> 2"),
        testing::SizeIs(2));
}

TEST_F(ResultsSql, TheTemplateHoldsItsTablesAndOnlyTheVersion) {
    Database database;
    database.Open(modFiles::FromHostPath(DORVIK_RESULTS_TEMPLATE));
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

}  // namespace
}  // namespace dorvik
