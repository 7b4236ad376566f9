#include "BuiltinCalls.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

using namespace sample;

namespace {

struct FormatCase {
    Value Expression;
    std::string_view Pattern;
    std::string_view Expected;
};

void ExpectFormats(std::initializer_list<FormatCase> cases) {
    for (const FormatCase& row : cases) {
        EXPECT_EQ(
            ShownOrError([&] {
                return CallBuiltin("Format", {row.Expression, X(row.Pattern)});
            }),
            "String " + std::string(row.Expected))
            << Shown(row.Expression) << " by " << row.Pattern;
    }
}

}  // namespace

TEST(FormatFunctions, WithoutAPatternTheTextIsThatOfCStr) {
    ExpectCalls({
        {"Format", {D(0.5)}, "String 0.5"},
        {"Format", {D(-0.5)}, "String -0.5"},
        {"Format", {B(true)}, "String True"},
        {"Format", {X("abc")}, "String abc"},
        {"Format", {E()}, "String "},
        {"Format", {N()}, "String "},
        {"Format", {At("1/31/2000 17:30")}, "String 1/31/2000 5:30:00 PM"},
        {"Format", {D(5), X("")}, "String 5"},
        {"Format", {Value::Error(5)}, "error 13"},
        {"Format$", {D(5), X("0.0")}, "String 5.0"},
        {"Format$", {N()}, "error 94"},
        {"Format$", {N(), X("0")}, "error 94"},
        {"Format$", {N(), X("0;;;none")}, "String none"},
        {"Format", {D(5), N()}, "error 94"},
    });
}

TEST(FormatFunctions, NamedNumericFormats) {
    ExpectFormats({
        {D(1234.567), "General Number", "1234.567"},
        {B(true), "general number", "-1"},
        {D(1234.567), "Currency", "$1,234.57"},
        {D(-1234.567), "Currency", "($1,234.57)"},
        {D(0.5), "Currency", "$0.50"},
        {D(1234.567), "Fixed", "1234.57"},
        {D(-0.5), "Fixed", "-0.50"},
        {D(1234.567), "Standard", "1,234.57"},
        {D(-1234567.891), "standard", "-1,234,567.89"},
        {D(0.1234), "Percent", "12.34%"},
        {D(1234.567), "Scientific", "1.23E+03"},
        {D(0.00012345), "Scientific", "1.23E-04"},
        {I(0), "Scientific", "0.00E+00"},
        {I(1), "Yes/No", "Yes"},
        {I(-1), "Yes/No", "Yes"},
        {I(0), "Yes/No", "No"},
        {I(5), "True/False", "True"},
        {I(0), "True/False", "False"},
        {B(true), "On/Off", "On"},
        {D(0), "on/off", "Off"},
        {X("12.5"), "Fixed", "12.50"},
        {X("abc"), "Fixed", "abc"},
        {N(), "Fixed", ""},
    });
}

TEST(FormatFunctions, DigitsAndPoint) {
    ExpectFormats({
        {D(5), "0", "5"},
        {D(5), "000", "005"},
        {D(1234), "0", "1234"},
        {D(5), "#", "5"},
        {D(0), "#", ""},
        {D(0), "0", "0"},
        {D(0.5), "0.00", "0.50"},
        {D(0.5), "#.##", ".5"},
        {D(5), "0.##", "5."},
        {D(5.25), "0.0#", "5.25"},
        {D(5.2), "0.0#", "5.2"},
        {D(5.25), ".00", "5.25"},
        {D(1234.5), "0.0#0", "1234.500"},
        {D(12), "#0#", "12"},
        {D(1), "0#", "01"},
        {D(1e20), "0", "100000000000000000000"},
        {D(-5), "0.00", "-5.00"},
        {E(), "0.00", "0.00"},
        {B(true), "0", "-1"},
        {X("7"), "000", "007"},
        {X("abc"), "0.00", "abc"},
        {M("12345678901234567890.125"), "0.00", "12345678901234567890.13"},
        {C(12345), "0.00", "1.23"},
        {T(1.5), "0.0", "1.5"},
    });
}

TEST(FormatFunctions, HalvesRoundAwayFromZero) {
    ExpectFormats({
        {D(0.5), "0", "1"},
        {D(1.5), "0", "2"},
        {D(2.5), "0", "3"},
        {D(-2.5), "0", "-3"},
        {D(0.285), "0.00", "0.29"},
        {D(2.345), "0.00", "2.35"},
        {D(9.995), "0.00", "10.00"},
        {D(0.004), "0.00", "0.00"},
    });
}

