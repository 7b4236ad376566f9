#include "basic/values/NumberText.h"

#include "SampleValues.h"
#include "basic/values/NumberInText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace dorvik::basic {

TEST(NumberText, WritesDoublesWith15Digits) {
    struct Case {
        double Number;
        std::string_view Expected;
    };
    const Case cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-1.5, "-1.5"},
        {0.5, "0.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {123456789012345, "123456789012345"},
        {999999999999999, "999999999999999"},
        {1e15, "1E+15"},
        {-1e15, "-1E+15"},
        {1.5e15, "1.5E+15"},
        {999999999999999.9, "1E+15"},
        {1e14, "100000000000000"},
        {123456.789, "123456.789"},
        {1e100, "1E+100"},
        {1.7976931348623157e308, "1.79769313486232E+308"},
        {0.0001, "0.0001"},
        {0.00012345, "0.00012345"},
        {0.000123456789012345, "0.000123456789012345"},
        {0.00001, "0.00001"},
        {0.0000125, "0.0000125"},
        {1.0 / 3000000, "3.33333333333333E-07"},
        {1e-15, "0.000000000000001"},
        {1e-16, "1E-16"},
        {-1.5e-20, "-1.5E-20"},
        {4.9406564584124654e-324, "4.94065645841247E-324"},
        {3.14159265358979312, "3.14159265358979"},
        {100, "100"},
        {1234567.1, "1234567.1"},
    };
    NumberBuffer buffer;
    for (const Case& one : cases) {
        EXPECT_EQ(TextOfDouble(one.Number, buffer), one.Expected);
    }
}

TEST(NumberText, WritesSinglesWith7Digits) {
    struct Case {
        float Number;
        std::string_view Expected;
    };
    const Case cases[] = {
        {0.0F, "0"},
        {0.1F, "0.1"},
        {1.0F / 3, "0.3333333"},
        {1234567.0F, "1234567"},
        {9999999.0F, "9999999"},
        {1e7F, "1E+07"},
        {16777216.0F, "1.677722E+07"},
        {-2.5F, "-2.5"},
        {3.402823466e38F, "3.402823E+38"},
        {0.0001F, "0.0001"},
        {1e-8F, "1E-08"},
        {1.0F / 300000, "3.333333E-06"},
    };
    NumberBuffer buffer;
    for (const Case& one : cases) {
        EXPECT_EQ(TextOfSingle(one.Number, buffer), one.Expected);
    }
}

TEST(NumberText, WritesCurrencyWithUpToFourPlaces) {
    struct Case {
        std::int64_t TenThousandths;
        std::string_view Expected;
    };
    const Case cases[] = {
        {0, "0"},
        {1, "0.0001"},
        {-1, "-0.0001"},
        {10000, "1"},
        {12500, "1.25"},
        {1000000, "100"},
        {std::numeric_limits<std::int64_t>::max(), "922337203685477.5807"},
        {std::numeric_limits<std::int64_t>::min(), "-922337203685477.5808"},
    };
    NumberBuffer buffer;
    for (const Case& one : cases) {
        EXPECT_EQ(TextOfCurrency(one.TenThousandths, buffer), one.Expected);
    }
}

TEST(NumberText, ReadsBackWhatItWrites) {
    NumberBuffer buffer;
    double number = 1e-300;
    for (int i = 0; i < 1000; ++i) {
        number *= 3.9;
        const std::string text(TextOfDouble(number, buffer));
        const double read = DoubleOfText(text);
        EXPECT_NEAR(read / number, 1, 1e-14) << text;
        EXPECT_EQ(TextOfDouble(read, buffer), text);
    }
}

TEST(NumberText, ReadsLongTexts) {
    EXPECT_EQ(DoubleOfText("1" + std::string(300, '0')), 1e300);
    EXPECT_EQ(sample::ErrorOf([] { DoubleOfText(std::string(400, '9')); }), 6);
    EXPECT_EQ(DoubleOfText("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(DoubleOfText("0E99999"), 0);
    EXPECT_EQ(sample::ErrorOf([] { DoubleOfText("1E99999999999999999999"); }), 6);
    EXPECT_EQ(DoubleOfText("1E-99999999999999999999"), 0);
}

TEST(NumberText, KnowsNumericTexts) {
    for (const std::string_view text : {"1", " 1 ", "-1.5", "1E5", "&HFF", "$1", "(1)", "1,000"}) {
        EXPECT_TRUE(IsNumericText(text)) << text;
    }
    for (const std::string_view text : {"", "a", "1a", "1E400", "True", "1/2/2000"}) {
        EXPECT_FALSE(IsNumericText(text)) << text;
    }
}

TEST(NumberText, ReadsHexadecimalAndOctalDigits) {
    EXPECT_EQ(ReadRadixDigits("FF", 4), 255);
    EXPECT_EQ(ReadRadixDigits("8000", 4), -32768);
    EXPECT_EQ(ReadRadixDigits("8000&", 4), 32768);
    EXPECT_EQ(ReadRadixDigits("10000", 4), 65536);
    EXPECT_EQ(ReadRadixDigits("FFFFFFFF", 4), -1);
    EXPECT_EQ(ReadRadixDigits("177777", 3), -1);
    EXPECT_EQ(ReadRadixDigits("8", 3), std::nullopt);
    EXPECT_EQ(ReadRadixDigits("", 4), std::nullopt);
    EXPECT_EQ(ReadRadixDigits("&", 4), std::nullopt);
    EXPECT_EQ(ReadRadixDigits("100000000", 4), std::nullopt);
}

}  // namespace dorvik::basic
