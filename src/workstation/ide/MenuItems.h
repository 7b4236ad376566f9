#pragma once

#include "settings/DVKWorkData.h"
#include "workstation/ide/IDEMenuEvents.h"

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

struct Row {
    std::string_view Parent;  // tag of the submenu that it is in, empty for none
    std::string_view Caption;
    std::string_view Tag;
    std::string_view Face;  // empty where `Setting` decides
    Event<> IDEMenuEvents::*
        Raised;  // null for a submenu, and for what raises `ExpandCollapseGroups`
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
    {"", "Open &Results...", "DORVIK.OPEN", "Open", &On::OpenClick},
    {"", "&Go To Source", "DORVIK.GOTO", "GotoSource", &On::GotoSourceClick},
    {"", "Review &Project(s)...", "DORVIK.REVIEW", "StartReview", &On::ReviewClick},
    {"", "Show Dorvik &Work Bench", "DORVIK.SHOW", "ShowWindow", &On::ShowDorvikWindowClick},
    {"", "Review &Summary...", "DORVIK.REVIEW.SUMMARY", "ReviewSummary", &On::ReviewSummary},
    {"", "F&ilter...", "DORVIK.FILTER", "Filter", &On::FilterClick},
    {"", "Group &By", kGroupBy, "", nullptr, nullptr, true},
    {kGroupBy, "&Category", "DORVIK.GROUPBYCATEGORY", "", &On::GroupByCategoryClick, &Data::GroupByCategory},
    {kGroupBy, "&Rule", "DORVIK.GROUPBYRULE", "", &On::GroupByRuleClick, &Data::GroupByRule},
    {kGroupBy, "&Severity", "DORVIK.GROUPBYSEVERITY", "", &On::GroupBySeverityClick, &Data::GroupBySeverity},
    {kGroupBy, "Source &File", kGroupBySourceFile, "", &On::GroupBySourceFileClick, &Data::GroupBySourceFile},
    {kGroupBy, "&None", "DORVIK.GROUPBYNONE", "", &On::GroupByNoneClick},
    {"", "Rulebase &Document", "DORVIK.RBDOC", "", &On::LaunchRulebaseDocument},
    {"", "&Options...", "DORVIK.OPTIONS", "", &On::OptionsClick},
    {"", "&Help", kHelp, "", nullptr, nullptr, true},
    {kHelp, "&Contents...", "DORVIK.HELPCONTENTS", "HelpContents", &On::HelpContents},
    {kHelp, "&Search...", "DORVIK.HELPSEARCH", "HelpSearch", &On::HelpSearch},
    {kHelp, "Lumbrook On The &Web", kHelpOnWeb, "", nullptr, nullptr, true},
    {kHelpOnWeb, "&Home Page...", "DORVIK.HELPHOMEPAGE", "", &On::GotoHomePage},
    {kHelpOnWeb, "&Technical Support...", "DORVIK.HELPTECHSUPPORT", "HelpTechSupport", &On::GotoTechSupportPage},
    {kHelp, "&About Dorvik Workstation...", "DORVIK.HELPABOUT", "", &On::AboutClick},
};

inline constexpr Row kToolbar[] = {
    {"", "Go To Source", "DORVIK.GOTO.BUTTON", "GotoSource", &On::GotoSourceClick},
    {"", "Review Project(s)", "DORVIK.REVIEW.BUTTON", "StartReview", &On::ReviewClick},
    {"", "Show Dorvik Work Bench", "DORVIK.SHOW.BUTTON", "ShowWindow", &On::ShowDorvikWindowClick},
    {"", "Review Summary", "DORVIK.REVIEW.SUMMARY.BUTTON", "ReviewSummary", &On::ReviewSummary},
    {"", "Filter Violations", "DORVIK.FILTER.BUTTON", "Filter", &On::FilterClick},
};

inline constexpr std::string_view kListGroupBy = "DORVIK.LPGROUPBY";
inline constexpr std::string_view kListGroupBySourceFile = "DORVIK.LPGROUPBYSOURCEFILE";
inline constexpr std::string_view kExpandAll = "DORVIK.LPEXPANDALLGROUPS";
inline constexpr std::string_view kCollapseAll = "DORVIK.LPCOLLAPSEALLGROUPS";

inline constexpr Row kListPopup[] = {
    {"", "&Go To Source", "DORVIK.LPGOTO", "GotoSource", &On::GotoSourceClick},
    {"", "&Review Project(s)...", "DORVIK.LPREVIEW", "StartReview", &On::ReviewClick},
    {"", "&Filter...", "DORVIK.TPFILTER", "Filter", &On::FilterClick},
    {"", "&Show Group By Box", "DORVIK.LPSHOWGROUPBY", "", &On::ShowGroupByClick, &Data::ShowGroupByBox},
    {"", "Group &By", kListGroupBy, "", nullptr, nullptr, true},
    {kListGroupBy, "&Category", "DORVIK.LPGROUPBYCATEGORY", "", &On::GroupByCategoryClick, &Data::GroupByCategory},
    {kListGroupBy, "&Rule", "DORVIK.LPGROUPBYRULE", "", &On::GroupByRuleClick, &Data::GroupByRule},
    {kListGroupBy, "&Severity", "DORVIK.LPGROUPBYSEVERITY", "", &On::GroupBySeverityClick, &Data::GroupBySeverity},
    {kListGroupBy, "Source &File", kListGroupBySourceFile, "", &On::GroupBySourceFileClick, &Data::GroupBySourceFile},
    {kListGroupBy, "&None", "DORVIK.LPGROUPBYNONE", "", &On::GroupByNoneClick},
    {"", "&Expand All Groups", kExpandAll, "ExpandAll", nullptr},
    {"", "&Collapse All Groups", kCollapseAll, "CollapseAll", nullptr},
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
