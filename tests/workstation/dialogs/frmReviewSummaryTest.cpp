#include "workstation/dialogs/frmReviewSummary.h"

#include "FakeScreen.h"
#include "results/ResultsDBFixture.h"
#include "settings/modGlobal.h"
#include "source/Severity.h"

#include <gmock/gmock.h>

#include <array>

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

/// "icon|key|first cell|second cell ..."; "*" in front of a bold cell, its colour behind it where it has one.
std::string CellText(const ListCell& cell) {
    std::string text = (cell.Bold ? "*" : "") + cell.Text;
    if (!cell.Colour.Automatic) {
        text += "{" + std::to_string(cell.Colour.Red) + " " + std::to_string(cell.Colour.Green) +
                " " + std::to_string(cell.Colour.Blue) + "}";
    }
    return text;
}

std::vector<std::string> RowsOf(const ListTable& list) {
    std::vector<std::string> rows;
    for (std::size_t index = 0; index < list.Count(); ++index) {
        const ListRow& row = list.Row(index);
        std::string text = row.Icon + "|" + row.Key;
        for (const ListCell& cell : row.Cells) {
            text += "|" + CellText(cell);
        }
        rows.push_back(std::move(text));
    }
    return rows;
}

/// "Title" or, right-aligned, ">Title", its icon behind it where it has one.
std::vector<std::string> ColumnsOf(const ListTable& list) {
    std::vector<std::string> columns;
    for (const ListColumn& column : list.Columns()) {
        const std::string side = column.Alignment == ColumnAlignment::Right ? ">" : "";
        columns.push_back(
            side + column.Text + (column.SortIcon.empty() ? "" : " " + column.SortIcon));
    }
    return columns;
}

/// The stored review of a project "Billing":
///
///     source 1  the project file: one critical violation
///     source 2  modA, a module, 1,200 lines, complexity 12: procedures Total (public, 12), Value (property, 0), Help
///     source 3  frmB, a form with a section alone
class frmReviewSummary_ : public test::ResultsDBFixture {
protected:
    void SetUp() override {
        ResultsDBFixture::SetUp();
        modGlobal::CreateGlobalObjects();
        modGlobal::WorkData() = DVKWorkData();
        m_rulebase.SetTitle("House rules");
        m_rulebase.SetVersion("1.0.7");
        AddCategory(7, "Jumps");
        AddCategory(8, "Clarity");
        auto& criteria = m_criteria.LoadCriteria();
        criteria.SetCodingConventions(true);
        criteria.SetUnauthorisedKeywords(true);
        for (const std::int32_t level : {1, 2, 3, 4}) {
            criteria.SetSeverityLevel(level, true);
        }
    }
    void TearDown() override { modGlobal::DestroyGlobalObjects(); }

    static DVKWorkData& Settings() { return modGlobal::WorkData(); }

    void WriteReview() {
        Start();
        const auto project = SetUpProject();
        CountViolations(*project, {1, 2, 0, 0, 1300}, {900, 1500, 0, 0, 0});
        CountLines(*project, 900, 200, 30, 100);
        Finish(*project);
        WriteProjectFile();
        WriteModule();
        WriteForm();
        m_clock.Time = {2026, 11, 21, 14, 7, 10};
        m_results.EndReview(12345);
        ASSERT_TRUE(m_results.OpenReview(m_path));
    }

    void Open() {
        m_form = std::make_unique<frmReviewSummary>(m_screen);
        m_form->Initialise(m_results, m_log.Path(), m_folder.Path("none.html"));
    }

    std::vector<std::string> PageRows(std::int16_t tab) {
        m_form->SwitchTab(tab);
        return RowsOf(m_form->lvwReview);
    }
    std::vector<std::string> FirstCells() const {
        std::vector<std::string> texts;
        for (std::size_t index = 0; index < m_form->lvwReview.Count(); ++index) {
            texts.push_back(m_form->lvwReview.Row(index).Cells[0].Text);
        }
        return texts;
    }

