#include "RulesInReview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::RulesInReview;
using test::Script;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string kRaise = Script("Dorvik.RaiseViolation");

TEST(CodingReview, AViolationAtTheEndOfAProcedureIsReportedAtItsStart) {
    RulesInReview review;
    review.AddCoding("Ends", {34}, kRaise);
    review.Run({"modA=\nSub Work()\nx = 1\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("Ends"));
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("2"));
    EXPECT_THAT(review.Query("SELECT SourceLine FROM Violations"), ElementsAre("Sub Work()"));
    EXPECT_THAT(review.Query("SELECT RuleType FROM Violations"), ElementsAre("4"));
}

TEST(CodingReview, AViolationInABodyIsReportedAtItsLine) {
    RulesInReview review;
    review.AddCoding("Body", {30}, kRaise);
    review.Run({"modA=Sub Work()\nx = 1\nEnd Sub\n"});
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("2"));
}

TEST(CodingReview, APendingRuleThatNeverFiredRaisesNothingAtItsEndEvent) {
    RulesInReview review;
    review.AddCoding("No label", {32}, Script(""), 34);
    review.Run({"modA=Sub Work()\nx = 1\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
}

TEST(CodingReview, APendingRuleRaisesOnceHoweverOftenItWasTriggered) {
    RulesInReview review;
    review.AddCoding("Pending", {30}, Script(""), 34);
    review.Run({"modA=Sub Work()\nx = 1\ny = 2\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("Pending"));
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("1"));
}

TEST(CodingReview, ACancelledRuleRunsNoMoreUntilItsEndEventAndIsCleanAfterIt) {
    RulesInReview review;
    // The first procedure cancels at its first statement, the second never.
    review.AddCoding(
        "No handler",
        {30},
        Script("Dim s\r\nDorvik.GetObjectProperty \"Source\", \"Statement\", s\r\n"
               "Dorvik.DebugPrint \"ran \" & s\r\n"
               "If s = \"On Error GoTo 0\" Then Dorvik.CancelPendingViolation"),
        34);
    review.Run({"modA=Sub A()\nOn Error GoTo 0\nx = 1\nEnd Sub\nSub B()\nx = 2\nEnd Sub\n"});
    EXPECT_THAT(review.Query("SELECT LocMember FROM Violations"), ElementsAre("B"));
    EXPECT_THAT(review.Log(), Contains(HasSubstr("ran x = 2")));
    EXPECT_THAT(review.Log(), Not(Contains(HasSubstr("ran x = 1"))));
}

TEST(CodingReview, ARuleCanCancelItselfAtItsEndEvent) {
    RulesInReview review;
    review.AddCoding(
        "Pending",
        {28, 34},
        Script("Dim e\r\nDorvik.GetParserEvent e\r\n"
               "If InStr(e, \"end \") > 0 Then Dorvik.CancelPendingViolation"),
        34);
    review.Run({"modA=Sub A()\nEnd Sub\nSub B()\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
}

TEST(CodingReview, OfTwoCallbacksInOneScriptTheLastWins) {
    RulesInReview review;
    review.AddCoding(
        "Both", {30}, Script("Dorvik.CancelPendingViolation\r\nDorvik.RaiseViolation"), 34);
    review.Run({"modA=Sub Work()\nx = 1\nEnd Sub\n"});
    // Raised at the statement, not cancelled, and due at the end as well.
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("2", "1"));
}

TEST(CodingReview, ACommentLineInAProcedureRunsCodingConventions) {
    RulesInReview review;
    review.AddCoding("Comment", {30}, kRaise);
    review.Run({"modA=Sub Work()\n' only a comment\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("Comment"));
}

TEST(CodingReview, APendingRuleWhoseEndEventNeverCameStaysTriggeredIntoTheNextFile) {
    RulesInReview review;
    review.AddCoding("Stale", {15}, Script(""), 24);
    review.Run({
        "modA=Enum E\nOne = 1\nEnd Enum\n",
        "modB=Type T\nX As Long\nEnd Type\n",
    });
    EXPECT_THAT(review.Titles(), ElementsAre("Stale"));
    EXPECT_THAT(review.Query("SELECT SourceLine FROM Violations"), ElementsAre("Type T"));
}

TEST(CodingReview, AtOneEventNamesComeBeforeScriptsAndScriptsBeforeKeywords) {
    RulesInReview review;
    review.AddKeyword("Keyword", "Stop");
    review.AddCoding("Script", {25, 30}, kRaise);
    review.AddLeastLength("Name", ObjectType::Variable, 20);
    review.Run({"modA=Public gCount As Long\nSub Work()\nStop\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("Name", "Script", "Script", "Keyword"));
}

TEST(CodingReview, EveryCallbackReachesTheObjectsInScope) {
    RulesInReview review;
    review.AddCoding(
        "Reads",
        {28},
        Script("Dim v, e\r\n"
               "Dorvik.GetObjectProperty \"Procedure\", \"Name\", v\r\n"
               "Dorvik.GetParserEvent e\r\n"
               "Dorvik.DebugPrint v & \"/\" & e & \"/\" & Dorvik.IsClassName(\"clsA\") & \"/\" & "
               "Dorvik.IsFormName(\"frmA\") & \"/\" & "
               "Dorvik.ObjectHasProperty(\"Procedure\", \"Name\") & \"/\" & "
               "Dorvik.ObjectHasProperty(\"Nobody\", \"Name\") & \"/\" & "
               "Dorvik.ObjectHasWorkfield(\"Procedure\", \"W\")"));
    review.Run({"modA=Sub Work()\nEnd Sub\n"});
    EXPECT_THAT(
        review.Log(), Contains(HasSubstr("Work/begin Procedure/False/False/True/False/False")));
}

TEST(CodingReview, WorkfieldsKeepValuesOfAnyKindAsLongAsTheirObjectLives) {
    RulesInReview review;
    review.AddCoding(
        "Writes",
        {28},
        Script("Dim d(1)\r\nd(1) = \"kept\"\r\n"
               "Dorvik.SetObjectWorkField \"File\", \"Kept\", d\r\n"
               "Dorvik.SetObjectWorkField \"File\", \"Day\", #1/31/2000#\r\n"
               "Dorvik.SetObjectWorkField \"File\", \"Count\", CInt(7)\r\n"
               "Dorvik.SetObjectWorkField \"Nobody\", \"Count\", 1"));
    review.AddCoding(
        "Reads",
        {34},
        Script("Dim d, t, n, u\r\n"
               "Dorvik.GetObjectWorkField \"File\", \"Kept\", d\r\n"
               "Dorvik.GetObjectWorkField \"File\", \"Day\", t\r\n"
               "Dorvik.GetObjectWorkField \"File\", \"Count\", n\r\n"
               "u = \"untouched\"\r\n"
               "Dorvik.GetObjectWorkField \"Nobody\", \"Count\", u\r\n"
               "Dorvik.DebugPrint d(1) & \" \" & Year(t) & \" \" & TypeName(n) & \" \" & u\r\n"
               "Dorvik.GetObjectWorkField \"File\", \"Absent\", u\r\n"
               "Dorvik.DebugPrint \"[\" & TypeName(u) & Len(u) & \"]\""));
    review.Run({"modA=Sub Work()\nEnd Sub\n"});
    EXPECT_THAT(review.Log(), Contains(HasSubstr("kept 2000 Integer untouched")));
    EXPECT_THAT(review.Log(), Contains(HasSubstr("[String0]")));
}

TEST(CodingReview, AnUnknownPropertyIsLoggedAndGivesAnEmptyText) {
    RulesInReview review;
    review.AddCoding(
        "Reads",
        {28},
        Script("Dim v\r\nDorvik.GetObjectProperty \"Procedure\", \"Colour\", v\r\n"
               "Dorvik.DebugPrint \"<\" & v & \">\""));
    review.Run({"modA=Sub Work()\nEnd Sub\n"});
    EXPECT_THAT(
        review.Log(),
        Contains(HasSubstr("[Event:begin Procedure][Rule:5000] Virtual object property "
                           "'Procedure.Colour' not found.")));
    EXPECT_THAT(review.Log(), Contains(HasSubstr("[Rule:5000] <>")));
}

TEST(CodingReview, ARunTimeErrorOfAScriptIsLoggedWithRuleAndLineAndTheReviewContinues) {
    RulesInReview review;
    review.AddCoding("Fails", {28}, Script("Dim n\r\nn = 0\r\nn = 1 / n"));
    review.AddCoding("Runs", {28}, kRaise);
    review.Run({"modA=Sub Work()\nEnd Sub\n"});
    EXPECT_THAT(
        review.Log(),
        Contains(AllOf(
            HasSubstr("[Event:begin Procedure][Rule:5000] Sax Basic error alert: File="),
            HasSubstr(" Source="),
            HasSubstr(" Number=11"))));
    EXPECT_THAT(
        review.Log(), Contains(HasSubstr("Script of rule 5000 (Fails), line 4: Division by zero")));
    EXPECT_THAT(review.Titles(), ElementsAre("Runs"));
}

TEST(CodingReview, AScriptThatFailsAfterARaiseKeepsItsResult) {
    RulesInReview review;
    review.AddCoding("Fails", {28}, Script("Dorvik.RaiseViolation\r\nDim n\r\nn = 1 / n"));
    review.Run({"modA=Sub Work()\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("Fails"));
}

TEST(CodingReview, OneScriptThatDoesNotCompileEndsTheWholeReview) {
    RulesInReview review;
    review.AddCoding("Broken", {28}, Script("If True"));
    review.AddCoding("Whole", {28}, kRaise);
    EXPECT_EQ(review.Run({"modA=Sub Work()\nEnd Sub\n"}), SliceResult::Failed);
    EXPECT_FALSE(review.Review().HasResults("P"));
}

TEST(CodingReview, AScriptWithoutSubMainEndsTheWholeReview) {
    RulesInReview review;
    review.AddCoding("Broken", {28}, "Sub Other\r\nEnd Sub\r\n");
    EXPECT_EQ(review.Run({"modA=Sub Work()\nEnd Sub\n"}), SliceResult::Failed);
}

TEST(CodingReview, TheRuleCountOfTheResultsCountsEachRunOfAScript) {
    RulesInReview review;
    review.AddCoding("Runs", {28}, Script(""));
    review.Run({"modA=Sub A()\nEnd Sub\nSub B()\nEnd Sub\n"});
    EXPECT_THAT(review.Query("SELECT RuleExecutions FROM Review"), ElementsAre("2"));
}

TEST(CodingReview, AScriptThatIsStoppedThreeTimesDisablesItsRule) {
    RulesInReview review;
    basic::ScriptLimits limits;
    limits.Instructions = 10'000;
    review.Review().SetScriptLimits(limits);
    // Pending: once disabled it can never cancel, so it must not raise either.
    review.AddCoding("Endless", {28}, Script("Do\r\nLoop"), 34);
    review.AddCoding("Fine", {28}, kRaise);
    std::string procedures = "modA=";
    for (const char* name : {"A", "B", "C", "D", "E"}) {
        procedures += std::string("Sub ") + name + "()\nEnd Sub\n";
    }
    review.Run({procedures});
    EXPECT_THAT(
        review.Query("SELECT LocMember FROM Violations WHERE RuleID = 5000"),
        ElementsAre("A", "B"));
    EXPECT_EQ(review.Query("SELECT LocMember FROM Violations WHERE RuleID = 5001").size(), 5U);
    EXPECT_THAT(
        review.Log(),
        Contains(HasSubstr("Disabled for the rest of the review, because its script was stopped "
                           "3 times: rule 5000 (Endless)")));
    EXPECT_THAT(review.Query("SELECT RuleExecutions FROM Review"), ElementsAre("8"));
}

TEST(CodingReview, ARuleWithoutAScriptRaisesNothing) {
    RulesInReview review;
    review.AddCoding("Empty", {28}, "");
    review.Run({"modA=Sub A()\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(review.Query("SELECT RuleExecutions FROM Review"), ElementsAre("1"));
}

TEST(CodingReview, WithoutTheirFlagNoCodingConventionRuns) {
    RulesInReview review;
    review.Review().Criteria().LoadCriteria().SetCodingConventions(false);
    review.AddCoding("Runs", {28}, kRaise);
    review.Run({"modA=Sub A()\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), IsEmpty());
}

}  // namespace

}  // namespace dorvik
