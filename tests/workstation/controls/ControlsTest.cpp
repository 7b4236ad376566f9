#include "workstation/controls/CheckList.h"
#include "workstation/controls/CheckTree.h"
#include "workstation/controls/ComboBox.h"
#include "workstation/controls/CommandControl.h"
#include "workstation/controls/DocumentPane.h"
#include "workstation/controls/Event.h"
#include "workstation/controls/ListTable.h"
#include "workstation/controls/Observable.h"
#include "workstation/controls/TabStrip.h"
#include "workstation/controls/Timer.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dorvik {
namespace {

TEST(Event, CallsSubscribersInTheirOrderUntilTheyEnd) {
    Event<int> event;
    std::vector<int> heard;
    const Subscription first = event.Subscribe([&](int value) { heard.push_back(value); });
    {
        const Subscription second = event.Subscribe([&](int value) { heard.push_back(-value); });
        event.Raise(1);
    }
    event.Raise(2);
    EXPECT_EQ(heard, (std::vector<int>{1, -1, 2}));
}

TEST(Event, AHandlerMayEndAnotherSubscribeAndDestroyTheEvent) {
    auto event = std::make_unique<Event<>>();
    std::vector<std::string> heard;
    Subscription added;
    Subscription ended;
    const Subscription first = event->Subscribe([&] {
        heard.emplace_back("first");
        ended.End();
        added = event->Subscribe([&] { heard.emplace_back("added"); });
    });
    ended = event->Subscribe([&] { heard.emplace_back("ended"); });
    const Subscription last = event->Subscribe([&] {
        heard.emplace_back("last");
        event.reset();
    });
    event->Raise();
    EXPECT_EQ(heard, (std::vector<std::string>{"first", "last"}));
}

TEST(Observable, OnlyAnotherValueIsAChange) {
    Observable<std::string> text("a");
    int changes = 0;
    const Subscription subscription =
        text.Changed.Subscribe([&](const std::string&) { ++changes; });
    text.Set("a");
    text.Set("b");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(text.Value(), "b");
}

TEST(ComboBox, ChoosingWhatIsChosenIsHandledAgain) {
    ComboBox box;
    box.Fill({{"1KEY", "Tag", "one", ""}, {"2KEY", "Tag", "two", ""}});
    int clicks = 0;
    const Subscription subscription = box.Clicked.Subscribe([&] { ++clicks; });
    box.Select(1);
    EXPECT_EQ(clicks, 0);
    box.Choose(1);
    box.Choose(1);
    EXPECT_EQ(clicks, 2);
    box.Choose(7);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(box.SelectedItem(), nullptr);
    EXPECT_EQ(box.Find("2key"), std::optional<std::size_t>(1));
}

ListRow Row(std::string key, std::string first, std::string second) {
    return {std::move(key), "", {{std::move(first)}, {std::move(second)}}};
}

std::string Order(const ListTable& table) {
    std::string keys;
    for (std::size_t row = 0; row < table.Count(); ++row) {
        keys += table.Row(row).Key;
    }
    return keys;
}

TEST(ListTable, EqualRowsStayInTheOrderThatIsShownInBothDirections) {
    ListTable table;
    for (const auto& [key, text] :
         {std::pair("a", "  9"), {"b", "N/A"}, {"c", " 10"}, {"d", "n/a"}, {"e", "  9"}}) {
        table.Add(Row(key, "", text));
    }
    table.Sort(1, true);
    EXPECT_EQ(Order(table), "aecbd");
    table.Sort(1, false);
    EXPECT_EQ(Order(table), "bdcae");
    table.Sort(0, true);
    EXPECT_EQ(Order(table), "bdcae") << "all equal there";
    table.RestoreOrder();
    EXPECT_EQ(Order(table), "abcde");
}

TEST(ListTable, TheSelectedRowStaysSelectedWhenTheOrderChanges) {
    ListTable table;
    table.Add(Row("a", "2", ""));
    table.Add(Row("b", "1", ""));
    table.Choose(0);
    table.Sort(0, true);
    EXPECT_EQ(table.SelectedIndex(), std::optional<std::size_t>(1));
    EXPECT_EQ(table.SelectedRow()->Key, "a");
    table.Clear();
    EXPECT_EQ(table.SelectedRow(), nullptr);
}

TEST(CheckTree, NodesAreListedAParentBeforeItsChildren) {
    CheckTree tree;
    CheckNode& project = tree.Add(nullptr, {.Key = "p"});
    tree.Add(&tree.Add(&project, {.Key = "t"}), {.Key = "f"});
    CheckNode& other = tree.Add(nullptr, {.Key = "q"});
    std::string keys;
    for (const CheckNode* const node : tree.Nodes()) {
        keys += node->Key;
    }
    EXPECT_EQ(keys, "ptfq");
    CheckNode* checked = nullptr;
    const Subscription subscription =
        tree.NodeChecked.Subscribe([&](CheckNode& node) { checked = &node; });
    tree.SetChecked(other, true);
    EXPECT_EQ(checked, nullptr);
    tree.Check(project, true);
    EXPECT_EQ(checked, &project);
    tree.Remove(project);
    EXPECT_EQ(tree.Nodes().size(), 1U);
}

TEST(CheckList, AllAndNone) {
    CheckList list;
    EXPECT_FALSE(list.AnyChecked());
    list.Fill({{"AC", "Authorised Components"}, {"AR", "Authorised References"}});
    list.SetAll(true);
    list.SetChecked(0, false);
    EXPECT_TRUE(list.AnyChecked());
    EXPECT_EQ(list.Find("ar"), std::optional<std::size_t>(1));
    list.SetAll(false);
    EXPECT_FALSE(list.AnyChecked());
}

TEST(TabStrip, TheFirstTabFollowsTheLast) {
    TabStrip tabs({"a", "b"});
    EXPECT_EQ(tabs.Next(), 1);
    tabs.Shown.Set(2);
    EXPECT_EQ(tabs.Next(), 1);
}

TEST(Timer, ATickOfADisabledTimerDoesNothing) {
    Timer timer(std::chrono::milliseconds(1));
    int ticks = 0;
    const Subscription subscription = timer.Ticked.Subscribe([&] { ++ticks; });
    timer.Tick();
    timer.Enabled.Set(true);
    timer.Tick();
    EXPECT_EQ(ticks, 1);
}

TEST(DocumentPane, NavigatingEmptiesTheBody) {
    DocumentPane pane;
    pane.SetInnerHTML("<p>");
    pane.Navigate("about:blank");
    EXPECT_EQ(pane.InnerHTML(), "");
}

TEST(CommandControl, ItemsAreFoundByTagNumberAndCaption) {
    CommandControl bar(CommandKind::Popup, {.Caption = "Bar"});
    CommandControl& tools = bar.Add(CommandKind::Popup, {.Caption = "&Tools"}, 0, 30007);
    CommandControl& added =
        bar.Add(CommandKind::Popup, {.Caption = "D&orvik", .Tag = "DORVIK"}, bar.IndexOf(tools));
    CommandControl& open =
        added.Add(CommandKind::Button, {.Caption = "Open", .Tag = "DORVIK.OPEN"});
    EXPECT_EQ(bar.IndexOf(added), 1);
    EXPECT_EQ(bar.FindId(30007), &tools);
    EXPECT_EQ(bar.FindTag("dorvik.open"), &open);
    EXPECT_EQ(bar.FindCaption("&Tools"), &tools);
    int clicks = 0;
    const Subscription subscription = open.Clicked.Subscribe([&] { ++clicks; });
    open.SetEnabled(false);
    open.Click();
    EXPECT_EQ(clicks, 0);
    open.SetEnabled(true);
    open.Click();
    EXPECT_EQ(clicks, 1);
    bar.Remove(added);
    EXPECT_EQ(bar.FindTag("DORVIK"), nullptr);
}

TEST(CommandControl, OnlyAnotherLookOrPlaceIsAChange) {
    CommandControl item(CommandKind::Button, {.Caption = "Review", .Face = "StartReview"});
    int changes = 0;
    const Subscription subscription = item.Changed.Subscribe([&] { ++changes; });
    item.SetCaption("Review");
    item.SetFace("StartReview");
    item.SetEnabled(true);
    item.SetChecked(false);
    item.SetPlace({});
    EXPECT_EQ(changes, 0);
    item.SetCaption("Cancel");
    item.SetFace("CancelReview");
    item.SetEnabled(false);
    item.SetChecked(true);
    item.SetPlace({.Left = 7});
    EXPECT_EQ(changes, 5);
}

}  // namespace
}  // namespace dorvik
