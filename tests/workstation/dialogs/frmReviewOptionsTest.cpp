#include "workstation/dialogs/frmReviewOptions.h"

#include "workstation/dialogs/ReviewOptionsFixture.h"

namespace dorvik {
namespace {

using test::CheckedKeys;
using test::TreeText;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Page = test::Page;

class ReviewOptionsForm : public test::ReviewOptionsFixture {};

// ---- opening ----

TEST_F(ReviewOptionsForm, TheRulebaseBoxOffersTheInstalledRulebases) {
    m_folder.Write("program\\Settings\\Rulebase\\House.dvk", "");
    m_folder.Write("program\\Settings\\Rulebase\\Notes.txt", "");
    Open();
    EXPECT_THAT(
        m_form->RulebaseFiles(),
        ElementsAre(m_folder.Path("program\\Settings\\Rulebase\\House.dvk")));
    EXPECT_EQ(m_form->cboRulebase.Value(), "");
}

TEST_F(ReviewOptionsForm, TheInstalledSampleIsTheDefaultWhereNoRulebaseIsKnown) {
    m_folder.Write("program\\Settings\\Rulebase\\Sample.dvk", m_folder.Read("Rules.dvk"));
    Open();
    EXPECT_EQ(
        m_form->cboRulebase.Value(), m_folder.Path("program\\Settings\\Rulebase\\Sample.dvk"));
    EXPECT_THAT(m_form->lvwCategories.Items(), SizeIs(3));
    m_criteria->LoadCriteria().SetRulebaseFile(m_folder.Path("Rules.dvk"));
    Open();
    EXPECT_EQ(m_form->cboRulebase.Value(), m_folder.Path("Rules.dvk"));
}

TEST_F(ReviewOptionsForm, AtTheFirstOpeningEverythingIsChecked) {
    OpenAndChoose();
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), ElementsAre("AC", "AR", "CC", "NC", "UK"));
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), ElementsAre("2K", "1K", "-1K")) << "by title";
    EXPECT_THAT(
        CheckedKeys(m_form->lvwSeverities), ElementsAre("1Key", "2Key", "3Key", "4Key", "5Key"));
    EXPECT_EQ(
        TreeText(m_form->tvwProjects.Roots()),
        "Demo+(Forms+(frmMain+ frmMdi+) Modules+(modA+) Class Modules+(clsB+))");
}

TEST_F(ReviewOptionsForm, TheConventionsHaveTheirTexts) {
    Open();
    std::vector<std::string> texts;
    for (const CheckItem& item : m_form->lvwConventions.Items()) {
        texts.push_back(item.Text);
    }
    EXPECT_THAT(
        texts,
        ElementsAre(
            "Authorised Components",
            "Authorised References",
            "Coding Conventions",
            "Naming Conventions",
            "Unauthorised Keywords"));
}

TEST_F(ReviewOptionsForm, TheCategoriesEndWithTheUnallocatedOne) {
    OpenAndChoose();
    const auto& items = m_form->lvwCategories.Items();
    ASSERT_THAT(items, SizeIs(3));
    EXPECT_EQ(items[0].Text, "Clarity");
    EXPECT_EQ(items[0].Description, "Clarity of the code.");
    EXPECT_EQ(items[1].Text, "Jumps");
    EXPECT_EQ(items[2].Text, "Unallocated");
    EXPECT_EQ(
        items[2].Description,
        "Conventions which have not yet been allocated to a specific category.");
}

TEST_F(ReviewOptionsForm, TheSeveritiesAreThoseOfTheRulebase) {
    OpenAndChoose();
    std::vector<std::string> texts;
    for (const CheckItem& item : m_form->lvwSeverities.Items()) {
        texts.push_back(item.Text);
    }
    EXPECT_THAT(texts, ElementsAre("Critical", "High", "Medium", "Low", "Info"));
}

TEST_F(ReviewOptionsForm, AtTheFirstOpeningTheTolerancesAreThoseOfTheRulebase) {
    OpenAndChoose();
    EXPECT_EQ(m_form->txtCount[0].Value(), "0");
    EXPECT_EQ(m_form->txtCount[1].Value(), "");
    EXPECT_EQ(m_form->txtCount[5].Value(), "40");
    EXPECT_EQ(m_form->txtImpact[1].Value(), "3000");
    EXPECT_EQ(m_form->txtComments.Value(), "10");
    EXPECT_EQ(m_form->txtComplexity.Value(), "");
}

