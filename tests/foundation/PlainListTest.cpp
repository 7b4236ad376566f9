#include "foundation/lists/PlainList.h"

#include "base/BasicError.h"
#include "foundation/lists/ArrayList.h"
#include "foundation/lists/LongArrayList.h"
#include "foundation/lists/ObjectArrayList.h"
#include "foundation/lists/StringArrayList.h"
#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dorvik {
namespace {

LongArrayList NumbersUpTo(std::int32_t count) {
    LongArrayList list;
    for (std::int32_t number = 1; number <= count; ++number) {
        list.Add(number);
    }
    return list;
}

std::vector<std::int32_t> Items(const LongArrayList& list) {
    std::vector<std::int32_t> items;
    for (std::int32_t index = 1; index <= list.Count(); ++index) {
        items.push_back(list.Item(index));
    }
    return items;
}

std::int32_t NumberOfFailure(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const BasicError& failure) {
        return failure.Number();
    }
    return 0;
}

using Numbers = std::vector<std::int32_t>;

TEST(PlainList, NewListIsEmptyCleanAndHasRoomForTen) {
    const LongArrayList list;
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Capacity(), 10);
    EXPECT_FALSE(list.Dirty());
    EXPECT_EQ(list.SelectedCount(), 0);
}

TEST(PlainList, EleventhAddDoublesCapacityToTwentyAndTwentyFirstToForty) {
    LongArrayList list = NumbersUpTo(10);
    EXPECT_EQ(list.Capacity(), 10);
    EXPECT_EQ(list.Add(11), 11);
    EXPECT_EQ(list.Capacity(), 20);
    for (std::int32_t number = 12; number <= 20; ++number) {
        list.Add(number);
    }
    EXPECT_EQ(list.Capacity(), 20);
    list.Add(21);
    EXPECT_EQ(list.Capacity(), 40);
    EXPECT_EQ(Items(list), Items(NumbersUpTo(21)));
}

TEST(PlainList, CapacityHalvesWhenRemoveLeavesNineOfTwenty) {
    LongArrayList list = NumbersUpTo(20);
    while (list.Count() > 10) {
        list.Remove(list.Count());
    }
    EXPECT_EQ(list.Capacity(), 20);
    list.Remove(list.Count());
    EXPECT_EQ(list.Count(), 9);
    EXPECT_EQ(list.Capacity(), 10);
    EXPECT_EQ(Items(list), Items(NumbersUpTo(9)));
}

TEST(PlainList, CapacityShrinksBelowTenDownToOneAndDoublesFromThere) {
    LongArrayList list = NumbersUpTo(5);
    Numbers capacities;
    while (list.Count() > 0) {
        list.Remove(1);
        capacities.push_back(list.Capacity());
    }
    EXPECT_EQ(capacities, (Numbers{5, 5, 5, 2, 1}));
    list.Add(1);
    EXPECT_EQ(list.Capacity(), 1);
    list.Add(2);
    EXPECT_EQ(list.Capacity(), 2);
    list.Add(3);
    EXPECT_EQ(list.Capacity(), 4);
    EXPECT_EQ(Items(list), (Numbers{1, 2, 3}));
}

TEST(PlainList, EmptyListOfCapacityOneShrinksNoFurther) {
    LongArrayList list = NumbersUpTo(1);
    list.Remove(1);
    EXPECT_EQ(list.Capacity(), 5);
    for (const std::int32_t expected : {2, 1, 1}) {
        list.Add(1);
        list.Remove(1);
        EXPECT_EQ(list.Capacity(), expected);
    }
}

TEST(PlainList, RemoveOnePastTheEndChangesNothingButSetsDirty) {
    LongArrayList list = NumbersUpTo(3);
    list.SetDirty(false);
    list.Remove(4);
    EXPECT_EQ(Items(list), (Numbers{1, 2, 3}));
    EXPECT_EQ(list.Capacity(), 10);
    EXPECT_TRUE(list.Dirty());
}

TEST(PlainList, RemoveOfPositionZeroIsLoggedAndChangesNothing) {
    const test::CapturedLog log;
    LongArrayList list = NumbersUpTo(3);
    list.Remove(0);
    EXPECT_EQ(Items(list), (Numbers{1, 2, 3}));
    EXPECT_EQ(
        log.Entries(),
        std::vector<std::string>{"Error #9 - Subscript out of range#LongArrayList::Remove"});
}

