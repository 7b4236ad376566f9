#include "SampleValues.h"
#include "basic/values/RuntimeErrors.h"

#include <gtest/gtest.h>

#include <limits>

namespace dorvik::basic {

namespace {

using namespace sample;

/// Puts the limits back.
class LimitGuard {
public:
    LimitGuard() = default;
    LimitGuard(const LimitGuard&) = delete;
    LimitGuard& operator=(const LimitGuard&) = delete;
    ~LimitGuard() {
        MemoryMeter::Current().SetLimit(m_limit);
        MemoryMeter::Current().SetStringLimit(m_stringLimit);
    }

private:
    std::size_t m_limit = MemoryMeter::Current().Limit();
    std::size_t m_stringLimit = MemoryMeter::Current().StringLimit();
};

std::string TextOfError(void (*act)()) {
    try {
        act();
    } catch (const BasicError& error) {
        return error.what();
    }
    return {};
}

Ref<ArrayBody> ArrayWith(std::vector<Bounds> dimensions, const Value& initial = L(0)) {
    const Ref<ArrayBody> array =
        MakeRef<ArrayBody>(DeclaredType{.Kind = DeclaredKind::Variant}, false);
    array->Dimension(std::move(dimensions), initial);
    return array;
}

std::size_t OffsetOf(const ArrayBody& array, std::vector<std::int32_t> indices) {
    return array.Offset(indices.data(), indices.size());
}

}  // namespace

TEST(StringBody, CountsCharacters) {
    EXPECT_EQ(StringBody("abc").Length(), 3U);
    EXPECT_TRUE(StringBody("abc").IsAscii());
    EXPECT_EQ(StringBody("äöü€").Length(), 4U);
    EXPECT_FALSE(StringBody("ä").IsAscii());
    EXPECT_EQ(StringBody("\xED\xA0\x80").Length(), 1U);  // half a surrogate pair
    EXPECT_EQ(StringBody("").Length(), 0U);
}

TEST(StringBody, KeepsItsLengthRightWhileItGrows) {
    StringBody body("ab");
    EXPECT_EQ(body.Length(), 2U);
    body.Append("äö");
    EXPECT_EQ(body.Length(), 4U);
    EXPECT_FALSE(body.IsAscii());
    EXPECT_EQ(body.Text(), "abäö");
}

TEST(StringBody, JoinsTwoTexts) {
    EXPECT_EQ(StringBody::Joined("ab", "cd")->Text(), "abcd");
    EXPECT_EQ(StringBody::Joined("", "")->Text(), "");
}

TEST(StringBody, ChargesWhatItHoldsAndGivesItBack) {
    const std::size_t before = MemoryMeter::Current().Used();
    {
        StringBody body(std::string(1000, 'x'));
        const std::size_t made = MemoryMeter::Current().Used();
        EXPECT_GE(made, before + 1000);
        for (int i = 0; i < 10; ++i) {
            body.Append(std::string(1000, 'y'));
        }
        EXPECT_GE(MemoryMeter::Current().Used(), before + 11000);
    }
    EXPECT_EQ(MemoryMeter::Current().Used(), before);
}

TEST(StringBody, RefusesToPassTheStringLimit) {
    const LimitGuard guard;
    MemoryMeter::Current().SetStringLimit(100);
    EXPECT_EQ(ErrorOf([] { StringBody(std::string(101, 'x')); }), 14);
    EXPECT_EQ(ErrorOf([] { StringBody::Joined(std::string(60, 'x'), std::string(41, 'x')); }), 14);
    StringBody body(std::string(60, 'x'));
    EXPECT_EQ(ErrorOf([&] { body.Append(std::string(41, 'x')); }), 14);
    EXPECT_EQ(body.Length(), 60U);
    body.Append(std::string(40, 'x'));
    EXPECT_EQ(body.Length(), 100U);
    EXPECT_EQ(
        TextOfError([] { StringBody(std::string(101, 'x')); }),
        "Out of string space (the limit of 100 bytes for one string was reached)");
}

TEST(MemoryMeter, RefusesToPassTheLimitAndCountsNothingThen) {
    const LimitGuard guard;
    MemoryMeter& meter = MemoryMeter::Current();
    const std::size_t used = meter.Used();
    meter.SetLimit(used + 1000);
    EXPECT_EQ(ErrorOf([&] { meter.Charge(1001); }), 7);
    EXPECT_EQ(ErrorOf([&] { meter.Charge(std::numeric_limits<std::size_t>::max()); }), 7);
    EXPECT_EQ(meter.Used(), used);
    meter.Charge(1000);
    meter.Refund(1000);
    EXPECT_EQ(meter.Used(), used);
}

TEST(MemoryMeter, NamesTheLimit) {
    const LimitGuard guard;
    MemoryMeter::Current().SetLimit(5);
    EXPECT_EQ(
        TextOfError([] { MemoryMeter::Current().Charge(6); }),
        "Out of memory (the limit of 5 bytes was reached)");
}

TEST(MemoryMeter, HasNoLimitOfZeroBytes) {
    const LimitGuard guard;
    MemoryMeter& meter = MemoryMeter::Current();
    meter.SetLimit(0);
    meter.SetStringLimit(0);
    EXPECT_EQ(meter.Limit(), std::numeric_limits<std::size_t>::max());
    EXPECT_EQ(meter.StringLimit(), 0x7FFFFFFFU);
}

TEST(ArrayBody, FindsElementsWithTheFirstIndexRunningFastest) {
    const Ref<ArrayBody> array = ArrayWith({{1, 3}, {-1, 1}});
    EXPECT_EQ(array->Elements().size(), 9U);
    EXPECT_EQ(OffsetOf(*array, {1, -1}), 0U);
    EXPECT_EQ(OffsetOf(*array, {2, -1}), 1U);
    EXPECT_EQ(OffsetOf(*array, {1, 0}), 3U);
    EXPECT_EQ(OffsetOf(*array, {3, 1}), 8U);
}

TEST(ArrayBody, RaisesForWrongIndices) {
    const Ref<ArrayBody> array = ArrayWith({{1, 3}});
    EXPECT_EQ(OffsetOf(*array, {3}), 2U);
    for (const std::vector<std::int32_t>& wrong : std::vector<std::vector<std::int32_t>>{
             {0}, {4}, {-2147483647 - 1}, {2147483647}, {}, {1, 1}}) {
        EXPECT_EQ(ErrorOf([&] { OffsetOf(*array, wrong); }), 9);
    }
    const ArrayBody undimensioned(DeclaredType{}, false);
    EXPECT_EQ(ErrorOf([&] { OffsetOf(undimensioned, {0}); }), 9);
}

TEST(ArrayBody, TakesTheWidestBounds) {
    const Ref<ArrayBody> array = ArrayWith({{2147483646, 2147483647}});
    EXPECT_EQ(OffsetOf(*array, {2147483647}), 1U);
    EXPECT_EQ(ErrorOf([] { ArrayWith({{-2147483647 - 1, 2147483647}}); }), 7);
}

TEST(ArrayBody, RaisesForBoundsInTheWrongOrder) {
    EXPECT_EQ(ErrorOf([] { ArrayWith({{5, 3}}); }), 9);
    EXPECT_EQ(ArrayWith({{0, -1}})->Elements().size(), 0U);
}

TEST(ArrayBody, RaisesForMoreThanTheMemoryLimit) {
    const std::size_t before = MemoryMeter::Current().Used();
    EXPECT_EQ(ErrorOf([] { ArrayWith({{0, 100'000'000}}); }), 7);
    EXPECT_EQ(ErrorOf([] { ArrayWith(std::vector<Bounds>(60, Bounds{0, 2147483646})); }), 7);
    EXPECT_EQ(MemoryMeter::Current().Used(), before);
}

TEST(ArrayBody, KeepsElementsWhenTheLastUpperBoundChanges) {
    const Ref<ArrayBody> array = ArrayWith({{0, 1}, {0, 1}});
    array->Elements()[3] = L(7);
    array->Redimension({{0, 1}, {0, 2}}, L(9));
    EXPECT_EQ(array->Elements().size(), 6U);
    EXPECT_EQ(array->Elements()[OffsetOf(*array, {1, 1})].AsLong(), 7);
    EXPECT_EQ(array->Elements()[OffsetOf(*array, {1, 2})].AsLong(), 9);
    array->Redimension({{0, 1}, {0, 0}}, L(9));
    EXPECT_EQ(array->Elements().size(), 2U);
}

TEST(ArrayBody, RefusesToKeepElementsUnderOtherBounds) {
    const Ref<ArrayBody> array = ArrayWith({{0, 1}, {0, 1}});
    for (const std::vector<Bounds>& wrong : std::vector<std::vector<Bounds>>{
             {{0, 2}, {0, 1}}, {{0, 1}, {1, 1}}, {{0, 3}}, {{0, 1}, {0, 1}, {0, 0}}}) {
        EXPECT_EQ(ErrorOf([&] { array->Redimension(wrong, L(0)); }), 9);
    }
    EXPECT_EQ(array->Elements().size(), 4U);
}

TEST(ArrayBody, DimensionsAnewWhenThereWasNothingToKeep) {
    ArrayBody array(DeclaredType{}, false);
    array.Redimension({{0, 2}}, L(1));
    EXPECT_EQ(array.Elements().size(), 3U);
}

TEST(ArrayBody, CannotChangeWhileLocked) {
    const Ref<ArrayBody> array = ArrayWith({{0, 1}});
    array->Lock();
    EXPECT_EQ(ErrorOf([&] { array->Dimension({{0, 2}}, L(0)); }), 10);
    EXPECT_EQ(ErrorOf([&] { array->Redimension({{0, 2}}, L(0)); }), 10);
    EXPECT_EQ(ErrorOf([&] { array->Clear(); }), 10);
    array->Unlock();
    array->Clear();
    EXPECT_TRUE(array->Dimensions().empty());
    EXPECT_TRUE(array->Elements().empty());
}

TEST(ArrayBody, GivesEachElementARecordOfItsOwn) {
    const Value initial = Value::Record(MakeRef<RecordBody>(0, std::vector<Value>{L(1)}));
    const Ref<ArrayBody> array = ArrayWith({{0, 1}}, initial);
    EXPECT_NE(array->Elements()[0].AsRecord(), array->Elements()[1].AsRecord());
}

TEST(ArrayBody, ChargesItsElementsAndGivesThemBack) {
    const std::size_t before = MemoryMeter::Current().Used();
    {
        const Ref<ArrayBody> array = ArrayWith({{1, 1000}});
        EXPECT_GE(MemoryMeter::Current().Used(), before + 16000);
        array->Redimension({{1, 10}}, L(0));
        EXPECT_LT(MemoryMeter::Current().Used(), before + 1000);
        const Ref<ArrayBody> copy = array->Copy(true);
        EXPECT_TRUE(copy->IsFixed());
        EXPECT_EQ(copy->Dimensions(), array->Dimensions());
    }
    EXPECT_EQ(MemoryMeter::Current().Used(), before);
}

TEST(RuntimeErrors, HaveTheirTexts) {
    struct TextCase {
        std::int32_t Number;
        const char* Text;
    };
    const TextCase cases[] = {
        {3, "Return without GoSub"},
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {7, "Out of memory"},
        {9, "Subscript out of range"},
        {10, "This array is fixed or temporarily locked"},
        {11, "Division by zero"},
        {13, "Type mismatch"},
        {14, "Out of string space"},
        {16, "Expression too complex"},
        {18, "User interrupt occurred"},
        {20, "Resume without error"},
        {28, "Out of stack space"},
        {35, "Sub, Function, or Property not defined"},
        {51, "Internal error"},
        {70, "Permission denied"},
        {91, "Object variable or With block variable not set"},
        {92, "For loop not initialized"},
        {93, "Invalid pattern string"},
        {94, "Invalid use of Null"},
        {424, "Object required"},
        {429, "ActiveX component can't create object"},
        {438, "Object doesn't support this property or method"},
        {446, "Object doesn't support named arguments"},
        {448, "Named argument not found"},
        {449, "Argument not optional"},
        {450, "Wrong number of arguments or invalid property assignment"},
        {451,
         "Property let procedure not defined and property get procedure did not return an object"},
        {457, "This key is already associated with an element of this collection"},
        {458, "Variable uses an Automation type not supported in Visual Basic"},
    };
    for (const TextCase& one : cases) {
        try {
            RaiseError(one.Number);
        } catch (const BasicError& error) {
            EXPECT_EQ(error.Number(), one.Number);
            EXPECT_STREQ(error.what(), one.Text);
        }
    }
}

}  // namespace dorvik::basic
