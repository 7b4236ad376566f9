// The filter, the counts through it, and the settings that the lists depend on.

#include "results/FilledResultsFixture.h"
#include "settings/modGlobal.h"

namespace dorvik {
namespace {

class ResultsDBFilter : public test::FilledResultsFixture {
protected:
    void Break(std::string_view sql) const {
        Database database;
        database.Open(m_path);
        database.Execute(sql);
    }

    DVKWorkData m_settings;
};

// ---- the clause ----

TEST_F(ResultsDBFilter, AFilterThatWasNeverChangedLeavesOutNothing) {
    EXPECT_EQ(m_results.FilterString(), "");
    EXPECT_FALSE(m_results.FilterApplied());
}

TEST_F(ResultsDBFilter, AFilterThatTakesEverythingHasNoClause) {
    FilterOfAll();
    EXPECT_EQ(m_results.FilterString(), "");
}

TEST_F(ResultsDBFilter, OneExcludedCategoryIsTheWholeClause) {
    FilterOfAll().AddExcludedCategoryID(7);
    EXPECT_EQ(m_results.FilterString(), " CategoryID <> 7");
    EXPECT_TRUE(m_results.FilterApplied());
    EXPECT_FALSE(m_results.Filter().Dirty());
}

TEST_F(ResultsDBFilter, EverythingOffNamesAllKindsThenAllSeverities) {
    m_results.Filter().SetDirty(true);
    m_results.Filter().AddExcludedCategoryID(8);
    EXPECT_EQ(
        m_results.FilterString(),
        " RuleType <> 1 AND RuleType <> 2 AND RuleType <> 4 AND RuleType <> 6 AND RuleType <> 5 "
        "AND RuleType <> 3 AND Severity <> 1 AND Severity <> 2 AND Severity <> 3 AND Severity <> 4 "
        "AND Severity <> 5 AND CategoryID <> 8");
}

TEST_F(ResultsDBFilter, TheClauseFollowsTheFilterOnlyWhenThatIsDirty) {
    FilterOfAll().SetSeverityLevel(3, false);
    EXPECT_EQ(m_results.FilterString(), " Severity <> 3");
    m_results.Filter().SetSeverityLevel(4, false);
    m_results.Filter().SetDirty(false);
    EXPECT_EQ(m_results.FilterString(), " Severity <> 3");
    m_results.Filter().SetDirty(true);
    EXPECT_EQ(m_results.FilterString(), " Severity <> 3 AND Severity <> 4");
}

TEST_F(ResultsDBFilter, ClosingTheReviewEmptiesTheClause) {
    FilterOfAll().AddExcludedCategoryID(7);
    EXPECT_NE(m_results.FilterString(), "");
    m_results.CloseReview();
    EXPECT_EQ(m_results.FilterString(), "");
}

TEST_F(ResultsDBFilter, HiddenZeroItemsCountAsAFilter) {
    for (const bool ofFiles : {true, false}) {
        DVKWorkData settings;
        settings.RVFileShowZeroItems = !ofFiles;
        settings.RVProcShowZeroItems = ofFiles;
        EXPECT_TRUE(ResultsDB(settings).FilterApplied());
    }
    EXPECT_FALSE(ResultsDB(m_settings).FilterApplied());
}

// ---- counts ----

TEST_F(ResultsDBFilter, AnEmptyFilterUsesTheStoredFigures) {
    Break("UPDATE ViolationStats SET TotalCount = 77, TotalImpact = 88");
    const ViolationTally stored{77, 88};
    EXPECT_EQ(m_results.Figures().GetProjectViolationStats(1, false), stored);
    EXPECT_EQ(m_results.Figures().GetVBPFileViolationStats(1, false), stored);
    EXPECT_EQ(m_results.Figures().GetSourceFileViolationStats(2, false), stored);
    EXPECT_EQ(m_results.Figures().GetProcedureViolationStats(2, false), stored);
    EXPECT_EQ(m_results.Figures().GetProcedureViolationStats(99, false), ViolationTally());
}

TEST_F(ResultsDBFilter, AFilterCountsTheRows) {
    FilterOfAll().SetNamingConventions(false);  // violation 6, of a file itself
    EXPECT_EQ(m_results.Figures().GetProjectViolationStats(1, false), (ViolationTally{5, 2300}));
    EXPECT_EQ(m_results.Figures().GetVBPFileViolationStats(1, false), (ViolationTally{1, 900}));
    EXPECT_EQ(m_results.Figures().GetSourceFileViolationStats(2, false), (ViolationTally{3, 1350}));
    EXPECT_EQ(m_results.Figures().GetProcedureViolationStats(2, false), (ViolationTally{2, 850}));
    m_results.Filter().AddExcludedCategoryID(7);
    EXPECT_EQ(m_results.Figures().GetSourceFileViolationStats(2, false), (ViolationTally{1, 500}));
}

TEST_F(ResultsDBFilter, FilteredAFileDoesNotCountTheViolationsOfTheFileItself) {
    FilterOfAll().SetSeverityLevel(1, false);  // none of the module's
    EXPECT_EQ(m_results.Figures().GetSourceFileViolationStats(2, true), (ViolationTally{4, 1360}));
    EXPECT_EQ(m_results.Figures().GetSourceFileViolationStats(2, false), (ViolationTally{3, 1350}));
}

TEST_F(ResultsDBFilter, ASumOverNoRowsReadsAsZero) {
    FilterOfAll().SetSeverityLevel(2, false);
    EXPECT_EQ(m_results.Figures().GetProcedureViolationStats(2, false), ViolationTally());
    EXPECT_EQ(m_results.Figures().GetSourceFileViolationStats(3, false), ViolationTally());
    EXPECT_THAT(m_log.Entries(), testing::IsEmpty());
}

TEST_F(ResultsDBFilter, IgnoringTheFilterUsesTheStoredFigures) {
    FilterOfAll().SetSeverityLevel(2, false);
    EXPECT_EQ(m_results.Figures().GetProcedureViolationStats(2, true), (ViolationTally{2, 850}));
    EXPECT_EQ(m_results.Figures().GetProjectViolationStats(1, true), (ViolationTally{6, 2310}));
}

TEST_F(ResultsDBFilter, AFilterCanHideAFileFromTheList) {
    m_settings.RVFileShowZeroItems = false;
    ResultsDB reader(m_settings);
    ASSERT_TRUE(reader.OpenReview(m_path));
    reader.Filter().SetUnauthorisedKeywords(true);
    for (std::int32_t level = 1; level <= 5; ++level) {
        reader.Filter().SetSeverityLevel(level, true);
    }
    const auto files = reader.Items().GetProjectSourceFileList(false, false);
    ASSERT_EQ(files.size(), 1U);  // the project file breaks no keyword rule
    EXPECT_EQ(files[0].Name, "modA");
    EXPECT_EQ(files[0].ViolationCount, 2);
}

// ---- sort fields and settings ----

TEST_F(ResultsDBFilter, SortFieldsComeFromTheSettingsAndGoBackToThem) {
    m_settings.RVFileSortKey = 3;
    m_settings.RVProcSortAscending = false;
    {
        ResultsDB reader(m_settings);
        EXPECT_EQ(reader.Order().Fields().FileSortKey, 3);
        EXPECT_TRUE(reader.Order().Fields().FileSortAscending);
        EXPECT_EQ(reader.Order().Fields().ProcSortKey, 1);
        EXPECT_FALSE(reader.Order().Fields().ProcSortAscending);
        reader.Order().Fields().FileSortKey = 2;
        reader.Order().Fields().FileSortAscending = false;
        reader.Order().Fields().ProcSortKey = 4;
        reader.Order().Fields().ProcSortAscending = true;
        EXPECT_EQ(m_settings.RVFileSortKey, 3);
    }
    EXPECT_EQ(m_settings.RVFileSortKey, 2);
    EXPECT_FALSE(m_settings.RVFileSortAscending);
    EXPECT_EQ(m_settings.RVProcSortKey, 4);
    EXPECT_TRUE(m_settings.RVProcSortAscending);
}

TEST_F(ResultsDBFilter, WithoutSettingsOfItsOwnItUsesThoseOfTheProcess) {
    modGlobal::CreateGlobalObjects();
    modGlobal::WorkData().RVFileSortKey = 4;
    {
        ResultsDB reader;
        EXPECT_EQ(reader.Order().Fields().FileSortKey, 4);
        reader.Order().Fields().FileSortKey = 2;
    }
    EXPECT_EQ(modGlobal::WorkData().RVFileSortKey, 2);
    {
        ResultsDB survivor;
        modGlobal::DestroyGlobalObjects();
        EXPECT_FALSE(survivor.FilterApplied());  // defaults from now on
    }
}

}  // namespace
}  // namespace dorvik