TEST(PlainList, RemoveInTheMiddleMovesElementsWithTheirFlags) {
    LongArrayList list = NumbersUpTo(4);
    list.SetSelected(1, true);
    list.SetSelected(4, true);
    list.Remove(2);
    EXPECT_EQ(Items(list), (Numbers{1, 3, 4}));
    EXPECT_TRUE(list.Selected(1));
    EXPECT_FALSE(list.Selected(2));
    EXPECT_TRUE(list.Selected(3));
    EXPECT_EQ(list.SelectedCount(), 2);
}

TEST(PlainList, SlotBehindTheEndKeepsItsStaleContentAfterRemoveInTheMiddle) {
    StringArrayList list;
    list.Add("a");
    list.Add("b");
    list.Add("c");
    list.Remove(1);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Item(3), "c");
    list.Remove(2);
    EXPECT_EQ(list.Item(2), "");  // the last element's slot is emptied
}

TEST(PlainList, AddOverwritesTheStaleSlotAndItsFlag) {
    LongArrayList list = NumbersUpTo(3);
    list.SetSelected(3, true);
    list.Remove(1);
    EXPECT_TRUE(list.Selected(3));
    EXPECT_EQ(list.SelectedCount(), 1);
    list.Add(9);
    EXPECT_EQ(Items(list), (Numbers{2, 3, 9}));
    EXPECT_FALSE(list.Selected(3));
}

TEST(PlainList, SlotsUpToTheCapacityCanBeReadAndWrittenWithoutChangingCount) {
    LongArrayList list = NumbersUpTo(2);
    EXPECT_EQ(list.Item(3), 0);
    EXPECT_EQ(list.Item(10), 0);
    EXPECT_FALSE(list.Selected(10));
    list.SetItem(7, 70);
    list.SetSelected(7, true);
    EXPECT_EQ(list.Item(7), 70);
    EXPECT_EQ(list.Item(6), 0);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.SelectedCount(), 0);
    list.Add(3);
    EXPECT_EQ(Items(list), (Numbers{1, 2, 3}));
}

TEST(PlainList, PositionOutsideTheCapacityIsAFailureOfTheArray) {
    LongArrayList list = NumbersUpTo(2);
    for (const std::int32_t index : {0, -1, 11, 1000000, -2147483647 - 1}) {
        EXPECT_EQ(NumberOfFailure([&] { (void)list.Item(index); }), 9) << index;
        EXPECT_EQ(NumberOfFailure([&] { list.SetItem(index, 1); }), 9) << index;
        EXPECT_EQ(NumberOfFailure([&] { (void)list.Selected(index); }), 9) << index;
        EXPECT_EQ(NumberOfFailure([&] { list.SetSelected(index, true); }), 9) << index;
    }
}

TEST(PlainList, RemoveByValueOfAnAbsentValueLeavesDirtyAsItWas) {
    LongArrayList list = NumbersUpTo(3);
    list.SetDirty(false);
    list.RemoveByValue(4);
    EXPECT_FALSE(list.Dirty());
    EXPECT_EQ(list.Count(), 3);
    list.RemoveByValue(2);
    EXPECT_TRUE(list.Dirty());
    EXPECT_EQ(Items(list), (Numbers{1, 3}));
}

TEST(PlainList, ItemWriteSetsDirtyAndSelectedWriteDoesNot) {
    LongArrayList list = NumbersUpTo(2);
    list.SetDirty(false);
    list.SetSelected(1, true);
    EXPECT_FALSE(list.Dirty());
    list.SetItem(1, 5);
    EXPECT_TRUE(list.Dirty());
    EXPECT_TRUE(list.Selected(1));
}

TEST(PlainList, ClearEmptiesEverySlotAndClearsDirty) {
    LongArrayList list = NumbersUpTo(25);
    list.SetSelected(1, true);
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Capacity(), 10);
    EXPECT_FALSE(list.Dirty());
    EXPECT_EQ(list.Item(1), 0);
    EXPECT_FALSE(list.Selected(1));
}

struct MoveCase {
    std::int32_t From;
    std::int32_t To;
    Numbers Expected;
};

TEST(PlainList, MoveItemShiftsWhatLiesBetweenAndKeepsTheFlag) {
    const MoveCase cases[] = {
        {1, 3, {2, 3, 1}},
        {3, 1, {3, 1, 2}},
        {1, 2, {2, 1, 3}},
        {2, 3, {1, 3, 2}},
    };
    for (const MoveCase& row : cases) {
        LongArrayList list = NumbersUpTo(3);
        list.SetSelected(row.From, true);
        list.SetDirty(false);
        list.MoveItem(row.From, row.To);
        EXPECT_EQ(Items(list), row.Expected) << row.From << " to " << row.To;
        EXPECT_TRUE(list.Selected(row.To));
        EXPECT_EQ(list.SelectedCount(), 1);
        EXPECT_TRUE(list.Dirty());
    }
}

