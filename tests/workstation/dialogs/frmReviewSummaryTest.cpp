#include "workstation/dialogs/frmReviewSummary.h"

#include "workstation/dialogs/SummaryFixture.h"

namespace dorvik {
namespace {

using test::ColumnsOf;
using test::RowsOf;
using testing::ElementsAre;
using testing::ElementsAreArray;

class SummaryPagesForm : public test::SummaryFixture {};

TEST_F(SummaryPagesForm, OpensWithItsCaptionItsFirstPageAndItsPlace) {
    WriteReview();
    Settings().RVDTop = 11;
    Settings().RVDLeft = 12;
    Settings().RVDWidth = 1300;
    Settings().RVDHeight = 1400;
    Open();
    EXPECT_EQ(m_form->Caption.Value(), "Billing - Review Summary");
    EXPECT_EQ(m_form->CurrentTab(), 1);
    EXPECT_EQ(m_form->Position.Top, 11);
    EXPECT_EQ(m_form->Position.Left, 12);
    EXPECT_EQ(m_form->Position.Width, 1300);
    EXPECT_EQ(m_form->Position.Height, 1400);
}

TEST_F(SummaryPagesForm, ThePageOfTheSummary) {
    WriteReview();
    Open();
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Item", "Value"));
    const std::vector<std::string> expected{
        "Review||*Dorvik Review Summary|",
        "||Project|Billing (Billing.vbp)",
        "||Reviewed By|ann",
        "||Review Date|Saturday, 21 November 2026",
        "||Review Duration|00:02:01",
        "||Source Files Reviewed|2",
        "||Total Source Lines|1,200",
        "||Total Violations|1,303",
        "||Total Impact|2,400",
        "||Violations/Source Lines Ratio|1.09",
        "||Percentage Comments|20.35%",
        "|||",
        "ViolationCounts||*Violation Count Statistics|",
        "||Critical{255 0 0}|1",
        "||High{255 255 0}|2",
        "||Medium{0 0 255}|0",
        "||Low{0 255 0}|0",
        "||Info{255 255 255}|1,300",
        "Total||*Total Violations|*1,303",
        "|||",
        "ViolationImpacts||*Violation Impact Statistics|",
        "||Critical{255 0 0}|900",
        "||High{255 255 0}|1,500",
        "||Medium{0 0 255}|0",
        "||Low{0 255 0}|0",
        "||Info{255 255 255}|0",
        "Total||*Total Impact|*2,400",
        "|||",
        "OTHER||*Source File Statistics|",
        "Form||Forms|1",
        "Module||Modules|1",
        "Total||*Total Source Files|*2",
        "|||",
        "LineStats||*Source Line Statistics|",
        "CodeLine||Code Lines|900",
        "CommentLine||Comment Only Lines|200",
        "InlineCommentLine||In-line Comment Lines|30 (2.50%)",
        "BlankLine||Blank Lines|100",
        "Total||*Total Lines|*1,200"};
    EXPECT_THAT(RowsOf(m_form->lvwReview), ElementsAreArray(expected));
}

TEST_F(SummaryPagesForm, AVerdictIsShownWhereTolerancesAreSet) {
    m_criteria.SetToleranceCount(1, 1);
    WriteReview();
    Open();
    const std::vector<std::string> rows = RowsOf(m_form->lvwReview);
    EXPECT_EQ(rows[3], "||Review Date|Saturday, 21 November 2026");
    EXPECT_EQ(rows[4], "||Verdict|Pass{0 128 0}");
    EXPECT_EQ(rows[5], "||Review Duration|00:02:01");
    EXPECT_EQ(rows[12], "|||");
    EXPECT_EQ(rows[13], "ViolationCounts||*Violation Count Statistics|");
}

TEST_F(SummaryPagesForm, TheFailuresFollowTheFigures) {
    m_criteria.SetToleranceCount(1, 0);
    m_criteria.SetTolerancePercentageComments(90);
    WriteReview();
    Open();
    const std::vector<std::string> rows = RowsOf(m_form->lvwReview);
    EXPECT_EQ(rows[4], "||Verdict|Fail{255 0 0}");
    EXPECT_THAT(
        std::vector<std::string>(rows.begin() + 12, rows.begin() + 18),
        ElementsAre(
            "|||",
            "Review||*Tolerance Failures|",
            "||Critical Violation Count|",
            "||Percentage Comments|",
            "|||",
            "ViolationCounts||*Violation Count Statistics|"));
}

TEST_F(SummaryPagesForm, FailuresOfATotalAreListedWithoutAVerdict) {
    m_criteria.SetToleranceCount(6, 0);
    WriteReview();
    Open();
    const std::vector<std::string> rows = RowsOf(m_form->lvwReview);
    EXPECT_EQ(rows[4], "||Review Duration|00:02:01");
    EXPECT_EQ(rows[12], "Review||*Tolerance Failures|");
    EXPECT_EQ(rows[13], "||Total Violation Count|");
    EXPECT_THAT(PageRows(7), ElementsAre("||No Tolerances Set|"));
}

TEST_F(SummaryPagesForm, AProjectWithoutLinesHasARatioOf0And0PercentComments) {
    Start();
    const auto project = SetUpProject();
    CountViolations(*project, {3, 0, 0, 0, 0}, {3, 0, 0, 0, 0});
    StoreFigures(*project);
    WriteProjectFile();
    m_results.Writer().EndReview(1);
    ASSERT_TRUE(m_results.OpenReview(m_path));
    Open();
    const std::vector<std::string> rows = RowsOf(m_form->lvwReview);
    EXPECT_EQ(rows[5], "||Source Files Reviewed|0");
    EXPECT_EQ(rows[6], "||Total Source Lines|0");
    EXPECT_EQ(rows[9], "||Violations/Source Lines Ratio|0.00");
    EXPECT_EQ(rows[10], "||Percentage Comments|0.00%");
    EXPECT_EQ(rows[28], "OTHER||*Source File Statistics|");
    EXPECT_EQ(rows[29], "Total||*Total Source Files|*0");
    EXPECT_EQ(rows[34], "InlineCommentLine||In-line Comment Lines|0 (0.00%)");
}

TEST_F(SummaryPagesForm, MdiFormsAreCountedAmongTheForms) {
    Start();
    const auto project = SetUpProject();
    StoreFigures(*project);
    WriteProjectFile();
    for (const char* const type :
         {"MDIForm", "Form", "Class", "Designer", "PropertyPage", "UserControl", "UserDocument"}) {
        const auto file = SetUpTypedFile(type, type, std::string(type) + ".x");
        StoreFigures(*file);
    }
    const auto second = SetUpTypedFile("second", "UserDocument", "second.dob");
    StoreFigures(*second);
    m_results.Writer().EndReview(1);
    ASSERT_TRUE(m_results.OpenReview(m_path));
    Open();
    const std::vector<std::string> rows = RowsOf(m_form->lvwReview);
    EXPECT_THAT(
        std::vector<std::string>(rows.begin() + 29, rows.begin() + 36),
        ElementsAre(
            "Form||Forms|2",
            "Class||Class Modules|1",
            "Designer||Designers|1",
            "PropertyPage||Property Pages|1",
            "UserControl||User Controls|1",
            "UserDocument||User Documents|2",
            "Total||*Total Source Files|*8"));
}

TEST_F(SummaryPagesForm, ThePageOfTheCriteria) {
    WriteReview();
    Open();
    const std::vector<std::string> expected{
        "Review||*Review Criteria|",
        "||Rulebase Title|House rules",
        "||Rulebase Version|1.0.7",
        "||Rule Engine|6.2.0001",
        "||Rules Selected|0",
        "||Rule Execution Count|12345",
        "|||",
        "||*Conventions|",
        "AuthorisedComponent||Authorised Components|Not Included",
        "AuthorisedReference||Authorised References|Not Included",
        "CodingConvention||Coding Conventions|Included",
        "NamingConvention||Naming Conventions|Not Included",
        "UnauthorisedKeyword||Unauthorised Keywords|Included",
        "|||",
        "SeverityList||*Severity Levels|",
        "||Critical{255 0 0}|Included",
        "||High{255 255 0}|Included",
        "||Medium{0 0 255}|Included",
        "||Low{0 255 0}|Included",
        "||Info{255 255 255}|Not Included",
        "|||",
        "||*Tolerances|",
        "||No Tolerances Set|",
        "|||",
        "CategoryList||*Categories Included|",
        "CategoryItem||Clarity|",
        "CategoryItem||Jumps|"};
    EXPECT_THAT(PageRows(2), ElementsAreArray(expected));
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Item", "Value"));
}

TEST_F(SummaryPagesForm, TheTolerancesThatAreSetAreAmongTheCriteria) {
    m_criteria.SetToleranceCount(1, 0);
    m_criteria.SetToleranceCount(6, 40);
    m_criteria.SetToleranceImpact(3, 3000);
    m_criteria.SetToleranceImpact(6, 50000);
    m_criteria.SetToleranceCyclomaticComplexity(10);
    m_criteria.SetTolerancePercentageComments(25);
    WriteReview();
    Open();
    const std::vector<std::string> rows = PageRows(2);
    EXPECT_THAT(
        std::vector<std::string>(rows.begin() + 21, rows.begin() + 29),
        ElementsAre(
            "||*Tolerances|",
            "||Maximum Critical Violation Count|0",
            "||Maximum Total Violation Count|40",
            "||Maximum Medium Violation Impact|3000",
            "||Maximum Total Violation Impact|50000",
            "||Maximum Cyclomatic Complexity|10",
            "||Minimum Percentage Comments|25",
            "|||"));
}

TEST_F(SummaryPagesForm, ThePageOfTheViolations) {
    WriteReview();
    Open();
    EXPECT_THAT(
        PageRows(3),
        ElementsAre(
            "STDEXE||Billing (Billing.vbp)|1|0|0|0|0|1",
            "Form||frmB (frmB.frm)|0|0|0|0|0|0",
            "Module||modA (modA.bas)|0|2|0|0|1300|1302"));
    EXPECT_THAT(
        ColumnsOf(m_form->lvwReview),
        ElementsAre("Source File", "Critical", "High", "Medium", "Low", "Information", "Total"));
}

TEST_F(SummaryPagesForm, ThePageOfTheImpacts) {
    WriteReview();
    Open();
    EXPECT_THAT(
        PageRows(4),
        ElementsAre(
            "STDEXE||Billing (Billing.vbp)|900|0|0|0|0|900",
            "Form||frmB (frmB.frm)|0|0|0|0|0|0",
            "Module||modA (modA.bas)|0|1500|0|0|0|1500"));
}

TEST_F(SummaryPagesForm, ThePageOfTheLineCounts) {
    WriteReview();
    Open();
    EXPECT_THAT(
        PageRows(6),
        ElementsAre(
            "STDEXE||Billing (Billing.vbp)|0|0|0|0|0",
            "Form||frmB (frmB.frm)|0|0|0|0|0",
            "Module||modA (modA.bas)|900|200|30|100|1200"));
    EXPECT_THAT(
        ColumnsOf(m_form->lvwReview),
        ElementsAre("Source File", "Code", "Comment Only", "In-line Comment", "Blank", "Total"));
}

TEST_F(SummaryPagesForm, FilesAreInTheOrderOfTheSettingsAndNoneIsHidden) {
    Settings().RVFileShowZeroItems = false;
    Settings().RVFileSortAscending = false;
    m_results.Order().Fields().FileSortAscending = false;
    WriteReview();
    Open();
    m_form->SwitchTab(3);
    EXPECT_THAT(
        FirstCells(), ElementsAre("modA (modA.bas)", "frmB (frmB.frm)", "Billing (Billing.vbp)"));
}

TEST_F(SummaryPagesForm, WithoutTolerancesThePageOfTheVerdictsHasOneRow) {
    WriteReview();
    Open();
    EXPECT_THAT(PageRows(7), ElementsAre("||No Tolerances Set|"));
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Source File", "Verdict"));
}

TEST_F(SummaryPagesForm, ThePageOfTheVerdicts) {
    m_criteria.SetToleranceCount(1, 0);
    WriteReview();
    Open();
    EXPECT_THAT(
        PageRows(7),
        ElementsAre(
            "STDEXE||Billing (Billing.vbp)|Fail{255 0 0}",
            "Form||frmB (frmB.frm)|Pass{0 128 0}",
            "Module||modA (modA.bas)|Pass{0 128 0}",
            "|||",
            "||*Review Verdict|Fail{255 0 0}"));
}

}  // namespace
}  // namespace dorvik
