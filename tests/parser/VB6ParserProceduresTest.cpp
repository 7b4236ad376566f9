#include "parser/SourceFileReview.h"
#include "source/VirtualObject.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using Values = std::vector<std::string>;

Values ProcedureValues(std::string_view text, ParserEvent event, std::string_view property) {
    SourceFileReview review(FileType::Module, text);
    return review.ValuesAt(event, "Procedure", property);
}

std::string ComplexityOf(std::string_view body) {
    const std::string text = "Sub F()\n" + std::string(body) + "End Sub\n";
    const Values values = ProcedureValues(text, ParserEvent::EndProcedure, "CyclomaticComplexity");
    return values.size() == 1 ? values.front() : "no single end";
}

TEST(VB6ParserProcedures, EmptyProcedureHasComplexityOneAndCountsBothItsLines) {
    EXPECT_EQ(ComplexityOf(""), "1");
    EXPECT_EQ(
        ProcedureValues(
            ModuleText("Sub F()\nEnd Sub\n"), ParserEvent::EndProcedure, "TotalLineCount"),
        Values{"2"});
}

TEST(VB6ParserProcedures, BlankAndCommentLinesOfAProcedureCountForItAndItsFile) {
    SourceFileReview review(
        FileType::Module, ModuleText("Option Explicit\nSub F() ' note\n\n' c\nx = 1\nEnd Sub\n\n"));
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::EndProcedure, "Procedure", "TotalLineCount"), Values{"5"});
    EXPECT_EQ(review.File().FileStats()->LineStats().TotalLines(), 7);
}

struct ComplexityRow {
    const char* Body;
    const char* Complexity;
};

TEST(VB6ParserProcedures, ComplexityGoesUpByOneForEachBranchingStatement) {
    const ComplexityRow rows[] = {
        {"If a Then\nElseIf b Then\nElse\nEnd If\n", "3"},
        {"Select Case x\nCase 1\nCase 2\nCase Else\nEnd Select\n", "3"},
        {"On Error GoTo h\n", "1"},
        {"On x GoSub a, b\n", "2"},
        {"For i = 1 To 2\nNext\nFor Each v In c\nNext\n", "3"},
        {"While x\nWend\n", "2"},
        {"Do While x\nLoop\nDo Until y\nLoop\n", "3"},
        {"Do\nLoop While x\n", "1"},
        {"If a And b Or c Then\n", "2"},
        {"If a Then b: If c Then d\n", "3"},
        {"If a Then b Else c\n", "2"},
        {"If a _\n  And b _\n  Then\n", "2"},
        {"Dim If_x\n", "1"},
        {"' If a Then\nRem If a Then\n", "1"},
        {"   if a then\n", "2"},
        {"\tIf a Then\n", "1"},
        {"Case Else\ncase else: If b Then\n", "2"},
        {"While\n", "1"},
    };
    for (const ComplexityRow& row : rows) {
        EXPECT_EQ(ComplexityOf(row.Body), row.Complexity) << row.Body;
    }
}

TEST(VB6ParserProcedures, IfWithElseIfGivesThree) {
    EXPECT_EQ(ComplexityOf("If a Then\nElseIf b Then\nElse\nEnd If\n"), "3");
}

TEST(VB6ParserProcedures, SelectWithTwoCasesAndACaseElseGivesThree) {
    EXPECT_EQ(ComplexityOf("Select Case x\nCase 1\nCase 2\nCase Else\nEnd Select\n"), "3");
}

TEST(VB6ParserProcedures, OnErrorAddsNothingAndOnGoSubAddsOne) {
    EXPECT_EQ(ComplexityOf("On Error GoTo h\n"), "1");
    EXPECT_EQ(ComplexityOf("On x GoSub a, b\n"), "2");
}

TEST(VB6ParserProcedures, EndSubEndsTheProcedureAndTheRestOfItsLineIsIgnored) {
    EXPECT_EQ(
        EventsOf("Sub F()\nEnd Sub: x = 1\nSub G()\nEnd Sub\n"), "3 9 4 27 28 4 34 4 28 4 34 35");
}

TEST(VB6ParserProcedures, WholeProcedureOnOneLineRunsThroughItsStates) {
    EXPECT_EQ(EventsOf("Sub F(): x = 1: End Sub\n"), "3 9 4 27 28 30 34 35");
}

struct DefinitionRow {
    const char* Line;
    const char* Type;
    const char* Scope;
    const char* IsStatic;
    int Location;
};