TEST(FormatFunctions, ThousandsAndScaling) {
    ExpectFormats({
        {D(1234567), "#,##0", "1,234,567"},
        {D(123), "#,##0", "123"},
        {D(0), "#,##0.00", "0.00"},
        {D(1234567), "0,0", "1,234,567"},
        {D(5), "0,000", "0,005"},
        {D(1234567), "#,##0,", "1,235"},
        {D(1234567), "0,.0", "1234.6"},
        {D(1234567890), "#,,", "1235"},
        {D(0.1256), "0%", "13%"},
        {D(0.1256), "0.0%", "12.6%"},
        {D(0.5), "0.0%%", "5000.0%%"},
    });
}

TEST(FormatFunctions, Exponents) {
    ExpectFormats({
        {D(12345), "0.00E+00", "1.23E+04"},
        {D(12345), "0.00E-00", "1.23E04"},
        {D(0.012), "0.0E-0", "1.2E-2"},
        {D(12345), "00.0e+0", "12.3e+3"},
        {D(9.996), "0.00E+00", "1.00E+01"},
        {D(-12345), "0.0E+0", "-1.2E+4"},
        {D(1e-300), "0E+0", "1E-300"},
    });
}

TEST(FormatFunctions, SectionsAndLiterals) {
    ExpectFormats({
        {D(5), "0.0;(0.0);zero", "5.0"},
        {D(-5), "0.0;(0.0);zero", "(5.0)"},
        {D(0), "0.0;(0.0);\\z\\e\\r\\o", "zero"},
        {D(0), "0.0;(0.0)", "0.0"},
        {D(-5), "0.0;;\"nil\"", "-5.0"},
        {D(0), "0.0;-0.0;", "0.0"},
        {N(), "0;0;0;\"none\"", "none"},
        {N(), "0;0;0", ""},
        {D(5), "\"Rule \"0", "Rule 5"},
        {D(5), "0\" items; all\"", "5 items; all"},
        {D(5), "\\#0", "#5"},
        {D(5), "$0.00 (+-)", "$5.00 (+-)"},
        {D(2125551234), "(000) 000-0000", "(212) 555-1234"},
        {D(12), "0-0-0", "0-1-2"},
        {D(5), "\"text\"", "text"},
        {D(5), "\"0", "0"},
    });
}

TEST(FormatFunctions, NamedDateFormats) {
    const Value date = At("1/5/2000 17:08:09");
    ExpectFormats({
        {date, "General Date", "1/5/2000 5:08:09 PM"},
        {date, "Long Date", "Wednesday, January 5, 2000"},
        {date, "Medium Date", "05-Jan-00"},
        {date, "Short Date", "1/5/2000"},
        {date, "Long Time", "5:08:09 PM"},
        {date, "Medium Time", "05:08 PM"},
        {date, "short time", "17:08"},
        {X("1/5/2000"), "Medium Date", "05-Jan-00"},
        {X("abc"), "Short Date", "abc"},
        {L(36530), "Short Date", "1/5/2000"},
    });
}

TEST(FormatFunctions, DatePatterns) {
    const Value date = At("1/5/2000 17:08:09");
    const Value morning = At("11/25/1999 00:30:00");
    ExpectFormats({
        {date, "c", "1/5/2000 5:08:09 PM"},
        {date, "d", "5"},
        {date, "dd", "05"},
        {date, "ddd", "Wed"},
        {date, "dddd", "Wednesday"},
        {date, "ddddd", "1/5/2000"},
        {date, "dddddd", "Wednesday, January 5, 2000"},
        {date, "w", "4"},
        {date, "ww", "2"},
        {date, "m", "1"},
        {date, "mm", "01"},
        {date, "mmm", "Jan"},
        {date, "mmmm", "January"},
        {date, "q", "1"},
        {date, "y", "5"},
        {date, "yy", "00"},
        {date, "yyyy", "2000"},
        {date, "YYYY-MM-DD", "2000-01-05"},
        {date, "h", "17"},
        {date, "hh:mm", "17:08"},
        {date, "h:m:s", "17:8:9"},
        {date, "hh\"h \"mm", "17h 08"},
        {date, "n", "8"},
        {date, "nn", "08"},
        {date, "ss", "09"},
        {date, "mm/dd hh:mm", "01/05 17:08"},
        {date, "hh:nn:ss m", "17:08:09 1"},
        {date, "ttttt", "5:08:09 PM"},
        {date, "hh:mm AM/PM", "05:08 PM"},
        {date, "h am/pm", "5 pm"},
        {date, "h A/P", "5 P"},
        {date, "h a/p", "5 p"},
        {date, "h AMPM", "5 PM"},
        {morning, "h:nn AM/PM", "12:30 AM"},
        {morning, "h:nn", "0:30"},
        {morning, "dd.mm.yyyy", "25.11.1999"},
        {date, "yyyy\\mdd", "2000m05"},
        {D(0.5), "hh:nn", "12:00"},
        {X("5:15 PM"), "hh:nn", "17:15"},
        {N(), "yyyy", ""},
    });
    ExpectCalls({
        {"Format", {date, X("w"), I(2)}, "String 3"},
        {"Format", {At("1/1/2000"), X("ww"), I(2), I(2)}, "String 52"},
        {"Format", {date, X("ww"), I(9)}, "error 5"},
        {"Format", {D(1e10), X("yyyy")}, "error 6"},
    });
}

