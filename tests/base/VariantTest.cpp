#include "base/Variant.h"

#include "base/BasicError.h"
#include "base/RaisedNumber.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using test::NumberRaisedBy;

TEST(Variant, KnowsItsKind) {
    EXPECT_TRUE(Variant().IsEmpty());
    EXPECT_TRUE(Variant("a").IsText());
    EXPECT_TRUE(Variant(std::string_view("a")).IsText());
    EXPECT_TRUE(Variant(7).IsLong());
    EXPECT_TRUE(Variant(7.0).IsDouble());
    EXPECT_TRUE(Variant(true).IsBoolean());
    EXPECT_FALSE(Variant(true).IsLong());
}

TEST(Variant, EqualValuesAreOfOneKind) {
    EXPECT_EQ(Variant(1), Variant(1));
    EXPECT_NE(Variant(1), Variant(1.0));
    EXPECT_NE(Variant("1"), Variant(1));
    EXPECT_NE(Variant("a"), Variant("A"));
    EXPECT_EQ(Variant(), Variant());
}

TEST(Variant, AsTextIsThePlainForm) {
    EXPECT_EQ(Variant().AsText(), "");
    EXPECT_EQ(Variant("x y").AsText(), "x y");
    EXPECT_EQ(Variant(-42).AsText(), "-42");
    EXPECT_EQ(Variant(true).AsText(), "True");
    EXPECT_EQ(Variant(false).AsText(), "False");
    EXPECT_EQ(Variant(3.0).AsText(), "3");
    EXPECT_EQ(Variant(0.5).AsText(), "0.5");
    EXPECT_EQ(Variant(-0.0).AsText(), "0");
    EXPECT_EQ(Variant(0.1 + 0.2).AsText(), "0.3");
    EXPECT_EQ(Variant(1234567890.125).AsText(), "1234567890.125");
    EXPECT_EQ(Variant(1e15).AsText(), "1E+15");
    EXPECT_EQ(Variant(0.00001).AsText(), "1E-05");
}

TEST(Variant, AsLongReadsEveryKind) {
    EXPECT_EQ(Variant().AsLong(), 0);
    EXPECT_EQ(Variant(7).AsLong(), 7);
    EXPECT_EQ(Variant(true).AsLong(), -1);
    EXPECT_EQ(Variant(false).AsLong(), 0);
    EXPECT_EQ(Variant(2.5).AsLong(), 2);
    EXPECT_EQ(Variant("12").AsLong(), 12);
    EXPECT_EQ(Variant(" -3.5 ").AsLong(), -4);
    EXPECT_EQ(Variant("+8").AsLong(), 8);
    EXPECT_EQ(Variant("1e2").AsLong(), 100);
    EXPECT_EQ(Variant("1e-999").AsLong(), 0);
}

TEST(Variant, AsLongOfAnyOtherTextIsATypeMismatch) {
    for (const char* text : {"", "abc", "12abc", "1 2", "True", "inf", "nan", "-", "+-1"}) {
        EXPECT_EQ(NumberRaisedBy([&] { Variant(text).AsLong(); }), runtimeerror::kTypeMismatch)
            << text;
    }
}

TEST(Variant, AsLongOutside32BitsOverflows) {
    for (const char* text : {"2147483648", "-1e10", "1e999"}) {
        EXPECT_EQ(NumberRaisedBy([&] { Variant(text).AsLong(); }), runtimeerror::kOverflow) << text;
    }
    EXPECT_EQ(NumberRaisedBy([] { Variant(3e9).AsLong(); }), runtimeerror::kOverflow);
}

TEST(Variant, AsBooleanReadsWordsAndNumbers) {
    EXPECT_TRUE(Variant("tRUE").AsBoolean());
    EXPECT_FALSE(Variant("FALSE").AsBoolean());
    EXPECT_TRUE(Variant("-1").AsBoolean());
    EXPECT_FALSE(Variant("0").AsBoolean());
    EXPECT_TRUE(Variant(0.25).AsBoolean()) << "not rounded";
    EXPECT_TRUE(Variant(2).AsBoolean());
    EXPECT_FALSE(Variant().AsBoolean());
    EXPECT_TRUE(Variant(true).AsBoolean());
    for (const char* text : {"", "Yes", "Tru"}) {
        EXPECT_EQ(NumberRaisedBy([&] { Variant(text).AsBoolean(); }), runtimeerror::kTypeMismatch)
            << text;
    }
}

}  // namespace
}  // namespace dorvik
