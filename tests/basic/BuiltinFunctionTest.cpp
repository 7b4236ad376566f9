#include "BuiltinCalls.h"
#include "base/modTextCase.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

using namespace sample;

TEST(BuiltinFunction, IsFoundByItsNameInAnyCase) {
    ASSERT_TRUE(FindBuiltin("mid"));
    EXPECT_EQ(FindBuiltin("MID")->Name, "Mid");
    EXPECT_EQ(FindBuiltin("mid$")->Name, "Mid$");
    EXPECT_EQ(FindBuiltin("Mid$")->Result, DeclaredKind::String);
    EXPECT_EQ(FindBuiltin("Mid")->Result, DeclaredKind::Variant);
    EXPECT_FALSE(FindBuiltin("Midd"));
    EXPECT_FALSE(FindBuiltin(""));
    EXPECT_FALSE(FindBuiltin("FV"));
}

TEST(BuiltinFunction, NamesRiseAndNoneStandsTwice) {
    const auto all = AllBuiltins();
    ASSERT_GT(all.size(), 150u);
    for (std::size_t i = 1; i < all.size(); ++i) {
        EXPECT_LT(modTextCase::Compare(all[i - 1].Name, all[i].Name), 0) << all[i].Name;
    }
    for (const BuiltinFunction& function : all) {
        EXPECT_EQ(FindBuiltin(function.Name), &function) << function.Name;
    }
}

TEST(BuiltinFunction, CountsItsArguments) {
    struct Row {
        std::string_view Name;
        int Least;
        int Most;
    };
    for (const Row& row : {
             Row{"Now", 0, 0},
             Row{"Len", 1, 1},
             Row{"Mid", 2, 3},
             Row{"InStr", 2, 4},
             Row{"InStrRev", 2, 4},
             Row{"Replace", 3, 6},
             Row{"Rnd", 0, 1},
             Row{"Array", 0, -1},
             Row{"Choose", 1, -1},
             Row{"CallByName", 3, -1},
             Row{"IIf", 3, 3},
             Row{"Format", 1, 4},
             Row{"DateDiff", 3, 5},
             Row{"FormatNumber", 1, 5},
         }) {
        EXPECT_EQ(FindBuiltin(row.Name)->LeastArguments(), row.Least) << row.Name;
        EXPECT_EQ(FindBuiltin(row.Name)->MostArguments(), row.Most) << row.Name;
    }
}

TEST(BuiltinFunction, EachFormWithADollarHasABareOne) {
    for (const BuiltinFunction& function : AllBuiltins()) {
        if (function.Name.ends_with('$')) {
            const BuiltinFunction* bare =
                FindBuiltin(function.Name.substr(0, function.Name.size() - 1));
            ASSERT_TRUE(bare) << function.Name;
            EXPECT_EQ(bare->Parameters, function.Parameters) << function.Name;
            EXPECT_EQ(function.Result, DeclaredKind::String) << function.Name;
        }
    }
}

TEST(BuiltinConstants, HaveTheirValues) {
    struct Row {
        std::string_view Name;
        std::string_view Expected;
    };
    for (const Row& row : {
             Row{"vbCrLf", "String \r\n"},
             Row{"VBCRLF", "String \r\n"},
             Row{"vbNewLine", "String \r\n"},
             Row{"vbTab", "String \t"},
             Row{"vbNullChar", std::string_view("String \0", 8)},
             Row{"vbNullString", "String "},
             Row{"vbTextCompare", "Long 1"},
             Row{"vbBinaryCompare", "Long 0"},
             Row{"vbString", "Long 8"},
             Row{"vbArray", "Long 8192"},
             Row{"vbObjectError", "Long -2147221504"},
             Row{"vbOK", "Long 1"},
             Row{"vbYesNo", "Long 4"},
             Row{"vbSunday", "Long 1"},
             Row{"vbFirstFourDays", "Long 2"},
             Row{"vbShortTime", "Long 4"},
             Row{"vbProperCase", "Long 3"},
             Row{"vbUseDefault", "Long -2"},
             Row{"vbSet", "Long 8"},
             Row{"vbBlue", "Long 16711680"},
         }) {
        const Value* constant = FindBuiltinConstant(row.Name);
        ASSERT_TRUE(constant) << row.Name;
        EXPECT_EQ(Shown(*constant), row.Expected) << row.Name;
    }
    EXPECT_FALSE(FindBuiltinConstant("vbNope"));
    EXPECT_FALSE(FindBuiltinConstant("x"));
}

}  // namespace dorvik::basic
