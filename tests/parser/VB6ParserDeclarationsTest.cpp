#include "parser/SourceFileReview.h"
#include "source/VirtualObject.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using Values = std::vector<std::string>;

Values ValuesOf(
    std::string_view text, ParserEvent event, std::string_view object, std::string_view property) {
    SourceFileReview review(FileType::Module, text);
    return review.ValuesAt(event, object, property);
}

struct ScopeRow {
    const char* Text;
    const char* Counts;  // public, private and all, of that kind
    const char* Kind;
};

TEST(VB6ParserDeclarations, DeclarationWithoutAScopeWordIsPublicOrPrivateByItsKind) {
    const ScopeRow rows[] = {
        {"Enum E\nEnd Enum\n", "1 0 1", "Enum"},
        {"Public Enum E\nEnd Enum\n", "1 0 1", "Enum"},
        {"Private Enum E\nEnd Enum\n", "0 1 1", "Enum"},
        {"Type T\nEnd Type\n", "1 0 1", "Type"},
        {"Public Type T\nEnd Type\n", "1 0 1", "Type"},
        {"Private Type T\nEnd Type\n", "0 1 1", "Type"},
        {"Declare Sub S Lib \"k\" ()\n", "1 0 1", "Declare"},
        {"Public Declare Sub S Lib \"k\" ()\n", "1 0 1", "Declare"},
        {"Private Declare Sub S Lib \"k\" ()\n", "0 1 1", "Declare"},
        {"Const C = 1\n", "0 1 1", "Const"},
        {"Private Const C = 1\n", "0 1 1", "Const"},
        {"Public Const C = 1, D = 2\n", "2 0 2", "Const"},
        {"Global Const C = 1\n", "1 0 1", "Const"},
        {"Dim v\n", "0 1 1", "Variable"},
        {"Private v\n", "0 1 1", "Variable"},
        {"Public v, w\n", "2 0 2", "Variable"},
        {"Global v\n", "1 0 1", "Variable"},
    };
    for (const FileType type : {FileType::Module, FileType::Class}) {
        for (const ScopeRow& row : rows) {
            SourceFileReview review(type, row.Text);
            EXPECT_EQ(review.Run(), TickResult::EndOfFile) << row.Text;
            const std::string kind = row.Kind;
            EXPECT_EQ(
                review.FileProperty("Public" + kind + "Count") + " " +
                    review.FileProperty("Private" + kind + "Count") + " " +
                    review.FileProperty(kind + "Count"),
                row.Counts)
                << row.Text;
        }
    }
}

TEST(VB6ParserDeclarations, FirstKeywordTestThatHoldsDecides) {
    EXPECT_EQ(EventsOf("Private Const C = 1\n"), "3 9 4 10 11 27 35");
    EXPECT_EQ(EventsOf("Private Enum E\nEnd Enum\n"), "3 9 4 10 14 4 17 27 35");
    EXPECT_EQ(EventsOf("Public Event E()\n"), "3 9 4 10 18 27 35");
    EXPECT_EQ(EventsOf("Private Type T\nEnd Type\n"), "3 9 4 10 21 4 24 27 35");
    EXPECT_EQ(EventsOf("Private Declare Sub S Lib \"k\" ()\n"), "3 9 4 10 12 27 35");
    EXPECT_EQ(EventsOf("Private v\n"), "3 9 4 10 25 27 35");
    EXPECT_EQ(EventsOf("Option Explicit\n"), "3 9 4 10 27 35");
}

TEST(VB6ParserDeclarations, OneDeclarationOfTwoVariablesFiresTwice) {
    EXPECT_EQ(EventsOf("Dim a, b As Long\n"), "3 9 4 10 25 25 27 35");
    EXPECT_EQ(
        ValuesOf("Dim a, b As Long\n", ParserEvent::Variable, "Variable", "Name"),
        (Values{"a", "b"}));
}

TEST(VB6ParserDeclarations, EachStatementOfALineIsADeclarationOfItsOwn) {
    EXPECT_EQ(EventsOf("Dim a: Const C = 1\n"), "3 9 4 10 25 10 11 27 35");
}

TEST(VB6ParserDeclarations, EnumBodyGivesItsElements) {
    const char* text = "Enum E\n  A\n  B = 2 ' two\n  ' only a comment\n  C=D = 1\nEnd Enum\n";
    EXPECT_EQ(EventsOf(text), "3 9 4 10 14 4 15 16 4 15 16 4 15 4 15 16 4 17 27 35");
    EXPECT_EQ(
        ValuesOf(text, ParserEvent::EnumElement, "EnumElement", "Name"), (Values{"A", "B", "C"}));
    EXPECT_EQ(
        ValuesOf(text, ParserEvent::EnumElement, "EnumElement", "Value"),
        (Values{"", "2", "D = 1"}));
    EXPECT_EQ(
        ValuesOf(text, ParserEvent::EnumElement, "EnumElement", "HasValue"),
        (Values{"False", "True", "True"}));
    EXPECT_EQ(ValuesOf(text, ParserEvent::EndEnum, "Enum", "ElementCount"), Values{"3"});
}

