#include "results/ResultsDB.h"

#include "platform/host/modFiles.h"
#include "results/ResultsDBFixture.h"
#include "results/modTolerances.h"
#include "support/FilesystemPaths.h"

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ResultsDBTest : public test::ResultsDBFixture {};

// ---- the review ----

TEST_F(ResultsDBTest, StartReviewWritesTheReviewRow) {
    m_rulebase.SetTitle("House rules");
    m_rulebase.SetVersion("2.1.0");
    auto& load = m_criteria.LoadCriteria();
    load.SetCodingConventions(true);
    load.SetUnauthorisedKeywords(true);
    load.NumUnauthKeywords = 30;
    load.NumDocConventions = 4;
    m_criteria.SetToleranceCount(1, 0);
    m_criteria.SetToleranceImpact(6, 900);
    m_criteria.SetToleranceCyclomaticComplexity(20);
    Start();
    EXPECT_THAT(
        Rows(
            "SELECT ReviewID, Start, [End], Type, RulebaseTitle, RulebaseVersion, Reviewer, "
            "ActiveRules, "
            "RuleExecutions, ProjectID FROM Review",
            10),
        ElementsAre("1|20261121 140509||2|House rules|2.1.0|ann|0||"));
    EXPECT_THAT(
        Rows(
            "SELECT CodingConventions, NamingConventions, DocumentationConventions, "
            "AuthorisedComponents, "
            "AuthorisedReferences, UnauthorisedKeywords, NumCodingConventions, "
            "NumNamingConventions, "
            "NumDocConventions, NumAuthComps, NumAuthRefs, NumUnauthKeywords FROM Review",
            12),
        ElementsAre("True|False|False|False|False|True|0|0|4|0|0|30"));
    EXPECT_THAT(
        Rows(
            "SELECT ToleranceCount1, ToleranceCount2, ToleranceCount3, ToleranceCount4, "
            "ToleranceCount5, "
            "ToleranceCount6, ToleranceImpact1, ToleranceImpact2, ToleranceImpact3, "
            "ToleranceImpact4, "
            "ToleranceImpact5, ToleranceImpact6, ToleranceCyclomaticComplexity, "
            "TolerancePercentageComments FROM Review",
            14),
        ElementsAre("0|-1|-1|-1|-1|-1|-1|-1|-1|-1|-1|900|20|-1"));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ResultsDBTest, AnExcludedCategoryHasNoRowWhileAnExcludedSeverityKeepsItsRow) {
    AddCategory(7, "Jumps");
    AddCategory(8, "Layout");
    AddCategory(9, "Names");
    m_criteria.LoadCriteria().AddExcludedCategoryID(8);
    m_criteria.LoadCriteria().SetSeverityLevel(1, true);
    m_criteria.LoadCriteria().SetSeverityLevel(5, true);
    Start();
    EXPECT_THAT(
        Rows("SELECT ReviewID, CategoryID, Category FROM CategoryList", 3),
        ElementsAre("1|7|Jumps", "1|9|Names"));
    EXPECT_THAT(
        Rows(
            "SELECT ReviewID, SeverityLevel, SeverityText, SeverityColour, Included FROM "
            "SeverityList",
            5),
        ElementsAre(
            "1|1|Critical|14|True",
            "1|2|High|16|False",
            "1|3|Medium|2|False",
            "1|4|Low|11|False",
            "1|5|Info|15|True"));
}

TEST_F(ResultsDBTest, EndReviewStampsTheEndAndLeavesTheDatabaseOpen) {
    Start();
    m_clock.Time.Hour = 15;
    m_results.Writer().EndReview(4711);
    EXPECT_THAT(
        Rows("SELECT Start, [End], RuleExecutions FROM Review", 3),
        ElementsAre("20261121 140509|20261121 150509|4711"));
    SetUpProject();
    EXPECT_THAT(Rows("SELECT Name FROM Projects"), ElementsAre("Billing"));
}

TEST_F(ResultsDBTest, AnAbortedReviewRemovesTheFile) {
    Start();
    SetUpProject();
    m_results.Writer().AbortReview();
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.HostPath()));
    EXPECT_FALSE(m_results.OpenReview(m_path));
}

