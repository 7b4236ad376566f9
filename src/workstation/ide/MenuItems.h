#pragma once

#include "settings/DVKWorkData.h"
#include "workstation/ide/IDEMenuEvents.h"

#include <cstdint>
#include <span>
#include <string_view>

// What the menu, the toolbar and the popup of the violation list hold, in the order in which it is shown.
namespace dorvik::menuitems {

inline constexpr std::string_view kMenuCaption = "D&orvik";
inline constexpr std::string_view kMenuTag = "DORVIK";
inline constexpr std::string_view kToolbarName = "Dorvik Tools";
inline constexpr std::string_view kListPopupName = "DorvikListPopup";

inline constexpr std::string_view kCheckedFace = "Checked";
inline constexpr std::string_view kBlankFace = "Blank";

/// When an item is enabled while no review runs.
enum class Idle : std::int32_t {
    Kept,              // as it is: of use at any time, or a part of a submenu
    ProjectsOpen,      // is about the open projects
    Results,           // is about what is shown
    ResultsInList,     // is about the violation list
    RulebaseDocument,  // the file exists
};

/// Whether an item is enabled while a review runs in the background.
enum class Running : std::int32_t {
    Kept,
    Off,  // is about results, which the review is about to replace
    On,   // cancels the review, or is of use at any time
};

struct Row {
    std::string_view Parent;  // tag of the submenu that it is in, empty for none
    std::string_view Caption;
    std::string_view Tag;
    std::string_view Face;  // empty where `Setting` decides
    Event<> IDEMenuEvents::*
        Raised;  // null for a submenu, and for what raises `ExpandCollapseGroups`
    menuitems::Idle Idle = Idle::Kept;
    menuitems::Running Running = Running::Kept;
    bool DVKWorkData::*Setting = nullptr;  // flipped by the click and shown as a check mark
    bool IsSubmenu = false;
};

using Data = DVKWorkData;
using On = IDEMenuEvents;

inline constexpr std::string_view kGroupBy = "DORVIK.GROUPBY";
inline constexpr std::string_view kHelp = "DORVIK.HELP";
inline constexpr std::string_view kHelpOnWeb = "DORVIK.HELPONWEB";
inline constexpr std::string_view kGroupBySourceFile = "DORVIK.GROUPBYSOURCEFILE";

// clang-format off
inline constexpr Row kMenu[] = {
    {"", "Open &Results...", "DORVIK.OPEN", "Open", &On::OpenClick, Idle::ProjectsOpen, Running::Off},
    {"", "&Go To Source", "DORVIK.GOTO", "GotoSource", &On::GotoSourceClick, Idle::Results, Running::Off},
    {"", "Review &Project(s)...", "DORVIK.REVIEW", "StartReview", &On::ReviewClick, Idle::ProjectsOpen, Running::On},
    {"", "Show Dorvik &Work Bench", "DORVIK.SHOW", "ShowWindow", &On::ShowDorvikWindowClick, Idle::Kept, Running::On},
    {"", "Review &Summary...", "DORVIK.REVIEW.SUMMARY", "ReviewSummary", &On::ReviewSummary, Idle::Results, Running::Off},
    {"", "F&ilter...", "DORVIK.FILTER", "Filter", &On::FilterClick, Idle::ResultsInList, Running::Off},
    {"", "Group &By", kGroupBy, "", nullptr, Idle::ResultsInList, Running::Off, nullptr, true},
    {kGroupBy, "&Category", "DORVIK.GROUPBYCATEGORY", "", &On::GroupByCategoryClick, Idle::Kept, Running::Kept, &Data::GroupByCategory},
    {kGroupBy, "&Rule", "DORVIK.GROUPBYRULE", "", &On::GroupByRuleClick, Idle::Kept, Running::Kept, &Data::GroupByRule},
    {kGroupBy, "&Severity", "DORVIK.GROUPBYSEVERITY", "", &On::GroupBySeverityClick, Idle::Kept, Running::Kept, &Data::GroupBySeverity},
    {kGroupBy, "Source &File", kGroupBySourceFile, "", &On::GroupBySourceFileClick, Idle::Kept, Running::Kept, &Data::GroupBySourceFile},
    {kGroupBy, "&None", "DORVIK.GROUPBYNONE", "", &On::GroupByNoneClick},
    {"", "Rulebase &Document", "DORVIK.RBDOC", "", &On::LaunchRulebaseDocument, Idle::RulebaseDocument, Running::Off},
    {"", "&Options...", "DORVIK.OPTIONS", "", &On::OptionsClick, Idle::Kept, Running::On},
    {"", "&Help", kHelp, "", nullptr, Idle::Kept, Running::On, nullptr, true},
    {kHelp, "&Contents...", "DORVIK.HELPCONTENTS", "HelpContents", &On::HelpContents},
    {kHelp, "&Search...", "DORVIK.HELPSEARCH", "HelpSearch", &On::HelpSearch},
    {kHelp, "Lumbrook On The &Web", kHelpOnWeb, "", nullptr, Idle::Kept, Running::Kept, nullptr, true},
    {kHelpOnWeb, "&Home Page...", "DORVIK.HELPHOMEPAGE", "", &On::GotoHomePage},
    {kHelpOnWeb, "&Technical Support...", "DORVIK.HELPTECHSUPPORT", "HelpTechSupport", &On::GotoTechSupportPage},
    {kHelp, "&About Dorvik Workstation...", "DORVIK.HELPABOUT", "", &On::AboutClick},
};

inline constexpr Row kToolbar[] = {
    {"", "Go To Source", "DORVIK.GOTO.BUTTON", "GotoSource", &On::GotoSourceClick, Idle::Results, Running::Off},
    {"", "Review Project(s)", "DORVIK.REVIEW.BUTTON", "StartReview", &On::ReviewClick, Idle::ProjectsOpen, Running::Kept},
    {"", "Show Dorvik Work Bench", "DORVIK.SHOW.BUTTON", "ShowWindow", &On::ShowDorvikWindowClick},
    {"", "Review Summary", "DORVIK.REVIEW.SUMMARY.BUTTON", "ReviewSummary", &On::ReviewSummary, Idle::Results, Running::Off},
    {"", "Filter Violations", "DORVIK.FILTER.BUTTON", "Filter", &On::FilterClick, Idle::ResultsInList, Running::Off},
};

inline constexpr std::string_view kListGroupBy = "DORVIK.LPGROUPBY";
inline constexpr std::string_view kListGroupBySourceFile = "DORVIK.LPGROUPBYSOURCEFILE";
inline constexpr std::string_view kExpandAll = "DORVIK.LPEXPANDALLGROUPS";
inline constexpr std::string_view kCollapseAll = "DORVIK.LPCOLLAPSEALLGROUPS";

inline constexpr Row kListPopup[] = {
    {"", "&Go To Source", "DORVIK.LPGOTO", "GotoSource", &On::GotoSourceClick, Idle::Results, Running::Off},
    {"", "&Review Project(s)...", "DORVIK.LPREVIEW", "StartReview", &On::ReviewClick, Idle::ProjectsOpen, Running::Kept},
    {"", "&Filter...", "DORVIK.TPFILTER", "Filter", &On::FilterClick, Idle::ResultsInList, Running::Off},
    {"", "&Show Group By Box", "DORVIK.LPSHOWGROUPBY", "", &On::ShowGroupByClick, Idle::ResultsInList, Running::Off, &Data::ShowGroupByBox},
    {"", "Group &By", kListGroupBy, "", nullptr, Idle::ResultsInList, Running::Off, nullptr, true},
    {kListGroupBy, "&Category", "DORVIK.LPGROUPBYCATEGORY", "", &On::GroupByCategoryClick, Idle::Kept, Running::Kept, &Data::GroupByCategory},
    {kListGroupBy, "&Rule", "DORVIK.LPGROUPBYRULE", "", &On::GroupByRuleClick, Idle::Kept, Running::Kept, &Data::GroupByRule},
    {kListGroupBy, "&Severity", "DORVIK.LPGROUPBYSEVERITY", "", &On::GroupBySeverityClick, Idle::Kept, Running::Kept, &Data::GroupBySeverity},
    {kListGroupBy, "Source &File", kListGroupBySourceFile, "", &On::GroupBySourceFileClick, Idle::Kept, Running::Kept, &Data::GroupBySourceFile},
    {kListGroupBy, "&None", "DORVIK.LPGROUPBYNONE", "", &On::GroupByNoneClick},
    {"", "&Expand All Groups", kExpandAll, "ExpandAll", nullptr, Idle::ResultsInList, Running::Off},
    {"", "&Collapse All Groups", kCollapseAll, "CollapseAll", nullptr, Idle::ResultsInList, Running::Off},
};
// clang-format on

inline constexpr std::span<const Row> kBars[] = {kMenu, kToolbar, kListPopup};

/// The commands that start a review, and what they look like while one runs in the background.
struct ReviewRow {
    std::string_view Tag;
    std::string_view Caption;
    std::string_view CancelCaption;
};

// Required: after a review the captions are without the "&" that they began with.
inline constexpr ReviewRow kReviewItems[] = {
    {"DORVIK.REVIEW", "Review Project(s)...", "Cancel Review"},
    {"DORVIK.REVIEW.BUTTON", "Review Project(s)", "Cancel Background Review"},
    {"DORVIK.LPREVIEW", "Review Project(s)...", "Cancel Review"},
};
inline constexpr std::string_view kReviewFace = "StartReview";
inline constexpr std::string_view kCancelFace = "CancelReview";

}  // namespace dorvik::menuitems