TEST(VB6ParserDeclarations, RemLineInAnEnumIsAnElementOfThatName) {
    EXPECT_EQ(
        ValuesOf("Enum E\nRem x\nEnd Enum\n", ParserEvent::EnumElement, "EnumElement", "Name"),
        Values{"Rem x"});
}

TEST(VB6ParserDeclarations, TypeBodyGivesItsElements) {
    const char* text =
        "Type T\n  a As Long\n  ' only a comment\n  b(1 To 3) As String * 10\nEnd Type\n";
    EXPECT_EQ(EventsOf(text), "3 9 4 10 21 4 22 23 4 22 4 22 23 4 24 27 35");
    EXPECT_EQ(
        ValuesOf(text, ParserEvent::TypeElement, "TypeElement", "DataType"),
        (Values{"Long", "String * 10"}));
    EXPECT_EQ(ValuesOf(text, ParserEvent::EndType, "Type", "ElementCount"), Values{"2"});
}

TEST(VB6ParserDeclarations, LineStatisticsOfAnEnumAndATypeCountBothTheirEnds) {
    for (const char* text :
         {"Enum E ' note\n\n' c\nA\nEnd Enum\n", "Type E ' note\n\n' c\nA As Long\nEnd Type\n"}) {
        SourceFileReview review(FileType::Module, ModuleText(text));
        std::string counts;
        review.Events().SetHandler([&](ParserEvent event) {
            if (event == ParserEvent::EndEnum || event == ParserEvent::EndType) {
                const char* name = event == ParserEvent::EndEnum ? "Enum" : "Type";
                const auto& stats = review.State().FindVirtualObject(name)->LineStats();
                counts = std::to_string(stats.TotalLines()) + " " +
                         std::to_string(stats.InLineCommentLines()) + " " +
                         std::to_string(stats.BlankLines());
            }
        });
        review.Run();
        EXPECT_EQ(counts, "5 1 1") << text;
    }
}

TEST(VB6ParserDeclarations, StartOfAnEnumIsKeptWithItsLine) {
    SourceFileReview review(FileType::Module, ModuleText("\nEnum E _\n  \nEnd Enum\n"));
    review.Run();
    EXPECT_EQ(review.State().ObjectStartLineNumber(), 2);
    EXPECT_EQ(review.State().ObjectStartSourceLine(), "Enum E _\r\n  ");
}

struct BagRow {
    const char* Text;
    ParserEvent Event;
    const char* Object;
    const char* Names;
    const char* Parent;
};

TEST(VB6ParserDeclarations, ObjectsHaveTheirPropertiesInOrderAndTheirParents) {
    const BagRow rows[] = {
        {"Private Enum E\n", ParserEvent::BeginEnum, "Enum", "Name Scope", "Declarations"},
        {"Enum E\nA = 1\n",
         ParserEvent::EnumElement,
         "EnumElement",
         "Name Value HasValue",
         "Declarations"},
        {"Type T\n", ParserEvent::BeginType, "Type", "Name Scope", "Declarations"},
        {"Type T\na As Long\n",
         ParserEvent::TypeElement,
         "TypeElement",
         "Name IsArray ArraySize DataType",
         "Declarations"},
        {"Event E(a)\n",
         ParserEvent::Event,
         "Event",
         "Name Scope ArgumentCount ArgumentList",
         "Declarations"},
        {"Event E(a)\n",
         ParserEvent::EventArgument,
         "Argument",
         "Name DefaultValue DataType IsOptional IsParamArray IsArray ParentObject PassBy Index",
         "Declarations"},
        {"Declare Function F Lib \"k\" Alias \"g\" (ByVal a As Long) As Long\n",
         ParserEvent::Declare,
         "Declare",
         "Scope ProcedureType Name Alias Lib ArgumentCount ArgumentList DataType",
         "Declarations"},
        {"Implements L.I\n",
         ParserEvent::Implements,
         "Implements",
         "Library Interface",
         "Declarations"},
        {"Const C = 1\n",
         ParserEvent::Const,
         "Const",
         "Name Scope Value IsMultiItem DataType IsLocal",
         "File"},
        {"Dim v\n",
         ParserEvent::Variable,
         "Variable",
         "Scope IsStatic IsWithEvents Name IsArray IsMultiItem ArraySize DataType IsLocal IsAsNew",
         "File"},
    };
    for (const BagRow& row : rows) {
        SourceFileReview review(FileType::Module, row.Text);
        std::string names;
        std::string parent;
        review.Events().SetHandler([&](ParserEvent event) {
            if (event == row.Event) {
                const VirtualObject& object = *review.State().FindVirtualObject(row.Object);
                names = PropertyNames(object);
                parent = object.ParentViolations();
            }
        });
        review.Run();
        EXPECT_EQ(names, row.Names) << row.Text;
        EXPECT_EQ(parent, row.Parent) << row.Text;
    }
}

