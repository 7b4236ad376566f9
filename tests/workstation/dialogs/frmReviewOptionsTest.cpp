#include "workstation/dialogs/frmReviewOptions.h"

#include "ReviewedFiles.h"
#include "platform/host/modFiles.h"

#include <gmock/gmock.h>

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// "Demo[x]", its types below it in brackets with a mark where they are checked.
std::string TreeText(const std::vector<std::unique_ptr<CheckNode>>& nodes) {
    std::string text;
    for (const auto& node : nodes) {
        text += node->Text + (node->Checked ? "+" : "-");
        if (!node->Children.empty()) {
            text += "(" + TreeText(node->Children) + ")";
        }
        text += node == nodes.back() ? "" : " ";
    }
    return text;
}

std::vector<std::string> CheckedKeys(const CheckList& list) {
    std::vector<std::string> keys;
    for (const CheckItem& item : list.Items()) {
        if (item.Checked) {
            keys.push_back(item.Key);
        }
    }
    return keys;
}

void Uncheck(CheckList& list, std::string_view key) {
    list.SetChecked(list.Find(key).value(), false);
}

class frmReviewOptions_ : public test::ReviewedFiles {
protected:
    void Open() {
        m_form = std::make_unique<frmReviewOptions>(m_screen);
        m_form->ReviewOptions(m_criteria);
    }
    /// With the rulebase of the test chosen.
    void OpenAndChoose() {
        Open();
        m_form->cboRulebase.Set(m_folder.Path("Rules.dvk"));
    }
    void MakeBatch() {
        m_criteria->SetReviewType(ReviewType_Batch);
        m_criteria->SetBackgroundReview(true);
    }

    /// OK is refused with that one message on that page.
    void ExpectRefusal(
        const std::string& text, frmReviewOptions::Page page, const std::string& control) {
        m_messages.Messages.clear();
        EXPECT_FALSE(m_form->Ok());
        EXPECT_FALSE(m_form->IsClosed());
        ASSERT_THAT(m_messages.Messages, SizeIs(1));
        EXPECT_EQ(
            m_messages.Messages[0],
            (MessageText{MessageIcon::Exclamation, "Dorvik Workstation", text}));
        EXPECT_EQ(m_form->tbsOptions.Shown.Value(), static_cast<std::int16_t>(page));
        EXPECT_EQ(m_form->Focus.Value(), control);
    }

    std::unique_ptr<frmReviewOptions> m_form;
};

using Page = frmReviewOptions::Page;

// ---- opening ----

TEST_F(frmReviewOptions_, TheRulebaseBoxOffersTheInstalledRulebases) {
    m_folder.Write("program\\Settings\\Rulebase\\House.dvk", "");
    m_folder.Write("program\\Settings\\Rulebase\\Notes.txt", "");
    Open();
    EXPECT_THAT(
        m_form->RulebaseFiles(),
        ElementsAre(m_folder.Path("program\\Settings\\Rulebase\\House.dvk")));
    EXPECT_EQ(m_form->cboRulebase.Value(), "");
}

TEST_F(frmReviewOptions_, TheInstalledSampleIsTheDefaultWhereNoRulebaseIsKnown) {
    m_folder.Write("program\\Settings\\Rulebase\\Sample.dvk", m_folder.Read("Rules.dvk"));
    Open();
    EXPECT_EQ(
        m_form->cboRulebase.Value(), m_folder.Path("program\\Settings\\Rulebase\\Sample.dvk"));
    EXPECT_THAT(m_form->lvwCategories.Items(), SizeIs(3));
    m_criteria->LoadCriteria().SetRulebaseFile(m_folder.Path("Rules.dvk"));
    Open();
    EXPECT_EQ(m_form->cboRulebase.Value(), m_folder.Path("Rules.dvk"));
}

TEST_F(frmReviewOptions_, AtTheFirstOpeningEverythingIsChecked) {
    OpenAndChoose();
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), ElementsAre("AC", "AR", "CC", "NC", "UK"));
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), ElementsAre("2K", "1K", "-1K")) << "by title";
    EXPECT_THAT(
        CheckedKeys(m_form->lvwSeverities), ElementsAre("1Key", "2Key", "3Key", "4Key", "5Key"));
    EXPECT_EQ(
        TreeText(m_form->tvwProjects.Roots()),
        "Demo+(Forms+(frmMain+ frmMdi+) Modules+(modA+) Class Modules+(clsB+))");
}

