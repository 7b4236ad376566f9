#include "foundation/lists/KeyIndex.h"

#include "foundation/lists/KeyedArrayList.h"
#include "foundation/lists/ObjectKeyedArrayList.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace dorvik {
namespace {

StringArrayList Keys(int count) {
    StringArrayList keys;
    for (int number = 0; number < count; ++number) {
        keys.Add("Key" + std::to_string(number));
    }
    return keys;
}

TEST(KeyIndex, FindsWhatAScanFinds) {
    const StringArrayList keys = Keys(1000);
    KeyIndex index;
    for (int round = 0; round < 3; ++round) {
        for (int number = 0; number < 1000; ++number) {
            ASSERT_EQ(index.Find(keys, "kEY" + std::to_string(number)), number + 1);
        }
        ASSERT_EQ(index.Find(keys, "Key1000"), -1);
        ASSERT_EQ(index.Find(keys, ""), -1);
    }
}

TEST(KeyIndex, ACopyAnswersForItsOwnList) {
    StringArrayList keys = Keys(100);
    KeyIndex index;
    for (int round = 0; round < 100; ++round) {
        index.Find(keys, "Key99");
    }
    KeyIndex copy(index);
    keys.Remove(1);
    EXPECT_EQ(copy.Find(keys, "Key99"), 99);
    copy = index;
    EXPECT_EQ(copy.Find(keys, "Key99"), 99);
}

/// The list beside a plain one that is scanned, through every operation that touches keys.
TEST(KeyIndex, AKeyedListAnswersAsAScanThroughAllChanges) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        std::mt19937 engine(seed);
        const auto number = [&](unsigned below) {
            return static_cast<std::int32_t>(engine() % below);
        };
        const auto key = [&] {
            static const char* const kForms[] = {"key", "KEY", "Ä", "ä", ""};
            return kForms[number(5)] + std::to_string(number(200));
        };
        ObjectKeyedArrayList<int> list;
        StringArrayList scanned;
        for (int step = 0; step < 2000; ++step) {
            const std::int32_t count = list.Count();
            const int operation = number(100);
            if (operation < 30) {
                const std::string text = key();
                list.Add(text, nullptr, false, false);
                scanned.Add(text);
            } else if (operation == 30 && count > 0) {
                const std::int32_t place = number(static_cast<unsigned>(count)) + 1;
                list.Remove(place);
                scanned.Remove(place);
            } else if (operation == 31 && count > 0) {
                const std::int32_t from = number(static_cast<unsigned>(count)) + 1;
                const std::int32_t to = number(static_cast<unsigned>(count)) + 1;
                list.MoveItem(from, to);
                scanned.MoveItem(from, to);
            } else if (operation == 32 && count > 0) {
                const std::int32_t place = number(static_cast<unsigned>(count)) + 1;
                const std::string text = key();
                list.SetKey(place, text);
                scanned.SetItem(place, text);
            } else if (operation == 33 && number(20) == 0) {
                list.Clear();
                scanned.Clear();
            } else {
                const std::string text = key();
                ASSERT_EQ(list.FindIndexByKey(text), scanned.IndexOfValue(text))
                    << "seed " << seed << " step " << step << " key " << text;
            }
        }
    }
}

TEST(KeyIndex, AHundredThousandTestedAdditionsAreFound) {
    KeyedArrayList bag;
    for (int number = 0; number < 100000; ++number) {
        bag.Add("Property" + std::to_string(number), number);
    }
    EXPECT_EQ(bag.Item("property99999").AsLong(), 99999);
    EXPECT_FALSE(bag.Contains("Property100000"));
}

}  // namespace
}  // namespace dorvik
