#include "workstation/dialogs/ReviewOptionsFixture.h"
#include "workstation/dialogs/frmReviewOptions.h"

namespace dorvik {
namespace {

using test::CheckedKeys;
using test::Uncheck;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Page = test::Page;

class ReviewOptionsOk : public test::ReviewOptionsFixture {};

// ---- OK ----

TEST_F(ReviewOptionsOk, ABatchWithoutATitleIsRefusedFirst) {
    MakeBatch();
    Open();
    m_form->lvwConventions.SetAll(false);
    ExpectRefusal("Please enter a title for the batch.", Page::Projects, "txtTitle");
}

TEST_F(ReviewOptionsOk, AReviewWithoutARulebaseIsRefused) {
    Open();
    ExpectRefusal("Please select a rulebase for the review.", Page::Projects, "cboRulebase");
}

TEST_F(ReviewOptionsOk, ARulebaseThatIsNotThereIsRefused) {
    Open();
    m_form->cboRulebase.Set("\\none\\Rules.dvk");
    ExpectRefusal(
        "The selected rulebase '\\none\\Rules.dvk' cannot be found, please check the path.",
        Page::Projects,
        "cboRulebase");
}

TEST_F(ReviewOptionsOk, ABatchWithoutAProjectIsRefused) {
    MakeBatch();
    OpenAndChoose();
    m_form->txtTitle.Set("Nightly");
    m_form->tvwProjects.Check(*m_form->Projects().FindProjectNode("Demo"), false);
    ExpectRefusal("Please select the project(s) to review.", Page::Projects, "tvwProjects");
}

TEST_F(ReviewOptionsOk, OpenProjectsMayAllBeUnchecked) {
    OpenAndChoose();
    m_form->SelectAllOrNone(false);
    EXPECT_TRUE(m_form->Ok());
    EXPECT_EQ(m_criteria->ProjectList().SelectedCount(), 0);
}

TEST_F(ReviewOptionsOk, AFixedFolderNeedsAPath) {
    OpenAndChoose();
    m_form->chkResultsFolder.Set(false);
    m_form->txtResultsFolder.Set("");
    ExpectRefusal("Please enter a path to the results folder.", Page::Results, "txtResultsFolder");
    m_form->chkResultsFolder.Set(true);
    m_form->chkReportsFolder.Set(false);
    m_form->optReports.Set(1);
    ExpectRefusal("Please enter a path to the reports folder.", Page::Results, "txtReportsFolder");
}

TEST_F(ReviewOptionsOk, WithoutAReportTheReportsFolderIsNotChecked) {
    OpenAndChoose();
    m_form->chkReportsFolder.Set(false);
    m_form->txtReportsFolder.Set("");
    m_form->optReports.Set(0);
    EXPECT_TRUE(m_form->Ok());
    EXPECT_THAT(m_messages.Messages, IsEmpty());
}

TEST_F(ReviewOptionsOk, AFolderThatTheUserDeclinesToCreateKeepsTheDialogOpen) {
    OpenAndChoose();
    m_form->chkResultsFolder.Set(false);
    m_form->txtResultsFolder.Set(m_folder.Path("new\\results"));
    m_messages.Answers = {MessageAnswer::No};
    EXPECT_FALSE(m_form->Ok());
    ASSERT_THAT(m_messages.Messages, SizeIs(2));
    EXPECT_EQ(
        m_messages.Messages[0],
        (MessageText{
            MessageIcon::Question,
            "Dorvik Workstation",
            "The results folder does not exist, or is not available, would you like to create it?",
            MessageButtons::YesNo}));
    EXPECT_EQ(
        m_messages.Messages[1],
        (MessageText{
            MessageIcon::Exclamation,
            "Dorvik Workstation",
            "Please create the results folder manually, or enter an alternative path."}));
    EXPECT_FALSE(m_form->IsClosed());
    EXPECT_EQ(m_form->tbsOptions.Shown.Value(), static_cast<std::int16_t>(Page::Results));
    EXPECT_FALSE(modFiles::FolderExists(m_folder.Path("new")));
}

TEST_F(ReviewOptionsOk, AReportsFolderThatIsDeclinedOrCannotBeCreatedIsAskedForByItsName) {
    OpenAndChoose();
    m_form->chkReportsFolder.Set(false);
    m_form->optReports.Set(1);
    m_form->txtReportsFolder.Set(m_folder.Path("new\\reports"));
    m_messages.Answers = {MessageAnswer::No};
    EXPECT_FALSE(m_form->Ok());
    ASSERT_THAT(m_messages.Messages, SizeIs(2));
    EXPECT_EQ(
        m_messages.Messages[1].Text,
        "Please create the reports folder manually, or enter an alternative path.");
    EXPECT_EQ(m_form->tbsOptions.Shown.Value(), static_cast<std::int16_t>(Page::Results));
    m_form->txtReportsFolder.Set(m_folder.Path("Rules.dvk\\reports"));
    m_messages.Answers = {MessageAnswer::Yes};
    EXPECT_FALSE(m_form->Ok());
    ASSERT_THAT(m_messages.Messages, SizeIs(4));
    EXPECT_EQ(
        m_messages.Messages[3].Text,
        "Unable to create the reports folder, please create it manually, or enter an alternative "
        "path.");
}

TEST_F(ReviewOptionsOk, AFolderIsCreatedOnRequest) {
    OpenAndChoose();
    m_form->chkReportsFolder.Set(false);
    m_form->optReports.Set(2);
    m_form->txtReportsFolder.Set(m_folder.Path("new\\reports"));
    m_messages.Answers = {MessageAnswer::Yes};
    EXPECT_TRUE(m_form->Ok());
    ASSERT_THAT(m_messages.Messages, SizeIs(1));
    EXPECT_EQ(
        m_messages.Messages[0].Text,
        "The reports folder does not exist, or is not available, would you like to create it?");
    EXPECT_TRUE(modFiles::FolderExists(m_folder.Path("new\\reports")));
}

TEST_F(ReviewOptionsOk, AFolderThatCannotBeCreatedIsRefused) {
    OpenAndChoose();
    m_form->chkResultsFolder.Set(false);
    m_form->txtResultsFolder.Set(m_folder.Path("Rules.dvk\\results"));
    m_messages.Answers = {MessageAnswer::Yes};
    EXPECT_FALSE(m_form->Ok());
    ASSERT_THAT(m_messages.Messages, SizeIs(2));
    EXPECT_EQ(
        m_messages.Messages[1],
        (MessageText{
            MessageIcon::Exclamation,
            "Dorvik Workstation",
            "Unable to create the results folder, please create it manually, or enter an "
            "alternative path."}));
}

TEST_F(ReviewOptionsOk, AReviewWithoutAConventionIsRefusedLast) {
    OpenAndChoose();
    m_form->lvwConventions.SetAll(false);
    ExpectRefusal(
        "Please select the conventions to enforce during the review.",
        Page::Conventions,
        "lvwConventions");
}

TEST_F(ReviewOptionsOk, OkMovesTheFieldsToTheCriteria) {
    OpenAndChoose();
    m_form->chkBackground.Set(true);
    m_form->chkClearLog.Set(true);
    m_form->chkResultsFolder.Set(false);
    m_form->txtResultsFolder.Set(m_folder.Path());
    m_form->chkReportsFolder.Set(false);
    m_form->txtReportsFolder.Set(m_folder.Path());
    m_form->optReports.Set(2);
    int closed = 0;
    const Subscription heard = m_form->Closed.Subscribe([&] { ++closed; });
    EXPECT_TRUE(m_form->Cancelled());
    ASSERT_TRUE(m_form->Ok());
    EXPECT_FALSE(m_form->Cancelled());
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(m_criteria->LoadCriteria().RulebaseFile(), m_folder.Path("Rules.dvk"));
    EXPECT_TRUE(m_criteria->BackgroundReview());
    EXPECT_TRUE(m_criteria->ClearLogBeforeReview());
    EXPECT_FALSE(m_criteria->UseProjectFolderResults());
    EXPECT_EQ(m_criteria->FixedFolderResults(), m_folder.Path());
    EXPECT_FALSE(m_criteria->UseProjectFolderReports());
    EXPECT_EQ(m_criteria->FixedFolderReports(), m_folder.Path());
    EXPECT_EQ(m_criteria->ReportOption(), 2);
}

TEST_F(ReviewOptionsOk, ABatchTakesItsTitle) {
    MakeBatch();
    OpenAndChoose();
    m_form->txtTitle.Set("Nightly");
    ASSERT_TRUE(m_form->Ok());
    EXPECT_EQ(m_criteria->BatchTitle(), "Nightly");
    EXPECT_FALSE(m_criteria->BackgroundReview());
}

TEST_F(ReviewOptionsOk, AnEmptyToleranceIsNotSetAndZeroIsALimit) {
    OpenAndChoose();
    for (std::size_t place = 0; place < 6; ++place) {
        m_form->txtCount[place].Set(std::to_string(place));
        m_form->txtImpact[place].Set(std::to_string(place * 10) + " or so");
    }
    m_form->txtCount[3].Set("");
    m_form->txtImpact[2].Set("none");
    m_form->txtImpact[4].Set("");
    m_form->txtComments.Set("");
    m_form->txtComplexity.Set("0");
    ASSERT_TRUE(m_form->Ok());
    EXPECT_EQ(m_criteria->Tolerances().Count.Item(1), 0);
    EXPECT_EQ(m_criteria->Tolerances().Count.Item(2), 1);
    EXPECT_EQ(m_criteria->Tolerances().Count.Item(4), -1);
    EXPECT_EQ(m_criteria->Tolerances().Count.Item(6), 5);
    EXPECT_EQ(m_criteria->Tolerances().Impact.Item(1), 0);
    EXPECT_EQ(m_criteria->Tolerances().Impact.Item(3), 0);
    EXPECT_EQ(m_criteria->Tolerances().Impact.Item(5), -1);
    EXPECT_EQ(m_criteria->Tolerances().Impact.Item(6), 50);
    EXPECT_EQ(m_criteria->Tolerances().PercentageComments, -1);
    EXPECT_EQ(m_criteria->Tolerances().CyclomaticComplexity, 0);
}

TEST_F(ReviewOptionsOk, NoCommentsAreALimitAndNoComplexityIsNone) {
    OpenAndChoose();
    m_form->txtComments.Set("0");
    m_form->txtComplexity.Set("");
    ASSERT_TRUE(m_form->Ok());
    EXPECT_EQ(m_criteria->Tolerances().PercentageComments, 0);
    EXPECT_EQ(m_criteria->Tolerances().CyclomaticComplexity, -1);
}

TEST_F(ReviewOptionsOk, ATooLargeToleranceKeepsTheFormOpenAndTakesOverNothing) {
    OpenAndChoose();
    const std::string rulebase = m_criteria->LoadCriteria().RulebaseFile();
    const bool clearsLog = m_criteria->ClearLogBeforeReview();
    m_form->chkClearLog.Set(!clearsLog);
    m_form->SelectAllOrNone(false);
    m_form->txtCount[0].Set("7");
    m_form->txtImpact[5].Set("2147483648");
    EXPECT_FALSE(m_form->Ok());
    EXPECT_FALSE(m_form->IsClosed());
    EXPECT_EQ(m_criteria->LoadCriteria().RulebaseFile(), rulebase);
    EXPECT_EQ(m_criteria->ClearLogBeforeReview(), clearsLog);
    EXPECT_EQ(m_criteria->ProjectList().SelectedCount(), 1);
    EXPECT_EQ(m_criteria->Tolerances().Count.Item(1), -1);
}

TEST_F(ReviewOptionsOk, EachConventionSetsItsFlagAlone) {
    struct Row {
        const char* Key;
        bool (RulebaseLoadCriteria::*Flag)() const;
    };
    const Row rows[] = {
        {"AC", &RulebaseLoadCriteria::AuthorisedComponents},
        {"AR", &RulebaseLoadCriteria::AuthorisedReferences},
        {"CC", &RulebaseLoadCriteria::CodingConventions},
        {"NC", &RulebaseLoadCriteria::NamingConventions},
        {"UK", &RulebaseLoadCriteria::UnauthorisedKeywords}};
    for (const Row& row : rows) {
        OpenAndChoose();
        m_form->lvwConventions.SetAll(false);
        m_form->lvwConventions.SetChecked(m_form->lvwConventions.Find(row.Key).value(), true);
        ASSERT_TRUE(m_form->Ok());
        for (const Row& other : rows) {
            EXPECT_EQ((m_criteria->LoadCriteria().*other.Flag)(), other.Key == row.Key) << row.Key;
        }
    }
    EXPECT_FALSE(m_criteria->LoadCriteria().DocumentationConventions());
}

TEST_F(ReviewOptionsOk, UncheckedCategoriesAreExcludedInTheOrderOfTheirFirstExclusion) {
    OpenAndChoose();
    Uncheck(m_form->lvwCategories, "-1K");
    ASSERT_TRUE(m_form->Ok());
    Open();
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), ElementsAre("2K", "1K"));
    Uncheck(m_form->lvwCategories, "1K");
    ASSERT_TRUE(m_form->Ok());
    const RulebaseLoadCriteria& criteria = m_criteria->LoadCriteria();
    ASSERT_EQ(criteria.ExcludedCategoryIDCount(), 2);
    EXPECT_EQ(criteria.ExcludedCategoryID(1), -1);
    EXPECT_EQ(criteria.ExcludedCategoryID(2), 1);
    Open();
    m_form->Reset();
    ASSERT_TRUE(m_form->Ok());
    EXPECT_EQ(criteria.ExcludedCategoryIDCount(), 0);
}