TEST(VB6ParserDeclarations, DeclareStatementHasAllItsParts) {
    const char* text = "Private Declare Function F Lib \"kernel32\" Alias \"gA\" (ByVal a As Long, "
                       "b As Any) As Long\n";
    const std::pair<const char*, const char*> rows[] = {
        {"Scope", "Private"},
        {"ProcedureType", "Function"},
        {"Name", "F"},
        {"Alias", "gA"},
        {"Lib", "kernel32"},
        {"ArgumentCount", "2"},
        {"ArgumentList", "ByVal a As Long, b As Any"},
        {"DataType", "Long"},
    };
    for (const auto& [property, value] : rows) {
        EXPECT_EQ(ValuesOf(text, ParserEvent::Declare, "Declare", property), Values{value})
            << property;
    }
    EXPECT_EQ(EventsOf(text), "3 9 4 10 12 13 13 27 35");
    EXPECT_EQ(
        ValuesOf(text, ParserEvent::DeclareArgument, "Argument", "ParentObject"),
        (Values{"Declare", "Declare"}));
}

TEST(VB6ParserDeclarations, EventStaysInScopeForTheEventsOfItsArguments) {
    SourceFileReview review(FileType::Class, "Event E(a, b)\n");
    EXPECT_EQ(review.ValuesAt(ParserEvent::EventArgument, "Event", "Name"), (Values{"E", "E"}));
    EXPECT_EQ(review.FileProperty("EventCount"), "1");
    EXPECT_EQ(review.Events().Numbers(), "3 9 4 10 18 19 19 27 35");
    EXPECT_EQ(review.State().FindVirtualObject("Event"), nullptr);
}

TEST(VB6ParserDeclarations, EventWhoseArgumentsStandWithoutBlanksFiresWhatIsFound) {
    SourceFileReview review(FileType::Class, "Event E(a,b)\n");
    EXPECT_EQ(review.ValuesAt(ParserEvent::Event, "Event", "ArgumentCount"), Values{"2"});
    EXPECT_EQ(review.Events().Count(ParserEvent::EventArgument), 1);
}

TEST(VB6ParserDeclarations, ImplementsHasLibraryAndInterface) {
    EXPECT_EQ(
        ValuesOf("Implements L.I\n", ParserEvent::Implements, "Implements", "Library"),
        Values{"L"});
    EXPECT_EQ(
        ValuesOf("Implements L.I\n", ParserEvent::Implements, "Implements", "Interface"),
        Values{"I"});
    SourceFileReview review(FileType::Class, "Implements I\n");
    review.Run();
    EXPECT_EQ(review.FileProperty("ImplementsCount"), "1");
}

TEST(VB6ParserDeclarations, WithEventsVariableOwnsEventProcedures) {
    SourceFileReview review(
        FileType::Class,
        "Private WithEvents m As Foo\nPrivate n As Foo\n"
        "Private Sub m_Bar()\nEnd Sub\nPrivate Sub n_Bar()\nEnd Sub\n");
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::BeginProcedure, "Procedure", "IsEventProcedure"),
        (Values{"True", "False"}));
}

TEST(VB6ParserDeclarations, LocationIsThatOfDeclarationsAfterABody) {
    SourceFileReview review(FileType::Module, "Enum E\nEnd Enum\nDim x\n");
    std::string location;
    review.Events().SetHandler([&](ParserEvent event) {
        if (event == ParserEvent::Variable) {
            location = std::to_string(static_cast<int>(review.State().CurrentLocation()));
        }
    });
    review.Run();
    EXPECT_EQ(location, "3");
}

TEST(VB6ParserDeclarations, ObjectThatAFileLeavesOpenStaysInScopeAndFailsItsNextOpening) {
    test::CapturedLog log;
    SourceFileReview first(FileType::Module, "Enum E\nA\n");
    EXPECT_EQ(first.Run(), TickResult::EndOfFile);
    EXPECT_NE(first.State().FindVirtualObject("Enum"), nullptr);
    first.State().Detach("Declarations");
    first.State().Detach("File");
    SourceFileReview second(FileType::Module, "Type T\nEnd Type\nEnum F\n", first.SharedState());
    EXPECT_EQ(second.Run(), TickResult::Failed);
    EXPECT_EQ(second.Events().Numbers(), "3 9 4 10 21 4 24 4 10");
}

TEST(VB6ParserDeclarations, ErrorInsideAProcessOperationReachesTheStateOperation) {
    test::CapturedLog log;
    SourceFileReview review(FileType::Module, "Dim v\n");
    review.State().Attach(std::make_shared<VirtualObject>(), "Variable");
    EXPECT_EQ(review.Run(), TickResult::Failed);
    EXPECT_EQ(review.Events().Numbers(), "3 9 4 10");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("C_VB6Parser::State_DeclarationLine"), std::string::npos);
    EXPECT_NE(log.Lines()[0].find("'Variable' is already in use"), std::string::npos);
}

}  // namespace
}  // namespace dorvik
