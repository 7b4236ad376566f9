#include "BuiltinCalls.h"
#include "basic/values/MemoryMeter.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

using namespace sample;

TEST(StringFunctions, LengthCountsCharacters) {
    ExpectCalls({
        {"Len", {X("")}, "Long 0"},
        {"Len", {X("abc")}, "Long 3"},
        {"Len", {X("\u00e4\u20ac")}, "Long 2"},
        {"Len", {X("\U0001F600")}, "Long 1"},
        {"Len", {I(123)}, "Long 3"},
        {"Len", {D(-0.5)}, "Long 4"},
        {"Len", {E()}, "Long 0"},
        {"Len", {B(true)}, "Long 4"},
        {"Len", {N()}, "Null"},
        {"Len", {A({})}, "error 13"},
        {"LenB", {X("abc")}, "Long 6"},
        {"LenB", {X("\u20ac")}, "Long 2"},
        {"LenB", {N()}, "Null"},
    });
}

TEST(StringFunctions, PartsOfText) {
    ExpectCalls({
        {"Left", {X("abc"), I(0)}, "String "},
        {"Left", {X("abc"), I(2)}, "String ab"},
        {"Left", {X("abc"), I(3)}, "String abc"},
        {"Left", {X("abc"), I(99)}, "String abc"},
        {"Left", {X("abc"), I(-1)}, "error 5"},
        {"Left", {X("\u00e4bc"), I(2)}, "String \u00e4b"},
        {"Left", {I(1234), I(2)}, "String 12"},
        {"Left", {X("abcd"), D(2.5)}, "String ab"},
        {"Left", {X("abcd"), D(3.5)}, "String abcd"},
        {"Left", {X("abcd"), X("2")}, "String ab"},
        {"Left", {X("abcd"), X("x")}, "error 13"},
        {"Left", {X("abc"), N()}, "error 94"},
        {"Right", {X("abc"), I(0)}, "String "},
        {"Right", {X("abc"), I(2)}, "String bc"},
        {"Right", {X("abc"), I(3)}, "String abc"},
        {"Right", {X("abc"), I(99)}, "String abc"},
        {"Right", {X("abc"), I(-1)}, "error 5"},
        {"Right", {X("ab\u20ac"), I(1)}, "String \u20ac"},
        {"Mid", {X("abcdef"), I(2)}, "String bcdef"},
        {"Mid", {X("abcdef"), I(2), I(3)}, "String bcd"},
        {"Mid", {X("abcdef"), I(1)}, "String abcdef"},
        {"Mid", {X("abcdef"), I(6), I(9)}, "String f"},
        {"Mid", {X("abcdef"), I(7)}, "String "},
        {"Mid", {X("abcdef"), I(99), I(1)}, "String "},
        {"Mid", {X("abcdef"), I(2), I(0)}, "String "},
        {"Mid", {X("abcdef"), I(0)}, "error 5"},
        {"Mid", {X("abcdef"), I(-1)}, "error 5"},
        {"Mid", {X("abcdef"), I(1), I(-1)}, "error 5"},
        {"Mid", {X("a\u00e4\u20acb"), I(2), I(2)}, "String \u00e4\u20ac"},
        {"Mid", {X("abc"), I(2), Missing()}, "String bc"},
        {"Mid", {E(), I(1), I(1)}, "String "},
    });
}

TEST(StringFunctions, NullGivesNullAndTheDollarFormRaises) {
    for (const std::string_view name :
         {"LCase", "UCase", "LTrim", "RTrim", "Trim", "Chr", "ChrW", "Space"}) {
        ExpectCalls({{name, {N()}, "Null"}, {std::string(name) + "$", {N()}, "error 94"}});
    }
    ExpectCalls({
        {"Left", {N(), I(1)}, "Null"},
        {"Left$", {N(), I(1)}, "error 94"},
        {"Right", {N(), I(1)}, "Null"},
        {"Right$", {N(), I(1)}, "error 94"},
        {"Mid", {N(), I(1)}, "Null"},
        {"Mid$", {N(), I(1), I(1)}, "error 94"},
        {"String", {I(2), N()}, "Null"},
        {"String$", {I(2), N()}, "error 94"},
        {"StrConv", {N(), I(1)}, "Null"},
        {"StrReverse", {N()}, "error 94"},
        {"Asc", {N()}, "error 94"},
        {"Left$", {X("abc"), I(2)}, "String ab"},
        {"Mid$", {X("abc"), I(2), I(1)}, "String b"},
    });
}

