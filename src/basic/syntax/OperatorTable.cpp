#include "OperatorTable.h"

#include <array>

namespace dorvik::basic {

namespace {

struct SignRow {
    TokenKind Kind;
    OperatorRow Row;
};
constexpr SignRow kSignRows[] = {
    {TokenKind::Caret, {BinaryOperator::Power, precedence::kPower}},
    {TokenKind::Star, {BinaryOperator::Multiply, precedence::kMultiplication}},
    {TokenKind::Slash, {BinaryOperator::Divide, precedence::kMultiplication}},
    {TokenKind::Backslash, {BinaryOperator::IntegerDivide, precedence::kIntegerDivision}},
    {TokenKind::Plus, {BinaryOperator::Add, precedence::kAddition}},
    {TokenKind::Minus, {BinaryOperator::Subtract, precedence::kAddition}},
    {TokenKind::Ampersand, {BinaryOperator::Concatenate, precedence::kConcatenation}},
    {TokenKind::Equal, {BinaryOperator::Equal, precedence::kComparison}},
    {TokenKind::NotEqual, {BinaryOperator::NotEqual, precedence::kComparison}},
    {TokenKind::Less, {BinaryOperator::Less, precedence::kComparison}},
    {TokenKind::Greater, {BinaryOperator::Greater, precedence::kComparison}},
    {TokenKind::LessOrEqual, {BinaryOperator::LessOrEqual, precedence::kComparison}},
    {TokenKind::GreaterOrEqual, {BinaryOperator::GreaterOrEqual, precedence::kComparison}},
};

struct WordRow {
    Keyword Word;
    OperatorRow Row;
};
constexpr WordRow kWordRows[] = {
    {Keyword::Mod, {BinaryOperator::Modulo, precedence::kModulo}},
    {Keyword::Like, {BinaryOperator::Like, precedence::kComparison}},
    {Keyword::Is, {BinaryOperator::Is, precedence::kComparison}},
    {Keyword::And, {BinaryOperator::And, precedence::kAnd}},
    {Keyword::Or, {BinaryOperator::Or, precedence::kOr}},
    {Keyword::Xor, {BinaryOperator::Xor, precedence::kXor}},
    {Keyword::Eqv, {BinaryOperator::Eqv, precedence::kEqv}},
    {Keyword::Imp, {BinaryOperator::Imp, precedence::kImp}},
};

constexpr auto kBySign = [] {
    std::array<OperatorRow, kTokenKinds> rows{};
    for (const SignRow& sign : kSignRows) {
        rows[static_cast<std::size_t>(sign.Kind)] = sign.Row;
    }
    return rows;
}();

constexpr auto kByWord = [] {
    std::array<OperatorRow, kKeywords> rows{};
    for (const WordRow& word : kWordRows) {
        rows[static_cast<std::size_t>(word.Word)] = word.Row;
    }
    return rows;
}();

}  // namespace

OperatorRow BinaryOperatorOf(const Token& token) {
    if (token.Kind == TokenKind::Keyword) {
        return kByWord[static_cast<std::size_t>(token.Word)];
    }
    return kBySign[static_cast<std::size_t>(token.Kind)];
}

}  // namespace dorvik::basic
