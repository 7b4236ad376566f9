#include "base/modText.h"

#include "base/BasicError.h"
#include "base/RaisedNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace dorvik {
namespace {

using modText::LeadingNumber;
using modText::RoundToLong;
using modText::Split;
using modText::Trim;
using modText::TrimLeft;
using modText::TrimRight;
using modText::WholeNumber;
using test::NumberRaisedBy;

TEST(modText, TrimmingRemovesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\t a \t"), "\t a \t");
    EXPECT_EQ(Trim(" \ta\t "), "\ta\t");
    EXPECT_EQ(Trim("\xC2\xA0 a"), "\xC2\xA0 a") << "a no-break space is no blank";
    EXPECT_EQ(Trim("    "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(TrimLeft("  a  "), "a  ");
    EXPECT_EQ(TrimRight("  a  "), "  a");
    EXPECT_EQ(TrimRight("  "), "");
    EXPECT_EQ(TrimLeft("  "), "");
}

TEST(modText, SplitGivesOnePartMoreThanSeparators) {
    using Parts = std::vector<std::string_view>;
    EXPECT_EQ(Split("a;b;c", ';'), (Parts{"a", "b", "c"}));
    EXPECT_EQ(Split(";a;", ';'), (Parts{"", "a", ""}));
    EXPECT_EQ(Split("abc", ';'), (Parts{"abc"}));
    EXPECT_EQ(Split("", ';'), (Parts{""}));
}

TEST(modText, JoinPutsTheSeparatorBetweenTheParts) {
    EXPECT_EQ(modText::Join({"a", "", "c"}, "|"), "a||c");
    EXPECT_EQ(modText::Join({"a"}, "|"), "a");
    EXPECT_EQ(modText::Join({"a", "a"}, ", "), "a, a");
    EXPECT_EQ(modText::Join({}, "|"), "");
}

TEST(modText, LeadingNumberStopsAtTheFirstForeignCharacter) {
    struct Row {
        const char* Text;
        double Number;
    };
    for (const Row& row : {
             Row{"", 0},       Row{"abc", 0},      Row{"12abc", 12}, Row{"3.5", 3.5},
             Row{"3,5", 3},    Row{" 1 2 ", 12},   Row{"-4", -4},    Row{"- 4", -4},
             Row{"+4", 4},     Row{"--4", 0},      Row{"+-4", 0},    Row{".5", 0.5},
             Row{"5.", 5},     Row{".", 0},        Row{"-", 0},      Row{"1.2.3", 1.2},
             Row{"1e3", 1000}, Row{"1D-2x", 0.01}, Row{"2e", 2},     Row{"2e+", 2},
             Row{"inf", 0},    Row{"nan", 0},      Row{"0x10", 0},   Row{"1e-999", 0},
             Row{"007", 7},
         }) {
        EXPECT_DOUBLE_EQ(LeadingNumber(row.Text), row.Number) << row.Text;
    }
}

TEST(modText, LeadingLongRoundsTheLeadingNumber) {
    EXPECT_EQ(modText::LeadingLong("12.5 apples"), 12);
    EXPECT_EQ(modText::LeadingLong("-7x"), -7);
    EXPECT_EQ(modText::LeadingLong("none"), 0);
    EXPECT_EQ(NumberRaisedBy([] { modText::LeadingLong("2147483648"); }), runtimeerror::kOverflow);
}

TEST(modText, LeadingNumberTooLargeForADoubleOverflows) {
    EXPECT_EQ(NumberRaisedBy([] { LeadingNumber("1e999"); }), runtimeerror::kOverflow);
    EXPECT_EQ(
        NumberRaisedBy([] { LeadingNumber(std::string(400, '9')); }), runtimeerror::kOverflow);
    EXPECT_EQ(LeadingNumber("0." + std::string(400, '0') + "1"), 0);
}

TEST(modText, WholeNumberWantsNothingElse) {
    EXPECT_EQ(WholeNumber("0"), 0);
    EXPECT_EQ(WholeNumber("-12"), -12);
    EXPECT_EQ(WholeNumber("+12"), 12);
    EXPECT_EQ(WholeNumber("0012"), 12);
    EXPECT_EQ(WholeNumber("2147483647"), 2147483647);
    EXPECT_EQ(WholeNumber("-2147483648"), std::numeric_limits<std::int32_t>::min());
    for (const char* text : {"", "+", "-", "+-1", "1 ", " 1", "1.0", "1a", "2147483648", "&H10"}) {
        EXPECT_EQ(WholeNumber(text), std::nullopt) << text;
    }
}

TEST(modText, RoundToLongRoundsHalvesToEven) {
    EXPECT_EQ(RoundToLong(0.5), 0);
    EXPECT_EQ(RoundToLong(1.5), 2);
    EXPECT_EQ(RoundToLong(2.5), 2);
    EXPECT_EQ(RoundToLong(-0.5), 0);
    EXPECT_EQ(RoundToLong(-1.5), -2);
    EXPECT_EQ(RoundToLong(2.51), 3);
    EXPECT_EQ(RoundToLong(2147483647.4), 2147483647);
    EXPECT_EQ(RoundToLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

TEST(modText, RoundToLongOutside32BitsOverflows) {
    for (const double value : {2147483647.5, 1e300, -2147483649.0, std::nan(""), HUGE_VAL}) {
        EXPECT_EQ(NumberRaisedBy([&] { RoundToLong(value); }), runtimeerror::kOverflow) << value;
    }
}

}  // namespace
}  // namespace dorvik
