#pragma once

#include "workstation/controls/ComboBox.h"
#include "workstation/controls/Event.h"
#include "workstation/controls/Observable.h"
#include "workstation/controls/TabStrip.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

class IScreen;
struct DVKWorkData;

/// Edits the user's settings: a new form shows them, `Ok` moves what it shows back into them. Storing them is left to the
/// code that showed the form. Needs the objects of `modGlobal`.
class frmOptions {
public:
    /// The pages of `tbsOptions`.
    enum class Page : std::int16_t { General = 1, Review = 2, ResultsView = 3, Folders = 4 };

    /// REQUIRES: `screen` outlives this.
    explicit frmOptions(IScreen& screen);
    frmOptions(const frmOptions&) = delete;
    frmOptions& operator=(const frmOptions&) = delete;

    const std::string& Caption() const { return m_caption; }
    /// True until the form is left with OK.
    bool Cancelled() const { return m_cancelled; }

    /// Moves the fields to the settings and closes the form. False where that fails, which is logged.
    bool Ok();
    void Cancel();
    bool IsClosed() const { return m_isClosed; }
    Event<> Closed;

    /// The control box of a page is shown while its tab is in front.
    bool PageIsShown(Page page) const;
    /// Ctrl+Tab.
    void NextTab();

    void BrowseResultsFolder();
    void BrowseReportsFolder();
    void BrowseRulebaseDocument();

    /// What the user types into the box: digits are taken, all other keys are dropped.
    void TypeTickCount(std::string_view text);

    TabStrip tbsOptions;

    Observable<bool> chkShowWorkbench;
    Observable<bool> chkShowSummary;
    Observable<bool> chkResultsFolder;
    Observable<std::string> txtResultsFolder;
    Observable<bool> ResultsFolderEnabled;  // the box and its browse button
    Observable<bool> chkReportsFolder;
    Observable<std::string> txtReportsFolder;
    Observable<bool> ReportsFolderEnabled;  // the same
    ComboBox cboReports;
    /// The button that is set; 0 where neither of 1 and 2 is.
    Observable<std::int32_t> optCompleted;
    Observable<bool> chkSynchronise;
    ComboBox lstProjectMember;    // items by sort key
    Observable<bool> optPMOrder;  // ascending
    Observable<bool> chkPMZero;
    ComboBox lstFileMember;
    Observable<bool> optFMOrder;
    Observable<bool> chkFMZero;
    Observable<bool> chkClearLog;
    Observable<bool> chkBackground;
    Observable<std::string> txtTickCount;
    Observable<std::string> txtRBDoc;

private:
    void DataToScreen(const DVKWorkData& settings);
    void DataFromScreen(DVKWorkData& settings) const;
    void EnableFolders();
    void Close();

    IScreen& m_screen;
    std::string m_caption;
    bool m_cancelled = true;
    bool m_isClosed = false;
    Subscription m_onResultsFolder;
    Subscription m_onReportsFolder;
};

}  // namespace dorvik
