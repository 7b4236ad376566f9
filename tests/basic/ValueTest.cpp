#include "FakeObject.h"
#include "SampleValues.h"

#include <gtest/gtest.h>

#include <utility>

namespace dorvik::basic {

using namespace sample;

TEST(Value, IsEmptyAtFirst) {
    EXPECT_EQ(Value().Type(), ValueType::Empty);
}

TEST(Value, KeepsScalars) {
    EXPECT_TRUE(Value::Boolean(true).AsBoolean());
    EXPECT_EQ(Value::Boolean(true).AsLong(), -1);
    EXPECT_EQ(Value::Byte(255).AsByte(), 255);
    EXPECT_EQ(Value::Byte(255).AsLong(), 255);
    EXPECT_EQ(Value::Integer(-3).AsInteger(), -3);
    EXPECT_EQ(Value::Integer(-3).AsLong(), -3);
    EXPECT_EQ(Value::Long(70000).AsLong(), 70000);
    EXPECT_EQ(Value::Single(1.5F).AsSingle(), 1.5F);
    EXPECT_EQ(Value::Double(1.5).AsDouble(), 1.5);
    EXPECT_EQ(Value::Date(2.5).AsDouble(), 2.5);
    EXPECT_EQ(Value::Currency(-1).AsCurrency(), -1);
    EXPECT_EQ(Value::Error(2042).AsLong(), 2042);
}

TEST(Value, TellsNumbersFromOthers) {
    for (const Value& number : {B(true), Y(1), I(1), L(1), S(1), D(1), C(1), M("1"), T(1)}) {
        EXPECT_TRUE(number.IsNumber()) << Shown(number);
    }
    for (const Value& other : {E(), N(), X("1"), Value::Error(1), Value::Nothing()}) {
        EXPECT_FALSE(other.IsNumber()) << Shown(other);
    }
}

TEST(Value, KnowsAnArgumentThatWasLeftOut) {
    EXPECT_TRUE(Value::Missing().IsMissing());
    EXPECT_EQ(Value::Missing().Type(), ValueType::Error);
    EXPECT_FALSE(Value::Error(448).IsMissing());
    EXPECT_FALSE(Value().IsMissing());
    EXPECT_FALSE(Value::Long(Value::Missing().AsLong()).IsMissing());
}

TEST(Value, SharesATextBetweenCopies) {
    const Value text = X("some text");
    const Value copy = text;
    EXPECT_EQ(copy.TextBody(), text.TextBody());
    EXPECT_TRUE(text.TextBody()->IsShared());
}

TEST(Value, HasNoBodyForAnEmptyText) {
    EXPECT_EQ(X("").TextBody(), nullptr);
    EXPECT_EQ(X("").AsText(), "");
    EXPECT_EQ(Value::Text(std::string()).TextBody(), nullptr);
}

TEST(Value, SharesTextsOfOneAsciiCharacter) {
    EXPECT_EQ(X("a").TextBody(), X("a").TextBody());
    EXPECT_TRUE(X("a").TextBody()->IsShared());
    EXPECT_NE(X("ä").TextBody(), X("ä").TextBody());
}

TEST(Value, DropsItsBodyWithTheLastCopy) {
    const std::size_t before = MemoryMeter::Current().Used();
    {
        Value text = X(std::string(1000, 'x'));
        Value copy = text;
        EXPECT_GT(MemoryMeter::Current().Used(), before + 999);
        text = I(1);
        EXPECT_GT(MemoryMeter::Current().Used(), before + 999);
        copy = std::move(text);
        EXPECT_EQ(MemoryMeter::Current().Used(), before);
        EXPECT_EQ(copy.AsLong(), 1);
    }
    EXPECT_EQ(MemoryMeter::Current().Used(), before);
}

TEST(Value, LeavesNothingBehindAMove) {
    Value text = X("some text");
    const Value moved = std::move(text);
    EXPECT_EQ(text.Type(), ValueType::Empty);  // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(moved.AsText(), "some text");
    EXPECT_FALSE(moved.TextBody()->IsShared());
}

TEST(Value, SurvivesAssignmentToItself) {
    Value text = X("some text");
    const Value& same = text;
    text = same;
    EXPECT_EQ(text.AsText(), "some text");
    Value& other = text;
    text = std::move(other);
    EXPECT_EQ(text.AsText(), "some text");
}

TEST(Value, TakesAnElementOfTheArrayThatItHolds) {
    const Ref<ArrayBody> array = MakeRef<ArrayBody>(DeclaredType{}, false);
    array->Dimension({{0, 1}}, X("an element of the array"));
    Value value = Value::Array(array);
    Ref<ArrayBody>(array).Detach()->DropReference();
    value = array->Elements()[1];
    EXPECT_EQ(value.AsText(), "an element of the array");
}

TEST(Value, CopiesArraysAndRecordsWhole) {
    const Ref<ArrayBody> inner = MakeRef<ArrayBody>(DeclaredType{}, false);
    inner->Dimension({{0, 0}}, L(1));
    const Value record =
        Value::Record(MakeRef<RecordBody>(3, std::vector<Value>{Value::Array(inner)}));
    const Value copy = record.DeepCopy();
    inner->Elements()[0] = L(2);
    EXPECT_NE(copy.AsRecord(), record.AsRecord());
    EXPECT_EQ(copy.AsRecord()->Type(), 3);
    EXPECT_EQ(copy.AsRecord()->Members()[0].AsArray()->Elements()[0].AsLong(), 1);
}

TEST(Value, SharesObjectsInCopiesOfArrays) {
    const Ref<ArrayBody> array = MakeRef<ArrayBody>(DeclaredType{}, false);
    array->Dimension({{0, 0}}, FakeObjectWith(L(1)));
    const Value copy = Value::Array(array).DeepCopy();
    EXPECT_EQ(copy.AsArray()->Elements()[0].AsObject(), array->Elements()[0].AsObject());
}

TEST(Value, RefusesToCopyArraysNestedTooDeep) {
    Value nest = L(1);
    for (int i = 0; i < 1000; ++i) {
        const Ref<ArrayBody> array = MakeRef<ArrayBody>(DeclaredType{}, false);
        array->Dimension({{0, 0}}, E());
        array->Elements()[0] = std::move(nest);
        nest = Value::Array(array);
    }
    EXPECT_EQ(ErrorOf([&] { nest.DeepCopy(); }), 28);
    EXPECT_EQ(
        ErrorOf([&] { nest.AsArray()->Elements()[0].AsArray()->Elements()[0].DeepCopy(); }), 28);
}

TEST(Value, TakesApartALongChainOfObjectsWithoutTheStack) {
    Value chain;
    for (int i = 0; i < 1'000'000; ++i) {
        chain = FakeObjectWith(std::move(chain));
    }
    EXPECT_EQ(chain.Type(), ValueType::Object);
    chain = Value();
    EXPECT_EQ(chain.Type(), ValueType::Empty);
}

TEST(Value, NamesItsType) {
    struct NameCase {
        Value Of;
        const char* Name;
        std::int32_t Number;
    };
    const auto array = [](DeclaredKind kind) {
        return Value::Array(MakeRef<ArrayBody>(DeclaredType{.Kind = kind}, false));
    };
    const NameCase cases[] = {
        {E(), "Empty", 0},
        {N(), "Null", 1},
        {I(1), "Integer", 2},
        {L(1), "Long", 3},
        {S(1), "Single", 4},
        {D(1), "Double", 5},
        {C(1), "Currency", 6},
        {T(1), "Date", 7},
        {X("a"), "String", 8},
        {Value::Nothing(), "Nothing", 9},
        {FakeObjectWith(L(1)), "Fake", 9},
        {Value::Error(1), "Error", 10},
        {Value::Missing(), "Error", 10},
        {B(true), "Boolean", 11},
        {M("1"), "Decimal", 14},
        {Y(1), "Byte", 17},
        {array(DeclaredKind::Long), "Long()", 8195},
        {array(DeclaredKind::String), "String()", 8200},
        {array(DeclaredKind::FixedString), "String()", 8200},
        {array(DeclaredKind::Variant), "Variant()", 8204},
        {array(DeclaredKind::Object), "Object()", 8201},
        {array(DeclaredKind::Byte), "Byte()", 8209},
        {array(DeclaredKind::Boolean), "Boolean()", 8203},
        {array(DeclaredKind::Date), "Date()", 8199},
    };
    for (const NameCase& one : cases) {
        EXPECT_EQ(TypeNameOf(one.Of), one.Name);
        EXPECT_EQ(VarTypeOf(one.Of), one.Number) << one.Name;
    }
    Value variable = L(1);
    EXPECT_EQ(TypeNameOf(Value::Reference(&variable)), "Long");
    EXPECT_EQ(VarTypeOf(Value::Reference(&variable)), 3);
}

}  // namespace dorvik::basic
