#include "workstation/ide/udocDorvik.h"

#include "IDEFixture.h"

#include <gmock/gmock.h>

namespace dorvik::test {
namespace {

using testing::IsEmpty;

class udocDorvikTest : public IDEFixture {
protected:
    void SetUp() override { m_ide.Initialise(m_host, m_screen); }
    udocDorvik& Document() { return *m_ide.DorvikUserDocument(); }
    CommandControl& Item(std::string_view tag) {
        return *m_ide.DorvikMenus()->DorvikMenu()->FindTag(tag);
    }
};

TEST_F(udocDorvikTest, ThePopupOfTheListIsShownWhereTheUserClicked) {
    const CommandControl* shown = nullptr;
    const Subscription popup =
        Document().PopupMenu.Subscribe([&](CommandControl& menu) { shown = &menu; });
    Document().Results().DisplayListPopup.Raise();
    EXPECT_EQ(shown, m_ide.DorvikMenus()->ListPopupMenu());
}

TEST_F(udocDorvikTest, WhetherAllFilesAreShownReachesTheMenus) {
    Document().Results().EnableDisableGroupBySrcFiles.Raise(false);
    EXPECT_FALSE(Item("DORVIK.GROUPBYSOURCEFILE").Look().Enabled);
    Document().Results().EnableDisableGroupBySrcFiles.Raise(true);
    EXPECT_TRUE(Item("DORVIK.GROUPBYSOURCEFILE").Look().Enabled);
}

TEST_F(udocDorvikTest, AnotherViewRefreshesTheMenus) {
    m_host.AddProject("App", "C:\\App.vbp");
    Item("DORVIK.OPEN").SetEnabled(false);
    Document().optView_Click(viewtype::kHotspots);
    EXPECT_EQ(Document().Results().ViewType(), viewtype::kHotspots);
    EXPECT_TRUE(Item("DORVIK.OPEN").Look().Enabled);
}

TEST_F(udocDorvikTest, TheButtonOfTheShownViewDoesNothing) {
    m_host.AddProject("App", "C:\\App.vbp");
    Item("DORVIK.OPEN").SetEnabled(false);
    Document().optView_Click(viewtype::kViolationList);
    EXPECT_FALSE(Item("DORVIK.OPEN").Look().Enabled);
}

TEST_F(udocDorvikTest, TheListAndTheButtonGoToTheSource) {
    Document().cmdGotoSource_Click();
    Document().Results().GotoSource.Raise();
    EXPECT_EQ(m_boxes.Messages.size(), 2U);
    EXPECT_FALSE(Document().Results().IgnoreFileEvents());
}

TEST_F(udocDorvikTest, InTheHotspotViewWithoutASelectionNothingIsGoneTo) {
    Document().optView_Click(viewtype::kHotspots);
    m_host.Calls.clear();
    Document().cmdGotoSource_Click();
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
    EXPECT_THAT(m_host.Calls, IsEmpty());
}

TEST_F(udocDorvikTest, TheGroupByBoxIsThatOfTheSettings) {
    EXPECT_FALSE(Document().Controls().GroupByBox.Value());
    modGlobal::WorkData().ShowGroupByBox = true;
    Document().ShowGroupBy();
    EXPECT_TRUE(Document().Controls().GroupByBox.Value());
    udocDorvik another(m_screen);
    EXPECT_TRUE(another.Controls().GroupByBox.Value());
}

TEST_F(udocDorvikTest, AfterTheEndOfTheAddInThePopupIsNotShown) {
    int shown = 0;
    const Subscription popup = Document().PopupMenu.Subscribe([&](CommandControl&) { ++shown; });
    Document().SetMenus(nullptr);
    Document().Results().DisplayListPopup.Raise();
    EXPECT_EQ(shown, 0);
}

}  // namespace
}  // namespace dorvik::test
