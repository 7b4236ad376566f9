#include "BuiltinCalls.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

using namespace sample;

TEST(InformationFunctions, KindsOfValues) {
    const Value dictionary = CallBuiltin("CreateObject", {X("Scripting.Dictionary")});
    const Value nothing = Value::Object({});
    ExpectCalls({
        {"IsArray", {A({})}, "Boolean True"},
        {"IsArray", {X("a")}, "Boolean False"},
        {"IsDate", {T(1)}, "Boolean True"},
        {"IsDate", {X("1/31/2000")}, "Boolean True"},
        {"IsDate", {X("13:30")}, "Boolean True"},
        {"IsDate", {X("31/1/2000")}, "Boolean True"},
        {"IsDate", {X("32/32/2000")}, "Boolean False"},
        {"IsDate", {X("")}, "Boolean False"},
        {"IsDate", {I(5)}, "Boolean False"},
        {"IsDate", {N()}, "Boolean False"},
        {"IsDate", {E()}, "Boolean False"},
        {"IsDate", {nothing}, "Boolean False"},
        {"IsEmpty", {E()}, "Boolean True"},
        {"IsEmpty", {X("")}, "Boolean False"},
        {"IsError", {Value::Error(5)}, "Boolean True"},
        {"IsError", {I(5)}, "Boolean False"},
        {"IsMissing", {Missing()}, "Boolean True"},
        {"IsMissing", {E()}, "Boolean False"},
        {"IsMissing", {Value::Error(5)}, "Boolean False"},
        {"IsNull", {N()}, "Boolean True"},
        {"IsNull", {E()}, "Boolean False"},
        {"IsNumeric", {I(1)}, "Boolean True"},
        {"IsNumeric", {B(true)}, "Boolean True"},
        {"IsNumeric", {E()}, "Boolean True"},
        {"IsNumeric", {M("1.5")}, "Boolean True"},
        {"IsNumeric", {X(" 1,234.5e2 ")}, "Boolean True"},
        {"IsNumeric", {X("&HFF")}, "Boolean True"},
        {"IsNumeric", {X("12x")}, "Boolean False"},
        {"IsNumeric", {X("")}, "Boolean False"},
        {"IsNumeric", {X("1e999")}, "Boolean False"},
        {"IsNumeric", {T(1)}, "Boolean False"},
        {"IsNumeric", {N()}, "Boolean False"},
        {"IsNumeric", {A({})}, "Boolean False"},
        {"IsNumeric", {dictionary}, "Boolean False"},
        {"IsNumeric", {nothing}, "Boolean False"},
        {"IsObject", {dictionary}, "Boolean True"},
        {"IsObject", {nothing}, "Boolean True"},
        {"IsObject", {X("a")}, "Boolean False"},
    });
}

TEST(InformationFunctions, TypeNameAndVarType) {
    const Value dictionary = CallBuiltin("CreateObject", {X("Scripting.Dictionary")});
    ExpectCalls({
        {"TypeName", {E()}, "String Empty"},
        {"TypeName", {N()}, "String Null"},
        {"TypeName", {I(1)}, "String Integer"},
        {"TypeName", {Value::Object({})}, "String Nothing"},
        {"TypeName", {dictionary}, "String Dictionary"},
        {"TypeName", {Value::Error(5)}, "String Error"},
        {"TypeName", {A({})}, "String Variant()"},
        {"TypeName", {CallBuiltin("Split", {X("a")})}, "String String()"},
        {"VarType", {E()}, "Integer 0"},
        {"VarType", {N()}, "Integer 1"},
        {"VarType", {T(1)}, "Integer 7"},
        {"VarType", {X("")}, "Integer 8"},
        {"VarType", {B(true)}, "Integer 11"},
        {"VarType", {M("1")}, "Integer 14"},
        {"VarType", {Y(1)}, "Integer 17"},
        {"VarType", {A({})}, "Integer 8204"},
    });
}

TEST(InformationFunctions, BoundsOfArrays) {
    ExpectCalls({
        {"LBound", {A({I(1), I(2)})}, "Long 0"},
        {"UBound", {A({I(1), I(2)})}, "Long 1"},
        {"UBound", {A({})}, "Long -1"},
        {"UBound", {A({I(1)}), I(1)}, "Long 0"},
        {"UBound", {A({I(1)}), I(2)}, "error 9"},
        {"UBound", {A({I(1)}), I(0)}, "error 9"},
        {"UBound", {Value::Array(MakeRef<ArrayBody>(DeclaredType(), false))}, "error 9"},
        {"UBound", {X("abc")}, "error 13"},
        {"LBound", {E()}, "error 13"},
    });
}

TEST(InformationFunctions, ErrorTexts) {
    ExpectCalls({
        {"Error", {I(11)}, "String Division by zero"},
        {"Error", {I(1000)}, "String Application-defined or object-defined error"},
        {"Error", {I(0)}, "String "},
        {"Error", {I(-1)}, "error 5"},
        {"Error", {L(65536)}, "error 5"},
        {"Error", {N()}, "Null"},
        {"Error$", {N()}, "error 94"},
        {"Erl", {}, "Long 120"},
    });
    FixedContext context;
    context.Error.Description = "Something";
    EXPECT_EQ(Shown(CallBuiltin(context, "Error", {})), "String Something");
}