TEST(StringFunctions, CaseAndBlanks) {
    ExpectCalls({
        {"UCase", {X("aB\u00e41")}, "String AB\u00c41"},
        {"LCase", {X("aB\u00c41")}, "String ab\u00e41"},
        {"UCase", {I(5)}, "String 5"},
        {"Trim", {X("  a b  ")}, "String a b"},
        {"Trim", {X(" \ta\t ")}, "String \ta\t"},
        {"Trim", {X("   ")}, "String "},
        {"LTrim", {X("  a  ")}, "String a  "},
        {"RTrim", {X("  a  ")}, "String   a"},
        {"StrConv", {X("hello WORLD\tnext"), I(3)}, "String Hello World\tNext"},
        {"StrConv", {X("it's \u00e4rger o-neil"), I(3)}, "String It's \u00c4rger O-neil"},
        {"StrConv", {X("aB"), I(1)}, "String AB"},
        {"StrConv", {X("aB"), I(2)}, "String ab"},
        {"StrConv", {X("aB"), I(4)}, "error 5"},
        {"StrConv", {X("aB"), I(0)}, "error 5"},
        {"StrReverse", {X("abc")}, "String cba"},
        {"StrReverse", {X("a\u00e4\u20ac")}, "String \u20ac\u00e4a"},
        {"StrReverse", {X("")}, "String "},
    });
}

TEST(StringFunctions, RepeatedCharacters) {
    ExpectCalls({
        {"Space", {I(3)}, "String    "},
        {"Space", {I(0)}, "String "},
        {"Space", {I(-1)}, "error 5"},
        {"String", {I(3), X("xy")}, "String xxx"},
        {"String", {I(3), I(65)}, "String AAA"},
        {"String", {I(2), I(321)}, "String AA"},
        {"String", {I(2), X("65")}, "String 66"},
        {"String", {I(2), X("\u20acx")}, "String \u20ac\u20ac"},
        {"String", {I(2), I(128)}, "String \u20ac\u20ac"},
        {"String", {I(0), X("a")}, "String "},
        {"String", {I(-1), X("a")}, "error 5"},
        {"String", {I(1), X("")}, "error 5"},
    });
}

TEST(StringFunctions, CodesOfCharacters) {
    ExpectCalls({
        {"Asc", {X("A")}, "Integer 65"},
        {"Asc", {X("Apple")}, "Integer 65"},
        {"Asc", {X("\u20ac")}, "Integer 128"},
        {"Asc", {X("\u00e4")}, "Integer 228"},
        {"Asc", {X("\u4e00")}, "Integer 63"},
        {"Asc", {X("")}, "error 5"},
        {"AscW", {X("\u20ac")}, "Integer 8364"},
        {"AscW", {X("\uff00")}, "Integer -256"},
        {"AscW", {X("\U0001F600")}, "Integer -10179"},
        {"AscW", {X("")}, "error 5"},
        {"Chr", {I(65)}, "String A"},
        {"Chr", {I(128)}, "String \u20ac"},
        {"Chr", {I(228)}, "String \u00e4"},
        {"Chr", {I(0)}, std::string_view("String \0", 8)},
        {"Chr", {I(-1)}, "error 5"},
        {"Chr", {I(256)}, "error 5"},
        {"ChrW", {I(8364)}, "String \u20ac"},
        {"ChrW", {L(65535)}, "String \uffff"},
        {"ChrW", {I(-256)}, "String \uff00"},
        {"ChrW", {L(65536)}, "error 5"},
        {"ChrW", {L(-32769)}, "error 5"},
    });
}

TEST(StringFunctions, AHalfOfASurrogatePairIsOneCharacter) {
    const Value half = CallBuiltin("ChrW", {L(0xD83D)});
    EXPECT_EQ(Shown(CallBuiltin("Len", {half})), "Long 1");
    EXPECT_EQ(Shown(CallBuiltin("AscW", {half})), "Integer -10179");
    const Value text = X("a" + ToText(half) + "b");
    EXPECT_EQ(Shown(CallBuiltin("Mid", {text, I(3)})), "String b");
    EXPECT_EQ(
        Shown(CallBuiltin("AscW", {CallBuiltin("Mid", {text, I(2), I(1)})})), "Integer -10179");
}

TEST(StringFunctions, AResultBeyondTheStringLimitIsRefusedBeforeItIsMade) {
    ExpectCalls({
        {"String", {L(2000000000), X("x")}, "error 14"},
        {"Space", {L(2000000000)}, "error 14"},
        {"String", {L(2147483647), X("\u20ac")}, "error 14"},
    });
    EXPECT_LT(MemoryMeter::Current().Used(), 1u << 20);
}

}  // namespace dorvik::basic
