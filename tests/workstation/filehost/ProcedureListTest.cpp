#include "workstation/filehost/ProcedureList.h"

#include "workstation/filehost/modCodeLines.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

ProcedureList ListOf(std::string_view text) {
    return ProcedureList(modCodeLines::SplitText(text));
}

std::string Described(const CodeProcedure& procedure) {
    return procedure.Name + " " + std::to_string(static_cast<int>(procedure.Kind)) + ": " +
           std::to_string(procedure.StartLine) + " " + std::to_string(procedure.DefinitionLine) +
           " " + std::to_string(procedure.EndLine);
}

std::vector<std::string> DescribedAll(std::string_view text) {
    std::vector<std::string> all;
    const ProcedureList list = ListOf(text);
    for (const CodeProcedure& procedure : list.Procedures()) {
        all.push_back(Described(procedure));
    }
    return all;
}

using Texts = std::vector<std::string>;

}  // namespace

TEST(ProcedureList, CommentsAndBlankLinesInFrontBelongToTheProcedure) {
    EXPECT_EQ(
        DescribedAll(
            "Option Explicit\n\n' One.\nSub A()\nEnd Sub\n\n' Two.\nSub B()\nx = 1\nEnd Sub"),
        (Texts{"A 0: 2 4 5", "B 0: 6 8 10"}));
}

TEST(ProcedureList, DeclarationsEndAtTheirLastLineOfCode) {
    EXPECT_EQ(
        ListOf("Option Explicit\nDim a, _\n  b\n\n' A.\nSub A()\nEnd Sub")
            .CountOfDeclarationLines(),
        3);
    EXPECT_EQ(ListOf("' A.\nSub A()\nEnd Sub").CountOfDeclarationLines(), 0);
    EXPECT_EQ(ListOf("Dim a\n' note\n").CountOfDeclarationLines(), 3);
}

TEST(ProcedureList, KindsOfPropertiesAreToldApart) {
    EXPECT_EQ(
        DescribedAll(
            "Property Get P()\nEnd Property\nPublic Property Let P(v)\nEnd Property\n"
            "Friend Static Property Set P(v)\nEnd Property\nStatic Function P$()\nEnd Function"),
        (Texts{"P 3: 1 1 2", "P 1: 3 3 4", "P 2: 5 5 6", "P 0: 7 7 8"}));
}

TEST(ProcedureList, DefinitionMayGoOverSeveralLinesAndHaveTabsAndComments) {
    EXPECT_EQ(
        DescribedAll(
            "\tPrivate Sub A( _\n  b, _\n  c)\n\tEnd Sub ' A\nSub D ' no brackets\nEnd Sub"),
        (Texts{"A 0: 1 1 4", "D 0: 5 5 6"}));
}

TEST(ProcedureList, CharactersThatPrintAsABlankInFrontOfAStatementAreBlanks) {
    EXPECT_EQ(
        DescribedAll("\fSub A()\n\fEnd Sub\n12\fSub B(): \fEnd Sub"),
        (Texts{"A 0: 1 1 2", "B 0: 3 3 3"}));
    EXPECT_EQ(
        DescribedAll("\xC2\xA0 Sub A()\nx = 1:\xC2\xA0"
                     "End Sub"),
        Texts{"A 0: 1 1 2"});
    using namespace std::string_view_literals;
    EXPECT_EQ(DescribedAll("\0Sub A()\n\0End Sub"sv), Texts{"A 0: 1 1 2"});
}

TEST(ProcedureList, LineOfAPageBreakAndACommentBelongsToTheNextProcedure) {
    EXPECT_EQ(DescribedAll("Dim x\n\f\n\f' A.\nSub A()\nEnd Sub"), Texts{"A 0: 2 4 5"});
}

TEST(ProcedureList, TabIsABlankInFrontOfAStatementAlone) {
    EXPECT_EQ(DescribedAll("\tSub A()\n\tEnd Sub\nSub\tB()\nEnd Sub"), Texts{"A 0: 1 1 2"});
    EXPECT_EQ(DescribedAll("Sub A\t(b)\nEnd Sub"), Texts{"A 0: 1 1 2"});
}

TEST(ProcedureList, ContinuedLinesAreJoinedAsInAReview) {
    EXPECT_EQ(
        DescribedAll("Sub _\n  A _ \n ()\nEnd _\n\fSub\n_\n Sub B()\nEnd Sub"),
        (Texts{"A 0: 1 1 5", "B 0: 6 6 8"}));
}

TEST(ProcedureList, StatementsOfOneLineAreLookedAtOneByOne) {
    EXPECT_EQ(
        DescribedAll(
            "Sub A(): Beep: End Sub\nSub B()\nx = 1: End Sub\nSub C(): End Sub: Sub D(): End Sub"),
        (Texts{"A 0: 1 1 1", "B 0: 2 2 3", "C 0: 4 4 4", "D 0: 4 4 4"}));
}

TEST(ProcedureList, ElementsOfATypeAreNoProcedures) {
    EXPECT_EQ(
        DescribedAll(
            "Type T\nProperty As Long\nEnd Type\nDeclare Sub X Lib \"k\" ()\nSub A()\nEnd Sub"),
        (Texts{"A 0: 5 5 6"}));
}

TEST(ProcedureList, ProcedureWithoutAnEndGoesToTheLastLine) {
    EXPECT_EQ(DescribedAll("Sub A()\nx = 1\n\n"), (Texts{"A 0: 1 1 4"}));
}

TEST(ProcedureList, ProcedureIsFoundByNameAndKindWithoutRegardToCase) {
    const ProcedureList list =
        ListOf("Function F$()\nEnd Function\nProperty Get G()\nEnd Property");
    EXPECT_NE(list.Find("f", ProcedureKind::SubOrFunction), nullptr);
    EXPECT_NE(list.Find("F$", ProcedureKind::SubOrFunction), nullptr);
    EXPECT_EQ(list.Find("F", ProcedureKind::PropertyGet), nullptr);
    EXPECT_NE(list.Find("G", ProcedureKind::PropertyGet), nullptr);
    EXPECT_EQ(list.Find("", ProcedureKind::SubOrFunction), nullptr);
}

TEST(ProcedureList, LineBelongsToTheProcedureAroundIt) {
    const ProcedureList list = ListOf("Dim x\n\nSub A()\nEnd Sub\nSub B()\nEnd Sub\n' end");
    EXPECT_EQ(list.AtLine(1), nullptr);
    EXPECT_EQ(list.AtLine(2)->Name, "A");
    EXPECT_EQ(list.AtLine(4)->Name, "A");
    EXPECT_EQ(list.AtLine(5)->Name, "B");
    EXPECT_EQ(list.AtLine(7), nullptr);
}

TEST(ProcedureList, TextThatIsNoCodeHasNoProcedure) {
    EXPECT_EQ(DescribedAll("Sub\nSub \nEnd Sub\nPrivate Sub\nFunction"), Texts{});
    EXPECT_EQ(ListOf("").CountOfDeclarationLines(), 1);
    EXPECT_EQ(ProcedureList(std::vector<std::string>{}).CountOfDeclarationLines(), 0);
}

}  // namespace dorvik
