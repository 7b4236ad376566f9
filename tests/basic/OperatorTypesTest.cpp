#include "SampleValues.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>
#include <vector>

namespace dorvik::basic {

namespace {

using namespace sample;

// One letter for each type: E Empty, B Boolean, Y Byte, I Integer, L Long, S Single, D Double, C Currency,
// M Decimal, T Date, X String, N Null, ! an error.
constexpr std::string_view kLetters = "EBYILSDCMTXN";

const std::array<Value, 12>& Operands() {
    static const std::array<Value, 12> operands{
        E(), B(true), Y(2), I(2), L(2), S(2), D(2), C(20000), M("2"), T(2), X("2"), N()};
    return operands;
}

char LetterOf(const Value& value) {
    switch (value.Type()) {
        case ValueType::Empty: return 'E';
        case ValueType::Null: return 'N';
        case ValueType::Integer: return 'I';
        case ValueType::Long: return 'L';
        case ValueType::Single: return 'S';
        case ValueType::Double: return 'D';
        case ValueType::Currency: return 'C';
        case ValueType::Date: return 'T';
        case ValueType::String: return 'X';
        case ValueType::Boolean: return 'B';
        case ValueType::Decimal: return 'M';
        case ValueType::Byte: return 'Y';
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return '?';
}

char ResultLetter(BinaryOperator operation, const Value& left, const Value& right) {
    try {
        return LetterOf(Apply(operation, left, right, kTyped));
    } catch (const BasicError&) {
        return '!';
    }
}

/// One row for each left type, one letter in it for each right type, both in the order of `kLetters`.
using Table = std::array<std::string_view, 12>;

void ExpectTypes(const std::vector<BinaryOperator>& operations, const Table& table) {
    for (const BinaryOperator operation : operations) {
        for (std::size_t left = 0; left < kLetters.size(); ++left) {
            for (std::size_t right = 0; right < kLetters.size(); ++right) {
                EXPECT_EQ(
                    ResultLetter(operation, Operands().at(left), Operands().at(right)),
                    table.at(left)[right])
                    << "operator " << static_cast<int>(operation) << " with " << kLetters[left]
                    << " and " << kLetters[right];
            }
        }
    }
}

}  // namespace

TEST(OperatorTypes, AdditionGivesTheWiderType) {
    ExpectTypes(
        {BinaryOperator::Add},
        {
            // EBYILSDCMTXN
            "IIYILSDCMTXN",  // Empty gives the other operand
            "IIIILSDCMTDN",  // Boolean
            "YIYILSDCMTDN",  // Byte
            "IIIILSDCMTDN",  // Integer
            "LLLLLDDCMTDN",  // Long
            "SSSSDSDCMTDN",  // Single
            "DDDDDDDCMTDN",  // Double
            "CCCCCCCCMTCN",  // Currency
            "MMMMMMMMMTMN",  // Decimal
            "TTTTTTTTTTTN",  // Date
            "XDDDDDDCMTXN",  // String: two are joined
            "NNNNNNNNNNNN",  // Null
        });
}

TEST(OperatorTypes, SubtractionGivesTheWiderTypeAndADoubleForTwoDates) {
    ExpectTypes(
        {BinaryOperator::Subtract},
        {
            // EBYILSDCMTXN
            "IIIILSDCMTDN",  // Empty
            "IIIILSDCMTDN",  // Boolean
            "IIYILSDCMTDN",  // Byte
            "IIIILSDCMTDN",  // Integer
            "LLLLLDDCMTDN",  // Long
            "SSSSDSDCMTDN",  // Single
            "DDDDDDDCMTDN",  // Double
            "CCCCCCCCMTCN",  // Currency
            "MMMMMMMMMTMN",  // Decimal
            "TTTTTTTTTDTN",  // Date
            "DDDDDDDCMTDN",  // String
            "NNNNNNNNNNNN",  // Null
        });
}

TEST(OperatorTypes, MultiplicationTakesCurrencyWithAFloatAndDatesAsDouble) {
    ExpectTypes(
        {BinaryOperator::Multiply},
        {
            // EBYILSDCMTXN
            "IIIILSDCMDDN",  // Empty
            "IIIILSDCMDDN",  // Boolean
            "IIYILSDCMDDN",  // Byte
            "IIIILSDCMDDN",  // Integer
            "LLLLLDDCMDDN",  // Long
            "SSSSDSDDMDDN",  // Single
            "DDDDDDDDMDDN",  // Double
            "CCCCCDDCMDDN",  // Currency
            "MMMMMMMMMMMN",  // Decimal
            "DDDDDDDDMDDN",  // Date
            "DDDDDDDDMDDN",  // String
            "NNNNNNNNNNNN",  // Null
        });
}

TEST(OperatorTypes, DivisionGivesASingleOnlyForSinglesWithNarrowNumbers) {
    ExpectTypes(
        {BinaryOperator::Divide},
        {
            // EBYILSDCMTXN
            "!DDDDSDDMDDN",  // Empty
            "!DDDDSDDMDDN",  // Boolean
            "!DDDDSDDMDDN",  // Byte
            "!DDDDSDDMDDN",  // Integer
            "!DDDDDDDMDDN",  // Long
            "!SSSDSDDMDDN",  // Single
            "!DDDDDDDMDDN",  // Double
            "!DDDDDDDMDDN",  // Currency
            "!MMMMMMMMMMN",  // Decimal
            "!DDDDDDDMDDN",  // Date
            "!DDDDDDDMDDN",  // String
            "NNNNNNNNNNNN",  // Null
        });
}

TEST(OperatorTypes, WholeDivisionAndRemainderGiveByteIntegerOrLong) {
    ExpectTypes(
        {BinaryOperator::IntegerDivide, BinaryOperator::Modulo},
        {
            // EBYILSDCMTXN
            "!IIILLLLLLLN",  // Empty
            "!IIILLLLLLLN",  // Boolean
            "!IYILLLLLLLN",  // Byte
            "!IIILLLLLLLN",  // Integer
            "!LLLLLLLLLLN",  // Long
            "!LLLLLLLLLLN",  // Single
            "!LLLLLLLLLLN",  // Double
            "!LLLLLLLLLLN",  // Currency
            "!LLLLLLLLLLN",  // Decimal
            "!LLLLLLLLLLN",  // Date
            "!LLLLLLLLLLN",  // String
            "NNNNNNNNNNNN",  // Null
        });
}

TEST(OperatorTypes, PowersAreDoubles) {
    constexpr std::string_view kDoubles = "DDDDDDDDDDDN";
    ExpectTypes(
        {BinaryOperator::Power},
        {"D!DDDDDDDDDN",  // Empty ^ True is 0 ^ -1
         kDoubles,
         kDoubles,
         kDoubles,
         kDoubles,
         kDoubles,
         kDoubles,
         kDoubles,
         kDoubles,
         kDoubles,
         kDoubles,
         "NNNNNNNNNNNN"});
}

TEST(OperatorTypes, ConcatenationGivesATextUnlessBothAreNull) {
    constexpr std::string_view kTexts = "XXXXXXXXXXXX";
    ExpectTypes(
        {BinaryOperator::Concatenate},
        {kTexts,
         kTexts,
         kTexts,
         kTexts,
         kTexts,
         kTexts,
         kTexts,
         kTexts,
         kTexts,
         kTexts,
         kTexts,
         "XXXXXXXXXXXN"});
}

TEST(OperatorTypes, ComparisonsGiveBooleanOrNull) {
    constexpr std::string_view kTruths = "BBBBBBBBBBBN";
    ExpectTypes(
        {BinaryOperator::Equal,
         BinaryOperator::NotEqual,
         BinaryOperator::Less,
         BinaryOperator::Greater,
         BinaryOperator::LessOrEqual,
         BinaryOperator::GreaterOrEqual,
         BinaryOperator::Like},
        {kTruths,
         kTruths,
         kTruths,
         kTruths,
         kTruths,
         kTruths,
         kTruths,
         kTruths,
         kTruths,
         kTruths,
         kTruths,
         "NNNNNNNNNNNN"});
}

TEST(OperatorTypes, LogicGivesTheWiderOfByteBooleanIntegerAndLong) {
    // Without Null, whose results depend on the other value.
    const Table table{                // EBYILSDCMTX
                      "IIIILLLLLLL",  // Empty
                      "IBIILLLLLLL",  // Boolean
                      "IIYILLLLLLL",  // Byte
                      "IIIILLLLLLL",  // Integer
                      "LLLLLLLLLLL",  // Long
                      "LLLLLLLLLLL",  // Single
                      "LLLLLLLLLLL",  // Double
                      "LLLLLLLLLLL",  // Currency
                      "LLLLLLLLLLL",  // Decimal
                      "LLLLLLLLLLL",  // Date
                      "LLLLLLLLLLL",  // String
                      ""};
    for (const BinaryOperator operation :
         {BinaryOperator::And,
          BinaryOperator::Or,
          BinaryOperator::Xor,
          BinaryOperator::Eqv,
          BinaryOperator::Imp}) {
        for (std::size_t left = 0; left < table[0].size(); ++left) {
            for (std::size_t right = 0; right < table[0].size(); ++right) {
                EXPECT_EQ(
                    ResultLetter(operation, Operands().at(left), Operands().at(right)),
                    table.at(left)[right])
                    << "operator " << static_cast<int>(operation) << " with " << kLetters[left]
                    << " and " << kLetters[right];
            }
        }
    }
}

TEST(OperatorTypes, OneOperandKeepsItsTypeExceptThatNarrowOnesBecomeInteger) {
    constexpr std::string_view kNegated = "IIIILSDCMTDN";
    constexpr std::string_view kInverted = "IBYILLLLLLLN";
    for (std::size_t i = 0; i < kLetters.size(); ++i) {
        EXPECT_EQ(LetterOf(Apply(UnaryOperator::Negate, Operands().at(i), false)), kNegated[i]);
        EXPECT_EQ(LetterOf(Apply(UnaryOperator::Plus, Operands().at(i), false)), kLetters[i]);
        EXPECT_EQ(LetterOf(Apply(UnaryOperator::Not, Operands().at(i), false)), kInverted[i]);
    }
}

TEST(OperatorTypes, ErrorsArraysAndRecordsAreNoOperands) {
    const std::array<Value, 4> strangers{
        Value::Error(2042),
        Value::Missing(),
        Value::Array(MakeRef<ArrayBody>(DeclaredType{}, false)),
        Value::Record(MakeRef<RecordBody>(0, std::vector<Value>()))};
    for (int operation = 0; operation <= static_cast<int>(BinaryOperator::Imp); ++operation) {
        const auto binary = static_cast<BinaryOperator>(operation);
        const int expected = binary == BinaryOperator::Is ? 424 : 13;
        for (const Value& stranger : strangers) {
            for (const Value& other : {L(1), N()}) {
                EXPECT_EQ(ErrorOf([&] { Apply(binary, stranger, other, kTyped); }), expected)
                    << operation;
                EXPECT_EQ(ErrorOf([&] { Apply(binary, other, stranger, kTyped); }), expected)
                    << operation;
            }
        }
    }
    for (const Value& stranger : strangers) {
        for (const UnaryOperator unary :
             {UnaryOperator::Negate, UnaryOperator::Plus, UnaryOperator::Not}) {
            EXPECT_EQ(ErrorOf([&] { Apply(unary, stranger, true); }), 13);
        }
    }
}

}  // namespace dorvik::basic
