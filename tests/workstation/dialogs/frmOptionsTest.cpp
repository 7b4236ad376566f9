#include "workstation/dialogs/frmOptions.h"

#include "DialogsFixture.h"

#include <gmock/gmock.h>

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class OptionsForm : public test::DialogsFixture {
protected:
    static std::vector<std::string> TextsOf(const ComboBox& box) {
        std::vector<std::string> texts;
        for (const ComboItem& item : box.Items()) {
            texts.push_back(item.Text);
        }
        return texts;
    }
};

/// A check box and the setting that it shows.
struct CheckRow {
    const char* Name;
    Observable<bool> frmOptions::*Box;
    bool DVKWorkData::*Setting;
};

constexpr CheckRow kChecks[] = {
    {"chkShowWorkbench", &frmOptions::chkShowWorkbench, &DVKWorkData::AlwaysShowWorkbench},
    {"chkShowSummary", &frmOptions::chkShowSummary, &DVKWorkData::AlwaysShowSummary},
    {"chkResultsFolder", &frmOptions::chkResultsFolder, &DVKWorkData::UseProjectFolderResults},
    {"chkReportsFolder", &frmOptions::chkReportsFolder, &DVKWorkData::UseProjectFolderReports},
    {"chkSynchronise", &frmOptions::chkSynchronise, &DVKWorkData::AlwaysSynchroniseVL},
    {"optPMOrder", &frmOptions::optPMOrder, &DVKWorkData::RVFileSortAscending},
    {"chkPMZero", &frmOptions::chkPMZero, &DVKWorkData::RVFileShowZeroItems},
    {"optFMOrder", &frmOptions::optFMOrder, &DVKWorkData::RVProcSortAscending},
    {"chkFMZero", &frmOptions::chkFMZero, &DVKWorkData::RVProcShowZeroItems},
    {"chkClearLog", &frmOptions::chkClearLog, &DVKWorkData::ClearLog},
    {"chkBackground", &frmOptions::chkBackground, &DVKWorkData::BackgroundReview},
};

TEST_F(OptionsForm, EachCheckBoxShowsItsSettingAlone) {
    for (const CheckRow& row : kChecks) {
        for (const CheckRow& other : kChecks) {
            Settings().*other.Setting = other.Name == row.Name;
        }
        frmOptions form(m_screen);
        for (const CheckRow& other : kChecks) {
            EXPECT_EQ((form.*other.Box).Value(), other.Name == row.Name) << row.Name;
        }
    }
}

TEST_F(OptionsForm, EachCheckBoxGoesBackToItsSettingAlone) {
    for (const CheckRow& row : kChecks) {
        frmOptions form(m_screen);
        for (const CheckRow& other : kChecks) {
            (form.*other.Box).Set(other.Name == row.Name);
        }
        ASSERT_TRUE(form.Ok());
        for (const CheckRow& other : kChecks) {
            EXPECT_EQ(Settings().*other.Setting, other.Name == row.Name) << row.Name;
        }
    }
}

TEST_F(OptionsForm, NothingGoesBackWhenCancelled) {
    frmOptions form(m_screen);
    form.chkClearLog.Set(false);
    form.txtTickCount.Set("7");
    int closed = 0;
    const Subscription heard = form.Closed.Subscribe([&] { ++closed; });
    form.Cancel();
    EXPECT_TRUE(form.Cancelled());
    EXPECT_TRUE(form.IsClosed());
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(Settings().ClearLog);
    EXPECT_EQ(Settings().BackgroundTickCount, 100);
}

