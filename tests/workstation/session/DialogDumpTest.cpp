#include "workstation/session/DialogDump.h"

#include "results/ResultsDB.h"
#include "workstation/dialogs/ReviewedFiles.h"
#include "workstation/dialogs/frmOptions.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/dialogs/frmReviewSummary.h"

#include <gmock/gmock.h>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace dorvik {
namespace {

using modDialogDump::DialogCommand;
using modDialogDump::Words;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

rapidjson::Document Parsed(const std::string& json) {
    rapidjson::Document document;
    document.Parse(json.c_str(), json.size());
    return document;
}

std::string CompactText(const rapidjson::Value& value) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    value.Accept(writer);
    return buffer.GetString();
}

class DialogDumps : public test::ReviewedFiles {
protected:
    void Queue(std::vector<Words> commands) {
        for (Words& words : commands) {
            ASSERT_TRUE(modDialogDump::IsDialogCommand(words)) << words[0];
            m_queue.push_back({++m_line, std::move(words)});
        }
    }
    std::vector<int> RefusedLines(const std::vector<modDialogDump::DialogRefusal>& refusals) {
        std::vector<int> lines;
        for (const auto& refusal : refusals) {
            EXPECT_FALSE(refusal.Reason.empty());
            lines.push_back(refusal.Line);
        }
        return lines;
    }
    std::string HostPathOf(const std::string& name) const {
        return (m_folder.HostPath() / name).string();
    }

    std::deque<DialogCommand> m_queue;
    int m_line = 0;
};

TEST_F(DialogDumps, EveryFieldOfTheReviewOptionsCanBeSet) {
    frmReviewOptions form(m_screen);
    form.ReviewOptions(m_criteria);
    Queue({
        {"rulebase", HostPathOf("Rules.dvk")},
        {"background", "on"},
        {"clear-log", "on"},
        {"project-results", "off"},
        {"results", HostPathOf("Demo")},
        {"project-reports", "off"},
        {"reports", HostPathOf("Demo")},
        {"report", "2"},
        {"project", "Demo", "off"},
        {"file", "Demo/modA", "on"},
        {"convention", "AC", "off"},
        {"category", "0", "off"},
        {"category", "2", "off"},
        {"severity", "5", "off"},
        {"count", "6", "9"},
        {"impact", "1", "100"},
        {"comments", "15"},
        {"complexity", "20"},
        {"ok"},
    });
    EXPECT_THAT(RefusedLines(Play(m_queue, form)), IsEmpty());
    EXPECT_FALSE(form.Cancelled());
    const RulebaseLoadCriteria& load = m_criteria->LoadCriteria();
    EXPECT_EQ(load.RulebaseFile(), m_folder.Path("Rules.dvk"));
    EXPECT_TRUE(m_criteria->BackgroundReview());
    EXPECT_TRUE(m_criteria->ClearLogBeforeReview());
    EXPECT_FALSE(m_criteria->UseProjectFolderResults());
    EXPECT_EQ(m_criteria->FixedFolderResults(), m_folder.Path("Demo"));
    EXPECT_FALSE(m_criteria->UseProjectFolderReports());
    EXPECT_EQ(m_criteria->FixedFolderReports(), m_folder.Path("Demo"));
    EXPECT_EQ(m_criteria->ReportOption(), 2);
    const auto& files = m_criteria->ProjectList().Item("Demo")->SourceFiles();
    EXPECT_TRUE(files.Selected("modA"));
    EXPECT_FALSE(files.Selected("clsB"));
    EXPECT_FALSE(load.AuthorisedComponents());
    EXPECT_TRUE(load.CodingConventions());
    EXPECT_TRUE(load.IsExcludedCategoryID(-1));
    EXPECT_TRUE(load.IsExcludedCategoryID(2));
    EXPECT_FALSE(load.IsExcludedCategoryID(1));
    EXPECT_FALSE(load.SeverityLevel(5));
    EXPECT_EQ(m_criteria->Tolerances().Count.Item(6), 9);
    EXPECT_EQ(m_criteria->Tolerances().Impact.Item(1), 100);
    EXPECT_EQ(m_criteria->Tolerances().PercentageComments, 15);
    EXPECT_EQ(m_criteria->Tolerances().CyclomaticComplexity, 20);
}

