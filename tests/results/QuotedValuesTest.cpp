// Names and paths as values of the statements: what a quote in one does.

#include "results/ResultsDB.h"
#include "results/ResultsDBFixture.h"

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QuotedValues : public test::ResultsDBFixture {};

TEST_F(QuotedValues, AQuoteInTheOutputNameIsStored) {
    Start();
    const auto project = SetUpProject();
    project->Properties().Add("ExeName32", "Ann's.exe', Name='x");
    m_results.Writer().LogVirtualObjectProperties(*project);
    EXPECT_THAT(
        Rows("SELECT ExeName32, Name FROM Projects", 2),
        ElementsAre("Ann's.exe', Name='x|Billing"));
}

// A script may put any text there.
TEST_F(QuotedValues, AMeasureThatIsNoNumberIsLoggedAndChangesNothing) {
    Start();
    SetUpProject();
    const auto file = SetUpFile("modA");
    file->Properties().Add("AverageCyclomatic", "1, Name = Filename");
    m_results.Writer().LogVirtualObjectProperties(*file);
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::LogVirtualObjectProperties"));
    EXPECT_THAT(
        Rows("SELECT Name, CyclomaticComplexity FROM SourceFiles", 2), ElementsAre("modA|"));
}

TEST_F(QuotedValues, AQuoteInANameOrAPathDoesNoHarm) {
    Start();
    SetUpProject("Ann's");
    auto file = Named("mod'A");
    file->Properties().Add("Path", "C:\\O'Brien\\");
    file->Properties().Add("Filename", "mod'A.bas");
    file->Properties().Add("Type", "Mod'ule");
    m_results.Writer().SetupVObjectResults("File", *file);
    EXPECT_EQ(SetUpProcedure("To'tal", "Sub'")->ObjectID(), 1);
    EXPECT_EQ(SetUpProcedure("To'tal", "Sub'")->ObjectID(), 1);  // the row that is there
    m_results.Editor().UpdateProjectName("Bob's");
    m_results.Editor().UpdateFileName("mod'B", 1);
    EXPECT_THAT(
        Rows("SELECT SourceID, Name, Path, Filename, Type FROM SourceFiles", 5),
        ElementsAre("1|mod'B|C:\\O'Brien\\|mod'A.bas|Mod'ule"));
    EXPECT_THAT(Rows("SELECT Name FROM Projects"), ElementsAre("Bob's"));
    EXPECT_THAT(
        Rows("SELECT SourceID, Name, Type FROM Procedures", 3), ElementsAre("1|To'tal|Sub'"));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

// Names that were conditions of their own as a part of the text.
TEST_F(QuotedValues, ANameThatReadsLikeAConditionGetsARowOfItsOwn) {
    Start();
    SetUpProject();
    EXPECT_EQ(SetUpFile("modA")->ObjectID(), 1);
    EXPECT_EQ(SetUpFile("x' OR Filename<>'")->ObjectID(), 2);
    EXPECT_EQ(SetUpProcedure("Other", "Sub")->ObjectID(), 1);
    SetUpFile(
        "x' OR Filename<>'");  // a file that is known already, so its procedures are looked for
    EXPECT_EQ(SetUpProcedure("y' OR Name<>'", "Sub' OR Type<>'")->ObjectID(), 2);
    EXPECT_THAT(
        Rows("SELECT Name, Filename FROM SourceFiles", 2),
        ElementsAre("modA|modA.bas", "x' OR Filename<>'|x' OR Filename<>'.bas"));
    EXPECT_THAT(Rows("SELECT Name FROM Procedures"), ElementsAre("Other", "y' OR Name<>'"));
}

/// A review that keeps the faults of older versions.
class QuotedValuesOfKnownFaults : public QuotedValues {
protected:
    void SetUp() override {
        QuotedValues::SetUp();
        m_criteria.SetKeepsKnownFaults(true);
    }
};

// A set-up that fails leaves `ObjectID` and the current source file at 0.
TEST_F(QuotedValuesOfKnownFaults, AQuoteInAFileNameCostsOnlyThatFile) {
    Start();
    SetUpProject();
    SetUpFile("modA");
    const auto quoted = SetUpFile("mod'B");
    EXPECT_EQ(quoted->ObjectID(), 0);
    EXPECT_EQ(quoted->ObjectType(), ItemType::File);
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::GetEditableRecordset"));
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::SetupSourceFile"));
    SetUpProcedure("Orphan", "Sub");
    const auto next = SetUpFile("modC");
    EXPECT_EQ(next->ObjectID(), 2);
    EXPECT_THAT(Rows("SELECT SourceID, Name FROM Procedures", 2), ElementsAre("0|Orphan"));
    EXPECT_THAT(Rows("SELECT Name FROM SourceFiles"), ElementsAre("modA", "modC"));
}

TEST_F(QuotedValuesOfKnownFaults, AQuoteInAProcedureNameCostsOnlyThatProcedure) {
    Start();
    SetUpProject();
    SetUpFile("modA");
    EXPECT_EQ(SetUpProcedure("To'tal", "Sub")->ObjectID(), 0);
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::SetupProcedure"));
    EXPECT_EQ(SetUpProcedure("Total", "Sub")->ObjectID(), 1);
    EXPECT_THAT(Rows("SELECT Name FROM Procedures"), ElementsAre("Total"));
}

TEST_F(QuotedValuesOfKnownFaults, AQuoteInAPathCostsTheFilesOfThatPath) {
    Start();
    SetUpProject();
    auto file = Named("modA");
    file->Properties().Add("Path", "C:\\O'Brien\\");
    file->Properties().Add("Filename", "modA.bas");
    file->Properties().Add("Type", "Module");
    m_results.Writer().SetupVObjectResults("File", *file);
    EXPECT_EQ(file->ObjectID(), 0);
    EXPECT_THAT(Rows("SELECT Name FROM SourceFiles"), IsEmpty());
}

// As a part of the text these would be sound SQL.
TEST_F(QuotedValuesOfKnownFaults, WhateverElseAValueWithAQuoteHoldsItFails) {
    Start();
    SetUpProject();
    SetUpFile("modA");
    EXPECT_EQ(SetUpFile("x' OR Filename<>'")->ObjectID(), 0);
    EXPECT_EQ(SetUpFile("doubled''")->ObjectID(), 0);
    EXPECT_THAT(Rows("SELECT Name FROM SourceFiles"), ElementsAre("modA"));
}

TEST_F(QuotedValuesOfKnownFaults, AQuoteInATypeIsLoggedAndCountsNothing) {
    Start();
    EXPECT_EQ(m_results.Items().GetSourceFileCount("Mod'ule"), 0);
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::GetReadOnlyRecordset"));
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::GetSourceFileCount"));
}

TEST_F(QuotedValuesOfKnownFaults, AQuoteInTheOutputNameIsLoggedAndStoresNothing) {
    Start();
    const auto project = SetUpProject();
    project->Properties().Add("ExeName32", "Ann's.exe");
    m_results.Writer().LogVirtualObjectProperties(*project);
    EXPECT_THAT(Rows("SELECT ExeName32 FROM Projects"), ElementsAre(""));
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::LogVirtualObjectProperties"));
}

TEST_F(QuotedValuesOfKnownFaults, ARowThatAKnownFaultCostsIsCountedButDoesNotKeepTheEndAway) {
    Start();
    SetUpProject();
    SetUpFile("mod'A");
    EXPECT_EQ(m_results.Failures().Count(), 1);
    EXPECT_EQ(m_results.Failures().Reason(), "a name or a path has a quote in it");
    m_results.Writer().EndReview(1);
    EXPECT_THAT(Rows("SELECT [End] FROM Review"), ElementsAre("20261121 140509"));
}

}  // namespace
}  // namespace dorvik