TEST_F(ReviewOptionsOk, UncheckedSeveritiesAreNotTaken) {
    OpenAndChoose();
    Uncheck(m_form->lvwSeverities, "5Key");
    ASSERT_TRUE(m_form->Ok());
    EXPECT_TRUE(m_criteria->LoadCriteria().SeverityLevel(4));
    EXPECT_FALSE(m_criteria->LoadCriteria().SeverityLevel(5));
    Open();
    EXPECT_THAT(CheckedKeys(m_form->lvwSeverities), ElementsAre("1Key", "2Key", "3Key", "4Key"));
}

TEST_F(ReviewOptionsOk, CancelDropsTheFilesAndChangesNothing) {
    OpenAndChoose();
    m_form->chkClearLog.Set(true);
    EXPECT_EQ(m_criteria->ProjectList().Item(1)->SourceFiles().Count(), 4);
    m_form->Cancel();
    EXPECT_TRUE(m_form->Cancelled());
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_EQ(m_criteria->ProjectList().Item(1)->SourceFiles().Count(), 0);
    EXPECT_FALSE(m_criteria->ClearLogBeforeReview());
    EXPECT_EQ(m_criteria->LoadCriteria().RulebaseFile(), "");
}

TEST_F(ReviewOptionsOk, BrowsingFillsTheBoxes) {
    Open();
    m_screen.Chosen = m_folder.Path("Rules.dvk");
    m_form->BrowseRulebase();
    EXPECT_EQ(m_form->cboRulebase.Value(), m_folder.Path("Rules.dvk"));
    EXPECT_THAT(
        m_screen.Requests.back().Filters,
        ElementsAre("Dorvik Rulebases (*.dvk)|*.dvk", "All Files (*.*)|*.*"));
    m_screen.Chosen = "\\chosen";
    m_form->BrowseResultsFolder();
    m_form->BrowseReportsFolder();
    EXPECT_EQ(m_form->txtResultsFolder.Value(), "\\chosen");
    EXPECT_EQ(m_form->txtReportsFolder.Value(), "\\chosen");
    EXPECT_THAT(
        m_screen.Calls,
        ElementsAre(
            "folder: Choose Fixed Results Folder at ", "folder: Choose Reports Folder at "));
}