TEST_F(DialogDumps, ADialogWithoutAnEndIsCancelled) {
    frmReviewOptions form(m_screen);
    form.ReviewOptions(m_criteria);
    Queue({{"clear-log", "on"}});
    Play(m_queue, form);
    EXPECT_TRUE(form.IsClosed());
    EXPECT_TRUE(form.Cancelled());
}

TEST_F(DialogDumps, ARefusedOkLeavesTheDialogOpenForTheNextFields) {
    frmReviewOptions form(m_screen);
    form.ReviewOptions(m_criteria);
    Queue({
        {"ok"},
        {"rulebase", HostPathOf("Rules.dvk")},
        {"convention", "UK", "off"},
        {"reset"},
        {"ok"},
        {"clear-log", "on"},
    });
    Play(m_queue, form);
    EXPECT_FALSE(form.Cancelled());
    EXPECT_THAT(m_messages.Messages, SizeIs(1));
    EXPECT_TRUE(m_criteria->LoadCriteria().UnauthorisedKeywords());
    EXPECT_THAT(m_queue, SizeIs(1)) << "left for the next dialog";
}

TEST_F(DialogDumps, WhatADialogDoesNotHaveIsRefused) {
    frmReviewOptions form(m_screen);
    form.ReviewOptions(m_criteria);
    Queue({
        {"title", "Nightly"},
        {"project", "Nothing", "on"},
        {"file", "Demo", "on"},
        {"file", "Demo/none", "on"},
        {"convention", "XX", "on"},
        {"category", "99", "on"},
        {"severity", "9", "on"},
        {"set", "chkClearLog", "on"},
    });
    EXPECT_THAT(RefusedLines(Play(m_queue, form)), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST_F(DialogDumps, ABatchTakesATitleAndNoBackground) {
    m_criteria->SetReviewType(ReviewType_Batch);
    frmReviewOptions form(m_screen);
    form.ReviewOptions(m_criteria);
    Queue(
        {{"title", "Nightly"},
         {"background", "on"},
         {"rulebase", HostPathOf("Rules.dvk")},
         {"ok"}});
    EXPECT_THAT(RefusedLines(Play(m_queue, form)), ElementsAre(2));
    EXPECT_EQ(m_criteria->BatchTitle(), "Nightly");
}

TEST_F(DialogDumps, TheFilterHasOnlyItsThreeLists) {
    RulebaseLoadCriteria filter;
    filter.SetCodingConventions(true);
    frmReviewOptions form(m_screen);
    form.FilterOptions(filter);
    Queue({
        {"rulebase", "x"},
        {"results", "x"},
        {"project", "Demo", "on"},
        {"count", "1", "1"},
        {"convention", "NC", "on"},
        {"category", "0", "off"},
        {"ok"},
    });
    EXPECT_THAT(RefusedLines(Play(m_queue, form)), ElementsAre(1, 2, 3, 4));
    EXPECT_TRUE(filter.NamingConventions());
    EXPECT_TRUE(filter.IsExcludedCategoryID(-1));
}

TEST_F(DialogDumps, EveryControlOfTheOptionsCanBeSet) {
    frmOptions form(m_screen);
    Queue({
        {"set", "chkShowWorkbench", "off"},
        {"set", "chkShowSummary", "off"},
        {"set", "chkResultsFolder", "off"},
        {"set", "txtResultsFolder", HostPathOf("results")},
        {"set", "chkReportsFolder", "off"},
        {"set", "txtReportsFolder", HostPathOf("reports")},
        {"set", "cboReports", "2"},
        {"set", "optCompleted", "2"},
        {"set", "chkSynchronise", "on"},
        {"set", "lstProjectMember", "3"},
        {"set", "optPMOrder", "0"},
        {"set", "chkPMZero", "off"},
        {"set", "lstFileMember", "2"},
        {"set", "optFMOrder", "0"},
        {"set", "chkFMZero", "off"},
        {"set", "chkClearLog", "off"},
        {"set", "chkBackground", "on"},
        {"set", "txtTickCount", "25x"},
        {"set", "txtRBDoc", HostPathOf("doc.html")},
        {"ok"},
    });
    EXPECT_THAT(RefusedLines(Play(m_queue, form)), IsEmpty());
    EXPECT_FALSE(Settings().AlwaysShowWorkbench);
    EXPECT_FALSE(Settings().AlwaysShowSummary);
    EXPECT_FALSE(Settings().UseProjectFolderResults);
    EXPECT_EQ(Settings().LastResultsPath, m_folder.Path("results"));
    EXPECT_FALSE(Settings().UseProjectFolderReports);
    EXPECT_EQ(Settings().LastReportsPath, m_folder.Path("reports"));
    EXPECT_EQ(Settings().LastReportOption, 2);
    EXPECT_EQ(Settings().CompletedItemsOption, 2);
    EXPECT_TRUE(Settings().AlwaysSynchroniseVL);
    EXPECT_EQ(Settings().RVFileSortKey, 3);
    EXPECT_FALSE(Settings().RVFileSortAscending);
    EXPECT_FALSE(Settings().RVFileShowZeroItems);
    EXPECT_EQ(Settings().RVProcSortKey, 2);
    EXPECT_FALSE(Settings().RVProcSortAscending);
    EXPECT_FALSE(Settings().RVProcShowZeroItems);
    EXPECT_FALSE(Settings().ClearLog);
    EXPECT_TRUE(Settings().BackgroundReview);
    EXPECT_EQ(Settings().BackgroundTickCount, 25);
    EXPECT_EQ(Settings().RBDocPath, m_folder.Path("doc.html"));
}

TEST_F(DialogDumps, TheOptionsRefuseWhatTheyCannotTake) {
    frmOptions form(m_screen);
    Queue({
        {"set", "txtResultsFolder", "x"},
        {"set", "txtReportsFolder", "x"},
        {"set", "optCompleted", "3"},
        {"set", "lstFileMember", "5"},
        {"rulebase", "x"},
        {"reset"},
    });
    EXPECT_THAT(RefusedLines(Play(m_queue, form)), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(DialogCommands, OnlyWholeCommandsAreUnderstood) {
    using modDialogDump::IsDialogCommand;
    EXPECT_TRUE(IsDialogCommand({"ok"}));
    EXPECT_TRUE(IsDialogCommand({"cancel"}));
    EXPECT_TRUE(IsDialogCommand({"reset"}));
    EXPECT_TRUE(IsDialogCommand({"count", "6", ""}));
    for (const Words& words : std::vector<Words>{
             {},
             {"ok", "now"},
             {"reset", "x"},
             {"nothing", "x"},
             {"rulebase"},
             {"background", "yes"},
             {"report", "3"},
             {"count", "7", "1"},
             {"count", "1"},
             {"category", "x", "on"},
             {"convention", "AC"},
             {"set", "chkNothing", "on"},
             {"set", "chkClearLog", "1"},
             {"set", "chkClearLog"}}) {
        EXPECT_FALSE(IsDialogCommand(words)) << (words.empty() ? "" : words[0]);
    }
}

TEST(DialogCommands, OnlyCommandsOfTheSummaryAreUnderstood) {
    using modDialogDump::IsSummaryCommand;
    for (const Words& words : std::vector<Words>{
             {"3"},
             {"next"},
             {"file", "2"},
             {"column", "1"},
             {"double", "2"},
             {"log"},
             {"report"},
             {"close"}}) {
        EXPECT_TRUE(IsSummaryCommand(words)) << words[0];
    }
    for (const Words& words : std::vector<Words>{
             {}, {"three"}, {"file"}, {"column", "x"}, {"double"}, {"close", "now"}, {"3", "4"}}) {
        EXPECT_FALSE(IsSummaryCommand(words)) << (words.empty() ? "" : words[0]);
    }
}

TEST_F(DialogDumps, TheReviewOptionsAreDumpedWithEveryField) {
    m_criteria->SetFixedFolderResults("\\results");
    frmReviewOptions form(m_screen);
    form.ReviewOptions(m_criteria);
    form.cboRulebase.Set(m_folder.Path("Rules.dvk"));
    rapidjson::Document dump = Parsed(modDialogDump::Dump(form));
    EXPECT_EQ(dump["rulebase"].GetString(), m_folder.Path("Rules.dvk"));
    dump.EraseMember("rulebase");
    EXPECT_EQ(
        CompactText(dump),
        R"j({"dump":"options","caption":"Review Options","mode":"review","title":"",)j"
        R"j("background":false,"clear-log":false,"project-results":true,"results":"\\results",)j"
        R"j("project-reports":true,"reports":"","report":1,"project":{"Demo":true},)j"
        R"j("file":{"Demo/frmMain":true,"Demo/frmMdi":true,"Demo/modA":true,"Demo/clsB":true},)j"
        R"j("convention":{"AC":true,"AR":true,"CC":true,"NC":true,"UK":true},)j"
        R"j("category":{"2":true,"1":true,"0":true},)j"
        R"j("severity":{"1":true,"2":true,"3":true,"4":true,"5":true},)j"
        R"j("count":{"1":"0","2":"","3":"","4":"","5":"","6":"40"},)j"
        R"j("impact":{"1":"","2":"3000","3":"","4":"","5":"","6":""},)j"
        R"j("comments":"10","complexity":"",)j"
        R"j("tree":[{"tag":"ProjectNode","text":"Demo","image":"STDEXE","checked":true,"items":[)j"
        R"j({"tag":"FileTypeNode","text":"Forms","image":"Form","checked":true,"items":[)j"
        R"j({"tag":"SourceFileNode","text":"frmMain","image":"Form","checked":true,"items":[]},)j"
        R"j({"tag":"SourceFileNode","text":"frmMdi","image":"MDIForm","checked":true,"items":[]}]},)j"
        R"j({"tag":"FileTypeNode","text":"Modules","image":"Module","checked":true,"items":[)j"
        R"j({"tag":"SourceFileNode","text":"modA","image":"Module","checked":true,"items":[]}]},)j"
        R"j({"tag":"FileTypeNode","text":"Class Modules","image":"Class","checked":true,"items":[)j"
        R"j({"tag":"SourceFileNode","text":"clsB","image":"Class","checked":true,"items":[]}]}]}]})j");
}

TEST_F(DialogDumps, TheProgressIsDumpedAlsoBeforeThereIsOne) {
    const std::string none =
        R"j({"dump":"progress","caption":"","action":"","project":"","projectName":"","file":"",)j"
        R"j("fileName":"","projectBar":0,"fileBar":0,"complete":"","message":"","visible":false})j";
    EXPECT_EQ(modDialogDump::Dump(static_cast<const frmProgress*>(nullptr)), none);
    frmProgress form(m_screen);
    form.lblAction.Set("Reviewing source code...");
    form.lblProject.Set("Project: (1 of 2)");
    form.lblProjectData.Set("Demo (Demo.vbp)");
    form.lblSourceFile.Set("Source File: (3 of 4)");
    form.lblSourceFileData.Set("modA (modA.bas)");
    form.prgProject.Set(60);
    form.prgSourceFile.Set(20);
    form.lblComplete.Set("30% complete.");
    form.lblMessage.Set("M");
    form.Visible.Set(true);
    EXPECT_EQ(
        modDialogDump::Dump(&form),
        R"j({"dump":"progress","caption":"Review Progress","action":"Reviewing source code...",)j"
        R"j("project":"Project: (1 of 2)","projectName":"Demo (Demo.vbp)",)j"
        R"j("file":"Source File: (3 of 4)","fileName":"modA (modA.bas)","projectBar":60,)j"
        R"j("fileBar":20,"complete":"30% complete.","message":"M","visible":true})j");
}

/// With the results of the project reviewed.
class SummaryDump : public DialogDumps {
protected:
    void SetUp() override {
        ChooseEverything();
        m_criteria->SetToleranceCount(2, 0);
        frmProgress(m_screen).CommenceReview(m_criteria);
        ASSERT_TRUE(m_results.OpenReview(m_folder.Path("Demo\\Dorvik\\Demo_DORVIK.mdb")));
        m_form.Initialise(m_results, m_folder.Path("Demo\\Dorvik\\Demo_DORVIK.txt"), "");
        m_screen.Calls.clear();
    }
    bool IsRefused(const Words& words) {
        EXPECT_TRUE(modDialogDump::IsSummaryCommand(words)) << words[0];
        return modDialogDump::Apply(words, m_form).has_value();
    }

    ResultsDB m_results;
    frmReviewSummary m_form{m_screen};
};

TEST_F(SummaryDump, HasRowsWithColoursAndButtons) {
    EXPECT_FALSE(IsRefused({"7"}));
    EXPECT_EQ(
        modDialogDump::Dump(m_form),
        R"j({"dump":"summary","caption":"Demo - Review Summary","tab":7,"columns":[)j"
        R"j({"text":"Source File","align":"left","icon":""},)j"
        R"j({"text":"Verdict","align":"left","icon":""}],"rows":[)j"
        R"j({"key":"","icon":"Class","bold":false,"cells":[)j"
        R"j({"text":"clsB (clsB.cls)","colour":"","bold":false},)j"
        R"j({"text":"Pass","colour":"#008000","bold":false}]},)j"
        R"j({"key":"","icon":"STDEXE","bold":false,"cells":[)j"
        R"j({"text":"Demo (Demo.vbp)","colour":"","bold":false},)j"
        R"j({"text":"Pass","colour":"#008000","bold":false}]},)j"
        R"j({"key":"","icon":"Form","bold":false,"cells":[)j"
        R"j({"text":"frmMain (frmMain.frm)","colour":"","bold":false},)j"
        R"j({"text":"Pass","colour":"#008000","bold":false}]},)j"
        R"j({"key":"","icon":"MDIForm","bold":false,"cells":[)j"
        R"j({"text":"frmMdi (frmMdi.frm)","colour":"","bold":false},)j"
        R"j({"text":"Pass","colour":"#008000","bold":false}]},)j"
        R"j({"key":"","icon":"Module","bold":false,"cells":[)j"
        R"j({"text":"modA (modA.bas)","colour":"","bold":false},)j"
        R"j({"text":"Fail","colour":"#ff0000","bold":false}]},)j"
        R"j({"key":"","icon":"","bold":false,"cells":[)j"
        R"j({"text":"","colour":"","bold":false},{"text":"","colour":"","bold":false}]},)j"
        R"j({"key":"","icon":"","bold":true,"cells":[)j"
        R"j({"text":"Review Verdict","colour":"","bold":true},)j"
        R"j({"text":"Fail","colour":"#ff0000","bold":false}]}],)j"
        R"j("viewLog":true,"viewReport":false})j");
}

TEST_F(SummaryDump, ThePageOfTheComplexitiesHasTheFilesToo) {
    EXPECT_FALSE(IsRefused({"5"}));
    const rapidjson::Document dump = Parsed(modDialogDump::Dump(m_form));
    EXPECT_EQ(CompactText(dump["files"]["selected"]), R"j("~AllItems~")j");
    EXPECT_EQ(
        CompactText(dump["files"]["items"][0]),
        R"j({"key":"~AllItems~","tag":"","text":"(All Source Files)","image":"AllItems"})j");
    EXPECT_EQ(dump["files"]["items"].Size(), 3U) << "the two files with procedures";
    EXPECT_FALSE(IsRefused({"1"}));
    EXPECT_FALSE(Parsed(modDialogDump::Dump(m_form)).HasMember("files"));
}

TEST_F(SummaryDump, CommandsChangeThePage) {
    EXPECT_FALSE(IsRefused({"next"}));
    EXPECT_EQ(m_form.CurrentTab(), 2);
    EXPECT_FALSE(IsRefused({"5"}));
    EXPECT_FALSE(IsRefused({"double", "1"}));
    EXPECT_EQ(m_form.lvwReview.Columns()[0].Text, "Procedure");
    EXPECT_FALSE(IsRefused({"file", "~AllItems~"}));
    EXPECT_EQ(m_form.lvwReview.Columns()[0].Text, "Source File");
    EXPECT_FALSE(IsRefused({"column", "2"}));
    EXPECT_EQ(m_form.lvwReview.Columns()[1].SortIcon, "SortAscending");
    EXPECT_FALSE(IsRefused({"log"}));
    EXPECT_THAT(
        m_screen.Calls, ElementsAre("open " + m_folder.Path("Demo\\Dorvik\\Demo_DORVIK.txt")));
    EXPECT_FALSE(IsRefused({"close"}));
    EXPECT_TRUE(m_form.IsClosed());
}

TEST_F(SummaryDump, WhatThePageDoesNotHaveIsRefused) {
    EXPECT_TRUE(IsRefused({"0"}));
    EXPECT_TRUE(IsRefused({"8"}));
    EXPECT_TRUE(IsRefused({"column", "3"}));
    EXPECT_TRUE(IsRefused({"column", "0"}));
    EXPECT_TRUE(IsRefused({"double", "1000"}));
    EXPECT_TRUE(IsRefused({"file", "~AllItems~"})) << "the box is on another page";
    EXPECT_TRUE(IsRefused({"report"}));
    EXPECT_FALSE(IsRefused({"column", "1"}));
    EXPECT_FALSE(IsRefused({"5"}));
    EXPECT_TRUE(IsRefused({"file", "99"}));
}

}  // namespace
}  // namespace dorvik