TEST(PlainList, RangeIsWhatCountSaysAndNotTheStaleSlotsAfterIt) {
    LongArrayList list;
    for (const std::int32_t number : {1, 2, 3}) {
        list.Add(number);
    }
    list.Remove(1);
    EXPECT_THAT(std::vector<std::int32_t>(list.begin(), list.end()), testing::ElementsAre(2, 3));
    EXPECT_EQ(LongArrayList().begin(), LongArrayList().end());
}

TEST(PlainList, MoveItemToItsOwnPlaceDoesNotSetDirty) {
    LongArrayList list = NumbersUpTo(3);
    list.SetDirty(false);
    list.MoveItem(2, 2);
    EXPECT_FALSE(list.Dirty());
}

TEST(PlainList, MoveItemFromOutsideTheCapacityIsLogged) {
    const test::CapturedLog log;
    LongArrayList list = NumbersUpTo(3);
    list.MoveItem(11, 1);
    EXPECT_EQ(Items(list), (Numbers{1, 2, 3}));
    EXPECT_TRUE(log.Contains("9 - Subscript out of range#LongArrayList::MoveItem"));
}

TEST(ArrayList, ValuesAreSearchedByTheirTextsWithoutRegardToCase) {
    ArrayList list;
    list.Add("Alpha");
    list.Add(12);
    list.Add(true);
    EXPECT_EQ(list.IndexOfValue("ALPHA"), 1);
    EXPECT_EQ(list.IndexOfValue("12"), 2);
    EXPECT_EQ(list.IndexOfValue(12), 2);
    EXPECT_EQ(list.IndexOfValue("true"), 3);
    EXPECT_EQ(list.IndexOfValue("Beta"), -1);
    EXPECT_FALSE(list.ContainsValue(13));
}

/// What a script may keep: an object, or a value of a kind that lists do not know.
class Kept : public HeldValue {
public:
    explicit Kept(std::optional<const void*> object) : m_object(object) {}
    std::string AsText() const override { return "Collection"; }
    std::optional<const void*> ObjectIdentity() const override { return m_object; }

private:
    std::optional<const void*> m_object;
};

Variant KeptValue(std::optional<const void*> object) {
    return std::shared_ptr<const HeldValue>(std::make_shared<Kept>(object));
}

TEST(ArrayList, ObjectsAreSearchedByIdentityAmongObjectsOnly) {
    const int objects[3] = {};
    ArrayList list;
    list.Add("collection");
    list.Add(KeptValue(&objects[0]));
    list.Add(KeptValue(&objects[1]));
    list.Add(KeptValue(nullptr));
    EXPECT_EQ(list.IndexOfValue(KeptValue(&objects[0])), 2);
    EXPECT_EQ(list.IndexOfValue(KeptValue(&objects[1])), 3);
    EXPECT_EQ(list.IndexOfValue(KeptValue(&objects[2])), -1);
    EXPECT_EQ(list.IndexOfValue(KeptValue(nullptr)), 4);
    list.Remove(1);
    EXPECT_EQ(list.IndexOfValue("Collection"), -1) << "a text is not looked for among objects";
    EXPECT_EQ(list.IndexOfValue(KeptValue(std::nullopt)), -1);
}

TEST(ArrayList, HeldValuesThatAreNotObjectsGoByTheirTexts) {
    ArrayList list;
    list.Add(KeptValue(std::nullopt));
    EXPECT_EQ(list.IndexOfValue("collection"), 1);
    EXPECT_EQ(list.IndexOfValue(KeptValue(std::nullopt)), 1);
}

TEST(ObjectArrayList, ObjectsAreSearchedByIdentityAndComeBackAsTheSameObject) {
    const auto one = std::make_shared<std::string>("x");
    const auto other = std::make_shared<std::string>("x");
    ObjectArrayList<std::string> list;
    list.Add(one);
    EXPECT_EQ(list.IndexOfValue(one), 1);
    EXPECT_EQ(list.IndexOfValue(other), -1);
    EXPECT_EQ(list.Item(1).get(), one.get());
    EXPECT_EQ(list.Item(2), nullptr);
}

TEST(ObjectArrayList, RemoveOfTheLastElementReleasesTheObject) {
    const auto object = std::make_shared<std::string>("x");
    ObjectArrayList<std::string> list;
    list.Add(object);
    EXPECT_EQ(object.use_count(), 2);
    list.Remove(1);
    EXPECT_EQ(object.use_count(), 1);
}

}  // namespace
}  // namespace dorvik
