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
using testing::Not;

/// A module, a class and a form, each with little in it.
void RunThreeFiles(RulesInReview& review) {
    review.Review().AddFile("modA.bas", "Attribute VB_Name = \"modA\"\nSub Work()\nEnd Sub\n");
    review.Review().AddFile(
        "clsA.cls", "VERSION 1.0 CLASS\nAttribute VB_Name = \"clsA\"\nSub Work()\nEnd Sub\n");
    review.Review().AddFile(
        "frmA.frm", "VERSION 5.00\nBegin VB.Form frmA\nEnd\nAttribute VB_Name = \"frmA\"\n");
    review.Review().AddFile(
        "mdiA.frm", "VERSION 5.00\nBegin VB.MDIForm mdiA\nEnd\nAttribute VB_Name = \"mdiA\"\n");
    review.RunProject("Type=Exe\nName=\"P\"\nModule=modA; modA.bas\nClass=clsA; clsA.cls\n"
                      "Form=frmA.frm\nForm=mdiA.frm\n");
}

TEST(ScriptReview, ClassesAndFormsOfTheProjectAreKnownByNameInAnyCase) {
    RulesInReview review;
    review.AddCoding(
        "Reads",
        {2},
        Script("Dim n\r\nFor Each n In Array(\"CLSA\", \"frma\", \"mdiA\", \"modA\")\r\n"
               "Dorvik.DebugPrint n & Dorvik.IsClassName(n) & Dorvik.IsFormName(n)\r\nNext"));
    RunThreeFiles(review);
    for (const char* line : {"CLSATrueFalse", "frmaFalseTrue", "modAFalseFalse"}) {
        EXPECT_THAT(review.Log(), Contains(HasSubstr(line)));
    }
    // A form file is read apart from an MDI form when it is read, and that it is one all the same.
    EXPECT_THAT(review.Log(), Contains(HasSubstr("mdiAFalseTrue")));
}

TEST(ScriptReview, ADumpListsAllPropertiesAndWorkfieldsOfAnObject) {
    RulesInReview review;
    review.AddCoding(
        "Dumps",
        {32},
        Script("Dorvik.SetObjectWorkField \"LineLabel\", \"Seen\", 7\r\n"
               "Dorvik.DumpObject \"LineLabel\"\r\nDorvik.DumpObject \"Enum\""));
    review.Run({"modA=Sub Work()\nDone:\nEnd Sub\n"});
    const std::vector<std::string> log = review.Log();
    const auto first =
        std::find(log.begin(), log.end(), "[Event:Line Label][Rule:5000][Object:LineLabel]");
    ASSERT_GE(std::distance(first, log.end()), 9);
    EXPECT_THAT(
        std::vector<std::string>(first, first + 8),
        ElementsAre(
            "[Event:Line Label][Rule:5000][Object:LineLabel]",
            "=== LineLabel Properties ===",
            "   Name=Done",
            "=== LineLabel Workfields ===",
            "   Seen=7",
            "===",
            "[Event:Line Label][Rule:5000][Object:Enum]",
            "=== Enum Properties ==="));
    EXPECT_THAT(*(first + 8), HasSubstr("C_ResultsManager::DumpVirtualObject"));
}

TEST(ScriptReview, AnObjectInAWorkfieldIsHandedOutByReferenceAndAnArrayByValue) {
    RulesInReview review;
    review.AddCoding(
        "Fills",
        {3},
        Script("Dorvik.SetObjectWorkField \"File\", \"Names\", New Collection\r\n"
               "Dorvik.SetObjectWorkField \"File\", \"Sizes\", Array(1, 2)"));
    review.AddCoding(
        "Adds",
        {28},
        Script("Dim c, a\r\nDorvik.GetObjectWorkField \"File\", \"Names\", c\r\n"
               "c.Add \"one more\"\r\n"
               "Dorvik.GetObjectWorkField \"File\", \"Sizes\", a\r\na(0) = 9"));
    review.AddCoding(
        "Prints",
        {35},
        Script("Dim c, a\r\nDorvik.GetObjectWorkField \"File\", \"Names\", c\r\n"
               "Dorvik.GetObjectWorkField \"File\", \"Sizes\", a\r\n"
               "Dorvik.DebugPrint \"read \" & c.Count & \" \" & a(0)"));
    review.Run({"modA=Sub A()\nEnd Sub\nSub B()\nEnd Sub\n"});
    EXPECT_THAT(review.Log(), Contains(HasSubstr("read 2 1")));
}