// ---- the filter ----

class FilterOptionsForm : public test::ReviewOptionsFixture {
protected:
    FilterOptionsForm() {
        m_filter.SetCodingConventions(true);
        m_filter.SetNamingConventions(true);
        m_filter.SetSeverityLevel(1, true);
        m_filter.SetSeverityLevel(2, true);
        m_filter.AddExcludedCategoryID(2);
        m_filter.SetDirty(false);
        RulebaseLoadCriteria unused;
        RulebaseManager().LoadReviewOptions(
            m_folder.Path("Rules.dvk"), m_categories, m_severities, unused, nullptr);
        m_form = std::make_unique<frmReviewOptions>(m_screen);
        m_form->SetCategoryList(m_categories);
        m_form->SetSeverityList(m_severities);
        m_form->FilterOptions(m_filter);
    }

    CategoryList m_categories;
    SeverityTable m_severities;
    RulebaseLoadCriteria m_filter;
};

TEST_F(FilterOptionsForm, HasItsCaptionAndLabels) {
    EXPECT_EQ(m_form->CurrentMode(), frmReviewOptions::Mode::Filter);
    EXPECT_EQ(m_form->Caption.Value(), "Filter Options");
    EXPECT_EQ(m_form->lblConventions.Value(), "Select the conventions to include:");
    EXPECT_EQ(m_form->lblCategories.Value(), "Select the categories to include:");
    EXPECT_EQ(m_form->lblSeverities.Value(), "Select the rule severity levels to include:");
}