TEST_F(OptionsForm, OkIsNotCancelled) {
    frmOptions form(m_screen);
    EXPECT_TRUE(form.Cancelled());
    EXPECT_TRUE(form.Ok());
    EXPECT_FALSE(form.Cancelled());
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(OptionsForm, AFixedFolderIsShownAndWritten) {
    Settings().UseProjectFolderResults = false;
    Settings().UseProjectFolderReports = false;
    Settings().LastResultsPath = "\\results";
    Settings().LastReportsPath = "\\reports";
    frmOptions form(m_screen);
    EXPECT_EQ(form.txtResultsFolder.Value(), "\\results");
    EXPECT_EQ(form.txtReportsFolder.Value(), "\\reports");
    EXPECT_TRUE(form.ResultsFolderEnabled.Value());
    EXPECT_TRUE(form.ReportsFolderEnabled.Value());
    form.txtResultsFolder.Set("\\other");
    form.txtReportsFolder.Set("\\pages");
    form.Ok();
    EXPECT_EQ(Settings().LastResultsPath, "\\other");
    EXPECT_EQ(Settings().LastReportsPath, "\\pages");
}

TEST_F(OptionsForm, WithTheProjectsFolderThePathIsNeitherShownNorWritten) {
    Settings().LastResultsPath = "\\results";
    Settings().LastReportsPath = "\\reports";
    frmOptions form(m_screen);
    EXPECT_EQ(form.txtResultsFolder.Value(), "");
    EXPECT_EQ(form.txtReportsFolder.Value(), "");
    EXPECT_FALSE(form.ResultsFolderEnabled.Value());
    EXPECT_FALSE(form.ReportsFolderEnabled.Value());
    form.Ok();
    EXPECT_EQ(Settings().LastResultsPath, "\\results");
    EXPECT_EQ(Settings().LastReportsPath, "\\reports");
}

TEST_F(OptionsForm, TheFolderBoxesFollowTheirCheckBoxes) {
    frmOptions form(m_screen);
    form.chkResultsFolder.Set(false);
    EXPECT_TRUE(form.ResultsFolderEnabled.Value());
    EXPECT_FALSE(form.ReportsFolderEnabled.Value());
    form.chkReportsFolder.Set(false);
    EXPECT_TRUE(form.ReportsFolderEnabled.Value());
    form.chkResultsFolder.Set(true);
    EXPECT_FALSE(form.ResultsFolderEnabled.Value());
}

TEST_F(OptionsForm, BrowsingHasItsTitlesAndIsOnlyForEnabledBoxes) {
    frmOptions form(m_screen);
    m_screen.Chosen = "\\chosen";
    form.BrowseResultsFolder();
    form.BrowseReportsFolder();
    EXPECT_TRUE(m_screen.Calls.empty());
    form.chkResultsFolder.Set(false);
    form.chkReportsFolder.Set(false);
    form.BrowseResultsFolder();
    form.BrowseReportsFolder();
    EXPECT_THAT(
        m_screen.Calls,
        ElementsAre(
            "folder: Choose Fixed Results Folder at ", "folder: Choose Reports Folder at "));
    EXPECT_EQ(form.txtResultsFolder.Value(), "\\chosen");
    EXPECT_EQ(form.txtReportsFolder.Value(), "\\chosen");
    form.BrowseRulebaseDocument();
    EXPECT_EQ(m_screen.Requests.back().Title, "Select Rulebase Document");
    EXPECT_EQ(form.txtRBDoc.Value(), "\\chosen");
}

TEST_F(OptionsForm, ACancelledBrowseChangesNothing) {
    Settings().RBDocPath = "\\document";
    frmOptions form(m_screen);
    form.BrowseRulebaseDocument();
    EXPECT_EQ(form.txtRBDoc.Value(), "\\document");
}

TEST_F(OptionsForm, TheReportsBoxHasTheOptionAsItsIndex) {
    Settings().LastReportOption = 2;
    frmOptions form(m_screen);
    EXPECT_THAT(TextsOf(form.cboReports), ElementsAre("None", "Summary", "Detailed"));
    EXPECT_EQ(form.cboReports.SelectedIndex(), 2U);
    form.cboReports.Choose(0);
    form.Ok();
    EXPECT_EQ(Settings().LastReportOption, 0);
}

TEST_F(OptionsForm, CompletedItemsHaveTwoButtons) {
    for (const std::int32_t option : {1, 2}) {
        Settings().CompletedItemsOption = option;
        frmOptions form(m_screen);
        EXPECT_EQ(form.optCompleted.Value(), option);
        form.optCompleted.Set(3 - option);
        form.Ok();
        EXPECT_EQ(Settings().CompletedItemsOption, 3 - option);
    }
}

TEST_F(OptionsForm, AnyOtherCompletedItemsOptionSetsNoButtonAndIsKept) {
    Settings().CompletedItemsOption = 7;
    frmOptions form(m_screen);
    EXPECT_EQ(form.optCompleted.Value(), 0);
    form.Ok();
    EXPECT_EQ(Settings().CompletedItemsOption, 7);
}

TEST_F(OptionsForm, TheSortListsHaveTheSortKeys) {
    Settings().RVFileSortKey = 3;
    Settings().RVProcSortKey = 2;
    frmOptions form(m_screen);
    EXPECT_EQ(form.lstProjectMember.SelectedItem()->Key, "3");
    EXPECT_EQ(form.lstFileMember.SelectedItem()->Key, "2");
    EXPECT_EQ(form.lstFileMember.Count(), 4U);
    form.lstProjectMember.Choose(0);
    form.lstFileMember.Choose(3);
    form.Ok();
    EXPECT_EQ(Settings().RVFileSortKey, 1);
    EXPECT_EQ(Settings().RVProcSortKey, 4);
}

TEST_F(OptionsForm, ASortKeyOutsideTheListIsKept) {
    Settings().RVFileSortKey = 9;
    frmOptions form(m_screen);
    EXPECT_EQ(form.lstProjectMember.SelectedItem(), nullptr);
    form.Ok();
    EXPECT_EQ(Settings().RVFileSortKey, 9);
}

TEST_F(OptionsForm, TheTickCountTakesDigitsOnly) {
    Settings().BackgroundTickCount = 250;
    frmOptions form(m_screen);
    EXPECT_EQ(form.txtTickCount.Value(), "250");
    form.TypeTickCount("-1a2.5");
    EXPECT_EQ(form.txtTickCount.Value(), "125");
    form.Ok();
    EXPECT_EQ(Settings().BackgroundTickCount, 125);
}

TEST_F(OptionsForm, AnEmptyTickCountReadsAsZero) {
    frmOptions form(m_screen);
    form.TypeTickCount("");
    EXPECT_TRUE(form.Ok());
    EXPECT_EQ(Settings().BackgroundTickCount, 0);
}

TEST_F(OptionsForm, ATickCountBeyond16BitsIsLoggedAndKeepsTheFormOpen) {
    frmOptions form(m_screen);
    form.chkClearLog.Set(!Settings().ClearLog);
    const bool clearsLog = Settings().ClearLog;
    form.TypeTickCount("32768");
    EXPECT_FALSE(form.Ok());
    EXPECT_FALSE(form.IsClosed());
    EXPECT_EQ(Settings().ClearLog, clearsLog);
    EXPECT_EQ(Settings().BackgroundTickCount, 100);
    EXPECT_THAT(ErrorLog(), HasSubstr("frmOptions::Ok"));
    form.TypeTickCount("32767");
    EXPECT_TRUE(form.Ok());
    EXPECT_EQ(Settings().BackgroundTickCount, 32767);
}

TEST_F(OptionsForm, TheRulebaseDocumentGoesBothWays) {
    Settings().RBDocPath = "\\document.html";
    frmOptions form(m_screen);
    EXPECT_EQ(form.txtRBDoc.Value(), "\\document.html");
    form.txtRBDoc.Set("\\other.html");
    form.Ok();
    EXPECT_EQ(Settings().RBDocPath, "\\other.html");
}

TEST_F(OptionsForm, ATabShowsItsPageAndHidesTheOthers) {
    frmOptions form(m_screen);
    EXPECT_TRUE(form.PageIsShown(frmOptions::Page::General));
    EXPECT_FALSE(form.PageIsShown(frmOptions::Page::Review));
    form.NextTab();
    EXPECT_TRUE(form.PageIsShown(frmOptions::Page::Review));
    EXPECT_FALSE(form.PageIsShown(frmOptions::Page::General));
    form.NextTab();
    form.NextTab();
    form.NextTab();
    EXPECT_TRUE(form.PageIsShown(frmOptions::Page::General));
}

}  // namespace
}  // namespace dorvik