std::vector<std::string> LoggedAfter(RulesInReview& review, std::string_view mark) {
    std::vector<std::string> told;
    for (const std::string& line : review.Log()) {
        if (const std::size_t at = line.find(mark); at != std::string::npos) {
            told.push_back(line.substr(at + mark.size()));
        }
    }
    return told;
}

/// Scripts share what the first of them has asked for, but only until the next event.
TEST(ScriptReview, APropertyIsThatOfTheEvent) {
    const std::string ask =
        Script("Dim s As String\r\nDorvik.GetObjectProperty \"Source\", \"Statement\", s\r\n"
               "Dorvik.DebugPrint \"read \" & Dorvik.GetParserEvent & \"/\" & s & \"/\" & "
               "Dorvik.GetObjectProperty(\"Procedure\", \"Name\")\r\ns = s & \" changed\"");
    RulesInReview review;
    review.AddCoding("First", {30, 34}, ask);
    review.AddCoding("Second", {30, 34}, ask);
    review.Run({"modA=Sub A()\nx = 1\nEnd Sub\nSub B()\nEnd Sub\n"});
    EXPECT_THAT(
        LoggedAfter(review, "read "),
        ElementsAre(
            "Procedure <body>/x = 1/A",
            "Procedure <body>/x = 1/A",
            "end Procedure/End Sub/A",
            "end Procedure/End Sub/A",
            "end Procedure/End Sub/B",
            "end Procedure/End Sub/B"));
}

TEST(ScriptReview, AWorkFieldReadAsAPropertyIsTheOneOfNow) {
    const std::string script =
        Script("Dim n As Long\r\nIf Dorvik.ObjectHasWorkfield(\"File\", \"N\") Then n = "
               "Dorvik.GetObjectProperty(\"File\", \"WF.N\")\r\n"
               "Dorvik.DebugPrint \"count \" & n\r\n"
               "Dorvik.SetObjectWorkField \"File\", \"N\", n + 1");
    RulesInReview review;
    review.AddCoding("First", {28}, script);
    review.AddCoding("Second", {28}, script);
    review.AddCoding("Third", {28}, script);
    review.Run({"modA=Sub A()\nEnd Sub\n"});
    EXPECT_THAT(LoggedAfter(review, "count "), ElementsAre("0", "1", "2"));
}

TEST(ScriptReview, AMissingPropertyIsLoggedForEachScriptThatReadsIt) {
    const std::string script =
        Script("Dim s\r\ns = Dorvik.GetObjectProperty(\"File\", \"Colour\")");
    RulesInReview review;
    review.AddCoding("First", {28}, script);
    review.AddCoding("Second", {28}, script);
    review.Run({"modA=Sub A()\nEnd Sub\n"});
    EXPECT_EQ(LoggedAfter(review, "'File.Colour' not found").size(), 2U);
}

TEST(ScriptReview, AScriptThatMakesUpNamesGetsTheAnswerToEachOfThem) {
    RulesInReview review;
    review.AddCoding(
        "Reads",
        {28},
        Script("Dim i As Long, n As Long\r\nFor i = 1 To 500\r\n"
               "If Dorvik.GetObjectProperty(\"Procedure\", Mid$(\"xName\" & i, 2, 4)) = \"A\" Then "
               "n = "
               "n + 1\r\nNext\r\nDorvik.DebugPrint \"right \" & n"));
    review.Run({"modA=Sub A()\nEnd Sub\n"});
    EXPECT_THAT(LoggedAfter(review, "right "), ElementsAre("500"));
}

