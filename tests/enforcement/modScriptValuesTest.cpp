#include "enforcement/modScriptValues.h"

#include "basic/library/BuiltinLookup.h"
#include "foundation/lists/KeyedArrayList.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

Variant NewDictionary() {
    return modScriptValues::ToVariant(basic::CreateScriptObject("Scripting.Dictionary"));
}

TEST(modScriptValues, ObjectsOfOneClassInABagAreDistinguished) {
    const Variant one = NewDictionary();
    const Variant other = NewDictionary();
    KeyedArrayList bag;
    bag.Add("One", one);
    EXPECT_EQ(bag.IndexOfValue(other), -1);
    EXPECT_EQ(bag.IndexOfValue("Dictionary"), -1);
    bag.Add("Other", other);
    EXPECT_EQ(bag.IndexOfValue(other), 2);
    bag.RemoveByValue(other);
    EXPECT_EQ(bag.Count(), 1);
    EXPECT_EQ(bag.Key(1), "One");
}

TEST(modScriptValues, AnObjectIsTheSameOneEachTimeItComesFromAScript) {
    const basic::Value object = basic::CreateScriptObject("Scripting.Dictionary");
    KeyedArrayList bag;
    bag.Add("One", modScriptValues::ToVariant(object));
    EXPECT_EQ(bag.IndexOfValue(modScriptValues::ToVariant(object)), 1);
}

TEST(modScriptValues, ADateInABagGoesByItsText) {
    KeyedArrayList bag;
    bag.Add("Begun", modScriptValues::ToVariant(basic::Value::Date(36000)));
    EXPECT_EQ(bag.IndexOfValue(modScriptValues::ToVariant(basic::Value::Date(36000))), 1);
    EXPECT_EQ(bag.IndexOfValue(modScriptValues::ToVariant(basic::Value::Date(36001))), -1);
}

}  // namespace
}  // namespace dorvik
