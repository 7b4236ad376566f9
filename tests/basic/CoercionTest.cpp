#include "FakeObject.h"
#include "SampleValues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string_view>

namespace dorvik::basic {

namespace {

using namespace sample;
using Kind = DeclaredKind;

struct CoercionCase {
    Value Given;
    Kind Wanted;
    std::string_view Expected;
};

void ExpectCoercions(std::initializer_list<CoercionCase> cases) {
    for (const CoercionCase& one : cases) {
        EXPECT_EQ(ShownOrError([&] { return CoerceTo(one.Given, one.Wanted); }), one.Expected)
            << Shown(one.Given) << " to " << static_cast<int>(one.Wanted);
    }
}

constexpr Kind kScalars[] = {
    Kind::Byte,
    Kind::Boolean,
    Kind::Integer,
    Kind::Long,
    Kind::Single,
    Kind::Double,
    Kind::Currency,
    Kind::Date,
    Kind::String};

}  // namespace

TEST(Coercion, RoundsHalfToEven) {
    ExpectCoercions({
        {D(0.5), Kind::Long, "Long 0"},
        {D(1.5), Kind::Long, "Long 2"},
        {D(2.5), Kind::Integer, "Integer 2"},
        {D(-2.5), Kind::Integer, "Integer -2"},
        {D(-3.5), Kind::Integer, "Integer -4"},
        {S(2.5), Kind::Byte, "Byte 2"},
        {C(25000), Kind::Long, "Long 2"},
        {C(35000), Kind::Long, "Long 4"},
        {C(-25001), Kind::Long, "Long -3"},
        {M("2.5"), Kind::Long, "Long 2"},
        {M("-3.5"), Kind::Long, "Long -4"},
        {T(2.5), Kind::Long, "Long 2"},
        {D(0.03125), Kind::Currency, "Currency 0.0312"},
        {D(-0.09375), Kind::Currency, "Currency -0.0938"},
        {X("2.5"), Kind::Long, "Long 2"},
    });
}

TEST(Coercion, OverflowsOutOfRange) {
    ExpectCoercions({
        {D(32767.5), Kind::Integer, "error 6"},
        {D(32767.4), Kind::Integer, "Integer 32767"},
        {D(-32768.5), Kind::Integer, "Integer -32768"},
        {L(32768), Kind::Integer, "error 6"},
        {D(2147483647.5), Kind::Long, "error 6"},
        {D(-2147483648.5), Kind::Long, "Long -2147483648"},
        {D(1e300), Kind::Long, "error 6"},
        {I(256), Kind::Byte, "error 6"},
        {I(-1), Kind::Byte, "error 6"},
        {D(255.5), Kind::Byte, "error 6"},
        {D(1e15), Kind::Currency, "error 6"},
        {D(1e39), Kind::Single, "error 6"},
        {D(-1e39), Kind::Single, "error 6"},
        {D(1e-50), Kind::Single, "Single 0"},
        {D(2958466), Kind::Date, "error 6"},
        {D(-657435), Kind::Date, "error 6"},
        {D(2958465.5), Kind::Date, "Date 12/31/9999 12:00:00 PM"},
        {D(-657434), Kind::Date, "Date 1/1/100"},
        {X("99999"), Kind::Integer, "error 6"},
        {X("1E400"), Kind::Double, "error 6"},
        {X("-1E400"), Kind::Double, "error 6"},
        {X("1E-400"), Kind::Double, "Double 0"},
        {M("79228162514264337593543950335"), Kind::Currency, "error 6"},
    });
}

TEST(Coercion, TakesBooleansAsMinusOneAnd255AsByte) {
    ExpectCoercions({
        {B(true), Kind::Integer, "Integer -1"},
        {B(true), Kind::Double, "Double -1"},
        {B(true), Kind::Byte, "Byte 255"},
        {B(false), Kind::Byte, "Byte 0"},
        {B(true), Kind::Currency, "Currency -1"},
        {B(true), Kind::String, "String True"},
        {B(true), Kind::Date, "Date 12/29/1899"},
    });
}

TEST(Coercion, TakesEveryNumberButZeroAsTrue) {
    ExpectCoercions({
        {I(2), Kind::Boolean, "Boolean True"},
        {D(0.001), Kind::Boolean, "Boolean True"},
        {C(1), Kind::Boolean, "Boolean True"},
        {M("0.0"), Kind::Boolean, "Boolean False"},
        {T(0), Kind::Boolean, "Boolean False"},
        {X("TRUE"), Kind::Boolean, "Boolean True"},
        {X("false"), Kind::Boolean, "Boolean False"},
        {X("0"), Kind::Boolean, "Boolean False"},
        {X("-2"), Kind::Boolean, "Boolean True"},
        {X("yes"), Kind::Boolean, "error 13"},
        {X(""), Kind::Boolean, "error 13"},
    });
}

TEST(Coercion, ReadsNumbersInTexts) {
    ExpectCoercions({
        {X(" 12 "), Kind::Long, "Long 12"},
        {X("+12"), Kind::Long, "Long 12"},
        {X("-12"), Kind::Long, "Long -12"},
        {X("1,234.5"), Kind::Double, "Double 1234.5"},
        {X("1,2,3"), Kind::Long, "Long 123"},
        {X(".5"), Kind::Double, "Double 0.5"},
        {X("5."), Kind::Double, "Double 5"},
        {X("1E3"), Kind::Double, "Double 1000"},
        {X("1d-3"), Kind::Double, "Double 0.001"},
        {X("1e+3"), Kind::Double, "Double 1000"},
        {X("&HFF"), Kind::Long, "Long 255"},
        {X("&hffff"), Kind::Long, "Long -1"},
        {X("&HFFFF&"), Kind::Long, "Long 65535"},
        {X("&O17"), Kind::Long, "Long 15"},
        {X("$1.50"), Kind::Currency, "Currency 1.5"},
        {X("-$5"), Kind::Long, "Long -5"},
        {X("$-5"), Kind::Long, "Long -5"},
        {X("(1)"), Kind::Long, "Long -1"},
        {X("922337203685477.5807"), Kind::Currency, "Currency 922337203685477.5807"},
        {X("0.00005"), Kind::Currency, "Currency 0"},
        {X("0.00015"), Kind::Currency, "Currency 0.0002"},
    });
}

TEST(Coercion, RefusesTextsThatAreNoNumbers) {
    for (const std::string_view text :
         {"",      " ",   "abc", "1a",   "1 2", "--1", "1.2.3", ".",          "1E", "E5",
          "1.5,0", "inf", "nan", "0x10", "&HG", "&H",  "&O8",   "(-1)",       "(1", "$",
          "1e5.5", "+",   "-",   "1/2",  "\t1", ",",   "True",  "&HFFFFFFFFF"}) {
        EXPECT_EQ(ErrorOf([&] { CoerceTo(X(text), Kind::Double); }), 13) << text;
        EXPECT_EQ(ErrorOf([&] { CoerceTo(X(text), Kind::Long); }), 13) << text;
        EXPECT_EQ(ErrorOf([&] { CoerceTo(X(text), Kind::Currency); }), 13) << text;
        EXPECT_EQ(ErrorOf([&] { ToDecimal(X(text)); }), 13) << text;
    }
}

TEST(Coercion, ReadsDatesInTexts) {
    ExpectCoercions({
        {X("1/31/2000"), Kind::Date, "Date 1/31/2000"},
        {X("13:00"), Kind::Date, "Date 1:00:00 PM"},
        {X("36526"), Kind::Date, "error 13"},
        {X("abc"), Kind::Date, "error 13"},
        {X(""), Kind::Date, "error 13"},
    });
}

TEST(Coercion, TakesEmptyAsTheFirstValueOfEachType) {
    ExpectCoercions({
        {E(), Kind::Byte, "Byte 0"},
        {E(), Kind::Boolean, "Boolean False"},
        {E(), Kind::Integer, "Integer 0"},
        {E(), Kind::Long, "Long 0"},
        {E(), Kind::Single, "Single 0"},
        {E(), Kind::Double, "Double 0"},
        {E(), Kind::Currency, "Currency 0"},
        {E(), Kind::Date, "Date 12:00:00 AM"},
        {E(), Kind::String, "String "},
    });
}

TEST(Coercion, GivesNullToAVariantOnly) {
    EXPECT_EQ(Shown(CoerceTo(N(), Kind::Variant)), "Null");
    for (const Kind kind : kScalars) {
        EXPECT_EQ(ErrorOf([&] { CoerceTo(N(), kind); }), 94);
    }
}

TEST(Coercion, GivesErrorsArraysAndMissingArgumentsToAVariantOnly) {
    const Value array = Value::Array(MakeRef<ArrayBody>(DeclaredType{}, true));
    for (const Value& value : {Value::Error(2042), Value::Missing(), array}) {
        EXPECT_EQ(CoerceTo(value, Kind::Variant).Type(), value.Type());
        for (const Kind kind : kScalars) {
            EXPECT_EQ(ErrorOf([&] { CoerceTo(value, kind); }), 13);
        }
    }
    EXPECT_TRUE(CoerceTo(Value::Missing(), Kind::Variant).IsMissing());
    EXPECT_EQ(ErrorText(Value::Error(2042)), "Error 2042");
}

TEST(Coercion, KeepsTheSubtypeInAVariant) {
    for (const Value& value :
         {E(), B(true), Y(1), I(1), L(1), S(1), D(1), C(1), M("1"), T(1), X("1")}) {
        EXPECT_EQ(Shown(CoerceTo(value, Kind::Variant)), Shown(value));
    }
}

TEST(Coercion, CopiesAnArrayIntoAVariantWhereItIsNotFixed) {
    const Ref<ArrayBody> array = MakeRef<ArrayBody>(DeclaredType{.Kind = Kind::Long}, true);
    array->Dimension({{0, 1}}, L(5));
    const Value copy = CoerceTo(Value::Array(array), Kind::Variant);
    array->Elements()[0] = L(6);
    EXPECT_FALSE(copy.AsArray()->IsFixed());
    EXPECT_EQ(copy.AsArray()->Elements()[0].AsLong(), 5);
}

TEST(Coercion, WantsArraysOfTheSameElementType) {
    const DeclaredType longs{.Kind = Kind::Long, .IsArray = true};
    const DeclaredType integers{.Kind = Kind::Integer, .IsArray = true};
    const Value array = InitialValue(longs);
    EXPECT_EQ(CoerceTo(array, longs).Type(), ValueType::Array);
    EXPECT_EQ(ErrorOf([&] { CoerceTo(array, integers); }), 13);
    EXPECT_EQ(ErrorOf([&] { CoerceTo(L(1), longs); }), 13);
}

TEST(Coercion, WantsRecordsOfTheSameType) {
    const Value record = Value::Record(MakeRef<RecordBody>(2, std::vector<Value>{L(1)}));
    const DeclaredType same{.Kind = Kind::Record, .Record = 2};
    const DeclaredType other{.Kind = Kind::Record, .Record = 3};
    EXPECT_NE(CoerceTo(record, same).AsRecord(), record.AsRecord());
    EXPECT_EQ(ErrorOf([&] { CoerceTo(record, other); }), 13);
    EXPECT_EQ(ErrorOf([&] { CoerceTo(record, Kind::Variant); }), 13);
    EXPECT_EQ(ErrorOf([&] { CoerceTo(record, Kind::Long); }), 13);
}

TEST(Coercion, WantsObjectsOfTheClass) {
    const Value object = FakeObjectWith(L(1));
    const DeclaredType any{.Kind = Kind::Object};
    const DeclaredType match{.Kind = Kind::Object, .Class = ObjectClass::Match};
    const DeclaredType collection{.Kind = Kind::Object, .Class = ObjectClass::Collection};
    EXPECT_EQ(CoerceTo(object, any).AsObject(), object.AsObject());
    EXPECT_EQ(CoerceTo(object, match).AsObject(), object.AsObject());
    EXPECT_EQ(ErrorOf([&] { CoerceTo(object, collection); }), 13);
    EXPECT_EQ(CoerceTo(Value::Nothing(), collection).AsObject(), nullptr);
    EXPECT_EQ(ErrorOf([&] { CoerceTo(L(5), any); }), 424);
    EXPECT_EQ(ErrorOf([&] { CoerceTo(E(), any); }), 424);
    EXPECT_EQ(CoerceTo(object, Kind::Variant).AsObject(), object.AsObject());
}

TEST(Coercion, TakesTheDefaultMemberOfAnObject) {
    EXPECT_EQ(Shown(CoerceTo(FakeObjectWith(X("7")), Kind::Long)), "Long 7");
    EXPECT_EQ(ToText(FakeObjectWith(FakeObjectWith(D(1.5)))), "1.5");
    EXPECT_EQ(Shown(LetValue(FakeObjectWith(N()))), "Null");
    EXPECT_EQ(ErrorOf([] { LetValue(Value::Nothing()); }), 91);
    EXPECT_EQ(ErrorOf([] { LetValue(Value::Object(MakeRef<FakeObject>())); }), 438);
    EXPECT_EQ(ErrorOf([] { ToLong(Value::Nothing()); }), 91);
    EXPECT_EQ(ErrorOf([] { ToText(Value::Object(MakeRef<FakeObject>())); }), 438);
}

TEST(Coercion, GivesUpOnAnObjectThatIsItsOwnValue) {
    const Ref<FakeObject> object = MakeRef<FakeObject>(Value());
    object->SetValue(Value::Object(object));
    EXPECT_EQ(ErrorOf([&] { LetValue(Value::Object(object)); }), 438);
    object->SetValue(Value());
}

TEST(Coercion, SeesAVariableThroughItsReference) {
    Value variable = X("12");
    EXPECT_EQ(ToLong(Value::Reference(&variable)), 12);
    EXPECT_EQ(ToText(Value::Reference(&variable)), "12");
    EXPECT_EQ(Shown(LetValue(Value::Reference(&variable))), "String 12");
}

TEST(Coercion, WritesTexts) {
    ExpectCoercions({
        {I(-5), Kind::String, "String -5"},
        {Y(200), Kind::String, "String 200"},
        {S(0.1), Kind::String, "String 0.1"},
        {D(0.1), Kind::String, "String 0.1"},
        {C(-5), Kind::String, "String -0.0005"},
        {C(12500), Kind::String, "String 1.25"},
        {M("1.50"), Kind::String, "String 1.5"},
        {T(36556), Kind::String, "String 1/31/2000"},
        {B(false), Kind::String, "String False"},
    });
}

TEST(Coercion, GivesATextWithoutACopy) {
    const Value text = X("some text");
    std::string buffer;
    EXPECT_EQ(ToText(text, buffer).data(), text.AsText().data());
    EXPECT_EQ(ToText(L(5), buffer), "5");
}

TEST(Coercion, CutsOrFillsFixedTexts) {
    const DeclaredType four{.Kind = Kind::FixedString, .Length = 4};
    EXPECT_EQ(Shown(CoerceTo(X("abcdef"), four)), "String abcd");
    EXPECT_EQ(Shown(CoerceTo(X("ab"), four)), "String ab  ");
    EXPECT_EQ(Shown(CoerceTo(X("äöüßx"), four)), "String äöüß");
    EXPECT_EQ(Shown(CoerceTo(L(12), four)), "String 12  ");
    EXPECT_EQ(ErrorOf([&] { CoerceTo(N(), four); }), 94);
}

TEST(Coercion, KnowsTheInitialValues) {
    struct InitialCase {
        Kind Of;
        std::string_view Expected;
    };
    const InitialCase cases[] = {
        {Kind::Variant, "Empty"},
        {Kind::Byte, "Byte 0"},
        {Kind::Boolean, "Boolean False"},
        {Kind::Integer, "Integer 0"},
        {Kind::Long, "Long 0"},
        {Kind::Single, "Single 0"},
        {Kind::Double, "Double 0"},
        {Kind::Currency, "Currency 0"},
        {Kind::Date, "Date 12:00:00 AM"},
        {Kind::String, "String "},
        {Kind::Object, "Nothing"},
    };
    for (const InitialCase& one : cases) {
        EXPECT_EQ(Shown(InitialValue(DeclaredType{.Kind = one.Of})), one.Expected);
    }
    const Value fixed = InitialValue(DeclaredType{.Kind = Kind::FixedString, .Length = 3});
    EXPECT_EQ(fixed.AsText(), std::string(3, '\0'));
    const Value array = InitialValue(DeclaredType{.Kind = Kind::Long, .IsArray = true});
    EXPECT_TRUE(array.AsArray()->Dimensions().empty());
    EXPECT_EQ(array.AsArray()->Element(), DeclaredType{.Kind = Kind::Long});
}

}  // namespace dorvik::basic
