#include "foundation/lists/KeyedListView.h"

#include "base/BasicError.h"
#include "base/modKyErrors.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace dorvik {
namespace {

class Entry : public IListItem {
public:
    explicit Entry(std::string key) : m_key(std::move(key)) {}
    std::string Key() const override { return m_key; }
    void SetKey(std::string_view key) override { m_key = key; }
    std::string Title() const override { return "Title of " + m_key; }
    std::string Description() const override { return {}; }
    std::int32_t ID() const override { return 7; }

private:
    std::string m_key;
};

class OtherEntry final : public Entry {
public:
    using Entry::Entry;
};

TEST(KeyedListView, NewItemIsGivenANewKeyAndAddedUnselected) {
    ObjectKeyedArrayList<Entry> list;
    KeyedListView<Entry> view(list);
    IKeyedList& generic = view;
    const auto item = std::make_shared<Entry>("own");
    generic.Add(item, /*newItem=*/true);
    EXPECT_EQ(item->Key(), "Item1");
    EXPECT_EQ(generic.Count(), 1);
    EXPECT_EQ(generic.Item("Item1"), item);
    EXPECT_FALSE(generic.Selected(1));
    EXPECT_EQ(list.Item(1), item);
}

TEST(KeyedListView, ItemThatIsNotNewKeepsItsKeyWhichIsTested) {
    ObjectKeyedArrayList<Entry> list;
    KeyedListView<Entry> view(list);
    view.Add(std::make_shared<Entry>("own"), /*newItem=*/false);
    EXPECT_EQ(view.Key(1), "own");
    try {
        view.Add(std::make_shared<Entry>("OWN"), /*newItem=*/false);
        FAIL() << "the key is in use";
    } catch (const BasicError& failure) {
        EXPECT_EQ(failure.Number(), modKyErrors::kyErrKeyInUse);
    }
    EXPECT_EQ(list.Count(), 1);
}

TEST(KeyedListView, EverythingElseIsTheListItself) {
    ObjectKeyedArrayList<Entry> list;
    KeyedListView<Entry> view(list);
    list.Add("a", std::make_shared<Entry>("a"), true);
    list.Add("b", std::make_shared<Entry>("b"), false);
    EXPECT_EQ(view.SelectedCount(), 1);
    EXPECT_TRUE(view.Selected("a"));
    EXPECT_TRUE(view.Contains("B"));
    EXPECT_EQ(view.Item(2)->Title(), "Title of b");
    view.Remove("a");
    EXPECT_EQ(list.Count(), 1);
    view.Remove(1);
    EXPECT_EQ(list.Count(), 0);
    list.Add("c", std::make_shared<Entry>("c"));
    view.Clear();
    EXPECT_EQ(list.Count(), 0);
}

TEST(KeyedListView, ItemOfAnotherKindIsATypeMismatch) {
    ObjectKeyedArrayList<OtherEntry> list;
    KeyedListView<OtherEntry> view(list);
    try {
        view.Add(std::make_shared<Entry>("x"), /*newItem=*/true);
        FAIL() << "the item is no OtherEntry";
    } catch (const BasicError& failure) {
        EXPECT_EQ(failure.Number(), runtimeerror::kTypeMismatch);
    }
}

}  // namespace
}  // namespace dorvik