TEST_F(ResultsDBTest, AbortingBeforeAnyStartDoesNothing) {
    ResultsDB results;
    results.Writer().AbortReview();
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ResultsDBTest, ASecondReviewHasNothingOfTheFirst) {
    Start();
    SetUpProject("Old");
    SetUpFile("modOld");
    m_results.Writer().EndReview(1);
    m_results.CloseReview();
    Database::DeleteFile(m_path);
    modFiles::CopyFile(test::ProgramPath(DORVIK_RESULTS_TEMPLATE), m_path);
    Start();
    SetUpProject("New");
    EXPECT_THAT(Rows("SELECT Name FROM Projects"), ElementsAre("New"));
    EXPECT_THAT(Rows("SELECT Name FROM SourceFiles"), IsEmpty());
    EXPECT_THAT(Rows("SELECT ReviewID, ProjectID FROM Review", 2), ElementsAre("1|1"));
}

TEST_F(ResultsDBTest, AnotherVersionIsNotStartedAndNothingIsWritten) {
    for (const std::string_view version : {"6.01.0000", "6.02.0001", ""}) {
        Database database;
        database.Open(m_path);
        database.Execute("UPDATE SystemInfo SET Version = '" + std::string(version) + "'");
        database.Close();
        EXPECT_FALSE(m_results.Writer().StartReview(m_path, m_rulebase, m_criteria)) << version;
        EXPECT_THAT(Rows("SELECT ReviewID FROM Review"), IsEmpty());
    }
}

TEST_F(ResultsDBTest, AFileThatIsNoDatabaseIsLoggedAndNotStarted) {
    const std::string path = m_folder.Write("Other.mdb", std::string(3000, 'x'));
    EXPECT_FALSE(m_results.Writer().StartReview(path, m_rulebase, m_criteria));
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::OpenDatabase"));
    EXPECT_FALSE(m_results.Writer().StartReview(m_folder.Path("None.mdb"), m_rulebase, m_criteria));
}

// ---- set-up ----

TEST_F(ResultsDBTest, TheProjectGetsItsRowAndTheReviewItsProject) {
    Start();
    const auto project = SetUpProject();
    EXPECT_EQ(project->ObjectID(), 1);
    EXPECT_EQ(project->ObjectType(), ItemType::Project);
    EXPECT_EQ(m_results.ProjectID(), 1);
    EXPECT_THAT(
        Rows("SELECT ProjectID, Name, Path, Filename, Type, ExeName32 FROM Projects", 6),
        ElementsAre("1|Billing|C:\\Src\\|Billing.vbp|Exe|"));
    EXPECT_THAT(Rows("SELECT ProjectID FROM Review"), ElementsAre("1"));
}

TEST_F(ResultsDBTest, TheProjectFileAndSourceFilesAreRowsOfOneTable) {
    Start();
    SetUpProject();
    const auto projectFile = SetUpFile("Billing", "vbp");  // kinds compare without regard to case
    const auto file = SetUpFile("modTotals");
    EXPECT_EQ(projectFile->ObjectID(), 1);
    EXPECT_EQ(projectFile->ObjectType(), ItemType::File);
    EXPECT_EQ(file->ObjectID(), 2);
    EXPECT_EQ(file->ObjectType(), ItemType::File);
    EXPECT_THAT(
        Rows("SELECT SourceID, ProjectID, Name, Path, Filename, Type FROM SourceFiles", 6),
        ElementsAre(
            "1|1|Billing|C:\\Src\\|Billing.bas|Module",
            "2|1|modTotals|C:\\Src\\|modTotals.bas|Module"));
}

TEST_F(ResultsDBTest, AFileAlreadyThereOnlyChangesItsNameAndType) {
    Start();
    SetUpProject();
    SetUpFile("modA");
    SetUpFile("modB");
    auto again = Named("Renamed");
    again->Properties().Add("Path", "c:\\SRC\\");
    again->Properties().Add("Filename", "MODA.bas");
    again->Properties().Add("Type", "Class");
    m_results.Writer().SetupVObjectResults("File", *again);
    EXPECT_EQ(again->ObjectID(), 1);
    EXPECT_THAT(
        Rows("SELECT SourceID, Name, Path, Filename, Type FROM SourceFiles", 5),
        ElementsAre("1|Renamed|C:\\Src\\|modA.bas|Class", "2|modB|C:\\Src\\|modB.bas|Module"));
}

TEST_F(ResultsDBTest, ProceduresBelongToTheFileSetUpLast) {
    Start();
    SetUpProject();
    SetUpFile("modA");
    const auto first = SetUpProcedure("Total", "Function");
    SetUpFile("modB");
    const auto second = SetUpProcedure("Total", "Function");
    EXPECT_EQ(first->ObjectID(), 1);
    EXPECT_EQ(second->ObjectID(), 2);
    EXPECT_EQ(second->ObjectType(), ItemType::Procedure);
    EXPECT_THAT(
        Rows("SELECT ProcID, SourceID, Name, Type, Scope, IsStatic, ReturnType FROM Procedures", 7),
        ElementsAre("1|1|Total|Function|Public|True|Long", "2|2|Total|Function|Public|True|Long"));
}