    static void CountLines(
        VirtualObject& object,
        std::int32_t code,
        std::int32_t comments,
        std::int32_t inLine,
        std::int32_t blank) {
        object.LineStats().SetCodeLines(code);
        object.LineStats().SetCommentOnlyLines(comments);
        object.LineStats().SetInLineCommentLines(inLine);
        object.LineStats().SetBlankLines(blank);
        object.LineStats().SetTotalLines(code + comments + blank);
    }

    static void CountViolations(
        VirtualObject& object, const SeverityFigures& counts, const SeverityFigures& impacts) {
        std::int32_t count = 0;
        std::int32_t impact = 0;
        for (const Severity severity : kSeverities) {
            object.ViolationStats().SetCount(severity, counts[IndexOf(severity)]);
            object.ViolationStats().SetImpact(severity, impacts[IndexOf(severity)]);
            count += counts[IndexOf(severity)];
            impact += impacts[IndexOf(severity)];
        }
        object.ViolationStats().SetTotalViolations(count);
        object.ViolationStats().SetTotalImpact(impact);
    }

    void Finish(VirtualObject& object) {
        m_results.LogVirtualObjectProperties(object);
        m_results.LogVirtualObjectViolationStats(object);
        if (object.LineStats().TotalLines() > 0) {
            m_results.LogVirtualObjectLineStats(object);
        }
    }

    std::unique_ptr<VirtualObject>
    SetUpTypedFile(std::string_view name, std::string_view type, std::string_view filename) {
        auto object = Named(name);
        object->Properties().Add("Path", "C:\\Src\\");
        object->Properties().Add("Filename", filename);
        object->Properties().Add("Type", type);
        m_results.SetupVObjectResults("File", *object);
        return object;
    }

    void WriteProcedure(
        std::string_view name, std::string_view type, std::string_view scope, int complexity) {
        const auto procedure = SetUpProcedure(name, type, scope);
        procedure->Properties().Add("CyclomaticComplexity", complexity);
        Finish(*procedure);
    }

    void WriteProjectFile() {
        const auto file = SetUpTypedFile("Billing", "Project", "Billing.vbp");
        CountViolations(*file, {1, 0, 0, 0, 0}, {900, 0, 0, 0, 0});
        modTolerances::SetTolerancePassValue(*file, m_criteria, true);
        Finish(*file);
    }

    void WriteModule() {
        const auto file = SetUpTypedFile("modA", "Module", "modA.bas");
        VirtualObject section;
        m_results.SetupVObjectResults("Declarations", section);
        Finish(section);
        WriteProcedure("Total", "Function", "Public", 12);
        WriteProcedure("Value", "Property Get", "Public", 0);
        WriteProcedure("Value", "Property Let", "Private", 3);
        WriteProcedure("Help", "Sub", "Private", 60);
        CountViolations(*file, {0, 2, 0, 0, 1300}, {0, 1500, 0, 0, 0});
        CountLines(*file, 900, 200, 30, 100);
        file->Properties().Add("AverageCyclomatic", 12);
        modTolerances::SetTolerancePassValue(*file, m_criteria, false);
        Finish(*file);
    }

    void WriteForm() {
        const auto file = SetUpTypedFile("frmB", "Form", "frmB.frm");
        VirtualObject section;
        m_results.SetupVObjectResults("Layout", section);
        Finish(section);
        modTolerances::SetTolerancePassValue(*file, m_criteria, false);
        Finish(*file);
    }

    test::FakeScreen m_screen;
    std::unique_ptr<frmReviewSummary> m_form;
};

