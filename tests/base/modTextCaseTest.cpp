#include "base/modTextCase.h"

#include "base/AllocationCount.h"
#include "base/modUtf8.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <random>
#include <string>

namespace dorvik {
namespace {

using namespace std::string_literals;
using modTextCase::Compare;
using modTextCase::EndsWith;
using modTextCase::Equal;
using modTextCase::Find;
using modTextCase::Hash;
using modTextCase::ReplaceAll;
using modTextCase::StartsWith;
using modTextCase::ToLower;
using modTextCase::ToUpper;

constexpr std::size_t kNone = std::string_view::npos;
const std::string kKelvin = "\xE2\x84\xAA";
const std::string kDottedI = "\xC4\xB0";

/// The definition itself, character by character, to hold the fast ways against.
std::u32string Folded(std::string_view text) {
    const std::string lower = ToLower(text);
    std::u32string folded;
    for (std::size_t at = 0; at < lower.size();) {
        const modUtf8::Character character = modUtf8::Decode(lower, at);
        folded += character.Valid ? character.CodePoint
                                  : 0x110000U + static_cast<unsigned char>(lower[at]);
        at += character.Size;
    }
    return folded;
}

/// Short texts of few letters, so that matches are frequent.
std::string RandomText(std::mt19937& random, std::size_t longest) {
    static const std::array<std::string, 14> kPieces{
        "a",
        "A",
        "b",
        "k",
        "K",
        " ",
        "i",
        "\xC3\xA9",
        "\xC3\x89",
        kKelvin,
        kDottedI,
        "\x80",
        "\xE2",
        "@"};
    std::string text;
    for (std::size_t pieces = random() % (longest + 1); pieces > 0; --pieces) {
        text += kPieces.at(random() % kPieces.size());
    }
    return text;
}

TEST(modTextCase, EqualIgnoresCaseOfAllLetters) {
    struct Row {
        const char* Left;
        const char* Right;
        bool IsEqual;
    };
    for (const Row& row : {
             Row{"", "", true},
             Row{"Private Sub", "pRIVATE sUB", true},
             Row{"Private Sub", "Private Su", false},
             Row{"Private Sub", "Private Sug", false},
             Row{"12345678A", "12345678a", true},
             Row{"[", "{", false},
             Row{"@", "`", false},
             Row{"Zz[\\]^_`{|}~@", "zZ[\\]^_`{|}~@", true},
             Row{"M\xC3\x9CLLER", "m\xC3\xBCller", true},
             Row{"M\xC3\x9CLLER", "Muller", false},
             Row{"\xCE\xA3", "\xCF\x83", true},
             Row{"\xCE\xA3", "\xCF\x82", false},  // the final sigma is lower-case already
             Row{"\xD0\x96", "\xD0\xB6", true},
             Row{"\xC3\x97", "\xC3\xB7", false},  // times and divided by are no letters
             Row{"\xE2\x84\xAA", "k", true},
             Row{"\xC5\xBF", "s", false},
             Row{"\xF0\x90\x90\x80", "\xF0\x90\x90\xA8", true},
             Row{"\xC3", "\xE3", false},  // stray bytes are themselves alone
             Row{"\x80", "\x81", false},
             Row{"\x80", "\x80", true},
         }) {
        EXPECT_EQ(Equal(row.Left, row.Right), row.IsEqual) << row.Left << " / " << row.Right;
        EXPECT_EQ(Equal(row.Right, row.Left), row.IsEqual) << row.Right << " / " << row.Left;
        EXPECT_EQ(Compare(row.Left, row.Right) == 0, row.IsEqual) << row.Left << " / " << row.Right;
        if (row.IsEqual) {
            EXPECT_EQ(Hash(row.Left), Hash(row.Right)) << row.Left;
        }
    }
}

TEST(modTextCase, EveryPairOfAsciiCharactersFoldsLettersOnly) {
    for (int left = 0; left < 128; ++left) {
        for (int right = 0; right < 128; ++right) {
            const bool expected = std::tolower(left) == std::tolower(right);
            const std::string padding =
                "1234567";  // so that eight bytes are compared at a time, too
            const std::string leftText = padding + static_cast<char>(left);
            const std::string rightText = padding + static_cast<char>(right);
            ASSERT_EQ(Equal(leftText, rightText), expected) << left << " " << right;
            ASSERT_EQ(Equal(leftText.substr(7), rightText.substr(7)), expected)
                << left << " " << right;
        }
    }
}

TEST(modTextCase, CompareGoesByLowerCaseCodePoints) {
    EXPECT_LT(Compare("Alpha", "beta"), 0);
    EXPECT_GT(Compare("beta", "Alpha"), 0);
    EXPECT_LT(Compare("ab", "ABC"), 0);
    EXPECT_GT(Compare("abc", "AB"), 0);
    EXPECT_LT(Compare("", "a"), 0);
    EXPECT_LT(Compare("_x", "Ax"), 0) << "the underscore stands before lower-case letters";
    EXPECT_LT(Compare("z", "\xC3\x80"), 0);
    EXPECT_LT(Compare("\xEF\xBF\xBD", "\xF0\x90\x90\x80"), 0);
}

TEST(modTextCase, StartsWithAndEndsWith) {
    EXPECT_TRUE(StartsWith("PRIVATE x", "Private "));
    EXPECT_TRUE(StartsWith("x", ""));
    EXPECT_TRUE(StartsWith("", ""));
    EXPECT_FALSE(StartsWith("Priv", "Private"));
    EXPECT_TRUE(StartsWith("\xC3\x84rger", "\xC3\xA4R"));
    EXPECT_FALSE(StartsWith("\xC3\x84rger", "\xC3"));
    EXPECT_TRUE(StartsWith(kKelvin + "elvin", "KEL"));
    EXPECT_TRUE(EndsWith("Form1.FRM", ".frm"));
    EXPECT_TRUE(EndsWith("x", ""));
    EXPECT_FALSE(EndsWith("frm", ".frm"));
    EXPECT_TRUE(EndsWith("caf\xC3\x89", "F\xC3\xA9"));
    EXPECT_FALSE(EndsWith("caf\xC3\xA9", "\xA9"));
    EXPECT_TRUE(EndsWith("10 " + kKelvin, "0 k"));
    EXPECT_TRUE(EndsWith("10 k", "0 " + kKelvin));
    EXPECT_TRUE(EndsWith("k", kKelvin));
}

TEST(modTextCase, FindGivesByteOffsets) {
    EXPECT_EQ(Find("Dim x As Long", " as "), 5U);
    EXPECT_EQ(Find("Dim x As Long", " as ", 6), kNone);
    EXPECT_EQ(Find("aXax", "x", 2), 3U);
    EXPECT_EQ(Find("M\xC3\xBCller, M\xC3\x9CLLER", "\xC3\x9C", 3), 10U);
    EXPECT_EQ(Find("5 " + kKelvin, "K"), 2U);
    EXPECT_EQ(Find(kDottedI + "x", "iX"), 0U);
    EXPECT_EQ(Find("abc", "abcd"), kNone);
    EXPECT_EQ(Find("a\"b", "\""), 1U);
    EXPECT_EQ(Find("abc", "c", 3), kNone);
    EXPECT_EQ(Find("abc", "c", 99), kNone);
}

TEST(modTextCase, AnEmptySoughtTextIsFoundWhereTheSearchBegins) {
    EXPECT_EQ(Find("abc", ""), 0U);
    EXPECT_EQ(Find("abc", "", 2), 2U);
    EXPECT_EQ(Find("abc", "", 3), 3U);
    EXPECT_EQ(Find("abc", "", 4), kNone);
}

TEST(modTextCase, ReplaceAllGoesOnBehindEachReplacement) {
    EXPECT_EQ(ReplaceAll("a.A.a", "a", "aa"), "aa.aa.aa");
    EXPECT_EQ(ReplaceAll("aaa", "AA", "b"), "ba");
    EXPECT_EQ(ReplaceAll("%Name% and %NAME%", "%name%", "x"), "x and x");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAll("", "a", "x"), "");
    EXPECT_EQ(ReplaceAll("abc", "b", ""), "ac");
    EXPECT_EQ(ReplaceAll("1" + kKelvin + "2", "k", "-"), "1-2")
        << "the found letter has three bytes";
}

TEST(modTextCase, ToLowerAndToUpperMapOneCharacterToOne) {
    EXPECT_EQ(ToLower("Private SUB @[`{"), "private sub @[`{");
    EXPECT_EQ(ToUpper("Private sub @[`{"), "PRIVATE SUB @[`{");
    EXPECT_EQ(ToLower("\xC3\x84\xC5\xB8\xD0\x81\xE1\xBA\x9E"), "\xC3\xA4\xC3\xBF\xD1\x91\xC3\x9F");
    EXPECT_EQ(ToUpper("\xC3\xA4\xC3\xBF\xD1\x91"), "\xC3\x84\xC5\xB8\xD0\x81");
    EXPECT_EQ(ToUpper("\xC3\x9F"), "\xC3\x9F") << "no one-character capital";
    EXPECT_EQ(ToUpper("\xE1\xBE\x80"), "\xE1\xBE\x88") << "the capital with an adscript";
    EXPECT_EQ(ToLower(kDottedI), "i");
    EXPECT_EQ(ToLower("A\x80\xC3"), "a\x80\xC3") << "stray bytes stay";
    EXPECT_EQ(ToUpper("a\xE6\x9C\xA8z"), "A\xE6\x9C\xA8Z");
}

TEST(modTextCase, LowerCaseOfAnUpperCaseFormIsStable) {
    int letters = 0;
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF) {
            continue;
        }
        std::string text;
        modUtf8::Append(text, codePoint);
        const std::string lower = ToLower(text);
        ASSERT_EQ(ToLower(lower), lower) << std::hex << static_cast<unsigned>(codePoint);
        ASSERT_EQ(modUtf8::Length(lower), 1U);
        ASSERT_TRUE(Equal(text, lower));
        letters += lower != text ? 1 : 0;
    }
    EXPECT_GT(letters, 1400);
}

