#include "workstation/host/modViolationSearch.h"

#include "workstation/support/ScriptedCode.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

using modViolationSearch::Failure;
using modViolationSearch::Result;
using modViolationSearch::StoredPlace;

/// Two procedures after two declarations.
constexpr std::string_view kModule = "Option Explicit\r\n"             // 1
                                     "Private m_total As Long\r\n"     // 2
                                     "\r\n"                            // 3
                                     "Private Sub Add(n As Long)\r\n"  // 4
                                     "    m_total = m_total + _\r\n"   // 5
                                     "        n + _\r\n"               // 6
                                     "        1\r\n"                   // 7
                                     "End Sub\r\n"                     // 8
                                     "' What it is.\r\n"               // 9
                                     "Property Get Total() As Long\r\n"
                                     "    Total = m_total\r\n"  // 11
                                     "End Property\r\n"         // 12
                                     "Property Let Total(n As Long)\r\n"
                                     "    m_total = n\r\n"  // 14
                                     "End Property\r\n";    // 15

Result Search(std::string_view text, const StoredPlace& place) {
    test::HostCalls calls;
    test::ScriptedModule module(calls, "M");
    module.SetText(text);
    return modViolationSearch::Find(module, place);
}

}  // namespace

// A search would find the first of the two lines.
constexpr const char* kSameLineTwice = "Sub A()\nx = 1\ny = 2\nX = 1\nEnd Sub\n";

TEST(modViolationSearch, LineThatIsStillThereIsFoundInPlace) {
    EXPECT_EQ(Search(kSameLineTwice, {"X = 1", 4, 4, "A"}), (Result{4, Failure::None}));
    EXPECT_EQ(Search(kModule, {"    m_total = n", 14, 7, "Total"}), (Result{14, Failure::None}));
}

TEST(modViolationSearch, StatementOverThreePhysicalLinesIsFoundByItsFirstOne) {
    const StoredPlace place{"    m_total = m_total + _\r\n        n + _\r\n        1", 5, 4, "Add"};
    EXPECT_EQ(Search(kModule, place), (Result{5, Failure::None}));
    EXPECT_EQ(
        Search("' New.\r\n' New.\r\n" + std::string(kModule), place), (Result{7, Failure::None}));
}

TEST(modViolationSearch, LineThatMovedWithinItsProcedureIsFound) {
    const std::string moved = "Sub A()\nDebug.Print 1\nx = 1\nEnd Sub\n";
    EXPECT_EQ(Search(moved, {"x = 1", 2, 4, "A"}), (Result{3, Failure::None}));
}

TEST(modViolationSearch, LineThatMovedWithItsProcedureIsFoundInItsOwnProcedureOnly) {
    const std::string twice = "Sub A()\nx = 1\nEnd Sub\nSub New2()\nEnd Sub\nSub B()\ny = 2\n"
                              "x = 1\nEnd Sub\n";
    EXPECT_EQ(Search(twice, {"x = 1", 5, 4, "B"}), (Result{8, Failure::None}));
}

TEST(modViolationSearch, LineThatDiffersOnlyInCaseMatchesInPlace) {
    EXPECT_EQ(Search(kSameLineTwice, {"x = 1", 4, 4, "A"}), (Result{4, Failure::None}));
    EXPECT_EQ(Search(kModule, {"    M_TOTAL = N", 14, 7, "Total"}), (Result{14, Failure::None}));
}

TEST(modViolationSearch, LineThatWasCutShortStillMatchesInPlace) {
    // What was stored begins with what is there now.
    EXPECT_EQ(
        Search("Sub A()\nx = 1\nEnd Sub\n", {"x = 1 + 2", 2, 4, "A"}), (Result{2, Failure::None}));
}

TEST(modViolationSearch, LineThatWasLengthenedIsFoundByTheSearch) {
    EXPECT_EQ(
        Search("Sub A()\nx = 1 + 2\nEnd Sub\n", {"x = 1", 2, 4, "A"}), (Result{2, Failure::None}));
}

TEST(modViolationSearch, BlankLineAtTheStoredPlaceIsNoMatch) {
    const std::string blank = "Sub A()\n\n   \nx = 1\nEnd Sub\n";
    EXPECT_EQ(Search(blank, {"x = 1", 2, 4, "A"}), (Result{4, Failure::None}));
    EXPECT_EQ(Search(blank, {"x = 1", 3, 4, "A"}), (Result{4, Failure::None}));
}

