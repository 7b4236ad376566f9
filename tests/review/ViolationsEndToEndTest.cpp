#include "RulesInReview.h"
#include "rulebase/model/TagItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::Item;
using test::RulesInReview;
using test::Script;
using testing::ElementsAre;
using testing::IsEmpty;

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
        NamingConvention& naming = m_review.AddNaming("Name", ObjectType::SubProcedure);
        naming.SetBodyActive(true);
        naming.SetMinBodyLength(4);
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

/// The usual standard: scope tag, array tag, data type tag, then a capital. It is the only rule.
class WorkedExample : public testing::Test {
protected:
    explicit WorkedExample(const std::string& stringTag = "s") {
        NamingConvention& rule = m_review.AddNaming("Variable", ObjectType::Variable);
        rule.SetCaseSensitive(true);
        rule.SetPrefixActive(true);
        *rule.PrefixItems().Item(1) = Item(psScopeTag);
        *rule.PrefixItems().Item(2) = Item(psArrayTag);
        *rule.PrefixItems().Item(3) = Item(psDataTypeTag);
        rule.SetPrefixAdvice("Start with the scope and type tags.");
        rule.SetBodyActive(true);
        rule.SetBodyPattern("^[A-Z][a-zA-Z0-9]*$");
        rule.SetMinBodyLength(3);
        rule.SetBodyAdvice("Body.");
        Rulebase& rules = m_review.Rules();
        rules.ScopeTags().Item("Private (Module level)")->SetTagValue("m_");
        rules.DataTypeTags().Item("String")->SetTagValue(stringTag);
        rules.SetArrayTag("a");
    }

    std::vector<std::string> AdviceOn(const std::string& declaration) {
        m_review.Run({"modA=" + declaration + "\n"});
        return m_review.Query("SELECT Advice FROM Violations");
    }

    RulesInReview m_review;
};

TEST_F(WorkedExample, ANameOfTheStandardRaisesNothing) {
    EXPECT_THAT(AdviceOn("Private m_asNames() As String"), IsEmpty());
}

TEST_F(WorkedExample, AWrongPrefixIsReportedAndTheBodyIsNotTested) {
    EXPECT_THAT(
        AdviceOn("Private m_names() As String"),
        ElementsAre("Start with the scope and type tags."));
}

TEST_F(WorkedExample, ARightPrefixWithAShortBodyIsReportedWithTheAdviceOfTheBody) {
    EXPECT_THAT(AdviceOn("Private m_asNo() As String"), ElementsAre("Body."));
}

class WorkedExampleWithAlternatives : public WorkedExample {
protected:
    WorkedExampleWithAlternatives() : WorkedExample("s|str") {}
};

TEST_F(WorkedExampleWithAlternatives, TheLongestAlternativeIsThePrefix) {
    EXPECT_THAT(AdviceOn("Private m_astrNames() As String"), IsEmpty());
}

TEST_F(WorkedExampleWithAlternatives, TheShorterOneServesAsWell) {
    EXPECT_THAT(AdviceOn("Private m_asNames() As String"), IsEmpty());
}

}  // namespace

}  // namespace dorvik
