#include "WorkbenchFixture.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/dialogs/frmReviewSummary.h"

namespace dorvik {
namespace {

using testing::ElementsAre;

class ResultsCommands : public test::WorkbenchFixture {
protected:
    void SetUp() override { OpenBench(); }

    /// The next filter dialog leaves out the authorised references and the category 7.
    void FilterByDialog() {
        m_screen.OnOptions = [](frmReviewOptions& form) {
            EXPECT_EQ(form.Caption.Value(), "Filter Options");
            form.lvwCategories.SetChecked(form.lvwCategories.Find("7K").value(), false);
            EXPECT_TRUE(form.Ok());
        };
        m_view.FilterResults();
    }

    static constexpr const char* kClause = " RuleType <> 6 AND CategoryID <> 7";
};

// ---- filter ----

TEST_F(ResultsCommands, AChangedFilterIsInTheListAndInTheFiguresOfTheBoxes) {
    FilterByDialog();
    EXPECT_EQ(m_view.Shown().Filter, kClause);
    EXPECT_EQ(
        m_controls.List.RecordSource(),
        std::string("SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE ") +
            kClause);
    EXPECT_THAT(Violations(), ElementsAre(1, 2, 3, 6, 7, 8));
    EXPECT_THAT(
        Texts(m_controls.Files),
        ElementsAre("(All Source Files)", "Billing [1]", "clsC", "frmB [1]", "modA [2]"));
}

TEST_F(ResultsCommands, TheFilterTakesTheWhereAndTheCompletedTestTheAnd) {
    Settings().CompletedItemsOption = 2;
    FilterByDialog();
    EXPECT_EQ(
        m_controls.List.RecordSource(),
        std::string("SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE ") +
            kClause + " AND Completed = False");
}

TEST_F(ResultsCommands, AFilterOnOneFileTakesTheAnd) {
    ChooseFile("1SFKey");
    FilterByDialog();
    EXPECT_EQ(SelectedKey(m_controls.Files), "1SFKey");
    EXPECT_EQ(
        m_controls.List.RecordSource(),
        std::string("SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations WHERE ItemID "
                    "= 1 AND ItemType = 2 AND ") +
            kClause);
    EXPECT_THAT(Violations(), ElementsAre(2));
}

TEST_F(ResultsCommands, AFilterThatIsLeftAsItWasLeavesOutNothing) {
    m_screen.OnOptions = [](frmReviewOptions& form) {
        EXPECT_TRUE(form.Ok());
    };
    m_view.FilterResults();
    EXPECT_EQ(m_view.Shown().Filter, "");
}

TEST_F(ResultsCommands, ACancelledFilterChangesNothing) {
    ChooseFile("2SFKey");
    ChooseProcedure("2PRKey");
    m_screen.OnOptions = [](frmReviewOptions& form) {
        form.Cancel();
    };
    m_view.FilterResults();
    EXPECT_EQ(SelectedKey(m_controls.Procedures), "2PRKey");
}

TEST_F(ResultsCommands, TheFilterDialogHasTheCategoriesAndSeveritiesOfTheReview) {
    m_screen.OnOptions = [](frmReviewOptions& form) {
        EXPECT_TRUE(form.lvwCategories.Find("9K"));
        EXPECT_EQ(form.lvwSeverities.Count(), 5U);
    };
    m_view.FilterResults();
}

TEST_F(ResultsCommands, WithoutResultsThereIsNothingToFilterOrToSum) {
    m_view.CloseResults();
    m_screen.OnOptions = [](frmReviewOptions&) {
        FAIL();
    };
    m_view.FilterResults();
    m_view.ShowReviewSummary();
    EXPECT_EQ(m_screen.Summary, nullptr);
}

// ---- summary ----

TEST_F(ResultsCommands, TheSummaryHasTheLogAndTheReportOfTheProject) {
    m_folder.Write("Dorvik\\Billing_DORVIK.txt", "log");
    m_folder.Write("Dorvik\\Billing_DORVIK.html", "page");
    m_view.ShowReviewSummary();
    ASSERT_NE(m_screen.Summary, nullptr);
    EXPECT_EQ(m_screen.Summary->Caption.Value(), "Billing - Review Summary");
    EXPECT_TRUE(m_screen.Summary->ViewLogEnabled.Value());
    m_screen.Summary->ViewLog();
    EXPECT_THAT(m_screen.Opened, ElementsAre(m_folder.Path("Dorvik\\Billing_DORVIK.txt")));
}

TEST_F(ResultsCommands, WithoutReportsTheSummaryHasNone) {
    m_criteria->SetReportOption(0);
    m_view.ShowReviewSummary();
    EXPECT_FALSE(m_screen.Summary->ViewReportEnabled.Value());
}

TEST_F(ResultsCommands, TheSummaryGoesWhenItIsClosedAndWhenTheResultsAre) {
    m_view.ShowReviewSummary();
    m_screen.Summary->Close();
    EXPECT_EQ(m_screen.Summary, nullptr);
    m_view.ShowReviewSummary();
    ASSERT_NE(m_screen.Summary, nullptr);
    m_view.CloseResults();
    EXPECT_EQ(m_screen.Summary, nullptr);
}

// ---- going to the source ----

TEST_F(ResultsCommands, AViolationOfTheProjectHasNoFile) {
    ChooseViolation(1);
    const auto details = m_view.GetViolationDetails();
    ASSERT_TRUE(details);
    EXPECT_EQ(details->Project, "Billing");
    EXPECT_EQ(details->File, "");
    EXPECT_EQ(details->Violation.LocationMember, "(Reference)");
}

TEST_F(ResultsCommands, AViolationHasItsProjectFileAndPlace) {
    ChooseViolation(5);
    const auto details = m_view.GetViolationDetails();
    ASSERT_TRUE(details);
    EXPECT_EQ(details->Project, "Billing");
    EXPECT_EQ(details->File, "modA");
    EXPECT_EQ(details->Violation.Location, 4);
    EXPECT_EQ(details->Violation.SourceLineNumber, 12);
}

TEST_F(ResultsCommands, WithoutARowNothingIsSelected) {
    m_controls.List.SetCurrentRow(std::nullopt);
    EXPECT_FALSE(m_view.GetViolationDetails());
    m_controls.List.ChooseGroups({{NumberOf(ViolationColumn::Category)}});
    m_controls.List.SetCurrentRow(0);
    EXPECT_FALSE(m_view.GetViolationDetails());
}

// ---- layout ----

TEST_F(ResultsCommands, ASplitterPositionTooCloseToAnEndIsIgnored) {
    m_controls.Splitter.Resize(10000, 3000);
    EXPECT_EQ(m_controls.Splitter.Left.Value(), 4980);
    m_controls.Splitter.Release(999);
    m_controls.Splitter.Release(9001);
    EXPECT_EQ(m_controls.Splitter.Left.Value(), 4980);
    EXPECT_EQ(Settings().RVGridWidth, 0.498);
    m_controls.Splitter.Release(1000);
    EXPECT_EQ(m_controls.Splitter.Left.Value(), 1000);
    EXPECT_EQ(Settings().RVGridWidth, 0.1);
    m_controls.Splitter.Release(9000);
    EXPECT_EQ(Settings().RVGridWidth, 0.9);
}

TEST_F(ResultsCommands, TheSplitterKeepsItsPartAndIsStoredAtTheEnd) {
    m_controls.Splitter.Resize(10000, 3000);
    m_controls.Splitter.Release(2500);
    m_controls.Splitter.Resize(20000, 3000);
    EXPECT_EQ(m_controls.Splitter.Left.Value(), 5000);
    Settings().RVGridWidth = 0;
    m_view.Terminate();
    EXPECT_EQ(Settings().RVGridWidth, 0.25);
    EXPECT_FALSE(m_view.ResultsAvailable());
}

TEST_F(ResultsCommands, ASplitterWithoutAWidthIsNotStored) {
    m_view.Terminate();
    EXPECT_EQ(Settings().RVGridWidth, 0.498);
}

}  // namespace
}  // namespace dorvik