TEST_F(ResultsDBTest, AFileThatIsSetUpAgainFindsTheProceduresThatItHad) {
    Start();
    SetUpProject();
    SetUpFile("modA");
    SetUpProcedure("Total", "Function");
    SetUpFile("modB");
    SetUpFile("modA");
    EXPECT_EQ(SetUpProcedure("total", "Function")->ObjectID(), 1);
    EXPECT_EQ(SetUpProcedure("Other", "Function")->ObjectID(), 2);
    EXPECT_THAT(
        Rows("SELECT SourceID, Name FROM Procedures", 2), ElementsAre("1|Total", "1|Other"));
}

TEST_F(ResultsDBTest, TwoProceduresOfOneNameAndTypeShareARow) {
    Start();
    SetUpProject();
    SetUpFile("modA");
    SetUpProcedure("Total", "Property Get");
    const auto other = SetUpProcedure("Total", "Property Let");
    const auto same = SetUpProcedure("TOTAL", "property get", "Private");
    EXPECT_EQ(other->ObjectID(), 2);
    EXPECT_EQ(same->ObjectID(), 1);
    EXPECT_THAT(
        Rows("SELECT Name, Type, Scope FROM Procedures", 3),
        ElementsAre("Total|Property Get|Private", "Total|Property Let|Public"));
}

TEST_F(ResultsDBTest, SectionsAreRowsOfTheProceduresWithEmptyValues) {
    Start();
    SetUpProject();
    SetUpFile("frmA");
    VirtualObject layout;
    VirtualObject declarations;
    VirtualObject again;
    m_results.Writer().SetupVObjectResults("Layout", layout);
    m_results.Writer().SetupVObjectResults("Declarations", declarations);
    m_results.Writer().SetupVObjectResults("Layout", again);
    EXPECT_EQ(layout.ObjectID(), 1);
    EXPECT_EQ(layout.ObjectType(), ItemType::Procedure);
    EXPECT_EQ(declarations.ObjectID(), 2);
    EXPECT_EQ(again.ObjectID(), 1);
    EXPECT_THAT(
        Rows("SELECT SourceID, Name, Type, Scope, IsStatic, ReturnType FROM Procedures", 6),
        ElementsAre("1|Layout|||False|", "1|Declarations|||False|"));
}

TEST_F(ResultsDBTest, AnyOtherKindDoesNothing) {
    Start();
    VirtualObject object;
    object.SetObjectID(5);
    m_results.Writer().SetupVObjectResults("Control", object);
    EXPECT_EQ(object.ObjectID(), 5);
    EXPECT_EQ(object.ObjectType(), ItemType::None);
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ResultsDBTest, AnObjectWithoutAPropertyThatItsRowNeedsIsLoggedAndHasNoRow) {
    Start();
    VirtualObject object;
    m_results.Writer().SetupVObjectResults("Procedure", object);
    EXPECT_EQ(object.ObjectID(), 0);
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::SetupProcedure"));
    EXPECT_THAT(Rows("SELECT Name FROM Procedures"), IsEmpty());
}

TEST_F(ResultsDBTest, WritingWithoutAnOpenDatabaseIsLogged) {
    m_results.Writer().LogViolation(1, ItemType::Procedure, Breach(1, 900));
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::LogViolation"));
}

// ---- violations and figures ----

TEST_F(ResultsDBTest, LogViolationWritesEveryField) {
    Start();
    Violation violation = Breach(2, 750, 7);
    violation.Title = "It's [End] & True";
    violation.SourceLine = std::string(15000, 'x');
    violation.LineBottomOffset = 3;
    m_results.Writer().LogViolation(4, ItemType::Procedure, violation);
    EXPECT_THAT(
        Rows(
            "SELECT ViolationID, ItemID, ItemType, RuleID, RuleType, Title, Description, Advice, "
            "Severity, "
            "Impact, CategoryID, LineNum, Loc, LocMember, SourceLine, BottomOffset, Completed FROM "
            "Violations",
            17),
        ElementsAre(
            "1|4|3|5000|3|It's [End] & True|Description|Advice|2|750|7|12|4|Member|" +
            violation.SourceLine + "|3|False"));
}

