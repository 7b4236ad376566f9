#include "SampleValues.h"
#include "basic/values/NumberText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace dorvik::basic {

namespace {

using namespace sample;

constexpr std::string_view kMost = "79228162514264337593543950335";

DecimalNumber Number(std::string_view text) {
    return ToDecimal(Value::Text(text));
}

std::string Text(const DecimalNumber& number) {
    NumberBuffer buffer;
    return std::string(TextOfDecimal(number, buffer));
}

template <class Make>
std::string TextOrError(Make make) {
    try {
        return Text(make());
    } catch (const BasicError& error) {
        return "error " + std::to_string(error.Number());
    }
}

using Operation = DecimalNumber (*)(const DecimalNumber&, const DecimalNumber&);

struct DecimalCase {
    std::string_view Left;
    std::string_view Right;
    std::string_view Expected;
};

void Expect(Operation operation, std::initializer_list<DecimalCase> cases) {
    for (const DecimalCase& one : cases) {
        EXPECT_EQ(
            TextOrError([&] { return operation(Number(one.Left), Number(one.Right)); }),
            one.Expected)
            << one.Left << " and " << one.Right;
    }
}

}  // namespace

TEST(Decimal, Adds) {
    Expect(
        modDecimal::Add,
        {
            {"1", "2", "3"},
            {"0.1", "0.2", "0.3"},
            {"1", "-1", "0"},
            {"-1.5", "0.25", "-1.25"},
            {"1", "0.0000000000000000000000000001", "1.0000000000000000000000000001"},
            {kMost, "0.4", kMost},
            {kMost, "0.5", "error 6"},
            {kMost, "1", "error 6"},
            {"79228162514264337593543950334", "0.5", "79228162514264337593543950334"},
            {"10000000000000000000000000000",
             "0.0000000000000000000000000001",
             "10000000000000000000000000000"},
        });
}

TEST(Decimal, Subtracts) {
    Expect(
        modDecimal::Subtract,
        {
            {"3", "2", "1"},
            {"2", "3", "-1"},
            {"0.3", "0.1", "0.2"},
            {"-1", "-1", "0"},
            {"1", "0.0000000000000000000000000001", "0.9999999999999999999999999999"},
        });
}

TEST(Decimal, Multiplies) {
    Expect(
        modDecimal::Multiply,
        {
            {"2", "3", "6"},
            {"1.5", "-1.5", "-2.25"},
            {"0.1", "0.1", "0.01"},
            {"0", "-5", "0"},
            {"0.00000000000001", "0.00000000000001", "0.0000000000000000000000000001"},
            {"0.00000000000001", "0.000000000000005", "0"},  // half goes to the even zero
            {"0.00000000000003", "0.000000000000005", "0.0000000000000000000000000002"},
            {"123456789012345678901234567890", "1", "error 6"},
            {"281474976710656", "281474976710655", "79228162514264056118567239680"},
            {"281474976710656", "281474976710656", "error 6"},
            {"28147497671065.6", "281474976710656", "7922816251426433759354395034"},
            {"2814749767106.56", "2814749767106.56", "7922816251426433759354395.034"},
        });
}

TEST(Decimal, Divides) {
    Expect(
        modDecimal::Divide,
        {
            {"6", "3", "2"},
            {"1", "4", "0.25"},
            {"1", "3", "0.3333333333333333333333333333"},
            {"2", "3", "0.6666666666666666666666666667"},
            {"-2", "3", "-0.6666666666666666666666666667"},
            {"20000000000", "3", "6666666666.6666666666666666667"},
            {"1", "0.0000000000000000000000000001", "10000000000000000000000000000"},
            {kMost, "0.1", "error 6"},
            {"0", "5", "0"},
            {kMost, kMost, "1"},
            {"0.0000000000000000000000000001", "2", "0"},
            {"0.0000000000000000000000000003", "2", "0.0000000000000000000000000002"},
        });
}

TEST(Decimal, Compares) {
    EXPECT_EQ(modDecimal::Compare(Number("1.50"), Number("1.5")), std::strong_ordering::equal);
    EXPECT_EQ(modDecimal::Compare(Number("-2"), Number("1")), std::strong_ordering::less);
    EXPECT_EQ(modDecimal::Compare(Number("-2"), Number("-3")), std::strong_ordering::greater);
    EXPECT_EQ(
        modDecimal::Compare(Number(kMost), Number("0.0000000000000000000000000001")),
        std::strong_ordering::greater);
    EXPECT_EQ(modDecimal::Compare(Number("0"), Number("-0")), std::strong_ordering::equal);
}

