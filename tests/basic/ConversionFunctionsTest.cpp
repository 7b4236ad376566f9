#include "BuiltinCalls.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

using namespace sample;

TEST(ConversionFunctions, Coercions) {
    ExpectCalls({
        {"CBool", {I(0)}, "Boolean False"},
        {"CBool", {D(0.1)}, "Boolean True"},
        {"CBool", {X("tRUE")}, "Boolean True"},
        {"CBool", {X("2")}, "Boolean True"},
        {"CBool", {X("yes")}, "error 13"},
        {"CByte", {D(2.5)}, "Byte 2"},
        {"CByte", {B(true)}, "Byte 255"},
        {"CByte", {I(256)}, "error 6"},
        {"CByte", {I(-1)}, "error 6"},
        {"CInt", {D(0.5)}, "Integer 0"},
        {"CInt", {D(1.5)}, "Integer 2"},
        {"CInt", {D(-2.5)}, "Integer -2"},
        {"CInt", {L(32768)}, "error 6"},
        {"CInt", {X("")}, "error 13"},
        {"CLng", {X("1,234")}, "Long 1234"},
        {"CLng", {D(2147483647.5)}, "error 6"},
        {"CLng", {X("&HFF")}, "Long 255"},
        {"CSng", {D(0.1)}, "Single 0.1"},
        {"CSng", {D(1e39)}, "error 6"},
        {"CDbl", {X(" -1.5E2 ")}, "Double -150"},
        {"CDbl", {X("1.5x")}, "error 13"},
        {"CCur", {D(1.00004)}, "Currency 1"},
        {"CCur", {X("1.23456")}, "Currency 1.2346"},
        {"CDec", {X("79228162514264337593543950335")}, "Decimal 79228162514264337593543950335"},
        {"CDec", {I(5)}, "Decimal 5"},
        {"CDec", {X("x")}, "error 13"},
        {"CDec", {N()}, "error 94"},
        {"CDate", {X("1/31/2000")}, "Date 1/31/2000"},
        {"CDate", {D(-1.25)}, "Date 12/29/1899 6:00:00 AM"},
        {"CDate", {X("no date")}, "error 13"},
        {"CVDate", {I(1)}, "Date 12/31/1899"},
        {"CStr", {D(0.5)}, "String 0.5"},
        {"CStr", {Value::Error(2042)}, "String Error 2042"},
        {"CStr", {Missing()}, "error 13"},
        {"CStr", {B(false)}, "String False"},
        {"CStr", {E()}, "String "},
        {"CStr", {N()}, "error 94"},
        {"CVar", {I(5)}, "Integer 5"},
        {"CVar", {N()}, "Null"},
        {"CVErr", {I(0)}, "Error 0"},
        {"CVErr", {L(65535)}, "Error 65535"},
        {"CVErr", {L(65536)}, "error 5"},
        {"CVErr", {I(-1)}, "error 5"},
    });
    for (const std::string_view name :
         {"CBool", "CByte", "CInt", "CLng", "CSng", "CDbl", "CCur", "CDate"}) {
        ExpectCalls({{name, {N()}, "error 94"}});
    }
}

TEST(ConversionFunctions, ValReadsTheLongestNumberAtTheStart) {
    ExpectCalls({
        {"Val", {X("12abc")}, "Double 12"},
        {"Val", {X(" 1 6 1 5 198th Street")}, "Double 1615198"},
        {"Val", {X("1\t2\n3")}, "Double 123"},
        {"Val", {X("-1.5e2x")}, "Double -150"},
        {"Val", {X("1D2")}, "Double 100"},
        {"Val", {X("1e")}, "Double 1"},
        {"Val", {X("1.2.3")}, "Double 1.2"},
        {"Val", {X("1,234")}, "Double 1"},
        {"Val", {X("$5")}, "Double 0"},
        {"Val", {X(".5")}, "Double 0.5"},
        {"Val", {X("+7")}, "Double 7"},
        {"Val", {X("-")}, "Double 0"},
        {"Val", {X("")}, "Double 0"},
        {"Val", {X("abc")}, "Double 0"},
        {"Val", {X("&HFFFF")}, "Double -1"},
        {"Val", {X("&HFFFF&")}, "Double 65535"},
        {"Val", {X("&h1Fz")}, "Double 31"},
        {"Val", {X("&O17")}, "Double 15"},
        {"Val", {X("&O189")}, "Double 1"},
        {"Val", {X("&H")}, "Double 0"},
        {"Val", {X("1e400")}, "error 6"},
        {"Val", {N()}, "error 94"},
        {"Val", {I(5)}, "Double 5"},
    });
}

TEST(ConversionFunctions, StrHasAPlaceForTheSign) {
    ExpectCalls({
        {"Str", {I(5)}, "String  5"},
        {"Str", {I(-5)}, "String -5"},
        {"Str", {I(0)}, "String  0"},
        {"Str", {D(0.5)}, "String  .5"},
        {"Str", {D(-0.5)}, "String -.5"},
        {"Str", {D(10.5)}, "String  10.5"},
        {"Str", {X("7")}, "String  7"},
        {"Str", {X("x")}, "error 13"},
        {"Str", {E()}, "String  0"},
        {"Str", {B(true)}, "String True"},
        {"Str", {N()}, "Null"},
        {"Str$", {N()}, "error 94"},
        {"Str$", {I(1)}, "String  1"},
    });
}

TEST(ConversionFunctions, HexAndOct) {
    ExpectCalls({
        {"Hex", {I(255)}, "String FF"},
        {"Hex", {I(0)}, "String 0"},
        {"Hex", {I(-1)}, "String FFFF"},
        {"Hex", {L(-1)}, "String FFFFFFFF"},
        {"Hex", {D(-1)}, "String FFFFFFFF"},
        {"Hex", {X("-1")}, "String FFFFFFFF"},
        {"Hex", {D(15.5)}, "String 10"},
        {"Hex", {D(3e9)}, "error 6"},
        {"Hex", {B(true)}, "String FFFF"},
        {"Hex", {Y(255)}, "String FF"},
        {"Hex", {E()}, "String 0"},
        {"Hex", {N()}, "Null"},
        {"Hex$", {N()}, "error 94"},
        {"Oct", {I(8)}, "String 10"},
        {"Oct", {I(-1)}, "String 177777"},
        {"Oct", {L(-1)}, "String 37777777777"},
        {"Oct$", {I(64)}, "String 100"},
        {"Oct", {N()}, "Null"},
    });
}

}  // namespace dorvik::basic