TEST(modViolationSearch, LineAfterTheEndIsNoMatch) {
    EXPECT_EQ(
        Search("Sub A()\nx = 1\nEnd Sub\n", {"x = 1", 99, 4, "A"}), (Result{2, Failure::None}));
}

TEST(modViolationSearch, LineThatMovedInTheDeclarationsIsSearchedThereOnly) {
    EXPECT_EQ(
        Search("' New.\n" + std::string(kModule), {"Private m_total As Long", 2, 3, ""}),
        (Result{3, Failure::None}));
    const std::string elsewhere = "Option Explicit\nDim y\n\n\nSub A()\nDim x\nEnd Sub\n";
    EXPECT_EQ(Search(elsewhere, {"Dim x", 2, 3, ""}), (Result{0, Failure::LineMissing}));
}

TEST(modViolationSearch, LineBehindTheOldScopeIsStillSearched) {
    // One line more than the declarations, and one more than the procedure's.
    EXPECT_EQ(
        Search("Dim y\n' note\n\nSub A()\nEnd Sub\n", {"' note", 1, 3, ""}),
        (Result{2, Failure::None}));
    const std::string after = "Sub A()\nEnd Sub\n\n' note\n\nSub B()\nEnd Sub\n";
    EXPECT_EQ(Search(after, {"' note", 1, 4, "A"}), (Result{4, Failure::None}));
}

TEST(modViolationSearch, KindOfThePropertyDecidesWhichOneIsSearched) {
    const std::string text = "Property Get P()\nx = 1\nEnd Property\nProperty Let P(v)\nx = 1\n"
                             "End Property\nProperty Set P(v)\nx = 1\nEnd Property\n";
    EXPECT_EQ(Search(text, {"x = 1", 0, 6, "P"}).Line, 2);
    EXPECT_EQ(Search(text, {"x = 1", 0, 7, "P"}).Line, 5);
    EXPECT_EQ(Search(text, {"x = 1", 0, 8, "P"}).Line, 8);
}

TEST(modViolationSearch, LineThatIsGoneIsReported) {
    EXPECT_EQ(Search(kModule, {"    Beep", 5, 4, "Add"}), (Result{0, Failure::LineMissing}));
}

TEST(modViolationSearch, LineOfAProcedureThatIsGoneIsReportedAsALine) {
    EXPECT_EQ(
        Search(kModule, {"    m_total = n", 5, 4, "Gone"}), (Result{0, Failure::LineMissing}));
}

TEST(modViolationSearch, ViolationOfTheDeclarationsWithoutALineIsAtLineOne) {
    EXPECT_EQ(Search(kModule, {"", 0, 3, ""}), (Result{1, Failure::None}));
}

TEST(modViolationSearch, ViolationOfAProcedureWithoutALineIsAtItsStart) {
    EXPECT_EQ(Search(kModule, {"", 0, 4, "Add"}), (Result{3, Failure::None}));
    EXPECT_EQ(Search(kModule, {"", 0, 6, "Total"}), (Result{9, Failure::None}));
    EXPECT_EQ(Search(kModule, {"", 0, 7, "total"}), (Result{13, Failure::None}));
}

TEST(modViolationSearch, ViolationOfAProcedureThatIsGoneIsReported) {
    EXPECT_EQ(Search(kModule, {"", 0, 8, "Total"}), (Result{0, Failure::ProcedureMissing}));
    EXPECT_EQ(Search(kModule, {"", 4, 4, "Gone"}), (Result{0, Failure::ProcedureMissing}));
}

TEST(modViolationSearch, MessagesSayWhatToDo) {
    EXPECT_EQ(modViolationSearch::MessageOf(Failure::None), "");
    EXPECT_EQ(
        modViolationSearch::MessageOf(Failure::ProcedureMissing),
        "The procedure containing the violation cannot be found in the source and may have been "
        "deleted. You should "
        "review the source again to remove obsolete violations from the results.");
    EXPECT_EQ(
        modViolationSearch::MessageOf(Failure::LineMissing),
        "The source line containing the violation cannot be found in the source and may have been "
        "deleted or "
        "modified to such an extent that it is no longer recognisable as the same line. You should "
        "review the source "
        "again to update/remove obsolete violations from the results.");
}

}  // namespace dorvik