TEST_F(ResultsDBTest, AViolationIsOnDiskAtOnce) {
    Start();
    m_results.Writer().LogViolation(1, ItemType::Project, Breach(1, 900));
    EXPECT_THAT(
        Rows("SELECT Count(ViolationID) FROM Violations"),
        ElementsAre("1"));  // a second connection
}

TEST_F(ResultsDBTest, AViolationWithoutACategoryHasNoCategoryRow) {
    AddCategory(7, "Jumps");
    Start();
    m_results.Writer().LogViolation(1, ItemType::Procedure, Breach(1, 900, -1));
    m_results.Writer().LogViolation(1, ItemType::Procedure, Breach(1, 900, 7));
    EXPECT_THAT(Rows("SELECT CategoryID FROM CategoryList"), ElementsAre("7"));
    EXPECT_THAT(
        Rows("SELECT Count(Violations.ViolationID) AS ViolCount FROM Violations WHERE CategoryID = "
             "-1 AND "
             "Severity = 1"),
        ElementsAre("1"));
}

TEST_F(ResultsDBTest, PropertiesOfTheProjectGoToItsRow) {
    Start();
    const auto project = SetUpProject();
    m_results.Writer().LogVirtualObjectProperties(*project);
    EXPECT_THAT(Rows("SELECT ExeName32 FROM Projects"), ElementsAre(""));
    project->Properties().Add("ExeName32", "Billing.exe");
    m_results.Writer().LogVirtualObjectProperties(*project);
    EXPECT_THAT(Rows("SELECT ExeName32 FROM Projects"), ElementsAre("Billing.exe"));
}

TEST_F(ResultsDBTest, ComplexitiesGoToFileAndProcedure) {
    Start();
    SetUpProject();
    const auto without = SetUpFile("modA");
    m_results.Writer().LogVirtualObjectProperties(*without);
    const auto file = SetUpFile("modB");
    file->Properties().Add("AverageCyclomatic", 4);
    file->Properties().Add("MaximumCyclomatic", 9);
    m_results.Writer().LogVirtualObjectProperties(*file);
    const auto procedure = SetUpProcedure("Total", "Sub");
    procedure->Properties().Add("CyclomaticComplexity", 9);
    m_results.Writer().LogVirtualObjectProperties(*procedure);
    EXPECT_THAT(Rows("SELECT CyclomaticComplexity FROM Procedures"), ElementsAre("9"));
    EXPECT_THAT(Rows("SELECT CyclomaticComplexity FROM SourceFiles"), ElementsAre("", "4"));
}

TEST_F(ResultsDBTest, AFileWithoutAnAverageKeepsANullComplexity) {
    Start();
    SetUpProject();
    m_results.Writer().LogVirtualObjectProperties(*SetUpFile("modA"));
    EXPECT_THAT(
        Rows("SELECT SourceID FROM SourceFiles WHERE CyclomaticComplexity IS NULL"),
        ElementsAre("1"));
}

TEST_F(ResultsDBTest, AFileWithoutTolerancesKeepsAllMeasureColumnsNull) {
    Start();
    SetUpProject();
    const auto file = SetUpFile("modA");
    modTolerances::SetTolerancePassValue(*file, m_criteria, false);
    m_results.Writer().LogVirtualObjectProperties(*file);
    for (const auto& measure : modTolerances::kMeasures) {
        const std::string name(measure.Name);
        EXPECT_THAT(
            Rows(
                "SELECT SourceID FROM SourceFiles WHERE " + name + " IS NULL AND " + name +
                "Limit IS NULL AND " + name + "Pass IS NULL"),
            ElementsAre("1"))
            << name;
    }
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ResultsDBTest, AFileWithoutTolerancesIsNotWrittenAgain) {
    Start();
    SetUpProject();
    const auto file = SetUpFile("modA");
    // Each write makes the log beside the database longer.
    const auto written = [this] {
        return modFiles::ReadBytes(m_path + "-wal").size();
    };
    const std::size_t before = written();
    ASSERT_GT(before, 0U);
    modTolerances::SetTolerancePassValue(*file, m_criteria, false);
    m_results.Writer().LogVirtualObjectProperties(*file);
    EXPECT_EQ(written(), before);
    m_criteria.SetToleranceCount(1, 0);
    modTolerances::SetTolerancePassValue(*file, m_criteria, false);
    m_results.Writer().LogVirtualObjectProperties(*file);
    EXPECT_GT(written(), before);
}

