#include "platform/database/JetSql.h"

#include "base/BasicError.h"
#include "platform/database/Database.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

JetTranslation Translated(std::string_view text) {
    return modJetSql::Translate(modJetSql::Tokenise(text), text);
}

std::string ErrorOf(std::string_view text) {
    try {
        Translated(text);
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), databaseerror::kSyntax);
        return error.what();
    }
    return "";
}

struct SqlRow {
    std::string_view Jet;
    std::string_view Sqlite;
};

void PrintTo(const SqlRow& row, std::ostream* out) {
    *out << row.Jet;
}

class JetSqlRows : public testing::TestWithParam<SqlRow> {};

TEST_P(JetSqlRows, IsTranslated) {
    EXPECT_EQ(Translated(GetParam().Jet).Sql, GetParam().Sqlite);
}

INSTANTIATE_TEST_SUITE_P(
    Constructs,
    JetSqlRows,
    testing::Values(
        SqlRow{
            "SELECT * FROM Review WHERE ReviewID = 0",
            "SELECT * FROM [Review] WHERE [ReviewID] = ?"},
        SqlRow{
            "SELECT RuleExecutions, [End] FROM Review",
            "SELECT [RuleExecutions] AS [RuleExecutions], [End] AS [End] FROM [Review]"},
        SqlRow{"select  Count(*)   from\tT", "SELECT Count(*) AS [Expr1000] FROM [T]"},
        SqlRow{
            "SELECT Count(A), Max(B) FROM T",
            "SELECT Count([A]) AS [Expr1000], Max([B]) AS [Expr1001] FROM [T]"},
        SqlRow{
            "SELECT A & '_' & B As C, * FROM T",
            "SELECT (ifnull((ifnull([A], '') || ifnull(?, '')), '') || ifnull([B], '')) AS [C], * "
            "FROM [T]"},
        SqlRow{"SELECT T.*, T.A FROM T", "SELECT [T].*, [T].[A] AS [A] FROM [T]"},
        SqlRow{
            "SELECT * FROM T WHERE Completed = False AND A = True",
            "SELECT * FROM [T] WHERE [Completed] = 0 AND [A] = -1"},
        SqlRow{
            "SELECT * FROM T WHERE A <> -1 OR NOT B >= 2.5 AND C IS NOT NULL",
            "SELECT * FROM [T] WHERE [A] <> -(?) OR NOT [B] >= ? AND [C] IS NOT NULL"},
        SqlRow{
            "SELECT * FROM (A INNER JOIN B ON A.X = B.X)  INNER JOIN C ON B.Y = C.Y",
            "SELECT * FROM ([A] INNER JOIN [B] ON [A].[X] = [B].[X]) INNER JOIN [C] ON [B].[Y] = "
            "[C].[Y]"},
        SqlRow{
            "SELECT DISTINCT A FROM T GROUP BY A ORDER BY A DESC, B ASC",
            "SELECT DISTINCT [A] AS [A] FROM [T] GROUP BY [A] ORDER BY [A] DESC, [B] ASC"},
        SqlRow{
            "SELECT A FROM T UNION SELECT B FROM U UNION ALL SELECT C FROM V",
            "SELECT [A] AS [A] FROM [T] UNION SELECT [B] AS [B] FROM [U] UNION ALL "
            "SELECT [C] AS [C] FROM [V]"},
        SqlRow{
            "UPDATE T Set A = 1, [B] = 'x' WHERE C = 2",
            "UPDATE [T] SET [A] = ?, [B] = ? WHERE [C] = ?"},
        SqlRow{
            "SELECT A + B * 2 - C / 3 FROM T",
            "SELECT [A] + [B] * ? - 1.0 * [C] / ? AS [Expr1000] FROM [T]"},
        SqlRow{"SELECT * FROM [Order By] AS T", "SELECT * FROM [Order By] AS [T]"}));

TEST(JetSql, AndBehindOrderByBelongsToTheLastSortExpression) {
    EXPECT_EQ(
        Translated("SELECT * FROM V WHERE A = 1 ORDER BY Severity, Impact AND  RuleType <> 1").Sql,
        "SELECT * FROM [V] WHERE [A] = ? ORDER BY [Severity], "
        "JetAnd([Impact], (-([RuleType] <> ?)))");
}

TEST(JetSql, LogicalOperatorsWorkBitByBitWhereAnOperandIsANumber) {
    EXPECT_EQ(
        Translated("SELECT A FROM T WHERE A = 1 AND B = 2 OR C = 3").Sql,
        "SELECT [A] AS [A] FROM [T] WHERE [A] = ? AND [B] = ? OR [C] = ?");
    EXPECT_EQ(
        Translated("SELECT A FROM T WHERE Done AND B = 2").Sql,
        "SELECT [A] AS [A] FROM [T] WHERE JetAnd([Done], (-([B] = ?)))");
    EXPECT_EQ(
        Translated("SELECT A OR 4 AS X FROM T WHERE NOT Done").Sql,
        "SELECT JetOr([A], ?) AS [X] FROM [T] WHERE ~([Done])");
}

TEST(JetSql, AComparisonAsAValueCountsMinusOneForTrue) {
    EXPECT_EQ(
        Translated("SELECT A = B AS Same FROM T WHERE (A = B) = True").Sql,
        "SELECT (-([A] = [B])) AS [Same] FROM [T] WHERE (-(([A] = [B]))) = -1");
}