TEST_F(ReviewOptionsForm, LaterTheTolerancesAreThoseOfTheCriteria) {
    OpenAndChoose();
    m_form->txtCount[0].Set("");
    m_form->txtCount[5].Set("7");
    m_form->txtComplexity.Set("12");
    ASSERT_TRUE(m_form->Ok());
    Open();
    EXPECT_EQ(m_form->txtCount[0].Value(), "");
    EXPECT_EQ(m_form->txtCount[5].Value(), "7");
    EXPECT_EQ(m_form->txtComplexity.Value(), "12");
    m_form->cboRulebase.Set(SaveRules("Other.dvk"));
    EXPECT_EQ(m_form->txtCount[5].Value(), "7");
}

TEST_F(ReviewOptionsForm, AMissingRulebaseHasNoCategoriesOfItsOwn) {
    OpenAndChoose();
    m_form->cboRulebase.Set(m_folder.Path("none.dvk"));
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), ElementsAre("-1K"));
    EXPECT_THAT(m_form->lvwSeverities.Items(), IsEmpty());
    EXPECT_THAT(m_messages.Messages, IsEmpty());
}

TEST_F(ReviewOptionsForm, ReviewModeHasItsCaptionAndAllPages) {
    Open();
    EXPECT_EQ(m_form->Caption.Value(), "Review Options");
    EXPECT_EQ(m_form->CurrentMode(), frmReviewOptions::Mode::Review);
    for (std::int16_t page = 1; page <= 6; ++page) {
        EXPECT_TRUE(m_form->PageIsOffered(static_cast<Page>(page)));
    }
    EXPECT_EQ(m_form->tbsOptions.Shown.Value(), 1);
}

TEST_F(ReviewOptionsForm, TheOtherFieldsShowTheCriteria) {
    m_criteria->SetBackgroundReview(true);
    m_criteria->SetClearLogBeforeReview(true);
    m_criteria->SetUseProjectFolderResults(false);
    m_criteria->SetFixedFolderResults("\\results");
    m_criteria->SetUseProjectFolderReports(false);
    m_criteria->SetFixedFolderReports("\\reports");
    m_criteria->SetReportOption(2);
    Open();
    EXPECT_TRUE(m_form->chkBackground.Value());
    EXPECT_TRUE(m_form->chkClearLog.Value());
    EXPECT_FALSE(m_form->chkResultsFolder.Value());
    EXPECT_EQ(m_form->txtResultsFolder.Value(), "\\results");
    EXPECT_FALSE(m_form->chkReportsFolder.Value());
    EXPECT_EQ(m_form->txtReportsFolder.Value(), "\\reports");
    EXPECT_EQ(m_form->optReports.Value(), 2);
    EXPECT_FALSE(m_form->TitleIsOffered.Value());
}

TEST_F(ReviewOptionsForm, ABatchHasATitleNoFilesAndNoBackground) {
    MakeBatch();
    m_criteria->SetBatchTitle("Nightly");
    Open();
    EXPECT_TRUE(m_form->TitleIsOffered.Value());
    EXPECT_EQ(m_form->txtTitle.Value(), "Nightly");
    EXPECT_FALSE(m_form->chkBackground.Value());
    EXPECT_FALSE(m_form->BackgroundEnabled.Value());
    EXPECT_EQ(TreeText(m_form->tvwProjects.Roots()), "Demo+");
}

// ---- the tree ----

TEST_F(ReviewOptionsForm, TheNodesTellTheirKindAndHaveIcons) {
    Open();
    std::vector<std::string> nodes;
    for (const CheckNode* const node : m_form->tvwProjects.Nodes()) {
        nodes.push_back(node->Tag + " " + node->Image);
    }
    EXPECT_THAT(
        nodes,
        ElementsAre(
            "ProjectNode STDEXE",
            "FileTypeNode Form",
            "SourceFileNode Form",
            "SourceFileNode MDIForm",
            "FileTypeNode Module",
            "SourceFileNode Module",
            "FileTypeNode Class",
            "SourceFileNode Class"));
}