TEST_F(ResultsDBTest, AllMeasuresOfAFileAreStored) {
    Start();
    SetUpProject();
    const auto file = SetUpFile("modA");
    for (std::int32_t index = 1; index <= 6; ++index) {
        m_criteria.SetToleranceCount(index, 0);
        m_criteria.SetToleranceImpact(index, 100 * index);
    }
    m_criteria.SetTolerancePercentageComments(10);
    m_criteria.SetToleranceCyclomaticComplexity(8);
    file->ViolationStats().IncrementCount(2, 150);
    file->LineStats().SetCodeLines(8);
    file->LineStats().SetCommentOnlyLines(2);
    file->Properties().Add("MaximumCyclomatic", 9);
    modTolerances::SetTolerancePassValue(*file, m_criteria, false);
    m_results.Writer().LogVirtualObjectProperties(*file);
    EXPECT_THAT(
        Rows(
            "SELECT CVC, CVCLimit, CVCPass, HVC, HVCLimit, HVCPass, TVCPass, HVI, HVILimit, "
            "HVIPass, PC, "
            "PCLimit, PCPass, CC, CCLimit, CCPass FROM SourceFiles",
            16),
        ElementsAre("0|0|-1|1|0|0|0|150|200|-1|20|10|-1|9|8|0"));
}

TEST_F(ResultsDBTest, LineAndViolationCountsAreStoredAndReadBack) {
    Start();
    const auto project = SetUpProject();
    project->LineStats().SetTotalLines(20);
    project->LineStats().SetCodeLines(12);
    project->LineStats().SetInLineCommentLines(3);
    project->LineStats().SetCommentOnlyLines(5);
    project->LineStats().SetBlankLines(2);
    for (std::int32_t severity = 1; severity <= 5; ++severity) {
        project->ViolationStats().IncrementCount(severity, severity * 10);
    }
    project->ViolationStats().IncrementCount(5, 1);
    m_results.Writer().LogVirtualObjectLineStats(*project);
    m_results.Writer().LogVirtualObjectViolationStats(*project);
    EXPECT_THAT(
        Rows(
            "SELECT ItemID, ItemType, TotalCount, CodeCount, InlineCommentCount, CommentCount, "
            "BlankCount "
            "FROM LineCountStats",
            7),
        ElementsAre("1|1|20|12|3|5|2"));
    EXPECT_THAT(
        Rows(
            "SELECT ItemID, ItemType, TotalCount, CriticalCount, HighCount, MediumCount, LowCount, "
            "InformationCount, TotalImpact, CriticalImpact, HighImpact, MediumImpact, LowImpact, "
            "InformationImpact FROM ViolationStats",
            14),
        ElementsAre("1|1|6|1|1|1|1|2|151|10|20|30|40|51"));
    const ViolationStatistics stats = m_results.Figures().GetViolationStats(ItemType::Project, 1);
    EXPECT_EQ(stats.TotalViolations(), 6);
    EXPECT_EQ(stats.Count(Severity::Information), 2);
    EXPECT_EQ(stats.Impact(Severity::Critical), 10);
    EXPECT_EQ(stats.Impact(Severity::High), 20);
    EXPECT_EQ(stats.Impact(Severity::Medium), 30);
    EXPECT_EQ(stats.Impact(Severity::Low), 40);
    EXPECT_EQ(stats.Impact(Severity::Information), 51);
    EXPECT_EQ(stats.TotalImpact(), 151);
    EXPECT_EQ(m_results.Figures().GetLineStats(ItemType::Project, 1).CommentOnlyLines(), 5);
    EXPECT_EQ(m_results.Figures().GetLineStats(ItemType::Project, 1).InLineCommentLines(), 3);
    EXPECT_EQ(m_results.Figures().GetLineStats(ItemType::Project, 1).BlankLines(), 2);
    EXPECT_EQ(m_results.Figures().GetLineStats(ItemType::Project, 1).TotalLines(), 20);
    EXPECT_EQ(m_results.Figures().GetLineStats(ItemType::Project, 1).CodeLines(), 12);
}

TEST_F(ResultsDBTest, AnItemWithoutARowHasZeros) {
    Start();
    EXPECT_EQ(m_results.Figures().GetViolationStats(ItemType::Procedure, 99).TotalViolations(), 0);
    EXPECT_EQ(m_results.Figures().GetLineStats(ItemType::Procedure, 99).TotalLines(), 0);
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

}  // namespace
}  // namespace dorvik