TEST_F(frmReviewSummary_, OpensWithItsCaptionItsFirstPageAndItsPlace) {
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

TEST_F(frmReviewSummary_, ThePageOfTheSummary) {
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

TEST_F(frmReviewSummary_, AVerdictIsShownWhereTolerancesAreSet) {
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

TEST_F(frmReviewSummary_, TheFailuresFollowTheFigures) {
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

TEST_F(frmReviewSummary_, FailuresOfATotalAreListedWithoutAVerdict) {
    m_criteria.SetToleranceCount(6, 0);
    WriteReview();
    Open();
    const std::vector<std::string> rows = RowsOf(m_form->lvwReview);
    EXPECT_EQ(rows[4], "||Review Duration|00:02:01");
    EXPECT_EQ(rows[12], "Review||*Tolerance Failures|");
    EXPECT_EQ(rows[13], "||Total Violation Count|");
    EXPECT_THAT(PageRows(7), ElementsAre("||No Tolerances Set|"));
}

TEST_F(frmReviewSummary_, AProjectWithoutLinesHasARatioOf0And0PercentComments) {
    Start();
    const auto project = SetUpProject();
    CountViolations(*project, {3, 0, 0, 0, 0}, {3, 0, 0, 0, 0});
    Finish(*project);
    WriteProjectFile();
    m_results.EndReview(1);
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

TEST_F(frmReviewSummary_, MdiFormsAreCountedAmongTheForms) {
    Start();
    const auto project = SetUpProject();
    Finish(*project);
    WriteProjectFile();
    for (const char* const type :
         {"MDIForm", "Form", "Class", "Designer", "PropertyPage", "UserControl", "UserDocument"}) {
        const auto file = SetUpTypedFile(type, type, std::string(type) + ".x");
        Finish(*file);
    }
    const auto second = SetUpTypedFile("second", "UserDocument", "second.dob");
    Finish(*second);
    m_results.EndReview(1);
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

TEST_F(frmReviewSummary_, ThePageOfTheCriteria) {
    WriteReview();
    Open();
    const std::vector<std::string> expected{
        "Review||*Review Criteria|",
        "||Rulebase Title|House rules",
        "||Rulebase Version|1.0.7",
        "||Rule Engine|6.2.0001",
        "||Rules Selected|0",
        "||Rule Execution Count|12,345",
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

TEST_F(frmReviewSummary_, TheTolerancesThatAreSetAreAmongTheCriteria) {
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
            "||Maximum Medium Violation Impact|3,000",
            "||Maximum Total Violation Impact|50,000",
            "||Maximum Cyclomatic Complexity|10",
            "||Minimum Percentage Comments|25",
            "|||"));
}

TEST_F(frmReviewSummary_, ThePageOfTheViolations) {
    WriteReview();
    Open();
    EXPECT_THAT(
        PageRows(3),
        ElementsAre(
            "STDEXE||Billing (Billing.vbp)|1|0|0|0|0|1",
            "Form||frmB (frmB.frm)|0|0|0|0|0|0",
            "Module||modA (modA.bas)|0|2|0|0|1,300|1,302"));
    EXPECT_THAT(
        ColumnsOf(m_form->lvwReview),
        ElementsAre(
            "Source File", ">Critical", ">High", ">Medium", ">Low", ">Information", ">Total"));
}

TEST_F(frmReviewSummary_, ThePageOfTheImpacts) {
    WriteReview();
    Open();
    EXPECT_THAT(
        PageRows(4),
        ElementsAre(
            "STDEXE||Billing (Billing.vbp)|900|0|0|0|0|900",
            "Form||frmB (frmB.frm)|0|0|0|0|0|0",
            "Module||modA (modA.bas)|0|1,500|0|0|0|1,500"));
}

TEST_F(frmReviewSummary_, ThePageOfTheLineCounts) {
    WriteReview();
    Open();
    EXPECT_THAT(
        PageRows(6),
        ElementsAre(
            "STDEXE||Billing (Billing.vbp)|0|0|0|0|0",
            "Form||frmB (frmB.frm)|0|0|0|0|0",
            "Module||modA (modA.bas)|900|200|30|100|1,200"));
    EXPECT_THAT(
        ColumnsOf(m_form->lvwReview),
        ElementsAre(
            "Source File", ">Code", ">Comment Only", ">In-line Comment", ">Blank", ">Total"));
}

TEST_F(frmReviewSummary_, FilesAreInTheOrderOfTheSettingsAndNoneIsHidden) {
    Settings().RVFileShowZeroItems = false;
    Settings().RVFileSortAscending = false;
    m_results.SetFileSortAscending(false);
    WriteReview();
    Open();
    m_form->SwitchTab(3);
    EXPECT_THAT(
        FirstCells(), ElementsAre("modA (modA.bas)", "frmB (frmB.frm)", "Billing (Billing.vbp)"));
}

TEST_F(frmReviewSummary_, WithoutTolerancesThePageOfTheVerdictsHasOneRow) {
    WriteReview();
    Open();
    EXPECT_THAT(PageRows(7), ElementsAre("||No Tolerances Set|"));
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Source File", "Verdict"));
}

TEST_F(frmReviewSummary_, ThePageOfTheVerdicts) {
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

// ---- complexities ----

TEST_F(frmReviewSummary_, ThePageOfTheComplexitiesBeginsWithAllFiles) {
    WriteReview();
    Open();
    EXPECT_FALSE(m_form->SourceFilesVisible.Value());
    EXPECT_THAT(
        PageRows(5),
        ElementsAre(
            "Form|3|frmB (frmB.frm)|0|N/A|N/A|N/A",
            "Module|2|modA (modA.bas)|12|Difficult|Moderately easy|Moderate risk"));
    EXPECT_THAT(
        ColumnsOf(m_form->lvwReview),
        ElementsAre("Source File", ">Complexity", "Test", "Understand", "Modify"));
    EXPECT_TRUE(m_form->SourceFilesVisible.Value());
    EXPECT_EQ(m_form->lvwReview.SelectedIndex(), 0U);
    m_form->SwitchTab(6);
    EXPECT_FALSE(m_form->SourceFilesVisible.Value());
}

TEST_F(frmReviewSummary_, AFileWithoutAProcedureIsMissingFromTheBox) {
    WriteReview();
    Open();
    EXPECT_EQ(m_form->cboSourceFiles.Count(), 0U);
    m_form->SwitchTab(5);
    EXPECT_THAT(
        m_form->cboSourceFiles.Items(),
        ElementsAre(
            ComboItem{"~AllItems~", "", "(All Source Files)", "AllItems"},
            ComboItem{"2", "", "modA (modA.bas)", "Module"}));
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "~AllItems~");
}

TEST_F(frmReviewSummary_, OneFileShowsItsProceduresWithoutSections) {
    WriteReview();
    Open();
    m_form->SwitchTab(5);
    m_form->cboSourceFiles.Choose(1);
    EXPECT_THAT(
        RowsOf(m_form->lvwReview),
        ElementsAre(
            "Method||Help|60|Untestable|Extremely difficult|Extremely high risk",
            "PublicMethod||Total|12|Difficult|Moderately easy|Moderate risk",
            "Property||Value|3|Easy|Simple|Low risk",
            "PublicProperty||Value|0|N/A|N/A|N/A"))
        << "equal names in the order that sorting by swaps leaves";
    EXPECT_EQ(m_form->lvwReview.Columns()[0].Text, "Procedure");
    m_form->cboSourceFiles.Choose(0);
    EXPECT_EQ(m_form->lvwReview.Columns()[0].Text, "Source File");
    EXPECT_THAT(m_form->lvwReview.Row(0).Key, "3");
}

TEST_F(frmReviewSummary_, ADoubleClickGoesFromAFileToItsProcedures) {
    WriteReview();
    Open();
    m_form->SwitchTab(5);
    m_form->lvwReview.DoubleClick(0);
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "~AllItems~") << "frmB is not in the box";
    m_form->lvwReview.DoubleClick(1);
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "2");
    EXPECT_EQ(m_form->lvwReview.Row(0).Cells[0].Text, "Help");
    m_form->lvwReview.DoubleClick(2);
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "2") << "with one file it does nothing";
    m_form->SwitchTab(3);
    m_form->lvwReview.DoubleClick(2);
    EXPECT_EQ(m_form->lvwReview.Count(), 3U);
}

TEST_F(frmReviewSummary_, TheChosenFileStaysWhenThePageIsLeft) {
    WriteReview();
    Open();
    m_form->SwitchTab(5);
    m_form->cboSourceFiles.Choose(1);
    m_form->SwitchTab(1);
    m_form->SwitchTab(5);
    EXPECT_EQ(m_form->cboSourceFiles.SelectedItem()->Key, "2");
    EXPECT_EQ(m_form->lvwReview.Columns()[0].Text, "Procedure");
    EXPECT_EQ(m_form->lvwReview.Count(), 4U);
}

// ---- sorting ----

TEST_F(frmReviewSummary_, AColumnClickOnTheFirstPageDoesNothing) {
    WriteReview();
    Open();
    const std::vector<std::string> before = RowsOf(m_form->lvwReview);
    m_form->lvwReview.ClickColumn(0);
    EXPECT_EQ(RowsOf(m_form->lvwReview), before);
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Item", "Value"));
}

TEST_F(frmReviewSummary_, AColumnClickSortsByTextAndASecondOneSwapsTheOrder) {
    WriteReview();
    Open();
    m_form->SwitchTab(3);
    m_form->lvwReview.ClickColumn(6);
    EXPECT_THAT(
        FirstCells(), ElementsAre("frmB (frmB.frm)", "Billing (Billing.vbp)", "modA (modA.bas)"))
        << "0, 1, 1,302";
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[6], ">Total SortAscending");
    EXPECT_EQ(Settings().RDT2SortCol, 6);
    EXPECT_EQ(Settings().RDT2SortOrder, 0);
    m_form->lvwReview.ClickColumn(6);
    EXPECT_THAT(
        FirstCells(), ElementsAre("modA (modA.bas)", "Billing (Billing.vbp)", "frmB (frmB.frm)"));
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[6], ">Total SortDescending");
    EXPECT_EQ(Settings().RDT2SortOrder, 1);
    m_form->lvwReview.ClickColumn(0);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[6], ">Total");
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[0], "Source File SortAscending");
    EXPECT_EQ(FirstCells()[0], "Billing (Billing.vbp)");
}