TEST_F(frmReviewOptions_, TheConventionsHaveTheirTexts) {
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

TEST_F(frmReviewOptions_, TheCategoriesEndWithTheUnallocatedOne) {
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

TEST_F(frmReviewOptions_, TheSeveritiesAreThoseOfTheRulebase) {
    OpenAndChoose();
    std::vector<std::string> texts;
    for (const CheckItem& item : m_form->lvwSeverities.Items()) {
        texts.push_back(item.Text);
    }
    EXPECT_THAT(texts, ElementsAre("Critical", "High", "Medium", "Low", "Info"));
}

TEST_F(frmReviewOptions_, AtTheFirstOpeningTheTolerancesAreThoseOfTheRulebase) {
    OpenAndChoose();
    EXPECT_EQ(m_form->txtCount[0].Value(), "0");
    EXPECT_EQ(m_form->txtCount[1].Value(), "");
    EXPECT_EQ(m_form->txtCount[5].Value(), "40");
    EXPECT_EQ(m_form->txtImpact[1].Value(), "3000");
    EXPECT_EQ(m_form->txtComments.Value(), "10");
    EXPECT_EQ(m_form->txtComplexity.Value(), "");
}

TEST_F(frmReviewOptions_, LaterTheTolerancesAreThoseOfTheCriteria) {
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

TEST_F(frmReviewOptions_, AMissingRulebaseHasNoCategoriesOfItsOwn) {
    OpenAndChoose();
    m_form->cboRulebase.Set(m_folder.Path("none.dvk"));
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), ElementsAre("-1K"));
    EXPECT_THAT(m_form->lvwSeverities.Items(), IsEmpty());
    EXPECT_THAT(m_messages.Messages, IsEmpty());
}

TEST_F(frmReviewOptions_, ReviewModeHasItsCaptionAndAllPages) {
    Open();
    EXPECT_EQ(m_form->Caption.Value(), "Review Options");
    EXPECT_EQ(m_form->CurrentMode(), frmReviewOptions::Mode::Review);
    for (std::int16_t page = 1; page <= 6; ++page) {
        EXPECT_TRUE(m_form->PageIsOffered(static_cast<Page>(page)));
    }
    EXPECT_EQ(m_form->tbsOptions.Shown.Value(), 1);
}

TEST_F(frmReviewOptions_, TheOtherFieldsShowTheCriteria) {
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

TEST_F(frmReviewOptions_, ABatchHasATitleNoFilesAndNoBackground) {
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

TEST_F(frmReviewOptions_, TheNodesTellTheirKindAndHaveIcons) {
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

TEST_F(frmReviewOptions_, AllSevenTypesHaveANodeInTheirOrder) {
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

TEST_F(frmReviewOptions_, AProjectThatCannotBeReadHasNoFiles) {
    AddProject("Gone", "Gone.vbp");
    Open();
    EXPECT_EQ(
        TreeText(m_form->tvwProjects.Roots()),
        "Demo+(Forms+(frmMain+ frmMdi+) Modules+(modA+) Class Modules+(clsB+)) Gone+");
}

TEST_F(frmReviewOptions_, ACheckReachesTheNodesBelowAndAbove) {
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

TEST_F(frmReviewOptions_, AParentStaysCheckedAsLongAsAChildIs) {
    Open();
    m_form->tvwProjects.Check(*m_form->Projects().FindSourceFileNode("Demo", "frmMain"), false);
    EXPECT_EQ(
        TreeText(m_form->tvwProjects.Roots()),
        "Demo+(Forms+(frmMain- frmMdi+) Modules+(modA+) Class Modules+(clsB+))");
}

TEST_F(frmReviewOptions_, TheSelectedFilesAreRememberedForTheNextTime) {
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

TEST_F(frmReviewOptions_, AProjectWithoutACheckIsNotSelected) {
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

TEST_F(frmReviewOptions_, SelectAllOrNoneActsOnThePageInFront) {
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

TEST_F(frmReviewOptions_, ResetChecksTheThreeLists) {
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

// ---- OK ----

TEST_F(frmReviewOptions_, ABatchWithoutATitleIsRefusedFirst) {
    MakeBatch();
    Open();
    m_form->lvwConventions.SetAll(false);
    ExpectRefusal("Please enter a title for the batch.", Page::Projects, "txtTitle");
}

TEST_F(frmReviewOptions_, AReviewWithoutARulebaseIsRefused) {
    Open();
    ExpectRefusal("Please select a rulebase for the review.", Page::Projects, "cboRulebase");
}

TEST_F(frmReviewOptions_, ARulebaseThatIsNotThereIsRefused) {
    Open();
    m_form->cboRulebase.Set("\\none\\Rules.dvk");
    ExpectRefusal(
        "The selected rulebase '\\none\\Rules.dvk' cannot be found, please check the path.",
        Page::Projects,
        "cboRulebase");
}

TEST_F(frmReviewOptions_, ABatchWithoutAProjectIsRefused) {
    MakeBatch();
    OpenAndChoose();
    m_form->txtTitle.Set("Nightly");
    m_form->tvwProjects.Check(*m_form->Projects().FindProjectNode("Demo"), false);
    ExpectRefusal("Please select the project(s) to review.", Page::Projects, "tvwProjects");
}

TEST_F(frmReviewOptions_, OpenProjectsMayAllBeUnchecked) {
    OpenAndChoose();
    m_form->SelectAllOrNone(false);
    EXPECT_TRUE(m_form->Ok());
    EXPECT_EQ(m_criteria->ProjectList().SelectedCount(), 0);
}

TEST_F(frmReviewOptions_, AFixedFolderNeedsAPath) {
    OpenAndChoose();
    m_form->chkResultsFolder.Set(false);
    m_form->txtResultsFolder.Set("");
    ExpectRefusal("Please enter a path to the results folder.", Page::Results, "txtResultsFolder");
    m_form->chkResultsFolder.Set(true);
    m_form->chkReportsFolder.Set(false);
    m_form->optReports.Set(1);
    ExpectRefusal("Please enter a path to the reports folder.", Page::Results, "txtReportsFolder");
}

TEST_F(frmReviewOptions_, WithoutAReportTheReportsFolderIsNotChecked) {
    OpenAndChoose();
    m_form->chkReportsFolder.Set(false);
    m_form->txtReportsFolder.Set("");
    m_form->optReports.Set(0);
    EXPECT_TRUE(m_form->Ok());
    EXPECT_THAT(m_messages.Messages, IsEmpty());
}

TEST_F(frmReviewOptions_, AFolderThatTheUserDeclinesToCreateKeepsTheDialogOpen) {
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

TEST_F(frmReviewOptions_, AFolderIsCreatedOnRequest) {
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

TEST_F(frmReviewOptions_, AFolderThatCannotBeCreatedIsRefused) {
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

TEST_F(frmReviewOptions_, AReviewWithoutAConventionIsRefusedLast) {
    OpenAndChoose();
    m_form->lvwConventions.SetAll(false);
    ExpectRefusal(
        "Please select the conventions to enforce during the review.",
        Page::Conventions,
        "lvwConventions");
}

TEST_F(frmReviewOptions_, OkMovesTheFieldsToTheCriteria) {
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

TEST_F(frmReviewOptions_, ABatchTakesItsTitle) {
    MakeBatch();
    OpenAndChoose();
    m_form->txtTitle.Set("Nightly");
    ASSERT_TRUE(m_form->Ok());
    EXPECT_EQ(m_criteria->BatchTitle(), "Nightly");
    EXPECT_FALSE(m_criteria->BackgroundReview());
}

TEST_F(frmReviewOptions_, AnEmptyToleranceIsNotSetAndZeroIsALimit) {
    OpenAndChoose();
    for (std::size_t place = 0; place < 6; ++place) {
        m_form->txtCount[place].Set(std::to_string(place));
        m_form->txtImpact[place].Set(std::to_string(place * 10) + " or so");
    }
    m_form->txtCount[3].Set("");
    m_form->txtImpact[2].Set("none");
    m_form->txtComments.Set("");
    m_form->txtComplexity.Set("0");
    ASSERT_TRUE(m_form->Ok());
    EXPECT_EQ(m_criteria->ToleranceCount(1), 0);
    EXPECT_EQ(m_criteria->ToleranceCount(2), 1);
    EXPECT_EQ(m_criteria->ToleranceCount(4), -1);
    EXPECT_EQ(m_criteria->ToleranceCount(6), 5);
    EXPECT_EQ(m_criteria->ToleranceImpact(1), 0);
    EXPECT_EQ(m_criteria->ToleranceImpact(3), 0);
    EXPECT_EQ(m_criteria->ToleranceImpact(6), 50);
    EXPECT_EQ(m_criteria->TolerancePercentageComments(), -1);
    EXPECT_EQ(m_criteria->ToleranceCyclomaticComplexity(), 0);
}

TEST_F(frmReviewOptions_, EachConventionSetsItsFlagAlone) {
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

TEST_F(frmReviewOptions_, UncheckedCategoriesAreExcludedInTheOrderOfTheirFirstExclusion) {
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

TEST_F(frmReviewOptions_, UncheckedSeveritiesAreNotTaken) {
    OpenAndChoose();
    Uncheck(m_form->lvwSeverities, "5Key");
    ASSERT_TRUE(m_form->Ok());
    EXPECT_TRUE(m_criteria->LoadCriteria().SeverityLevel(4));
    EXPECT_FALSE(m_criteria->LoadCriteria().SeverityLevel(5));
    Open();
    EXPECT_THAT(CheckedKeys(m_form->lvwSeverities), ElementsAre("1Key", "2Key", "3Key", "4Key"));
}

TEST_F(frmReviewOptions_, CancelDropsTheFilesAndChangesNothing) {
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

TEST_F(frmReviewOptions_, BrowsingFillsTheBoxes) {
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

class frmReviewOptions_Filter : public frmReviewOptions_ {
protected:
    frmReviewOptions_Filter() {
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

TEST_F(frmReviewOptions_Filter, HasItsCaptionAndLabels) {
    EXPECT_EQ(m_form->CurrentMode(), frmReviewOptions::Mode::Filter);
    EXPECT_EQ(m_form->Caption.Value(), "Filter Options");
    EXPECT_EQ(m_form->lblConventions.Value(), "Select the conventions to include:");
    EXPECT_EQ(m_form->lblCategories.Value(), "Select the categories to include:");
    EXPECT_EQ(m_form->lblSeverities.Value(), "Select the rule severity levels to include:");
}

TEST_F(frmReviewOptions_Filter, ShowsTheFilterAndNothingElse) {
    EXPECT_THAT(CheckedKeys(m_form->lvwConventions), ElementsAre("CC", "NC"));
    EXPECT_THAT(CheckedKeys(m_form->lvwCategories), ElementsAre("1K", "-1K"));
    EXPECT_THAT(CheckedKeys(m_form->lvwSeverities), ElementsAre("1Key", "2Key"));
    EXPECT_THAT(m_form->tvwProjects.Roots(), IsEmpty());
    EXPECT_THAT(m_form->RulebaseFiles(), IsEmpty());
    EXPECT_EQ(m_form->cboRulebase.Value(), "");
}

TEST_F(frmReviewOptions_Filter, OkNeedsNoRulebaseProjectOrFolder) {
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

TEST_F(frmReviewOptions_Filter, OkWithoutAChangeLeavesTheFilterClean) {
    ASSERT_TRUE(m_form->Ok());
    EXPECT_FALSE(m_filter.Dirty());
}

TEST_F(frmReviewOptions_Filter, AFilterWithoutAConventionIsRefused) {
    m_form->lvwConventions.SetAll(false);
    ExpectRefusal(
        "Please select the conventions to enforce during the review.",
        Page::Conventions,
        "lvwConventions");
}

TEST_F(frmReviewOptions_Filter, CancelChangesNothing) {
    m_form->Reset();
    m_form->Cancel();
    EXPECT_TRUE(m_form->Cancelled());
    EXPECT_FALSE(m_filter.Dirty());
}

TEST_F(frmReviewOptions_Filter, CtrlTabGoesThroughThePagesOfTheFilter) {
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