TEST_F(FilterOptionsForm, ShowsTheFilterAndNothingElse) {
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), ElementsAre("CC", "NC"));
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), ElementsAre("1K", "-1K"));
    EXPECT_THAT(CheckedKeys(m_form->lvwSeverities), ElementsAre("1Key", "2Key"));
    EXPECT_THAT(m_form->tvwProjects.Roots(), IsEmpty());
    EXPECT_THAT(m_form->RulebaseFiles(), IsEmpty());
    EXPECT_EQ(m_form->cboRulebase.Value(), "");
}

TEST_F(FilterOptionsForm, OkNeedsNoRulebaseProjectOrFolder) {
    Uncheck(m_form->lvwConventions, "NC");
    Uncheck(m_form->lvwCategories, "-1K");
    m_form->lvwSeverities.SetChecked(4, true);
    ASSERT_TRUE(m_form->Ok());
    EXPECT_THAT(m_messages.Messages, IsEmpty());
    EXPECT_FALSE(m_filter.NamingConventions());
    EXPECT_TRUE(m_filter.CodingConventions());
    EXPECT_EQ(m_filter.ExcludedCategoryIDCount(), 2);
    EXPECT_EQ(m_filter.ExcludedCategoryID(2), -1);
    EXPECT_TRUE(m_filter.SeverityLevel(5));
    EXPECT_TRUE(m_filter.Dirty());
    EXPECT_EQ(m_filter.RulebaseFile(), "");
}

