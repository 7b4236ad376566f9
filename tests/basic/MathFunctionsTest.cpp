#include "BuiltinCalls.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

using namespace sample;

TEST(MathFunctions, AbsIntAndFixKeepTheType) {
    ExpectCalls({
        {"Abs", {I(-5)}, "Integer 5"},
        {"Abs", {I(-32768)}, "error 6"},
        {"Abs", {L(-32768)}, "Long 32768"},
        {"Abs", {L(-2147483647 - 1)}, "error 6"},
        {"Abs", {S(-1.5)}, "Single 1.5"},
        {"Abs", {D(-1.5)}, "Double 1.5"},
        {"Abs", {C(-15000)}, "Currency 1.5"},
        {"Abs", {M("-1.5")}, "Decimal 1.5"},
        {"Abs", {Y(5)}, "Byte 5"},
        {"Abs", {X("-3")}, "Double 3"},
        {"Abs", {X("x")}, "error 13"},
        {"Abs", {B(true)}, "Integer 1"},
        {"Abs", {E()}, "Integer 0"},
        {"Abs", {N()}, "Null"},
        {"Int", {D(-1.5)}, "Double -2"},
        {"Int", {D(1.5)}, "Double 1"},
        {"Int", {I(-3)}, "Integer -3"},
        {"Int", {S(-0.5)}, "Single -1"},
        {"Int", {C(-15000)}, "Currency -2"},
        {"Int", {C(-20000)}, "Currency -2"},
        {"Int", {C(15000)}, "Currency 1"},
        {"Int", {C(INT64_MIN)}, "error 6"},
        {"Int", {M("-1.5")}, "Decimal -2"},
        {"Int", {M("1.5")}, "Decimal 1"},
        {"Int", {X("2.7")}, "Double 2"},
        {"Int", {T(1.75)}, "Date 12/31/1899"},
        {"Int", {N()}, "Null"},
        {"Fix", {D(-1.5)}, "Double -1"},
        {"Fix", {D(1.5)}, "Double 1"},
        {"Fix", {C(-15000)}, "Currency -1"},
        {"Fix", {M("-1.5")}, "Decimal -1"},
        {"Fix", {N()}, "Null"},
    });
}

TEST(MathFunctions, RoundTakesHalvesToEvenOnTheDecimalValue) {
    ExpectCalls({
        {"Round", {D(0.5)}, "Double 0"},
        {"Round", {D(1.5)}, "Double 2"},
        {"Round", {D(2.5)}, "Double 2"},
        {"Round", {D(-2.5)}, "Double -2"},
        {"Round", {D(2.675), I(2)}, "Double 2.68"},
        {"Round", {D(2.665), I(2)}, "Double 2.66"},
        {"Round", {D(0.285), I(2)}, "Double 0.28"},
        {"Round", {D(9.995), I(2)}, "Double 10"},
        {"Round", {D(0.05), I(1)}, "Double 0"},
        {"Round", {D(0.051), I(1)}, "Double 0.1"},
        {"Round", {D(123.456), I(0)}, "Double 123"},
        {"Round", {D(123.456), I(5)}, "Double 123.456"},
        {"Round", {D(123.456), L(2147483647)}, "Double 123.456"},
        {"Round", {D(1), I(-1)}, "error 5"},
        {"Round", {S(2.5)}, "Single 2"},
        {"Round", {S(0.125), I(2)}, "Single 0.12"},
        {"Round", {I(7)}, "Integer 7"},
        {"Round", {L(7), I(2)}, "Long 7"},
        {"Round", {C(25000)}, "Currency 2"},
        {"Round", {C(12345), I(3)}, "Currency 1.234"},
        {"Round", {M("2.5")}, "Decimal 2"},
        {"Round", {M("2.35"), I(1)}, "Decimal 2.4"},
        {"Round", {X("3.5")}, "Double 4"},
        {"Round", {N()}, "Null"},
    });
}

TEST(MathFunctions, FunctionsOfDoubles) {
    ExpectCalls({
        {"Sgn", {D(-0.1)}, "Integer -1"},
        {"Sgn", {I(0)}, "Integer 0"},
        {"Sgn", {X("5")}, "Integer 1"},
        {"Sgn", {N()}, "error 94"},
        {"Sqr", {I(9)}, "Double 3"},
        {"Sqr", {I(0)}, "Double 0"},
        {"Sqr", {D(-0.1)}, "error 5"},
        {"Exp", {I(0)}, "Double 1"},
        {"Exp", {D(709.7)}, "Double 1.65498402768026E+308"},
        {"Exp", {D(709.8)}, "error 6"},
        {"Exp", {I(-1000)}, "Double 0"},
        {"Log", {I(1)}, "Double 0"},
        {"Log", {I(0)}, "error 5"},
        {"Log", {I(-1)}, "error 5"},
        {"Sin", {I(0)}, "Double 0"},
        {"Cos", {I(0)}, "Double 1"},
        {"Tan", {I(0)}, "Double 0"},
        {"Atn", {I(1)}, "Double 0.785398163397448"},
        {"Sqr", {N()}, "error 94"},
        {"Sin", {X("x")}, "error 13"},
    });
}

TEST(RandomNumbers, FollowTheGeneratorOfTheFamily) {
    FixedContext context;
    const auto rnd = [&](std::vector<Value> arguments) {
        return Shown(CallBuiltin(context, "Rnd", arguments));
    };
    EXPECT_EQ(rnd({}), "Single 0.7055475");
    EXPECT_EQ(rnd({}), "Single 0.533424");
    EXPECT_EQ(rnd({I(0)}), "Single 0.533424");
    EXPECT_EQ(rnd({I(1)}), "Single 0.5795186");
    const std::string ofMinusOne = rnd({I(-1)});
    EXPECT_EQ(rnd({I(-1)}), ofMinusOne);
    EXPECT_NE(rnd({I(-2)}), ofMinusOne);
}

TEST(RandomNumbers, RandomizeWithTheSameNumberBehindANegativeOneRepeatsTheSequence) {
    const auto sequence = [](Value seed) {
        FixedContext context;
        CallBuiltin(context, "Rnd", {});
        CallBuiltin(context, "Rnd", std::vector<Value>{I(-1)});
        CallBuiltin(context, "Randomize", std::vector<Value>{seed});
        return Shown(CallBuiltin(context, "Rnd", {})) + Shown(CallBuiltin(context, "Rnd", {}));
    };
    EXPECT_EQ(sequence(I(5)), sequence(I(5)));
    EXPECT_NE(sequence(I(5)), sequence(I(6)));
}

TEST(RandomNumbers, RandomizeWithoutANumberChangesNothing) {
    FixedContext context;
    CallBuiltin(context, "Randomize", {});
    EXPECT_EQ(Shown(CallBuiltin(context, "Rnd", {})), "Single 0.7055475");
}

TEST(RandomNumbers, StayBelowOne) {
    FixedContext context;
    for (int i = 0; i < 10'000; ++i) {
        const float number = CallBuiltin(context, "Rnd", {}).AsSingle();
        ASSERT_GE(number, 0.0F);
        ASSERT_LT(number, 1.0F);
    }
}

}  // namespace dorvik::basic