TEST_F(frmReviewSummary_, PagesWithAsManyColumnsShareTheirOrder) {
    WriteReview();
    Open();
    m_form->SwitchTab(3);
    m_form->lvwReview.ClickColumn(1);
    m_form->lvwReview.ClickColumn(1);
    m_form->SwitchTab(4);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[1], ">Critical SortDescending");
    EXPECT_EQ(FirstCells()[0], "Billing (Billing.vbp)");
    m_form->SwitchTab(6);
    EXPECT_THAT(ColumnsOf(m_form->lvwReview)[1], ">Code");
}

TEST_F(frmReviewSummary_, EachPageWithAnOrderHasItsOwnSettings) {
    WriteReview();
    Settings().RDT4SortCol = 1;
    Settings().RDT5SortCol = 1;
    Settings().RDT5SortOrder = 1;
    Open();
    m_form->SwitchTab(5);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[1], ">Complexity SortAscending");
    EXPECT_EQ(FirstCells()[0], "frmB (frmB.frm)");
    m_form->lvwReview.ClickColumn(1);
    EXPECT_EQ(Settings().RDT4SortOrder, 1);
    m_form->cboSourceFiles.Choose(1);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[1], ">Complexity SortDescending")
        << "the icon comes back when the page is filled";
    EXPECT_EQ(FirstCells()[0], "Help");
    m_form->SwitchTab(6);
    EXPECT_EQ(ColumnsOf(m_form->lvwReview)[1], ">Code SortDescending");
    EXPECT_EQ(FirstCells()[0], "modA (modA.bas)");
}

