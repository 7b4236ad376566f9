#include "results/modViolationListSql.h"

#include <gtest/gtest.h>

namespace dorvik::modViolationListSql {
namespace {

TEST(modViolationListSql, EachScopeHasItsText) {
    EXPECT_EQ(
        ViolationListSql(Scope::All, 0, "", false),
        "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations");
    EXPECT_EQ(
        ViolationListSql(Scope::ProjectFile, 4, "", false),
        "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE ItemID = 4 AND "
        "ItemType = 2");
    EXPECT_EQ(
        ViolationListSql(Scope::Procedure, 4, "", false),
        "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE ItemID = 4 AND "
        "ItemType = 3");
    EXPECT_EQ(
        ViolationListSql(Scope::SourceFile, 4, "", false),
        "SELECT Violations.ItemID & '_' & Violations.ItemType As ItemIDType, Violations.* FROM "
        "(SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = Procedures.SourceID) INNER "
        "JOIN Violations ON Procedures.ProcID = Violations.ItemID WHERE (SourceFiles.SourceID = 4 "
        "AND Violations.ItemType = 3)");
}

TEST(modViolationListSql, WithAllFilesTheFilterTakesTheWhereAndTheCompletedTestTheAnd) {
    const std::string all = ViolationListSql(Scope::All, 0, "", false);
    EXPECT_EQ(
        ViolationListSql(Scope::All, 0, " Severity <> 5", true),
        all + " WHERE  Severity <> 5 AND Completed = False");
    EXPECT_EQ(ViolationListSql(Scope::All, 0, "", true), all + " WHERE Completed = False");
}

TEST(modViolationListSql, AnItemAlreadyHasItsWhere) {
    const std::string item = ViolationListSql(Scope::Procedure, 4, "", false);
    EXPECT_EQ(
        ViolationListSql(Scope::Procedure, 4, " Severity <> 5", true),
        item + " AND  Severity <> 5 AND Completed = False");
}

TEST(modViolationListSql, OneViolationHasTheSameColumns) {
    EXPECT_EQ(
        ViolationSql(4),
        "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE ViolationID = 4");
}

}  // namespace
}  // namespace dorvik::modViolationListSql
