#include "basic/library/DictionaryKeys.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace dorvik::basic {
namespace {

/// A number of any type, or the text that shows it, which is another key.
Value KeyOf(std::int32_t number, std::uint32_t form) {
    switch (form % 8) {
        case 0: return Value::Integer(static_cast<std::int16_t>(number));
        case 1: return Value::Double(number);
        case 2: return Value::Currency(std::int64_t{number} * 10'000);
        case 3: return Value::Text(std::to_string(number));
        default: return Value::Long(number);
    }
}

struct Pair {
    Value Key;
    std::int32_t Item = 0;
};

std::size_t PlaceIn(const std::vector<Pair>& model, const Value& key) {
    for (std::size_t place = 0; place < model.size(); ++place) {
        if (IsSameKey(model[place].Key, key, false)) {
            return place;
        }
    }
    return model.size();
}

void ExpectSame(const DictionaryKeys& keys, const std::vector<Pair>& model) {
    ASSERT_EQ(keys.Count(), model.size());
    std::size_t place = 0;
    for (std::size_t stored = 0; stored < keys.Places(); ++stored) {
        if (!keys.IsAlive(stored)) {
            continue;
        }
        ASSERT_TRUE(IsSameKey(keys.KeyAt(stored), model[place].Key, false));
        ASSERT_EQ(keys.KeyAt(stored).Type(), model[place].Key.Type());
        ASSERT_EQ(keys.ItemAt(stored).AsLong(), model[place].Item);
        ++place;
    }
}

void ExpectFinds(DictionaryKeys& keys, const std::vector<Pair>& model, const Value& key) {
    const std::size_t known = PlaceIn(model, key);
    for (const std::size_t place : {keys.FindAgain(key), keys.Find(key, keys.HashOf(key))}) {
        ASSERT_EQ(place == DictionaryKeys::kNone, known == model.size());
        if (place != DictionaryKeys::kNone) {
            ASSERT_EQ(keys.ItemAt(place).AsLong(), model[known].Item);
        }
    }
}

void SetItem(DictionaryKeys& keys, std::vector<Pair>& model, const Value& key, std::int32_t item) {
    std::size_t place = keys.FindAgain(key);
    if (place == DictionaryKeys::kNone) {
        place = keys.ContinuesRow(key) ? keys.AppendToRow(key)
                                       : keys.Append(key, keys.HashOf(key), true);
        model.push_back({key, 0});
    }
    keys.ItemAt(place) = Value::Long(item);
    model[PlaceIn(model, key)].Item = item;
}

void Remove(DictionaryKeys& keys, std::vector<Pair>& model, const Value& key) {
    const std::size_t place = keys.Find(key, keys.HashOf(key));
    if (place == DictionaryKeys::kNone) {
        return;
    }
    keys.Remove(place);
    model.erase(model.begin() + static_cast<std::ptrdiff_t>(PlaceIn(model, key)));
}

TEST(DictionaryKeys, FindsKeysOfARowThatEndsInAnyWay) {
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        DictionaryKeys keys;
        std::vector<Pair> model;
        const auto first = static_cast<std::int32_t>(random() % 5) - 2;
        const auto size = static_cast<std::int32_t>(random() % 30);
        const std::uint32_t form = seed % 3 == 0 ? 0 : 4;  // Integers or Longs
        for (std::int32_t number = first; number < first + size; ++number) {
            SetItem(keys, model, KeyOf(number, form), number);
        }
        for (int step = 0; step < 120; ++step) {
            const auto number = static_cast<std::int32_t>(random() % 40) - 4;
            const Value key = KeyOf(number, random());
            const std::uint32_t what = random() % 10;
            if (what < 4) {
                SetItem(keys, model, key, step);
            } else if (what < 6) {
                Remove(keys, model, key);
            }
            ExpectFinds(keys, model, KeyOf(number, random()));
        }
        ExpectSame(keys, model);
    }
}

TEST(DictionaryKeys, AKeyBetweenTwoWholeNumbersIsNeither) {
    DictionaryKeys keys;
    std::vector<Pair> model;
    for (std::int32_t number = 0; number < 5; ++number) {
        SetItem(keys, model, Value::Long(number), number);
    }
    EXPECT_EQ(keys.FindAgain(Value::Double(1.5)), DictionaryKeys::kNone);
    EXPECT_EQ(keys.FindAgain(Value::Double(1e300)), DictionaryKeys::kNone);
    EXPECT_EQ(keys.FindAgain(Value::Long(-1)), DictionaryKeys::kNone);
    EXPECT_EQ(keys.FindAgain(Value::Boolean(true)), DictionaryKeys::kNone);  // -1
    EXPECT_EQ(keys.FindAgain(Value()), DictionaryKeys::kNone);
    EXPECT_NE(keys.FindAgain(Value::Boolean(false)), DictionaryKeys::kNone);
    SetItem(keys, model, Value::Double(2.5), 9);
    ExpectSame(keys, model);
    ExpectFinds(keys, model, Value::Long(2));
    ExpectFinds(keys, model, Value::Double(2.5));
}

TEST(DictionaryKeys, ARowKeepsTheTypesOfItsKeys) {
    DictionaryKeys keys;
    std::vector<Pair> model;
    for (std::int32_t number = 32'760; number <= 32'767; ++number) {
        SetItem(keys, model, Value::Integer(static_cast<std::int16_t>(number)), number);
    }
    ExpectSame(keys, model);
    for (std::int32_t number = 32'768; number < 32'780; ++number) {
        SetItem(keys, model, Value::Long(number), number);
    }
    ExpectSame(keys, model);
    ExpectFinds(keys, model, Value::Long(32'767));
    ExpectFinds(keys, model, Value::Double(32'768));
}

TEST(DictionaryKeys, ARowEndsWithTheLargestLong) {
    DictionaryKeys keys;
    std::vector<Pair> model;
    for (std::int32_t number = INT32_MAX - 3; number < INT32_MAX; ++number) {
        SetItem(keys, model, Value::Long(number), 1);
    }
    SetItem(keys, model, Value::Long(INT32_MAX), 2);
    SetItem(keys, model, Value::Long(INT32_MIN), 3);
    SetItem(keys, model, Value::Double(double{INT32_MAX} + 1), 4);
    ExpectSame(keys, model);
    ExpectFinds(keys, model, Value::Long(INT32_MAX));
    ExpectFinds(keys, model, Value::Long(INT32_MIN));
}

TEST(DictionaryKeys, ARowIsChargedForWhatItWouldTakeWithKeys) {
    DictionaryKeys row;
    DictionaryKeys other;
    for (std::int32_t number = 0; number < 1'000; ++number) {
        const Value key = Value::Double(number);
        ASSERT_GE(row.BytesForOneMore(), other.BytesForOneMore()) << number;
        row.AppendToRow(Value::Long(number));
        other.Append(key, other.HashOf(key), true);
    }
}

TEST(DictionaryKeys, AKeyOfARowCanBeRenamed) {
    DictionaryKeys keys;
    std::vector<Pair> model;
    for (std::int32_t number = 1; number <= 5; ++number) {
        SetItem(keys, model, Value::Long(number), number);
    }
    const Value renamed = Value::Text("two");
    keys.Rename(keys.FindAgain(Value::Long(2)), renamed, keys.HashOf(renamed));
    model[1].Key = renamed;
    ExpectSame(keys, model);
    ExpectFinds(keys, model, Value::Long(2));
    ExpectFinds(keys, model, renamed);
    ExpectFinds(keys, model, Value::Long(5));
}

TEST(DictionaryKeys, ARowThatIsAQueueKeepsNoRoomForWhatIsGone) {
    DictionaryKeys keys;
    std::vector<Pair> model;
    for (std::int32_t number = 0; number < 10'000; ++number) {
        SetItem(keys, model, Value::Long(number), number);
        if (number >= 10) {
            Remove(keys, model, Value::Long(number - 10));
        }
    }
    ExpectSame(keys, model);
    EXPECT_LT(keys.Places(), 100U);
}

TEST(DictionaryKeys, AnEmptiedDictionaryBeginsAnew) {
    DictionaryKeys keys;
    std::vector<Pair> model;
    SetItem(keys, model, Value::Text("a"), 1);
    keys.Clear();
    model.clear();
    for (std::int32_t number = 7; number < 12; ++number) {
        SetItem(keys, model, Value::Long(number), number);
    }
    ExpectSame(keys, model);
    ExpectFinds(keys, model, Value::Text("a"));
    ExpectFinds(keys, model, Value::Long(7));
}

}  // namespace
}  // namespace dorvik::basic