TEST_F(frmReviewSummary_, OnThePagesOfItemsTheOrderIsNotKept) {
    WriteReview();
    Open();
    m_form->SwitchTab(2);
    m_form->lvwReview.ClickColumn(0);
    EXPECT_EQ(FirstCells()[0], "");
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Item SortAscending", "Value"));
    m_form->SwitchTab(1);
    m_form->SwitchTab(2);
    EXPECT_THAT(ColumnsOf(m_form->lvwReview), ElementsAre("Item", "Value"));
    EXPECT_EQ(FirstCells()[0], "Review Criteria");
}

// ---- tabs and widths ----

TEST_F(frmReviewSummary_, TheShownTabIsNotFilledAgain) {
    WriteReview();
    Open();
    m_form->lvwReview.Clear();
    m_form->SwitchTab(1);
    EXPECT_EQ(m_form->lvwReview.Count(), 0U);
}

TEST_F(frmReviewSummary_, CtrlTabGoesFromTheLastTabToTheFirst) {
    WriteReview();
    Open();
    std::vector<std::int16_t> tabs;
    for (int step = 0; step < 7; ++step) {
        m_form->NextTab();
        tabs.push_back(m_form->CurrentTab());
    }
    EXPECT_THAT(tabs, ElementsAre(2, 3, 4, 5, 6, 7, 1));
}