TEST(VB6ParserProcedures, ScopeTypeAndLocationFollowTheDefinition) {
    const DefinitionRow rows[] = {
        {"Friend Sub F()", "Sub", "Friend", "False", 4},
        {"Sub F()", "Sub", "", "False", 4},
        {"Private Static Function F()", "Function", "Private", "True", 4},
        {"Public Property Get F()", "Property Get", "Public", "False", 6},
        {"Property Let F(v)", "Property Let", "", "False", 7},
        {"Property Set F(v)", "Property Set", "", "False", 8},
        {"property set F(v)", "property set", "", "False", 8},
    };
    for (const DefinitionRow& row : rows) {
        SourceFileReview review(FileType::Class, std::string(row.Line) + "\n");
        int location = 0;
        std::string facts;
        review.Events().SetHandler([&](ParserEvent event) {
            if (event == ParserEvent::BeginProcedure) {
                location = static_cast<int>(review.State().CurrentLocation());
                const auto& bag = review.State().FindVirtualObject("Procedure")->Properties();
                for (const char* name : {"Name", "ProcedureType", "Scope", "IsStatic"}) {
                    facts += bag.Item(name).AsText() + "|";
                }
            }
        });
        review.Run();
        EXPECT_EQ(facts, "F|" + std::string(row.Type) + "|" + row.Scope + "|" + row.IsStatic + "|")
            << row.Line;
        EXPECT_EQ(location, row.Location) << row.Line;
    }
}

TEST(VB6ParserProcedures, ProcedureHasItsPropertiesInOrder) {
    SourceFileReview review(FileType::Module, "Function F(a) As Long\n");
    std::string names;
    review.Events().SetHandler([&](ParserEvent event) {
        if (event == ParserEvent::BeginProcedure) {
            const VirtualObject& object = *review.State().FindVirtualObject("Procedure");
            names = PropertyNames(object);
            EXPECT_TRUE(object.HasLSTATS());
            EXPECT_TRUE(object.HasVLIST());
            EXPECT_EQ(object.ParentViolations(), "File");
        }
    });
    review.Run();
    EXPECT_EQ(
        names,
        "Name ProcedureType Scope IsStatic IsEventProcedure ArgumentCount ArgumentList DataType "
        "ConstCount VariableCount");
}

TEST(VB6ParserProcedures, ProcedureOfAControlOrOfTheFormIsAnEventProcedure) {
    SourceFileReview review(
        FileType::Form,
        FormText(
            "   Begin VB.CommandButton cmdOK\n   End\n",
            "Private Sub CMDOK_Click()\nEnd Sub\nPrivate Sub Form_Load()\nEnd Sub\n"
            "Private Sub Other_Load()\nEnd Sub\nPrivate Sub cmdOK()\nEnd Sub\n"));
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::BeginProcedure, "Procedure", "IsEventProcedure"),
        (Values{"True", "True", "False", "False"}));
}

TEST(VB6ParserProcedures, FormLoadOfAnMDIFormIsNoEventProcedureButMDIFormLoadIs) {
    SourceFileReview review(
        FileType::MDIForm,
        "Begin VB.MDIForm M\nEnd\nPrivate Sub Form_Load()\nEnd Sub\n"
        "Private Sub MDIForm_Load()\nEnd Sub\n");
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::BeginProcedure, "Procedure", "IsEventProcedure"),
        (Values{"False", "True"}));
}

TEST(VB6ParserProcedures, NameIsCutAtItsLastUnderscore) {
    SourceFileReview review(
        FileType::Class,
        "Private WithEvents my_obj As Foo\nSub my_obj_Bar()\nEnd Sub\nSub my_obj()\nEnd Sub\n");
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::BeginProcedure, "Procedure", "IsEventProcedure"),
        (Values{"True", "False"}));
}

TEST(VB6ParserProcedures, LocalDeclarationOfTwoVariablesFiresTwiceAndCountsForTheProcedure) {
    const char* text = "Sub F()\nDim a, b As Long\nConst C = 1\nEnd Sub\n";
    EXPECT_EQ(EventsOf(text), "3 9 4 27 28 4 30 33 33 4 30 31 4 34 35");
    EXPECT_EQ(ProcedureValues(text, ParserEvent::EndProcedure, "VariableCount"), Values{"2"});
    EXPECT_EQ(ProcedureValues(text, ParserEvent::EndProcedure, "ConstCount"), Values{"1"});
    SourceFileReview review(FileType::Module, text);
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::LocalVariable, "Variable", "IsLocal"),
        (Values{"True", "True"}));
    EXPECT_EQ(review.FileProperty("VariableCount"), "0");
    EXPECT_EQ(review.FileProperty("ProcedureCount"), "1");
}

