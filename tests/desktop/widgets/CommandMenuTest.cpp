#include "workstation/widgets/CommandMenu.h"

#include "workstation/look/modQt.h"

#include <QAction>
#include <QApplication>
#include <QTest>
#include <QToolBar>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace dorvik::test {

namespace {

using testing::ElementsAre;

class CommandMenuTest : public testing::Test {
protected:
    static std::vector<std::string> Texts(const QWidget& target) {
        std::vector<std::string> texts;
        for (const QAction* const action : target.actions()) {
            texts.push_back(action->isSeparator() ? "-" : modQt::Utf8(action->text()));
        }
        return texts;
    }
    static void Settle() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    CommandControl m_bar{CommandKind::Popup, {.Caption = "Bar"}};
    CommandControl& m_open = m_bar.Add(CommandKind::Button, {.Caption = "&Open", .Face = "Open"});
    CommandControl& m_box = m_bar.Add(
        CommandKind::Button, {.Caption = "Show &box", .Face = "Blank", .BeginGroup = true});
    CommandControl& m_by = m_bar.Add(CommandKind::Popup, {.Caption = "Group &by"});
    CommandControl& m_rule = m_by.Add(CommandKind::Button, {.Caption = "&Rule"});
};

TEST_F(CommandMenuTest, HasCaptionsPicturesLinesAndSubmenus) {
    const CommandMenu menu(m_bar);
    EXPECT_THAT(Texts(menu), ElementsAre("&Open", "-", "Show &box", "Group &by"));
    const std::vector<QAction*>& actions = menu.Commands().Actions();
    EXPECT_FALSE(actions[0]->icon().isNull());
    EXPECT_FALSE(actions[0]->isCheckable());
    EXPECT_TRUE(actions[1]->isCheckable());
    EXPECT_TRUE(actions[1]->icon().isNull());
    ASSERT_NE(actions[2]->menu(), nullptr);
    EXPECT_THAT(Texts(*actions[2]->menu()), ElementsAre("&Rule"));
}

TEST_F(CommandMenuTest, AnActionClicksItsItemAndItsCheckMarkIsThatOfTheModel) {
    int clicks = 0;
    const Subscription heard = m_box.Clicked.Subscribe([&] { ++clicks; });
    const CommandMenu menu(m_bar);
    QAction& box = *menu.Commands().Actions()[1];
    box.trigger();
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(box.isChecked());
    m_box.SetChecked(true);
    EXPECT_TRUE(box.isChecked());
    box.trigger();
    EXPECT_TRUE(box.isChecked());
    EXPECT_EQ(clicks, 2);
}

TEST_F(CommandMenuTest, ChangesAreShownAtOnce) {
    const CommandMenu menu(m_bar);
    QAction& open = *menu.Commands().Actions()[0];
    m_open.SetEnabled(false);
    EXPECT_FALSE(open.isEnabled());
    m_open.SetCaption("&Close");
    EXPECT_EQ(modQt::Utf8(open.text()), "&Close");
    m_rule.SetEnabled(false);
    EXPECT_FALSE(menu.Commands().Actions()[2]->menu()->actions()[0]->isEnabled());
}

TEST_F(CommandMenuTest, OpeningAMenuClicksItsPopup) {
    int opened = 0;
    const Subscription heard = m_by.Clicked.Subscribe([&] { ++opened; });
    const CommandMenu menu(m_bar);
    Q_EMIT menu.Commands().Actions()[2]->menu()->aboutToShow();
    EXPECT_EQ(opened, 1);
}

TEST_F(CommandMenuTest, ItemsComeAndGoWhereTheBarHasItsPlace) {
    QToolBar bar;
    bar.addAction(QStringLiteral("first"));
    const CommandActions commands(m_bar, bar);
    bar.addAction(QStringLiteral("last"));
    m_bar.Remove(m_by);
    m_bar.Add(CommandKind::Button, {.Caption = "New"}, 1);
    Settle();
    EXPECT_THAT(Texts(bar), ElementsAre("first", "New", "&Open", "-", "Show &box", "last"));
}

TEST_F(CommandMenuTest, AnItemMayRemoveItselfByItsClick) {
    const CommandMenu menu(m_bar);
    const Subscription heard = m_open.Clicked.Subscribe([this] { m_bar.Remove(m_open); });
    menu.Commands().Actions()[0]->trigger();
    Settle();
    EXPECT_THAT(Texts(menu), ElementsAre("Show &box", "Group &by"));
}

TEST_F(CommandMenuTest, AMenuMayGoBeforeItsItems) {
    { const CommandMenu menu(m_bar); }
    m_open.SetCaption("Other");
    m_bar.Add(CommandKind::Button, {.Caption = "New"});
    m_rule.SetChecked(true);
    EXPECT_EQ(m_bar.Count(), 4);
}

}  // namespace

}  // namespace dorvik::test