TEST_F(frmReviewSummary_, ColumnWidthsAreThoseOfTheSettingsByPage) {
    WriteReview();
    Settings().RDT1ColWidth.SetItem(1, 0.11);
    Settings().RDT6ColWidth.SetItem(1, 0.12);
    Settings().RDT2ColWidth.SetItem(1, 0.13);
    Settings().RDT4ColWidth.SetItem(1, 0.15);
    Settings().RDT5ColWidth.SetItem(1, 0.16);
    Settings().RDT7ColWidth.SetItem(1, 0.17);
    Open();
    std::vector<double> widths;
    for (std::int16_t tab = 1; tab <= 7; ++tab) {
        m_form->SwitchTab(tab);
        widths.push_back(m_form->lvwReview.Columns()[0].Width);
    }
    EXPECT_THAT(widths, ElementsAre(0.11, 0.12, 0.13, 0.13, 0.15, 0.16, 0.17));
}

TEST_F(frmReviewSummary_, LeavingAPageAndClosingSaveItsWidths) {
    WriteReview();
    Open();
    m_form->SwitchTab(3);
    m_form->lvwReview.SetWidth(6, 0.25);
    m_form->SwitchTab(6);
    EXPECT_EQ(Settings().RDT2ColWidth.Item(7), 0.25);
    m_form->lvwReview.SetWidth(5, 0.26);
    EXPECT_NE(Settings().RDT5ColWidth.Item(6), 0.26);
    int closed = 0;
    const Subscription heard = m_form->Closed.Subscribe([&] { ++closed; });
    m_form->Close();
    EXPECT_EQ(Settings().RDT5ColWidth.Item(6), 0.26);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_EQ(closed, 1);
    EXPECT_THAT(m_screen.Calls, ElementsAre("hide summary"));
}

TEST_F(frmReviewSummary_, ResetPutsTheWidthsOfThePageBack) {
    WriteReview();
    Settings().RDT4ColWidth.SetItem(5, 0.9);
    Open();
    m_form->SwitchTab(5);
    EXPECT_EQ(m_form->lvwReview.Columns()[4].Width, 0.9);
    m_form->ResetColumnWidths();
    EXPECT_EQ(m_form->lvwReview.Columns()[4].Width, 0.16);
    EXPECT_EQ(m_form->lvwReview.Columns()[0].Text, "Source File");
}

// ---- buttons ----

TEST_F(frmReviewSummary_, TheButtonsAreEnabledWhereTheirFilesAre) {
    WriteReview();
    const std::string log = m_folder.Write("log.txt", "x");
    const std::string report = m_folder.Write("report.html", "x");
    const auto enabled = [&](const std::string& logFile, const std::string& reportFile) {
        frmReviewSummary form(m_screen);
        form.Initialise(m_results, logFile, reportFile);
        return std::array{form.ViewLogEnabled.Value(), form.ViewReportEnabled.Value()};
    };
    EXPECT_THAT(enabled(log, report), ElementsAre(true, true));
    EXPECT_THAT(enabled(log, ""), ElementsAre(true, false));
    EXPECT_THAT(
        enabled(m_folder.Path("no.txt"), m_folder.Path("no.html")), ElementsAre(false, false));
}

TEST_F(frmReviewSummary_, TheButtonsOpenTheirFiles) {
    WriteReview();
    const std::string log = m_folder.Write("log.txt", "x");
    const std::string report = m_folder.Write("report.html", "x");
    frmReviewSummary form(m_screen);
    form.Initialise(m_results, log, report);
    form.ViewLog();
    m_screen.HasProgram = false;
    form.ViewReport();
    EXPECT_THAT(
        m_screen.Calls, ElementsAre("open " + log, "open " + report, "choose for " + report));
}

TEST_F(frmReviewSummary_, DisabledButtonsOpenNothing) {
    WriteReview();
    frmReviewSummary form(m_screen);
    form.Initialise(m_results, "", "");
    form.ViewLog();
    form.ViewReport();
    EXPECT_THAT(m_screen.Calls, IsEmpty());
}

}  // namespace
}  // namespace dorvik