TEST(JetSql, ASubQueryWithoutANameAnswersToTheTableOfItsColumns) {
    EXPECT_EQ(
        Translated("SELECT Count(V.ID) FROM (SELECT V.ID, V.X FROM S INNER JOIN V ON S.A = V.A) "
                   "WHERE X = 1")
            .Sql,
        "SELECT Count([V].[ID]) AS [Expr1000] FROM (SELECT [V].[ID] AS [ID], [V].[X] AS [X] FROM "
        "[S] "
        "INNER JOIN [V] ON [S].[A] = [V].[A]) AS [V] WHERE [X] = ?");
}

TEST(JetSql, NothingInsideALiteralIsTouched) {
    const auto tokens = modJetSql::Tokenise("SELECT * FROM T WHERE A = '[End] & True  ''x'' \"'");
    ASSERT_EQ(tokens.Literals.size(), 1U);
    EXPECT_EQ(std::get<std::string>(tokens.Literals[0]), "[End] & True  'x' \"");
}

TEST(JetSql, LiteralsKeepTheirKind) {
    const auto tokens = modJetSql::Tokenise("1 2.5 'a' \"b\" 3000000000 1e3");
    EXPECT_EQ(
        tokens.Literals,
        (std::vector<SqlLiteral>{
            std::int64_t{1},
            2.5,
            std::string("a"),
            std::string("b"),
            std::int64_t{3000000000},
            1000.0}));
}

TEST(JetSql, TextsThatDifferInLiteralsAndBlanksHaveOneShape) {
    const auto shape = modJetSql::Tokenise("SELECT * FROM T WHERE A = 1 AND B = 'x'").Shape;
    EXPECT_EQ(modJetSql::Tokenise("SELECT *  FROM T WHERE A=22 AND B='yy'").Shape, shape);
    EXPECT_NE(modJetSql::Tokenise("SELECT * FROM T WHERE A = 1 OR B = 'x'").Shape, shape);
    EXPECT_NE(
        modJetSql::Tokenise("SELECT [A B] FROM T").Shape,
        modJetSql::Tokenise("SELECT A B FROM T").Shape);
}

TEST(JetSql, RowsOfOneTableWithPlainColumnsCanBeEdited) {
    const auto all = Translated("SELECT * FROM Review WHERE ReviewID = 0");
    EXPECT_EQ(all.EditableTable, "Review");
    EXPECT_TRUE(all.EditableFields.empty());
    EXPECT_EQ(all.KeySql, "SELECT rowid FROM [Review] WHERE [ReviewID] = ?");
    const auto some = Translated("SELECT RuleExecutions, [End] FROM Review ORDER BY Start");
    EXPECT_EQ(some.EditableFields, (std::vector<std::string>{"RuleExecutions", "End"}));
    EXPECT_EQ(some.KeySql, "SELECT rowid FROM [Review] ORDER BY [Start]");
}

TEST(JetSql, RowsOfAnythingElseCannotBeEdited) {
    for (const std::string_view text :
         {"SELECT Count(A) FROM T",
          "SELECT DISTINCT A FROM T",
          "SELECT A AS B FROM T",
          "SELECT * FROM T, U",
          "SELECT * FROM T AS U",
          "SELECT A FROM T UNION SELECT A FROM U",
          "SELECT A FROM T INNER JOIN U ON T.X = U.X",
          "SELECT *, A FROM T",
          "UPDATE T SET A = 1",
          "SELECT A FROM T GROUP BY A",
          "SELECT * FROM (SELECT A FROM T)"}) {
        EXPECT_EQ(Translated(text).EditableTable, "") << text;
    }
}

TEST(JetSql, ATextNotUnderstoodIsAnErrorThatQuotesThePlace) {
    EXPECT_EQ(
        ErrorOf("SELECT A FROM T WHERE A LIKE 'x'"),
        "SQL syntax error at \"LIKE 'x'\": SELECT A FROM T WHERE A LIKE 'x'");
    EXPECT_EQ(ErrorOf("SELECT A FROM"), "SQL syntax error at its end: SELECT A FROM");
}

TEST(JetSql, WhatIsOutsideTheGrammarIsRefused) {
    for (const std::string_view text :
         {"",
          "DELETE FROM T",
          "SELECT FROM T",
          "SELECT A, FROM T",
          "SELECT A FROM T WHERE",
          "UPDATE T SET A",
          "UPDATE T SET A = ",
          "UPDATE T SET A = , B = 1",
          "SELECT Iif(A) FROM T",
          "SELECT A FROM (T",
          "x",
          "SELECT A FROM T; DROP TABLE T",
          "SELECT A FROM T ORDER BY 1",
          "SELECT A FROM T -- x",
          "SELECT 12ab FROM T",
          "SELECT [A FROM T",
          "SELECT [] FROM T",
          "SELECT 'a FROM T",
          "SELECT A FROM 'T'",
          "SELECT A FROM T WHERE Name = 'O'Brien'"}) {
        EXPECT_NE(ErrorOf(text), "") << text;
    }
}

TEST(JetSql, DeepNestingIsRefusedInsteadOfRunningOutOfStack) {
    EXPECT_NE(ErrorOf("SELECT A FROM T WHERE " + std::string(100000, '(')), "");
    EXPECT_NE(ErrorOf("SELECT A FROM T WHERE A = " + std::string(100000, '-')), "");
    std::string nots = "SELECT A FROM T WHERE ";
    std::string tables = "SELECT A FROM ";
    for (int i = 0; i < 100000; ++i) {
        nots += "NOT ";
        tables += "(SELECT A FROM ";
    }
    EXPECT_NE(ErrorOf(nots), "");
    EXPECT_NE(ErrorOf(tables), "");
}

}  // namespace
}  // namespace dorvik