TEST_F(ReviewOptionsForm, AllSevenTypesHaveANodeInTheirOrder) {
    Write(
        "Demo\\Demo.vbp",
        "Type=Exe\nUserDocument=d.dob\nUserControl=c.ctl\nPropertyPage=p.pag\nDesigner=x.dsr\n"
        "Class=c; c.cls\nModule=m; m.bas\nForm=f.frm\nName=\"Demo\"\n");
    Write("Demo\\d.dob", "Begin VB.UserDocument docD \n");
    Write("Demo\\c.ctl", "Begin VB.UserControl ctlC \n");
    Write("Demo\\p.pag", "Begin VB.PropertyPage pagP \n");
    Write("Demo\\x.dsr", "Begin {C0E45035-5775-11D0-B388-00A0C9055D8E} deX \n");
    Write("Demo\\f.frm", "Begin VB.Form frmF \n");
    Open();
    std::vector<std::string> types;
    for (const auto& node : m_form->tvwProjects.Roots()[0]->Children) {
        types.push_back(node->Text + " " + node->Image);
    }
    EXPECT_THAT(
        types,
        ElementsAre(
            "Forms Form",
            "Modules Module",
            "Class Modules Class",
            "Designers Designer",
            "Property Pages PropertyPage",
            "User Controls UserControl",
            "User Documents UserDocument"));
}

TEST_F(ReviewOptionsForm, AProjectThatCannotBeReadHasNoFiles) {
    AddProject("Gone", "Gone.vbp");
    Open();
    EXPECT_EQ(
        TreeText(m_form->tvwProjects.Roots()),
        "Demo+(Forms+(frmMain+ frmMdi+) Modules+(modA+) Class Modules+(clsB+)) Gone+");
}

TEST_F(ReviewOptionsForm, ACheckReachesTheNodesBelowAndAbove) {
    Open();
    CheckTree& tree = m_form->tvwProjects;
    tree.Check(*m_form->Projects().FindProjectNode("demo"), false);
    EXPECT_EQ(
        TreeText(tree.Roots()),
        "Demo-(Forms-(frmMain- frmMdi-) Modules-(modA-) Class Modules-(clsB-))");
    tree.Check(*m_form->Projects().FindSourceFileNode("Demo", "FRMMDI"), true);
    EXPECT_EQ(
        TreeText(tree.Roots()),
        "Demo+(Forms+(frmMain- frmMdi+) Modules-(modA-) Class Modules-(clsB-))");
    tree.Check(*tree.Roots()[0]->Children[0], true);
    EXPECT_EQ(
        TreeText(tree.Roots()),
        "Demo+(Forms+(frmMain+ frmMdi+) Modules-(modA-) Class Modules-(clsB-))");
    tree.Check(*tree.Roots()[0]->Children[0], false);
    EXPECT_EQ(
        TreeText(tree.Roots()),
        "Demo-(Forms-(frmMain- frmMdi-) Modules-(modA-) Class Modules-(clsB-))");
}

TEST_F(ReviewOptionsForm, AParentStaysCheckedAsLongAsAChildIs) {
    Open();
    m_form->tvwProjects.Check(*m_form->Projects().FindSourceFileNode("Demo", "frmMain"), false);
    EXPECT_EQ(
        TreeText(m_form->tvwProjects.Roots()),
        "Demo+(Forms+(frmMain- frmMdi+) Modules+(modA+) Class Modules+(clsB+))");
}

TEST_F(ReviewOptionsForm, TheSelectedFilesAreRememberedForTheNextTime) {
    OpenAndChoose();
    m_form->tvwProjects.Check(*m_form->Projects().FindSourceFileNode("Demo", "modA"), false);
    ASSERT_TRUE(m_form->Ok());
    const auto& project = m_criteria->ProjectList().Item("Demo");
    EXPECT_FALSE(project->SourceFiles().Selected("modA"));
    EXPECT_TRUE(project->SourceFiles().Selected("clsB"));
    EXPECT_TRUE(m_criteria->ProjectList().Selected("Demo"));
    const auto& kept = m_criteria->PreviouslySelectedFiles().Item("Demo");
    EXPECT_EQ(kept->Count(), 3);
    EXPECT_FALSE(kept->Contains("modA"));
    project->ClearListProperties();
    Open();
    EXPECT_EQ(
        TreeText(m_form->tvwProjects.Roots()),
        "Demo+(Forms+(frmMain+ frmMdi+) Modules-(modA-) Class Modules+(clsB+))");
    m_form->tvwProjects.Check(*m_form->Projects().FindSourceFileNode("Demo", "modA"), true);
    ASSERT_TRUE(m_form->Ok());
    EXPECT_EQ(m_criteria->PreviouslySelectedFiles().Item("Demo")->Count(), 4);
}

