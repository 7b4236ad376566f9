#include "platform/host/modTextForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>

namespace dorvik {
namespace {

using namespace std::string_literals;
using modTextForm::Recognise;
using modTextForm::TextForm;

const std::string kModule = "Attribute VB_Name = \"modA\"\r\nOption Explicit\r\n' \xE9t\xE9\r\n"
                            "Public Sub Work()\r\n    DoEvents\r\nEnd Sub\r\n";

/// The bytes as units of `size` bytes each; every byte is a character.
std::string Wide(const std::string& bytes, std::size_t size, bool isBigEndian) {
    std::string text;
    for (const char byte : bytes) {
        const std::string zeros(size - 1, '\0');
        text += isBigEndian ? zeros + byte : byte + zeros;
    }
    return text;
}

/// Bytes without any pattern, the same in every run.
std::string Noise(std::size_t length, std::uint32_t state = 4711) {
    std::string bytes(length, '\0');
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return bytes;
}

std::string AllBytesTwice() {
    std::string bytes;
    for (int byte = 0; byte < 512; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

/// The text with that many stray bytes strewn in, at even and at odd places.
std::string Strewn(std::string text, char stray, std::size_t count) {
    for (std::size_t index = 1; index <= count; ++index) {
        text.insert(index * text.size() / (count + 1), 1, stray);
    }
    return text;
}

struct FormRow {
    const char* Name;
    std::string Bytes;
    TextForm Form;
};

void PrintTo(const FormRow& row, std::ostream* out) {
    *out << row.Name;
}

class TextFormOf : public testing::TestWithParam<FormRow> {};

TEST_P(TextFormOf, IsToldByTheBytesAlone) {
    EXPECT_EQ(Recognise(GetParam().Bytes), GetParam().Form);
}

std::string Large() {
    std::string text;
    while (text.size() < 20000) {
        text += kModule;
    }
    return text;
}

// Cyrillic, and Japanese in Shift-JIS and in Chinese GBK: lines of comment, then code.
const std::string k1251 =
    "' \xCF\xF0\xE8\xEC\xE5\xF0 \xEF\xF0\xEE\xE3\xF0\xE0\xEC\xEC\xFB\r\nx = 1\r\n";
const std::string k932 = "' \x83\x5B\x83\x5F\x93\xFA\x96\x7B\x8C\xEA\r\nx = 1\r\n";
const std::string k936 = "' \xD6\xD0\xCE\xC4\xD7\xA2\xCA\xCD\x81\x40\r\nx = 1\r\n";
/// The same kind of comment in UTF-16: three quarters of the units are ideographs.
std::string IdeographsInUtf16() {
    std::string text;
    for (int line = 0; line < 50; ++line) {
        text += "'\0"s;
        for (int character = 0; character < 9; ++character) {
            text += "\x2D\x4E"s;
        }
        text += "\r\0\n\0"s;
    }
    return text;
}

INSTANTIATE_TEST_SUITE_P(
    Text,
    TextFormOf,
    testing::Values(
        FormRow{"Nothing", "", TextForm::Bytes},
        FormRow{"Ascii", "x = 1\r\n", TextForm::Bytes},
        FormRow{"Windows1252", kModule, TextForm::Bytes},
        FormRow{"Windows1251", k1251, TextForm::Bytes},
        FormRow{"ShiftJis", k932, TextForm::Bytes},
        FormRow{"Gbk", k936, TextForm::Bytes},
        FormRow{"Utf8WithMark", "\xEF\xBB\xBF" + kModule, TextForm::Bytes},
        FormRow{"LineDrawingOfDos", std::string(200, '\xC4') + "\r\n", TextForm::Bytes},
        FormRow{"TrailingCtrlZ", kModule + "\x1A", TextForm::Bytes},
        FormRow{"NothingButCtrlZ", "\x1A", TextForm::Bytes},
        FormRow{"PaddedWithCtrlZ", kModule + std::string(300, '\x1A'), TextForm::Bytes},
        FormRow{"PaddedWithNul", kModule + std::string(4096, '\0'), TextForm::Bytes},
        FormRow{"ShortAndPaddedWithOneNul", "End\0"s, TextForm::Bytes},
        FormRow{"ShortAndPaddedWithTwoNuls", "End \0\0"s, TextForm::Bytes},
        FormRow{"ATrailingNul", kModule + "\0"s, TextForm::Bytes},
        FormRow{
            "ABlockOfNulsInTheMiddle",
            kModule + std::string(4096, '\0') + kModule,
            TextForm::Bytes},
        FormRow{"OneNul", Strewn(kModule, '\0', 1), TextForm::Bytes},
        FormRow{"SomeNuls", Strewn(kModule, '\0', 5), TextForm::Bytes},
        FormRow{"SomeNulsInALargeFile", Strewn(Large(), '\0', 200), TextForm::Bytes},
        FormRow{"NulsAtOddPlacesOnly", "x = 1\0\r\nStop\0 \r\nEnd Sub\r\n"s, TextForm::Bytes},
        FormRow{"FormFeeds", Strewn(kModule, '\f', 20), TextForm::Bytes},
        FormRow{"StrayControls", Strewn(Large(), '\x01', 300), TextForm::Bytes},
        FormRow{"FewControlsInAShortFile", "a\1\2\3\4\5b", TextForm::Bytes},
        FormRow{"AFewBytesOfNoiseInALargeFile", Large() + Noise(1000) + Large(), TextForm::Bytes},
        FormRow{"Utf16LittleWithMark", "\xFF\xFE" + Wide(kModule, 2, false), TextForm::Utf16Little},
        FormRow{"Utf16BigWithMark", "\xFE\xFF" + Wide(kModule, 2, true), TextForm::Utf16Big},
        FormRow{"Utf16LittleMarkAlone", "\xFF\xFE", TextForm::Utf16Little},
        FormRow{"Utf16MarkAndANul", "\xFF\xFE\0\0x\0y\0"s, TextForm::Utf16Little},
        FormRow{"Utf16Little", Wide(kModule, 2, false), TextForm::Utf16Little},
        FormRow{"Utf16Big", Wide(kModule, 2, true), TextForm::Utf16Big},
        FormRow{"Utf16LittleShort", Wide("x = 1", 2, false), TextForm::Utf16Little},
        FormRow{"Utf16BigShort", Wide("x = 1", 2, true), TextForm::Utf16Big},
        FormRow{"Utf16WithAnOddByte", Wide(kModule, 2, false) + "x", TextForm::Utf16Little},
        FormRow{
            "Utf16Padded", Wide(kModule, 2, false) + std::string(512, '\0'), TextForm::Utf16Little},
        FormRow{"Utf16WithCtrlZ", Wide(kModule + "\x1A", 2, false), TextForm::Utf16Little},
        FormRow{"Utf16OfIdeographs", IdeographsInUtf16(), TextForm::Utf16Little},
        FormRow{"Utf32LittleWithMark", "\xFF\xFE\0\0"s + Wide(kModule, 4, false), TextForm::Utf32},
        FormRow{"Utf32BigWithMark", "\0\0\xFE\xFF"s + Wide(kModule, 4, true), TextForm::Utf32},
        FormRow{"Utf32Little", Wide(kModule, 4, false), TextForm::Utf32},
        FormRow{"Utf32Big", Wide(kModule, 4, true), TextForm::Utf32},
        FormRow{"Noise", Noise(200000), TextForm::Binary},
        FormRow{"ShortNoise", Noise(512), TextForm::Binary},
        FormRow{"AllBytes", AllBytesTwice(), TextForm::Binary},
        FormRow{"NoiseBehindText", kModule + Noise(20000), TextForm::Binary},
        FormRow{"NothingButNuls", std::string(5000, '\0'), TextForm::Binary},
        FormRow{
            "NumbersOfTwoBytes",
            [] {
                std::string bytes;
                for (int number = 0; number < 600; ++number) {
                    bytes += static_cast<char>(number % 256);
                    bytes += static_cast<char>(number / 256);
                }
                return bytes;
            }(),
            TextForm::Binary},
        FormRow{
            "AProgram",
            "MZ\x90\0\3\0\0\0\4\0\0\0\xFF\xFF\0\0\xB8\0\0\0\0\0\0\0@\0"s + std::string(100, '\0') +
                "This program cannot be run in DOS mode.",
            TextForm::Binary}),
    [](const auto& row) { return row.param.Name; });

TEST(TextForm, OnlyWhatCannotBeReadHasAReason) {
    EXPECT_THAT(std::string(WhyUnreadable(TextForm::Utf32)), testing::HasSubstr("UTF-32"));
    EXPECT_THAT(std::string(WhyUnreadable(TextForm::Binary)), testing::HasSubstr("binary"));
    for (const TextForm form : {TextForm::Bytes, TextForm::Utf16Little, TextForm::Utf16Big}) {
        EXPECT_EQ(WhyUnreadable(form), "");
    }
}

TEST(TextForm, NoNoiseOfAnyLengthIsTakenForWideText) {
    for (std::uint32_t seed = 1; seed <= 300; ++seed) {
        const TextForm form = Recognise(Noise(seed * 7, seed));
        EXPECT_TRUE(form == TextForm::Binary || (form == TextForm::Bytes && seed * 7 < 500))
            << "seed " << seed << " gave " << static_cast<int>(form);
    }
}

}  // namespace
}  // namespace dorvik
