#include "workstation/widgets/Bindings.h"

#include "workstation/controls/ComboBox.h"
#include "workstation/controls/TabStrip.h"
#include "workstation/look/modQt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

namespace dorvik::test {

namespace {

TEST(Bindings, ABoxShowsItsTextAndTakesWhatIsTyped) {
    Observable<std::string> text("Café");
    QLineEdit box;
    Bindings bindings;
    bindings.Text(box, text);
    EXPECT_EQ(modQt::Utf8(box.text()), "Café");
    QTest::keyClicks(&box, QStringLiteral("s"));
    EXPECT_EQ(text.Value(), "Cafés");
    text.Set("Tea");
    EXPECT_EQ(modQt::Utf8(box.text()), "Tea");
}

TEST(Bindings, ACheckBoxIsItsValue) {
    Observable<bool> value(true);
    QCheckBox box;
    Bindings bindings;
    bindings.Check(box, value);
    EXPECT_TRUE(box.isChecked());
    box.click();
    EXPECT_FALSE(value.Value());
    value.Set(true);
    EXPECT_TRUE(box.isChecked());
}

TEST(Bindings, AnOptionSetsItsValue) {
    Observable<std::int32_t> value(1);
    QRadioButton first;
    QRadioButton second;
    first.setAutoExclusive(false);
    second.setAutoExclusive(false);
    Bindings bindings;
    bindings.Option(first, value, 1);
    bindings.Option(second, value, 2);
    EXPECT_TRUE(first.isChecked());
    second.click();
    EXPECT_EQ(value.Value(), 2);
    EXPECT_FALSE(first.isChecked());
    EXPECT_TRUE(second.isChecked());
}

TEST(Bindings, ChoosingAnItemAgainIsHeardAgain) {
    ComboBox items;
    items.Fill({{"1K", "", "one", ""}, {"2K", "", "two", ""}});
    int clicks = 0;
    const Subscription heard = items.Clicked.Subscribe([&] { ++clicks; });
    QComboBox box;
    Bindings bindings;
    bindings.Combo(box, items);
    EXPECT_EQ(box.count(), 2);
    EXPECT_EQ(box.currentIndex(), -1);
    Q_EMIT box.activated(1);
    Q_EMIT box.activated(1);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(items.SelectedIndex(), 1U);
    items.Select(0);
    EXPECT_EQ(box.currentIndex(), 0);
    EXPECT_EQ(clicks, 2);
}

TEST(Bindings, ATabIsShownByAClick) {
    TabStrip tabs({"One", "Two"});
    tabs.Shown.Set(1);
    QTabBar bar;
    Bindings bindings;
    bindings.Tabs(bar, tabs);
    bar.show();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(1).center());
    EXPECT_EQ(tabs.Shown.Value(), 2);
    tabs.Shown.Set(1);
    EXPECT_EQ(bar.currentIndex(), 0);
}

TEST(Bindings, ATabIsShownByTheKeysOfItsBar) {
    TabStrip tabs({"One", "Two"});
    tabs.Shown.Set(1);
    QTabBar bar;
    Bindings bindings;
    bindings.Tabs(bar, tabs);
    QTest::keyClick(&bar, Qt::Key_Right);
    EXPECT_EQ(tabs.Shown.Value(), 2);
    EXPECT_EQ(bar.currentIndex(), 1);
}

TEST(Bindings, WhoDecidesAboutTabsIsAsked) {
    TabStrip tabs({"One", "Two"});
    tabs.Shown.Set(1);
    std::int16_t chosen = 0;
    QTabBar bar;
    Bindings bindings;
    bindings.Tabs(bar, tabs, [&](std::int16_t tab) { chosen = tab; });
    bar.show();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(1).center());
    EXPECT_EQ(chosen, 2);
    EXPECT_EQ(tabs.Shown.Value(), 1);
}

}  // namespace

}  // namespace dorvik::test
