#include "workstation/ide/IDEMenus.h"

#include "IDEFixture.h"

#include <gmock/gmock.h>

namespace dorvik::test {
namespace {

using testing::ElementsAre;

class IDEMenusTest : public IDEFixture {
protected:
    void Start() { m_ide.Initialise(m_host, m_screen); }
    IDEMenus& Menus() { return *m_ide.DorvikMenus(); }
    CommandControl& Of(std::string_view tag) {
        for (CommandControl* const bar :
             {Menus().DorvikMenu(), Menus().Toolbar(), Menus().ListPopupMenu()}) {
            if (CommandControl* const found = bar->FindTag(tag)) {
                return *found;
            }
        }
        throw std::runtime_error("no item " + std::string(tag));
    }
    /// The items of a bar, those of submenus after theirs and indented: "tag|caption|face".
    static std::vector<std::string>
    Items(const CommandControl& bar, const std::string& indent = {}) {
        std::vector<std::string> lines;
        for (const auto& item : bar.Items()) {
            const CommandLook& look = item->Look();
            lines.push_back(indent + look.Tag + "|" + look.Caption + "|" + look.Face);
            const std::vector<std::string> below = Items(*item, indent + "  ");
            lines.insert(lines.end(), below.begin(), below.end());
        }
        return lines;
    }
    /// The enabled positions of menu, toolbar and popup.
    std::string Enabled() {
        std::string text;
        for (const CommandControl* const bar :
             {Menus().DorvikMenu(), Menus().Toolbar(), Menus().ListPopupMenu()}) {
            for (const auto& item : bar->Items()) {
                text += item->Look().Enabled ? '+' : '-';
            }
            text += ' ';
        }
        text.pop_back();
        return text;
    }
};

TEST_F(IDEMenusTest, TheMenuHasItsItemsInOrder) {
    Start();
    EXPECT_EQ(Menus().DorvikMenu()->Look().Caption, "D&orvik");
    EXPECT_EQ(Menus().DorvikMenu()->Look().Tag, "DORVIK");
    EXPECT_THAT(
        Items(*Menus().DorvikMenu()),
        ElementsAre(
            "DORVIK.OPEN|Open &Results...|Open",
            "DORVIK.GOTO|&Go To Source|GotoSource",
            "DORVIK.REVIEW|Review &Project(s)...|StartReview",
            "DORVIK.SHOW|Show Dorvik &Work Bench|ShowWindow",
            "DORVIK.REVIEW.SUMMARY|Review &Summary...|ReviewSummary",
            "DORVIK.FILTER|F&ilter...|Filter",
            "DORVIK.GROUPBY|Group &By|",
            "  DORVIK.GROUPBYCATEGORY|&Category|Blank",
            "  DORVIK.GROUPBYRULE|&Rule|Blank",
            "  DORVIK.GROUPBYSEVERITY|&Severity|Blank",
            "  DORVIK.GROUPBYSOURCEFILE|Source &File|Blank",
            "  DORVIK.GROUPBYNONE|&None|",
            "DORVIK.RBDOC|Rulebase &Document|",
            "DORVIK.OPTIONS|&Options...|",
            "DORVIK.HELP|&Help|",
            "  DORVIK.HELPCONTENTS|&Contents...|HelpContents",
            "  DORVIK.HELPSEARCH|&Search...|HelpSearch",
            "  DORVIK.HELPONWEB|Lumbrook On The &Web|",
            "    DORVIK.HELPHOMEPAGE|&Home Page...|",
            "    DORVIK.HELPTECHSUPPORT|&Technical Support...|HelpTechSupport",
            "  DORVIK.HELPABOUT|&About Dorvik Workstation...|"));
}

TEST_F(IDEMenusTest, TheToolbarHasItsButtonsAndThePlaceOfTheSettings) {
    modGlobal::WorkData().ToolbarLeft = 77;
    modGlobal::WorkData().ToolbarVisible = false;
    Start();
    EXPECT_THAT(
        Items(*Menus().Toolbar()),
        ElementsAre(
            "DORVIK.GOTO.BUTTON|Go To Source|GotoSource",
            "DORVIK.REVIEW.BUTTON|Review Project(s)|StartReview",
            "DORVIK.SHOW.BUTTON|Show Dorvik Work Bench|ShowWindow",
            "DORVIK.REVIEW.SUMMARY.BUTTON|Review Summary|ReviewSummary",
            "DORVIK.FILTER.BUTTON|Filter Violations|Filter"));
    EXPECT_EQ(Menus().Toolbar()->Place(), (BarPlace{1, 6, 50, 77, false}));
    EXPECT_THAT(m_host.Calls, testing::Contains("bar Dorvik Tools added"));
    EXPECT_THAT(m_host.Calls, testing::Contains("bar DorvikListPopup added"));
}

TEST_F(IDEMenusTest, ThePopupOfTheListHasItsItemsInOrder) {
    Start();
    EXPECT_THAT(
        Items(*Menus().ListPopupMenu()),
        ElementsAre(
            "DORVIK.LPGOTO|&Go To Source|GotoSource",
            "DORVIK.LPREVIEW|&Review Project(s)...|StartReview",
            "DORVIK.TPFILTER|&Filter...|Filter",
            "DORVIK.LPSHOWGROUPBY|&Show Group By Box|Blank",
            "DORVIK.LPGROUPBY|Group &By|",
            "  DORVIK.LPGROUPBYCATEGORY|&Category|Blank",
            "  DORVIK.LPGROUPBYRULE|&Rule|Blank",
            "  DORVIK.LPGROUPBYSEVERITY|&Severity|Blank",
            "  DORVIK.LPGROUPBYSOURCEFILE|Source &File|Blank",
            "  DORVIK.LPGROUPBYNONE|&None|",
            "DORVIK.LPEXPANDALLGROUPS|&Expand All Groups|ExpandAll",
            "DORVIK.LPCOLLAPSEALLGROUPS|&Collapse All Groups|CollapseAll"));
}

TEST_F(IDEMenusTest, TheMenuStandsInFrontOfTheMenuOfTools) {
    m_host.MenuBar().Add(CommandKind::Popup, {.Caption = "&File"}, 0, 30002);
    m_host.MenuBar().Add(CommandKind::Popup, {.Caption = "&Tools"}, 0, 30007);
    m_host.MenuBar().Add(CommandKind::Popup, {.Caption = "&Help"}, 0, 30010);
    const std::int32_t tools = m_host.MenuBar().IndexOf(*m_host.MenuBar().FindId(30007));
    Start();
    EXPECT_EQ(m_host.MenuBar().IndexOf(*Menus().DorvikMenu()), tools);
    EXPECT_FALSE(Menus().DorvikMenu()->Look().BeginGroup);
}

TEST_F(IDEMenusTest, TheSettingPutsTheMenuInsideTheMenuOfTools) {
    modGlobal::WorkData().PlaceMenuOnToolsMenu = true;
    CommandControl& tools =
        m_host.MenuBar().FindId(30007) != nullptr
            ? *m_host.MenuBar().FindId(30007)
            : m_host.MenuBar().Add(CommandKind::Popup, {.Caption = "&Tools"}, 0, 30007);
    Start();
    EXPECT_GT(tools.IndexOf(*Menus().DorvikMenu()), 0);
    EXPECT_TRUE(Menus().DorvikMenu()->Look().BeginGroup);
    m_ide.TerminateDorvik();
    EXPECT_EQ(tools.FindTag("DORVIK"), nullptr);
}

TEST_F(IDEMenusTest, WithoutThoseMenusTheMenuIsTheLast) {
    while (m_host.MenuBar().Count() > 0) {
        m_host.MenuBar().Remove(m_host.MenuBar().Item(1));
    }
    m_host.MenuBar().Add(CommandKind::Popup, {.Caption = "&File"}, 0, 30002);
    Start();
    EXPECT_EQ(m_host.MenuBar().IndexOf(*Menus().DorvikMenu()), 2);
}

TEST_F(IDEMenusTest, WithoutTheMenuOfToolsTheMenuFollowsTheOneBefore) {
    while (m_host.MenuBar().Count() > 0) {
        m_host.MenuBar().Remove(m_host.MenuBar().Item(1));
    }
    m_host.MenuBar().Add(CommandKind::Popup, {.Caption = "&Run"}, 0, 30005);
    m_host.MenuBar().Add(CommandKind::Popup, {.Caption = "&Help"}, 0, 30010);
    Start();
    EXPECT_EQ(m_host.MenuBar().IndexOf(*Menus().DorvikMenu()), 2);
}

TEST_F(IDEMenusTest, WithResultsInTheListAllIsEnabled) {
    Start();
    m_host.AddProject("App", "C:\\App.vbp");
    Menus().EnableDisable(true, 1, true, false);
    EXPECT_EQ(Enabled(), "++++++++++ +++++ +++++++");
}

TEST_F(IDEMenusTest, InTheHotspotViewFilterAndGroupsAreDisabled) {
    Start();
    m_host.AddProject("App", "C:\\App.vbp");
    Menus().EnableDisable(true, 2, true, false);
    EXPECT_EQ(Enabled(), "+++++--+++ ++++- ++-----");
}

TEST_F(IDEMenusTest, WithoutResultsAReviewCanBeStarted) {
    Start();
    m_host.AddProject("App", "C:\\App.vbp");
    Menus().EnableDisable(false, 1, false, false);
    EXPECT_EQ(Enabled(), "+-++----++ -++-- -+-----");
}

TEST_F(IDEMenusTest, WithoutProjectsWhatIsAlwaysOfUseStays) {
    Start();
    Menus().EnableDisable(false, 1, true, false);
    EXPECT_EQ(Enabled(), "---+---+++ --+-- -------");
}

TEST_F(IDEMenusTest, WhileAReviewRunsItCanBeCancelledAndTheBenchShown) {
    Start();
    m_host.AddProject("App", "C:\\App.vbp");
    Menus().EnableDisable(true, 1, true, true);
    EXPECT_EQ(Enabled(), "--++----++ -++-- -+-----");
}

TEST_F(IDEMenusTest, WhileAReviewRunsTheReviewButtonsStayAsTheyWere) {
    Start();
    Menus().EnableDisable(false, 1, true, false);
    Menus().EnableDisable(false, 1, true, true);
    EXPECT_EQ(Enabled(), "--++----++ --+-- -------");
}

TEST_F(IDEMenusTest, ItemsOfSubmenusKeepTheirState) {
    Start();
    Menus().EnableDisable(false, 2, false, false);
    EXPECT_TRUE(Of("DORVIK.GROUPBYRULE").Look().Enabled);
    EXPECT_TRUE(Of("DORVIK.HELPABOUT").Look().Enabled);
}

TEST_F(IDEMenusTest, GroupingBySourceFileDependsOnWhetherAllFilesAreShown) {
    Start();
    Menus().EnableDisableGroupBySrcFiles(false);
    EXPECT_FALSE(Of("DORVIK.GROUPBYSOURCEFILE").Look().Enabled);
    EXPECT_FALSE(Of("DORVIK.LPGROUPBYSOURCEFILE").Look().Enabled);
    EXPECT_TRUE(Of("DORVIK.LPGROUPBYRULE").Look().Enabled);
    Menus().EnableDisableGroupBySrcFiles(true);
    EXPECT_TRUE(Of("DORVIK.GROUPBYSOURCEFILE").Look().Enabled);
    EXPECT_TRUE(Of("DORVIK.LPGROUPBYSOURCEFILE").Look().Enabled);
}

TEST_F(IDEMenusTest, WhileAReviewRunsTheReviewCommandsCancelIt) {
    Start();
    Menus().InvertReviewOption(true);
    EXPECT_EQ(Of("DORVIK.REVIEW").Look().Caption, "Cancel Review");
    EXPECT_EQ(Of("DORVIK.REVIEW.BUTTON").Look().Caption, "Cancel Background Review");
    EXPECT_EQ(Of("DORVIK.LPREVIEW").Look().Caption, "Cancel Review");
    for (const std::string_view tag :
         {"DORVIK.REVIEW", "DORVIK.REVIEW.BUTTON", "DORVIK.LPREVIEW"}) {
        EXPECT_EQ(Of(tag).Look().Face, "CancelReview");
    }
}

TEST_F(IDEMenusTest, AfterAReviewTheReviewCommandsStartOneAgain) {
    Start();
    Menus().InvertReviewOption(true);
    Menus().InvertReviewOption(false);
    EXPECT_EQ(Of("DORVIK.REVIEW").Look().Caption, "Review Project(s)...");
    EXPECT_EQ(Of("DORVIK.REVIEW.BUTTON").Look().Caption, "Review Project(s)");
    EXPECT_EQ(Of("DORVIK.LPREVIEW").Look().Caption, "Review Project(s)...");
    for (const std::string_view tag :
         {"DORVIK.REVIEW", "DORVIK.REVIEW.BUTTON", "DORVIK.LPREVIEW"}) {
        EXPECT_EQ(Of(tag).Look().Face, "StartReview");
    }
}

TEST_F(IDEMenusTest, EachItemRaisesItsEvent) {
    Start();
    struct Row {
        std::string_view Tag;
        Event<> IDEMenuEvents::*Raised;
    };
    static constexpr Row kRows[] = {
        {"DORVIK.OPEN", &IDEMenuEvents::OpenClick},
        {"DORVIK.GOTO", &IDEMenuEvents::GotoSourceClick},
        {"DORVIK.GOTO.BUTTON", &IDEMenuEvents::GotoSourceClick},
        {"DORVIK.LPGOTO", &IDEMenuEvents::GotoSourceClick},
        {"DORVIK.REVIEW", &IDEMenuEvents::ReviewClick},
        {"DORVIK.REVIEW.BUTTON", &IDEMenuEvents::ReviewClick},
        {"DORVIK.LPREVIEW", &IDEMenuEvents::ReviewClick},
        {"DORVIK.SHOW", &IDEMenuEvents::ShowDorvikWindowClick},
        {"DORVIK.SHOW.BUTTON", &IDEMenuEvents::ShowDorvikWindowClick},
        {"DORVIK.REVIEW.SUMMARY", &IDEMenuEvents::ReviewSummary},
        {"DORVIK.REVIEW.SUMMARY.BUTTON", &IDEMenuEvents::ReviewSummary},
        {"DORVIK.FILTER", &IDEMenuEvents::FilterClick},
        {"DORVIK.FILTER.BUTTON", &IDEMenuEvents::FilterClick},
        {"DORVIK.TPFILTER", &IDEMenuEvents::FilterClick},
        {"DORVIK.GROUPBYCATEGORY", &IDEMenuEvents::GroupByCategoryClick},
        {"DORVIK.LPGROUPBYCATEGORY", &IDEMenuEvents::GroupByCategoryClick},
        {"DORVIK.GROUPBYRULE", &IDEMenuEvents::GroupByRuleClick},
        {"DORVIK.LPGROUPBYRULE", &IDEMenuEvents::GroupByRuleClick},
        {"DORVIK.GROUPBYSEVERITY", &IDEMenuEvents::GroupBySeverityClick},
        {"DORVIK.LPGROUPBYSEVERITY", &IDEMenuEvents::GroupBySeverityClick},
        {"DORVIK.GROUPBYSOURCEFILE", &IDEMenuEvents::GroupBySourceFileClick},
        {"DORVIK.LPGROUPBYSOURCEFILE", &IDEMenuEvents::GroupBySourceFileClick},
        {"DORVIK.GROUPBYNONE", &IDEMenuEvents::GroupByNoneClick},
        {"DORVIK.LPGROUPBYNONE", &IDEMenuEvents::GroupByNoneClick},
        {"DORVIK.LPSHOWGROUPBY", &IDEMenuEvents::ShowGroupByClick},
        {"DORVIK.RBDOC", &IDEMenuEvents::LaunchRulebaseDocument},
        {"DORVIK.OPTIONS", &IDEMenuEvents::OptionsClick},
        {"DORVIK.HELPCONTENTS", &IDEMenuEvents::HelpContents},
        {"DORVIK.HELPSEARCH", &IDEMenuEvents::HelpSearch},
        {"DORVIK.HELPHOMEPAGE", &IDEMenuEvents::GotoHomePage},
        {"DORVIK.HELPTECHSUPPORT", &IDEMenuEvents::GotoTechSupportPage},
        {"DORVIK.HELPABOUT", &IDEMenuEvents::AboutClick},
        {"DORVIK", &IDEMenuEvents::DorvikClick},
    };
    for (const Row& row : kRows) {
        int raised = 0;
        const Subscription counted =
            (Menus().Events.*row.Raised).Subscribe([&raised] { ++raised; });
        Of(row.Tag).Click();
        EXPECT_EQ(raised, 1) << row.Tag;
    }
}

TEST_F(IDEMenusTest, GroupsAreExpandedAndCollapsedByOneEvent) {
    Start();
    std::vector<bool> raised;
    const Subscription counted = Menus().Events.ExpandCollapseGroups.Subscribe(
        [&raised](bool expand) { raised.push_back(expand); });
    Of("DORVIK.LPEXPANDALLGROUPS").Click();
    Of("DORVIK.LPCOLLAPSEALLGROUPS").Click();
    EXPECT_THAT(raised, ElementsAre(true, false));
}

TEST_F(IDEMenusTest, AGroupByItemFlipsItsCheckMarkInBothMenusAndItsSetting) {
    Start();
    Of("DORVIK.GROUPBYSEVERITY").Click();
    EXPECT_TRUE(modGlobal::WorkData().GroupBySeverity);
    EXPECT_TRUE(Of("DORVIK.GROUPBYSEVERITY").Look().Checked);
    EXPECT_TRUE(Of("DORVIK.LPGROUPBYSEVERITY").Look().Checked);
    EXPECT_EQ(Of("DORVIK.LPGROUPBYSEVERITY").Look().Face, "Checked");
    EXPECT_FALSE(Of("DORVIK.GROUPBYRULE").Look().Checked);
    Of("DORVIK.LPGROUPBYSEVERITY").Click();
    EXPECT_FALSE(modGlobal::WorkData().GroupBySeverity);
    EXPECT_FALSE(Of("DORVIK.GROUPBYSEVERITY").Look().Checked);
    EXPECT_EQ(Of("DORVIK.GROUPBYSEVERITY").Look().Face, "Blank");
}

TEST_F(IDEMenusTest, ACheckMarkIsDrawnOnceForAClick) {
    Start();
    int changes = 0;
    std::vector<Subscription> subscriptions;
    for (const std::string_view tag :
         {"DORVIK.GROUPBYCATEGORY", "DORVIK.GROUPBYRULE", "DORVIK.GROUPBYSEVERITY"}) {
        subscriptions.push_back(Of(tag).Changed.Subscribe([&changes] { ++changes; }));
    }
    Of("DORVIK.GROUPBYSEVERITY").Click();
    EXPECT_EQ(changes, 2);  // the mark and its face
    Of("DORVIK.HELPABOUT").Click();
    Menus().EnableDisable(true, 1, true, false);
    EXPECT_EQ(changes, 2);
}

TEST_F(IDEMenusTest, TheSettingIsFlippedBeforeTheEvent) {
    Start();
    bool seen = false;
    const Subscription counted = Menus().Events.ShowGroupByClick.Subscribe(
        [&seen] { seen = modGlobal::WorkData().ShowGroupByBox; });
    Of("DORVIK.LPSHOWGROUPBY").Click();
    EXPECT_TRUE(seen);
    EXPECT_TRUE(Of("DORVIK.LPSHOWGROUPBY").Look().Checked);
}

TEST_F(IDEMenusTest, CheckMarksFollowSettingsThatACommandTurnsOff) {
    modGlobal::WorkData().GroupByRule = true;
    Start();
    EXPECT_TRUE(Of("DORVIK.LPGROUPBYRULE").Look().Checked);
    const Subscription none = Menus().Events.GroupByNoneClick.Subscribe(
        [] { modGlobal::WorkData().GroupByRule = false; });
    Of("DORVIK.GROUPBYNONE").Click();
    EXPECT_FALSE(Of("DORVIK.LPGROUPBYRULE").Look().Checked);
}

TEST_F(IDEMenusTest, ADisabledItemRaisesNothing) {
    Start();
    Menus().EnableDisable(false, 1, false, false);
    int raised = 0;
    const Subscription counted = Menus().Events.GotoSourceClick.Subscribe([&raised] { ++raised; });
    Of("DORVIK.GOTO").Click();
    EXPECT_EQ(raised, 0);
}

TEST_F(IDEMenusTest, TheMenusGoWithTheAddIn) {
    Start();
    m_ide.TerminateDorvik();
    EXPECT_EQ(m_host.MenuBar().FindTag("DORVIK"), nullptr);
    EXPECT_TRUE(m_host.CommandBars().empty());
    EXPECT_THAT(m_log.Entries(), ElementsAre());
}

}  // namespace
}  // namespace dorvik::test