TEST_F(FilterOptionsForm, OkWithoutAChangeLeavesTheFilterClean) {
    ASSERT_TRUE(m_form->Ok());
    EXPECT_FALSE(m_filter.Dirty());
}

TEST_F(FilterOptionsForm, AFilterWithoutAConventionIsRefused) {
    m_form->lvwConventions.SetAll(false);
    ExpectRefusal(
        "Please select the conventions to enforce during the review.",
        Page::Conventions,
        "lvwConventions");
}

TEST_F(FilterOptionsForm, CancelChangesNothing) {
    m_form->Reset();
    m_form->Cancel();
    EXPECT_TRUE(m_form->Cancelled());
    EXPECT_FALSE(m_filter.Dirty());
}

TEST_F(FilterOptionsForm, CtrlTabGoesThroughThePagesOfTheFilter) {
    std::vector<std::int16_t> pages{m_form->tbsOptions.Shown.Value()};
    for (int step = 0; step < 3; ++step) {
        m_form->NextTab();
        pages.push_back(m_form->tbsOptions.Shown.Value());
    }
    EXPECT_THAT(pages, ElementsAre(3, 4, 5, 3));
    EXPECT_FALSE(m_form->PageIsOffered(Page::Projects));
    EXPECT_FALSE(m_form->PageIsOffered(Page::Tolerances));
}

}  // namespace
}  // namespace dorvik