TEST(Decimal, ReadsAndWritesTexts) {
    struct TextCase {
        std::string_view Given;
        std::string_view Expected;
    };
    const TextCase cases[] = {
        {"0", "0"},
        {"-0.00", "0"},
        {"1.2300", "1.23"},
        {kMost, kMost},
        {"-79228162514264337593543950335", "-79228162514264337593543950335"},
        {"79228162514264337593543950335.4", kMost},
        {"79228162514264337593543950335.5", "error 6"},
        {"79228162514264337593543950336", "error 6"},
        {"0.00000000000000000000000000005", "0"},
        {"0.00000000000000000000000000015", "0.0000000000000000000000000002"},
        {"0.000000000000000000000000000050000000000000000000000001",
         "0.0000000000000000000000000001"},
        {"1.23456789012345678901234567890123456789", "1.2345678901234567890123456789"},
        {"12345678901234567890.1234567890123456789", "12345678901234567890.123456789"},
        {"1E28", "10000000000000000000000000000"},
        {"1E29", "error 6"},
        {"1E-28", "0.0000000000000000000000000001"},
        {"1E-100", "0"},
        {"1E-99999", "0"},
        {"0E99999", "0"},
    };
    for (const TextCase& one : cases) {
        EXPECT_EQ(TextOrError([&] { return Number(one.Given); }), one.Expected) << one.Given;
    }
}

TEST(Decimal, TakesDoublesByFifteenDigits) {
    EXPECT_EQ(Text(modDecimal::FromDouble(0.1)), "0.1");
    EXPECT_EQ(Text(modDecimal::FromDouble(-1234.5678)), "-1234.5678");
    EXPECT_EQ(Text(modDecimal::FromDouble(1.0 / 3)), "0.333333333333333");
    EXPECT_EQ(Text(modDecimal::FromDouble(1e28)), "10000000000000000000000000000");
    EXPECT_EQ(Text(modDecimal::FromDouble(1e-40)), "0");
    EXPECT_EQ(Text(modDecimal::FromSingle(0.1F)), "0.1");
    EXPECT_EQ(ErrorOf([] { modDecimal::FromDouble(1e29); }), 6);
}

TEST(Decimal, GivesOtherNumbers) {
    EXPECT_EQ(modDecimal::ToDouble(Number("-1.5")), -1.5);
    EXPECT_EQ(modDecimal::ToDouble(Number("0.1")), 0.1);
    EXPECT_EQ(modDecimal::ToWhole(Number("2.5")), 2);
    EXPECT_EQ(modDecimal::ToWhole(Number("-3.5")), -4);
    EXPECT_EQ(ErrorOf([] { modDecimal::ToWhole(Number(kMost)); }), 6);
    EXPECT_EQ(modDecimal::ToWhole(Number("-9223372036854775808")), INT64_MIN);
    EXPECT_EQ(ErrorOf([] { modDecimal::ToWhole(Number("9223372036854775808")); }), 6);
    EXPECT_EQ(modDecimal::ToCurrency(Number("1.00005")), 10000);
    EXPECT_EQ(modDecimal::ToCurrency(Number("-1.00015")), -10002);
    EXPECT_EQ(modDecimal::ToCurrency(Number("922337203685477.5807")), INT64_MAX);
    EXPECT_EQ(ErrorOf([] { modDecimal::ToCurrency(Number("922337203685477.5808")); }), 6);
    EXPECT_EQ(ErrorOf([] { modDecimal::ToCurrency(Number(kMost)); }), 6);
    EXPECT_EQ(Text(modDecimal::FromCurrency(INT64_MIN)), "-922337203685477.5808");
}

TEST(Decimal, RoundsHalfToEvenAndCuts) {
    EXPECT_EQ(Text(modDecimal::Round(Number("2.345"), 2)), "2.34");
    EXPECT_EQ(Text(modDecimal::Round(Number("2.355"), 2)), "2.36");
    EXPECT_EQ(Text(modDecimal::Round(Number("2.3450000001"), 2)), "2.35");
    EXPECT_EQ(Text(modDecimal::Round(Number("-0.5"), 0)), "0");
    EXPECT_EQ(Text(modDecimal::Round(Number("9.99"), 1)), "10");
    EXPECT_EQ(Text(modDecimal::Round(Number("5"), 2)), "5");
    EXPECT_EQ(Text(modDecimal::Truncate(Number("-2.9"))), "-2");
    EXPECT_EQ(Text(modDecimal::Truncate(Number("0.9"))), "0");
}

TEST(Decimal, WorksInOperators) {
    EXPECT_EQ(Shown(Apply(BinaryOperator::Add, M("0.1"), D(0.2), kTyped)), "Decimal 0.3");
    EXPECT_EQ(Shown(Apply(BinaryOperator::Multiply, M("1.5"), X("2"), kTyped)), "Decimal 3");
    EXPECT_EQ(ErrorOf([] { Apply(BinaryOperator::Add, M("1"), D(1e30), kVariants); }), 6);
}

}  // namespace dorvik::basic
