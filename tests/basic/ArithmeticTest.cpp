#include "SampleValues.h"

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

namespace dorvik::basic {

namespace {

using namespace sample;
using Op = BinaryOperator;

constexpr std::int32_t kLongMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLongMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kCurrencyMax = std::numeric_limits<std::int64_t>::max();

struct ArithmeticCase {
    Value Left;
    Op Operation;
    Value Right;
    std::string_view Expected;
    OperandFacts Facts = kTyped;
};

void ExpectArithmetic(std::initializer_list<ArithmeticCase> cases) {
    for (const ArithmeticCase& one : cases) {
        EXPECT_EQ(
            ShownOrError([&] { return Apply(one.Operation, one.Left, one.Right, one.Facts); }),
            one.Expected)
            << Shown(one.Left) << " operator " << static_cast<int>(one.Operation) << " "
            << Shown(one.Right);
    }
}

}  // namespace

TEST(Arithmetic, OverflowsBetweenTypedOperands) {
    ExpectArithmetic({
        {I(32767), Op::Add, I(1), "error 6"},
        {I(-32768), Op::Subtract, I(1), "error 6"},
        {I(300), Op::Multiply, I(300), "error 6"},
        {Y(255), Op::Add, Y(1), "error 6"},
        {Y(1), Op::Subtract, Y(2), "error 6"},
        {L(kLongMax), Op::Add, L(1), "error 6"},
        {L(kLongMin), Op::Subtract, I(1), "error 6"},
        {L(65536), Op::Multiply, L(65536), "error 6"},
        {S(3e38), Op::Add, S(3e38), "error 6"},
        {D(1e308), Op::Multiply, D(10), "error 6"},
        {D(1e308), Op::Add, D(1e308), "error 6"},
        {D(-1e308), Op::Subtract, D(1e308), "error 6"},
        {D(1e308), Op::Divide, D(0.001), "error 6"},
        {T(2958465), Op::Add, I(1), "error 6"},
        {C(kCurrencyMax), Op::Add, I(1), "error 6"},
        {C(kCurrencyMax), Op::Multiply, I(2), "error 6"},
        {M("79228162514264337593543950335"), Op::Add, I(1), "error 6"},
    });
}

TEST(Arithmetic, WidensWhenAnOperandIsAVariant) {
    ExpectArithmetic({
        {I(32767), Op::Add, I(1), "Long 32768", kVariants},
        {I(32767), Op::Add, I(1), "Long 32768", kVariantThenTyped},
        {I(32767), Op::Add, I(1), "Long 32768", kTypedThenVariant},
        {I(-32768), Op::Subtract, I(1), "Long -32769", kVariants},
        {I(300), Op::Multiply, I(300), "Long 90000", kVariants},
        {Y(255), Op::Add, Y(1), "Integer 256", kVariants},
        {Y(255), Op::Multiply, Y(255), "Long 65025", kVariants},
        {Y(1), Op::Subtract, Y(2), "Integer -1", kVariants},
        {L(kLongMax), Op::Add, L(1), "Double 2147483648", kVariants},
        {L(65536), Op::Multiply, L(65536), "Double 4294967296", kVariants},
        {L(kLongMin), Op::Subtract, I(1), "Double -2147483649", kVariants},
        {S(0x1p127), Op::Add, S(0x1p127), "Double 3.40282366920938E+38", kVariants},
        {T(2958465), Op::Add, I(1), "Double 2958466", kVariants},
        {D(1e308), Op::Multiply, D(10), "error 6", kVariants},
        {C(kCurrencyMax), Op::Add, I(1), "error 6", kVariants},
    });
}

TEST(Arithmetic, StaysInTheTypeWhileItFits) {
    ExpectArithmetic({
        {I(32766), Op::Add, I(1), "Integer 32767", kVariants},
        {Y(200), Op::Add, Y(55), "Byte 255", kVariants},
        {L(1), Op::Add, I(1), "Long 2"},
        {Y(2), Op::Multiply, B(true), "Integer -2"},
        {L(kLongMax), Op::Add, D(1), "Double 2147483648"},
        {L(3), Op::Multiply, S(0.5), "Double 1.5"},
        {I(3), Op::Multiply, S(0.5), "Single 1.5"},
        {B(true), Op::Add, B(true), "Integer -2"},
        {C(15000), Op::Multiply, D(2), "Double 3"},
        {C(15000), Op::Multiply, L(2), "Currency 3"},
        {T(36556), Op::Add, I(1), "Date 2/1/2000"},
        {I(1), Op::Add, T(36556), "Date 2/1/2000"},
        {T(36556), Op::Subtract, T(36555), "Double 1"},
        {T(36556), Op::Subtract, D(0.5), "Date 1/30/2000 12:00:00 PM"},
        {S(0.1), Op::Add, S(0.2), "Single 0.3"},
        {D(0.1), Op::Add, D(0.2), "Double 0.3"},
    });
}

TEST(Arithmetic, AddsTextsAsTextAndATextToANumberAsNumber) {
    ExpectArithmetic({
        {X("10"), Op::Add, X("5"), "String 105"},
        {X("10"), Op::Add, X("5"), "String 105", kVariants},
        {X("10"), Op::Add, I(5), "Double 15"},
        {I(5), Op::Add, X("10"), "Double 15", kVariants},
        {X("10"), Op::Subtract, X("5"), "Double 5"},
        {X("a"), Op::Add, I(5), "error 13"},
        {X(""), Op::Add, I(5), "error 13"},
        {X("1.5"), Op::Add, C(5000), "Currency 2"},
        {X("1"), Op::Add, T(1), "Date 1/1/1900"},
    });
}

TEST(Arithmetic, GivesTheOtherOperandOfAnEmptyOne) {
    ExpectArithmetic({
        {E(), Op::Add, X("a"), "String a"},
        {X("a"), Op::Add, E(), "String a"},
        {E(), Op::Add, T(2), "Date 1/1/1900"},
        {E(), Op::Add, B(true), "Integer -1"},
        {E(), Op::Add, E(), "Integer 0"},
        {E(), Op::Subtract, L(3), "Long -3"},
        {E(), Op::Multiply, D(3), "Double 0"},
    });
}

TEST(Arithmetic, GivesNullForNull) {
    ExpectArithmetic({
        {N(), Op::Add, I(1), "Null"},
        {X("abc"), Op::Multiply, N(), "Null"},
        {N(), Op::Divide, I(0), "Null"},
        {N(), Op::Power, N(), "Null"},
        {I(1), Op::Modulo, N(), "Null"},
    });
    EXPECT_EQ(Shown(Apply(UnaryOperator::Negate, N(), false)), "Null");
}

TEST(Arithmetic, TellsDivisionByZeroFromZeroByZero) {
    ExpectArithmetic({
        {I(1), Op::Divide, I(0), "error 11"},
        {I(0), Op::Divide, I(0), "error 6"},
        {D(0), Op::Divide, D(0), "error 6"},
        {E(), Op::Divide, E(), "error 6"},
        {M("1"), Op::Divide, M("0"), "error 11"},
        {M("0"), Op::Divide, M("0"), "error 6"},
        {I(1), Op::IntegerDivide, I(0), "error 11"},
        {I(0), Op::IntegerDivide, I(0), "error 11"},
        {I(1), Op::IntegerDivide, D(0.5), "error 11"},
        {I(1), Op::Modulo, D(0.4), "error 11"},
        {I(0), Op::Modulo, E(), "error 11"},
    });
}

TEST(Arithmetic, Divides) {
    ExpectArithmetic({
        {I(1), Op::Divide, I(4), "Double 0.25"},
        {S(1), Op::Divide, I(3), "Single 0.3333333"},
        {L(1), Op::Divide, S(4), "Double 0.25"},
        {C(10000), Op::Divide, C(40000), "Double 0.25"},
        {M("1"), Op::Divide, I(3), "Decimal 0.3333333333333333333333333333"},
        {S(3e38), Op::Divide, S(0.1), "error 6"},
        {X("9"), Op::Divide, X("2"), "Double 4.5"},
    });
}

TEST(Arithmetic, RoundsHalfToEvenBeforeWholeDivisionAndRemainder) {
    ExpectArithmetic({
        {D(2.5), Op::IntegerDivide, I(1), "Long 2"},
        {D(3.5), Op::IntegerDivide, I(1), "Long 4"},
        {I(7), Op::IntegerDivide, D(2.5), "Long 3"},
        {I(-7), Op::IntegerDivide, I(2), "Integer -3"},
        {I(7), Op::IntegerDivide, I(-2), "Integer -3"},
        {D(12.6), Op::Modulo, I(5), "Long 3"},
        {X("10.5"), Op::IntegerDivide, I(3), "Long 3"},
        {C(25000), Op::Modulo, I(5), "Long 2"},
        {D(3e9), Op::IntegerDivide, I(2), "error 6"},
        {D(3e9), Op::Modulo, I(2), "error 6"},
    });
}

TEST(Arithmetic, GivesTheRemainderTheSignOfTheLeft) {
    ExpectArithmetic({
        {I(-7), Op::Modulo, I(3), "Integer -1"},
        {I(7), Op::Modulo, I(-3), "Integer 1"},
        {I(-7), Op::Modulo, I(-3), "Integer -1"},
        {Y(7), Op::Modulo, Y(4), "Byte 3"},
        {L(kLongMin), Op::Modulo, L(-1), "Long 0"},
    });
}

TEST(Arithmetic, RefusesTheOneWholeQuotientThatDoesNotFit) {
    ExpectArithmetic({
        {L(kLongMin), Op::IntegerDivide, L(-1), "error 6"},
        {I(-32768), Op::IntegerDivide, I(-1), "error 6"},
    });
}

TEST(Arithmetic, RaisesToPowers) {
    ExpectArithmetic({
        {I(2), Op::Power, I(10), "Double 1024"},
        {I(2), Op::Power, I(-1), "Double 0.5"},
        {I(-2), Op::Power, I(3), "Double -8"},
        {I(0), Op::Power, I(0), "Double 1"},
        {I(0), Op::Power, I(-1), "error 5"},
        {I(-8), Op::Power, D(0.5), "error 5"},
        {I(10), Op::Power, I(309), "error 6"},
        {I(-10), Op::Power, I(309), "error 6"},
        {I(10), Op::Power, I(-400), "Double 0"},
    });
}

TEST(Arithmetic, Negates) {
    struct NegationCase {
        Value Operand;
        bool IsVariant;
        std::string_view Expected;
    };
    const NegationCase cases[] = {
        {I(5), false, "Integer -5"},
        {I(-32768), false, "error 6"},
        {I(-32768), true, "Long 32768"},
        {L(kLongMin), false, "error 6"},
        {L(kLongMin), true, "Double 2147483648"},
        {Y(255), false, "Integer -255"},
        {B(true), false, "Integer 1"},
        {E(), true, "Integer 0"},
        {X("1.5"), false, "Double -1.5"},
        {X("x"), false, "error 13"},
        {T(2), false, "Date 12/28/1899"},
        {C(15000), false, "Currency -1.5"},
        {C(std::numeric_limits<std::int64_t>::min()), true, "error 6"},
        {M("1.5"), false, "Decimal -1.5"},
        {D(0), false, "Double 0"},
        {S(1.5), false, "Single -1.5"},
    };
    for (const NegationCase& one : cases) {
        EXPECT_EQ(
            ShownOrError([&] { return Apply(UnaryOperator::Negate, one.Operand, one.IsVariant); }),
            one.Expected)
            << Shown(one.Operand);
    }
}

TEST(Arithmetic, LeavesAnOperandOfUnaryPlusAsItIs) {
    EXPECT_EQ(Shown(Apply(UnaryOperator::Plus, X("5"), false)), "String 5");
    EXPECT_EQ(Shown(Apply(UnaryOperator::Plus, N(), false)), "Null");
}

TEST(Arithmetic, CalculatesCurrencyExactly) {
    ExpectArithmetic({
        {C(1), Op::Add, C(2), "Currency 0.0003"},
        {C(kCurrencyMax), Op::Subtract, C(1), "Currency 922337203685477.5806"},
        {C(5), Op::Multiply, C(1000), "Currency 0"},        // 0.00005 goes to the even 0.0000
        {C(15), Op::Multiply, C(1000), "Currency 0.0002"},  // 0.00015 to the even 0.0002
        {C(-15), Op::Multiply, C(1000), "Currency -0.0002"},
        {C(12345), Op::Multiply, C(12345), "Currency 1.524"},
        {C(10000), Op::Add, D(0.00005), "Currency 1"},
        {C(10000), Op::Add, X("0.0001"), "Currency 1.0001"},
    });
}

TEST(Concatenation, JoinsTheTextsOfBothOperands) {
    ExpectArithmetic({
        {X("a"), Op::Concatenate, X("b"), "String ab"},
        {X("a"), Op::Concatenate, I(3), "String a3"},
        {I(1), Op::Concatenate, I(2), "String 12"},
        {D(0.5), Op::Concatenate, B(true), "String 0.5True"},
        {N(), Op::Concatenate, X("b"), "String b"},
        {X("a"), Op::Concatenate, N(), "String a"},
        {N(), Op::Concatenate, N(), "Null"},
        {E(), Op::Concatenate, E(), "String "},
        {T(36556.25), Op::Concatenate, X("!"), "String 1/31/2000 6:00:00 AM!"},
    });
}

TEST(Concatenation, GrowsAnUnsharedTextInPlace) {
    Value text = X("longer than any text that needs no memory");
    const StringBody* body = text.TextBody();
    for (int i = 0; i < 1000; ++i) {
        ConcatenateTo(text, I(7));
    }
    EXPECT_EQ(text.TextBody(), body);
    EXPECT_EQ(text.TextBody()->Length(), 1041U);
    EXPECT_EQ(text.AsText().substr(39), "ry" + std::string(1000, '7'));
}

TEST(Concatenation, LeavesSharedTextsAlone) {
    Value text = X("shared");
    const Value other = text;
    ConcatenateTo(text, X("!"));
    EXPECT_EQ(Shown(text), "String shared!");
    EXPECT_EQ(Shown(other), "String shared");
}

TEST(Concatenation, GrowsAnyTargetLikeTheOperator) {
    struct GrowthCase {
        Value Target;
        Value Addition;
        std::string_view Expected;
    };
    const GrowthCase cases[] = {
        {X("ab"), N(), "String ab"},
        {X("ab"), E(), "String ab"},
        {X("ab"), M("1.5"), "String ab1.5"},
        {X(""), X("ab"), "String ab"},
        {E(), X("ab"), "String ab"},
        {N(), N(), "Null"},
        {L(1), L(2), "String 12"},
        {X("ab"), Value::Error(5), "error 13"},
    };
    for (const GrowthCase& one : cases) {
        EXPECT_EQ(
            ShownOrError([&] {
                Value target = Value(one.Target);
                ConcatenateTo(target, one.Addition);
                return target;
            }),
            one.Expected);
    }
    Value twice = X("ab");
    ConcatenateTo(twice, twice);
    EXPECT_EQ(Shown(twice), "String abab");
}

}  // namespace dorvik::basic
