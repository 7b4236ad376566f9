#include "enforcement/EventActions.h"

#include "ReviewRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::KeywordRule;
using test::ModuleWith;
using test::ReviewRun;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Reviews one module of that text against the rules.
void ReviewModule(ReviewRun& run, const std::string& text, const std::vector<KeywordRule>& rules) {
    run.SetRules(rules);
    run.AddProject("P.vbp", "Module=modA; modA.bas\nType=Exe\nName=\"P\"\n");
    run.AddFile("modA.bas", text);
    run.Run();
}

KeywordRule Rule(const std::string& title, const std::string& pattern) {
    KeywordRule rule;
    rule.Title = title;
    rule.Pattern = pattern;
    return rule;
}

TEST(EventActions, AViolationFromStatementToRow) {
    ReviewRun run;
    KeywordRule rule = Rule("No Stop", "\\bStop\\b");
    rule.Severity = 2;
    rule.Description = "%Procedure.Name% in %File.Name% stops.";
    rule.Advice = "Take it out of line %Source.LineNumber%.";
    ReviewModule(run, ModuleWith("modA", "    x = 1\n    If x Then Stop ' here\n"), {rule});
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), ElementsAre("No Stop"));
    EXPECT_THAT(
        run.Query("P", "SELECT Description FROM Violations"), ElementsAre("Work in modA stops."));
    EXPECT_THAT(
        run.Query("P", "SELECT Advice FROM Violations"), ElementsAre("Take it out of line 4."));
    EXPECT_THAT(run.Query("P", "SELECT Severity FROM Violations"), ElementsAre("2"));
    EXPECT_THAT(run.Query("P", "SELECT Impact FROM Violations"), ElementsAre("500"));
    EXPECT_THAT(run.Query("P", "SELECT RuleType FROM Violations"), ElementsAre("3"));
    EXPECT_THAT(run.Query("P", "SELECT RuleID FROM Violations"), ElementsAre("5000"));
    EXPECT_THAT(run.Query("P", "SELECT LineNum FROM Violations"), ElementsAre("4"));
    EXPECT_THAT(run.Query("P", "SELECT Loc FROM Violations"), ElementsAre("4"));
    EXPECT_THAT(run.Query("P", "SELECT LocMember FROM Violations"), ElementsAre("Work"));
    EXPECT_THAT(
        run.Query("P", "SELECT SourceLine FROM Violations"),
        ElementsAre("    If x Then Stop ' here"));
    EXPECT_THAT(run.Query("P", "SELECT CategoryID FROM Violations"), ElementsAre("-1"));
}

TEST(EventActions, ViolationCountsRollUpFromProcedureToFileToProject) {
    ReviewRun run;
    ReviewModule(run, ModuleWith("modA", "Stop\nStop\n"), {Rule("No Stop", "\\bStop\\b")});
    EXPECT_THAT(
        run.Query("P", "SELECT TotalCount FROM ViolationStats WHERE ItemType = 1"),
        ElementsAre("2"));
    EXPECT_THAT(
        run.Query("P", "SELECT MediumImpact FROM ViolationStats WHERE ItemType = 1"),
        ElementsAre("1000"));
    // The module, and the project file, whose own count is not touched by a module's violation.
    EXPECT_THAT(
        run.Query("P", "SELECT TotalCount FROM ViolationStats WHERE ItemType = 2"),
        ElementsAre("2", "0"));
    // The procedure, and the declarations section.
    EXPECT_THAT(
        run.Query("P", "SELECT TotalCount FROM ViolationStats WHERE ItemType = 3"),
        ElementsAre("2", "0"));
}

TEST(EventActions, CommentOnlyLineInAProcedureRunsNoKeyword) {
    ReviewRun run;
    ReviewModule(run, ModuleWith("modA", "' Stop\n    Rem Stop\n"), {Rule("No Stop", "Stop")});
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), IsEmpty());
}

TEST(EventActions, KeywordInAStringOrAnInLineCommentIsNotFlagged) {
    ReviewRun run;
    ReviewModule(run, ModuleWith("modA", "x = \"Stop\" ' Stop\n"), {Rule("No Stop", "Stop")});
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), IsEmpty());
}

TEST(EventActions, KeywordTestMindsCase) {
    ReviewRun run;
    ReviewModule(run, ModuleWith("modA", "stop\n"), {Rule("No Stop", "\\bStop\\b")});
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), IsEmpty());
}

TEST(EventActions, LeadingBlanksAreGoneBeforeAKeywordIsTested) {
    ReviewRun run;
    ReviewModule(run, ModuleWith("modA", "        Stop\n"), {Rule("Begins with Stop", "^Stop$")});
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), ElementsAre("Begins with Stop"));
}

TEST(EventActions, AMatchDoesNotStopTheList) {
    ReviewRun run;
    ReviewModule(
        run,
        ModuleWith("modA", "Stop\n"),
        {Rule("First", "Stop"), Rule("Second", "St"), Rule("No", "Go")});
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), ElementsAre("First", "Second"));
}

TEST(EventActions, KeywordsRunOnlyAtDeclarationProcedureStartAndBodyWhateverTheirEvents) {
    ReviewRun run;
    KeywordRule everywhere = Rule("Everywhere", "Stop|Work|gStop");
    everywhere.Events = {4, 10, 28, 30, 34, 35};
    KeywordRule elsewhere = Rule("Elsewhere", ".");
    elsewhere.Events = {4, 25, 34, 35};
    ReviewModule(
        run,
        "Attribute VB_Name = \"modA\"\nPublic gStop As Long\nSub Work()\nStop\nEnd Sub\n",
        {everywhere, elsewhere});
    EXPECT_THAT(
        run.Query("P", "SELECT LocMember FROM Violations"),
        ElementsAre("(Declarations)", "Work", "Work"));
}

