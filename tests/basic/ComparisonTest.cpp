#include "SampleValues.h"

#include <gtest/gtest.h>

#include <string_view>

namespace dorvik::basic {

namespace {

using namespace sample;
using Op = BinaryOperator;

constexpr std::string_view kTrue = "Boolean True";
constexpr std::string_view kFalse = "Boolean False";

struct ComparisonCase {
    Value Left;
    Op Operation;
    Value Right;
    std::string_view Expected;
    OperandFacts Facts = kTyped;
};

void ExpectComparisons(std::initializer_list<ComparisonCase> cases) {
    for (const ComparisonCase& one : cases) {
        const std::string found =
            ShownOrError([&] { return Apply(one.Operation, one.Left, one.Right, one.Facts); });
        EXPECT_EQ(found, one.Expected)
            << Shown(one.Left) << " operator " << static_cast<int>(one.Operation) << " "
            << Shown(one.Right);
        if (!found.starts_with("error")) {
            EXPECT_EQ(Holds(one.Operation, one.Left, one.Right, one.Facts), found == kTrue);
        }
    }
}

}  // namespace

TEST(Comparison, KnowsAllSixOperators) {
    struct OperatorCase {
        Op Operation;
        bool WhenLess;
        bool WhenSame;
        bool WhenGreater;
    };
    const OperatorCase cases[] = {
        {Op::Equal, false, true, false},
        {Op::NotEqual, true, false, true},
        {Op::Less, true, false, false},
        {Op::Greater, false, false, true},
        {Op::LessOrEqual, true, true, false},
        {Op::GreaterOrEqual, false, true, true},
    };
    for (const OperatorCase& one : cases) {
        for (const auto& [low, high] :
             {std::pair(L(1), L(2)), std::pair(D(1.5), D(2.5)), std::pair(X("a"), X("b"))}) {
            EXPECT_EQ(Apply(one.Operation, low, high, kTyped).AsBoolean(), one.WhenLess);
            EXPECT_EQ(Apply(one.Operation, low, low, kTyped).AsBoolean(), one.WhenSame);
            EXPECT_EQ(Apply(one.Operation, high, low, kTyped).AsBoolean(), one.WhenGreater);
            EXPECT_EQ(Holds(one.Operation, low, high, kTyped), one.WhenLess);
            EXPECT_EQ(Holds(one.Operation, low, low, kTyped), one.WhenSame);
            EXPECT_EQ(Holds(one.Operation, high, low, kTyped), one.WhenGreater);
        }
    }
}

TEST(Comparison, GivesNullForNull) {
    ExpectComparisons({
        {N(), Op::Equal, N(), "Null"},
        {N(), Op::NotEqual, I(1), "Null"},
        {X(""), Op::Equal, N(), "Null"},
        {E(), Op::Less, N(), "Null"},
    });
}

TEST(Comparison, ComparesTextsByCodePoints) {
    ExpectComparisons({
        {X("a"), Op::Equal, X("A"), kFalse},
        {X("B"), Op::Less, X("a"), kTrue},
        {X("ab"), Op::Greater, X("a"), kTrue},
        {X("z"), Op::Less, X("ä"), kTrue},
        {X("ä"), Op::Less, X("€"), kTrue},
        {X(""), Op::Less, X("a"), kTrue},
        {X("10"), Op::Less, X("9"), kTrue},
    });
}

TEST(Comparison, IgnoresCaseUnderOptionCompareText) {
    constexpr OperandFacts kText{false, false, true};
    ExpectComparisons({
        {X("abc"), Op::Equal, X("ABC"), kTrue, kText},
        {X("ÄÖÜ"), Op::Equal, X("äöü"), kTrue, kText},
        {X("Ÿ"), Op::Equal, X("ÿ"), kTrue, kText},
        {X("a"), Op::Less, X("B"), kTrue, kText},
        {X("a"), Op::NotEqual, X("b"), kTrue, kText},
    });
}

TEST(Comparison, TakesEmptyAsZeroOrAsNoText) {
    ExpectComparisons({
        {E(), Op::Equal, E(), kTrue},
        {E(), Op::Equal, I(0), kTrue},
        {E(), Op::Equal, X(""), kTrue},
        {E(), Op::Less, X("a"), kTrue},
        {E(), Op::Equal, B(false), kTrue},
        {E(), Op::Equal, T(0), kTrue},
        {E(), Op::Less, D(0.1), kTrue},
        {E(), Op::Equal, X("0"), kFalse, kVariants},
    });
}

TEST(Comparison, PutsNumbersBelowTextsBetweenVariants) {
    ExpectComparisons({
        {I(5), Op::Less, X("1"), kTrue, kVariants},
        {X("1"), Op::Greater, I(5), kTrue, kVariants},
        {I(5), Op::Equal, X("5"), kFalse, kVariants},
        {I(5), Op::Less, X(""), kTrue, kVariants},
        {B(true), Op::Less, X("True"), kTrue, kVariants},
        {T(1), Op::Less, X("x"), kTrue, kVariants},
    });
}

TEST(Comparison, ComparesADeclaredTextWithANumberInAVariantAsText) {
    ExpectComparisons({
        {I(5), Op::Equal, X("5"), kTrue, kVariantThenTyped},
        {I(5), Op::Equal, X("5.0"), kFalse, kVariantThenTyped},
        {I(0), Op::Equal, X(""), kFalse, kVariantThenTyped},
        {X(""), Op::Equal, I(0), kFalse, kTypedThenVariant},
        {I(10), Op::Less, X("9"), kTrue, kVariantThenTyped},
        {I(5), Op::Equal, X("abc"), kFalse, kVariantThenTyped},
        {B(true), Op::Equal, X("True"), kTrue, kVariantThenTyped},
        {B(false), Op::Equal, X(""), kFalse, kVariantThenTyped},
        {D(0.5), Op::Equal, X("0.5"), kTrue, kVariantThenTyped},
        {T(36556), Op::Equal, X("1/31/2000"), kTrue, kVariantThenTyped},
        {B(true), Op::Equal, X("TRUE"), kTrue, {true, false, true}},
    });
}

TEST(Comparison, ComparesADeclaredNumberWithAnyTextAsNumber) {
    ExpectComparisons({
        {I(5), Op::Equal, X("5.0"), kTrue},
        {I(10), Op::Greater, X("9"), kTrue},
        {I(10), Op::Greater, X("9"), kTrue, kTypedThenVariant},
        {X("9"), Op::Less, I(10), kTrue, kVariantThenTyped},
        {X("9"), Op::Less, I(10), kTrue},
        {I(5), Op::Equal, X("abc"), "error 13"},
        {I(5), Op::Equal, X(""), "error 13"},
        {I(5), Op::Equal, X("abc"), "error 13", kTypedThenVariant},
        {C(15000), Op::Equal, X("1.5"), kTrue},
        {D(1), Op::Equal, X("1E400"), "error 6"},
    });
}

TEST(Comparison, ComparesADeclaredBooleanWithATextAsBoolean) {
    ExpectComparisons({
        {B(true), Op::Equal, X("true"), kTrue},
        {B(true), Op::Equal, X("5"), kTrue},
        {X("False"), Op::Equal, B(false), kTrue},
        {B(false), Op::Equal, X("abc"), "error 13"},
        {B(true), Op::Less, X("False"), kTrue},  // -1 and 0
    });
}

TEST(Comparison, ComparesADeclaredDateWithATextAsDate) {
    ExpectComparisons({
        {T(36556), Op::Equal, X("Jan 31, 2000"), kTrue},
        {T(36556), Op::Equal, X("36556"), kTrue},
        {T(36556), Op::Equal, X("abc"), "error 13"},
    });
}

TEST(Comparison, ComparesNumbersOfDifferentTypes) {
    ExpectComparisons({
        {B(true), Op::Equal, I(-1), kTrue},
        {B(true), Op::Less, B(false), kTrue},
        {Y(255), Op::Greater, I(-1), kTrue},
        {L(16777217), Op::Equal, S(16777216), kFalse},
        {T(1.5), Op::Equal, D(1.5), kTrue},
        {T(2), Op::Greater, L(1), kTrue},
        {L(2), Op::Equal, M("2.000"), kTrue},
        {C(20000), Op::Equal, I(2), kTrue},
    });
}

TEST(Comparison, ComparesASingleWithADoubleAsSingle) {
    ExpectComparisons({
        {S(0.1), Op::Equal, D(0.1), kTrue},
        {D(0.1), Op::Equal, S(0.1), kTrue},
        {S(0.5), Op::Less, D(1e300), kTrue},
        {S(0.1), Op::Equal, X("0.1"), kTrue},
    });
}

TEST(Comparison, ComparesFloatsWithCurrencyAndDecimalInThose) {
    ExpectComparisons({
        {C(1), Op::Equal, D(0.00010001), kTrue},
        {C(1), Op::Less, D(1e300), kTrue},
        {D(-1e300), Op::Less, C(1), kTrue},
        {M("0.1"), Op::Equal, D(0.1), kTrue},
        {M("0.1"), Op::Less, D(1e300), kTrue},
        {M("1.5"), Op::Equal, C(15000), kTrue},
        {M("-1.5"), Op::Less, M("-1.49"), kTrue},
    });
}

TEST(Comparison, TakesErrorsOnlyWithErrors) {
    ExpectComparisons({
        {Value::Error(5), Op::Equal, Value::Error(5), kTrue},
        {Value::Error(5), Op::Equal, Value::Error(6), kFalse},
        {Value::Error(5), Op::Equal, I(5), "error 13"},
        {Value::Error(5), Op::Equal, N(), "error 13"},
        {X("a"), Op::Equal, Value::Error(5), "error 13"},
    });
}

TEST(Comparison, SeesVariablesThroughReferences) {
    Value variable = I(5);
    EXPECT_TRUE(Apply(Op::Equal, Value::Reference(&variable), I(5), kTyped).AsBoolean());
    EXPECT_EQ(Shown(Apply(Op::Add, I(1), Value::Reference(&variable), kTyped)), "Integer 6");
}

TEST(Comparison, AsksForObjectsWithIs) {
    const Value nothing = Value::Nothing();
    EXPECT_TRUE(Apply(Op::Is, nothing, nothing, kTyped).AsBoolean());
    EXPECT_EQ(ErrorOf([&] { Apply(Op::Is, nothing, I(1), kTyped); }), 424);
    EXPECT_EQ(ErrorOf([&] { Apply(Op::Is, E(), nothing, kTyped); }), 424);
    EXPECT_EQ(ErrorOf([&] { Apply(Op::Is, N(), N(), kTyped); }), 424);
}

TEST(Comparison, NeedsAnObjectForItsDefaultMember) {
    const Value nothing = Value::Nothing();
    EXPECT_EQ(ErrorOf([&] { Apply(Op::Equal, nothing, I(1), kTyped); }), 91);
    EXPECT_EQ(ErrorOf([&] { Apply(Op::Add, I(1), nothing, kTyped); }), 91);
}

TEST(Condition, CountsNullAsFalse) {
    EXPECT_FALSE(IsTrue(N()));
    EXPECT_FALSE(Holds(Op::NotEqual, N(), I(1), kTyped));
}

TEST(Condition, TakesNumbersAndTextsOfTruth) {
    EXPECT_TRUE(IsTrue(I(2)));
    EXPECT_TRUE(IsTrue(D(0.1)));
    EXPECT_FALSE(IsTrue(E()));
    EXPECT_TRUE(IsTrue(X("true")));
    EXPECT_FALSE(IsTrue(X("0")));
    EXPECT_TRUE(IsTrue(C(1)));
    EXPECT_EQ(ErrorOf([] { IsTrue(X("maybe")); }), 13);
    EXPECT_EQ(ErrorOf([] { IsTrue(X("")); }), 13);
    EXPECT_EQ(ErrorOf([] { IsTrue(Value::Error(1)); }), 13);
}

}  // namespace dorvik::basic
