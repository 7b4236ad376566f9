// What is read back from a review; the texts themselves are in ResultsSqlTest.cpp.

#include "results/FilledResultsFixture.h"

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ResultsDBQueries : public test::FilledResultsFixture {
protected:
    static std::vector<std::string> Names(const std::vector<BasicObject>& list) {
        std::vector<std::string> names;
        for (const BasicObject& object : list) {
            names.push_back(object.Name);
        }
        return names;
    }

    /// A reader on the same file with settings of its own.
    DVKWorkData m_settings;
};

class EmptyResultsDB : public test::ResultsDBFixture {};

// ---- opening ----

TEST_F(ResultsDBQueries, OpenReviewKeepsBothKeys) {
    ResultsDB reader;
    EXPECT_TRUE(reader.OpenReview(m_path));
    EXPECT_TRUE(reader.ReviewOpen());
    EXPECT_EQ(reader.ReviewID(), 1);
    EXPECT_EQ(reader.ProjectID(), 1);
    reader.CloseReview();
    EXPECT_FALSE(reader.ReviewOpen());
}

TEST_F(EmptyResultsDB, ADatabaseWithoutAReviewDoesNotOpen) {
    EXPECT_FALSE(m_results.OpenReview(m_path));
    EXPECT_FALSE(m_results.ReviewOpen());
    Database::DeleteFile(m_path);  // it was closed again
}

TEST_F(ResultsDBQueries, ADatabaseOfAnyOtherVersionDoesNotOpen) {
    m_results.CloseReview();
    for (const std::string_view version : {"6.02.0001", "6.01.0000", "6.2", ""}) {
        Database database;
        database.Open(m_path);
        database.Execute("UPDATE SystemInfo SET Version = '" + std::string(version) + "'");
        database.Close();
        EXPECT_FALSE(m_results.OpenReview(m_path)) << version;
    }
}

TEST_F(ResultsDBQueries, QueriesWithoutAnOpenReviewAreLoggedAndAnswerWithNothing) {
    m_results.CloseReview();
    EXPECT_THAT(m_results.Items().GetProjectSourceFileList(true, false), IsEmpty());
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::GetProjectSourceFileList"));
    EXPECT_EQ(m_results.Figures().GetProjectViolationStats(1, true), ViolationTally());
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::GetProjectViolationStats"));
    EXPECT_FALSE(m_results.Violations().GetSourceFileValueList());
    EXPECT_EQ(m_results.Violations().GetSourceFileViolationsList(2).Count(), 0);
    EXPECT_EQ(m_results.Items().GetProjectData("Name"), "");
    EXPECT_TRUE(m_results.Review().GetReviewData().Start.IsZero());
    EXPECT_FALSE(m_results.Items().SourceFileHasProcs(2, false));
}

// ---- the review ----

TEST_F(ResultsDBQueries, TheReviewTellsOfItself) {
    const ReviewData data = m_results.Review().GetReviewData();
    EXPECT_EQ(data.RulebaseTitle, "House rules");
    EXPECT_EQ(data.RulebaseVersion, "1.0.0");
    EXPECT_EQ(data.Reviewer, "ann");
    EXPECT_EQ(data.Start, (DateTime{2026, 11, 21, 14, 5, 9}));
    EXPECT_EQ(data.End, data.Start);
    EXPECT_EQ(data.ActiveRules, 0);
    EXPECT_EQ(data.RuleExecutions, 12);
}

