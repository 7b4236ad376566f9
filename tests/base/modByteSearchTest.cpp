#include "base/modByteSearch.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace dorvik::modByteSearch {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

TEST(modByteSearch, FindsTheFirstPlaceFromAStartOn) {
    EXPECT_EQ(Find("On Error GoTo Fail", "GoTo"), 9U);
    EXPECT_EQ(Find("abcabc", "abc", 1), 3U);
    EXPECT_EQ(Find("abcabc", "abc", 3), 3U);
    EXPECT_EQ(Find("abcabc", "abc", 4), kNone);
    EXPECT_EQ(Find("aab", "ab"), 1U);
    EXPECT_EQ(Find("abc", "ABC"), kNone);
}

TEST(modByteSearch, AsksForNoMoreThanThereIs) {
    EXPECT_EQ(Find("", "a"), kNone);
    EXPECT_EQ(Find("abc", "abcd"), kNone);
    EXPECT_EQ(Find("abc", "c", 2), 2U);
    EXPECT_EQ(Find("abc", "c", 3), kNone);
    EXPECT_EQ(Find("abc", "c", 99), kNone);
    EXPECT_EQ(Find(std::string_view("a\0b", 3), std::string_view("\0b", 2)), 1U);
}

TEST(modByteSearch, LettersOfWordsAreMoreCommonThanOthers) {
    EXPECT_GT(Commonness('e'), Commonness('q'));
    EXPECT_GT(Commonness('q'), Commonness('\x01'));
    EXPECT_EQ(Commonness('\x01'), Commonness('\xE9'));
}

TEST(modByteSearch, AgreesWithThePlainSearch) {
    std::mt19937 random(4711);
    const auto textOf = [&](std::size_t most) {
        std::string text(random() % (most + 1), ' ');
        for (char& byte : text) {
            byte = "ebZ\xE9"[random() % 4];
        }
        return text;
    };
    for (int round = 0; round < 20000; ++round) {
        const std::string text = textOf(60);
        const std::string sought = "b" + textOf(3);
        const std::size_t from = random() % 62;
        ASSERT_EQ(Find(text, sought, from), text.find(sought, from)) << text << " / " << sought;
    }
}

}  // namespace
}  // namespace dorvik::modByteSearch