TEST(VB6ParserProcedures, LabelFiresItsEventBeforeTheBodyEventOfItsLine) {
    const char* text = "Sub F()\nRetry:\nEnd Sub\n";
    EXPECT_EQ(EventsOf(text), "3 9 4 27 28 4 32 30 4 34 35");
    SourceFileReview review(FileType::Module, text);
    EXPECT_EQ(review.ValuesAt(ParserEvent::LineLabel, "LineLabel", "Name"), Values{"Retry"});
}

TEST(VB6ParserProcedures, StatementAfterALabelFiresTheBodyEventOnce) {
    const char* text = "Sub F()\nRetry: x = 1\nEnd Sub\n";
    EXPECT_EQ(EventsOf(text), "3 9 4 27 28 4 32 30 4 34 35");
    SourceFileReview review(FileType::Module, text);
    EXPECT_EQ(review.ValuesAt(ParserEvent::ProcedureBody, "Source", "Statement"), Values{"x = 1"});
}

TEST(VB6ParserProcedures, LabelOutsideAProcedureIsNoLabel) {
    EXPECT_EQ(EventsOf("Here:\nSub F()\nEnd Sub\nThere:\n"), "3 9 4 10 4 27 28 4 34 4 35");
}

TEST(VB6ParserProcedures, ArgumentsBelongToTheProcedure) {
    SourceFileReview review(FileType::Module, "Sub F(ByVal a As Long, Optional b = \"x, y\")\n");
    Values parents;
    review.Events().SetHandler([&](ParserEvent event) {
        if (event == ParserEvent::ProcedureArgument) {
            parents.push_back(review.State().FindVirtualObject("Argument")->ParentViolations());
        }
    });
    review.Run();
    EXPECT_EQ(parents, (Values{"Procedure", "Procedure"}));
}

TEST(VB6ParserProcedures, ListThatGivesFewerArgumentsThanItsCommasPromiseFailsTheFile) {
    test::CapturedLog log;
    SourceFileReview review(FileType::Module, "Sub F(a,b)\nEnd Sub\n");
    EXPECT_EQ(review.Run(), TickResult::Failed);
    EXPECT_EQ(review.Events().Numbers(), "3 9 4 27 28 29");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("9 - Subscript out of range"), std::string::npos);
}

TEST(VB6ParserProcedures, EndOfAProcedureResetsItsNameAndItsStartLine) {
    SourceFileReview review(FileType::Module, ModuleText("\nSub F()\nEnd Sub\n"));
    std::string name;
    std::int32_t line = 0;
    review.Events().SetHandler([&](ParserEvent event) {
        if (event == ParserEvent::EndProcedure) {
            name = review.State().CurrentProcedureName();
            line = review.State().ObjectStartLineNumber();
        }
    });
    review.Run();
    EXPECT_EQ(name, "F");
    EXPECT_EQ(line, 2);
    EXPECT_EQ(review.State().CurrentProcedureName(), "");
    EXPECT_EQ(review.State().ObjectStartLineNumber(), 0);
}

TEST(VB6ParserProcedures, ProcedureThatAFileLeavesOpenStaysInScope) {
    test::CapturedLog log;
    SourceFileReview first(FileType::Module, "Sub F()\n");
    EXPECT_EQ(first.Run(), TickResult::EndOfFile);
    EXPECT_NE(first.State().FindVirtualObject("Procedure"), nullptr);
    first.State().Detach("Declarations");
    first.State().Detach("File");
    SourceFileReview second(FileType::Module, "Sub G()\n", first.SharedState());
    EXPECT_EQ(second.Run(), TickResult::Failed);
}

TEST(VB6ParserProcedures, ProcedureOfManyLinesIsReviewedToItsEnd) {
    std::string text = "Sub F()\n";
    for (int i = 0; i < 100000; ++i) {
        text += "x = 1\n";
    }
    SourceFileReview review(FileType::Module, text + "End Sub\n");
    EXPECT_EQ(review.Run(), TickResult::EndOfFile);
    EXPECT_EQ(review.Events().Count(ParserEvent::ProcedureBody), 100000);
}

}  // namespace
}  // namespace dorvik
