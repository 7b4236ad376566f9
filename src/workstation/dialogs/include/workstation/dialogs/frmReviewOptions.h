#pragma once

#include "rulebase/model/CategoryList.h"
#include "rulebase/model/Rulebase.h"
#include "workstation/controls/CheckList.h"
#include "workstation/controls/CheckTree.h"
#include "workstation/controls/Event.h"
#include "workstation/controls/Observable.h"
#include "workstation/controls/TabStrip.h"
#include "workstation/dialogs/ProjectTree.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class IScreen;
class ReviewCriteria;
class RulebaseLoadCriteria;
struct ToleranceSettings;

/// Sets up a review or, reduced to conventions, categories and severities, the filter of results. Either `ReviewOptions`
/// or `FilterOptions` is called first; the fields then show what they were given, and `Ok` moves them back. Needs the
/// objects of `modGlobal`.
class frmReviewOptions {
public:
    enum class Mode : std::int32_t { Review, Filter };
    /// The pages of `tbsOptions`. The filter has `Conventions`, `Categories` and `Severities` only.
    enum class Page : std::int16_t {
        Projects = 1,  // title, rulebase and project tree
        Results = 2,   // log, folders and reports
        Conventions = 3,
        Categories = 4,
        Severities = 5,
        Tolerances = 6
    };

    /// The category of the rules without one.
    static constexpr std::int32_t kUnallocatedCategoryID = -1;
    /// Its key in the list of categories.
    static constexpr std::string_view kUnallocatedCategory = "-1K";

    /// REQUIRES: `screen` outlives this.
    explicit frmReviewOptions(IScreen& screen);
    ~frmReviewOptions();
    frmReviewOptions(const frmReviewOptions&) = delete;
    frmReviewOptions& operator=(const frmReviewOptions&) = delete;

    /// For the filter, before `FilterOptions`. A review has those of the chosen rulebase.
    void SetCategoryList(const CategoryList& categories);
    void SetSeverityList(const SeverityTable& severities);

    void ReviewOptions(std::shared_ptr<ReviewCriteria> criteria);
    /// REQUIRES: `filter` outlives this.
    void FilterOptions(RulebaseLoadCriteria& filter);
    Mode CurrentMode() const { return m_mode; }

    /// True until the form is left with OK.
    bool Cancelled() const { return m_cancelled; }
    /// `ScreenIsValid` and `DataFromScreen`. True where the form was closed.
    bool Ok();
    /// Also what closing the window is.
    void Cancel();
    bool IsClosed() const { return m_isClosed; }
    Event<> Closed;

    /// Checks every item of the three lists.
    void Reset();
    /// On the tree or list of the page in front.
    void SelectAllOrNone(bool select);
    bool PageIsOffered(Page page) const;
    /// Ctrl+Tab: the next page that is offered.
    void NextTab();

    void BrowseRulebase();
    void BrowseResultsFolder();
    void BrowseReportsFolder();

    TabStrip tbsOptions;
    /// Name of the control that has the input, set where `Ok` finds a fault.
    Observable<std::string> Focus;
    Observable<std::string> Caption;

    Observable<bool> TitleIsOffered;  // a batch has a title
    Observable<std::string> txtTitle;
    /// The text of the box. Another rulebase gives other categories and severities and, where the criteria have been
    /// through no dialog yet, other tolerances.
    Observable<std::string> cboRulebase;
    /// The files that the box offers.
    const std::vector<std::string>& RulebaseFiles() const { return m_rulebaseFiles; }
    CheckTree tvwProjects;

    Observable<bool> chkBackground;
    Observable<bool> BackgroundEnabled;
    Observable<bool> chkClearLog;
    Observable<bool> chkResultsFolder;  // in the project's folder
    Observable<std::string> txtResultsFolder;
    Observable<bool> ResultsFolderEnabled;  // the box and its browse button
    Observable<bool> chkReportsFolder;
    Observable<std::string> txtReportsFolder;
    Observable<bool> ReportsFolderEnabled;  // the same; not without reports
    /// 0 "None", 1 "Summary", 2 "Detailed".
    Observable<std::int32_t> optReports;

    Observable<std::string> lblConventions;
    Observable<std::string> lblCategories;
    Observable<std::string> lblSeverities;
    CheckList lvwConventions;  // by "AC", "AR", "CC", "NC", "UK"
    CheckList lvwCategories;   // by the key of the category, "7K"
    CheckList lvwSeverities;   // by the key of the severity, "1Key"

    /// For severity 1 to 5 and, last, the total. Empty for no tolerance.
    std::array<Observable<std::string>, 6> txtCount;
    std::array<Observable<std::string>, 6> txtImpact;
    Observable<std::string> txtComments;
    Observable<std::string> txtComplexity;

    /// The nodes of `tvwProjects` by name.
    const ProjectTree& Projects() const { return m_projectTree; }

private:
    void Form_Load();
    void DataToScreen();
    void FillLists();
    void ShowTolerances(const ToleranceSettings& tolerances);
    void cboRulebase_Change();
    void LoadRulebaseLists();
    void EnableFolders();

    bool ScreenIsValid();
    bool ReviewIsValid();
    bool RulebaseIsValid();
    bool FoldersAreValid();
    bool Refuse(Page page, std::string_view control, std::string_view text);
    bool MoveTo(Page page, std::string_view control);

    bool DataFromScreen();
    void ReviewFromScreen();
    ToleranceSettings TolerancesOnScreen() const;

    RulebaseLoadCriteria& LoadCriteria() const;
    void Close();

    IScreen& m_screen;
    Mode m_mode = Mode::Review;
    std::shared_ptr<ReviewCriteria> m_criteria;  // null in filter mode
    RulebaseLoadCriteria* m_filter = nullptr;    // null in review mode
    bool m_isFirstOpening = false;               // the criteria have been through no dialog yet
    std::vector<std::string> m_rulebaseFiles;
    CategoryList m_categories;
    SeverityTable m_severities;
    bool m_cancelled = true;
    bool m_isClosed = false;
    ProjectTree m_projectTree;
    Subscription m_onRulebase;
    Subscription m_onResultsFolder;
    Subscription m_onReportsFolder;
    Subscription m_onReports;
};

}  // namespace dorvik