TEST(modTextCase, TheFastWaysAgreeWithTheDefinition) {
    std::mt19937 random(20261121);
    for (int round = 0; round < 60000; ++round) {
        const std::string text = RandomText(random, 24);
        const std::string other = RandomText(random, round % 2 == 0 ? 24 : 3);
        const std::u32string foldedText = Folded(text);
        const std::u32string foldedOther = Folded(other);
        ASSERT_EQ(Equal(text, other), foldedText == foldedOther) << text << " / " << other;
        ASSERT_EQ(StartsWith(text, other), foldedText.starts_with(foldedOther))
            << text << " / " << other;
        ASSERT_EQ(EndsWith(text, other), foldedText.ends_with(foldedOther))
            << text << " / " << other;
        const int order = foldedText.compare(foldedOther);
        ASSERT_EQ(Compare(text, other) < 0, order < 0) << text << " / " << other;
        ASSERT_EQ(Compare(text, other) > 0, order > 0) << text << " / " << other;
        const std::size_t found = Find(text, other);
        const std::size_t expected = foldedText.find(foldedOther);
        ASSERT_EQ(found == kNone, expected == kNone) << text << " / " << other;
        if (found != kNone) {
            ASSERT_EQ(modUtf8::Length(text.substr(0, found)), expected) << text << " / " << other;
        }
        if (foldedText == foldedOther) {
            ASSERT_EQ(Hash(text), Hash(other)) << text << " / " << other;
        }
    }
}

