#include "foundation/lists/KeyedList.h"

#include "base/BasicError.h"
#include "foundation/lists/KeyedArrayList.h"
#include "foundation/lists/ObjectKeyedArrayList.h"
#include "foundation/lists/StringKeyedArrayList.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace dorvik {
namespace {

using Objects = ObjectKeyedArrayList<std::string>;

constexpr std::int32_t kNoSuchItem = static_cast<std::int32_t>(0x80040202);
constexpr std::int32_t kKeyInUse = static_cast<std::int32_t>(0x80040203);

/// The error that reaches the caller; the number 0 if there is none.
BasicError FailureOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const BasicError& failure) {
        return failure;
    }
    return BasicError(0, "");
}

/// The kinds of keyed list share their behaviour; each gives a way to make a value.
template <typename List>
struct ValueOf;
template <>
struct ValueOf<KeyedArrayList> {
    static Variant From(const std::string& text) { return text; }
};
template <>
struct ValueOf<StringKeyedArrayList> {
    static std::string From(const std::string& text) { return text; }
};
template <>
struct ValueOf<Objects> {
    static std::shared_ptr<std::string> From(const std::string& text) {
        return std::make_shared<std::string>(text);
    }
};

template <typename List>
class AnyKeyedList : public testing::Test {
public:
    static auto Value(const std::string& text) { return ValueOf<List>::From(text); }
};

using AllKeyedLists = testing::Types<KeyedArrayList, StringKeyedArrayList, Objects>;
TYPED_TEST_SUITE(AnyKeyedList, AllKeyedLists);

TYPED_TEST(AnyKeyedList, KeyThatDiffersInCaseOnlyIsInUse) {
    TypeParam list;
    list.Add("abc", this->Value("1"), false);
    const BasicError failure = FailureOf([&] { list.Add("ABC", this->Value("2"), false); });
    EXPECT_EQ(failure.Number(), kKeyInUse);
    EXPECT_EQ(failure.Source(), "KeyedArrayList::Add");
    EXPECT_STREQ(
        failure.what(), "The item cannot be added, because the key 'ABC' is already in use.");
    EXPECT_EQ(list.Count(), 1);
}

TYPED_TEST(AnyKeyedList, UnknownKeyAndPositionReachTheCallerAsNoSuchItem) {
    TypeParam list;
    list.Add("a", this->Value("1"), false);
    struct Case {
        std::string Source;
        std::function<void()> Operation;
    };
    const Case cases[] = {
        {"Item",
         [&] {
             (void)list.Item("missing");
         }},
        {"Item",
         [&] {
             (void)list.Item(0);
         }},
        {"Item",
         [&] {
             (void)list.Item(2);
         }},
        {"Item",
         [&] {
             list.SetItem("missing", this->Value("2"));
         }},
        {"Item",
         [&] {
             list.SetItem(-1, this->Value("2"));
         }},
        {"Selected",
         [&] {
             (void)list.Selected("missing");
         }},
        {"Selected",
         [&] {
             list.SetSelected(2, true);
         }},
        {"Key",
         [&] {
             (void)list.Key(2);
         }},
        {"Remove",
         [&] {
             list.Remove("missing");
         }},
        {"Remove",
         [&] {
             list.Remove(2);
         }},
    };
    for (const Case& row : cases) {
        const BasicError failure = FailureOf(row.Operation);
        EXPECT_EQ(failure.Number(), kNoSuchItem);
        EXPECT_STREQ(failure.what(), "No such item.");
        EXPECT_EQ(failure.Source(), "KeyedArrayList::" + row.Source);
    }
}

TYPED_TEST(AnyKeyedList, TextOfDigitsIsAKeyAndANumberIsAPosition) {
    TypeParam list;
    for (const char* key : {"a", "b", "c", "d", "e", "f", "g", "7"}) {
        list.Add(key, this->Value(key), false);
    }
    EXPECT_EQ(list.FindIndexByKey("7"), 8);
    EXPECT_EQ(list.Item("7"), list.Item(8));
    EXPECT_EQ(list.Key(7), "g");
    EXPECT_NE(list.Item(7), list.Item("7"));
}

TYPED_TEST(AnyKeyedList, SelectedWriteDoesNotSetDirty) {
    TypeParam list;
    list.Add("a", this->Value("1"), false);
    list.SetDirty(false);
    list.SetSelected("A", true);
    EXPECT_TRUE(list.Selected(1));
    EXPECT_EQ(list.SelectedCount(), 1);
    EXPECT_FALSE(list.Dirty());
    list.SetItem("a", this->Value("2"));
    EXPECT_TRUE(list.Dirty());
}

TYPED_TEST(AnyKeyedList, AddTakesTheSelectedFlagAndSetsDirty) {
    TypeParam list;
    EXPECT_FALSE(list.Dirty());
    list.Add("a", this->Value("1"), true);
    list.Add("b", this->Value("2"), false);
    EXPECT_TRUE(list.Dirty());
    EXPECT_TRUE(list.Selected("a"));
    EXPECT_FALSE(list.Selected("b"));
}

TYPED_TEST(AnyKeyedList, ClearDoesNotBeginTheUniqueKeysAnew) {
    TypeParam list;
    EXPECT_EQ(list.NewUniqueKey(), "Item1");
    list.Add("Item1", this->Value("1"), false);
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_FALSE(list.Contains("Item1"));
    EXPECT_FALSE(list.Dirty());
    EXPECT_EQ(list.NewUniqueKey(), "Item2");
}