TEST(ScriptReview, AWorkfieldGoesWithItsObject) {
    RulesInReview review;
    review.AddCoding(
        "Counts",
        {28},
        Script("Dim n\r\nDorvik.DebugPrint \"had \" & "
               "Dorvik.ObjectHasWorkfield(\"Procedure\", \"Seen\") & "
               "Dorvik.ObjectHasWorkfield(\"File\", \"Seen\")\r\n"
               "Dorvik.SetObjectWorkField \"Procedure\", \"Seen\", 1\r\n"
               "Dorvik.SetObjectWorkField \"File\", \"Seen\", 1"));
    review.Run({"modA=Sub A()\nEnd Sub\nSub B()\nEnd Sub\n", "modB=Sub C()\nEnd Sub\n"});
    EXPECT_THAT(LoggedAfter(review, "had "), ElementsAre("FalseFalse", "FalseTrue", "FalseFalse"));
}

TEST(ScriptReview, AtTheEndOfAnEnumATypeOrTheDeclarationsTheStartIsReported) {
    RulesInReview review;
    review.AddCoding("Ends", {17, 24, 27, 34}, Script("Dorvik.RaiseViolation"));
    review.Run({"modA=\nEnum E\nOne = 1\nEnd Enum\nType T\nX As Long\nEnd Type\n"
                "Sub Work()\nEnd Sub\n"});
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("2", "5", "1", "8"));
    EXPECT_THAT(
        review.Query("SELECT SourceLine FROM Violations"),
        ElementsAre("Enum E", "Type T", "", "Sub Work()"));
    EXPECT_THAT(
        review.Query("SELECT LocMember FROM Violations"),
        ElementsAre("(Declarations)", "(Declarations)", "(Declarations)", "Work"));
}

TEST(ScriptReview, AViolationRaisedAtTheEndMarksNoTextOfItInTheLog) {
    RulesInReview review;
    review.AddCoding("Ends", {34}, Script("Dorvik.RaiseViolation"))
        .ViolationDefinition()
        .SetDescription("%Procedure.Colour%");
    review.Run({"modA=Sub Work()\nEnd Sub\n"});
    EXPECT_THAT(
        review.Log(),
        Contains("[Event:end Procedure][Rule:5000] Virtual object property 'Procedure.Colour' not "
                 "found."));
}

TEST(ScriptReview, AScriptWithASubMainInUpperCaseRuns) {
    RulesInReview review;
    review.AddCoding("Loud", {28}, "SUB MAIN\r\nDorvik.RaiseViolation\r\nEND SUB\r\n");
    review.Run({"modA=Sub Work()\nEnd Sub\n"});
    EXPECT_THAT(review.Titles(), ElementsAre("Loud"));
}

TEST(ScriptReview, AnInstructionLimitStopsAtTheSameInstructionEachTime) {
    RulesInReview review;
    basic::ScriptLimits limits;
    limits.Instructions = 5'000;
    review.Review().SetScriptLimits(limits);
    review.AddCoding(
        "Long",
        {28},
        Script("Dim n\r\nFor n = 1 To 100000\r\n"
               "Dorvik.SetObjectWorkField \"File\", \"N\", n\r\nNext"));
    review.AddCoding(
        "Prints",
        {34},
        Script("Dim n\r\nDorvik.GetObjectWorkField \"File\", \"N\", n\r\n"
               "Dorvik.DebugPrint \"came to \" & (n > 10 And n < 5000)"));
    review.Run({"modA=Sub A()\nEnd Sub\n"});
    EXPECT_THAT(
        review.Log(),
        Contains(HasSubstr("Script of rule 5000 (Long), line 4: The script was stopped: the limit "
                           "of 5000 instructions was reached")));
    EXPECT_THAT(review.Log(), Contains(HasSubstr("came to True")));
}

}  // namespace

}  // namespace dorvik