/// Long texts are searched piece by piece, ASCII faster than others.
TEST(modTextCase, FindSeesWhatLiesAcrossPiecesOfALongText) {
    for (const std::size_t before : {4090U, 4095U, 4096U, 4097U, 8190U, 12288U}) {
        for (const char* filling : {"x", "\xC3\xA4"}) {
            std::string text;
            while (text.size() < before) {
                text += filling;
            }
            const std::size_t place = text.size();
            text += "m_Count = 1";
            EXPECT_EQ(Find(text, "M_COUNT"), place) << before << filling;
            EXPECT_EQ(Find(text, "M_COUNT", place), place) << before << filling;
            EXPECT_EQ(Find(text, "M_COUNT", place + 1), kNone) << before << filling;
            EXPECT_EQ(Find(text, "M_COUNTS"), kNone) << before << filling;
            EXPECT_EQ(Find(text + kKelvin, "1k"), place + 10) << before << filling;
        }
    }
}

TEST(modTextCase, ComparingAsciiTextDoesNotAllocate) {
    const std::string text = "Private Function CustomerTotal(ByVal Customer As String) As Currency";
    const std::string upper = ToUpper(text);
    const std::size_t before = AllocationCount();
    bool all = Equal(text, upper) && StartsWith(text, "PRIVATE ") && EndsWith(text, " currency");
    all = all && Find(text, " AS ") == 45 && Compare(text, upper) == 0 && Hash(text) == Hash(upper);
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_TRUE(all);
}

TEST(modTextCase, ComparingAccentedTextDoesNotAllocateEither) {
    const std::string text = "Private m_Stra\xC3\x9F"
                             "e\xC3\x84 As String";
    const std::size_t before = AllocationCount();
    const bool all = Equal(text, text) && Find(text, "\xC3\xA4 AS") != kNone &&
                     EndsWith(text, "\xC3\xA4 as string");
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_TRUE(all);
}

}  // namespace
}  // namespace dorvik
