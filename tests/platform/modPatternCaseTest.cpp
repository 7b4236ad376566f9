#include "platform/regex/modPatternCase.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(modPatternCase, ComparesTheCapitalsWithThreeExceptions) {
    struct Row {
        char32_t Character;
        char32_t Canonical;
    };
    for (const Row& row : {
             Row{'a', 'A'},
             Row{'Z', 'Z'},
             Row{'1', '1'},
             Row{0xE4, 0xC4},
             Row{0xFF, 0x178},
             Row{0xB5, 0x39C},     // the micro sign
             Row{0x3C2, 0x3A3},    // the sigma at the end of a word
             Row{0xDF, 0xDF},      // the capital would be two letters
             Row{0x1FB3, 0x1FB3},  // the same
             Row{0x1F80, 0x1F80},
             Row{0x17F, 0x17F},  // the capital would be an ASCII letter
             Row{0x131, 0x131},
             Row{0x212A, 0x212A},    // a capital itself
             Row{0x10428, 0x10428},  // above U+FFFF
         }) {
        EXPECT_EQ(modPatternCase::Canonical(row.Character), row.Canonical)
            << std::hex << static_cast<unsigned>(row.Character);
    }
}

TEST(modPatternCase, ASetIsClosedUnderCase) {
    CharacterSet set = CharacterSet::Of('k');
    set.Add(0x3C2);
    CharacterSet expected = CharacterSet::Of('k');
    expected.Add('K');
    for (const char32_t sigma : {0x3A3, 0x3C2, 0x3C3}) {
        expected.Add(sigma);
    }
    EXPECT_EQ(modPatternCase::WithAllCases(set), expected);
}

TEST(modPatternCase, AClosedSetHoldsWhatEqualsOneOfItsCharacters) {
    for (char32_t member = 0; member < 0x600; member += 7) {
        const CharacterSet closed = modPatternCase::WithAllCases(CharacterSet::Of(member));
        for (char32_t each = 0; each < 0x2200; each += 3) {
            const bool isEqual =
                modPatternCase::Canonical(each) == modPatternCase::Canonical(member);
            ASSERT_EQ(closed.Contains(each), isEqual) << static_cast<unsigned>(member);
        }
    }
}

}  // namespace
}  // namespace dorvik