TEST(FormatFunctions, TextPatterns) {
    ExpectFormats({
        {X("abc"), "@@@@@", "  abc"},
        {X("abc"), "&&&&&", "abc"},
        {X("abc"), "!@@@@@", "abc  "},
        {X("abc"), "!&&&&&x", "abcx"},
        {X("1234567"), "@@@-@@@@", "123-4567"},
        {X("123456789"), "@@@-@@@@", "12345-6789"},
        {X("12345"), "@@@-@@@@", "  1-2345"},
        {X("12345"), "!@@@-@@@@", "123-45  "},
        {X("abcdef"), "!@@@", "abcdef"},
        {X("aBc"), ">", "ABC"},
        {X("aBc"), "<", "abc"},
        {X("aBc"), ">@@@@@", "  ABC"},
        {X("a\u00e4"), ">@@@", " A\u00c4"},
        {I(5), "@@@", "  5"},
        {X(""), "@@;empty", "empty"},
        {N(), "@@;empty", "empty"},
        {X(""), "@@", "  "},
        {X("ab"), "@@;empty", "ab"},
        {X("ab"), "\\@@@", "@ab"},
        {At("1/5/2000"), "@@@@@@@@@@", "  1/5/2000"},
    });
}

TEST(FormatFunctions, FormatNumberAndItsRelatives) {
    ExpectCalls({
        {"FormatNumber", {D(1234.567)}, "String 1,234.57"},
        {"FormatNumber", {D(-1234.567)}, "String -1,234.57"},
        {"FormatNumber", {D(1234.5), I(0)}, "String 1,235"},
        {"FormatNumber", {D(1234.567), I(1)}, "String 1,234.6"},
        {"FormatNumber", {D(0.5), I(2), I(0)}, "String .50"},
        {"FormatNumber", {D(0.5), I(2), I(-1)}, "String 0.50"},
        {"FormatNumber", {D(-5), I(0), I(-2), I(-1)}, "String (5)"},
        {"FormatNumber", {D(1234), I(0), I(-2), I(-2), I(0)}, "String 1234"},
        {"FormatNumber", {D(-0.001)}, "String 0.00"},
        {"FormatNumber", {X("12")}, "String 12.00"},
        {"FormatNumber", {E()}, "String 0.00"},
        {"FormatNumber", {D(5), I(-2)}, "error 5"},
        {"FormatNumber", {D(5), I(100)}, "error 5"},
        {"FormatNumber", {D(5), I(2), I(7)}, "error 5"},
        {"FormatNumber", {X("abc")}, "error 13"},
        {"FormatNumber", {N()}, "error 94"},
        {"FormatCurrency", {D(1234.567)}, "String $1,234.57"},
        {"FormatCurrency", {D(-1234.567)}, "String ($1,234.57)"},
        {"FormatCurrency", {D(-1234.567), I(1), I(-2), I(0)}, "String -$1,234.6"},
        {"FormatPercent", {D(0.1256)}, "String 12.56%"},
        {"FormatPercent", {D(0.1256), I(0)}, "String 13%"},
        {"FormatPercent", {D(-12.5), I(0)}, "String -1,250%"},
    });
}

TEST(FormatFunctions, FormatDateTime) {
    const Value date = At("1/5/2000 17:08:09");
    ExpectCalls({
        {"FormatDateTime", {date}, "String 1/5/2000 5:08:09 PM"},
        {"FormatDateTime", {date, I(0)}, "String 1/5/2000 5:08:09 PM"},
        {"FormatDateTime", {date, I(1)}, "String Wednesday, January 5, 2000"},
        {"FormatDateTime", {date, I(2)}, "String 1/5/2000"},
        {"FormatDateTime", {date, I(3)}, "String 5:08:09 PM"},
        {"FormatDateTime", {date, I(4)}, "String 17:08"},
        {"FormatDateTime", {date, I(5)}, "error 5"},
        {"FormatDateTime", {X("x")}, "error 13"},
        {"FormatDateTime", {N()}, "error 94"},
    });
}

}  // namespace dorvik::basic
