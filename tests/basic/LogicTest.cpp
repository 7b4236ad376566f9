#include "SampleValues.h"

#include <gtest/gtest.h>

#include <string_view>

namespace dorvik::basic {

namespace {

using namespace sample;
using Op = BinaryOperator;

struct LogicCase {
    Value Left;
    Op Operation;
    Value Right;
    std::string_view Expected;
};

void ExpectLogic(std::initializer_list<LogicCase> cases) {
    for (const LogicCase& one : cases) {
        EXPECT_EQ(
            ShownOrError([&] { return Apply(one.Operation, one.Left, one.Right, kTyped); }),
            one.Expected)
            << Shown(one.Left) << " operator " << static_cast<int>(one.Operation) << " "
            << Shown(one.Right);
    }
}

}  // namespace

TEST(Logic, HasTheFiveTruthTables) {
    struct TruthCase {
        Op Operation;
        std::string_view Expected;  // for TT, TF, FT, FF
    };
    const TruthCase cases[] = {
        {Op::And, "TFFF"},
        {Op::Or, "TTTF"},
        {Op::Xor, "FTTF"},
        {Op::Eqv, "TFFT"},
        {Op::Imp, "TFTT"}};
    for (const TruthCase& one : cases) {
        std::string found;
        for (const bool left : {true, false}) {
            for (const bool right : {true, false}) {
                const Value result = Apply(one.Operation, B(left), B(right), kTyped);
                EXPECT_EQ(result.Type(), ValueType::Boolean);
                found += result.AsBoolean() ? 'T' : 'F';
            }
        }
        EXPECT_EQ(found, one.Expected);
    }
}

TEST(Logic, WorksOnBits) {
    ExpectLogic({
        {I(12), Op::And, I(10), "Integer 8"},
        {I(12), Op::Or, I(10), "Integer 14"},
        {I(12), Op::Xor, I(10), "Integer 6"},
        {I(12), Op::Eqv, I(10), "Integer -7"},
        {I(12), Op::Imp, I(10), "Integer -5"},
        {Y(12), Op::Eqv, Y(10), "Byte 249"},
        {Y(12), Op::Imp, Y(10), "Byte 251"},
        {L(65536), Op::Or, I(1), "Long 65537"},
        {B(true), Op::And, I(7), "Integer 7"},
        {Y(255), Op::And, B(true), "Integer 255"},
        {E(), Op::Or, E(), "Integer 0"},
    });
}

TEST(Logic, RoundsOtherNumbersToLong) {
    ExpectLogic({
        {D(2.5), Op::And, I(-1), "Long 2"},
        {S(3.5), Op::And, I(-1), "Long 4"},
        {C(25000), Op::Or, I(0), "Long 2"},
        {M("1.5"), Op::Or, I(0), "Long 2"},
        {X("6"), Op::And, X("3"), "Long 2"},
        {T(2), Op::Or, I(1), "Long 3"},
        {D(3e9), Op::And, I(1), "error 6"},
        {X("x"), Op::And, I(1), "error 13"},
        {X("x"), Op::And, N(), "error 13"},
    });
}

TEST(Logic, KnowsWhatNullLeavesOpen) {
    ExpectLogic({
        {B(false), Op::And, N(), "Boolean False"},
        {N(), Op::And, B(false), "Boolean False"},
        {I(0), Op::And, N(), "Integer 0"},
        {B(true), Op::And, N(), "Null"},
        {I(5), Op::And, N(), "Null"},
        {N(), Op::And, N(), "Null"},
        {B(true), Op::Or, N(), "Boolean True"},
        {N(), Op::Or, B(true), "Boolean True"},
        {I(5), Op::Or, N(), "Integer 5"},
        {N(), Op::Or, L(5), "Long 5"},
        {B(false), Op::Or, N(), "Null"},
        {I(0), Op::Or, N(), "Null"},
        {N(), Op::Or, N(), "Null"},
        {B(true), Op::Xor, N(), "Null"},
        {N(), Op::Xor, B(false), "Null"},
        {B(true), Op::Eqv, N(), "Null"},
        {N(), Op::Eqv, N(), "Null"},
        {B(false), Op::Imp, N(), "Boolean True"},
        {N(), Op::Imp, B(true), "Boolean True"},
        {N(), Op::Imp, B(false), "Null"},
        {N(), Op::Imp, N(), "Null"},
        {B(true), Op::Imp, N(), "Null"},
        {I(0), Op::Imp, N(), "Integer -1"},
    });
}

TEST(Logic, InvertsBits) {
    struct NotCase {
        Value Operand;
        std::string_view Expected;
    };
    const NotCase cases[] = {
        {B(true), "Boolean False"},
        {B(false), "Boolean True"},
        {I(5), "Integer -6"},
        {L(0), "Long -1"},
        {Y(1), "Byte 254"},
        {E(), "Integer -1"},
        {D(2.5), "Long -3"},
        {X("3"), "Long -4"},
        {N(), "Null"},
        {X("x"), "error 13"},
    };
    for (const NotCase& one : cases) {
        EXPECT_EQ(
            ShownOrError([&] { return Apply(UnaryOperator::Not, one.Operand, false); }),
            one.Expected);
    }
}

}  // namespace dorvik::basic