TYPED_TEST(AnyKeyedList, NewUniqueKeyDoesNotLookIntoTheList) {
    TypeParam list;
    list.Add("item1", this->Value("1"), false);
    const std::string key = list.NewUniqueKey();
    EXPECT_EQ(key, "Item1");
    EXPECT_EQ(FailureOf([&] { list.Add(key, this->Value("2"), false); }).Number(), kKeyInUse);
}

TYPED_TEST(AnyKeyedList, RemoveTakesKeyAndValueTogether) {
    TypeParam list;
    list.Add("a", this->Value("1"), false);
    list.Add("b", this->Value("2"), true);
    list.Add("c", this->Value("3"), false);
    list.Remove("A");
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Key(1), "b");
    EXPECT_TRUE(list.Selected(1));
    EXPECT_FALSE(list.Contains("a"));
    EXPECT_EQ(list.FindIndexByKey("c"), 2);
}

TYPED_TEST(AnyKeyedList, MoveItemMovesKeyAndValueAndNothingAtItsOwnPlace) {
    TypeParam list;
    list.Add("a", this->Value("1"), true);
    list.Add("b", this->Value("2"), false);
    list.Add("c", this->Value("3"), false);
    const auto first = list.Item("a");
    list.SetDirty(false);
    list.MoveItem(2, 2);
    EXPECT_FALSE(list.Dirty());
    list.MoveItem(1, 3);
    EXPECT_EQ(list.Key(1) + list.Key(2) + list.Key(3), "bca");
    EXPECT_EQ(list.Item(3), first);
    EXPECT_TRUE(list.Selected("a"));
    EXPECT_TRUE(list.Dirty());
}

TYPED_TEST(AnyKeyedList, EmptyKeyIsAnOrdinaryKey) {
    TypeParam list;
    list.Add("", this->Value("1"), false);
    EXPECT_TRUE(list.Contains(""));
    EXPECT_EQ(list.FindIndexByKey(""), 1);
    EXPECT_EQ(FailureOf([&] { list.Add("", this->Value("2"), false); }).Number(), kKeyInUse);
}

TYPED_TEST(AnyKeyedList, FindGivesTheValueOrNothing) {
    TypeParam list;
    list.Add("a", this->Value("1"), false);
    ASSERT_NE(list.Find("A"), nullptr);
    EXPECT_EQ(*list.Find("A"), list.Item(1));
    EXPECT_EQ(list.Find("b"), nullptr);
}

TYPED_TEST(AnyKeyedList, HundredEntriesAreAllFound) {
    TypeParam list;
    for (int number = 0; number < 100; ++number) {
        list.Add("Key" + std::to_string(number), this->Value(std::to_string(number)), false);
    }
    for (int number = 0; number < 100; ++number) {
        EXPECT_EQ(list.FindIndexByKey("kEY" + std::to_string(number)), number + 1);
    }
}

TEST(KeyedArrayList, RangeGivesTheValuesInOrderAndKeysTheirKeys) {
    KeyedArrayList list;
    list.Add("b", Variant("two"));
    list.Add("a", Variant("one"));
    std::vector<std::string> texts;
    for (const Variant& value : list) {
        texts.push_back(value.AsText());
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"two", "one"}));
    EXPECT_EQ(
        std::vector<std::string>(list.Keys().begin(), list.Keys().end()),
        (std::vector<std::string>{"b", "a"}));
}

TEST(KeyedArrayList, RemoveByValueTakesTheFirstOfTwoEqualValues) {
    KeyedArrayList list;
    list.Add("a", "same");
    list.Add("b", "SAME");
    list.RemoveByValue("same");
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.Key(1), "b");
    list.SetDirty(false);
    list.RemoveByValue("other");
    EXPECT_FALSE(list.Dirty());
}

TEST(KeyedArrayList, KeysOfAllLettersCompareWithoutRegardToCase) {
    KeyedArrayList list;
    list.Add(
        "Gr\xC3\xB6\xC3\x9F"
        "e",
        1);
    EXPECT_TRUE(list.Contains("GR\xC3\x96\xC3\x9F"
                              "E"));
}

TEST(ObjectKeyedArrayList, KeyInUseIsTestedOnlyWhenAskedFor) {
    Objects list;
    const auto first = std::make_shared<std::string>("1");
    EXPECT_EQ(list.Add("abc", first, false, true), 1);
    EXPECT_EQ(list.Add("ABC", std::make_shared<std::string>("2"), false, false), 2);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Item("ABC"), first);
    EXPECT_EQ(list.FindIndexByKey("ABC"), 1);
}

TEST(ObjectKeyedArrayList, KeyWriteTestsNoDuplicateAndLeavesDirtyAlone) {
    Objects list;
    list.Add("a", std::make_shared<std::string>("1"));
    list.Add("b", std::make_shared<std::string>("2"));
    list.SetDirty(false);
    list.SetKey(2, "a");
    EXPECT_EQ(list.Key(2), "a");
    EXPECT_EQ(list.FindIndexByKey("a"), 1);
    EXPECT_FALSE(list.Contains("b"));
    EXPECT_FALSE(list.Dirty());
    EXPECT_EQ(FailureOf([&] { list.SetKey(3, "c"); }).Source(), "KeyedArrayList::Key");
}

TEST(ObjectKeyedArrayList, RemoveByValueGoesByIdentity) {
    Objects list;
    const auto object = std::make_shared<std::string>("x");
    list.Add("a", std::make_shared<std::string>("x"));
    list.Add("b", object);
    list.RemoveByValue(object);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_TRUE(list.Contains("a"));
}

}  // namespace
}  // namespace dorvik
