#include "RulesInReview.h"
#include "rulebase/model/TagItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::RulesInReview;
using test::Script;
using testing::ElementsAre;

/// One procedure with a forbidden keyword, and a rule of each kind that has something to say about it.
class ViolationsEndToEnd : public testing::Test {
protected:
    ViolationsEndToEnd() {
        UnauthorisedKeyword& keyword = m_review.AddKeyword("Keyword", "\\bStop\\b");
        ViolationDefinition& definition = keyword.ViolationDefinition();
        definition.SetDescription("%Procedure.Name% of %File.Name% stops.");
        definition.SetSeverity(2);
        definition.SetImpact(750);
        m_review.AddCoding("Script", {30}, Script("Dorvik.RaiseViolation"));
        m_review.AddCoding("Pending", {28}, Script(""), 34);
        m_review.AddLeastLength("Name", ObjectType::SubProcedure, 4);
        m_review.Review().Criteria().Tolerances().Count.SetItem(2, 0);
        m_review.Run({"modA=Option Explicit\n\nPrivate Sub Foo()\n    Stop\nEnd Sub\n"});
    }

    std::vector<std::string> Query(const std::string& sql) { return m_review.Query(sql); }

    RulesInReview m_review;
};

TEST_F(ViolationsEndToEnd, ScriptsRunBeforeKeywordsAndPendingViolationsAfterTheNames) {
    EXPECT_THAT(m_review.Titles(), ElementsAre("Script", "Keyword", "Name", "Pending"));
}

TEST_F(ViolationsEndToEnd, TheStatementIsReportedAtItsLineAndTheEndAtItsStart) {
    EXPECT_THAT(Query("SELECT LineNum FROM Violations"), ElementsAre("4", "4", "3", "3"));
    EXPECT_THAT(
        Query("SELECT SourceLine FROM Violations"),
        ElementsAre("    Stop", "    Stop", "Private Sub Foo()", "Private Sub Foo()"));
    EXPECT_THAT(Query("SELECT Loc FROM Violations"), ElementsAre("4", "4", "4", "4"));
}

TEST_F(ViolationsEndToEnd, ItsTextsAreExpandedAgainstTheObjectsInScope) {
    EXPECT_THAT(
        Query("SELECT Description FROM Violations WHERE Title = 'Keyword'"),
        ElementsAre("Foo of modA stops."));
}

TEST_F(ViolationsEndToEnd, EachHasOneRowAndCountsOnEveryObjectUpTheChain) {
    EXPECT_THAT(Query("SELECT ItemType FROM Violations"), ElementsAre("3", "3", "3", "3"));
    // The procedure and the declarations; the file and the project file; the project.
    EXPECT_THAT(
        Query("SELECT TotalCount FROM ViolationStats WHERE ItemType = 3"), ElementsAre("4", "0"));
    EXPECT_THAT(
        Query("SELECT TotalCount FROM ViolationStats WHERE ItemType = 2"), ElementsAre("4", "0"));
    EXPECT_THAT(
        Query("SELECT HighImpact FROM ViolationStats WHERE ItemType = 1"), ElementsAre("750"));
}

TEST_F(ViolationsEndToEnd, TheFileHasItsVerdictAndTheProjectItsOwn) {
    EXPECT_THAT(Query("SELECT HVC FROM SourceFiles WHERE Type = 'Module'"), ElementsAre("1"));
    EXPECT_THAT(Query("SELECT HVCPass FROM SourceFiles WHERE Type = 'Module'"), ElementsAre("0"));
    EXPECT_THAT(Query("SELECT HVCPass FROM SourceFiles WHERE Type = 'Project'"), ElementsAre("-1"));
}

}  // namespace

}  // namespace dorvik