TEST(EventActions, EachStatementOfALineIsTestedByItself) {
    ReviewRun run;
    ReviewModule(run, ModuleWith("modA", "x = 1: Stop: Stop\n"), {Rule("No Stop", "^Stop$")});
    EXPECT_THAT(run.Query("P", "SELECT LineNum FROM Violations"), ElementsAre("3", "3"));
}

TEST(EventActions, MalformedPatternIsLoggedEndsItsListAndTheReviewContinues) {
    ReviewRun run;
    ReviewModule(
        run,
        ModuleWith("modA", "Stop\n"),
        {Rule("First", "Stop"), Rule("Broken", "Stop("), Rule("After", "Stop")});
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), ElementsAre("First"));
    EXPECT_THAT(
        run.Log("P"),
        Contains(HasSubstr("Expected ')' in regular expression 'Stop(' at position 6 in rule 5001 "
                           "(Broken)#C_VB6ProjectReview::ExecuteEventActions")));
    EXPECT_THAT(run.Log("P"), Contains("Project reviewed successfully."));
}

TEST(EventActions, APatternThatTakesTooLongIsAnErrorOfItsRuleAndNoMatch) {
    const std::string longLine = "Call Abcdefghijklmnopqrstuvwxyz\n";
    ReviewRun run;
    ReviewModule(
        run,
        ModuleWith("modA", longLine + longLine + longLine + longLine + "Stop\n"),
        {Rule("Endless", "^(\\w+\\s?)+[!?]$"), Rule("After", "^Stop|^Call")});
    // Each stop ends the list, as any error does; the third one disables the rule.
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), ElementsAre("After", "After"));
    EXPECT_THAT(run.Query("P", "SELECT LineNum FROM Violations"), ElementsAre("6", "7"));
    EXPECT_THAT(
        run.Log("P"),
        Contains(AllOf(
            HasSubstr("Error #16 - Expression too complex"),
            HasSubstr("in rule 5000 (Endless)#C_VB6ProjectReview::ExecuteEventActions"))));
    EXPECT_THAT(
        run.Log("P"),
        Contains("[Event:Procedure <body>][Rule:5000] Disabled for the rest of the review, "
                 "because its pattern was stopped 3 times: rule 5000 (Endless)"));
}

TEST(EventActions, EveryTestOfARuleCountsAsAnExecution) {
    ReviewRun run;
    ReviewModule(
        run,
        "Attribute VB_Name = \"modA\"\nOption Explicit\nSub Work()\nEnd Sub\n",
        {Rule("First", "Zzz"), Rule("Second", "Zzz")});
    // Attribute line and Option at event 10, Sub at event 28; End Sub ends the procedure.
    EXPECT_THAT(run.Query("P", "SELECT RuleExecutions FROM Review"), ElementsAre("6"));
}

TEST(EventActions, WithKeywordsOffNothingIsFlagged) {
    ReviewRun run;
    run.Criteria().LoadCriteria().SetUnauthorisedKeywords(false);
    ReviewModule(run, ModuleWith("modA", "Stop\n"), {Rule("No Stop", "Stop")});
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), IsEmpty());
}

TEST(EventActions, SeverityThatIsNotWantedIsNotFlagged) {
    ReviewRun run;
    run.Criteria().LoadCriteria().SetSeverityLevel(3, false);
    ReviewModule(run, ModuleWith("modA", "Stop\n"), {Rule("No Stop", "Stop")});
    EXPECT_THAT(run.Query("P", "SELECT Title FROM Violations"), IsEmpty());
    EXPECT_THAT(
        run.Query("P", "SELECT Included FROM SeverityList"),
        ElementsAre("True", "True", "False", "True", "True"));
}

TEST(EventActions, AFileHasOneLayoutRecordWhetherAComponentOrTheLayoutComesFirst) {
    ReviewRun run;
    run.AddProject("P.vbp", "Form=frmA.frm\nType=Exe\nName=\"P\"\n");
    run.AddFile(
        "frmA.frm",
        "VERSION 5.00\n"
        "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\n"
        "Object = \"{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0\"; \"COMDLG32.OCX\"\n"
        "Begin VB.Form frmA \n   Caption = \"A\"\nEnd\nAttribute VB_Name = \"frmA\"\n");
    run.Run();
    EXPECT_THAT(
        run.Query("P", "SELECT Name FROM Procedures"), ElementsAre("Declarations", "Layout"));
}

TEST(EventActions, FiguresOfAFinishedProcedureAreStored) {
    ReviewRun run;
    ReviewModule(run, ModuleWith("modA", "If a Then\nEnd If\n' why\n\n"), {});
    EXPECT_THAT(
        run.Query("P", "SELECT CyclomaticComplexity FROM Procedures WHERE Name = 'Work'"),
        ElementsAre("2"));
    EXPECT_THAT(
        run.Query("P", "SELECT CyclomaticComplexity FROM SourceFiles WHERE Name = 'modA'"),
        ElementsAre("2"));
    EXPECT_THAT(
        run.Query("P", "SELECT TotalCount FROM LineCountStats WHERE ItemType = 3"),
        ElementsAre("6"));
    EXPECT_THAT(
        run.Query("P", "SELECT CommentCount FROM LineCountStats WHERE ItemType = 3"),
        ElementsAre("1"));
}

}  // namespace

}  // namespace dorvik