TEST_F(EmptyResultsDB, AReviewThatDidNotEndHasNoEndDate) {
    Start();
    const ReviewData data = m_results.Review().GetReviewData();
    EXPECT_EQ(data.Start, (DateTime{2026, 11, 21, 14, 5, 9}));
    EXPECT_TRUE(data.End.IsZero());
    EXPECT_EQ(data.RuleExecutions, 0);
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(EmptyResultsDB, TheCriteriaComeBackAsTheyWereStored) {
    m_criteria.LoadCriteria().SetNamingConventions(true);
    m_criteria.LoadCriteria().SetAuthorisedReferences(true);
    m_criteria.LoadCriteria().SetSeverityLevel(1, true);
    m_criteria.LoadCriteria().SetSeverityLevel(4, true);
    m_criteria.LoadCriteria().NumNamingConventions = 21;
    m_criteria.LoadCriteria().NumAuthRefs = 3;
    m_criteria.SetToleranceCount(6, 40);
    m_criteria.SetToleranceImpact(2, 0);
    m_criteria.SetTolerancePercentageComments(15);
    Start();
    const StoredReviewCriteria stored = m_results.Review().GetReviewCriteria();
    EXPECT_TRUE(stored.LoadCriteria.NamingConventions());
    EXPECT_TRUE(stored.LoadCriteria.AuthorisedReferences());
    EXPECT_FALSE(stored.LoadCriteria.CodingConventions());
    EXPECT_FALSE(stored.LoadCriteria.DocumentationConventions());
    EXPECT_FALSE(stored.LoadCriteria.AuthorisedComponents());
    EXPECT_FALSE(stored.LoadCriteria.UnauthorisedKeywords());
    EXPECT_EQ(stored.LoadCriteria.NumNamingConventions, 21);
    EXPECT_EQ(stored.LoadCriteria.NumAuthRefs, 3);
    for (std::int32_t level = 1; level <= 5; ++level) {
        EXPECT_EQ(stored.LoadCriteria.SeverityLevel(level), level == 1 || level == 4) << level;
    }
    for (std::int32_t index = 1; index <= 6; ++index) {
        EXPECT_EQ(stored.Tolerances.Count.Item(index), index == 6 ? 40 : -1) << index;
        EXPECT_EQ(stored.Tolerances.Impact.Item(index), index == 2 ? 0 : -1) << index;
    }
    EXPECT_EQ(stored.Tolerances.Count.Count(), 6);
    EXPECT_EQ(stored.Tolerances.CyclomaticComplexity, -1);
    EXPECT_EQ(stored.Tolerances.PercentageComments, 15);
}

TEST_F(ResultsDBQueries, CategoriesAreSortedAndSeveritiesKeyedByLevel) {
    const CategorySeverityLists lists = m_results.Review().GetCategorySeverityLists();
    ASSERT_EQ(lists.Categories.Count(), 2);
    EXPECT_EQ(lists.Categories.Item(1)->Title(), "Clarity");
    EXPECT_EQ(lists.Categories.Item(1)->ID(), 8);
    EXPECT_EQ(lists.Categories.Item(2)->Title(), "Jumps");
    ASSERT_EQ(lists.Severities.Count(), 5);
    EXPECT_EQ(lists.Severities.Item("2Key")->Title(), "High");
    EXPECT_EQ(lists.Severities.Item("2Key")->Colour(), 16);
    EXPECT_TRUE(lists.Severities.Selected("2Key"));
    EXPECT_FALSE(lists.Severities.Selected("1Key"));
}

// ---- items ----

TEST_F(ResultsDBQueries, TheProjectComesWithItsViolations) {
    const BasicObject project = m_results.Items().GetProjectDetails(false);
    EXPECT_EQ(project.ObjectID, 1);
    EXPECT_EQ(project.Name, "Billing");
    EXPECT_EQ(project.Filename, "Billing.vbp");
    EXPECT_EQ(project.ObjectType, "Exe");
    EXPECT_EQ(project.ViolationCount, 6);
    EXPECT_EQ(project.ViolationImpact, 2310);
    FilterOfAll().SetSeverityLevel(1, false);
    EXPECT_EQ(m_results.Items().GetProjectDetails(false).ViolationCount, 5);
    EXPECT_EQ(m_results.Items().GetProjectDetails(true).ViolationCount, 6);
}

TEST_F(ResultsDBQueries, FilesComeByNameWithTheirFigures) {
    const auto files = m_results.Items().GetProjectSourceFileList(true, false);
    ASSERT_THAT(Names(files), ElementsAre("Billing", "frmB", "modA"));
    const BasicObject& module = files[2];
    EXPECT_EQ(module.ObjectID, 2);
    EXPECT_EQ(module.Filename, "modA.bas");
    EXPECT_EQ(module.Path, "C:\\Src\\");
    EXPECT_EQ(module.ObjectType, "Module");
    EXPECT_EQ(module.CyclomaticComplexity, 9);
    EXPECT_EQ(module.ViolationCount, 4);
    EXPECT_EQ(module.ViolationImpact, 1360);
    EXPECT_EQ(module.SourceLines, 100);
    EXPECT_FLOAT_EQ(module.CodeCommentRatio, 25.0F);  // 20 of 80 code lines
    EXPECT_EQ(files[0].ViolationCount, 1);
    EXPECT_EQ(files[1].SourceLines, 0);
    EXPECT_EQ(files[1].CodeCommentRatio, 0.0F);
    EXPECT_EQ(files[1].CyclomaticComplexity, 0);
}

TEST_F(ResultsDBQueries, FilesFollowTheSortFieldsOrTheirFileNames) {
    m_results.Order().Fields().FileSortKey = ListOrder::kSortByCount;
    m_results.Order().Fields().FileSortAscending = false;
    EXPECT_THAT(
        Names(m_results.Items().GetProjectSourceFileList(true, false)),
        ElementsAre("modA", "Billing", "frmB"));
    m_results.Order().Fields().FileSortAscending = true;
    m_results.Order().Fields().FileSortKey = ListOrder::kSortByImpact;
    EXPECT_THAT(
        Names(m_results.Items().GetProjectSourceFileList(true, false)),
        ElementsAre("frmB", "Billing", "modA"));
    m_results.Order().Fields().FileSortAscending = false;
    EXPECT_THAT(
        Names(m_results.Items().GetProjectSourceFileList(true, true)),
        ElementsAre("Billing", "frmB", "modA"));  // always ascending
}

TEST_F(ResultsDBQueries, FilesWithoutViolationsAreHiddenWhereTheSettingsSaySo) {
    m_settings.RVFileShowZeroItems = false;
    ResultsDB reader(m_settings);
    ASSERT_TRUE(reader.OpenReview(m_path));
    EXPECT_THAT(
        Names(reader.Items().GetProjectSourceFileList(false, false)),
        ElementsAre("Billing", "modA"));
    EXPECT_THAT(
        Names(reader.Items().GetProjectSourceFileList(true, false)),
        ElementsAre("Billing", "frmB", "modA"));
    // Sorted by complexity there is no figure that could be above 0.
    reader.Order().Fields().FileSortKey = ListOrder::kSortByComplexity;
    EXPECT_THAT(reader.Items().GetProjectSourceFileList(false, false), IsEmpty());
}

TEST_F(ResultsDBQueries, ProceduresComeWithOrWithoutTheirFigures) {
    const auto procedures = m_results.Items().GetSourceFileProcList(2, true, true);
    ASSERT_THAT(Names(procedures), ElementsAre("Declarations", "Total"));
    EXPECT_EQ(procedures[1].ObjectID, 2);
    EXPECT_EQ(procedures[1].ObjectType, "Function");
    EXPECT_EQ(procedures[1].Scope, "Public");
    EXPECT_EQ(procedures[1].CyclomaticComplexity, 9);
    EXPECT_EQ(procedures[1].ViolationCount, 2);
    EXPECT_EQ(procedures[1].ViolationImpact, 850);
    EXPECT_EQ(procedures[1].SourceLines, 20);
    EXPECT_FLOAT_EQ(procedures[1].CodeCommentRatio, 25.0F);
    const auto plain = m_results.Items().GetSourceFileProcList(2, true, false);
    EXPECT_EQ(plain[1].ViolationCount, 0);
    EXPECT_EQ(plain[1].SourceLines, 0);
    EXPECT_EQ(plain[1].CyclomaticComplexity, 9);
}

TEST_F(ResultsDBQueries, ProceduresFollowTheirOwnSortFieldsAndZeroSetting) {
    m_settings.RVProcShowZeroItems = false;
    m_settings.RVProcSortKey = ListOrder::kSortByImpact;
    m_settings.RVProcSortAscending = false;
    ResultsDB reader(m_settings);
    ASSERT_TRUE(reader.OpenReview(m_path));
    EXPECT_THAT(
        Names(reader.Items().GetSourceFileProcList(2, false, true)),
        ElementsAre("Total", "Declarations"));
    EXPECT_THAT(reader.Items().GetSourceFileProcList(3, false, true), IsEmpty());
    EXPECT_THAT(
        Names(reader.Items().GetSourceFileProcList(3, true, true)), ElementsAre("Layout", "Total"));
}

TEST_F(ResultsDBQueries, TheStatValueFollowsTheSortKeyOfItsKind) {
    BasicObject object;
    object.ViolationCount = 3;
    object.ViolationImpact = 900;
    object.CyclomaticComplexity = 7;
    const std::vector<Variant> expected = {Variant(3), Variant(3), Variant(900), Variant()};
    for (std::int32_t key = 1; key <= 4; ++key) {
        m_results.Order().Fields().FileSortKey = key;
        m_results.Order().Fields().ProcSortKey = 5 - key;
        EXPECT_EQ(
            m_results.Order().GetObjectStatValue(object, ItemType::File),
            expected[static_cast<std::size_t>(key - 1)]);
        EXPECT_EQ(
            m_results.Order().GetObjectStatValue(object, ItemType::Procedure),
            expected[static_cast<std::size_t>(4 - key)]);
    }
    EXPECT_TRUE(m_results.Order().GetObjectStatValue(object, ItemType::Project).IsEmpty());
}

TEST_F(ResultsDBQueries, CountsAndSingleItemsAreFound) {
    EXPECT_TRUE(m_results.Items().SourceFileHasProcs(3, true));
    EXPECT_TRUE(m_results.Items().SourceFileHasProcs(2, true));
    EXPECT_FALSE(m_results.Items().SourceFileHasProcs(1, false));
    EXPECT_EQ(m_results.Items().GetSourceFileCount(""), 3);
    EXPECT_EQ(m_results.Items().GetSourceFileCount("Form"), 1);
    EXPECT_EQ(m_results.Items().GetSourceFileCount("Class"), 0);
    const BasicObject procedure = m_results.Items().GetProcedureDetails(4);
    EXPECT_EQ(procedure.ObjectID, 4);
    EXPECT_EQ(procedure.Name, "Total");
    EXPECT_EQ(procedure.ObjectType, "Sub");
    EXPECT_EQ(procedure.Scope, "Private");
    EXPECT_EQ(m_results.Items().GetProcedureDetails(99).ObjectID, 0);
}

TEST_F(EmptyResultsDB, AFileWithSectionsOnlyHasNoRealProcedures) {
    Start();
    SetUpProject();
    SetUpFile("modA");
    VirtualObject section;
    m_results.Writer().SetupVObjectResults("Declarations", section);
    m_results.Writer().SetupVObjectResults("Layout", section);
    EXPECT_TRUE(m_results.Items().SourceFileHasProcs(1, false));
    EXPECT_FALSE(m_results.Items().SourceFileHasProcs(1, true));
}

TEST_F(ResultsDBQueries, AQuoteInATypeIsAPartOfThatType) {
    EXPECT_EQ(m_results.Items().GetSourceFileCount("Module' OR Type<>'"), 0);
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ResultsDBQueries, SingleFieldsComeAsTexts) {
    EXPECT_EQ(m_results.Items().GetProjectData("Type"), "Exe");
    EXPECT_EQ(m_results.Items().GetProjectData("ExeName32"), "");  // null
    EXPECT_EQ(m_results.Items().GetSourceFileData("Filename", 3), "frmB.frm");
    EXPECT_EQ(m_results.Items().GetSourceFileData("Filename", 99), "");
    EXPECT_EQ(m_results.Items().GetProcedureData("CyclomaticComplexity", 2), "9");
    EXPECT_EQ(m_results.Items().GetProcedureData("IsStatic", 2), "True");
    EXPECT_THAT(m_log.Entries(), IsEmpty());
    EXPECT_EQ(m_results.Items().GetProcedureData("Colour", 2), "");
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::GetProcedureData"));
}

TEST_F(ResultsDBQueries, ProjectAndFilesCanBeRenamed) {
    m_results.Editor().UpdateProjectName("O'Brien & Co");
    m_results.Editor().UpdateFileName("modRenamed", 2);
    m_results.Editor().UpdateFileName("modNowhere", 99);
    EXPECT_THAT(Rows("SELECT Name FROM Projects"), ElementsAre("O'Brien & Co"));
    EXPECT_THAT(Rows("SELECT Name FROM SourceFiles"), ElementsAre("Billing", "modRenamed", "frmB"));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

// ---- sorting ----

BasicObject Item(std::int32_t id, std::string_view name, std::int32_t count = 0) {
    BasicObject object;
    object.ObjectID = id;
    object.Name = name;
    object.Filename = std::to_string(9 - id);
    object.ViolationCount = count;
    object.CyclomaticComplexity = -count;
    return object;
}

std::vector<std::int32_t>
Sorted(std::vector<BasicObject> list, std::int32_t key, bool ascending, bool byFilename = false) {
    ListOrder::SortBasicObjectList(list, key, ascending, byFilename);
    std::vector<std::int32_t> ids;
    for (const BasicObject& object : list) {
        ids.push_back(object.ObjectID);
    }
    return ids;
}

TEST(SortBasicObjectList, AnEmptyListAndASingleItemStayAsTheyAre) {
    EXPECT_THAT(Sorted({}, 1, true), IsEmpty());
    EXPECT_THAT(Sorted({Item(1, "a")}, 1, true), ElementsAre(1));
}

TEST(SortBasicObjectList, TextsSortWithoutRegardToCase) {
    const std::vector<BasicObject> list = {Item(1, "b"), Item(2, "C"), Item(3, "A")};
    EXPECT_THAT(Sorted(list, 1, true), ElementsAre(3, 1, 2));
    EXPECT_THAT(Sorted(list, 1, false), ElementsAre(2, 1, 3));
    EXPECT_THAT(Sorted(list, 1, true, true), ElementsAre(3, 2, 1));  // by file name
}

TEST(SortBasicObjectList, NumbersSortByTheirKey) {
    const std::vector<BasicObject> list = {Item(1, "a", 10), Item(2, "a", 9), Item(3, "a", 100)};
    EXPECT_THAT(Sorted(list, ListOrder::kSortByCount, true), ElementsAre(2, 1, 3));
    EXPECT_THAT(Sorted(list, ListOrder::kSortByCount, false), ElementsAre(3, 1, 2));
    EXPECT_THAT(Sorted(list, ListOrder::kSortByComplexity, true), ElementsAre(3, 1, 2));
}

TEST(SortBasicObjectList, OfTwoFilesWithTheSameNameTheEarlierStaysBest) {
    EXPECT_THAT(
        Sorted({Item(1, "same"), Item(2, "SAME"), Item(3, "same")}, 1, true), ElementsAre(1, 2, 3));
    EXPECT_THAT(
        Sorted({Item(1, "same"), Item(2, "SAME"), Item(3, "same")}, 1, false),
        ElementsAre(1, 2, 3));
}

// Required: what is swapped out of the way of a better item can land behind one of its own key.
TEST(SortBasicObjectList, ASwapCanMoveAnItemBehindAnotherOfItsKey) {
    EXPECT_THAT(Sorted({Item(1, "b"), Item(2, "b"), Item(3, "a")}, 1, true), ElementsAre(3, 2, 1));
}

// ---- violations ----

TEST_F(ResultsDBQueries, ViolationListsAreKeyedAndInOrderOfSeverityAndImpact) {
    const auto list = m_results.Violations().GetProcedureViolationList(2);
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Key(1), "5KEY");
    EXPECT_EQ(list.Key(2), "4KEY");
    const Violation& violation = *list.Item("4KEY");
    EXPECT_EQ(violation.RuleID, 5000);
    EXPECT_EQ(violation.RuleType, 3);
    EXPECT_EQ(violation.Title, "Title 2");
    EXPECT_EQ(violation.Severity, 2);
    EXPECT_EQ(violation.Impact, 750);
    EXPECT_EQ(violation.CategoryID, 7);
    EXPECT_FALSE(violation.Completed);
    EXPECT_EQ(violation.SourceLine, "    GoTo Failed");
    EXPECT_EQ(violation.SourceLineNumber, 12);
    EXPECT_EQ(violation.Description, "Description");
    EXPECT_EQ(violation.Advice, "Advice");
    EXPECT_EQ(violation.LocationMember, "");  // no part of a list
}

TEST_F(ResultsDBQueries, AFileListsTheViolationsOfItsProceduresOnly) {
    const auto list = m_results.Violations().GetSourceFileViolationsList(2);
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(list.Key(1), "3KEY");  // procedure by procedure
    EXPECT_EQ(list.Key(2), "5KEY");
    EXPECT_EQ(list.Key(3), "4KEY");
    const auto projectFile = m_results.Violations().GetVBPFileViolationsList(1);
    ASSERT_EQ(projectFile.Count(), 1);
    EXPECT_EQ(projectFile.Key(1), "2KEY");
}

TEST_F(ResultsDBQueries, AFilterLeavesNoViolationOutOfAList) {
    FilterOfAll().AddExcludedCategoryID(7);
    EXPECT_EQ(m_results.Violations().GetProcedureViolationList(2).Count(), 2);
    m_results.Filter().SetUnauthorisedKeywords(false);
    EXPECT_EQ(m_results.Violations().GetSourceFileViolationsList(2).Count(), 3);
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ResultsDBQueries, TheDetailOfAViolationHasEveryField) {
    const Violation violation = m_results.Violations().GetViolationDetail(4);
    EXPECT_EQ(violation.RuleID, 5000);
    EXPECT_EQ(violation.Severity, 2);
    EXPECT_EQ(violation.Impact, 750);
    EXPECT_EQ(violation.Location, 4);
    EXPECT_EQ(violation.LocationMember, "Member");
    EXPECT_EQ(violation.SourceLineNumber, 12);
    EXPECT_EQ(violation.LineBottomOffset, 0);
    EXPECT_EQ(m_results.Violations().GetViolationDetail(99).RuleID, 0);
}

TEST_F(ResultsDBQueries, TheSourceOfAViolationFollowsItsItem) {
    using Location = ViolationSourceLocation;
    EXPECT_EQ(
        m_results.Violations().GetViolationSourceLocation(1, false), (Location{"Billing", ""}));
    EXPECT_EQ(
        m_results.Violations().GetViolationSourceLocation(2, false),
        (Location{"Billing", "Billing"}));
    EXPECT_EQ(
        m_results.Violations().GetViolationSourceLocation(4, false), (Location{"Billing", "modA"}));
    EXPECT_EQ(
        m_results.Violations().GetViolationSourceLocation(4, true),
        (Location{"Billing.vbp", "modA.bas"}));
    EXPECT_EQ(m_results.Violations().GetViolationSourceLocation(99, true), Location());
    m_results.Writer().LogViolation(0, ItemType::Procedure, Breach(1, 100));
    EXPECT_EQ(m_results.Violations().GetViolationSourceLocation(7, true), Location());
}

TEST_F(ResultsDBQueries, AViolationCanBeMarkedAsCompletedAndReopened) {
    EXPECT_TRUE(m_results.Editor().SetViolationCompleted(4, true));
    EXPECT_THAT(Rows("SELECT ViolationID FROM Violations WHERE Completed"), ElementsAre("4"));
    EXPECT_TRUE(m_results.Violations().GetProcedureViolationList(2).Item("4KEY")->Completed);
    EXPECT_TRUE(m_results.Editor().SetViolationCompleted(4, false));
    EXPECT_THAT(Rows("SELECT ViolationID FROM Violations WHERE Completed"), IsEmpty());
    EXPECT_FALSE(m_results.Editor().SetViolationCompleted(99, true));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(ResultsDBQueries, TheValueListTranslatesItemKeysToFileNames) {
    auto rows = m_results.Violations().GetSourceFileValueList();
    ASSERT_TRUE(rows);
    std::vector<std::string> found;
    for (; !rows->EOF_(); rows->MoveNext()) {
        found.push_back(rows->Value("ItemIDType").AsText() + " " + rows->Value("SFName").AsText());
    }
    EXPECT_THAT(
        found, testing::UnorderedElementsAre("1_2 Billing", "2_2 modA", "1_3 modA", "2_3 modA"));
}

TEST_F(ResultsDBQueries, TheWorstFindingsComeFirstWithTheirFile) {
    const auto findings = m_results.Violations().GetWorstFindings(4);
    ASSERT_EQ(findings.size(), 4U);
    EXPECT_EQ(findings[0].Filename, "Billing.vbp");
    EXPECT_EQ(findings[1].Filename, "modA.bas");
    EXPECT_EQ(findings[1].LineNumber, 12);
    EXPECT_EQ(findings[1].Title, "Title 2");
    EXPECT_EQ(findings[1].LocationMember, "Member");
    EXPECT_EQ(findings[3].Severity, 3);
}

// ---- by category ----

TEST_F(ResultsDBQueries, ViolationsAreCountedByCategoryAndTheRestIsUnallocated) {
    const auto rows = m_results.Figures().GetViolationStatsByCategory(-1, false);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].Category, "Clarity");
    EXPECT_EQ(rows[0].Statistics.Count(Severity::Medium), 1);
    EXPECT_EQ(rows[0].Statistics.Count(Severity::Information), 1);
    EXPECT_EQ(rows[0].Statistics.TotalViolations(), 0);  // not filled
    EXPECT_EQ(rows[0].Statistics.Impact(Severity::Medium), 0);
    EXPECT_EQ(rows[1].Category, "Jumps");
    EXPECT_EQ(rows[1].Statistics.Count(Severity::High), 2);
    EXPECT_EQ(rows[2].Category, "Unallocated");
    EXPECT_EQ(rows[2].Statistics.Count(Severity::Critical), 1);
    EXPECT_EQ(rows[2].Statistics.Count(Severity::Low), 1);
}

TEST_F(ResultsDBQueries, ByCategoryAFileCountsItsProceduresOrItself) {
    FilterOfAll().AddExcludedCategoryID(7);  // takes no part
    const auto procedures = m_results.Figures().GetViolationStatsByCategory(2, false);
    EXPECT_EQ(procedures[0].Statistics.Count(Severity::Medium), 1);
    EXPECT_EQ(procedures[0].Statistics.Count(Severity::Information), 0);
    EXPECT_EQ(procedures[1].Statistics.Count(Severity::High), 2);
    const auto file = m_results.Figures().GetViolationStatsByCategory(2, true);
    EXPECT_EQ(file[0].Statistics.Count(Severity::Medium), 0);
    EXPECT_EQ(file[0].Statistics.Count(Severity::Information), 1);
    EXPECT_EQ(file[1].Statistics.Count(Severity::High), 0);
    EXPECT_EQ(
        m_results.Figures().GetViolationStatsByCategory(1, true)[2].Statistics.Count(
            Severity::Critical),
        1);
}

}  // namespace
}  // namespace dorvik
