#include "platform/regex/RegularExpression.h"
#include "rulebase/file/RulebaseManager.h"
#include "support/CapturedLog.h"
#include "support/FilesystemPaths.h"
#include "support/RecordingMessageBox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>

namespace dorvik {
namespace {

std::unique_ptr<Rulebase> LoadSample(bool forEdit) {
    const test::TemporaryFolder folder;
    RulebaseManager manager("DVKWork", folder.Path());
    RulebaseLoadCriteria criteria;
    criteria.SetRulebaseFile(
        test::ProgramPath(std::filesystem::path(DORVIK_DATA_FOLDER) / "Sample.dvk"));
    criteria.SetUnauthorisedKeywords(true);
    criteria.SetLoadForEdit(forEdit);
    for (std::int32_t level = 1; level <= 5; ++level) {
        criteria.SetSeverityLevel(level, true);
    }
    return manager.LoadRulebase(criteria);
}

bool Matches(const IRule& rule, std::string_view statement) {
    RegularExpression expression;
    expression.SetPattern(rule.Condition());
    return expression.Test(statement);
}

TEST(SampleRulebase, LoadsWithoutALogLineOrABox) {
    const test::CapturedLog log;
    const test::RecordingMessageBox box;
    const auto rulebase = LoadSample(false);
    ASSERT_NE(rulebase, nullptr);
    EXPECT_GE(rulebase->RuleLists().UnauthorisedKeywords().Count(), 30);
    EXPECT_EQ(rulebase->CategoryList().Count(), 14);
    EXPECT_EQ(rulebase->SeverityList().Count(), 5);
    EXPECT_TRUE(log.Entries().empty());
    EXPECT_TRUE(box.Messages.empty());
}

TEST(SampleRulebase, EveryPatternCompiles) {
    const auto rulebase = LoadSample(true);
    ASSERT_NE(rulebase, nullptr);
    const auto& rules = rulebase->RuleLists().UnauthorisedKeywords();
    for (std::int32_t index = 1; index <= rules.Count(); ++index) {
        const UnauthorisedKeyword& rule = *rules.Item(index);
        EXPECT_NO_THROW(Matches(rule, "x = 1")) << rule.Title() << ": " << rule.Condition();
        EXPECT_FALSE(Matches(rule, "x = 1")) << rule.Title();
        EXPECT_FALSE(Matches(rule, "")) << rule.Title();
    }
}

TEST(SampleRulebase, EveryRuleIsCompleteAndRunsAtTheEventsOfKeywords) {
    const auto rulebase = LoadSample(true);
    ASSERT_NE(rulebase, nullptr);
    const auto& rules = rulebase->RuleLists().UnauthorisedKeywords();
    std::set<std::string> titles;
    const std::set<std::int32_t> keywordEvents{10, 28, 30};
    for (std::int32_t index = 1; index <= rules.Count(); ++index) {
        const UnauthorisedKeyword& rule = *rules.Item(index);
        const ViolationDefinition& violation = rule.ViolationDefinition();
        EXPECT_TRUE(titles.insert(rule.Title()).second) << rule.Title();
        EXPECT_FALSE(rule.Description().empty()) << rule.Title();
        EXPECT_FALSE(violation.Description().empty()) << rule.Title();
        EXPECT_FALSE(violation.Advice().empty()) << rule.Title();
        EXPECT_TRUE(rulebase->CategoryList().ContainsID(violation.CategoryID())) << rule.Title();
        const SeverityItem& severity =
            *rulebase->SeverityList().Item(SeverityKeyOf(violation.Severity()));
        EXPECT_EQ(violation.Impact(), severity.Impact()) << rule.Title();
        EXPECT_GT(rule.EventCount(), 0) << rule.Title();
        for (const std::int32_t event : rule.ParserEvents()) {
            EXPECT_TRUE(keywordEvents.contains(event)) << rule.Title();
        }
        EXPECT_LE(rule.RuleID(), rulebase->RuleLists().LastID());
    }
}

TEST(SampleRulebase, TextsNameAProcedureOnlyWhereThereIsOne) {
    const auto rulebase = LoadSample(true);
    ASSERT_NE(rulebase, nullptr);
    const auto& rules = rulebase->RuleLists().UnauthorisedKeywords();
    for (std::int32_t index = 1; index <= rules.Count(); ++index) {
        const UnauthorisedKeyword& rule = *rules.Item(index);
        if (rule.IsAssignedToEvent(10)) {
            EXPECT_EQ(
                rule.ViolationDefinition().Description().find("%Procedure."), std::string::npos)
                << rule.Title();
        }
    }
}

struct StatementRow {
    const char* Statement;
    const char* Title;  // of the only rule that matches; empty for none
};

class SampleRulebaseStatement : public testing::TestWithParam<StatementRow> {};

TEST_P(SampleRulebaseStatement, IsFoundByItsRuleAndNoOther) {
    static const std::unique_ptr<Rulebase> rulebase = LoadSample(true);
    ASSERT_NE(rulebase, nullptr);
    const auto& rules = rulebase->RuleLists().UnauthorisedKeywords();
    std::string found;
    for (std::int32_t index = 1; index <= rules.Count(); ++index) {
        if (Matches(*rules.Item(index), GetParam().Statement)) {
            found += (found.empty() ? "" : ", ") + rules.Item(index)->Title();
        }
    }
    EXPECT_EQ(found, GetParam().Title) << GetParam().Statement;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Statements,
    SampleRulebaseStatement,
    testing::Values(
        StatementRow{"GoTo Done", "No GoTo outside error handling"},
        StatementRow{"If n > 3 Then GoTo Done", "No GoTo outside error handling"},
        StatementRow{"100 GoTo 200", "No GoTo outside error handling"},
        StatementRow{"On Error GoTo Failed", ""},
        StatementRow{"If Testing Then On Error GoTo 0", ""},
        StatementRow{"objSelection.GoTo 3", ""},
        StatementRow{"GoSub PrintLine", "No GoSub"},
        StatementRow{"Return", "No GoSub"},
        StatementRow{"On n GoTo First, Second", "No computed jumps"},
        StatementRow{"On n GoSub First, Second", "No computed jumps"},
        StatementRow{"End", "End must not stop the program"},
        StatementRow{"If Failed Then End", "End must not stop the program"},
        StatementRow{"If Failed Then End Else Resume Next", "End must not stop the program"},
        StatementRow{"End If", ""},
        StatementRow{"End Sub", ""},
        StatementRow{"If Found Then EndSearch", ""},
        StatementRow{"x = IIf(a, b, c)", "Avoid IIf"},
        StatementRow{"If blnFound = True Then", "Do not compare with True or False"},
        StatementRow{"Do While rs.EOF = False", "Do not compare with True or False"},
        StatementRow{"Loop Until x <> True", "Do not compare with True or False"},
        StatementRow{"If blnFound Then y = True", ""},
        StatementRow{"blnFound = True", ""},
        StatementRow{"On Error Resume Next", "Justify On Error Resume Next"},
        StatementRow{"On Local Error GoTo Failed", "No On Local Error"},
        StatementRow{"Resume Next", ""},
        StatementRow{"Resume Done", ""},
        StatementRow{"Error 53", "Raise errors with Err.Raise"},
        StatementRow{"Err.Raise 53", ""},
        StatementRow{"DefInt A-Z", "No data types by first letter"},
        StatementRow{"Option Base 1", "No Option Base"},
        StatementRow{"Option Explicit", ""},
        StatementRow{"Static lngCalls As Long", "Avoid static variables"},
        StatementRow{"Private Static Sub Count()", "Avoid static variables"},
        StatementRow{"Private v As Variant", "Question each Variant"},
        StatementRow{"Sub Add(ParamArray v() As Variant)", ""},
        StatementRow{"Private Declare Sub Send Lib \"\" (p As Any)", "No As Any in declarations"},
        StatementRow{"Private mcol As New Collection", "No As New"},
        StatementRow{"ReDim Preserve a(n)", "Mind ReDim Preserve"},
        StatementRow{"ReDim a(n)", ""},
        StatementRow{"Shell strCommand, vbHide", "No Shell without review"},
        StatementRow{"x = Shell(strCommand)", "No Shell without review"},
        StatementRow{"objShell.Run strCommand", ""},
        StatementRow{"Kill strFile", "No Kill outside the file module"},
        StatementRow{"If x Then Kill strFile", "No Kill outside the file module"},
        StatementRow{"KillTimer hWnd, 1", ""},
        StatementRow{"SetAttr strFile, vbNormal", "No SetAttr"},
        StatementRow{"ChDir App.Path", "Do not change the current folder"},
        StatementRow{"Open strFile For Input As #1", "No fixed file numbers"},
        StatementRow{"Open strFile For Input As 1", "No fixed file numbers"},
        StatementRow{"Open strFile For Input As #intFile", ""},
        StatementRow{"Close", "Close files by number"},
        StatementRow{"Close #intFile", ""},
        StatementRow{"rs.Close", ""},
        StatementRow{"Set x = CreateObject(\"\")", "Prefer references to CreateObject"},
        StatementRow{"lngPointer = StrPtr(strText)", "No addresses of variables"},
        StatementRow{"CopyMemory a, b, 4", "No copying of raw memory"},
        StatementRow{"lngOld = SetTimer(0, 0, 100, AddressOf TimerProc)", "No callbacks without review"},
        StatementRow{"DoEvents", "No DoEvents"},
        StatementRow{"x = DoEvents()", "No DoEvents"},
        StatementRow{"SendKeys \"\"", "No SendKeys"},
        StatementRow{"Sleep 100", "No Sleep"},
        StatementRow{"x = InputBox(\"\")", "No InputBox"},
        StatementRow{"Stop", "No Stop"},
        StatementRow{"tmrClock.Stop", ""},
        StatementRow{"Debug.Print x", "No Debug.Print"},
        StatementRow{"Global gstrUser As String", "Public instead of Global"},
        StatementRow{"Private s$", "No type characters"},
        StatementRow{"Let x = 1", "No Let"},
        StatementRow{"Public Property Let Name(ByVal s As String)", ""},
        StatementRow{"Call Update(x)", "No Call"},
        StatementRow{"Wend", "Do While instead of While"},
        StatementRow{"x = Left(s, 3)", "String functions with the dollar sign"},
        StatementRow{"end", ""},             // the test is case-sensitive
        StatementRow{"Me.Caption = strTitle", ""}));
// clang-format on

}  // namespace
}  // namespace dorvik