TEST_F(ReviewOptionsForm, AProjectWithoutACheckIsNotSelected) {
    Write("Demo\\Second.vbp", "Type=Exe\nModule=modA; modA.bas\nName=\"Second\"\n");
    AddProject("Second", "Demo\\Second.vbp");
    OpenAndChoose();
    m_form->tvwProjects.Check(*m_form->Projects().FindProjectNode("Second"), false);
    ASSERT_TRUE(m_form->Ok());
    EXPECT_TRUE(m_criteria->ProjectList().Selected("Demo"));
    EXPECT_FALSE(m_criteria->ProjectList().Selected("Second"));
    EXPECT_EQ(m_criteria->PreviouslySelectedFiles().Item("Second")->Count(), 0);
    Open();
    EXPECT_FALSE(m_form->Projects().FindSourceFileNode("Second", "modA")->Checked);
    EXPECT_FALSE(m_form->Projects().FindProjectNode("Second")->Checked);
}

TEST_F(ReviewOptionsForm, SelectAllOrNoneActsOnThePageInFront) {
    OpenAndChoose();
    m_form->SelectAllOrNone(false);
    EXPECT_EQ(
        TreeText(m_form->tvwProjects.Roots()),
        "Demo-(Forms-(frmMain- frmMdi-) Modules-(modA-) Class Modules-(clsB-))");
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), SizeIs(5));
    const auto selectOn = [&](Page page) {
        m_form->tbsOptions.Shown.Set(static_cast<std::int16_t>(page));
        m_form->SelectAllOrNone(false);
    };
    selectOn(Page::Conventions);
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), IsEmpty());
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), SizeIs(3));
    selectOn(Page::Categories);
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), IsEmpty());
    EXPECT_THAT(CheckedKeys(m_form->lvwSeverities), SizeIs(5));
    selectOn(Page::Severities);
    EXPECT_THAT(CheckedKeys(m_form->lvwSeverities), IsEmpty());
    m_form->SelectAllOrNone(true);
    EXPECT_THAT(CheckedKeys(m_form->lvwSeverities), SizeIs(5));
}

TEST_F(ReviewOptionsForm, ResetChecksTheThreeLists) {
    OpenAndChoose();
    for (CheckList* const list :
         {&m_form->lvwConventions, &m_form->lvwCategories, &m_form->lvwSeverities}) {
        list->SetAll(false);
    }
    m_form->Reset();
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), SizeIs(5));
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), SizeIs(3));
    EXPECT_THAT(CheckedKeys(m_form->lvwSeverities), SizeIs(5));
}

TEST_F(ReviewOptionsForm, AProjectThatCouldNotBeReadHasNoSelectionToRemember) {
    AddProject("Late", "Demo\\Late.vbp");
    OpenAndChoose();
    ASSERT_TRUE(m_form->Ok());
    EXPECT_FALSE(m_criteria->PreviouslySelectedFiles().Contains("Late"));
    Write("Demo\\Late.vbp", "Type=Exe\nModule=modA; modA.bas\nName=\"Late\"\n");
    Open();
    EXPECT_TRUE(m_form->Projects().FindSourceFileNode("Late", "modA")->Checked);
}

TEST_F(ReviewOptionsForm, AFolderIsEnabledWhereItIsUsed) {
    Open();
    m_form->chkResultsFolder.Set(true);
    EXPECT_FALSE(m_form->ResultsFolderEnabled.Value());
    m_form->chkResultsFolder.Set(false);
    EXPECT_TRUE(m_form->ResultsFolderEnabled.Value());
    m_form->chkReportsFolder.Set(false);
    m_form->optReports.Set(0);
    EXPECT_FALSE(m_form->ReportsFolderEnabled.Value()) << "there are no reports";
    m_form->optReports.Set(1);
    EXPECT_TRUE(m_form->ReportsFolderEnabled.Value());
    m_form->chkReportsFolder.Set(true);
    EXPECT_FALSE(m_form->ReportsFolderEnabled.Value());
}

}  // namespace
}  // namespace dorvik
