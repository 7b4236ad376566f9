#include "base/modUtf8.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {
namespace {

using namespace std::string_literals;
using modUtf8::IsAscii;
using modUtf8::IsValid;
using modUtf8::Left;
using modUtf8::Length;
using modUtf8::Mid;
using modUtf8::WithoutLast;

// "Bühne 木🎭": one, two, three and four bytes a character.
const std::string kMixed = "B\xC3\xBChne \xE6\x9C\xA8\xF0\x9F\x8E\xAD";

TEST(modUtf8, IsAsciiSeesAHighByteAtEveryPosition) {
    for (std::size_t size = 0; size < 40; ++size) {
        EXPECT_TRUE(IsAscii(std::string(size, '\x7F'))) << size;
        for (std::size_t at = 0; at < size; ++at) {
            std::string text(size, 'a');
            text[at] = '\x80';
            EXPECT_FALSE(IsAscii(text)) << size << " " << at;
        }
    }
}

TEST(modUtf8, LengthCountsCharacters) {
    EXPECT_EQ(Length(""), 0U);
    EXPECT_EQ(Length("Bill"), 4U);
    EXPECT_EQ(Length(kMixed), 8U);
    EXPECT_EQ(Length("a\0b"s), 3U);
}

TEST(modUtf8, AByteOfNoValidSequenceCountsAsOneCharacter) {
    EXPECT_EQ(Length("\x80"), 1U);
    EXPECT_EQ(Length("\xC3"), 1U) << "cut off";
    EXPECT_EQ(Length("\xC3("), 2U);
    EXPECT_EQ(Length("\xE6\x9C"), 2U);
    EXPECT_EQ(Length("\xC0\x80"), 2U) << "overlong";
    EXPECT_EQ(Length("\xED\xA0\x80"), 3U) << "surrogate";
    EXPECT_EQ(Length("\xF4\x90\x80\x80"), 4U) << "above U+10FFFF";
    EXPECT_EQ(Length("\xFF\xFE"), 2U);
}

TEST(modUtf8, MidCountsFromOne) {
    EXPECT_EQ(Mid("Customer", 1), "Customer");
    EXPECT_EQ(Mid("Customer", 3, 2), "st");
    EXPECT_EQ(Mid("Customer", 8), "r");
    EXPECT_EQ(Mid("Customer", 9), "");
    EXPECT_EQ(Mid("Customer", 100, 5), "");
    EXPECT_EQ(Mid("Customer", 7, 100), "er");
    EXPECT_EQ(Mid("Customer", 2, 0), "");
    EXPECT_EQ(Mid(kMixed, 2, 1), "\xC3\xBC");
    EXPECT_EQ(Mid(kMixed, 7), "\xE6\x9C\xA8\xF0\x9F\x8E\xAD");
    EXPECT_EQ(Mid(kMixed, 8, 9), "\xF0\x9F\x8E\xAD");
    EXPECT_EQ(Mid(kMixed, 9), "");
    EXPECT_EQ(Mid("", 1), "");
}

TEST(modUtf8, LeftAndWithoutLastCutBetweenCharacters) {
    EXPECT_EQ(Left(kMixed, 0), "");
    EXPECT_EQ(Left(kMixed, 2), "B\xC3\xBC");
    EXPECT_EQ(Left(kMixed, 8), kMixed);
    EXPECT_EQ(Left(kMixed, 99), kMixed);
    EXPECT_EQ(WithoutLast(kMixed, 0), kMixed);
    EXPECT_EQ(WithoutLast(kMixed, 1), "B\xC3\xBChne \xE6\x9C\xA8");
    EXPECT_EQ(WithoutLast(kMixed, 7), "B");
    EXPECT_EQ(WithoutLast(kMixed, 8), "");
    EXPECT_EQ(WithoutLast(kMixed, 99), "");
    EXPECT_EQ(WithoutLast("txtName", 4), "txt");
}

TEST(modUtf8, EveryCharacterComesBackFromItsBytes) {
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF) {
            continue;
        }
        std::string text;
        modUtf8::Append(text, codePoint);
        const modUtf8::Character character = modUtf8::Decode(text, 0);
        ASSERT_EQ(character.CodePoint, codePoint);
        ASSERT_EQ(character.Size, text.size());
        ASSERT_TRUE(character.Valid);
    }
}

TEST(modUtf8, ANumberThatIsNoCharacterBecomesTheReplacementCharacter) {
    for (const char32_t codePoint : {0xD800U, 0xDFFFU, 0x110000U, 0xFFFFFFFFU}) {
        std::string text;
        modUtf8::Append(text, codePoint);
        EXPECT_EQ(text, "\xEF\xBF\xBD");
    }
}

TEST(modUtf8, CodePointOfAStrayByteIsTheReplacementCharacter) {
    EXPECT_EQ(modUtf8::CodePoint("\x9C", 0), U'\uFFFD');
    EXPECT_EQ(modUtf8::CodePoint("a\xE6\x9C", 1), U'\uFFFD');
    EXPECT_EQ(modUtf8::CodePoint(kMixed, 1), U'\u00FC');
}

TEST(modUtf8, AByteOrderMarkIsTakenFromTheFrontOnly) {
    EXPECT_EQ(modUtf8::WithoutByteOrderMark("\xEF\xBB\xBFtext"), "text");
    EXPECT_EQ(modUtf8::WithoutByteOrderMark("te\xEF\xBB\xBFxt"), "te\xEF\xBB\xBFxt");
    EXPECT_EQ(modUtf8::WithoutByteOrderMark("\xEF\xBB"), "\xEF\xBB");
    EXPECT_EQ(modUtf8::WithoutByteOrderMark(""), "");
}

TEST(modUtf8, EveryStrayByteBecomesAReplacementCharacter) {
    EXPECT_EQ(modUtf8::WithValidCharacters("plain"), "plain");
    EXPECT_EQ(modUtf8::WithValidCharacters(kMixed), kMixed);
    EXPECT_EQ(
        modUtf8::WithValidCharacters("a\xE9\xC3\xA9\xE2\x82"),
        "a\xEF\xBF\xBD\xC3\xA9\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(modUtf8::WithValidCharacters(""), "");
}

TEST(modUtf8, IsValidWantsWholeSequences) {
    EXPECT_TRUE(IsValid(""));
    EXPECT_TRUE(IsValid(kMixed));
    EXPECT_TRUE(IsValid("\xEF\xBF\xBD"));
    EXPECT_FALSE(IsValid("abc\xE9"));
    EXPECT_FALSE(IsValid("\xC1\xBF"));
    EXPECT_FALSE(IsValid("\xE0\x9F\xBF"));
    EXPECT_FALSE(IsValid("\xF0\x8F\xBF\xBF"));
}

}  // namespace
}  // namespace dorvik
