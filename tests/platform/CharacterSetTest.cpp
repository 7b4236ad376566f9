#include "platform/regex/CharacterSet.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using Ranges = std::vector<CharacterSet::Range>;

TEST(CharacterSet, JoinsRangesThatOverlapOrTouch) {
    CharacterSet set;
    set.Add({'g', 'k'});
    set.Add({'a', 'c'});
    set.Add('x');
    EXPECT_EQ(set.Ranges(), (Ranges{{'a', 'c'}, {'g', 'k'}, {'x', 'x'}}));
    set.Add({'d', 'e'});
    EXPECT_EQ(set.Ranges(), (Ranges{{'a', 'e'}, {'g', 'k'}, {'x', 'x'}}));
    set.Add('f');
    EXPECT_EQ(set.Ranges(), (Ranges{{'a', 'k'}, {'x', 'x'}}));
    set.Add({'b', 'c'});
    EXPECT_EQ(set.Ranges(), (Ranges{{'a', 'k'}, {'x', 'x'}}));
    set.Add({0, CharacterSet::kGreatest});
    EXPECT_EQ(set.Ranges(), (Ranges{{0, CharacterSet::kGreatest}}));
}

TEST(CharacterSet, TheComplementHoldsAllOthers) {
    CharacterSet set = CharacterSet::Of('b');
    set.Add(0);
    set.Add(CharacterSet::kGreatest);
    EXPECT_EQ(set.Complement().Ranges(), (Ranges{{1, 'a'}, {'c', CharacterSet::kGreatest - 1}}));
    EXPECT_EQ(set.Complement().Complement(), set);
    EXPECT_EQ(CharacterSet().Complement().Ranges(), (Ranges{{0, CharacterSet::kGreatest}}));
    EXPECT_TRUE(CharacterSet().Complement().Complement().IsEmpty());
}

TEST(CharacterSet, ContainsTheEndsOfItsRanges) {
    CharacterSet set;
    set.Add({'c', 'e'});
    set.Add('g');
    for (char32_t character = 'a'; character <= 'i'; ++character) {
        const bool isIn = (character >= 'c' && character <= 'e') || character == 'g';
        EXPECT_EQ(set.Contains(character), isIn) << static_cast<char>(character);
    }
    EXPECT_FALSE(CharacterSet().Contains('a'));
    EXPECT_TRUE(CharacterSet::Of('g').HoldsOneCharacter());
    EXPECT_FALSE(set.HoldsOneCharacter());
}

}  // namespace
}  // namespace dorvik