TEST(ChoiceFunctions, IIfChooseAndSwitch) {
    ExpectCalls({
        {"IIf", {B(true), I(1), X("b")}, "Integer 1"},
        {"IIf", {I(0), I(1), X("b")}, "String b"},
        {"IIf", {N(), I(1), X("b")}, "String b"},
        {"IIf", {X("x"), I(1), X("b")}, "error 13"},
        {"Choose", {I(2), X("a"), X("b")}, "String b"},
        {"Choose", {D(1.5), X("a"), X("b")}, "String b"},
        {"Choose", {I(0), X("a")}, "Null"},
        {"Choose", {I(2), X("a")}, "Null"},
        {"Choose", {N(), X("a")}, "error 94"},
        {"Switch", {B(false), X("a"), B(true), X("b"), B(true), X("c")}, "String b"},
        {"Switch", {B(false), X("a")}, "Null"},
        {"Switch", {N(), X("a"), I(1), X("b")}, "String b"},
        {"Switch", {}, "Null"},
        {"Switch", {B(true)}, "error 5"},
    });
}

TEST(ChoiceFunctions, PartitionAndColours) {
    ExpectCalls({
        {"Partition", {I(12), I(0), I(100), I(10)}, "String  10: 19"},
        {"Partition", {I(100), I(0), I(100), I(10)}, "String 100:100"},
        {"Partition", {I(101), I(0), I(100), I(10)}, "String 101:   "},
        {"Partition", {I(-5), I(0), I(100), I(10)}, "String    : -1"},
        {"Partition", {I(5), I(5), I(95), I(1)}, "String  5: 5"},
        {"Partition", {N(), I(0), I(100), I(10)}, "Null"},
        {"Partition", {I(5), I(-1), I(100), I(10)}, "error 5"},
        {"Partition", {I(5), I(10), I(10), I(10)}, "error 5"},
        {"Partition", {I(5), I(0), I(10), I(0)}, "error 5"},
        {"RGB", {I(1), I(2), I(3)}, "Long 197121"},
        {"RGB", {I(255), I(300), I(0)}, "Long 65535"},
        {"RGB", {I(-1), I(0), I(0)}, "error 5"},
        {"QBColor", {I(4)}, "Long 128"},
        {"QBColor", {I(15)}, "Long 16777215"},
        {"QBColor", {I(16)}, "error 5"},
    });
}

TEST(ChoiceFunctions, ArrayCopiesWhatItIsGiven) {
    const Value inner = A({I(1)});
    const Value outer = A({inner, X("a")});
    inner.AsArray()->Elements()[0] = I(2);
    EXPECT_EQ(ShownWhole(outer), "Variant()[Variant()[1]|a]");
    EXPECT_EQ(ShownWhole(A({})), "Variant()[]");
}

TEST(ChoiceFunctions, ObjectsByNameOfClassAndOfMember) {
    const Value dictionary = CallBuiltin("CreateObject", {X("SCRIPTING.dictionary")});
    ExpectCalls({
        {"CreateObject", {X("Scripting.FileSystemObject")}, "error 429"},
        {"CreateObject", {X("")}, "error 429"},
        {"CallByName", {dictionary, X("Item"), I(4), X("a"), I(5)}, "Empty"},
        {"CallByName", {dictionary, X("ITEM"), I(2), X("a")}, "Integer 5"},
        {"CallByName", {dictionary, X("Remove"), I(1), X("a")}, "Empty"},
        {"CallByName", {dictionary, X("Count"), I(2)}, "Long 0"},
        {"CallByName", {dictionary, X("Nope"), I(2)}, "error 438"},
        {"CallByName", {dictionary, X("Count"), I(3)}, "error 5"},
        {"CallByName", {dictionary, X("CompareMode"), I(4)}, "error 450"},
        {"CallByName", {Value::Object({}), X("Count"), I(2)}, "error 91"},
        {"CallByName", {X("a"), X("Count"), I(2)}, "error 424"},
    });
}

TEST(ChoiceFunctions, DoEventsLetsTheHostBreathe) {
    FixedContext context;
    EXPECT_EQ(Shown(CallBuiltin(context, "DoEvents", {})), "Integer 0");
    EXPECT_EQ(context.Breaths, 1);
}

TEST(RefusedFunctions, RaisePermissionDenied) {
    int refused = 0;
    for (const BuiltinFunction& function : AllBuiltins()) {
        if (!function.IsRefused) {
            continue;
        }
        ++refused;
        const std::vector<Value> arguments(
            static_cast<std::size_t>(function.LeastArguments()), X("1"));
        EXPECT_EQ(ErrorOf([&] { CallBuiltin(function.Name, arguments); }), 70) << function.Name;
    }
    EXPECT_GT(refused, 40);
    for (const std::string_view name :
         {"Dir",
          "CurDir",
          "EOF",
          "LOF",
          "Loc",
          "FreeFile",
          "FileLen",
          "FileDateTime",
          "FileAttr",
          "GetAttr",
          "Shell",
          "AppActivate",
          "SendKeys",
          "MsgBox",
          "InputBox",
          "Environ",
          "Command",
          "GetSetting",
          "GetAllSettings",
          "SaveSetting",
          "DeleteSetting",
          "GetObject",
          "MacroRun",
          "Wait",
          "Kill",
          "FileCopy",
          "MkDir",
          "RmDir",
          "ChDir",
          "ChDrive",
          "SetAttr",
          "DDEInitiate"}) {
        const BuiltinFunction* function = FindBuiltin(name);
        ASSERT_TRUE(function) << name;
        EXPECT_TRUE(function->IsRefused) << name;
    }
}

TEST(RefusedFunctions, TheTextOfAMessageBoxGoesToTheHost) {
    FixedContext context;
    EXPECT_EQ(
        ErrorOf([&] { CallBuiltin(context, "MsgBox", std::vector<Value>{X("Look here")}); }), 70);
    EXPECT_EQ(context.Refused, "Look here");
    EXPECT_EQ(
        ErrorOf([&] { CallBuiltin(context, "InputBox", std::vector<Value>{X("Name?")}); }), 70);
    EXPECT_EQ(context.Refused, "Name?");
}

}  // namespace dorvik::basic
