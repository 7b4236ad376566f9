#include "platform/host/modEncoding.h"

#include "base/BasicError.h"
#include "base/modUtf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace dorvik {
namespace {

using namespace std::string_literals;

constexpr int kSingleBytePages[] = {
    437, 850, 866, 874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 28591};
constexpr int kDoubleBytePages[] = {932, 936, 949, 950};
const std::string kReplacement = "\uFFFD";

std::vector<int> AllPages() {
    std::vector<int> pages(std::begin(kSingleBytePages), std::end(kSingleBytePages));
    pages.insert(pages.end(), std::begin(kDoubleBytePages), std::end(kDoubleBytePages));
    pages.push_back(65001);
    return pages;
}

std::string AllBytes() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

struct DecodeCase {
    const char* Meaning;
    int CodePage;
    std::string Bytes;
    std::string Text;
};

void ExpectDecoded(const std::vector<DecodeCase>& cases) {
    for (const DecodeCase& row : cases) {
        EXPECT_EQ(modEncoding::Decode(row.Bytes, row.CodePage), row.Text)
            << row.Meaning << ", code page " << row.CodePage;
    }
}

TEST(modEncoding, KnowsItsCodePagesAndNoOthers) {
    for (const int codePage : AllPages()) {
        EXPECT_TRUE(modEncoding::IsKnownCodePage(codePage)) << codePage;
    }
    for (const int codePage : {-1, 0, 1, 1249, 1259, 1200, 20127, 54936}) {
        EXPECT_FALSE(modEncoding::IsKnownCodePage(codePage)) << codePage;
    }
    EXPECT_TRUE(modEncoding::IsKnownCodePage(modEncoding::kDefaultCodePage));
}

TEST(modEncoding, UnknownCodePageRaisesInvalidProcedureCall) {
    for (const std::string& bytes : {""s, "plain"s, "\xE9"s, "\xEF\xBB\xBFx"s, "\xFF\xFEx\0"s}) {
        try {
            modEncoding::Decode(bytes, 12);
            ADD_FAILURE() << "nothing raised";
        } catch (const BasicError& error) {
            EXPECT_EQ(error.Number(), runtimeerror::kInvalidProcedureCall);
        }
        std::string inPlace = bytes;
        EXPECT_THROW(modEncoding::DecodeInPlace(inPlace, 12), BasicError);
    }
}

TEST(modEncoding, AsciiTextComesBackUnchangedInEveryCodePage) {
    std::string ascii = AllBytes().substr(0, 128);
    for (const int codePage : AllPages()) {
        for (std::size_t size = 0; size <= ascii.size(); ++size) {
            ASSERT_EQ(modEncoding::Decode(ascii.substr(0, size), codePage), ascii.substr(0, size))
                << codePage;
        }
    }
}

TEST(modEncoding, DecodesLettersOfEachSingleBytePage) {
    ExpectDecoded({
        {"letters", 437, "\x80\x9C\xE1", "Ç£ß"},
        {"letters", 850, "\x9B\xB8", "ø©"},
        {"letters", 866, "\x8F\xE0\xA8\xA2\xA5\xE2", "Привет"},
        {"letters", 874, "\xA1\xD2", "กา"},
        {"letters", 1250, "\x9A\xF8", "šř"},
        {"letters", 1251, "\xCF\xF0", "Пр"},
        {"letters", 1252, "na\xEFve caf\xE9 \x80 \x93x\x94", "naïve café € “x”"},
        {"letters", 1253, "\xC1\xE1", "Αα"},
        {"letters", 1254, "\xFD\xDE", "ıŞ"},
        {"letters", 1255, "\xF9\xEC", "של"},
        {"letters", 1256, "\xC7\xE1", "ال"},
        {"letters", 1257, "\xE0\xEB", "ąė"},
        {"letters", 1258, "\xF5\xFD", "ơư"},
        {"letters", 28591, "\x80\xE9", "\u0080é"},
    });
}

TEST(modEncoding, BytesUndefinedInWindows1252BecomeTheControlOfTheSameNumber) {
    ExpectDecoded({
        {"81",
         1252,
         "a\x81"
         "b",
         "a\u0081b"},
        {"8D", 1252, "\x8D", "\u008D"},
        {"8F", 1252, "\x8F", "\u008F"},
        {"90", 1252, "\x90", "\u0090"},
        {"9D", 1252, "\x9D", "\u009D"},
        {"AA of the Greek page", 1253, "\xAA", "\u00AA"},
        {"DB of the Thai page", 874, "\xDB", "\u00DB"},
        {"D9 of the Hebrew page", 1255, "\xD9", "\u00D9"},
    });
}

TEST(modEncoding, EveryByteOfASingleBytePageIsOneCharacterOfItsOwn) {
    for (const int codePage : kSingleBytePages) {
        const std::string text = modEncoding::Decode(AllBytes(), codePage);
        EXPECT_TRUE(modUtf8::IsValid(text)) << codePage;
        EXPECT_EQ(modUtf8::Length(text), 256U) << codePage;
        EXPECT_EQ(text.find(kReplacement), std::string::npos) << codePage;
    }
}

TEST(modEncoding, NonAsciiIsFoundAtEveryPlaceOfATextOfAnyLength) {
    for (std::size_t size = 1; size <= 40; ++size) {
        for (std::size_t place = 0; place < size; ++place) {
            std::string bytes(size, 'x');
            bytes[place] = '\xE9';
            const std::string expected =
                std::string(place, 'x') + "é" + std::string(size - place - 1, 'x');
            ASSERT_EQ(modEncoding::Decode(bytes, 1252), expected);
            modEncoding::DecodeInPlace(bytes, 1252);
            ASSERT_EQ(bytes, expected);
        }
    }
}

TEST(modEncoding, TrailBytesThatLookLikeBracketsUnderscoresAndLettersBelongToTheirCharacter) {
    ExpectDecoded({
        {"backslash", 932, "\x95\x5C\x8E\xA6\x83\x5C\x94\x5C", "表示ソ能"},
        {"bracket", 932, "\x9F\x5B\x81\x5B", "歇ー"},
        {"underscore at the line's end", 932, "x = \x9F\x5F", "x = 歙"},
        {"bar and letter", 932, "\xE0\x7C\x9F\x41", "烟蘗"},
        {"half-width katakana", 932, "\xB1\xB2", "ｱｲ"},
        {"backslash and underscore", 936, "\x81\x5C\x9C\x5F", "乗淿"},
        {"bracket and underscore", 936, "\x82\x5B\x82\x5F", "俒俖"},
        {"letters", 936, "\xC3\x41", "肁"},
        {"Euro sign", 936, "\x80", "€"},
        {"letters", 949, "\x8C\x63\x81\x41", "똠갂"},
        {"backslash", 950, "\xB3\x5C\xA5\x5C\xBB\x5C", "許功蓋"},
        {"bracket and underscore", 950, "\xCE\x5B\xCE\x5F", "垙壴"},
    });
}

TEST(modEncoding, UndecodableBytesOfADoubleBytePageAreReplacedAndTheRestIsKept) {
    ExpectDecoded({
        {"lead byte before a line end", 932, "a\x81\r\nb", "a" + kReplacement + "\r\nb"},
        {"lead byte before a quote", 936, "\"\x81\"", "\"" + kReplacement + "\""},
        {"lead byte at the end", 950, "a\xB3", "a" + kReplacement},
        {"byte that leads nothing", 936, "a\xFF[b", "a" + kReplacement + "[b"},
        {"pair without a character", 950, "\x81\x5B]", kReplacement + "]"},
        {"three bytes that lead nothing",
         949,
         "\xFF\xFF\xFF",
         kReplacement + kReplacement + kReplacement},
    });
}

TEST(modEncoding, PairWithoutACharacterTakesNothingBehindItWithIt) {
    // The C library's converter for 949 has its own way with A2 E8.
    ExpectDecoded({
        {"line end", 949, "a\xA2\xE8\r\nb", "a" + kReplacement + "\r\nb"},
        {"letters", 949, "\xA2\xE8XYZ", kReplacement + "XYZ"},
        {"pair", 949, "\xA2\xE8\x81\x41", kReplacement + "갂"},
    });
}

TEST(modEncoding, EveryPairOfBytesDecodesToValidTextInEveryDoubleBytePage) {
    for (const int codePage : kDoubleBytePages) {
        std::string bytes;
        for (int lead = 0x80; lead < 256; ++lead) {
            for (int trail = 0; trail < 256; ++trail) {
                bytes += static_cast<char>(lead);
                bytes += static_cast<char>(trail);
                bytes += "\r\n";
            }
        }
        const std::string text = modEncoding::Decode(bytes, codePage);
        EXPECT_TRUE(modUtf8::IsValid(text)) << codePage;
        // No pair takes a line end with it: one stands behind each, and the trail byte LF adds more.
        EXPECT_EQ(std::ranges::count(text, '\r'), 128 * 256 + 128) << codePage;
        EXPECT_EQ(std::ranges::count(text, '\n'), 128 * 256 + 128) << codePage;
    }
}

TEST(modEncoding, ByteOrderMarkWinsOverTheCodePageAndIsNeverPartOfTheText) {
    for (const int codePage : {1252, 932, 65001}) {
        ExpectDecoded({
            {"UTF-8",
             codePage,
             "\xEF\xBB\xBF"
             "caf\xC3\xA9",
             "café"},
            {"UTF-8, ASCII text", codePage, "\xEF\xBB\xBFType=Exe", "Type=Exe"},
            {"UTF-16LE",
             codePage,
             "\xFF\xFE"
             "A\0\xE9\0\xAC\x20"s,
             "Aé€"},
            {"UTF-16BE", codePage, "\xFE\xFF\0A\0\xE9\x20\xAC"s, "Aé€"},
            {"UTF-16LE, two units for one character", codePage, "\xFF\xFE\x3D\xD8\x00\xDE"s, "😀"},
            {"UTF-16BE, two units for one character", codePage, "\xFE\xFF\xD8\x3D\xDE\x00"s, "😀"},
            {"UTF-8 mark alone", codePage, "\xEF\xBB\xBF", ""},
            {"UTF-16LE mark alone", codePage, "\xFF\xFE", ""},
            {"UTF-16BE mark alone", codePage, "\xFE\xFF", ""},
        });
    }
}

TEST(modEncoding, BrokenUtf16IsReplacedUnitByUnit) {
    ExpectDecoded({
        {"odd length",
         1252,
         "\xFF\xFE"
         "A\0B"s,
         "A" + kReplacement},
        {"one byte behind the mark", 1252, "\xFE\xFF\x41", kReplacement},
        {"lone high surrogate",
         1252,
         "\xFF\xFE\x3D\xD8"
         "A\0"s,
         kReplacement + "A"},
        {"lone low surrogate", 1252, "\xFE\xFF\xDE\x00\0A"s, kReplacement + "A"},
        {"high surrogate at the end", 1252, "\xFE\xFF\0A\xD8\x3D"s, "A" + kReplacement},
        {"two high surrogates, then a low one",
         1252,
         "\xFE\xFF\xD8\x3D\xD8\x3D\xDE\x00"s,
         kReplacement + "😀"},
        {"half a pair and half a unit", 1252, "\xFE\xFF\xD8\x3D\xDE"s, kReplacement + kReplacement},
    });
}

TEST(modEncoding, BytesThatAreNoUtf8ReadAsWindows1252) {
    ExpectDecoded({
        {"Latin letter", 65001, "caf\xE9 \xC3\xA9", "café é"},
        {"behind a mark",
         1250,
         "\xEF\xBB\xBF"
         "caf\xE9",
         "café"},
        {"cut sequence", 65001, "\xE2\x82", "â‚"},
        {"overlong form", 65001, "\xC0\x80", "À€"},
        {"undefined byte", 65001, "\x81", "\u0081"},
    });
}

TEST(modEncoding, APartOfAByteOrderMarkIsText) {
    ExpectDecoded({
        {"first byte", 1252, "\xEF", "ï"},
        {"two bytes", 1252, "\xEF\xBB", "ï»"},
        {"first byte of UTF-16", 1252, "\xFF", "ÿ"},
        {"mark in the middle", 1252, "x\xFF\xFE", "xÿþ"},
    });
}

TEST(modEncoding, DecodingByPageHeedsNoByteOrderMark) {
    EXPECT_EQ(modEncoding::DecodeByPage("\xFF\xFE.frm", 1252), "ÿþ.frm");
    EXPECT_EQ(modEncoding::DecodeByPage("\xEF\xBB\xBFx", 1252), "ï»¿x");
}

TEST(modEncoding, AnyBytesCutAnywhereDecodeToValidText) {
    const std::vector<std::string> samples = {
        AllBytes(),
        std::string(20, '\0'),
        "\xEF\xBB\xBF"
        "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80",
        "\xFF\xFE"
        "A\0\xE9\0\x3D\xD8\x00\xDE"s,
        "\xFE\xFF\0A\0\xE9\xD8\x3D\xDE\x00"s,
        "' \x95\x5C\x8E\xA6 \x9F\x5F\r\n\xB3\x5C\xA5\x5C"};
    for (const std::string& sample : samples) {
        for (const int codePage : AllPages()) {
            for (std::size_t size = 0; size <= sample.size(); ++size) {
                const std::string bytes = sample.substr(0, size);
                const std::string text = modEncoding::Decode(bytes, codePage);
                ASSERT_TRUE(modUtf8::IsValid(text)) << codePage << ", " << size << " bytes";
                std::string inPlace = bytes;
                modEncoding::DecodeInPlace(inPlace, codePage);
                ASSERT_EQ(inPlace, text) << codePage << ", " << size << " bytes";
            }
        }
    }
}

TEST(modEncoding, DecodingInPlaceLeavesAsciiTextWhereItIs) {
    std::string bytes(100'000, 'x');
    const char* const place = bytes.data();
    modEncoding::DecodeInPlace(bytes, 1252);
    EXPECT_EQ(bytes.data(), place);
    EXPECT_EQ(bytes, std::string(100'000, 'x'));
}

}  // namespace
TEST(modEncoding, EveryByteOfASingleBytePageComesBack) {
    for (const int codePage :
         {437, 850, 866, 874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 28591}) {
        std::string bytes;
        for (int byte = 0; byte < 256; ++byte) {
            bytes += static_cast<char>(byte);
        }
        EXPECT_EQ(
            modEncoding::EncodeByPage(modEncoding::DecodeByPage(bytes, codePage), codePage), bytes)
            << codePage;
    }
}

TEST(modEncoding, EveryCharacterOfADoubleBytePageComesBack) {
    for (const int codePage : {932, 936, 949, 950}) {
        for (int lead = 0x80; lead < 0x100; ++lead) {
            for (int trail = 0; trail < 0x100; ++trail) {
                const std::string text = modEncoding::DecodeByPage(
                    std::string{static_cast<char>(lead), static_cast<char>(trail)}, codePage);
                if (text.find("\xEF\xBF\xBD") == std::string::npos) {
                    const auto bytes = modEncoding::EncodeByPage(text, codePage);
                    ASSERT_TRUE(bytes) << codePage << " " << lead << " " << trail;
                    EXPECT_EQ(modEncoding::DecodeByPage(*bytes, codePage), text);
                }
            }
        }
    }
    EXPECT_EQ(modEncoding::EncodeByPage("\u7E8A", 932), "\xFA\x5C");
    EXPECT_EQ(modEncoding::EncodeByPage("\u3042", 932), "\x82\xA0");
}

TEST(modEncoding, CharacterThatAPageLacksIsNotEncoded) {
    EXPECT_EQ(modEncoding::EncodeByPage("a\u0416", 1252), std::nullopt);
    EXPECT_EQ(modEncoding::EncodeByPage("a\U0001F600", 936), std::nullopt);
    EXPECT_EQ(modEncoding::EncodeByPage("a\uFFFD", 936), std::nullopt);
    EXPECT_EQ(modEncoding::EncodeByPage("a\uFFFD", 1251), std::nullopt);
    EXPECT_EQ(modEncoding::EncodeByPage("a\u0416", 65001), "a\u0416");
    EXPECT_EQ(modEncoding::EncodeByPage("abc", 950), "abc");
}

TEST(modEncoding, Utf16ComesBack) {
    const std::string text = "a\u0416\U0001F600";
    for (const bool isBigEndian : {false, true}) {
        EXPECT_EQ(
            modEncoding::DecodeUtf16(modEncoding::EncodeUtf16(text, isBigEndian), isBigEndian),
            text);
    }
    EXPECT_EQ(modEncoding::EncodeUtf16("a", false), std::string("a\0", 2));
}

}  // namespace dorvik
