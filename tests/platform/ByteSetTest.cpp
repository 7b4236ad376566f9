#include "platform/regex/ByteSet.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {
namespace {

TEST(ByteSet, HoldsTheBytesOfATextAndNoOthers) {
    const ByteSet set(std::string_view("a\0\x7F\x80\xFF", 5));
    for (int byte = 0; byte < 256; ++byte) {
        const bool expected =
            byte == 'a' || byte == 0 || byte == 0x7F || byte == 0x80 || byte == 0xFF;
        EXPECT_EQ(set.Contains(static_cast<unsigned char>(byte)), expected) << byte;
    }
}

TEST(ByteSet, ContainsAllLooksAtEveryPartOfTheSet) {
    for (int byte = 0; byte < 256; ++byte) {
        ByteSet one;
        one.Add(static_cast<unsigned char>(byte));
        EXPECT_FALSE(ByteSet().ContainsAll(one)) << byte;
        EXPECT_TRUE(one.ContainsAll(one)) << byte;
        EXPECT_TRUE(one.ContainsAll(ByteSet())) << byte;
        EXPECT_FALSE(one.IsEmpty()) << byte;
    }
    EXPECT_TRUE(ByteSet().IsEmpty());
    EXPECT_TRUE(ByteSet("GoTo Fail").ContainsAll(ByteSet("FaG")));
    EXPECT_FALSE(ByteSet("GoTo Fail").ContainsAll(ByteSet("FaGx")));
}

TEST(ByteSet, AddAllUnitesAndKeepOnlyIntersects) {
    ByteSet set("abc");
    set.AddAll(ByteSet("cd\xE9"));
    EXPECT_EQ(set, ByteSet("abcd\xE9"));
    set.KeepOnly(ByteSet("xd\xE9"
                         "a"));
    EXPECT_EQ(set, ByteSet("ad\xE9"));
}

}  // namespace
}  // namespace dorvik
